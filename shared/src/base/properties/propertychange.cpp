#include "propertychange.h"

#include "propertiesqt.h"

#include <QDateTime>
#include <QIcon>
#include <QPixmap>

#include <algorithm>
#include <cstring>

namespace
{
const int g_iRounds = 2; ///< a setter that minds other properties may need them to be right first

/// Whether values are real numbers and nothing else. They compare by nearness, and no NaN equals another.
bool IsReal(const QVariant& in_value)
{
    switch (in_value.userType())
    {
    case QMetaType::Double:
    case QMetaType::Float:
    case QMetaType::QPointF:
    case QMetaType::QSizeF:
    case QMetaType::QRectF:
    case QMetaType::QLineF:
    case QMetaType::QVector2D:
    case QMetaType::QVector3D:
    case QMetaType::QVector4D:
    case QMetaType::QQuaternion:
        return true;
    default:
        return !qstrcmp(in_value.typeName(), "QMarginsF");
    }
}
} // namespace

bool CPropertyStep::IsSame(const QVariant& in_value, const QVariant& in_other)
{
    if (in_value.userType() != in_other.userType())
    {
        return false;
    }
    if (IsReal(in_value))
    {
        return std::memcmp(in_value.constData(), in_other.constData(), PropertiesQt::SizeOf(in_value)) == 0;
    }
    switch (in_value.userType()) // pictures have no comparison
    {
    case QMetaType::QPixmap:
    case QMetaType::QBitmap:
        return in_value.value<QPixmap>().cacheKey() == in_other.value<QPixmap>().cacheKey();
    case QMetaType::QIcon:
        return in_value.value<QIcon>().cacheKey() == in_other.value<QIcon>().cacheKey();
    default:
        break;
    }
    const bool bTime = in_value.userType() == QMetaType::QDateTime;
    return in_value == in_other && (!bTime || in_value.toDateTime().timeSpec() == in_other.toDateTime().timeSpec());
}

void CPropertyStep::Add(const CPropertyStep& in_later)
{
    for (const sPropertyChange& change : in_later.m_changes)
    {
        Add(change);
    }
}

void CPropertyStep::Add(const sPropertyChange& in_change)
{
    auto it = std::find_if(m_changes.begin(), m_changes.end(), [&in_change](const sPropertyChange& in_known) {
        return in_known.property == in_change.property;
    });
    it = it == m_changes.end() ? m_changes.insert(it, in_change) : it;
    it->now = in_change.now;
    if (IsSame(it->before, it->now))
    {
        m_changes.erase(it);
    }
}

void CPropertyStep::Put(const sPropertyChange& in_change)
{
    const auto isPart = [&](const sPropertyChange& in_known) { return in_known.property == in_change.property; };
    m_changes.erase(std::remove_if(m_changes.begin(), m_changes.end(), isPart), m_changes.end());
    Add(in_change);
}

void CPropertyStep::Undo() const
{
    Write(&sPropertyChange::before);
}

void CPropertyStep::Redo() const
{
    Write(&sPropertyChange::now);
}

void CPropertyStep::Write(QVariant sPropertyChange::*in_pValue) const
{
    const std::vector<sPropertyChange> changes = m_changes; // this may go meanwhile
    for (int iRound = 0; iRound < g_iRounds; ++iRound)
    {
        for (const sPropertyChange& change : changes)
        {
            const bool bDue = !change.property->IsReadOnly() && !IsSame(change.property->Read(), change.*in_pValue);
            bDue ? void(change.property->Write(change.*in_pValue)) : void();
        }
    }
}
