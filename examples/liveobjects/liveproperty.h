#ifndef LIVEPROPERTY_H
#define LIVEPROPERTY_H

#include <QMetaProperty>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QVariant>

#include <string>

/// A property of a live object, to be read and written as text. Does nothing once the object has died.
class CLiveProperty
{
public:
    enum eKind
    {
        eBool,
        eEnum,  ///< one of several keys
        eFlags, ///< any number of keys
        eText,  ///< a text, or what can be typed as one: a number, a date, a colour
        eParts, ///< a point, size or rectangle
        eOther, ///< nothing that can be typed
    };

    CLiveProperty(QObject* in_pObject, const QMetaProperty& in_property);

    eKind GetKind() const;

    /// Whether its text usually has more than one line.
    bool IsLongText() const;

    bool IsWritable() const;
    const QMetaProperty& GetMeta() const { return m_property; }
    QVariant Read() const;
    void Write(const QVariant& in_value) const;

    /// For a property of the kind eOther its type, and what text it has.
    QString ReadText() const;

    /// Leaves the object alone if the text does not stand for a value of the property's type.
    void WriteText(const QString& in_strText) const;

    /// The number of a key, or of a set of keys.
    int ReadKeys() const;

    /// How many numbers a point, size or rectangle consists of; 0 for any other value.
    int CountParts() const;
    QString ReadPart(int in_iPart) const;

    /// Leaves the object alone if the text is no number that the part can hold.
    void WritePart(int in_iPart, const QString& in_strText) const;

private:
    QPointer<QObject> m_pObject;
    QMetaProperty m_property;
};

/// Text of the inspector's model side, which is UTF-8, and back.
std::string ToBytes(const QString& in_strText);
QString ToText(const std::string& in_strBytes);

#endif
