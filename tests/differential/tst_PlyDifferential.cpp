#include "differential/peers/Peers.h"
#include "differential/peers/PythonPeer.h"
#include "ply/PLYReader.h"
#include "ply/PLYWriter.h"
#include "support/Meshes.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

std::atomic<bool> const never = false;

/// What a file holds besides positions and triangles.
struct Content
{
    char const* name;
    bool normals;
    bool colors;
    bool alpha;
    bool extras;
};

constexpr Content contents[] = {
    {"bare", false, false, false, false},   {"normals", true, false, false, false},
    {"colors", false, true, false, false},  {"normals and colors", true, true, false, false},
    {"alpha", false, true, true, false},    {"metadata and material", false, false, false, true},
    {"everything", true, true, true, true},
};

constexpr unsigned int opaque = 0xFF000000u;

geometry::Mesh meshOf(Content const& content)
{
    std::mt19937 random(5);
    geometry::Mesh mesh = support::randomMesh(random, 200, 300);
    for (qsizetype i = 0; i < mesh.vertices.size(); ++i) {
        float const x = support::randomFloat(random, 1);
        if (content.normals)
            mesh.normals << QVector3D(x, support::randomFloat(random, 1), 0.5f);
        if (content.colors)
            mesh.colors << (content.alpha ? static_cast<unsigned int>(random())
                                          : static_cast<unsigned int>(random()) | opaque);
    }
    return mesh;
}

QList<geometry::Mesh> allMeshes()
{
    QList<geometry::Mesh> meshes;
    for (Content const& content : contents)
        meshes << meshOf(content);
    return meshes;
}

bool writeOurs(Content const& content, QString const& path)
{
    PLYWriter writer;
    writer.setFilePath(path);
    writer.setData(meshOf(content), content.alpha,
                   content.extras ? utility::Optional<geometry::Material>(geometry::Material::metal())
                                  : std::nullopt);
    if (content.extras)
        writer.setHeaderData(
            MeshHeader(u"Scanner"_s, u"SN 1"_s, true, u"2.0"_s, QDateTime(QDate(2024, 1, 2), QTime(3, 4))));
    return writer.write();
}

QList<std::array<int, 3>> trianglesOf(geometry::Mesh const& mesh)
{
    QList<std::array<int, 3>> triangles;
    for (qsizetype i = 0; i < mesh.indices.size(); i += 4)
        triangles << std::array{mesh.indices[i], mesh.indices[i + 1], mesh.indices[i + 2]};
    return triangles;
}

// Bare red, green and blue: some programs drop the alpha, others make one up.
QList<unsigned int> withoutAlpha(QList<unsigned int> colors)
{
    for (unsigned int& color : colors)
        color &= ~opaque;
    return colors;
}

// Whether both hold the same, bit for bit. Normals and colours that the peer does not report do not count.
void compare(geometry::Mesh const& ours, peers::PeerMesh const& theirs, bool withAlpha)
{
    QCOMPARE(support::bytesOf(ours.vertices), support::bytesOf(theirs.vertices));
    QCOMPARE(trianglesOf(ours), theirs.triangles);
    if (!theirs.normals.isEmpty())
        QCOMPARE(support::bytesOf(ours.normals), support::bytesOf(theirs.normals));
    if (!theirs.colors.isEmpty() && !withAlpha)
        QCOMPARE(withoutAlpha(ours.colors), withoutAlpha(theirs.colors));
    if (!theirs.colors.isEmpty() && withAlpha)
        QCOMPARE(ours.colors, theirs.colors);
}

// What a peer that knows normals, or colours, must have reported.
void compareWithSource(Content const& content, peers::PeerMesh const& theirs, bool knowsNormals)
{
    if (knowsNormals)
        QCOMPARE(!theirs.normals.isEmpty(), content.normals);
    QCOMPARE(!theirs.colors.isEmpty(), content.colors);
}

// meshio 5.0 knows the list by one of its two names only, and takes "uchar" for a signed byte. The body
// stays.
bool translateForMeshio(QString const& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite))
        return false;
    QByteArray bytes = file.readAll();
    qsizetype const bodyStart = bytes.indexOf("end_header\n");
    QByteArray header = bytes.left(bodyStart);
    header.replace("uchar", "uint8").replace("vertex_index", "vertex_indices");
    return file.resize(0) && file.seek(0) && file.write(header + bytes.mid(bodyStart)) > 0;
}

