#pragma once

#include <QLatin1StringView>
#include <QVector3D>

#include <span>

namespace tool::preview {

/// A direction to look from. The axes are those of the file: +z up, +y to the front, +x to the patient's
/// right.
struct View
{
    QLatin1StringView name;
    /// Unit vectors: to the right and up in the picture, and from the model to the viewer.
    QVector3D right;
    QVector3D up;
    QVector3D toViewer;
};

/// front, occlusal, left, right, iso.
std::span<View const> views();
/// Null when there is no view of this name.
View const* viewNamed(QLatin1StringView name);

} // namespace tool::preview
