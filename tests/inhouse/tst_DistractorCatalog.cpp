#include "inhouse/catalogue/DistractorCatalog.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_DistractorCatalog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void knowsItsProducts_data();
    void knowsItsProducts();
    void unknownIdsAreEmpty_data();
    void unknownIdsAreEmpty();
    void takesProducts();
};

void tst_DistractorCatalog::knowsItsProducts_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QMatrix4x4>("transform");
    QTest::newRow("left") << u"73-418-55-02"_s << u"Maxilla telescoping distractor, left"_s
                          << QMatrix4x4(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, -12.5f, 0, 0, 0, 1);
    QTest::newRow("right") << u"73-419-55-02"_s << u"Maxilla telescoping distractor, right"_s
                           << QMatrix4x4(-1, 0, 0, 0, 0, -1, 0, 0, 0, 0, 1, -12.5f, 0, 0, 0, 1);
}

void tst_DistractorCatalog::knowsItsProducts()
{
    QFETCH(QString, id);
    QFETCH(QString, name);
    QFETCH(QMatrix4x4, transform);
    QCOMPARE(DistractorCatalog::getProductName(id), name);
    QCOMPARE(DistractorCatalog::getNumParts(id), 14);
    QCOMPARE(DistractorCatalog::getDefaultAlignmentDirection(id), QVector3D(0, -1, 0));
    QCOMPARE(DistractorCatalog::getObjectSpaceTransform(id), transform);
}

void tst_DistractorCatalog::unknownIdsAreEmpty_data()
{
    QTest::addColumn<QString>("id");
    QTest::newRow("null") << QString();
    QTest::newRow("unknown") << u"73-420-55-02"_s;
    QTest::newRow("a blank more") << u"73-418-55-02 "_s;
}

void tst_DistractorCatalog::unknownIdsAreEmpty()
{
    QFETCH(QString, id);
    QVERIFY(DistractorCatalog::getProductName(id).isEmpty());
    QCOMPARE(DistractorCatalog::getNumParts(id), 0);
    QCOMPARE(DistractorCatalog::getDefaultAlignmentDirection(id), QVector3D());
    QVERIFY(DistractorCatalog::getObjectSpaceTransform(id).isIdentity());
}

void tst_DistractorCatalog::takesProducts()
{
    QMatrix4x4 transform;
    transform.translate(1, 2, 3);
    DistractorCatalog::addProduct(u"own"_s, {u"Own"_s, 3, QVector3D(1, 0, 0), transform});
    QCOMPARE(DistractorCatalog::getProductName(u"own"_s), u"Own"_s);
    QCOMPARE(DistractorCatalog::getNumParts(u"own"_s), 3);
    QCOMPARE(DistractorCatalog::getDefaultAlignmentDirection(u"own"_s), QVector3D(1, 0, 0));
    QCOMPARE(DistractorCatalog::getObjectSpaceTransform(u"own"_s), transform);
    DistractorCatalog::addProduct(u"own"_s, {u"Other"_s, 4, QVector3D(), QMatrix4x4()});
    QCOMPARE(DistractorCatalog::getProductName(u"own"_s), u"Other"_s);
    QCOMPARE(DistractorCatalog::getNumParts(u"own"_s), 4);
}

QTEST_APPLESS_MAIN(tst_DistractorCatalog)
#include "tst_DistractorCatalog.moc"
