#ifndef PROPERTYCHANGE_H
#define PROPERTYCHANGE_H

/// What writing changed, so that it can be taken back. Private to the library.
/// \file

#include "property.h"

/// One property that a write gave another value: the one written, or another that its setter changed as well.
struct sPropertyChange
{
    tPropertyPtr property;
    QVariant before;
    QVariant now;
};

/// All that belongs together and is undone together: what one edit, one drag or one paste writes.
class CPropertyStep
{
public:
    /// `in_strText` names it in lists of what can be undone.
    explicit CPropertyStep(const QString& in_strText = QString()) : m_strText(in_strText) {}

    const QString& Text() const { return m_strText; }
    bool IsEmpty() const { return m_changes.empty(); }

    /// Adds what was changed since. What has its first value again is no change.
    void Add(const CPropertyStep& in_later);
    void Add(const sPropertyChange& in_change);

    /// Takes in a change from beginning to end: what was added of its property is part of it.
    void Put(const sPropertyChange& in_change);

    /// Gives every property the value from before, or the later one. The objects' code may do anything meanwhile.
    void Undo() const;
    void Redo() const;

    /// Whether nothing at all differs, not even what comparing values passes over: signs of zero and the like.
    static bool IsSame(const QVariant& in_value, const QVariant& in_other);

    /// Whether a property still reads as a value. What differs whenever it is read, a clock or a type without
    /// comparison, does not.
    static bool IsSteady(const CProperty& in_property, const QVariant& in_value)
    {
        return IsSame(in_property.Read(), in_value);
    }

private:
    void Write(QVariant sPropertyChange::*in_pValue) const;

    QString m_strText;
    std::vector<sPropertyChange> m_changes;
};

typedef std::shared_ptr<CPropertyStep> tPropertyStepPtr;

#endif
