#include "inhouse/meshoperations/VertexMerge_p.h"
#include "support/CollidingPoints.h"
#include "support/Meshes.h"

#include <QTest>

#include <algorithm>
#include <array>
#include <atomic>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

namespace {

using namespace meshoperations;
using support::collidingPoints;

using Points = std::vector<Point>;

constexpr std::size_t noLimit = std::numeric_limits<std::size_t>::max();
std::atomic<bool> const goOn{false};
std::atomic<bool> const stop{true};

VertexSoup soupOf(Points const& points, std::size_t expected)
{
    static_assert(sizeof(Point) == 3 * sizeof(float));
    return {points.empty() ? nullptr : &points.front().x, points.size(), expected};
}

bool sameBits(Points const& a, Points const& b)
{
    auto const bits = [](Point const& p) {
        return std::array<std::uint32_t, 3>{std::bit_cast<std::uint32_t>(p.x),
                                            std::bit_cast<std::uint32_t>(p.y),
                                            std::bit_cast<std::uint32_t>(p.z)};
    };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [&](Point const& p, Point const& q) { return bits(p) == bits(q); });
}

bool operator==(MergedVertices const& a, MergedVertices const& b)
{
    return a.ids == b.ids && sameBits(a.points, b.points);
}

Points randomPoints(std::size_t count)
{
    std::mt19937 random(1);
    Points points(count);
    for (Point& p : points)
        for (float* coordinate : {&p.x, &p.y, &p.z})
            *coordinate = support::randomFloat(random, 80.0f);
    return points;
}

/// A voxel grid: few bits set in each coordinate.
Points gridPoints(std::size_t count, float step)
{
    auto const side = static_cast<std::size_t>(std::ceil(std::cbrt(static_cast<double>(count))));
    Points points;
    for (std::size_t i = 0; i < count; ++i)
        points.push_back({static_cast<float>(i % side) * step, static_cast<float>(i / side % side) * step,
                          static_cast<float>(i / side / side) * step});
    return points;
}

/// Half of the points are the other half mirrored: they differ in one bit.
Points mirroredPoints(std::size_t count)
{
    Points points = randomPoints(count);
    for (std::size_t i = 1; i < count; i += 2)
        points[i] = {-points[i - 1].x, points[i - 1].y, points[i - 1].z};
    return points;
}

Points diagonalPoints(std::size_t count)
{
    Points points;
    for (std::size_t i = 0; i < count; ++i)
        points.push_back({static_cast<float>(i), static_cast<float>(i), static_cast<float>(i)});
    return points;
}

/// Every integer a float can tell apart, in x only.
Points neighbouringFloats(std::size_t count)
{
    Points points;
    for (std::size_t i = 0; i < count; ++i)
        points.push_back({std::bit_cast<float>(static_cast<std::uint32_t>(0x3F800000u + i)), 1.0f, 2.0f});
    return points;
}

/// Each point three times over.
Points tripled(Points const& points)
{
    Points result;
    for (int i = 0; i < 3; ++i)
        result.insert(result.end(), points.begin(), points.end());
    return result;
}

} // namespace

class tst_VertexMerge : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hash();
    void stepsStayFew_data();
    void stepsStayFew();
    void tableGrows();
    void pointsWithNaNTakeNoSteps();
    void craftedCollisions();
    void nearMissesInOneSlot();
    void sortingAgreesWithTheTable();
    void sortingFoldsZeroes();
    void cancelled();
};

void tst_VertexMerge::hash()
{
    QCOMPARE(hashOf({-0.0f, 0.0f, -0.0f}), hashOf({0.0f, -0.0f, 0.0f}));
    QVERIFY(hashOf({1.0f, 2.0f, 3.0f}) != hashOf({1.0f, 3.0f, 2.0f}));
    QVERIFY(hashOf({1.0f, 2.0f, 3.0f}) != hashOf({2.0f, 1.0f, 3.0f}));
    QVERIFY(hashOf({1.0f, 2.0f, 3.0f}) != hashOf({-1.0f, 2.0f, 3.0f}));
    for (Point const& point : collidingPoints(1000, 0xDEADBEEF))
        QCOMPARE(hashOf(point), 0xDEADBEEFu);
}

void tst_VertexMerge::stepsStayFew_data()
{
    QTest::addColumn<Points>("points");
    constexpr std::size_t count = 60'000;
    QTest::newRow("random") << randomPoints(count);
    QTest::newRow("integer grid") << gridPoints(count, 1.0f);
    QTest::newRow("fine grid") << gridPoints(count, 0.1f);
    QTest::newRow("tiny grid") << gridPoints(count, 1e-45f);
    QTest::newRow("mirrored") << mirroredPoints(count);
    QTest::newRow("diagonal") << diagonalPoints(count);
    QTest::newRow("neighbouring floats") << neighbouringFloats(count);
}

