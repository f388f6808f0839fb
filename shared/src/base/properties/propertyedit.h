#ifndef PROPERTYEDIT_H
#define PROPERTYEDIT_H

/// One edit: an editor that lies over the value of a row, from its opening to its end. Private to the library.
/// \file

#include "propertyitem.h"

#include <QMetaProperty>
#include <QObject>
#include <QPointer>
#include <QVariant>

class CPropertyArea;
class CPropertyRows;
class CPropertyStep;
class QKeyEvent;
class QMouseEvent;

class CPropertyEdit : public QObject
{
    Q_OBJECT

public:
    /// Makes the editor of a row's value, or of one part of it. Editor tells whether there is one.
    CPropertyEdit(CPropertyArea& in_area, const tItemPtr& in_pItem, int in_iPart);

    /// The editor goes, the focus stays with the page, and nothing is written.
    ~CPropertyEdit() override;

    QWidget* Editor() const { return m_pEditor; }
    const tItemPtr& Item() const { return m_pItem; }
    int Part() const { return m_iPart; }

    /// Shows the editor and gives it the focus. This may be gone afterwards.
    void Open();

    /// Puts the editor over its row.
    void Place();

    /// Shows what the row shows now, unless the user has begun to change it.
    void Follow();

    /// Writes what the editor holds, if the user has changed it.
    void Write();

    /// Closes the editor, then writes what it held: nothing of it is left to be worked while the application acts.
    void Finish();

    /// Writes the values from before the edit, if anything was written.
    void TakeBack();

protected:
    bool eventFilter(QObject* in_pObject, QEvent* in_pEvent) override;

private Q_SLOTS:
    void OnWorked();

private:
    void SelectAll();
    void Close();
    void WriteValue(const QVariant& in_value);
    QVariant EditorValue() const;
    void ShowValue(const QVariant& in_value);
    bool IsOwn(const QWidget* in_pWidget) const;
    void OnFocusChanged(const QWidget* in_pNow);
    bool IsPressOutside(const QObject& in_window, const QMouseEvent& in_press) const;
    bool OverrideShortcut(QKeyEvent& io_event) const;
    bool EndByKey(const QKeyEvent& in_event);

    QPointer<CPropertyArea> m_pArea;
    const QPointer<CPropertyRows> m_pRows;
    const tItemPtr m_pItem;
    const int m_iPart;
    QPointer<QWidget> m_pEditor;
    QMetaProperty m_editorValue;
    const std::shared_ptr<CPropertyStep> m_pStep; ///< all that was written
    QVariant m_shown;                             ///< what the editor held when it was last in step with the row
    bool m_bShowing = false;                      ///< the editor is being told a value
    bool m_bWritePosted = false;
    bool m_bOfList = false; ///< the key that is being pressed was a list's when it was asked about
};

#endif
