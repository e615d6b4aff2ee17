#include "table/Contender.h"

#include <OpenMesh/Core/IO/MeshIO.hh>
#include <OpenMesh/Core/Mesh/TriMesh_ArrayKernelT.hh>

#include <QFile>

#include <memory>

using table::Size;
using table::Work;

namespace {

using Mesh = OpenMesh::TriMesh_ArrayKernelT<>;
using Options = OpenMesh::IO::Options;

Size sizeOf(Mesh const& mesh)
{
    return {static_cast<qint64>(mesh.n_vertices()), static_cast<qint64>(mesh.n_faces())};
}

bool read(std::string const& path, Mesh& mesh, Options options)
{
    mesh.request_vertex_normals();
    mesh.request_face_normals();
    mesh.request_vertex_colors();
    if (!OpenMesh::IO::read_mesh(mesh, path, options))
        return false;
    if (!options.vertex_has_normal())
        mesh.update_normals();
    return true;
}

std::string pathOf(QString const& folder, char const* name)
{
    return QFile::encodeName(folder + u'/' + QLatin1StringView(name)).toStdString();
}

auto readRow(char const* name, Options options)
{
    return [name, options](QString const& folder) -> Work {
        return [path = pathOf(folder, name), options]() -> std::optional<Size> {
            Mesh mesh;
            return read(path, mesh, options) ? std::optional(sizeOf(mesh)) : std::nullopt;
        };
    };
}

auto writeRow(char const* suffix, Options options)
{
    return [suffix, options](QString const& folder) -> Work {
        auto mesh = std::make_shared<Mesh>();
        read(pathOf(folder, "scan.ply"), *mesh,
             Options::Binary | Options::VertexNormal | Options::VertexColor);
        return [=, count = 0]() mutable -> std::optional<Size> {
            std::string const path =
                pathOf(folder, "out.openmesh") + QByteArray::number(count++).toStdString() + suffix;
            return OpenMesh::IO::write_mesh(*mesh, path, options) ? std::optional(sizeOf(*mesh))
                                                                  : std::nullopt;
        };
    };
}

} // namespace

int main(int argc, char** argv)
{
    Options const whole = Options::Binary | Options::VertexNormal | Options::VertexColor;
    return table::run({{"ply-read", readRow("scan.ply", whole)},
                       {"ply-write", writeRow(".ply", whole)},
                       {"stl-read", readRow("scan.stl", Options::Binary)},
                       {"stl-read-shuffled", readRow("shuffled.stl", Options::Binary)},
                       {"stl-read-ascii", readRow("ascii.stl", Options::Default)},
                       {"stl-write", writeRow(".stl", Options::Binary)},
                       {"obj-read-positions", readRow("positions.obj", Options::Default)}},
                      argc, argv);
}
