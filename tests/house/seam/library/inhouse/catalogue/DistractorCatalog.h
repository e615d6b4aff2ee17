#pragma once

#include "inhouse/Export.h"

#include <QMatrix4x4>
#include <QString>
#include <QVector3D>

/// Every product is the same one, of three parts.
class OTHER_INHOUSE_EXPORT DistractorCatalog
{
public:
    static QString getProductName(QString const&) { return QStringLiteral("other product"); }
    static int getNumParts(QString const&) { return 3; }
    static QVector3D getDefaultAlignmentDirection(QString const&) { return {}; }
    static QMatrix4x4 getObjectSpaceTransform(QString const&) { return {}; }
};
