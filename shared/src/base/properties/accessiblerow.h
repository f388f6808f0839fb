#ifndef ACCESSIBLEROW_H
#define ACCESSIBLEROW_H

#include "propertyarea.h"

#include <QAccessible>
#include <QCoreApplication>

/// What assistive technology sees of a row that is no widget: a group's title, a property or a command. Private to the
/// library.
class CAccessibleRow : public QAccessibleInterface, public QAccessibleActionInterface, public QAccessibleTextInterface
{
    Q_DECLARE_TR_FUNCTIONS(CAccessibleRow)

public:
    CAccessibleRow(CPropertyArea& in_area, const tItemPtr& in_pItem) : m_pArea(&in_area), m_pItem(in_pItem) {}

    /// Null once the page has dropped the row, which an area may notice only when it places the others.
    tItemPtr Item() const { return m_pArea ? (m_pArea->Shown(), m_pItem.lock()) : nullptr; }

    bool isValid() const override { return m_pArea; } // a row that has gone is told of once more
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(m_pArea); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QWindow* window() const override { return m_pArea ? m_pArea->window()->windowHandle() : nullptr; }
    void setText(QAccessible::Text, const QString&) override {}
    QString text(QAccessible::Text in_eText) const override;
    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType in_eType) override;

    QStringList actionNames() const override;
    QString localizedActionName(const QString& in_strName) const override;
    void doAction(const QString& in_strName) override;
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

    // The value as a text without a cursor.
    void selection(int, int* out_pStart, int* out_pEnd) const override { *out_pStart = *out_pEnd = 0; }
    int selectionCount() const override { return 0; }
    void addSelection(int, int) override {}
    void removeSelection(int) override {}
    void setSelection(int, int, int) override {}
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int) override {}
    QString text(int in_iStart, int in_iEnd) const override { return Value().mid(in_iStart, in_iEnd - in_iStart); }
    int characterCount() const override { return static_cast<int>(Value().size()); }
    QRect characterRect(int) const override { return rect(); }
    int offsetAtPoint(const QPoint&) const override { return -1; }
    void scrollToSubstring(int, int) override { Item() ? m_pArea->ScrollTo(*Item()) : void(); }
    QString attributes(int, int* out_pStart, int* out_pEnd) const override;

private:
    tItemPtr Loaded() const;
    QString Value() const;
    QString Description() const;
    QString Press() const;

    QPointer<CPropertyArea> m_pArea;
    std::weak_ptr<sPropertyItem> m_pItem;
};

#endif
