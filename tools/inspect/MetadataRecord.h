#pragma once

#include "Report.h"
#include "inhouse/data/MeshHeader.h"

#include <QByteArrayView>

#include <optional>

namespace tool {

/// The scan metadata in the 80-byte header of a binary STL file; empty when the header does not begin with
/// the marker of our record. Texts come back as they were stored: without spaces, cut to their width.
std::optional<MeshHeader> decodeMetadataRecord(QByteArrayView header);

/// Adds "metadata": null, or the five fields of a scan's metadata.
void addMetadata(Report& report, std::optional<MeshHeader> const& metadata);

} // namespace tool
