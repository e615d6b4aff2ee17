#include "preview/Renderer.h"

#include "preview/Canvas.h"
#include "preview/Palette.h"
#include "preview/Shading.h"

#include <algorithm>
#include <cmath>

namespace tool::preview {

namespace {

// So many samples each way and no more: a picture of any size takes bounded memory.
constexpr int samplesWanted = 2048;
constexpr int mostSamplesPerPixel = 3;
constexpr double margin = 0.05;

bool isFinite(QVector3D const& point)
{
    return std::isfinite(point.x()) && std::isfinite(point.y()) && std::isfinite(point.z());
}

struct Point
{
    double x;
    double y;
    double z;
};

double dot(QVector3D const& a, QVector3D const& b)
{
    return double(a.x()) * double(b.x()) + double(a.y()) * double(b.y()) + double(a.z()) * double(b.z());
}

Point seenFrom(View const& view, QVector3D const& point)
{
    return {dot(point, view.right), dot(point, view.up), dot(point, view.toViewer)};
}

/// From the model to samples.
struct Frame
{
    double centreX = 0;
    double centreY = 0;
    double scale = 0;
    /// Where the centre is drawn.
    double middleX = 0;
    double middleY = 0;
};

template <typename Visit>
void forEachTriangle(geometry::Mesh const& mesh, Visit const& visit)
{
    qsizetype const count = mesh.vertices.size();
    auto const isUsable = [&](int index) {
        return index >= 0 && index < count && isFinite(mesh.vertices[index]);
    };
    for (qsizetype i = 0; i + 2 < mesh.indices.size(); i += 4) {
        std::array const corners = {mesh.indices[i], mesh.indices[i + 1], mesh.indices[i + 2]};
        if (std::all_of(corners.begin(), corners.end(), isUsable))
            visit(corners);
    }
}

class Extent
{
public:
    void add(Point const& point)
    {
        lowX = std::min(lowX, point.x);
        highX = std::max(highX, point.x);
        lowY = std::min(lowY, point.y);
        highY = std::max(highY, point.y);
    }

    Frame frameWithin(QRect const& room) const
    {
        double const wide = room.width() * (1.0 - 2.0 * margin);
        double const high = room.height() * (1.0 - 2.0 * margin);
        double const width = highX - lowX;
        double const height = highY - lowY;
        bool const isWide = width * high > height * wide;
        double const scale = isWide ? wide / width : (height > 0 ? high / height : 0.0);
        return {0.5 * (lowX + highX), 0.5 * (lowY + highY), scale, room.left() + 0.5 * room.width(),
                room.top() + 0.5 * room.height()};
    }

private:
    double lowX = INFINITY;
    double highX = -INFINITY;
    double lowY = INFINITY;
    double highY = -INFINITY;
};

Frame frameFor(Model const& model, View const& view, QRect const& room)
{
    Extent extent;
    for (Surface const& surface : model.surfaces) {
        forEachTriangle(surface.mesh, [&](std::array<int, 3> const& corners) {
            for (int const corner : corners)
                extent.add(seenFrom(view, surface.mesh.vertices[corner]));
        });
    }
    return extent.frameWithin(room);
}

/// Draws one surface.
class SurfacePainter
{
public:
    SurfacePainter(Surface const& surface_, View const& view_, Frame const& frame_, Colouring colouring_)
        : surface(surface_)
        , view(view_)
        , frame(frame_)
        , colouring(colouring_)
        , hasColors(colouring == Colouring::Colour &&
                    surface.mesh.colors.size() == surface.mesh.vertices.size())
        , hasTexture(colouring == Colouring::Colour && !surface.texture.isNull() &&
                     surface.mesh.textureCoordinates.size() == surface.mesh.vertices.size())
        , hasNormals(surface.mesh.normals.size() == surface.mesh.vertices.size())
        , plain(colouring == Colouring::Tag ? tagColor(surface.tag, surface.subTag) : plainColor)
    {}

