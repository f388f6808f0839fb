#ifndef INPLACEKEEPER_H
#define INPLACEKEEPER_H

#include "heldkeys.h"
#include "inspectordataelement.h"

#include <QBasicTimer>
#include <QObject>
#include <QPalette>
#include <QPointer>
#include <QRect>
#include <QWidget>

#include <functional>

/// Notices the death of a sink that is a Qt object.
class CInPlaceSinkWatch
{
public:
    explicit CInPlaceSinkWatch(IInPlaceEditSink* in_pSink = nullptr)
        : m_pObject(dynamic_cast<QObject*>(in_pSink)),
          m_bIsObject(m_pObject)
    {}
    bool IsAlive() const { return !m_bIsObject || m_pObject; }

    /// The sink is dying.
    void Forget() { *this = CInPlaceSinkWatch(), m_bIsObject = true; }

private:
    QPointer<QObject> m_pObject;
    bool m_bIsObject;
};

/// Keeps an in-place editor, which is a window of its own or on Wayland a child of the widget, over the widget that it
/// edits: opens and closes it, follows the widget, tells the editor when it has to end, and puts off the editor's
/// deletion while it is in use. From the end of one edit until the next editor is active, the keys that the window
/// system gives to the editors' owner are kept, for the next editor if there is one. All keepers together know what is
/// being edited in place, so that nobody else needs to know the editors. Private to the library; a child of the editor.
///
/// It tells the editor to end by sending it a QEvent::WindowDeactivate, the event that a lost focus brings.
class CInPlaceKeeper : public QObject
{
    Q_OBJECT

public:
    enum eKind
    {
        eLine,     ///< lies over the widget and takes its size
        eDropDown, ///< hangs under the widget; a press elsewhere or a change of the widget's window ends it
    };

    /// Held on the stack while the editor calls out: Retire waits for it.
    class CBusy
    {
    public:
        explicit CBusy(CInPlaceKeeper* in_pKeeper);
        ~CBusy();

    private:
        CInPlaceKeeper* m_pKeeper;
    };

    /// Held on the stack while the end of an edit is reported: keys wait for what the report opens.
    class CReport
    {
    public:
        explicit CReport(CInPlaceKeeper* in_pKeeper);
        ~CReport();

    private:
        CBusy m_busy;
        CInPlaceKeeper* m_pKeeper;
    };

    /// \param in_drop ends an edit that a report has begun: without a report, unless something was typed
    CInPlaceKeeper(QWidget* in_pEditor, eKind in_eKind, const std::function<void()>& in_drop);
    ~CInPlaceKeeper() override;

    /// Ends what is being edited in place inside a widget (null: anywhere), and reports it as a lost focus.
    static void EndEdits(const QWidget* in_pAround);

    /// Ends what a report of EndEdits has begun to edit in place inside a widget.
    static void DropEdits(const QWidget* in_pAround);

    /// Whether an editor is open over a widget.
    static bool IsOpenOver(const QWidget* in_pWidget);

    /// Closes open lists, and reports that.
    static void CloseLists();

    /// Shows and activates the editor over a widget, at a place in global coordinates.
    void Open(QWidget* in_pOver, const QRect& in_geometry, Qt::WindowFlags in_flags);

    /// Hides the editor and, if it was the active window, activates the window that it belonged to.
    void Close();

    /// The widget that the editor is open over, null when closed or when the widget has died.
    QWidget* Over() const { return m_pOver; }

    /// Whether the editor is still to become active. What deactivates it until then is a late word of an earlier edit.
    bool IsAwaited() const { return m_bAwaited; }

    /// Gives the editor the keys that wait for it, active or not.
    void FlushKeys();

    /// Hides and deletes the editor; later, when it is busy.
    void Retire();

    CInPlaceSinkWatch m_sinkWatch; ///< on the editor's sink

    bool eventFilter(QObject* in_pWatched, QEvent* in_pEvent) override;

protected:
    void customEvent(QEvent* in_pEvent) override;
    void timerEvent(QTimerEvent* in_pEvent) override;

private Q_SLOTS:
    void OnOverDies();

private:
    static void EndAll(const QWidget* in_pAround, const std::function<void(CInPlaceKeeper&)>& in_end);
    bool IsOpenIn(const QWidget* in_pAround) const;
    bool IsInside() const;
    void OpenInside();
    void OpenWindow(Qt::WindowFlags in_flags);
    bool IsMissing() const;
    void ClaimOwnerActive(QWidget* in_pOwner);
    bool IsOnEditor(QObject* in_pWatched, QEvent* in_pEvent) const;
    bool KeepsKeysWaiting() const;
    bool TakeKey(QObject* in_pWatched, QEvent* in_pEvent);
    void DeliverKeys();
    bool WatchOver(QObject* in_pWatched, QEvent* in_pEvent);
    void RequestCheck();
    void Follow();
    void EndEditing();
    bool EndOnShortcut(QObject* in_pWatched);
    bool EndOnPress(QObject* in_pWatched);
    bool IsOverOrAround(const QObject* in_pObject) const;
    QRect OverRect() const;
    bool IsInSight() const;

    static CInPlaceKeeper* s_pFirst; ///< of all that there are
    CInPlaceKeeper* m_pNext;
    QWidget* m_pEditor;
    eKind m_eKind;
    std::function<void()> m_drop;
    QPointer<QWidget> m_pOver;
    QPointer<QWidget> m_pOwner; ///< the widget's window, which stays when the widget dies while it is edited
    QRect m_overRect;           ///< where the widget was when the editor was last placed
    QRect m_ownerRect;          ///< where the widget's window was when the editor was opened
    QRect m_geometry;           ///< where the editor belongs
    CHeldKeys m_keys;
    QPointer<QWidget> m_pKeysOf; ///< the window whose keys are kept
    QBasicTimer m_patience;      ///< runs while keys wait for the editor to become active
    bool m_bAwaited = false;     ///< open, but not active yet
    bool m_bOverdue = false;     ///< for so long that keys wait no longer
    bool m_bReplayPosted = false;
    int m_iReports = 0;
    int m_iDeliveries = 0;
    bool m_bInSight = false;
    bool m_bPlacedAgain = false; ///< put back to m_geometry once already; a window manager may insist
    bool m_bCheckPosted = false;
    QBasicTimer m_look; ///< runs until the editor is active; where Qt does not tell, while it is open
    int m_iLooks = 0;   ///< how often the editor may still be activated
    int m_iBusy = 0;
    bool m_bRetired = false;
};

/// Gives an editor the font, the palette and the direction of what it edits.
inline void TakeLook(QWidget* in_pEditor, const QWidget* in_pOver)
{
    in_pEditor->setFont(in_pOver->font());
    in_pEditor->setLayoutDirection(in_pOver->layoutDirection());
    QPalette palette; // brush by brush: what the widget has from those around would not count as given
    for (int i = 0; i < QPalette::NColorGroups * QPalette::NColorRoles; ++i)
    {
        const auto eGroup = static_cast<QPalette::ColorGroup>(i / QPalette::NColorRoles);
        const auto eRole = static_cast<QPalette::ColorRole>(i % QPalette::NColorRoles);
        palette.setBrush(eGroup, eRole, in_pOver->palette().brush(eGroup, eRole));
    }
    in_pEditor->setPalette(palette);
}

/// A rectangle of a widget in global coordinates.
inline QRect InspectorGlobalRect(const QWidget* in_pWidget, const QRect& in_rect)
{
    return QRect(in_pWidget->mapToGlobal(in_rect.topLeft()), in_rect.size()); // Qt 4 asks the X server each time
}

#endif
