#include "propertytype.h"
#include "testsupport.h"

#include <limits>

Q_DECLARE_METATYPE(QMargins) // Qt 6 would know them without
Q_DECLARE_METATYPE(QMarginsF)

namespace
{
class CTestProperty final : public CProperty
{
public:
    explicit CTestProperty(const QVariant& in_value) : CProperty(QStringLiteral("value"), in_value.userType()) {}

    QVariant Read() const override { return QVariant(); }
    bool Write(const QVariant&) override { return false; }
};

/// Nothing at all is lost: bytes that no comparison of values looks at neither.
bool IsSame(const QVariant& in_value, const QVariant& in_other)
{
    const bool bReal = in_value.userType() == QMetaType::Double || in_value.userType() == QMetaType::Float;
    const double value = in_value.toDouble();
    const double other = in_other.toDouble();
    const bool bNaN = qIsNaN(value) && qIsNaN(other);
    return in_value.userType() == in_other.userType() &&
           (bReal ? bNaN || (value == other && std::signbit(value) == std::signbit(other)) : in_value == in_other);
}

template <class T> QVariant Lowest()
{
    return QVariant::fromValue(std::numeric_limits<T>::lowest());
}

template <class T> QVariant Highest()
{
    return QVariant::fromValue(std::numeric_limits<T>::max());
}

const sPropertyFormat g_plain;

/// A property being edited in a window.
struct sEdit
{
    explicit sEdit(CTestProperty& in_property, const QVariant& in_value, int in_iPart = 0)
        : editor(CPropertyType::Edit(in_property, in_iPart, nullptr, &window)),
          changes(editor.widget, editor.value.hasNotifySignal() ? SignalOf(editor.value) : SIGNAL(destroyed()))
    {
        editor.value.write(editor.widget, in_value);
        changes.clear();
        editor.widget->resize(editor.widget->sizeHint());
        window.resize(300, 200);
        editor.widget->setFocus();
    }

    static const char* SignalOf(const QMetaProperty& in_property)
    {
        static QByteArray strSignal;
        strSignal = "2" + in_property.notifySignal().methodSignature();
        return strSignal;
    }

    QVariant Value() const { return editor.value.read(editor.widget); }

    QWidget window;
    sPropertyEditor editor;
    QSignalSpy changes;
};

void AddTypedColumns()
{
    // text: of the value; null for none
    TestSupport::Columns<QVariant, QVariant, QVariant, QString, QString>("present", "minimum", "maximum", "typed",
                                                                         "text");
}

void Row(const char* in_strName, const QVariant& in_present, const char* in_strTyped, const char* in_strText,
         const QVariant& in_minimum = QVariant(), const QVariant& in_maximum = QVariant())
{
    QTest::newRow(in_strName) << in_present << in_minimum << in_maximum << QString::fromUtf8(in_strTyped)
                              << QString::fromUtf8(in_strText);
}
} // namespace

class CTypeTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();
    void Numbers_data();
    void Numbers() { Texts(); }
    void Texts_data();
    void Texts();
    void Expressions_data();
    void Expressions() { Typed(); }
    void Typed_data();
    void Typed();
    void LocalesPoint();
    void Steps_data();
    void Steps();
    void Parts_data();
    void Parts();
    void Edits_data();
    void Edits();
    void FlagsList();
    void ChoiceList();
    void Wheel();
    void Dialog();
    void OtherDialogs();
    void Completion();
    void PrefixAndSuffix();
    void ForeignEditors();
    void Looks();
};

void CTypeTest::initTestCase()
{
    QLocale::setDefault(QLocale::c());
    TestSupport::FailOnWarnings();
}

void CTypeTest::cleanup()
{
    QLocale::setDefault(QLocale::c());
}

void CTypeTest::Numbers_data()
{
    TestSupport::Columns<QVariant, QString>("value", "text");
    const double infinity = std::numeric_limits<double>::infinity();

    for (const QVariant& value : {Lowest<char>(), Lowest<signed char>(), Highest<uchar>(), Lowest<short>(),
                                  Highest<ushort>(), Lowest<int>(), Highest<uint>(), Lowest<long>()})
    {
        QTest::newRow(value.typeName()) << value << QString::number(value.toLongLong());
    }
    QTest::newRow("bool") << QVariant(true) << "true";
    QTest::newRow("ulong") << Highest<ulong>() << QString::number(std::numeric_limits<ulong>::max());
    QTest::newRow("longlong") << Lowest<qlonglong>() << "-9223372036854775808";
    QTest::newRow("longlong, exact") << QVariant(Q_INT64_C(9007199254740993)) << "9007199254740993";
    QTest::newRow("ulonglong") << Highest<qulonglong>() << "18446744073709551615";
    QTest::newRow("double") << QVariant(0.1) << "0.1";
    QTest::newRow("double, all digits") << QVariant(0.1 + 0.2) << "0.30000000000000004";
    QTest::newRow("double, round") << QVariant(100000.0) << "100000";
    QTest::newRow("double, large") << QVariant(1e300) << "1e+300";
    QTest::newRow("double, largest") << Highest<double>() << QString();
    QTest::newRow("double, small") << QVariant(2.5e-300) << "2.5e-300";
    QTest::newRow("double, -0") << QVariant(-0.0) << "-0";
    QTest::newRow("double, nan") << QVariant(std::nan("")) << "nan";
    QTest::newRow("double, inf") << QVariant(infinity) << "inf";
    QTest::newRow("double, -inf") << QVariant(-infinity) << "-inf";
    QTest::newRow("float") << QVariant(0.1F) << "0.1";
    QTest::newRow("float, lowest") << Lowest<float>() << QString();
}

