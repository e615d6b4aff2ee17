#include "inhouse/data/STLSurfaceData.h"
#include "stl/STLReader.h"
#include "stl/STLTagHandler.h"
#include "support/Meshes.h"
#include "support/PrivateAccess.h"
#include "support/StlFiles.h"

#include <QBuffer>
#include <QDataStream>
#include <QMetaObject>
#include <QtTest>

#include <memory>
#include <type_traits>

using support::asciiStl;
using support::binaryStl;
using support::cornersOf;
using support::loneFacet;
using support::StlFacet;

static_assert(std::is_base_of_v<SurfaceReader, STLReader> && !std::is_copy_constructible_v<STLReader>);

namespace support {

struct ReadBinary
{
    using Member = bool (STLReader::*)(QDataStream&, int const&, std::atomic<bool> const&);
    friend Member privateMember(ReadBinary);
};
template struct PrivateMember<ReadBinary, &STLReader::readBinary>;

struct FirstSurface
{
    using Member = STLSurfaceData* (STLReader::*)() const;
    friend Member privateMember(FirstSurface);
};
template struct PrivateMember<FirstSurface, &STLReader::getSTLSurfaceDataSet>;

} // namespace support

namespace {

std::atomic<bool> const never = false;
std::atomic<bool> const always = true;

STLSurfaceData* firstSurface(STLReader const& reader)
{
    return (reader.*privateMember(support::FirstSurface()))();
}

bool readBinary(STLReader& reader, QDataStream& stream, int size, std::atomic<bool> const& cancel)
{
    return (reader.*privateMember(support::ReadBinary()))(stream, size, cancel);
}

QList<StlFacet> const binaryFacets = {loneFacet(0, 1, 9), loneFacet(1, 2, 4), loneFacet(2, 1, 4)};
QList<StlFacet> const asciiFacets = {loneFacet(7), loneFacet(8)};

} // namespace

class tst_STLReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void metaObject();
    void fresh();
    void readThroughTheBase();
    void firstSurfaceIsTheResult();
    void takenSurfacesBelongToTheCaller();
    void binaryResultHidesAsciiResult();
    void binaryReadLeavesAsciiResult();
    void lengthTest_data();
    void lengthTest();
    void streamInAnyState();
    void streamOfAnotherSize();
    void streamCancelled();
};

void tst_STLReader::metaObject()
{
    QMetaObject const& meta = STLReader::staticMetaObject;
    QCOMPARE(meta.className(), "STLReader");
    QCOMPARE(meta.superClass(), &SurfaceReader::staticMetaObject);
    STLReader reader(nullptr, false, {});
    QCOMPARE(reader.metaObject(), &meta);
    QCOMPARE(STLReader::tr("text"), QStringLiteral("text"));
    for (int const count :
         {meta.propertyCount() - meta.propertyOffset(), meta.methodCount() - meta.methodOffset(),
          meta.enumeratorCount() - meta.enumeratorOffset()})
        QCOMPARE(count, 0);
}

void tst_STLReader::fresh()
{
    STLReader const reader(nullptr, true, QStringLiteral("/no/such/file"));
    QVERIFY(reader.getMesh().isNull());
    QCOMPARE(reader.getTransform(), QMatrix4x4());
    QVERIFY(reader.getTexture().isNull());
    QVERIFY(reader.takeSTLSurfaceDataSets().isEmpty());
    QCOMPARE(firstSurface(reader), nullptr);
}

void tst_STLReader::readThroughTheBase()
{
    auto const stl = std::make_unique<STLReader>(nullptr, false, QString());
    SurfaceReader& reader = *stl;
    QVERIFY(!reader.read(never));
    reader.setFileName(QStringLiteral("/no/such/file"));
    QVERIFY(!reader.read(never));
    QVERIFY(stl->read(binaryStl(binaryFacets), never));
    QCOMPARE(cornersOf(reader.getMesh()), cornersOf(binaryFacets));
    QCOMPARE(reader.getTransform(), QMatrix4x4());
}

void tst_STLReader::firstSurfaceIsTheResult()
{
    UseAllTagsHandler const all;
    STLReader reader(&all, false, {});
    QVERIFY(reader.read(binaryStl(binaryFacets), never));
    // In ascending order of tag, then subTag: (4, 1), (4, 2), (9, 1).
    QCOMPARE(cornersOf(reader.getMesh()), cornersOf({binaryFacets[2]}));
    QCOMPARE(&reader.getMesh(), &firstSurface(reader)->getMesh());
    QCOMPARE(&reader.getTransform(), &firstSurface(reader)->getTransform());
    QCOMPARE(firstSurface(reader), firstSurface(reader));
}

