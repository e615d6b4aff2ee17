#include "obj/OBJCornerMap.h"

#include <QTest>

#include <random>

namespace {

using Corner = OBJReader::VertexIndices;

} // namespace

class tst_OBJCornerMap : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsEmpty();
    void numbersInOrder();
    void everyIndexCounts();
    void agreesWithAnOrderedMap_data();
    void agreesWithAnOrderedMap();
    void manyCornersAtOnePosition();
};

void tst_OBJCornerMap::startsEmpty()
{
    OBJCornerMap const map(3);
    for (int vertex = 0; vertex < 3; ++vertex)
        QCOMPARE(map.find({vertex, 0, 0, 0}), -1);
}

void tst_OBJCornerMap::numbersInOrder()
{
    OBJCornerMap map(3);
    QCOMPARE(map.insert({2, 0, 0, 0}), 0);
    QCOMPARE(map.insert({0, 0, 0, 0}), 1);
    QCOMPARE(map.insert({2, 1, 0, 0}), 2);
    QCOMPARE(map.find({2, 0, 0, 0}), 0);
    QCOMPARE(map.find({0, 0, 0, 0}), 1);
    QCOMPARE(map.find({2, 1, 0, 0}), 2);
    QCOMPARE(map.find({1, 0, 0, 0}), -1);
}

void tst_OBJCornerMap::everyIndexCounts()
{
    OBJCornerMap map(2);
    QCOMPARE(map.insert({0, 1, 2, 3}), 0);
    QCOMPARE(map.find({1, 1, 2, 3}), -1);
    QCOMPARE(map.find({0, 2, 2, 3}), -1);
    QCOMPARE(map.find({0, 1, 3, 3}), -1);
    QCOMPARE(map.find({0, 1, 2, 4}), -1);
    QCOMPARE(map.find({0, -1, -1, 3}), -1);
}

void tst_OBJCornerMap::agreesWithAnOrderedMap_data()
{
    QTest::addColumn<unsigned int>("vertices");
    QTest::addColumn<unsigned int>("others");
    QTest::newRow("short chains") << 5000u << 3u;
    QTest::newRow("at the longest chain") << 100u << 3u;
    QTest::newRow("beyond the longest chain") << 20u << 30u;
    QTest::newRow("one position") << 1u << 100u;
}

void tst_OBJCornerMap::agreesWithAnOrderedMap()
{
    QFETCH(unsigned int, vertices);
    QFETCH(unsigned int, others);
    std::mt19937 random(11);
    auto const below = [&](unsigned int limit) { return static_cast<int>(random() % limit); };
    OBJCornerMap map(vertices);
    std::map<Corner, int> model;
    for (int i = 0; i < 50000; ++i) {
        Corner const corner{below(vertices), below(others) - 1, below(others) - 1, below(2)};
        auto const known = model.find(corner);
        QCOMPARE(map.find(corner), known == model.end() ? -1 : known->second);
        if (known == model.end()) {
            int const ordinal = static_cast<int>(model.size());
            model.emplace(corner, ordinal);
            QCOMPARE(map.insert(corner), ordinal);
        }
    }
}

// A chain without an end would take minutes here.
void tst_OBJCornerMap::manyCornersAtOnePosition()
{
    constexpr int count = 300000;
    OBJCornerMap map(1);
    for (int i = 0; i < count; ++i) {
        QCOMPARE(map.find({0, i, 0, 0}), -1);
        QCOMPARE(map.insert({0, i, 0, 0}), i);
    }
    for (int i = 0; i < count; i += 997)
        QCOMPARE(map.find({0, i, 0, 0}), i);
}

QTEST_APPLESS_MAIN(tst_OBJCornerMap)
#include "tst_OBJCornerMap.moc"
