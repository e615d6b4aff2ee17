#include "check/Finding.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

constexpr std::array table = {
    // Files that cannot be read.
    Kind{"malformed"_L1, Severity::Error, ""},
    Kind{"unsupported"_L1, Severity::Error, ""},
    Kind{"unreadable"_L1, Severity::Error, ""},
    Kind{"missing"_L1, Severity::Error, "check the spelling of the path"},
    Kind{"not-a-file"_L1, Severity::Error, "name a regular file; save what a pipe carries to a file first"},
    Kind{"cannot-open"_L1, Severity::Error, "check who may read the file"},
    Kind{"unknown-format"_L1, Severity::Error,
         "\"surfaceio formats\" lists what can be read; export as one of these"},
    Kind{"wrong-suffix"_L1, Severity::Error, "rename the file: readers choose the format by the suffix"},
    Kind{"stl-too-short"_L1, Severity::Error, "the file was cut off or is no STL; copy or export it again"},
    Kind{"stl-size"_L1, Severity::Error,
         "bytes were lost or added: copy the file again, in binary mode; if it stays so, export it again"},
    Kind{"stl-says-solid"_L1, Severity::Error,
         "overwrite the first five bytes, for example with spaces; they are not part of the mesh"},
    Kind{"stl-damaged-solid"_L1, Severity::Error, "copy or export the file again"},
    Kind{"stl-no-vertex"_L1, Severity::Error, "the file holds no facets; export it again"},
    Kind{"stl-bad-vertex"_L1, Severity::Error,
         "write each vertex as the word, a space and three numbers with points, with spaces between; no "
         "tabs"},
    Kind{"stl-vertex-count"_L1, Severity::Error,
         "the file was cut off, or facets lack a corner; export it again"},
    Kind{"stl-all-degenerate"_L1, Severity::Error,
         "every facet is a point or a line; check units and decimals of the export"},
    Kind{"array-size"_L1, Severity::Error,
         "write the record again, with MeshWriter or \"surfaceio convert\""},
    // Any mesh.
    Kind{"log"_L1, Severity::Warning, "the library said this while reading; see docs/formats for the format"},
    Kind{"empty"_L1, Severity::Warning, "the file is sound and holds no facet; export it again"},
    Kind{"units-metres"_L1, Severity::Warning, "scale by 1000: coordinates are taken as millimetres"},
    Kind{"units-micrometres"_L1, Severity::Warning, "scale by 0.001: coordinates are taken as millimetres"},
    Kind{"nonfinite-vertices"_L1, Severity::Warning, "remove the facets at these vertices in a mesh editor"},
    Kind{"zero-normals"_L1, Severity::Warning,
         "these vertices have no area around them; remove slivers in a mesh editor"},
    Kind{"nonmanifold-edges"_L1, Severity::Warning,
         "split or remove the surplus facets before measuring or printing"},
    Kind{"flipped-facets"_L1, Severity::Warning,
         "make the winding of neighbouring facets agree in a mesh editor"},
    Kind{"duplicate-facets"_L1, Severity::Warning,
         "remove the copies; they count twice in areas and normals"},
    Kind{"open-edges"_L1, Severity::Note,
         "nothing for a scan, which is a sheet; close the surface before printing"},
    // STL.
    Kind{"stl-colour-words"_L1, Severity::Warning,
         "read the file without tags, or clear the words: surfaceio tags relabel FILE '*=0/0' -o OUT"},
    Kind{"degenerate-facets"_L1, Severity::Note, "nothing: readers drop facets with two equal corners"},
    Kind{"sliver-facets"_L1, Severity::Note, "nothing for viewing; remesh before a simulation"},
    // Volume meshes and boundary conditions.
    Kind{"bad-reference"_L1, Severity::Error,
         "indices count from 0; -1 stands for no tetrahedron, never for a point"},
    Kind{"more-bad-references"_L1, Severity::Note, ""},
    Kind{"non-finite-points"_L1, Severity::Warning, ""},
    Kind{"incomplete-tetrahedra"_L1, Severity::Warning, "write a row for each face of each tetrahedron"},
    Kind{"flat-tetrahedra"_L1, Severity::Warning,
         "mesh again, or take the flat ones out: a solver divides by their volume"},
    Kind{"inverted-tetrahedra"_L1, Severity::Note,
         "the format keeps no orientation; swap two points of each after reading"},
    Kind{"foreign-faces"_L1, Severity::Warning,
         "four points were taken from the first rows of that tetrahedron"},
    Kind{"boundary-mismatch"_L1, Severity::Warning,
         "list each face of the outer surface once among the bound faces"},
    Kind{"open-boundary"_L1, Severity::Warning, "the body has a gap, or parts of it touch in an edge only"},
    Kind{"non-finite-values"_L1, Severity::Warning, ""},
    Kind{"repeated-points"_L1, Severity::Warning,
         "give each point one condition: solvers differ in which of several they take"},
    Kind{"not-compared"_L1, Severity::Note,
         "name the volume mesh before the conditions: surfaceio check MESH.vmesh CONDITIONS"},
};

} // namespace

QLatin1StringView nameOf(Severity severity)
{
    static constexpr std::array names = {"note"_L1, "warning"_L1, "error"_L1};
    return names[static_cast<std::size_t>(severity)];
}

std::span<Kind const> kinds()
{
    return table;
}

Kind const& kindOf(QLatin1StringView code)
{
    auto const named = [](QLatin1StringView name) {
        return std::find_if(table.begin(), table.end(),
                            [name](Kind const& kind) { return kind.code == name; });
    };
    auto const kind = named(code);
    return kind == table.end() ? *named("unreadable"_L1) : *kind;
}

void Findings::add(QLatin1StringView code, QString const& reason, QString const& remedy)
{
    Kind const& kind = kindOf(code);
    list.push_back({&kind, reason, remedy.isEmpty() ? QString::fromUtf8(kind.remedy) : remedy});
    if (kind.severity == Severity::Error && result == ExitCode::Ok)
        result = ExitCode::Malformed;
}

void Findings::fail(ExitCode exitCode, QLatin1StringView code, QString const& reason, QString const& remedy)
{
    if (result == ExitCode::Ok)
        result = exitCode;
    add(code, reason, remedy);
}

qint64 Findings::count(Severity severity) const
{
    return std::count_if(list.begin(), list.end(),
                         [severity](Finding const& finding) { return finding.kind->severity == severity; });
}

} // namespace tool
