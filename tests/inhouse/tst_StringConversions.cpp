#include "inhouse/fundamentals/StringConversions.h"

#include <QTest>

class tst_StringConversions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ints_data();
    void ints();
    void boolsToText();
    void textToBools_data();
    void textToBools();
};

void tst_StringConversions::ints_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("expected");
    constexpr int fallback = -77;
    auto const row = [](char const* text, int expected) {
        QTest::newRow(text) << QString::fromUtf8(text) << expected;
    };

    row("0", 0);
    row("42", 42);
    row("-42", -42);
    row("+7", 7);
    row("007", 7);
    row(" 12 ", 12);
    row("2147483647", 2147483647);
    row("-2147483648", -2147483647 - 1);
    row("2147483648", fallback);
    row("-2147483649", fallback);
    row("99999999999999999999", fallback);
    row("", fallback);
    row(" ", fallback);
    row("-", fallback);
    row("1.5", fallback);
    row("1e3", fallback);
    row("0x10", fallback);
    row("12a", fallback);
    row("1 2", fallback);
    row("1.000", fallback);
    row("1,000", fallback);
    row("١٢", fallback);
}

void tst_StringConversions::ints()
{
    QFETCH(QString, text);
    QTEST(StringConversions::stringToInt(text, -77), "expected");
}

void tst_StringConversions::boolsToText()
{
    QCOMPARE(StringConversions::boolToString(true), QStringLiteral("true"));
    QCOMPARE(StringConversions::boolToString(false), QStringLiteral("false"));
}

void tst_StringConversions::textToBools_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("expected");
    auto const row = [](char const* text, bool expected) {
        QTest::newRow(text) << QString::fromUtf8(text) << expected;
    };

    row("true", true);
    row("TRUE", true);
    row("True", true);
    row("tRuE", true);
    row("1", true);
    row("false", false);
    row("FALSE", false);
    row("0", false);
    row("", false);
    row("2", false);
    row("-1", false);
    row("01", false);
    row("1.0", false);
    row(" true", false);
    row("true ", false);
    row(" 1", false);
    row("yes", false);
    row("on", false);
    row("truer", false);
    row("t", false);
}

void tst_StringConversions::textToBools()
{
    QFETCH(QString, text);
    QTEST(StringConversions::stringToBool(text), "expected");
}

QTEST_APPLESS_MAIN(tst_StringConversions)
#include "tst_StringConversions.moc"
