#pragma once

#include <QString>

namespace images {

/// Whether `path` is a PNG file with an ancillary chunk that claims a megabyte or more beyond what is there.
/// Its decoder would allocate what is claimed and then fail. False for everything else, files that cannot be
/// opened included.
bool claimsTooMuch(QString const& path);

} // namespace images
