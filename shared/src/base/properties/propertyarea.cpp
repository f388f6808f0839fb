#include "propertyarea.h"

#include "propertyaccessible.h"
#include "propertycontrols.h"
#include "propertyedit.h"
#include "propertytype.h"

#include <QApplication>
#include <QFocusEvent>
#include <QMenu>
#include <QStyle>
#include <QtMath>

#include <algorithm>

namespace
{
const int g_iScrollBarWidth = 20; ///< what the first library keeps free
const int g_iMargin = 4;
const int g_iLeastColumn = 24;
const int g_iLeastValue = 40;
const std::size_t g_uCandidates = 16; ///< of how many of the longest labels the widest is taken

QString NameOf(const sPropertyItem& in_item)
{
    return in_item.property ? in_item.property->Name() : in_item.label;
}
} // namespace

CPropertyArea::CPropertyArea(CPropertyRows& in_rows)
    : m_rows(in_rows),
      m_pControls(new CPropertyControls(*this)),
      m_pItemEditors(new CItemEditors)
{
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    m_pContentWidget->setMouseTracking(true);
    setAttribute(Qt::WA_InputMethodEnabled);
    Measure();
    m_rows.SetClient(this);
    PropertyAccessible::Install();
    connect(qApp, &QGuiApplication::fontDatabaseChanged, this, [this] { m_texts.Forget(); });
}

QWidget* CPropertyArea::Editor() const
{
    return m_pEdit ? m_pEdit->Editor() : nullptr;
}

CPropertyArea::~CPropertyArea()
{
    m_rows.SetClient(nullptr);
    m_pEdit.reset();
    if (m_pMenu) // one of its entries may be what ends this
    {
        m_pMenu->setParent(nullptr);
        m_pMenu->deleteLater();
    }
}

QSize CPropertyArea::sizeHint() const
{
    return QSize(m_iRowHeight * 16, m_iRowHeight * 20);
}

QSize CPropertyArea::minimumSizeHint() const
{
    return QSize(g_iLeastColumn + g_iLeastValue + g_iScrollBarWidth, m_iRowHeight * 2);
}

void CPropertyArea::Measure()
{
    m_iRowHeight = fontMetrics().height() + 6;
    m_iIndent = fontMetrics().height() * 3 / 4;
    m_pScrollBar->setSingleStep(m_iRowHeight);
    m_boxes.clear();
    const QColor text = palette().color(QPalette::Text);
    m_gridColour = QColor(text.red(), text.green(), text.blue(), 40);
}

void CPropertyArea::SetItemEditorFactory(const QItemEditorFactory* in_pFactory)
{
    TakeOver();
    m_pItemEditors.reset(new CItemEditors(in_pFactory));
    for (const tItemPtr& pItem : m_rows.Items())
    {
        pItem->type = nullptr;
    }
    m_rows.Refresh();
}

void CPropertyArea::changeEvent(QEvent* in_pEvent)
{
    CQTInspectorView::changeEvent(in_pEvent);
    if (in_pEvent->type() == QEvent::FontChange || in_pEvent->type() == QEvent::StyleChange ||
        in_pEvent->type() == QEvent::PaletteChange || in_pEvent->type() == QEvent::LayoutDirectionChange)
    {
        Measure();
        m_bLabelsDue = true;
        LayOutSoon();
        updateGeometry();
    }
}

void CPropertyArea::resizeEvent(QResizeEvent* in_pEvent)
{
    CQTInspectorView::resizeEvent(in_pEvent);
    m_bLayoutDue = false;
    ResizeInspector(width(), height());
}

void CPropertyArea::PageAboutToChange()
{
    const QPointer<CPropertyArea> self(this);
    TakeOver();
    const tItemPtr pCurrent = self ? Current() : nullptr;
    if (pCurrent)
    {
        m_lost = PathOf(*pCurrent);
        m_current.reset(); // whoever still holds the row
        m_bCurrentWent = true;
    }
    self ? m_pControls->ClearAllData() : void();
}

