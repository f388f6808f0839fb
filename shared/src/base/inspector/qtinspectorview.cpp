#include "qtinspectorview.h"

#include "inplacekeeper.h"
#include "inspectorqt.h"
#include "labelwidths.h"
#include "shapedtexts.h"
#include "viewaccessible.h"
#include "viewfilter.h"
#include "viewkeyboard.h"

#include <QPaintEvent>
#include <QPainter>
#include <QPointer>
#include <QScrollArea>

#include <algorithm>
#include <utility>

namespace
{
const int g_iScrollBarWidth = 20;
const int g_iScrollStep = 25; ///< a row and the space after it

/// Whether Qt leaves a child out when it paints what is around it.
bool CoversView(const QWidget& in_child)
{
    return in_child.autoFillBackground() || in_child.testAttribute(Qt::WA_OpaquePaintEvent);
}
} // namespace

CQTInspectorView::CQTInspectorView()
    : m_pContentWidget(new QWidget(this)),
      m_pScrollBar(new QScrollBar(this)),
      m_pLabelWidths(new CLabelWidths),
      m_pTexts(new CShapedTexts)
{
    m_pContentWidget->show();
    m_pScrollBar->hide();
    m_pScrollBar->setSingleStep(g_iScrollStep);
    connect(m_pScrollBar, SIGNAL(valueChanged(int)), this, SLOT(SliderValueChanged(int)));
    m_pFilter = new CViewFilter(this, m_pContentWidget, m_pScrollBar);
    m_pRows.reset(new CViewRows(this, m_pContentWidget));
    InspectorAccessible::Install();
}

CQTInspectorView::~CQTInspectorView()
{
    if (!m_pContentWidget->children().isEmpty())
    {
        // A row's death may end an open list, whose report may still build on this view: better while that is whole.
        CInPlaceKeeper::CloseLists();
    }
    SetKeyboardNavigation(false);
    delete m_pContentWidget;
    m_pContentWidget = nullptr;
    delete m_pScrollBar;
    m_pScrollBar = nullptr;
}

void CQTInspectorView::ResizeInspector(int in_iWidth, int in_iHeight)
{
    const QPointer<QWidget> self(this);
    const int iInner = in_iWidth - g_iScrollBarWidth;
    if (in_iHeight == g_iInspectorNotGiven)
    {
        CInspectorView::ResizeInspector(iInner, g_iInspectorNotGiven);
        in_iHeight = self ? m_iViewHeight : 0;
    }
    if (self)
    {
        resize(in_iWidth, in_iHeight);
    }
    if (self)
    {
        CInspectorView::ResizeInspector(iInner, in_iHeight);
    }
    if (self)
    {
        m_pContentWidget->resize(iInner, in_iHeight);
        OnContentHeightSet();
    }
}

void CQTInspectorView::OnContentHeightSet()
{
    const QPointer<QWidget> self(this);
    m_pRows->Forget();
    const bool bScrolls = m_iViewHeight < m_iContentHeight;
    if (bScrolls)
    {
        m_pScrollBar->move(width() - g_iScrollBarWidth, 0);
        m_pScrollBar->resize(g_iScrollBarWidth, m_iViewHeight);
        m_pScrollBar->setPageStep(m_iViewHeight);
        m_pScrollBar->setRange(0, m_iContentHeight - m_iViewHeight);
    }
    else
    {
        m_pScrollBar->setValue(0);
    }
    if (self)
    {
        m_pScrollBar->setVisible(bScrolls);
    }
    if (self)
    {
        OffsetControls(0, m_pScrollBar->value());
    }
    if (self)
    {
        Reveal();
    }
    if (self && m_pKeyboard)
    {
        m_pKeyboard->RestoreFocus();
    }
    if (self)
    {
        UpdateView();
    }
}

void CQTInspectorView::SliderValueChanged(int)
{
    const QPointer<QWidget> self(this);
    OffsetControls(0, m_pScrollBar->value());
    if (self)
    {
        UpdateView();
    }
}

