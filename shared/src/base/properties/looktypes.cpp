#include "dialogeditor.h"
#include "pictures.h"
#include "valuetypes.h"

#include <QBitmap>
#include <QCursor>
#include <QFont>
#include <QLocale>
#include <QPalette>
#include <QPen>

namespace
{
class CColourType final : public CPropertyType
{
public:
    eWork Work() const override { return eTyped; }
    QString Text(const sPropertyFormat&, const QVariant& in_value) const override
    {
        const QColor colour = in_value.value<QColor>();
        return colour.isValid() ? colour.name(colour.alpha() < 255 ? QColor::HexArgb : QColor::HexRgb) : QString();
    }

    QVariant FromText(const sPropertyFormat&, const QString& in_strText, const QVariant&) const override
    {
        const QString strText = in_strText.trimmed();
        return strText.isEmpty()               ? QVariant(QColor())
               : QColor::isValidColor(strText) ? QVariant(QColor(strText))
                                               : QVariant();
    }

    QIcon Decoration(const QVariant& in_value, const QSize&) const override
    {
        const QColor colour = in_value.value<QColor>();
        return Pictures::Swatch(colour.isValid() ? QBrush(colour) : QBrush());
    }

    QWidget* CreateEditor(const sPropertyFormat& in_format, QWidget* in_pParent) const override
    {
        return new CColourEditor(*this, in_format, in_pParent);
    }
};

struct sFontWord
{
    const char* word;
    bool (QFont::*is)() const;
    void (QFont::*set)(bool);
};

const sFontWord g_fontWords[] = {{"bold", &QFont::bold, &QFont::setBold},
                                 {"italic", &QFont::italic, &QFont::setItalic},
                                 {"underline", &QFont::underline, &QFont::setUnderline},
                                 {"strikeout", &QFont::strikeOut, &QFont::setStrikeOut}};

/// A font is typed as it would be told: `DejaVu Sans, 12 pt, bold`. One that has more to it is QFont's own text.
class CFontType final : public CPropertyType
{
public:
    eWork Work() const override { return eTyped; }
    QString Shown(const sPropertyFormat&, const QVariant& in_value) const override
    {
        return Told(in_value.value<QFont>());
    }

    QString Text(const sPropertyFormat&, const QVariant& in_value) const override
    {
        const QFont font = in_value.value<QFont>();
        const QString strTold = Told(font);
        QFont read;
        return Read(strTold, read) && read == font ? strTold : font.toString();
    }

    QVariant FromText(const sPropertyFormat&, const QString& in_strText, const QVariant&) const override
    {
        QFont font;
        const int iCommas = int(in_strText.count(QLatin1Char(',')));
        const bool bRead = iCommas < 8 ? Read(in_strText, font) : font.fromString(in_strText);
        return bRead ? QVariant(font) : QVariant();
    }

    QWidget* CreateEditor(const sPropertyFormat& in_format, QWidget* in_pParent) const override
    {
        return new CFontEditor(*this, in_format, in_pParent);
    }

private:
    static QString Told(const QFont& in_font)
    {
        const bool bPoints = in_font.pointSizeF() > 0;
        const QString strSize = bPoints ? QString::number(in_font.pointSizeF()) : QString::number(in_font.pixelSize());
        QStringList words{in_font.family(), strSize + QLatin1String(bPoints ? " pt" : " px")};
        for (const sFontWord& word : g_fontWords)
        {
            words << ((in_font.*word.is)() ? QStringList(QLatin1String(word.word)) : QStringList());
        }
        return words.join(QLatin1String(", "));
    }

    static bool Read(const QString& in_strText, QFont& out_font)
    {
        const QStringList texts = in_strText.split(QLatin1Char(','));
        out_font.setFamily(texts.first().trimmed());
        bool bRead = !texts.first().trimmed().isEmpty();
        for (const sFontWord& word : g_fontWords)
        {
            (out_font.*word.set)(false);
        }
        for (const QString& strText : texts.mid(1))
        {
            const QString strWord = strText.simplified().toLower();
            bRead = bRead && (ReadWord(strWord, out_font) || ReadSize(strWord, out_font));
        }
        return bRead;
    }

