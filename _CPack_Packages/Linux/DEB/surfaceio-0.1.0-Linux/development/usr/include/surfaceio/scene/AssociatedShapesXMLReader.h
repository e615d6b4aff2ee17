#pragma once

#include "framework/Export.h"
#include "inhouse/data/Material.h"
#include "inhouse/data/Mesh.h"

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>

class QDomElement;

/// Reads the shapes that an associated-shapes document lists: a mesh and a material for each.
///
/// The reader accumulates. `takeMeshes` fetches the meshes and empties that list; the list of materials only
/// grows, with one entry for each mesh ever kept. Who reads once per reader object gets lists that match.
///
/// Meshes are read with `MeshReader`, which chooses the format by suffix and logs its own reasons; shapes
/// that cannot be read are left out. Coordinates are taken as millimetres. A document beyond any size that is
/// written for use (64 MiB, nesting of 512 levels, entities that multiply, …) counts as one that cannot be
/// parsed.
///
/// Failures are a false result with a warning; want of memory is one without, and what was held stays as it
/// was. A value type; one thread at a time.
class SURFACEIO_EXPORT AssociatedShapesXMLReader
{
public:
    AssociatedShapesXMLReader() = default;
    AssociatedShapesXMLReader(AssociatedShapesXMLReader const&) = default;
    AssociatedShapesXMLReader& operator=(AssociatedShapesXMLReader const&) = default;
    virtual ~AssociatedShapesXMLReader();

    /// Reads the document `files[xmlFileName]` and the shapes that it lists under root/shapes, each from the
    /// bytes of that name in `files`, with the material of its id. Left out without a message: shapes that
    /// cannot be read, without an id, or with an id that root/materials does not define (the last definition
    /// of an id counts).
    ///
    /// Adds to the meshes held. True when any mesh is held in the end; false with a warning when the
    /// document cannot be parsed, and everything held stays.
    bool read(QMap<QString, QByteArray> const& files, QString const& xmlFileName);

    /// Reads the document at `xmlFilePath` and the shape elements that it holds at any depth, each from the
    /// file that it names, relative to the document's directory. Materials of the document do not matter:
    /// every mesh gets `Material::distractor()`.
    ///
    /// Meshes still held are dropped first, with a warning. True when any mesh is held in the end; false
    /// with a warning when the document cannot be opened or parsed.
    bool read(QString const& xmlFilePath);

    /// The meshes read and not yet taken, in document order; the reader holds none afterwards.
    QList<geometry::Mesh> takeMeshes();
    /// The materials of all meshes ever kept, oldest first.
    QList<geometry::Material> getMaterials() const;

private:
    struct Shapes
    {
        QList<geometry::Mesh> meshes;
        QList<geometry::Material> materials;
    };

    bool readBundle(QMap<QString, QByteArray> const& files, QString const& xmlFileName);
    bool readDocument(QString const& xmlFilePath);
    void keep(Shapes const& shapes);
    QMap<QString, geometry::Material> readMaterialsFromXml(QDomElement const& root) const;
    geometry::Mesh readShape(QByteArray const& bytes, QString const& fileName) const;
    geometry::Mesh readShape(QString const& path) const;

    QList<geometry::Mesh> meshes;
    QList<geometry::Material> materials;
};
