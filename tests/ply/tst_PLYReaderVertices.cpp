#include "PlyRows.h"
#include "ply/PLYReader.h"
#include "support/Meshes.h"
#include "support/PlyFiles.h"

#include <QTest>
#include <QtNumeric>

using ply_test::corners;
using ply_test::oneTriangle;
using ply_test::propertyLine;
using ply_test::put;
using ply_test::triangleWith;
using support::plyColor;
using support::plyHeader;
using support::plyIndices;
using support::plyNormal;
using support::plyPosition;

using namespace Qt::StringLiterals;

namespace {

std::atomic<bool> const never = false;

} // namespace

class tst_PLYReaderVertices : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsPositionsOfEveryType_data();
    void readsPositionsOfEveryType();
    void readsPositionsInAnyOrder();
    void positionsAreBitExact();
    void lastOfEqualPropertiesCounts();
    void skipsOtherProperties_data();
    void skipsOtherProperties();
    void propertiesOfOtherMeaningAreSkipped();
    void zeroByteTypesShiftTheRow();
    void readsNormals();
    void normalsOfOneComponentAreNormals();
    void readsColors_data();
    void readsColors();
    void colorValuesOfEveryType_data();
    void colorValuesOfEveryType();
    void failsWhereANumberIsNeeded_data();
    void failsWhereANumberIsNeeded();
};

void tst_PLYReaderVertices::readsPositionsOfEveryType_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<double>("value");
    QTest::addColumn<float>("read");
    QTest::newRow("uchar") << int(ply::UInt8) << 255.0 << 255.0f;
    QTest::newRow("short") << int(ply::Int16) << -32768.0 << -32768.0f;
    QTest::newRow("int") << int(ply::Int32) << -2147483648.0 << -2147483648.0f;
    QTest::newRow("int, rounded to a float") << int(ply::Int32) << 16777217.0 << 16777216.0f;
    QTest::newRow("uint") << int(ply::UInt32) << 4294967295.0 << 4294967296.0f;
    QTest::newRow("float") << int(ply::Float32) << 0.1 << 0.1f;
    QTest::newRow("double") << int(ply::Float64) << 0.1 << 0.1f;
    QTest::newRow("double beyond float") << int(ply::Float64) << 1e300 << float(qInf());
}

void tst_PLYReaderVertices::readsPositionsOfEveryType()
{
    QFETCH(int, type);
    QFETCH(double, value);
    QFETCH(float, read);
    for (bool const bigEndian : {false, true}) {
        support::PLYBody body(bigEndian);
        for (int i = 0; i < 9; ++i)
            put(body, ply::Type(type), value);
        body.triangle(0, 1, 2);
        QByteArray header = plyHeader(3,
                                      {propertyLine(ply::Type(type), "x"), propertyLine(ply::Type(type), "y"),
                                       propertyLine(ply::Type(type), "z")},
                                      1);
        if (bigEndian)
            header.replace("little", "big");
        PLYReader reader(PLYReader::MeshMode);
        QVERIFY(reader.read(header + body.bytes, never));
        QCOMPARE(reader.getMesh().vertices, QList<QVector3D>(3, QVector3D(read, read, read)));
    }
}

