#pragma once

#include "inhouse/Export.h"

#include <QColor>

namespace geometry {

/// How a surface looks: one record for a whole mesh.
///
/// Intensities, transparency and base reflectance are fractions from 0 to 1 (they are not clamped);
/// shininess is the exponent of the specular lobe.
class SURFACEIO_INHOUSE_EXPORT Material
{
public:
    /// A light, opaque, slightly glossy dielectric: what a scan without a material is shown with.
    Material();
    /// The twelve fields in their order.
    Material(QColor const& ambientColor, QColor const& diffuseColor, QColor const& specularColor,
             QColor const& emissiveColor, float ambientIntensity, float diffuseIntensity,
             float specularIntensity, float emissiveIntensity, float shininess, float transparency,
             float baseReflectance, bool detailNoise);

    /// Polished titanium: dark diffuse, bright narrow highlight, high reflectance.
    static Material metal();
    /// The anodised blue-grey in which distraction devices are told apart from bone and plates.
    static Material distractor();

    /// Whether all twelve fields agree.
    bool operator==(Material const& other) const = default;

    /// Colour under ambient light.
    QColor ambientColor;
    /// Colour of diffusely scattered light.
    QColor diffuseColor;
    /// Colour of highlights.
    QColor specularColor;
    /// Colour of light that the surface gives off.
    QColor emissiveColor;
    /// Weight of the ambient colour.
    float ambientIntensity;
    /// Weight of the diffuse colour.
    float diffuseIntensity;
    /// Weight of the specular colour.
    float specularIntensity;
    /// Weight of the emissive colour.
    float emissiveIntensity;
    /// Exponent of the specular lobe.
    float shininess;
    /// 0 is opaque, 1 invisible.
    float transparency;
    /// Reflectance at normal incidence (F0).
    float baseReflectance;
    /// Whether the renderer breaks up large smooth areas with fine noise.
    bool detailNoise;
};

} // namespace geometry
