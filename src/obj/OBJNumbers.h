#pragma once

#include "obj/OBJReader.h"

/// The number that `text` holds; 0, with a warning and `*hasWarned` set, where it holds none. 0 without a
/// look at `text` when `current` is an error.
float toFloatIfConditionValid(QAnyStringView text, OBJReader::Error current, bool* hasWarned = nullptr);
