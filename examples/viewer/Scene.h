#pragma once

#include "inhouse/data/Mesh.h"

#include <QColor>
#include <QImage>
#include <QList>
#include <QString>
#include <QStringList>

#include <vector>

/// One surface and how it looks: by texture, else by the colours of its faces, else by those of its vertices,
/// else in one colour. Without triangles it is a cloud of points.
struct Part
{
    geometry::Mesh mesh;
    QColor colour = QColor(225, 215, 195);
    QImage texture = {};
    /// One for each triangle, or empty.
    QList<QColor> faceColours = {};
};

/// What is in a file.
struct Scene
{
    std::vector<Part> parts;
    /// Lines about the file: counts, tags, scanner.
    QStringList notes;
};

/// Reads a file of any format from which the library reads a surface or points, by its suffix. Without parts
/// when that fails.
Scene loadScene(QString const& path);
