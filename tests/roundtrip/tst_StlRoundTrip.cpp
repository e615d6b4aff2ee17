#include "framework/MeshReader.h"
#include "framework/MeshWriter.h"
#include "inhouse/data/STLSurfaceData.h"
#include "stl/STLReader.h"
#include "stl/STLTagHandler.h"
#include "stl/STLWriter.h"
#include "support/Meshes.h"
#include "support/StlFiles.h"

#include <QMap>
#include <QTemporaryDir>
#include <QtEndian>
#include <QtTest>

#include <functional>
#include <memory>

using support::cornersOf;
using support::StlFacet;

namespace {

std::atomic<bool> const never = false;

struct Surface
{
    int tag;
    int subTag;
    geometry::Mesh mesh;
};

using Key = std::pair<int, int>;
using Corners = QList<QVector3D>;

// Facets without two equal corners, as the surface cleaner leaves them.
Corners withoutDegenerate(Corners const& corners)
{
    Corners result;
    for (qsizetype i = 0; i < corners.size(); i += 3)
        if (corners[i] != corners[i + 1] && corners[i + 1] != corners[i + 2] && corners[i + 2] != corners[i])
            result << corners.mid(i, 3);
    return result;
}

// Every place once, in the order of first appearance.
Corners places(Corners const& corners)
{
    Corners result;
    for (QVector3D const& corner : corners)
        if (!result.contains(corner))
            result << corner;
    return result;
}

geometry::Mesh randomMesh(std::mt19937& random, int vertices, int triangles)
{
    geometry::Mesh mesh = support::randomMesh(random, vertices, triangles);
    QList<int> indices;
    for (qsizetype i = 0; i < mesh.indices.size(); i += 4)
        if (mesh.indices[i] != mesh.indices[i + 1] && mesh.indices[i + 1] != mesh.indices[i + 2] &&
            mesh.indices[i + 2] != mesh.indices[i])
            indices << mesh.indices.mid(i, 4);
    mesh.indices = indices;
    return mesh;
}

// A file of facets of random tags, in random stretches, over few vertices so that many are shared.
QList<StlFacet> randomFacets(std::mt19937& random, int count)
{
    Corners const corners = cornersOf(randomMesh(random, 40, count));
    QList<StlFacet> facets;
    int tag = 0;
    int subTag = 0;
    for (qsizetype i = 0; i < corners.size(); i += 3) {
        if (random() % 3 == 0) {
            tag = int(random() % 5) * 51;
            subTag = int(random() % 3) * 100;
        }
        facets << StlFacet{corners[i], corners[i + 1], corners[i + 2], subTag, tag};
    }
    return facets;
}

// What a file declares: the corners of each (tag, subTag), in file order.
QMap<Key, Corners> declared(QList<StlFacet> const& facets)
{
    QMap<Key, Corners> result;
    for (StlFacet const& facet : facets)
        result[{facet.tagByte, static_cast<signed char>(facet.subTagByte)}] << facet.a << facet.b << facet.c;
    return result;
}

// What a handler makes of that: one surface for each key that is allowed, then the rest for each subTag.
QList<std::pair<Key, Corners>> expected(QList<StlFacet> const& facets, STLTagHandler const& handler)
{
    QList<std::pair<Key, Corners>> result;
    QMap<int, Corners> rest;
    QMap<Key, Corners> const keys = declared(facets);
    for (auto key = keys.begin(); key != keys.end(); ++key) {
        if (handler.isAllowed(key.key().first))
            result << std::pair(key.key(), key.value());
        else
            rest[key.key().second] << key.value();
    }
    for (auto corners = rest.begin(); corners != rest.end(); ++corners)
        if (!corners->isEmpty())
            result << std::pair(Key(-1, corners.key()), *corners);
    return result;
}

QList<Surface> read(QByteArray const& data, STLTagHandler const* handler, bool sharp = false)
{
    STLReader reader(handler, sharp, {});
    QList<Surface> result;
    if (!reader.read(data, never))
        return result;
    QList<STLSurfaceData*> const surfaces = reader.takeSTLSurfaceDataSets();
    for (STLSurfaceData const* surface : surfaces)
        result << Surface{surface->getTag(), surface->getSubTag(), surface->getMesh()};
    qDeleteAll(surfaces);
    return result;
}

// One file of several surfaces, each as the writer makes it.
QByteArray written(QList<Surface> const& surfaces)
{
    QByteArray file(84, '\0');
    for (Surface const& surface : surfaces) {
        STLWriter writer;
        writer.setData(surface.mesh, static_cast<unsigned char>(surface.subTag),
                       static_cast<unsigned char>(surface.tag));
        QByteArray bytes;
        writer.write(bytes);
        file += bytes.mid(84);
    }
    qToLittleEndian(static_cast<quint32>((file.size() - 84) / 50), file.data() + 80);
    return file;
}

void compare(QList<Surface> const& found, QList<std::pair<Key, Corners>> const& surfaces)
{
    QCOMPARE(found.size(), surfaces.size());
    for (qsizetype i = 0; i < found.size(); ++i) {
        auto const& [key, corners] = surfaces[i];
        QCOMPARE(Key(found[i].tag, found[i].subTag), key);
        QCOMPARE(support::bytesOf(cornersOf(found[i].mesh)), support::bytesOf(corners));
        QCOMPARE(support::bytesOf(found[i].mesh.vertices), support::bytesOf(places(corners)));
        QCOMPARE(found[i].mesh.normals.size(), found[i].mesh.vertices.size());
    }
}

} // namespace

