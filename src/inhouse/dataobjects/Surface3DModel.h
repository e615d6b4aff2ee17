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
    geometry::Mesh const& getMesh() const { return mesh; }
    /// From object space to the space of the plan.
    void setObjectTransform(QMatrix4x4 const& transform) { objectTransform = transform; }
    QMatrix4x4 const& getObjectTransform() const { return objectTransform; }

private:
    geometry::Mesh mesh;
    QMatrix4x4 objectTransform;
};
