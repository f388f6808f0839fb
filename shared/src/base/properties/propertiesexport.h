#ifndef PROPERTIESEXPORT_H
#define PROPERTIESEXPORT_H

/// PROPERTIES_EXPORT marks what the library gives to applications; all else stays inside it. As with the first library,
/// INSPECTOR_STATIC is for static libraries and those who link them, PROPERTIES_BUILDING for the library itself.
/// \file

/// \def PROPERTIES_EXPORT
/// In front of a name: part of the library's interface.

#if defined(INSPECTOR_STATIC)
#define PROPERTIES_EXPORT
#elif !defined(_WIN32)
#define PROPERTIES_EXPORT __attribute__((visibility("default")))
#elif defined(PROPERTIES_BUILDING)
#define PROPERTIES_EXPORT __declspec(dllexport)
#else
#define PROPERTIES_EXPORT __declspec(dllimport)
#endif

#endif
