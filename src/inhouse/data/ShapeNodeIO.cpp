#include "inhouse/data/ShapeNodeIO.h"

#include "inhouse/data/ShapeRecord_p.h"
#include "inhouse/data/ShapeStream_p.h"

#include <QDataStream>
#include <QVersionNumber>

#include <new>
#include <vector>

namespace {

using geometry::Shape;
using geometry::ShapeNode;

// A node whose children are still being read.
struct OpenNode
{
    ShapeNode* node;
    quint32 missingChildren;
};

struct TreeLoader
{
    QDataStream* stream;
    QVersionNumber const& version;
    bool ignoreMaterials;

    std::unique_ptr<ShapeNode> readNode(quint32& childCount) const
    {
        QString name;
        bool hasShape = false;
        if (!shapestream::readItems<quint16>(*stream, name) || !shapestream::readFlag(*stream, hasShape))
            return nullptr;
        std::unique_ptr<Shape> shape;
        if (hasShape) {
            shape = std::make_unique<Shape>();
            if (!shape->loadBinary(stream, version, ignoreMaterials))
                return nullptr;
        }
        if (!shapestream::readWord(*stream, childCount))
            return nullptr;
        auto node = std::make_unique<ShapeNode>(name, shape.get());
        static_cast<void>(shape.release()); // the node has it
        return node;
    }

    std::unique_ptr<ShapeNode> readTree() const
    {
        std::unique_ptr<ShapeNode> root;
        std::vector<OpenNode> open;
        do {
            quint32 childCount = 0;
            std::unique_ptr<ShapeNode> node = readNode(childCount);
            if (!node)
                return nullptr;
            ShapeNode* const added = node.get();
            if (open.empty()) {
                root = std::move(node);
            } else {
                open.back().node->addChild(node.release());
                --open.back().missingChildren;
            }
            open.push_back({added, childCount});
            while (!open.empty() && open.back().missingChildren == 0)
                open.pop_back();
        } while (!open.empty());
        return root;
    }
};

bool writeShape(Shape const& shape, QDataStream& stream)
{
    return shaperecord::writeMesh(stream, shape.getMesh()) &&
           shaperecord::writeMaterial(stream, shape.getMaterial());
}

bool writeNode(ShapeNode const& node, QDataStream& stream)
{
    Shape const* const shape = node.getShape();
    return shapestream::writeItems<quint16>(stream, node.getName()) &&
           shapestream::writeWord<quint8>(stream, shape ? 1 : 0) && (!shape || writeShape(*shape, stream)) &&
           shapestream::writeWord(stream, static_cast<quint32>(node.getChildren().size()));
}

} // namespace

std::unique_ptr<geometry::ShapeNode>
ShapeNodeIO::loadRecursive(QDataStream* stream, QVersionNumber const& version, bool ignoreMaterials)
{
    if (!shaperecord::isKnown(version))
        return nullptr;
    try {
        return TreeLoader{stream, version, ignoreMaterials}.readTree();
    } catch (std::bad_alloc const&) {
        return nullptr;
    }
}

void ShapeNodeIO::saveRecursive(geometry::ShapeNode const* root, QDataStream* stream)
{
    std::vector<ShapeNode const*> open;
    if (root)
        open.push_back(root);
    while (!open.empty()) {
        ShapeNode const& node = *open.back();
        open.pop_back();
        if (!writeNode(node, *stream))
            return;
        auto const& children = node.getChildren();
        for (auto child = children.rbegin(); child != children.rend(); ++child)
            open.push_back(child->get());
    }
}