/// The row's name and those of its groups.
QStringList CPropertyArea::PathOf(const sPropertyItem& in_item)
{
    QStringList path;
    for (const sPropertyItem* pItem = &in_item; pItem; pItem = pItem->parent)
    {
        path << NameOf(*pItem);
    }
    return path;
}

/// A page that is made anew, for instance by the setter that an edit called, goes on where it was.
void CPropertyArea::FindCurrentAgain()
{
    if (m_lost.isEmpty())
    {
        return;
    }
    for (const tItemPtr& pItem : m_rows.Items())
    {
        if (NameOf(*pItem) == m_lost.front() && PathOf(*pItem) == m_lost)
        {
            m_current = pItem;
            m_lost.clear();
            return;
        }
    }
}

void CPropertyArea::PageChanged()
{
    m_bLabelsDue = true;
    m_filter.IsOn() ? m_filter.Forget() : void();
    m_rows.Items().empty() ? ForgetShown() : void();
    LayOutSoon();
}

/// Whoever still holds a row that went finds it nowhere.
void CPropertyArea::ForgetShown()
{
    for (sPropertyItem* pItem : m_shown)
    {
        pItem->height = 0;
    }
    m_shown.clear();
}

/// Rows are placed once, however many came and went since.
void CPropertyArea::LayOutSoon()
{
    if (!m_bLayoutDue)
    {
        m_bLayoutDue = true;
        QCoreApplication::postEvent(this, new QEvent(QEvent::LayoutRequest));
        update();
    }
}

void CPropertyArea::EnsureLayout()
{
    if (m_bLayoutDue)
    {
        RecomputeLayout();
    }
}

const tItemPointers& CPropertyArea::Shown()
{
    EnsureLayout();
    return m_shown;
}

/// A new value asks for no more than its own place: painting the labels and the scroll bar takes twice as long.
void CPropertyArea::ItemChanged(sPropertyItem& in_item)
{
    UpdateRow(in_item, in_item.type != nullptr); // without a type, anything of it may be another
}

void CPropertyArea::AllItemsChanged()
{
    update(Mirrored(QRect(Column(), 0, RowWidth() - Column(), height())));
}

int CPropertyArea::HeightOf(const sPropertyItem& in_item) const
{
    if (in_item.kind == sPropertyItem::eGroup)
    {
        return in_item.label.isEmpty() ? 0 : m_iRowHeight;
    }
    if (in_item.kind == sPropertyItem::eWidget && in_item.widget)
    {
        return std::max(m_iRowHeight, in_item.widget->sizeHint().height());
    }
    return m_iRowHeight;
}

/// One pass over the rows, whose width plays no part: the view paints them, so nobody need be told where they are.
void CPropertyArea::RecomputeLayout()
{
    m_bLayoutDue = false;
    m_filter.IsApplied() || m_filter.Apply(m_rows.Items());
    PlaceRows();
    FindCurrentAgain();
    if (m_bLabelsDue)
    {
        m_bLabelsDue = false;
        m_iFitting = FittingColumn(false);
        FindWidgets();
    }
    UpdateView();
    PropertyAccessible::TellRows(*this);
    OnContentHeightSet();
}

void CPropertyArea::PlaceRows()
{
    m_shown.clear();
    m_iContentHeight = 0;
    const tItems& items = m_rows.Items();
    for (std::size_t u = 0; u < items.size(); ++u)
    {
        if (m_filter.LeavesOut(u))
        {
            continue;
        }
        sPropertyItem& item = *items[u];
        if (item.kind == sPropertyItem::eGroup && !item.recalled)
        {
            RecallExpanded(item);
        }
        const bool bOpen = !item.parent || item.parent->open;
        item.top = m_iContentHeight;
        item.height = bOpen ? HeightOf(item) : 0;
        item.open = bOpen && item.IsExpanded();
        m_iContentHeight += item.height;
        if (item.height > 0)
        {
            m_shown.push_back(&item);
        }
    }
}

