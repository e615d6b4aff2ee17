#pragma once

#include "Scene.h"

#include <QMatrix4x4>
#include <QVector3D>

#include <vector>

/// One corner of a triangle, or a point, as the graphics card gets it.
struct Corner
{
    float position[3];
    float normal[3];
    float colour[4];
    float coordinate[2];
};

/// The triangles of a part, three corners each; of one without triangles the points. Those that name vertices
/// which are not there are left out; without normals each triangle gets its own, a point none.
std::vector<Corner> cornersOf(Part const& part);

/// A box along the axes; empty until something was added.
struct Box
{
    QVector3D low;
    QVector3D high;
    bool empty = true;

    void add(QVector3D const& point);
    QVector3D size() const { return high - low; }
    QVector3D centre() const { return (low + high) / 2; }
};

/// What the vertices of a scene take up as the view sees them.
Box boundsOf(Scene const& scene, QMatrix4x4 const& view);
