#include "hostile/Attempt.h"
#include "hostile/Seeds.h"
#include "hostile/SubjectParts.h"
#include "inhouse/data/ShapeNodeIO.h"
#include "scene/AssociatedShapesXMLReader.h"
#include "scene/BinaryIOHelper.h"
#include "scene/ShapeNodeIOHelper.h"
#include "support/ObjFiles.h"
#include "support/PlyFiles.h"
#include "support/PrivateAccess.h"
#include "vmesh/MTModelBoundaryConditionsParser.h"
#include "vmesh/MTModelVMeshParser.h"

#include <QDataStream>
#include <QFile>
#include <QVersionNumber>

using namespace Qt::StringLiterals;

namespace support {

struct ReadVMesh
{
    using Member = bool (MTModelVMeshParser::*)(QIODevice&, qint64&);
    friend Member privateMember(ReadVMesh);
};
template struct PrivateMember<ReadVMesh, &MTModelVMeshParser::readBytes>;

struct ReadConditions
{
    using Member = bool (MTModelBoundaryConditionsParser::*)(QIODevice&, qint64&);
    friend Member privateMember(ReadConditions);
};
template struct PrivateMember<ReadConditions, &MTModelBoundaryConditionsParser::readLines>;

} // namespace support

namespace hostile {

namespace {

Outcome inspect(MTModelVMesh const& mesh, bool success)
{
    return Inspection()
        .require(!success ||
                     (mesh.points && mesh.faces && mesh.boundFaces && mesh.tetrahedra && mesh.triangles),
                 "arrays")
        .array(mesh.points.data(), qint64(3) * mesh.numPoints)
        .array(mesh.faces.data(), qint64(5) * mesh.numFaces)
        .array(mesh.boundFaces.data(), qint64(5) * mesh.numBoundFaces)
        .array(mesh.tetrahedra.data(), qint64(4) * mesh.numTetrahedra)
        .array(mesh.triangles.data(), qint64(4) * mesh.numFaces)
        .outcome(success ? 1 : 0);
}

Outcome inspect(MTModelBoundaryConditions const& conditions, bool success)
{
    return Inspection()
        .array(conditions.pointIndices.data(), conditions.numBoundaryConditions)
        .array(conditions.values.data(), qint64(3) * conditions.numBoundaryConditions)
        .outcome(success ? 1 : 0);
}

Outcome readVMesh(QString const& path, std::atomic<bool> const&)
{
    MTModelVMeshParser parser(path);
    return attempt([&] { return parser.read(); },
                   [&](bool success) { return inspect(parser.getVMesh(), success); });
}

// The step below `read`, which clears what a failure leaves.
Outcome walkVMesh(QIODevice& device, std::atomic<bool> const&)
{
    MTModelVMeshParser parser({});
    qint64 lineNumber = 0;
    bool const success =
        device.open(QIODevice::ReadOnly) && (parser.*privateMember(support::ReadVMesh()))(device, lineNumber);
    return success ? inspect(parser.getVMesh(), true) : Inspection().number(lineNumber).outcome(0);
}

Outcome readConditions(QString const& path, std::atomic<bool> const&)
{
    MTModelBoundaryConditionsParser parser(path);
    return attempt([&] { return parser.read(); },
                   [&](bool success) { return inspect(parser.getBoundaryConditions(), success); });
}

Outcome walkConditions(QIODevice& device, std::atomic<bool> const&)
{
    MTModelBoundaryConditionsParser parser({});
    qint64 lineNumber = 0;
    bool const success = device.open(QIODevice::ReadOnly) &&
                         (parser.*privateMember(support::ReadConditions()))(device, lineNumber);
    return success ? inspect(parser.getBoundaryConditions(), true)
                   : Inspection().number(lineNumber).outcome(0);
}

// What was loaded, saved again; that loads to the same.
Outcome inspect(geometry::ShapeNode const* root)
{
    Inspection inspection;
    if (!root)
        return inspection.outcome(0);
    QByteArray saved;
    QDataStream stream(&saved, QIODevice::WriteOnly);
    ShapeNodeIO::saveRecursive(root, &stream);
    QDataStream in(saved);
    auto const again = ShapeNodeIO::loadRecursive(&in, QVersionNumber(2, 0), false);
    return inspection.require(again != nullptr && in.atEnd(), "saved tree").bytes(saved).outcome(1);
}

Outcome inspect(geometry::Shape const* shape)
{
    Inspection inspection;
    if (shape)
        inspection.raw(shape->getMesh()).material(shape->getMaterial());
    return inspection.outcome(shape ? 1 : 0);
}

Outcome readTreeFrom(QIODevice& device, std::atomic<bool> const&)
{
    if (!device.open(QIODevice::ReadOnly))
        return {};
    QDataStream stream(&device);
    auto const version = BinaryIOHelper::readVersion(stream);
    if (!version)
        return Inspection().outcome(0);
    QVersionNumber const number(static_cast<int>(version->first), static_cast<int>(version->second));
    return inspect(ShapeNodeIO::loadRecursive(&stream, number, false).get());
}

void addShapes(std::vector<Subject>& list)
{
    Subject tree{"shapetree-tree", "shapetree", seeds::shapeTree()};
    tree.equivalent = [](QByteArray const& bytes) { return bytes; };
    tree.fromDevice = readTreeFrom;
    tree.fromFile = [](QString const& path, std::atomic<bool> const&) {
        return attempt([&] { return ShapeNodeIOHelper::read(path, QVersionNumber(2, 0), false); },
                       [](std::unique_ptr<geometry::ShapeNode> const& root) { return inspect(root.get()); });
    };
    list.push_back(tree);

    Subject shape{"shapetree-shape", "shape", seeds::shape()};
    shape.fromFile = [](QString const& path, std::atomic<bool> const&) {
        return attempt([&] { return ShapeNodeIOHelper::readShape(path); },
                       [](std::unique_ptr<geometry::Shape> const& read) { return inspect(read.get()); });
    };
    list.push_back(shape);
}

// The materials are never forgotten: those of the last read stand at the end.
Outcome inspect(AssociatedShapesXMLReader& reader, bool success)
{
    Inspection inspection;
    QList<geometry::Mesh> const meshes = reader.takeMeshes();
    QList<geometry::Material> const materials = reader.getMaterials();
    inspection.require(materials.size() >= meshes.size(), "materials");
    inspection.require(success == !meshes.isEmpty(), "meshes");
    for (geometry::Mesh const& mesh : meshes)
        inspection.reader(mesh);
    for (geometry::Material const& material : materials.last(std::min(meshes.size(), materials.size())))
        inspection.material(material);
    return inspection.outcome(success ? 1 : 0);
}

Outcome readDocument(QByteArray const& bytes, std::atomic<bool> const&)
{
    QString const name = u"document"_s;
    QMap<QString, QByteArray> const files = {{name, bytes}, {u"a.ply"_s, support::plyTriangle()}};
    AssociatedShapesXMLReader reader;
    return attempt([&] { return reader.read(files, name); },
                   [&](bool success) { return inspect(reader, success); });
}

Outcome readDocumentFile(QString const& path, std::atomic<bool> const&)
{
    AssociatedShapesXMLReader reader;
    return attempt([&] { return reader.read(path); }, [&](bool success) { return inspect(reader, success); });
}

} // namespace

void addVolumes(std::vector<Subject>& list)
{
    Subject vmesh{"vmesh", "vmesh", seeds::vmesh()};
    vmesh.fromDevice = walkVMesh;
    vmesh.fromFile = readVMesh;
    Subject conditions{"conditions", "bc", seeds::conditions()};
    conditions.fromDevice = walkConditions;
    conditions.fromFile = readConditions;
    for (Subject* const subject : {&vmesh, &conditions}) {
        subject->isText = true;
        subject->equivalent = [](QByteArray const& bytes) { return bytes; };
        list.push_back(*subject);
    }
}

void addScene(std::vector<Subject>& list)
{
    addShapes(list);
    Subject document{"xml", "xml", seeds::associatedShapes()};
    document.isText = true;
    document.fromBytes = readDocument;
    document.fromFile = readDocumentFile;
    list.push_back(document);
}

} // namespace hostile
