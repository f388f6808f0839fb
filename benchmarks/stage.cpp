#include "stage.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QMouseEvent>
#include <QWheelEvent>
#include <QWindow>

namespace
{
const QSize g_size(400, 640);
const int g_iResizeStep = 40;
const int g_iWheelNotch = 120;
const QPoint g_onLabels(20, 320); ///< where no editor takes the wheel
} // namespace

CStage::CStage(tCreateSubject in_pCreate, int in_iRows) : m_properties(in_iRows)
{
    m_pSubject = in_pCreate(this, m_properties);
    resize(g_size);
    show();
    QCursor::setPos(mapToGlobal(rect().center()));
    activateWindow();
    Settle();
}

void CStage::resizeEvent(QResizeEvent* in_pEvent)
{
    m_pSubject->Resize(in_pEvent->size());
}

void CStage::Settle()
{
    QAbstractEventDispatcher* pDispatcher = QAbstractEventDispatcher::instance();
    bool bBusy = true;
    while (bBusy)
    {
        bBusy = pDispatcher->processEvents(QEventLoop::AllEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

bool CStage::CanScroll()
{
    const QScrollBar* pBar = m_pSubject->ScrollBar();
    return pBar->isVisible() && pBar->maximum() >= pBar->pageStep();
}

void CStage::Build()
{
    m_bBuilt = true;
    m_pSubject->Build();
}

void CStage::BuildIfEmpty()
{
    if (!m_bBuilt)
    {
        Build();
        Settle();
    }
}

void CStage::Clear()
{
    if (m_bBuilt)
    {
        m_bBuilt = false;
        m_pSubject->Clear();
    }
}

void CStage::ResizeStep()
{
    m_bThere = !m_bThere;
    resize(g_size + QSize(m_bThere ? g_iResizeStep : 0, 0));
}

void CStage::ScrollPage()
{
    QScrollBar* pBar = m_pSubject->ScrollBar();
    pBar->setValue(pBar->value() == 0 ? pBar->pageStep() : 0);
}

void CStage::ChangeAll()
{
    for (int i = 0; i < m_properties.Count(); ++i)
    {
        m_properties.Change(i);
    }
}

void CStage::WheelStep()
{
    m_bThere = !m_bThere;
    const QPoint delta(0, m_bThere ? -g_iWheelNotch : g_iWheelNotch);
    QWidget* pReceiver = childAt(g_onLabels);
    bool bAccepted = false;
    for (; pReceiver && !bAccepted; pReceiver = pReceiver->parentWidget()) // only real events go on to the parent
    {
        QWheelEvent event(pReceiver->mapFrom(this, g_onLabels), mapToGlobal(g_onLabels), QPoint(), delta, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(pReceiver, &event);
        bAccepted = event.isAccepted();
    }
}

void CStage::MoveMouse()
{
    m_bThere = !m_bThere;
    const QPoint position = m_pSubject->Control(m_bThere ? eRowInSight : eRowInSight + 1).center();
    SendMouse(QEvent::MouseMove, position, Qt::NoButton);
}

void CStage::Press(const QRect& in_rect)
{
    SendMouse(QEvent::MouseButtonPress, in_rect.center(), Qt::LeftButton);
    SendMouse(QEvent::MouseButtonRelease, in_rect.center(), Qt::LeftButton);
}

/// By way of the window, as the events of a real mouse.
void CStage::SendMouse(QEvent::Type in_eType, const QPoint& in_position, Qt::MouseButton in_eButton)
{
    const Qt::MouseButtons down = in_eType == QEvent::MouseButtonPress ? in_eButton : Qt::NoButton;
    QMouseEvent event(in_eType, in_position, mapToGlobal(in_position), in_eButton, down, Qt::NoModifier);
    QCoreApplication::sendEvent(windowHandle(), &event);
}

void CStage::EndEditing()
{
    QWidget* pPopup = QApplication::activePopupWidget();
    QWidget* pFocused = pPopup && pPopup->focusWidget() ? pPopup->focusWidget() : QApplication::focusWidget();
    if (pFocused)
    {
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QCoreApplication::sendEvent(pFocused, &escape);
    }
    Settle();
    if (QApplication::focusWidget())
    {
        QApplication::focusWidget()->clearFocus();
    }
}