void CTypeTest::Texts_data()
{
    TestSupport::Columns<QVariant, QString>("value", "text");
    const QChar separator(QChar::LineSeparator);
    const QTimeZone zone("Europe/Berlin");

    QTest::newRow("text, all scripts") << QVariant("\"a\\ пример 例 مثال 😀\u00a0") << QString();
    QTest::newRow("text, lines") << QVariant("a\n\n b\t") << "a\n\n b\t";
    QTest::newRow("text, empty") << QVariant(QString("")) << "";
    QTest::newRow("list") << QVariant(QStringList{"a", "b c", "d\"e", "C:\\n"}) << "a, b c, d\"e, C:\\n";
    QTest::newRow("list, quoted") << QVariant(
                                         QStringList{"", "a,b", " c", "\"d\\", "e\nf\r\t", QString(separator) + "g"})
                                  << R"("", "a,b", " c", "\"d\\", "e\nf\r\t", "\lg")";
    QTest::newRow("list, empty") << QVariant(QStringList()) << "";
    QTest::newRow("list of an empty text") << QVariant(QStringList{""}) << "\"\"";
    QTest::newRow("url") << QVariant(QUrl("https://example.org/a%20b?c=d%26#ä")) << QString();
    QTest::newRow("url, empty") << QVariant(QUrl()) << "";
    QTest::newRow("char, null") << QVariant(QChar()) << "";
    QTest::newRow("char, letter") << QVariant(QChar(0x416)) << QString(QChar(0x416));
    QTest::newRow("char, control") << QVariant(QChar(u'\n')) << "U+000A";
    QTest::newRow("bytes") << QVariant(QByteArray("häh")) << "häh";
    QTest::newRow("bytes, hex") << QVariant(QByteArray("\0\xff\n", 3)) << "0x00ff0a";
    QTest::newRow("bytes like hex") << QVariant(QByteArray("0x1")) << "0x307831";
    QTest::newRow("uuid") << QVariant(QUuid("{67c8770b-44f1-410a-ab9a-f9b5446f13ee}")) << QString();
    QTest::newRow("uuid, null") << QVariant(QUuid()) << QString();
    QTest::newRow("pattern") << QVariant(QRegularExpression("a\\d+[,]")) << "a\\d+[,]";
    QTest::newRow("locale") << QVariant(QLocale("zh_TW")) << "zh_TW";
    QTest::newRow("locale, C") << QVariant(QLocale::c()) << "C";
    QTest::newRow("keys") << QVariant::fromValue(QKeySequence("Ctrl+K, Alt+Shift+,")) << "Ctrl+K, Alt+Shift+,";
    QTest::newRow("no keys") << QVariant::fromValue(QKeySequence()) << "";

    QTest::newRow("date") << QVariant(QDate(2024, 2, 29)) << "2024-02-29";
    QTest::newRow("date, ancient") << QVariant(QDate(33, 4, 3)) << "0033-04-03";
    QTest::newRow("date, none") << QVariant(QDate()) << "";
    QTest::newRow("time") << QVariant(QTime(23, 59, 58)) << "23:59:58";
    QTest::newRow("time, ms") << QVariant(QTime(1, 2, 3, 4)) << "01:02:03.004";
    QTest::newRow("time, none") << QVariant(QTime()) << "";
    QTest::newRow("both") << QVariant(QDateTime(QDate(2024, 2, 29), QTime(1, 2, 3))) << "2024-02-29T01:02:03";
    QTest::newRow("both, UTC") << QVariant(QDateTime(QDate(2024, 2, 29), QTime(1, 2, 3, 4), Qt::UTC))
                               << "2024-02-29T01:02:03.004Z";
    QTest::newRow("both, zone") << QVariant(QDateTime(QDate(2024, 2, 29), QTime(1, 2), zone))
                                << "2024-02-29T01:02:00+01:00";
    QTest::newRow("both, none") << QVariant(QDateTime()) << "";

    QTest::newRow("colour") << QVariant(QColor(1, 2, 255)) << "#0102ff";
    QTest::newRow("colour, alpha") << QVariant(QColor(1, 2, 3, 4)) << "#04010203";
    QTest::newRow("colour, none") << QVariant(QColor()) << "";
    QFont font("Noto Sans", 12, QFont::Bold, true);
    QTest::newRow("font") << QVariant(font) << "Noto Sans, 12 pt, bold, italic";
    font.setPixelSize(13);
    QTest::newRow("font, pixels") << QVariant(font) << "Noto Sans, 13 px, bold, italic";
    font.setWeight(QFont::Thin);
    QTest::newRow("font, more") << QVariant(font) << font.toString();
}