geometry::Mesh readByUs(QString const& path, bool hasNormals)
{
    PLYReader reader(PLYReader::MeshMode);
    reader.setFileName(path);
    if (!reader.read(never))
        return {};
    geometry::Mesh mesh = reader.getMesh();
    if (!hasNormals)
        mesh.normals.clear();
    return mesh;
}

} // namespace

class tst_PlyDifferential : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void assimpReadsOurs_data() { addContents(); }
    void assimpReadsOurs();
    void weReadAssimps_data();
    void weReadAssimps();
    void assimpsTextureCoordinates();
    void vtkReadsOurs_data() { addContents(); }
    void vtkReadsOurs();
    void weReadVtks_data() { addContents(); }
    void weReadVtks();
    void meshioReadsOurs();
    void weReadMeshios_data();
    void weReadMeshios();
    void open3dReadsOurs();
    void weReadOpen3ds();

private:
    static void addContents();
    static Content const& content()
    {
        QFETCH(int, index);
        return contents[index];
    }
    static QString skipReason(char const* program)
    {
        return u"%1 is not installed"_s.arg(QLatin1StringView(program));
    }
    QString path(QString const& name) const { return folder.filePath(name); }
    QStringList paths(QString const& program) const;
    void readsOurs(peers::PythonPeer const& peer, QList<int> const& indices, bool knowsAlpha) const;

    QTemporaryDir folder;
    peers::PythonPeer const meshio{u"meshio"_s};
    peers::PythonPeer const open3d{u"open3d"_s};
};

void tst_PlyDifferential::addContents()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < int(std::size(contents)); ++i)
        QTest::newRow(contents[i].name) << i;
}

QStringList tst_PlyDifferential::paths(QString const& program) const
{
    QStringList result;
    for (std::size_t i = 0; i < std::size(contents); ++i)
        result << path(u"%1-%2.ply"_s.arg(program).arg(i));
    return result;
}

void tst_PlyDifferential::assimpReadsOurs()
{
    if (!peers::hasAssimp())
        QSKIP(qPrintable(skipReason("Assimp")));
    QVERIFY(writeOurs(content(), path(u"ours.ply"_s)));
    auto const theirs = peers::loadWithAssimp(path(u"ours.ply"_s));
    QVERIFY(theirs);
    compare(meshOf(content()), *theirs, true);
    compareWithSource(content(), *theirs, true);
}

// Assimp 5.2 declares the channels of a colour as bytes and writes them as floats.
void tst_PlyDifferential::weReadAssimps_data()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < int(std::size(contents)); ++i)
        if (!contents[i].colors)
            QTest::newRow(contents[i].name) << i;
}

void tst_PlyDifferential::weReadAssimps()
{
    if (!peers::hasAssimp())
        QSKIP(qPrintable(skipReason("Assimp")));
    QVERIFY(peers::saveWithAssimp(meshOf(content()), path(u"assimp.ply"_s), "plyb"));
    geometry::Mesh const ours = readByUs(path(u"assimp.ply"_s), content().normals);
    QVERIFY(support::sameBits(ours, meshOf(content())));
    auto const theirs = peers::loadWithAssimp(path(u"assimp.ply"_s));
    QVERIFY(theirs);
    compare(ours, *theirs, true);
}

// Assimp writes them as s and t.
void tst_PlyDifferential::assimpsTextureCoordinates()
{
    if (!peers::hasAssimp())
        QSKIP(qPrintable(skipReason("Assimp")));
    geometry::Mesh mesh = meshOf(contents[1]);
    for (qsizetype i = 0; i < mesh.vertices.size(); ++i)
        mesh.textureCoordinates << QVector2D(float(i) / 256.0f, 0.75f);
    QVERIFY(peers::saveWithAssimp(mesh, path(u"assimp.ply"_s), "plyb"));
    QFile file(path(u"assimp.ply"_s));
    QVERIFY(file.open(QIODevice::ReadOnly));
    PLYReader reader(PLYReader::MeshMode);
    reader.setTextureSupport(SurfaceReader::TextureRequired);
    reader.setTextureOverride(QImage(1, 1, QImage::Format_RGB32));
    QVERIFY(reader.read("comment TextureFile any\n" + file.readAll(), never));
    QVERIFY(support::sameBits(reader.getMesh(), mesh));
}

