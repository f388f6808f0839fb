#include "inspectwindow.h"

#include "objecttree.h"
#include "propertyview.h"
#include "signalear.h"
#include "widgetframe.h"

#include <QApplication>
#include <QChildEvent>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScreen>
#include <QSortFilterProxyModel>
#include <QSplitter>
#include <QTabWidget>
#include <QTreeView>

namespace
{
const int g_iSignalsKept = 10000;
}

/// The filter comes first: it styles the widgets made here, and Qt makes objects for them in the program.
CInspectWindow::CInspectWindow() : m_pTree(new CObjectTree(this))
{
    qApp->installEventFilter(this);
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setWindowTitle(QStringLiteral("Inspector of %1").arg(QCoreApplication::applicationName()));
    m_pFrame = new CWidgetFrame(this);
    QSplitter* pSplitter = new QSplitter;
    pSplitter->addWidget(CreateTree());
    pSplitter->addWidget(CreatePages());
    QHBoxLayout* pLayout = new QHBoxLayout(this);
    pLayout->addWidget(pSplitter);
    resize(900, 640);
}

CInspectWindow::~CInspectWindow()
{
    qApp->removeEventFilter(this);
}

void CInspectWindow::Select(QObject* in_pObject)
{
    QModelIndex index = m_pFiltered->mapFromSource(m_pTree->IndexOf(in_pObject));
    m_pTreeView->setCurrentIndex(index);
    m_pTreeView->scrollTo(index);
}

CPropertyPage& CInspectWindow::Page()
{
    return m_pProperties->Page();
}

bool CInspectWindow::eventFilter(QObject* in_pReceiver, QEvent* in_pEvent)
{
    const bool bTopLevel = in_pReceiver->isWidgetType() && !in_pReceiver->parent();
    switch (in_pEvent->type())
    {
    case QEvent::ChildAdded:
        m_pTree->NoteNew(in_pReceiver, static_cast<QChildEvent*>(in_pEvent)->child());
        break;
    case QEvent::ChildRemoved:
        m_pTree->NoteLeaving(static_cast<QChildEvent*>(in_pEvent)->child());
        break;
    case QEvent::Create:
    case QEvent::ParentChange:
        bTopLevel ? m_pTree->NoteNew(nullptr, in_pReceiver) : void();
        break;
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::Hide:
        m_pFrame ? m_pFrame->Follow(in_pReceiver) : void();
        break;
    default:
        break;
    }
    return FilterEvent(in_pReceiver, in_pEvent);
}

QWidget* CInspectWindow::CreateTree()
{
    m_pFiltered = new QSortFilterProxyModel(this);
    m_pTreeView = new QTreeView;
    m_pFiltered->setSourceModel(m_pTree);
    m_pFiltered->setRecursiveFilteringEnabled(true);
    m_pFiltered->setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_pTreeView->setModel(m_pFiltered);
    m_pTreeView->setUniformRowHeights(true);
    m_pTreeView->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_pTreeView->header()->resizeSection(CObjectTree::eClass, 220);
    m_pTreeView->expandToDepth(0);
    connect(m_pTreeView->selectionModel(), &QItemSelectionModel::selectionChanged, this, &CInspectWindow::OnSelected);
    QWidget* pSide = new QWidget;
    QVBoxLayout* pLayout = new QVBoxLayout(pSide);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->addWidget(CreateFilter());
    pLayout->addWidget(m_pTreeView);
    return pSide;
}

QWidget* CInspectWindow::CreateFilter()
{
    QWidget* pRow = new QWidget;
    QLineEdit* pLine = new QLineEdit;
    QComboBox* pColumn = new QComboBox;
    pLine->setObjectName(QStringLiteral("treeFilter"));
    pLine->setPlaceholderText(QStringLiteral("Filter"));
    pLine->setClearButtonEnabled(true);
    pColumn->addItems(
        {QStringLiteral("Anything"), QStringLiteral("Class"), QStringLiteral("Name"), QStringLiteral("Text")});
    connect(pLine, &QLineEdit::textChanged, m_pFiltered, &QSortFilterProxyModel::setFilterFixedString);
    connect(pColumn, QOverload<int>::of(&QComboBox::currentIndexChanged), m_pFiltered,
            [this](int in_iEntry) { m_pFiltered->setFilterKeyColumn(in_iEntry - 1); });
    m_pFiltered->setFilterKeyColumn(-1);
    QHBoxLayout* pLayout = new QHBoxLayout(pRow);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->addWidget(pLine);
    pLayout->addWidget(pColumn);
    return pRow;
}

QWidget* CInspectWindow::CreatePages()
{
    m_pPages = new QTabWidget;
    m_pProperties = new CPropertyView;
    m_pProperties->Page().UseOwnUndoStack();
    m_pSignals = new QPlainTextEdit;
    connect(m_pProperties, &CPropertyView::LinkActivated, this, &CInspectWindow::Select);
    m_pPages->addTab(m_pProperties, QStringLiteral("Properties"));
    m_pSignals->setReadOnly(true);
    m_pSignals->setUndoRedoEnabled(false);
    m_pSignals->setMaximumBlockCount(g_iSignalsKept);
    m_pPages->addTab(m_pSignals, QStringLiteral("Signals"));
    connect(m_pPages, &QTabWidget::currentChanged, this, &CInspectWindow::ListenIfAsked);
    return m_pPages;
}

QList<QObject*> CInspectWindow::SelectedObjects() const
{
    QList<QObject*> objects;
    const QModelIndexList rows = m_pTreeView->selectionModel()->selectedRows();
    for (const QModelIndex& index : rows)
    {
        objects << m_pTree->ObjectAt(m_pFiltered->mapToSource(index));
    }
    objects.removeAll(nullptr);
    return objects;
}

void CInspectWindow::OnSelected()
{
    const QList<QObject*> objects = SelectedObjects();
    m_pFrame->SetWidget(objects.isEmpty() ? nullptr : qobject_cast<QWidget*>(objects.last()));
    objects.size() == 1 ? m_pProperties->ShowObject(objects.first()) : m_pProperties->ShowObjects(objects);
    ListenIfAsked();
}

/// Several times as fast as a person reads: signals wait in the event queue, and no more of them are kept than asked.
void CInspectWindow::ListenIfAsked()
{
    const QList<QObject*> objects = SelectedObjects();
    m_pEar.reset();
    m_pSignals->clear();
    if (m_pPages->currentWidget() == m_pSignals && objects.size() == 1)
    {
        const auto append = [pSignals = m_pSignals](const QString& in_strSignal) {
            QMetaObject::invokeMethod(
                pSignals, [=] { pSignals->appendPlainText(in_strSignal); }, Qt::QueuedConnection);
        };
        m_pEar = std::make_unique<CSignalEar>(objects.first(), append);
    }
}
