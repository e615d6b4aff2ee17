#include "inhouse/data/STLSurfaceData.h"
#include "stl/STLReader.h"
#include "stl/STLTagHandler.h"
#include "support/Meshes.h"
#include "support/StlFiles.h"

#include <QBuffer>
#include <QtTest>

#include <memory>

using support::binaryStl;
using support::cornersOf;
using support::facetBytes;
using support::loneFacet;
using support::StlFacet;
using support::wrappingCount;

namespace {

std::atomic<bool> const never = false;
std::atomic<bool> const always = true;

QList<StlFacet> loneFacets(int count)
{
    QList<StlFacet> facets;
    for (int i = 0; i < count; ++i)
        facets << loneFacet(i, 5, 3);
    return facets;
}

QByteArray tail(qsizetype bytes)
{
    return QByteArray(bytes, '\1');
}

} // namespace

class tst_STLReaderBinary : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void facets_data();
    void facets();
    void anyHeader_data();
    void anyHeader();
    void length_data();
    void length();
    void countThatWraps_data();
    void countThatWraps();
    void facetCutShort();
    void headerThatStartsWithSolid();
    void facetNormalsAreNotUsed();
    void attributesMeanNothingWithoutTags();
    void coordinatesAreExact();
    void failureKeepsTheSurfaces();
    void successReplacesTheSurfaces();
    void cancelStopsADevice();
    void cancelDoesNotStopBytes();
};

void tst_STLReaderBinary::facets_data()
{
    QTest::addColumn<int>("count");
    for (int const count : {0, 1, 2, 3, 100, 5000})
        QTest::addRow("%d", count) << count;
}

void tst_STLReaderBinary::facets()
{
    QFETCH(int, count);
    QList<StlFacet> const facets = loneFacets(count);
    STLReader reader(nullptr, false, {});
    QVERIFY(reader.read(binaryStl(facets), never));

    geometry::Mesh const mesh = reader.getMesh();
    QCOMPARE(cornersOf(mesh), cornersOf(facets));
    QCOMPARE(mesh.indices.size(), 4 * count);
    for (qsizetype i = 3; i < mesh.indices.size(); i += 4)
        QCOMPARE(mesh.indices.at(i), -1);
    QCOMPARE(reader.getTransform(), QMatrix4x4());

    QList<STLSurfaceData*> const surfaces = reader.takeSTLSurfaceDataSets();
    QCOMPARE(surfaces.size(), 1);
    std::unique_ptr<STLSurfaceData> const surface(surfaces.first());
    QCOMPARE(surface->getTag(), 0);
    QCOMPARE(surface->getSubTag(), -1);
    QVERIFY(support::sameBits(surface->getMesh(), mesh));
}

void tst_STLReaderBinary::anyHeader_data()
{
    QTest::addColumn<QByteArray>("start");
    QTest::newRow("zeros") << QByteArray();
    QTest::newRow("text") << QByteArray("Exported from a program");
    QTest::newRow("other letter case") << QByteArray("Solid thing");
    QTest::newRow("capitals") << QByteArray("SOLID");
    QTest::newRow("solid, but not first") << QByteArray("a solid");
    QTest::newRow("solid on the second line") << QByteArray("\nsolid");
    QTest::newRow("metadata record") << QByteArray("\xBE\xBEScanner");
    QTest::newRow("UTF-16 mark") << QByteArray("\xFF\xFEs\0");
}

void tst_STLReaderBinary::anyHeader()
{
    QFETCH(QByteArray, start);
    QList<StlFacet> const facets = loneFacets(4);
    STLReader reader(nullptr, false, {});
    QVERIFY(reader.read(binaryStl(facets, start.leftJustified(80, ' ')), never));
    QCOMPARE(cornersOf(reader.getMesh()), cornersOf(facets));
}

