#include "qtsimpledatawidget.h"

#include "inplacekeeper.h"
#include "inspectorqt.h"

#include <algorithm>

namespace
{
const int g_iRowsInSight = 15;
const int g_iListFrame = 6;    ///< what the list is taller than its rows
const int g_iListMinimum = 99; ///< from the first to the last pixel of the narrowest list
} // namespace

CInPlaceList::CInPlaceList()
    : m_pKeeper(new CInPlaceKeeper(this, CInPlaceKeeper::eDropDown, [this] {
          m_bEditing = false;
          m_pKeeper->Close();
      }))
{
    setSelectionMode(QAbstractItemView::SingleSelection);
    connect(this, SIGNAL(itemClicked(QListWidgetItem*)), this, SLOT(OnItemClicked(QListWidgetItem*)));
}

CInPlaceList::~CInPlaceList()
{
    disconnect(this, SIGNAL(itemClicked(QListWidgetItem*)), this, SLOT(OnItemClicked(QListWidgetItem*)));
}

void CInPlaceList::Retire(CInPlaceList* in_pList)
{
    if (QCoreApplication::instance())
    {
        in_pList->m_bEditing = false;
        in_pList->m_pSink = nullptr;
        in_pList->m_pKeeper->Retire();
    }
}

void CInPlaceList::SetSink(IInPlaceEditSink* in_pSink)
{
    const CInPlaceKeeper::CBusy busy(m_pKeeper);
    const CInPlaceSinkWatch watch(in_pSink);
    Dismiss(m_eCause);
    m_pSink = watch.IsAlive() ? in_pSink : nullptr;
    m_pKeeper->m_sinkWatch = watch;
}

void CInPlaceList::AddItem(const char* in_strValue, const char* in_strDisplay)
{
    if (!in_strValue || !in_strDisplay)
    {
        return;
    }
    insertItem(count(), InspectorQt::Text(in_strDisplay));
    QListWidgetItem* pRow = item(count() - 1);
    pRow->setData(Qt::UserRole, InspectorQt::Text(in_strValue));
    pRow->setData(Qt::BackgroundRole, QBrush(palette().color(QPalette::Current, QPalette::Base), Qt::SolidPattern));
}

void CInPlaceList::ClearList()
{
    clear();
    m_bEditing = false;
    m_strInitialValue.clear();
    m_strValue.clear();
}

void CInPlaceList::InPlaceEdit(QWidget* in_pOver, const char* in_strValue, QRect in_rect)
{
    const CInPlaceKeeper::CBusy busy(m_pKeeper);
    const QPointer<QWidget> pOver = in_pOver;
    const QString strValue = InspectorQt::Text(in_strValue);
    Dismiss(m_eCause);
    if (!pOver)
    {
        return;
    }
    m_strValue = strValue;
    m_strInitialValue = m_strValue;
    SelectValue();
    ++m_iEdit;
    m_bReported = false;
    m_eCause = CInspectorDataElement::eEndEditFocusLost;
    m_pKeeper->Open(pOver, GeometryUnder(pOver, in_rect), Qt::ToolTip);
    if (!pOver || m_pKeeper->Over() != pOver)
    {
        return; // showing the list took the focus from somebody who ended this edit or began another
    }
    m_bEditing = true;
    setFocus(Qt::OtherFocusReason);
}

void CInPlaceList::SelectValue()
{
    for (int iRow = 0; iRow < count(); ++iRow)
    {
        if (item(iRow)->data(Qt::UserRole).toString() == m_strValue)
        {
            setCurrentRow(iRow, QItemSelectionModel::SelectCurrent);
            return;
        }
    }
}

