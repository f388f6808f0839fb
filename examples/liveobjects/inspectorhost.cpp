#include "inspectorhost.h"

#include <QEvent>
#include <QFontMetrics>

CDemoView::CDemoView()
{
    TakeColours();
}

int CDemoView::GetGroupLabelHeight()
{
    return QFontMetrics(font()).height();
}

/// Labels and titles are measured in the font.
void CDemoView::changeEvent(QEvent* in_pEvent)
{
    CQTInspectorView::changeEvent(in_pEvent);
    if (in_pEvent->type() == QEvent::FontChange)
    {
        RecomputeLayout();
    }
    else if (in_pEvent->type() == QEvent::PaletteChange)
    {
        TakeColours();
    }
}

/// Read-only rows are disabled: they cannot be worked and show it, but are as easy to read as any other.
void CDemoView::TakeColours()
{
    m_messageColor = palette().color(QPalette::WindowText);
    QPalette rows = palette();
    rows.setColor(QPalette::Disabled, QPalette::Base, rows.color(QPalette::Window).darker(106));
    rows.setColor(QPalette::Disabled, QPalette::WindowText, rows.color(QPalette::WindowText));
    rows.setColor(QPalette::Disabled, QPalette::Text, rows.color(QPalette::Text));
    m_pContentWidget->setPalette(rows);
}

CInspectorHost::CInspectorHost() : m_pView(new CDemoView)
{
    setMinimumWidth(260);
    m_pView->setParent(this);
    m_pView->SetKeyboardNavigation(true);
}

void CInspectorHost::LayOutNewPage()
{
    m_pView->ScrollTo(0);
    m_pView->RecomputeLayout();
}

void CInspectorHost::resizeEvent(QResizeEvent*)
{
    m_pView->ResizeInspector(width(), height());
}
