#pragma once

#include "inhouse/data/Mesh.h"

#include <QColor>
#include <QImage>
#include <QString>
#include <QStringList>

#include <vector>

/// One surface and how it looks: by texture, else by the colours of its vertices, else in one colour.
struct Part
{
    geometry::Mesh mesh;
    QColor colour = QColor(225, 215, 195);
    QImage texture;
};

/// What is in a file.
struct Scene
{
    std::vector<Part> parts;
    /// Lines about the scan: counts, tags, scanner.
    QStringList notes;
};

/// Reads a file of any format that the library reads, by its suffix. Without parts when that fails.
Scene loadScene(QString const& path);
