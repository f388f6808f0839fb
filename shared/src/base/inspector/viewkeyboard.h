#ifndef VIEWKEYBOARD_H
#define VIEWKEYBOARD_H

#include "viewrows.h"

#include <QEvent>
#include <QObject>
#include <QPointer>
#include <QWidget>

class CInPlaceList;
class CQTControl;
class CQTInspectorView;
class QKeyEvent;

/// Works a page by keys: takes the focus from control to control in the order of the page, and makes of a key on a
/// control what a press makes of it. Private to the library; a child of the view that asked for it.
///
/// Only the view and the widgets of applications are in Qt's own focus chain, side by side; the order in there is the
/// one in which they were made. What the library's controls are told comes here by way of CQTControl::event.
class CViewKeyboard : public QObject
{
public:
    /// \param in_pRows the view's
    CViewKeyboard(CQTInspectorView* in_pView, QWidget* in_pContent, CViewRows* in_pRows, bool in_bReadOnlyToo);

    /// Takes back what TakeControl did to the controls.
    ~CViewKeyboard() override;

    /// The keyboard of the view that a data widget is in, null for none.
    static CViewKeyboard* Of(const QWidget* in_pControl);

    /// As Of, for an event that a control got; null too when the event is none of the keyboard's business.
    static CViewKeyboard* For(const QWidget* in_pControl, const QEvent& in_event);

    /// Whether a line editor over this data widget must not change anything.
    static bool IsForReading(const QWidget* in_pControl);

    /// What a press of the left button on a control does. It may destroy anything.
    static void Press(QWidget* in_pControl);

    /// Lets a data widget, new to the view, take part.
    void TakeControl(QWidget& io_control);

    /// Hands an event to a control, and does what is to be done before and after it.
    bool Deliver(CQTControl* in_pControl, QEvent* in_pEvent);

    /// Moves the focus on from what has it in the view's window; false when that is for Qt to do.
    bool MoveFocus(bool in_bForward);

    /// Moves the focus on from a control, and goes on editing if a line is reached.
    void MoveEditing(CInspectorDataWidget* in_pWidget, bool in_bForward);

    /// When the control that had the focus has gone with its page: gives the focus to the one in its place.
    void RestoreFocus();

    /// Whether the list is open over a control.
    bool IsListOver(const QWidget* in_pControl) const;

    bool eventFilter(QObject* in_pWatched, QEvent* in_pEvent) override;

protected:
    void customEvent(QEvent* in_pEvent) override;

private:
    typedef CViewRows::sRow sRow;

    static bool Works(QWidget* in_pControl, const QKeyEvent& in_key);
    static QWidget* StopIn(QWidget* in_pRow, QWidget* in_pFocused, bool in_bForward);
    bool IsStop(const sRow& in_row) const;
    QWidget* RowAround(QWidget* in_pWidget) const;
    QWidget* FindStop(int in_iRow, bool in_bForward);
    bool FocusRowAfter(int in_iRow, bool in_bForward);
    bool Leave(bool in_bForward);
    bool GiveFocus(QWidget* in_pTaker, bool in_bForward);
    void Enter(Qt::FocusReason in_eReason);
    void WatchList(QWidget* in_pControl);
    bool HasClosedList(const QWidget* in_pControl, const QEvent& in_event) const;
    bool OnListKey(CInPlaceList& in_list, const QKeyEvent& in_key);

    CQTInspectorView* m_pView;
    QWidget* m_pContent;
    CViewRows* m_pRows;
    bool m_bReadOnlyToo;
    QPointer<QWidget> m_pLastInChain; ///< the application's widget that came last into Qt's focus chain
    QPointer<QWidget> m_pFocused;     ///< the control of the library's that last had the focus
    int m_iFocused = -1;              ///< where it stood
    QPointer<QWidget> m_pListRow;     ///< the control that the list is open over
    QPointer<QWidget> m_pClosedRow;   ///< the one that the event being handled has closed it over
};

#endif
