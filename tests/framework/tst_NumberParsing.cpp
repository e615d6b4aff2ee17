#include "framework/NumberParsing.h"
#include "inhouse/fundamentals/StringConversions.h"

#include <QTest>

#include <bit>
#include <random>

// Every answer is compared with Qt's own, bit for bit: the value and whether it counts as a number.

namespace {

bool agrees(QByteArray const& bytes)
{
    QString const text = QString::fromUtf8(bytes);
    bool expectedOk = false;
    float const expected = text.toFloat(&expectedOk);
    bool ok = !expectedOk;
    QByteArray const latin1 = text.toLatin1();
    bool const isLatin1 = QString::fromLatin1(latin1) == text;
    auto const isExpected = [&](float value) {
        return ok == expectedOk && std::bit_cast<quint32>(value) == std::bit_cast<quint32>(expected);
    };
    return isExpected(numbers::toFloat(text, &ok)) &&
           (!isLatin1 || isExpected(numbers::toFloat(QLatin1StringView(latin1), &ok))) &&
           isExpected(numbers::toFloat(QUtf8StringView(bytes), &ok));
}

bool agreesAsInteger(QByteArray const& bytes)
{
    QString const text = QString::fromUtf8(bytes);
    int const expected = StringConversions::stringToInt(text, 0);
    QByteArray const latin1 = text.toLatin1();
    bool const isLatin1 = QString::fromLatin1(latin1) == text;
    return numbers::toInt(text) == expected &&
           (!isLatin1 || numbers::toInt(QLatin1StringView(latin1)) == expected) &&
           numbers::toInt(QUtf8StringView(bytes)) == expected;
}

QByteArray digits(std::mt19937& random, unsigned most)
{
    QByteArray result;
    for (unsigned left = random() % (most + 1); left > 0; --left)
        result += static_cast<char>('0' + random() % 10);
    return result;
}

// Decimal numbers as programs write them: few digits and many, with and without sign, point and exponent.
QByteArray randomDecimal(std::mt19937& random)
{
    constexpr std::array<unsigned, 4> widths = {3, 8, 17, 40};
    unsigned const width = widths[random() % widths.size()];
    QByteArray text = std::array{"", "", "-", "+"}[random() % 4];
    text += digits(random, width);
    if (random() % 4 != 0)
        text += '.' + digits(random, width);
    if (random() % 3 == 0)
        text += std::array{"e", "E", "e-", "e+"}[random() % 4] + digits(random, 1 + random() % 3);
    return text;
}

// Anything made of the characters of numbers.
QByteArray randomRubbish(std::mt19937& random)
{
    constexpr std::string_view characters = "0123456789012345678900.-+eE,xXinfaN \t/#";
    QByteArray text;
    for (unsigned left = random() % 12; left > 0; --left)
        text += characters[random() % characters.size()];
    return text;
}

} // namespace

class tst_NumberParsing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void spellings_data();
    void spellings();
    void randomTexts_data();
    void randomTexts();
    void shortestTexts();
    void everyShortText();
    void toFloat_data();
    void toFloat();
    void toInt_data();
    void toInt();
    void takesFloats_data();
    void takesFloats();
    void takesDigits_data();
    void takesDigits();
};

