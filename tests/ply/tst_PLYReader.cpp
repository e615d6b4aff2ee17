#include "PlyRows.h"
#include "inhouse/meshoperations/NormalsCalculator.h"
#include "ply/PLYReader.h"
#include "support/Meshes.h"
#include "support/PlyFiles.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QtNumeric>

using ply_test::corners;
using ply_test::oneTriangle;
using ply_test::triangleWith;
using support::plyColor;
using support::plyHeader;
using support::plyIndices;
using support::plyNormal;
using support::plyPosition;
using support::plyTriangle;

using namespace Qt::StringLiterals;

namespace {

std::atomic<bool> const never = false;

constexpr auto trianglesOnly = "Unsupported indices count ( 4 ) (only triangles supported)!";

} // namespace

class tst_PLYReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsEmpty();
    void hasTheNameOfItsBase();
    void readsBytesAndFiles();
    void failsWithoutAFile_data();
    void failsWithoutAFile();
    void refusesAscii();
    void readsBothByteOrders();
    void computesNormals();
    void keepsTheVerticesOfAShortBody();
    void leavesWhatFollows();
    void readsPointClouds();
    void pointCloudsKeepAnEarlierMaterial();
    void failuresKeepTheMesh();
    void emptyFilesGiveEmptyMeshes();
};

void tst_PLYReader::startsEmpty()
{
    PLYReader const reader(PLYReader::MeshMode);
    QVERIFY(reader.getMesh().isNull());
    QVERIFY(reader.getTransform().isIdentity());
    QVERIFY(reader.getTexture().isNull());
    QVERIFY(reader.getFaceColors().isEmpty());
    QVERIFY(!reader.getMaterial());
    QVERIFY(reader.getPointCloud().positions.isEmpty());
    QCOMPARE(int(PLYReader::MeshMode), 0);
    QCOMPARE(int(PLYReader::PointCloudMode), 1);
}

void tst_PLYReader::hasTheNameOfItsBase()
{
    PLYReader const reader(PLYReader::MeshMode);
    QCOMPARE(reader.metaObject()->className(), "SurfaceReader");
}

void tst_PLYReader::readsBytesAndFiles()
{
    PLYReader fromBytes(PLYReader::MeshMode);
    QVERIFY(fromBytes.read(plyTriangle(), never));
    QCOMPARE(fromBytes.getMesh().vertices, corners);
    QCOMPARE(fromBytes.getMesh().indices, oneTriangle);
    QVERIFY(fromBytes.getMesh().colors.isEmpty());
    QVERIFY(fromBytes.getMesh().textureCoordinates.isEmpty());

    QTemporaryDir const folder;
    QString const path = folder.filePath(u"mesh.ply"_s);
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(plyTriangle());
    file.close();
    PLYReader fromFile(PLYReader::MeshMode);
    fromFile.setFileName(path);
    QVERIFY(fromFile.read(never));
    QVERIFY(support::sameBits(fromFile.getMesh(), fromBytes.getMesh()));
}

void tst_PLYReader::failsWithoutAFile_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("no name") << QString();
    QTest::newRow("no such file") << u"/no/such/file.ply"_s;
    QTest::newRow("a folder") << QDir::tempPath();
}

void tst_PLYReader::failsWithoutAFile()
{
    QFETCH(QString, name);
    PLYReader reader(PLYReader::MeshMode);
    reader.setFileName(name);
    QVERIFY(!reader.read(never));
    QVERIFY(!reader.read(static_cast<QIODevice*>(nullptr), never));
}

void tst_PLYReader::refusesAscii()
{
    QByteArray const file = plyTriangle().replace("binary_little_endian", "ascii");
    PLYReader reader(PLYReader::MeshMode);
    QTest::ignoreMessage(QtWarningMsg, "This PLY is encoded in ASCII. We only support binary PLYs");
    QVERIFY(!reader.read(file, never));
}

void tst_PLYReader::readsBothByteOrders()
{
    std::mt19937 random(3);
    geometry::Mesh const expected = support::randomMesh(random, 20, 30);
    for (bool const bigEndian : {false, true}) {
        support::PLYBody body(bigEndian);
        for (QVector3D const& position : expected.vertices)
            body.f64(double(position.x())).f32(position.y()).f32(position.z()).i16(-2).u8({9, 8, 7});
        for (qsizetype i = 0; i < expected.indices.size(); i += 4)
            body.triangle(expected.indices[i], expected.indices[i + 1], expected.indices[i + 2]);
        QByteArray header = plyHeader(
            20,
            QByteArrayList{"property double x", "property float y", "property float z",
                           "property short red"} +
                QByteArrayList{"property uchar green", "property uchar blue", "property uchar alpha"},
            30);
        if (bigEndian)
            header.replace("little", "big");
        PLYReader reader(PLYReader::MeshMode);
        QVERIFY(reader.read(header + body.bytes, never));
        QCOMPARE(support::bytesOf(reader.getMesh().vertices), support::bytesOf(expected.vertices));
        QCOMPARE(reader.getMesh().indices, expected.indices);
        QCOMPARE(reader.getMesh().colors, QList<unsigned int>(20, 0x07080900u));
    }
}

