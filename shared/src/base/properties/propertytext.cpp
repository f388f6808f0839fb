#include "propertytext.h"

#include "propertyrows.h"
#include "propertytype.h"
#include "propertyundo.h"

#include <QCoreApplication>
#include <QHash>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>

#include <algorithm>
#include <cmath>
#include <set>

namespace
{
using PropertyText::sCopied;

const QChar g_tab(QLatin1Char('\t'));
const QChar g_lineEnd(QLatin1Char('\n'));
const QChar g_quote(QLatin1Char('"'));
const double g_greatestWhole = 9007199254740992; ///< up to which a JSON number is exact

QString Quoted(const QString& in_strText)
{
    const bool bPlain = std::none_of(in_strText.begin(), in_strText.end(), [](QChar in_char) {
        return in_char == g_tab || in_char == g_lineEnd || in_char == g_quote || in_char == QLatin1Char('\r');
    });
    QString strDoubled = in_strText;
    strDoubled.replace(g_quote, QStringLiteral("\"\""));
    return bPlain ? in_strText : g_quote + strDoubled + g_quote;
}

/// The cells of the line that begins at a place, which moves on to the next.
QStringList CellsAt(const QString& in_strText, int& io_iPlace)
{
    QStringList cells{QString()};
    bool bQuoted = false;
    for (; io_iPlace < in_strText.size(); ++io_iPlace)
    {
        const QChar letter = in_strText.at(io_iPlace);
        const bool bDoubled = bQuoted && in_strText.mid(io_iPlace, 2) == QLatin1String("\"\"");
        if (letter == g_quote && !bDoubled && (bQuoted || cells.last().isEmpty()))
        {
            bQuoted = !bQuoted;
        }
        else if (!bQuoted && letter == g_lineEnd)
        {
            break;
        }
        else if (!bQuoted && letter == g_tab)
        {
            cells << QString();
        }
        else
        {
            cells.last() += letter;
            io_iPlace += bDoubled ? 1 : 0;
        }
    }
    ++io_iPlace;
    return cells;
}

std::vector<sCopied> ParseLines(const QString& in_strText)
{
    QString strText = in_strText;
    strText.replace(QStringLiteral("\r\n"), g_lineEnd);
    std::vector<sCopied> copied;
    QString strGroup;
    for (int iPlace = 0; iPlace < strText.size();)
    {
        const QStringList cells = CellsAt(strText, iPlace);
        if (cells.size() > 1)
        {
            copied.push_back({strGroup, cells.at(0), cells.at(1)});
        }
        else
        {
            strGroup = cells.at(0);
        }
    }
    return copied;
}

QString TextOf(const QJsonValue& in_value)
{
    if (in_value.isBool())
    {
        return in_value.toBool() ? QStringLiteral("true") : QStringLiteral("false");
    }
    const double number = in_value.toDouble();
    const bool bWhole = std::floor(number) == number && std::fabs(number) <= g_greatestWhole;
    const QString strNumber = bWhole ? QString::number(static_cast<qint64>(number))
                                     : QString::number(number, 'g', QLocale::FloatingPointShortest);
    return in_value.isDouble() ? strNumber : in_value.toString();
}

void ParseObject(const QJsonObject& in_object, const QString& in_strGroup, std::vector<sCopied>& out_copied)
{
    for (auto it = in_object.begin(); it != in_object.end(); ++it)
    {
        it->isObject() ? ParseObject(it->toObject(), it.key(), out_copied)
                       : out_copied.push_back({in_strGroup, it.key(), TextOf(*it)});
    }
}

/// What is a number or a truth value is one in JSON, as far as its text is no name for it.
QJsonValue JsonOf(const CProperty& in_property, const QString& in_strText)
{
    const QVariant value = in_property.Read();
    const bool bNamed = !in_property.Format().choices.isEmpty() || in_property.Format().keys.isValid();
    const QJsonValue json = QJsonValue::fromVariant(value);
    const bool bExact = std::fabs(json.toDouble()) <= g_greatestWhole;
    return !bNamed && (json.isBool() || (json.isDouble() && bExact)) ? json : QJsonValue(in_strText);
}

/// Adds what is not there yet, in as far as it has a name.
void Merge(const QJsonObject& in_more, const QString& in_strName, QJsonObject& io_object)
{
    QJsonObject within = in_strName.isEmpty() ? io_object : io_object.value(in_strName).toObject();
    for (auto it = in_more.begin(); it != in_more.end(); ++it)
    {
        if (!within.contains(it.key()))
        {
            within.insert(it.key(), *it);
        }
    }
    in_strName.isEmpty() ? void(io_object = within) : void(io_object.insert(in_strName, within));
}

/// The rows and groups that `in_pGroup` (null: the page) holds itself, from the place given on, which moves behind
/// them.
QJsonObject ObjectOf(const tItems& in_items, const sPropertyItem* in_pGroup, std::size_t& io_uPlace)
{
    QJsonObject object;
    while (io_uPlace < in_items.size() && (!in_pGroup || in_items[io_uPlace]->parent == in_pGroup))
    {
        const tItemPtr pItem = in_items[io_uPlace++];
        if (pItem->kind == sPropertyItem::eGroup)
        {
            Merge(ObjectOf(in_items, pItem.get(), io_uPlace), pItem->label, object);
        }
        else if (pItem->property && !object.contains(pItem->property->Name()))
        {
            const QString strText = PropertyText::Of(pItem->property);
            if (!strText.isNull())
            {
                object.insert(pItem->property->Name(), JsonOf(*pItem->property, strText));
            }
        }
    }
    return object;
}

/// The title that a row stands under.
QString GroupOf(const sPropertyItem& in_item)
{
    return in_item.parent ? in_item.parent->label : QString();
}

/// The properties that copied values may be for. Each is for one.
class CTargets
{
public:
    explicit CTargets(const tItems& in_items)
    {
        for (const tItemPtr& pItem : in_items)
        {
            if (pItem->property)
            {
                m_named[pItem->property->Name()].push_back(pItem);
                pItem->Label() == pItem->property->Name() ? void() : m_named[pItem->Label()].push_back(pItem);
            }
        }
    }

