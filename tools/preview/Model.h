#pragma once

#include "inhouse/data/Mesh.h"

#include <QImage>

#include <vector>

namespace tool::preview {

/// One surface to be drawn.
struct Surface
{
    /// With normals; colours, or texture coordinates, where the file has them.
    geometry::Mesh mesh;
    QImage texture;
    /// Of a tagged STL file.
    int tag = 0;
    int subTag = 0;
};

/// What a file shows.
struct Model
{
    std::vector<Surface> surfaces;
};

/// How a surface gets its colour.
enum class Colouring
{
    /// By texture or vertex colours, where the file has them; else by tag, when there are several; else
    /// plain.
    Auto,
    Tag,
    Colour,
    Normal
};

/// What `Auto` stands for with this model, and anything else as it is.
Colouring resolved(Colouring colouring, Model const& model);

} // namespace tool::preview
