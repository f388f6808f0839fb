#ifndef VIEWACCESSIBLE_H
#define VIEWACCESSIBLE_H

class QWidget;

/// What assistive technology is told of a view. Nothing is made, and nothing costs anything, before it asks. On Qt 4
/// all of it does nothing. Private to the library.
namespace InspectorAccessible
{
/// Lets Qt ask here about views and data widgets.
void Install();

/// A data widget has the focus.
void TellFocus(QWidget* in_pFocused);

/// A data widget shows its value anew.
void TellValue(QWidget* in_pControl);

/// Names an editor after the row that it is about to be opened over.
void NameEditor(QWidget* in_pEditor, QWidget* in_pOver);
} // namespace InspectorAccessible

#endif
