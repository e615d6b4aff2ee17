#pragma once

#include "Problem.h"
#include "Report.h"
#include "output/OutputFile.h"
#include "volume/VolumeFile.h"

namespace tool::volume {

/// Derives the face rows of `mesh`, which is complete, writes it to the opened `output`, reads back what was
/// written, which goes to `written`, and moves the file into place only if that is the same.
Problem writeVolumeFile(OutputFile& output, MTModelVMesh& mesh, VolumeFile& written);

/// Opens `output` for a volume mesh at `path`.
Problem openVolumeFile(OutputFile& output, QString const& path, bool mayReplace);

/// The four counts of a mesh as a section of a report, which may be added to.
Report& addCounts(Report& report, QLatin1StringView key, QString const& label, MTModelVMesh const& mesh);

} // namespace tool::volume
