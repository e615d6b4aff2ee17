#include "inhouse/meshoperations/VarnixSurfaceCleaner.h"
#include "support/Meshes.h"

#include <QTest>

#include <array>
#include <atomic>
#include <chrono>
#include <limits>
#include <random>
#include <thread>

namespace {

constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();
constexpr float infinite = std::numeric_limits<float>::infinity();
std::atomic<bool> const goOn{false};
std::atomic<bool> const stop{true};

struct Soup
{
    QList<QVector3D> vertices;
    QList<int> triangles;
};

bool operator==(Soup const& a, Soup const& b)
{
    return support::bytesOf(a.vertices) == support::bytesOf(b.vertices) && a.triangles == b.triangles;
}

/// What comes out of the cleaner, through the buffers that its users make.
Soup cleaned(Soup soup, bool expected = true, std::atomic<bool> const& cancel = goOn)
{
    VarnixSurfaceCleaner cleaner;
    cleaner.setVertices(reinterpret_cast<float*>(soup.vertices.data()),
                        static_cast<int>(soup.vertices.size()));
    cleaner.setTriangles(soup.triangles.data(), static_cast<int>(soup.triangles.size() / 4));
    if (cleaner.execute(cancel) != expected)
        return {};
    soup.vertices.resize(cleaner.getNumberOfVertices());
    soup.triangles.resize(4 * cleaner.getNumberOfTriangles());
    return soup;
}

bool isSame(QVector3D const& a, QVector3D const& b)
{
    return a.x() == b.x() && a.y() == b.y() && a.z() == b.z();
}

/// The same the slow and obvious way.
Soup model(Soup const& soup)
{
    QList<qsizetype> first;
    for (qsizetype i = 0; i < soup.vertices.size(); ++i) {
        qsizetype j = 0;
        while (j < i && !isSame(soup.vertices[j], soup.vertices[i]))
            ++j;
        first << j;
    }
    QList<std::array<qsizetype, 3>> kept;
    QList<bool> used(soup.vertices.size(), false);
    for (qsizetype t = 0; t < soup.triangles.size(); t += 4) {
        std::array<qsizetype, 3> corners{};
        bool inside = true;
        for (qsizetype c = 0; c < 3; ++c) {
            int const index = soup.triangles[t + c];
            inside = inside && index >= 0 && index < soup.vertices.size();
            corners[static_cast<std::size_t>(c)] = inside ? first[index] : -1;
        }
        if (!inside || corners[0] == corners[1] || corners[1] == corners[2] || corners[2] == corners[0])
            continue;
        kept << corners;
        for (qsizetype const corner : corners)
            used[corner] = true;
    }
    Soup result;
    QList<int> renumbered(soup.vertices.size(), -1);
    for (qsizetype i = 0; i < soup.vertices.size(); ++i)
        if (used[i]) {
            renumbered[i] = static_cast<int>(result.vertices.size());
            result.vertices << soup.vertices[i];
        }
    for (auto const& corners : kept)
        result.triangles << renumbered[corners[0]] << renumbered[corners[1]] << renumbered[corners[2]] << -1;
    return result;
}

/// Few values on each axis, so that much coincides, and everything that a file may hold besides.
Soup randomSoup(std::mt19937& random)
{
    QList<float> const odd = {0.0f,      -0.0f,  notANumber, -notANumber, infinite,
                              -infinite, 1e-45f, 1e30f,      -1.0f};
    auto const below = [&](qsizetype limit) {
        return static_cast<int>(random() % static_cast<unsigned>(limit));
    };
    int const oddness = below(30) + 1;
    int const values = below(12) + 1;
    auto const coordinate = [&] {
        return below(oddness) == 0 ? odd[below(odd.size())] : static_cast<float>(below(values)) * 0.1f;
    };
    Soup soup;
    int const vertexCount = below(60);
    for (int i = 0; i < vertexCount; ++i) {
        float const x = coordinate();
        float const y = coordinate();
        soup.vertices << QVector3D(x, y, coordinate());
    }
    QList<int> const outside = {-1,
                                -2,
                                vertexCount,
                                vertexCount + 1,
                                std::numeric_limits<int>::min(),
                                std::numeric_limits<int>::max()};
    auto const corner = [&] {
        return vertexCount == 0 || below(50) == 0 ? outside[below(outside.size())] : below(vertexCount);
    };
    int const triangleCount = below(80);
    for (int i = 0; i < triangleCount; ++i) {
        int const a = corner();
        int const b = corner();
        soup.triangles << a << b << corner() << -1;
    }
    return soup;
}

/// A strip of squares, each triangle with vertices of its own, as an STL file has it.
Soup ribbon(int squares)
{
    Soup soup;
    for (int i = 0; i < squares; ++i) {
        auto const x = static_cast<float>(i);
        soup.vertices << QVector3D(x, 0, 0) << QVector3D(x + 1, 0, 0) << QVector3D(x + 1, 1, 0);
        soup.vertices << QVector3D(x, 0, 0) << QVector3D(x + 1, 1, 0) << QVector3D(x, 1, 0);
        int const v = 6 * i;
        soup.triangles << v << v + 1 << v + 2 << -1 << v + 3 << v + 4 << v + 5 << -1;
    }
    return soup;
}

} // namespace

