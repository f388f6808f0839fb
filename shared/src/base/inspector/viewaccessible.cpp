#include "viewaccessible.h"

#include "accessiblecontrol.h"
#include "qtinspectorview.h"
#include "qtsimpledatawidget.h"

#include <QPointer>
#include <QTimer>

/// The information text that stands in place of the page, as a label.
class CAccessibleMessage : public QAccessibleInterface
{
public:
    explicit CAccessibleMessage(CQTInspectorView* in_pView) : m_pView(in_pView) {}

    bool isValid() const override { return m_pView; }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(m_pView); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QString text(QAccessible::Text in_eText) const override;
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override { return QRect(m_pView->mapToGlobal(QPoint()), m_pView->size()); }
    QAccessible::Role role() const override { return QAccessible::StaticText; }
    QAccessible::State state() const override;

private:
    QPointer<CQTInspectorView> m_pView;
};

/// A view, and the content widget in it, which is nothing but the parent that the application's data widgets tell of: a
/// form of the message, the controls in the order of the page, and the scroll bar.
class CAccessibleView : public QAccessibleWidget
{
public:
    CAccessibleView(QWidget* in_pWidget, CQTInspectorView* in_pView);
    ~CAccessibleView() override;

    static bool IsContent(const QObject* in_pObject);
    static CQTInspectorView* Of(const QWidget* in_pControl) { return CQTInspectorView::Of(in_pControl); }
    static void NameControl(QWidget* in_pControl);

    int childCount() const override;
    QAccessibleInterface* child(int in_iIndex) const override;
    int indexOfChild(const QAccessibleInterface* in_pChild) const override;
    QAccessibleInterface* childAt(int in_iX, int in_iY) const override;
    QAccessible::State state() const override;

private:
    QAccessibleInterface* Message() const;
    int MessageCount() const { return !m_pView || m_pView->m_strMessage.empty() ? 0 : 1; }
    int RowCount() const { return m_pView ? static_cast<int>(m_pView->m_pRows->All().size()) : 0; }
    QScrollBar* ScrollBar() const;

    QPointer<CQTInspectorView> m_pView;    ///< null while it dies
    mutable QAccessible::Id m_message = 0; ///< 0 before anybody asked for it
};

namespace
{
/// Only the application's data widgets have an interface of Qt's, or of the application's.
bool IsApplications(QWidget* in_pControl)
{
    return dynamic_cast<CInspectorDataWidget*>(in_pControl) && !dynamic_cast<CQTControl*>(in_pControl) &&
           !dynamic_cast<CQTSimpleTextWidget*>(in_pControl) && CAccessibleView::Of(in_pControl);
}

QAccessibleInterface* MakeForControl(const QString& in_strClass, QWidget* in_pControl)
{
    static const struct
    {
        const char* name;
        QAccessible::Role role;
    } kinds[] = {{"CQTSimpleDataWidget", QAccessible::EditableText},
                 {"CQTSimpleBoolWidget", QAccessible::CheckBox},
                 {"CQTEnumDataWidget", QAccessible::ComboBox},
                 {"CQTButtonWidget", QAccessible::Button},
                 {"CQTStaticWidget", QAccessible::StaticText}};
    for (const auto& kind : kinds)
    {
        if (in_strClass == QLatin1String(kind.name))
        {
            return new CAccessibleControl(in_pControl, kind.role);
        }
    }
    return in_strClass == QLatin1String("CQTSimpleTextWidget")
               ? new CAccessibleLongText(static_cast<QTextEdit*>(in_pControl))
               : nullptr;
}

/// Asked by Qt for the class of an object, then for the one that it derives from, and so on.
QAccessibleInterface* Make(const QString& in_strClass, QObject* in_pObject)
{
    auto* pWidget = qobject_cast<QWidget*>(in_pObject);
    if (!pWidget)
    {
        return nullptr;
    }
    if (in_strClass == QLatin1String("CQTInspectorView"))
    {
        return new CAccessibleView(pWidget, static_cast<CQTInspectorView*>(pWidget));
    }
    if (in_strClass == QLatin1String("QWidget") && CAccessibleView::IsContent(pWidget))
    {
        return new CAccessibleView(pWidget, static_cast<CQTInspectorView*>(pWidget->parentWidget()));
    }
    if (in_strClass == QLatin1String(pWidget->metaObject()->className()) && IsApplications(pWidget))
    {
        QTimer::singleShot(0, pWidget, [pWidget] { CAccessibleView::NameControl(pWidget); }); // once it has been made
        return nullptr;
    }
    return MakeForControl(in_strClass, pWidget);
}
} // namespace

QString CAccessibleMessage::text(QAccessible::Text in_eText) const
{
    return in_eText == QAccessible::Name && m_pView ? InspectorQt::Text(m_pView->m_strMessage) : QString();
}

QAccessible::State CAccessibleMessage::state() const
{
    QAccessible::State state;
    state.readOnly = true;
    state.invisible = !m_pView || !m_pView->isVisible();
    return state;
}

CAccessibleView::CAccessibleView(QWidget* in_pWidget, CQTInspectorView* in_pView)
    : QAccessibleWidget(in_pWidget, QAccessible::Form),
      m_pView(in_pView)
{}