void tst_NumberParsing::spellings_data()
{
    QTest::addColumn<QByteArray>("text");
    // clang-format off
    QByteArrayList const texts = {
        // zero
        "0", "-0", "+0", "00", "000000", "0.", "-0.", ".0", "-.0", "+.0", "0.0", "-0.0", "0.000000", "-0.000000",
        "0e0", "0e5", "0e-5", "0e999", "0e-999", "0e99999", "-0e-99999", "0.0e400", "000.000e-400", "0E0", "0x0",
        "0.00000000000000000000000000000000000000000000000", "00000000000000000000000000000000000000000000000",
        // small integers and plain decimals
        "1", "-1", "+1", "2", "9", "10", "99", "100", "123", "-123", "+123", "007", "-007", "0000000001", "1.", "-1.",
        "+1.", "1.0", ".5", "-.5", "+.5", "0.5", "00.5", "1.5", "12.25", "0.1", "0.2", "0.3", "0.7", "1.1", "3.14",
        "3.14159265358979", "3.14159265358979323846264338327950288", "2.718281828", "-57.29578", "100.001", "1234.5678",
        "0.001", "0.0001", "0.00001", "0.000001", "0.0000001", "-0.000001", "12.345678", "-12.345678", "123456.789",
        // what exporters write for coordinates: %f, %g, %e, shortest double, %.17g
        "-24.351671", "17.046082", "8.43769932", "-1.52587891e-05", "1.52587891E-05", "4.76837158e-07", "1e-07",
        "0.30000000000000004", "0.10000000149011612", "-0.70710678118654757", "0.57735026918962584", "1.0000000000000002",
        "9.9999999999999995e-08", "5.0000000000000001e-01", "-1.2345678901234567e+01", "1.000000e+00", "-1.000000E+000",
        "6.123233995736766e-17", "-2.4492935982947064e-16", "1.#INF", "-1.#IND", "1.#QNAN", "1.#INF00", "-1.#IND00",
        // sixteen to forty digits
        "1234567890123456", "12345678901234567", "123456789012345678", "1234567890123456789", "12345678901234567890",
        "123456789012345678901234567890", "1234567890123456789012345678901234567890", "9007199254740991",
        "9007199254740992", "9007199254740993", "9007199254740994", "9007199254740995", "18446744073709551615",
        "18446744073709551616", "0.9007199254740993", "0.90071992547409931234", "0.1234567890123456789",
        "0.12345678901234567890", "0.1234567890123456789012345678901234567890", "1.234567890123456789012345678901234567890",
        "0.0000000000000000000000000000000000000001234567890123456789", "99999999999999999999", "0.99999999999999999999",
        "0.999999999999999999", "0.9999999999999999", "1.00000000000000000000000000000000000001", "33554433.00000000001",
        // halfway between two floats, and the double rounding that decides them
        "16777215", "16777216", "16777217", "16777218", "16777219", "16777217.0000000001", "16777217.00000000001",
        "16777216.99999999999", "33554434", "33554435", "33554437", "8388608.5", "8388609.5", "8388610.5",
        "1.00000005960464477539062500", "1.000000059604644775390625", "1.0000000596046447753906251",
        "1.0000000596046447753906249", "1.00000017881393432617187500", "1.0000001788139343", "1.0000001788139344",
        "0.500000029802322387695312", "0.500000029802322387695313", "0.50000002980232241", "5e-1", "50e-2",
        // exponents
        "1e0", "1e1", "1e5", "1E5", "1e+5", "1E+5", "1e-5", "1E-5", "1e05", "1e005", "1e0005", "1e00005", "1e-0005",
        "1e22", "1e23", "1e-22", "1e-23", "123e22", "123e-22", "123456789e22", "9007199254740992e22", "9007199254740993e-22",
        "5.e3", ".5e3", "5.5e3", "-5.5e-3", "+5.5e+3", "1e10", "1e15", "1e16", "1e17", "1e20", "1e21", "1e30", "1e37",
        "0.1e1", "0.01e2", "0.000000001e9", "1000000000e-9", "1.5e-10", "1.5e-20", "1.5e-30", "1.5e-37", "8.5e-38",
        // the edges of single precision
        "1e38", "3e38", "3.4e38", "3.402823e38", "3.4028234e38", "3.4028234663852886e38", "3.4028234663852887e38",
        "3.40282346638528859811704183484516925e38", "3.4028235e38", "-3.4028235e38", "3.40282357e38", "3.4028236e38",
        "3.5e38", "4e38", "1e39", "-1e39", "1e40", "1e100", "1e308", "340282346638528859811704183484516925440",
        "340282346638528859811704183484516925441", "340282356779733661637539395458142568447",
        "340282356779733661637539395458142568448", "1.17549435e-38", "1.1754943e-38", "1.17549428e-38", "1.1754944e-38",
        "1.1754942106924411e-38", "1e-38", "1e-39", "1e-40", "1e-44", "1.4e-45", "1e-45", "1.40129846e-45", "-1.4e-45",
        "7.1e-46", "7.0065e-46", "7.00649232162408e-46", "7.0064923216240854e-46", "7.0064923216240853e-46", "7e-46",
        "1e-46", "-1e-46", "1e-50", "1e-100", "0.00000000000000000000000000000000000000000000000001",
        // the edges of double precision
        "1.7976931348623157e308", "1.7976931348623159e308", "1e309", "-1e309", "1e400", "1e999", "1e9999", "1e99999",
        "1e999999999999999999999999", "2.2250738585072014e-308", "2.2250738585072011e-308", "2.2e-308", "4.9e-324",
        "2.4e-324", "1e-323", "1e-324", "1e-400", "-1e-400", "1e-99999", "1e-999999999999999999999999",
        // not finite
        "nan", "NaN", "NAN", "nAn", "-nan", "+nan", "nan(1)", "nan()", "nanx", "na", "n", "inf", "Inf", "INF", "-inf", "-INF",
        "+inf", "+INF", "infinity", "Infinity", "-infinity", "infx", "in", "i", "1inf", "inf1", "1nan", "1.#", "#INF",
        // signs in the wrong place
        "-", "+", "--1", "++1", "+-1", "-+1", "1-", "1+", "- 1", "+ 1", "1-1", "1+1", "-.", "+.", "-e5", "1e--5", "1e+-5",
        // points and exponents in the wrong place
        "", ".", "..", "1..", "..1", "1..2", "1.2.3", "1.2.", ".1.", "e", "E", "e5", "E5", ".e5", "1e", "1E", "1e+", "1e-",
        "1.e", "1.e+", "1e.", "1e.5", "1e5.", "1e5.5", "1e5e5", "1ee5", "1eE5", "1e5e", "e1e", "1e1.0",
        // white space
        " ", "  ", "\t", " 1", "1 ", " 1 ", "\t1", "1\t", "\t1\t", "\n1", "1\n", "1\r", "\r1", "\v1", "\f1", "1\v", "1\f",
        " -1", "- 1", "1 2", "1\t2", "1 e5", "1e 5", "1. 5", " .5", " nan ", "\tinf\t", " 1e5 ", "\xc2\xa0" "1", "1\xc2\xa0",
        "\xe2\x80\x89" "1", "1\xe3\x80\x80", "\xc2\x85" "1", "\x1f" "1", "1\x1c",
        // other bases, suffixes, separators, rubbish
        "0x1", "0x10", "0X1F", "-0x10", "0x1p3", "0x1.8p1", "x1", "0b1", "0b101", "0o7", "010", "1f", "1F", "1.0f", "1d", "1D5",
        "1l", "1L", "1u", "1_000", "1'000", "1,000", "1,5", "1,000.5", ",5", "5,", "1;", "1:", "1/2", "1%", "$1", "#1", "1#",
        "1*2", "abc", "v", "1a", "a1", "1e5a", "1x", "x", "()", "(1)", "1)", "[1]", "\"1\"", "'1'", "true", "1\\", "?", "NULL",
        // not ASCII
        "\xe2\x88\x92" "1", "\xe2\x81\xba" "1", "\xef\xbc\x8b" "1", "\xef\xbc\x8d" "1", "\xd9\xa1", "\xd9\xa1\xd9\xab\xd9\xa5", "\xef\xbc\x91",
        "1\xe2\x81\xb5", "\xc2\xbd", "\xe2\x88\x9e", "-\xe2\x88\x9e", "1\xd9\xab" "5", "1\xc2\xb7" "5", "1\xe2\x82\xac", "\xef\xbb\xbf" "1",
        "1\xef\xbb\xbf", "1\xc3\x97" "10", "1\xe2\x8f\xa8" "5", "\xf0\x9d\x9f\x8f", "1e\xe2\x88\x92" "5", "\xc3\xa4",
        // integers at the edges of 32 bits
        "999999999", "1000000000", "2147483646", "2147483647", "2147483648", "-2147483647", "-2147483648", "-2147483649",
        "4294967295", "4294967296", "4294967297", "9999999999", "9223372036854775807", "9223372036854775808",
        "-9223372036854775808", "00000000000000000001", "+0000000001", "-0000000001", "0000000000",
    };
    // clang-format on
    QVERIFY(texts.size() >= 300);
    for (QByteArray const& text : texts)
        QTest::addRow("%d: %s", int(&text - texts.constData()), text.toPercentEncoding().constData()) << text;
    QTest::newRow("NUL") << QByteArray(1, '\0');
    QTest::newRow("NUL behind") << QByteArray("1\0", 2);
    QTest::newRow("NUL before") << QByteArray("\0"
                                              "1",
                                              2);
    QTest::newRow("NUL inside") << QByteArray("1\0"
                                              "2",
                                              3);
    QTest::newRow("a thousand digits") << QByteArray(1000, '7');
    QTest::newRow("a thousand decimals") << "0." + QByteArray(1000, '3');
    QTest::newRow("a thousand zeros before") << QByteArray(1000, '0') + "12.5";
    QTest::newRow("a thousand zeros behind") << "12.5" + QByteArray(1000, '0');
    QTest::newRow("a thousand zeros in the exponent") << "12.5e" + QByteArray(1000, '0') + "1";
}

