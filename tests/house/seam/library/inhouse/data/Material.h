#pragma once

#include "inhouse/Export.h"

#include <QColor>

namespace geometry {

class OTHER_INHOUSE_EXPORT Material
{
public:
    Material() = default;
    Material(QColor const& ambientColor, QColor const& diffuseColor, QColor const& specularColor,
             QColor const& emissiveColor, float ambientIntensity, float diffuseIntensity,
             float specularIntensity, float emissiveIntensity, float shininess, float transparency,
             float baseReflectance, bool detailNoise);

    static Material metal() { return {}; }
    static Material distractor() { return {}; }

    QColor ambientColor;
    QColor diffuseColor;
    QColor specularColor;
    QColor emissiveColor;
    float ambientIntensity = 0.0f;
    float diffuseIntensity = 0.0f;
    float specularIntensity = 0.0f;
    float emissiveIntensity = 0.0f;
    float shininess = 0.0f;
    float transparency = 0.0f;
    float baseReflectance = 0.0f;
    bool detailNoise = false;
};

} // namespace geometry
