#pragma once

#include "inspect/Format.h"

namespace tool {

// One inspector for each format, in a file of its own.
extern Format const arrayFormat;
extern Format const conditionsFormat;
extern Format const objFormat;
extern Format const plyFormat;
extern Format const shapeTreeFormat;
extern Format const stlFormat;
extern Format const volumeFormat;

} // namespace tool
