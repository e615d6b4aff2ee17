#pragma once

#include "convert/Conversion.h"

#include <vector>

namespace tool {

/// A file to be converted, and the folder below the target's that it goes to ("" for none).
struct PlannedInput
{
    QString path;
    QString subfolder;
};

/// Where converted files go.
struct PlannedTarget
{
    /// Suffix without a dot.
    QString suffix;
    /// Empty for beside each input.
    QString directory;
};

/// The path of what `input` becomes: its name with the other suffix.
QString targetPath(PlannedInput const& input, PlannedTarget const& target);

/// A sentence for each target that two inputs would become, and for each that is to be read itself.
QStringList collisionsOf(std::vector<Conversion> const& conversions);

} // namespace tool
