// The factory against a catalogue of this test's own, which takes the place of the in-house one: functions
// that a program defines itself go before those of a shared library.
#include "inhouse/catalogue/DistractorCatalog.h"
#include "inhouse/core/ApplicationParametersManagerImpl.h"
#include "scene/DistractorFactory.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QList<int> partCounts;
QStringList calls;

} // namespace

QString DistractorCatalog::getProductName(QString const& productId)
{
    calls << u"name of "_s + productId;
    return u"Name"_s;
}

int DistractorCatalog::getNumParts(QString const& productId)
{
    calls << u"parts of "_s + productId;
    return partCounts.size() > 1 ? partCounts.takeFirst() : partCounts.first();
}

QVector3D DistractorCatalog::getDefaultAlignmentDirection(QString const& productId)
{
    calls << u"direction of "_s + productId;
    return {0, 0, 1};
}

QMatrix4x4 DistractorCatalog::getObjectSpaceTransform(QString const& productId)
{
    calls << u"transform of "_s + productId;
    return {};
}

class tst_DistractorFactoryCatalogue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void asksForTheCountAfterEachPart_data();
    void asksForTheCountAfterEachPart();
};

void tst_DistractorFactoryCatalogue::asksForTheCountAfterEachPart_data()
{
    QTest::addColumn<QList<int>>("counts");
    QTest::addColumn<int>("parts");
    QTest::newRow("constant") << QList<int>{2} << 2;
    QTest::newRow("grows") << QList<int>{1, 2, 3, 4, 4} << 4;
    QTest::newRow("shrinks") << QList<int>{5, 5, 1} << 2;
    QTest::newRow("none") << QList<int>{0} << 0;
    QTest::newRow("negative") << QList<int>{-3} << 0;
}

void tst_DistractorFactoryCatalogue::asksForTheCountAfterEachPart()
{
    QFETCH(QList<int>, counts);
    QFETCH(int, parts);
    partCounts = counts;
    calls.clear();
    QTest::ignoreMessage(QtWarningMsg, "Could not open /distractors/p.xml");
    QTest::ignoreMessage(QtWarningMsg, "DistractorFactory : unable to read distractor file from disk ( "
                                       "\"/distractors/p.xml\" )");
    auto const distractor = DistractorFactory::createDistractor(u"p"_s);
    QCOMPARE(distractor->getRoot()->getChildren().size(), static_cast<std::size_t>(parts));
    QCOMPARE(distractor->getProductName(), u"Name"_s);
    QCOMPARE(calls, QStringList{u"name of p"_s} + QStringList(parts + 1, u"parts of p"_s) +
                        (QStringList{u"direction of p"_s, u"transform of p"_s}));
}

QTEST_APPLESS_MAIN(tst_DistractorFactoryCatalogue)
#include "tst_DistractorFactoryCatalogue.moc"
