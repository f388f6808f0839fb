#include "texteditor.h"

#include "valuetypes.h"

#include <QKeyEvent>
#include <QStyle>
#include <QTextBlock>
#include <QWheelEvent>

#include <algorithm>
#include <limits>

CTextEditor::CTextEditor(const CPropertyType& in_type, const sPropertyFormat& in_format, QWidget* in_pParent)
    : QLineEdit(in_pParent),
      m_type(in_type),
      m_format(in_format)
{
    setFrame(false);
    setMaxLength(std::numeric_limits<int>::max()); // a text is not cut because it is edited
}

QVariant CTextEditor::Value() const
{
    const QVariant typed = text() == m_strShown ? QVariant() : m_type.FromText(m_format, text(), m_value);
    return typed.isValid() ? typed : m_value;
}

void CTextEditor::SetValue(const QVariant& in_value)
{
    const QString strText = in_value.isValid() ? m_type.Text(m_format, in_value) : QString();
    const bool bChanged = !m_value.isValid() || strText != m_type.Text(m_format, m_value);
    if (!bChanged && m_type.Text(m_format, Value()) == strText)
    {
        return; // what is half typed stays
    }
    m_value = in_value;
    m_strShown = strText;
    setText(strText);
    if (bChanged)
    {
        Q_EMIT ValueChanged(m_value);
    }
}

CLongTextEditor::CLongTextEditor(QWidget* in_pParent) : QPlainTextEdit(in_pParent)
{
    setTabChangesFocus(true);
    QPalette colours = palette();
    colours.setBrush(QPalette::WindowText, colours.placeholderText());
    setPalette(colours);
    setFrameStyle(QFrame::Box | QFrame::Plain); // it lies over other rows: its border is seen in dark palettes too
}

void CLongTextEditor::SetValue(const QVariant& in_value)
{
    if (!m_value.isValid() || in_value != Value())
    {
        m_value = in_value;
        setPlainText(ToText(in_value));
    }
}

QSize CLongTextEditor::sizeHint() const
{
    const int iLines = std::max(4, std::min(12, document()->blockCount() + 1));
    const int iAround = 2 * (frameWidth() + static_cast<int>(document()->documentMargin()));
    return QSize(QPlainTextEdit::sizeHint().width(), iLines * fontMetrics().lineSpacing() + iAround);
}

void CLongTextEditor::wheelEvent(QWheelEvent* in_pEvent)
{
    hasFocus() ? QPlainTextEdit::wheelEvent(in_pEvent) : in_pEvent->ignore();
}

/// toPlainText makes plain spaces of no-break ones and line feeds of line separators.
QString CLongTextEditor::Plain() const
{
    QStringList lines;
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next())
    {
        lines << block.text().replace(QChar::LineSeparator, QLatin1Char('\n'));
    }
    return lines.join(QLatin1Char('\n'));
}

QString CLinesEditor::ToText(const QVariant& in_value) const
{
    return JoinedItems(in_value.toStringList(), QLatin1Char('\n'));
}

QVariant CLinesEditor::ToValue(const QString& in_strText) const
{
    QStringList items;
    for (const QString& strLine : in_strText.split(QLatin1Char('\n')))
    {
        QStringList quoted;
        const bool bRead = SplitItems(strLine, QLatin1Char('\n'), quoted);
        items << (bRead ? quoted : QStringList(strLine)); // a quote that is never closed is just one
    }
    return items;
}

CKeySequenceEditor::CKeySequenceEditor(QWidget* in_pParent) : QKeySequenceEdit(in_pParent)
{
    if (QLineEdit* pLine = findChild<QLineEdit*>())
    {
        pLine->setFrame(false);
        pLine->setClearButtonEnabled(true);
    }
}

void CKeySequenceEditor::SetValue(const QVariant& in_value)
{
    if (in_value != Value())
    {
        setKeySequence(in_value.value<QKeySequence>()); // else it would end a recording
    }
}

/// The base begins to record with a key that only goes with others, and would forget all when Shift+Tab goes back.
void CKeySequenceEditor::keyPressEvent(QKeyEvent* in_pEvent)
{
    switch (in_pEvent->key())
    {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_Meta:
    case Qt::Key_AltGr:
        in_pEvent->ignore();
        break;
    default:
        QKeySequenceEdit::keyPressEvent(in_pEvent);
    }
}
