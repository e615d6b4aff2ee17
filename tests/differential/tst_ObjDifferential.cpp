#include "differential/ObjFaces.h"
#include "differential/ObjSources.h"
#include "differential/peers/Peers.h"
#include "differential/peers/PythonPeer.h"
#include "obj/OBJReader.h"
#include "support/Meshes.h"
#include "support/ObjFiles.h"

#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace objfaces;

namespace {

std::atomic<bool> const never = false;

QByteArray bytesOf(QString const& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class tst_ObjDifferential : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void generated_data();
    void generated();
    void materials_data();
    void materials();
    void writtenByPrograms_data();
    void writtenByPrograms();
    void writtenByPythonPrograms();

private:
    void compare(QString const& path);

    support::ObjFolder folder;
};

void tst_ObjDifferential::initTestCase()
{
    if (!peers::hasTinyObj() && !peers::hasAssimp())
        QSKIP("neither tinyobjloader nor Assimp is installed");
    folder.writeImage(u"texture.png"_s, support::plainImage(4, 4, Qt::blue));
    folder.write(u"one.mtl"_s, "newmtl one\nmap_Kd texture.png\n");
}

void tst_ObjDifferential::compare(QString const& path)
{
    OBJReader::Error code = OBJReader::NoError;
    QByteArray const text = bytesOf(path);
    geometry::Mesh const mesh = readWithOneTexture(text, folder.path(QString()), code);
    QCOMPARE(code, OBJReader::NoError);
    Faces const ours = facesOf(mesh, text.contains("vn "));
    QVERIFY(!ours.corners.isEmpty());
    for (Peer const& peer : allPeers()) {
        if (!peer.isThere)
            continue;
        std::optional<peers::PeerMesh> const theirs = peer.load(path);
        QVERIFY2(theirs, peer.name);
        QString const found = differenceOf(ours, facesOf(*theirs), peer.steps);
        QVERIFY2(found.isEmpty(), qPrintable(QLatin1String(peer.name) + u": "_s + found));
    }
}

void tst_ObjDifferential::generated_data()
{
    using objsources::Layout;
    using objsources::Style;
    using objsources::Surface;
    QTest::addColumn<QByteArray>("text");
    struct NamedStyle
    {
        char const* name;
        Style style;
    };
    struct NamedLayout
    {
        char const* name;
        Layout layout;
    };
    struct NamedSurface
    {
        char const* name;
        Surface surface;
    };
    NamedStyle const styles[] = {
        {"v", {false, false}}, {"v/vt", {true, false}}, {"v//vn", {false, true}}, {"v/vt/vn", {true, true}}};
    NamedLayout const layouts[] = {{"plain", {}},
                                   {"six decimals", {.numberFormat = 'f', .precision = 6}},
                                   {"scientific", {.numberFormat = 'e', .precision = 8}},
                                   {"seventeen digits", {.precision = 17}},
                                   {"carriage returns", {.lineEnd = "\r\n"}},
                                   {"many spaces", {.lineEnd = "  \n", .separator = "   "}},
                                   {"comments, empty lines, groups", {.hasNoise = true}},
                                   {"colours", {.hasColors = true}},
                                   {"three texture coordinates", {.hasThirdNumber = true}},
                                   {"lists between the faces", {.isInterleaved = true}},
                                   {"no line end at the end", {.endsWithoutLineEnd = true}}};
    NamedSurface const surfaces[] = {{"box", objsources::box()},
                                     {"sphere with a seam", objsources::sphere(12, 20)},
                                     {"few of each", objsources::soup(1, 5, 7, 3, 400)},
                                     {"many of each", objsources::soup(2, 900, 400, 700, 500)}};
    auto const add = [](NamedStyle const& style, NamedLayout const& layout, NamedSurface const& surface) {
        QTest::addRow("%s, %s, %s", style.name, layout.name, surface.name)
            << objsources::textOf(surface.surface, style.style, layout.layout);
    };
    for (NamedStyle const& style : styles) {
        for (NamedLayout const& layout : layouts)
            add(style, layout, surfaces[3]);
        for (NamedSurface const& surface : surfaces)
            if (&surface != &surfaces[3])
                add(style, layouts[0], surface);
    }
}

void tst_ObjDifferential::generated()
{
    QFETCH(QByteArray, text);
    compare(folder.write(u"scan.obj"_s, text));
}

void tst_ObjDifferential::materials_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("facesPerMaterial");
    QTest::addColumn<bool>("hasNormals");
    for (int const count : {2, 3, 6})
        for (int const facesPerMaterial : {1, 25})
            for (bool const hasNormals : {false, true})
                QTest::addRow("%d, %d faces each, %d", count, facesPerMaterial, hasNormals)
                    << count << facesPerMaterial << hasNormals;
}

// The region of the atlas that has this colour; y from the bottom.
QRectF regionOf(QImage const& atlas, QColor const& color)
{
    QRect rows;
    for (int y = 0; y < atlas.height(); ++y)
        for (int x = 0; x < atlas.width(); ++x)
            if (atlas.pixelColor(x, y) == color)
                rows |= QRect(x, y, 1, 1);
    return QRect(rows.x(), atlas.height() - rows.y() - rows.height(), rows.width(), rows.height());
}

