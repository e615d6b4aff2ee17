#include "vmesh/FaceRows.h"

#include "framework/MemoryGuard.h"
#include "vmesh/FaceIndex.h"
#include "vmesh/SharedArray.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace {

using vmesh::Face;
using vmesh::FaceIndex;

constexpr std::size_t corners = 4;
constexpr std::size_t facesEach = 4;
constexpr int rowWidth = 5;
constexpr int triangleWidth = 4;
constexpr qint32 none = -1;
constexpr qint32 alreadyListed = -2;

using Tetrahedron = std::array<qint32, corners>;

Face ascending(qint32 a, qint32 b, qint32 c)
{
    Face face = {a, b, c};
    std::sort(face.begin(), face.end());
    return face;
}

std::array<Face, facesEach> facesOf(Tetrahedron const& p)
{
    return {ascending(p[0], p[1], p[2]), ascending(p[1], p[2], p[3]), ascending(p[2], p[3], p[0]),
            ascending(p[3], p[0], p[1])};
}

bool isDegenerate(Face const& face)
{
    return face[0] == face[1] || face[1] == face[2];
}

// The neighbour of a face is the next tetrahedron that has all its points, wherever it has them. With three
// different points that is one that has the face. With fewer it is one that has the edge, or the point; such
// sets are kept among the faces, with their greatest point repeated.
Face pointSetOf(Face const& face)
{
    return face[0] == face[1] ? Face{face[0], face[2], face[2]} : face;
}

/// What the writer would find out about each face of each tetrahedron.
class Neighbours
{
public:
    explicit Neighbours(MTModelVMesh const& mesh);

    /// For four faces of each tetrahedron: the later one on the other side, `none`, or `alreadyListed` with
    /// an earlier one.
    std::vector<qint32> const& values() const { return neighbours; }
    qint64 rowCount() const;
    qint64 boundRowCount() const;

private:
    void numberFaces(MTModelVMesh const& mesh);
    void findNext(MTModelVMesh const& mesh);
    void rememberSmallSets(Tetrahedron const& tetrahedron, std::vector<qint32>& next, qint32 number) const;
    void claim();

    FaceIndex index;
    std::vector<FaceIndex::Number> numbers;
    std::vector<qint32> neighbours;
    bool hasDegenerate = false;
};

std::size_t countOf(MTModelVMesh const& mesh)
{
    return static_cast<std::size_t>(std::max(0, mesh.numTetrahedra));
}

Tetrahedron tetrahedronOf(MTModelVMesh const& mesh, std::size_t number)
{
    qint32 const* const p = mesh.tetrahedra.data() + corners * number;
    return {p[0], p[1], p[2], p[3]};
}

Neighbours::Neighbours(MTModelVMesh const& mesh)
    : index(2 * countOf(mesh)) // as two tetrahedra share most faces
    , neighbours(facesEach * countOf(mesh), none)
{
    numberFaces(mesh);
    findNext(mesh);
    claim();
}

void Neighbours::numberFaces(MTModelVMesh const& mesh)
{
    numbers.reserve(neighbours.size());
    for (std::size_t t = 0; t < countOf(mesh); ++t) {
        for (Face const& face : facesOf(tetrahedronOf(mesh, t))) {
            numbers.push_back(index.add(face));
            if (isDegenerate(face)) {
                index.add(pointSetOf(face));
                hasDegenerate = true;
            }
        }
    }
}

// From the last tetrahedron to the first, so that for each set of points `next` is the following one that has
// them.
void Neighbours::findNext(MTModelVMesh const& mesh)
{
    std::vector<qint32> next(index.size(), none);
    for (std::size_t t = countOf(mesh); t-- > 0;) {
        Tetrahedron const tetrahedron = tetrahedronOf(mesh, t);
        std::array<Face, facesEach> const faces = facesOf(tetrahedron);
        FaceIndex::Number const* const number = numbers.data() + facesEach * t;
        for (std::size_t f = 0; f < facesEach; ++f)
            neighbours[facesEach * t + f] =
                next[isDegenerate(faces[f]) ? index.find(pointSetOf(faces[f])) : number[f]];
        for (std::size_t f = 0; f < facesEach; ++f) {
            if (!isDegenerate(faces[f]))
                next[number[f]] = static_cast<qint32>(t);
        }
        if (hasDegenerate)
            rememberSmallSets(tetrahedron, next, static_cast<qint32>(t));
    }
}

