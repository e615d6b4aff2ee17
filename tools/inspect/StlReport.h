#pragma once

#include "Report.h"
#include "inspect/StlBinary.h"

namespace tool::stl {

/// tag, subTag, facets and area, a row for each tag.
Table tagTable(Contents const& contents);

} // namespace tool::stl
