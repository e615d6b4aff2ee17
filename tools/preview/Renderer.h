#pragma once

#include "preview/Model.h"
#include "preview/View.h"

#include <QMargins>

namespace tool::preview {

/// A picture of a model, and its scale.
struct Picture
{
    QImage image;
    double pixelsPerMillimetre = 0;
};

/// The square that is drawn on, and the room at its edges that is left free.
struct Paper
{
    int pixels;
    QMargins margins;
};

/// Draws the model, seen from infinitely far, as large as fits between the margins. Nothing but the
/// background when the model has no triangle with finite corners.
Picture render(Model const& model, View const& view, Colouring colouring, Paper const& paper);

} // namespace tool::preview
