#include "VMeshFile.h"
#include "support/PrivateAccess.h"
#include "support/VolumeMeshes.h"
#include "vmesh/MTModelVMeshWriter.h"

#include <QDir>

#include <limits>
#include <type_traits>

static_assert(std::is_copy_constructible_v<MTModelVMeshWriter>);
static_assert(std::is_destructible_v<MTModelVMeshWriter>);
static_assert(!std::has_virtual_destructor_v<MTModelVMeshWriter> &&
              !std::is_polymorphic_v<MTModelVMeshWriter>);
static_assert(std::is_constructible_v<MTModelVMeshWriter, MTModelVMesh&> &&
              !std::is_constructible_v<MTModelVMeshWriter, MTModelVMesh const&>);

namespace support {

struct IsPointInTetra
{
    using Member = bool (MTModelVMeshWriter::*)(qint32 const*, int);
    friend Member privateMember(IsPointInTetra);
};
template struct PrivateMember<IsPointInTetra, &MTModelVMeshWriter::isPointInTetra>;

} // namespace support

namespace {

QByteArray writtenBy(MTModelVMeshWriter& writer)
{
    QTemporaryDir const folder;
    QString const path = folder.filePath(QStringLiteral("mesh.vmesh"));
    return writer.write(path) ? contentOf(path) : QByteArray("not written");
}

QByteArray written(MTModelVMesh mesh)
{
    MTModelVMeshWriter writer(mesh);
    return writtenBy(writer);
}

// What comes behind the points of a mesh of these tetrahedra and no points.
QByteArray rowsOf(QList<qint32> const& tetrahedra)
{
    return written(support::volumeMesh({}, tetrahedra)).mid(qsizetype(qstrlen("# Labeled\n")));
}

MTModelVMesh oneTetrahedron()
{
    return support::volumeMesh({0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1}, {0, 1, 2, 3});
}

} // namespace

