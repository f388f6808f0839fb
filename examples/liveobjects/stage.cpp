#include "stage.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>

namespace
{
const int g_iMargin = 20;
const int g_iGap = 18;
const int g_iObjectWidth = 280;
const int g_iFrame = 5;                        ///< from an object to the selection frame round it
const char* const g_pcHighlight = "highlight"; ///< the dynamic property that tells its colour
} // namespace

CStage::CStage() : m_iNextY(g_iMargin)
{
    CreateObjects();
    setMinimumSize(g_iObjectWidth + 2 * g_iMargin, m_iNextY);
    qApp->installEventFilter(this);
}

void CStage::CreateObjects()
{
    QSlider* pSlider = new QSlider(Qt::Horizontal);
    QSpinBox* pSpinBox = new QSpinBox;
    QProgressBar* pProgressBar = new QProgressBar;
    QCheckBox* pCheckBox = new QCheckBox(QLatin1String("A check box"));
    QPushButton* pButton = new QPushButton(QLatin1String("A push button"));
    QCalendarWidget* pCalendar = new QCalendarWidget;
    Add(pSlider, "slider");
    Add(pSpinBox, "spinBox");
    Add(pProgressBar, "progressBar");
    Add(pCheckBox, "checkBox");
    Add(new QLineEdit(QLatin1String("Type here")), "lineEdit");
    Add(new QLabel(QLatin1String("A label")), "label");
    Add(pButton, "pushButton");
    Add(pCalendar, "calendar");

    pCalendar->setSelectedDate(QDate(2024, 2, 29));
    connect(pSlider, SIGNAL(valueChanged(int)), pSpinBox, SLOT(setValue(int)));
    connect(pSpinBox, SIGNAL(valueChanged(int)), pSlider, SLOT(setValue(int)));
    connect(pSlider, SIGNAL(valueChanged(int)), pProgressBar, SLOT(setValue(int)));
    connect(pButton, SIGNAL(clicked()), pCheckBox, SLOT(toggle()));
    pSlider->setValue(40);
}

/// Placed without a layout, which would undo what is done to an object's geometry.
void CStage::Add(QWidget* in_pObject, const char* in_strName)
{
    in_pObject->setParent(this);
    in_pObject->setObjectName(QLatin1String(in_strName));
    in_pObject->setProperty(g_pcHighlight, palette().color(QPalette::Highlight));
    in_pObject->setProperty("stage", QVariant::fromValue<QObject*>(this));
    in_pObject->show();
    in_pObject->setGeometry(g_iMargin, m_iNextY, g_iObjectWidth, in_pObject->sizeHint().height());
    m_iNextY += in_pObject->height() + g_iGap;
    m_objects.append(in_pObject);
}

void CStage::Select(QWidget* in_pObject)
{
    m_selected.clear();
    if (in_pObject)
    {
        m_selected.append(in_pObject);
    }
    Announce();
}

void CStage::Toggle(QWidget* in_pObject)
{
    if (m_selected.removeAll(in_pObject) == 0)
    {
        m_selected.append(in_pObject);
    }
    Announce();
}

void CStage::Announce()
{
    update();
    emit Selected(LastSelected());
}

QWidget* CStage::LastSelected() const
{
    return m_selected.isEmpty() ? nullptr : m_selected.last().data();
}

QList<QObject*> CStage::GetSelection() const
{
    QList<QObject*> alive;
    foreach (const tObject& pObject, m_selected)
    {
        pObject ? alive.append(pObject.data()) : void();
    }
    return alive;
}

/// Null when no object is alive.
QWidget* CStage::Next() const
{
    const int iCount = static_cast<int>(m_objects.size());
    const int iSelected = LastSelected() ? static_cast<int>(m_objects.indexOf(LastSelected())) : -1;
    for (int i = 1; i <= iCount; ++i)
    {
        if (QWidget* pObject = m_objects.at((iSelected + i) % iCount))
        {
            return pObject;
        }
    }
    return nullptr;
}

void CStage::SelectNext()
{
    if (QWidget* pNext = Next())
    {
        Select(pNext);
    }
}

void CStage::SelectNextToo()
{
    if (QWidget* pNext = Next())
    {
        Toggle(pNext);
    }
}

void CStage::Restore()
{
    Select(nullptr);
    foreach (const tObject& pObject, m_objects)
    {
        delete pObject.data();
    }
    m_objects.clear();
    m_iNextY = g_iMargin;
    CreateObjects();
}

/// The object that a widget is or is part of; null for any other widget.
QWidget* CStage::ObjectAround(QWidget* in_pWidget) const
{
    while (in_pWidget && in_pWidget->parentWidget() != this)
    {
        in_pWidget = in_pWidget->isWindow() ? nullptr : in_pWidget->parentWidget();
    }
    return in_pWidget;
}

/// Watches the whole application: a press on any part of an object selects it, before the object gets the press.
bool CStage::eventFilter(QObject* in_pWatched, QEvent* in_pEvent)
{
    switch (in_pEvent->type())
    {
    case QEvent::MouseButtonPress:
        if (QWidget* pObject = ObjectAround(qobject_cast<QWidget*>(in_pWatched)))
        {
            const bool bBeside = static_cast<QMouseEvent*>(in_pEvent)->modifiers() & Qt::ControlModifier;
            bBeside ? Toggle(pObject) : Select(pObject);
        }
        break;
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::Hide:
    case QEvent::ChildRemoved:
    case QEvent::DynamicPropertyChange:
        if (in_pWatched->parent() == this || in_pWatched == this)
        {
            update();
        }
        break;
    default:
        break;
    }
    return false;
}

/// Gets the presses that objects do not want, too.
void CStage::mousePressEvent(QMouseEvent* in_pEvent)
{
    if (!childAt(in_pEvent->pos()))
    {
        Select(nullptr);
    }
}

void CStage::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    foreach (const tObject& pObject, m_selected)
    {
        if (pObject && pObject->isVisible())
        {
            painter.setPen(QPen(pObject->property(g_pcHighlight).value<QColor>(), 2));
            painter.drawRect(pObject->geometry().adjusted(-g_iFrame, -g_iFrame, g_iFrame, g_iFrame));
        }
    }
}
