#include "widgetframe.h"

#include <QGuiApplication>
#include <QPainter>
#include <QWindow>

namespace
{
const int g_iFrame = 2; ///< width of the line
}

CWidgetFrame::CWidgetFrame(CApartWindow* in_pOwner)
    : CApartWindow(in_pOwner, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowTransparentForInput)
{
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    // It lies over other programs' windows, too.
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, &CWidgetFrame::Place);
}

void CWidgetFrame::SetWidget(QWidget* in_pWidget)
{
    m_pWidget = in_pWidget;
    Place();
}

void CWidgetFrame::Follow(const QObject* in_pMoved)
{
    const QWidget* pMoved = qobject_cast<const QWidget*>(in_pMoved);
    if (m_pWidget && pMoved && (pMoved == m_pWidget || pMoved == parentWidget() || pMoved->isAncestorOf(m_pWidget)))
    {
        Place();
    }
}

void CWidgetFrame::Place()
{
    const QWidget* pWidget = m_pWidget;
    if (!pWidget || !pWidget->isVisible() || !parentWidget()->isVisible() ||
        QGuiApplication::applicationState() != Qt::ApplicationActive)
    {
        hide();
        return;
    }
    const QRect inside(pWidget->mapToGlobal(QPoint()), pWidget->size());
    const QRect outside = inside.adjusted(-g_iFrame, -g_iFrame, g_iFrame, g_iFrame);
    winId();
    windowHandle()->setTransientParent(pWidget->window()->windowHandle());
    setGeometry(outside);
    const QRegion frame = QRegion(outside) - inside - parentWidget()->frameGeometry();
    setMask(frame.translated(-outside.topLeft()));
    setVisible(!frame.isEmpty());
}

void CWidgetFrame::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), QColor(230, 60, 30));
}
