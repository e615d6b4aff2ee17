#include "obj/PackerModel.h"
#include "obj/RectanglePacker.h"

#include <QTest>

#include <random>
#include <thread>

namespace {

using Rectangle = RectanglePacker::Rectangle;
using Rectangles = std::vector<Rectangle>;
constexpr int maximumSide = 8192;

Rectangles rectanglesOf(QList<QSize> const& sizes)
{
    Rectangles rectangles;
    for (QSize const size : sizes)
        rectangles.push_back({0, 0, size.width(), size.height()});
    return rectangles;
}

QRect toRect(Rectangle const& r)
{
    return {r.x, r.y, r.w, r.h};
}

bool overlapAnywhere(Rectangles const& rectangles)
{
    for (std::size_t i = 0; i < rectangles.size(); ++i)
        for (std::size_t k = 0; k < i; ++k)
            if (toRect(rectangles[i]).intersects(toRect(rectangles[k])))
                return true;
    return false;
}

QRect boundsOf(Rectangles const& rectangles)
{
    QRect bounds;
    for (Rectangle const& r : rectangles)
        if (!toRect(r).isEmpty())
            bounds |= toRect(r);
    return bounds;
}

bool isSamePlace(Rectangle const& a, Rectangle const& b)
{
    return toRect(a) == toRect(b);
}

Rectangles randomRectangles(std::mt19937& random)
{
    // Small sets are the rule; of these some have sides that powers of two share, as textures have.
    unsigned const count = random() % (random() % 8 == 0 ? 40 : 8);
    unsigned const greatest = 1u << (random() % 13);
    bool const arePowers = random() % 3 == 0;
    Rectangles rectangles;
    for (unsigned i = 0; i < count; ++i) {
        auto const side = [&] {
            return static_cast<int>(arePowers ? 1u << (random() % 12) : random() % (greatest + 1));
        };
        int const width = side();
        rectangles.push_back({-7, -7, width, side()});
    }
    return rectangles;
}

} // namespace

class tst_RectanglePacker : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void examples_data();
    void examples();
    void failures_data();
    void failures();
    void firstFailureEndsThePacking();
    void randomSets_data();
    void randomSets();
    void largeSets_data();
    void largeSets();
    void sameInputSameResult();
    void equalSidesKeepTheirOrder();
    void emptyRectanglesTakeNoPart();
    void packsOnSeveralThreads();
};

void tst_RectanglePacker::examples_data()
{
    QTest::addColumn<QList<QSize>>("sizes");
    QTest::addColumn<QList<QRect>>("places");
    QTest::addColumn<QSize>("size");
    using Sizes = QList<QSize>;
    using Places = QList<QRect>;
    QTest::newRow("none") << Sizes{} << Places{} << QSize(0, 0);
    QTest::newRow("one") << Sizes{{100, 50}} << Places{{0, 0, 100, 50}} << QSize(100, 50);
    QTest::newRow("one pixel") << Sizes{{1, 1}} << Places{{0, 0, 1, 1}} << QSize(1, 1);
    QTest::newRow("greatest") << Sizes{{8192, 8192}} << Places{{0, 0, 8192, 8192}} << QSize(8192, 8192);
    QTest::newRow("widest") << Sizes{{8192, 1}} << Places{{0, 0, 8192, 1}} << QSize(8192, 1);
    QTest::newRow("highest") << Sizes{{1, 8192}} << Places{{0, 0, 1, 8192}} << QSize(1, 8192);
    QTest::newRow("two squares") << Sizes{{512, 512}, {512, 512}}
                                 << Places{{0, 0, 512, 512}, {0, 512, 512, 512}} << QSize(512, 1024);
    QTest::newRow("four squares") << Sizes{{512, 512}, {512, 512}, {512, 512}, {512, 512}}
                                  << Places{{0, 0, 512, 512},
                                            {512, 0, 512, 512},
                                            {0, 512, 512, 512},
                                            {512, 512, 512, 512}}
                                  << QSize(1024, 1024);
}