class tst_MTModelVMeshWriter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void writesOneTetrahedron()
    {
        QCOMPARE(written(oneTetrahedron()), QByteArray("# Labeled\n"
                                                       "1 4 4 4\n"
                                                       "0.000000 0.000000 0.000000\n"
                                                       "1.000000 0.000000 0.000000\n"
                                                       "0.000000 1.000000 0.000000\n"
                                                       "0.000000 0.000000 1.000000\n"
                                                       "0 -1 0 1 2\n0 -1 1 2 3\n0 -1 0 2 3\n0 -1 0 1 3\n"
                                                       "0 -1 0 1 2\n0 -1 1 2 3\n0 -1 0 2 3\n0 -1 0 1 3"));
    }

    void writesASharedFaceOnce()
    {
        QCOMPARE(rowsOf({0, 1, 2, 3, 1, 2, 3, 4}),
                 QByteArray("2 7 6 0\n"
                            "0 -1 0 1 2\n0 1 1 2 3\n0 -1 0 2 3\n0 -1 0 1 3\n"
                            "1 -1 2 3 4\n1 -1 1 3 4\n1 -1 1 2 4\n"
                            "0 -1 0 1 2\n0 -1 0 2 3\n0 -1 0 1 3\n"
                            "1 -1 2 3 4\n1 -1 1 3 4\n1 -1 1 2 4"));
    }

    void writesNothingAtAll()
    {
        QCOMPARE(written(MTModelVMesh()), QByteArray("# Labeled\n0 0 0 0"));
        QCOMPARE(written(support::volumeMesh({}, {})), QByteArray("# Labeled\n0 0 0 0"));
    }

    void writesPointsWithSixDecimals_data()
    {
        QTest::addColumn<float>("value");
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("quarter") << 1.25f << QByteArray("1.250000");
        QTest::newRow("half") << 0.5f << QByteArray("0.500000");
        QTest::newRow("minus") << -0.1f << QByteArray("-0.100000");
        QTest::newRow("rounded up") << 0.0000006f << QByteArray("0.000001");
        QTest::newRow("rounded away") << 1e-7f << QByteArray("0.000000");
        QTest::newRow("minus zero") << -0.0f << QByteArray(QByteArray::number(-0.0, 'f', 6));
        QTest::newRow("large") << 16777216.0f << QByteArray("16777216.000000");
        QTest::newRow("very large") << 1e20f << QByteArray("100000002004087734272.000000");
        QTest::newRow("infinity") << std::numeric_limits<float>::infinity() << QByteArray("inf");
        QTest::newRow("nan") << std::numeric_limits<float>::quiet_NaN() << QByteArray("nan");
    }

    void writesPointsWithSixDecimals()
    {
        QFETCH(float, value);
        QFETCH(QByteArray, text);
        QCOMPARE(written(support::volumeMesh({value, 0, value}, {})),
                 "# Labeled\n0 0 0 1\n" + text + " 0.000000 " + text);
    }

    void makesRowsOutOfTetrahedra_data()
    {
        QTest::addColumn<QList<qint32>>("tetrahedra");
        QTest::addColumn<QByteArray>("rows");
        QTest::newRow("points in descending order")
            << QList<qint32>{9, 7, 5, 3}
            << QByteArray("1 4 4 0\n0 -1 5 7 9\n0 -1 3 5 7\n0 -1 3 5 9\n0 -1 3 7 9\n"
                          "0 -1 5 7 9\n0 -1 3 5 7\n0 -1 3 5 9\n0 -1 3 7 9");
        QTest::newRow("a shared face in another order")
            << QList<qint32>{0, 1, 2, 3, 4, 3, 2, 1}
            << QByteArray("2 7 6 0\n0 -1 0 1 2\n0 1 1 2 3\n0 -1 0 2 3\n0 -1 0 1 3\n"
                          "1 -1 2 3 4\n1 -1 1 2 4\n1 -1 1 3 4\n"
                          "0 -1 0 1 2\n0 -1 0 2 3\n0 -1 0 1 3\n"
                          "1 -1 2 3 4\n1 -1 1 2 4\n1 -1 1 3 4");
        QTest::newRow("a face that three share: the third is outside")
            << QList<qint32>{0, 1, 2, 3, 0, 1, 2, 4, 0, 1, 2, 5}
            << QByteArray("3 11 10 0\n0 1 0 1 2\n0 -1 1 2 3\n0 -1 0 2 3\n0 -1 0 1 3\n"
                          "1 -1 1 2 4\n1 -1 0 2 4\n1 -1 0 1 4\n"
                          "2 -1 0 1 2\n2 -1 1 2 5\n2 -1 0 2 5\n2 -1 0 1 5\n"
                          "0 -1 1 2 3\n0 -1 0 2 3\n0 -1 0 1 3\n"
                          "1 -1 1 2 4\n1 -1 0 2 4\n1 -1 0 1 4\n"
                          "2 -1 0 1 2\n2 -1 1 2 5\n2 -1 0 2 5\n2 -1 0 1 5");
        QTest::newRow("unknown points are points like others")
            << QList<qint32>{0, 1, 2, -1, 2, 1, -1, 5}
            << QByteArray("2 7 6 0\n0 -1 0 1 2\n0 1 -1 1 2\n0 -1 -1 0 2\n0 -1 -1 0 1\n"
                          "1 -1 -1 1 5\n1 -1 -1 2 5\n1 -1 1 2 5\n"
                          "0 -1 0 1 2\n0 -1 -1 0 2\n0 -1 -1 0 1\n"
                          "1 -1 -1 1 5\n1 -1 -1 2 5\n1 -1 1 2 5");
        QTest::newRow("the same tetrahedron twice")
            << QList<qint32>{0, 1, 2, 3, 0, 1, 2, 3}
            << QByteArray("2 4 0 0\n0 1 0 1 2\n0 1 1 2 3\n0 1 0 2 3\n0 1 0 1 3");
        // Face 1 1 2 of the first is not a face of the second, which has the points 1 and 2 all the same.
        QTest::newRow("a repeated point finds a tetrahedron without that face")
            << QList<qint32>{1, 1, 2, 3, 2, 1, 4, 5}
            << QByteArray("2 8 7 0\n0 1 1 1 2\n0 -1 1 2 3\n0 -1 1 2 3\n0 -1 1 1 3\n"
                          "1 -1 1 2 4\n1 -1 1 4 5\n1 -1 2 4 5\n1 -1 1 2 5\n"
                          "0 -1 1 2 3\n0 -1 1 2 3\n0 -1 1 1 3\n"
                          "1 -1 1 2 4\n1 -1 1 4 5\n1 -1 2 4 5\n1 -1 1 2 5");
        QTest::newRow("a tetrahedron of one point")
            << QList<qint32>{7, 7, 7, 7}
            << QByteArray("1 4 4 0\n0 -1 7 7 7\n0 -1 7 7 7\n0 -1 7 7 7\n0 -1 7 7 7\n"
                          "0 -1 7 7 7\n0 -1 7 7 7\n0 -1 7 7 7\n0 -1 7 7 7");
    }

    void makesRowsOutOfTetrahedra()
    {
        QFETCH(QList<qint32>, tetrahedra);
        QFETCH(QByteArray, rows);
        QCOMPARE(rowsOf(tetrahedra), rows);
    }

    void makesRowsUnlessBothArraysAreThere()
    {
        QByteArray const expected = written(oneTetrahedron());
        MTModelVMesh withFaces = oneTetrahedron();
        withFaces.numFaces = 1;
        withFaces.faces = support::sharedArray(QList<qint32>{9, 9, 9, 9, 9});
        QCOMPARE(written(withFaces), expected);
        MTModelVMesh withBoundFaces = oneTetrahedron();
        withBoundFaces.numBoundFaces = 1;
        withBoundFaces.boundFaces = support::sharedArray(QList<qint32>{9, 9, 9, 9, 9});
        QCOMPARE(written(withBoundFaces), expected);
    }

    void writesRowsThatAreThereAsTheyAre()
    {
        MTModelVMesh mesh = oneTetrahedron();
        mesh.numPoints = 0;
        mesh.numFaces = 2;
        mesh.faces = support::sharedArray(QList<qint32>{7, -1, 3, 2, 1, -5, 6, 2147483647, 0, 0});
        mesh.numBoundFaces = 1;
        mesh.boundFaces = support::sharedArray(QList<qint32>{9, 8, 7, 6, 5});
        QCOMPARE(written(mesh), QByteArray("# Labeled\n1 2 1 0\n7 -1 3 2 1\n-5 6 2147483647 0 0\n9 8 7 6 5"));
    }

    void writesNoRowsWhereTheArraysAreEmpty()
    {
        MTModelVMesh mesh = oneTetrahedron();
        mesh.numPoints = 0;
        mesh.faces = support::sharedArray(QList<qint32>{});
        mesh.boundFaces = support::sharedArray(QList<qint32>{});
        QCOMPARE(written(mesh), QByteArray("# Labeled\n1 0 0 0"));
    }

    void writesBackWhatWasRead()
    {
        QByteArray const text =
            "# Labeled\n3 2 1 2\n1.000000 2.000000 3.000000\n-1.500000 0.000000 0.250000\n"
            "0 -1 0 1 9\n2 1 5 5 5\n1 -1 4 3 2";
        VMeshFile const file(text);
        MTModelVMeshParser parser(file.path());
        QVERIFY(parser.read());
        QCOMPARE(written(parser.getVMesh()), text);
    }

    void leavesTheMeshAlone()
    {
        MTModelVMesh mesh = oneTetrahedron();
        MTModelVMesh const before = mesh;
        MTModelVMeshWriter writer(mesh);
        writtenBy(writer);
        QVERIFY(support::sameBits(mesh, before));
        QCOMPARE(mesh.points, before.points);
        QVERIFY(mesh.faces.isNull());
    }

    void seesTheMeshAsItIsWhenItWrites()
    {
        MTModelVMesh mesh = oneTetrahedron();
        MTModelVMeshWriter writer(mesh);
        mesh.numPoints = 0;
        mesh.numTetrahedra = 0;
        QCOMPARE(writtenBy(writer), QByteArray("# Labeled\n0 0 0 0"));
    }

    // Rows are never forgotten: shared faces come out again, bound faces twice.
    void addsToItsRowsWhenItWritesAgain()
    {
        MTModelVMesh mesh = support::volumeMesh({}, {0, 1, 2, 3, 1, 2, 3, 4});
        MTModelVMeshWriter writer(mesh);
        QByteArray const first = writtenBy(writer);
        QVERIFY(first.startsWith("# Labeled\n2 7 6 0\n"));
        QByteArray const faces = "\n0 -1 0 1 2\n0 1 1 2 3\n0 -1 0 2 3\n0 -1 0 1 3\n"
                                 "1 -1 2 3 4\n1 -1 1 3 4\n1 -1 1 2 4";
        QByteArray const boundFaces = QByteArray(faces).replace("\n0 1 1 2 3", "");
        QCOMPARE(writtenBy(writer), "# Labeled\n2 14 12 0" + faces + faces + boundFaces + boundFaces);
    }

    void copiesWriteTheSameMesh()
    {
        MTModelVMesh mesh = oneTetrahedron();
        MTModelVMeshWriter writer(mesh);
        MTModelVMeshWriter copy(writer);
        QCOMPARE(writtenBy(copy), writtenBy(writer));
    }

    void truncatesAnOlderFile()
    {
        VMeshFile const file(QByteArray(1000, 'x'));
        MTModelVMesh mesh;
        QVERIFY(MTModelVMeshWriter(mesh).write(file.path()));
        QCOMPARE(contentOf(file.path()), QByteArray("# Labeled\n0 0 0 0"));
    }

    void saysWhenItCannotWrite_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("no folder") << QStringLiteral("/no/such/folder/mesh.vmesh");
        QTest::newRow("a folder") << QDir::tempPath();
        QTest::newRow("no name") << QString();
    }

    void saysWhenItCannotWrite()
    {
        QFETCH(QString, name);
        MTModelVMesh mesh = oneTetrahedron();
        expectWarning("MTModelVMeshWriter : could not open file for writing.");
        QVERIFY(!MTModelVMeshWriter(mesh).write(name));
    }

    void doesNotNoticeAFullDisk()
    {
        if (!QFile::exists(QStringLiteral("/dev/full")))
            QSKIP("needs /dev/full");
        MTModelVMesh mesh = oneTetrahedron();
        QVERIFY(MTModelVMeshWriter(mesh).write(QStringLiteral("/dev/full")));
    }

    // Counts without arrays, which no reader of the file could make sense of.
    void refusesWhatIsNotThere_data()
    {
        QTest::addColumn<int>("points");
        QTest::addColumn<int>("tetrahedra");
        QTest::newRow("no points") << 1 << 0;
        QTest::newRow("no tetrahedra") << 0 << 1;
    }

    void refusesWhatIsNotThere()
    {
        QFETCH(int, points);
        QFETCH(int, tetrahedra);
        MTModelVMesh mesh;
        mesh.numPoints = points;
        mesh.numTetrahedra = tetrahedra;
        QTemporaryDir const folder;
        QString const path = folder.filePath(QStringLiteral("mesh.vmesh"));
        QVERIFY(!MTModelVMeshWriter(mesh).write(path));
        QVERIFY(!QFile::exists(path));
    }

    void refusesMoreTetrahedraThanItWasMadeFor()
    {
        MTModelVMesh mesh = oneTetrahedron();
        MTModelVMeshWriter writer(mesh);
        mesh = support::volumeMesh({}, {0, 1, 2, 3, 1, 2, 3, 4});
        QCOMPARE(writtenBy(writer), QByteArray("not written"));
    }

    void writesNegativeCountsWithoutRows()
    {
        MTModelVMesh mesh;
        mesh.numPoints = -2;
        mesh.numTetrahedra = -3;
        QCOMPARE(written(mesh), QByteArray("# Labeled\n-3 0 0 -2"));
    }

    void knowsThePointsOfATetrahedron()
    {
        MTModelVMesh mesh;
        MTModelVMeshWriter writer(mesh);
        qint32 const tetrahedron[] = {4, -1, 6, 7};
        auto const isPointIn = [&](int point) {
            return (writer.*privateMember(support::IsPointInTetra()))(tetrahedron, point);
        };
        QVERIFY(isPointIn(4) && isPointIn(-1) && isPointIn(6) && isPointIn(7));
        QVERIFY(!isPointIn(5) && !isPointIn(0));
    }

    void readsBackWhatItWrote()
    {
        MTModelVMesh mesh = support::tetrahedralBall(2);
        VMeshFile const file("");
        QVERIFY(MTModelVMeshWriter(mesh).write(file.path()));
        MTModelVMeshParser parser(file.path());
        QVERIFY(parser.read());
        MTModelVMesh const result = parser.getVMesh();
        QCOMPARE(result.numTetrahedra, mesh.numTetrahedra);
        QCOMPARE(result.numBoundFaces, 2 * 6 * 2 * 2);
        QCOMPARE(2 * result.numFaces, 4 * mesh.numTetrahedra + result.numBoundFaces);
        for (int t = 0; t < mesh.numTetrahedra; ++t) {
            QList<qint32> before(mesh.tetrahedra.data() + 4 * t, mesh.tetrahedra.data() + 4 * t + 4);
            QList<qint32> after(result.tetrahedra.data() + 4 * t, result.tetrahedra.data() + 4 * t + 4);
            std::sort(before.begin(), before.end());
            std::sort(after.begin(), after.end());
            QCOMPARE(after, before);
        }
    }
};

QTEST_APPLESS_MAIN(tst_MTModelVMeshWriter)
#include "tst_MTModelVMeshWriter.moc"
