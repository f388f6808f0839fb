#include "accessiblecontrol.h"

#include "qtinspectorview.h"
#include "qtsimpledatawidget.h"
#include "viewfilter.h"
#include "viewkeyboard.h"

#include <algorithm>

CAccessibleControl::CAccessibleControl(QWidget* in_pControl, QAccessible::Role in_eRole)
    : QAccessibleWidget(in_pControl, in_eRole),
      m_strTold(CAccessibleControl::Value())
{}

CQTInspectorView* CAccessibleControl::View() const
{
    return widget() ? CQTInspectorView::Of(widget()) : nullptr;
}

const CViewRows::sRow* CAccessibleControl::Row() const
{
    const CQTInspectorView* pView = View();
    return pView ? pView->m_pRows->Find(widget()) : nullptr;
}

CInspectorDataElement* CAccessibleControl::Element() const
{
    const CViewRows::sRow* pRow = Row();
    return pRow ? pRow->holder->element : nullptr;
}

/// What stands between in Qt's tree of widgets has nothing to say.
QAccessibleInterface* CAccessibleControl::parent() const
{
    CQTInspectorView* pView = View();
    return pView ? QAccessible::queryAccessibleInterface(pView) : QAccessibleWidget::parent();
}

/// Qt would look through all rows for labels of Qt's.
QVector<QPair<QAccessibleInterface*, QAccessible::Relation>> CAccessibleControl::relations(
    QAccessible::Relation in_eMatch) const
{
    return View() ? QVector<QPair<QAccessibleInterface*, QAccessible::Relation>>()
                  : QAccessibleWidget::relations(in_eMatch);
}

QString CAccessibleControl::text(QAccessible::Text in_eText) const
{
    switch (in_eText)
    {
    case QAccessible::Name:
        return Name();
    case QAccessible::Description:
        return Description();
    case QAccessible::Value:
        return Value();
    default:
        return QAccessibleWidget::text(in_eText);
    }
}

/// A button or static text without a label is what it says.
QString CAccessibleControl::Name() const
{
    const CViewRows::sRow* pRow = Row();
    if (!widget()->accessibleName().isEmpty() || !pRow)
    {
        return QAccessibleWidget::text(QAccessible::Name);
    }
    const bool bSaysItself = role() == QAccessible::Button || role() == QAccessible::StaticText;
    return bSaysItself && pRow->node->name.empty() ? Value() : CViewRows::NameOf(*pRow);
}

/// A name does not say what a button does if it is the row's.
QString CAccessibleControl::Description() const
{
    const CViewRows::sRow* pRow = Row();
    if (!widget()->accessibleDescription().isEmpty() || !pRow)
    {
        return QAccessibleWidget::text(QAccessible::Description);
    }
    QStringList parts;
    parts << (role() == QAccessible::Button && Name() != Value() ? Value() : QString());
    parts << (View()->m_bPreviewMode ? QString() : CViewRows::GroupsOf(*pRow)) << widget()->toolTip();
    parts.removeAll(QString());
    return parts.join(QLatin1String(", "));
}

QString CAccessibleControl::Value() const
{
    if (auto* pEnum = dynamic_cast<CQTEnumDataWidget*>(widget()))
    {
        std::string strValue;
        std::string strDisplay;
        pEnum->GetDataAsString(strValue);
        CEnumDataElement* pElement = pEnum->GetSafeEnumData();
        pElement ? pElement->GetDisplayString(strValue.c_str(), strDisplay) : void();
        return InspectorQt::Text(strDisplay);
    }
    if (auto* pLine = dynamic_cast<CQTSimpleDataWidget*>(widget()))
    {
        std::string strValue;
        pLine->GetDataAsString(strValue);
        return InspectorQt::Text(strValue);
    }
    if (auto* pButton = dynamic_cast<CQTButtonWidget*>(widget()))
    {
        return pButton->GetSafeData() ? InspectorQt::Text(pButton->GetSafeData()->m_strCaption) : QString();
    }
    auto* pStatic = dynamic_cast<CQTStaticWidget*>(widget());
    return pStatic && pStatic->GetSafeData() ? InspectorQt::Text(pStatic->GetSafeData()->m_strText) : QString();
}

