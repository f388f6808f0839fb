#include "numbereditor.h"

#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QStyle>
#include <QWheelEvent>

#include <algorithm>

CNumberEditor::CNumberEditor(const CPropertyType& in_type, const sPropertyFormat& in_format, QWidget* in_pParent)
    : QAbstractSpinBox(in_pParent),
      m_type(in_type),
      m_format(in_format),
      m_pPrefix(Beside(in_format.prefix)),
      m_pSuffix(Beside(in_format.suffix))
{
    m_format.prefix.clear();
    m_format.suffix.clear();
    setFrame(false);
    setAccelerated(true);
    if (m_pPrefix || m_pSuffix)
    {
        connect(lineEdit(), &QLineEdit::textChanged, this, &CNumberEditor::PlaceBeside);
    }
}

QLabel* CNumberEditor::Beside(const QString& in_strText)
{
    QLabel* pLabel = in_strText.isEmpty() ? nullptr : new QLabel(in_strText, lineEdit());
    if (pLabel)
    {
        pLabel->setTextFormat(Qt::PlainText);
        pLabel->setForegroundRole(QPalette::PlaceholderText);
        pLabel->setAttribute(Qt::WA_TransparentForMouseEvents);
    }
    return pLabel;
}

void CNumberEditor::resizeEvent(QResizeEvent* in_pEvent)
{
    QAbstractSpinBox::resizeEvent(in_pEvent);
    PlaceBeside();
}

/// In the order in which the whole is read: beside the text, as long as there is room.
void CNumberEditor::PlaceBeside()
{
    const auto textOf = [](const QLabel* in_pLabel) { return in_pLabel ? in_pLabel->text() : QString(); };
    const auto widthOf = [](const QLabel* in_pLabel) { return in_pLabel ? in_pLabel->sizeHint().width() : 0; };
    const bool bMirrored = (textOf(m_pPrefix) + textOf(m_pSuffix)).isRightToLeft();
    QLabel* pLeft = bMirrored ? m_pSuffix : m_pPrefix;
    QLabel* pRight = bMirrored ? m_pPrefix : m_pSuffix;
    const int iLeft = widthOf(pLeft);
    const int iRight = widthOf(pRight);
    const int iGap = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, this) + 1;
    const int iText = lineEdit()->fontMetrics().horizontalAdvance(text()) + 2 * iGap;
    const int iWidth = lineEdit()->width();
    const bool bFromRight = isRightToLeft();
    const int iLeftAt = bFromRight ? std::max(0, iWidth - iRight - iText - iLeft) : iGap;
    const int iRightAt = bFromRight ? iWidth - iGap - iRight : std::min(iLeft + iText, iWidth - iRight);
    pLeft ? pLeft->setGeometry(iLeftAt, 0, iLeft, lineEdit()->height()) : void();
    pRight ? pRight->setGeometry(iRightAt, 0, iRight, lineEdit()->height()) : void();
    lineEdit()->setTextMargins(iLeft, 0, iRight, 0);
}

QVariant CNumberEditor::Value() const
{
    const QVariant typed = text() == m_strShown ? QVariant() : m_type.FromText(m_format, text(), m_value);
    return typed.isValid() ? typed : m_value;
}

void CNumberEditor::SetValue(const QVariant& in_value)
{
    // By text: no number equals NaN, and what differs in no digit does not differ.
    const bool bChanged =
        in_value.isValid() != m_value.isValid() || m_type.Text(m_format, in_value) != m_type.Text(m_format, m_value);
    if (!bChanged && m_type.Text(m_format, Value()) == m_type.Text(m_format, m_value))
    {
        return; // what is typed, like 2+3 for 5, or half of it, stays
    }
    m_value = in_value;
    m_strShown = m_value.isValid() ? m_type.Shown(m_format, m_value) : QString();
    lineEdit()->setText(m_strShown);
    if (bChanged)
    {
        Q_EMIT ValueChanged(m_value);
    }
}

void CNumberEditor::stepBy(int in_iSteps)
{
    const QVariant stepped = m_type.Stepped(m_format, Value(), in_iSteps);
    if (stepped.isValid())
    {
        const QPointer<CNumberEditor> self(this);
        SetValue(stepped);
        self ? selectAll() : void();
    }
}

QAbstractSpinBox::StepEnabled CNumberEditor::stepEnabled() const
{
    const QVariant value = Value();
    const auto Changes = [&](int in_iSteps) {
        const QVariant stepped = m_type.Stepped(m_format, value, in_iSteps);
        return stepped.isValid() && stepped != value;
    };
    return (Changes(1) ? StepUpEnabled : StepNone) | (Changes(-1) ? StepDownEnabled : StepNone);
}

QValidator::State CNumberEditor::validate(QString& io_strText, int&) const
{
    const bool bNumber = m_type.FromText(m_format, io_strText, m_value).isValid();
    return bNumber ? QValidator::Acceptable : QValidator::Intermediate;
}

void CNumberEditor::wheelEvent(QWheelEvent* in_pEvent)
{
    if (hasFocus())
    {
        QAbstractSpinBox::wheelEvent(in_pEvent);
    }
    else
    {
        in_pEvent->ignore(); // the page scrolls
    }
}