void Neighbours::rememberSmallSets(Tetrahedron const& tetrahedron, std::vector<qint32>& next,
                                   qint32 number) const
{
    for (qint32 const a : tetrahedron) {
        for (qint32 const b : tetrahedron) {
            FaceIndex::Number const set = index.find({std::min(a, b), std::max(a, b), std::max(a, b)});
            if (set != FaceIndex::none)
                next[set] = number;
        }
    }
}

// A face that an earlier tetrahedron has listed as shared with this one is not listed again. Nobody comes
// between the two, so that of each face only the latest claim matters.
void Neighbours::claim()
{
    std::vector<qint32> claimed(index.size(), none);
    for (std::size_t i = 0; i < neighbours.size(); ++i) {
        auto const tetrahedron = static_cast<qint32>(i / facesEach);
        if (claimed[numbers[i]] == tetrahedron)
            neighbours[i] = alreadyListed;
        else if (neighbours[i] != none)
            claimed[numbers[i]] = neighbours[i];
    }
}

qint64 Neighbours::rowCount() const
{
    return static_cast<qint64>(neighbours.size()) -
           std::count(neighbours.begin(), neighbours.end(), alreadyListed);
}

qint64 Neighbours::boundRowCount() const
{
    return std::count(neighbours.begin(), neighbours.end(), none);
}

struct Rows
{
    QSharedPointer<qint32> faces;
    QSharedPointer<qint32> triangles;
    QSharedPointer<qint32> boundFaces;

    Rows(qint64 count, qint64 boundCount)
        : faces(vmesh::makeSharedArray(rowWidth * count, 0))
        , triangles(vmesh::makeSharedArray(triangleWidth * count, none))
        , boundFaces(vmesh::makeSharedArray(rowWidth * boundCount, 0))
    {}
    bool hasMemory() const { return !faces.isNull() && !triangles.isNull() && !boundFaces.isNull(); }
    void fill(MTModelVMesh const& mesh, std::vector<qint32> const& neighbours);
};

void Rows::fill(MTModelVMesh const& mesh, std::vector<qint32> const& neighbours)
{
    qint32* row = faces.data();
    qint32* triangle = triangles.data();
    qint32* boundRow = boundFaces.data();
    for (std::size_t t = 0; t < countOf(mesh); ++t) {
        qint32 const* neighbour = neighbours.data() + facesEach * t;
        for (Face const& face : facesOf(tetrahedronOf(mesh, t))) {
            std::array const values = {static_cast<qint32>(t), *neighbour++, face[0], face[1], face[2]};
            if (values[1] == alreadyListed)
                continue;
            row = std::copy(values.begin(), values.end(), row);
            std::copy(face.begin(), face.end(), triangle);
            triangle += triangleWidth;
            if (values[1] == none)
                boundRow = std::copy(values.begin(), values.end(), boundRow);
        }
    }
}

bool derive(MTModelVMesh& mesh)
{
    Neighbours const neighbours(mesh);
    Rows rows(neighbours.rowCount(), neighbours.boundRowCount());
    if (!rows.hasMemory())
        return false;
    rows.fill(mesh, neighbours.values());
    mesh.numFaces = static_cast<qint32>(neighbours.rowCount());
    mesh.numBoundFaces = static_cast<qint32>(neighbours.boundRowCount());
    mesh.faces = rows.faces;
    mesh.triangles = rows.triangles;
    mesh.boundFaces = rows.boundFaces;
    return true;
}

} // namespace

bool deriveFaceRows(MTModelVMesh& mesh)
{
    // Every tetrahedron brings up to four rows, and in the index as many sets of points again.
    constexpr qint32 mostTetrahedra = std::numeric_limits<qint32>::max() / 8;
    if (mesh.numTetrahedra > mostTetrahedra || (mesh.numTetrahedra > 0 && mesh.tetrahedra.isNull()))
        return false;
    return memory::succeeds([&mesh] { return derive(mesh); });
}
