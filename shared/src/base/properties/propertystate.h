#ifndef PROPERTYSTATE_H
#define PROPERTYSTATE_H

/// What a view keeps from one page to the next, and for the next run. Private to the library.
/// \file

#include <QByteArray>
#include <QMap>
#include <QString>

struct sPropertyItem;

struct sPropertyState
{
    QMap<QString, bool> expanded; ///< by PathOf: the groups that the user folded (false) or unfolded
    int labelColumn = -1;
    QString filter;
    bool onlyModified = false;
    bool filterVisible = false;

    /// The titles of a group and those that it stands in.
    static QString PathOf(const sPropertyItem& in_group);

    QByteArray Save() const;

    /// \return false, with nothing changed, when the bytes are not what Save made
    bool Restore(const QByteArray& in_bytes);
};

#endif