/// A text is read as the value it was made of, and an editor gives back what it was given.
void CTypeTest::Texts()
{
    QFETCH(QVariant, value);
    QFETCH(QString, text);

    CTestProperty property(value);
    const CPropertyType& type = CPropertyType::Of(property);
    const QString strText = type.Text(g_plain, value);
    QVERIFY2(text.isNull() || strText == text, qPrintable(strText));
    const QVariant read = type.FromText(g_plain, strText, value);
    QVERIFY2(IsSame(read, value), qPrintable(strText + " read as " + read.toString()));
    if (type.Work() != CPropertyType::eToggle)
    {
        const sEdit edit(property, value);
        QVERIFY(IsSame(edit.Value(), value));
    }
}

void CTypeTest::Expressions_data()
{
    AddTypedColumns();
    const QVariant real(0.0);
    const QVariant whole(0);
    const QVariant large(qlonglong(0));
    Row("product before sum", whole, "2*3+1", "7");
    Row("parentheses", whole, " ( 2 + 3 ) * -( 4 - 6 ) ", "10");
    Row("signs", whole, "--3-+-4", "7");
    Row("from left", whole, "10-4-3/3", "5");
    Row("nearest", whole, "7/2", "4");
    Row("half of less than none", whole, "-7/2", "-4");
    Row("exact in between", large, "9223372036854775807*2/2", "9223372036854775807");
    Row("exact sum", large, "-9223372036854775807-1", "-9223372036854775808");
    Row("exponent", whole, "1.5e3", "1500");
    Row("no point needed", real, ".5+5.", "5.5");
    Row("other signs", real, "\u22123\u00d72\u00f74", "-1.5");
    Row("Arabic digits", whole, "\u0661\u0662", "12");
    Row("overflow", large, "9223372036854775807+1", nullptr);
    Row("overflow of a real", real, "1e300*1e300", nullptr);
    Row("overflow of a float", QVariant(0.0F), "1e39", nullptr);
    Row("literal too large", real, "1e999", nullptr);
    Row("unsigned stays so", QVariant(0U), "2-3", nullptr);
    Row("by zero", whole, "1/0", nullptr);
    Row("by zero, real", real, "0/(1-1)", nullptr);
    Row("nothing", whole, "", nullptr);
    Row("open", whole, "(1+2", nullptr);
    Row("closed", whole, "1)", nullptr);
    Row("half", whole, "1+", nullptr);
    Row("two numbers", whole, "1 2", nullptr);
    Row("word", whole, "one", nullptr);
    Row("no number", whole, "nan", nullptr);
    Row("too deep", whole, QByteArray(100000, '(').constData(), nullptr);
}

void CTypeTest::Typed_data()
{
    AddTypedColumns();
    const QVariant none;
    Row("at most", 0, "50+60", "100", 0, 100);
    Row("at most, beyond the type", QVariant(short(0)), "100000", "100", 0, 100);
    Row("at least", 0.0, "-3", "-1.5", -1.5, none);
    Row("limits of 64 bits", QVariant(qulonglong(0)), "18446744073709551615", "18446744073709551614", none,
        QVariant(Q_UINT64_C(18446744073709551614)));
    Row("not between limits", 0.0, "nan", nullptr, 0, 1);
    Row("true", QVariant(false), " TRUE", "true");
    Row("0", QVariant(true), "0", "false");
    Row("maybe", QVariant(true), "maybe", nullptr);
    Row("colour", QColor(), " RED ", "#ff0000");
    Row("clear colour", QColor(), "transparent", "#00000000");
    Row("no colour", QColor(), "reddish", nullptr);
    Row("parts", QPoint(), "1+1;-2", "2, -2");
    Row("parts, at most", QPointF(), "1.5,20", "1.5, 10", 0, 10);
    Row("too few", QRect(), "1,2,3", nullptr);
    Row("too large", QRect(), "2147483647,0,2,1", nullptr);
    Row("hex", QByteArray(), "0xABcd", "0xabcd");
    Row("half a byte", QByteArray(), "0xabc", nullptr);
    Row("character by code", QChar(), "u+e9", "é");
    Row("two characters", QChar(), "ab", nullptr);
    Row("open quote", QStringList(), "a, \"b", nullptr);
    Row("after a quote", QStringList(), "\"a\"b", nullptr);
    Row("pattern", QRegularExpression(), "(", nullptr);
    Row("no language", QLocale("de_DE"), "gibberish", nullptr);
    Row("no key", QVariant::fromValue(QKeySequence()), "gibberish", nullptr);
    Row("no key among keys", QVariant::fromValue(QKeySequence()), "F1, Ctrl+gibberish", nullptr);
    Row("no id", QUuid(), "{1}", nullptr);
    Row("font, other order", QFont(), "Noto Serif, italic, 9.5", "Noto Serif, 9.5 pt, italic");
    Row("no font size", QFont(), "Noto Serif, -3", nullptr);
    Row("date too early", QDate(), "1999-01-01", "2000-01-01", QDate(2000, 1, 1));
    Row("no date", QDate(), "2023-02-29", nullptr);
    Row("time of the zone", QDateTime(QDate(2000, 1, 1), QTime(0, 0), Qt::UTC), "2001-02-03T04:05",
        "2001-02-03T04:05:00Z");
}