void tst_PLYReaderVertices::readsPositionsInAnyOrder()
{
    QByteArray const file =
        plyHeader(3, {"property float z", "property uchar red", "property float x", "property double y"}, 1) +
        support::PLYBody()
            .f32(3)
            .u8(9)
            .f32(1)
            .f64(2)
            .f32(6)
            .u8(9)
            .f32(4)
            .f64(5)
            .f32(9)
            .u8(9)
            .f32(7)
            .f64(8)
            .triangle(2, 1, 0)
            .bytes;
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(reader.read(file, never));
    QCOMPARE(reader.getMesh().vertices, (QList<QVector3D>{{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}));
    QCOMPARE(reader.getMesh().indices, (QList<int>{2, 1, 0, -1}));
    QCOMPARE(reader.getMesh().colors, QList<unsigned int>(3, 0xFF000009u));
}

void tst_PLYReaderVertices::positionsAreBitExact()
{
    QByteArray const bits = QByteArray::fromHex("00000080"
                                                "4523c17f"
                                                "0000807f"
                                                "01000000"
                                                "ffff7fff"
                                                "cdcccc3d"
                                                "00008000"
                                                "000080ff"
                                                "ffffff7f");
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(
        reader.read(plyHeader(3, plyPosition, 1) + bits + support::PLYBody().triangle(0, 1, 2).bytes, never));
    QCOMPARE(support::bytesOf(reader.getMesh().vertices), bits);
}

void tst_PLYReaderVertices::lastOfEqualPropertiesCounts()
{
    QByteArray const file =
        plyHeader(3, plyPosition + QByteArrayList{"property uchar x"}, 1) + support::PLYBody()
                                                                                .f32({1, 2, 3})
                                                                                .u8(10)
                                                                                .f32({4, 5, 6})
                                                                                .u8(20)
                                                                                .f32({7, 8, 9})
                                                                                .u8(30)
                                                                                .triangle(0, 1, 2)
                                                                                .bytes;
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(reader.read(file, never));
    QCOMPARE(reader.getMesh().vertices, (QList<QVector3D>{{10, 2, 3}, {20, 5, 6}, {30, 8, 9}}));
}

void tst_PLYReaderVertices::skipsOtherProperties_data()
{
    QTest::addColumn<QByteArray>("typeToken");
    QTest::addColumn<int>("bytes");
    for (auto const& token : ply::typeTokens) {
        QByteArray const name(token.name.data(), token.name.size());
        QTest::newRow(name.constData()) << name << ply::bytesInBody(token.value);
    }
    QTest::newRow("unknown type") << QByteArray("quaternion") << 0;
    QTest::newRow("type in capitals") << QByteArray("FLOAT") << 0;
}

void tst_PLYReaderVertices::skipsOtherProperties()
{
    QFETCH(QByteArray, typeToken);
    QFETCH(int, bytes);
    QByteArray const name = "property " + typeToken + " confidence";
    QByteArray const message =
        "Property confidence of type " + typeToken + " is not handled! Property will be skipped.";
    QTest::ignoreMessage(QtCriticalMsg, message.constData());
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(reader.read(triangleWith({name}, plyIndices, QByteArray(bytes, '\x55'),
                                     support::PLYBody().triangle(0, 1, 2).bytes),
                        never));
    QCOMPARE(reader.getMesh().vertices, corners);
    QCOMPARE(reader.getMesh().indices, oneTriangle);
}

void tst_PLYReaderVertices::propertiesOfOtherMeaningAreSkipped()
{
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(reader.read(triangleWith({"property float shininess", "property uchar vertex_indices",
                                      "property list uchar int vertex_index"},
                                     plyIndices, QByteArray(5, '\x77'),
                                     support::PLYBody().triangle(0, 1, 2).bytes),
                        never));
    QCOMPARE(reader.getMesh().vertices, corners);
    QCOMPARE(reader.getMesh().indices, oneTriangle);
}

// Two bytes in the file, none read: every value that follows is taken from two bytes earlier.
void tst_PLYReaderVertices::zeroByteTypesShiftTheRow()
{
    QByteArrayList const properties = {"property ushort confidence", "property float x", "property float y",
                                       "property float z"};
    QTest::ignoreMessage(QtCriticalMsg,
                         "Property confidence of type ushort is not handled! Property will be skipped.");
    PLYReader reader(PLYReader::PointCloudMode);
    QByteArray const row = QByteArray::fromHex("1122"
                                               "33445566"
                                               "778899aa"
                                               "bbccddee");
    QVERIFY(reader.read(plyHeader(2, properties, 0) + row + row, never));
    QByteArray const shifted = QByteArray::fromHex("11223344"
                                                   "55667788"
                                                   "99aabbcc"
                                                   "ddee1122"
                                                   "33445566"
                                                   "778899aa");
    QCOMPARE(support::bytesOf(reader.getPointCloud().positions), shifted);
}

void tst_PLYReaderVertices::readsNormals()
{
    QByteArray const file = plyHeader(3, plyPosition + plyNormal, 1) + support::PLYBody()
                                                                           .f32({0, 0, 0, 0, 0, 1})
                                                                           .f32({1, 0, 0, 0, -1, 0})
                                                                           .f32({0, 1, 0, 0, 0, 0})
                                                                           .triangle(0, 1, 2)
                                                                           .bytes;
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(reader.read(file, never));
    QCOMPARE(reader.getMesh().vertices, corners);
    QCOMPARE(reader.getMesh().normals, (QList<QVector3D>{{0, 0, 1}, {0, -1, 0}, {0, 0, 0}}));
}

void tst_PLYReaderVertices::normalsOfOneComponentAreNormals()
{
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(reader.read(triangleWith({"property short ny"}, plyIndices, support::PLYBody().i16(-5).bytes,
                                     support::PLYBody().triangle(0, 1, 2).bytes),
                        never));
    QCOMPARE(reader.getMesh().normals, QList<QVector3D>(3, QVector3D(0, -5, 0)));
}

void tst_PLYReaderVertices::readsColors_data()
{
    QTest::addColumn<QByteArrayList>("properties");
    QTest::addColumn<QByteArray>("values");
    QTest::addColumn<unsigned int>("packed");
    QByteArrayList const alpha = {"property uchar alpha"};
    QTest::newRow("red, green, blue") << plyColor << QByteArray("\x10\x20\x30") << 0xFF302010u;
    QTest::newRow("with alpha") << plyColor + alpha << QByteArray("\x10\x20\x30\x40") << 0x40302010u;
    QTest::newRow("alpha 0") << plyColor + alpha << QByteArray("\x10\x20\x30\0", 4) << 0x00302010u;
    QTest::newRow("alpha first") << alpha + plyColor << QByteArray("\x40\x10\x20\x30") << 0x40302010u;
    QTest::newRow("blue alone") << QByteArrayList{"property uchar blue"} << QByteArray("\x30") << 0xFF300000u;
    QTest::newRow("alpha alone") << alpha << QByteArray("\x40") << 0x40000000u;
}

void tst_PLYReaderVertices::readsColors()
{
    QFETCH(QByteArrayList, properties);
    QFETCH(QByteArray, values);
    QFETCH(unsigned int, packed);
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(reader.read(
        triangleWith(properties, plyIndices, values, support::PLYBody().triangle(0, 1, 2).bytes), never));
    QCOMPARE(reader.getMesh().colors, QList<unsigned int>(3, packed));
}

void tst_PLYReaderVertices::colorValuesOfEveryType_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<double>("value");
    QTest::addColumn<unsigned int>("red");
    QTest::newRow("uchar") << int(ply::UInt8) << 200.0 << 200u;
    QTest::newRow("short") << int(ply::Int16) << 200.0 << 200u;
    QTest::newRow("short too large") << int(ply::Int16) << 300.0 << 255u;
    QTest::newRow("short negative") << int(ply::Int16) << -1.0 << 0u;
    QTest::newRow("int") << int(ply::Int32) << 255.0 << 255u;
    QTest::newRow("int too large") << int(ply::Int32) << 2147483647.0 << 255u;
    QTest::newRow("uint") << int(ply::UInt32) << 7.0 << 7u;
    QTest::newRow("uint that wraps") << int(ply::UInt32) << 4294967295.0 << 0u;
    QTest::newRow("float rounded down") << int(ply::Float32) << 0.49 << 0u;
    QTest::newRow("float rounded up") << int(ply::Float32) << 0.5 << 1u;
    QTest::newRow("float of a whole number") << int(ply::Float32) << 128.0 << 128u;
    QTest::newRow("float too large") << int(ply::Float32) << 1e9 << 255u;
    QTest::newRow("double") << int(ply::Float64) << 254.5 << 255u;
    QTest::newRow("double negative") << int(ply::Float64) << -1e9 << 0u;
}

