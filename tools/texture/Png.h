#pragma once

#include <QImage>

namespace tool {

/// The bytes of a PNG file; none when there is no room for them.
QByteArray pngOf(QImage const& image);

} // namespace tool
