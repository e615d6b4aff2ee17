#include "inhouse/fundamentals/ColorUtil.h"
#include "obj/OBJReader.h"
#include "obj/RectanglePacker.h"

#include <QDebug>
#include <QPainter>

#include <cmath>

namespace {

constexpr int greatestAtlasSide = 8192;
constexpr qsizetype entriesPerFace = 4; // a, b, c, -1

struct Channels
{
    double red = 0;
    double green = 0;
    double blue = 0;
};

// Outside the image there is an invalid colour: nothing.
Channels channelsAt(QImage const& image, int x, int y)
{
    if (!image.valid(x, y))
        return {};
    QColor const color = image.pixelColor(x, y);
    return {double(color.red()), double(color.green()), double(color.blue())};
}

struct Neighbours
{
    Channels c00;
    Channels c10;
    Channels c01;
    Channels c11;
};

// The last column and row have no right and lower neighbour: there the colours run towards black.
Neighbours neighboursAt(QImage const& image, int x, int y)
{
    bool const hasRight = x < image.width() - 1;
    bool const hasLower = y < image.height() - 1;
    Neighbours result;
    result.c00 = channelsAt(image, x, y);
    if (hasRight)
        result.c10 = channelsAt(image, x + 1, y);
    if (hasLower)
        result.c01 = channelsAt(image, x, y + 1);
    if (hasRight && hasLower)
        result.c11 = channelsAt(image, x + 1, y + 1);
    return result;
}

int blend(Neighbours const& of, double Channels::*channel, double fx, double fy)
{
    double const value = (of.c11.*channel * fx + of.c01.*channel * (1 - fx)) * fy +
                         (of.c10.*channel * fx + of.c00.*channel * (1 - fx)) * (1 - fy);
    return static_cast<int>(value);
}

// Whether the pixel at floor(x) or the one after it can lie inside an image of this size. False for NaN.
bool isNear(float x, int size)
{
    return x >= -1.0f && x < static_cast<float>(size);
}

} // namespace

OBJReader::Error OBJReader::combineTexturesAndAdjustUVs(MaterialUsage const& usage, QList<int> const& indices,
                                                        QList<QVector2D>& textureCoordinates)
{
    if (usage.empty() || materials[usage.begin()->first].texture.isNull() || textureCoordinates.isEmpty()) {
        texture = QImage();
    } else if (usage.size() == 1) {
        texture = materials.begin()->second.texture;
    } else {
        Atlas atlas;
        if (Error const result = buildTextureAtlas(atlas); result != NoError)
            return result;
        adjustUVs(atlas, usage, indices, textureCoordinates);
        texture = atlas.image;
    }
    materials.clear();
    return NoError;
}

OBJReader::Error OBJReader::buildTextureAtlas(Atlas& atlas) const
{
    Error const result = packRectangles(atlas);
    return result != NoError ? result : generateAtlasImage(atlas);
}

OBJReader::Error OBJReader::packRectangles(Atlas& atlas) const
{
    std::vector<RectanglePacker::Rectangle> rectangles;
    std::vector<QString> names;
    for (auto const& [name, material] : materials) {
        rectangles.push_back({0, 0, material.texture.width(), material.texture.height()});
        names.push_back(name);
    }
    RectanglePacker::Result const packed = RectanglePacker::pack(rectangles, greatestAtlasSide);
    if (!packed.isComplete) {
        qWarning("%s", "Could not create texture atlas successfully. Images might be too big.");
        return TextureProcessingFailed;
    }
    atlas.rect = QRect(QPoint(0, 0), packed.size);
    for (std::size_t i = 0; i < rectangles.size(); ++i) {
        auto const& [x, y, w, h] = rectangles[i];
        atlas.placements.try_emplace(names[i], x, y, w, h);
    }
    return NoError;
}

OBJReader::Error OBJReader::generateAtlasImage(Atlas& atlas) const
{
    constexpr unsigned int limit = greatestAtlasSide;
    int const height = atlas.rect.height();
    if (static_cast<unsigned int>(atlas.rect.width()) > limit || static_cast<unsigned int>(height) > limit)
        return TextureProcessingFailed;
    atlas.image = QImage(atlas.rect.size(), QImage::Format_ARGB32);
    if (atlas.image.isNull())
        return TextureProcessingFailed;
    // Shows where no texture is.
    atlas.image.fill(Qt::red);
    QPainter painter(&atlas.image);
    for (auto const& [name, material] : materials) {
        QRect const region = atlas.placements[name];
        QImage const& tile = material.texture;
        // With its size, as an image of a high resolution ("skin@2x.png") would otherwise be drawn smaller.
        painter.drawImage(QRect(QPoint(region.x(), height - region.y() - tile.height()), tile.size()), tile);
    }
    painter.end();
    return NoError;
}

void OBJReader::adjustUVs(Atlas& atlas, MaterialUsage const& usage, QList<int> const& indices,
                          QList<QVector2D>& textureCoordinates)
{
    QList<QVector2D> const original = textureCoordinates;
    auto const width = static_cast<float>(atlas.rect.width());
    auto const height = static_cast<float>(atlas.rect.height());
    for (auto const& [name, faces] : usage) {
        QRect const region = atlas.placements[name];
        QImage const& image = materials[name].texture;
        QVector2D const offset(static_cast<float>(region.x()) / width,
                               static_cast<float>(region.y()) / height);
        QVector2D const scale(static_cast<float>(image.width()) / width,
                              static_cast<float>(image.height()) / height);
        for (unsigned int const face : faces) {
            for (qsizetype k = 0; k < 3; ++k) {
                int const vertex = indices[entriesPerFace * face + k];
                textureCoordinates[vertex] = original[vertex] * scale + offset;
            }
        }
    }
}

QList<unsigned int>
OBJReader::determineVertexColorsFromTextureAndUvs(QList<QVector2D> const& textureCoordinates) const
{
    QList<unsigned int> colors;
    if (texture.isNull())
        return colors;
    colors.reserve(textureCoordinates.size());
    for (QVector2D const& uv : textureCoordinates)
        colors.append(textureLookup(uv.x(), uv.y()));
    return colors;
}

unsigned int OBJReader::textureLookup(float u, float v) const
{
    float const x = u * static_cast<float>(texture.width());
    float const y = static_cast<float>(texture.height()) * (1 - v);
    QColor color(0, 0, 0, 255);
    if (isNear(x, texture.width()) && isNear(y, texture.height())) {
        float const left = std::floor(x);
        float const upper = std::floor(y);
        Neighbours const pixels = neighboursAt(texture, static_cast<int>(left), static_cast<int>(upper));
        double const fx = x - left;
        double const fy = y - upper;
        color = QColor(blend(pixels, &Channels::red, fx, fy), blend(pixels, &Channels::green, fx, fy),
                       blend(pixels, &Channels::blue, fx, fy), 255);
    }
    return ColorUtil::toAABBGGRR(color, true);
}
