#include "volume/VolumeOutput.h"

#include "Text.h"
#include "convert/Suffixes.h"
#include "vmesh/FaceRows.h"
#include "vmesh/MTModelVMeshWriter.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace tool::volume {

namespace {

constexpr qint64 rowWidth = 5;

Problem failed(QString const& sentence)
{
    return sentence.isEmpty() ? Problem() : Problem{ExitCode::ReadOrWriteFailed, sentence};
}

// A coordinate and what six decimals leave of it.
bool isRounded(float exact, float rounded)
{
    constexpr float sixDecimals = 1e-6F;
    constexpr float singlePrecision = 1e-6F;
    return std::fabs(exact - rounded) <= sixDecimals + singlePrecision * std::fabs(exact);
}

bool isSame(MTModelVMesh const& mesh, MTModelVMesh const& written)
{
    bool const hasSameCounts = mesh.numTetrahedra == written.numTetrahedra &&
                               mesh.numPoints == written.numPoints && mesh.numFaces == written.numFaces &&
                               mesh.numBoundFaces == written.numBoundFaces;
    if (!hasSameCounts)
        return false;
    auto const hasSameRows = [](QSharedPointer<qint32> const& a, QSharedPointer<qint32> const& b,
                                qint64 rows) {
        return std::equal(a.data(), a.data() + rowWidth * rows, b.data());
    };
    return hasSameRows(mesh.faces, written.faces, mesh.numFaces) &&
           hasSameRows(mesh.boundFaces, written.boundFaces, mesh.numBoundFaces) &&
           std::equal(mesh.points.data(), mesh.points.data() + 3 * qint64(mesh.numPoints),
                      written.points.data(), isRounded);
}

} // namespace

Problem openVolumeFile(OutputFile& output, QString const& path, bool mayReplace)
{
    if (!hasSuffix(path, "vmesh"_L1))
        return {ExitCode::Usage, Text::tr("expected the suffix .vmesh")};
    return failed(output.open(mayReplace));
}

Problem writeVolumeFile(OutputFile& output, MTModelVMesh& mesh, VolumeFile& written)
{
    if (!deriveFaceRows(mesh))
        return failed(Text::tr("there is not enough memory for its face rows"));
    if (!MTModelVMeshWriter(mesh).write(output.temporaryPath()))
        return failed(whyNotWritten(output.temporaryPath()));
    // The writer does not notice a full disk.
    written = readVolumeFile(output.temporaryPath());
    if (!written.problem.isEmpty() || !isSame(mesh, written.mesh))
        return failed(
            whyNotWritten(output.temporaryPath(),
                          Text::tr("what was written is not what was to be written; is the disk full?")));
    constexpr qint64 anySize = -1;
    return failed(output.commit(anySize));
}

Report& addCounts(Report& report, QLatin1StringView key, QString const& label, MTModelVMesh const& mesh)
{
    Report& counts = report.section(key, label);
    counts.add("tetrahedra"_L1, Text::tr("tetrahedra"), mesh.numTetrahedra);
    counts.add("faces"_L1, Text::tr("face rows"), mesh.numFaces);
    counts.add("boundFaces"_L1, Text::tr("bound-face rows"), mesh.numBoundFaces);
    counts.add("points"_L1, Text::tr("points"), mesh.numPoints);
    return counts;
}

} // namespace tool::volume