void tst_PlyDifferential::vtkReadsOurs()
{
    if (!peers::hasVtk())
        QSKIP(qPrintable(skipReason("VTK")));
    QVERIFY(writeOurs(content(), path(u"ours.ply"_s)));
    auto const theirs = peers::loadWithVtk(path(u"ours.ply"_s));
    QVERIFY(theirs);
    compare(meshOf(content()), *theirs, content().alpha);
    compareWithSource(content(), *theirs, true);
}

void tst_PlyDifferential::weReadVtks()
{
    if (!peers::hasVtk())
        QSKIP(qPrintable(skipReason("VTK")));
    QVERIFY(peers::saveWithVtk(meshOf(content()), path(u"vtk.ply"_s), true));
    geometry::Mesh source = meshOf(content());
    source.normals.clear(); // VTK 9.1 writes none
    geometry::Mesh const ours = readByUs(path(u"vtk.ply"_s), false);
    QVERIFY(support::sameBits(ours, source));
    auto const theirs = peers::loadWithVtk(path(u"vtk.ply"_s));
    QVERIFY(theirs);
    compare(ours, *theirs, true);
}

void tst_PlyDifferential::readsOurs(peers::PythonPeer const& peer, QList<int> const& indices,
                                    bool knowsAlpha) const
{
    QStringList files;
    for (int const index : indices)
        files << paths(u"ours"_s)[index];
    auto const theirs = peer.load(files);
    for (qsizetype i = 0; i < files.size(); ++i) {
        Content const& given = contents[indices[i]];
        QVERIFY2(theirs[i], given.name);
        compare(meshOf(given), *theirs[i], knowsAlpha && given.alpha);
        compareWithSource(given, *theirs[i], true);
        if (QTest::currentTestFailed())
            QFAIL(given.name);
    }
}

void tst_PlyDifferential::meshioReadsOurs()
{
    if (!meshio.isThere())
        QSKIP(qPrintable(skipReason("meshio")));
    QList<int> known;
    for (int i = 0; i < int(std::size(contents)); ++i) {
        QVERIFY(writeOurs(contents[i], paths(u"ours"_s)[i]));
        QVERIFY(translateForMeshio(paths(u"ours"_s)[i]));
        if (!contents[i].extras) // it knows no other elements
            known << i;
    }
    readsOurs(meshio, known, true);
}

void tst_PlyDifferential::weReadMeshios_data()
{
    QTest::addColumn<QString>("precision");
    QTest::newRow("floats") << u"float32"_s;
    QTest::newRow("doubles") << u"float64"_s;
}

void tst_PlyDifferential::weReadMeshios()
{
    if (!meshio.isThere())
        QSKIP(qPrintable(skipReason("meshio")));
    QFETCH(QString, precision);
    QStringList const files = paths(u"meshio"_s);
    QVERIFY(meshio.save(allMeshes(), files, precision));
    auto const theirs = meshio.load(files);
    for (qsizetype i = 0; i < files.size(); ++i) {
        geometry::Mesh const ours = readByUs(files[i], contents[i].normals);
        QVERIFY2(support::sameBits(ours, meshOf(contents[i])), contents[i].name);
        QVERIFY2(theirs[i], contents[i].name);
        compare(ours, *theirs[i], true);
    }
}

void tst_PlyDifferential::open3dReadsOurs()
{
    if (!open3d.isThere())
        QSKIP(qPrintable(skipReason("Open3D")));
    QList<int> all;
    for (int i = 0; i < int(std::size(contents)); ++i) {
        QVERIFY(writeOurs(contents[i], paths(u"ours"_s)[i]));
        all << i;
    }
    readsOurs(open3d, all, false);
}

void tst_PlyDifferential::weReadOpen3ds()
{
    if (!open3d.isThere())
        QSKIP(qPrintable(skipReason("Open3D")));
    QStringList const files = paths(u"open3d"_s);
    QVERIFY(open3d.save(allMeshes(), files));
    auto const theirs = open3d.load(files);
    for (qsizetype i = 0; i < files.size(); ++i) {
        geometry::Mesh source = meshOf(contents[i]);
        for (unsigned int& color : source.colors)
            color |= opaque; // Open3D knows no alpha
        geometry::Mesh const ours = readByUs(files[i], contents[i].normals);
        QVERIFY2(support::sameBits(ours, source), contents[i].name);
        QVERIFY2(theirs[i], contents[i].name);
        compare(ours, *theirs[i], false);
    }
}

QTEST_GUILESS_MAIN(tst_PlyDifferential)
#include "tst_PlyDifferential.moc"
