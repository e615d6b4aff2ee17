#pragma once

#include "inhouse/data/Material.h"

#include <QLatin1StringView>

#include <array>

/// The attributes of a material element, in the order in which they are written. Reader and writer walk the
/// same tables, so that neither can know an attribute that the other does not.
namespace materialattributes {

struct ColorAttribute
{
    QLatin1StringView name;
    QColor geometry::Material::*field;
};

struct NumberAttribute
{
    QLatin1StringView name;
    float geometry::Material::*field;
};

inline constexpr std::array colors = {
    ColorAttribute{QLatin1StringView("ambientColor"), &geometry::Material::ambientColor},
    ColorAttribute{QLatin1StringView("diffuseColor"), &geometry::Material::diffuseColor},
    ColorAttribute{QLatin1StringView("specularColor"), &geometry::Material::specularColor},
    ColorAttribute{QLatin1StringView("emissiveColor"), &geometry::Material::emissiveColor}};

inline constexpr std::array numbers = {
    NumberAttribute{QLatin1StringView("ambientIntensity"), &geometry::Material::ambientIntensity},
    NumberAttribute{QLatin1StringView("diffuseIntensity"), &geometry::Material::diffuseIntensity},
    NumberAttribute{QLatin1StringView("specularIntensity"), &geometry::Material::specularIntensity},
    NumberAttribute{QLatin1StringView("emissiveIntensity"), &geometry::Material::emissiveIntensity},
    NumberAttribute{QLatin1StringView("shininess"), &geometry::Material::shininess},
    NumberAttribute{QLatin1StringView("transparency"), &geometry::Material::transparency},
    NumberAttribute{QLatin1StringView("baseReflectance"), &geometry::Material::baseReflectance}};

inline constexpr QLatin1StringView detailNoise("detailNoise");

} // namespace materialattributes
