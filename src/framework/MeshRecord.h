#pragma once

#include <type_traits>

/// What the reader and the writer of the mesh array record share. All of it is big-endian.
namespace meshrecord {

/// How a value is stored: floats as doubles.
template <typename Value>
using Stored = std::conditional_t<std::is_same_v<Value, float>, double, Value>;

} // namespace meshrecord
