#pragma once

#include <QSharedPointer>
#include <QtGlobal>

/// Boundary conditions of a finite-element model: points, each with three components.
///
/// Copies are shallow: both records see the same two arrays. A moved-from record has null arrays. What the
/// components mean, and their unit, is the solver's business.
struct MTModelBoundaryConditions
{
    /// -1 as long as nothing has been read.
    qint32 numBoundaryConditions = -1;
    /// The point of each condition, counted from 0 in the order of the volume mesh.
    QSharedPointer<qint32> pointIndices;
    /// 3 * numBoundaryConditions: x, y, z of each condition.
    QSharedPointer<float> values;
};
