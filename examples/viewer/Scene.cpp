#include "Scene.h"

#include "ScanNotes.h"
#include "framework/MeshReader.h"
#include "inhouse/data/Unstrip.h"
#include "obj/OBJReader.h"
#include "ply/PLYReader.h"
#include "scene/AssociatedShapesXMLReader.h"
#include "scene/ShapeNodeIOHelper.h"
#include "stl/STLReader.h"
#include "stl/STLTagHandler.h"
#include "vmesh/FaceRows.h"
#include "vmesh/MTModelVMeshParser.h"

#include <QFileInfo>
#include <QHash>
#include <QVersionNumber>

#include <atomic>
#include <cmath>
#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

// Nobody can cancel here; examples/progress shows how.
std::atomic<bool> const never{false};

QColor colourOfTag(int tag, int subTag)
{
    constexpr double golden = 0.618;
    double const turn = golden * tag + golden * golden * subTag;
    return QColor::fromHsvF(float(turn - std::floor(turn)), 0.55f, 0.9f);
}

Scene loadStl(QString const& path)
{
    UseAllTagsHandler const everyTag;
    STLReader reader(&everyTag, false, path);
    Scene scene;
    if (!reader.read(never))
        return scene;
    QList<STLSurfaceData*> const surfaces = reader.takeSTLSurfaceDataSets();
    if (surfaces.isEmpty()) // an ASCII file has no tags, and its surface stays with the reader
        scene.parts.push_back({reader.getMesh()});
    for (STLSurfaceData* const data : surfaces) {
        std::unique_ptr<STLSurfaceData> const surface(data);
        Part part{surface->getMesh()};
        if (surfaces.size() > 1)
            part.colour = colourOfTag(surface->getTag(), surface->getSubTag());
        scene.notes << u"tag %1.%2: %3 triangles"_s.arg(surface->getTag())
                           .arg(surface->getSubTag())
                           .arg(part.mesh.indices.size() / 4);
        scene.parts.push_back(part);
    }
    return scene;
}

Scene withTexture(SurfaceReader& reader, QString const& path)
{
    reader.setFileName(path);
    reader.setTextureSupport(SurfaceReader::TextureOptional);
    Scene scene;
    if (reader.read(never))
        scene.parts.push_back({reader.getMesh(), Part().colour, reader.getTexture()});
    return scene;
}

Scene loadCloud(QString const& path)
{
    PLYReader reader(PLYReader::PointCloudMode);
    reader.setFileName(path);
    Scene scene;
    if (!reader.read(never))
        return scene;
    geometry::PointCloud const& cloud = reader.getPointCloud();
    scene.parts.push_back({geometry::Mesh(cloud.positions, {}, cloud.normals, cloud.colors())});
    return scene;
}

// What is no mesh of triangles shows its points.
Scene loadPly(QString const& path)
{
    PLYReader reader(PLYReader::MeshMode);
    reader.activeFaceColorMode(true);
    Scene scene = withTexture(reader, path);
    if (scene.parts.empty())
        return loadCloud(path);
    scene.parts.front().faceColours = reader.getFaceColors();
    return scene;
}

Scene loadObj(QString const& path)
{
    OBJReader reader;
    return withTexture(reader, path);
}

void addShape(geometry::Mesh const& mesh, QString const& name, Scene& scene)
{
    scene.parts.push_back({mesh, colourOfTag(int(scene.parts.size()), 0)});
    scene.notes << u"shape %1"_s.arg(name);
}

void addNode(geometry::ShapeNode const& root, Scene& scene)
{
    std::vector<geometry::ShapeNode const*> open = {&root}; // trees may be deeper than the stack
    while (!open.empty()) {
        geometry::ShapeNode const& node = *open.back();
        open.pop_back();
        if (geometry::Shape const* const shape = node.getShape())
            addShape(shape->getMesh(), node.getName(), scene);
        for (auto const& child : node.getChildren())
            open.push_back(child.get());
    }
}

