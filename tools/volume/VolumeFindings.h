#pragma once

#include "volume/VolumeFile.h"

#include <vector>

namespace tool {

/// A row that refers to something that is not there.
struct BadReference
{
    qint64 line = 0;
    /// "a face row refers to point 12, of 8"
    QString sentence;
};

/// What is strange about the rows and tetrahedra of a volume mesh.
struct VolumeFindings
{
    /// The first of them, in file order, `mostShown` at most.
    std::vector<BadReference> badReferences;
    qint64 badReferenceCount = 0;
    /// Tetrahedra whose four points the face rows do not tell.
    qint64 incomplete = 0;
    /// Of the others: those whose volume is 0, within rounding, for the length of their edges.
    qint64 flat = 0;
    /// Of the others: those whose points, in the order in which the face rows bring them, have a negative
    /// volume. The format keeps no orientation; rows with ascending points make about half of them so.
    qint64 inverted = 0;

    /// Face rows with a point that a complete tetrahedron beside them does not have, and the first of them.
    qint64 foreignFaces = 0;
    qint64 firstForeignLine = 0;
    /// Face rows with a tetrahedron on one side only.
    qint64 outerFaces = 0;
    /// Points with a NaN or an infinity.
    qint64 nonFinitePoints = 0;

    static constexpr std::size_t mostShown = 20;
};

VolumeFindings findingsOf(VolumeFile const& file);

/// The bound faces as a surface.
struct BoundaryFindings
{
    qint64 points = 0;
    qint64 edges = 0;
    qint64 faces = 0;
    /// Edges that belong to another number of faces than two.
    qint64 openEdges = 0;

    /// 2 for each closed surface without handles, that is for each simple body and each bubble in it.
    qint64 eulerCharacteristic() const { return points - edges + faces; }
};

BoundaryFindings boundaryFindingsOf(MTModelVMesh const& mesh);

} // namespace tool
