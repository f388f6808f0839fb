#ifndef OBJECTTREE_H
#define OBJECTTREE_H

#include <QAbstractItemModel>
#include <QHash>
#include <QSet>

#include <memory>
#include <vector>

/// The live objects of the program: the application and the top-level widgets, and all that are children of those.
/// Windows of the inspector are left out. A dying object is gone from the tree before anybody can ask for it; new ones
/// come in with the next turn of the event loop, when they have been constructed.
class CObjectTree : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum eColumn
    {
        eClass,
        eName,
        eText, ///< what a person reads on the object: its text or title
        eColumns
    };

    explicit CObjectTree(QObject* in_pParent);
    ~CObjectTree() override;

    /// The object of a row; null for the root.
    QObject* ObjectAt(const QModelIndex& in_index) const;

    /// The row of an object, also of a new one; invalid when it is not in the tree.
    QModelIndex IndexOf(QObject* in_pObject);

    /// All objects, parents first.
    QList<QObject*> Objects() const;

    /// To be called when an object has got a parent; with null, when a widget has none.
    void NoteNew(QObject* in_pParent, QObject* in_pObject);

    /// To be called when an object is about to leave its parent.
    void NoteLeaving(QObject* in_pObject);

    QModelIndex index(int in_iRow, int in_iColumn, const QModelIndex& in_parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex& in_index) const override;
    int rowCount(const QModelIndex& in_parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& in_parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& in_index, int in_iRole = Qt::DisplayRole) const override;
    QVariant headerData(int in_iSection, Qt::Orientation in_eOrientation, int in_iRole) const override;

private:
    struct sNode;

    sNode& NodeAt(const QModelIndex& in_index) const;
    QModelIndex IndexOf(const sNode& in_node) const;
    void BringIn();
    void AddMissing(sNode& io_parent);
    void Append(sNode& io_parent, QObject* in_pObject);
    void Forget(sNode& io_node);

    std::unique_ptr<sNode> m_pRoot;
    QHash<QObject*, sNode*> m_nodes; ///< of live objects only
    QSet<QObject*> m_parents;        ///< got new children; only looked up, as they may have died
};

#endif
