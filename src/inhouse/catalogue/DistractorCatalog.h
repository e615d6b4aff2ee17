#pragma once

#include "inhouse/Export.h"

#include <QMatrix4x4>
#include <QString>
#include <QVector3D>

/// What the catalogue knows of a distractor.
struct SURFACEIO_INHOUSE_EXPORT DistractorProduct
{
    /// The name to show.
    QString name;
    int numParts = 0;
    /// Where the device's z axis points by default, in the space of the plan.
    QVector3D defaultAlignmentDirection;
    /// Places the parts, in millimetres, in the object space of the device.
    QMatrix4x4 objectSpaceTransform;
};

/// The catalogue of distractors by product id: what is compiled into this library (distractors.json), and
/// what the application adds. Any thread, any time.
///
/// An unknown id has no name, no parts, no direction (a zero vector) and the identity as its transform.
class SURFACEIO_INHOUSE_EXPORT DistractorCatalog
{
public:
    DistractorCatalog() = delete;

    static QString getProductName(QString const& productId);
    static int getNumParts(QString const& productId);
    static QVector3D getDefaultAlignmentDirection(QString const& productId);
    static QMatrix4x4 getObjectSpaceTransform(QString const& productId);

    /// Adds a product, in place of one that has the id already. For the life of the process.
    static void addProduct(QString const& productId, DistractorProduct const& product);
};
