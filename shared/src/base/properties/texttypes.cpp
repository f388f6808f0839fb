#include "fileeditor.h"
#include "propertiesqt.h"
#include "texteditor.h"
#include "valuetypes.h"

#include <QKeySequence>
#include <QLocale>
#include <QRegularExpression>
#include <QUrl>
#include <QUuid>

#include <algorithm>

namespace
{
/// A kind of values that are typed as a text in one line.
class CTypedType : public CPropertyType
{
public:
    eWork Work() const override { return eTyped; }

    QWidget* CreateEditor(const sPropertyFormat& in_format, QWidget* in_pParent) const override
    {
        return new CTextEditor(*this, in_format, in_pParent);
    }
};

class CTextType : public CTypedType
{
public:
    QVariant FromText(const sPropertyFormat&, const QString& in_strText, const QVariant&) const override
    {
        return in_strText;
    }
};

class CLongTextType final : public CTextType
{
public:
    bool TakesEnter() const override { return true; }

    QWidget* CreateEditor(const sPropertyFormat&, QWidget* in_pParent) const override
    {
        return new CLongTextEditor(in_pParent);
    }
};

class CFileType final : public CTextType
{
public:
    QWidget* CreateEditor(const sPropertyFormat& in_format, QWidget* in_pParent) const override
    {
        return new CFileEditor(*this, in_format, in_pParent);
    }
};

class CStringListType final : public CPropertyType
{
public:
    eWork Work() const override { return eTyped; }
    bool TakesEnter() const override { return true; }

    QString Text(const sPropertyFormat&, const QVariant& in_value) const override
    {
        return JoinedItems(in_value.toStringList(), QLatin1Char(','));
    }

    QVariant FromText(const sPropertyFormat&, const QString& in_strText, const QVariant&) const override
    {
        QStringList items;
        return SplitItems(in_strText, QLatin1Char(','), items) ? QVariant(items) : QVariant();
    }

    QWidget* CreateEditor(const sPropertyFormat&, QWidget* in_pParent) const override
    {
        return new CLinesEditor(in_pParent);
    }
};

class CUrlType final : public CTypedType
{
public:
    QString Text(const sPropertyFormat&, const QVariant& in_value) const override
    {
        return in_value.toUrl().toString();
    }

    QVariant FromText(const sPropertyFormat&, const QString& in_strText, const QVariant&) const override
    {
        const QUrl url(in_strText.trimmed());
        return url.isValid() || url.isEmpty() ? QVariant(url) : QVariant();
    }
};

class CCharType final : public CTypedType
{
public:
    QString Text(const sPropertyFormat&, const QVariant& in_value) const override
    {
        const QChar c = in_value.toChar();
        const QString strCode = QStringLiteral("U+%1").arg(c.unicode(), 4, 16, QLatin1Char('0')).toUpper();
        return c.isNull() ? QString() : c.isPrint() ? QString(c) : strCode;
    }

    QVariant FromText(const sPropertyFormat&, const QString& in_strText, const QVariant&) const override
    {
        bool bCode = false;
        const uint uCode = in_strText.mid(2).toUInt(&bCode, 16);
        if (in_strText.startsWith(QLatin1String("U+"), Qt::CaseInsensitive) && bCode && uCode <= 0xffff)
        {
            return QChar(static_cast<ushort>(uCode));
        }
        return in_strText.size() > 1 ? QVariant() : in_strText.isEmpty() ? QVariant(QChar()) : in_strText.at(0);
    }
};

class CBytesType final : public CTypedType
{
public:
    QString Text(const sPropertyFormat&, const QVariant& in_value) const override
    {
        const QByteArray bytes = in_value.toByteArray();
        const QString strText = QString::fromUtf8(bytes);
        const bool bText =
            strText.toUtf8() == bytes && !strText.startsWith(QLatin1String("0x")) &&
            std::all_of(strText.begin(), strText.end(), [](QChar c) { return c.isPrint() || c.isSurrogate(); });
        return bText ? strText : QStringLiteral("0x") + QString::fromLatin1(bytes.toHex());
    }

    QVariant FromText(const sPropertyFormat&, const QString& in_strText, const QVariant&) const override
    {
        const QByteArray typed = in_strText.toUtf8();
        const QByteArray bytes = QByteArray::fromHex(typed.mid(2));
        const bool bHex = typed.startsWith("0x");
        return !bHex ? QVariant(typed) : bytes.toHex() == typed.mid(2).toLower() ? QVariant(bytes) : QVariant();
    }
};

class CUuidType final : public CTypedType
{
public:
    QString Text(const sPropertyFormat&, const QVariant& in_value) const override
    {
        return in_value.toUuid().toString();
    }