void CTypeTest::Typed()
{
    QFETCH(QVariant, present);
    QFETCH(QVariant, minimum);
    QFETCH(QVariant, maximum);
    QFETCH(QString, typed);
    QFETCH(QString, text);

    CTestProperty property(present);
    property.EditFormat().minimum = minimum;
    property.EditFormat().maximum = maximum;
    const CPropertyType& type = CPropertyType::Of(property);
    const QVariant value = type.FromText(property.Format(), typed, present);
    QCOMPARE(value.isValid(), !text.isNull());
    QCOMPARE(value.isValid() ? type.Text(property.Format(), value) : QString(), text);
    QVERIFY(!value.isValid() || value.userType() == present.userType());
}

void CTypeTest::LocalesPoint()
{
    QLocale::setDefault(QLocale(QLocale::German));
    CTestProperty real(1.5);
    CTestProperty point(QPointF(1.5, 2));
    const CPropertyType& type = CPropertyType::Of(real);
    QCOMPARE(type.Text(g_plain, 1.5), QString("1,5"));
    QCOMPARE(type.FromText(g_plain, "2,5*2", 0.0).toDouble(), 5.0);
    QCOMPARE(type.FromText(g_plain, "2.5", 0.0).toDouble(), 2.5);
    const CPropertyType& parts = CPropertyType::Of(point);
    QCOMPARE(parts.Text(g_plain, QPointF(1.5, 2)), QString("1,5; 2"));
    QCOMPARE(parts.FromText(g_plain, "1,5; 2", QPointF()).toPointF(), QPointF(1.5, 2));
}

void CTypeTest::Steps_data()
{
    // text: null: no step
    TestSupport::Columns<QVariant, QVariant, QVariant, int, QString>("value", "step", "maximum", "steps", "text");
    const QVariant none;
    QTest::newRow("whole") << QVariant(5) << none << none << -7 << "-2";
    QTest::newRow("whole, of five") << QVariant(5) << QVariant(5) << QVariant(12) << 2 << "12";
    QTest::newRow("the type's end") << Highest<uchar>() << none << none << 1 << "255";
    QTest::newRow("no less than none") << QVariant(3U) << none << none << -9 << "0";
    QTest::newRow("64 bits") << QVariant(Q_INT64_C(9223372036854775806)) << none << none << 9 << "9223372036854775807";
    QTest::newRow("a tenth") << QVariant(0.1) << none << none << 2 << "0.12";
    QTest::newRow("a tenth of one") << QVariant(1.0) << none << none << 1 << "1.1";
    QTest::newRow("down from one") << QVariant(1.0) << none << none << -1 << "0.99";
    QTest::newRow("up to none") << QVariant(-1.0) << none << none << 1 << "-0.99";
    QTest::newRow("from none") << QVariant(0.0) << none << none << 3 << "0.3";
    QTest::newRow("real, at most") << QVariant(0.9F) << QVariant(0.2) << QVariant(1) << 1 << "1";
    QTest::newRow("float") << QVariant(0.1F) << QVariant(0.1) << none << 2 << "0.3";
    QTest::newRow("nan") << QVariant(std::nan("")) << none << none << 1 << QString();
    QTest::newRow("text") << QVariant("5") << none << none << 1 << QString();
}

void CTypeTest::Steps()
{
    QFETCH(QVariant, value);
    QFETCH(int, steps);
    CTestProperty property(value);
    sPropertyFormat& format = property.EditFormat();
    format.step = *static_cast<QVariant*>(QTest::qData("step", qMetaTypeId<QVariant>()));
    format.maximum = *static_cast<QVariant*>(QTest::qData("maximum", qMetaTypeId<QVariant>()));
    const CPropertyType& type = CPropertyType::Of(property);
    const QVariant stepped = type.Stepped(format, value, steps);
    QTEST(stepped.isValid() ? type.Text(format, stepped) : QString(), "text");
}

