#pragma once

#include "inhouse/Export.h"

#include <QString>

class OTHER_INHOUSE_EXPORT StringConversions
{
public:
    static int stringToInt(QString const& text, int fallback);
    static QString boolToString(bool value);
    static bool stringToBool(QString const& text);
};
