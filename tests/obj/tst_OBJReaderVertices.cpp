#include "obj/OBJReader.h"
#include "support/Meshes.h"
#include "support/ObjFiles.h"

#include <QTest>

#include <random>

using namespace Qt::StringLiterals;

namespace {

std::atomic<bool> const running = false;

QByteArray const threePositions = "v 0 0 0\nv 1 0 0\nv 0 1 0\n";
QByteArray const fourPositions = threePositions + "v 1 1 0\n";

/// A mesh split in the plainest way: an ordered map over the corners as they come.
struct Model
{
    geometry::Mesh mesh;
    std::map<OBJReader::VertexIndices, int> seen;

    void add(OBJReader::VertexIndices const& corner, geometry::Mesh const& source)
    {
        auto const [place, isNew] = seen.emplace(corner, int(mesh.vertices.size()));
        mesh.indices << place->second;
        if (!isNew)
            return;
        mesh.vertices << source.vertices[corner.vertex];
        if (corner.normal >= 0)
            mesh.normals << source.normals[corner.normal];
        if (corner.uv >= 0)
            mesh.textureCoordinates << source.textureCoordinates[corner.uv];
    }
};

QByteArray number(float value)
{
    return QByteArray::number(double(value), 'g', 9);
}

} // namespace

class tst_OBJReaderVertices : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shortcutIgnoresNormalIndices();
    void shortcutIgnoresUvIndices();
    void shortcutIgnoresWildIndices_data();
    void shortcutIgnoresWildIndices();
    void shortcutKeepsUnusedPositions();
    void shortcutChecksPositions_data();
    void shortcutChecksPositions();
    void pointsWithoutFaces();
    void oneNormalForThreeCorners();
    void sharedCornersAreFound();
    void ordersVerticesByFirstUse();
    void dropsUnusedPositions();
    void cornersWithoutNormalLeaveTheListShort();
    void cornersWithoutUvAreRejected();
    void onlyCornersWithoutUvAreFine();
    void normalsThatNobodyUses();
    void materialsPartVertices();
    void shortcutDoesNotPartMaterials();
    void facesWithoutMaterialShareWithTheFirst();
    void indicesOutsideTheirLists_data();
    void indicesOutsideTheirLists();
    void unusedIndicesAreNotJudged();
    void randomMeshes_data();
    void randomMeshes();
};

void tst_OBJReaderVertices::shortcutIgnoresNormalIndices()
{
    QByteArray text;
    QList<QVector3D> normals;
    for (int i = 1; i <= 8; ++i) {
        text += "v " + QByteArray::number(i) + " 0 0\nvn 0 " + QByteArray::number(i) + " 0\n";
        normals << QVector3D(0, float(i), 0);
    }
    OBJReader reader;
    QCOMPARE(reader.read(text + "f 1//5 2//6 3//7\n", running), OBJReader::NoError);
    QCOMPARE(reader.getMesh().vertices.size(), 8);
    QCOMPARE(reader.getMesh().normals, normals);
    QCOMPARE(reader.getMesh().indices, QList<int>({0, 1, 2, -1}));
}

void tst_OBJReaderVertices::shortcutIgnoresUvIndices()
{
    support::ObjFolder const folder;
    folder.writeImage(u"t.png"_s, support::plainImage(4, 4, Qt::blue));
    folder.write(u"m.mtl"_s, "newmtl m\nmap_Kd t.png\n");
    OBJReader reader;
    reader.setFileName(folder.path(u"a.obj"_s));
    reader.setTextureSupport(SurfaceReader::TextureRequired);
    QCOMPARE(reader.read("mtllib m.mtl\n" + threePositions +
                             "vt 0.125 0\nvt 0.25 0\nvt 0.5 0\nusemtl m\nf 1/3 2/3 3/3\nf 1 2 3\n",
                         running),
             OBJReader::NoError);
    QCOMPARE(reader.getMesh().vertices.size(), 3);
    QCOMPARE(reader.getMesh().textureCoordinates, QList<QVector2D>({{0.125f, 0}, {0.25f, 0}, {0.5f, 0}}));
}

void tst_OBJReaderVertices::shortcutIgnoresWildIndices_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("no such lists") << threePositions + "f 1/1/1 2/2/2 3/3/3\n";
    QTest::newRow("beyond the list") << threePositions +
                                            "vn 1 0 0\nvn 1 0 0\nvn 1 0 0\nf 1//4 2//99 3//2147483647\n";
    QTest::newRow("relative") << threePositions + "vn 1 0 0\nvn 1 0 0\nvn 1 0 0\nf 1/-1/-1 2/-2/-2 3/-3/-3\n";
    QTest::newRow("smallest") << threePositions + "f 1/-2147483648/-2147483648 2 3\n";
    QTest::newRow("zero") << threePositions + "f 1/0/0 2/0/0 3/0/0\n";
}

