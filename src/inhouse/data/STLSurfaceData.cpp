#include "inhouse/data/STLSurfaceData.h"

STLSurfaceData::STLSurfaceData(int tag_, geometry::Mesh const& mesh_, QMatrix4x4 const& transform_,
                               int subTag_)
    : tag(tag_)
    , mesh(mesh_)
    , transform(transform_)
    , subTag(subTag_)
{}

STLSurfaceData::~STLSurfaceData() = default;
