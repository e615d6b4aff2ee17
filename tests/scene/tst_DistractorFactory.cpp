#include "framework/MeshReader.h"
#include "inhouse/catalogue/DistractorCatalog.h"
#include "inhouse/core/ApplicationParametersManagerImpl.h"
#include "inhouse/math/Operations.h"
#include "inhouse/meshoperations/NormalsCalculator.h"
#include "scene/AssociatedShapesXMLWriter.h"
#include "scene/DistractorFactory.h"
#include "support/Meshes.h"
#include "support/ObjFiles.h"
#include "support/PrivateAccess.h"
#include "support/StlFiles.h"

#include <QTest>

#include <type_traits>

using geometry::Material;
using geometry::Shape;
using geometry::ShapeNode;
using support::ObjFolder;

using namespace Qt::StringLiterals;

static_assert(!std::is_default_constructible_v<DistractorFactory>);
static_assert(std::is_copy_assignable_v<DistractorFactory> && std::is_move_assignable_v<DistractorFactory>);
static_assert(std::is_empty_v<DistractorFactory>);

namespace support {

struct LoadShapes
{
    using Member = QList<Shape*> (*)(QString const&);
    friend Member privateMember(LoadShapes);
};
template struct PrivateMember<LoadShapes, &DistractorFactory::loadDistractorShapes>;

struct PartName
{
    using Member = QString (*)(QString const&, int);
    friend Member privateMember(PartName);
};
template struct PrivateMember<PartName, &DistractorFactory::partName>;

} // namespace support

