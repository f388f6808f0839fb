#include "numbereditor.h"

#include <QLineEdit>
#include <QPointer>
#include <QWheelEvent>

CNumberEditor::CNumberEditor(const CPropertyType& in_type, const sPropertyFormat& in_format, QWidget* in_pParent)
    : QAbstractSpinBox(in_pParent),
      m_type(in_type),
      m_format(in_format)
{
    m_format.prefix.clear();
    m_format.suffix.clear();
    setFrame(false);
    setAccelerated(true);
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
