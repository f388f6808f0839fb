#include "propertyelements.h"

#include <QMetaEnum>

ILiveRow::~ILiveRow() = default;

QString CLiveTextElement::Load()
{
    return m_property.ReadText();
}

/// A text with characters that the row could not show is left alone: it would lose them.
void CLiveTextElement::Store(const QString& in_strText)
{
    const QString strPresent = m_property.ReadText();
    if (ToText(ToBytes(strPresent)) == strPresent)
    {
        m_property.WriteText(in_strText);
    }
}

CLivePartElement::CLivePartElement(const CLiveProperty& in_property, int in_iPart)
    : CLiveTextRow(in_property),
      m_iPart(in_iPart)
{}

QString CLivePartElement::Load()
{
    return m_property.ReadPart(m_iPart);
}

void CLivePartElement::Store(const QString& in_strText)
{
    m_property.WritePart(m_iPart, in_strText);
}

CLiveEnumElement::CLiveEnumElement(const CLiveProperty& in_property) : CLiveTextRow(in_property)
{
    CreateEnum();
    const QMetaEnum keys = in_property.GetMeta().enumerator();
    for (int i = 0; i < keys.keyCount(); ++i)
    {
        Offer(ToBytes(QString::number(keys.value(i))), keys.key(i));
    }
}

/// Keys may be other names of the same number; the first one stands for it.
void CLiveEnumElement::Offer(const std::string& in_strNumber, const char* in_strKey)
{
    if (m_pDefinition->GetDisplayFromValue(in_strNumber).empty())
    {
        AddEnum(in_strNumber.c_str(), in_strKey);
    }
}

QString CLiveEnumElement::Load()
{
    const QString strNumber = QString::number(m_property.ReadKeys());
    Offer(ToBytes(strNumber), ToBytes(strNumber).c_str()); // a number without a key shows itself
    return strNumber;
}

void CLiveEnumElement::Store(const QString& in_strText)
{
    m_property.Write(in_strText.toInt());
}

CLiveBoolElement::CLiveBoolElement(const CLiveProperty& in_property) : m_property(in_property)
{
    SetReadOnly(!in_property.IsWritable());
}

bool CLiveBoolElement::Load()
{
    return m_property.Read().toBool();
}

void CLiveBoolElement::Store(bool in_bValue)
{
    m_property.Write(in_bValue);
}

void CLiveBoolElement::Connect()
{
    SetValue(Load());
}

void CLiveBoolElement::Refresh()
{
    const bool bShown = GetValue();
    Connect();
    if (GetValue() != bShown)
    {
        UpdateData();
    }
}

void CLiveBoolElement::InternalValueChanged()
{
    const CInspectorWatch<CInspectorDataElement> self(this);
    m_pController->DirtifyController(nullptr);
    Store(GetValue());
    if (self)
    {
        Refresh();
    }
}

CLiveFlagElement::CLiveFlagElement(const CLiveProperty& in_property, int in_iBits)
    : CLiveBoolElement(in_property),
      m_iBits(in_iBits)
{}

bool CLiveFlagElement::Load()
{
    const int iSet = m_property.ReadKeys();
    return m_iBits ? (iSet & m_iBits) == m_iBits : iSet == 0;
}

void CLiveFlagElement::Store(bool in_bValue)
{
    const int iSet = m_property.ReadKeys();
    const int iWith = m_iBits ? iSet | m_iBits : 0;
    m_property.Write(in_bValue ? iWith : iSet & ~m_iBits);
}

CLiveCommandElement::CLiveCommandElement(QObject* in_pObject, const QByteArray& in_strSlot, bool in_bNeedsEnabled)
    : m_pObject(in_pObject),
      m_bNeedsEnabled(in_bNeedsEnabled)
{
    m_strCaption = in_strSlot.constData();
    m_strCommand = m_strCaption;
}

void CLiveCommandElement::Connect()
{
    Refresh();
}

void CLiveCommandElement::Refresh()
{
    m_bEnabled = m_pObject && (!m_bNeedsEnabled || m_pObject->property("enabled").toBool());
}
