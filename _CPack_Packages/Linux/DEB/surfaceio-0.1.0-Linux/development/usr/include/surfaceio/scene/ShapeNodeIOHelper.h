#pragma once

#include "framework/Export.h"
#include "inhouse/data/Shape.h"
#include "inhouse/data/ShapeNode.h"

#include <memory>

class QString;
class QVersionNumber;

/// Saves shapes and trees of shapes in binary files behind a version header (see `BinaryIOHelper`), and loads
/// them. What follows the header is the data library's, see `ShapeNodeIO`.
///
/// Every failure is a null pointer or false, with its reason in the log but for want of memory. Stateless:
/// any thread, any number at a time on different files.
class SURFACEIO_EXPORT ShapeNodeIOHelper
{
public:
    ShapeNodeIOHelper() = delete;

    /// Loads a tree. A file without a version header is taken as a tree of the version `versionIfMissing`
    /// from its first byte on. `flag` goes on to `ShapeNodeIO::loadRecursive` as it is.
    ///
    /// Null when the file cannot be opened (a warning) or the tree cannot be loaded. Bytes left over after
    /// the tree give a warning, and the tree.
    static std::unique_ptr<geometry::ShapeNode> read(QString const& fileName,
                                                     QVersionNumber const& versionIfMissing, bool flag);

    /// Loads a single shape. The file must have a version header; what follows the shape is not looked at.
    /// Null after a failure, which is logged as critical.
    static std::unique_ptr<geometry::Shape> readShape(QString const& fileName);

    /// Saves a single shape, in place of what the file held; missing directories are made. False after a
    /// failure, which is logged as critical; the file may then hold part of the shape.
    static bool write(QString const& fileName, geometry::Shape const& shape);

    /// Saves the tree under `node` likewise; a null `node` gives a file of the header alone. False when the
    /// file cannot be opened (a warning). Whether all of the tree was written is not looked at.
    static bool write(QString const& fileName, geometry::ShapeNode* node);
};
