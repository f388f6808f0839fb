#include "valuetypes.h"

#include <QDebug>
#include <QJsonDocument>

namespace
{
/// Names another object.
class CLinkType final : public CPropertyType
{
public:
    eWork Work() const override { return eLink; }

    QString Text(const sPropertyFormat&, const QVariant& in_value) const override
    {
        const QObject* pObject = in_value.value<QObject*>();
        const QString strClass = QString::fromLatin1(pObject ? pObject->metaObject()->className() : "");
        return !pObject || pObject->objectName().isEmpty()
                   ? strClass
                   : QStringLiteral("%1 \"%2\"").arg(strClass, pObject->objectName());
    }
};

/// What nobody knows has the text that it converts to, else what a debugger would print, else its type's name.
class CUnknownType final : public CPropertyType
{
public:
    eWork Work() const override { return eShown; }

    QString Text(const sPropertyFormat&, const QVariant& in_value) const override
    {
        const QString strType = QString::fromLatin1(in_value.typeName());
        const QString strText = in_value.canConvert<QString>() ? in_value.toString() : Printed(in_value, strType);
        return strText.isEmpty() && !in_value.canConvert<QString>() ? strType : strText;
    }

private:
    static QString Printed(const QVariant& in_value, const QString& in_strType)
    {
        const QJsonDocument json = QJsonDocument::fromVariant(in_value);
        if (!json.isNull())
        {
            return QString::fromUtf8(json.toJson(QJsonDocument::Compact));
        }
        QString strPrinted;
        QDebug(&strPrinted).nospace() << in_value; // QVariant(Type, what the type prints)
        const int iAround = int(QStringLiteral("QVariant(, ").size() + in_strType.size());
        return strPrinted.mid(iAround).trimmed().chopped(1).trimmed();
    }
};
} // namespace

const CPropertyType& LinkType()
{
    static const CLinkType type;
    return type;
}

const CPropertyType& UnknownType()
{
    static const CUnknownType type;
    return type;
}
