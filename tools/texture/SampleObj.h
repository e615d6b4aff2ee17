#pragma once

#include "Console.h"
#include "sample/DentalArch.h"

namespace tool {

/// Writes a sample with its texture: the OBJ file `path`, and an MTL and a PNG file of the same name beside
/// it. Either all three appear or none.
ExitCode writeSampleObj(QString const& path, sample::DentalArch const& arch, quint64 seed, bool mayReplace,
                        Console& console);

} // namespace tool
