#include "propertyview.h"

#include "propertyarea.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTextDocument>
#include <QVBoxLayout>

#include <algorithm>

CPropertyView::CPropertyView(QWidget* in_pParent)
    : QWidget(in_pParent),
      m_pPage(new CPropertyPage(this)),
      m_pArea(new CPropertyArea(CPropertyRows::Of(*m_pPage))),
      m_pFilterLine(new QLineEdit),
      m_pDescription(new QLabel)
{
    auto* pLayout = new QVBoxLayout(this);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->setSpacing(0);
    m_pFilterLine->hide();
    m_pFilterLine->setClearButtonEnabled(true);
    m_pFilterLine->setPlaceholderText(tr("Filter"));
    m_pFilterLine->setAccessibleName(tr("Filter"));
    pLayout->addWidget(m_pFilterLine);
    pLayout->addWidget(m_pArea, 1);
    m_pDescription->hide();
    m_pDescription->setWordWrap(true);
    m_pDescription->setMargin(4);
    m_pDescription->setAlignment(Qt::AlignLeading | Qt::AlignTop);
    m_pDescription->setTextFormat(Qt::RichText);
    m_pDescription->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_pDescription->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    pLayout->addWidget(m_pDescription);
    setFocusProxy(m_pArea);
    // From the event loop: what reading the values does then never meets the line's own code half way.
    connect(
        m_pFilterLine, &QLineEdit::textChanged, this, [this] { ApplyFilter(); }, Qt::QueuedConnection);
    connect(m_pArea, &CPropertyArea::MenuAboutToShow, this, &CPropertyView::MenuAboutToShow);
    connect(m_pArea, &CPropertyArea::FilterWanted, this, &CPropertyView::EnterFilter);
    connect(m_pArea, &CPropertyArea::CurrentChanged, this, &CPropertyView::Describe);
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
    self ? m_pPage->AddObject(pObject) : void();
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
    self ? m_pPage->AddObjects(alive) : void();
}

void CPropertyView::SetItemEditorFactory(const QItemEditorFactory* in_pFactory)
{
    m_pArea->SetItemEditorFactory(in_pFactory);
}

void CPropertyView::TakeOver()
{
    m_pArea->TakeOver();
}

void CPropertyView::SetFilter(const QString& in_strWords)
{
    m_pFilterLine->setText(in_strWords);
    ApplyFilter();
}

void CPropertyView::ApplyFilter()
{
    m_pArea->SetFilter(m_pFilterLine->text(), IsOnlyModified());
}

void CPropertyView::SetOnlyModified(bool in_bOnlyModified)
{
    m_pArea->SetFilter(m_pFilterLine->text(), in_bOnlyModified);
}

bool CPropertyView::IsOnlyModified() const
{
    return m_pArea->Filter().IsOnlyModified();
}

QString CPropertyView::Filter() const
{
    return m_pFilterLine->text();
}

void CPropertyView::SetFilterVisible(bool in_bVisible)
{
    in_bVisible ? m_pFilterLine->show() : LeaveFilter();
}

bool CPropertyView::IsFilterVisible() const
{
    return !m_pFilterLine->isHidden();
}

/// What is typed is taken over first: it may be the end of the view, which Qt does not stand of a widget that it is
/// giving the focus to.
void CPropertyView::EnterFilter()
{
    const QPointer<CPropertyView> self(this);
    m_pArea->TakeOver();
    if (!self)
    {
        return;
    }
    m_pFilterLine->show();
    m_pFilterLine->setFocus(Qt::ShortcutFocusReason);
    m_pFilterLine->selectAll();
}

/// What the rows' return calls may destroy the view.
void CPropertyView::LeaveFilter()
{
    const QPointer<CPropertyView> self(this);
    if (m_pFilterLine->hasFocus())
    {
        m_pArea->setFocus(Qt::OtherFocusReason);
    }
    self ? m_pFilterLine->hide() : void();
    self ? SetFilter(QString()) : void();
}

/// The filter's key is the view's own while the focus is in it, whatever the application uses it for.
bool CPropertyView::event(QEvent* in_pEvent)
{
    if (in_pEvent->type() == QEvent::ShortcutOverride &&
        static_cast<QKeyEvent*>(in_pEvent)->matches(QKeySequence::Find))
    {
        in_pEvent->accept();
        return true;
    }
    return QWidget::event(in_pEvent);
}

