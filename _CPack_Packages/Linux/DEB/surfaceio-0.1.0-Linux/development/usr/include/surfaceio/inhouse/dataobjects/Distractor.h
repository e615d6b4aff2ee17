#pragma once

#include "inhouse/Export.h"
#include "inhouse/dataobjects/DistractorAdvancement.h"
#include "inhouse/dataobjects/SurfaceTree.h"

#include <QString>

#include <memory>

/// A bone-distraction device: its parts as a tree of shapes, and how it opens.
class SURFACEIO_INHOUSE_EXPORT Distractor : public SurfaceTree
{
public:
    /// A device without parts, at the origin, whose opening is not known yet.
    Distractor(QString const& productId, QString const& productName);
    ~Distractor() override;

    /// The id that the catalogue knows the product by.
    QString const& getProductId() const { return productId; }
    /// The name to show.
    QString const& getProductName() const { return productName; }

    /// Takes the movement model over.
    void setAdvancement(std::unique_ptr<DistractorAdvancement> newAdvancement);
    /// Null until one was set. The distractor keeps it.
    DistractorAdvancement* getAdvancement() { return advancement.get(); }
    /// The same, of a distractor that does not change.
    DistractorAdvancement const* getAdvancement() const { return advancement.get(); }

private:
    QString productId;
    QString productName;
    std::unique_ptr<DistractorAdvancement> advancement;
};
