/// A tree view of two columns on a minimal model, every group expanded. It has no widgets per row at all.
/// \file

#include "subject.h"

#include <QAbstractItemModel>
#include <QTreeView>

namespace
{
class CPropertyModel : public QAbstractItemModel
{
public:
    explicit CPropertyModel(const CProperties& in_properties) : m_properties(in_properties) {}

    QModelIndex IndexOf(int in_iRow, int in_iColumn) const
    {
        return createIndex(in_iRow % CProperties::eGroupSize, in_iColumn, RowId(in_iRow / CProperties::eGroupSize));
    }

    QModelIndex index(int in_iRow, int in_iColumn, const QModelIndex& in_parent) const override
    {
        return createIndex(in_iRow, in_iColumn, in_parent.isValid() ? RowId(in_parent.row()) : GroupId(in_iRow));
    }

    QModelIndex parent(const QModelIndex& in_index) const override
    {
        const int iGroup = GroupOf(in_index);
        return IsGroup(in_index) ? QModelIndex() : createIndex(iGroup, 0, GroupId(iGroup));
    }

    int rowCount(const QModelIndex& in_parent) const override
    {
        if (!in_parent.isValid())
        {
            return m_properties.Count() / CProperties::eGroupSize;
        }
        return IsGroup(in_parent) && in_parent.column() == 0 ? int(CProperties::eGroupSize) : 0;
    }

    int columnCount(const QModelIndex&) const override { return 2; }

    Qt::ItemFlags flags(const QModelIndex& in_index) const override
    {
        const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
        return IsGroup(in_index) ? flags : flags | Qt::ItemIsEditable | Qt::ItemNeverHasChildren;
    }

    QVariant data(const QModelIndex& in_index, int in_iRole) const override
    {
        const int iFirst = GroupOf(in_index) * CProperties::eGroupSize;
        if (IsGroup(in_index))
        {
            const bool bTitle = in_iRole == Qt::DisplayRole && in_index.column() == 0;
            return bTitle ? CProperties::Shown(CProperties::GroupTitle(iFirst)) : QVariant();
        }
        const CProperties::sProperty& property = m_properties[iFirst + in_index.row()];
        const bool bText = in_iRole == Qt::DisplayRole || in_iRole == Qt::EditRole;
        if (in_index.column() == 1 && property.kind == CProperties::eFlag)
        {
            const int iState = property.flag ? Qt::Checked : Qt::Unchecked;
            return in_iRole == Qt::CheckStateRole ? QVariant(iState) : QVariant();
        }
        return bText ? CProperties::Shown(in_index.column() == 0 ? property.label : property.text) : QVariant();
    }

private:
    // Groups have odd numbers and rows even ones. Qt hashes an index by sixteen times its row plus its number, which
    // with equal numbers would leave most of the hash unused.
    static quintptr GroupId(int in_iGroup) { return static_cast<quintptr>(in_iGroup) * 2 + 1; }
    static quintptr RowId(int in_iGroup) { return static_cast<quintptr>(in_iGroup) * 2; }
    static bool IsGroup(const QModelIndex& in_index) { return in_index.internalId() % 2 == 1; }
    static int GroupOf(const QModelIndex& in_index) { return static_cast<int>(in_index.internalId() / 2); }

    const CProperties& m_properties;
};

class CTreeSubject : public ISubject
{
public:
    CTreeSubject(QWidget* in_pWindow, const CProperties& in_properties) : ISubject(in_properties), m_tree(in_pWindow)
    {
        m_tree.setUniformRowHeights(true);
        m_tree.setEditTriggers(QAbstractItemView::AllEditTriggers);
    }

    ~CTreeSubject() override { m_tree.setModel(nullptr); }
    void Resize(const QSize& in_size) override { m_tree.resize(in_size); }

    void Build() override
    {
        m_pModel.reset(new CPropertyModel(m_properties));
        m_tree.setModel(m_pModel.get());
        m_tree.expandAll();
    }

    void Clear() override
    {
        m_tree.setModel(nullptr);
        m_pModel.reset();
    }

    void Update(int in_iRow) override
    {
        const QModelIndex index = m_pModel->IndexOf(in_iRow, 1);
        emit m_pModel->dataChanged(index, index);
    }

    QScrollBar* ScrollBar() override { return m_tree.verticalScrollBar(); }

    QRect Control(int in_iRow) override
    {
        const QRect rect = m_tree.visualRect(m_pModel->IndexOf(in_iRow, 1));
        return rect.translated(m_tree.viewport()->mapTo(m_tree.window(), QPoint(0, 0)));
    }

    bool OpensOnPress(CProperties::eKind in_eKind) override { return in_eKind == CProperties::eText; }

private:
    QTreeView m_tree;
    std::unique_ptr<CPropertyModel> m_pModel;
};
} // namespace

std::unique_ptr<ISubject> CreateTreeSubject(QWidget* in_pWindow, const CProperties& in_properties)
{
    return std::unique_ptr<ISubject>(new CTreeSubject(in_pWindow, in_properties));
}
