#ifndef PICTURES_H
#define PICTURES_H

class QString;

/// Renders the demo in its various states as PNG files in a directory and prints their paths. Needs no screen.
/// \return whether all were written
bool WritePictures(const QString& in_strDirectory, bool in_bDark);

#endif
