#ifndef VIEWFILTER_H
#define VIEWFILTER_H

#include <QMouseEvent>
#include <QObject>
#include <QPointer>
#include <QScrollBar>
#include <QWidget>

/// What a view does with events that are not its own to handle. It watches the view, its data widgets and the windows
/// that they are in. Private to the library; a child of the view.
///
/// - The wheel scrolls the view wherever the cursor is over it: no editor takes the wheel, nor the focus by it.
/// - A press of the right button reaches a data widget from here, because Qt would follow it by a context-menu event to
///   that same widget, even if the press has made the application destroy it. So do the moves and the release after it.
/// - A data widget that is to lose the focus to a press loses it before the press is delivered. A press on a row that
/// is
///   not edited in place, a command for instance, first ends whatever is being edited in the view.
class CViewFilter : public QObject
{
public:
    /// \param in_pContent the parent of the data widgets; like the scroll bar a child of the view
    CViewFilter(QWidget* in_pView, QWidget* in_pContent, QScrollBar* in_pScrollBar);

    /// Watches a data widget and what is inside it.
    void WatchControl(QWidget* in_pControl);

    /// Takes the focus from the data widget that has it, if one has. What that reports may destroy it, and the view.
    void TakeFocus();

    /// See CQTInspectorView.
    void FinishEditing();

    bool eventFilter(QObject* in_pWatched, QEvent* in_pEvent) override;

    /// What the window system sends to a window, on Qt 4 to a widget; true keeps it from the widgets.
    bool FilterWindow(QObject* in_pWindow, QEvent* in_pEvent);

    /// Whether an event of this type that a data widget gets may be for the filter.
    static bool Handles(const QEvent& in_event);

private:
    bool IsOutOfSight(QObject* in_pWatched) const;
    void WatchChild(QObject* in_pChild, const QObject* in_pParent);
    bool Scroll(QEvent* in_pWheel);
    bool TakePress(QObject* in_pWindow, QWidget* in_pNative, const QMouseEvent& in_press);
    bool Follow(const QWidget& in_native, const QMouseEvent& in_event);
    QWidget* RowOf(QWidget* in_pWidget) const;
    bool WorksOnValues(QWidget* in_pHit) const;
    void EndEdits(QWidget* in_pNative, const QMouseEvent& in_press);
    static void GiveFocus(QWidget* in_pPressed);

    QWidget* m_pView;
    QWidget* m_pContent;
    QScrollBar* m_pScrollBar;
    WId m_window = 0;             ///< the native window that the view was in when it was last shown or painted
    QPointer<QWidget> m_pPressed; ///< what is under the first button that went down
    bool m_bDelivers = false;     ///< it got that button from here, and gets the rest from here
};

#endif
