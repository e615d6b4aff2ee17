#pragma once

#include "inhouse/Export.h"
#include "inhouse/data/Mesh.h"

#include <QMatrix4x4>

/// What all scans of surfaces have in common, whatever they are stored as.
class SURFACEIO_INHOUSE_EXPORT SurfaceScan
{
public:
    SurfaceScan() = default;
    SurfaceScan(SurfaceScan const&) = default;
    SurfaceScan& operator=(SurfaceScan const&) = default;
    virtual ~SurfaceScan();

    /// The scanned surface as the scanner saw it, in millimetres.
    virtual geometry::Mesh const& getScannedSurface() const = 0;
    /// From the scanner's space to the space of the plan.
    virtual QMatrix4x4 const& getScanPlacement() const = 0;
};