void CPropertyArea::FindWidgets()
{
    m_widgets.clear();
    for (const tItemPtr& pItem : m_rows.Items())
    {
        if (pItem->kind == sPropertyItem::eWidget)
        {
            m_widgets.push_back(pItem);
        }
    }
}

/// The first library leaves the scroll bar's place free even when there is none.
void CPropertyArea::OnContentHeightSet()
{
    const QPointer<CPropertyArea> self(this);
    CQTInspectorView::OnContentHeightSet();
    if (self)
    {
        m_pContentWidget->resize(RowWidth(), height());
    }
}

void CPropertyArea::OffsetControls(int in_iX, int in_iY)
{
    const QPointer<CPropertyArea> self(this);
    CQTInspectorView::OffsetControls(in_iX, in_iY);
    if (self)
    {
        PlaceWidgets();
    }
}

int CPropertyArea::RowWidth() const
{
    return width() - (m_pScrollBar->isHidden() ? 0 : g_iScrollBarWidth);
}

/// The left edge of the values: what the user or the labels ask for, as far as the width allows.
int CPropertyArea::Column() const
{
    const int iWanted = m_iColumn >= 0 ? m_iColumn : std::min(m_iFitting, RowWidth() / 2);
    return std::max(g_iLeastColumn, std::min(iWanted, RowWidth() - g_iLeastValue));
}

void CPropertyArea::SetLabelColumn(int in_iWidth)
{
    m_iColumn = in_iWidth;
    PlaceWidgets();
    update();
}

/// How wide the labels are: exactly those shown, or all, also those folded away or left out. Measuring each would be
/// most of what a page of ten thousand rows costs, so that of all only the labels with the most letters are measured.
int CPropertyArea::FittingColumn(bool in_bExact) const
{
    std::vector<const sPropertyItem*> rows;
    for (const tItemPtr& pItem : m_rows.Items())
    {
        if (pItem->kind != sPropertyItem::eGroup && (pItem->height > 0 || !in_bExact))
        {
            rows.push_back(pItem.get());
        }
    }
    const auto last = rows.begin() + static_cast<std::ptrdiff_t>(std::min(g_uCandidates, rows.size()));
    if (!in_bExact)
    {
        std::partial_sort(rows.begin(), last, rows.end(), [](const sPropertyItem* in_pA, const sPropertyItem* in_pB) {
            return in_pA->Label().size() > in_pB->Label().size();
        });
        rows.erase(last, rows.end());
    }
    QFont widest = font();
    widest.setBold(m_rows.Compares() || widest.bold()); // as labels of modified values are
    const QFontMetricsF metrics(widest);
    int iWidest = 0;
    for (const sPropertyItem* pRow : rows)
    {
        const int iLabel = qCeil(metrics.horizontalAdvance(pRow->Label()));
        iWidest = std::max(iWidest, g_iMargin * 2 + pRow->depth * m_iIndent + iLabel);
    }
    return iWidest;
}

/// A rectangle that was computed from left to right, as the application's direction wants it.
QRect CPropertyArea::Mirrored(const QRect& in_rect) const
{
    return QStyle::visualRect(layoutDirection(), QRect(0, 0, RowWidth(), height()), in_rect);
}

QRect CPropertyArea::RowRect(const sPropertyItem& in_item) const
{
    return Mirrored(QRect(0, in_item.top - m_iOffsetY, RowWidth(), in_item.height));
}

QRect CPropertyArea::LabelRect(const sPropertyItem& in_item) const
{
    const int iLeft = g_iMargin + in_item.depth * m_iIndent;
    const bool bWhole = in_item.kind == sPropertyItem::eGroup;
    const int iRight = bWhole ? RowWidth() - g_iMargin : Column() - g_iMargin;
    return Mirrored(QRect(iLeft, in_item.top - m_iOffsetY, std::max(0, iRight - iLeft), in_item.height));
}

QRect CPropertyArea::ValueRect(const sPropertyItem& in_item) const
{
    const int iColumn = Column() + 1;
    const int iWidth = RowWidth() - iColumn - ResetWidth(in_item);
    return Mirrored(QRect(iColumn, in_item.top - m_iOffsetY, iWidth, in_item.height));
}