class tst_StlRoundTrip : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void taggedFile_data();
    void taggedFile();
    void tagsSurvive();
    void randomMeshes_data();
    void randomMeshes();
    void degenerateFacetsVanish();
    void sharpEdges();
    void asciiGivesTheSame();
    void throughTheFacades();
};

void tst_StlRoundTrip::taggedFile_data()
{
    QTest::addColumn<unsigned>("seed");
    QTest::addColumn<int>("facets");
    for (unsigned seed = 1; seed <= 12; ++seed)
        QTest::addRow("seed %u", seed) << seed << int(seed * seed * 5);
}

void tst_StlRoundTrip::taggedFile()
{
    QFETCH(unsigned, seed);
    QFETCH(int, facets);
    std::mt19937 random(seed);
    QList<StlFacet> const file = randomFacets(random, facets);
    QByteArray const bytes = support::binaryStl(file);

    UseAllTagsHandler const all;
    InclusiveTagHandler const inclusive({51, 204, 7});
    ExclusiveTagHandler const exclusive({0, 153, 255});
    InclusiveTagHandler const none({1});
    for (STLTagHandler const* handler :
         std::initializer_list<STLTagHandler const*>{&all, &inclusive, &exclusive, &none})
        compare(read(bytes, handler), expected(file, *handler));

    Corners everything;
    for (StlFacet const& facet : file)
        everything << facet.a << facet.b << facet.c;
    compare(read(bytes, nullptr), {{Key(0, -1), everything}});
}

// Written back and read again: the same tags, vertices, facets and normals.
void tst_StlRoundTrip::tagsSurvive()
{
    std::mt19937 random(77);
    UseAllTagsHandler const all;
    for (int round = 0; round < 20; ++round) {
        QList<Surface> const first = read(support::binaryStl(randomFacets(random, 300)), &all);
        QList<Surface> const second = read(written(first), &all);
        QCOMPARE(second.size(), first.size());
        for (qsizetype i = 0; i < first.size(); ++i) {
            QCOMPARE(second[i].tag, first[i].tag);
            QCOMPARE(second[i].subTag, first[i].subTag);
            QVERIFY(support::sameBits(second[i].mesh, first[i].mesh));
        }
    }
}

