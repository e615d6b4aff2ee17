#pragma once

#include "inhouse/Export.h"
#include "inhouse/dataobjects/Surface3DModel.h"
#include "inhouse/dataobjects/SurfaceScan.h"

/// A scan of teeth or of a plaster model.
class SURFACEIO_INHOUSE_EXPORT DentalScan : public Surface3DModel, public SurfaceScan
{
public:
    DentalScan() = default;
    ~DentalScan() override;

    geometry::Mesh const& getScannedSurface() const override { return getMesh(); }
    QMatrix4x4 const& getScanPlacement() const override { return getObjectTransform(); }
};
