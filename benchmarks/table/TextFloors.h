#pragma once

#include "inhouse/data/Mesh.h"
#include "table/Contender.h"

#include <QByteArray>

#include <vector>

/// Floors of the text formats: loops over `std::from_chars` that trust the text.
namespace table {

struct Obj
{
    geometry::Mesh mesh;
    QList<QVector2D> coordinates;
};

/// Positions, texture coordinates and faces, whose corners are "v" or "v/vt".
Obj readObj(QByteArray const& bytes);
/// Corners are "v/vt/vn": one vertex for each combination.
Obj readSplitObj(QByteArray const& bytes);

/// Points, faces, tetrahedra and bound faces of a ".vmesh" file.
std::optional<Size> readVolume(QByteArray const& bytes);

struct Conditions
{
    std::vector<int> points;
    std::vector<float> values;
};

Conditions readConditions(QByteArray const& bytes);
/// The text with six significant digits.
QByteArray conditionsText(Conditions const& conditions);

} // namespace table
