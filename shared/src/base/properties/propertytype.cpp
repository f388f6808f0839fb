#include "propertytype.h"

#include "dialogeditor.h"
#include "valuetypes.h"

#include <QComboBox>
#include <QDateTimeEdit>
#include <QItemEditorFactory>
#include <QLabel>
#include <QMetaType>
#include <QSpinBox>
#include <QTextEdit>

#include <map>
#include <memory>
#include <typeinfo>

namespace
{
/// A kind whose values are edited by a widget of the application's, and whole.
class CForeignType final : public CPropertyType
{
public:
    explicit CForeignType(const CPropertyType& in_type) : m_type(in_type) {}

    eWork Work() const override { return eTyped; }
    bool TakesEnter() const override { return m_type.TakesEnter(); }
    QString Shown(const sPropertyFormat& in_format, const QVariant& in_value) const override
    {
        return m_type.Shown(in_format, in_value);
    }

    QString Text(const sPropertyFormat& in_format, const QVariant& in_value) const override
    {
        return m_type.Text(in_format, in_value);
    }

    QVariant FromText(const sPropertyFormat& in_format, const QString& in_strText,
                      const QVariant& in_present) const override
    {
        return m_type.FromText(in_format, in_strText, in_present);
    }

    QIcon Decoration(const QVariant& in_value, const QSize& in_size) const override
    {
        return m_type.Decoration(in_value, in_size);
    }

    QVariant Stepped(const sPropertyFormat& in_format, const QVariant& in_value, int in_iSteps) const override
    {
        return m_type.Stepped(in_format, in_value, in_iSteps);
    }

private:
    const CPropertyType& m_type;
};

const CPropertyType& Foreign(const CPropertyType& in_type)
{
    static std::map<const CPropertyType*, CForeignType> types;
    return types.emplace(&in_type, in_type).first->second;
}

bool IsLink(int in_iType)
{
    const QMetaType::TypeFlags links =
        QMetaType::PointerToQObject | QMetaType::TrackingPointerToQObject | QMetaType::WeakPointerToQObject;
    return QMetaType(in_iType).flags() & links;
}

const CPropertyType& OwnTypeOf(int in_iType)
{
    for (const auto TypeOf : {&NumberTypeOf, &TextTypeOf, &PartsTypeOf, &LookTypeOf, &TimeTypeOf})
    {
        if (const CPropertyType* pType = TypeOf(in_iType))
        {
            return *pType;
        }
    }
    return in_iType == QMetaType::QSizePolicy ? SizePolicyType() : IsLink(in_iType) ? LinkType() : UnknownType();
}

const CPropertyType& OwnTypeOf(const CProperty& in_property)
{
    const sPropertyFormat& format = in_property.Format();
    const bool bText = in_property.Type() == QMetaType::QString;
    return !format.choices.empty() ? ChoiceType()
           : format.keys.isValid() ? KeysType(format.keys.isFlag())
           : bText                 ? EditedTextType(format.editor)
                                   : OwnTypeOf(in_property.Type());
}

/// Whether a widget is what Qt's own factory makes.
bool IsOfQtsFactory(const QWidget& in_widget)
{
    const QByteArray strClass = in_widget.metaObject()->className();
    for (const std::type_info* pInfo : {&typeid(QSpinBox), &typeid(QDoubleSpinBox), &typeid(QDateEdit),
                                        &typeid(QTimeEdit), &typeid(QDateTimeEdit), &typeid(QLabel)})
    {
        if (typeid(in_widget) == *pInfo)
        {
            return true;
        }
    }
    return strClass == "QBooleanComboBox" || strClass == "QExpandingLineEdit";
}

/// Whether a widget takes texts that are not complete while they are typed.
bool IsTypedInto(const QWidget* in_pWidget)
{
    return qobject_cast<const QLineEdit*>(in_pWidget) || qobject_cast<const QAbstractSpinBox*>(in_pWidget) ||
           qobject_cast<const QPlainTextEdit*>(in_pWidget) || qobject_cast<const QTextEdit*>(in_pWidget);
}

/// A line edit begins where its text does, whatever the direction of the rows.
void AlignLikeRow(QWidget& io_editor)
{
    QLineEdit* pLine = qobject_cast<QLineEdit*>(&io_editor);
    pLine = pLine ? pLine : io_editor.findChild<QLineEdit*>();
    if (pLine && io_editor.parentWidget() && io_editor.parentWidget()->isRightToLeft())
    {
        pLine->setAlignment(Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter);
    }
}

sPropertyEditor ForeignEditor(QWidget* in_pWidget, const QByteArray& in_strName)
{
    sPropertyEditor editor;
    editor.widget = in_pWidget;
    if (in_pWidget)
    {
        const QMetaObject* pMeta = in_pWidget->metaObject();
        editor.value = pMeta->userProperty();
        editor.value = editor.value.isValid() ? editor.value : pMeta->property(pMeta->indexOfProperty(in_strName));
        editor.live = editor.value.hasNotifySignal() && !IsTypedInto(in_pWidget);
    }
    return editor;
}
} // namespace

