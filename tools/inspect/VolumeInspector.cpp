#include "check/Checkers.h"
#include "inspect/Bounds.h"
#include "inspect/Formats.h"
#include "volume/VolumeFindings.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

constexpr QByteArrayView conditionsHeader = "FemBoundaryConditions";

// A remark in a file of another format may say the same; the sizes in the second line are no remark.
QString recogniseMesh(Source const& source)
{
    static QRegularExpression const pattern(u"^[^\n]*# Labeled[^\n]*\n\\d+ \\d+ \\d+ \\d+\r?(\n|$)"_s);
    if (pattern.match(QString::fromLatin1(source.head)).hasMatch())
        return u"by its first line, which holds \"# Labeled\", and the four counts in its second"_s;
    return {};
}

void addCounts(Report& report, MTModelVMesh const& mesh)
{
    Report& inFile = report.section("inFile"_L1, u"in the file"_s);
    inFile.add("tetrahedra"_L1, u"tetrahedra"_s, mesh.numTetrahedra);
    inFile.add("faces"_L1, u"face rows"_s, mesh.numFaces);
    inFile.add("boundFaces"_L1, u"bound-face rows"_s, mesh.numBoundFaces);
    inFile.add("points"_L1, u"points"_s, mesh.numPoints);
}

void addBounds(Report& report, MTModelVMesh const& mesh)
{
    Bounds bounds;
    float const* p = mesh.points.data();
    for (qint64 k = 0; k < mesh.numPoints; ++k, p += 3)
        bounds.add({p[0], p[1], p[2]});
    bounds.addTo(report);
}

void addTetrahedra(Report& report, VolumeFindings const& findings)
{
    Report& section = report.section("tetrahedra"_L1, u"tetrahedra"_s);
    section.add("incomplete"_L1, u"with unknown points"_s, findings.incomplete);
    section.add("flat"_L1, u"flat"_s, findings.flat);
    section.add("inverted"_L1, u"inverted"_s, findings.inverted);
}

void addBoundary(Report& report, MTModelVMesh const& mesh)
{
    BoundaryFindings const boundary = boundaryFindingsOf(mesh);
    Report& section = report.section("boundary"_L1, u"boundary"_s);
    section.add("points"_L1, u"points"_s, boundary.points);
    section.add("edges"_L1, u"edges"_s, boundary.edges);
    section.add("faces"_L1, u"faces"_s, boundary.faces);
    section.add("eulerCharacteristic"_L1, u"Euler characteristic"_s, boundary.eulerCharacteristic());
    section.add("openEdges"_L1, u"open edges"_s, boundary.openEdges);
}

void addBadReferences(Report& report, VolumeFindings const& findings)
{
    Table table;
    table.columns = {{"line"_L1, u"line"_s}, {"problem"_L1, u"problem"_s}};
    for (BadReference const& reference : findings.badReferences)
        table.rows.push_back({reference.line, reference.sentence});
    QString const label = table.rows.empty() ? QString() : u"bad references"_s;
    report.add("badReferenceCount"_L1, label, findings.badReferenceCount);
    report.add("badReferences"_L1, label, std::move(table));
}

void inspectMesh(Source const& source, Inspection& inspection)
{
    VolumeFile const file = readVolumeFile(source.path);
    if (!file.problem.isEmpty()) {
        inspection.fail(ExitCode::Malformed, file.problem);
        return;
    }
    VolumeFindings const findings = findingsOf(file);
    addCounts(inspection.report, file.mesh);
    addBounds(inspection.report, file.mesh);
    addTetrahedra(inspection.report, findings);
    addBadReferences(inspection.report, findings);
    if (findings.badReferenceCount == 0)
        addBoundary(inspection.report, file.mesh);
    else
        inspection.fail(ExitCode::Malformed, u"line %1: %2"_s.arg(findings.badReferences.front().line)
                                                 .arg(findings.badReferences.front().sentence));
}

QString recogniseConditions(Source const& source)
{
    if (QByteArrayView(source.head).startsWith(conditionsHeader))
        return u"by its first line, which is \"FemBoundaryConditions\""_s;
    return {};
}

void inspectConditions(Source const& source, Inspection& inspection)
{
    ConditionsFile const file = readConditionsFile(source.path);
    if (!file.problem.isEmpty()) {
        inspection.fail(ExitCode::Malformed, file.problem);
        return;
    }
    Report& inFile = inspection.report.section("inFile"_L1, u"in the file"_s);
    inFile.add("conditions"_L1, u"conditions"_s, file.conditions.numBoundaryConditions);
}

} // namespace

Format const volumeFormat = {"vmesh"_L1,    "volume mesh"_L1, "vmesh"_L1,
                             recogniseMesh, inspectMesh,      checkVolume};
Format const conditionsFormat = {"conditions"_L1,     "boundary conditions"_L1, ""_L1,
                                 recogniseConditions, inspectConditions,        checkConditions};

} // namespace tool
