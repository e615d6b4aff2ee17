#include "ply/PLYReader.h"
#include "ply/PLYWriter.h"
#include "support/Meshes.h"
#include "support/PlyFiles.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <bit>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

std::atomic<bool> const never = false;

using Random = std::mt19937;

bool flip(Random& random)
{
    return (random() & 1) != 0;
}

// Any finite float, the smallest and the largest included.
float anyFloat(Random& random)
{
    auto const value = std::bit_cast<float>(static_cast<quint32>(random()));
    return std::isfinite(value) ? value : 0.0f;
}

QVector3D anyVector(Random& random)
{
    float const x = anyFloat(random);
    float const y = anyFloat(random);
    return {x, y, anyFloat(random)};
}

QColor anyColor(Random& random)
{
    return QColor::fromRgb(static_cast<QRgb>(random()));
}

geometry::Mesh anyMesh(Random& random)
{
    int const vertices = 1 + static_cast<int>(random() % 40);
    geometry::Mesh mesh = support::randomMesh(random, vertices, 1 + static_cast<int>(random() % 60));
    bool const hasNormals = flip(random);
    bool const hasColors = flip(random);
    for (QVector3D& vertex : mesh.vertices) {
        vertex = anyVector(random);
        if (hasNormals)
            mesh.normals << anyVector(random);
        if (hasColors)
            mesh.colors << static_cast<unsigned int>(random());
    }
    return mesh;
}

geometry::Material anyMaterial(Random& random)
{
    geometry::Material material;
    for (QColor* const color :
         {&material.ambientColor, &material.diffuseColor, &material.specularColor, &material.emissiveColor})
        *color = anyColor(random);
    for (float* const number : {&material.ambientIntensity, &material.diffuseIntensity,
                                &material.specularIntensity, &material.emissiveIntensity, &material.shininess,
                                &material.transparency, &material.baseReflectance})
        *number = anyFloat(random);
    material.detailNoise = flip(random);
    return material;
}

MeshHeader anyHeader(Random& random)
{
    QString const name(static_cast<qsizetype>(random() % 30), u'n');
    return {name, u"SN %1"_s.arg(random()), flip(random), u"1.2"_s,
            QDateTime(QDate(2020, 1, 1).addDays(random() % 2000), QTime(12, 0))};
}

// The same file in the other byte order, made value by value.
QByteArray bigEndianTwin(QByteArray const& file, geometry::Mesh const& mesh, bool withAlpha)
{
    qsizetype const bodyStart = file.indexOf("end_header\n") + 11;
    support::PLYBody body(true);
    for (qsizetype i = 0; i < mesh.vertices.size(); ++i) {
        body.f32({mesh.vertices[i].x(), mesh.vertices[i].y(), mesh.vertices[i].z()});
        if (!mesh.normals.isEmpty())
            body.f32({mesh.normals[i].x(), mesh.normals[i].y(), mesh.normals[i].z()});
        for (int shift = 0; !mesh.colors.isEmpty() && shift < (withAlpha ? 32 : 24); shift += 8)
            body.u8(static_cast<int>(mesh.colors[i] >> shift & 0xFF));
    }
    for (qsizetype i = 0; i < mesh.indices.size(); i += 4)
        body.triangle(mesh.indices[i], mesh.indices[i + 1], mesh.indices[i + 2]);
    return file.left(bodyStart).replace("little", "big") + body.bytes;
}

} // namespace

class tst_PlyRoundTrip : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void meshesComeBack();
    void pointCloudsComeBack();
    void stripsComeBackAsTriangles();
    void filesComeBack();
};

void tst_PlyRoundTrip::meshesComeBack()
{
    Random random(20240229);
    for (int round = 0; round < 500; ++round) {
        geometry::Mesh mesh = anyMesh(random);
        bool const withAlpha = flip(random);
        auto const material =
            flip(random) ? utility::Optional<geometry::Material>(anyMaterial(random)) : std::nullopt;
        PLYWriter writer;
        writer.setData(mesh, withAlpha, material);
        if (flip(random))
            writer.setHeaderData(anyHeader(random));
        QByteArray bytes;
        QVERIFY(writer.write(bytes));

        QByteArrayList files = {bytes};
        if (!material)
            files << bigEndianTwin(bytes, mesh, withAlpha);
        for (unsigned int& color : mesh.colors)
            color |= withAlpha ? 0u : 0xFF000000u;
        for (QByteArray const& file : files) {
            PLYReader reader(PLYReader::MeshMode);
            QVERIFY2(reader.read(file, never), QByteArray::number(round).constData());
            geometry::Mesh result = reader.getMesh();
            if (mesh.normals.isEmpty())
                result.normals.clear();
            QVERIFY2(support::sameBits(result, mesh), QByteArray::number(round).constData());
            QVERIFY(reader.getMaterial() == material);
        }
    }
}

void tst_PlyRoundTrip::pointCloudsComeBack()
{
    Random random(7);
    for (int round = 0; round < 100; ++round) {
        geometry::Mesh const mesh = anyMesh(random);
        geometry::PointCloud cloud;
        cloud.positions = mesh.vertices;
        cloud.normals = mesh.normals;
        cloud.colors() = mesh.colors;
        PLYWriter writer;
        writer.setData(geometry::Mesh(), true, {});
        writer.setData(cloud);
        QByteArray bytes;
        QVERIFY(writer.write(bytes));
        PLYReader reader(PLYReader::PointCloudMode);
        QVERIFY(reader.read(bytes, never));
        QCOMPARE(support::bytesOf(reader.getPointCloud().positions), support::bytesOf(cloud.positions));
        QCOMPARE(support::bytesOf(reader.getPointCloud().normals), support::bytesOf(cloud.normals));
        QCOMPARE(reader.getPointCloud().colors(), cloud.colors());
    }
}

void tst_PlyRoundTrip::stripsComeBackAsTriangles()
{
    geometry::Mesh mesh = support::cube();
    mesh.indices = {0, 1, 2, 3, 4, -1, 5, 6, 7};
    PLYWriter writer;
    writer.setData(mesh, false, {});
    QByteArray bytes;
    QVERIFY(writer.write(bytes));
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(reader.read(bytes, never));
    QCOMPARE(reader.getMesh().indices, (QList<int>{0, 1, 2, -1, 2, 1, 3, -1, 2, 3, 4, -1, 5, 6, 7, -1}));
}

void tst_PlyRoundTrip::filesComeBack()
{
    Random random(99);
    QTemporaryDir const folder;
    QString const path = folder.filePath(u"gr\u00F6\u00DFe.ply"_s);
    for (int round = 0; round < 20; ++round) {
        geometry::Mesh const mesh = support::randomMesh(random, 2000, 4000);
        PLYWriter writer;
        writer.setFilePath(path);
        writer.setData(mesh, false, {});
        QVERIFY(writer.write());
        PLYReader reader(PLYReader::MeshMode);
        reader.setFileName(path);
        QVERIFY(reader.read(never));
        QCOMPARE(support::bytesOf(reader.getMesh().vertices), support::bytesOf(mesh.vertices));
        QCOMPARE(reader.getMesh().indices, mesh.indices);
    }
}

QTEST_GUILESS_MAIN(tst_PlyRoundTrip)
#include "tst_PlyRoundTrip.moc"