void CTypeTest::Parts_data()
{
    // part: put in as the last
    TestSupport::Columns<QVariant, QString, QVariant, QString>("value", "labels", "part", "text");
    const int iMost = std::numeric_limits<int>::max();
    QTest::newRow("point") << QVariant(QPoint(1, 2)) << "x y" << QVariant(-3) << "1, -3";
    QTest::newRow("real point") << QVariant(QPointF(.5, 2)) << "x y" << QVariant(1e9) << "0.5, 1000000000";
    QTest::newRow("size") << QVariant(QSize(1, 2)) << "width height" << QVariant(0) << "1, 0";
    QTest::newRow("real size") << QVariant(QSizeF(1, 2)) << "width height" << QVariant(.5) << "1, 0.5";
    QTest::newRow("rect") << QVariant(QRect(1, 2, 3, 4)) << "x y width height" << QVariant(9) << "1, 2, 3, 9";
    QTest::newRow("rect, no end") << QVariant(QRect(1, 2, 3, 4)) << "x y width height" << QVariant(iMost)
                                  << "1, 2, 3, 4";
    QTest::newRow("real rect") << QVariant(QRectF(1, 2, 3, 4)) << "x y width height" << QVariant(.1) << "1, 2, 3, 0.1";
    QTest::newRow("line") << QVariant(QLine(1, 2, 3, 4)) << "x1 y1 x2 y2" << QVariant(5) << "1, 2, 3, 5";
    QTest::newRow("margins") << QVariant::fromValue(QMargins(1, 2, 3, 4)) << "left top right bottom" << QVariant(5)
                             << "1, 2, 3, 5";
    QTest::newRow("real margins") << QVariant::fromValue(QMarginsF(1, 2, 3, 4)) << "left top right bottom"
                                  << QVariant(.5) << "1, 2, 3, 0.5";
    QTest::newRow("size policy") << QVariant(QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored))
                                 << "width height stretch x stretch y" << QVariant(3) << "Fixed, Ignored, 0, 3";
    QTest::newRow("vector") << QVariant(QVector3D(1, 2, .1F)) << "x y z" << QVariant(.2F) << "1, 2, 0.2";
}

void CTypeTest::Parts()
{
    QFETCH(QVariant, value);
    QFETCH(QVariant, part);
    CTestProperty property(value);
    const CPropertyType& type = CPropertyType::Of(property);
    QStringList labels;
    QStringList parts;
    for (int i = 0; i < type.Parts(); ++i)
    {
        labels << type.PartLabel(i);
        parts << type.PartType(i).Text(g_plain, type.Part(value, i));
        QVERIFY(sEdit(property, type.Part(value, i), i).Value() == type.Part(value, i));
    }
    QTEST(labels.join(' '), "labels");
    QCOMPARE(parts.join(", "), type.Text(g_plain, value));
    QVERIFY(type.FromText(g_plain, type.Text(g_plain, value), value) == value);
    QTEST(type.Text(g_plain, type.WithPart(value, type.Parts() - 1, part)), "text");
}

void CTypeTest::Edits_data()
{
    // keys: a key each, or a text in quotes
    TestSupport::Columns<QVariant, int, QString, QVariant, int>("value", "editor", "keys", "edited", "changes");
    const int iPlain = sPropertyFormat::eByType;
    const QVariant text("abc");
    QTest::newRow("number typed") << QVariant(5) << iPlain << "Ctrl+A '2*(3+1)'" << QVariant(8) << 0;
    QTest::newRow("number half typed") << QVariant(5) << iPlain << "Ctrl+A '2*('" << QVariant(5) << 0;
    QTest::newRow("number stepped") << QVariant(5) << iPlain << "Up Up PgDown" << QVariant(-3) << 3;
    QTest::newRow("typed, then stepped") << QVariant(5) << iPlain << "Ctrl+A '2*3' Up" << QVariant(7) << 1;
    QTest::newRow("real") << QVariant(.5) << iPlain << "Ctrl+A '1/8' Down" << QVariant(.115) << 1;
    QTest::newRow("step at the end") << Highest<short>() << iPlain << "Up" << Highest<short>() << 0;
    QTest::newRow("text") << text << iPlain << "End 'd'" << QVariant("abcd") << 0;
    QTest::newRow("text emptied") << text << iPlain << "Ctrl+A Del" << QVariant("") << 0;
    QTest::newRow("long text") << text << int(sPropertyFormat::eLongText) << "Ctrl+End Return 'd'" << QVariant("abc\nd")
                               << 0;
    QTest::newRow("file") << text << int(sPropertyFormat::eFile) << "End 'd'" << QVariant("abcd") << 0;
    QTest::newRow("list") << QVariant(QStringList{"a", "b\nc"}) << iPlain << "Ctrl+End Return Return '\"d'"
                          << QVariant(QStringList{"a", "b\nc", "\"d"}) << 0;
    QTest::newRow("url") << QVariant(QUrl("a:b")) << iPlain << "End 'c'" << QVariant(QUrl("a:bc")) << 0;
    QTest::newRow("colour") << QVariant(QColor(Qt::red)) << iPlain << "Ctrl+A 'blue'" << QVariant(QColor(Qt::blue))
                            << 0;
    QTest::newRow("no colour") << QVariant(QColor(Qt::red)) << iPlain << "Ctrl+A 'blu'" << QVariant(QColor(Qt::red))
                               << 0;
    QTest::newRow("date") << QVariant(QDate(2024, 2, 28)) << iPlain << "Home Up" << QVariant(QDate(2024, 2, 29)) << 0;
    QTest::newRow("time") << QVariant(QTime(1, 2, 3, 4)) << iPlain << "Home Up" << QVariant(QTime(2, 2, 3, 4)) << 0;
    QTest::newRow("both") << QVariant(QDateTime(QDate(2024, 2, 28), QTime(1, 2, 3), Qt::UTC)) << iPlain << "Home Up"
                          << QVariant(QDateTime(QDate(2024, 2, 29), QTime(1, 2, 3), Qt::UTC)) << 0;
    QTest::newRow("keys") << QVariant::fromValue(QKeySequence("F1")) << iPlain << "Ctrl+K"
                          << QVariant::fromValue(QKeySequence("Ctrl+K")) << 0;
}

