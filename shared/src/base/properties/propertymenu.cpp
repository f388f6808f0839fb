/// Copying and pasting, and the menu of a row.
/// \file

#include "propertyarea.h"
#include "propertytext.h"
#include "propertytype.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMimeData>

namespace
{
const QString g_strJson = QStringLiteral("application/json");

void SetClipboard(const QString& in_strText, const QByteArray& in_json)
{
    auto* pData = new QMimeData;
    pData->setText(in_strText);
    pData->setData(g_strJson, in_json);
    QApplication::clipboard()->setMimeData(pData);
}

/// What was copied from a page: JSON tells more than text.
QString ClipboardText()
{
    const QMimeData* pData = QApplication::clipboard()->mimeData();
    const bool bJson = pData && pData->hasFormat(g_strJson);
    return bJson ? QString::fromUtf8(pData->data(g_strJson)) : QApplication::clipboard()->text();
}

CPropertyGroup GroupOf(CPropertyRows& io_rows, const tItemPtr& in_pItem)
{
    const bool bIsGroup = in_pItem->kind == sPropertyItem::eGroup;
    return io_rows.GroupOf(bIsGroup || !in_pItem->parent ? in_pItem : in_pItem->parent->shared_from_this());
}
} // namespace

void CPropertyArea::Copy(const tItemPtr& in_pItem)
{
    if (in_pItem->kind == sPropertyItem::eGroup)
    {
        CopyGroup(in_pItem);
    }
    else if (in_pItem->property)
    {
        QApplication::clipboard()->setText(PropertyText::Of(in_pItem->property));
    }
}

void CPropertyArea::CopyRow(const tItemPtr& in_pItem)
{
    if (in_pItem->property)
    {
        const QString strText = PropertyText::Of(in_pItem->property);
        QApplication::clipboard()->setText(in_pItem->Label() + QLatin1Char('\t') + strText);
    }
}

void CPropertyArea::CopyGroup(const tItemPtr& in_pItem)
{
    const CPropertyGroup group = GroupOf(m_rows, in_pItem);
    const QString strText = group.Text();
    SetClipboard(strText, group.Json());
}

void CPropertyArea::CopyPage()
{
    const QPointer<CPropertyArea> self(this);
    const QString strText = m_rows.Text();
    SetClipboard(strText, self ? m_rows.Json() : QByteArray());
}

void CPropertyArea::CopyPageAsJson()
{
    const QByteArray json = m_rows.Json();
    SetClipboard(QString::fromUtf8(json), json);
}

/// What the clipboard's text stands for in a row; invalid when it does not fit.
QVariant CPropertyArea::Pasted(const tItemPtr& in_pItem)
{
    const QPointer<CPropertyArea> self(this);
    if (!in_pItem->property || in_pItem->property->IsReadOnly())
    {
        return QVariant();
    }
    Load(*in_pItem);
    const QString strText = QApplication::clipboard()->text();
    return self && in_pItem->type && in_pItem->value.isValid()
               ? in_pItem->type->FromText(in_pItem->property->Format(), strText, in_pItem->value)
               : QVariant();
}

void CPropertyArea::Paste(const tItemPtr& in_pItem)
{
    if (in_pItem->kind == sPropertyItem::eGroup)
    {
        PastePage();
        return;
    }
    const QPointer<CPropertyArea> self(this);
    const QVariant value = Pasted(in_pItem);
    if (self && (!value.isValid() || !m_rows.Write(in_pItem->property, value)) && self)
    {
        Q_EMIT m_rows.Page().PasteRefused({in_pItem->Label()});
    }
}

void CPropertyArea::PastePage()
{
    m_rows.Paste(ClipboardText());
}

void CPropertyArea::Reset(const tItemPtr& in_pItem)
{
    m_rows.Reset(in_pItem->property);
}

void CPropertyArea::contextMenuEvent(QContextMenuEvent* in_pEvent)
{
    const bool bMouse = in_pEvent->reason() == QContextMenuEvent::Mouse;
    bMouse ? OpenMenu(HitAt(mapFromGlobal(in_pEvent->globalPos())).item, in_pEvent->globalPos()) : OpenMenuOfCurrent();
}

