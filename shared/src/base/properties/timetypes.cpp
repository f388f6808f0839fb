#include "timeeditor.h"
#include "valuetypes.h"

#include <QDateTime>
#include <QLocale>
#include <QTimeZone>

namespace
{
/// The locale's short format, with the century.
QString DateFormat()
{
    const QString strFormat = QLocale().dateFormat(QLocale::ShortFormat);
    const QString strYear = QStringLiteral("yy");
    return strFormat.contains(strYear + strYear) ? strFormat : QString(strFormat).replace(strYear, strYear + strYear);
}

/// The locale's short format, with seconds.
QString TimeFormat()
{
    QString strFormat = QLocale().timeFormat(QLocale::ShortFormat);
    const int iMinutes = int(strFormat.indexOf(QLatin1String("mm")));
    if (iMinutes > 0 && !strFormat.contains(QLatin1String("ss")))
    {
        strFormat.insert(iMinutes + 2, strFormat.at(iMinutes - 1) + QStringLiteral("ss"));
    }
    return strFormat;
}

class CTimeType : public CPropertyType
{
public:
    eWork Work() const override { return eTyped; }

    QWidget* CreateEditor(const sPropertyFormat& in_format, QWidget* in_pParent) const override
    {
        return new CTimeEditor(DisplayFormat(), in_format, in_pParent);
    }

protected:
    virtual QString DisplayFormat() const = 0;

    /// The first that is a value, of none the empty one where nothing is typed, within the limits.
    template <class T>
    static QVariant FirstValid(const sPropertyFormat& in_format, const QString& in_strText,
                               std::initializer_list<T> in_values)
    {
        const T minimum = in_format.minimum.value<T>();
        const T maximum = in_format.maximum.value<T>();
        for (const T& value : in_values)
        {
            if (value.isValid())
            {
                return minimum.isValid() && value < minimum   ? minimum
                       : maximum.isValid() && maximum < value ? maximum
                                                              : value;
            }
        }
        return in_strText.trimmed().isEmpty() ? QVariant::fromValue(T()) : QVariant();
    }
};

class CDateType final : public CTimeType
{
public:
    QString DisplayFormat() const override { return DateFormat(); }

    QString Shown(const sPropertyFormat&, const QVariant& in_value) const override
    {
        return QLocale().toString(in_value.toDate(), DisplayFormat());
    }

    QString Text(const sPropertyFormat&, const QVariant& in_value) const override
    {
        return in_value.toDate().toString(Qt::ISODate);
    }

    QVariant FromText(const sPropertyFormat& in_format, const QString& in_strText, const QVariant&) const override
    {
        return FirstValid<QDate>(in_format, in_strText,
                                 {QDate::fromString(in_strText.trimmed(), Qt::ISODate),
                                  QLocale().toDate(in_strText.trimmed(), DisplayFormat())});
    }
};

class CClockType final : public CTimeType
{
public:
    QString DisplayFormat() const override { return TimeFormat(); }

    QString Shown(const sPropertyFormat&, const QVariant& in_value) const override
    {
        return QLocale().toString(in_value.toTime(), DisplayFormat());
    }

    QString Text(const sPropertyFormat&, const QVariant& in_value) const override
    {
        const QTime time = in_value.toTime();
        return time.toString(time.msec() ? Qt::ISODateWithMs : Qt::ISODate);
    }

    QVariant FromText(const sPropertyFormat& in_format, const QString& in_strText, const QVariant&) const override
    {
        return FirstValid<QTime>(in_format, in_strText,
                                 {QTime::fromString(in_strText.trimmed(), Qt::ISODateWithMs),
                                  QLocale().toTime(in_strText.trimmed(), DisplayFormat())});
    }
};

class CDateTimeType final : public CTimeType
{
public:
    QString DisplayFormat() const override { return DateFormat() + QLatin1Char(' ') + TimeFormat(); }

    QString Shown(const sPropertyFormat&, const QVariant& in_value) const override
    {
        return QLocale().toString(in_value.toDateTime(), DisplayFormat());
    }

    QString Text(const sPropertyFormat&, const QVariant& in_value) const override
    {
        const QDateTime both = in_value.toDateTime();
        return both.toString(both.time().msec() ? Qt::ISODateWithMs : Qt::ISODate);
    }

    QVariant FromText(const sPropertyFormat& in_format, const QString& in_strText,
                      const QVariant& in_present) const override
    {
        const QString strText = in_strText.trimmed();
        return FirstValid<QDateTime>(in_format, strText,
                                     {InZone(QDateTime::fromString(strText, Qt::ISODateWithMs), in_present),
                                      InZone(QLocale().toDateTime(strText, DisplayFormat()), in_present)});
    }

private:
    /// A text without a zone means that of the present value; one with an offset is the same moment in it.
    static QDateTime InZone(const QDateTime& in_typed, const QVariant& in_present)
    {
        QDateTime inZone = in_present.toDateTime();
        if (!inZone.isValid() || !in_typed.isValid())
        {
            return in_typed;
        }
        if (in_typed.timeSpec() != Qt::LocalTime)
        {
            return inZone.timeSpec() == Qt::TimeZone ? in_typed.toTimeZone(inZone.timeZone()) : in_typed;
        }
        inZone.setDate(in_typed.date());
        inZone.setTime(in_typed.time());
        return inZone;
    }
};
} // namespace

const CPropertyType* TimeTypeOf(int in_iType)
{
    static const CDateType date;
    static const CClockType time;
    static const CDateTimeType both;
    return in_iType == QMetaType::QDate       ? static_cast<const CPropertyType*>(&date)
           : in_iType == QMetaType::QTime     ? &time
           : in_iType == QMetaType::QDateTime ? static_cast<const CPropertyType*>(&both)
                                              : nullptr;
}
