#include "framework/MeshReader.h"
#include "framework/MeshWriter.h"
#include "inhouse/data/STLSurfaceData.h"
#include "inhouse/data/Shape.h"
#include "inhouse/data/ShapeNode.h"
#include "obj/OBJReader.h"
#include "ply/PLYReader.h"
#include "ply/PLYWriter.h"
#include "scene/ShapeNodeIOHelper.h"
#include "stl/STLReader.h"
#include "stl/STLTagHandler.h"
#include "stl/STLWriter.h"
#include "table/Contender.h"
#include "vmesh/MTModelBoundaryConditionsParser.h"
#include "vmesh/MTModelBoundaryConditionsWriter.h"
#include "vmesh/MTModelVMeshParser.h"

#include <QFile>
#include <QVersionNumber>

#include <memory>

using table::Size;
using table::Work;

namespace {

std::atomic<bool> const never = false;

QByteArray bytesOf(QString const& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

geometry::Mesh meshOf(QString const& path)
{
    return MeshReader::read(path).value_or(geometry::Mesh());
}

// Replacing a file costs much more than a new one on common file systems: each round has a new name.
QString freshPath(QString const& folder, char const* suffix)
{
    static int count = 0;
    QString const path = folder + QStringLiteral("/out.%1").arg(count++) + QLatin1StringView(suffix);
    QFile::remove(path);
    return path;
}

Size sizeOf(geometry::Mesh const& mesh)
{
    auto const bytesOf = [](auto const& list) { return list.size() * qint64(sizeof(list[0])); };
    return {mesh.getNumVertices(), mesh.getNumIndices() / 4,
            bytesOf(mesh.vertices) + bytesOf(mesh.normals) + bytesOf(mesh.indices) + bytesOf(mesh.colors) +
                bytesOf(mesh.textureCoordinates)};
}

template <typename Reader>
std::optional<Size> sizeIfRead(bool success, Reader const& reader)
{
    if (!success)
        return {};
    Size size = sizeOf(reader.getMesh());
    size.bytes += reader.getTexture().sizeInBytes();
    return size;
}

std::optional<Size> sizeIf(bool success, Size const& size)
{
    return success ? std::optional(size) : std::nullopt;
}

std::optional<Size> readPly(QString const& path)
{
    PLYReader reader(PLYReader::MeshMode);
    reader.setFileName(path);
    return sizeIfRead(reader.read(never), reader);
}

std::optional<Size> readTags(QString const& path)
{
    UseAllTagsHandler const tags;
    STLReader reader(&tags, false, path);
    if (!reader.read(never))
        return {};
    Size size{};
    for (STLSurfaceData* const data : reader.takeSTLSurfaceDataSets()) {
        Size const one = sizeOf(data->getMesh());
        size = {size.vertices + one.vertices, size.facets + one.facets, size.bytes + one.bytes};
        delete data;
    }
    return size;
}

std::optional<Size> readObj(QString const& path, SurfaceReader::TextureSupport support)
{
    OBJReader reader;
    reader.setFileName(path);
    reader.setTextureSupport(support);
    return sizeIfRead(reader.read(never), reader);
}

Work plyBytes(QString const& folder)
{
    return [bytes = bytesOf(folder + QStringLiteral("/scan.ply"))] {
        PLYReader reader(PLYReader::MeshMode);
        return sizeIfRead(reader.read(bytes, never), reader);
    };
}

Work stlRow(QString const& path)
{
    return [path] {
        STLReader reader(nullptr, false, path);
        return sizeIfRead(reader.read(never), reader);
    };
}

Work taggedStlRow(QString const& path)
{
    return [path] { return readTags(path); };
}

Work objRow(QString const& path, SurfaceReader::TextureSupport support)
{
    return [path, support] { return readObj(path, support); };
}

Work writeStl(QString const& folder)
{
    return [folder, mesh = meshOf(folder + QStringLiteral("/scan.stl"))] {
        STLWriter writer;
        writer.setData(mesh, 0, 0);
        writer.setFilePath(freshPath(folder, ".stl"));
        return sizeIf(writer.write(), sizeOf(mesh));
    };
}

Work writePly(QString const& folder)
{
    return [folder, mesh = meshOf(folder + QStringLiteral("/scan.ply"))] {
        PLYWriter writer;
        writer.setData(mesh, false, {});
        writer.setFilePath(freshPath(folder, ".ply"));
        return sizeIf(writer.write(), sizeOf(mesh));
    };
}

Work readVolume(QString const& folder)
{
    return [path = folder + QStringLiteral("/box.vmesh")] {
        MTModelVMeshParser parser(path);
        bool const success = parser.read();
        MTModelVMesh const volume = parser.getVMesh();
        qint64 const words = 3 * qint64(volume.numPoints) + 4 * qint64(volume.numTetrahedra) +
                             9 * qint64(volume.numFaces) + 5 * qint64(volume.numBoundFaces);
        return sizeIf(success, Size{volume.numPoints, volume.numTetrahedra, 4 * words});
    };
}

Work readConditions(QString const& folder)
{
    return [path = folder + QStringLiteral("/conditions.txt")] {
        MTModelBoundaryConditionsParser parser(path);
        bool const success = parser.read();
        qint64 const count = parser.getBoundaryConditions().numBoundaryConditions;
        return sizeIf(success, Size{count, 0, 16 * count});
    };
}

Work writeConditions(QString const& folder)
{
    auto parser =
        std::make_shared<MTModelBoundaryConditionsParser>(folder + QStringLiteral("/conditions.txt"));
    parser->read();
    return [folder, parser] {
        MTModelBoundaryConditions const conditions = parser->getBoundaryConditions();
        MTModelBoundaryConditionsWriter writer(conditions);
        return sizeIf(writer.write(freshPath(folder, ".txt")), Size{conditions.numBoundaryConditions, 0});
    };
}

Work readTree(QString const& folder)
{
    return [path = folder + QStringLiteral("/scan.shapetree")]() -> std::optional<Size> {
        auto const tree = ShapeNodeIOHelper::read(path, QVersionNumber(2, 0), false);
        return tree && tree->getShape() ? std::optional(sizeOf(tree->getShape()->getMesh())) : std::nullopt;
    };
}

Work writeTree(QString const& folder)
{
    std::shared_ptr<geometry::ShapeNode> const tree =
        ShapeNodeIOHelper::read(folder + QStringLiteral("/scan.shapetree"), QVersionNumber(2, 0), false);
    return [folder, tree] {
        return sizeIf(ShapeNodeIOHelper::write(freshPath(folder, ".shapetree"), tree.get()),
                      sizeOf(tree->getShape()->getMesh()));
    };
}

struct Record
{
    Size size() const
    {
        return {numVertices, numIndices / 4, 24 * qint64(numVertices) + 4 * qint64(numIndices)};
    }

    int numVertices = 0;
    int numIndices = 0;
    std::unique_ptr<float[]> vertices;
    std::unique_ptr<float[]> normals;
    std::unique_ptr<int[]> indices;
};

bool read(QString const& path, Record& record)
{
    float* vertices = nullptr;
    float* normals = nullptr;
    int* indices = nullptr;
    bool const success =
        MeshReader::read(path, &record.numVertices, &vertices, &normals, &record.numIndices, &indices);
    record.vertices.reset(vertices);
    record.normals.reset(normals);
    record.indices.reset(indices);
    return success;
}

Work readRecord(QString const& folder)
{
    return [path = folder + QStringLiteral("/scan.array")] {
        Record record;
        bool const success = read(path, record);
        return sizeIf(success, record.size());
    };
}

Work writeRecord(QString const& folder)
{
    auto record = std::make_shared<Record>();
    read(folder + QStringLiteral("/scan.array"), *record);
    return [folder, record] {
        bool const success =
            MeshWriter::write(freshPath(folder, ".array"), record->numVertices, record->vertices.get(),
                              record->normals.get(), record->numIndices, record->indices.get());
        return sizeIf(success, record->size());
    };
}

auto in(Work (*row)(QString const&), char const* name)
{
    return [row, name](QString const& folder) { return row(folder + u'/' + QLatin1StringView(name)); };
}

auto obj(char const* name, SurfaceReader::TextureSupport support)
{
    return [name, support](QString const& folder) {
        return objRow(folder + u'/' + QLatin1StringView(name), support);
    };
}

} // namespace

int main(int argc, char** argv)
{
    Work (*const ply)(QString const&) = [](QString const& path) -> Work {
        return [path] { return readPly(path); };
    };
    return table::run({{"ply-read", in(ply, "scan.ply")},
                       {"ply-read-bytes", plyBytes},
                       {"ply-write", writePly},
                       {"stl-read", in(stlRow, "scan.stl")},
                       {"stl-read-shuffled", in(stlRow, "shuffled.stl")},
                       {"stl-read-32-tags", in(taggedStlRow, "tags.stl")},
                       {"stl-read-alternating", in(taggedStlRow, "alternating.stl")},
                       {"stl-read-ascii", in(stlRow, "ascii.stl")},
                       {"stl-write", writeStl},
                       {"obj-read-positions", obj("positions.obj", SurfaceReader::VertexColorsOptional)},
                       {"obj-read-split", obj("split.obj", SurfaceReader::VertexColorsOptional)},
                       {"obj-texture-colors", obj("textured.obj", SurfaceReader::VertexColorsRequired)},
                       {"obj-atlas", obj("atlas.obj", SurfaceReader::TextureRequired)},
                       {"vmesh-read", readVolume},
                       {"conditions-read", readConditions},
                       {"conditions-write", writeConditions},
                       {"tree-read", readTree},
                       {"tree-write", writeTree},
                       {"array-read", readRecord},
                       {"array-write", writeRecord}},
                      argc, argv);
}