void tst_RectanglePacker::examples()
{
    QFETCH(QList<QSize>, sizes);
    QFETCH(QList<QRect>, places);
    QFETCH(QSize, size);
    Rectangles rectangles = rectanglesOf(sizes);
    RectanglePacker::Result const result = RectanglePacker::pack(rectangles, maximumSide);
    QVERIFY(result.isComplete);
    QCOMPARE(result.size, size);
    QList<QRect> packed;
    for (Rectangle const& r : rectangles)
        packed << toRect(r);
    QCOMPARE(packed, places);
}

void tst_RectanglePacker::failures_data()
{
    QTest::addColumn<QList<QSize>>("sizes");
    QTest::addColumn<int>("side");
    using Sizes = QList<QSize>;
    QTest::newRow("too wide") << Sizes{{8193, 1}} << maximumSide;
    QTest::newRow("too high") << Sizes{{1, 8193}} << maximumSide;
    QTest::newRow("one too wide") << Sizes{{10, 10}, {8193, 10}, {10, 10}} << maximumSide;
    QTest::newRow("two halves and one pixel") << Sizes{{8192, 4096}, {8192, 4096}, {1, 1}} << maximumSide;
    QTest::newRow("area of 2^31") << Sizes{{65536, 32768}} << maximumSide;
    QTest::newRow("area beyond 2^31") << Sizes{{65535, 65535}} << maximumSide;
    QTest::newRow("area of 2^32") << Sizes{{65536, 65536}} << maximumSide;
    QTest::newRow("small bin") << Sizes{{3, 3}, {3, 3}} << 5;
    QTest::newRow("no bin") << Sizes{{1, 1}} << 0;
}

void tst_RectanglePacker::failures()
{
    QFETCH(QList<QSize>, sizes);
    QFETCH(int, side);
    Rectangles rectangles = rectanglesOf(sizes);
    QVERIFY(!RectanglePacker::pack(rectangles, side).isComplete);
}

void tst_RectanglePacker::firstFailureEndsThePacking()
{
    // In order of area: 5 x 4, 9 x 2 (too wide), 2 x 2 (would fit).
    Rectangles rectangles = rectanglesOf({{2, 2}, {9, 2}, {5, 4}});
    RectanglePacker::Result const result = RectanglePacker::pack(rectangles, 8);
    QVERIFY(!result.isComplete);
    QCOMPARE(result.size, QSize(5, 4));
    QCOMPARE(toRect(rectangles[0]), QRect(0, 0, 2, 2));
    QCOMPARE(toRect(rectangles[1]), QRect(0, 0, 9, 2));
    QCOMPARE(toRect(rectangles[2]), QRect(0, 0, 5, 4));
}

void tst_RectanglePacker::randomSets_data()
{
    QTest::addColumn<unsigned int>("seed");
    QTest::addColumn<int>("side");
    for (unsigned int seed = 1; seed <= 8; ++seed)
        QTest::addRow("8192, %u", seed) << seed << maximumSide;
    // Smaller bins, in which sets fail.
    QTest::addRow("1000") << 9u << 1000;
    QTest::addRow("77") << 10u << 77;
}

void tst_RectanglePacker::randomSets()
{
    QFETCH(unsigned int, seed);
    QFETCH(int, side);
    std::mt19937 random(seed);
    for (int i = 0; i < 1000; ++i) {
        Rectangles rectangles = randomRectangles(random);
        Rectangles const input = rectangles;
        RectanglePacker::Result const result = RectanglePacker::pack(rectangles, side);
        packermodel::Packing const model = packermodel::pack(input, side);
        QCOMPARE(result.isComplete, model.isComplete);
        QCOMPARE(result.size, QSize(model.width, model.height));
        QVERIFY(std::equal(rectangles.begin(), rectangles.end(), model.rectangles.begin(),
                           model.rectangles.end(), isSamePlace));
        if (!result.isComplete)
            continue;
        QVERIFY(!overlapAnywhere(rectangles));
        QRect const bounds = boundsOf(rectangles);
        QVERIFY(bounds.isEmpty() || QRect(0, 0, side, side).contains(bounds));
        QCOMPARE(bounds, QRect(QPoint(0, 0), result.size));
        for (std::size_t k = 0; k < input.size(); ++k)
            QCOMPARE(QSize(rectangles[k].w, rectangles[k].h), QSize(input[k].w, input[k].h));
    }
}

