#include "PlyRows.h"
#include "ply/PLYReader.h"
#include "support/Meshes.h"
#include "support/PlyFiles.h"

#include <QTest>
#include <QtNumeric>

using ply_test::oneTriangle;
using ply_test::put;
using ply_test::triangleWith;
using ply_test::typeName;
using support::plyCount;
using support::plyIndices;
using support::plyLines;
using support::plyPosition;
using support::plyStart;
using support::plyTriangle;

using namespace Qt::StringLiterals;

namespace {

std::atomic<bool> const never = false;

constexpr auto trianglesOnly = "Unsupported indices count ( 4 ) (only triangles supported)!";

} // namespace

class tst_PLYReaderFaces : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void indicesOfEveryType_data();
    void indicesOfEveryType();
    void zeroByteIndicesAreZero();
    void readsOnlyTriangles_data();
    void readsOnlyTriangles();
    void refusesIndicesOutOfRange_data();
    void refusesIndicesOutOfRange();
    void skipsOtherFaceProperties();
    void readsSeveralListsOfAFace();
    void stopsAtTheEndOfTheFaces();
    void readsFaceColors();
    void faceColorsAreClearedWhenFacesBegin();
};

void tst_PLYReaderFaces::indicesOfEveryType_data()
{
    QTest::addColumn<int>("countType");
    QTest::addColumn<int>("indexType");
    constexpr ply::Type sized[] = {ply::UInt8,  ply::Int16,   ply::Int32,
                                   ply::UInt32, ply::Float32, ply::Float64};
    for (ply::Type const countType : sized)
        for (ply::Type const indexType : sized)
            QTest::newRow((typeName(countType) + " of " + typeName(indexType)).constData())
                << int(countType) << int(indexType);
}

void tst_PLYReaderFaces::indicesOfEveryType()
{
    QFETCH(int, countType);
    QFETCH(int, indexType);
    support::PLYBody face;
    put(face, ply::Type(countType), 3);
    for (int const index : {2, 0, 1})
        put(face, ply::Type(indexType), index);
    QByteArray const line = "property list " + typeName(ply::Type(countType)) + ' ' +
                            typeName(ply::Type(indexType)) + " vertex_indices";
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(reader.read(triangleWith({}, {line}, {}, face.bytes), never));
    QCOMPARE(reader.getMesh().indices, (QList<int>{2, 0, 1, -1}));
}

void tst_PLYReaderFaces::zeroByteIndicesAreZero()
{
    // An entry is only held against the range, which 0 is in.
    for (QByteArray const type : {"char", "ushort", "list"}) {
        PLYReader reader(PLYReader::MeshMode);
        QVERIFY(reader.read(triangleWith({}, {"property list uchar " + type + " vertex_indices"}, {},
                                         QByteArray::fromHex("03"
                                                             "0200"
                                                             "0000"
                                                             "0100")),
                            never));
        QCOMPARE(reader.getMesh().indices, (QList<int>{0, 0, 0, -1}));
    }
}

void tst_PLYReaderFaces::readsOnlyTriangles_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QByteArray>("count");
    QTest::addColumn<QByteArray>("shown");
    QTest::newRow("0") << QByteArray("uchar") << QByteArray("\0", 1) << QByteArray("0");
    QTest::newRow("2") << QByteArray("uchar") << QByteArray("\2") << QByteArray("2");
    QTest::newRow("4") << QByteArray("uchar") << QByteArray("\4") << QByteArray("4");
    QTest::newRow("255") << QByteArray("uchar") << QByteArray("\xFF") << QByteArray("255");
    QTest::newRow("-3") << QByteArray("short") << support::PLYBody().i16(-3).bytes << QByteArray("-3");
    QTest::newRow("2000000000") << QByteArray("int") << support::PLYBody().i32(2000000000).bytes
                                << QByteArray("2000000000");
    QTest::newRow("float 3.6") << QByteArray("float") << support::PLYBody().f32(3.6f).bytes
                               << QByteArray("4");
    QTest::newRow("char") << QByteArray("char") << QByteArray("\3") << QByteArray("0");
    QTest::newRow("ushort") << QByteArray("ushort") << QByteArray("\3\0", 2) << QByteArray("0");
    QTest::newRow("list") << QByteArray("list") << QByteArray("\3") << QByteArray("0");
}

void tst_PLYReaderFaces::readsOnlyTriangles()
{
    QFETCH(QByteArray, type);
    QFETCH(QByteArray, count);
    QFETCH(QByteArray, shown);
    QByteArray const message = "Unsupported indices count ( " + shown + " ) (only triangles supported)!";
    QTest::ignoreMessage(QtWarningMsg, message.constData());
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(!reader.read(
        triangleWith({}, {"property list " + type + " int vertex_indices"}, {}, count + QByteArray(16, '\0')),
        never));
    QVERIFY(reader.getMesh().isNull());
}

