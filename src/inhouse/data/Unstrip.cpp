#include "inhouse/data/Unstrip.h"

#include <utility>

namespace geometry {

namespace {

constexpr int restart = -1;
constexpr qsizetype entriesPerTriangle = 4;

bool isTriangleList(QList<int> const& indices)
{
    if (indices.size() % entriesPerTriangle != 0)
        return false;
    for (qsizetype i = 0; i < indices.size(); i += entriesPerTriangle)
        if (indices[i] == restart || indices[i + 1] == restart || indices[i + 2] == restart ||
            indices[i + 3] != restart)
            return false;
    return true;
}

void appendStrip(int const* strip, qsizetype length, QList<int>& triangles)
{
    for (qsizetype i = 0; i + 2 < length; ++i) {
        bool const swapped = i % 2 != 0;
        triangles << strip[swapped ? i + 1 : i] << strip[swapped ? i : i + 1] << strip[i + 2] << restart;
    }
}

QList<int> expandStrips(QList<int> const& indices)
{
    QList<int> triangles;
    triangles.reserve(indices.size());
    qsizetype begin = 0;
    for (qsizetype i = 0; i <= indices.size(); ++i) {
        if (i < indices.size() && indices[i] != restart)
            continue;
        appendStrip(indices.constData() + begin, i - begin, triangles);
        begin = i + 1;
    }
    return triangles;
}

} // namespace

Mesh unstrip(Mesh mesh)
{
    if (!isTriangleList(mesh.indices))
        mesh.indices = expandStrips(std::as_const(mesh.indices));
    return mesh;
}

} // namespace geometry
