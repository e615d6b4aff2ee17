#include "convert/Changes.h"

namespace tool {

bool Changes::hasMetadata() const
{
    return scannerName || scannerSerial || softwareVersion || acquired || imported;
}

void Changes::applyTo(MeshFile& file) const
{
    file.withAlpha = withAlpha;
    if (material)
        file.material = material;
    if (!hasMetadata())
        return;
    MeshHeader const before = file.metadata.value_or(MeshHeader());
    file.metadata.emplace(scannerName.value_or(before.getScannerName()),
                          scannerSerial.value_or(before.getScannerSerial()), imported || before.isImported(),
                          softwareVersion.value_or(before.getSoftwareVersion()),
                          acquired ? acquired->startOfDay(Qt::UTC) : before.getAcquisitionDate());
}

} // namespace tool
