#pragma once

#include "preview/Model.h"

#include <QString>

namespace tool::preview {

/// Reads the file at `path`, chosen by its suffix, with all that can be shown of it. False when it cannot be
/// read; the library has logged what it knows.
bool load(QString const& path, Model& model);

} // namespace tool::preview