QRect CPropertyArea::PartRect(const sPropertyItem& in_item, int in_iPart) const
{
    const int iParts = in_item.type ? in_item.type->Parts() : 1;
    const int iColumn = Column() + 1;
    const int iWidth = RowWidth() - iColumn - ResetWidth(in_item);
    const int iLeft = iColumn + iWidth * in_iPart / iParts;
    const int iRight = iColumn + iWidth * (in_iPart + 1) / iParts;
    return Mirrored(QRect(iLeft, in_item.top - m_iOffsetY, iRight - iLeft, in_item.height));
}

/// The first shown row that ends below a place of the content.
tItemPointers::const_iterator CPropertyArea::FirstBelow(int in_iY)
{
    const tItemPointers& shown = Shown();
    return std::lower_bound(shown.begin(), shown.end(), in_iY, [](const sPropertyItem* in_pItem, int in_iPlace) {
        return in_pItem->top + in_pItem->height <= in_iPlace;
    });
}

/// The place of a row among those shown, -1 for none.
int CPropertyArea::IndexOf(const sPropertyItem* in_pItem)
{
    if (!in_pItem)
    {
        return -1;
    }
    const auto it = FirstBelow(in_pItem->top);
    return it != m_shown.cend() && *it == in_pItem ? static_cast<int>(it - m_shown.cbegin()) : -1;
}

CPropertyArea::sHit CPropertyArea::HitAt(const QPoint& in_position)
{
    const auto it = FirstBelow(in_position.y() + m_iOffsetY);
    sHit hit;
    if (it == m_shown.end() || !RowRect(**it).contains(in_position))
    {
        return hit;
    }
    hit.item = (*it)->shared_from_this();
    const int iX = Mirrored(QRect(in_position, QSize(1, 1))).x();
    if (hit.item->kind == sPropertyItem::eGroup)
    {
        hit.zone = sHit::eTitle;
    }
    else if (std::abs(iX - Column()) <= 2)
    {
        hit.zone = sHit::eBorder;
    }
    else
    {
        hit.zone = iX < Column() ? sHit::eLabel : sHit::eValue;
    }
    if (hit.zone == sHit::eValue && ResetRect(*hit.item).contains(in_position))
    {
        hit.zone = sHit::eReset;
    }
    const int iParts = hit.item->type && hit.zone == sHit::eValue ? hit.item->type->Parts() : 1;
    while (hit.part < iParts - 1 && !PartRect(*hit.item, hit.part).contains(in_position))
    {
        ++hit.part;
    }
    return hit;
}

void CPropertyArea::SetCurrent(const tItemPtr& in_pItem, int in_iPart)
{
    const tItemPtr pBefore = Current();
    m_lost.clear();
    UpdateCurrent();
    m_current = in_pItem;
    m_iPart = in_iPart;
    UpdateCurrent();
    if (in_pItem)
    {
        Load(*in_pItem); // what its keys do depends on its kind
        ScrollTo(*in_pItem);
    }
    if (pBefore != in_pItem)
    {
        PropertyAccessible::TellCurrent(*this);
        Q_EMIT CurrentChanged();
    }
}

void CPropertyArea::Reveal(const tItemPtr& in_pItem)
{
    for (sPropertyItem* pGroup = in_pItem->parent; pGroup; pGroup = pGroup->parent)
    {
        pGroup->expanded ? void() : (Keep(*pGroup, true), LayOutSoon());
    }
    EnsureLayout();
    const bool bGoThere = in_pItem->height > 0 && in_pItem != Current() && !m_pEdit; // an edit is at the current row
    bGoThere ? SetCurrent(in_pItem) : ScrollTo(*in_pItem);
}

void CPropertyArea::ScrollTo(const sPropertyItem& in_item)
{
    EnsureLayout();
    if (in_item.height == 0)
    {
        return;
    }
    const int iEnd = in_item.top + in_item.height;
    m_pScrollBar->setValue(std::min(in_item.top, std::max(m_iOffsetY, iEnd - height())));
}