void tst_RectanglePacker::largeSets_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("greatest");
    QTest::newRow("of many sizes") << 700 << 200;
    QTest::newRow("of few sizes") << 1500 << 4;
    QTest::newRow("more than fit") << 900 << 1000;
}

void tst_RectanglePacker::largeSets()
{
    QFETCH(int, count);
    QFETCH(int, greatest);
    std::mt19937 random(11);
    auto const side = [&] { return 1 + static_cast<int>(random() % static_cast<unsigned>(greatest)); };
    Rectangles rectangles;
    for (int i = 0; i < count; ++i) {
        int const width = side();
        rectangles.push_back({0, 0, width, side()});
    }
    packermodel::Packing const model = packermodel::pack(rectangles, maximumSide);
    RectanglePacker::Result const result = RectanglePacker::pack(rectangles, maximumSide);
    QCOMPARE(result.isComplete, model.isComplete);
    QCOMPARE(result.size, QSize(model.width, model.height));
    QVERIFY(std::equal(rectangles.begin(), rectangles.end(), model.rectangles.begin(), model.rectangles.end(),
                       isSamePlace));
}

void tst_RectanglePacker::sameInputSameResult()
{
    std::mt19937 random(3);
    for (int i = 0; i < 50; ++i) {
        Rectangles first = randomRectangles(random);
        Rectangles second = first;
        RectanglePacker::Result const a = RectanglePacker::pack(first, maximumSide);
        Rectangles other = randomRectangles(random);
        RectanglePacker::pack(other, maximumSide);
        RectanglePacker::Result const b = RectanglePacker::pack(second, maximumSide);
        QCOMPARE(a.isComplete, b.isComplete);
        QCOMPARE(a.size, b.size);
        QVERIFY(std::equal(first.begin(), first.end(), second.begin(), second.end(), isSamePlace));
    }
}

void tst_RectanglePacker::equalSidesKeepTheirOrder()
{
    Rectangles rectangles(20, {0, 0, 16, 16});
    QVERIFY(RectanglePacker::pack(rectangles, maximumSide).isComplete);
    QCOMPARE(toRect(rectangles.front()), QRect(0, 0, 16, 16));
    packermodel::Packing const model = packermodel::pack(Rectangles(20, {0, 0, 16, 16}), maximumSide);
    QVERIFY(std::equal(rectangles.begin(), rectangles.end(), model.rectangles.begin(), model.rectangles.end(),
                       isSamePlace));
}

void tst_RectanglePacker::emptyRectanglesTakeNoPart()
{
    Rectangles rectangles = {{5, 5, 0, 10}, {5, 5, 20, 10}, {5, 5, 10, 0}, {5, 5, 0, 0}, {5, 5, -3, 4}};
    RectanglePacker::Result const result = RectanglePacker::pack(rectangles, maximumSide);
    QVERIFY(result.isComplete);
    QCOMPARE(result.size, QSize(20, 10));
    for (Rectangle const& r : rectangles)
        QCOMPARE(QPoint(r.x, r.y), QPoint(0, 0));

    Rectangles nothing = {{5, 5, 0, 0}};
    QVERIFY(RectanglePacker::pack(nothing, maximumSide).isComplete);
    QCOMPARE(RectanglePacker::pack(nothing, maximumSide).size, QSize(0, 0));
}

void tst_RectanglePacker::packsOnSeveralThreads()
{
    auto const packMany = [](unsigned int seed, std::vector<QSize>& sizes) {
        std::mt19937 random(seed);
        for (int i = 0; i < 100; ++i) {
            Rectangles rectangles = randomRectangles(random);
            sizes.push_back(RectanglePacker::pack(rectangles, maximumSide).size);
        }
    };
    std::array<std::vector<QSize>, 4> alone;
    std::array<std::vector<QSize>, 4> together;
    std::vector<std::thread> threads;
    for (unsigned int i = 0; i < 4; ++i) {
        packMany(i, alone[i]);
        threads.emplace_back(packMany, i, std::ref(together[i]));
    }
    for (std::thread& thread : threads)
        thread.join();
    QVERIFY(alone == together);
}

QTEST_APPLESS_MAIN(tst_RectanglePacker)
#include "tst_RectanglePacker.moc"
