#include "inhouse/data/ShapeNode.h"

#include <utility>

namespace geometry {

ShapeNode::ShapeNode(QString const& name_)
    : ShapeNode(name_, nullptr)
{}

ShapeNode::ShapeNode(QString const& name_, Shape* shape_)
    : name(name_)
    , shape(shape_)
{}

// Leaves go first, so that no destructor ever finds a child to destroy.
ShapeNode::~ShapeNode()
{
    ShapeNode* node = this;
    while (node != this || !children.empty()) {
        if (!node->children.empty()) {
            node = node->children.back().get();
        } else {
            node = node->parent;
            node->children.pop_back();
        }
    }
}

void ShapeNode::addChild(ShapeNode* child)
{
    if (!child)
        return;
    std::unique_ptr<ShapeNode> owned(child);
    owned->parent = this;
    children.push_back(std::move(owned));
}

void ShapeNode::setMaterialRecursive(Material const& material)
{
    std::vector<ShapeNode*> open = {this};
    while (!open.empty()) {
        ShapeNode* const node = open.back();
        open.pop_back();
        if (node->shape)
            node->shape->setMaterial(material);
        for (auto const& child : node->children)
            open.push_back(child.get());
    }
}

} // namespace geometry
