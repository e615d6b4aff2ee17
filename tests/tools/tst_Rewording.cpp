#include "Rewording.h"

#include <QTest>

#include <array>

using namespace Qt::StringLiterals;
using namespace tool;

// What others say, said for people.
class tst_Rewording : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sentences_data()
    {
        QTest::addColumn<QString>("said");
        QTest::addColumn<QString>("text");
        auto const row = [](char const* name, QString const& said, QString const& text) {
            QTest::newRow(name) << said << text;
        };
        row("no group", u"all of it"_s, u"everything"_s);
        row("one group", u"lost \"a b\""_s, u"a b is gone"_s);
        row("the first row that fits", u"lost \"x\" and \"y\""_s, u"x\" and \"y is gone"_s);
        row("four groups", u"1 2 3 4"_s, u"4 after 3 after 2 after 1"_s);
        row("a group that looks like a place", u"%2 %1 %4 %3"_s, u"%3 after %4 after %1 after %2"_s);
        row("over lines", u"lost \"a\nb\""_s, u"a\nb is gone"_s);
        row("more in front", u"and this is all of it"_s, u"and this is all of it"_s);
        row("more behind", u"all of it."_s, u"all of it."_s);
        row("nothing", u""_s, u""_s);
    }

    void sentences()
    {
        QFETCH(QString, said);
        QFETCH(QString, text);
        static constexpr std::array rows = {
            Rewording{"all of it", "everything"},
            Rewording{"lost \"(.*)\"", "%1 is gone"},
            Rewording{"lost \"(.*)\" and \"(.*)\"", "%1 and %2 are gone"},
            Rewording{"(\\S+) (\\S+) (\\S+) (\\S+)", "%4 after %3 after %2 after %1"},
        };
        QCOMPARE(reworded(said, rows), text);
    }

    void noRows() { QCOMPARE(reworded(u"said"_s, {}), u"said"_s); }
};

QTEST_GUILESS_MAIN(tst_Rewording)
#include "tst_Rewording.moc"
