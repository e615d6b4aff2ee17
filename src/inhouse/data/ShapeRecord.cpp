#include "inhouse/data/ShapeRecord_p.h"
#include "inhouse/data/ShapeStream_p.h"

#include <QRgba64>
#include <QVersionNumber>

#include <bit>

namespace shaperecord {

using geometry::Material;
using geometry::Mesh;
using namespace shapestream;

namespace {

bool readColor(QDataStream& stream, QColor& color)
{
    bool valid = false;
    quint16 red = 0;
    quint16 green = 0;
    quint16 blue = 0;
    quint16 alpha = 0;
    if (!readFlag(stream, valid) || !readWord(stream, red) || !readWord(stream, green) ||
        !readWord(stream, blue) || !readWord(stream, alpha))
        return false;
    color = valid ? QColor(QRgba64::fromRgba64(red, green, blue, alpha)) : QColor();
    return true;
}

bool writeColor(QDataStream& stream, QColor const& color)
{
    QRgba64 const rgba = color.rgba64();
    return writeWord<quint8>(stream, color.isValid() ? 1 : 0) && writeWord(stream, rgba.red()) &&
           writeWord(stream, rgba.green()) && writeWord(stream, rgba.blue()) &&
           writeWord(stream, rgba.alpha());
}

// Both directions walk these tables, so that a field cannot change its place in one of them only.
constexpr std::array colorFields = {&Material::ambientColor, &Material::diffuseColor,
                                    &Material::specularColor, &Material::emissiveColor};
constexpr std::array floatFields = {&Material::ambientIntensity,  &Material::diffuseIntensity,
                                    &Material::specularIntensity, &Material::emissiveIntensity,
                                    &Material::shininess,         &Material::transparency,
                                    &Material::baseReflectance};

} // namespace

bool isKnown(QVersionNumber const& version)
{
    QVersionNumber const known = version.normalized();
    return known == QVersionNumber(1) || known == QVersionNumber(2);
}

bool hasMaterials(QVersionNumber const& version)
{
    return version.majorVersion() >= 2;
}

bool readMesh(QDataStream& stream, Mesh& mesh)
{
    return readItems<quint32>(stream, mesh.vertices) && readItems<quint32>(stream, mesh.normals) &&
           readItems<quint32>(stream, mesh.indices) && readItems<quint32>(stream, mesh.colors) &&
           readItems<quint32>(stream, mesh.textureCoordinates);
}

bool writeMesh(QDataStream& stream, Mesh const& mesh)
{
    return writeItems<quint32>(stream, mesh.vertices) && writeItems<quint32>(stream, mesh.normals) &&
           writeItems<quint32>(stream, mesh.indices) && writeItems<quint32>(stream, mesh.colors) &&
           writeItems<quint32>(stream, mesh.textureCoordinates);
}

bool readMaterial(QDataStream& stream, Material& material)
{
    for (auto const field : colorFields)
        if (!readColor(stream, material.*field))
            return false;
    for (auto const field : floatFields) {
        quint32 bits = 0;
        if (!readWord(stream, bits))
            return false;
        material.*field = std::bit_cast<float>(bits);
    }
    return readFlag(stream, material.detailNoise);
}

bool writeMaterial(QDataStream& stream, Material const& material)
{
    for (auto const field : colorFields)
        if (!writeColor(stream, material.*field))
            return false;
    for (auto const field : floatFields)
        if (!writeWord(stream, std::bit_cast<quint32>(material.*field)))
            return false;
    return writeWord<quint8>(stream, material.detailNoise ? 1 : 0);
}

} // namespace shaperecord
