#include "support/VolumeMeshes.h"
#include "vmesh/FaceRows.h"
#include "volume/BoundarySurface.h"
#include "volume/VolumeFindings.h"

#include <QTest>

#include <map>

using tool::boundarySurfaceOf;

namespace {

double sixfoldVolumeOf(geometry::Mesh const& mesh)
{
    double volume = 0;
    for (qsizetype i = 0; i < mesh.indices.size(); i += 4) {
        QVector3D const& a = mesh.vertices[mesh.indices[i]];
        QVector3D const& b = mesh.vertices[mesh.indices[i + 1]];
        QVector3D const& c = mesh.vertices[mesh.indices[i + 2]];
        volume += static_cast<double>(QVector3D::dotProduct(a, QVector3D::crossProduct(b, c)));
    }
    return volume;
}

// Whether each edge is run through once in each direction.
bool isClosedAndOriented(geometry::Mesh const& mesh)
{
    std::map<std::pair<int, int>, int> edges;
    for (qsizetype i = 0; i < mesh.indices.size(); i += 4) {
        for (int corner = 0; corner < 3; ++corner)
            ++edges[{mesh.indices[i + corner], mesh.indices[i + (corner + 1) % 3]}];
    }
    return std::all_of(edges.begin(), edges.end(), [&edges](auto const& edge) {
        return edge.second == 1 && edges.count({edge.first.second, edge.first.first}) == 1;
    });
}

MTModelVMesh withRows(MTModelVMesh mesh)
{
    deriveFaceRows(mesh);
    return mesh;
}

MTModelVMesh withoutBoundRows(MTModelVMesh mesh)
{
    mesh.numBoundFaces = 0;
    return mesh;
}

} // namespace

class tst_BoundarySurface : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void turnsTrianglesOutward()
    {
        MTModelVMesh mesh = support::volumeMesh({0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1}, {0, 1, 2, 3});
        geometry::Mesh const surface = boundarySurfaceOf(withRows(mesh));
        QCOMPARE(surface.indices, (QList<int>{0, 2, 1, -1, 1, 2, 3, -1, 0, 3, 2, -1, 0, 1, 3, -1}));
        QCOMPARE(surface.vertices, (QList<QVector3D>{{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}}));
    }

    void makesAClosedSurface_data()
    {
        QTest::addColumn<MTModelVMesh>("mesh");
        QTest::addColumn<double>("volume");
        QTest::newRow("box") << withRows(support::tetrahedralBox(4)) << 8.0;
        QTest::newRow("box by its face rows")
            << withoutBoundRows(withRows(support::tetrahedralBox(4))) << 8.0;
        QTest::newRow("ball") << withRows(support::tetrahedralBall(12)) << 4.15;
    }

    void makesAClosedSurface()
    {
        QFETCH(MTModelVMesh, mesh);
        QFETCH(double, volume);
        geometry::Mesh const surface = boundarySurfaceOf(mesh);
        QVERIFY(isClosedAndOriented(surface));
        QVERIFY(qAbs(sixfoldVolumeOf(surface) / 6 - volume) < 0.01);
    }

    void leavesUnusedPointsOut()
    {
        MTModelVMesh mesh = withRows(support::tetrahedralBox(4));
        geometry::Mesh const surface = boundarySurfaceOf(mesh);
        QCOMPARE(mesh.numPoints, 125);
        QCOMPARE(surface.vertices.size(), 98);
        QCOMPARE(surface.indices.size(), 4 * 6 * 16 * 2);
    }

    // Flat, or with a fourth point that no row has told: nothing says where outward is.
    void leavesTrianglesWithoutAnOutsideAsTheyAre_data()
    {
        QTest::addColumn<QList<int>>("tetrahedra");
        QTest::newRow("flat") << QList<int>{0, 1, 2, 4};
        QTest::newRow("unknown point") << QList<int>{0, 1, 2, -1};
        QTest::newRow("repeated point") << QList<int>{0, 1, 2, 2};
        QTest::newRow("no tetrahedron") << QList<int>{};
    }

    void leavesTrianglesWithoutAnOutsideAsTheyAre()
    {
        QFETCH(QList<int>, tetrahedra);
        MTModelVMesh mesh = support::volumeMesh({0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1, 1, 1, 0}, tetrahedra);
        mesh.numBoundFaces = 1;
        mesh.boundFaces = support::sharedArray(QList<int>{tetrahedra.isEmpty() ? -1 : 0, -1, 0, 2, 1});
        QCOMPARE(boundarySurfaceOf(mesh).indices, (QList<int>{0, 2, 1, -1}));
        mesh.boundFaces = support::sharedArray(QList<int>{tetrahedra.isEmpty() ? -1 : 0, -1, 0, 1, 2});
        QCOMPARE(boundarySurfaceOf(mesh).indices, (QList<int>{0, 1, 2, -1}));
    }

    void isEmptyWithoutABoundary()
    {
        QVERIFY(boundarySurfaceOf(MTModelVMesh()).isNull());
        QVERIFY(boundarySurfaceOf(support::tetrahedralBox(2)).indices.isEmpty());
    }

    // The generated meshes that other tests build on.
    void generatedMeshesAreSound_data()
    {
        QTest::addColumn<MTModelVMesh>("mesh");
        QTest::newRow("box") << withRows(support::tetrahedralBox(5));
        QTest::newRow("ball") << withRows(support::tetrahedralBall(16));
    }

    void generatedMeshesAreSound()
    {
        QFETCH(MTModelVMesh, mesh);
        tool::VolumeFindings const findings = tool::findingsOf({mesh, {}});
        QCOMPARE(findings.incomplete + findings.flat + findings.inverted, 0);
        QCOMPARE(findings.badReferenceCount + findings.foreignFaces, 0);
        QCOMPARE(findings.outerFaces, qint64(mesh.numBoundFaces));
        tool::BoundaryFindings const boundary = tool::boundaryFindingsOf(mesh);
        QCOMPARE(boundary.eulerCharacteristic(), 2);
        QCOMPARE(boundary.openEdges, 0);
    }
};

QTEST_APPLESS_MAIN(tst_BoundarySurface)
#include "tst_BoundarySurface.moc"
