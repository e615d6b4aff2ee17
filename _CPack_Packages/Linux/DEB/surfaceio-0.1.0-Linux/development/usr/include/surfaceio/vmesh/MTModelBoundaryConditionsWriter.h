#pragma once

#include "framework/Export.h"
#include "vmesh/MTModelBoundaryConditions.h"

#include <QString>

class QTextStream;

/// Writes the boundary-conditions file that goes with a volume mesh (docs/formats/conditions.md).
///
/// Holds a copy of the record, which shares its arrays: they must not change until `write` is done. One
/// thread uses a writer at a time.
class SURFACEIO_EXPORT MTModelBoundaryConditionsWriter
{
public:
    /// The arrays of `boundaryConditions` must be as long as its count says.
    explicit MTModelBoundaryConditionsWriter(MTModelBoundaryConditions const& boundaryConditions);
    MTModelBoundaryConditionsWriter(MTModelBoundaryConditionsWriter const&) = default;
    MTModelBoundaryConditionsWriter& operator=(MTModelBoundaryConditionsWriter const&) = default;
    virtual ~MTModelBoundaryConditionsWriter();

    /// Writes the file, which is created or truncated first. Components are written with six significant
    /// digits. A record without conditions gives a file without conditions, a default record the count -1.
    ///
    /// False, with a message in the log, when the file cannot be opened. A disk that fills up is not noticed.
    /// False without one when an array that the count calls for is null or memory
    /// runs out.
    bool write(QString const& fileName);

private:
    void writeHeader(QTextStream& stream) const;
    void writeBoundaryConditions(QTextStream& stream) const;
    void writeFooter(QTextStream& stream) const;

    MTModelBoundaryConditions boundaryConditions;
};