void tst_PLYReader::computesNormals()
{
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(reader.read(plyTriangle(), never));
    geometry::Mesh const expected =
        NormalsCalculator::computeGouraudNormals(geometry::Mesh(corners, oneTriangle), never);
    QVERIFY(support::sameBits(reader.getMesh(), expected));
}

void tst_PLYReader::keepsTheVerticesOfAShortBody()
{
    support::PLYBody const half = support::PLYBody().f32({1, 2, 3, 4, 5, 6});
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(reader.read(plyHeader(4, plyPosition, 2) + half.bytes, never));
    QCOMPARE(reader.getMesh().vertices, (QList<QVector3D>{{1, 2, 3}, {4, 5, 6}}));
    QVERIFY(reader.getMesh().indices.isEmpty());

    PLYReader cloudReader(PLYReader::PointCloudMode);
    QVERIFY(cloudReader.read(plyHeader(4, plyPosition, 2) + half.bytes.chopped(5), never));
    QCOMPARE(cloudReader.getPointCloud().positions, (QList<QVector3D>{{1, 2, 3}, {4, 0, 0}}));
}

void tst_PLYReader::leavesWhatFollows()
{
    QByteArray file = plyTriangle();
    file.replace("end_header", "element edge 5\nproperty int vertex1\nproperty int vertex2\nend_header");
    for (char const* name : {"vertex1", "vertex2"}) {
        QByteArray const message =
            QByteArray("Property ") + name + " of type int is not handled! Property will be skipped.";
        QTest::ignoreMessage(QtCriticalMsg, message.constData());
    }
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(reader.read(file + QByteArray(40, '\x11'), never));
    QCOMPARE(reader.getMesh().vertices, corners);
    QCOMPARE(reader.getMesh().indices, oneTriangle);
    QVERIFY(!reader.getMaterial());
}

void tst_PLYReader::readsPointClouds()
{
    QByteArray const file =
        plyHeader(2, plyPosition + plyNormal + plyColor, 9) +
        support::PLYBody().f32({1, 2, 3, 0, 0, 1}).u8({9, 8, 7}).f32({4, 5, 6, 0, 1, 0}).u8({6, 5, 4}).bytes;
    PLYReader reader(PLYReader::PointCloudMode);
    QVERIFY(reader.read(file, never));
    QCOMPARE(reader.getPointCloud().positions, (QList<QVector3D>{{1, 2, 3}, {4, 5, 6}}));
    QCOMPARE(reader.getPointCloud().normals, (QList<QVector3D>{{0, 0, 1}, {0, 1, 0}}));
    QCOMPARE(reader.getPointCloud().colors(), (QList<unsigned int>{0xFF070809u, 0xFF040506u}));
    QVERIFY(!reader.getPointCloud().material());
    QVERIFY(reader.getMesh().isNull());

    // No faces are asked for, and none are looked at.
    QVERIFY(
        reader.read(plyHeader(2, plyPosition, 0) + support::PLYBody().f32({1, 2, 3, 4, 5, 6}).bytes, never));
    QVERIFY(reader.getPointCloud().normals.isEmpty());
    QVERIFY(reader.getPointCloud().colors().isEmpty());
    QVERIFY(reader.read(plyTriangle() + "\x4", never));
    QCOMPARE(reader.getPointCloud().positions, corners);
}

void tst_PLYReader::pointCloudsKeepAnEarlierMaterial()
{
    QByteArray const withMaterial =
        plyHeader(1, plyPosition, 0, support::plyMaterial) + support::PLYBody().f32({1, 2, 3}).bytes;
    PLYReader reader(PLYReader::PointCloudMode);
    QVERIFY(reader.read(withMaterial, never));
    QVERIFY(reader.getPointCloud().material() == geometry::Material());
    QVERIFY(reader.read(plyTriangle(), never));
    QVERIFY(!reader.getMaterial());
    QVERIFY(reader.getPointCloud().material() == geometry::Material());
}

void tst_PLYReader::failuresKeepTheMesh()
{
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(reader.read(plyTriangle(), never));
    geometry::Mesh const before = reader.getMesh();
    QVERIFY(!reader.read(QByteArray(), never));
    QVERIFY(!reader.read(QByteArray("ply\nformat nonsense 1.0\n"), never));
    QTest::ignoreMessage(QtWarningMsg, trianglesOnly);
    QVERIFY(!reader.read(triangleWith({}, plyIndices, {}, "\4"), never));
    QVERIFY(support::sameBits(reader.getMesh(), before));
}

void tst_PLYReader::emptyFilesGiveEmptyMeshes()
{
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(reader.read(plyTriangle(), never));
    QVERIFY(reader.read(plyHeader(0, plyPosition, 0), never));
    QVERIFY(reader.getMesh().isNull());
    QVERIFY(reader.read(plyHeader(10, plyPosition, 10), never));
    QVERIFY(reader.getMesh().isNull());
    QVERIFY(reader.read(plyHeader(-1, plyPosition, 10), never));
    QVERIFY(reader.getMesh().isNull());
}

QTEST_GUILESS_MAIN(tst_PLYReader)
#include "tst_PLYReader.moc"
