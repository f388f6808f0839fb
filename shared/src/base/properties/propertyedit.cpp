#include "propertyedit.h"

#include "propertiesqt.h"
#include "propertyarea.h"
#include "propertychange.h"
#include "propertytype.h"

#include <QApplication>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace
{
/// What an edit makes of a property: of several objects each keeps its own other parts and flags.
QVariant Edited(const CProperty& in_own, const CPropertyType& in_type, int in_iPart, const QVariant& in_before,
                const QVariant& in_now)
{
    if (in_type.Parts() > 1)
    {
        return in_type.WithPart(in_own.Read(), in_iPart, in_now);
    }
    if (in_own.Format().keys.isFlag() && in_now.toInt() != 0)
    {
        const int iToggled = in_before.toInt() ^ in_now.toInt();
        return (in_own.Read().toInt() & ~iToggled) | (in_now.toInt() & iToggled);
    }
    return PropertiesQt::Converted(in_now, in_own.Type());
}

/// The line in which a widget's value is typed; null: none.
const QLineEdit* LineOf(const QWidget& in_widget)
{
    const auto* pList = qobject_cast<const QComboBox*>(&in_widget);
    const bool bNumber = qobject_cast<const QAbstractSpinBox*>(&in_widget);
    const auto* pLine = bNumber ? in_widget.findChild<QLineEdit*>() : qobject_cast<const QLineEdit*>(&in_widget);
    return pList ? pList->lineEdit() : pLine;
}

/// Whether a key means to undo or redo what was written: an editor has nothing typed to be undone.
bool IsUndoOfOthers(const QWidget& in_editor, const QKeyEvent& in_event)
{
    const bool bUndo = in_event.matches(QKeySequence::Undo);
    if (!bUndo && !in_event.matches(QKeySequence::Redo))
    {
        return false;
    }
    if (const auto* pLong = qobject_cast<const QPlainTextEdit*>(&in_editor))
    {
        return !(bUndo ? pLong->document()->isUndoAvailable() : pLong->document()->isRedoAvailable());
    }
    const QLineEdit* pLine = LineOf(in_editor);
    return pLine ? !(bUndo ? pLine->isUndoAvailable() : pLine->isRedoAvailable())
                 : qobject_cast<const QComboBox*>(&in_editor) != nullptr;
}
} // namespace

CPropertyEdit::CPropertyEdit(CPropertyArea& in_area, const tItemPtr& in_pItem, int in_iPart)
    : m_pArea(&in_area),
      m_pRows(&in_area.Rows()),
      m_pItem(in_pItem),
      m_iPart(in_iPart),
      m_pStep(std::make_shared<CPropertyStep>())
{
    // An edit that is being written outlives an area that this destroys, and hears of events meanwhile.
    connect(&in_area.Whole(), &QObject::destroyed, this, [this] { m_pArea.clear(); });
    const sPropertyEditor editor =
        CPropertyType::Edit(*in_pItem->property, in_iPart, in_area.ItemEditors(), in_area.Content());
    if (!editor.widget)
    {
        return;
    }
    m_pEditor = editor.widget;
    m_editorValue = editor.value;
    ShowValue(in_pItem->value);
    if (editor.live)
    {
        const QMetaMethod slot = staticMetaObject.method(staticMetaObject.indexOfSlot("OnWorked()"));
        connect(m_pEditor, m_editorValue.notifySignal(), this, slot);
    }
    const QString strName = in_pItem->property->Format().accessibleName;
    const QString strPart = in_pItem->type->Parts() > 1 ? in_pItem->type->PartLabel(in_iPart) : QString();
    m_pEditor->setAccessibleName(
        ((strName.isEmpty() ? in_pItem->Label() : strName) + QLatin1Char(' ') + strPart).trimmed());
    m_pEditor->setAccessibleDescription(in_pItem->Tip());
    qApp->installEventFilter(this);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* in_pNow) { OnFocusChanged(in_pNow); });
}

void CPropertyEdit::Open()
{
    const QPointer<CPropertyEdit> self(this);
    Place();
    m_pEditor->show();
    m_pEditor->setFocus(Qt::OtherFocusReason);
    self ? SelectAll() : void();
}

