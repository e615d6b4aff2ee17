#include "inhouse/math/Operations.h"
#include "support/Meshes.h"

#include <QTest>

#include <limits>

using math::Operations;

namespace {

bool areClose(QVector3D const& a, QVector3D const& b)
{
    return (a - b).length() < 2e-6f;
}

} // namespace

class tst_Operations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void turnsOneDirectionOntoTheOther_data();
    void turnsOneDirectionOntoTheOther();
    void turnsAnyDirectionOntoAnyOther();
    void sameDirectionsNeedNoTurn();
    void usesTheAxisForOppositeDirections_data();
    void usesTheAxisForOppositeDirections();
    void nearlyOppositeDirectionsStayExact();
    void noDirectionNoTurn_data();
    void noDirectionNoTurn();
};

void tst_Operations::turnsOneDirectionOntoTheOther_data()
{
    QTest::addColumn<QVector3D>("from");
    QTest::addColumn<QVector3D>("to");
    QTest::newRow("z to x") << QVector3D(0, 0, 1) << QVector3D(1, 0, 0);
    QTest::newRow("z to -y") << QVector3D(0, 0, 1) << QVector3D(0, -1, 0);
    QTest::newRow("lengths do not matter") << QVector3D(0, 0, 1e-30f) << QVector3D(0, 1e30f, 0);
    QTest::newRow("denormal") << QVector3D(0, 0, std::numeric_limits<float>::denorm_min())
                              << QVector3D(1, 1, 0);
    QTest::newRow("opposite") << QVector3D(0, 0, 1) << QVector3D(0, 0, -2);
}

void tst_Operations::turnsOneDirectionOntoTheOther()
{
    QFETCH(QVector3D, from);
    QFETCH(QVector3D, to);
    QQuaternion const turn = Operations::getRotationTo(from, to, QVector3D(1, 0, 0));
    QVERIFY(qAbs(turn.length() - 1.0f) < 1e-6f);
    QVector3D const unitFrom = from.z() < 1.0f ? QVector3D(0, 0, 1) : from;
    QVERIFY(areClose(turn.rotatedVector(unitFrom), to.y() > 2.0f ? QVector3D(0, 1, 0) : to.normalized()));
}

void tst_Operations::turnsAnyDirectionOntoAnyOther()
{
    std::mt19937 random(7);
    auto const next = [&] { return support::randomFloat(random, 1.0f); };
    for (int i = 0; i < 1000; ++i) {
        QVector3D const from(next(), next(), next());
        QVector3D const to(next(), next(), next());
        QQuaternion const turn = Operations::getRotationTo(from, to, QVector3D(1, 0, 0));
        QVERIFY(areClose(turn.rotatedVector(from.normalized()), to.normalized()));
    }
}

void tst_Operations::sameDirectionsNeedNoTurn()
{
    QCOMPARE(Operations::getRotationTo({0, 0, 1}, {0, 0, 5}, {1, 0, 0}), QQuaternion());
}

void tst_Operations::usesTheAxisForOppositeDirections_data()
{
    QTest::addColumn<QVector3D>("axis");
    QTest::addColumn<QVector3D>("turnedAbout");
    QTest::newRow("x") << QVector3D(1, 0, 0) << QVector3D(1, 0, 0);
    QTest::newRow("y") << QVector3D(0, -3, 0) << QVector3D(0, -1, 0);
    QTest::newRow("made perpendicular") << QVector3D(0, 1, 7) << QVector3D(0, 1, 0);
    QTest::newRow("along the direction") << QVector3D(0, 0, 1) << QVector3D(1, 0, 0);
    QTest::newRow("none") << QVector3D() << QVector3D(1, 0, 0);
}

void tst_Operations::usesTheAxisForOppositeDirections()
{
    QFETCH(QVector3D, axis);
    QFETCH(QVector3D, turnedAbout);
    QQuaternion const turn = Operations::getRotationTo({0, 0, 1}, {0, 0, -1}, axis);
    QCOMPARE(turn, QQuaternion(0, turnedAbout));
    QQuaternion const other = Operations::getRotationTo({1, 0, 0}, {-1, 0, 0}, {1, 0, 0});
    QCOMPARE(other, QQuaternion(0, 0, 1, 0));
}

void tst_Operations::nearlyOppositeDirectionsStayExact()
{
    for (float const tilt : {1e-2f, 1e-3f, 1e-4f, 1e-5f, 1e-6f, 1e-7f, 1e-8f}) {
        QVector3D const to(tilt, 0, -1);
        QQuaternion const turn = Operations::getRotationTo({0, 0, 1}, to, {1, 0, 0});
        QVERIFY(areClose(turn.rotatedVector({0, 0, 1}), to.normalized()));
    }
}

void tst_Operations::noDirectionNoTurn_data()
{
    QTest::addColumn<QVector3D>("from");
    QTest::addColumn<QVector3D>("to");
    float const nan = std::numeric_limits<float>::quiet_NaN();
    float const infinity = std::numeric_limits<float>::infinity();
    QVector3D const z(0, 0, 1);
    QTest::newRow("to nowhere") << z << QVector3D();
    QTest::newRow("from nowhere") << QVector3D() << z;
    QTest::newRow("NaN") << z << QVector3D(nan, 0, 0);
    QTest::newRow("infinity") << QVector3D(0, infinity, 0) << z;
}

void tst_Operations::noDirectionNoTurn()
{
    QFETCH(QVector3D, from);
    QFETCH(QVector3D, to);
    QCOMPARE(Operations::getRotationTo(from, to, {1, 0, 0}), QQuaternion());
}

QTEST_APPLESS_MAIN(tst_Operations)
#include "tst_Operations.moc"
