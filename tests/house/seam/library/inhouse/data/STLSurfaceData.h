#pragma once

#include "inhouse/data/Mesh.h"

#include <QMatrix4x4>

class OTHER_INHOUSE_EXPORT STLSurfaceData
{
public:
    STLSurfaceData(int tag_, geometry::Mesh const& mesh_, QMatrix4x4 const& transform_, int subTag_)
        : tag(tag_)
        , subTag(subTag_)
        , mesh(mesh_)
        , transform(transform_)
    {}
    virtual ~STLSurfaceData();

    int getTag() const { return tag; }
    int getSubTag() const { return subTag; }
    geometry::Mesh const& getMesh() const { return mesh; }
    QMatrix4x4 const& getTransform() const { return transform; }

private:
    int tag;
    int subTag;
    geometry::Mesh mesh;
    QMatrix4x4 transform;
};
