#define TINYOBJLOADER_IMPLEMENTATION
#include "table/Contender.h"

#include <meshoptimizer.h>
#include <tiny_obj_loader.h>

#include <QFile>

using table::Size;
using table::Work;

namespace {

// A corner as a renderer takes it.
struct Vertex
{
    float position[3];
    float normal[3];
    float uv[2];
};

std::string pathOf(QString const& folder, char const* name)
{
    return QFile::encodeName(folder + u'/' + QLatin1StringView(name)).toStdString();
}

std::vector<Vertex> cornersOf(tinyobj::attrib_t const& lists, std::vector<tinyobj::index_t> const& indices)
{
    std::vector<Vertex> corners(indices.size());
    for (std::size_t i = 0; i < corners.size(); ++i) {
        auto const* const position = &lists.vertices[3 * static_cast<std::size_t>(indices[i].vertex_index)];
        auto const* const normal = &lists.normals[3 * static_cast<std::size_t>(indices[i].normal_index)];
        auto const* const uv = &lists.texcoords[2 * static_cast<std::size_t>(indices[i].texcoord_index)];
        corners[i] = {
            {position[0], position[1], position[2]}, {normal[0], normal[1], normal[2]}, {uv[0], uv[1]}};
    }
    return corners;
}

Size split(std::vector<Vertex> const& corners)
{
    std::vector<unsigned int> remap(corners.size());
    std::size_t const count = meshopt_generateVertexRemap(remap.data(), nullptr, corners.size(),
                                                          corners.data(), corners.size(), sizeof(Vertex));
    std::vector<unsigned int> indices(corners.size());
    meshopt_remapIndexBuffer(indices.data(), nullptr, corners.size(), remap.data());
    std::vector<Vertex> vertices(count);
    meshopt_remapVertexBuffer(vertices.data(), corners.data(), corners.size(), sizeof(Vertex), remap.data());
    return {static_cast<qint64>(count), static_cast<qint64>(indices.size() / 3)};
}

Work readPositions(QString const& folder)
{
    return [path = pathOf(folder, "positions.obj")]() -> std::optional<Size> {
        tinyobj::ObjReader reader;
        if (!reader.ParseFromFile(path) || reader.GetShapes().empty())
            return {};
        return Size{static_cast<qint64>(reader.GetAttrib().vertices.size() / 3),
                    static_cast<qint64>(reader.GetShapes().front().mesh.num_face_vertices.size())};
    };
}

Work readSplit(QString const& folder)
{
    return [path = pathOf(folder, "split.obj")]() -> std::optional<Size> {
        tinyobj::ObjReader reader;
        if (!reader.ParseFromFile(path) || reader.GetShapes().empty())
            return {};
        return split(cornersOf(reader.GetAttrib(), reader.GetShapes().front().mesh.indices));
    };
}

} // namespace

int main(int argc, char** argv)
{
    return table::run({{"obj-read-positions", readPositions, "normals"}, {"obj-read-split", readSplit}}, argc,
                      argv);
}
