#include "ply/PLYReader.h"

#include <QDataStream>
#include <QDebug>

// A record under way. The scratch colour is carried from group to group: a channel that a group leaves out
// is the previous group's.
struct PLYReader::MaterialData
{
    geometry::Material material;
    QColor scratch;
};

namespace {

using geometry::Material;

struct IntensitySlot
{
    ply::Property property;
    float Material::*intensity;
    QColor Material::*color;
};

constexpr IntensitySlot intensitySlots[] = {
    {ply::AmbientIntensity, &Material::ambientIntensity, &Material::ambientColor},
    {ply::DiffuseIntensity, &Material::diffuseIntensity, &Material::diffuseColor},
    {ply::SpecularIntensity, &Material::specularIntensity, &Material::specularColor},
    {ply::EmissiveIntensity, &Material::emissiveIntensity, &Material::emissiveColor},
};

bool isIntensity(ply::Property property)
{
    return property == ply::AmbientIntensity || property == ply::DiffuseIntensity ||
           property == ply::SpecularIntensity || property == ply::EmissiveIntensity;
}

void assignColorAndIntensity(ply::Property property, QColor const& color, float intensity, Material& material)
{
    for (IntensitySlot const& slot : intensitySlots) {
        if (slot.property != property)
            continue;
        material.*slot.color = color;
        material.*slot.intensity = intensity;
        return;
    }
    qWarning() << "assignColorAndIntensity: unknown intensity property " << int(property);
}

// Null for a property that is no plain number of the material.
float* plainNumber(ply::Property property, Material& material)
{
    switch (property) {
    case ply::Shininess:
        return &material.shininess;
    case ply::Transparency:
        return &material.transparency;
    case ply::BaseReflectance:
        return &material.baseReflectance;
    default:
        return nullptr;
    }
}

bool toFloat(QVariant const& value, ply::Property property, float& number)
{
    bool isNumber = false;
    number = value.toFloat(&isNumber);
    if (!isNumber)
        qWarning() << "Failed to convert property " << int(property) << " to the expected type";
    return isNumber;
}

} // namespace

bool PLYReader::readMaterialData(QDataStream& stream, PLYHeader const& header,
                                 std::atomic<bool> const& cancel)
{
    material.reset();
    if (header.getMaterialPropertiesCount() == 0)
        return true;
    MaterialData record;
    for (int i = 0; i < header.getMaterialPropertiesCount() && !stream.atEnd(); ++i) {
        PLYHeader::TypedProperty const property{header.getMaterialProperty(i),
                                                header.getMaterialPropertyType(i)};
        if (cancel || !readMaterialProperty(stream, property, record, cancel))
            return false;
    }
    material = record.material;
    return true;
}

bool PLYReader::readMaterialProperty(QDataStream& stream, PLYHeader::TypedProperty const& typedProperty,
                                     MaterialData& record, std::atomic<bool> const& cancel)
{
    auto const [property, type] = typedProperty;
    if (isMaterialColorProperty(property))
        return readMaterialColor(stream, record.scratch, property, type, cancel);
    QVariant const value = readBinaryData(stream, type);
    if (isIntensity(property)) {
        float intensity = 0.0f;
        bool const isNumber = toFloat(value, property, intensity);
        if (isNumber)
            assignColorAndIntensity(property, record.scratch, intensity, record.material);
        return isNumber;
    }
    if (float* const number = plainNumber(property, record.material))
        return toFloat(value, property, *number);
    if (property == ply::DetailNoise)
        record.material.detailNoise = value.toBool();
    return true;
}
