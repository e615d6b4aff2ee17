#include "vmesh/FaceIndex.h"

#include <QtTest>

#include <map>
#include <random>

using vmesh::Face;
using vmesh::FaceIndex;

class tst_FaceIndex : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numbersFacesInTheOrderOfTheirFirstAppearance()
    {
        FaceIndex index(0);
        QCOMPARE(index.find({1, 2, 3}), FaceIndex::none);
        QCOMPARE(index.add({1, 2, 3}), 0u);
        QCOMPARE(index.add({3, 2, 1}), 1u); // the caller sorts
        QCOMPARE(index.add({1, 2, 3}), 0u);
        QCOMPARE(index.add({-1, -1, -1}), 2u);
        QCOMPARE(index.find({-1, -1, -1}), 2u);
        QCOMPARE(index.find({0, 0, 0}), FaceIndex::none);
        QCOMPARE(index.size(), std::size_t(3));
    }

    void agreesWithAMap_data()
    {
        QTest::addColumn<quint64>("seed");
        QTest::newRow("no seed") << quint64(0);
        QTest::newRow("all bits") << ~quint64(0);
        QTest::newRow("of this process") << quint64(QHashSeed::globalSeed());
    }

    // A table that starts with a few slots grows through a great many collisions.
    void agreesWithAMap()
    {
        QFETCH(quint64, seed);
        std::mt19937 random(7);
        std::map<Face, FaceIndex::Number> expected;
        FaceIndex index(1, static_cast<std::size_t>(seed));
        auto const point = [&] { return static_cast<qint32>(random() % 40) - 1; };
        for (int i = 0; i < 20000; ++i) {
            Face const face = {point(), point(), point()};
            auto const [place, isNew] = expected.try_emplace(face, FaceIndex::Number(expected.size()));
            QCOMPARE(index.find(face), isNew ? FaceIndex::none : place->second);
            QCOMPARE(index.add(face), place->second);
        }
        QCOMPARE(index.size(), expected.size());
        for (auto const& [face, number] : expected)
            QCOMPARE(index.find(face), number);
    }
};

QTEST_APPLESS_MAIN(tst_FaceIndex)
#include "tst_FaceIndex.moc"
