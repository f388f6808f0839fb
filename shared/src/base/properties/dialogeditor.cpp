#include "dialogeditor.h"

#include "pictures.h"

#include <QAction>
#include <QColorDialog>
#include <QFontDialog>
#include <QKeyEvent>

CDialogEditor::CDialogEditor(const CPropertyType& in_type, const sPropertyFormat& in_format, QWidget* in_pParent)
    : CTextEditor(in_type, in_format, in_pParent)
{
    QAction* pOpen = addAction(Pictures::Ellipsis(), TrailingPosition);
    pOpen->setText(tr("Choose…"));
    pOpen->setToolTip(pOpen->text());
    connect(pOpen, &QAction::triggered, this, &CDialogEditor::OpenDialog);
}

void CDialogEditor::OpenDialog()
{
    if (m_pDialog || isReadOnly())
    {
        return;
    }
    m_pDialog = CreateDialog();
    m_pDialog->setAttribute(Qt::WA_DeleteOnClose);
    m_pDialog->open();
}

void CDialogEditor::keyPressEvent(QKeyEvent* in_pEvent)
{
    const bool bAltDown = in_pEvent->key() == Qt::Key_Down && in_pEvent->modifiers() == Qt::AltModifier;
    if (bAltDown || (in_pEvent->key() == Qt::Key_F4 && in_pEvent->modifiers() == Qt::NoModifier))
    {
        OpenDialog();
    }
    else
    {
        CTextEditor::keyPressEvent(in_pEvent);
    }
}

CColourEditor::CColourEditor(const CPropertyType& in_type, const sPropertyFormat& in_format, QWidget* in_pParent)
    : CDialogEditor(in_type, in_format, in_pParent),
      m_pSwatch(addAction(Pictures::Swatch(QBrush()), LeadingPosition))
{
    m_pSwatch->setText(tr("Choose…"));
    connect(m_pSwatch, &QAction::triggered, this, &CDialogEditor::OpenDialog);
    connect(this, &QLineEdit::textChanged, this, &CColourEditor::ShowSwatch);
}

void CColourEditor::ShowSwatch()
{
    const QColor colour = Value().value<QColor>();
    m_pSwatch->setIcon(Pictures::Swatch(colour.isValid() ? QBrush(colour) : QBrush()));
}

QDialog* CColourEditor::CreateDialog()
{
    const QVariant before = Value();
    const QColor colour = before.value<QColor>();
    QColorDialog* pDialog = new QColorDialog(colour.isValid() ? colour : QColor(Qt::white), this);
    pDialog->setOption(QColorDialog::ShowAlphaChannel);
    connect(pDialog, &QColorDialog::currentColorChanged, this,
            [this](const QColor& in_colour) { SetValue(in_colour); });
    connect(pDialog, &QColorDialog::colorSelected, this, [this](const QColor& in_colour) { SetValue(in_colour); });
    connect(pDialog, &QDialog::rejected, this, [this, before] { SetValue(before); });
    return pDialog;
}

QDialog* CFontEditor::CreateDialog()
{
    const QVariant before = Value();
    QFontDialog* pDialog = new QFontDialog(before.value<QFont>(), this);
    // The dialog has sizes in points and styles that are installed: what it makes of the font is no choice of the
    // user's.
    const QFont shown = pDialog->currentFont();
    const auto Take = [this, before, shown](const QFont& in_font) {
        SetValue(in_font == shown ? before : QVariant(in_font));
    };
    connect(pDialog, &QFontDialog::currentFontChanged, this, Take);
    connect(pDialog, &QFontDialog::fontSelected, this, Take);
    connect(pDialog, &QDialog::rejected, this, [this, before] { SetValue(before); });
    return pDialog;
}