/// What is typed first replaces the value: of a date its first number, of a text of several lines nothing.
void CPropertyEdit::SelectAll()
{
    if (auto* pTime = qobject_cast<QDateTimeEdit*>(m_pEditor))
    {
        pTime->setSelectedSection(pTime->sectionAt(0));
        return;
    }
    auto* pLine = qobject_cast<QLineEdit*>(m_pEditor);
    pLine = pLine || !m_pEditor ? pLine : m_pEditor->findChild<QLineEdit*>();
    if (pLine)
    {
        pLine->selectAll();
    }
    else if (auto* pLong = qobject_cast<QPlainTextEdit*>(m_pEditor))
    {
        pLong->moveCursor(QTextCursor::End);
    }
}

CPropertyEdit::~CPropertyEdit()
{
    Close();
}

void CPropertyEdit::Close()
{
    qApp->removeEventFilter(this);
    qApp->disconnect(this);
    const QPointer<QWidget> pEditor = m_pEditor;
    m_pEditor = nullptr;
    if (!pEditor)
    {
        return;
    }
    pEditor->disconnect(this);
    if (m_pArea && CPropertyType::IsWithin(m_pArea->window()->focusWidget(), pEditor))
    {
        m_pArea->setFocus(Qt::OtherFocusReason); // else Qt hands it to any other widget as the editor goes
    }
    if (pEditor)
    {
        pEditor->hide();
        pEditor->deleteLater(); // its own code may be what ends the edit
    }
}

void CPropertyEdit::Place()
{
    const QRect cell = m_pArea->PartRect(*m_pItem, m_iPart);
    const int iWanted = m_pItem->type->TakesEnter() ? m_pEditor->sizeHint().height() : 0;
    const int iHeight = std::max(cell.height(), iWanted);
    QRect place(cell.topLeft(), QSize(cell.width(), iHeight));
    if (iHeight > cell.height() && place.bottom() >= m_pArea->height())
    {
        place.moveBottom(std::max(cell.bottom(), m_pArea->height() - 1));
    }
    m_pEditor->setGeometry(place);
}

QVariant CPropertyEdit::EditorValue() const
{
    return m_pEditor ? m_editorValue.read(m_pEditor) : QVariant();
}

void CPropertyEdit::ShowValue(const QVariant& in_value)
{
    // Where objects differ, editors that can be empty are: those that take any value.
    const bool bEmpty = m_pItem->IsMixed(m_iPart) && m_editorValue.userType() == QMetaType::QVariant;
    m_bShowing = true;
    m_editorValue.write(m_pEditor, bEmpty ? QVariant() : m_pItem->type->Part(in_value, m_iPart));
    m_bShowing = false;
    m_shown = EditorValue();
}

void CPropertyEdit::Follow()
{
    if (m_pEditor && CPropertyStep::IsSame(EditorValue(), m_shown))
    {
        ShowValue(m_pItem->value);
    }
}

/// A live editor's change is written from the event loop: what the application does then never meets the editor's own
/// code half way.
void CPropertyEdit::OnWorked()
{
    if (!m_bShowing && !m_bWritePosted)
    {
        m_bWritePosted = true;
        QMetaObject::invokeMethod(
            this, [this] { Write(); }, Qt::QueuedConnection);
    }
}

/// Whether a widget is the editor or belongs to it: a part of it, a pop-up or a dialog that it opened.
bool CPropertyEdit::IsOwn(const QWidget* in_pWidget) const
{
    return CPropertyType::IsWithin(in_pWidget, m_pEditor);
}

void CPropertyEdit::Write()
{
    m_bWritePosted = false;
    m_pEditor ? WriteValue(EditorValue()) : void();
}

void CPropertyEdit::Finish()
{
    const QVariant value = EditorValue();
    const bool bThere = m_pEditor;
    Close();
    bThere ? WriteValue(value) : void();
}

void CPropertyEdit::WriteValue(const QVariant& in_value)
{
    const QVariant before = m_shown;
    if (!m_pRows || CPropertyStep::IsSame(in_value, before))
    {
        return;
    }
    if (!in_value.isValid()) // empty again, as where objects differ
    {
        TakeBack();
        return;
    }
    m_shown = in_value;
    const tPropertyPtr pProperty = m_pItem->property;
    const CPropertyType* pType = m_pItem->type;
    const int iPart = m_iPart;
    const auto edited = [=](const CProperty& in_own) { return Edited(in_own, *pType, iPart, before, in_value); };
    const auto write = [=](const tPropertyPtr& in_pMember) { return in_pMember->Write(edited(*in_pMember)); };
    m_pRows->Change(pProperty, edited(*pProperty), write, m_pStep);
}