// The file holds a tree, or a single shape. Nothing in it says which, and a shape may pass for a tree of
// none.
Scene loadTree(QString const& path)
{
    Scene scene;
    if (auto const tree = ShapeNodeIOHelper::read(path, QVersionNumber(1, 0), false))
        addNode(*tree, scene);
    if (!scene.parts.empty())
        return scene;
    if (auto const shape = ShapeNodeIOHelper::readShape(path))
        addShape(shape->getMesh(), u"1"_s, scene);
    return scene;
}

// The meshes that a document lists, as those of a distractor.
Scene loadShapes(QString const& path)
{
    AssociatedShapesXMLReader reader;
    Scene scene;
    if (!reader.read(path))
        return scene;
    for (geometry::Mesh const& mesh : reader.takeMeshes())
        addShape(mesh, QString::number(scene.parts.size() + 1), scene);
    return scene;
}

// The outer surface of a volume mesh: the bound faces, which name their tetrahedra before their points.
Scene loadVolume(QString const& path)
{
    MTModelVMeshParser parser(path);
    Scene scene;
    if (!parser.read())
        return scene;
    MTModelVMesh volume = parser.getVMesh();
    if (volume.numBoundFaces == 0)
        deriveFaceRows(volume);
    geometry::Mesh mesh;
    for (qint64 i = 0; i < volume.numPoints; ++i) {
        float const* const point = volume.points.data() + 3 * i;
        mesh.vertices << QVector3D(point[0], point[1], point[2]);
    }
    for (qint64 i = 0; i < volume.numBoundFaces; ++i) {
        qint32 const* const row = volume.boundFaces.data() + 5 * i;
        mesh.indices << row[2] << row[3] << row[4] << -1;
    }
    scene.notes << u"%1 tetrahedra"_s.arg(volume.numTetrahedra);
    scene.parts.push_back({mesh});
    return scene;
}

Scene loadRecord(QString const& path)
{
    int vertexCount = 0;
    int indexCount = 0;
    float* vertices = nullptr;
    float* normals = nullptr;
    int* indices = nullptr;
    Scene scene;
    if (!MeshReader::read(path, &vertexCount, &vertices, &normals, &indexCount, &indices))
        return scene;
    std::unique_ptr<float[]> const ownedVertices(vertices);
    std::unique_ptr<float[]> const ownedNormals(normals);
    std::unique_ptr<int[]> const ownedIndices(indices);
    geometry::Mesh mesh;
    for (int i = 0; i < vertexCount; ++i) {
        mesh.vertices << QVector3D(vertices[3 * i], vertices[3 * i + 1], vertices[3 * i + 2]);
        mesh.normals << QVector3D(normals[3 * i], normals[3 * i + 1], normals[3 * i + 2]);
    }
    mesh.indices = QList<int>(indices, indices + indexCount);
    scene.parts.push_back({mesh});
    return scene;
}

QStringList countsOf(Scene const& scene)
{
    qsizetype triangles = 0;
    qsizetype points = 0;
    for (Part const& part : scene.parts) {
        triangles += geometry::unstrip(part.mesh).indices.size() / 4;
        points += part.mesh.indices.isEmpty() ? part.mesh.vertices.size() : 0;
    }
    QStringList counts(u"%1 triangles"_s.arg(triangles));
    if (points > 0)
        counts << u"%1 points"_s.arg(points);
    return counts;
}

} // namespace

Scene loadScene(QString const& path)
{
    static QHash<QString, std::function<Scene(QString const&)>> const loaders = {
        {u"stl"_s, loadStl},        {u"ply"_s, loadPly},    {u"obj"_s, loadObj},
        {u"shapetree"_s, loadTree}, {u"xml"_s, loadShapes}, {u"vmesh"_s, loadVolume},
        {u"array"_s, loadRecord},
    };
    auto const loader = loaders.find(QFileInfo(path).suffix().toLower());
    Scene scene = loader == loaders.end() ? Scene() : (*loader)(path);
    if (!scene.parts.empty())
        scene.notes = countsOf(scene) + scene.notes + notesOfScanner(path);
    return scene;
}