void tst_PLYReaderVertices::colorValuesOfEveryType()
{
    QFETCH(int, type);
    QFETCH(double, value);
    QFETCH(unsigned int, red);
    support::PLYBody body;
    put(body, ply::Type(type), value);
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(reader.read(triangleWith({propertyLine(ply::Type(type), "red")}, plyIndices, body.bytes,
                                     support::PLYBody().triangle(0, 1, 2).bytes),
                        never));
    QCOMPARE(reader.getMesh().colors, QList<unsigned int>(3, 0xFF000000u | red));
}

void tst_PLYReaderVertices::failsWhereANumberIsNeeded_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QByteArray>("value");
    for (QByteArray const type : {"char", "int8", "ushort", "uint16", "list", "nonsense"})
        for (QByteArray const name : {"x", "y", "z", "nx", "ny", "nz", "red", "green", "blue", "alpha", "u",
                                      "v", "s", "t", "texture_u", "texture_v"})
            QTest::newRow((type + ' ' + name).constData())
                << "property " + type + ' ' + name << QByteArray("\1\1");
    support::PLYBody const notANumber = support::PLYBody().f32(float(qQNaN()));
    support::PLYBody const infinite = support::PLYBody().f64(-qInf());
    support::PLYBody const large = support::PLYBody().f32(2147483648.0f);
    QTest::newRow("red NaN") << QByteArray("property float red") << notANumber.bytes;
    QTest::newRow("green infinite") << QByteArray("property double green") << infinite.bytes;
    QTest::newRow("alpha beyond int") << QByteArray("property float alpha") << large.bytes;
}

void tst_PLYReaderVertices::failsWhereANumberIsNeeded()
{
    QFETCH(QByteArray, line);
    QFETCH(QByteArray, value);
    for (auto const mode : {PLYReader::MeshMode, PLYReader::PointCloudMode}) {
        PLYReader reader(mode);
        QVERIFY(!reader.read(
            triangleWith({line}, plyIndices, value, support::PLYBody().triangle(0, 1, 2).bytes), never));
        QVERIFY(reader.getMesh().isNull());
        QVERIFY(reader.getPointCloud().positions.isEmpty());
    }
}

QTEST_GUILESS_MAIN(tst_PLYReaderVertices)
#include "tst_PLYReaderVertices.moc"