const QItemEditorFactory& CItemEditors::Factory() const
{
    return m_pFactory ? *m_pFactory : *QItemEditorFactory::defaultFactory();
}

bool CItemEditors::Has(int in_iType) const
{
    if (!m_known.contains(in_iType))
    {
        const std::unique_ptr<QWidget> pProbe(Factory().createEditor(in_iType, nullptr));
        m_known.insert(in_iType, pProbe && !IsOfQtsFactory(*pProbe));
    }
    return m_known.value(in_iType);
}

QWidget* CItemEditors::Create(int in_iType, QWidget* in_pParent) const
{
    return Has(in_iType) ? Factory().createEditor(in_iType, in_pParent) : nullptr;
}

QByteArray CItemEditors::ValueName(int in_iType) const
{
    return Factory().valuePropertyName(in_iType);
}

const CPropertyType& CPropertyType::Of(const CProperty& in_property, const CItemEditors* in_pEditors)
{
    const CPropertyType& type = OwnTypeOf(in_property);
    const bool bForeign = in_property.Format().creator || (in_pEditors && in_pEditors->Has(in_property.Type()));
    return bForeign ? Foreign(type) : type;
}

sPropertyEditor CPropertyType::Edit(const CProperty& in_property, int in_iPart, const CItemEditors* in_pEditors,
                                    QWidget* in_pParent)
{
    const sPropertyFormat& format = in_property.Format();
    const int iType = in_property.Type();
    if (format.creator)
    {
        return ForeignEditor(format.creator->createWidget(in_pParent), format.creator->valuePropertyName());
    }
    if (in_pEditors && in_pEditors->Has(iType))
    {
        return ForeignEditor(in_pEditors->Create(iType, in_pParent), in_pEditors->ValueName(iType));
    }
    sPropertyEditor editor;
    editor.widget = Of(in_property).PartType(in_iPart).CreateEditor(format, in_pParent);
    if (editor.widget)
    {
        editor.widget->setAutoFillBackground(true); // the row is painted behind
        AlignLikeRow(*editor.widget);
        editor.value = editor.widget->metaObject()->userProperty();
        editor.live = editor.value.hasNotifySignal();
    }
    return editor;
}

void CPropertyType::OpenList(QWidget* in_pEditor)
{
    if (QComboBox* pList = qobject_cast<QComboBox*>(in_pEditor))
    {
        pList->showPopup();
    }
    else if (CDialogEditor* pLine = qobject_cast<CDialogEditor*>(in_pEditor))
    {
        pLine->OpenDialog();
    }
}

bool CPropertyType::IsWithin(const QWidget* in_pWidget, const QWidget* in_pEditor)
{
    const QWidget* pWidget = in_pWidget;
    while (pWidget && pWidget != in_pEditor)
    {
        // A completer's list has no parent, but works for a line.
        const bool bOrphan = !pWidget->parentWidget() && pWidget->windowType() == Qt::Popup;
        pWidget = bOrphan ? pWidget->focusProxy() : pWidget->parentWidget();
    }
    return pWidget != nullptr;
}

CPropertyType::~CPropertyType() = default;

QString CPropertyType::Shown(const sPropertyFormat& in_format, const QVariant& in_value) const
{
    return InOneLine(Text(in_format, in_value));
}

QString CPropertyType::Text(const sPropertyFormat&, const QVariant& in_value) const
{
    return in_value.toString();
}

QVariant CPropertyType::FromText(const sPropertyFormat&, const QString&, const QVariant&) const
{
    return QVariant();
}

QIcon CPropertyType::Decoration(const QVariant&, const QSize&) const
{
    return QIcon();
}

int CPropertyType::Parts() const
{
    return 1;
}

QString CPropertyType::PartLabel(int) const
{
    return QString();
}

QVariant CPropertyType::Part(const QVariant& in_value, int) const
{
    return in_value;
}

QVariant CPropertyType::WithPart(const QVariant&, int, const QVariant& in_part) const
{
    return in_part;
}

const CPropertyType& CPropertyType::PartType(int) const
{
    return *this;
}

QVariant CPropertyType::Stepped(const sPropertyFormat&, const QVariant&, int) const
{
    return QVariant();
}

bool CPropertyType::TakesEnter() const
{
    return false;
}

QWidget* CPropertyType::CreateEditor(const sPropertyFormat&, QWidget*) const
{
    return nullptr;
}