void tst_StlRoundTrip::randomMeshes_data()
{
    QTest::addColumn<int>("vertices");
    QTest::addColumn<int>("triangles");
    for (auto const& [vertices, triangles] :
         std::initializer_list<std::pair<int, int>>{{3, 20}, {4, 4}, {10, 100}, {300, 100}, {1000, 3000}})
        QTest::addRow("%d triangles over %d vertices", triangles, vertices) << vertices << triangles;
}

void tst_StlRoundTrip::randomMeshes()
{
    QFETCH(int, vertices);
    QFETCH(int, triangles);
    std::mt19937 random(unsigned(vertices * 31 + triangles));
    for (int round = 0; round < 10; ++round) {
        geometry::Mesh const mesh = randomMesh(random, vertices, triangles);
        Corners const corners = cornersOf(mesh);
        QList<Surface> const once = read(written({{9, -3, mesh}}), nullptr);
        QCOMPARE(once.size(), 1);
        QCOMPARE(support::bytesOf(cornersOf(once[0].mesh)), support::bytesOf(corners));
        QCOMPARE(support::bytesOf(once[0].mesh.vertices), support::bytesOf(places(corners)));
        QList<Surface> const twice = read(written(once), nullptr);
        QVERIFY(support::sameBits(twice[0].mesh, once[0].mesh));
    }
}

void tst_StlRoundTrip::degenerateFacetsVanish()
{
    std::mt19937 random(8);
    for (int round = 0; round < 20; ++round) {
        geometry::Mesh const mesh = support::randomMesh(random, 6, 60);
        Corners const corners = withoutDegenerate(cornersOf(mesh));
        QVERIFY(corners.size() < 3 * 60);
        QList<Surface> const once = read(written({{9, -3, mesh}}), nullptr);
        QCOMPARE(support::bytesOf(cornersOf(once[0].mesh)), support::bytesOf(corners));
        QCOMPARE(once[0].mesh.getNumVertices(), places(corners).size());
    }
}

void tst_StlRoundTrip::sharpEdges()
{
    UseAllTagsHandler const all;
    QList<Surface> const once = read(written({{4, 5, support::cube()}}), &all, true);
    QCOMPARE(once.size(), 1);
    // Every corner of a cube has one vertex for each of its three sides.
    QCOMPARE(once[0].mesh.getNumVertices(), 24);
    QCOMPARE(cornersOf(once[0].mesh), cornersOf(support::cube()));
    QList<Surface> const twice = read(written(once), &all, true);
    QVERIFY(support::sameBits(twice[0].mesh, once[0].mesh));
}

void tst_StlRoundTrip::asciiGivesTheSame()
{
    std::mt19937 random(5);
    for (int round = 0; round < 10; ++round) {
        QList<StlFacet> const facets = randomFacets(random, 200);
        STLReader ascii(nullptr, false, {});
        QVERIFY(ascii.read(support::asciiStl(facets), never));
        STLReader binary(nullptr, false, {});
        QVERIFY(binary.read(support::binaryStl(facets), never));
        QVERIFY(support::sameBits(ascii.getMesh(), binary.getMesh()));
    }
}

void tst_StlRoundTrip::throughTheFacades()
{
    QTemporaryDir const directory;
    QString const path = directory.filePath(QStringLiteral("deep/er/mesh.STL"));
    QVERIFY(MeshWriter::write(path, support::cube()));
    utility::Optional<geometry::Mesh> const once = MeshReader::read(path);
    QVERIFY(once);
    QCOMPARE(cornersOf(*once), cornersOf(support::cube()));
    QVERIFY(MeshWriter::write(path, *once));
    utility::Optional<geometry::Mesh> const twice = MeshReader::read(path);
    QVERIFY(twice && support::sameBits(*once, *twice));
}

QTEST_GUILESS_MAIN(tst_StlRoundTrip)
#include "tst_StlRoundTrip.moc"
