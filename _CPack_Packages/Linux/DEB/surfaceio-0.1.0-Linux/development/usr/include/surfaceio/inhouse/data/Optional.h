#pragma once

#include <optional>

namespace utility {

/// Zero or one value of T, held inline. What a read that can fail gives back.
template <typename T>
using Optional = std::optional<T>;

} // namespace utility
