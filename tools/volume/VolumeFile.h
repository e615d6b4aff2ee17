#pragma once

#include "Problem.h"
#include "vmesh/MTModelBoundaryConditions.h"
#include "vmesh/MTModelVMesh.h"

#include <QString>

namespace tool {

/// A volume-mesh file as the library reads it.
struct VolumeFile
{
    MTModelVMesh mesh;
    /// Why it cannot be read, with the line: what was expected there and what was found. Empty when it can.
    QString problem;

    /// The lines of the file that hold a face row and a bound-face row, counted from 1.
    qint64 lineOfFace(qint64 row) const { return 3 + qint64(mesh.numPoints) + row; }
    qint64 lineOfBoundFace(qint64 row) const { return lineOfFace(mesh.numFaces) + row; }
};

VolumeFile readVolumeFile(QString const& path);

/// A boundary-conditions file as the library reads it.
struct ConditionsFile
{
    MTModelBoundaryConditions conditions;
    /// As for a volume mesh.
    QString problem;

    static qint64 lineOfCondition(qint64 number) { return 5 + number; }
};

ConditionsFile readConditionsFile(QString const& path);

/// Read a file that has to be sound. `file` is to be used only without a problem.
Problem readSound(QString const& path, VolumeFile& file);
Problem readSound(QString const& path, ConditionsFile& file);

} // namespace tool
