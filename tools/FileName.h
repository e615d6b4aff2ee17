#pragma once

#include <QString>

namespace tool {

/// Why nothing can be opened or made at `path`: bytes of its name are no UTF-8, and so were lost when it was
/// decoded. Empty otherwise.
QString whyNoFileName(QString const& path);

} // namespace tool
