#pragma once

#include "inhouse/Export.h"

#include <QString>

/// Text to values and back, independent of any locale.
class SURFACEIO_INHOUSE_EXPORT StringConversions
{
public:
    StringConversions() = delete;

    /// The decimal integer that `text` holds, as `QString::toInt` reads it; `fallback` where it holds none
    /// (empty, not a number, beyond 32 bits).
    static int stringToInt(QString const& text, int fallback);
    /// "true" or "false".
    static QString boolToString(bool value);
    /// True for "true" and "1" in any letter case, false for everything else.
    static bool stringToBool(QString const& text);
};
