#include "subject.h"

ISubject::~ISubject() = default;

void ISubject::Replace()
{
    Clear();
    Build();
}

void ISubject::UpdateAll()
{
    for (int i = 0; i < m_properties.Count(); ++i)
    {
        Update(i);
    }
}

QRect ISubject::InWindow(const QWidget* in_pWidget)
{
    return QRect(in_pWidget->mapTo(in_pWidget->window(), QPoint(0, 0)), in_pWidget->size());
}
