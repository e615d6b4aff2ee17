// Reads an STL file, a tree and a distractor through SurfaceIO and looks at whose types it met.
#include "framework/MeshWriter.h"
#include "ply/PLYReader.h"
#include "scene/DentalScanReader.h"
#include "scene/DistractorFactory.h"
#include "scene/ShapeNodeIOHelper.h"
#include "stl/STLReader.h"

#include <QByteArray>
#include <QDataStream>
#include <QFile>
#include <QIODevice>
#include <QList>
#include <QTemporaryDir>
#include <QVector3D>
#include <QVersionNumber>

#include <atomic>
#include <cstdio>

static_assert(geometry::Mesh::isReplacement);

namespace {

/// One facet in the plane x = 0, twice. Its true normal is (1, 0, 0).
QByteArray twoEqualFacets()
{
    QByteArray bytes(80, ' ');
    QDataStream stream(&bytes, QIODevice::Append);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream.setFloatingPointPrecision(QDataStream::SinglePrecision);
    stream << quint32(2);
    for (int facet = 0; facet < 2; ++facet) {
        for (float const value : {1.f, 0.f, 0.f, 0.f, 0.f, 0.f, 0.f, 1.f, 0.f, 0.f, 0.f, 1.f})
            stream << value;
        stream << quint16(0);
    }
    return bytes;
}

bool check(bool condition, char const* what)
{
    if (!condition)
        std::fprintf(stderr, "failed: %s\n", what);
    return condition;
}

bool readsWithTheReplacement(bool sharpEdges, QVector3D const& expectedNormal)
{
    std::atomic<bool> const cancel{false};
    STLReader reader(nullptr, sharpEdges, {});
    return check(reader.read(twoEqualFacets(), cancel), "the file is read") &&
           check(reader.getMesh().vertices.size() == 6, "the other cleaner leaves all vertices") &&
           check(reader.getMesh().vertices[4] == QVector3D(0, 1, 0), "the vertices are those of the file") &&
           check(reader.getMesh().indices == QList<int>({0, 1, 2, -1, 3, 4, 5, -1}), "the indices fit") &&
           check(reader.getMesh().normals == QList<QVector3D>(6, expectedNormal),
                 "the other normals are set");
}

bool readsADentalScan(QString const& fileName)
{
    QFile file(fileName);
    if (!check(file.open(QIODevice::WriteOnly), "the scan's file is open"))
        return false;
    file.write(twoEqualFacets());
    file.close();
    auto const scan = DentalScanReader::readDentalScan(fileName);
    return check(scan != nullptr, "the scan is read") &&
           check(scan->getMesh().normals == QList<QVector3D>(6, {0, 0, 1}), "the scan has the other normals");
}

bool readsATree(QString const& fileName)
{
    geometry::ShapeNode node(QStringLiteral("node"));
    if (!check(ShapeNodeIOHelper::write(fileName, &node), "the tree is written"))
        return false;
    auto const tree = ShapeNodeIOHelper::read(fileName, QVersionNumber(1, 0), false);
    return check(tree && tree->getName() == QStringLiteral("7.3"), "the tree has the other version");
}

bool makesADistractor()
{
    auto const distractor = DistractorFactory::createDistractor(maxillaTelescopingDistractorLeftId);
    return check(distractor->getProductId() == maxillaTelescopingDistractorLeftId, "the id is kept") &&
           check(distractor->getProductName() == QStringLiteral("other product"),
                 "the other catalogue gives the name") &&
           check(distractor->getRoot()->getChildren().size() == 3, "the other catalogue counts the parts") &&
           check(distractor->getAdvancement()->getNumberOfParts() == 11, "the other model has its parts") &&
           check(distractor->getObjectTransform().map(QVector3D(1, 0, 0)) == QVector3D(-1, 0, 0),
                 "the other rotation is applied");
}

} // namespace

int main()
{
    QTemporaryDir const folder;
    bool const good = readsWithTheReplacement(false, {0, 0, 1}) && readsWithTheReplacement(true, {0, 1, 0}) &&
                      readsADentalScan(folder.filePath(QStringLiteral("scan.stl"))) &&
                      readsATree(folder.filePath(QStringLiteral("tree"))) && makesADistractor();
    return good ? 0 : 1;
}
