#include "check/Check.h"
#include "check/Checkers.h"
#include "volume/VolumeFindings.h"

using namespace Qt::StringLiterals;

namespace tool {

namespace {

void reportReferences(Check& check, VolumeFindings const& findings)
{
    for (BadReference const& reference : findings.badReferences)
        check.error("bad-reference"_L1,
                    u"line %1: %2"_s.arg(QString::number(reference.line), reference.sentence),
                    u"indices count from 0; -1 stands for no tetrahedron, never for a point"_s);
    qint64 const more = findings.badReferenceCount - qint64(findings.badReferences.size());
    if (more > 0)
        check.note("more-bad-references"_L1, u"%1 more references of this kind"_s.arg(more));
}

void reportTetrahedra(Check& check, VolumeFindings const& findings, qint32 count)
{
    if (findings.incomplete > 0)
        check.warning(
            "incomplete-tetrahedra"_L1,
            u"%1 of %2 tetrahedra have points that no face row tells"_s.arg(findings.incomplete).arg(count),
            u"write a row for each face of each tetrahedron"_s);
    if (findings.flat > 0)
        check.warning("flat-tetrahedra"_L1, u"%1 of %2 tetrahedra are flat"_s.arg(findings.flat).arg(count),
                      u"mesh again, or take the flat ones out: a solver divides by their volume"_s);
    if (findings.inverted > 0)
        check.note("inverted-tetrahedra"_L1,
                   u"%1 of %2 tetrahedra have a negative volume in the order in which the face rows bring "
                   "their points"_s.arg(findings.inverted)
                       .arg(count),
                   u"the format keeps no orientation; swap two points of each after reading"_s);
}

void reportFaces(Check& check, VolumeFindings const& findings, MTModelVMesh const& mesh)
{
    if (findings.foreignFaces > 0)
        check.warning(
            "foreign-faces"_L1,
            u"%1 face rows have a point that their tetrahedron does not have, the first in line %2"_s
                .arg(findings.foreignFaces)
                .arg(findings.firstForeignLine),
            u"four points were taken from the first rows of that tetrahedron"_s);
    if (findings.outerFaces != mesh.numBoundFaces)
        check.warning("boundary-mismatch"_L1,
                      u"%1 face rows have a tetrahedron on one side only, but there are %2 bound-face rows"_s
                          .arg(findings.outerFaces)
                          .arg(mesh.numBoundFaces),
                      u"list each face of the outer surface once among the bound faces"_s);
}

void reportBoundary(Check& check, MTModelVMesh const& mesh)
{
    BoundaryFindings const boundary = boundaryFindingsOf(mesh);
    if (boundary.openEdges > 0)
        check.warning(
            "open-boundary"_L1,
            u"%1 of %2 edges of the boundary do not join exactly two bound faces"_s.arg(boundary.openEdges)
                .arg(boundary.edges),
            u"the body has a gap, or parts of it touch in an edge only"_s);
}

void reportMesh(Check& check, VolumeFile const& file)
{
    VolumeFindings const findings = findingsOf(file);
    reportReferences(check, findings);
    if (findings.nonFinitePoints > 0)
        check.warning("non-finite-points"_L1,
                      u"%1 of %2 points have a NaN or an infinity"_s.arg(findings.nonFinitePoints)
                          .arg(file.mesh.numPoints));
    reportTetrahedra(check, findings, file.mesh.numTetrahedra);
    reportFaces(check, findings, file.mesh);
    if (findings.badReferenceCount == 0)
        reportBoundary(check, file.mesh);
}

} // namespace

void checkVolume(Check& check)
{
    VolumeFile file = readVolumeFile(check.source.path);
    if (!file.problem.isEmpty()) {
        check.error("malformed"_L1, file.problem);
        return;
    }
    reportMesh(check, file);
    check.context.volume = std::move(file);
    check.context.volumePath = check.source.path;
}

} // namespace tool
