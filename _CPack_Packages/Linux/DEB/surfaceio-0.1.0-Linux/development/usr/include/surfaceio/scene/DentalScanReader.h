#pragma once

#include "framework/Export.h"
#include "inhouse/dataobjects/DentalScan.h"

#include <memory>

class QString;
class SurfaceReader;

/// Turns a surface file into a dental scan of the plan. Stateless: any thread, any number at a time.
class SURFACEIO_EXPORT DentalScanReader
{
public:
    /// Reads the file, in the format that its name's ending says: .stl, .ply or .obj, in lower case. An STL
    /// file is one surface with smooth normals, whatever tags its facets carry.
    ///
    /// The scan has the file's mesh, in millimetres, and the reader's transform; everything else of it is for
    /// the caller to fill. Empty, with a warning, for another ending and for a file that cannot be read;
    /// without one for want of memory. Cannot be cancelled.
    static std::shared_ptr<DentalScan> readDentalScan(QString const& fileName);

private:
    DentalScanReader() = default;

    static std::shared_ptr<DentalScan> readDentalScanWithSurfaceReader(SurfaceReader& reader);
};
