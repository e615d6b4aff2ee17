#include "inhouse/fundamentals/ColorUtil.h"

unsigned int ColorUtil::toAABBGGRR(QColor const& color, bool withAlpha)
{
    QRgb const rgba = color.rgba();
    unsigned int const bgr = static_cast<unsigned int>(qRed(rgba)) |
                             static_cast<unsigned int>(qGreen(rgba)) << 8 |
                             static_cast<unsigned int>(qBlue(rgba)) << 16;
    return withAlpha ? bgr | static_cast<unsigned int>(qAlpha(rgba)) << 24 : bgr;
}
