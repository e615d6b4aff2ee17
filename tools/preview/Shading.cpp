#include "preview/Shading.h"

#include <algorithm>
#include <cmath>

namespace tool::preview {

namespace {

QVector3D unit(float x, float y, float z)
{
    return QVector3D(x, y, z) / std::sqrt(x * x + y * y + z * z);
}

float highlight(float cosine)
{
    float power = cosine * cosine; // 2
    power *= power;                // 4
    power *= power;                // 8
    power *= power;                // 16
    return power * power;          // 32
}

int channel(float value)
{
    return std::clamp(qRound(value), 0, 255);
}

int wrapped(int value, int size)
{
    int const rest = value % size;
    return rest < 0 ? rest + size : rest;
}

} // namespace

QRgb lit(QRgb color, QVector3D const& towards)
{
    static QVector3D const key = unit(-0.45f, 0.65f, 0.75f);
    static QVector3D const fill = unit(0.80f, -0.10f, 0.55f);
    static QVector3D const halfway = unit(key.x(), key.y(), key.z() + 1.0f);
    constexpr float everywhere = 0.26f;
    constexpr float keyStrength = 0.66f;
    constexpr float fillStrength = 0.24f;
    constexpr float highlightStrength = 46.0f;
    // Seen from behind, a surface shows its other side, a little darker.
    bool const isBack = towards.z() < 0.0f;
    QVector3D const normal = isBack ? -towards : towards;
    float const fromKey = std::max(0.0f, QVector3D::dotProduct(normal, key));
    float const fromFill = std::max(0.0f, QVector3D::dotProduct(normal, fill));
    float const light =
        (everywhere + keyStrength * fromKey + fillStrength * fromFill) * (isBack ? 0.6f : 1.0f);
    float const shine =
        isBack ? 0.0f : highlightStrength * highlight(std::max(0.0f, QVector3D::dotProduct(normal, halfway)));
    auto const shaded = [=](int value) { return channel(static_cast<float>(value) * light + shine); };
    return qRgb(shaded(qRed(color)), shaded(qGreen(color)), shaded(qBlue(color)));
}

QRgb textureColor(QImage const& texture, float u, float v)
{
    if (!std::isfinite(u) || !std::isfinite(v) || std::abs(u) > 1e6f || std::abs(v) > 1e6f)
        return 0xFFFF00FF;
    float const x = u * static_cast<float>(texture.width()) - 0.5f;
    float const y = (1.0f - v) * static_cast<float>(texture.height()) - 0.5f;
    int const left = static_cast<int>(std::floor(x));
    int const top = static_cast<int>(std::floor(y));
    float const toRight = x - static_cast<float>(left);
    float const down = y - static_cast<float>(top);
    std::array<float, 3> sum = {};
    for (int i = 0; i < 4; ++i) {
        QRgb const pixel =
            texture.pixel(wrapped(left + i % 2, texture.width()), wrapped(top + i / 2, texture.height()));
        float const weight = (i % 2 == 1 ? toRight : 1.0f - toRight) * (i / 2 == 1 ? down : 1.0f - down);
        sum[0] += weight * static_cast<float>(qRed(pixel));
        sum[1] += weight * static_cast<float>(qGreen(pixel));
        sum[2] += weight * static_cast<float>(qBlue(pixel));
    }
    return qRgb(channel(sum[0]), channel(sum[1]), channel(sum[2]));
}

QRgb normalColor(QVector3D const& normal)
{
    auto const shown = [](float value) { return channel(127.5f * (value + 1.0f)); };
    return qRgb(shown(normal.x()), shown(normal.y()), shown(normal.z()));
}

} // namespace tool::preview