    QVariant FromText(const sPropertyFormat&, const QString& in_strText, const QVariant&) const override
    {
        const QUuid id(in_strText.trimmed());
        return id.isNull() && in_strText != QUuid().toString() ? QVariant() : QVariant(id);
    }
};

/// The options stay as they are.
class CPatternType final : public CTypedType
{
public:
    QString Text(const sPropertyFormat&, const QVariant& in_value) const override
    {
        return in_value.toRegularExpression().pattern();
    }

    QVariant FromText(const sPropertyFormat&, const QString& in_strText, const QVariant& in_present) const override
    {
        const QRegularExpression expression(in_strText, in_present.toRegularExpression().patternOptions());
        return expression.isValid() ? QVariant(expression) : QVariant();
    }
};

class CLocaleType final : public CTypedType
{
public:
    QString Shown(const sPropertyFormat&, const QVariant& in_value) const override
    {
        const QLocale locale = in_value.toLocale();
        const QString strLanguage = locale.nativeLanguageName(); // the C locale has none
        return strLanguage.isEmpty() ? locale.name() : QStringLiteral("%1 (%2)").arg(strLanguage, locale.name());
    }

    QString Text(const sPropertyFormat&, const QVariant& in_value) const override { return in_value.toLocale().name(); }

    QVariant FromText(const sPropertyFormat&, const QString& in_strText, const QVariant&) const override
    {
        const QString strName = in_strText.trimmed();
        const QLocale locale(strName);
        return locale == QLocale::c() && strName != QLatin1String("C") ? QVariant() : QVariant(locale);
    }
};

class CKeySequenceType final : public CTypedType
{
public:
    QString Shown(const sPropertyFormat&, const QVariant& in_value) const override
    {
        return in_value.value<QKeySequence>().toString(QKeySequence::NativeText);
    }

    QString Text(const sPropertyFormat&, const QVariant& in_value) const override
    {
        return in_value.value<QKeySequence>().toString(QKeySequence::PortableText);
    }

    QVariant FromText(const sPropertyFormat&, const QString& in_strText, const QVariant&) const override
    {
        const QKeySequence keys = QKeySequence::fromString(in_strText, QKeySequence::PortableText);
        bool bKnown = keys.isEmpty() == in_strText.isEmpty();
        for (int i = 0; i < keys.count(); ++i)
        {
            bKnown = bKnown && PropertiesQt::KeyAt(keys, i) != Qt::Key_unknown;
        }
        return bKnown ? QVariant::fromValue(keys) : QVariant();
    }

    QWidget* CreateEditor(const sPropertyFormat&, QWidget* in_pParent) const override
    {
        return new CKeySequenceEditor(in_pParent);
    }
};

template <class T> const CPropertyType* Kind()
{
    static const T type;
    return &type;
}

/// What would break a line, or cannot be seen in it.
bool IsControl(QChar in_char)
{
    const ushort uiCode = in_char.unicode();
    return uiCode < 0x20 || (uiCode >= 0x7f && uiCode < 0xa0) || in_char == QChar::LineSeparator ||
           in_char == QChar::ParagraphSeparator;
}
} // namespace

QString InOneLine(const QString& in_strText)
{
    QString strLine = in_strText; // no copy as long as nothing is replaced
    for (int i = 0; i < in_strText.size(); ++i)
    {
        IsControl(in_strText.at(i)) ? strLine.replace(i, 1, QLatin1Char(' ')) : strLine;
    }
    return strLine;
}

const CPropertyType& EditedTextType(sPropertyFormat::eEditor in_eEditor)
{
    const bool bFile = in_eEditor == sPropertyFormat::eFile || in_eEditor == sPropertyFormat::eFolder;
    return bFile                                      ? *Kind<CFileType>()
           : in_eEditor == sPropertyFormat::eLongText ? *Kind<CLongTextType>()
                                                      : *Kind<CTextType>();
}

const CPropertyType* TextTypeOf(int in_iType)
{
    switch (in_iType)
    {
    case QMetaType::QString:
        return Kind<CTextType>();
    case QMetaType::QStringList:
        return Kind<CStringListType>();
    case QMetaType::QUrl:
        return Kind<CUrlType>();
    case QMetaType::QChar:
        return Kind<CCharType>();
    case QMetaType::QByteArray:
        return Kind<CBytesType>();
    case QMetaType::QUuid:
        return Kind<CUuidType>();
    case QMetaType::QRegularExpression:
        return Kind<CPatternType>();
    case QMetaType::QLocale:
        return Kind<CLocaleType>();
    case QMetaType::QKeySequence:
        return Kind<CKeySequenceType>();
    default:
        return nullptr;
    }
}
