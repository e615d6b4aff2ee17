#pragma once

#include "framework/Export.h"

#include <QList>
#include <QString>
#include <QVector3D>

/// Writes a list of points as XYZ text. Stateless: any thread, any number at a time on different files.
class SURFACEIO_EXPORT XYZWriter
{
public:
    /// One line for each point: x, y and z in fixed notation with six decimals, single spaces between them,
    /// a line feed at the end. No header. Millimetres in, the same numbers out.
    ///
    /// The file is created or truncated first. False when it cannot be opened, and for an empty list, which
    /// leaves an empty file behind. A full disk is not noticed.
    static bool write(QString const& path, QList<QVector3D> const& points);
};
