#ifndef DIALOGEDITOR_H
#define DIALOGEDITOR_H

#include "texteditor.h"

#include <QPointer>

class QDialog;

/// A line with a button that opens a dialog: a press, F4, or Alt+Down as for any list.
class CDialogEditor : public CTextEditor
{
    Q_OBJECT

public:
    CDialogEditor(const CPropertyType& in_type, const sPropertyFormat& in_format, QWidget* in_pParent);

    /// Opens the dialog, modal to the window; returns at once.
    void OpenDialog();

protected:
    void keyPressEvent(QKeyEvent* in_pEvent) override;

private:
    /// A new dialog, a child of this, that writes what is chosen by SetValue.
    virtual QDialog* CreateDialog() = 0;

    QPointer<QDialog> m_pDialog;
};

/// Edits a colour; the dialog writes as it is worked.
class CColourEditor final : public CDialogEditor
{
    Q_OBJECT

public:
    CColourEditor(const CPropertyType& in_type, const sPropertyFormat& in_format, QWidget* in_pParent);

private:
    void ShowSwatch();
    QDialog* CreateDialog() override;

    QAction* m_pSwatch;
};

/// Edits a font; the dialog writes as it is worked.
class CFontEditor final : public CDialogEditor
{
    Q_OBJECT

public:
    using CDialogEditor::CDialogEditor;

private:
    QDialog* CreateDialog() override;
};

#endif
