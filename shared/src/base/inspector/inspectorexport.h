#ifndef INSPECTOREXPORT_H
#define INSPECTOREXPORT_H

/// INSPECTOR_EXPORT marks what the library gives to applications; all else stays inside it.
///
/// INSPECTOR_STATIC is defined for a static library and for whoever links one: nothing needs a mark then.
/// INSPECTOR_BUILDING is defined while the library itself is compiled.
/// \file

/// \def INSPECTOR_EXPORT
/// In front of a name: part of the library's interface.

#if defined(INSPECTOR_STATIC)
#define INSPECTOR_EXPORT
#elif !defined(_WIN32)
#define INSPECTOR_EXPORT __attribute__((visibility("default")))
#elif defined(INSPECTOR_BUILDING)
#define INSPECTOR_EXPORT __declspec(dllexport)
#else
#define INSPECTOR_EXPORT __declspec(dllimport)
#endif

#endif
