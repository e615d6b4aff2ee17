#pragma once

#include <QVariant>

namespace ply {

/// `QVariant::toInt` for values of a body. A float that no int can hold, NaN included, fails as text would;
/// the variant would give any number, even one that passes for an index.
int toInt(QVariant const& value, bool* isNumber);

} // namespace ply
