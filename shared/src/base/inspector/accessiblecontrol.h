#ifndef ACCESSIBLECONTROL_H
#define ACCESSIBLECONTROL_H

#include "inspectorqt.h"
#include "viewrows.h"

#include <QAccessibleWidget>
#include <QTextCursor>
#include <QTextEdit>

class CQTInspectorView;

/// What assistive technology sees of a data widget of the library: named after its row, described by the groups around
/// it, with its value as text. Private to the library.
class CAccessibleControl : public QAccessibleWidget, public QAccessibleTextInterface
{
public:
    CAccessibleControl(QWidget* in_pControl, QAccessible::Role in_eRole);

    /// Tells of the value if it is not the one told last.
    void TellValue();

    QAccessibleInterface* parent() const override;
    QVector<QPair<QAccessibleInterface*, QAccessible::Relation>> relations(
        QAccessible::Relation in_eMatch) const override;
    QString text(QAccessible::Text in_eText) const override;
    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString& in_strName) override;
    void* interface_cast(QAccessible::InterfaceType in_eType) override;

    // The value as a text without a cursor.
    void selection(int in_iSelection, int* out_pStart, int* out_pEnd) const override;
    int selectionCount() const override { return 0; }
    void addSelection(int, int) override {}
    void removeSelection(int) override {}
    void setSelection(int, int, int) override {}
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int) override {}
    QString text(int in_iStart, int in_iEnd) const override;
    int characterCount() const override;
    QRect characterRect(int) const override { return rect(); }
    int offsetAtPoint(const QPoint&) const override { return -1; }
    void scrollToSubstring(int, int) override;
    QString attributes(int in_iOffset, int* out_pStart, int* out_pEnd) const override;

protected:
    CQTInspectorView* View() const;
    const CViewRows::sRow* Row() const;
    CInspectorDataElement* Element() const;
    virtual QString Value() const;

private:
    QString Name() const;
    QString Description() const;
    QString Press() const;
    void DoPress();

    QString m_strTold;
};

/// What it sees of a long text, which has a cursor and can be written to.
class CAccessibleLongText : public CAccessibleControl, public QAccessibleEditableTextInterface
{
public:
    explicit CAccessibleLongText(QTextEdit* in_pControl);

    int childCount() const override { return 0; } ///< what it scrolls with is not worth a visit
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType in_eType) override;

    void selection(int in_iSelection, int* out_pStart, int* out_pEnd) const override;
    int selectionCount() const override;
    void addSelection(int in_iStart, int in_iEnd) override;
    void removeSelection(int in_iSelection) override;
    void setSelection(int in_iSelection, int in_iStart, int in_iEnd) override;
    int cursorPosition() const override;
    void setCursorPosition(int in_iPosition) override;
    QRect characterRect(int in_iOffset) const override;
    int offsetAtPoint(const QPoint& in_point) const override;
    void scrollToSubstring(int in_iStart, int in_iEnd) override;

    void deleteText(int in_iStart, int in_iEnd) override;
    void insertText(int in_iOffset, const QString& in_strText) override;
    void replaceText(int in_iStart, int in_iEnd, const QString& in_strText) override;

protected:
    QString Value() const override;

private:
    QTextEdit* Edit() const;
    QTextCursor Cursor(int in_iStart, int in_iEnd) const;
    void Select(int in_iStart, int in_iEnd);
};

#endif
