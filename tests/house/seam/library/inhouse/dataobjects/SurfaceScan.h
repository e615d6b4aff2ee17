#pragma once

#include "inhouse/Export.h"

class OTHER_INHOUSE_EXPORT SurfaceScan
{
public:
    SurfaceScan() = default;
    SurfaceScan(SurfaceScan const&) = default;
    SurfaceScan& operator=(SurfaceScan const&) = default;
    virtual ~SurfaceScan();
};
