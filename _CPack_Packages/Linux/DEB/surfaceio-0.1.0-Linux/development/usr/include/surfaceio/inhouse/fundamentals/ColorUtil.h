#pragma once

#include "inhouse/Export.h"

#include <QColor>

/// Packing of colours into 32 bits.
class SURFACEIO_INHOUSE_EXPORT ColorUtil
{
public:
    ColorUtil() = delete;

    /// 0xAABBGGRR: red in bits 0 to 7, green in 8 to 15, blue in 16 to 23, alpha in 24 to 31.
    /// Without `withAlpha` the alpha byte is 0. Opaque pure red is 0xFF0000FF.
    static unsigned int toAABBGGRR(QColor const& color, bool withAlpha);
};
