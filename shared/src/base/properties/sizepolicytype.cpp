#include "valuetypes.h"

#include <QCoreApplication>
#include <QSizePolicy>

#include <array>

namespace
{
const int g_iParts = 4;
typedef std::array<int, g_iParts> tParts; ///< policies, then stretches; width before height

tParts PartsOf(const QVariant& in_value)
{
    const QSizePolicy policy = in_value.value<QSizePolicy>();
    return {policy.horizontalPolicy(), policy.verticalPolicy(), policy.horizontalStretch(), policy.verticalStretch()};
}

/// What else the present policy says stays.
QVariant WithParts(const QVariant& in_present, const tParts& in_parts)
{
    QSizePolicy policy = in_present.value<QSizePolicy>();
    policy.setHorizontalPolicy(static_cast<QSizePolicy::Policy>(in_parts[0]));
    policy.setVerticalPolicy(static_cast<QSizePolicy::Policy>(in_parts[1]));
    policy.setHorizontalStretch(in_parts[2]);
    policy.setVerticalStretch(in_parts[3]);
    return QVariant::fromValue(policy);
}

class CSizePolicyType final : public CPropertyType
{
public:
    eWork Work() const override { return eTyped; }
    int Parts() const override { return g_iParts; }

    QString PartLabel(int in_iPart) const override
    {
        static const std::array<const char*, g_iParts> labels = {
            QT_TRANSLATE_NOOP("CPropertyType", "width"), QT_TRANSLATE_NOOP("CPropertyType", "height"),
            QT_TRANSLATE_NOOP("CPropertyType", "stretch x"), QT_TRANSLATE_NOOP("CPropertyType", "stretch y")};
        return QCoreApplication::translate("CPropertyType", labels[static_cast<size_t>(in_iPart)]);
    }

    QVariant Part(const QVariant& in_value, int in_iPart) const override
    {
        return PartsOf(in_value)[static_cast<size_t>(in_iPart)];
    }

    QVariant WithPart(const QVariant& in_value, int in_iPart, const QVariant& in_part) const override
    {
        tParts parts = PartsOf(in_value);
        parts[static_cast<size_t>(in_iPart)] = in_part.toInt();
        return WithParts(in_value, parts);
    }

    const CPropertyType& PartType(int in_iPart) const override
    {
        return in_iPart < 2 ? EnumType(QMetaEnum::fromType<QSizePolicy::Policy>()) : *NumberTypeOf(QMetaType::Int);
    }

    QString Text(const sPropertyFormat& in_format, const QVariant& in_value) const override
    {
        QStringList texts;
        for (int i = 0; i < g_iParts; ++i)
        {
            texts << PartType(i).Text(in_format, Part(in_value, i));
        }
        return texts.join(QLatin1String(", "));
    }

    QVariant FromText(const sPropertyFormat& in_format, const QString& in_strText,
                      const QVariant& in_present) const override
    {
        const QStringList texts = in_strText.split(QLatin1Char(','));
        tParts parts{};
        for (int i = 0; i < texts.size() && i < g_iParts; ++i)
        {
            const QVariant part = PartType(i).FromText(in_format, texts.at(i), QVariant());
            if (!part.isValid())
            {
                return QVariant();
            }
            parts[static_cast<size_t>(i)] = part.toInt();
        }
        return texts.size() == g_iParts ? WithParts(in_present, parts) : QVariant();
    }
};
} // namespace

const CPropertyType& SizePolicyType()
{
    static const CSizePolicyType type;
    return type;
}
