#include "inhouse/fundamentals/ColorUtil.h"
#include "inhouse/fundamentals/StringConversions.h"

unsigned int ColorUtil::toAABBGGRR(QColor const&, bool)
{
    return 0;
}

int StringConversions::stringToInt(QString const&, int fallback)
{
    return fallback;
}

QString StringConversions::boolToString(bool)
{
    return {};
}

bool StringConversions::stringToBool(QString const&)
{
    return false;
}