    void paint(Canvas& canvas) const
    {
        QList<Corner> const corners = allCorners();
        forEachTriangle(surface.mesh, [&](std::array<int, 3> const& indices) {
            std::array triangle = {corners[indices[0]], corners[indices[1]], corners[indices[2]]};
            if (!hasNormals)
                setFlatNormal(triangle, indices);
            canvas.draw(triangle, [this](std::array<float, 6> const& values) { return shade(values); });
        });
    }

private:
    QList<Corner> allCorners() const
    {
        QList<Corner> corners(surface.mesh.vertices.size());
        for (int i = 0; i < corners.size(); ++i) {
            if (isFinite(surface.mesh.vertices[i]))
                corners[i] = cornerOf(i);
        }
        return corners;
    }

    Corner cornerOf(int index) const
    {
        Point const point = seenFrom(view, surface.mesh.vertices[index]);
        auto const sixteenth = [](double sample) {
            // Where there is nothing to frame, places are no numbers.
            constexpr double farAway = 1e15;
            double const rounded = std::floor(sample * sixteenths + 0.5);
            return std::abs(rounded) < farAway ? static_cast<qint64>(rounded) : qint64(0);
        };
        Corner corner = {sixteenth(frame.middleX + (point.x - frame.centreX) * frame.scale),
                         sixteenth(frame.middleY - (point.y - frame.centreY) * frame.scale),
                         point.z,
                         {}};
        if (hasNormals)
            setNormal(corner, surface.mesh.normals[index]);
        if (hasColors)
            setColor(corner, surface.mesh.colors[index]);
        if (hasTexture) {
            corner.values[3] = surface.mesh.textureCoordinates[index].x();
            corner.values[4] = surface.mesh.textureCoordinates[index].y();
        }
        return corner;
    }

    void setNormal(Corner& corner, QVector3D const& normal) const
    {
        Point const seen = seenFrom(view, normal);
        corner.values[0] = static_cast<float>(seen.x);
        corner.values[1] = static_cast<float>(seen.y);
        corner.values[2] = static_cast<float>(seen.z);
    }

    void setFlatNormal(std::array<Corner, 3>& corners, std::array<int, 3> const& indices) const
    {
        QList<QVector3D> const& vertices = surface.mesh.vertices;
        QVector3D const normal =
            QVector3D::normal(vertices[indices[0]], vertices[indices[1]], vertices[indices[2]]);
        for (Corner& corner : corners)
            setNormal(corner, normal);
    }

    static void setColor(Corner& corner, unsigned int aabbggrr)
    {
        for (unsigned int i = 0; i < 3; ++i)
            corner.values[3 + i] = static_cast<float>((aabbggrr >> (8 * i)) & 0xFFu);
    }

    QRgb shade(std::array<float, 6> const& values) const
    {
        QVector3D normal(values[0], values[1], values[2]);
        float const length = std::sqrt(QVector3D::dotProduct(normal, normal));
        normal = length > 0.0f ? normal / length : QVector3D(0, 0, 1);
        if (colouring == Colouring::Normal)
            return normalColor(normal);
        return lit(ownColor(values), normal);
    }

    QRgb ownColor(std::array<float, 6> const& values) const
    {
        auto const byte = [](float value) { return std::clamp(qRound(value), 0, 255); };
        if (hasTexture)
            return textureColor(surface.texture, values[3], values[4]);
        return hasColors ? qRgb(byte(values[3]), byte(values[4]), byte(values[5])) : plain;
    }

    Surface const& surface;
    View const& view;
    Frame const& frame;
    Colouring colouring;
    bool hasColors;
    bool hasTexture;
    bool hasNormals;
    QRgb plain;
};

} // namespace

Colouring resolved(Colouring colouring, Model const& model)
{
    if (colouring != Colouring::Auto)
        return colouring;
    return model.surfaces.size() > 1 ? Colouring::Tag : Colouring::Colour;
}

Picture render(Model const& model, View const& view, Colouring colouring, Paper const& paper)
{
    int const samplesPerPixel = std::clamp(samplesWanted / paper.pixels, 1, mostSamplesPerPixel);
    Canvas canvas(paper.pixels, samplesPerPixel);
    QRect const room =
        QRect(0, 0, canvas.sampleWidth(), canvas.sampleWidth()) - paper.margins * samplesPerPixel;
    Frame const frame = frameFor(model, view, room);
    for (Surface const& surface : model.surfaces)
        SurfacePainter(surface, view, frame, resolved(colouring, model)).paint(canvas);
    return {canvas.toImage(backgroundColor), frame.scale / samplesPerPixel};
}

} // namespace tool::preview