void CQTInspectorView::UpdateView()
{
    m_bPaintDue = true;
    update();
}

/// The view that a widget is a data widget in, null for none.
CQTInspectorView* CQTInspectorView::Of(const QWidget* in_pControl)
{
    const QWidget* pContent = in_pControl->isWindow() ? nullptr : in_pControl->parentWidget();
    auto* pView = pContent ? qobject_cast<CQTInspectorView*>(pContent->parentWidget()) : nullptr;
    return pView && pView->m_pContentWidget == pContent ? pView : nullptr;
}

void CQTInspectorView::UpdateControl(QWidget* in_pControl)
{
    const CQTInspectorView* pView = Of(in_pControl);
    if (pView && !pView->m_pContentWidget->rect().intersects(in_pControl->geometry()))
    {
        return; // out of sight
    }
    if (!pView || !pView->m_bAboutToPaint || CoversView(*in_pControl) || CoversView(*pView->m_pContentWidget))
    {
        in_pControl->update();
    }
}

void CQTInspectorView::EnsureVisible(CInspectorDataWidget* in_pWidget)
{
    const sInspectorHolder* pHolder = GetHolderFromControl(in_pWidget);
    if (!pHolder)
    {
        return;
    }
    const QRect row(pHolder->x, pHolder->y, pHolder->width, pHolder->height);
    const int iTop = row.y() - m_iOffsetY;
    const int iBottom = iTop + row.height();
    int iValue = m_iOffsetY;
    if (iTop < 0)
    {
        iValue = row.y();
    }
    else if (iBottom > m_iViewHeight)
    {
        iValue = iBottom - m_iViewHeight + m_iOffsetY;
    }
    const QPointer<QWidget> self(this);
    m_pScrollBar->setValue(iValue);
    if (self)
    {
        ShowInAreas(row.translated(0, -m_iOffsetY));
    }
}

/// A view as tall as its content scrolls nothing by itself. From the inside out, as each area moves what is in it.
void CQTInspectorView::ShowInAreas(const QRect& in_row)
{
    const QPointer<QWidget> self(this);
    QPointer<QWidget> pInner = this;
    while (self && pInner && !pInner->isWindow() && pInner->parentWidget())
    {
        auto* pArea = qobject_cast<QScrollArea*>(pInner->parentWidget()->parentWidget());
        if (pArea && pArea->widget() == pInner)
        {
            const QPoint place = mapTo(pInner, QPoint(in_row.left(), in_row.center().y()));
            pArea->ensureVisible(place.x(), place.y(), 0, in_row.height() / 2 + 1);
        }
        pInner = pInner ? pInner->parentWidget() : nullptr;
    }
}

void CQTInspectorView::ScrollTo(int in_iY)
{
    m_pScrollBar->setValue(m_iViewHeight < m_iContentHeight ? in_iY : 0);
}

void CQTInspectorView::GiveFocusTo(CInspectorDataWidget* in_pWidget)
{
    const QPointer<QWidget> pControl = dynamic_cast<QWidget*>(in_pWidget);
    const QWidget* pFocused = QApplication::focusWidget();
    const bool bHasIt = pControl && (pControl == pFocused || pControl->isAncestorOf(pFocused));
    if (!pControl || !pControl->isVisible() || bHasIt || CInPlaceKeeper::IsOpenOver(pControl))
    {
        return;
    }
    m_pFilter->TakeFocus(); // its report may destroy what Qt would go on with
    if (pControl)
    {
        pControl->setFocus(Qt::TabFocusReason);
    }
}

void CQTInspectorView::FinishEditing()
{
    m_pFilter->FinishEditing();
}

int CQTInspectorView::GetGroupLeftMargin()
{
    return 5;
}

int CQTInspectorView::GetGroupRightMargin()
{
    return 5;
}

int CQTInspectorView::GetGroupTopMargin()
{
    return 5;
}

int CQTInspectorView::GetGroupBottomMargin()
{
    return 5;
}

