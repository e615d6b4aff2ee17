#include "framework/MeshReader.h"
#include "framework/MeshWriter.h"
#include "ply/PLYWriter.h"
#include "stl/STLWriter.h"

#include <QDataStream>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <random>

namespace {

// Enough for several blocks in every format, and for a last one that is not full.
constexpr int vertexCount = 60'000;
constexpr int triangleCount = 90'001;

geometry::Mesh randomMesh()
{
    std::mt19937 random(1);
    auto const number = [&random] { return static_cast<float>(random() % 2000) / 7.0f - 100.0f; };
    geometry::Mesh mesh;
    for (int i = 0; i < vertexCount; ++i) {
        mesh.vertices << QVector3D(number(), number(), number());
        mesh.normals << QVector3D(number(), number(), number());
        mesh.colors << static_cast<unsigned int>(random());
    }
    for (int i = 0; i < triangleCount; ++i) {
        for (int corner = 0; corner < 3; ++corner)
            mesh.indices << static_cast<int>(random() % vertexCount);
        mesh.indices << -1;
    }
    return mesh;
}

void setUp(QDataStream& stream)
{
    stream.setVersion(QDataStream::Qt_5_15);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream.setFloatingPointPrecision(QDataStream::SinglePrecision);
}

void put(QDataStream& stream, QVector3D const& vector)
{
    stream << vector.x() << vector.y() << vector.z();
}

QByteArray plyBody(geometry::Mesh const& mesh, int colorBits)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    setUp(stream);
    for (int i = 0; i < vertexCount; ++i) {
        put(stream, mesh.vertices.at(i));
        if (!mesh.normals.isEmpty())
            put(stream, mesh.normals.at(i));
        for (int shift = 0; shift < colorBits; shift += 8)
            stream << static_cast<quint8>(mesh.colors.at(i) >> shift);
    }
    for (int i = 0; i < 4 * triangleCount; i += 4)
        stream << quint8(3) << mesh.indices.at(i) << mesh.indices.at(i + 1) << mesh.indices.at(i + 2);
    return bytes;
}

QByteArray stlBody(geometry::Mesh const& mesh, int triangles)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    setUp(stream);
    for (int i = 0; i < 4 * triangles; i += 4) {
        QVector3D const a = mesh.vertices.at(mesh.indices.at(i));
        QVector3D const b = mesh.vertices.at(mesh.indices.at(i + 1));
        QVector3D const c = mesh.vertices.at(mesh.indices.at(i + 2));
        for (QVector3D const& vector : {QVector3D::normal(a, b, c), a, b, c})
            put(stream, vector);
        stream << quint8(7) << quint8(9);
    }
    return bytes;
}

QByteArray bytesOf(QString const& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

/// Writers gather what they write in blocks; every byte is the one that a stream writes value by value.
class tst_Blocks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ply_data();
    void ply();
    void stl();
    void stlUpToABrokenFacet();
    void arrays();

private:
    QTemporaryDir folder;
    geometry::Mesh const mesh = randomMesh();
};

void tst_Blocks::ply_data()
{
    QTest::addColumn<bool>("hasNormals");
    QTest::addColumn<int>("colorBits");
    for (bool const hasNormals : {false, true})
        for (int const colorBits : {0, 24, 32})
            QTest::addRow("%s, %d bits of colour", hasNormals ? "normals" : "none", colorBits)
                << hasNormals << colorBits;
}

void tst_Blocks::ply()
{
    QFETCH(bool, hasNormals);
    QFETCH(int, colorBits);
    geometry::Mesh some = mesh;
    if (!hasNormals)
        some.normals.clear();
    if (colorBits == 0)
        some.colors.clear();
    PLYWriter writer;
    writer.setData(some, colorBits == 32, {});
    QByteArray bytes;
    QVERIFY(writer.write(bytes));
    QVERIFY(bytes.mid(bytes.indexOf("end_header\n") + 11) == plyBody(some, colorBits));
    writer.setFilePath(folder.filePath(QStringLiteral("a.ply")));
    QVERIFY(writer.write());
    QVERIFY(bytesOf(folder.filePath(QStringLiteral("a.ply"))) == bytes);
}

void tst_Blocks::stl()
{
    STLWriter writer;
    writer.setData(mesh, 7, 9);
    QByteArray bytes;
    QVERIFY(writer.write(bytes));
    QVERIFY(bytes.mid(84) == stlBody(mesh, triangleCount));
    writer.setFilePath(folder.filePath(QStringLiteral("a.stl")));
    QVERIFY(writer.write());
    QVERIFY(bytesOf(folder.filePath(QStringLiteral("a.stl"))) == bytes);
}

void tst_Blocks::stlUpToABrokenFacet()
{
    for (int const facet : {0, 63, 64, 10'483, 10'484, 10'485, 30'000, triangleCount - 1}) {
        geometry::Mesh broken = mesh;
        broken.indices[4 * facet + 1] = vertexCount;
        STLWriter writer;
        writer.setData(broken, 7, 9);
        QByteArray bytes;
        QVERIFY(!writer.write(bytes));
        QVERIFY(bytes.mid(84) == stlBody(mesh, facet));
    }
}

void tst_Blocks::arrays()
{
    geometry::Mesh copy = mesh;
    QString const path = folder.filePath(QStringLiteral("a.array"));
    auto* const vertices = reinterpret_cast<float*>(copy.vertices.data());
    auto* const normals = reinterpret_cast<float*>(copy.normals.data());
    auto const indexCount = static_cast<int>(copy.indices.size());
    QVERIFY(MeshWriter::write(path, vertexCount, vertices, normals, indexCount, copy.indices.data()));
    QByteArray expected;
    QDataStream stream(&expected, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_15);
    stream << qint32(vertexCount) << qint32(indexCount);
    for (float const* const list : {vertices, normals})
        for (int i = 0; i < 3 * vertexCount; ++i)
            stream << list[i];
    for (int const index : copy.indices)
        stream << index;
    QVERIFY(bytesOf(path) == expected);

    int vertexNumber = 0;
    int indexNumber = 0;
    float* readVertices = nullptr;
    float* readNormals = nullptr;
    int* readIndices = nullptr;
    QVERIFY(MeshReader::read(path, &vertexNumber, &readVertices, &readNormals, &indexNumber, &readIndices));
    std::unique_ptr<float[]> const ownedVertices(readVertices);
    std::unique_ptr<float[]> const ownedNormals(readNormals);
    std::unique_ptr<int[]> const ownedIndices(readIndices);
    QCOMPARE(vertexNumber, vertexCount);
    QCOMPARE(indexNumber, indexCount);
    QVERIFY(std::equal(vertices, vertices + 3 * vertexCount, readVertices));
    QVERIFY(std::equal(normals, normals + 3 * vertexCount, readNormals));
    QVERIFY(std::equal(copy.indices.cbegin(), copy.indices.cend(), readIndices));
}

QTEST_GUILESS_MAIN(tst_Blocks)
#include "tst_Blocks.moc"
