#include "preview/Sheet.h"

#include "preview/Annotations.h"
#include "preview/Lettering.h"
#include "preview/Palette.h"

#include <cstring>

namespace tool::preview {

namespace {

constexpr int columns = 3;
constexpr int edge = 6;

void copyInto(QImage& sheet, QImage const& picture, QPoint const& corner)
{
    for (int y = 0; y < picture.height(); ++y)
        std::memcpy(sheet.scanLine(corner.y() + y) + 4 * qsizetype(corner.x()), picture.constScanLine(y),
                    4 * static_cast<std::size_t>(picture.width()));
}

QPoint cornerOfCell(int cell, int pixels)
{
    return QPoint(cell % columns, cell / columns) * pixels;
}

QList<QByteArray> factsOf(Model const& model)
{
    qint64 facets = 0;
    qint64 vertices = 0;
    for (Surface const& surface : model.surfaces) {
        facets += surface.mesh.getNumIndices() / 4;
        vertices += surface.mesh.getNumVertices();
    }
    return {QByteArray::number(facets) + " facets", QByteArray::number(vertices) + " vertices"};
}

QImage renderWithScale(Model const& model, View const& view, Colouring colouring, int pixels)
{
    Picture picture = render(model, view, colouring, {pixels, scaleBarMargins(pixels)});
    drawScaleBar(picture);
    return picture.image;
}

QImage factsCell(Model const& model, Colouring colouring, int pixels)
{
    QImage image(pixels, pixels, QImage::Format_RGB32);
    image.fill(backgroundColor);
    int const scale = letteringScale(pixels);
    QPoint corner = QPoint(edge, edge) * scale;
    for (QByteArray const& fact : factsOf(model)) {
        drawText(image, fact, corner, {scale, inkColor});
        corner.ry() += textSize(fact, scale).height() + 4 * scale;
    }
    if (resolved(colouring, model) == Colouring::Tag)
        drawLegend(image, model, corner + QPoint(0, edge * scale), scale);
    return image;
}

} // namespace

QImage renderView(Model const& model, View const& view, Colouring colouring, int pixels)
{
    if (resolved(colouring, model) != Colouring::Tag)
        return renderWithScale(model, view, colouring, pixels);
    int const scale = letteringScale(pixels);
    QMargins const legend(0, 0, legendWidth(model, scale), 0);
    Picture picture = render(model, view, colouring, {pixels, scaleBarMargins(pixels) + legend});
    drawScaleBar(picture);
    QPoint const corner(pixels - legend.right() + edge * scale, edge * scale);
    drawLegend(picture.image, model, corner, scale);
    return picture.image;
}

QImage renderSheet(Model const& model, Colouring colouring, int pixels)
{
    auto const cells = static_cast<int>(views().size()) + 1;
    QImage sheet(columns * pixels, (cells + columns - 1) / columns * pixels, QImage::Format_RGB32);
    sheet.fill(backgroundColor);
    int cell = 0;
    for (View const& view : views()) {
        QImage picture = renderWithScale(model, view, colouring, pixels);
        int const scale = letteringScale(pixels);
        drawText(picture, QByteArray(view.name.data(), view.name.size()), QPoint(edge, edge) * scale,
                 {scale, inkColor});
        copyInto(sheet, picture, cornerOfCell(cell++, pixels));
    }
    copyInto(sheet, factsCell(model, colouring, pixels), cornerOfCell(cell, pixels));
    return sheet;
}

} // namespace tool::preview