/// Where the list belongs, in global coordinates. It is moved up and to the left to stay on the desktop, but never
/// down or to the right.
QRect CInPlaceList::GeometryUnder(const QWidget* in_pOver, const QRect& in_rect) const
{
    int iRowsHeight = 0;
    for (int iRow = 0; iRow < std::min(count(), g_iRowsInSight); ++iRow)
    {
        iRowsHeight += std::max(sizeHintForRow(iRow), 0);
    }
    const int iHeight = iRowsHeight > in_rect.height() ? iRowsHeight + g_iListFrame : in_rect.height();
    const QPoint topLeft(in_rect.left(), in_rect.bottom() + 1);
    const QPoint bottomRight(std::max(in_rect.right(), in_rect.left() + g_iListMinimum), in_rect.bottom() + iHeight);
    const QRect desktop = InspectorQt::DesktopRect();
    QRect rect = InspectorGlobalRect(in_pOver, QRect(topLeft, bottomRight)).translated(-desktop.topLeft());
    if (rect.bottom() > desktop.height())
    {
        rect.moveBottom(desktop.height());
    }
    if (rect.right() > desktop.width())
    {
        rect.moveRight(desktop.width());
    }
    return rect.translated(desktop.topLeft());
}

void CInPlaceList::OnItemClicked(QListWidgetItem* in_pItem)
{
    m_bEditing = true;
    const QVariant value = in_pItem ? in_pItem->data(Qt::UserRole) : QVariant();
    const bool bText = value.isValid() && !value.isNull() && value.canConvert<QString>();
    m_strValue = bText ? value.toString() : QString();
    m_strInitialValue = m_strValue;
    OnFinishEditing();
}

/// The sink is told while the list is still open. What it does there may ask for the end again, which must not reach it
/// a second time, or open the list for another row, which must stay open.
void CInPlaceList::OnFinishEditing()
{
    if (!m_bEditing || m_bReported)
    {
        return;
    }
    const CInPlaceKeeper::CBusy busy(m_pKeeper);
    const int iEdit = m_iEdit;
    m_bReported = true;
    if (m_pSink && m_pKeeper->m_sinkWatch.IsAlive())
    {
        m_pSink->FinishValueEdit(InspectorQt::Bytes(m_strValue).c_str(), m_eCause);
    }
    if (m_iEdit == iEdit)
    {
        m_bEditing = false;
        m_bReported = false;
        m_eCause = CInspectorDataElement::eEndEditFocusLost;
        m_pKeeper->Close();
    }
}

/// Ends editing without a choice. The value reported is the one that the list was opened with, unless the sink shows
/// another by now: what it gets back must not be older than the model.
void CInPlaceList::Dismiss(CInspectorDataElement::eEndEditCause in_eCause)
{
    if (m_bReported)
    {
        m_pKeeper->Close(); // the report turned to something else, a message box perhaps: not over that
    }
    if (!m_bEditing || m_bReported)
    {
        return;
    }
    ISimpleDataProvider* pSink =
        m_pKeeper->m_sinkWatch.IsAlive() ? dynamic_cast<ISimpleDataProvider*>(m_pSink) : nullptr;
    if (pSink)
    {
        std::string strPresent;
        pSink->GetDataAsString(strPresent);
        m_strInitialValue = InspectorQt::Text(strPresent);
    }
    m_eCause = in_eCause;
    m_strValue = m_strInitialValue;
    OnFinishEditing();
}

bool CInPlaceList::event(QEvent* in_pEvent)
{
    switch (in_pEvent->type())
    {
    case QEvent::ShortcutOverride:
        in_pEvent->setAccepted(m_bEditing);
        return true;
    case QEvent::KeyPress:
    {
        const bool bCancel = static_cast<QKeyEvent*>(in_pEvent)->key() == Qt::Key_Escape;
        Dismiss(bCancel ? CInspectorDataElement::eEndEditCancel : m_eCause);
        return true;
    }
    case QEvent::WindowDeactivate:
        Dismiss(CInspectorDataElement::eEndEditFocusLost);
        return true;
    case QEvent::FocusIn:
    {
        const bool bHandled = QListWidget::event(in_pEvent);
        if (selectedItems().isEmpty())
        {
            setCurrentRow(-1); // a view that gets the focus makes its first row current when none is
        }
        return bHandled;
    }
    case QEvent::Hide:
        if (isHidden()) // on Qt 4 the X server's word of an earlier hide may come after the next show
        {
            Dismiss(CInspectorDataElement::eEndEditFocusLost); // hidden by somebody else: a pop-up by a press outside
        }
        break;
    default:
        break;
    }
    return QListWidget::event(in_pEvent);
}
