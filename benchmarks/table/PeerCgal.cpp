#include "table/Contender.h"

#include <CGAL/Polygon_mesh_processing/compute_normal.h>
#include <CGAL/Simple_cartesian.h>
#include <CGAL/Surface_mesh.h>
#include <CGAL/boost/graph/IO/OBJ.h>
#include <CGAL/boost/graph/IO/PLY.h>
#include <CGAL/boost/graph/IO/STL.h>

#include <QFile>

#include <fstream>
#include <memory>

using table::Size;
using table::Work;

namespace {

using Kernel = CGAL::Simple_cartesian<float>;
using Mesh = CGAL::Surface_mesh<Kernel::Point_3>;

Size sizeOf(Mesh const& mesh)
{
    return {static_cast<qint64>(mesh.number_of_vertices()), static_cast<qint64>(mesh.number_of_faces())};
}

std::string pathOf(QString const& folder, char const* name)
{
    return QFile::encodeName(folder + u'/' + QLatin1StringView(name)).toStdString();
}

bool readPly(std::string const& path, Mesh& mesh)
{
    std::ifstream file(path, std::ios::binary);
    return CGAL::IO::read_PLY(file, mesh);
}

void addNormals(Mesh& mesh)
{
    auto const normals = mesh.add_property_map<Mesh::Vertex_index, Kernel::Vector_3>("v:normal").first;
    CGAL::Polygon_mesh_processing::compute_vertex_normals(mesh, normals);
}

bool readStl(std::string const& path, Mesh& mesh)
{
    if (!CGAL::IO::read_STL(path, mesh))
        return false;
    addNormals(mesh);
    return true;
}

bool readObj(std::string const& path, Mesh& mesh)
{
    if (!CGAL::IO::read_OBJ(path, mesh))
        return false;
    addNormals(mesh);
    return true;
}

auto read(char const* name, bool (*reading)(std::string const&, Mesh&))
{
    return [=](QString const& folder) -> Work {
        return [path = pathOf(folder, name), reading]() -> std::optional<Size> {
            Mesh mesh;
            return reading(path, mesh) ? std::optional(sizeOf(mesh)) : std::nullopt;
        };
    };
}

bool writePly(std::string const& path, Mesh const& mesh)
{
    std::ofstream file(path, std::ios::binary);
    CGAL::IO::set_binary_mode(file);
    return CGAL::IO::write_PLY(file, mesh) && file.flush();
}

bool writeStl(std::string const& path, Mesh const& mesh)
{
    std::ofstream file(path, std::ios::binary);
    CGAL::IO::set_binary_mode(file);
    return CGAL::IO::write_STL(file, mesh) && file.flush();
}

auto write(char const* suffix, bool (*writing)(std::string const&, Mesh const&))
{
    return [=](QString const& folder) -> Work {
        auto mesh = std::make_shared<Mesh>();
        readPly(pathOf(folder, "scan.ply"), *mesh);
        return [=, count = 0]() mutable -> std::optional<Size> {
            std::string const path =
                pathOf(folder, "out.cgal") + QByteArray::number(count++).toStdString() + suffix;
            return writing(path, *mesh) ? std::optional(sizeOf(*mesh)) : std::nullopt;
        };
    };
}

} // namespace

int main(int argc, char** argv)
{
    return table::run({{"ply-read", read("scan.ply", readPly)},
                       {"ply-write", write(".ply", writePly)},
                       {"stl-read", read("scan.stl", readStl)},
                       {"stl-read-shuffled", read("shuffled.stl", readStl)},
                       {"stl-read-ascii", read("ascii.stl", readStl)},
                       {"stl-write", write(".stl", writeStl)},
                       {"obj-read-positions", read("positions.obj", readObj)}},
                      argc, argv);
}
