#include "inhouse/dataobjects/SurfaceTree.h"

#include <utility>

SurfaceTree::~SurfaceTree() = default;

void SurfaceTree::setRoot(std::unique_ptr<geometry::ShapeNode> newRoot)
{
    root = std::move(newRoot);
}

void SurfaceTree::applyTransform()
{
    appliedTransform = objectTransform;
}
