#pragma once

#include "preview/Renderer.h"

namespace tool::preview {

/// All views on one picture, three beside each other, each a square of `pixels` under its name; the last
/// square holds counts, size and the legend.
QImage renderSheet(Model const& model, Colouring colouring, int pixels);

/// One view with its scale bar and legend.
QImage renderView(Model const& model, View const& view, Colouring colouring, int pixels);

} // namespace tool::preview
