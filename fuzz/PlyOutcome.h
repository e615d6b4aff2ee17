#pragma once

#include "Fuzz.h"
#include "ply/PLYReader.h"
#include "support/Devices.h"
#include "support/PrivateAccess.h"

#include <QBuffer>

#include <atomic>

namespace support {

struct DecodesRows
{
    using Member = bool PLYReader::*;
    friend Member privateMember(DecodesRows);
};
template struct PrivateMember<DecodesRows, &PLYReader::decodesRows>;

} // namespace support

/// What a PLY reader makes of a file, and that it makes the same of it every time, from every device, and
/// value by value.
namespace fuzz {

struct PlySettings
{
    PLYReader::ReadMode mode = PLYReader::MeshMode;
    bool faceColors = false;
    SurfaceReader::TextureSupport textureSupport = SurfaceReader::VertexColorsOptional;
    /// Stands for the texture that the header names, so that no file is looked for.
    QImage texture = QImage(3, 2, QImage::Format_ARGB32);

    static PlySettings from(Choices& choices)
    {
        PlySettings settings;
        settings.mode = choices.below(4) == 0 ? PLYReader::PointCloudMode : PLYReader::MeshMode;
        settings.faceColors = choices.flag();
        settings.textureSupport = SurfaceReader::TextureSupport(choices.below(4));
        settings.texture.fill(Qt::blue);
        return settings;
    }
};

struct PlyOutcome
{
    bool success = false;
    geometry::Mesh mesh;
    geometry::PointCloud cloud;
    QImage texture;
    QList<QColor> faceColors;
    utility::Optional<geometry::Material> material;
    QStringList log;
};

inline PlyOutcome outcomeOf(PLYReader& reader, QIODevice& device)
{
    std::atomic<bool> const cancel = false;
    silence();
    bool const success = reader.read(&device, cancel);
    return {success,
            reader.getMesh(),
            reader.getPointCloud(),
            reader.getTexture(),
            reader.getFaceColors(),
            reader.getMaterial(),
            messages()};
}

inline PlyOutcome readPly(QIODevice& device, PlySettings const& settings, bool decodesRows = true)
{
    PLYReader reader(settings.mode);
    reader.*privateMember(support::DecodesRows()) = decodesRows;
    reader.activeFaceColorMode(settings.faceColors);
    reader.setTextureSupport(settings.textureSupport);
    reader.setTextureOverride(settings.texture);
    return outcomeOf(reader, device);
}

inline void requireSound(PlyOutcome const& outcome, PlySettings const& settings)
{
    requireSound(outcome.mesh);
    qsizetype const points = outcome.cloud.positions.size();
    require(hasOneEach(outcome.cloud.normals.size(), points));
    require(hasOneEach(outcome.cloud.colors().size(), points));
    require(outcome.success || (outcome.mesh.isNull() && points == 0 && outcome.texture.isNull()));
    require(settings.mode == PLYReader::MeshMode ? points == 0 : outcome.mesh.isNull());
    require(settings.faceColors || outcome.faceColors.isEmpty());
    if (outcome.success && settings.textureSupport == SurfaceReader::TextureRequired &&
        settings.mode == PLYReader::MeshMode)
        require(!outcome.mesh.textureCoordinates.isEmpty() && !outcome.texture.isNull());
}

inline bool sameBits(float a, float b)
{
    return std::memcmp(&a, &b, sizeof(a)) == 0;
}

inline bool sameMaterials(geometry::Material const& a, geometry::Material const& b)
{
    using geometry::Material;
    for (auto const number : {&Material::ambientIntensity, &Material::diffuseIntensity,
                              &Material::specularIntensity, &Material::emissiveIntensity,
                              &Material::shininess, &Material::transparency, &Material::baseReflectance})
        if (!sameBits(a.*number, b.*number))
            return false;
    return a.ambientColor == b.ambientColor && a.diffuseColor == b.diffuseColor &&
           a.specularColor == b.specularColor && a.emissiveColor == b.emissiveColor &&
           a.detailNoise == b.detailNoise;
}

inline void requireSame(PlyOutcome const& a, PlyOutcome const& b)
{
    require(a.success == b.success && a.log == b.log && a.texture == b.texture);
    requireSame(a.mesh, b.mesh);
    require(sameBytes(a.cloud.positions, b.cloud.positions) && sameBytes(a.cloud.normals, b.cloud.normals) &&
            a.cloud.colors() == b.cloud.colors());
    require(a.faceColors == b.faceColors);
    require(a.material.has_value() == b.material.has_value() &&
            (!a.material || sameMaterials(*a.material, *b.material)));
}

/// Reads `file` as bytes in memory, once more, value by value, and from a pipe that gives few bytes at a
/// time.
inline PlyOutcome requireSameEveryWay(QByteArray file, PlySettings const& settings)
{
    QBuffer buffer(&file);
    PlyOutcome const first = readPly(buffer, settings);
    requireSound(first, settings);
    requireSame(first, readPly(buffer, settings));
    requireSame(first, readPly(buffer, settings, false));
    support::SequentialDevice pipe(file, 7);
    require(pipe.open(QIODevice::ReadOnly));
    requireSame(first, readPly(pipe, settings));
    return first;
}

} // namespace fuzz
