#pragma once

#include "preview/Model.h"
#include "preview/View.h"

#include <QColor>

#include <array>

namespace tool::preview {

/// The light that falls on a surface, the same from every side: a key light from the upper left behind the
/// viewer, a weaker one from the right, some from everywhere, and a narrow highlight.
QRgb lit(QRgb color, QVector3D const& normal);

/// The colour that the texture has at (u, v), v = 0 at its bottom row, smoothly between its pixels.
QRgb textureColor(QImage const& texture, float u, float v);

/// A direction as a colour, as normal maps have it.
QRgb normalColor(QVector3D const& normal);

} // namespace tool::preview
