#include "propertystate.h"

#include "propertyaccessible.h"
#include "propertyarea.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QIODevice>

namespace
{
const quint32 g_uMagic = 0x50726f70;
const quint16 g_uVersion = 1;
const int g_iHash = 16; ///< bytes

QByteArray Hash(const QByteArray& in_bytes)
{
    return QCryptographicHash::hash(in_bytes, QCryptographicHash::Md5);
}

/// The first version of Qt's own format that both Qt 5.15 and 6 write.
void Prepare(QDataStream& io_stream)
{
    io_stream.setVersion(QDataStream::Qt_5_15);
}
} // namespace

QString sPropertyState::PathOf(const sPropertyItem& in_group)
{
    QString strPath;
    for (const sPropertyItem* pGroup = &in_group; pGroup; pGroup = pGroup->parent)
    {
        strPath = pGroup->label + QLatin1Char('\n') + strPath;
    }
    return strPath;
}

QByteArray sPropertyState::Save() const
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    Prepare(stream);
    stream << g_uMagic << g_uVersion << qint32(labelColumn) << expanded << filter << onlyModified << filterVisible;
    return bytes + Hash(bytes);
}

bool sPropertyState::Restore(const QByteArray& in_bytes)
{
    const QByteArray bytes = in_bytes.left(in_bytes.size() - g_iHash);
    if (in_bytes.size() <= g_iHash || Hash(bytes) != in_bytes.right(g_iHash))
    {
        return false;
    }
    QDataStream stream(bytes);
    Prepare(stream);
    quint32 uMagic = 0;
    quint16 uVersion = 0;
    stream >> uMagic >> uVersion;
    if (uMagic != g_uMagic || uVersion != g_uVersion)
    {
        return false;
    }
    sPropertyState state;
    qint32 iColumn = 0;
    stream >> iColumn >> state.expanded >> state.filter >> state.onlyModified >> state.filterVisible;
    state.labelColumn = iColumn;
    const bool bRead = stream.status() == QDataStream::Ok && stream.atEnd();
    *this = bRead ? state : *this;
    return bRead;
}

/// What the user folded stays folded, by name, whichever page the group stands in.
void CPropertyArea::RecallExpanded(sPropertyItem& io_group)
{
    io_group.recalled = true;
    if (!m_expanded.isEmpty())
    {
        io_group.expanded = m_expanded.value(sPropertyState::PathOf(io_group), io_group.expanded);
    }
}

void CPropertyArea::SetExpandedGroups(const QMap<QString, bool>& in_expanded)
{
    m_expanded = in_expanded;
    for (const tItemPtr& pItem : m_rows.Items())
    {
        pItem->recalled = false;
    }
    LayOutSoon();
}

void CPropertyArea::SetExpanded(sPropertyItem& in_item, bool in_bExpand)
{
    if (in_item.kind != sPropertyItem::eGroup || in_item.IsExpanded() == in_bExpand)
    {
        return;
    }
    const QPointer<CPropertyArea> self(this);
    const tItemPtr pItem = in_item.shared_from_this();
    TakeOver();
    if (self)
    {
        Keep(*pItem, in_bExpand);
        PropertyAccessible::TellExpanded(*this, *pItem);
        LayOutSoon();
        LeaveFolded();
    }
}

void CPropertyArea::ExpandAll(bool in_bExpand)
{
    const QPointer<CPropertyArea> self(this);
    TakeOver();
    if (!self)
    {
        return;
    }
    for (const tItemPtr& pItem : m_rows.Items())
    {
        if (pItem->kind == sPropertyItem::eGroup && !pItem->label.isEmpty())
        {
            Keep(*pItem, in_bExpand);
        }
    }
    LayOutSoon();
    LeaveFolded();
}

void CPropertyArea::Keep(sPropertyItem& io_group, bool in_bExpand)
{
    io_group.expanded = in_bExpand;
    io_group.revealed = false;
    m_expanded[sPropertyState::PathOf(io_group)] = in_bExpand;
}

/// When the current row is folded away, the title that it stands under is the current one.
void CPropertyArea::LeaveFolded()
{
    const tItemPtr pCurrent = Current();
    sPropertyItem* pFolded = nullptr;
    for (sPropertyItem* pGroup = pCurrent ? pCurrent->parent : nullptr; pGroup; pGroup = pGroup->parent)
    {
        pFolded = pGroup->IsExpanded() ? pFolded : pGroup;
    }
    if (pFolded)
    {
        SetCurrent(pFolded->shared_from_this());
    }
}
