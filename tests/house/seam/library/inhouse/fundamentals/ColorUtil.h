#pragma once

#include "inhouse/Export.h"

#include <QColor>

class OTHER_INHOUSE_EXPORT ColorUtil
{
public:
    static unsigned int toAABBGGRR(QColor const& color, bool withAlpha);
};
