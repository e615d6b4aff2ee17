#pragma once

#include "inhouse/Export.h"
#include "inhouse/data/Shape.h"

#include <QString>

#include <memory>
#include <vector>

namespace geometry {

/// A named node of a shape tree: perhaps a shape, and children in order.
///
/// A node owns its shape and its children. Trees of any depth may be built, walked and destroyed: nothing
/// here recurses on the stack. One thread uses a tree at a time.
class SURFACEIO_INHOUSE_EXPORT ShapeNode
{
public:
    /// A node without a shape.
    explicit ShapeNode(QString const& name);
    /// Takes ownership of `shape`, which may be null.
    ShapeNode(QString const& name, Shape* shape);
    ShapeNode(ShapeNode const&) = delete;
    ShapeNode& operator=(ShapeNode const&) = delete;
    ~ShapeNode();

    /// The name given; need not be unique.
    QString const& getName() const { return name; }
    /// Null when the node has none.
    Shape* getShape() { return shape.get(); }
    /// The same, of a node that does not change.
    Shape const* getShape() const { return shape.get(); }
    /// The children in the order of adding, which the node keeps.
    std::vector<std::unique_ptr<ShapeNode>> const& getChildren() const { return children; }

    /// Appends `child`, a tree of its own until now, and takes ownership of it. Null is ignored.
    void addChild(ShapeNode* child);
    /// Gives `material` to every shape of this node and of all below it.
    void setMaterialRecursive(Material const& material);

private:
    QString name;
    std::unique_ptr<Shape> shape;
    std::vector<std::unique_ptr<ShapeNode>> children;
    // Lets the destructor climb back up without memory of its own.
    ShapeNode* parent = nullptr;
};

} // namespace geometry
