#pragma once

#include "inhouse/data/Material.h"
#include "inhouse/data/Mesh.h"

class QDataStream;
class QVersionNumber;

/// The mesh and the material of one shape as bytes.
namespace shaperecord {

/// Whether files of this version can be read: 1.0 (no materials) and 2.0.
bool isKnown(QVersionNumber const& version);
bool hasMaterials(QVersionNumber const& version);

/// False when the record is damaged or cut short; `mesh` then holds anything.
bool readMesh(QDataStream& stream, geometry::Mesh& mesh);
bool writeMesh(QDataStream& stream, geometry::Mesh const& mesh);

/// False when the record is damaged or cut short; `material` then holds anything.
bool readMaterial(QDataStream& stream, geometry::Material& material);
/// Colours go out as 16-bit RGBA, whatever colour model they are in.
bool writeMaterial(QDataStream& stream, geometry::Material const& material);

} // namespace shaperecord
