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

    /// Second attribute byte of the facets (0 to 255), or -1 for facets gathered from tags that were not
    /// asked for.
    int getTag() const { return tag; }
    /// First attribute byte of the facets, -128 to 127.
    int getSubTag() const { return subTag; }
    /// The surface, in millimetres; valid while this object lives.
    geometry::Mesh const& getMesh() const { return mesh; }
    /// Where the surface is placed; valid while this object lives.
    QMatrix4x4 const& getTransform() const { return transform; }

private:
    int tag;
    geometry::Mesh mesh;
    QMatrix4x4 transform;
    int subTag;
};
