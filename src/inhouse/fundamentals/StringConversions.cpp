#include "inhouse/fundamentals/StringConversions.h"

using namespace Qt::StringLiterals;

int StringConversions::stringToInt(QString const& text, int fallback)
{
    bool ok = false;
    int const value = text.toInt(&ok, 10);
    return ok ? value : fallback;
}

QString StringConversions::boolToString(bool value)
{
    return value ? u"true"_s : u"false"_s;
}

bool StringConversions::stringToBool(QString const& text)
{
    return text.compare("true"_L1, Qt::CaseInsensitive) == 0 || text == "1"_L1;
}