void tst_OBJReaderVertices::shortcutIgnoresWildIndices()
{
    QFETCH(QByteArray, text);
    OBJReader reader;
    QCOMPARE(reader.read(text, running), OBJReader::NoError);
    QCOMPARE(reader.getMesh().indices, QList<int>({0, 1, 2, -1}));
}

void tst_OBJReaderVertices::shortcutKeepsUnusedPositions()
{
    OBJReader reader;
    QCOMPARE(reader.read(fourPositions + "f 4 2 1\n", running), OBJReader::NoError);
    QCOMPARE(reader.getMesh().vertices.size(), 4);
    QCOMPARE(reader.getMesh().indices, QList<int>({3, 1, 0, -1}));
}

void tst_OBJReaderVertices::shortcutChecksPositions_data()
{
    QTest::addColumn<QByteArray>("face");
    for (char const* const face : {"f 1 2 4", "f 4 1 2", "f 1 2147483647 2", "f -1 -2 -3", "f 1 2 -1",
                                   "f 1 2 3\nf 1 2 4", "f 1 -2147483648 2"})
        QTest::addRow("%s", QByteArray(face).replace('\n', ", ").constData()) << QByteArray(face);
}

void tst_OBJReaderVertices::shortcutChecksPositions()
{
    QFETCH(QByteArray, face);
    OBJReader reader;
    QCOMPARE(reader.read(threePositions + face + '\n', running), OBJReader::InvalidVertexId);
    QCOMPARE(reader.getError(), OBJReader::InvalidVertexId);
    QVERIFY(reader.getMesh().isNull());
    QCOMPARE(reader.read(face + '\n', running), OBJReader::InvalidVertexId);
}

void tst_OBJReaderVertices::pointsWithoutFaces()
{
    OBJReader reader;
    QCOMPARE(reader.read(threePositions, running), OBJReader::NoError);
    QCOMPARE(reader.getMesh().vertices.size(), 3);
    QVERIFY(reader.getMesh().indices.isEmpty());
    // With lists that do not match, only the corners of faces become vertices, and there are none.
    QTest::ignoreMessage(QtWarningMsg, "OBJReader: Unable to load mesh with this TextureSupport flag: 0");
    QCOMPARE(reader.read(threePositions + "vn 0 0 1\n", running),
             OBJReader::UnableToLoadMeshWithCurrentTextureSupportFlag);
}

void tst_OBJReaderVertices::oneNormalForThreeCorners()
{
    OBJReader reader;
    QCOMPARE(reader.read(threePositions + "vn 0 0 2\nf 1//1 2//1 3//1\n", running), OBJReader::NoError);
    QCOMPARE(reader.getMesh().vertices, QList<QVector3D>({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}));
    QCOMPARE(reader.getMesh().normals, QList<QVector3D>(3, {0, 0, 2}));
    QCOMPARE(reader.getMesh().indices, QList<int>({0, 1, 2, -1}));
}

void tst_OBJReaderVertices::sharedCornersAreFound()
{
    OBJReader reader;
    QCOMPARE(reader.read(fourPositions + "vn 0 0 1\nvn 0 1 0\nf 1//1 2//1 3//1\nf 2//1 4//1 3//2\n", running),
             OBJReader::NoError);
    QCOMPARE(reader.getMesh().indices, QList<int>({0, 1, 2, -1, 1, 3, 4, -1}));
    QCOMPARE(reader.getMesh().vertices,
             QList<QVector3D>({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {1, 1, 0}, {0, 1, 0}}));
    QCOMPARE(reader.getMesh().normals,
             QList<QVector3D>({{0, 0, 1}, {0, 0, 1}, {0, 0, 1}, {0, 0, 1}, {0, 1, 0}}));
}

void tst_OBJReaderVertices::ordersVerticesByFirstUse()
{
    OBJReader reader;
    QCOMPARE(reader.read(fourPositions + "vn 0 0 1\nf 4//1 3//1 2//1\nf 1//1 2//1 3//1\n", running),
             OBJReader::NoError);
    QCOMPARE(reader.getMesh().vertices, QList<QVector3D>({{1, 1, 0}, {0, 1, 0}, {1, 0, 0}, {0, 0, 0}}));
    QCOMPARE(reader.getMesh().indices, QList<int>({0, 1, 2, -1, 3, 2, 1, -1}));
}

void tst_OBJReaderVertices::dropsUnusedPositions()
{
    OBJReader reader;
    QCOMPARE(reader.read(fourPositions + "vn 0 0 1\nf 1//1 2//1 4//1\n", running), OBJReader::NoError);
    QCOMPARE(reader.getMesh().vertices, QList<QVector3D>({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}}));
}

