#pragma once

#include "inhouse/data/Material.h"
#include "inhouse/data/Mesh.h"

class QDataStream;
class QVersionNumber;

namespace geometry {

/// Its records have no bytes.
class OTHER_INHOUSE_EXPORT Shape
{
public:
    void setMesh(Mesh const& mesh_) { mesh = mesh_; }
    Mesh const& getMesh() const { return mesh; }
    void setMaterial(Material const& material_) { material = material_; }
    Material const& getMaterial() const { return material; }

    bool loadBinary(QDataStream*, QVersionNumber const&, bool) { return true; }
    bool saveBinary(QDataStream*) const { return true; }

private:
    Mesh mesh;
    Material material;
};

} // namespace geometry