/// What neither the page nor the filter's line has a use for.
void CPropertyView::keyPressEvent(QKeyEvent* in_pEvent)
{
    const bool bInLine = m_pFilterLine->hasFocus();
    if (in_pEvent->matches(QKeySequence::Find))
    {
        EnterFilter();
    }
    else if (in_pEvent->key() == Qt::Key_Escape && IsFilterVisible())
    {
        LeaveFilter();
    }
    else if (bInLine && (in_pEvent->key() == Qt::Key_Down || in_pEvent->key() == Qt::Key_Return))
    {
        const QPointer<CPropertyView> self(this);
        ApplyFilter();
        self ? m_pArea->Reenter() : void();
    }
    else
    {
        QWidget::keyPressEvent(in_pEvent);
    }
}

int CPropertyView::LabelColumn() const
{
    return m_pArea->LabelColumn();
}

void CPropertyView::SetLabelColumn(int in_iWidth)
{
    m_pArea->SetLabelColumn(in_iWidth);
}

void CPropertyView::SetDescriptionVisible(bool in_bVisible)
{
    m_pDescription->setVisible(in_bVisible);
    Describe();
}

bool CPropertyView::IsDescriptionVisible() const
{
    return !m_pDescription->isHidden();
}

/// Always as tall, so that the rows stay where they are.
void CPropertyView::Describe()
{
    if (!IsDescriptionVisible())
    {
        return;
    }
    const tItemPtr pItem = m_pArea->Current();
    const QString strTip = pItem ? pItem->Tip() : QString();
    const QString strLabel = pItem ? pItem->Label().toHtmlEscaped() : QString();
    m_pDescription->setText(
        QStringLiteral("<b>%1</b><br>%2").arg(strLabel, Qt::mightBeRichText(strTip) ? strTip : strTip.toHtmlEscaped()));
    m_pDescription->setFixedHeight(m_pDescription->fontMetrics().lineSpacing() * 3 + 2 * m_pDescription->margin());
}

void CPropertyView::ExpandAll(bool in_bExpand)
{
    m_pArea->ExpandAll(in_bExpand);
}

QByteArray CPropertyView::SaveState() const
{
    sPropertyState state;
    state.expanded = m_pArea->ExpandedGroups();
    state.labelColumn = LabelColumn();
    state.filter = Filter();
    state.onlyModified = IsOnlyModified();
    state.filterVisible = IsFilterVisible();
    return state.Save();
}

bool CPropertyView::RestoreState(const QByteArray& in_state)
{
    sPropertyState state;
    if (!state.Restore(in_state))
    {
        return false;
    }
    m_pArea->SetExpandedGroups(state.expanded);
    SetLabelColumn(state.labelColumn);
    m_pFilterLine->setVisible(state.filterVisible);
    m_pFilterLine->setText(state.filter);
    SetOnlyModified(state.onlyModified);
    return true;
}

CPropertyRow CPropertyView::CurrentRow() const
{
    m_pArea->Shown(); // so that after a change of the page it is known
    return CPropertyRows::Of(*m_pPage).RowOf(m_pArea->Current());
}

void CPropertyView::SetCurrentRow(const CPropertyRow& in_row)
{
    const QPointer<CPropertyView> self(this);
    const tItemPtr pItem = CPropertyRows::ItemOf(in_row);
    const tItems& items = CPropertyRows::Of(*m_pPage).Items();
    if (pItem && std::find(items.begin(), items.end(), pItem) == items.end())
    {
        return; // of another page, or on its way out
    }
    for (sPropertyItem* pGroup = pItem ? pItem->parent : nullptr; pGroup && self; pGroup = pGroup->parent)
    {
        m_pArea->SetExpanded(*pGroup, true);
    }
    self ? m_pArea->SetCurrent(pItem) : void();
}

QRect CPropertyView::ValueRect(const CPropertyRow& in_row) const
{
    const tItemPtr pItem = CPropertyRows::ItemOf(in_row);
    m_pArea->Shown(); // so that it has its place
    return pItem && pItem->height > 0 ? m_pArea->ValueRect(*pItem).translated(m_pArea->pos()) : QRect();
}
