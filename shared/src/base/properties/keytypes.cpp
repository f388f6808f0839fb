#include "keytexts.h"
#include "listeditor.h"
#include "valuetypes.h"

#include <QtAlgorithms>

#include <algorithm>
#include <map>

std::vector<int> KeyTexts::Distinct(const QMetaEnum& in_keys)
{
    std::vector<int> indices;
    for (int i = 0; i < in_keys.keyCount(); ++i)
    {
        const bool bKnown = std::any_of(indices.begin(), indices.end(),
                                        [&](int in_iOther) { return in_keys.value(in_iOther) == in_keys.value(i); });
        bKnown ? void() : indices.push_back(i);
    }
    return indices;
}

QString KeyTexts::OfKey(const QMetaEnum& in_keys, int in_iValue)
{
    const char* strKey = in_keys.valueToKey(in_iValue);
    return strKey ? QString::fromLatin1(strKey) : QString::number(in_iValue);
}

QString KeyTexts::OfFlags(const QMetaEnum& in_keys, int in_iValue)
{
    const auto Bits = [&](int in_iKey) { return qPopulationCount(static_cast<uint>(in_keys.value(in_iKey))); };
    std::vector<int> indices = Distinct(in_keys);
    std::stable_sort(indices.begin(), indices.end(),
                     [&](int in_i, int in_iOther) { return Bits(in_i) > Bits(in_iOther); });
    QStringList texts;
    int iRest = in_iValue;
    for (const int iKey : indices)
    {
        const int iBits = in_keys.value(iKey);
        const bool bTold = iBits == 0 ? in_iValue == 0 : (iRest & iBits) == iBits;
        texts << (bTold ? QStringList(QString::fromLatin1(in_keys.key(iKey))) : QStringList());
        iRest &= bTold ? ~iBits : ~0;
    }
    const QString strRest = QStringLiteral("0x%1").arg(static_cast<uint>(iRest), 0, 16);
    texts << (iRest ? QStringList(strRest) : QStringList());
    return texts.join(QLatin1Char('|'));
}

std::optional<int> KeyTexts::Value(const QMetaEnum& in_keys, const QString& in_strText)
{
    const QString strKey = in_strText.mid(in_strText.lastIndexOf(QLatin1Char(':')) + 1).trimmed();
    for (const Qt::CaseSensitivity eCase : {Qt::CaseSensitive, Qt::CaseInsensitive})
    {
        for (int i = 0; i < in_keys.keyCount(); ++i)
        {
            if (strKey.compare(QLatin1String(in_keys.key(i)), eCase) == 0)
            {
                return in_keys.value(i);
            }
        }
    }
    bool bSigned = false;
    bool bBits = false;
    const int iNumber = strKey.toInt(&bSigned, 0);
    const uint uBits = strKey.toUInt(&bBits, 0);
    return bSigned ? std::optional(iNumber) : bBits ? std::optional(static_cast<int>(uBits)) : std::nullopt;
}

std::optional<int> KeyTexts::FlagsValue(const QMetaEnum& in_keys, const QString& in_strText)
{
    int iValue = 0;
    for (const QString& strKey : in_strText.split(QLatin1Char('|')))
    {
        const std::optional<int> key = Value(in_keys, strKey);
        if (!key && !in_strText.trimmed().isEmpty())
        {
            return std::nullopt;
        }
        iValue |= key.value_or(0);
    }
    return iValue;
}

namespace
{
class CChoiceType final : public CPropertyType
{
public:
    eWork Work() const override { return eList; }

    QString Text(const sPropertyFormat& in_format, const QVariant& in_value) const override
    {
        const auto Is = [&](const sPropertyChoice& in_choice) { return in_choice.value == in_value; };
        const auto found = std::find_if(in_format.choices.begin(), in_format.choices.end(), Is);
        return found == in_format.choices.end() ? in_value.toString() : found->text;
    }

    QVariant FromText(const sPropertyFormat& in_format, const QString& in_strText, const QVariant&) const override
    {
        for (const Qt::CaseSensitivity eCase : {Qt::CaseSensitive, Qt::CaseInsensitive})
        {
            for (const sPropertyChoice& choice : in_format.choices)
            {
                if (choice.text.compare(in_strText, eCase) == 0)
                {
                    return choice.value;
                }
            }
        }
        return QVariant();
    }

    QWidget* CreateEditor(const sPropertyFormat& in_format, QWidget* in_pParent) const override
    {
        return new CChoiceEditor(in_format.choices, in_pParent);
    }
};

class CEnumType final : public CPropertyType
{
public:
    /// Without keys they are the format's.
    explicit CEnumType(const QMetaEnum& in_keys = QMetaEnum()) : m_keys(in_keys) {}

    eWork Work() const override { return eList; }

    QString Text(const sPropertyFormat& in_format, const QVariant& in_value) const override
    {
        return KeyTexts::OfKey(Keys(in_format), in_value.toInt());
    }

    QVariant FromText(const sPropertyFormat& in_format, const QString& in_strText, const QVariant&) const override
    {
        const std::optional<int> value = KeyTexts::Value(Keys(in_format), in_strText);
        return value ? QVariant(*value) : QVariant();
    }

    QWidget* CreateEditor(const sPropertyFormat& in_format, QWidget* in_pParent) const override
    {
        QVector<sPropertyChoice> choices;
        const QMetaEnum& keys = Keys(in_format);
        for (const int iKey : KeyTexts::Distinct(keys))
        {
            choices.push_back({keys.value(iKey), QString::fromLatin1(keys.key(iKey))});
        }
        return new CChoiceEditor(choices, in_pParent);
    }

private:
    const QMetaEnum& Keys(const sPropertyFormat& in_format) const { return m_keys.isValid() ? m_keys : in_format.keys; }

    QMetaEnum m_keys;
};

class CFlagsType final : public CPropertyType
{
public:
    eWork Work() const override { return eList; }

    QString Text(const sPropertyFormat& in_format, const QVariant& in_value) const override
    {
        return KeyTexts::OfFlags(in_format.keys, in_value.toInt());
    }

    QVariant FromText(const sPropertyFormat& in_format, const QString& in_strText, const QVariant&) const override
    {
        const std::optional<int> value = KeyTexts::FlagsValue(in_format.keys, in_strText);
        return value ? QVariant(*value) : QVariant();
    }

    QWidget* CreateEditor(const sPropertyFormat& in_format, QWidget* in_pParent) const override
    {
        return new CFlagsEditor(in_format.keys, in_pParent);
    }
};
} // namespace

const CPropertyType& ChoiceType()
{
    static const CChoiceType type;
    return type;
}

const CPropertyType& KeysType(bool in_bFlags)
{
    static const CEnumType one;
    static const CFlagsType several;
    if (in_bFlags)
    {
        return several;
    }
    return one;
}

const CPropertyType& EnumType(const QMetaEnum& in_keys)
{
    static std::map<const char*, CEnumType> types;
    return types.emplace(in_keys.name(), in_keys).first->second;
}