void tst_NumberParsing::spellings()
{
    QFETCH(QByteArray, text);
    QVERIFY(agrees(text));
    QVERIFY(agreesAsInteger(text));
}

void tst_NumberParsing::randomTexts_data()
{
    QTest::addColumn<unsigned int>("seed");
    for (unsigned int seed = 1; seed <= 8; ++seed)
        QTest::addRow("%u", seed) << seed;
}

void tst_NumberParsing::randomTexts()
{
    QFETCH(unsigned int, seed);
    std::mt19937 random(seed);
    for (int i = 0; i < 20000; ++i) {
        QByteArray const text = i % 4 == 0 ? randomRubbish(random) : randomDecimal(random);
        QVERIFY2(agrees(text), text.constData());
        QVERIFY2(agreesAsInteger(text), text.constData());
    }
}

// Any float at all, in the forms that programs write.
void tst_NumberParsing::shortestTexts()
{
    std::mt19937 random(1);
    for (int i = 0; i < 30000; ++i) {
        auto const value = std::bit_cast<float>(static_cast<quint32>(random()));
        int const precision = std::array{-128, 6, 9, 17}[random() % 4];
        char const format = precision < 0 ? 'g' : std::array{'e', 'g', 'f'}[random() % 3];
        QByteArray const text = QByteArray::number(double(value), format, precision);
        QVERIFY2(agrees(text), text.constData());
    }
}

