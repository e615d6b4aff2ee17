#include "preview/Annotations.h"

#include "preview/Lettering.h"
#include "preview/Palette.h"

#include <algorithm>
#include <array>

namespace tool::preview {

namespace {

constexpr int pixelsForEachScale = 384;
constexpr int gap = 6;
constexpr int lineHeight = 11;
constexpr int swatch = 7;

QByteArray labelOf(Surface const& surface)
{
    QByteArray label = QByteArray::number(surface.tag);
    if (surface.subTag != 0)
        label += '/' + QByteArray::number(surface.subTag);
    return label;
}

} // namespace

int letteringScale(int pixels)
{
    return std::max(1, (pixels + pixelsForEachScale / 2) / pixelsForEachScale);
}

double scaleBarLength(double pixelsPerMillimetre, double widest)
{
    constexpr std::array tens = {1e7, 1e6, 1e5, 1e4, 1e3, 1e2, 1e1, 1.0, 1e-1, 1e-2, 1e-3, 1e-4};
    if (!(pixelsPerMillimetre > 0))
        return 0;
    for (double const ten : tens) {
        for (double const factor : {5.0, 2.0, 1.0}) {
            if (factor * ten * pixelsPerMillimetre <= widest)
                return factor * ten;
        }
    }
    return 0;
}

QMargins scaleBarMargins(int pixels)
{
    return {0, 0, 0, (lineHeight + gap) * letteringScale(pixels)};
}

void drawScaleBar(Picture& picture)
{
    int const pixels = picture.image.width();
    int const scale = letteringScale(pixels);
    double const length = scaleBarLength(picture.pixelsPerMillimetre, 0.25 * pixels);
    if (length == 0)
        return;
    int const width = qRound(length * picture.pixelsPerMillimetre);
    QPoint const left(gap * scale, pixels - gap * scale);
    int const tick = 2 * scale;
    fillBox(picture.image, QRect(left.x(), left.y(), width, scale), inkColor);
    fillBox(picture.image, QRect(left.x(), left.y() - tick, scale, tick), inkColor);
    fillBox(picture.image, QRect(left.x() + width - scale, left.y() - tick, scale, tick), inkColor);
    QByteArray const label = QByteArray::number(length) + " mm";
    drawText(picture.image, label, left - QPoint(0, (lineHeight + 1) * scale), {scale, inkColor});
}

int legendWidth(Model const& model, int scale)
{
    int widest = 0;
    for (Surface const& surface : model.surfaces)
        widest = std::max(widest, textSize(labelOf(surface), scale).width());
    return widest + (swatch + 2 * gap) * scale;
}

void drawLegend(QImage& image, Model const& model, QPoint corner, int scale)
{
    int const rows = std::max(1, (image.height() - corner.y() - gap * scale) / (lineHeight * scale));
    auto const count = static_cast<int>(model.surfaces.size());
    int const shown = count <= rows ? count : rows - 1;
    for (int i = 0; i < shown; ++i) {
        Surface const& surface = model.surfaces[static_cast<std::size_t>(i)];
        fillBox(image, QRect(corner, QSize(swatch, swatch) * scale), tagColor(surface.tag, surface.subTag));
        drawText(image, labelOf(surface), corner + QPoint((swatch + 3) * scale, 0), {scale, inkColor});
        corner.ry() += lineHeight * scale;
    }
    if (shown < count)
        drawText(image, '+' + QByteArray::number(count - shown), corner, {scale, inkColor});
}

} // namespace tool::preview