CAccessibleView::~CAccessibleView()
{
    if (m_message)
    {
        QAccessible::deleteAccessibleInterface(m_message);
    }
}

bool CAccessibleView::IsContent(const QObject* in_pObject)
{
    const auto* pView = qobject_cast<const CQTInspectorView*>(in_pObject->parent());
    return pView && pView->m_pContentWidget == in_pObject;
}

/// Names a data widget of the application's that has no name of its own.
void CAccessibleView::NameControl(QWidget* in_pControl)
{
    CQTInspectorView* pView = CQTInspectorView::Of(in_pControl);
    const CViewRows::sRow* pRow = pView ? pView->m_pRows->Find(in_pControl) : nullptr;
    QAccessibleInterface* pInterface = pRow ? QAccessible::queryAccessibleInterface(in_pControl) : nullptr;
    if (pInterface && pInterface->text(QAccessible::Name).isEmpty())
    {
        in_pControl->setAccessibleName(CViewRows::NameOf(*pRow));
    }
    if (pInterface && pInterface->text(QAccessible::Description).isEmpty())
    {
        in_pControl->setAccessibleDescription(CViewRows::GroupsOf(*pRow));
    }
}

/// Null while there is nothing to scroll.
QScrollBar* CAccessibleView::ScrollBar() const
{
    QScrollBar* pBar = m_pView ? m_pView->m_pScrollBar : nullptr;
    return pBar && !pBar->isHidden() ? pBar : nullptr;
}

int CAccessibleView::childCount() const
{
    return MessageCount() + RowCount() + (ScrollBar() ? 1 : 0);
}

QAccessibleInterface* CAccessibleView::child(int in_iIndex) const
{
    const int iRow = in_iIndex - MessageCount();
    if (in_iIndex < 0 || iRow > RowCount())
    {
        return nullptr;
    }
    if (iRow < 0)
    {
        return Message();
    }
    if (iRow == RowCount())
    {
        return ScrollBar() ? QAccessible::queryAccessibleInterface(ScrollBar()) : nullptr;
    }
    const CViewRows::sRow& row = m_pView->m_pRows->All()[static_cast<std::size_t>(iRow)];
    if (row.holder->widget && IsApplications(row.control))
    {
        NameControl(row.control);
    }
    return row.holder->widget ? QAccessible::queryAccessibleInterface(row.control) : nullptr;
}

QAccessibleInterface* CAccessibleView::Message() const
{
    if (!m_message)
    {
        // Qt takes it over. NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks)
        m_message = QAccessible::registerAccessibleInterface(new CAccessibleMessage(m_pView));
    }
    return QAccessible::accessibleInterface(m_message);
}

int CAccessibleView::indexOfChild(const QAccessibleInterface* in_pChild) const
{
    if (m_message && in_pChild == QAccessible::accessibleInterface(m_message))
    {
        return MessageCount() - 1;
    }
    auto* pWidget = qobject_cast<QWidget*>(in_pChild->object());
    if (pWidget && pWidget == ScrollBar())
    {
        return childCount() - 1;
    }
    const int iRow = m_pView ? m_pView->m_pRows->IndexOf(pWidget) : -1;
    return iRow < 0 ? -1 : MessageCount() + iRow;
}

QAccessibleInterface* CAccessibleView::childAt(int in_iX, int in_iY) const
{
    QWidget* pHit = !m_pView ? nullptr : m_pView->childAt(m_pView->mapFromGlobal(QPoint(in_iX, in_iY)));
    while (pHit && pHit->parentWidget() != m_pView->m_pContentWidget && pHit->parentWidget() != m_pView)
    {
        pHit = pHit->parentWidget();
    }
    const bool bChild = pHit && pHit != m_pView->m_pContentWidget;
    return bChild ? QAccessible::queryAccessibleInterface(pHit) : nullptr;
}

/// Hidden content is a closed form: its controls are there, but take no room.
QAccessible::State CAccessibleView::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.expandable = m_pView && !m_pView->m_bShowContent;
    state.collapsed = state.expandable;
    return state;
}

void InspectorAccessible::Install()
{
    QAccessible::installFactory(&Make);
}

void InspectorAccessible::TellFocus(QWidget* in_pFocused)
{
    if (QAccessible::isActive())
    {
        QAccessibleEvent event(in_pFocused, QAccessible::Focus);
        QAccessible::updateAccessibility(&event);
    }
}

void InspectorAccessible::TellValue(QWidget* in_pControl)
{
    if (QAccessible::isActive())
    {
        auto* pControl = dynamic_cast<CAccessibleControl*>(QAccessible::queryAccessibleInterface(in_pControl));
        pControl ? pControl->TellValue() : void();
    }
}

void InspectorAccessible::NameEditor(QWidget* in_pEditor, QWidget* in_pOver)
{
    QAccessibleInterface* pOver = QAccessible::isActive() ? QAccessible::queryAccessibleInterface(in_pOver) : nullptr;
    if (pOver)
    {
        in_pEditor->setAccessibleName(pOver->text(QAccessible::Name));
        in_pEditor->setAccessibleDescription(pOver->text(QAccessible::Description));
    }
}