void CPropertyArea::OpenMenuOfCurrent()
{
    const QPointer<CPropertyArea> self(this);
    TakeOver();
    if (!self)
    {
        return;
    }
    const tItemPtr pItem = IndexOf(Current().get()) < 0 ? nullptr : Current();
    pItem ? ScrollTo(*pItem) : void();
    OpenMenu(pItem, mapToGlobal(pItem ? RowRect(*pItem).center() : rect().center()));
}

/// Some platforms ask for the menu by an event and tell of the key as well.
void CPropertyArea::OpenMenu(const tItemPtr& in_pItem, const QPoint& in_global)
{
    if (m_pMenu)
    {
        return;
    }
    const QPointer<CPropertyArea> self(this);
    const bool bFits = in_pItem && Pasted(in_pItem).isValid();
    if (!self)
    {
        return;
    }
    m_pMenu = new QMenu(this);
    m_pMenu->setAttribute(Qt::WA_DeleteOnClose);
    FillMenu(in_pItem, bFits);
    Q_EMIT MenuAboutToShow(m_pMenu, m_rows.RowOf(in_pItem));
    self&& m_pMenu ? m_pMenu->popup(in_global) : void();
}

void CPropertyArea::FillMenu(const tItemPtr& in_pItem, bool in_bFits)
{
    QMenu& menu = *m_pMenu;
    const auto add = [this, &menu](const QString& in_strText, bool in_bEnabled, auto in_operation) {
        QAction* pAction = menu.addAction(in_strText);
        pAction->setEnabled(in_bEnabled);
        pAction->setShortcutVisibleInContextMenu(true);
        connect(pAction, &QAction::triggered, this, in_operation);
        return pAction;
    };
    const auto addOfRow = [this, &add, &in_pItem](const QString& in_strText, bool in_bEnabled,
                                                  void (CPropertyArea::*in_pOperation)(const tItemPtr&)) {
        const std::weak_ptr<sPropertyItem> row = in_pItem;
        return add(in_strText, in_bEnabled, [this, row, in_pOperation] {
            const tItemPtr pItem = row.lock();
            pItem ? (this->*in_pOperation)(pItem) : void();
        });
    };
    const bool bValue = in_pItem && in_pItem->property;
    addOfRow(tr("&Copy Value"), bValue, &CPropertyArea::Copy)->setShortcut(QKeySequence::Copy);
    addOfRow(tr("Copy &Label and Value"), bValue, &CPropertyArea::CopyRow);
    addOfRow(tr("&Paste Value"), in_bFits, &CPropertyArea::Paste)->setShortcut(QKeySequence::Paste);
    addOfRow(tr("&Reset"), bValue && m_rows.CanReset(in_pItem->property), &CPropertyArea::Reset)
        ->setShortcut(m_rows.Compares() ? QKeySequence::Delete : QKeySequence());
    menu.addSeparator();
    addOfRow(tr("Copy &Group"), in_pItem != nullptr, &CPropertyArea::CopyGroup);
    add(tr("Copy P&age"), true, [this] { CopyPage(); });
    add(tr("Copy Page as &JSON"), true, [this] { CopyPageAsJson(); });
    add(tr("Paste into Page"), !ClipboardText().isEmpty(), [this] { PastePage(); });
    menu.addSeparator();
    add(tr("&Expand All"), true, [this] { ExpandAll(true); })->setShortcut(Qt::CTRL | Qt::Key_Right);
    add(tr("C&ollapse All"), true, [this] { ExpandAll(false); })->setShortcut(Qt::CTRL | Qt::Key_Left);
    add(tr("&Filter"), true, [this] { Q_EMIT FilterWanted(); })->setShortcut(QKeySequence::Find);
    QAction* pModified = add(tr("Only &Modified Values"), m_rows.Compares() || m_filter.IsOnlyModified(),
                             [this](bool in_bOnly) { SetFilter(m_filter.Text(), in_bOnly); });
    pModified->setCheckable(true);
    pModified->setChecked(m_filter.IsOnlyModified());
}