    static bool ReadWord(const QString& in_strWord, QFont& io_font)
    {
        for (const sFontWord& word : g_fontWords)
        {
            if (in_strWord == QLatin1String(word.word))
            {
                (io_font.*word.set)(true);
                return true;
            }
        }
        return false;
    }

    static bool ReadSize(const QString& in_strText, QFont& io_font)
    {
        const bool bPixels = in_strText.endsWith(QLatin1String("px"));
        const bool bUnit = bPixels || in_strText.endsWith(QLatin1String("pt"));
        bool bNumber = false;
        const double size = in_strText.left(in_strText.size() - (bUnit ? 2 : 0)).trimmed().toDouble(&bNumber);
        if (!bNumber || !(size > 0) || size > 10000)
        {
            return false;
        }
        bPixels ? io_font.setPixelSize(std::max(1, qRound(size))) : io_font.setPointSizeF(size);
        return true;
    }
};

template <class Enum> QString KeyOf(Enum in_eValue)
{
    return QString::fromLatin1(QMetaEnum::fromType<Enum>().valueToKey(static_cast<int>(in_eValue)));
}

QString SizeText(const QSize& in_size)
{
    return QStringLiteral("%1 × %2").arg(in_size.width()).arg(in_size.height());
}

QString BrushText(const QBrush& in_brush)
{
    const QString strStyle = KeyOf(in_brush.style());
    return in_brush.style() == Qt::NoBrush        ? strStyle
           : in_brush.style() == Qt::SolidPattern ? in_brush.color().name(QColor::HexArgb)
                                                  : in_brush.color().name(QColor::HexArgb) + u' ' + strStyle;
}

QString IconText(const QIcon& in_icon)
{
    const QList<QSize> sizes = in_icon.availableSizes();
    return !in_icon.name().isEmpty() ? in_icon.name() : sizes.isEmpty() ? QString() : SizeText(sizes.last());
}

/// What is looked at only.
class CPictureType final : public CPropertyType
{
public:
    eWork Work() const override { return eShown; }

    QString Text(const sPropertyFormat&, const QVariant& in_value) const override
    {
        switch (in_value.userType())
        {
        case QMetaType::QIcon:
            return IconText(in_value.value<QIcon>());
        case QMetaType::QPixmap:
        case QMetaType::QBitmap:
            return SizeText(in_value.value<QPixmap>().size());
        case QMetaType::QImage:
            return SizeText(in_value.value<QImage>().size());
        case QMetaType::QBrush:
            return BrushText(in_value.value<QBrush>());
        case QMetaType::QPen:
            return BrushText(in_value.value<QPen>().brush()) + u' ' + QString::number(in_value.value<QPen>().widthF());
        case QMetaType::QCursor:
            return KeyOf(in_value.value<QCursor>().shape());
        default:
            return BrushText(in_value.value<QPalette>().window());
        }
    }

    QIcon Decoration(const QVariant& in_value, const QSize&) const override
    {
        switch (in_value.userType())
        {
        case QMetaType::QIcon:
            return in_value.value<QIcon>();
        case QMetaType::QPixmap:
        case QMetaType::QBitmap:
            return QIcon(in_value.value<QPixmap>());
        case QMetaType::QImage:
            return QIcon(QPixmap::fromImage(in_value.value<QImage>()));
        case QMetaType::QBrush:
            return Pictures::Swatch(in_value.value<QBrush>());
        case QMetaType::QPen:
            return Pictures::Swatch(in_value.value<QPen>().brush());
        case QMetaType::QCursor:
            return QIcon(in_value.value<QCursor>().pixmap());
        default:
            return Pictures::Swatch(in_value.value<QPalette>().window());
        }
    }
};
} // namespace

const CPropertyType* LookTypeOf(int in_iType)
{
    static const CColourType colour;
    static const CFontType font;
    static const CPictureType picture;
    switch (in_iType)
    {
    case QMetaType::QColor:
        return &colour;
    case QMetaType::QFont:
        return &font;
    case QMetaType::QIcon:
    case QMetaType::QPixmap:
    case QMetaType::QBitmap:
    case QMetaType::QImage:
    case QMetaType::QBrush:
    case QMetaType::QPen:
    case QMetaType::QCursor:
    case QMetaType::QPalette:
        return &picture;
    default:
        return nullptr;
    }
}
