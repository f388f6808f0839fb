#ifndef PROPERTY_H
#define PROPERTY_H

#include "propertiesexport.h"

#include <QMetaEnum>
#include <QMetaMethod>
#include <QObject>
#include <QString>
#include <QVariant>
#include <QVector>

#include <memory>
#include <vector>

class QItemEditorCreatorBase;

/// One of the values that a property may take, and how it is shown.
struct sPropertyChoice
{
    QVariant value;
    QString text;
};

/// What a property asks of those who show and edit it. Everything is optional.
struct sPropertyFormat
{
    /// Which editor a value gets that its type alone does not tell.
    enum eEditor
    {
        eByType,   ///< the one of the value's type
        eLongText, ///< a text of several lines
        eFile,     ///< a text that names a file
        eFolder,   ///< a text that names a folder
    };

    QVariant minimum; ///< of a number, or of each part of a point, size and the like; invalid: the type's own
    QVariant maximum;
    QVariant step;     ///< of Up, Down and a drag; invalid: 1, of real numbers a tenth of what is shown
    int decimals = -1; ///< shown of a real number; -1: as many as it takes
    QString prefix;    ///< shown before a number, not part of what is copied
    QString suffix;
    QVector<sPropertyChoice> choices; ///< not empty: one of these, chosen from a list
    QMetaEnum keys;                   ///< valid: the value is an int, a key or (when it is a flag) several keys
    eEditor editor = eByType;
    std::shared_ptr<QItemEditorCreatorBase> creator; ///< makes the editor of this property alone; may be null
    QString tip;
    QString accessibleName; ///< what a screen reader calls the row; empty: its label
    QVariant defaultValue;  ///< what the property is reset to; invalid: none is known
};

/// One property: reads and writes one value, wherever that lives. A page shares it with its undo commands: it may
/// outlive the page and the object that it is of, and then reads as an invalid value and writes nothing.
///
/// Values are of the type that Type tells. Enumerations and flags with keys are ints, texts are QStrings.
class PROPERTIES_EXPORT CProperty
{
public:
    /// A signal that tells of a new value.
    struct sNotifier
    {
        const QObject* sender;
        QMetaMethod signal;
    };

    /// `in_strName` identifies the property within its page or object; it is the label until another is given.
    /// `in_iType` is the QMetaType of its values.
    CProperty(const QString& in_strName, int in_iType);
    virtual ~CProperty();
    CProperty(const CProperty&) = delete;
    CProperty& operator=(const CProperty&) = delete;

    const QString& Name() const { return m_strName; }
    int Type() const { return m_iType; }

    const QString& Label() const { return m_strLabel; }
    void SetLabel(const QString& in_strLabel) { m_strLabel = in_strLabel; }

    /// How the value is shown and edited.
    const sPropertyFormat& Format() const;

    /// The same, to be changed. Only properties that are asked for it have a format of their own.
    sPropertyFormat& EditFormat();

    /// The present value; invalid when what it belonged to is gone.
    virtual QVariant Read() const = 0;

    /// Gives the value to whom it belongs, who may refuse or change it: Read tells what became of it.
    /// \return false when nobody was there to take it
    virtual bool Write(const QVariant& in_value) = 0;

    /// Whether Write is never to be called.
    bool IsReadOnly() const { return m_bReadOnly; }
    void SetReadOnly(bool in_bReadOnly) { m_bReadOnly = in_bReadOnly; }

    /// Whether Reset does anything: here, whether the format has a default value.
    virtual bool CanReset() const;

    /// Gives the value that it had before anybody changed it. Here: writes the format's default value.
    virtual void Reset();

    /// Whether this stands for several values that differ. Read tells the first of them.
    virtual bool IsMixed() const;

    /// The values that this stands for, itself for one.
    virtual std::vector<CProperty*> Members();

    /// Who tells of new values; empty when nobody does.
    virtual std::vector<sNotifier> Notifiers() const;

    /// The object that the property is of; null when it is of none, or the object is gone.
    virtual QObject* Object() const;

private:
    QString m_strName;
    QString m_strLabel;
    std::unique_ptr<sPropertyFormat> m_pFormat; ///< null: nothing is asked for
    int m_iType;
    bool m_bReadOnly = false;
};

typedef std::shared_ptr<CProperty> tPropertyPtr;

#endif
