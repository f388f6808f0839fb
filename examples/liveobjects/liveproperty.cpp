#include "liveproperty.h"

#include "qtcompat.h"

#include <QPointF>
#include <QRectF>
#include <QSizeF>

#include <algorithm>
#include <iterator>
#include <vector>

namespace
{
bool IsWholeNumber(int in_iType)
{
    static const int types[] = {QMetaType::Short, QMetaType::UShort, QMetaType::Int,      QMetaType::UInt,
                                QMetaType::Long,  QMetaType::ULong,  QMetaType::LongLong, QMetaType::ULongLong};
    return std::find(std::begin(types), std::end(types), in_iType) != std::end(types);
}

bool IsTextType(int in_iType)
{
    static const int types[] = {QMetaType::Float,     QMetaType::Double,      QMetaType::QChar, QMetaType::QString,
                                QMetaType::QUrl,      QMetaType::QColor,      QMetaType::QDate, QMetaType::QTime,
                                QMetaType::QDateTime, QMetaType::QKeySequence};
    return IsWholeNumber(in_iType) || std::find(std::begin(types), std::end(types), in_iType) != std::end(types);
}

std::vector<double> SplitParts(const QVariant& in_value)
{
    switch (in_value.userType())
    {
    case QMetaType::QPoint:
    case QMetaType::QPointF:
        return {in_value.toPointF().x(), in_value.toPointF().y()};
    case QMetaType::QSize:
    case QMetaType::QSizeF:
        return {in_value.toSizeF().width(), in_value.toSizeF().height()};
    case QMetaType::QRect:
    case QMetaType::QRectF:
    {
        const QRectF rect = in_value.toRectF();
        return {rect.x(), rect.y(), rect.width(), rect.height()};
    }
    default:
        return {};
    }
}

QVariant JoinParts(int in_iType, const std::vector<double>& in_parts)
{
    switch (in_iType)
    {
    case QMetaType::QPoint:
        return QPointF(in_parts[0], in_parts[1]).toPoint();
    case QMetaType::QPointF:
        return QPointF(in_parts[0], in_parts[1]);
    case QMetaType::QSize:
        return QSizeF(in_parts[0], in_parts[1]).toSize();
    case QMetaType::QSizeF:
        return QSizeF(in_parts[0], in_parts[1]);
    case QMetaType::QRect:
        return QRectF(in_parts[0], in_parts[1], in_parts[2], in_parts[3]).toRect();
    default:
        return QRectF(in_parts[0], in_parts[1], in_parts[2], in_parts[3]);
    }
}

bool HasWholeParts(int in_iType)
{
    return in_iType == QMetaType::QPoint || in_iType == QMetaType::QSize || in_iType == QMetaType::QRect;
}
} // namespace

CLiveProperty::CLiveProperty(QObject* in_pObject, const QMetaProperty& in_property)
    : m_pObject(in_pObject),
      m_property(in_property)
{}

CLiveProperty::eKind CLiveProperty::GetKind() const
{
    if (m_property.isFlagType())
    {
        return eFlags;
    }
    if (m_property.isEnumType())
    {
        return eEnum;
    }
    if (m_property.userType() == QMetaType::Bool)
    {
        return eBool;
    }
    if (IsTextType(m_property.userType()))
    {
        return eText;
    }
    return CountParts() > 0 ? eParts : eOther;
}

/// Qt does not say which texts are long; these are the ones that Qt itself declares.
bool CLiveProperty::IsLongText() const
{
    static const char* const names[] = {"toolTip", "whatsThis", "styleSheet", "plainText", "html"};
    const auto isName = [this](const char* in_strName) { return qstrcmp(in_strName, m_property.name()) == 0; };
    return std::any_of(std::begin(names), std::end(names), isName) || ReadText().contains(QLatin1Char('\n'));
}

bool CLiveProperty::IsWritable() const
{
    return m_property.isWritable() && GetKind() != eOther;
}

QVariant CLiveProperty::Read() const
{
    return m_pObject ? m_property.read(m_pObject) : QVariant();
}

void CLiveProperty::Write(const QVariant& in_value) const
{
    if (m_pObject)
    {
        m_property.write(m_pObject, in_value);
    }
}

QString CLiveProperty::ReadText() const
{
    const QString strText = Read().toString();
    if (GetKind() != eOther)
    {
        return strText;
    }
    const QString strType = QLatin1String(m_property.typeName());
    return strText.isEmpty() ? strType : strType + QLatin1String(": ") + strText;
}

/// Qt cuts a whole number that is too large to the bits that there are, and makes a key sequence or an address without
/// a meaning an empty one.
void CLiveProperty::WriteText(const QString& in_strText) const
{
    QVariant value(in_strText);
    const bool bConverts = QtCompat::Convert(value, m_property.userType());
    const bool bFits = !IsWholeNumber(m_property.userType()) || value.toDouble() == in_strText.toDouble();
    const bool bMeansSomething = value.toString().isEmpty() == in_strText.isEmpty();
    if (bConverts && bFits && bMeansSomething)
    {
        Write(value);
    }
}

int CLiveProperty::ReadKeys() const
{
    const QVariant value = Read();
    bool bIsNumber = false;
    const int iKeys = value.toInt(&bIsNumber);
    if (bIsNumber || !value.isValid())
    {
        return iKeys;
    }
    return *static_cast<const int*>(value.constData()); // a type of its own that Qt does not convert to a number
}

int CLiveProperty::CountParts() const
{
    return static_cast<int>(SplitParts(Read()).size());
}

QString CLiveProperty::ReadPart(int in_iPart) const
{
    const std::vector<double> parts = SplitParts(Read());
    const std::size_t uPart = static_cast<std::size_t>(in_iPart);
    return uPart < parts.size() ? QString::number(parts[uPart], 'g', 15) : QString();
}

void CLiveProperty::WritePart(int in_iPart, const QString& in_strText) const
{
    const QVariant value = Read();
    const std::size_t uPart = static_cast<std::size_t>(in_iPart);
    std::vector<double> parts = SplitParts(value);
    bool bIsNumber = false;
    const double number =
        HasWholeParts(value.userType()) ? in_strText.toInt(&bIsNumber) : in_strText.toDouble(&bIsNumber);
    if (bIsNumber && uPart < parts.size())
    {
        parts[uPart] = number;
        Write(JoinParts(value.userType(), parts));
    }
}

std::string ToBytes(const QString& in_strText)
{
    return in_strText.toUtf8().constData();
}

QString ToText(const std::string& in_strBytes)
{
    return QString::fromUtf8(in_strBytes.c_str());
}
