#include "PlyModel.h"
#include "ply/PLYReader.h"
#include "support/Devices.h"

#include <QTest>

using ply_model::Field;
using ply_model::Result;
using ply_model::Shape;

namespace {

std::atomic<bool> const never = false;

QList<Field> const position = {{"x", "float", 4}, {"y", "float", 4}, {"z", "float", 4}};
QList<Field> const normal = {{"nx", "float", 4}, {"ny", "float", 4}, {"nz", "float", 4}};
QList<Field> const color = {{"red", "uchar", 1}, {"green", "uchar", 1}, {"blue", "uchar", 1}};
QList<Field> const alpha = {{"alpha", "uchar", 1}};
QList<Field> const list = {{"list", {}, 13}};
QList<Field> const someMaterial = {{"ambient_red", "uchar", 1},  {"ambient_green", "uchar", 1},
                                   {"ambient_blue", "uchar", 1}, {"ambient_intensity", "float", 4},
                                   {"emissive_green", "int", 4}, {"emissive_intensity", "double", 8},
                                   {"shininess", "float", 4},    {"detail_noise", "uchar", 1}};

Shape plain()
{
    Shape shape;
    shape.vertices = 3;
    shape.vertexFields = position;
    shape.faces = 2;
    shape.faceFields = list;
    return shape;
}

Shape full()
{
    Shape shape = plain();
    shape.vertices = 4;
    shape.vertexFields = position + normal + color + alpha;
    shape.materialFields = someMaterial;
    return shape;
}

Shape withFaceColors()
{
    Shape shape = plain();
    shape.faceFields = color.mid(0, 1) + list + color.mid(1) + alpha;
    shape.hasFaceColors = true;
    shape.materialFields = someMaterial.mid(6);
    return shape;
}

Shape cloud()
{
    Shape shape = plain();
    shape.vertexFields = color + position;
    shape.faces = 0;
    shape.asCloud = true;
    shape.materialFields = someMaterial.mid(0, 4);
    return shape;
}

Shape textured()
{
    Shape shape = plain();
    shape.comments = {"comment TextureFile some image.png"};
    shape.vertexFields += {{"u", "float", 4}, {"v", "double", 8}};
    shape.hasTexture = true;
    return shape;
}

Shape ofManyTypes()
{
    Shape shape = plain();
    shape.bigEndian = true;
    shape.lineEnd = "\r\n";
    shape.vertexFields = {{"z", "double", 8},
                          {"x", "short", 2},
                          {"shininess", "int", 4},
                          {"y", "uint", 4},
                          {"ny", "double", 8}};
    shape.faceFields = QList<Field>{{"shininess", "double", 8}} + list + QList<Field>{{"x", "short", 2}};
    return shape;
}

Result readIn(Shape const& shape, QIODevice& device)
{
    PLYReader reader(shape.asCloud ? PLYReader::PointCloudMode : PLYReader::MeshMode);
    reader.activeFaceColorMode(shape.hasFaceColors);
    if (shape.hasTexture) {
        reader.setTextureSupport(SurfaceReader::TextureOptional);
        reader.setTextureOverride(QImage(1, 1, QImage::Format_RGB32));
    }
    Result result;
    result.success = reader.read(&device, never);
    result.positions = shape.asCloud ? reader.getPointCloud().positions : reader.getMesh().vertices;
    result.normals = shape.asCloud ? reader.getPointCloud().normals : reader.getMesh().normals;
    result.colors = shape.asCloud ? reader.getPointCloud().colors() : reader.getMesh().colors;
    result.coordinates = reader.getMesh().textureCoordinates;
    result.indices = reader.getMesh().indices;
    result.faceColors = reader.getFaceColors();
    result.material = reader.getMaterial();
    return result;
}

void compare(Shape const& shape, Result const& result, Result const& expected)
{
    QCOMPARE(result.success, expected.success);
    if (!expected.success) {
        QVERIFY(result.positions.isEmpty());
        return;
    }
    QCOMPARE(result.positions, expected.positions);
    // A mesh without normals is given some.
    if (shape.asCloud || !expected.normals.isEmpty())
        QCOMPARE(result.normals, expected.normals);
    QCOMPARE(result.colors, expected.colors);
    QCOMPARE(result.coordinates, expected.coordinates);
    QCOMPARE(result.indices, expected.indices);
    QCOMPARE(result.faceColors, expected.faceColors);
    QVERIFY(result.material == expected.material);
}

void announce(Result const& expected)
{
    if (!expected.critical.isEmpty())
        QTest::ignoreMessage(QtCriticalMsg, expected.critical.constData());
    if (!expected.warning.isEmpty())
        QTest::ignoreMessage(QtWarningMsg, expected.warning.constData());
}

} // namespace

Q_DECLARE_METATYPE(Shape)

class tst_PLYReaderTruncation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyLength_data();
    void everyLength();
};

void tst_PLYReaderTruncation::everyLength_data()
{
    QTest::addColumn<Shape>("shape");
    QTest::newRow("plain") << plain();
    QTest::newRow("normals, colors, material") << full();
    QTest::newRow("face colors") << withFaceColors();
    QTest::newRow("point cloud") << cloud();
    QTest::newRow("texture coordinates") << textured();
    QTest::newRow("many types, big-endian, carriage returns") << ofManyTypes();
}

void tst_PLYReaderTruncation::everyLength()
{
    QFETCH(Shape, shape);
    QByteArray const header = headerOf(shape);
    QByteArray const file = header + bodyOf(shape);
    for (qsizetype length = 0; length <= file.size(); ++length) {
        bool const inHeader = length < header.size();
        Result const expected =
            inHeader ? cutHeader(shape, header.left(length)) : cutBody(shape, length - header.size());
        support::TrickleDevice trickle(file.left(length));
        support::SequentialDevice sequential(file.left(length));
        for (QIODevice* const device :
             {static_cast<QIODevice*>(&trickle), static_cast<QIODevice*>(&sequential)}) {
            announce(expected);
            compare(shape, readIn(shape, *device), expected);
            if (QTest::currentTestFailed())
                QFAIL(("length " + QByteArray::number(length) + " of " + QByteArray::number(file.size()))
                          .constData());
        }
    }
}

QTEST_GUILESS_MAIN(tst_PLYReaderTruncation)
#include "tst_PLYReaderTruncation.moc"
