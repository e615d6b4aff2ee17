#pragma once

#include "inhouse/Export.h"
#include "inhouse/data/Mesh.h"

#include <QMatrix4x4>

/// One surface of a tagged STL file: its mesh, its placement and the two numbers of its facet tag.
class SURFACEIO_INHOUSE_EXPORT STLSurfaceData
{
public:
    /// Keeps its own copy of `mesh` and `transform`.
    STLSurfaceData(int tag, geometry::Mesh const& mesh, QMatrix4x4 const& transform, int subTag);
    virtual ~STLSurfaceData();

    int getTag() const { return tag; }
    int getSubTag() const { return subTag; }
    geometry::Mesh const& getMesh() const { return mesh; }
    QMatrix4x4 const& getTransform() const { return transform; }

private:
    int tag;
    geometry::Mesh mesh;
    QMatrix4x4 transform;
    int subTag;
};
