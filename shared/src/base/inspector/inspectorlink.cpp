#include "inspectorlink.h"

void CInspectorLinkBase::Chain(CInspectorLinkBase*& io_pFirst)
{
    m_pNext = io_pFirst;
    m_ppThis = &io_pFirst;
    io_pFirst = this;
    if (m_pNext)
    {
        m_pNext->m_ppThis = &m_pNext;
    }
}

void CInspectorLinkBase::Unchain()
{
    if (!m_ppThis)
    {
        return;
    }
    *m_ppThis = m_pNext;
    if (m_pNext)
    {
        m_pNext->m_ppThis = m_ppThis;
    }
    m_ppThis = nullptr;
}
