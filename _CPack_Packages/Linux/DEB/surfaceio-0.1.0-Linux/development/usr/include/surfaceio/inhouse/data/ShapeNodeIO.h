#pragma once

#include "inhouse/Export.h"
#include "inhouse/data/ShapeNode.h"

#include <memory>
#include <utility>

class QDataStream;
class QVersionNumber;

/// Shape trees as bytes: nodes in depth-first order, each with its name, perhaps its shape, and the number
/// of its children. docs/formats/shapetree.md has the layout.
///
/// Version 2.0 is written; 2.0 and 1.0, which has no materials, are read. Streams are used at their position;
/// their byte order and float precision do not matter. Streams given must not be null. Stateless.
class SURFACEIO_INHOUSE_EXPORT ShapeNodeIO
{
public:
    ShapeNodeIO() = delete;

    /// The version that is written, as major and minor number.
    static constexpr std::pair<unsigned, unsigned> LATEST_BINARY_VERSION{2, 0};

    /// Reads one tree of the file version `version`. With `ignoreMaterials` every shape keeps the default
    /// material.
    ///
    /// Null when the version is unknown, or the tree is damaged or cut short: there are no half-built trees.
    /// Counts, lengths and depth are taken as claims: loading costs no more than a small multiple of the
    /// bytes that are there, and no stack.
    static std::unique_ptr<geometry::ShapeNode>
    loadRecursive(QDataStream* stream, QVersionNumber const& version, bool ignoreMaterials);

    /// Writes the tree under `root` in the latest version; nothing for a null `root`. The stream's status
    /// tells whether it took everything.
    static void saveRecursive(geometry::ShapeNode const* root, QDataStream* stream);
};