void tst_OBJReaderVertices::cornersWithoutNormalLeaveTheListShort()
{
    OBJReader reader;
    QCOMPARE(reader.read(threePositions + "vn 0 0 1\nf 1//1 2 3//1\n", running), OBJReader::NoError);
    QCOMPARE(reader.getMesh().vertices.size(), 3);
    QCOMPARE(reader.getMesh().normals.size(), 2);
}

void tst_OBJReaderVertices::cornersWithoutUvAreRejected()
{
    OBJReader reader;
    QTest::ignoreMessage(QtWarningMsg,
                         "OBJReader: mixed textured and untextured vertices are not supported.");
    QCOMPARE(reader.read(threePositions + "vt 0 0\nf 1/1 2 3/1\n", running), OBJReader::IncompleteUvMapping);
    QCOMPARE(reader.getError(), OBJReader::NoError);
    QVERIFY(reader.getMesh().isNull());
}

void tst_OBJReaderVertices::onlyCornersWithoutUvAreFine()
{
    OBJReader reader;
    QCOMPARE(reader.read(threePositions + "vt 0 0\nf 1 2 3\n", running), OBJReader::NoError);
    QCOMPARE(reader.getMesh().vertices.size(), 3);
}

void tst_OBJReaderVertices::normalsThatNobodyUses()
{
    // The normals of the file are dropped, and computed instead.
    OBJReader reader;
    QCOMPARE(reader.read(threePositions + "vn 1 2 3\nf 1 2 3\n", running), OBJReader::NoError);
    QVERIFY(!reader.getMesh().normals.contains(QVector3D(1, 2, 3)));
}

void tst_OBJReaderVertices::materialsPartVertices()
{
    support::ObjFolder const folder;
    folder.writeImage(u"t.png"_s, support::plainImage(4, 4, Qt::blue));
    folder.write(u"m.mtl"_s, "newmtl a\nmap_Kd t.png\nnewmtl b\nmap_Kd t.png\n");
    OBJReader reader;
    reader.setFileName(folder.path(u"a.obj"_s));
    QByteArray const text = "mtllib m.mtl\n" + fourPositions + "vt 0.5 0.5\nusemtl a\nf 1/1 2/1 3/1\n";
    QCOMPARE(reader.read(text + "usemtl b\nf 3/1 2/1 4/1\n", running), OBJReader::NoError);
    QCOMPARE(reader.getMesh().indices, QList<int>({0, 1, 2, -1, 3, 4, 5, -1}));
    QCOMPARE(reader.getMesh().vertices,
             QList<QVector3D>({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 1, 0}, {1, 0, 0}, {1, 1, 0}}));
    QCOMPARE(reader.read(text + "usemtl a\nf 3/1 2/1 4/1\n", running), OBJReader::NoError);
    QCOMPARE(reader.getMesh().indices, QList<int>({0, 1, 2, -1, 2, 1, 3, -1}));
}

void tst_OBJReaderVertices::shortcutDoesNotPartMaterials()
{
    support::ObjFolder const folder;
    folder.writeImage(u"t.png"_s, support::plainImage(4, 4, Qt::blue));
    folder.write(u"m.mtl"_s, "newmtl a\nmap_Kd t.png\nnewmtl b\nmap_Kd t.png\n");
    OBJReader reader;
    reader.setFileName(folder.path(u"a.obj"_s));
    QCOMPARE(
        reader.read("mtllib m.mtl\n" + fourPositions +
                        "vt 0 0\nvt 0 0\nvt 0 0\nvt 0 0\nusemtl a\nf 1/1 2/1 3/1\nusemtl b\nf 3/1 2/1 4/1\n",
                    running),
        OBJReader::NoError);
    QCOMPARE(reader.getMesh().vertices.size(), 4);
}

void tst_OBJReaderVertices::facesWithoutMaterialShareWithTheFirst()
{
    // Ordinals follow the names of the used materials, and a face without one counts as the first.
    support::ObjFolder const folder;
    folder.writeImage(u"t.png"_s, support::plainImage(4, 4, Qt::blue));
    folder.write(u"m.mtl"_s, "newmtl a\nmap_Kd t.png\nnewmtl b\nmap_Kd t.png\n");
    OBJReader reader;
    reader.setFileName(folder.path(u"a.obj"_s));
    QByteArray const head = "mtllib m.mtl\n" + threePositions + "vt 0.5 0.5\n";
    QByteArray const face = "f 1/1 2/1 3/1\n";
    QCOMPARE(
        reader.read(head + face + "usemtl b\n" + face + "usemtl a\n" + face + "usemtl\n" + face, running),
        OBJReader::NoError);
    QCOMPARE(reader.getMesh().indices, QList<int>({0, 1, 2, -1, 3, 4, 5, -1, 0, 1, 2, -1, 0, 1, 2, -1}));
}

