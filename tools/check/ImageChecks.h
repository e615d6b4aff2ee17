#pragma once

#include "check/Finding.h"
#include "check/NearestName.h"
#include "images/ImageFile.h"

namespace tool {

/// Adds a finding when a file that the scan at `scanPath` names is not there: what it is, how it is written,
/// and which one may be meant. `place` begins the sentence.
void checkMissing(NamedKind kind, QString const& scanPath, QString const& name, QString const& place,
                  Findings& findings);

/// Adds what is wrong with an image that the scan names: it is missing, no image, or too large.
void checkImage(QString const& scanPath, QString const& name, ImageFile const& image, QString const& place,
                Findings& findings);

} // namespace tool
