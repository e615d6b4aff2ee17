#pragma once

#include "framework/Export.h"
#include "inhouse/data/Material.h"

#include <QByteArray>
#include <QList>
#include <QString>

/// Builds an associated-shapes document in memory: which mesh files belong together, and how each looks.
/// A value type; one thread at a time.
class SURFACEIO_EXPORT AssociatedShapesXMLWriter
{
public:
    AssociatedShapesXMLWriter() = default;
    AssociatedShapesXMLWriter(AssociatedShapesXMLWriter const&) = default;
    AssociatedShapesXMLWriter& operator=(AssociatedShapesXMLWriter const&) = default;
    virtual ~AssociatedShapesXMLWriter();

    /// Adds a shape. `fileName` is the key of its mesh in a bundle in memory, or its path, absolute or
    /// relative to the document's directory. Nothing is opened or checked, and nothing added can be taken
    /// back.
    void add(QString const& fileName, QString const& materialId, geometry::Material const& material);

    /// The document of all shapes added so far, as UTF-8. Each shape brings a material element of its own,
    /// ids used twice included. Colours lose their alpha, numbers what is beyond six digits; characters that
    /// XML cannot hold (most control characters) do not survive.
    QByteArray createXMLContent() const;

private:
    QList<QString> fileNames;
    QList<QString> materialIds;
    QList<geometry::Material> materials;
};