void tst_NumberParsing::everyShortText()
{
    constexpr std::string_view characters = "019.-+e ,";
    constexpr int count = characters.size();
    for (int code = 0; code < count * count * count * count * count; ++code) {
        QByteArray text;
        for (int left = code; left > 0; left /= count)
            text += characters[static_cast<unsigned>(left % count)];
        QVERIFY2(agrees(text), text.constData());
        QVERIFY2(agreesAsInteger(text), text.constData());
    }
}

// The rules themselves, so that a change of Qt's is noticed.
void tst_NumberParsing::toFloat_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<float>("value");
    constexpr float infinity = std::numeric_limits<float>::infinity();
    QTest::newRow("empty") << QByteArray("") << false << 0.0f;
    QTest::newRow("letters") << QByteArray("x") << false << 0.0f;
    QTest::newRow("rubbish behind") << QByteArray("1.5x") << false << 0.0f;
    QTest::newRow("hexadecimal") << QByteArray("0x10") << false << 0.0f;
    QTest::newRow("comma") << QByteArray("1,5") << false << 0.0f;
    QTest::newRow("underflow") << QByteArray("1e-46") << false << 0.0f;
    QTest::newRow("overflow") << QByteArray("1e39") << false << infinity;
    QTest::newRow("negative overflow") << QByteArray("-1e39") << false << -infinity;
    QTest::newRow("infinity") << QByteArray("inf") << true << infinity;
    QTest::newRow("denormal") << QByteArray("1e-45") << true << std::numeric_limits<float>::denorm_min();
    QTest::newRow("blanks") << QByteArray("\t1.5 ") << true << 1.5f;
    QTest::newRow("plus") << QByteArray("+1.5") << true << 1.5f;
    QTest::newRow("no digit behind the point") << QByteArray("1.") << true << 1.0f;
    QTest::newRow("no digit before the point") << QByteArray("-.5") << true << -0.5f;
    // To single precision by way of double: directly it would be 1.00000012.
    QTest::newRow("rounded twice") << QByteArray("1.0000000596046447753906251") << true << 1.0f;
}

