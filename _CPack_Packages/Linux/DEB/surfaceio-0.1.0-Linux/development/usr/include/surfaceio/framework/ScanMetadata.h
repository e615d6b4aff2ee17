#pragma once

#include "framework/Export.h"
#include "inhouse/data/MeshHeader.h"

#include <QByteArray>

namespace conversions {

/// The scan metadata as the 80-byte header of a binary STL file.
///
/// | offset | bytes | content |
/// |---|---|---|
/// | 0 | 2 | the marker 0xBE 0xBE |
/// | 2 | 20 | scanner name |
/// | 22 | 24 | scanner serial |
/// | 46 | 1 | "1" when imported, else "0" |
/// | 47 | 20 | software version |
/// | 67 | 10 | acquisition date, yyyy-MM-dd |
/// | 77 | 3 | spaces |
///
/// A text loses every space, is padded or cut to its width in UTF-16 units, and its UTF-8 form is cut to as
/// many bytes: a non-ASCII text loses its end, perhaps in the middle of a character. An invalid date gives
/// spaces. The result has 80 bytes for any input.
SURFACEIO_EXPORT QByteArray toByteArray(MeshHeader const& header);

} // namespace conversions