void tst_STLReaderBinary::length_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<bool>("fits");
    QByteArray const two = binaryStl(loneFacets(2));
    QTest::newRow("two facets") << two << true;
    QTest::newRow("no facets") << binaryStl(0, {}) << true;

    QTest::newRow("nothing") << QByteArray("") << false;
    QTest::newRow("one byte") << tail(1) << false;
    QTest::newRow("79 bytes") << tail(79) << false;
    QTest::newRow("80 bytes") << tail(80) << false;
    QTest::newRow("half a count") << two.left(82) << false;
    QTest::newRow("83 bytes") << two.left(83) << false;
    QTest::newRow("count only") << two.left(84) << false;
    QTest::newRow("a byte too few") << two.chopped(1) << false;
    QTest::newRow("a byte too many") << two + '\0' << false;
    QTest::newRow("two bytes too many") << two + QByteArray(2, '\0') << false;
    QTest::newRow("a facet too few") << two.chopped(50) << false;
    QTest::newRow("a facet too many") << two + facetBytes(loneFacet(2)) << false;
    QTest::newRow("no facets and a byte") << binaryStl(0, tail(1)) << false;
    QTest::newRow("count of one, no bytes") << binaryStl(1, {}) << false;
    QTest::newRow("largest count, no bytes") << binaryStl(0xFFFFFFFFu, {}) << false;
    QTest::newRow("largest signed count, no bytes") << binaryStl(0x7FFFFFFFu, {}) << false;
    QTest::newRow("other text") << QByteArray("facet normal 0 0 1\nvertex 1 2 3\n").repeated(9) << false;
    // The count 0x20202020 of a text of spaces.
    QTest::newRow("spaces") << QByteArray(200, ' ') << false;
}

void tst_STLReaderBinary::length()
{
    QFETCH(QByteArray, data);
    QFETCH(bool, fits);
    STLReader reader(nullptr, false, {});
    QCOMPARE(reader.read(data, never), fits);
    QBuffer buffer(&data);
    QCOMPARE(reader.read(&buffer, never), fits);
    QCOMPARE(STLReader::isValidStlFile(data), fits);
    QList<STLSurfaceData*> const surfaces = reader.takeSTLSurfaceDataSets();
    QCOMPARE(surfaces.size(), fits ? 1 : 0);
    qDeleteAll(surfaces);
}

// 84 + 50 * count is compared in 32 bits, so some counts far beyond the bytes pass. They must cost nothing.
void tst_STLReaderBinary::countThatWraps_data()
{
    QTest::addColumn<int>("bytes");
    QTest::addColumn<bool>("isNegative");
    QTest::addColumn<int>("wholeFacets");
    for (int const bytes : {86, 88, 96, 98, 130, 134, 136, 144, 184, 200, 5084, 5090}) {
        int const whole = (bytes - 84) / 50;
        bool const fits = (bytes - 84) % 50 == 0;
        if (!fits)
            QTest::addRow("%d bytes", bytes) << bytes << false << whole;
        // Negative as the signed number that the layout record holds, so that no facet is looked for.
        QTest::addRow("%d bytes, top bit set", bytes) << bytes << true << 0;
    }
}

void tst_STLReaderBinary::countThatWraps()
{
    QFETCH(int, bytes);
    QFETCH(bool, isNegative);
    QFETCH(int, wholeFacets);
    QList<StlFacet> const facets = loneFacets(bytes / 50 + 1);
    quint32 const count = wrappingCount(quint32(bytes), isNegative);
    QByteArray const data = binaryStl(count, binaryStl(facets).mid(84, bytes - 84));
    QCOMPARE(data.size(), bytes);
    QVERIFY(count > 1000000u);

    STLReader reader(nullptr, false, {});
    QVERIFY(reader.read(data, never));
    QCOMPARE(cornersOf(reader.getMesh()).first(3 * wholeFacets), cornersOf(facets.first(wholeFacets)));
    QVERIFY(STLReader::isValidStlFile(data));
}

// Only a count that wraps lets such a file pass: what is missing of the last facet is zeros.
void tst_STLReaderBinary::facetCutShort()
{
    QList<StlFacet> const facets = loneFacets(2);
    int const bytes = 84 + 50 + 12 + 4 * 4;
    QByteArray const data = binaryStl(wrappingCount(bytes, false), binaryStl(facets).mid(84, bytes - 84));
    STLReader reader(nullptr, false, {});
    QVERIFY(reader.read(data, never));
    QVector3D const half(facets[1].b.x(), 0, 0);
    QCOMPARE(cornersOf(reader.getMesh()),
             cornersOf(facets.first(1)) + QList<QVector3D>({facets[1].a, half, {}}));
}

void tst_STLReaderBinary::headerThatStartsWithSolid()
{
    STLReader reader(nullptr, false, {});
    for (QByteArray const& start : {QByteArray("solid"), QByteArray("solid model"), QByteArray("  \tsolid"),
                                    QByteArray("solidity"), QByteArray("\xEF\xBB\xBFsolid")}) {
        QByteArray const data = binaryStl(loneFacets(3), start.leftJustified(80, '\0'));
        QVERIFY2(!reader.read(data, never), start.constData());
        QVERIFY(STLReader::isValidStlFile(data));
    }
    QVERIFY(reader.getMesh().isNull());
    QVERIFY(reader.takeSTLSurfaceDataSets().isEmpty());
}