void tst_NumberParsing::toFloat()
{
    QFETCH(QByteArray, text);
    QFETCH(float, value);
    bool ok = false;
    float const result = numbers::toFloat(QLatin1StringView(text), &ok);
    QTEST(ok, "ok");
    // QCOMPARE of floats is fuzzy.
    QCOMPARE(std::bit_cast<quint32>(result), std::bit_cast<quint32>(value));
}

void tst_NumberParsing::toInt_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("value");
    QTest::newRow("empty") << QByteArray("") << 0;
    QTest::newRow("letters") << QByteArray("x") << 0;
    QTest::newRow("rubbish behind") << QByteArray("7x") << 0;
    QTest::newRow("decimal point") << QByteArray("7.0") << 0;
    QTest::newRow("hexadecimal") << QByteArray("0x7") << 0;
    QTest::newRow("too great") << QByteArray("2147483648") << 0;
    QTest::newRow("too small") << QByteArray("-2147483649") << 0;
    QTest::newRow("greatest") << QByteArray("2147483647") << 2147483647;
    QTest::newRow("smallest") << QByteArray("-2147483648") << std::numeric_limits<int>::min();
    QTest::newRow("decimal with leading zeros") << QByteArray("010") << 10;
    QTest::newRow("plus") << QByteArray("+7") << 7;
    QTest::newRow("minus") << QByteArray("-7") << -7;
    QTest::newRow("tab") << QByteArray("7\t") << 7;
}

void tst_NumberParsing::toInt()
{
    QFETCH(QByteArray, text);
    QTEST(numbers::toInt(QLatin1StringView(text)), "value");
}

void tst_NumberParsing::takesFloats_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("taken"); // characters, 0 when none
    for (char const* const text : {"1", "-1.5", "+.5", "1.", "1e5", "-1.5e-5", "0.00", "12345678901234567"})
        QTest::newRow(text) << QByteArray(text) << static_cast<int>(strlen(text));
    QTest::newRow("before a space") << QByteArray("1.5 2") << 3;
    QTest::newRow("before a slash") << QByteArray("1.5/2") << 3;
    QTest::newRow("before a letter") << QByteArray("1.5x") << 3;
    QTest::newRow("before a point") << QByteArray("1.5.5") << 3;
    QTest::newRow("before an e after the exponent") << QByteArray("1e5e5") << 3;
    QTest::newRow("before a NUL") << QByteArray("1.5\0", 4) << 3;
    for (char const* const text :
         {"",        " 1",  "x",   "-",   "+",   ".",  "-.",   "e5",    ".e5",
          "1e",      "1e+", "1ex", "nan", "inf", "0x", "1e39", "1e-40", "12345678901234567890",
          "1e12345", "--1"})
        QTest::newRow(text) << QByteArray(text) << (text == QByteArray("0x") ? 1 : 0);
}

void tst_NumberParsing::takesFloats()
{
    QFETCH(QByteArray, text);
    QFETCH(int, taken);
    char const* next = text.constBegin();
    float value = 77;
    QCOMPARE(numbers::takeFloat(next, text.constEnd(), value), taken > 0);
    QCOMPARE(next - text.constBegin(), taken);
    float const expected = taken > 0 ? QString::fromLatin1(text.left(taken)).toFloat() : 77;
    QCOMPARE(std::bit_cast<quint32>(value), std::bit_cast<quint32>(expected));
}

void tst_NumberParsing::takesDigits_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("taken");
    QTest::newRow("empty") << QByteArray("") << 0 << 0;
    QTest::newRow("sign") << QByteArray("-1") << 0 << 0;
    QTest::newRow("letter") << QByteArray("x1") << 0 << 0;
    QTest::newRow("one") << QByteArray("7") << 7 << 1;
    QTest::newRow("zeros") << QByteArray("007/") << 7 << 3;
    QTest::newRow("before a letter") << QByteArray("12x") << 12 << 2;
    QTest::newRow("nine") << QByteArray("999999999") << 999999999 << 9;
    QTest::newRow("ten") << QByteArray("1234567890") << 123456789 << 9;
}

void tst_NumberParsing::takesDigits()
{
    QFETCH(QByteArray, text);
    char const* next = text.constBegin();
    QTEST(numbers::takeDigits(next, text.constEnd()), "value");
    QTEST(int(next - text.constBegin()), "taken");
}

QTEST_APPLESS_MAIN(tst_NumberParsing)
#include "tst_NumberParsing.moc"
