#pragma once

#include "inhouse/Export.h"

#include <QString>
#include <QVariant>

/// Has no parameters.
class OTHER_INHOUSE_EXPORT ApplicationParametersManagerImpl
{
public:
    static ApplicationParametersManagerImpl& instance();
    QVariant getApplicationParameter(QString const&) const { return {}; }
};
