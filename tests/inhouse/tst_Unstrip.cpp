#include "inhouse/data/Unstrip.h"
#include "support/Meshes.h"

#include <QTest>

#include <array>
#include <random>

namespace {

using geometry::Mesh;
using Ints = QList<int>;

Ints unstripped(Ints const& indices)
{
    return geometry::unstrip(Mesh({}, indices)).indices;
}

} // namespace

class tst_Unstrip : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void expands_data();
    void expands();
    void trianglesComeBackUnchanged();
    void otherListsStay();
    void theArgumentStays();
    void windingIsKept();
    void isIdempotent();
};

void tst_Unstrip::expands_data()
{
    QTest::addColumn<Ints>("strips");
    QTest::addColumn<Ints>("triangles");

    QTest::newRow("nothing") << Ints{} << Ints{};
    QTest::newRow("one triangle") << Ints{0, 1, 2, -1} << Ints{0, 1, 2, -1};
    QTest::newRow("two triangles") << Ints{0, 1, 2, -1, 2, 1, 3, -1} << Ints{0, 1, 2, -1, 2, 1, 3, -1};
    QTest::newRow("strip of four") << Ints{0, 1, 2, 3, -1} << Ints{0, 1, 2, -1, 2, 1, 3, -1};
    QTest::newRow("strip of five") << Ints{0, 1, 2, 3, 4, -1} << Ints{0, 1, 2, -1, 2, 1, 3, -1, 2, 3, 4, -1};
    QTest::newRow("strip of six") << Ints{9, 8, 7, 6, 5, 4, -1}
                                  << Ints{9, 8, 7, -1, 7, 8, 6, -1, 7, 6, 5, -1, 5, 6, 4, -1};
    QTest::newRow("winding starts anew")
        << Ints{0, 1, 2, 3, -1, 4, 5, 6, 7, -1} << Ints{0, 1, 2, -1, 2, 1, 3, -1, 4, 5, 6, -1, 6, 5, 7, -1};
    QTest::newRow("triangle, then strip")
        << Ints{0, 1, 2, -1, 3, 4, 5, 6, -1} << Ints{0, 1, 2, -1, 3, 4, 5, -1, 5, 4, 6, -1};
    QTest::newRow("last marker missing") << Ints{0, 1, 2} << Ints{0, 1, 2, -1};
    QTest::newRow("last marker missing, four") << Ints{0, 1, 2, 3} << Ints{0, 1, 2, -1, 2, 1, 3, -1};
    QTest::newRow("two indices") << Ints{0, 1, -1} << Ints{};
    QTest::newRow("one index") << Ints{0, -1} << Ints{};
    QTest::newRow("two indices, no marker") << Ints{0, 1} << Ints{};
    QTest::newRow("markers only") << Ints{-1, -1, -1, -1} << Ints{};
    QTest::newRow("short strips between")
        << Ints{-1, 0, 1, -1, 2, 3, 4, -1, 5, -1, -1, 6, 7, 8, -1} << Ints{2, 3, 4, -1, 6, 7, 8, -1};
    QTest::newRow("markers out of step") << Ints{-1, 0, 1, 2, -1, 3, 4, 5} << Ints{0, 1, 2, -1, 3, 4, 5, -1};
    QTest::newRow("corner repeated to turn the strip")
        << Ints{0, 1, 2, 2, 3, -1} << Ints{0, 1, 2, -1, 2, 1, 2, -1, 2, 2, 3, -1};
    QTest::newRow("other negative entries end nothing")
        << Ints{-2, 1, -3, 4, -1} << Ints{-2, 1, -3, -1, -3, 1, 4, -1};
}

void tst_Unstrip::expands()
{
    QFETCH(Ints, strips);
    QTEST(unstripped(strips), "triangles");
}

void tst_Unstrip::trianglesComeBackUnchanged()
{
    Mesh const cube = support::cube();
    Mesh const result = geometry::unstrip(cube);
    QVERIFY(support::sameBits(result, cube));
    // Nothing was copied either.
    QCOMPARE(result.getIndices(), cube.getIndices());
}

void tst_Unstrip::otherListsStay()
{
    Mesh mesh({{1, 2, 3}}, {0, 1, 2, 3, -1}, {{4, 5, 6}}, QList<unsigned int>{7});
    mesh.textureCoordinates = {{8, 9}};
    Mesh result = geometry::unstrip(mesh);
    QCOMPARE(result.indices, (Ints{0, 1, 2, -1, 2, 1, 3, -1}));
    result.indices = mesh.indices;
    QVERIFY(support::sameBits(result, mesh));
}

void tst_Unstrip::theArgumentStays()
{
    Mesh const mesh({}, {0, 1, 2, 3, -1});
    QCOMPARE(geometry::unstrip(mesh).indices.size(), 8);
    QCOMPARE(mesh.indices, (Ints{0, 1, 2, 3, -1}));
}

void tst_Unstrip::windingIsKept()
{
    // A zigzag strip in the plane: every triangle of it turns the same way.
    Ints strip;
    for (int i = 0; i < 101; ++i)
        strip << i;
    auto const point = [](int i) { return std::array<int, 2>{i, i % 2}; };
    Ints const triangles = unstripped(strip);
    QCOMPARE(triangles.size(), 4 * 99);
    for (qsizetype i = 0; i < triangles.size(); i += 4) {
        auto const a = point(triangles[i]);
        auto const b = point(triangles[i + 1]);
        auto const c = point(triangles[i + 2]);
        int const twiceTheArea = (b[0] - a[0]) * (c[1] - a[1]) - (b[1] - a[1]) * (c[0] - a[0]);
        QCOMPARE(twiceTheArea, -2);
    }
}

void tst_Unstrip::isIdempotent()
{
    std::mt19937 random(1);
    for (int i = 0; i < 300; ++i) {
        Ints strips;
        for (auto length = random() % 40; length > 0; --length)
            strips << (random() % 4 == 0 ? -1 : static_cast<int>(random() % 9));
        Ints const once = unstripped(strips);
        QCOMPARE(unstripped(once), once);
        QCOMPARE(once.size() % 4, 0);
    }
}

QTEST_APPLESS_MAIN(tst_Unstrip)
#include "tst_Unstrip.moc"
