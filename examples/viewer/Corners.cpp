#include "Corners.h"

#include "inhouse/data/Unstrip.h"

#include <algorithm>
#include <cmath>

namespace {

bool isFinite(QVector3D const& v)
{
    return std::isfinite(v.x()) && std::isfinite(v.y()) && std::isfinite(v.z());
}

// Packed 0xAABBGGRR.
QColor unpacked(unsigned int colour)
{
    return QColor(int(colour & 0xff), int(colour >> 8 & 0xff), int(colour >> 16 & 0xff));
}

// What the triangle itself says, for a corner of which the mesh says less.
struct Face
{
    QVector3D normal;
    QColor colour;
};

QColor colourOf(Part const& part, int index, Face const& face)
{
    if (face.colour.isValid())
        return face.colour;
    return index < part.mesh.colors.size() ? unpacked(part.mesh.colors[index]) : part.colour;
}

Corner cornerOf(Part const& part, int index, Face const& face)
{
    geometry::Mesh const& mesh = part.mesh;
    QVector3D const& p = mesh.vertices[index];
    QVector3D const n = index < mesh.normals.size() ? mesh.normals[index] : face.normal;
    QColor const c = colourOf(part, index, face);
    QVector2D const uv =
        index < mesh.textureCoordinates.size() ? mesh.textureCoordinates[index] : QVector2D();
    return {
        {p.x(), p.y(), p.z()}, {n.x(), n.y(), n.z()}, {c.redF(), c.greenF(), c.blueF(), 1}, {uv.x(), uv.y()}};
}

bool isDrawable(geometry::Mesh const& mesh, int const* corner)
{
    return std::all_of(corner, corner + 3, [&mesh](int index) {
        return index >= 0 && index < mesh.vertices.size() && isFinite(mesh.vertices[index]);
    });
}

std::vector<Corner> pointsOf(Part const& part)
{
    std::vector<Corner> points;
    for (int i = 0; i < part.mesh.getNumVertices(); ++i) {
        if (isFinite(part.mesh.vertices[i]))
            points.push_back(cornerOf(part, i, {}));
    }
    return points;
}

} // namespace

std::vector<Corner> cornersOf(Part const& stripped)
{
    if (stripped.mesh.indices.isEmpty())
        return pointsOf(stripped);
    Part part = stripped;
    part.mesh = geometry::unstrip(part.mesh);
    geometry::Mesh const& mesh = part.mesh;
    std::vector<Corner> corners;
    for (qsizetype i = 0; i + 2 < mesh.indices.size(); i += 4) {
        int const* const triangle = mesh.indices.constData() + i;
        if (!isDrawable(mesh, triangle))
            continue;
        Face const face = {QVector3D::normal(mesh.vertices[triangle[0]], mesh.vertices[triangle[1]],
                                             mesh.vertices[triangle[2]]),
                           part.faceColours.value(i / 4)};
        for (int k = 0; k < 3; ++k)
            corners.push_back(cornerOf(part, triangle[k], face));
    }
    return corners;
}

void Box::add(QVector3D const& point)
{
    low = empty ? point
                : QVector3D(std::min(low.x(), point.x()), std::min(low.y(), point.y()),
                            std::min(low.z(), point.z()));
    high = empty ? point
                 : QVector3D(std::max(high.x(), point.x()), std::max(high.y(), point.y()),
                             std::max(high.z(), point.z()));
    empty = false;
}

Box boundsOf(Scene const& scene, QMatrix4x4 const& view)
{
    Box box;
    for (Part const& part : scene.parts) {
        for (QVector3D const& vertex : part.mesh.vertices) {
            if (isFinite(vertex))
                box.add(view.map(vertex));
        }
    }
    return box;
}
