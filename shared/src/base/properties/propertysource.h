#ifndef PROPERTYSOURCE_H
#define PROPERTYSOURCE_H

#include "property.h"

#include <QMetaProperty>
#include <QPointer>

/// Where the properties of objects come from.
namespace PropertySource
{
/// Properties that belong under one title.
struct sGroup
{
    QString title;
    std::vector<tPropertyPtr> properties;
};

/// Every property that the object's meta-object declares, a group per class from its own to its bases, then its dynamic
/// ones. Nothing is read yet.
PROPERTIES_EXPORT std::vector<sGroup> OfObject(QObject* in_pObject);

/// Every property of a Q_GADGET. `io_pGadget` must live as long as the properties are read and written.
PROPERTIES_EXPORT std::vector<tPropertyPtr> OfGadget(const QMetaObject& in_meta, void* io_pGadget);

/// One property for several of the same name and type: it reads the first and writes all. None of them may be null.
PROPERTIES_EXPORT tPropertyPtr Shared(std::vector<tPropertyPtr> in_members);

/// What the objects share: every property of the first that all others have too, by name and type. Null and what is
/// there already count for nothing.
PROPERTIES_EXPORT std::vector<sGroup> OfObjects(const QList<QObject*>& in_objects);
} // namespace PropertySource

#endif
