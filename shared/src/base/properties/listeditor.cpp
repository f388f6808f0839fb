#include "listeditor.h"

#include "keytexts.h"

#include <QAbstractItemView>
#include <QMouseEvent>
#include <QStylePainter>
#include <QStyledItemDelegate>
#include <QWheelEvent>

#include <algorithm>

CChoiceEditor::CChoiceEditor(const QVector<sPropertyChoice>& in_choices, QWidget* in_pParent)
    : QComboBox(in_pParent),
      m_choices(in_choices)
{
    setFrame(false);
    for (const sPropertyChoice& choice : m_choices)
    {
        addItem(choice.text);
    }
    setCurrentIndex(-1);
    connect(this, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &CChoiceEditor::Choose);
}

void CChoiceEditor::SetValue(const QVariant& in_value)
{
    const bool bChanged = in_value != m_value;
    m_value = in_value;
    const auto found = std::find_if(m_choices.begin(), m_choices.end(),
                                    [&](const sPropertyChoice& in_choice) { return in_choice.value == in_value; });
    setCurrentIndex(found == m_choices.end() ? -1 : static_cast<int>(found - m_choices.begin())); // already chosen
    if (bChanged)
    {
        Q_EMIT ValueChanged(m_value);
    }
}

void CChoiceEditor::Choose(int in_iIndex)
{
    if (in_iIndex >= 0 && m_choices[in_iIndex].value != m_value)
    {
        m_value = m_choices[in_iIndex].value;
        Q_EMIT ValueChanged(m_value);
    }
}

void CChoiceEditor::wheelEvent(QWheelEvent* in_pEvent)
{
    hasFocus() ? QComboBox::wheelEvent(in_pEvent) : in_pEvent->ignore();
}

CFlagsEditor::CFlagsEditor(const QMetaEnum& in_keys, QWidget* in_pParent) : QComboBox(in_pParent), m_keys(in_keys)
{
    setFrame(false);
    setItemDelegate(
        new QStyledItemDelegate(this)); // a combo box's own draws ticks as a menu does, without partial ones
    for (const int iKey : KeyTexts::Distinct(m_keys))
    {
        addItem(QString::fromLatin1(m_keys.key(iKey)), m_keys.value(iKey));
    }
    view()->installEventFilter(this);
    view()->viewport()->installEventFilter(this);
    ShowTicks();
}

void CFlagsEditor::SetValue(int in_iValue)
{
    if (in_iValue != m_iValue)
    {
        m_iValue = in_iValue;
        ShowTicks();
        Q_EMIT ValueChanged(m_iValue);
    }
}

/// What would close the list or choose from it is taken here.
bool CFlagsEditor::eventFilter(QObject* in_pObject, QEvent* in_pEvent)
{
    switch (in_pEvent->type())
    {
    case QEvent::KeyPress:
        return ListKey(static_cast<QKeyEvent*>(in_pEvent)->key()) || QComboBox::eventFilter(in_pObject, in_pEvent);
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
        if (in_pObject == view()->viewport())
        {
            const QPoint position = static_cast<QMouseEvent*>(in_pEvent)->pos();
            return ListMouse(*in_pEvent, view()->indexAt(position).row());
        }
        return QComboBox::eventFilter(in_pObject, in_pEvent);
    default:
        return QComboBox::eventFilter(in_pObject, in_pEvent);
    }
}

bool CFlagsEditor::ListKey(int in_iKey)
{
    const bool bClose = in_iKey == Qt::Key_Return || in_iKey == Qt::Key_Enter;
    const bool bToggle = in_iKey == Qt::Key_Space || in_iKey == Qt::Key_Select;
    if (bClose)
    {
        hidePopup();
    }
    else if (bToggle)
    {
        Toggle(view()->currentIndex().row());
    }
    return bClose || bToggle;
}

/// A row toggles when it is pressed and released: the press that opened the list may be released over any.
bool CFlagsEditor::ListMouse(const QEvent& in_event, int in_iRow)
{
    if (in_event.type() != QEvent::MouseButtonRelease)
    {
        m_iPressedRow = in_iRow;
        view()->setCurrentIndex(model()->index(in_iRow, 0));
        return in_iRow >= 0;
    }
    const bool bPressed = in_iRow >= 0 && in_iRow == m_iPressedRow;
    m_iPressedRow = -1;
    if (bPressed)
    {
        Toggle(in_iRow);
    }
    return true;
}

void CFlagsEditor::Toggle(int in_iRow)
{
    if (in_iRow >= 0)
    {
        const int iBits = itemData(in_iRow).toInt();
        const bool bSet = (m_iValue & iBits) == iBits;
        SetValue(iBits == 0 ? 0 : bSet ? m_iValue & ~iBits : m_iValue | iBits);
    }
}

void CFlagsEditor::ShowTicks()
{
    for (int i = 0; i < count(); ++i)
    {
        const int iBits = itemData(i).toInt();
        const bool bAll = iBits == 0 ? m_iValue == 0 : (m_iValue & iBits) == iBits;
        const Qt::CheckState eState = bAll ? Qt::Checked : (m_iValue & iBits) ? Qt::PartiallyChecked : Qt::Unchecked;
        setItemData(i, static_cast<int>(eState), Qt::CheckStateRole);
    }
    setAccessibleDescription(KeyTexts::OfFlags(m_keys, m_iValue)); // a combo box speaks of one item only
    update();
}

void CFlagsEditor::paintEvent(QPaintEvent*)
{
    QStyleOptionComboBox option;
    initStyleOption(&option);
    option.currentText = KeyTexts::OfFlags(m_keys, m_iValue);
    option.currentIcon = QIcon();
    QStylePainter painter(this);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

void CFlagsEditor::keyPressEvent(QKeyEvent* in_pEvent)
{
    switch (in_pEvent->key())
    {
    case Qt::Key_Space:
    case Qt::Key_Select:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_F4:
        showPopup();
        break;
    default:
        in_pEvent->ignore();
    }
}

void CFlagsEditor::wheelEvent(QWheelEvent* in_pEvent)
{
    in_pEvent->ignore();
}
