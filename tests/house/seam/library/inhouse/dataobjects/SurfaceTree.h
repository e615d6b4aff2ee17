#pragma once

#include "inhouse/data/ShapeNode.h"
#include "inhouse/dataobjects/DataObject.h"

#include <QMatrix4x4>

#include <memory>
#include <utility>

class OTHER_INHOUSE_EXPORT SurfaceTree : public DataObject
{
public:
    ~SurfaceTree() override;

    void setRoot(std::unique_ptr<geometry::ShapeNode> root_) { root = std::move(root_); }
    geometry::ShapeNode* getRoot() const { return root.get(); }
    void setObjectTransform(QMatrix4x4 const& transform_) { transform = transform_; }
    QMatrix4x4 const& getObjectTransform() const { return transform; }
    void applyTransform() {}

private:
    std::unique_ptr<geometry::ShapeNode> root;
    QMatrix4x4 transform;
};
