#pragma once

#include "inhouse/dataobjects/Surface3DModel.h"
#include "inhouse/dataobjects/SurfaceScan.h"

class OTHER_INHOUSE_EXPORT DentalScan : public Surface3DModel, public SurfaceScan
{
public:
    ~DentalScan() override;
};