void CAccessibleControl::TellValue()
{
    if (auto* pBox = dynamic_cast<CQTSimpleBoolWidget*>(widget()))
    {
        QAccessible::State changed;
        changed.checked = true;
        QAccessibleStateChangeEvent event(pBox, changed);
        QAccessible::updateAccessibility(&event);
    }
    const QString strValue = Value();
    if (strValue != m_strTold)
    {
        QAccessibleTextUpdateEvent update(widget(), 0, m_strTold, strValue);
        m_strTold = strValue;
        QAccessible::updateAccessibility(&update);
        QAccessibleValueChangeEvent event(widget(), strValue);
        QAccessible::updateAccessibility(&event);
    }
}

QAccessible::State CAccessibleControl::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    CInspectorDataElement* pElement = Element();
    const bool bText = role() == QAccessible::EditableText;
    state.readOnly = role() == QAccessible::StaticText || (pElement && pElement->IsReadOnly());
    state.editable = bText && !state.readOnly;
    state.invisible = state.invisible || widget()->size().isEmpty();
    state.offscreen = View() && !widget()->parentWidget()->rect().intersects(widget()->geometry());
    if (auto* pBox = dynamic_cast<CQTSimpleBoolWidget*>(widget()))
    {
        state.checkable = true;
        state.checked = pBox->GetValue();
    }
    if (role() == QAccessible::ComboBox)
    {
        CViewKeyboard* pKeyboard = CViewKeyboard::Of(widget());
        state.hasPopup = true;
        state.expandable = true;
        state.expanded = pKeyboard && pKeyboard->IsListOver(widget());
        state.collapsed = !state.expanded;
    }
    const auto* pButton = dynamic_cast<CButtonDataElement*>(pElement);
    state.disabled = state.disabled || (pButton && !pButton->m_bEnabled);
    return state;
}

/// The name of what a press does, empty for nothing.
QString CAccessibleControl::Press() const
{
    const QAccessible::State present = state();
    if (present.disabled || present.readOnly || present.invisible)
    {
        return QString();
    }
    switch (role())
    {
    case QAccessible::CheckBox:
        return toggleAction();
    case QAccessible::ComboBox:
        return showMenuAction();
    default:
        return pressAction();
    }
}

QStringList CAccessibleControl::actionNames() const
{
    const QString strPress = Press();
    QStringList names = QAccessibleWidget::actionNames();
    strPress.isEmpty() ? void() : names.prepend(strPress);
    return names;
}

void CAccessibleControl::doAction(const QString& in_strName)
{
    const bool bPress = !in_strName.isEmpty() && in_strName == Press();
    bPress ? DoPress() : QAccessibleWidget::doAction(in_strName);
}

/// As the mouse would: what is being edited elsewhere ends first. All of it may destroy anything.
void CAccessibleControl::DoPress()
{
    const QPointer<QWidget> pControl = widget();
    const QPointer<CQTInspectorView> pView = View();
    pView ? pView->EnsureVisible(dynamic_cast<CInspectorDataWidget*>(widget())) : void();
    if (CQTSimpleDataWidget::g_pInPlace)
    {
        QEvent deactivation(QEvent::WindowDeactivate);
        QCoreApplication::sendEvent(CQTSimpleDataWidget::g_pInPlace, &deactivation);
    }
    if (pView && pControl && !pControl->hasFocus())
    {
        pView->m_pFilter->TakeFocus();
    }
    if (pControl && pControl->focusPolicy() != Qt::NoFocus)
    {
        pControl->setFocus(Qt::OtherFocusReason);
    }
    if (pControl && !dynamic_cast<QTextEdit*>(pControl.data()))
    {
        CViewKeyboard::Press(pControl);
    }
}

void* CAccessibleControl::interface_cast(QAccessible::InterfaceType in_eType)
{
    const bool bText = in_eType == QAccessible::TextInterface && role() != QAccessible::CheckBox;
    return bText ? static_cast<QAccessibleTextInterface*>(this) : QAccessibleWidget::interface_cast(in_eType);
}

void CAccessibleControl::selection(int, int* out_pStart, int* out_pEnd) const
{
    *out_pStart = 0;
    *out_pEnd = 0;
}

QString CAccessibleControl::text(int in_iStart, int in_iEnd) const
{
    return Value().mid(in_iStart, in_iEnd - in_iStart);
}

int CAccessibleControl::characterCount() const
{
    return static_cast<int>(Value().size());
}