class tst_VarnixSurfaceCleaner : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleans_data();
    void cleans();
    void agreesWithTheModel();
    void ribbonIsMerged();
    void cleaningTwiceChangesNothing();
    void writesOnlyTheFront();
    void withoutBuffers_data();
    void withoutBuffers();
    void cancelledBefore();
    void cancelledWithin();
};

void tst_VarnixSurfaceCleaner::cleans_data()
{
    QTest::addColumn<QList<QVector3D>>("vertices");
    QTest::addColumn<QList<int>>("triangles");
    QTest::addColumn<QList<QVector3D>>("cleanVertices");
    QTest::addColumn<QList<int>>("cleanTriangles");

    QVector3D const a(0, 0, 0);
    QVector3D const b(1, 0, 0);
    QVector3D const c(0, 1, 0);
    QVector3D const d(0, 0, 1);
    QVector3D const minusA(-0.0f, 0, -0.0f);
    QVector3D const n(notANumber, 0, 0);
    using Points = QList<QVector3D>;
    using Ints = QList<int>;

    QTest::newRow("nothing") << Points{} << Ints{} << Points{} << Ints{};
    QTest::newRow("clean already") << Points{a, b, c} << Ints{0, 1, 2, -1} << Points{a, b, c}
                                   << Ints{0, 1, 2, -1};
    QTest::newRow("vertices without triangles") << Points{a, b, c} << Ints{} << Points{} << Ints{};
    QTest::newRow("triangles without vertices") << Points{} << Ints{0, 1, 2, -1} << Points{} << Ints{};
    QTest::newRow("soup") << Points{a, b, c, c, b, d} << Ints{0, 1, 2, -1, 3, 4, 5, -1} << Points{a, b, c, d}
                          << Ints{0, 1, 2, -1, 2, 1, 3, -1};
    QTest::newRow("order of the vertices, not of the triangles")
        << Points{d, c, b, a} << Ints{3, 2, 1, -1, 0, 1, 2, -1} << Points{d, c, b, a}
        << Ints{3, 2, 1, -1, 0, 1, 2, -1};
    QTest::newRow("minus zero first") << Points{minusA, b, c, a, c, d} << Ints{0, 1, 2, -1, 3, 4, 5, -1}
                                      << Points{minusA, b, c, d} << Ints{0, 1, 2, -1, 0, 2, 3, -1};
    QTest::newRow("minus zero last") << Points{a, b, c, minusA, c, d} << Ints{0, 1, 2, -1, 3, 4, 5, -1}
                                     << Points{a, b, c, d} << Ints{0, 1, 2, -1, 0, 2, 3, -1};
    QTest::newRow("NaN equals nothing") << Points{n, b, c, n, b, c} << Ints{0, 1, 2, -1, 3, 4, 5, -1}
                                        << Points{n, b, c, n} << Ints{0, 1, 2, -1, 3, 1, 2, -1};
    QTest::newRow("one vertex with NaN twice") << Points{n, b, c} << Ints{0, 0, 1, -1} << Points{} << Ints{};
    QTest::newRow("infinity equals infinity")
        << Points{{infinite, 0, 0}, b, c, {infinite, 0, 0}, c, d} << Ints{0, 1, 2, -1, 3, 4, 5, -1}
        << Points{{infinite, 0, 0}, b, c, d} << Ints{0, 1, 2, -1, 0, 2, 3, -1};
    QTest::newRow("next float is another point")
        << Points{a, b, c, {1e-45f, 0, 0}, b, c} << Ints{0, 1, 2, -1, 3, 4, 5, -1}
        << Points{a, b, c, {1e-45f, 0, 0}} << Ints{0, 1, 2, -1, 3, 1, 2, -1};
    QTest::newRow("degenerate by index")
        << Points{a, b, c} << Ints{0, 1, 1, -1, 0, 1, 2, -1} << Points{a, b, c} << Ints{0, 1, 2, -1};
    QTest::newRow("degenerate first and last corner")
        << Points{a, b} << Ints{0, 1, 0, -1} << Points{} << Ints{};
    QTest::newRow("degenerate by merging")
        << Points{d, a, b, a, c, d} << Ints{1, 2, 3, -1, 0, 2, 4, -1} << Points{d, b, c} << Ints{0, 1, 2, -1};
    QTest::newRow("on one line is not degenerate")
        << Points{a, b, {2, 0, 0}} << Ints{0, 1, 2, -1} << Points{a, b, {2, 0, 0}} << Ints{0, 1, 2, -1};
    QTest::newRow("unused first, amid, last") << Points{d, a, {5, 5, 5}, b, c, {6, 6, 6}} << Ints{1, 3, 4, -1}
                                              << Points{a, b, c} << Ints{0, 1, 2, -1};
    QTest::newRow("first appearance is unused itself")
        << Points{c, d, a, b, c} << Ints{2, 3, 4, -1} << Points{c, a, b} << Ints{1, 2, 0, -1};
    QTest::newRow("used by a dropped triangle only")
        << Points{a, b, c, d} << Ints{3, 3, 0, -1, 0, 1, 2, -1} << Points{a, b, c} << Ints{0, 1, 2, -1};
    QTest::newRow("index too large") << Points{a, b, c} << Ints{0, 1, 3, -1, 0, 1, 2, -1} << Points{a, b, c}
                                     << Ints{0, 1, 2, -1};
    QTest::newRow("index negative") << Points{a, b, c} << Ints{0, -1, 2, -1, 0, 1, 2, -1} << Points{a, b, c}
                                    << Ints{0, 1, 2, -1};
    QTest::newRow("index smallest and largest")
        << Points{a, b, c}
        << Ints{std::numeric_limits<int>::min(), 1, 2, -1, std::numeric_limits<int>::max(), 1, 2, -1}
        << Points{} << Ints{};
    QTest::newRow("fourth entry is not read")
        << Points{a, b, c} << Ints{0, 1, 2, 77} << Points{a, b, c} << Ints{0, 1, 2, -1};
    QTest::newRow("same triangle twice stays twice")
        << Points{a, b, c} << Ints{0, 1, 2, -1, 2, 0, 1, -1, 0, 2, 1, -1} << Points{a, b, c}
        << Ints{0, 1, 2, -1, 2, 0, 1, -1, 0, 2, 1, -1};
}

