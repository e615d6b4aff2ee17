#include "differential/ObjSources.h"

#include "support/Meshes.h"

#include <cmath>
#include <numbers>

namespace objsources {

namespace {

constexpr float pi = std::numbers::pi_v<float>;

/// The lines of one file.
class Writer
{
public:
    Writer(Style style_, Layout const& layout_)
        : style(style_)
        , layout(layout_)
    {}

    void position(QVector3D const& v)
    {
        line({"v", number(v.x()), number(v.y()), number(v.z()), layout.hasColors ? "0.25 0.5 1" : ""});
    }
    void uv(QVector2D const& v)
    {
        if (style.uvs)
            line({"vt", number(v.x()), number(v.y()), layout.hasThirdNumber ? "0.0" : ""});
    }
    void normal(QVector3D const& v)
    {
        if (style.normals)
            line({"vn", number(v.x()), number(v.y()), number(v.z())});
    }
    void face(std::array<Corner, 3> const& corners)
    {
        line({"f", group(corners[0]), group(corners[1]), group(corners[2])});
    }
    void material(QString const& name) { line({"usemtl", name.toUtf8()}); }
    void nameLibrary() { line({"mtllib", "materials.mtl"}); }
    // Now and then, what means nothing to the surface.
    void noise(qsizetype place)
    {
        if (!layout.hasNoise || place % 7 != 0)
            return;
        line({});
        line({"# comment", QByteArray::number(place)});
        line({"g", "group_" + QByteArray::number(place)});
        line({"s", place % 2 ? "off" : "1"});
    }
    QByteArray take() { return layout.endsWithoutLineEnd ? text.trimmed() : text; }

private:
    QByteArray number(float value) const
    {
        return QByteArray::number(double(value), layout.numberFormat, layout.precision);
    }

    QByteArray group(Corner const& corner) const
    {
        QByteArray const vertex = QByteArray::number(corner.vertex + 1);
        QByteArray const uvPart = style.uvs ? QByteArray::number(corner.uv + 1) : QByteArray();
        if (style.normals)
            return vertex + '/' + uvPart + '/' + QByteArray::number(corner.normal + 1);
        return style.uvs ? vertex + '/' + uvPart : vertex;
    }

    void line(QByteArrayList parts)
    {
        parts.removeAll("");
        text += parts.join(layout.separator) + layout.lineEnd;
    }

    Style style;
    Layout layout;
    QByteArray text;
};

void writeLists(Surface const& surface, qsizetype begin, qsizetype end, Writer& writer)
{
    auto const part = [&](auto const& list) {
        qsizetype const first = std::min(begin, list.size());
        return list.mid(first, std::min(end, list.size()) - first);
    };
    for (QVector3D const& v : part(surface.positions))
        writer.position(v);
    for (QVector2D const& v : part(surface.uvs))
        writer.uv(v);
    for (QVector3D const& v : part(surface.normals))
        writer.normal(v);
}

// The greatest place that the corners name.
qsizetype lastPlaceOf(std::array<Corner, 3> const& face)
{
    int last = 0;
    for (Corner const& corner : face)
        last = std::max({last, corner.vertex, corner.uv, corner.normal});
    return last;
}

} // namespace

Surface box()
{
    Surface result;
    for (int i = 0; i < 8; ++i)
        result.positions << QVector3D(i & 1 ? 1.5f : -0.5f, i & 2 ? 2.25f : -1, i & 4 ? 3 : 0.1f);
    result.uvs = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};
    // Two triangles a side: corners by the bits of their position, against the clock from outside.
    constexpr std::array<std::array<int, 4>, 6> sides = {
        {{0, 2, 3, 1}, {4, 5, 7, 6}, {0, 1, 5, 4}, {2, 6, 7, 3}, {0, 4, 6, 2}, {1, 3, 7, 5}}};
    result.normals = {{0, 0, -1}, {0, 0, 1}, {0, -1, 0}, {0, 1, 0}, {-1, 0, 0}, {1, 0, 0}};
    for (int side = 0; side < 6; ++side) {
        auto const corner = [&](int i) {
            return Corner{sides[static_cast<std::size_t>(side)][static_cast<std::size_t>(i)], i, side};
        };
        result.faces << std::array{corner(0), corner(1), corner(2)}
                     << std::array{corner(0), corner(2), corner(3)};
    }
    return result;
}

Surface sphere(int rings, int sectors)
{
    Surface result;
    for (int ring = 0; ring <= rings; ++ring) {
        float const theta = pi * float(ring) / float(rings);
        for (int sector = 0; sector <= sectors; ++sector) {
            result.uvs << QVector2D(float(sector) / float(sectors), 1 - float(ring) / float(rings));
            if (sector == sectors)
                break;
            float const phi = 2 * pi * float(sector) / float(sectors);
            result.normals << QVector3D(std::sin(theta) * std::cos(phi), std::sin(theta) * std::sin(phi),
                                        std::cos(theta));
            result.positions << 12.5f * result.normals.back();
        }
    }
    auto const corner = [&](int ring, int sector) {
        int const place = ring * sectors + sector % sectors;
        return Corner{place, ring * (sectors + 1) + sector, place};
    };
    for (int ring = 0; ring < rings; ++ring)
        for (int sector = 0; sector < sectors; ++sector)
            result.faces << std::array{corner(ring, sector), corner(ring + 1, sector),
                                       corner(ring, sector + 1)}
                         << std::array{corner(ring, sector + 1), corner(ring + 1, sector),
                                       corner(ring + 1, sector + 1)};
    return result;
}

Surface soup(unsigned int seed, int positions, int uvs, int normals, int faces)
{
    std::mt19937 random(seed);
    auto const below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    Surface result;
    result.positions = support::randomMesh(random, positions, 0).vertices;
    result.normals = support::randomMesh(random, normals, 0).vertices;
    for (int i = 0; i < uvs; ++i) {
        float const u = float(below(65)) / 64;
        result.uvs << QVector2D(u, float(below(65)) / 64);
    }
    for (int i = 0; i < faces; ++i) {
        std::array<Corner, 3> face{};
        for (Corner& corner : face) {
            corner.vertex = below(positions);
            corner.uv = below(uvs);
            corner.normal = below(normals);
        }
        result.faces << face;
    }
    return result;
}

QByteArray textOf(Surface const& surface, Style style, Layout const& layout, QStringList const& materials,
                  int facesPerMaterial)
{
    Writer writer(style, layout);
    if (!materials.isEmpty())
        writer.nameLibrary();
    qsizetype const all = std::max({surface.positions.size(), surface.uvs.size(), surface.normals.size()});
    qsizetype written = layout.isInterleaved ? 0 : all;
    writeLists(surface, 0, written, writer);
    for (qsizetype i = 0; i < surface.faces.size(); ++i) {
        qsizetype const needed = lastPlaceOf(surface.faces[i]) + 1;
        if (needed > written) {
            writeLists(surface, written, needed, writer);
            written = needed;
        }
        writer.noise(i);
        if (!materials.isEmpty() && i % facesPerMaterial == 0)
            writer.material(materials[i / facesPerMaterial % materials.size()]);
        writer.face(surface.faces[i]);
    }
    writeLists(surface, written, all, writer);
    return writer.take();
}

} // namespace objsources
