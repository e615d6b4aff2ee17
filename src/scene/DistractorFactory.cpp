#include "scene/DistractorFactory.h"

#include "framework/MemoryGuard.h"
#include "inhouse/catalogue/DistractorCatalog.h"
#include "inhouse/core/ApplicationParametersManagerImpl.h"
#include "inhouse/math/Operations.h"
#include "inhouse/meshoperations/NormalsCalculator.h"
#include "scene/AssociatedShapesXMLReader.h"

#include <QDebug>

#include <array>
#include <span>
#include <utility>

using namespace Qt::StringLiterals;

QString const maxillaTelescopingDistractorLeftId = u"73-418-55-02"_s;
QString const maxillaTelescopingDistractorRightId = u"73-419-55-02"_s;

namespace {

constexpr float creaseThreshold = 0.5f;

// The inner carriage moves from the first turn of the screw on, the outer one once the inner has reached
// its stop.
constexpr std::array innerParts = {0, 2, 8, 9, 10, 12};
constexpr std::array outerParts = {1, 4, 7, 11, 13};

// Shapes that no part has taken yet.
struct OwnedShapes
{
    OwnedShapes() = default;
    explicit OwnedShapes(QList<geometry::Shape*> const& list_)
        : list(list_)
    {}
    Q_DISABLE_COPY_MOVE(OwnedShapes)
    ~OwnedShapes() { qDeleteAll(list); }

    QList<geometry::Shape*> list;
};

QString documentPath(QString const& productId)
{
    auto const& parameters = ApplicationParametersManagerImpl::instance();
    return parameters.getApplicationParameter(u"installedResources"_s).toString() + "/distractors/"_L1 +
           productId + ".xml"_L1;
}

} // namespace

std::shared_ptr<Distractor> DistractorFactory::createDistractor(QString const& productId)
{
    return memory::resultOr(std::shared_ptr<Distractor>(),
                            [&] { return createMaxillaTelescopingDistractor(productId); });
}

std::shared_ptr<Distractor> DistractorFactory::createMaxillaTelescopingDistractor(QString const& productId)
{
    OwnedShapes shapes(loadDistractorShapes(documentPath(productId)));
    auto distractor = std::make_shared<Distractor>(productId, DistractorCatalog::getProductName(productId));
    distractor->setRoot(std::make_unique<geometry::ShapeNode>(u"root"_s));
    geometry::ShapeNode& root = *distractor->getRoot();
    for (int i = 0; i < DistractorCatalog::getNumParts(productId); ++i) {
        bool const hasShape = i < shapes.list.size();
        auto part = std::make_unique<geometry::ShapeNode>(partName(productId, i),
                                                          hasShape ? shapes.list[i] : nullptr);
        if (hasShape)
            shapes.list[i] = nullptr;
        root.addChild(part.release());
    }

    auto advancement = std::make_unique<DistractorAdvancement>(0.0f, 0.0f, 20.0f, 0.1f);
    auto const addParts = [&](std::span<int const> parts, DistractorAdvancementConstraint const& constraint) {
        for (int const part : parts)
            advancement->addMovablePart(partName(productId, part), constraint);
    };
    addParts(innerParts, DistractorAdvancementConstraint(0.0f, 20.0f));
    addParts(outerParts, DistractorAdvancementConstraint(9.25f, 20.0f));

    setDefaultTransformation(distractor.get());
    distractor->setAdvancement(std::move(advancement));
    root.setMaterialRecursive(geometry::Material::metal());
    return distractor;
}

void DistractorFactory::setDefaultTransformation(Distractor* distractor)
{
    QString const productId = distractor->getProductId();
    QMatrix4x4 rotation;
    rotation.rotate(math::Operations::getRotationTo(
        QVector3D(0, 0, 1), DistractorCatalog::getDefaultAlignmentDirection(productId), QVector3D(1, 0, 0)));
    QMatrix4x4 const objectSpace = DistractorCatalog::getObjectSpaceTransform(productId);
    distractor->startEditing();
    distractor->setObjectTransform(rotation * objectSpace);
    distractor->applyTransform();
    distractor->stopEditing();
}

QList<geometry::Shape*> DistractorFactory::loadDistractorShapes(QString const& path)
{
    AssociatedShapesXMLReader reader;
    if (!reader.read(path)) {
        qWarning() << "DistractorFactory : unable to read distractor file from disk (" << path << ")";
        return {};
    }
    QList<geometry::Mesh> const meshes = reader.takeMeshes();
    QList<geometry::Material> const materials = reader.getMaterials();
    std::atomic<bool> const cancel = false;
    OwnedShapes shapes;
    for (qsizetype i = 0; i < meshes.size(); ++i) {
        shapes.list.append(nullptr);
        shapes.list[i] = new geometry::Shape;
        shapes.list[i]->setMesh(
            NormalsCalculator::computeSharpEdgeNormals(meshes[i], creaseThreshold, cancel));
        shapes.list[i]->setMaterial(materials[i]);
    }
    return std::exchange(shapes.list, {});
}

QString DistractorFactory::partName(QString const& productId, int index)
{
    return (productId + "_%1"_L1).arg(index);
}