    /// The next one of that name, under the same title or under any; null for none.
    tPropertyPtr Take(const sCopied& in_copied, bool in_bAnywhere)
    {
        for (const tItemPtr& pItem : m_named.value(in_copied.name))
        {
            if ((in_bAnywhere || GroupOf(*pItem) == in_copied.group) && m_taken.insert(pItem.get()).second)
            {
                return pItem->property;
            }
        }
        return nullptr;
    }

private:
    QHash<QString, tItems> m_named;
    std::set<const sPropertyItem*> m_taken;
};

/// Which property each copied value is for, null for none.
std::vector<tPropertyPtr> Match(const tItems& in_items, const std::vector<sCopied>& in_copied)
{
    CTargets targets(in_items);
    std::vector<tPropertyPtr> matches;
    matches.reserve(in_copied.size());
    for (const sCopied& copied : in_copied)
    {
        matches.push_back(targets.Take(copied, false));
    }
    for (std::size_t u = 0; u < matches.size(); ++u)
    {
        matches[u] = matches[u] ? matches[u] : targets.Take(in_copied[u], true);
    }
    return matches;
}

/// What a text stands for, in place of the present value; invalid when it does not fit.
QVariant Fitting(const tPropertyPtr& in_pProperty, const QString& in_strText, const QVariant& in_present)
{
    return in_present.isValid()
               ? CPropertyType::Of(*in_pProperty).FromText(in_pProperty->Format(), in_strText, in_present)
               : QVariant();
}

/// Whether a value is so already. Its text may tell less than there is to it, which is then no change.
bool ReadsSo(const tPropertyPtr& in_pProperty, const QString& in_strText)
{
    const QString strPresent = PropertyText::Of(in_pProperty);
    return !strPresent.isNull() && strPresent == in_strText;
}

/// A group and all that it holds; null: everything.
tItems Within(const tItems& in_items, const tItemPtr& in_pGroup)
{
    tItems within;
    for (const tItemPtr& pItem : in_items)
    {
        const sPropertyItem* pAbove = pItem.get();
        while (pAbove && pAbove != in_pGroup.get())
        {
            pAbove = pAbove->parent;
        }
        pAbove == in_pGroup.get() ? within.push_back(pItem) : void();
    }
    return within;
}
} // namespace

