#include "inhouse/data/Conversions.h"
#include "support/Meshes.h"

#include <QTest>

#include <array>
#include <limits>

class tst_Conversions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void points_data();
    void points();
    void pointsKeepTheirBits();
    void ints_data();
    void ints();
    void resultsAreCopies();
};

void tst_Conversions::points_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QList<QVector3D>>("expected");
    QList<QVector3D> const none;

    QTest::newRow("two") << 2 << (QList<QVector3D>{{1, 2, 3}, {4, 5, 6}});
    QTest::newRow("fewer than there are") << 1 << (QList<QVector3D>{{1, 2, 3}});
    QTest::newRow("none") << 0 << none;
    QTest::newRow("negative") << -1 << none;
    QTest::newRow("smallest") << std::numeric_limits<int>::min() << none;
}

void tst_Conversions::points()
{
    QFETCH(int, count);
    std::array<float, 6> const coordinates = {1, 2, 3, 4, 5, 6};
    QTEST(data::Conversions::toVector(coordinates.data(), count), "expected");
    QCOMPARE(data::Conversions::toVector(static_cast<float const*>(nullptr), 0), QList<QVector3D>());
}

void tst_Conversions::pointsKeepTheirBits()
{
    std::array<float, 6> const coordinates = {-0.0f,
                                              std::numeric_limits<float>::quiet_NaN(),
                                              -std::numeric_limits<float>::infinity(),
                                              1e-45f,
                                              3e38f,
                                              0.1f};
    QList<QVector3D> const points = data::Conversions::toVector(coordinates.data(), 2);
    QCOMPARE(support::bytesOf(points), QByteArray(reinterpret_cast<char const*>(coordinates.data()), 24));
}

void tst_Conversions::ints_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QList<int>>("expected");
    QList<int> const none;

    QTest::newRow("four") << 4 << (QList<int>{0, 1, 2, -1});
    QTest::newRow("fewer than there are") << 1 << (QList<int>{0});
    QTest::newRow("none") << 0 << none;
    QTest::newRow("negative") << -1 << none;
    QTest::newRow("smallest") << std::numeric_limits<int>::min() << none;
}

void tst_Conversions::ints()
{
    QFETCH(int, count);
    std::array<int, 4> const values = {0, 1, 2, -1};
    QTEST(data::Conversions::toVector(values.data(), count), "expected");
    QCOMPARE(data::Conversions::toVector(static_cast<int const*>(nullptr), 0), QList<int>());
}

void tst_Conversions::resultsAreCopies()
{
    std::array<int, 2> values = {1, 2};
    std::array<float, 3> coordinates = {1, 2, 3};
    QList<int> const ints = data::Conversions::toVector(values.data(), 2);
    QList<QVector3D> const points = data::Conversions::toVector(coordinates.data(), 1);
    values = {};
    coordinates = {};
    QCOMPARE(ints, (QList<int>{1, 2}));
    QCOMPARE(points, (QList<QVector3D>{{1, 2, 3}}));
}

QTEST_APPLESS_MAIN(tst_Conversions)
#include "tst_Conversions.moc"
