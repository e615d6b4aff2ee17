#include "inhouse/core/ApplicationParametersManagerImpl.h"
#include "inhouse/dataobjects/DentalScan.h"
#include "inhouse/dataobjects/Distractor.h"
#include "support/Meshes.h"

#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

QMatrix4x4 moved(float x)
{
    QMatrix4x4 matrix;
    matrix.translate(x, 0, 0);
    return matrix;
}

} // namespace

class tst_DataObjects : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void editsNest();
    void dentalScansAreModelsAndScans();
    void treesMoveWhenApplied();
    void distractorsHoldTheirParts();
    void constraintsGiveOffsets_data();
    void constraintsGiveOffsets();
    void advancementsKeepTheirNumbers();
    void advancementsMoveInSteps_data();
    void advancementsMoveInSteps();
    void advancementsWithoutStepsMoveFreely();
    void partsMoveUnderTheirFirstConstraint();
    void parametersAreKept();
};

void tst_DataObjects::editsNest()
{
    auto const object = std::make_shared<DentalScan>();
    QVERIFY(!object->isEditing());
    object->stopEditing();
    QCOMPARE(object->getRevision(), 0);
    object->startEditing();
    object->startEditing();
    object->stopEditing();
    QVERIFY(object->isEditing());
    QCOMPARE(object->getRevision(), 0);
    object->stopEditing();
    QVERIFY(!object->isEditing());
    QCOMPARE(object->getRevision(), 1);
}

void tst_DataObjects::dentalScansAreModelsAndScans()
{
    auto const scan = std::make_shared<DentalScan>();
    QVERIFY(scan->getMesh().isNull());
    QVERIFY(scan->getObjectTransform().isIdentity());
    scan->setMesh(support::cube());
    scan->setObjectTransform(moved(3));
    QCOMPARE(scan->shared_from_this().get(), static_cast<DataObject*>(scan.get()));
    Surface3DModel const& model = *scan;
    SurfaceScan const& surface = *scan;
    QVERIFY(support::sameBits(model.getMesh(), support::cube()));
    QVERIFY(support::sameBits(surface.getScannedSurface(), support::cube()));
    QCOMPARE(model.getObjectTransform(), moved(3));
    QCOMPARE(surface.getScanPlacement(), moved(3));
}

void tst_DataObjects::treesMoveWhenApplied()
{
    SurfaceTree tree;
    QVERIFY(!tree.getRoot());
    auto root = std::make_unique<geometry::ShapeNode>(u"r"_s);
    geometry::ShapeNode const* const held = root.get();
    tree.setRoot(std::move(root));
    QCOMPARE(tree.getRoot(), held);
    tree.setObjectTransform(moved(5));
    QCOMPARE(tree.getObjectTransform(), moved(5));
    QVERIFY(tree.getAppliedTransform().isIdentity());
    tree.applyTransform();
    QCOMPARE(tree.getAppliedTransform(), moved(5));
    QCOMPARE(tree.getObjectTransform(), moved(5));
}

void tst_DataObjects::distractorsHoldTheirParts()
{
    auto const distractor = std::make_shared<Distractor>(u"1-2"_s, u"Name"_s);
    QCOMPARE(distractor->getProductId(), u"1-2"_s);
    QCOMPARE(distractor->getProductName(), u"Name"_s);
    QVERIFY(!distractor->getAdvancement());
    auto advancement = std::make_unique<DistractorAdvancement>(1.0f, 2.0f, 3.0f, 4.0f);
    DistractorAdvancement const* const held = advancement.get();
    distractor->setAdvancement(std::move(advancement));
    QCOMPARE(distractor->getAdvancement(), held);
    QVERIFY(distractor->shared_from_this());
}

void tst_DataObjects::constraintsGiveOffsets_data()
{
    QTest::addColumn<float>("advancement");
    QTest::addColumn<float>("offset");
    QTest::newRow("before") << -1.0f << 0.0f;
    QTest::newRow("at the start") << 9.25f << 0.0f;
    QTest::newRow("on the way") << 10.0f << 0.75f;
    QTest::newRow("at the end") << 20.0f << 10.75f;
    QTest::newRow("beyond") << 25.0f << 10.75f;
}