QString PropertyText::Of(const tPropertyPtr& in_pProperty)
{
    const tPropertyPtr pProperty = in_pProperty;
    const QVariant value = pProperty->Read();
    if (!value.isValid() || pProperty->IsMixed())
    {
        return QString();
    }
    const QString strText = CPropertyType::Of(*pProperty).Text(pProperty->Format(), value);
    return strText.isNull() ? QStringLiteral("") : strText;
}

QString PropertyText::Lines(const tItems& in_items)
{
    QString strLines;
    QString strTitle;
    for (const tItemPtr& pItem : in_items)
    {
        const QString strText = pItem->property ? Of(pItem->property) : QString();
        if (strText.isNull())
        {
            continue;
        }
        if (GroupOf(*pItem) != strTitle)
        {
            strTitle = GroupOf(*pItem);
            strLines += Quoted(strTitle) + g_lineEnd;
        }
        strLines += Quoted(pItem->Label()) + g_tab + Quoted(strText) + g_lineEnd;
    }
    return strLines;
}

QByteArray PropertyText::Json(const tItems& in_items)
{
    std::size_t uPlace = 0;
    return QJsonDocument(ObjectOf(in_items, nullptr, uPlace)).toJson();
}

std::vector<sCopied> PropertyText::Parse(const QString& in_strText)
{
    const QJsonDocument document = QJsonDocument::fromJson(in_strText.toUtf8());
    if (!document.isObject())
    {
        return ParseLines(in_strText);
    }
    std::vector<sCopied> copied;
    ParseObject(document.object(), QString(), copied);
    return copied;
}

QString CPropertyRows::Text() const
{
    return PropertyText::Lines(tItems(m_items));
}

QByteArray CPropertyRows::Json() const
{
    return PropertyText::Json(tItems(m_items));
}

QString CPropertyGroup::Text() const
{
    const tItemPtr pItem = m_pItem.lock();
    return pItem && m_pRows ? PropertyText::Lines(Within(m_pRows->Items(), pItem)) : QString();
}

QByteArray CPropertyGroup::Json() const
{
    const tItemPtr pItem = m_pItem.lock();
    return pItem && m_pRows ? PropertyText::Json(Within(m_pRows->Items(), pItem)) : QByteArray();
}

/// Finds out everything before anything is written: that may rebuild the page.
bool CPropertyRows::Paste(const QString& in_strText)
{
    const std::vector<sCopied> copied = PropertyText::Parse(in_strText);
    const std::vector<tPropertyPtr> properties = Match(m_items, copied);
    const QPointer<CPropertyRows> self(this);
    std::vector<std::pair<tPropertyPtr, QVariant>> changes;
    QStringList refused;
    for (std::size_t u = 0; u < copied.size(); ++u)
    {
        const tPropertyPtr& pProperty = properties[u];
        if (pProperty && (pProperty->IsReadOnly() || ReadsSo(pProperty, copied[u].text)))
        {
            continue;
        }
        const QVariant present = pProperty ? pProperty->Read() : QVariant();
        const QVariant value = Fitting(pProperty, copied[u].text, present);
        if (!value.isValid())
        {
            refused << copied[u].name;
        }
        else if (!CPropertyStep::IsSame(value, present) || pProperty->IsMixed())
        {
            changes.emplace_back(pProperty, value);
        }
    }
    self ? WriteAll(changes, refused) : void();
    return !copied.empty();
}

/// As one step of the undo stack.
void CPropertyRows::WriteAll(const std::vector<std::pair<tPropertyPtr, QVariant>>& in_changes, QStringList in_refused)
{
    const QPointer<CPropertyRows> self(this);
    const QPointer<QUndoStack> pStack(in_changes.empty() ? nullptr : m_pUndo->Stack());
    pStack ? pStack->beginMacro(QCoreApplication::translate("CPropertyPage", "Paste")) : void();
    for (const auto& change : in_changes)
    {
        if (self && !Write(change.first, change.second))
        {
            in_refused << change.first->Label();
        }
    }
    pStack ? pStack->endMacro() : void();
    if (self && !in_refused.isEmpty())
    {
        Q_EMIT m_page.PasteRefused(in_refused);
    }
}
