#include "differential/peers/Peers.h"
#include "stl/STLReader.h"
#include "stl/STLWriter.h"
#include "support/Meshes.h"
#include "support/StlFiles.h"

#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>
#include <functional>
#include <numbers>

namespace {

using Corner = std::array<float, 3>;
using Facet = std::array<Corner, 3>;

std::atomic<bool> const never = false;

// A facet that the surface cleaner drops: two of its corners are one place.
bool isDegenerate(Facet const& facet)
{
    return facet[0] == facet[1] || facet[1] == facet[2] || facet[2] == facet[0];
}

Corner cornerOf(QVector3D const& v)
{
    return {v.x(), v.y(), v.z()};
}

QList<Facet> facetsOf(geometry::Mesh const& mesh)
{
    QList<Facet> facets;
    QList<QVector3D> const corners = support::cornersOf(mesh);
    for (qsizetype i = 0; i + 2 < corners.size(); i += 3)
        facets << Facet{cornerOf(corners[i]), cornerOf(corners[i + 1]), cornerOf(corners[i + 2])};
    return facets;
}

QList<Facet> facetsOf(peers::PeerMesh const& mesh)
{
    QList<Facet> facets;
    for (auto const& [a, b, c] : mesh.triangles)
        facets << Facet{cornerOf(mesh.vertices[a]), cornerOf(mesh.vertices[b]), cornerOf(mesh.vertices[c])};
    return facets;
}

bool isNear(Facet const& a, Facet const& b, quint32 steps)
{
    for (std::size_t corner = 0; corner < 3; ++corner)
        for (std::size_t axis = 0; axis < 3; ++axis)
            if (a[corner][axis] != b[corner][axis] &&
                qFloatDistance(a[corner][axis], b[corner][axis]) > steps)
                return false;
    return true;
}

// Whether a peer has our facets, in their order, each coordinate at most `steps` representable numbers away,
// and besides them only such as the surface cleaner drops.
bool agree(QList<Facet> const& ours, peers::PeerMesh const& peer, quint32 steps)
{
    qsizetype next = 0;
    for (Facet const& theirs : facetsOf(peer)) {
        if (next < ours.size() && isNear(ours[next], theirs, steps))
            ++next;
        else if (!isDegenerate(theirs))
            return false;
    }
    return next == ours.size();
}

// Assimp converts decimals in single precision, which is not always the nearest number.
quint32 assimpSteps(QString const& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.read(5) == "solid" ? 1 : 0;
}

geometry::Mesh sphere(int rings, int sectors, float radius)
{
    geometry::Mesh mesh;
    constexpr float pi = std::numbers::pi_v<float>;
    for (int ring = 0; ring <= rings; ++ring)
        for (int sector = 0; sector < sectors; ++sector) {
            float const theta = pi * float(ring) / float(rings);
            float const phi = 2 * pi * float(sector) / float(sectors);
            mesh.vertices << radius * QVector3D(std::sin(theta) * std::cos(phi),
                                                std::sin(theta) * std::sin(phi), std::cos(theta));
        }
    for (int ring = 0; ring < rings; ++ring)
        for (int sector = 0; sector < sectors; ++sector) {
            int const a = ring * sectors + sector;
            int const b = ring * sectors + (sector + 1) % sectors;
            mesh.indices << a << a + sectors << b << -1 << b << a + sectors << b + sectors << -1;
        }
    return mesh;
}

geometry::Mesh randomMesh(unsigned seed, int vertices, int triangles)
{
    std::mt19937 random(seed);
    return support::randomMesh(random, vertices, triangles);
}

geometry::Mesh scaled(geometry::Mesh mesh, float factor)
{
    for (QVector3D& v : mesh.vertices)
        v *= factor;
    return mesh;
}

using Writer = std::function<bool(geometry::Mesh const&, QString const&)>;

bool writeOurs(geometry::Mesh const& mesh, QString const& path)
{
    STLWriter writer;
    writer.setData(mesh, 0, 0);
    writer.setFilePath(path);
    return writer.write();
}

// Why a file of the corpus is refused: no text when no known reason fits.
QString refusal(QString const& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QByteArray const data = file.readAll();
    bool const isAscii = data.trimmed().startsWith("solid");
    bool const fits = STLReader::isValidStlFile(data);
    if (isAscii && fits)
        return QStringLiteral("binary, with a header that starts with \"solid\"");
    if (!isAscii && !fits)
        return QStringLiteral("neither ASCII nor as long as its facet count asks for");
    if (!data.contains("vertex"))
        return QStringLiteral("no vertices");
    if (data.contains("\tvertex") || data.contains("vertex\t"))
        return QStringLiteral("tabs where spaces belong");
    return path.contains(QLatin1String("/incomplete_")) ? QStringLiteral("a vertex of two numbers")
                                                        : QString();
}

// Assimp finds vertices between "facet" lines only, in this letter case; here such lines mean nothing.
bool isForAssimp(QString const& path)
{
    QFile file(path);
    QByteArray const data = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    return !data.startsWith("solid") || 3 * data.count("facet normal") == data.count("vertex");
}

bool writeTagged(geometry::Mesh const& mesh, QString const& path)
{
    STLWriter writer;
    writer.setData(mesh, 0xFF, 0x42);
    writer.setHeaderData(MeshHeader(QStringLiteral("Scan Pro 3"), {}, true, QStringLiteral("1.0"), {}));
    writer.setFilePath(path);
    return writer.write();
}

} // namespace

