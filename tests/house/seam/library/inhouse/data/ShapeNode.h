#pragma once

#include "inhouse/data/Shape.h"

#include <QString>

#include <memory>
#include <vector>

namespace geometry {

class OTHER_INHOUSE_EXPORT ShapeNode
{
public:
    explicit ShapeNode(QString const& name_, Shape* shape_ = nullptr)
        : name(name_)
        , shape(shape_)
    {}
    ShapeNode(ShapeNode const&) = delete;
    ShapeNode& operator=(ShapeNode const&) = delete;

    QString const& getName() const { return name; }
    Shape* getShape() const { return shape.get(); }
    std::vector<std::unique_ptr<ShapeNode>> const& getChildren() const { return children; }

    void addChild(ShapeNode* child) { children.emplace_back(child); }
    /// Leaves everything as it is.
    void setMaterialRecursive(Material const&) {}

private:
    QString name;
    std::unique_ptr<Shape> shape;
    std::vector<std::unique_ptr<ShapeNode>> children;
};

} // namespace geometry
