#include "convert/MeshFile.h"

#include "convert/ScanFiles.h"
#include "convert/Suffixes.h"
#include "framework/MeshReader.h"
#include "framework/MeshWriter.h"
#include "framework/XYZWriter.h"
#include "inhouse/meshoperations/NormalsCalculator.h"
#include "volume/BoundarySurface.h"
#include "volume/VolumeFindings.h"

#include <QFile>

#include <array>
#include <memory>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

QList<QVector3D> toVectors(float const* numbers, int count)
{
    QList<QVector3D> vectors(count);
    for (QVector3D& vector : vectors) {
        vector = {numbers[0], numbers[1], numbers[2]};
        numbers += 3;
    }
    return vectors;
}

bool readArrayRecord(QString const& path, MeshFile& file, Reading const&)
{
    int vertexCount = 0;
    int indexCount = 0;
    float* vertices = nullptr;
    float* normals = nullptr;
    int* indices = nullptr;
    if (!MeshReader::read(path, &vertexCount, &vertices, &normals, &indexCount, &indices))
        return false;
    std::unique_ptr<float[]> const vertexOwner(vertices);
    std::unique_ptr<float[]> const normalOwner(normals);
    std::unique_ptr<int[]> const indexOwner(indices);
    file.mesh = geometry::Mesh(toVectors(vertices, vertexCount), QList<int>(indices, indices + indexCount),
                               toVectors(normals, vertexCount));
    return true;
}

// Refused where a row refers to something that is not there; the inspector then says which.
bool readBoundary(QString const& path, MeshFile& file, Reading const&)
{
    VolumeFile const volume = readVolumeFile(path);
    if (!volume.problem.isEmpty() || findingsOf(volume).badReferenceCount > 0)
        return false;
    file.mesh = boundarySurfaceOf(volume.mesh);
    return true;
}

std::vector<float> toNumbers(QList<QVector3D> const& vectors, int count)
{
    std::vector<float> numbers;
    numbers.reserve(3 * static_cast<std::size_t>(count));
    for (QVector3D const& vector : vectors)
        numbers.insert(numbers.end(), {vector.x(), vector.y(), vector.z()});
    numbers.resize(3 * static_cast<std::size_t>(count));
    return numbers;
}

// Every vertex has a normal in such a record; a mesh without any gets those of its facets.
QList<QVector3D> normalsOf(geometry::Mesh const& mesh)
{
    if (!mesh.normals.isEmpty())
        return mesh.normals;
    return NormalsCalculator::computeGouraudNormals(mesh, Interrupt::flag()).normals;
}

bool writeArrayRecord(QString const& path, MeshFile const& file)
{
    int const vertexCount = file.mesh.getNumVertices();
    std::vector<float> vertices = toNumbers(file.mesh.vertices, vertexCount);
    std::vector<float> normals = toNumbers(normalsOf(file.mesh), vertexCount);
    QList<int> indices = file.mesh.indices;
    return MeshWriter::write(path, vertexCount, vertices.data(), normals.data(),
                             static_cast<int>(indices.size()), indices.data());
}

qint64 arrayRecordBytes(QString const&, MeshFile const& file)
{
    return 8 + 48 * qint64(file.mesh.getNumVertices()) + 4 * qint64(file.mesh.getNumIndices());
}

bool writeXyz(QString const& path, MeshFile const& file)
{
    return XYZWriter::write(path, file.mesh.vertices);
}

// The lines tell how many points arrived. A cut file gives a length that no file has.
qint64 xyzBytes(QString const& path, MeshFile const& mesh)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    constexpr qint64 chunk = 1 << 20;
    qint64 lines = 0;
    QByteArray last;
    for (QByteArray bytes = file.read(chunk); !bytes.isEmpty(); bytes = file.read(chunk)) {
        lines += bytes.count('\n');
        last = bytes;
    }
    bool const isWhole = lines == mesh.mesh.getNumVertices() && last.endsWith('\n');
    return isWhole ? file.size() : file.size() + 1;
}

constexpr std::array sources = {
    MeshSource{"stl"_L1, readStl},        MeshSource{"ply"_L1, readPly},
    MeshSource{"obj"_L1, readObj},        MeshSource{"array"_L1, readArrayRecord},
    MeshSource{"vmesh"_L1, readBoundary},
};

constexpr std::array targets = {
    MeshTarget{"stl"_L1, QLatin1StringView(QT_TRANSLATE_NOOP("Text", "binary STL")), writeStl, stlBytes,
               nullptr, true, false},
    MeshTarget{"ply"_L1, QLatin1StringView(QT_TRANSLATE_NOOP("Text", "binary PLY")), writePly, plyBytes,
               plyObstacle, true, true},
    MeshTarget{"xyz"_L1, QLatin1StringView(QT_TRANSLATE_NOOP("Text", "XYZ points")), writeXyz, xyzBytes},
    MeshTarget{"array"_L1, QLatin1StringView(QT_TRANSLATE_NOOP("Text", "mesh array record")),
               writeArrayRecord, arrayRecordBytes},
};

} // namespace

std::span<MeshSource const> meshSources()
{
    return sources;
}

std::span<MeshTarget const> meshTargets()
{
    return targets;
}

MeshSource const* meshSourceFor(QString const& path)
{
    return rowFor(path, meshSources());
}

MeshTarget const* meshTargetFor(QString const& path)
{
    return rowFor(path, meshTargets());
}

QString suffixesOf(std::span<MeshSource const> rows)
{
    return joinedSuffixes(rows);
}

QString suffixesOf(std::span<MeshTarget const> rows)
{
    return joinedSuffixes(rows);
}

} // namespace tool
