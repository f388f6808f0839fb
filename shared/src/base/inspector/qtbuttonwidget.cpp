#include "qtsimpledatawidget.h"

#include "datawidgettools.h"

#include <QMouseEvent>
#include <QStyleOptionButton>

#include <algorithm>

using namespace InspectorWidgets;

CQTButtonWidget::CQTButtonWidget() = default;

const char* CQTButtonWidget::GetType()
{
    return "qt.button";
}

void CQTButtonWidget::InitFromElement() {}

int CQTButtonWidget::GetRequiredWidth()
{
    return g_iInspectorNotGiven;
}

int CQTButtonWidget::GetRequiredHeight(int)
{
    return eRowHeight;
}

void CQTButtonWidget::ResizeWidget(int in_iWidth, int in_iHeight)
{
    resize(in_iWidth, std::min<int>(in_iHeight, eRowHeight));
}

void CQTButtonWidget::MoveWidget(int in_iX, int in_iY)
{
    MoveTo(this, in_iX, in_iY);
}

void CQTButtonWidget::Show()
{
    setVisible(true);
}

void CQTButtonWidget::Hide()
{
    setVisible(false);
}

CButtonDataElement* CQTButtonWidget::GetSafeData()
{
    return dynamic_cast<CButtonDataElement*>(m_pElement);
}

void CQTButtonWidget::mousePressEvent(QMouseEvent* in_pEvent)
{
    CButtonDataElement* pElement = GetSafeData();
    if (pElement && m_buttonRect.contains(in_pEvent->pos()))
    {
        update(); // ahead of the command, which may destroy this widget
        pElement->OnCtrlValueChange(this);
    }
}

void CQTButtonWidget::paintEvent(QPaintEvent*)
{
    CButtonDataElement* pElement = GetSafeData();
    if (!pElement)
    {
        return;
    }
    QPainter painter(this);
    QStyleOptionButton option;
    option.initFrom(this);
    option.state = QStyle::State_Raised;
    if (!pElement->m_bEnabled)
    {
        option.palette.setCurrentColorGroup(QPalette::Disabled);
    }
    option.rect = QRect(0, 0, width(), eRowHeight);
    option.text = InspectorQt::Text(pElement->m_strCaption);
    QTextOption oneLine;
    oneLine.setWrapMode(QTextOption::NoWrap); // wrapped, a long text would measure less than it needs
    const qreal textWidth = painter.boundingRect(QRectF(option.rect), option.text, oneLine).width();
    if (width() - 1 > textWidth)
    {
        const int iMargin = static_cast<int>(width() - textWidth) / 2;
        option.rect.setLeft(iMargin - 1);
        option.rect.setRight(width() - 1 - iMargin + 2);
    }
    m_buttonRect = option.rect;
    QApplication::style()->drawControl(QStyle::CE_PushButton, &option, &painter, this);
}

CQTStaticWidget::CQTStaticWidget() = default;

const char* CQTStaticWidget::GetType()
{
    return "qt.static";
}

void CQTStaticWidget::InitFromElement() {}

int CQTStaticWidget::GetRequiredWidth()
{
    return g_iInspectorNotGiven;
}

int CQTStaticWidget::GetRequiredHeight(int)
{
    return eRowHeight;
}

void CQTStaticWidget::ResizeWidget(int in_iWidth, int in_iHeight)
{
    resize(in_iWidth, std::min<int>(in_iHeight, eRowHeight));
}

void CQTStaticWidget::MoveWidget(int in_iX, int in_iY)
{
    MoveTo(this, in_iX, in_iY);
}

void CQTStaticWidget::Show()
{
    setVisible(true);
}

void CQTStaticWidget::Hide()
{
    setVisible(false);
}

CStaticDataElement* CQTStaticWidget::GetSafeData()
{
    return dynamic_cast<CStaticDataElement*>(m_pElement);
}

void CQTStaticWidget::paintEvent(QPaintEvent*)
{
    if (CStaticDataElement* pElement = GetSafeData())
    {
        QPainter painter(this);
        const QRect rect(0, 0, width(), std::min<int>(height(), eRowHeight));
        const QString strText = InspectorQt::Text(pElement->m_strText);
        pElement->m_iAlignment == eLeftCentred ? PaintText(painter, rect, strText)
                                               : painter.drawText(rect, pElement->m_iAlignment, strText);
    }
}
