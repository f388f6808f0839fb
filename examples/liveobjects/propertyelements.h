#ifndef PROPERTYELEMENTS_H
#define PROPERTYELEMENTS_H

#include "inspectorcontroller.h"
#include "liveproperty.h"
#include "qtsimpledataelement.h"

/// A row that shows a live object.
class ILiveRow
{
public:
    virtual ~ILiveRow();

    /// Shows the object's present value.
    virtual void Refresh() = 0;
};

/// What rows that hold a property's value as text have in common: an edit reaches the object at once, and the row then
/// shows what the object made of it.
template <class Element> class CLiveTextRow : public Element, public ILiveRow
{
public:
    explicit CLiveTextRow(const CLiveProperty& in_property) : m_property(in_property)
    {
        Element::SetReadOnly(!in_property.IsWritable());
    }

    void Connect() override { this->m_strValue = ToBytes(Load()); }

    /// Only a row whose value has changed is painted again.
    void Refresh() override
    {
        const std::string strShown = this->m_strValue;
        Connect();
        if (this->m_strValue != strShown)
        {
            this->UpdateData();
        }
    }

    using Element::OnCtrlValueChange;

    /// A read-only row can be typed into after all (Tab goes everywhere): it takes nothing over.
    void OnCtrlValueChange() override
    {
        if (Element::IsReadOnly())
        {
            this->UpdateData();
            return;
        }
        Element::OnCtrlValueChange();
    }

    /// The other rows may show something that depends on this value. The object is told last, as it may do anything:
    /// destroy itself, or have the page rebuilt and so this row destroyed.
    void InternalValueChanged() override
    {
        const CInspectorWatch<CInspectorDataElement> self(this);
        this->m_pController->DirtifyController(nullptr);
        Store(ToText(this->m_strValue));
        if (self)
        {
            Refresh();
        }
    }

protected:
    virtual QString Load() = 0;
    virtual void Store(const QString& in_strText) = 0;

    CLiveProperty m_property;
};

/// A text, a value that can be typed as one, or the name of a type that has no row of its own.
class CLiveTextElement : public CLiveTextRow<CSimpleDataElement>
{
public:
    using CLiveTextRow::CLiveTextRow;

protected:
    QString Load() override;
    void Store(const QString& in_strText) override;
};

/// One number of a point, size or rectangle.
class CLivePartElement : public CLiveTextRow<CSimpleDataElement>
{
public:
    CLivePartElement(const CLiveProperty& in_property, int in_iPart);

protected:
    QString Load() override;
    void Store(const QString& in_strText) override;

private:
    int m_iPart;
};

/// One of several keys. The element's value is the key's number.
class CLiveEnumElement : public CLiveTextRow<CEnumDataElement>
{
public:
    explicit CLiveEnumElement(const CLiveProperty& in_property);

protected:
    QString Load() override;
    void Store(const QString& in_strText) override;

private:
    void Offer(const std::string& in_strNumber, const char* in_strKey);
};

class CLiveBoolElement : public CBoolDataElement, public ILiveRow
{
public:
    explicit CLiveBoolElement(const CLiveProperty& in_property);

    void Connect() override;
    void Refresh() override;
    void InternalValueChanged() override;

protected:
    virtual bool Load();
    virtual void Store(bool in_bValue);

    CLiveProperty m_property;
};

/// One flag of a set. A flag without bits stands for the empty set.
class CLiveFlagElement : public CLiveBoolElement
{
public:
    CLiveFlagElement(const CLiveProperty& in_property, int in_iBits);

protected:
    bool Load() override;
    void Store(bool in_bValue) override;

private:
    int m_iBits;
};

/// A slot of the object, as a button. What a class that can be disabled declares works only while the object is
/// enabled.
class CLiveCommandElement : public CButtonDataElement, public ILiveRow
{
public:
    CLiveCommandElement(QObject* in_pObject, const QByteArray& in_strSlot, bool in_bNeedsEnabled);

    void Connect() override;
    void Refresh() override;

private:
    QPointer<QObject> m_pObject;
    bool m_bNeedsEnabled;
};

#endif
