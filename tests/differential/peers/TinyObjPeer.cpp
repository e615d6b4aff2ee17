// Built for double precision, so that its own conversion of decimals comes, rounded to float, to the nearest
// number.
#include "differential/peers/CNumbers.h"
#include "differential/peers/Peers.h"

#include <tiny_obj_loader.h>

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cstddef>

namespace peers {

namespace {

using Reals = std::vector<tinyobj::real_t>;

float at(Reals const& reals, std::size_t place)
{
    return static_cast<float>(reals[place]);
}

QVector3D vectorAt(Reals const& reals, int index)
{
    auto const first = 3 * static_cast<std::size_t>(index);
    return {at(reals, first), at(reals, first + 1), at(reals, first + 2)};
}

// The peer takes any number for an index.
bool isInside(tinyobj::attrib_t const& lists, tinyobj::mesh_t const& mesh)
{
    auto const inside = [](int index, std::size_t entries) {
        return index < 0 || static_cast<std::size_t>(index) < entries;
    };
    return std::all_of(mesh.indices.begin(), mesh.indices.end(), [&](tinyobj::index_t const& corner) {
        return corner.vertex_index >= 0 && inside(corner.vertex_index, lists.vertices.size() / 3) &&
               inside(corner.normal_index, lists.normals.size() / 3) &&
               inside(corner.texcoord_index, lists.texcoords.size() / 2);
    });
}

// A vertex for each corner, in the order of the faces.
void append(tinyobj::attrib_t const& lists, tinyobj::mesh_t const& from, PeerMesh& to)
{
    for (tinyobj::index_t const& corner : from.indices) {
        to.vertices << vectorAt(lists.vertices, corner.vertex_index);
        if (corner.normal_index >= 0)
            to.normals << vectorAt(lists.normals, corner.normal_index);
        auto const uv = 2 * static_cast<std::size_t>(std::max(0, corner.texcoord_index));
        if (corner.texcoord_index >= 0)
            to.textureCoordinates << QVector2D(at(lists.texcoords, uv), at(lists.texcoords, uv + 1));
    }
}

} // namespace

bool hasTinyObj()
{
    return true;
}

std::optional<PeerMesh> loadWithTinyObj(QString const& path)
{
    CNumbers const numbers;
    tinyobj::attrib_t lists;
    std::vector<tinyobj::shape_t> shapes;
    std::vector<tinyobj::material_t> materials;
    std::string warnings;
    std::string errors;
    std::string const folder = QFile::encodeName(QFileInfo(path).path() + QLatin1Char('/')).toStdString();
    if (!tinyobj::LoadObj(&lists, &shapes, &materials, &warnings, &errors,
                          QFile::encodeName(path).constData(), folder.c_str()))
        return {};
    PeerMesh result;
    for (tinyobj::shape_t const& shape : shapes) {
        if (!isInside(lists, shape.mesh))
            return {};
        append(lists, shape.mesh, result);
    }
    for (int corner = 0; corner + 2 < result.vertices.size(); corner += 3)
        result.triangles << std::array{corner, corner + 1, corner + 2};
    return result;
}

} // namespace peers
