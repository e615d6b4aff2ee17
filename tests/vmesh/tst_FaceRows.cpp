#include "VMeshFile.h"
#include "support/VolumeMeshes.h"
#include "vmesh/FaceRows.h"
#include "vmesh/MTModelVMeshWriter.h"

#include <limits>

namespace {

/// Writes meshes to files. Each has a name of its own: some file systems take long to replace a file.
class Target
{
public:
    QByteArray written(MTModelVMesh mesh)
    {
        QString const path = folder.filePath(QString::number(++files));
        return MTModelVMeshWriter(mesh).write(path) ? contentOf(path) : QByteArray("not written");
    }
    QByteArray derivedAndWritten(MTModelVMesh mesh)
    {
        return deriveFaceRows(mesh) ? written(mesh) : QByteArray("not derived");
    }

private:
    QTemporaryDir folder;
    int files = 0;
};

} // namespace

class tst_FaceRows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void makesTheRowsOfTheWriter_data()
    {
        QTest::addColumn<QList<qint32>>("tetrahedra");
        using Tetrahedra = QList<qint32>;
        QTest::newRow("none") << Tetrahedra{};
        QTest::newRow("one") << Tetrahedra{0, 1, 2, 3};
        QTest::newRow("two that share a face") << Tetrahedra{0, 1, 2, 3, 4, 3, 2, 1};
        QTest::newRow("three that share a face") << Tetrahedra{0, 1, 2, 3, 0, 1, 2, 4, 5, 2, 0, 1};
        QTest::newRow("four that share a face") << Tetrahedra{0, 1, 2, 3, 0, 1, 2, 4, 5, 2, 0, 1, 2, 1, 6, 0};
        QTest::newRow("the same three times") << Tetrahedra{0, 1, 2, 3, 3, 2, 1, 0, 1, 0, 3, 2};
        QTest::newRow("unknown points")
            << Tetrahedra{0, 1, 2, -1, 3, -1, 2, 1, -1, -1, -1, -1, 1, -1, -1, -1};
        QTest::newRow("a repeated point and one with that edge") << Tetrahedra{1, 1, 2, 3, 2, 1, 4, 5};
        QTest::newRow("a repeated point, the edge comes first")
            << Tetrahedra{2, 1, 4, 5, 1, 1, 2, 3, 6, 2, 7, 1, 2, 1, 1, 8};
        QTest::newRow("the edge repeated the other way")
            << Tetrahedra{1, 1, 2, 3, 2, 2, 1, 4, 1, 2, 1, 5, 2, 1, 2, 6};
        QTest::newRow("one point") << Tetrahedra{7, 7, 7, 7, 1, 2, 7, 3, 7, 7, 7, 7, 7, 7, 7, 7};
        QTest::newRow("two points") << Tetrahedra{7, 8, 7, 8, 8, 8, 7, 8, 7, 7, 8, 7, 9, 8, 9, 7};
        QTest::newRow("extreme numbers") << Tetrahedra{std::numeric_limits<qint32>::min(),
                                                       0,
                                                       std::numeric_limits<qint32>::max(),
                                                       -2,
                                                       -2,
                                                       std::numeric_limits<qint32>::max(),
                                                       5,
                                                       0};
    }

    void makesTheRowsOfTheWriter()
    {
        QFETCH(QList<qint32>, tetrahedra);
        MTModelVMesh const mesh = support::volumeMesh({}, tetrahedra);
        Target target;
        QCOMPARE(target.derivedAndWritten(mesh), target.written(mesh));
    }

    void makesTheRowsOfTheWriterForRandomComplexes()
    {
        std::mt19937 random(20240503);
        Target target;
        int rows = 0;
        for (int i = 0; i < 1000; ++i) {
            MTModelVMesh mesh = support::randomComplex(random, i % 2 == 1);
            QByteArray const expected = target.written(mesh);
            QVERIFY(deriveFaceRows(mesh));
            QCOMPARE(target.written(mesh), expected);
            rows += mesh.numFaces;
        }
        QVERIFY(rows > 50000);
    }

    void makesTheRowsOfTheWriterForAMesh()
    {
        MTModelVMesh const mesh = support::tetrahedralBox(5);
        Target target;
        QCOMPARE(target.derivedAndWritten(mesh), target.written(mesh));
    }

    void fillsTheRecord()
    {
        MTModelVMesh mesh = support::volumeMesh({}, {0, 1, 2, 3, 1, 2, 3, 4});
        QVERIFY(deriveFaceRows(mesh));
        QCOMPARE(mesh.numTetrahedra, 2);
        QCOMPARE(mesh.numFaces, 7);
        QCOMPARE(mesh.numBoundFaces, 6);
        QCOMPARE(support::valuesOf(mesh.faces, 10), (QList<qint32>{0, -1, 0, 1, 2, 0, 1, 1, 2, 3}));
        QCOMPARE(support::valuesOf(mesh.boundFaces, 10), (QList<qint32>{0, -1, 0, 1, 2, 0, -1, 0, 2, 3}));
        QCOMPARE(support::valuesOf(mesh.triangles, 28),
                 (QList<qint32>{0, 1,  2, -1, 1, 2,  3, -1, 0, 2,  3, -1, 0, 1,
                                3, -1, 2, 3,  4, -1, 1, 3,  4, -1, 1, 2,  4, -1}));
    }

    void fillsTheRecordWithEmptyArraysWhereThereIsNothing()
    {
        MTModelVMesh mesh;
        QVERIFY(deriveFaceRows(mesh));
        QVERIFY(!mesh.faces.isNull() && !mesh.triangles.isNull() && !mesh.boundFaces.isNull());
        QCOMPARE(mesh.numFaces + mesh.numBoundFaces, 0);
    }

    void leavesCopiesAlone()
    {
        MTModelVMesh mesh = support::volumeMesh({}, {0, 1, 2, 3});
        mesh.numFaces = 1;
        mesh.faces = support::sharedArray(QList<qint32>{9, 9, 9, 9, 9});
        MTModelVMesh const copy = mesh;
        QVERIFY(deriveFaceRows(mesh));
        QCOMPARE(mesh.numFaces, 4);
        QCOMPARE(copy.numFaces, 1);
        QCOMPARE(support::valuesOf(copy.faces, 5), QList<qint32>(5, 9));
        QCOMPARE(copy.tetrahedra, mesh.tetrahedra);
    }

    void derivesTheSameTwice()
    {
        MTModelVMesh mesh = support::tetrahedralBall(2);
        QVERIFY(deriveFaceRows(mesh));
        MTModelVMesh const once = mesh;
        QVERIFY(deriveFaceRows(mesh));
        QVERIFY(support::sameBits(mesh, once));
        QVERIFY(mesh.faces != once.faces);
    }

    void refusesTetrahedraThatAreNotThere()
    {
        for (qint32 const count : {1, std::numeric_limits<qint32>::max()}) {
            MTModelVMesh mesh;
            mesh.numTetrahedra = count;
            MTModelVMesh const before = mesh;
            QVERIFY(!deriveFaceRows(mesh));
            QVERIFY(support::sameBits(mesh, before));
        }
    }

    void takesANegativeCountForNone()
    {
        MTModelVMesh mesh;
        mesh.numTetrahedra = -1;
        QVERIFY(deriveFaceRows(mesh));
        QCOMPARE(mesh.numFaces, 0);
    }
};

QTEST_APPLESS_MAIN(tst_FaceRows)
#include "tst_FaceRows.moc"
