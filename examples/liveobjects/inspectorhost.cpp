#include "inspectorhost.h"

#include <QEvent>
#include <QFontMetrics>

int CDemoView::GetGroupLabelHeight()
{
    return QFontMetrics(font()).height();
}

void CDemoView::ScrollToTop()
{
    m_pScrollBar->setValue(0);
}

CInspectorHost::CInspectorHost() : m_pView(new CDemoView)
{
    setMinimumWidth(260);
    m_pView->setParent(this);
    m_pView->m_messageColor = palette().color(QPalette::WindowText);
}

void CInspectorHost::LayOutNewPage()
{
    m_pView->ScrollToTop();
    m_pView->RecomputeLayout();
}

void CInspectorHost::resizeEvent(QResizeEvent*)
{
    m_pView->ResizeInspector(width(), height());
}

/// Labels and titles are measured in the view's font, which follows this one.
void CInspectorHost::changeEvent(QEvent* in_pEvent)
{
    QWidget::changeEvent(in_pEvent);
    if (in_pEvent->type() == QEvent::FontChange)
    {
        m_pView->RecomputeLayout();
    }
}