int CQTInspectorView::GetGroupLabelHeight()
{
    return 14;
}

int CQTInspectorView::GetHeightBetweenControl()
{
    return 5;
}

QString CQTInspectorView::LabelText(const sInspectorElement& in_row) const
{
    const QString strLabel = InspectorQt::Text(in_row.name);
    return m_bPreviewMode ? strLabel + QLatin1Char('=') : strLabel;
}

int CQTInspectorView::GetElementLabelWidth(CInspectorView::sInspectorElement* in_pElement)
{
    if (in_pElement->name.empty())
    {
        return 0;
    }
    const QRect rect(in_pElement->x, in_pElement->y, in_pElement->width, in_pElement->height);
    return m_pLabelWidths->WidthOf(LabelText(*in_pElement), font(), rect) + 2;
}

void CQTInspectorView::OnToggleShowContent(bool in_bShow)
{
    const QPointer<QWidget> self(this);
    if (!in_bShow)
    {
        m_pFilter->TakeFocus();
    }
    if (self)
    {
        CInspectorView::OnToggleShowContent(in_bShow);
    }
    if (self)
    {
        UpdateView();
    }
}

void CQTInspectorView::ParentControlToInspector(CInspectorDataWidget* in_pWidget)
{
    QWidget* pWidget = dynamic_cast<QWidget*>(in_pWidget);
    if (!pWidget)
    {
        return;
    }
    if (m_pContentWidget->children().isEmpty())
    {
        StartPage();
    }
    pWidget->setParent(m_pContentWidget);
    m_pFilter->WatchControl(pWidget);
    if (m_pKeyboard)
    {
        m_pKeyboard->TakeControl(*pWidget);
    }
}

void CQTInspectorView::SetKeyboardNavigation(bool in_bOn, bool in_bReadOnlyToo)
{
    delete m_pKeyboard;
    m_pKeyboard = in_bOn ? new CViewKeyboard(this, m_pContentWidget, m_pRows.get(), in_bReadOnlyToo) : nullptr;
}

bool CQTInspectorView::IsTabStop(CInspectorDataWidget*)
{
    return true;
}

bool CQTInspectorView::MoveFocusFrom(CInspectorDataWidget* in_pWidget, bool in_bForward)
{
    const bool bKeyboard = m_pKeyboard;
    bKeyboard ? m_pKeyboard->MoveEditing(in_pWidget, in_bForward) : void();
    return bKeyboard;
}

/// Asked by Qt on Tab, whichever widget in here has the focus.
bool CQTInspectorView::focusNextPrevChild(bool in_bNext)
{
    const QPointer<QWidget> self(this);
    return (m_pKeyboard && m_pKeyboard->MoveFocus(in_bNext)) || !self || QWidget::focusNextPrevChild(in_bNext);
}

/// Widgets that are shown one by one cost Qt time that grows with the square of their number; together, when their
/// place has been found, they do not. Nobody sees the difference: the next paint shows them in any case.
void CQTInspectorView::StartPage()
{
    m_pLabelWidths->StartPage();
    if (m_pContentWidget->isVisible())
    {
        m_bHeldBack = true;
        m_pContentWidget->hide();
    }
}

void CQTInspectorView::Reveal()
{
    if (m_bHeldBack)
    {
        m_bHeldBack = false;
        m_pContentWidget->show();
    }
}

/// Lets the notices be handled. When a paint of the whole view was asked for, then this one, or the one still due on
/// the screen when this is for a picture, shows what the handlers change.
void CQTInspectorView::PreDraw()
{
    const QPointer<QWidget> self(this);
    m_bAboutToPaint = std::exchange(m_bPaintDue, false);
    OnPreDraw();
    if (self)
    {
        m_bAboutToPaint = false;
    }
}

