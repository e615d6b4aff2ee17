#pragma once

#include <QSharedPointer>
#include <QtGlobal>

/// A tetrahedral volume mesh: counts, and arrays that copies share.
///
/// Copies are shallow: both records see the same five arrays. A moved-from record keeps its counts and has
/// null arrays. Coordinates are in millimetres, all indices count from 0. The arrays are made with `new[]`
/// and must be replaced, not written to, where a copy may still look at them.
struct MTModelVMesh
{
    /// Number of tetrahedra.
    qint32 numTetrahedra = 0;
    /// Number of triangles, inner and outer.
    qint32 numFaces = 0;
    /// Number of triangles of the outer surface.
    qint32 numBoundFaces = 0;
    /// Number of points.
    qint32 numPoints = 0;
    /// 3 * numPoints: x, y, z of each point.
    QSharedPointer<float> points;
    /// 5 * numFaces: the tetrahedra on both sides (-1 for none), then the three points.
    QSharedPointer<qint32> faces;
    /// 4 * numTetrahedra: the four points, -1 where one is not known.
    QSharedPointer<qint32> tetrahedra;
    /// 4 * numFaces: the three points of each face, then -1.
    QSharedPointer<qint32> triangles;
    /// 5 * numBoundFaces: as `faces`, for the faces of the outer surface: the owner, -1, the three points.
    QSharedPointer<qint32> boundFaces;
};
