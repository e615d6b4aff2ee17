#include "framework/MeshReader.h"
#include "framework/MeshWriter.h"
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

bool readPly(QString const& path)
{
    PLYReader reader(PLYReader::MeshMode);
    reader.setFileName(path);
    return reader.read(never);
}

bool readStl(QString const& path, STLTagHandler const* tags)
{
    STLReader reader(tags, false, path);
    return reader.read(never) && !reader.getMesh().isNull();
}

bool readObj(QString const& path, SurfaceReader::TextureSupport support)
{
    OBJReader reader;
    reader.setFileName(path);
    reader.setTextureSupport(support);
    return reader.read(never);
}

Work plyBytes(QString const& folder)
{
    return [bytes = bytesOf(folder + QStringLiteral("/scan.ply"))] {
        PLYReader reader(PLYReader::MeshMode);
        return reader.read(bytes, never);
    };
}

Work stlRow(QString const& path)
{
    return [path] { return readStl(path, nullptr); };
}

Work taggedStlRow(QString const& path)
{
    return [path] {
        UseAllTagsHandler const tags;
        return readStl(path, &tags);
    };
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
        return writer.write();
    };
}

Work writePly(QString const& folder)
{
    return [folder, mesh = meshOf(folder + QStringLiteral("/scan.ply"))] {
        PLYWriter writer;
        writer.setData(mesh, false, {});
        writer.setFilePath(freshPath(folder, ".ply"));
        return writer.write();
    };
}

Work readVolume(QString const& folder)
{
    return [path = folder + QStringLiteral("/box.vmesh")] {
        MTModelVMeshParser parser(path);
        return parser.read();
    };
}

Work readConditions(QString const& folder)
{
    return [path = folder + QStringLiteral("/conditions.txt")] {
        MTModelBoundaryConditionsParser parser(path);
        return parser.read();
    };
}

Work writeConditions(QString const& folder)
{
    auto parser =
        std::make_shared<MTModelBoundaryConditionsParser>(folder + QStringLiteral("/conditions.txt"));
    parser->read();
    return [folder, parser] {
        MTModelBoundaryConditionsWriter writer(parser->getBoundaryConditions());
        return writer.write(freshPath(folder, ".txt"));
    };
}

Work readTree(QString const& folder)
{
    return [path = folder + QStringLiteral("/scan.shapetree")] {
        return ShapeNodeIOHelper::read(path, QVersionNumber(2, 0), false) != nullptr;
    };
}

Work writeTree(QString const& folder)
{
    std::shared_ptr<geometry::ShapeNode> const tree =
        ShapeNodeIOHelper::read(folder + QStringLiteral("/scan.shapetree"), QVersionNumber(2, 0), false);
    return [folder, tree] { return ShapeNodeIOHelper::write(freshPath(folder, ".shapetree"), tree.get()); };
}

struct Record
{
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
        return read(path, record);
    };
}

Work writeRecord(QString const& folder)
{
    auto record = std::make_shared<Record>();
    read(folder + QStringLiteral("/scan.array"), *record);
    return [folder, record] {
        return MeshWriter::write(freshPath(folder, ".array"), record->numVertices, record->vertices.get(),
                                 record->normals.get(), record->numIndices, record->indices.get());
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