void tst_VarnixSurfaceCleaner::cleans()
{
    QFETCH(QList<QVector3D>, vertices);
    QFETCH(QList<int>, triangles);
    QFETCH(QList<QVector3D>, cleanVertices);
    QFETCH(QList<int>, cleanTriangles);

    Soup const result = cleaned({vertices, triangles});
    QCOMPARE(support::bytesOf(result.vertices), support::bytesOf(cleanVertices));
    QCOMPARE(result.triangles, cleanTriangles);
    QVERIFY(model({vertices, triangles}) == result);
}

void tst_VarnixSurfaceCleaner::agreesWithTheModel()
{
    std::mt19937 random(20240611);
    for (int i = 0; i < 6000; ++i) {
        Soup const soup = randomSoup(random);
        QVERIFY2(cleaned(soup) == model(soup), qPrintable(QStringLiteral("soup %1").arg(i)));
    }
}

void tst_VarnixSurfaceCleaner::ribbonIsMerged()
{
    constexpr int squares = 50'000;
    Soup const result = cleaned(ribbon(squares));
    QCOMPARE(result.vertices.size(), 2 * (squares + 1));
    QCOMPARE(result.triangles.size(), 8 * squares);
    QCOMPARE(result.triangles.mid(0, 16), (QList<int>{0, 1, 2, -1, 0, 2, 3, -1, 1, 4, 5, -1, 1, 5, 2, -1}));
    QCOMPARE(result.vertices.last(), QVector3D(squares, 1, 0));
}

