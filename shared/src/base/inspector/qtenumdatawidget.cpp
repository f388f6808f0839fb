#include "qtsimpledatawidget.h"

#include "datawidgettools.h"
#include "qtinspectorview.h"
#include "viewaccessible.h"

#include <QMouseEvent>
#include <QStyleOptionComboBox>

using namespace InspectorWidgets;

std::shared_ptr<CInPlaceList> CQTEnumDataWidget::g_pInPlaceList;

CQTEnumDataWidget::CQTEnumDataWidget()
{
    if (!g_pInPlaceList)
    {
        g_pInPlaceList.reset(new CInPlaceList, &CInPlaceList::Retire);
    }
    m_pList = g_pInPlaceList;
}

CQTEnumDataWidget::~CQTEnumDataWidget()
{
    ReleaseOwners();
    if (m_pList->isVisible())
    {
        setParent(nullptr); // what is reported now may delete the view
    }
    m_pList->SetSink(nullptr);
    m_pList.reset();
    if (g_pInPlaceList.use_count() == 1)
    {
        g_pInPlaceList.reset();
    }
}

void CQTEnumDataWidget::InitFromElement()
{
    LoadValue();
}

const char* CQTEnumDataWidget::GetType()
{
    return "qt.simple.enum";
}

int CQTEnumDataWidget::GetRequiredWidth()
{
    return g_iInspectorNotGiven;
}

int CQTEnumDataWidget::GetRequiredHeight(int)
{
    return eRowHeight;
}

void CQTEnumDataWidget::ResizeWidget(int in_iWidth, int in_iHeight)
{
    resize(in_iWidth, in_iHeight);
}

void CQTEnumDataWidget::MoveWidget(int in_iX, int in_iY)
{
    MoveTo(this, in_iX, in_iY);
}

void CQTEnumDataWidget::Show()
{
    setVisible(true);
}

void CQTEnumDataWidget::Hide()
{
    setVisible(false);
}

bool CQTEnumDataWidget::LoadValue()
{
    return ReadText(GetSafeControlDataProvider(), m_strLoaded, m_strValue);
}

void CQTEnumDataWidget::OnValueChange(CInspectorDataWidget::sValueChangeInfo*)
{
    if (LoadValue())
    {
        CQTInspectorView::UpdateControl(this);
        InspectorAccessible::TellValue(this);
    }
}

void CQTEnumDataWidget::GetDataAsString(std::string& out_strValue)
{
    out_strValue = BytesOf(m_strValue, m_strLoaded);
}

void CQTEnumDataWidget::FinishValueEdit(const char* in_strText, CInspectorDataElement::eEndEditCause in_eCause)
{
    m_strValue = InspectorQt::Text(in_strText);
    update();
    InspectorAccessible::TellValue(this);
    ReportEnd(this, GetSafeEnumData(), in_eCause);
}

CEnumDataElement* CQTEnumDataWidget::GetSafeEnumData()
{
    return dynamic_cast<CEnumDataElement*>(m_pElement);
}

ISimpleDataProvider* CQTEnumDataWidget::GetSafeControlDataProvider()
{
    return dynamic_cast<ISimpleDataProvider*>(m_pElement);
}

void CQTEnumDataWidget::mousePressEvent(QMouseEvent* in_pEvent)
{
    CEnumDataElement* pElement = GetSafeEnumData();
    if (in_pEvent->button() != Qt::LeftButton || !pElement || !pElement->m_pDefinition)
    {
        return;
    }
    const QPointer<QWidget> self(this);
    m_pList->SetSink(this);
    pElement = self ? GetSafeEnumData() : nullptr; // ending another widget's edit may have rebuilt or hidden the page
    if (!pElement || !pElement->m_pDefinition || size().isEmpty())
    {
        return;
    }
    TakeLook(m_pList.get(), this);
    m_pList->ClearList();
    std::vector<CEnumDataElement::sEnumDefinition::sEnumItem> items;
    pElement->m_pDefinition->GetAllItems(m_eSortingMethod, items);
    for (const CEnumDataElement::sEnumDefinition::sEnumItem& item : items)
    {
        m_pList->AddItem(item.value.c_str(), item.display.c_str());
    }
    m_pList->InPlaceEdit(this, InspectorQt::Bytes(m_strValue).c_str(), rect());
}

void CQTEnumDataWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Colour(this, QPalette::Base));
    QStyleOptionComboBox option;
    option.rect = rect();
    option.state = QStyle::State_Enabled;
    painter.save();
    QApplication::style()->drawComplexControl(QStyle::CC_ComboBox, &option, &painter, nullptr);
    painter.restore(); // some styles leave their pen behind
    CEnumDataElement* pElement = GetSafeEnumData();
    if (!m_strValue.isEmpty() && pElement && pElement->m_pDefinition)
    {
        const std::string strDisplay = pElement->m_pDefinition->GetDisplayFromValue(BytesOf(m_strValue, m_strLoaded));
        PaintText(painter, TextRect(this, painter), InspectorQt::Text(strDisplay));
    }
}
