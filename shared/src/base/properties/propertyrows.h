#ifndef PROPERTYROWS_H
#define PROPERTYROWS_H

/// What is behind a page: its rows, the signals they follow, and the writing of their values. Private to the library.
/// \file

#include "propertyitem.h"
#include "propertypage.h"
#include "propertysource.h"

#include <functional>
#include <map>

class CPropertyReferences;
class CPropertyStep;
class CPropertyUndo;
struct sPropertyChange;

class CPropertyRows : public QObject
{
    Q_OBJECT

public:
    typedef std::function<bool(const tPropertyPtr& in_pMember)> tWriter; ///< writes to one of a row's properties

    explicit CPropertyRows(CPropertyPage& in_page);
    ~CPropertyRows() override;

    static CPropertyRows& Of(const CPropertyPage& in_page) { return *in_page.m_pRows; }
    static tItemPtr ItemOf(const CPropertyRow& in_row) { return in_row.m_pItem.lock(); }
    CPropertyRow RowOf(const tItemPtr& in_pItem) { return CPropertyRow(this, in_pItem); }
    CPropertyGroup GroupOf(const tItemPtr& in_pItem) { return CPropertyGroup(this, in_pItem); }

    CPropertyPage& Page() const { return m_page; }
    const tItems& Items() const { return m_items; }
    void SetClient(IPropertyPageClient* in_pClient) { m_pClient = in_pClient; }

    // Rows: propertyrows.cpp and propertyadapter.cpp.
    tItemPtr Insert(const tItemPtr& in_pItem, const tItemPtr& in_pGroup);
    CPropertyGroup AddGroup(const QString& in_strTitle);
    void SetAdapter(const CPropertyAdapter& in_adapter);
    void AddGroups(std::vector<PropertySource::sGroup> in_groups, const QMetaObject* in_pClass,
                   const CPropertyGroup& in_parent);
    void Clear();
    void Refresh();
    void Run(const tItemPtr& in_pCommand);
    void ItemChanged(sPropertyItem& in_item);
    void RowsChanged();

    // Writing: propertywriting.cpp. All that is written with one step is one step of the undo stack.
    static std::vector<tPropertyPtr> Members(const tPropertyPtr& in_pProperty);
    bool Write(const tPropertyPtr& in_pProperty, const QVariant& in_value);
    bool Write(const tPropertyPtr& in_pProperty, const QVariant& in_value,
               const std::shared_ptr<CPropertyStep>& in_pStep);
    bool Change(const tPropertyPtr& in_pProperty, const QVariant& in_value, const tWriter& in_write,
                const std::shared_ptr<CPropertyStep>& in_pStep);
    void TakeBack(const tPropertyPtr& in_pProperty, const std::shared_ptr<CPropertyStep>& in_pStep);
    void Replay(const tPropertyPtr& in_pProperty, const CPropertyStep& in_step,
                void (CPropertyStep::*in_pDirection)() const);
    CPropertyUndo& Undo() const { return *m_pUndo; }

    // Modified values: propertymodified.cpp.
    void SetModifiedAgainst(CPropertyPage::eModifiedAgainst in_eAgainst);
    bool Compares() const { return m_pReferences != nullptr; }
    bool IsModified(const tPropertyPtr& in_pProperty) const;
    bool CanReset(const tPropertyPtr& in_pProperty) const;
    bool Reset(const tPropertyPtr& in_pProperty);

    // Copying and pasting: propertytext.cpp.
    QString Text() const;
    QByteArray Json() const;
    bool Paste(const QString& in_strText);

private Q_SLOTS:
    void OnNotified();

private:
    void Listen(sPropertyItem& in_item);
    void ListenForDeath(const QObject* in_pObject);
    void StopListening();
    std::vector<tPropertyPtr> Watched(const tPropertyPtr& in_pProperty) const;
    bool Perform(const tPropertyPtr& in_pProperty, const std::vector<tPropertyPtr>& in_watched,
                 const std::function<bool()>& in_write, const std::shared_ptr<CPropertyStep>& in_pStep);
    void Note(const std::vector<sPropertyChange>& in_properties);
    void Reveal(const CProperty& in_property);
    void WriteAll(const std::vector<std::pair<tPropertyPtr, QVariant>>& in_changes, QStringList in_refused);

    typedef std::pair<const QObject*, int> tSignal; ///< an object and the number of its signal

    struct sListeners
    {
        QMetaObject::Connection connection;
        std::vector<sPropertyItem*> rows;
    };

    CPropertyPage& m_page;
    std::shared_ptr<const CPropertyAdapter> m_pAdapter; ///< null: none
    tItems m_items;
    std::map<tSignal, sListeners> m_listeners; ///< the rows that a signal is about
    IPropertyPageClient* m_pClient = nullptr;
    std::unique_ptr<CPropertyUndo> m_pUndo;
    std::shared_ptr<CPropertyReferences> m_pReferences; ///< null: values are compared with nothing
    std::shared_ptr<CPropertyStep> m_pWriting;          ///< what is just being written; null for nothing
    int m_iReplays = 0;                                 ///< how many undos and redos are going on
};

#endif