void tst_VarnixSurfaceCleaner::cleaningTwiceChangesNothing()
{
    std::mt19937 random(7);
    for (int i = 0; i < 500; ++i) {
        Soup const once = cleaned(randomSoup(random));
        QVERIFY(cleaned(once) == once);
    }
}

void tst_VarnixSurfaceCleaner::writesOnlyTheFront()
{
    Soup soup = ribbon(3);
    soup.vertices << QVector3D(-9, -9, -9);
    soup.triangles << 123 << 456 << 789 << 0;
    VarnixSurfaceCleaner cleaner;
    cleaner.setVertices(reinterpret_cast<float*>(soup.vertices.data()), 18);
    cleaner.setTriangles(soup.triangles.data(), 6);
    QVERIFY(cleaner.execute(goOn));
    QCOMPARE(cleaner.getNumberOfVertices(), 8);
    QCOMPARE(cleaner.getNumberOfTriangles(), 6);
    QCOMPARE(soup.vertices.last(), QVector3D(-9, -9, -9));
    QCOMPARE(soup.triangles.mid(24), (QList<int>{123, 456, 789, 0}));
}

void tst_VarnixSurfaceCleaner::withoutBuffers_data()
{
    QTest::addColumn<bool>("hasVertices");
    QTest::addColumn<int>("vertexCount");
    QTest::addColumn<bool>("hasTriangles");
    QTest::addColumn<int>("triangleCount");

    QTest::newRow("no vertices") << false << 3 << true << 1;
    QTest::newRow("no triangles") << true << 3 << false << 1;
    QTest::newRow("neither") << false << 3 << false << 1;
    QTest::newRow("negative vertex count") << true << -1 << true << 1;
    QTest::newRow("negative triangle count") << true << 3 << true << -1;
    QTest::newRow("smallest counts") << true << std::numeric_limits<int>::min() << true
                                     << std::numeric_limits<int>::min();
    QTest::newRow("zero counts") << true << 0 << true << 0;
}

void tst_VarnixSurfaceCleaner::withoutBuffers()
{
    QFETCH(bool, hasVertices);
    QFETCH(int, vertexCount);
    QFETCH(bool, hasTriangles);
    QFETCH(int, triangleCount);

    float vertices[9] = {0, 0, 0, 1, 0, 0, 0, 1, 0};
    int triangles[4] = {0, 1, 2, -1};
    VarnixSurfaceCleaner cleaner;
    QVERIFY(cleaner.execute(goOn));
    cleaner.setVertices(hasVertices ? vertices : nullptr, vertexCount);
    cleaner.setTriangles(hasTriangles ? triangles : nullptr, triangleCount);
    QVERIFY(cleaner.execute(goOn));
    QCOMPARE(cleaner.getNumberOfVertices(), 0);
    QCOMPARE(cleaner.getNumberOfTriangles(), 0);
}

void tst_VarnixSurfaceCleaner::cancelledBefore()
{
    Soup const soup = ribbon(10);
    QVERIFY(cleaned(soup, false, stop) == soup);
    QVERIFY(cleaned({}, false, stop) == Soup{});
}

void tst_VarnixSurfaceCleaner::cancelledWithin()
{
    // Wherever the flag comes in time, nothing has been touched.
    Soup const soup = ribbon(30'000);
    Soup const clean = cleaned(soup);
    for (int microseconds = 0; microseconds < 6000; microseconds += 150) {
        std::atomic<bool> cancel{false};
        Soup work = soup;
        VarnixSurfaceCleaner cleaner;
        cleaner.setVertices(reinterpret_cast<float*>(work.vertices.data()),
                            static_cast<int>(work.vertices.size()));
        cleaner.setTriangles(work.triangles.data(), static_cast<int>(work.triangles.size() / 4));
        std::thread setter([&] {
            std::this_thread::sleep_for(std::chrono::microseconds(microseconds));
            cancel = true;
        });
        bool const done = cleaner.execute(cancel);
        setter.join();
        work.vertices.resize(cleaner.getNumberOfVertices());
        work.triangles.resize(4 * cleaner.getNumberOfTriangles());
        QVERIFY(work == (done ? clean : soup));
    }
}

QTEST_APPLESS_MAIN(tst_VarnixSurfaceCleaner)
#include "tst_VarnixSurfaceCleaner.moc"
