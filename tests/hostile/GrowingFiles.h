#pragma once

#include "hostile/Subjects.h"

#include <array>
#include <vector>

namespace hostile {

/// A file of the worst kind that can be made as large as one likes. What it takes to read it is to grow with
/// its bytes.
struct GrowingFile
{
    QByteArray name;
    Subject subject;
    /// Of a size that goes with the bytes.
    QByteArray (*make)(int size);
};

inline constexpr std::array growingSizes = {25'000, 50'000, 100'000};

std::vector<GrowingFile> const& growingFiles();

} // namespace hostile
