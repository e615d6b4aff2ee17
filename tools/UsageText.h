#pragma once

#include <QString>

namespace tool {

/// What CLI11 says of a command line that makes no sense, in the language of the user. It comes back as it is
/// when it is not known here, as it may be translated already.
QString usageSentence(QString const& said);

} // namespace tool
