#include "propertyview.h"

#include "propertyarea.h"

#include <QVBoxLayout>

CPropertyView::CPropertyView(QWidget* in_pParent)
    : QWidget(in_pParent),
      m_pPage(new CPropertyPage(this)),
      m_pArea(new CPropertyArea(*m_pPage))
{
    auto* pLayout = new QVBoxLayout(this);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->setSpacing(0);
    pLayout->addWidget(m_pArea);
    setFocusProxy(m_pArea);
    connect(m_pArea, &CPropertyArea::CurrentChanged, this, &CPropertyView::CurrentRowChanged);
    connect(m_pArea, &CPropertyArea::LinkActivated, this, &CPropertyView::LinkActivated);
}

/// The rows' widgets and the open editor go with the area, while the page is whole.
CPropertyView::~CPropertyView()
{
    delete m_pArea;
}

void CPropertyView::ShowObject(QObject* in_pObject)
{
    const QPointer<CPropertyView> self(this);
    const QPointer<QObject> pObject(in_pObject);
    m_pPage->Clear();
    if (self)
    {
        m_pPage->AddObject(pObject);
    }
}

void CPropertyView::ShowObjects(const QList<QObject*>& in_objects)
{
    const QPointer<CPropertyView> self(this);
    QList<QPointer<QObject>> watched;
    for (QObject* pObject : in_objects)
    {
        watched << pObject;
    }
    m_pPage->Clear();
    QList<QObject*> alive;
    for (const QPointer<QObject>& pObject : watched)
    {
        pObject ? alive << pObject : alive;
    }
    if (self)
    {
        m_pPage->AddObjects(alive);
    }
}

void CPropertyView::SetItemEditorFactory(const QItemEditorFactory* in_pFactory)
{
    m_pArea->SetItemEditorFactory(in_pFactory);
}

void CPropertyView::TakeOver()
{
    m_pArea->TakeOver();
}

int CPropertyView::LabelColumn() const
{
    return m_pArea->LabelColumn();
}

void CPropertyView::SetLabelColumn(int in_iWidth)
{
    m_pArea->SetLabelColumn(in_iWidth);
}

CPropertyRow CPropertyView::CurrentRow() const
{
    return CPropertyRow(m_pPage, m_pArea->Current());
}

void CPropertyView::SetCurrentRow(const CPropertyRow& in_row)
{
    m_pArea->SetCurrent(in_row.Item());
}

QRect CPropertyView::ValueRect(const CPropertyRow& in_row) const
{
    const tItemPtr pItem = in_row.Item();
    m_pArea->Shown(); // so that it has its place
    return pItem && pItem->height > 0 ? m_pArea->ValueRect(*pItem).translated(m_pArea->pos()) : QRect();
}
