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
    /// How many parts, each with a mesh of its own.
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

    /// The name to show.
    static QString getProductName(QString const& productId);
    /// How many parts the device has.
    static int getNumParts(QString const& productId);
    /// Where the z axis of the device points by default, in the space of the plan. Need not be of length 1.
    static QVector3D getDefaultAlignmentDirection(QString const& productId);
    /// Places the parts, in millimetres, in the object space of the device.
    static QMatrix4x4 getObjectSpaceTransform(QString const& productId);

    /// Adds a product, in place of one that has the id already. For the life of the process.
    static void addProduct(QString const& productId, DistractorProduct const& product);
};
