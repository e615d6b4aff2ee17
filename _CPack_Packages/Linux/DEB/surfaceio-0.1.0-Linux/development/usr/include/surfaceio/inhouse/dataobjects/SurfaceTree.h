#pragma once

#include "inhouse/Export.h"
#include "inhouse/data/ShapeNode.h"
#include "inhouse/dataobjects/DataObject.h"

#include <QMatrix4x4>

#include <memory>

/// A tree of shapes that is placed as one.
class SURFACEIO_INHOUSE_EXPORT SurfaceTree : public DataObject
{
public:
    /// No tree, at the origin.
    SurfaceTree() = default;
    ~SurfaceTree() override;

    /// Takes the tree over; the one held before is destroyed.
    void setRoot(std::unique_ptr<geometry::ShapeNode> newRoot);
    /// Null until a root was set. The tree keeps it.
    geometry::ShapeNode* getRoot() { return root.get(); }
    /// The same, of a tree that does not change.
    geometry::ShapeNode const* getRoot() const { return root.get(); }

    /// From object space to the space of the plan. Nothing moves before `applyTransform`.
    void setObjectTransform(QMatrix4x4 const& transform) { objectTransform = transform; }
    /// The transform set last; the identity until then.
    QMatrix4x4 const& getObjectTransform() const { return objectTransform; }
    /// Moves the tree to its object transform. The meshes stay as they are, in object space.
    virtual void applyTransform();
    /// Where the tree stands now: the object transform at the last `applyTransform`.
    QMatrix4x4 const& getAppliedTransform() const { return appliedTransform; }

private:
    std::unique_ptr<geometry::ShapeNode> root;
    QMatrix4x4 objectTransform;
    QMatrix4x4 appliedTransform;
};