Q_DECLARE_METATYPE(Writer)

class tst_StlDifferential : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sameFacets_data();
    void sameFacets();
    void corpus_data();
    void corpus();

private:
    QTemporaryDir directory;
};

void tst_StlDifferential::sameFacets_data()
{
    if (!peers::hasAssimp() && !peers::hasVtk())
        QSKIP("neither Assimp nor VTK is installed");
    QTest::addColumn<geometry::Mesh>("mesh");
    QTest::addColumn<Writer>("write");
    struct Program
    {
        char const* name;
        Writer write;
        bool isThere;
    };
    auto const assimp = [](char const* format) {
        return [format](geometry::Mesh const& mesh, QString const& path) {
            return peers::saveWithAssimp(mesh, path, format);
        };
    };
    auto const vtk = [](bool isBinary) {
        return [isBinary](geometry::Mesh const& mesh, QString const& path) {
            return peers::saveWithVtk(mesh, path, isBinary);
        };
    };
    Program const programs[] = {{"SurfaceIO", writeOurs, true},
                                {"SurfaceIO with tag and header", writeTagged, true},
                                {"Assimp, ASCII", assimp("stl"), peers::hasAssimp()},
                                {"Assimp, binary", assimp("stlb"), peers::hasAssimp()},
                                {"VTK, ASCII", vtk(false), peers::hasVtk()},
                                {"VTK, binary", vtk(true), peers::hasVtk()}};
    struct Shape
    {
        char const* name;
        geometry::Mesh mesh;
    };
    Shape const shapes[] = {
        {"cube", support::cube()},
        {"one facet", geometry::Mesh({{1, 2, 3}, {0.1f, 0.2f, 0.3f}, {-4, 5, -6}}, {2, 0, 1, -1})},
        {"sphere with degenerate poles", sphere(24, 48, 12.5f)},
        {"random soup", randomMesh(2, 300, 2000)},
        {"sparse soup", randomMesh(3, 5000, 1500)},
        {"tiny", scaled(randomMesh(4, 50, 200), 1e-12f)},
        {"huge", scaled(randomMesh(5, 50, 200), 1e12f)}};
    for (Program const& program : programs)
        for (Shape const& shape : shapes)
            if (program.isThere)
                QTest::addRow("%s: %s", program.name, shape.name) << shape.mesh << program.write;
}

void tst_StlDifferential::sameFacets()
{
    QFETCH(geometry::Mesh, mesh);
    QFETCH(Writer, write);
    QString const path = directory.filePath(QStringLiteral("mesh.stl"));
    QVERIFY(write(mesh, path));
    STLReader reader(nullptr, false, path);
    QVERIFY(reader.read(never));
    QList<Facet> const ours = facetsOf(reader.getMesh());
    QVERIFY(!ours.isEmpty());

    if (peers::hasAssimp()) {
        std::optional<peers::PeerMesh> const theirs = peers::loadWithAssimp(path);
        QVERIFY(theirs && agree(ours, *theirs, assimpSteps(path)));
    }
    if (peers::hasVtk()) {
        std::optional<peers::PeerMesh> const theirs = peers::loadWithVtk(path);
        QVERIFY(theirs && agree(ours, *theirs, 0));
    }
}

void tst_StlDifferential::corpus_data()
{
    QTest::addColumn<QString>("path");
    QString const folder = qEnvironmentVariable("SURFACEIO_CORPUS");
    if (folder.isEmpty() || !QDir(folder).exists())
        QSKIP("no corpus: SURFACEIO_CORPUS names no folder");
    QDirIterator files(folder, {QStringLiteral("*.stl")}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QString const path = files.next();
        QTest::newRow(qPrintable(path.mid(folder.size() + 1))) << path;
    }
}

void tst_StlDifferential::corpus()
{
    QFETCH(QString, path);
    STLReader reader(nullptr, false, path);
    bool const isRead = reader.read(never);
    QString const reason = isRead ? QString() : refusal(path);
    QVERIFY2(isRead || !reason.isEmpty(), "refused without a known reason");
    if (!isRead)
        return;
    std::optional<peers::PeerMesh> const assimp = peers::loadWithAssimp(path);
    QVERIFY(!assimp || !isForAssimp(path) || agree(facetsOf(reader.getMesh()), *assimp, assimpSteps(path)));
    std::optional<peers::PeerMesh> const vtk = peers::loadWithVtk(path);
    QVERIFY(!vtk || agree(facetsOf(reader.getMesh()), *vtk, 0));
}

QTEST_GUILESS_MAIN(tst_StlDifferential)
#include "tst_StlDifferential.moc"