void CTypeTest::Edits()
{
    QFETCH(QVariant, value);
    QFETCH(int, editor);
    QFETCH(QString, keys);
    QFETCH(QVariant, edited);
    CTestProperty property(value);
    property.EditFormat().editor = static_cast<sPropertyFormat::eEditor>(editor);
    sEdit edit(property, value);
    QVERIFY(TestSupport::ShowWindow(&edit.window));
    const auto Refresh = [&] { // what is half typed stays when the row is told the same value again
        IsSame(edit.Value(), value) && edit.editor.value.write(edit.editor.widget, value);
    };
    for (const QString& strKey : keys.split(' '))
    {
        if (strKey.startsWith('\''))
        {
            for (const QChar c : strKey.mid(1).chopped(1))
            {
                QTest::keyClick(QApplication::focusWidget(), c.toLatin1());
                Refresh();
            }
            continue;
        }
        QTest::keySequence(QApplication::focusWidget(), QKeySequence(strKey));
        Refresh();
    }
    QVERIFY2(IsSame(edit.Value(), edited), qPrintable(edit.Value().toString()));
    QTEST(edit.editor.live ? int(edit.changes.size()) : 0, "changes");
    edit.editor.value.write(edit.editor.widget, edited); // as a page does that reads it back
    QVERIFY(IsSame(edit.Value(), edited));
}

void CTypeTest::FlagsList()
{
    CTestProperty property(QVariant(0));
    property.EditFormat().keys = QMetaEnum::fromType<Qt::Alignment>();
    const sPropertyFormat& format = property.Format();
    const CPropertyType& type = CPropertyType::Of(property);
    const int iCenter = Qt::AlignCenter;
    QCOMPARE(type.Text(format, iCenter | Qt::AlignLeft), QString("AlignCenter|AlignLeft"));
    QCOMPARE(type.Text(format, 0x40000000 | Qt::AlignTop), QString("AlignTop|0x40000000"));
    QCOMPARE(type.FromText(format, "AlignTop|0x40000000", 0).toInt(), 0x40000000 | Qt::AlignTop);
    QCOMPARE(type.FromText(format, "Qt::aligncenter | AlignLeft", 0).toInt(), iCenter | Qt::AlignLeft);
    QVERIFY(!type.FromText(format, "AlignLeft|Middle", 0).isValid());
    QCOMPARE(type.FromText(format, type.Text(format, -1), 0).toInt(), -1);

    sEdit edit(property, int(Qt::AlignLeft));
    QVERIFY(TestSupport::ShowWindow(&edit.window));
    QComboBox* pBox = qobject_cast<QComboBox*>(edit.editor.widget);
    CPropertyType::OpenList(pBox);
    QAbstractItemView* pList = pBox->view();
    QVERIFY(TestSupport::WaitUntil([&] { return pList->isVisible(); }));
    QVERIFY(CPropertyType::IsWithin(pList->viewport(), pBox) && !CPropertyType::IsWithin(&edit.window, pBox));
    const int iRow = pBox->findText("AlignCenter");
    pList->setCurrentIndex(pBox->model()->index(iRow, 0));
    QTest::keyClick(pList, Qt::Key_Space);
    QCOMPARE(edit.Value().toInt(), iCenter | Qt::AlignLeft);
    pList->scrollToTop();
    QTest::mouseClick(pList->viewport(), Qt::LeftButton, {}, pList->visualRect(pBox->model()->index(0, 0)).center());
    QCOMPARE(edit.Value().toInt(), iCenter);
    QCOMPARE(edit.changes.size(), 2);
    QVERIFY(pList->isVisible());
    const int iPart = pBox->findText("AlignHorizontal_Mask");
    QCOMPARE(pBox->itemData(iPart, Qt::CheckStateRole).toInt(), int(Qt::PartiallyChecked));
    QTest::keyClick(pList, Qt::Key_Return);
    QVERIFY(TestSupport::WaitUntil([&] { return !pList->isVisible(); }));
    QCOMPARE(edit.Value().toInt(), iCenter);
}

void CTypeTest::ChoiceList()
{
    CTestProperty property(QVariant(short(7)));
    property.EditFormat().choices = {{0, "Off"}, {1, "Blinking"}, {2, "On"}};
    const CPropertyType& type = CPropertyType::Of(property);
    QCOMPARE(type.Shown(property.Format(), short(1)), QString("Blinking"));
    QCOMPARE(type.FromText(property.Format(), "on", 7).toInt(), 2);

    sEdit edit(property, short(7));
    QVERIFY(TestSupport::ShowWindow(&edit.window));
    QCOMPARE(edit.Value().toInt(), 7);
    QTest::keyClicks(edit.editor.widget, "bl");
    QCOMPARE(edit.Value().toInt(), 1);
    QTest::keyClick(edit.editor.widget, Qt::Key_Down);
    QCOMPARE(edit.Value().toInt(), 2);
    QCOMPARE(edit.changes.size(), 2);

    property.EditFormat().choices.clear();
    property.EditFormat().keys = QMetaEnum::fromType<Qt::CursorShape>();
    const CPropertyType& keys = CPropertyType::Of(property);
    QCOMPARE(keys.Text(property.Format(), int(Qt::WaitCursor)), QString("WaitCursor"));
    QCOMPARE(keys.FromText(property.Format(), keys.Text(property.Format(), 77), 0).toInt(), 77);
}

