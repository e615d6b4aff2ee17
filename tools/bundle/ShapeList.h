#pragma once

#include "Problem.h"

#include <QByteArray>
#include <QList>
#include <QSet>
#include <QString>

namespace tool::bundle {

/// One shape element of an associated-shapes document.
struct ListedShape
{
    /// Its text: the mesh file.
    QString name;
    QString materialId;
    /// Whether it stands where a bundle in memory is looked through, under root/shapes. Elsewhere only a
    /// document on disk finds it.
    bool isInTable = false;
};

/// What an associated-shapes document lists, whether it can be read or not.
struct ShapeList
{
    QByteArray document;
    /// In document order.
    QList<ListedShape> shapes;
    /// The ids that root/materials defines.
    QSet<QString> materialIds;

    /// Why a bundle in memory would leave the shape out even with a sound mesh; empty when it would not.
    QString whyNotInBundle(ListedShape const& shape) const;
};

/// Reads the document at `path`; none of its meshes.
Problem readShapeList(QString const& path, ShapeList& list);

/// The file that a shape of the document at `documentPath` means.
QString pathOf(ListedShape const& shape, QString const& documentPath);

/// Why there is no reading the mesh at `path`, going by name and kind of file only; empty when there may be.
QString whyNoMesh(QString const& path);

} // namespace tool::bundle
