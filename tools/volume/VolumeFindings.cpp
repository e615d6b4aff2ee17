#include "volume/VolumeFindings.h"

#include "Text.h"
#include "volume/VolumeGeometry.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

constexpr int rowWidth = 5;
constexpr int tetrahedraInRow = 2;

/// Rows of one kind: what is said of bad ones, and where they are.
struct Rows
{
    char const* badTetrahedron;
    char const* badPoint;
    qint32 const* values;
    qint64 count;
    qint64 firstLine;
};

class ReferenceCheck
{
public:
    ReferenceCheck(MTModelVMesh const& mesh_, VolumeFindings& findings_)
        : mesh(mesh_)
        , findings(findings_)
    {}

    void check(Rows const& rows)
    {
        qint32 const* row = rows.values;
        for (qint64 k = 0; k < rows.count; ++k, row += rowWidth) {
            for (int i = 0; i < rowWidth; ++i)
                check(rows, k, i < tetrahedraInRow, row[i]);
        }
    }

private:
    void check(Rows const& rows, qint64 row, bool isTetrahedron, qint32 index)
    {
        qint32 const count = isTetrahedron ? mesh.numTetrahedra : mesh.numPoints;
        if (index < count && index >= (isTetrahedron ? -1 : 0))
            return;
        ++findings.badReferenceCount;
        if (findings.badReferences.size() >= VolumeFindings::mostShown)
            return;
        char const* const sentence = isTetrahedron ? rows.badTetrahedron : rows.badPoint;
        findings.badReferences.push_back(
            {rows.firstLine + row, Text::tr(sentence).arg(QString::number(index), QString::number(count))});
    }

    MTModelVMesh const& mesh;
    VolumeFindings& findings;
};

// A tetrahedron whose height is less than this part of its longest edge is flat. Coordinates are stored with
// six decimals, so that on a body of centimetres thinner ones are made of rounding.
constexpr double flatness = 1e-6;

void judge(MTModelVMesh const& mesh, qint64 number, VolumeFindings& findings)
{
    if (!isComplete(mesh, number)) {
        ++findings.incomplete;
        return;
    }
    double const edge = longestEdge(mesh, number);
    double const volume = sixfoldVolume(mesh, number);
    if (!(std::fabs(volume) > flatness * edge * edge * edge))
        ++findings.flat;
    else if (volume < 0)
        ++findings.inverted;
}

bool isForeign(MTModelVMesh const& mesh, qint32 tetrahedron, qint32 const* triangle)
{
    if (tetrahedron < 0 || tetrahedron >= mesh.numTetrahedra || !isComplete(mesh, tetrahedron))
        return false;
    qint32 const* const points = mesh.tetrahedra.data() + 4 * qint64(tetrahedron);
    return std::any_of(triangle, triangle + 3,
                       [points](qint32 point) { return std::find(points, points + 4, point) == points + 4; });
}

void judgeFace(VolumeFile const& file, qint64 number, VolumeFindings& findings)
{
    qint32 const* const row = file.mesh.faces.data() + rowWidth * number;
    qint32 const* const triangle = row + tetrahedraInRow;
    findings.outerFaces += (row[0] < 0) != (row[1] < 0) ? 1 : 0;
    if (!isForeign(file.mesh, row[0], triangle) && !isForeign(file.mesh, row[1], triangle))
        return;
    if (findings.foreignFaces++ == 0)
        findings.firstForeignLine = file.lineOfFace(number);
}

qint64 countOfNonFinite(MTModelVMesh const& mesh)
{
    qint64 count = 0;
    float const* p = mesh.points.data();
    for (qint64 k = 0; k < mesh.numPoints; ++k, p += 3)
        count += std::isfinite(p[0]) && std::isfinite(p[1]) && std::isfinite(p[2]) ? 0 : 1;
    return count;
}

using Edge = std::pair<qint32, qint32>;

template <typename Value>
qint64 countOfDifferent(std::vector<Value>& values)
{
    std::sort(values.begin(), values.end());
    return std::unique(values.begin(), values.end()) - values.begin();
}

// Edges are sorted.
qint64 countOfOpen(std::vector<Edge> const& edges)
{
    qint64 open = 0;
    for (auto first = edges.begin(); first != edges.end();) {
        auto const last = std::find_if(first, edges.end(), [&](Edge const& edge) { return edge != *first; });
        open += last - first == 2 ? 0 : 1;
        first = last;
    }
    return open;
}

} // namespace

VolumeFindings findingsOf(VolumeFile const& file)
{
    VolumeFindings findings;
    MTModelVMesh const& mesh = file.mesh;
    ReferenceCheck references(mesh, findings);
    references.check({QT_TRANSLATE_NOOP("Text", "a face row refers to tetrahedron %1, of %2"),
                      QT_TRANSLATE_NOOP("Text", "a face row refers to point %1, of %2"), mesh.faces.data(),
                      mesh.numFaces, file.lineOfFace(0)});
    references.check({QT_TRANSLATE_NOOP("Text", "a bound-face row refers to tetrahedron %1, of %2"),
                      QT_TRANSLATE_NOOP("Text", "a bound-face row refers to point %1, of %2"),
                      mesh.boundFaces.data(), mesh.numBoundFaces, file.lineOfBoundFace(0)});
    for (qint64 t = 0; t < mesh.numTetrahedra; ++t)
        judge(mesh, t, findings);
    for (qint64 k = 0; k < mesh.numFaces; ++k)
        judgeFace(file, k, findings);
    findings.nonFinitePoints = countOfNonFinite(mesh);
    return findings;
}

BoundaryFindings boundaryFindingsOf(MTModelVMesh const& mesh)
{
    std::vector<qint32> points;
    std::vector<Edge> edges;
    for (qint64 k = 0; k < mesh.numBoundFaces; ++k) {
        qint32 const* const corners = mesh.boundFaces.data() + rowWidth * k + tetrahedraInRow;
        for (int i = 0; i < 3; ++i) {
            points.push_back(corners[i]);
            edges.emplace_back(std::minmax(corners[i], corners[(i + 1) % 3]));
        }
    }
    BoundaryFindings findings;
    findings.faces = mesh.numBoundFaces;
    findings.points = countOfDifferent(points);
    std::sort(edges.begin(), edges.end());
    findings.openEdges = countOfOpen(edges);
    findings.edges = countOfDifferent(edges);
    return findings;
}

} // namespace tool
