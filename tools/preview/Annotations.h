#pragma once

#include "preview/Renderer.h"

#include <QMargins>

namespace tool::preview {

/// The size of the letters in a picture of `pixels`.
int letteringScale(int pixels);

/// The longest of 1, 2, 5, 10, 20, 50 ... mm (or tenths, hundredths) that takes no more than `widest` pixels;
/// 0 when there is none.
double scaleBarLength(double pixelsPerMillimetre, double widest);

/// The room below the model that the scale bar takes.
QMargins scaleBarMargins(int pixels);
/// Draws a scale bar at the lower left.
void drawScaleBar(Picture& picture);

/// A legend of all tags, from `corner` down to the lower edge of the picture. What has no room is counted.
void drawLegend(QImage& image, Model const& model, QPoint corner, int scale);

int legendWidth(Model const& model, int scale);

} // namespace tool::preview
