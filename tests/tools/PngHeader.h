#pragma once

#include <QByteArray>

namespace support {

/// The beginning of a PNG file that says it has so many pixels, red, green and blue, and holds none.
QByteArray pngHeader(int width, int height);

} // namespace support
