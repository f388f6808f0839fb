#include "timeeditor.h"

#include <QWheelEvent>

namespace
{
/// Date and time as on a wall: no zone, so no hour that does not exist.
QDateTime OnWall(const QVariant& in_value)
{
    const QDateTime both = in_value.toDateTime();
    switch (in_value.userType())
    {
    case QMetaType::QDate:
        return QDateTime(in_value.toDate(), QTime(0, 0), Qt::UTC);
    case QMetaType::QTime:
        return QDateTime(QDate(2000, 1, 1), in_value.toTime(), Qt::UTC);
    default:
        return QDateTime(both.date(), both.time(), Qt::UTC);
    }
}
} // namespace

CTimeEditor::CTimeEditor(const QString& in_strDisplayFormat, const sPropertyFormat& in_format, QWidget* in_pParent)
    : QDateTimeEdit(in_pParent)
{
    setFrame(false);
    setTimeSpec(Qt::UTC);
    if (locale().textDirection() == Qt::LeftToRight)
    {
        setLayoutDirection(Qt::LeftToRight); // else Qt turns the format round, for texts that read from right to left
    }
    setDisplayFormat(in_strDisplayFormat);
    setCalendarPopup(displayedSections() & DateSections_Mask);
    setDateTimeRange(QDateTime(QDate(100, 1, 1), QTime(0, 0), Qt::UTC),
                     QDateTime(QDate(9999, 12, 31), QTime(23, 59, 59, 999), Qt::UTC));
    const QDateTime minimum = OnWall(in_format.minimum);
    const QDateTime maximum = OnWall(in_format.maximum);
    minimum.isValid() ? setMinimumDateTime(minimum) : void();
    maximum.isValid() ? setMaximumDateTime(maximum) : void();
}

QVariant CTimeEditor::Value() const
{
    if (dateTime() == m_shown)
    {
        return m_value;
    }
    switch (m_value.userType())
    {
    case QMetaType::QDate:
        return date();
    case QMetaType::QTime:
        return time();
    default:
    {
        QDateTime value = m_value.toDateTime(); // with its zone
        value.setDate(date());
        value.setTime(time());
        return value;
    }
    }
}

void CTimeEditor::SetValue(const QVariant& in_value)
{
    if (m_value.isValid() && in_value == Value())
    {
        return; // what is half typed stays
    }
    m_value = in_value;
    const QDateTime wall = OnWall(in_value);
    setDateTime(wall.isValid() ? wall : QDateTime(QDate::currentDate(), QTime(0, 0), Qt::UTC));
    m_shown = dateTime();
}

void CTimeEditor::wheelEvent(QWheelEvent* in_pEvent)
{
    hasFocus() ? QDateTimeEdit::wheelEvent(in_pEvent) : in_pEvent->ignore();
}