void CPropertyEdit::TakeBack()
{
    Close();
    m_pRows ? m_pRows->TakeBack(m_pItem->property, m_pStep) : void();
}

/// Leaving for elsewhere in the window ends the edit. While another window is active it stays open, but what was typed
/// is where that window's user expects it.
void CPropertyEdit::OnFocusChanged(const QWidget* in_pNow)
{
    if (IsOwn(in_pNow) || IsOwn(QApplication::activePopupWidget()) || IsOwn(QApplication::activeModalWidget()))
    {
        return;
    }
    const bool bLeft = in_pNow && m_pArea && in_pNow->window() == m_pArea->window();
    bLeft ? m_pArea->TakeOver() : Write();
}

/// What a press anywhere else works on must be the value as typed, and what it is on may go when that is taken over: so
/// it is before Qt begins with the press.
bool CPropertyEdit::IsPressOutside(const QObject& in_window, const QMouseEvent& in_press) const
{
    const QWidget* pWindow = m_pArea->window();
    if (pWindow->windowHandle() != &in_window || QApplication::activePopupWidget())
    {
        return false;
    }
    const QWidget* pPressed = pWindow->childAt(PropertiesQt::Position(in_press));
    return !IsOwn(pPressed) && pPressed != m_pArea->ScrollBar();
}

bool CPropertyEdit::eventFilter(QObject* in_pObject, QEvent* in_pEvent)
{
    if (!m_pEditor || !m_pArea)
    {
        return false;
    }
    const QPointer<QObject> receiver(in_pObject);
    const auto* pWidget = qobject_cast<QWidget*>(in_pObject);
    const bool bOwn = pWidget && IsOwn(pWidget);
    const bool bOwnKeys = bOwn && pWidget->window() == m_pArea->window();
    if (bOwnKeys && (in_pEvent->type() == QEvent::ShortcutOverride || in_pEvent->type() == QEvent::KeyPress) &&
        IsUndoOfOthers(*pWidget, *static_cast<QKeyEvent*>(in_pEvent)))
    {
        in_pEvent->ignore(); // goes on to the page, or to a shortcut of the application's
        return true;
    }
    switch (in_pEvent->type())
    {
    case QEvent::ShortcutOverride:
        m_bOfList = bOwn ? !bOwnKeys : m_bOfList;
        return bOwnKeys && OverrideShortcut(*static_cast<QKeyEvent*>(in_pEvent));
    case QEvent::KeyPress:
        // A list that closes at once when it is asked about a key leaves it to the window below.
        return bOwn && ((std::exchange(m_bOfList, false) && bOwnKeys) ||
                        (bOwnKeys && EndByKey(*static_cast<QKeyEvent*>(in_pEvent))));
    case QEvent::Shortcut:
        Write(); // what the shortcut does is done to the value as typed
        return !receiver;
    case QEvent::MouseButtonPress:
        if (IsPressOutside(*in_pObject, *static_cast<QMouseEvent*>(in_pEvent)))
        {
            m_pArea->TakeOverForPress(PropertiesQt::GlobalPosition(*static_cast<QMouseEvent*>(in_pEvent)));
        }
        return !receiver;
    default:
        return false;
    }
}

/// The keys that end an edit are no shortcuts of the application's meanwhile.
bool CPropertyEdit::OverrideShortcut(QKeyEvent& io_event) const
{
    switch (io_event.key())
    {
    case Qt::Key_Escape:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        io_event.accept();
        return true;
    default:
        return false;
    }
}

bool CPropertyEdit::EndByKey(const QKeyEvent& in_event)
{
    const Qt::KeyboardModifiers eModifiers = in_event.modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier);
    const QPointer<CPropertyArea> pArea = m_pArea;
    switch (in_event.key())
    {
    case Qt::Key_Escape:
        pArea->Cancel();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (m_pItem->type->TakesEnter() && !(eModifiers & Qt::ControlModifier))
        {
            return false;
        }
        pArea->TakeOver();
        return true;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        if (eModifiers & ~Qt::ShiftModifier)
        {
            return false;
        }
        pArea->Leave(in_event.key() == Qt::Key_Tab && !(eModifiers & Qt::ShiftModifier));
        return true;
    default:
        return false;
    }
}
