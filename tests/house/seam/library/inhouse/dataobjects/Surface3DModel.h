#pragma once

#include "inhouse/data/Mesh.h"
#include "inhouse/dataobjects/DataObject.h"

#include <QMatrix4x4>

class OTHER_INHOUSE_EXPORT Surface3DModel : public DataObject
{
public:
    ~Surface3DModel() override;

    void setMesh(geometry::Mesh const& mesh_) { mesh = mesh_; }
    geometry::Mesh const& getMesh() const { return mesh; }
    void setObjectTransform(QMatrix4x4 const& transform_) { transform = transform_; }
    QMatrix4x4 const& getObjectTransform() const { return transform; }

private:
    geometry::Mesh mesh;
    QMatrix4x4 transform;
};
