#include "Text.h"
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
        return Text::tr("by its first line, which holds \"# Labeled\", and the four counts in its second");
    return {};
}

void addCounts(Report& report, MTModelVMesh const& mesh)
{
    Report& inFile = report.section("inFile"_L1, Text::tr("in the file"));
    inFile.add("tetrahedra"_L1, Text::tr("tetrahedra"), mesh.numTetrahedra);
    inFile.add("faces"_L1, Text::tr("face rows"), mesh.numFaces);
    inFile.add("boundFaces"_L1, Text::tr("bound-face rows"), mesh.numBoundFaces);
    inFile.add("points"_L1, Text::tr("points"), mesh.numPoints);
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
    Report& section = report.section("tetrahedra"_L1, Text::tr("tetrahedra"));
    section.add("incomplete"_L1, Text::tr("with unknown points"), findings.incomplete);
    section.add("flat"_L1, Text::tr("flat"), findings.flat);
    section.add("inverted"_L1, Text::tr("inverted"), findings.inverted);
}

void addBoundary(Report& report, MTModelVMesh const& mesh)
{
    BoundaryFindings const boundary = boundaryFindingsOf(mesh);
    Report& section = report.section("boundary"_L1, Text::tr("boundary"));
    section.add("points"_L1, Text::tr("points"), boundary.points);
    section.add("edges"_L1, Text::tr("edges"), boundary.edges);
    section.add("faces"_L1, Text::tr("faces"), boundary.faces);
    section.add("eulerCharacteristic"_L1, Text::tr("Euler characteristic"), boundary.eulerCharacteristic());
    section.add("openEdges"_L1, Text::tr("open edges"), boundary.openEdges);
}

void addBadReferences(Report& report, VolumeFindings const& findings)
{
    Table table;
    table.columns = {{"line"_L1, Text::tr("line")}, {"problem"_L1, Text::tr("problem")}};
    for (BadReference const& reference : findings.badReferences)
        table.rows.push_back({reference.line, reference.sentence});
    QString const label = table.rows.empty() ? QString() : Text::tr("bad references");
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
        inspection.fail(ExitCode::Malformed, Text::tr("line %1: %2")
                                                 .arg(findings.badReferences.front().line)
                                                 .arg(findings.badReferences.front().sentence));
}

QString recogniseConditions(Source const& source)
{
    if (QByteArrayView(source.head).startsWith(conditionsHeader))
        return Text::tr("by its first line, which is \"FemBoundaryConditions\"");
    return {};
}

void inspectConditions(Source const& source, Inspection& inspection)
{
    ConditionsFile const file = readConditionsFile(source.path);
    if (!file.problem.isEmpty()) {
        inspection.fail(ExitCode::Malformed, file.problem);
        return;
    }
    Report& inFile = inspection.report.section("inFile"_L1, Text::tr("in the file"));
    inFile.add("conditions"_L1, Text::tr("conditions"), file.conditions.numBoundaryConditions);
}

} // namespace

Format const volumeFormat = {"vmesh"_L1,  QLatin1StringView(QT_TRANSLATE_NOOP("Text", "volume mesh")),
                             "vmesh"_L1,  recogniseMesh,
                             inspectMesh, checkVolume};
Format const conditionsFormat = {"conditions"_L1,
                                 QLatin1StringView(QT_TRANSLATE_NOOP("Text", "boundary conditions")),
                                 "conditions"_L1,
                                 recogniseConditions,
                                 inspectConditions,
                                 checkConditions,
                                 false};

} // namespace tool