void tst_DataObjects::constraintsGiveOffsets()
{
    QFETCH(float, advancement);
    QFETCH(float, offset);
    DistractorAdvancementConstraint const constraint(9.25f, 20.0f);
    QCOMPARE(constraint.getStart(), 9.25f);
    QCOMPARE(constraint.getEnd(), 20.0f);
    QCOMPARE(constraint.getOffset(advancement), offset);
}

void tst_DataObjects::advancementsKeepTheirNumbers()
{
    DistractorAdvancement const advancement(0.5f, 1.5f, -2.5f, 3.5f);
    QCOMPARE(advancement.getCurrent(), 0.5f);
    QCOMPARE(advancement.getMinimum(), 1.5f);
    QCOMPARE(advancement.getMaximum(), -2.5f);
    QCOMPARE(advancement.getStep(), 3.5f);
    QVERIFY(advancement.getMovableParts().isEmpty());
}

void tst_DataObjects::advancementsMoveInSteps_data()
{
    QTest::addColumn<float>("wanted");
    QTest::addColumn<float>("reached");
    float const infinity = std::numeric_limits<float>::infinity();
    QTest::newRow("a step") << 0.1f << 0.1f;
    QTest::newRow("rounds down") << 10.04f << 10.0f;
    QTest::newRow("rounds up") << 9.26f << 9.3f;
    QTest::newRow("many steps do not drift") << 19.9f << 19.9f;
    QTest::newRow("below the minimum") << -3.0f << 0.0f;
    QTest::newRow("beyond the maximum") << 20.1f << 20.0f;
    QTest::newRow("infinity") << infinity << 20.0f;
    QTest::newRow("-infinity") << -infinity << 0.0f;
    QTest::newRow("NaN") << std::numeric_limits<float>::quiet_NaN() << 7.0f;
}

void tst_DataObjects::advancementsMoveInSteps()
{
    QFETCH(float, wanted);
    QFETCH(float, reached);
    DistractorAdvancement advancement(7.0f, 0.0f, 20.0f, 0.1f);
    advancement.setCurrent(wanted);
    QCOMPARE(advancement.getCurrent(), reached);
}

void tst_DataObjects::advancementsWithoutStepsMoveFreely()
{
    DistractorAdvancement advancement(0.0f, 0.0f, 20.0f, 0.0f);
    advancement.setCurrent(1.2345f);
    QCOMPARE(advancement.getCurrent(), 1.2345f);
}

void tst_DataObjects::partsMoveUnderTheirFirstConstraint()
{
    DistractorAdvancement advancement(0.0f, 0.0f, 20.0f, 0.1f);
    advancement.addMovablePart(u"a"_s, {0.0f, 20.0f});
    advancement.addMovablePart(u"b"_s, {9.25f, 20.0f});
    advancement.addMovablePart(u"a"_s, {1.0f, 2.0f});
    QCOMPARE(advancement.getMovableParts().size(), 3);
    QCOMPARE(advancement.getMovableParts()[1].first, u"b"_s);
    QCOMPARE(advancement.getMovableParts()[1].second, DistractorAdvancementConstraint(9.25f, 20.0f));
    advancement.setCurrent(12.0f);
    QCOMPARE(advancement.getOffset(u"a"_s), 12.0f);
    QCOMPARE(advancement.getOffset(u"b"_s), 2.75f);
    QCOMPARE(advancement.getOffset(u"c"_s), 0.0f);
}

void tst_DataObjects::parametersAreKept()
{
    auto& store = ApplicationParametersManagerImpl::instance();
    QCOMPARE(&store, &ApplicationParametersManagerImpl::instance());
    QVERIFY(!store.getApplicationParameter(u"key"_s).isValid());
    store.setApplicationParameter(u"key"_s, 7);
    store.setApplicationParameter(u"other"_s, u"text"_s);
    QCOMPARE(store.getApplicationParameter(u"key"_s), QVariant(7));
    store.setApplicationParameter(u"key"_s, 8);
    QCOMPARE(store.getApplicationParameter(u"key"_s).toString(), u"8"_s);
    QCOMPARE(store.getApplicationParameter(u"other"_s).toString(), u"text"_s);
    QVERIFY(!store.getApplicationParameter(u"KEY"_s).isValid());
}

QTEST_APPLESS_MAIN(tst_DataObjects)
#include "tst_DataObjects.moc"
