#include "framework/SurfaceReader.h"

#include "inhouse/meshoperations/NormalsCalculator.h"

namespace {

constexpr float sharpEdgeThreshold = 1.0f;

} // namespace

SurfaceReader::SurfaceReader(bool sharpEdges_)
    : sharpEdges(sharpEdges_)
{}

SurfaceReader::~SurfaceReader() = default;

void SurfaceReader::setFileName(QString const& name)
{
    fileName = name;
}

geometry::Mesh const& SurfaceReader::getMesh() const
{
    return mesh;
}

QMatrix4x4 const& SurfaceReader::getTransform() const
{
    return transform;
}

QImage const& SurfaceReader::getTexture() const
{
    return texture;
}

void SurfaceReader::setTextureSupport(TextureSupport support)
{
    textureSupport = support;
}

bool SurfaceReader::isTextureSupportRequested() const
{
    return textureSupport == TextureOptional || textureSupport == TextureRequired;
}

bool SurfaceReader::computeNormals(std::atomic<bool> const& cancel)
{
    mesh = sharpEdges ? NormalsCalculator::computeSharpEdgeNormals(mesh, sharpEdgeThreshold, cancel)
                      : NormalsCalculator::computeGouraudNormals(mesh, cancel);
    return !mesh.isNull();
}
