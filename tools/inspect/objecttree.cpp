#include "objecttree.h"

#include "apartwindow.h"

#include <QApplication>
#include <QMetaProperty>

struct CObjectTree::sNode
{
    QObject* object = nullptr; ///< null for the root, and for one that is dying
    sNode* parent = nullptr;
    int row = 0;
    std::vector<std::unique_ptr<sNode>> children;
};

namespace
{
QList<QObject*> TopLevelObjects()
{
    QList<QObject*> objects = {QCoreApplication::instance()};
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWidget* pWidget : widgets)
    {
        if (!pWidget->parent() && !CApartWindow::Owns(pWidget))
        {
            objects << pWidget;
        }
    }
    return objects;
}

/// Only texts are read: other properties of these names might do anything.
QString TextOf(const QObject& in_object)
{
    const QMetaObject& meta = *in_object.metaObject();
    for (const char* strName : {"text", "title", "windowTitle"})
    {
        const QMetaProperty property = meta.property(meta.indexOfProperty(strName));
        const bool bText = property.isReadable() && property.userType() == QMetaType::QString;
        const QString strText = bText ? property.read(&in_object).toString() : QString();
        if (!strText.isEmpty())
        {
            return strText.simplified();
        }
    }
    return QString();
}
} // namespace

CObjectTree::CObjectTree(QObject* in_pParent) : QAbstractItemModel(in_pParent), m_pRoot(new sNode)
{
    AddMissing(*m_pRoot);
}

CObjectTree::~CObjectTree() = default;

QObject* CObjectTree::ObjectAt(const QModelIndex& in_index) const
{
    return NodeAt(in_index).object;
}

QModelIndex CObjectTree::IndexOf(QObject* in_pObject)
{
    BringIn();
    const sNode* pNode = m_nodes.value(in_pObject);
    return pNode ? IndexOf(*pNode) : QModelIndex();
}

QList<QObject*> CObjectTree::Objects() const
{
    QList<QObject*> objects;
    std::vector<const sNode*> open = {m_pRoot.get()};
    while (!open.empty())
    {
        const sNode& node = *open.back();
        open.pop_back();
        objects << node.object;
        for (auto ppChild = node.children.rbegin(); ppChild != node.children.rend(); ++ppChild)
        {
            open.push_back(ppChild->get());
        }
    }
    objects.removeAll(nullptr);
    return objects;
}

void CObjectTree::NoteNew(QObject* in_pParent, QObject* in_pObject)
{
    NoteLeaving(in_pObject); // nobody tells when a widget that had no parent gets one
    if (in_pParent && !m_nodes.contains(in_pParent))
    {
        return;
    }
    if (m_parents.isEmpty())
    {
        QMetaObject::invokeMethod(this, &CObjectTree::BringIn, Qt::QueuedConnection);
    }
    m_parents.insert(in_pParent);
}

void CObjectTree::NoteLeaving(QObject* in_pObject)
{
    sNode* pNode = m_nodes.value(in_pObject);
    if (!pNode)
    {
        return;
    }
    Forget(*pNode);
    sNode& parent = *pNode->parent;
    const int iRow = pNode->row;
    beginRemoveRows(IndexOf(parent), iRow, iRow);
    const std::unique_ptr<sNode> pGone = std::move(parent.children[static_cast<std::size_t>(iRow)]);
    parent.children.erase(parent.children.begin() + iRow);
    for (std::size_t i = static_cast<std::size_t>(iRow); i < parent.children.size(); ++i)
    {
        parent.children[i]->row = static_cast<int>(i);
    }
    endRemoveRows();
}

QModelIndex CObjectTree::index(int in_iRow, int in_iColumn, const QModelIndex& in_parent) const
{
    return hasIndex(in_iRow, in_iColumn, in_parent)
               ? createIndex(in_iRow, in_iColumn, NodeAt(in_parent).children[static_cast<std::size_t>(in_iRow)].get())
               : QModelIndex();
}

QModelIndex CObjectTree::parent(const QModelIndex& in_index) const
{
    return in_index.isValid() ? IndexOf(*NodeAt(in_index).parent) : QModelIndex();
}

int CObjectTree::rowCount(const QModelIndex& in_parent) const
{
    return in_parent.column() > 0 ? 0 : static_cast<int>(NodeAt(in_parent).children.size());
}

int CObjectTree::columnCount(const QModelIndex&) const
{
    return eColumns;
}

QVariant CObjectTree::data(const QModelIndex& in_index, int in_iRole) const
{
    const QObject* pObject = ObjectAt(in_index);
    if (!pObject || (in_iRole != Qt::DisplayRole && in_iRole != Qt::ToolTipRole))
    {
        return QVariant();
    }
    switch (in_index.column())
    {
    case eClass:
        return QString::fromLatin1(pObject->metaObject()->className());
    case eName:
        return pObject->objectName();
    default:
        return TextOf(*pObject);
    }
}

QVariant CObjectTree::headerData(int in_iSection, Qt::Orientation in_eOrientation, int in_iRole) const
{
    const char* const titles[] = {"Class", "Name", "Text"};
    const bool bTitle = in_eOrientation == Qt::Horizontal && in_iRole == Qt::DisplayRole && in_iSection < eColumns;
    return bTitle ? QString::fromLatin1(titles[in_iSection]) : QVariant();
}

CObjectTree::sNode& CObjectTree::NodeAt(const QModelIndex& in_index) const
{
    return in_index.isValid() ? *static_cast<sNode*>(in_index.internalPointer()) : *m_pRoot;
}

QModelIndex CObjectTree::IndexOf(const sNode& in_node) const
{
    return in_node.parent ? createIndex(in_node.row, 0, const_cast<sNode*>(&in_node)) : QModelIndex();
}

void CObjectTree::BringIn()
{
    const QSet<QObject*> parents = std::exchange(m_parents, {});
    for (QObject* pParent : parents)
    {
        if (sNode* pNode = pParent ? m_nodes.value(pParent) : m_pRoot.get())
        {
            AddMissing(*pNode);
        }
    }
}

void CObjectTree::AddMissing(sNode& io_parent)
{
    const QList<QObject*> objects = io_parent.object ? io_parent.object->children() : TopLevelObjects();
    for (QObject* pObject : objects)
    {
        if (!m_nodes.contains(pObject))
        {
            const int iRow = static_cast<int>(io_parent.children.size());
            beginInsertRows(IndexOf(io_parent), iRow, iRow);
            Append(io_parent, pObject);
            endInsertRows();
        }
    }
}

/// With all that is below it.
void CObjectTree::Append(sNode& io_parent, QObject* in_pObject)
{
    io_parent.children.push_back(std::make_unique<sNode>());
    sNode& node = *io_parent.children.back();
    node.object = in_pObject;
    node.parent = &io_parent;
    node.row = static_cast<int>(io_parent.children.size()) - 1;
    m_nodes.insert(in_pObject, &node);
    // An object that has left the tree stays connected, so that coming back is no second connection.
    connect(in_pObject, &QObject::destroyed, this, &CObjectTree::NoteLeaving, Qt::UniqueConnection);
    for (QObject* pChild : in_pObject->children())
    {
        if (!m_nodes.contains(pChild)) // a filter of the program's may have kept from us that it left its old parent
        {
            Append(node, pChild);
        }
    }
}

/// The row is still there for those who are told that it goes, its objects are not.
void CObjectTree::Forget(sNode& io_node)
{
    m_nodes.remove(io_node.object);
    io_node.object = nullptr;
    for (const std::unique_ptr<sNode>& pChild : io_node.children)
    {
        Forget(*pChild);
    }
}
