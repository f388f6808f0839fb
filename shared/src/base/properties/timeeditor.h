#ifndef TIMEEDITOR_H
#define TIMEEDITOR_H

#include "propertytype.h"

#include <QDateTimeEdit>

/// Edits a date, a time or both. What it cannot show, no date or one out of its calendar, stays until it is changed.
class CTimeEditor final : public QDateTimeEdit
{
    Q_OBJECT
    Q_PROPERTY(QVariant value READ Value WRITE SetValue USER true)

public:
    CTimeEditor(const QString& in_strDisplayFormat, const sPropertyFormat& in_format, QWidget* in_pParent);

    QVariant Value() const;
    void SetValue(const QVariant& in_value);

protected:
    void wheelEvent(QWheelEvent* in_pEvent) override;

private:
    QVariant m_value;
    QDateTime m_shown; ///< while that is the time, nothing was changed
};

#endif
