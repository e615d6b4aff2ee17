// Builds a distractor from a folder of installed resources, opens it step by step, and writes its parts where
// they then stand. The resources are made here first, as an installation of the application would bring them.
//
//     example_distractor FOLDER
#include "PartMeshes.h"
#include "framework/MeshWriter.h"
#include "inhouse/catalogue/DistractorCatalog.h"
#include "inhouse/core/ApplicationParametersManagerImpl.h"
#include "scene/AssociatedShapesXMLWriter.h"
#include "scene/DistractorFactory.h"

#include <QDir>
#include <QFile>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {

bool writeFile(QString const& path, QByteArray const& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.flush();
}

// INSTALLED/distractors/ID.xml and the part files beside it.
bool installResources(QString const& installed, QString const& productId)
{
    QDir folder(installed + u"/distractors"_s);
    if (!folder.mkpath(u"."_s))
        return false;
    AssociatedShapesXMLWriter document;
    QList<geometry::Mesh> const meshes = makePartMeshes();
    for (qsizetype i = 0; i < meshes.size(); ++i) {
        QString const name = u"%1_part%2.ply"_s.arg(productId).arg(i);
        if (!MeshWriter::write(folder.filePath(name), meshes[i]))
            return false;
        document.add(name, u"titanium"_s, geometry::Material::metal());
    }
    return writeFile(folder.filePath(productId + u".xml"_s), document.createXMLContent());
}

// A part under a constraint moves along the direction in which the device was aligned.
QMatrix4x4 placementOf(geometry::ShapeNode const& part, Distractor const& distractor)
{
    QVector3D const direction =
        DistractorCatalog::getDefaultAlignmentDirection(distractor.getProductId()).normalized();
    QMatrix4x4 placement;
    placement.translate(direction * distractor.getAdvancement()->getOffset(part.getName()));
    return placement * distractor.getAppliedTransform();
}

geometry::Mesh placed(geometry::Mesh mesh, QMatrix4x4 const& placement)
{
    for (QVector3D& vertex : mesh.vertices)
        vertex = placement.map(vertex);
    for (QVector3D& normal : mesh.normals)
        normal = placement.mapVector(normal).normalized();
    return mesh;
}

bool writeParts(Distractor const& distractor, QString const& path, QTextStream& log)
{
    if (!QDir().mkpath(path))
        return false;
    for (auto const& part : distractor.getRoot()->getChildren()) {
        geometry::Shape const* const shape = part->getShape();
        QString const file = path + u'/' + part->getName() + u".ply"_s;
        if (!shape || !MeshWriter::write(file, placed(shape->getMesh(), placementOf(*part, distractor))))
            return false;
        log << part->getName() << " +"
            << QString::number(distractor.getAdvancement()->getOffset(part->getName()), 'f', 2) << '\n';
    }
    return true;
}

bool run(QString const& folder, QTextStream& log)
{
    QString const productId = maxillaTelescopingDistractorLeftId;
    QString const installed = folder + u"/installed"_s;
    if (!installResources(installed, productId))
        return false;
    ApplicationParametersManagerImpl::instance().setApplicationParameter(u"installedResources"_s, installed);

    std::shared_ptr<Distractor> const distractor = DistractorFactory::createDistractor(productId);
    DistractorAdvancement& advancement = *distractor->getAdvancement();
    log << distractor->getProductName() << ", opens to " << advancement.getMaximum() << " mm\n";
    for (float const opening : {0.0f, 10.0f, 20.0f}) {
        advancement.setCurrent(opening);
        log << "\nopened by " << advancement.getCurrent() << " mm\n";
        if (!writeParts(*distractor, folder + u"/at-%1-mm"_s.arg(int(opening)), log))
            return false;
    }
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    QTextStream log(stdout);
    if (argc != 2) {
        log << "usage: example_distractor FOLDER\n";
        return 2;
    }
    return run(QFile::decodeName(argv[1]), log) ? 0 : 1;
}
