#pragma once

#include "framework/Export.h"
#include "inhouse/data/Shape.h"
#include "inhouse/dataobjects/Distractor.h"

#include <QList>
#include <QString>

#include <memory>

/// Product ids of the maxilla telescoping distractors.
extern SURFACEIO_EXPORT QString const maxillaTelescopingDistractorLeftId;
extern SURFACEIO_EXPORT QString const maxillaTelescopingDistractorRightId;

/// Builds distractors that are ready to place. Stateless: any thread, any number at a time.
class SURFACEIO_EXPORT DistractorFactory
{
public:
    /// Builds the distractor of that id. Its parts come from the associated-shapes document
    /// INSTALLED/distractors/ID.xml (INSTALLED is the application parameter "installedResources"), their
    /// number, its name and its placement from `DistractorCatalog`.
    ///
    /// The root node "root" has a child ID_0, ID_1, … for each part, with the mesh of that number, its
    /// creases sharp beyond 0.5 radians, and `Material::metal()`. A part beyond the meshes of the document is
    /// a node without a shape; meshes beyond the parts are dropped. The distractor opens from 0 to 20 mm in
    /// steps of 0.1 mm: parts 0, 2, 8, 9, 10 and 12 all the way, parts 1, 4, 7, 11 and 13 from 9.25 mm on.
    /// Its z axis is turned onto the catalogue's direction.
    ///
    /// Null for want of memory only. A document that cannot be read gives a warning, and nodes without
    /// shapes. An unknown id is what the catalogue makes of it.
    static std::shared_ptr<Distractor> createDistractor(QString const& productId);

private:
    DistractorFactory() = default;

    static std::shared_ptr<Distractor> createMaxillaTelescopingDistractor(QString const& productId);
    static void setDefaultTransformation(Distractor* distractor);
    // The caller owns the shapes.
    static QList<geometry::Shape*> loadDistractorShapes(QString const& path);
    static QString partName(QString const& productId, int index);
};
