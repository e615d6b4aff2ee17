#include "inhouse/data/ShapeNode.h"
#include "support/Meshes.h"

#include <QTest>

using geometry::Material;
using geometry::Shape;
using geometry::ShapeNode;

using namespace Qt::StringLiterals;

class tst_ShapeNode : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shapesStartEmpty();
    void shapesKeepWhatTheyAreGiven();
    void nodesHaveNameShapeAndChildren();
    void ignoresNullChildren();
    void materialReachesEveryShape();
    void destroysWideAndDeepTrees();
};

void tst_ShapeNode::shapesStartEmpty()
{
    Shape const shape;
    QVERIFY(shape.getMesh().isNull());
    QCOMPARE(shape.getMaterial(), Material());
}

void tst_ShapeNode::shapesKeepWhatTheyAreGiven()
{
    Shape shape;
    shape.setMesh(support::cube());
    shape.setMaterial(Material::metal());
    QVERIFY(support::sameBits(shape.getMesh(), support::cube()));
    QCOMPARE(shape.getMaterial(), Material::metal());
}

void tst_ShapeNode::nodesHaveNameShapeAndChildren()
{
    auto* const shape = new Shape;
    ShapeNode root(u"root"_s);
    auto* const first = new ShapeNode(u"first"_s, shape);
    auto* const second = new ShapeNode(u"second"_s, nullptr);
    root.addChild(first);
    root.addChild(second);
    QCOMPARE(root.getName(), u"root"_s);
    QVERIFY(!root.getShape());
    QCOMPARE(root.getChildren().size(), std::size_t(2));
    QCOMPARE(root.getChildren()[0].get(), first);
    QCOMPARE(root.getChildren()[1].get(), second);
    QCOMPARE(first->getShape(), shape);
    QVERIFY(!second->getShape());
    QVERIFY(first->getChildren().empty());
}

void tst_ShapeNode::ignoresNullChildren()
{
    ShapeNode root(u"root"_s);
    root.addChild(nullptr);
    QVERIFY(root.getChildren().empty());
}

void tst_ShapeNode::materialReachesEveryShape()
{
    ShapeNode root(u"root"_s, new Shape);
    auto* const middle = new ShapeNode(u"without"_s);
    auto* const leaf = new ShapeNode(u"leaf"_s, new Shape);
    auto* const sibling = new ShapeNode(u"sibling"_s, new Shape);
    middle->addChild(leaf);
    root.addChild(middle);
    root.addChild(sibling);
    middle->setMaterialRecursive(Material::distractor());
    QCOMPARE(leaf->getShape()->getMaterial(), Material::distractor());
    QCOMPARE(sibling->getShape()->getMaterial(), Material());
    root.setMaterialRecursive(Material::metal());
    QVERIFY(!middle->getShape());
    for (ShapeNode const* node : {static_cast<ShapeNode const*>(&root), static_cast<ShapeNode const*>(leaf),
                                  static_cast<ShapeNode const*>(sibling)})
        QCOMPARE(node->getShape()->getMaterial(), Material::metal());
}

void tst_ShapeNode::destroysWideAndDeepTrees()
{
    constexpr int levels = 300'000;
    auto root = std::make_unique<ShapeNode>(u"root"_s);
    ShapeNode* last = root.get();
    for (int i = 0; i < levels; ++i) {
        auto* const child = new ShapeNode(u"level"_s, i + 1 == levels ? new Shape : nullptr);
        last->addChild(new ShapeNode(u"before"_s));
        last->addChild(child);
        last->addChild(new ShapeNode(u"after"_s));
        last = child;
    }
    root->setMaterialRecursive(Material::metal());
    QCOMPARE(last->getShape()->getMaterial(), Material::metal());
    root.reset();
}

QTEST_APPLESS_MAIN(tst_ShapeNode)
#include "tst_ShapeNode.moc"
