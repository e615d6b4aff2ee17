#pragma once

#include <QByteArray>
#include <QImage>
#include <QPoint>
#include <QRect>
#include <QSize>

namespace tool::preview {

/// How a text is drawn: in dots of `scale` pixels.
struct Lettering
{
    int scale;
    QRgb color;
};

/// Fills the part of `box` that lies within the picture, which has 32 bits for each pixel.
void fillBox(QImage& image, QRect const& box, QRgb color);

/// Draws small letters, digits and - + . , : / with a font of its own, so that no system font, nor its
/// version, shows in the bytes of a picture. Other characters leave a gap.
void drawText(QImage& image, QByteArray const& text, QPoint corner, Lettering const& lettering);
QSize textSize(QByteArray const& text, int scale);

} // namespace tool::preview
