#pragma once

#include "obj/MaterialTree.h"

namespace tool {

class Console;

/// That a material library does not exist, and which one may be meant.
QString missingLibraryProblem(obj::MtlLibrary const& library, QString const& scanPath);

/// Warns of each material library that the scan names and that does not exist: the readers do without it.
/// Of scans other than OBJ there is nothing to say.
void warnOfMissingLibraries(QString const& scanPath, Console& console);

} // namespace tool