/// The wheel is the page's but over an editor that has the focus.
void CTypeTest::Wheel()
{
    for (const QVariant& value : {QVariant(5), QVariant(QDate(2000, 1, 1)), QVariant(1)})
    {
        CTestProperty property(value);
        property.EditFormat().choices = {{0, "Off"}, {1, "On"}};
        property.EditFormat().choices.resize(value == QVariant(1) ? 2 : 0);
        sEdit edit(property, value);
        QVERIFY(TestSupport::ShowWindow(&edit.window));
        for (const bool bFocus : {false, true})
        {
            bFocus ? edit.editor.widget->setFocus() : edit.editor.widget->clearFocus();
            QWheelEvent wheel(QPointF(5, 5), QPointF(5, 5), {}, {0, 120}, Qt::NoButton, Qt::NoModifier,
                              Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(edit.editor.widget, &wheel);
            QCOMPARE(wheel.isAccepted(), bFocus);
            QCOMPARE(edit.Value() != value, bFocus);
        }
    }
}

/// The dialog writes as it is worked and gives back what was when it is left; the editor may die before it.
void CTypeTest::Dialog()
{
    const QColor before(1, 2, 3, 4);
    CTestProperty property(before);
    sEdit edit(property, before);
    QVERIFY(TestSupport::ShowWindow(&edit.window));
    const auto Dialog = [&] { return edit.editor.widget->findChild<QColorDialog*>(); };
    QTest::keyClick(edit.editor.widget, Qt::Key_F4);
    QVERIFY(Dialog() && CPropertyType::IsWithin(Dialog(), edit.editor.widget));
    Dialog()->setCurrentColor(QColor(5, 6, 7, 8));
    QCOMPARE(edit.Value().value<QColor>(), QColor(5, 6, 7, 8));
    QVERIFY(!edit.changes.isEmpty());
    Dialog()->reject();
    QCOMPARE(edit.Value().value<QColor>(), before);
    QVERIFY(TestSupport::WaitUntil([&] { return !Dialog(); }));

    QTest::keyClick(edit.editor.widget, Qt::Key_Down, Qt::AltModifier);
    QVERIFY(Dialog());
    Dialog()->setCurrentColor(Qt::green);
    Dialog()->accept();
    QCOMPARE(edit.Value().value<QColor>(), QColor(Qt::green));
    CPropertyType::OpenList(edit.editor.widget);
    delete edit.editor.widget;
}

void CTypeTest::OtherDialogs()
{
    for (const QVariant& value : {QVariant(QFont()), QVariant(QDir::tempPath())})
    {
        CTestProperty property(value);
        property.EditFormat().editor = sPropertyFormat::eFolder;
        sEdit edit(property, value);
        QVERIFY(TestSupport::ShowWindow(&edit.window));
        CPropertyType::OpenList(edit.editor.widget);
        QDialog* pDialog = edit.editor.widget->findChild<QDialog*>();
        QVERIFY(pDialog && TestSupport::WaitUntil([&] { return pDialog->isVisible(); }));
        pDialog->accept();
        QVERIFY2(edit.Value() == value, qPrintable(edit.Value().toString()));
    }
}

void CTypeTest::Completion()
{
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkpath("book/chapter"));
    const QString strBefore = QDir::currentPath();
    QVERIFY(QDir::setCurrent(folder.path()));
    for (const QString& strFolder : {folder.path() + "/book/", QString("book/"), QString("./book/../book/"), QString()})
    {
        CTestProperty property{QVariant(strFolder)};
        property.EditFormat().editor = sPropertyFormat::eFolder;
        sEdit edit(property, strFolder);
        QVERIFY(TestSupport::ShowWindow(&edit.window));
        QTest::keyClick(edit.editor.widget, Qt::Key_End);
        QTest::keyClicks(edit.editor.widget, strFolder.isEmpty() ? "bo" : "ch");
        QVERIFY(TestSupport::WaitUntil([] { return QApplication::activePopupWidget(); }));
        QWidget* pList = QApplication::activePopupWidget();
        QVERIFY(CPropertyType::IsWithin(pList, edit.editor.widget));
        QTest::keyClick(pList, Qt::Key_Down);
        QTest::keyClick(pList, Qt::Key_Return);
        QCOMPARE(edit.Value().toString(), strFolder.isEmpty() ? "book" : strFolder + "chapter");
    }
    QVERIFY(QDir::setCurrent(strBefore));
}

