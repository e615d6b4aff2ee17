#pragma once

#include "inhouse/Export.h"
#include "inhouse/data/Material.h"
#include "inhouse/data/Mesh.h"

class QDataStream;
class QVersionNumber;

namespace geometry {

/// A mesh and how it looks. A value type; one thread at a time.
class SURFACEIO_INHOUSE_EXPORT Shape
{
public:
    /// An empty mesh with the default material.
    Shape() = default;

    /// Keeps its own copy. In millimetres.
    void setMesh(Mesh const& newMesh) { mesh = newMesh; }
    /// The surface, in millimetres. Valid until the next `setMesh` or `loadBinary`.
    Mesh const& getMesh() const { return mesh; }
    /// Replaces the material.
    void setMaterial(Material const& newMaterial) { material = newMaterial; }
    /// The material; a default one until it was set.
    Material const& getMaterial() const { return material; }

    /// Reads a shape record of the file version `version` (see `ShapeNodeIO`) from the stream's position.
    /// With `ignoreMaterial` the record's material is read over and the default one kept in its place.
    ///
    /// False when the version is unknown, or the record is damaged or cut short; the shape is then as it was
    /// and the stream's status tells. Memory grows with the bytes that are there, never with a count.
    bool loadBinary(QDataStream* stream, QVersionNumber const& version, bool ignoreMaterial);
    /// Writes a shape record of the latest version. False when the stream did not take it, or, on a file,
    /// when the bytes did not reach it.
    bool saveBinary(QDataStream* stream) const;

private:
    Mesh mesh;
    Material material;
};

} // namespace geometry