void CQTInspectorView::paintEvent(QPaintEvent* in_pEvent)
{
    Reveal();
    PreDraw();
    if (!testAttribute(Qt::WA_WState_InPaintEvent))
    {
        UpdateView(); // an event loop in a handler painted the view, and ended this paint
        return;
    }
    QWidget::paintEvent(in_pEvent);
    QPainter painter(this);
    if (!m_strMessage.empty())
    {
        PaintMessage(painter);
        return;
    }
    if (!m_bShowContent)
    {
        return;
    }
    painter.translate(0, -m_pScrollBar->value());
    PaintTree(painter, in_pEvent->rect().translated(0, m_pScrollBar->value()));
}

/// Level by level. What a group out of sight holds is passed over, unless metrics below zero let it stand outside. The
/// title of an empty group may hang out of the group that holds it.
void CQTInspectorView::PaintTree(QPainter& in_painter, const QRect& in_exposed)
{
    const int iTitleHeight = GetGroupLabelHeight();
    const bool bNested = !m_bPreviewMode && std::min({GetGroupTopMargin(), GetGroupBottomMargin(), iTitleHeight,
                                                      GetHeightBetweenControl()}) >= 0;
    std::vector<const std::list<sInspectorElement>*> levels{&m_root};
    for (std::size_t u = 0; u < levels.size(); ++u)
    {
        for (const sInspectorElement& node : *levels[u])
        {
            PaintNode(in_painter, node, in_exposed);
            const int iEnd = node.y + node.height + iTitleHeight;
            const bool bInSight = node.y <= in_exposed.bottom() && iEnd >= in_exposed.top();
            if (!node.children.empty() && (bInSight || !bNested || node.kind != eGroup))
            {
                levels.push_back(&node.children);
            }
        }
    }
}

void CQTInspectorView::PaintMessage(QPainter& in_painter)
{
    const QPen pen = in_painter.pen();
    in_painter.setPen(QPen(m_messageColor));
    m_pTexts->Draw(in_painter, rect(), InspectorQt::Text(m_strMessage));
    in_painter.setPen(pen);
}

void CQTInspectorView::PaintNode(QPainter& in_painter, const sInspectorElement& in_node, const QRect& in_exposed)
{
    if (in_node.kind == eGroup)
    {
        m_bPreviewMode ? void() : PaintGroup(in_painter, in_node, in_exposed);
        return;
    }
    const QRect label(in_node.x, in_node.y, in_node.labelColumn, in_node.height);
    const QRect inked = label.adjusted(-label.height(), 0, label.height(), 0); // slanted letters lean out
    if (!in_node.name.empty() && inked.intersects(in_exposed))
    {
        m_pTexts->Draw(in_painter, label, LabelText(in_node));
    }
}

/// The frame's upper edge runs through the middle of the title, whose background hides it.
void CQTInspectorView::PaintGroup(QPainter& in_painter, const sInspectorElement& in_group, const QRect& in_exposed)
{
    const int iTitleHeight = in_group.name.empty() ? 0 : GetGroupLabelHeight();
    const int iHalf = iTitleHeight / 2;
    const QRect frame(in_group.x, in_group.y + iHalf, in_group.width, in_group.height - iHalf);
    const int iTitleWidth = in_group.width - GetGroupLeftMargin() - GetGroupRightMargin();
    const QRect title(in_group.x + GetGroupLeftMargin(), in_group.y, iTitleWidth, iTitleHeight);
    if (frame.normalized().adjusted(-1, -1, 1, 1).intersects(in_exposed)) // the line goes beyond the rectangle
    {
        const QPen pen = in_painter.pen();
        in_painter.setPen(QPen(pen.color().darker(175)));
        in_painter.drawRoundedRect(QRectF(frame), 3.0, 3.0);
        in_painter.setPen(pen);
    }
    if (iTitleHeight > 0 && title.intersects(in_exposed))
    {
        const Qt::BGMode eMode = in_painter.backgroundMode();
        in_painter.setBackgroundMode(Qt::OpaqueMode);
        m_pTexts->Draw(in_painter, title, InspectorQt::Text(in_group.name));
        in_painter.setBackgroundMode(eMode);
    }
}