/// They stand around what is typed, and are no part of it.
void CTypeTest::PrefixAndSuffix()
{
    CTestProperty property{QVariant(5)};
    property.EditFormat().prefix = "about ";
    property.EditFormat().suffix = " %";
    for (const Qt::LayoutDirection eDirection : {Qt::LeftToRight, Qt::RightToLeft})
    {
        QGuiApplication::setLayoutDirection(eDirection);
        sEdit edit(property, 5);
        edit.editor.widget->resize(200, 20);
        QVERIFY(TestSupport::ShowWindow(&edit.window));
        const auto* pLine = edit.editor.widget->findChild<QLineEdit*>();
        const QList<QLabel*> labels = pLine->findChildren<QLabel*>();
        const int iPrefixAt = labels[0]->geometry().right();
        const int iSuffixAt = labels[1]->geometry().left();
        const int iCursor = pLine->inputMethodQuery(Qt::ImCursorRectangle).toRect().center().x();
        QCOMPARE(pLine->text(), QString("5"));
        QVERIFY2(iPrefixAt <= iCursor && iCursor <= iSuffixAt, qPrintable(QString::number(iCursor)));
        QTest::keyClicks(edit.editor.widget, "0000000000000000000000000000000");
        QVERIFY(pLine->rect().contains(labels[0]->geometry()) && pLine->rect().contains(labels[1]->geometry()));
    }
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

void CTypeTest::ForeignEditors()
{
    class COwnSpinBox : public QSpinBox
    {
    public:
        using QSpinBox::QSpinBox;
    };
    CTestProperty whole(QVariant(1));
    CTestProperty point{QVariant(QPoint())};
    QItemEditorFactory factory;
    const CItemEditors standard(&factory);
    QVERIFY(!standard.Has(QMetaType::Int) && !standard.Has(QMetaType::QPoint));
    factory.registerEditor(QMetaType::Int, new QStandardItemEditorCreator<COwnSpinBox>);
    factory.registerEditor(QMetaType::QPoint, new QItemEditorCreator<QTextEdit>("plainText"));
    const CItemEditors own(&factory);
    QWidget parent;
    const sPropertyEditor spinBox = CPropertyType::Edit(whole, 0, &own, &parent);
    QVERIFY(dynamic_cast<COwnSpinBox*>(spinBox.widget) && spinBox.value.name() == QByteArray("value"));
    QVERIFY(!spinBox.live);
    QCOMPARE(CPropertyType::Of(point, &own).Parts(), 1);
    QVERIFY(qobject_cast<QTextEdit*>(CPropertyType::Edit(point, 0, &own, &parent).widget));

    CTestProperty unknown(QVariant(QVariantMap{{"a", 1}}));
    QCOMPARE(CPropertyType::Of(unknown).Work(), CPropertyType::eShown);
    QVERIFY(!CPropertyType::Edit(unknown, 0, &own, &parent).widget);
    unknown.EditFormat().creator.reset(new QItemEditorCreator<QSlider>("value"));
    QCOMPARE(CPropertyType::Of(unknown).Work(), CPropertyType::eTyped);
    const sPropertyEditor slider = CPropertyType::Edit(unknown, 0, nullptr, &parent);
    QVERIFY(qobject_cast<QSlider*>(slider.widget) && slider.live);
}

/// What is shown of values that have no text of their own, in one line.
void CTypeTest::Looks()
{
    QPushButton object;
    object.setObjectName("ok");
    const auto Shown = [](const QVariant& in_value) {
        CTestProperty property(in_value);
        property.EditFormat().prefix = "~";
        property.EditFormat().suffix = " m";
        property.EditFormat().decimals = 2;
        return CPropertyType::Of(property).Shown(property.Format(), in_value);
    };
    QCOMPARE(Shown(1.005), QString("~1.00 m"));
    QCOMPARE(Shown(QPointF(0, -.5)), QString("~0.00 m, ~-0.50 m"));
    QCOMPARE(Shown("a\nb"), QString("a b"));
    QCOMPARE(Shown(QVariant::fromValue(&object)), QString("QPushButton \"ok\""));
    QCOMPARE(Shown(QVariant::fromValue<QObject*>(nullptr)), QString());
    QCOMPARE(Shown(QCursor(Qt::PointingHandCursor)), QString("PointingHandCursor"));
    QCOMPARE(Shown(QBrush(Qt::red, Qt::CrossPattern)), QString("#ffff0000 CrossPattern"));
    QCOMPARE(Shown(QPixmap(3, 4)), QString("3 × 4"));
    QCOMPARE(Shown(QVariantList{1, "a"}), QString("[1,\"a\"]"));
    QVERIFY(Shown(QRegion(1, 2, 3, 4)).contains("QRegion"));

    CTestProperty colour{QVariant(QColor())};
    const QIcon icon = CPropertyType::Of(colour).Decoration(QColor(Qt::red), QSize(16, 16));
    QCOMPARE(icon.pixmap(16, 16).toImage().pixelColor(8, 8), QColor(Qt::red));
}

INSPECTOR_TEST_MAIN(CTypeTest)
#include "typetest.moc"