void tst_STLReader::takenSurfacesBelongToTheCaller()
{
    UseAllTagsHandler const all;
    QList<STLSurfaceData*> surfaces;
    {
        STLReader reader(&all, false, {});
        QVERIFY(reader.read(binaryStl(binaryFacets), never));
        surfaces = reader.takeSTLSurfaceDataSets();
        QVERIFY(reader.takeSTLSurfaceDataSets().isEmpty());
        QVERIFY(reader.getMesh().isNull());
        QVERIFY(reader.read(binaryStl(0, {}), never));
    }
    QCOMPARE(surfaces.size(), 3);
    QCOMPARE(cornersOf(surfaces[0]->getMesh()), cornersOf({binaryFacets[2]}));
    QCOMPARE(cornersOf(surfaces[1]->getMesh()), cornersOf({binaryFacets[1]}));
    QCOMPARE(cornersOf(surfaces[2]->getMesh()), cornersOf({binaryFacets[0]}));
    qDeleteAll(surfaces);
}

void tst_STLReader::binaryResultHidesAsciiResult()
{
    STLReader reader(nullptr, false, {});
    QVERIFY(reader.read(binaryStl(binaryFacets), never));
    QVERIFY(reader.read(asciiStl(asciiFacets), never));
    QCOMPARE(cornersOf(reader.getMesh()), cornersOf(binaryFacets));

    qDeleteAll(reader.takeSTLSurfaceDataSets());
    QCOMPARE(cornersOf(reader.getMesh()), cornersOf(asciiFacets));
}

void tst_STLReader::binaryReadLeavesAsciiResult()
{
    STLReader reader(nullptr, false, {});
    QVERIFY(reader.read(asciiStl(asciiFacets), never));
    QVERIFY(reader.read(binaryStl(binaryFacets), never));
    QCOMPARE(cornersOf(reader.getMesh()), cornersOf(binaryFacets));
    qDeleteAll(reader.takeSTLSurfaceDataSets());
    QCOMPARE(cornersOf(reader.getMesh()), cornersOf(asciiFacets));
}

void tst_STLReader::lengthTest_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<bool>("isValid");
    QTest::newRow("binary") << binaryStl(binaryFacets) << true;
    QTest::newRow("no facets") << binaryStl(0, {}) << true;
    QTest::newRow("header of an ASCII file")
        << binaryStl(binaryFacets, QByteArray("solid").leftJustified(80)) << true;
    QByteArray text = asciiStl(asciiFacets).leftJustified(84 + 50 * 32);
    text.replace(80, 4, QByteArray::fromHex("20000000"));
    QTest::newRow("ASCII of just the right length") << text << true;
    QTest::newRow("null") << QByteArray() << false;
    QTest::newRow("empty") << QByteArray("") << false;
    QTest::newRow("ASCII") << asciiStl(asciiFacets) << false;
    QTest::newRow("count only") << binaryStl(1, {}) << false;
    QTest::newRow("no count") << binaryStl(0, {}).first(80) << false;
    QTest::newRow("half a count") << binaryStl(0, {}).first(82) << false;
    QTest::newRow("a byte short") << binaryStl(binaryFacets).chopped(1) << false;
    QTest::newRow("a byte more") << binaryStl(binaryFacets) + 'x' << false;
    QTest::newRow("a count that is negative") << binaryStl(0xFFFFFFFFu, QByteArray(50, '\0')) << false;
}

void tst_STLReader::lengthTest()
{
    QFETCH(QByteArray, data);
    QFETCH(bool, isValid);
    QCOMPARE(STLReader::isValidStlFile(data), isValid);
}

void tst_STLReader::streamInAnyState()
{
    QByteArray const data = binaryStl(binaryFacets);
    QDataStream stream(data);
    stream.setByteOrder(QDataStream::BigEndian);
    stream.setFloatingPointPrecision(QDataStream::DoublePrecision);
    stream.skipRawData(7);
    STLReader reader(nullptr, false, {});
    QVERIFY(readBinary(reader, stream, int(data.size()), never));
    QCOMPARE(cornersOf(reader.getMesh()), cornersOf(binaryFacets));
    QCOMPARE(stream.byteOrder(), QDataStream::LittleEndian);
    QCOMPARE(stream.floatingPointPrecision(), QDataStream::SinglePrecision);
}

void tst_STLReader::streamOfAnotherSize()
{
    QByteArray const data = binaryStl(binaryFacets);
    QDataStream stream(data);
    STLReader reader(nullptr, false, {});
    for (int const size : {0, 83, 84, int(data.size()) - 1, int(data.size()) + 1, -1})
        QVERIFY(!readBinary(reader, stream, size, never));
    QCOMPARE(firstSurface(reader), nullptr);
    QVERIFY(readBinary(reader, stream, int(data.size()), never));
}

void tst_STLReader::streamCancelled()
{
    QByteArray const data = binaryStl(binaryFacets);
    QDataStream stream(data);
    STLReader reader(nullptr, false, {});
    QVERIFY(!readBinary(reader, stream, int(data.size()), always));
    QCOMPARE(firstSurface(reader), nullptr);
    QCOMPARE(stream.byteOrder(), QDataStream::LittleEndian);
    QCOMPARE(stream.device()->pos(), 0);
}

QTEST_APPLESS_MAIN(tst_STLReader)
#include "tst_STLReader.moc"
