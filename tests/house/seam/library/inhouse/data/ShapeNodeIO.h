#pragma once

#include "inhouse/data/ShapeNode.h"

#include <QVersionNumber>

#include <memory>
#include <utility>

class QDataStream;

/// Trees have no bytes.
class OTHER_INHOUSE_EXPORT ShapeNodeIO
{
public:
    static constexpr std::pair<unsigned, unsigned> LATEST_BINARY_VERSION{7, 3};

    /// A node that has the version as its name.
    static std::unique_ptr<geometry::ShapeNode> loadRecursive(QDataStream*, QVersionNumber const& version,
                                                              bool)
    {
        return std::make_unique<geometry::ShapeNode>(version.toString());
    }
    static void saveRecursive(geometry::ShapeNode const*, QDataStream*) {}
};