void tst_VertexMerge::stepsStayFew()
{
    QFETCH(Points, points);

    // The same number of steps for each vertex at every size: linear.
    for (std::size_t const size : {points.size() / 16, points.size() / 4, points.size()}) {
        Points const soup =
            tripled(Points(points.begin(), points.begin() + static_cast<std::ptrdiff_t>(size)));
        PointTable table(size);
        for (Point const& point : soup)
            table.insert(point, hashOf(point));
        QCOMPARE(table.distinct().size(), size);
        QVERIFY2(table.extraSteps() < 2 * soup.size(), qPrintable(QString::number(table.extraSteps())));
    }
}

void tst_VertexMerge::tableGrows()
{
    Points const points = randomPoints(50'000);
    for (std::size_t const expected :
         {std::size_t(0), std::size_t(1), points.size() / 3, 4 * points.size()}) {
        PointTable table(expected);
        for (std::size_t round = 0; round < 2; ++round)
            for (std::size_t i = 0; i < points.size(); ++i)
                QCOMPARE(table.insert(points[i], hashOf(points[i])), static_cast<int>(i));
        QVERIFY(sameBits(table.distinct(), points));
        QVERIFY(table.extraSteps() < 8 * points.size());
    }
}

void tst_VertexMerge::pointsWithNaNTakeNoSteps()
{
    constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();
    Points const points(50'000, Point{1.0f, notANumber, 2.0f});
    PointTable table(points.size());
    for (std::size_t i = 0; i < points.size(); ++i)
        QCOMPARE(table.insert(points[i], hashOf(points[i])), static_cast<int>(i));
    QCOMPARE(table.extraSteps(), std::size_t(0));
}

void tst_VertexMerge::craftedCollisions()
{
    constexpr std::size_t count = 100'000;
    Points const points = collidingPoints(count, 0x12345678);
    VertexSoup const soup = soupOf(points, points.size());
    MergedVertices merged;
    // A few hundred of them use up the allowance of all; the sort takes over.
    QVERIFY(!mergeByTable(soup, 16 * count, goOn, merged));
    QVERIFY(mergeVertices(soup, goOn, merged));
    QVERIFY(sameBits(merged.points, points));
    for (std::size_t i = 0; i < count; ++i)
        QCOMPARE(merged.ids[i], static_cast<int>(i));
}

void tst_VertexMerge::nearMissesInOneSlot()
{
    // Few enough for the table: every lookup goes through points with its own hash.
    Points const points = tripled(collidingPoints(60, 0xFFFFFFFF));
    MergedVertices merged;
    QVERIFY(mergeByTable(soupOf(points, 60), noLimit, goOn, merged));
    QCOMPARE(merged.points.size(), std::size_t(60));
    for (std::size_t i = 0; i < points.size(); ++i)
        QCOMPARE(merged.ids[i], static_cast<int>(i % 60));
}

void tst_VertexMerge::sortingAgreesWithTheTable()
{
    std::mt19937 random(99);
    constexpr float odd[] = {
        0.0f,  -0.0f, std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(),
        -1.0f, 1e-45f};
    for (int round = 0; round < 400; ++round) {
        Points points(random() % 500);
        unsigned const values = 1 + random() % 9;
        for (Point& p : points)
            for (float* coordinate : {&p.x, &p.y, &p.z})
                *coordinate = random() % 5 == 0 ? odd[random() % std::size(odd)]
                                                : static_cast<float>(random() % values);
        MergedVertices byTable;
        MergedVertices bySorting;
        QVERIFY(mergeByTable(soupOf(points, random() % 100), noLimit, goOn, byTable));
        QVERIFY(mergeBySorting(soupOf(points, 0), goOn, bySorting));
        QVERIFY(byTable == bySorting);
    }
    Points const points = tripled(mirroredPoints(20'000));
    MergedVertices byTable;
    MergedVertices bySorting;
    QVERIFY(mergeByTable(soupOf(points, 20'000), noLimit, goOn, byTable));
    QVERIFY(mergeBySorting(soupOf(points, 0), goOn, bySorting));
    QVERIFY(byTable == bySorting);
}

void tst_VertexMerge::sortingFoldsZeroes()
{
    Points const points = {{-0.0f, 1, 2}, {0.0f, 1, 2}, {1, -0.0f, 0}, {1, 0, -0.0f}};
    MergedVertices merged;
    QVERIFY(mergeBySorting(soupOf(points, 4), goOn, merged));
    QCOMPARE(merged.ids, (std::vector<int>{0, 0, 1, 1}));
    QVERIFY(sameBits(merged.points, {points[0], points[2]}));
}

void tst_VertexMerge::cancelled()
{
    Points const points = randomPoints(100);
    VertexSoup const soup = soupOf(points, 100);
    MergedVertices merged;
    QVERIFY(!mergeByTable(soup, noLimit, stop, merged));
    QVERIFY(!mergeBySorting(soup, stop, merged));
    QVERIFY(!mergeVertices(soup, stop, merged));
}

QTEST_APPLESS_MAIN(tst_VertexMerge)
#include "tst_VertexMerge.moc"