void tst_STLReaderBinary::facetNormalsAreNotUsed()
{
    QByteArray const data = binaryStl(loneFacets(3));
    QByteArray other = data;
    for (qsizetype facet = 0; facet < 3; ++facet)
        other.replace(84 + 50 * facet, 12, QByteArray(12, '\xFF'));
    STLReader reader(nullptr, false, {});
    QVERIFY(reader.read(data, never));
    geometry::Mesh const mesh = reader.getMesh();
    QVERIFY(reader.read(other, never));
    QVERIFY(support::sameBits(reader.getMesh(), mesh));
}

void tst_STLReaderBinary::attributesMeanNothingWithoutTags()
{
    QList<StlFacet> const facets = {loneFacet(0, 1, 2), loneFacet(1, 3, 4), loneFacet(2, 0xFF, 0xFF)};
    InclusiveTagHandler const empty({});
    for (STLTagHandler const* handler :
         {static_cast<STLTagHandler const*>(nullptr), static_cast<STLTagHandler const*>(&empty)}) {
        STLReader reader(handler, false, {});
        QVERIFY(reader.read(binaryStl(facets), never));
        QCOMPARE(cornersOf(reader.getMesh()), cornersOf(facets));
    }
}

void tst_STLReaderBinary::coordinatesAreExact()
{
    constexpr float tiny = 1.40129846e-45f;
    constexpr float large = 3.40282347e+38f;
    StlFacet const facet = {
        {0.1f, -0.1f, 1.0f / 3.0f}, {tiny, -tiny, 1.17549435e-38f}, {large, -large, 16777217.0f}};
    STLReader reader(nullptr, false, {});
    QVERIFY(reader.read(binaryStl({facet}), never));
    QCOMPARE(support::bytesOf(cornersOf(reader.getMesh())), support::bytesOf(cornersOf({facet})));
}

void tst_STLReaderBinary::failureKeepsTheSurfaces()
{
    QList<StlFacet> const facets = loneFacets(2);
    STLReader reader(nullptr, false, {});
    QVERIFY(reader.read(binaryStl(facets), never));
    QVERIFY(!reader.read(binaryStl(facets).chopped(1), never));
    QVERIFY(!reader.read(QByteArray(), never));
    QCOMPARE(cornersOf(reader.getMesh()), cornersOf(facets));
}

void tst_STLReaderBinary::successReplacesTheSurfaces()
{
    STLReader reader(nullptr, false, {});
    QVERIFY(reader.read(binaryStl(loneFacets(2)), never));
    QVERIFY(reader.read(binaryStl(loneFacets(5)), never));
    QCOMPARE(cornersOf(reader.getMesh()), cornersOf(loneFacets(5)));
    QVERIFY(reader.read(binaryStl(0, {}), never));
    QVERIFY(reader.getMesh().isNull());
    QList<STLSurfaceData*> const surfaces = reader.takeSTLSurfaceDataSets();
    QCOMPARE(surfaces.size(), 1);
    qDeleteAll(surfaces);
}

void tst_STLReaderBinary::cancelStopsADevice()
{
    QByteArray data = binaryStl(loneFacets(2));
    QBuffer buffer(&data);
    STLReader reader(nullptr, false, {});
    QVERIFY(!reader.read(&buffer, always));
    QVERIFY(reader.getMesh().isNull());
    QVERIFY(reader.takeSTLSurfaceDataSets().isEmpty());
}

// Bytes in memory are read with a flag that nobody sets.
void tst_STLReaderBinary::cancelDoesNotStopBytes()
{
    UseAllTagsHandler const all;
    for (STLTagHandler const* handler :
         {static_cast<STLTagHandler const*>(nullptr), static_cast<STLTagHandler const*>(&all)}) {
        STLReader reader(handler, false, {});
        QVERIFY(reader.read(binaryStl(loneFacets(2)), always));
        QCOMPARE(cornersOf(reader.getMesh()), cornersOf(loneFacets(2)));
        QCOMPARE(reader.getMesh().normals.size(), 6);
    }
}

QTEST_APPLESS_MAIN(tst_STLReaderBinary)
#include "tst_STLReaderBinary.moc"
