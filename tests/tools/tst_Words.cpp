#include "volume/Words.h"

#include <QTest>

using namespace Qt::StringLiterals;
using tool::volume::coordinateIn;
using tool::volume::integerIn;
using tool::volume::Words;

class tst_Words : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wordsAndLines()
    {
        Words words(" a\tbc \r\n\n\n d\x0b"
                    "e\nf");
        QList<QPair<QByteArray, qint64>> found;
        while (words.next())
            found << qMakePair(words.word().toByteArray(), words.line());
        QCOMPARE(found,
                 (QList<QPair<QByteArray, qint64>>{{"a", 1}, {"bc", 1}, {"d", 4}, {"e", 4}, {"f", 5}}));
        QVERIFY(words.atEnd());
        QVERIFY(words.word().isEmpty());
        QVERIFY(!words.next());
    }

    void wordsOfALine()
    {
        Words words("a b\nc");
        QVERIFY(words.nextInLine());
        QVERIFY(words.nextInLine());
        QVERIFY(!words.nextInLine());
        QVERIFY(!words.nextInLine());
        QVERIFY(words.word().isEmpty());
        QVERIFY(words.next());
        QCOMPARE(words.word().toByteArray(), QByteArray("c"));
        QVERIFY(!words.nextInLine());
    }

    void linesAndParagraphs()
    {
        Words words("a b\n\nc d\ne\n \t\r\nf");
        words.next();
        QVERIFY(words.nextLine());
        QCOMPARE(words.line(), 2);
        words.next();
        QCOMPARE(words.word().toByteArray(), QByteArray("c"));
        words.skipParagraph();
        words.next();
        QCOMPARE(words.word().toByteArray(), QByteArray("f"));
        QVERIFY(!words.nextLine());
        words.skipParagraph();
        QVERIFY(words.atEnd());
    }

    void whatWasExpected()
    {
        QByteArray const text = "a\n  b c  \r\n" + QByteArray(100, 'x');
        Words words(text);
        words.next();
        words.next();
        QCOMPARE(words.expected(u"d"_s), u"line 2: expected d, found \"b\""_s);
        QCOMPARE(words.expectedLine(u"d"_s), u"line 2: expected d, found \"b c\""_s);
        words.next();
        words.next();
        QCOMPARE(words.expectedLine(u"d"_s), u"line 3: expected d, found \"%1\""_s.arg(QString(60, u'x')));
        words.next();
        QCOMPARE(words.expected(u"d"_s), u"the file ends in line 3: expected d"_s);
        QCOMPARE(Words({}).expectedLine(u"d"_s), u"the file ends in line 1: expected d"_s);
    }

    void integers_data()
    {
        QTest::addColumn<QByteArray>("word");
        QTest::addColumn<bool>("isNumber");
        QTest::addColumn<qint64>("value");
        auto const row = [](char const* word, bool isNumber, qint64 value = 0) {
            QTest::newRow(word) << QByteArray(word) << isNumber << value;
        };
        row("0", true, 0);
        row("-17", true, -17);
        row("9223372036854775807", true, 9223372036854775807LL);
        row("9223372036854775808", false);
        row("+1", false);
        row("1.0", false);
        row("0x10", false);
        row("1 ", false);
        row("", false);
        row("-", false);
    }

    void integers()
    {
        QFETCH(QByteArray, word);
        QFETCH(bool, isNumber);
        auto const number = integerIn(word);
        QCOMPARE(number.has_value(), isNumber);
        QTEST(number.value_or(0), "value");
    }

    void coordinates_data()
    {
        QTest::addColumn<QByteArray>("word");
        QTest::addColumn<bool>("isNumber");
        QTest::addColumn<float>("value");
        auto const row = [](char const* word, bool isNumber, float value = 0) {
            QTest::newRow(word) << QByteArray(word) << isNumber << value;
        };
        row("1.25", true, 1.25F);
        row("-3.0102040816326530e+00", true, -3.0102040816326530F);
        row("1e-60", true, 0);
        row("-0", true, 0);
        row(".5", true, 0.5F);
        row("1e39", false);
        row("nan", false);
        row("inf", false);
        row("1,5", false);
        row("+1", false);
        row("1d0", false);
        row("", false);
    }

    void coordinates()
    {
        QFETCH(QByteArray, word);
        QFETCH(bool, isNumber);
        auto const number = coordinateIn(word);
        QCOMPARE(number.has_value(), isNumber);
        QTEST(number.value_or(0.0F), "value");
    }
};

QTEST_GUILESS_MAIN(tst_Words)
#include "tst_Words.moc"
