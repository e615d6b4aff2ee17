#include "Text.h"
#include "UsageText.h"

#include <QTest>
#include <QTranslator>

using namespace Qt::StringLiterals;
using tool::Text;

namespace {

// A language in which a text is what it was, with its plural in front, as a catalogue would say it.
class Marked : public QTranslator
{
public:
    QString translate(char const* context, char const* text, char const*, int count) const override
    {
        if (qstrcmp(context, "Text") != 0)
            return {};
        QString const plural = count < 0 ? u"?"_s : QString::number(count % 1000);
        return plural + u'|' + QString::fromUtf8(text).remove(u"(s)"_s);
    }
    bool isEmpty() const override { return false; }
};

} // namespace

class tst_Text : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void english_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<qint64>("count");
        QTest::addColumn<QString>("shown");
        QTest::newRow("none") << QByteArray("%n edge(s)") << qint64(0) << u"0 edges"_s;
        QTest::newRow("one") << QByteArray("%n edge(s)") << qint64(1) << u"1 edge"_s;
        QTest::newRow("two") << QByteArray("%n edge(s)") << qint64(2) << u"2 edges"_s;
        QTest::newRow("one of two words")
            << QByteArray("%n vert(ex|ices) (is|are) lost") << qint64(1) << u"1 vertex is lost"_s;
        QTest::newRow("many of two words")
            << QByteArray("%n vert(ex|ices) (is|are) lost") << qint64(101) << u"101 vertices are lost"_s;
        QTest::newRow("no plural") << QByteArray(", and %n more (at most)") << qint64(1)
                                   << u", and 1 more (at most)"_s;
        QTest::newRow("beyond int") << QByteArray("%n byte(s)") << qint64(4294967296)
                                    << u"4294967296 bytes"_s;
        QTest::newRow("a round number")
            << QByteArray("%n byte(s)") << qint64(3'000'000) << u"3000000 bytes"_s;
    }

    void english()
    {
        QFETCH(QByteArray, text);
        QFETCH(qint64, count);
        QFETCH(QString, shown);
        QCOMPARE(Text::counted(text.constData(), nullptr, count), shown);
    }

    // The plural of a number that Qt cannot count to is that of its last digits.
    void translated()
    {
        Marked translator;
        QCoreApplication::installTranslator(&translator);
        QCOMPARE(Text::tr("no facets"), u"?|no facets"_s);
        QCOMPARE(Text::utf8("no facets"), std::string("?|no facets"));
        QCOMPARE(Text::shown("no facets"_L1), u"?|no facets"_s);
        QCOMPARE(Text::counted("%n edge(s)", nullptr, 2), u"2|2 edge"_s);
        QCOMPARE(Text::counted("%n edge(s)", nullptr, 4'294'967'305), u"305|4294967305 edge"_s);
        QCoreApplication::removeTranslator(&translator);
    }

    // Without a catalogue CLI11 is repeated word for word, known or not.
    void usage_data()
    {
        QTest::addColumn<QString>("said");
        for (char const* const said :
             {"A subcommand is required", "FILE is required", "The following argument was not expected: --x",
              "The following arguments were not expected: %1 %2", "--size: 1 required INT missing",
              "--color: red not in {auto,always,never}", "--size: Value 5 not in range 16 to 4096",
              "--size: Value %3 not in range 16 to 4096", "--size: Value  not in range 16 to 4096",
              "Could not convert: --size = %2", "--json: Should be true/false or a number",
              "--directory requires --to", "--a excludes --b",
              "expected IN and OUT, or --to SUFFIX for several files; found 3 files", ""})
            QTest::newRow(said) << QString::fromLatin1(said);
    }

    void usage()
    {
        QFETCH(QString, said);
        QCOMPARE(tool::usageSentence(said), said);
    }
};

QTEST_GUILESS_MAIN(tst_Text)
#include "tst_Text.moc"
