#pragma once

#include "stl/STLLayout.h"

#include <QVector3D>

#include <span>

/// Facets by the block: records and normals of many at a time, the same bytes as one by one.
namespace stl {

/// The two bytes that end each facet.
struct Attributes
{
    unsigned char first;
    unsigned char second;
};

/// `QVector3D::normal`, the same machine code for everybody: which of two NaNs comes out of a sum is for the
/// compiler to choose.
QVector3D facetNormal(QVector3D const& p1, QVector3D const& p2, QVector3D const& p3);

/// Writes one facet record to `target`, which has room for `facetBytes`.
void putFacet(QVector3D const& p1, QVector3D const& p2, QVector3D const& p3, Attributes attributes,
              char* target);

/// True when the first three of every four of `indices` are among `vertexCount` vertices. `indices` holds
/// whole groups of four.
bool areFaces(std::span<int const> indices, qsizetype vertexCount);

/// Writes the facet records of `indices`, whole groups of four that `areFaces`, to `target`, which has room
/// for them: `facetBytes` for each group. Normals are those of `facetNormal`.
void putFacets(std::span<int const> indices, QVector3D const* vertices, Attributes attributes, char* target);

} // namespace stl