void tst_ObjDifferential::materials()
{
    QFETCH(int, count);
    QFETCH(int, facesPerMaterial);
    QFETCH(bool, hasNormals);
    QStringList names;
    QList<QColor> colors;
    QByteArray library;
    for (int i = 0; i < count; ++i) {
        // Their order in the file is not that of their names.
        names << u"material %1"_s.arg((i * 5 + 3) % 7);
        colors << QColor(10 + i, 200, 30 * i);
        QString const image = u"image%1.png"_s.arg(i);
        folder.writeImage(image, support::plainImage(16 + 5 * i, 40 - 3 * i, colors[i]));
        library += "newmtl " + names[i].toUtf8() + "\nKd 1 1 1\nmap_Kd " + image.toUtf8() + '\n';
    }
    folder.write(u"materials.mtl"_s, library);
    objsources::Surface const surface = objsources::soup(7, 60, 50, 40, 300);
    QString const path = folder.write(
        u"scan.obj"_s, objsources::textOf(surface, {true, hasNormals}, {}, names, facesPerMaterial));

    OBJReader reader;
    reader.setFileName(path);
    reader.setTextureSupport(SurfaceReader::TextureRequired);
    QVERIFY(reader.read(never));
    Faces const ours = facesOf(reader.getMesh(), hasNormals);
    QImage const atlas = reader.getTexture();
    QList<QRectF> regions;
    for (QColor const& color : colors)
        regions << regionOf(atlas, color);

    for (Peer const& peer : allPeers()) {
        if (!peer.isThere)
            continue;
        std::optional<peers::PeerMesh> const mesh = peer.load(path);
        QVERIFY2(mesh, peer.name);
        Faces theirs = facesOf(*mesh);
        for (qsizetype i = 0; i < theirs.corners.size(); ++i) {
            QRectF const region = regions[i / 3 / facesPerMaterial % count];
            auto const moved = [](float value, double first, double size, int all) {
                return value * (float(size) / float(all)) + float(first) / float(all);
            };
            auto& [u, v] = theirs.corners[i].uv;
            u = moved(u, region.x(), region.width(), atlas.width());
            v = moved(v, region.y(), region.height(), atlas.height());
        }
        QString const text = differenceOf(ours, theirs, peer.steps);
        QVERIFY2(text.isEmpty(), qPrintable(QLatin1String(peer.name) + u": "_s + text));
    }
}

namespace {

geometry::Mesh meshOf(bool hasNormals, bool hasUvs)
{
    std::mt19937 random(3);
    geometry::Mesh mesh = support::randomMesh(random, 120, 200);
    for (qsizetype i = 0; i < mesh.vertices.size(); ++i) {
        float const x = support::randomFloat(random, 1);
        float const y = support::randomFloat(random, 1);
        if (hasNormals)
            mesh.normals << QVector3D(x, y, 0.5f);
        if (hasUvs)
            mesh.textureCoordinates << QVector2D(0.5f + x / 2, 0.5f + y / 2);
    }
    return mesh;
}

bool writeWithVtk(geometry::Mesh const& mesh, QString const& path)
{
    return peers::saveWithVtk(mesh, path, false);
}

bool writeWithAssimp(geometry::Mesh const& mesh, QString const& path)
{
    return peers::saveWithAssimp(mesh, path, "obj");
}

bool writeWithAssimpWithoutMaterial(geometry::Mesh const& mesh, QString const& path)
{
    return peers::saveWithAssimp(mesh, path, "objnomtl");
}

} // namespace

using Writer = bool (*)(geometry::Mesh const&, QString const&);
Q_DECLARE_METATYPE(Writer)

void tst_ObjDifferential::writtenByPrograms_data()
{
    QTest::addColumn<Writer>("write");
    QTest::addColumn<bool>("hasNormals");
    QTest::addColumn<bool>("hasUvs");
    auto const rows = [](char const* name, Writer write, bool isThere) {
        for (int content = 0; isThere && content < 4; ++content)
            QTest::addRow("%s, %d", name, content) << write << (content >= 2) << (content % 2 == 1);
    };
    rows("Assimp", writeWithAssimp, peers::hasAssimp());
    rows("Assimp without materials", writeWithAssimpWithoutMaterial, peers::hasAssimp());
    rows("VTK", writeWithVtk, peers::hasVtk());
    if (!peers::hasAssimp() && !peers::hasVtk())
        QSKIP("neither Assimp nor VTK is installed");
}

void tst_ObjDifferential::writtenByPrograms()
{
    QFETCH(Writer, write);
    QFETCH(bool, hasNormals);
    QFETCH(bool, hasUvs);
    QString const path = folder.path(u"written.obj"_s);
    QVERIFY(write(meshOf(hasNormals, hasUvs), path));
    compare(path);
}

void tst_ObjDifferential::writtenByPythonPrograms()
{
    bool isAnyThere = false;
    for (QString const& program : {u"meshio"_s, u"open3d"_s}) {
        peers::PythonPeer const peer(program);
        if (!peer.isThere())
            continue;
        isAnyThere = true;
        // meshio writes normals without a word of them in the faces.
        bool const writesNormals = program == u"open3d";
        QList<geometry::Mesh> meshes = {meshOf(false, false)};
        QStringList paths = {folder.path(program + u"1.obj"_s)};
        if (writesNormals) {
            meshes << meshOf(true, false);
            paths << folder.path(program + u"2.obj"_s);
        }
        QVERIFY2(peer.save(meshes, paths), qPrintable(program));
        for (QString const& path : paths)
            compare(path);
    }
    if (!isAnyThere)
        QSKIP("neither meshio nor Open3D is installed");
}

QTEST_GUILESS_MAIN(tst_ObjDifferential)
#include "tst_ObjDifferential.moc"