void tst_PLYReaderFaces::refusesIndicesOutOfRange_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QByteArray>("entries");
    using Body = support::PLYBody;
    QTest::newRow("the vertex count, first") << QByteArray("int") << Body().i32(3).i32(1).i32(2).bytes;
    QTest::newRow("the vertex count, second") << QByteArray("int") << Body().i32(0).i32(3).i32(2).bytes;
    QTest::newRow("the vertex count, third") << QByteArray("int") << Body().i32(0).i32(1).i32(3).bytes;
    QTest::newRow("-1") << QByteArray("int") << Body().i32(0).i32(-1).i32(2).bytes;
    QTest::newRow("smallest") << QByteArray("int") << Body().i32(0).i32(1).u32(0x80000000u).bytes;
    QTest::newRow("largest") << QByteArray("int") << Body().i32(0).i32(1).i32(2147483647).bytes;
    QTest::newRow("largest unsigned") << QByteArray("uint") << Body().i32(0).i32(1).u32(4294967295u).bytes;
    QTest::newRow("short -1") << QByteArray("short") << Body().i16(0).i16(-1).i16(1).bytes;
    QTest::newRow("uchar 3") << QByteArray("uchar") << QByteArray("\0\1\3", 3);
    QTest::newRow("float 2.5, rounded up") << QByteArray("float") << Body().f32({0, 1, 2.5f}).bytes;
    QTest::newRow("float 2^32, 0 in 32 bits")
        << QByteArray("float") << Body().f32({0, 1, 4294967296.0f}).bytes;
    QTest::newRow("NaN") << QByteArray("float") << Body().f32({0, 1, float(qQNaN())}).bytes;
    QTest::newRow("infinity") << QByteArray("double") << Body().f64(0).f64(1).f64(qInf()).bytes;
}

void tst_PLYReaderFaces::refusesIndicesOutOfRange()
{
    QFETCH(QByteArray, type);
    QFETCH(QByteArray, entries);
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(!reader.read(
        triangleWith({}, {"property list uchar " + type + " vertex_index"}, {}, "\3" + entries), never));
    QVERIFY(reader.getMesh().isNull());
}

void tst_PLYReaderFaces::skipsOtherFaceProperties()
{
    QTest::ignoreMessage(QtCriticalMsg,
                         "Property quality of type double is not handled! Property will be skipped.");
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(reader.read(triangleWith({},
                                     QByteArrayList{"property double quality"} + plyIndices +
                                         QByteArrayList{"property short x"},
                                     {}, support::PLYBody().f64(1).triangle(0, 1, 2).i16(7).bytes),
                        never));
    QCOMPARE(reader.getMesh().indices, oneTriangle);
}

void tst_PLYReaderFaces::readsSeveralListsOfAFace()
{
    // Both are read with the types of the last declared.
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(reader.read(
        triangleWith({}, {"property list uchar int vertex_indices", "property list uchar short vertex_index"},
                     {}, support::PLYBody().u8(3).i16(0).i16(1).i16(2).u8(3).i16(2).i16(1).i16(0).bytes),
        never));
    QCOMPARE(reader.getMesh().indices, (QList<int>{0, 1, 2, -1, 2, 1, 0, -1}));
}

void tst_PLYReaderFaces::stopsAtTheEndOfTheFaces()
{
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(reader.read(plyTriangle().replace("face 1", "face 7"), never));
    QCOMPARE(reader.getMesh().indices, oneTriangle);
    QVERIFY(reader.read(plyTriangle().replace("face 1", "face -1"), never));
    QVERIFY(reader.getMesh().indices.isEmpty());
}

void tst_PLYReaderFaces::readsFaceColors()
{
    QByteArray const header =
        plyLines(plyStart + QByteArrayList{plyCount("vertex", 3)} + plyPosition +
                 QByteArrayList{plyCount("face", 3), "property uchar red"} + plyIndices +
                 QByteArrayList{"property uchar green", "property uchar alpha", "end_header"});
    QByteArray const file = header + support::PLYBody()
                                         .f32({0, 0, 0, 1, 0, 0, 0, 1, 0})
                                         .u8(1)
                                         .triangle(0, 1, 2)
                                         .u8({2, 3})
                                         .u8(4)
                                         .triangle(2, 1, 0)
                                         .u8({5, 6})
                                         .u8(7)
                                         .triangle(1, 0, 2)
                                         .u8({8, 0})
                                         .bytes;
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(!reader.read(file, never));
    reader.activeFaceColorMode(true);
    QVERIFY(reader.read(file, never));
    QCOMPARE(reader.getFaceColors(),
             (QList<QColor>{QColor(1, 2, 0, 3), QColor(4, 5, 0, 6), QColor(7, 8, 0, 0)}));
    QCOMPARE(reader.getMesh().indices, (QList<int>{0, 1, 2, -1, 2, 1, 0, -1, 1, 0, 2, -1}));
    QVERIFY(reader.getMesh().colors.isEmpty());

    QVERIFY(reader.read(plyTriangle(), never));
    QCOMPARE(reader.getFaceColors(), QList<QColor>{QColor()});
    reader.activeFaceColorMode(false);
    QVERIFY(reader.read(plyTriangle(), never));
    QVERIFY(reader.getFaceColors().isEmpty());
    QVERIFY(!reader.read(file, never));
}

void tst_PLYReaderFaces::faceColorsAreClearedWhenFacesBegin()
{
    PLYReader reader(PLYReader::MeshMode);
    reader.activeFaceColorMode(true);
    QVERIFY(reader.read(plyTriangle(), never));
    QVERIFY(!reader.read(QByteArray("no mesh"), never));
    QVERIFY(!reader.read(triangleWith({"property char red"}, plyIndices, {}, {}), never));
    QCOMPARE(reader.getFaceColors(), QList<QColor>{QColor()});
    QTest::ignoreMessage(QtWarningMsg, trianglesOnly);
    QVERIFY(!reader.read(triangleWith({}, plyIndices, {}, "\4"), never));
    QVERIFY(reader.getFaceColors().isEmpty());
}

QTEST_GUILESS_MAIN(tst_PLYReaderFaces)
#include "tst_PLYReaderFaces.moc"
