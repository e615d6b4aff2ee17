#include "inhouse/data/Material.h"

namespace geometry {

namespace {

// Reflectance at normal incidence: 0.04 is the usual value of dielectrics (enamel, plaster, resin),
// titanium lies between 0.5 and 0.6.
constexpr float dielectricReflectance = 0.04f;
constexpr float titaniumReflectance = 0.55f;

} // namespace

Material::Material()
    : Material(QColor(255, 255, 255), QColor(204, 204, 204), QColor(255, 255, 255), QColor(0, 0, 0), 0.2f,
               0.8f, 0.2f, 0.0f, 32.0f, 0.0f, dielectricReflectance, false)
{}

Material::Material(QColor const& ambientColor_, QColor const& diffuseColor_, QColor const& specularColor_,
                   QColor const& emissiveColor_, float ambientIntensity_, float diffuseIntensity_,
                   float specularIntensity_, float emissiveIntensity_, float shininess_, float transparency_,
                   float baseReflectance_, bool detailNoise_)
    : ambientColor(ambientColor_)
    , diffuseColor(diffuseColor_)
    , specularColor(specularColor_)
    , emissiveColor(emissiveColor_)
    , ambientIntensity(ambientIntensity_)
    , diffuseIntensity(diffuseIntensity_)
    , specularIntensity(specularIntensity_)
    , emissiveIntensity(emissiveIntensity_)
    , shininess(shininess_)
    , transparency(transparency_)
    , baseReflectance(baseReflectance_)
    , detailNoise(detailNoise_)
{}

Material Material::metal()
{
    return {QColor(135, 138, 142),
            QColor(135, 138, 142),
            QColor(240, 240, 245),
            QColor(0, 0, 0),
            0.25f,
            0.55f,
            0.9f,
            0.0f,
            96.0f,
            0.0f,
            titaniumReflectance,
            false};
}

Material Material::distractor()
{
    return {QColor(88, 112, 150),
            QColor(88, 112, 150),
            QColor(225, 232, 245),
            QColor(0, 0, 0),
            0.25f,
            0.6f,
            0.75f,
            0.0f,
            72.0f,
            0.0f,
            titaniumReflectance,
            false};
}

} // namespace geometry