namespace {

std::atomic<bool> const never = false;

QString const leftId = u"73-418-55-02"_s;
QString const rightId = u"73-419-55-02"_s;

// Two facets at an angle of 0.7 radians, a crease, or of 0.3 radians, none.
QList<support::StlFacet> roof(float angle)
{
    QVector3D const side(-std::cos(angle), 0, std::sin(angle));
    return {{{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {{0, 0, 0}, {0, 1, 0}, side}};
}

Material numbered(int number)
{
    Material material = Material::distractor();
    material.shininess = static_cast<float>(number);
    return material;
}

QStringList namesOf(QList<DistractorAdvancement::MovablePart> const& parts)
{
    QStringList names;
    for (auto const& part : parts)
        names << part.first;
    return names;
}

} // namespace

class tst_DistractorFactory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void definesTheProductIds();
    void buildsTheParts_data();
    void buildsTheParts();
    void buildsTheMovementModel_data();
    void buildsTheMovementModel();
    void placesByTheCatalogue_data();
    void placesByTheCatalogue();
    void everythingIsMetal();
    void tooFewMeshesLeaveNodesWithoutShapes();
    void spareMeshesAreDropped();
    void threePartsMoveElevenNames();
    void saysWhenTheDocumentCannotBeRead();
    void joinsThePathWithoutMore();
    void unknownIds();
    void loadsShapesWithSharpEdges();
    void pairsMaterialsWithMeshes();
    void namesParts_data();
    void namesParts();

private:
    // Describes a distractor: part i is the lone facet i, with a material of its own.
    void describe(QString const& id, int meshes) const;
    QString pathOf(QString const& id) const { return folder->path(u"distractors/"_s + id + u".xml"_s); }

    std::unique_ptr<ObjFolder> folder;
};

void tst_DistractorFactory::init()
{
    folder = std::make_unique<ObjFolder>();
    folder->makeFolder(u"distractors"_s);
    QString const root = folder->path(u"x"_s).chopped(2);
    ApplicationParametersManagerImpl::instance().setApplicationParameter(u"installedResources"_s, root);
}

void tst_DistractorFactory::describe(QString const& id, int meshes) const
{
    AssociatedShapesXMLWriter writer;
    for (int i = 0; i < meshes; ++i) {
        QString const name = u"part%1.stl"_s.arg(i);
        folder->write(u"distractors/"_s + name, support::binaryStl({support::loneFacet(i)}));
        writer.add(name, name, numbered(i));
    }
    folder->write(u"distractors/"_s + id + u".xml"_s, writer.createXMLContent());
}

void tst_DistractorFactory::definesTheProductIds()
{
    QCOMPARE(maxillaTelescopingDistractorLeftId, leftId);
    QCOMPARE(maxillaTelescopingDistractorRightId, rightId);
}

void tst_DistractorFactory::buildsTheParts_data()
{
    QTest::addColumn<QString>("id");
    QTest::newRow("left") << leftId;
    QTest::newRow("right") << rightId;
}

void tst_DistractorFactory::buildsTheParts()
{
    QFETCH(QString, id);
    describe(id, 14);
    auto const distractor = DistractorFactory::createDistractor(id);
    QVERIFY(distractor);
    QCOMPARE(distractor->getProductId(), id);
    QCOMPARE(distractor->getProductName(), DistractorCatalog::getProductName(id));
    QVERIFY(!distractor->getProductName().isEmpty());
    QCOMPARE(distractor->shared_from_this().get(), static_cast<DataObject*>(distractor.get()));
    ShapeNode const& root = *distractor->getRoot();
    QCOMPARE(root.getName(), u"root"_s);
    QVERIFY(!root.getShape());
    QCOMPARE(root.getChildren().size(), std::size_t(14));
    for (int i = 0; i < 14; ++i) {
        ShapeNode const& part = *root.getChildren()[static_cast<std::size_t>(i)];
        QCOMPARE(part.getName(), id + u'_' + QString::number(i));
        QVERIFY(part.getChildren().empty());
        QVERIFY(part.getShape());
        QCOMPARE(support::cornersOf(part.getShape()->getMesh()), support::cornersOf({support::loneFacet(i)}));
    }
}

void tst_DistractorFactory::buildsTheMovementModel_data()
{
    buildsTheParts_data();
}

void tst_DistractorFactory::buildsTheMovementModel()
{
    QFETCH(QString, id);
    describe(id, 14);
    auto const distractor = DistractorFactory::createDistractor(id);
    DistractorAdvancement const& advancement = *distractor->getAdvancement();
    QVERIFY(advancement.getCurrent() == 0.0f);
    QVERIFY(advancement.getMinimum() == 0.0f);
    QVERIFY(advancement.getMaximum() == 20.0f);
    QVERIFY(advancement.getStep() == 0.1f);
    auto const& parts = advancement.getMovableParts();
    QStringList expected;
    for (int const part : {0, 2, 8, 9, 10, 12, 1, 4, 7, 11, 13})
        expected << id + u'_' + QString::number(part);
    QCOMPARE(namesOf(parts), expected);
    for (qsizetype i = 0; i < parts.size(); ++i) {
        QVERIFY(parts[i].second.getStart() == (i < 6 ? 0.0f : 9.25f));
        QVERIFY(parts[i].second.getEnd() == 20.0f);
    }
}

void tst_DistractorFactory::placesByTheCatalogue_data()
{
    QTest::addColumn<QVector3D>("direction");
    QTest::newRow("along x") << QVector3D(1, 0, 0);
    QTest::newRow("along z") << QVector3D(0, 0, 3);
    QTest::newRow("opposite") << QVector3D(0, 0, -1);
    QTest::newRow("oblique") << QVector3D(1, -2, 0.5f);
    QTest::newRow("none") << QVector3D();
}

void tst_DistractorFactory::placesByTheCatalogue()
{
    QFETCH(QVector3D, direction);
    QMatrix4x4 objectSpace;
    objectSpace.translate(1, 2, 3);
    objectSpace.rotate(40, 3, 2, 1);
    DistractorCatalog::addProduct(u"placed"_s, {u"Placed"_s, 1, direction, objectSpace});
    describe(u"placed"_s, 1);
    auto const distractor = DistractorFactory::createDistractor(u"placed"_s);
    QMatrix4x4 rotation;
    rotation.rotate(math::Operations::getRotationTo({0, 0, 1}, direction, {1, 0, 0}));
    QCOMPARE(distractor->getObjectTransform(), rotation * objectSpace);
    QCOMPARE(distractor->getAppliedTransform(), rotation * objectSpace);
    // One edit, and it is over.
    QVERIFY(!distractor->isEditing());
    QCOMPARE(distractor->getRevision(), 1);
    // The rotation acts last: what the object-space transform makes of the z axis need not lie along z.
    if (!direction.isNull()) {
        QVector3D const z = rotation.map(QVector3D(0, 0, 1));
        QVERIFY((z - direction.normalized()).length() < 1e-5f);
    }
}

void tst_DistractorFactory::everythingIsMetal()
{
    describe(leftId, 14);
    auto const distractor = DistractorFactory::createDistractor(leftId);
    for (auto const& part : distractor->getRoot()->getChildren())
        QCOMPARE(part->getShape()->getMaterial(), Material::metal());
}

void tst_DistractorFactory::tooFewMeshesLeaveNodesWithoutShapes()
{
    describe(leftId, 5);
    auto const distractor = DistractorFactory::createDistractor(leftId);
    auto const& parts = distractor->getRoot()->getChildren();
    QCOMPARE(parts.size(), std::size_t(14));
    for (std::size_t i = 0; i < parts.size(); ++i)
        QCOMPARE(parts[i]->getShape() != nullptr, i < 5);
}

void tst_DistractorFactory::spareMeshesAreDropped()
{
    DistractorCatalog::addProduct(u"small"_s, {u"Small"_s, 2, {0, 0, 1}, {}});
    describe(u"small"_s, 6);
    auto const distractor = DistractorFactory::createDistractor(u"small"_s);
    auto const& parts = distractor->getRoot()->getChildren();
    QCOMPARE(parts.size(), std::size_t(2));
    QCOMPARE(support::cornersOf(parts[1]->getShape()->getMesh()),
             support::cornersOf({support::loneFacet(1)}));
}

void tst_DistractorFactory::threePartsMoveElevenNames()
{
    DistractorCatalog::addProduct(u"three"_s, {u"Three"_s, 3, {0, 0, 1}, {}});
    describe(u"three"_s, 3);
    auto const distractor = DistractorFactory::createDistractor(u"three"_s);
    QCOMPARE(distractor->getRoot()->getChildren().size(), std::size_t(3));
    QCOMPARE(distractor->getAdvancement()->getMovableParts().size(), 11);
    QCOMPARE(distractor->getAdvancement()->getMovableParts().last().first, u"three_13"_s);
}

void tst_DistractorFactory::saysWhenTheDocumentCannotBeRead()
{
    QByteArray const path = pathOf(leftId).toUtf8();
    QTest::ignoreMessage(QtWarningMsg, ("Could not open " + path).constData());
    QTest::ignoreMessage(
        QtWarningMsg,
        ("DistractorFactory : unable to read distractor file from disk ( \"" + path + "\" )").constData());
    auto const distractor = DistractorFactory::createDistractor(leftId);
    QVERIFY(distractor);
    QCOMPARE(distractor->getRoot()->getChildren().size(), std::size_t(14));
    for (auto const& part : distractor->getRoot()->getChildren())
        QVERIFY(!part->getShape());
    QCOMPARE(distractor->getAdvancement()->getMovableParts().size(), 11);
    QCOMPARE(distractor->getRevision(), 1);
}

void tst_DistractorFactory::joinsThePathWithoutMore()
{
    ApplicationParametersManagerImpl::instance().setApplicationParameter(u"installedResources"_s,
                                                                         u"/nowhere/"_s);
    QTest::ignoreMessage(QtWarningMsg, "Could not open /nowhere//distractors/../id.xml");
    QTest::ignoreMessage(QtWarningMsg, "DistractorFactory : unable to read distractor file from disk ( "
                                       "\"/nowhere//distractors/../id.xml\" )");
    QVERIFY(DistractorFactory::createDistractor(u"../id"_s));
    ApplicationParametersManagerImpl::instance().setApplicationParameter(u"installedResources"_s, QVariant());
    QTest::ignoreMessage(QtWarningMsg, "Could not open /distractors/id.xml");
    QTest::ignoreMessage(QtWarningMsg, "DistractorFactory : unable to read distractor file from disk ( "
                                       "\"/distractors/id.xml\" )");
    QVERIFY(DistractorFactory::createDistractor(u"id"_s));
}

void tst_DistractorFactory::unknownIds()
{
    describe(u"unknown"_s, 3);
    auto const distractor = DistractorFactory::createDistractor(u"unknown"_s);
    QVERIFY(distractor);
    QCOMPARE(distractor->getProductId(), u"unknown"_s);
    QVERIFY(distractor->getProductName().isEmpty());
    QVERIFY(distractor->getRoot()->getChildren().empty());
    QVERIFY(distractor->getObjectTransform().isIdentity());
    QCOMPARE(distractor->getAdvancement()->getMovableParts().first().first, u"unknown_0"_s);
}

void tst_DistractorFactory::loadsShapesWithSharpEdges()
{
    AssociatedShapesXMLWriter writer;
    for (float const angle : {0.3f, 0.7f}) {
        QString const name = u"%1.stl"_s.arg(double(angle));
        folder->write(name, support::binaryStl(roof(angle)));
        writer.add(name, u"m"_s, Material());
    }
    QList<Shape*> const shapes =
        privateMember(support::LoadShapes())(folder->write(u"roofs.xml"_s, writer.createXMLContent()));
    QCOMPARE(shapes.size(), 2);
    QCOMPARE(shapes[0]->getMesh().vertices.size(), 4);
    QCOMPARE(shapes[1]->getMesh().vertices.size(), 6);
    for (int i = 0; i < 2; ++i) {
        auto const mesh = MeshReader::read(folder->path(i == 0 ? u"0.3.stl"_s : u"0.7.stl"_s)).value();
        QVERIFY(support::sameBits(shapes[i]->getMesh(),
                                  NormalsCalculator::computeSharpEdgeNormals(mesh, 0.5f, never)));
    }
    qDeleteAll(shapes);
}

void tst_DistractorFactory::pairsMaterialsWithMeshes()
{
    describe(u"own"_s, 3);
    QList<Shape*> const shapes = privateMember(support::LoadShapes())(pathOf(u"own"_s));
    QCOMPARE(shapes.size(), 3);
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(support::cornersOf(shapes[i]->getMesh()), support::cornersOf({support::loneFacet(i)}));
        QCOMPARE(shapes[i]->getMaterial(), Material::distractor());
    }
    qDeleteAll(shapes);
}

void tst_DistractorFactory::namesParts_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("name");
    QTest::newRow("first") << leftId << 0 << leftId + u"_0"_s;
    QTest::newRow("two digits") << leftId << 13 << leftId + u"_13"_s;
    QTest::newRow("thousands are not grouped") << u"a"_s << 12345 << u"a_12345"_s;
    QTest::newRow("no id") << QString() << 7 << u"_7"_s;
}

void tst_DistractorFactory::namesParts()
{
    QFETCH(QString, id);
    QFETCH(int, index);
    QFETCH(QString, name);
    QCOMPARE(privateMember(support::PartName())(id, index), name);
}

QTEST_GUILESS_MAIN(tst_DistractorFactory)
#include "tst_DistractorFactory.moc"