void CAccessibleControl::scrollToSubstring(int, int)
{
    CQTInspectorView* pView = View();
    pView ? pView->EnsureVisible(dynamic_cast<CInspectorDataWidget*>(widget())) : void();
}

QString CAccessibleControl::attributes(int, int* out_pStart, int* out_pEnd) const
{
    *out_pStart = 0;
    *out_pEnd = characterCount();
    return QString();
}

CAccessibleLongText::CAccessibleLongText(QTextEdit* in_pControl)
    : CAccessibleControl(in_pControl, QAccessible::EditableText)
{}

QTextEdit* CAccessibleLongText::Edit() const
{
    return qobject_cast<QTextEdit*>(widget());
}

QString CAccessibleLongText::Value() const
{
    return Edit() ? Edit()->toPlainText() : QString();
}

QAccessible::State CAccessibleLongText::state() const
{
    QAccessible::State state = CAccessibleControl::state();
    state.multiLine = true;
    state.selectableText = true;
    return state;
}

void* CAccessibleLongText::interface_cast(QAccessible::InterfaceType in_eType)
{
    const bool bEditable = in_eType == QAccessible::EditableTextInterface && state().editable;
    return bEditable ? static_cast<QAccessibleEditableTextInterface*>(this)
                     : CAccessibleControl::interface_cast(in_eType);
}

void CAccessibleLongText::selection(int, int* out_pStart, int* out_pEnd) const
{
    *out_pStart = Edit()->textCursor().selectionStart();
    *out_pEnd = Edit()->textCursor().selectionEnd();
}

int CAccessibleLongText::selectionCount() const
{
    return Edit()->textCursor().hasSelection() ? 1 : 0;
}

void CAccessibleLongText::addSelection(int in_iStart, int in_iEnd)
{
    Select(in_iStart, in_iEnd);
}

void CAccessibleLongText::removeSelection(int)
{
    Select(cursorPosition(), cursorPosition());
}

void CAccessibleLongText::setSelection(int, int in_iStart, int in_iEnd)
{
    Select(in_iStart, in_iEnd);
}

int CAccessibleLongText::cursorPosition() const
{
    return Edit()->textCursor().position();
}

void CAccessibleLongText::setCursorPosition(int in_iPosition)
{
    Select(in_iPosition, in_iPosition);
}

QRect CAccessibleLongText::characterRect(int in_iOffset) const
{
    const QWidget* pViewport = Edit()->viewport();
    QRect rect = Edit()->cursorRect(Cursor(in_iOffset, in_iOffset));
    const int iNext = Edit()->cursorRect(Cursor(in_iOffset + 1, in_iOffset + 1)).left();
    rect.setRight(std::max(rect.left(), iNext - 1));
    return rect.translated(pViewport->mapToGlobal(QPoint()));
}

int CAccessibleLongText::offsetAtPoint(const QPoint& in_point) const
{
    return Edit()->cursorForPosition(Edit()->viewport()->mapFromGlobal(in_point)).position();
}

void CAccessibleLongText::scrollToSubstring(int in_iStart, int in_iEnd)
{
    CAccessibleControl::scrollToSubstring(in_iStart, in_iEnd);
    Select(in_iStart, in_iStart);
}

void CAccessibleLongText::deleteText(int in_iStart, int in_iEnd)
{
    Cursor(in_iStart, in_iEnd).removeSelectedText();
}

void CAccessibleLongText::insertText(int in_iOffset, const QString& in_strText)
{
    Cursor(in_iOffset, in_iOffset).insertText(in_strText);
}

void CAccessibleLongText::replaceText(int in_iStart, int in_iEnd, const QString& in_strText)
{
    Cursor(in_iStart, in_iEnd).insertText(in_strText);
}

QTextCursor CAccessibleLongText::Cursor(int in_iStart, int in_iEnd) const
{
    const int iLast = Edit()->document()->characterCount() - 1;
    QTextCursor cursor(Edit()->document());
    cursor.setPosition(std::max(0, std::min(in_iStart, iLast)));
    cursor.setPosition(std::max(0, std::min(in_iEnd, iLast)), QTextCursor::KeepAnchor);
    return cursor;
}

void CAccessibleLongText::Select(int in_iStart, int in_iEnd)
{
    Edit()->setTextCursor(Cursor(in_iStart, in_iEnd));
}