void tst_OBJReaderVertices::indicesOutsideTheirLists_data()
{
    QTest::addColumn<QByteArray>("faces");
    for (char const* const faces :
         {"f 1//1 2//1 4//1", "f 1//1 2//1 3//2", "f 1//2 2//1 3//1", "f 1//1 2//1 3//-1",
          "f 1/1/1 2//1 3//1", "f 1//1 2//-1 3//1", "f -1//1 2//1 3//1", "f 1//1 2//2147483647 3//1",
          "f 1//1 2//-2147483648 3//1", "f 1/-1/1 2//1 3//1", "f -2147483648//1 2//1 3//1",
          "f 2147483647//1 2//1 3//1", "f 1//1 2//1 3//1\nf 1//1 2//1 3//2", "f 4 5 6"})
        QTest::addRow("%s", QByteArray(faces).replace('\n', ", ").constData()) << QByteArray(faces);
}

void tst_OBJReaderVertices::indicesOutsideTheirLists()
{
    QFETCH(QByteArray, faces);
    OBJReader reader;
    QCOMPARE(reader.read(threePositions + "vn 0 0 1\n" + faces + '\n', running), OBJReader::InvalidVertexId);
    QCOMPARE(reader.getError(), OBJReader::InvalidVertexId);
    QVERIFY(reader.getMesh().isNull());
}

void tst_OBJReaderVertices::unusedIndicesAreNotJudged()
{
    // An untextured material beside a textured one gets a texture coordinate of its own, whatever its faces
    // say.
    support::ObjFolder const folder;
    folder.writeImage(u"t.png"_s, support::plainImage(4, 4, Qt::blue));
    folder.write(u"m.mtl"_s, "newmtl a\nmap_Kd t.png\nnewmtl b\nKd 1 0 0\n");
    OBJReader reader;
    reader.setFileName(folder.path(u"a.obj"_s));
    QByteArray const text = "mtllib m.mtl\n" + threePositions + "vt 0 0\nusemtl a\nf 1/1 2/1 3/1\nusemtl b\n";
    QCOMPARE(reader.read(text + "f 1/99 2/-5 3\n", running), OBJReader::NoError);
    QCOMPARE(reader.getMesh().vertices.size(), 6);
    QCOMPARE(reader.read(text + "usemtl a\nf 1/99 2/-5 3\n", running), OBJReader::InvalidVertexId);
}

void tst_OBJReaderVertices::randomMeshes_data()
{
    QTest::addColumn<unsigned int>("seed");
    QTest::addColumn<int>("vertices");
    QTest::addColumn<int>("others");
    QTest::addColumn<int>("faces");
    QTest::newRow("dense") << 1u << 10 << 4 << 500;
    QTest::newRow("sparse") << 2u << 500 << 700 << 500;
    // Nearly all corners at two positions.
    QTest::newRow("chained") << 3u << 2 << 3000 << 3000;
    QTest::newRow("one of each") << 4u << 1 << 2 << 100;
}

void tst_OBJReaderVertices::randomMeshes()
{
    QFETCH(unsigned int, seed);
    QFETCH(int, vertices);
    QFETCH(int, others);
    QFETCH(int, faces);
    std::mt19937 random(seed);
    geometry::Mesh source = support::randomMesh(random, vertices, 0);
    source.normals = support::randomMesh(random, others, 0).vertices;
    for (int i = 0; i < others; ++i)
        source.textureCoordinates << QVector2D(support::randomFloat(random, 1),
                                               support::randomFloat(random, 1));
    QByteArray text;
    for (QVector3D const& v : source.vertices)
        text += "v " + number(v.x()) + ' ' + number(v.y()) + ' ' + number(v.z()) + '\n';
    for (QVector3D const& n : source.normals)
        text += "vn " + number(n.x()) + ' ' + number(n.y()) + ' ' + number(n.z()) + '\n';
    for (QVector2D const& t : source.textureCoordinates)
        text += "vt " + number(t.x()) + ' ' + number(t.y()) + '\n';
    Model model;
    auto const below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    for (int face = 0; face < faces; ++face) {
        text += 'f';
        for (int corner = 0; corner < 3; ++corner) {
            OBJReader::VertexIndices const indices{below(vertices), below(others), below(others), 0};
            text += ' ' + QByteArray::number(indices.vertex + 1) + '/' + QByteArray::number(indices.uv + 1) +
                    '/' + QByteArray::number(indices.normal + 1);
            model.add(indices, source);
        }
        model.mesh.indices << -1;
        text += '\n';
    }
    OBJReader reader;
    QCOMPARE(reader.read(text, running), OBJReader::NoError);
    model.mesh.textureCoordinates.clear(); // without a texture they are not kept
    QVERIFY(support::sameBits(reader.getMesh(), model.mesh));
}

QTEST_APPLESS_MAIN(tst_OBJReaderVertices)
#include "tst_OBJReaderVertices.moc"
