#include "property.h"

CProperty::CProperty(const QString& in_strName, int in_iType)
    : m_strName(in_strName),
      m_strLabel(in_strName),
      m_iType(in_iType)
{}

CProperty::~CProperty() = default;

const sPropertyFormat& CProperty::Format() const
{
    static const sPropertyFormat plain;
    return m_pFormat ? *m_pFormat : plain;
}

sPropertyFormat& CProperty::EditFormat()
{
    if (!m_pFormat)
    {
        m_pFormat.reset(new sPropertyFormat);
    }
    return *m_pFormat;
}

bool CProperty::CanReset() const
{
    return !m_bReadOnly && Format().defaultValue.isValid();
}

void CProperty::Reset()
{
    if (CanReset())
    {
        Write(Format().defaultValue);
    }
}

bool CProperty::IsMixed() const
{
    return false;
}

std::vector<CProperty*> CProperty::Members()
{
    return {this};
}

std::vector<CProperty::sNotifier> CProperty::Notifiers() const
{
    return {};
}

QObject* CProperty::Object() const
{
    return nullptr;
}
