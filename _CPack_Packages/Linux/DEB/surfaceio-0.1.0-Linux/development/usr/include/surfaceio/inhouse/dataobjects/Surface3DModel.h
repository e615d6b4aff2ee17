#pragma once

#include "inhouse/Export.h"
#include "inhouse/data/Mesh.h"
#include "inhouse/dataobjects/DataObject.h"

#include <QMatrix4x4>

/// One surface with its placement.
class SURFACEIO_INHOUSE_EXPORT Surface3DModel : public DataObject
{
public:
    /// An empty mesh at the origin.
    Surface3DModel() = default;
    ~Surface3DModel() override;

    /// Keeps its own copy. In object space, millimetres.
    void setMesh(geometry::Mesh const& newMesh) { mesh = newMesh; }
    /// The surface in object space, in millimetres. Valid until the next `setMesh`.
    geometry::Mesh const& getMesh() const { return mesh; }
    /// From object space to the space of the plan.
    void setObjectTransform(QMatrix4x4 const& transform) { objectTransform = transform; }
    /// From object space to the space of the plan; the identity until one was set.
    QMatrix4x4 const& getObjectTransform() const { return objectTransform; }

private:
    geometry::Mesh mesh;
    QMatrix4x4 objectTransform;
};
