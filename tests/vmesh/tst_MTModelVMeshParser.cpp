#include "VMeshFile.h"
#include "support/VolumeMeshes.h"

#include <QDir>

#include <type_traits>

static_assert(std::has_virtual_destructor_v<MTModelVMeshParser>);
static_assert(std::is_copy_constructible_v<MTModelVMeshParser> &&
              std::is_copy_assignable_v<MTModelVMeshParser>);

namespace {

// Two tetrahedra that share the face 1 2 3, with all seven faces and six bound faces.
QByteArray const twoTetrahedra = "# Labeled\n"
                                 "2 7 6 5\n"
                                 "0 0 0\n1 0 0\n0 1 0\n0 0 1\n1.25 -2.5 1e2\n"
                                 "0 -1 0 1 2\n0 1 1 2 3\n0 -1 0 2 3\n0 -1 0 1 3\n"
                                 "1 -1 2 3 4\n1 -1 1 3 4\n1 -1 1 2 4\n"
                                 "0 -1 0 1 2\n0 -1 0 2 3\n0 -1 0 1 3\n1 -1 2 3 4\n1 -1 1 3 4\n1 -1 1 2 4";

void compareWithTwoTetrahedra(MTModelVMesh const& mesh)
{
    QCOMPARE(mesh.numTetrahedra, 2);
    QCOMPARE(mesh.numFaces, 7);
    QCOMPARE(mesh.numBoundFaces, 6);
    QCOMPARE(mesh.numPoints, 5);
    QCOMPARE(support::valuesOf(mesh.points, 15),
             (QList<float>{0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1, 1.25f, -2.5f, 100}));
    QCOMPARE(support::valuesOf(mesh.faces, 35),
             (QList<qint32>{0, -1, 0, 1,  2, 0, 1, 1, 2,  3, 0, -1, 0, 2,  3, 0, -1, 0,
                            1, 3,  1, -1, 2, 3, 4, 1, -1, 1, 3, 4,  1, -1, 1, 2, 4}));
    QCOMPARE(support::valuesOf(mesh.tetrahedra, 8), (QList<qint32>{0, 1, 2, 3, 1, 2, 3, 4}));
    QCOMPARE(support::valuesOf(mesh.triangles, 28),
             (QList<qint32>{0, 1,  2, -1, 1, 2,  3, -1, 0, 2,  3, -1, 0, 1,
                            3, -1, 2, 3,  4, -1, 1, 3,  4, -1, 1, 2,  4, -1}));
    QCOMPARE(support::valuesOf(mesh.boundFaces, 30),
             (QList<qint32>{0, -1, 0, 1, 2, 0, -1, 0, 2, 3, 0, -1, 0, 1, 3,
                            1, -1, 2, 3, 4, 1, -1, 1, 3, 4, 1, -1, 1, 2, 4}));
}

} // namespace

class tst_MTModelVMeshParser : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isEmptyAtFirst()
    {
        MTModelVMeshParser const parser(QStringLiteral("anything"));
        QVERIFY(isEmpty(parser.getVMesh()));
    }

    void readsAMesh_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QByteArray const windows = QByteArray(twoTetrahedra).replace("\n", "\r\n");
        QTest::newRow("lf, no line end after the last line") << twoTetrahedra;
        QTest::newRow("lf, a line end after the last line") << twoTetrahedra + "\n";
        QTest::newRow("crlf, no line end after the last line") << windows;
        QTest::newRow("crlf, a line end after the last line") << windows + "\r\n";
        QTest::newRow("a carriage return at the very end") << twoTetrahedra + "\r";
        QTest::newRow("mixed line ends")
            << QByteArray(windows).replace(20, 30, windows.mid(20, 30).replace("\r", ""));
        QTest::newRow("more lines") << twoTetrahedra + "\nignored\n\n1 2 3 4 5 6\n\xff\xfe";
        QTest::newRow("a blank line behind") << twoTetrahedra + "\n\nmore\n";
        QTest::newRow("utf-8 with a byte order mark") << "\xef\xbb\xbf" + twoTetrahedra;
    }

    void readsAMesh()
    {
        QFETCH(QByteArray, bytes);
        VMeshFile const file(bytes);
        MTModelVMeshParser parser(file.path());
        QVERIFY(parser.read());
        compareWithTwoTetrahedra(parser.getVMesh());
    }

    void readsUtf16()
    {
        QString const text = QString::fromLatin1(twoTetrahedra);
        QStringEncoder encoder(QStringConverter::Utf16LE, QStringConverter::Flag::WriteBom);
        QByteArray const bytes = encoder(text);
        VMeshFile const file(bytes);
        MTModelVMeshParser parser(file.path());
        QVERIFY(parser.read());
        compareWithTwoTetrahedra(parser.getVMesh());
    }

    void readsNothingAtAll_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("without a line end") << QByteArray("# Labeled\n0 0 0 0");
        QTest::newRow("with a line end") << QByteArray("# Labeled\n0 0 0 0\n");
    }

    void readsNothingAtAll()
    {
        QFETCH(QByteArray, bytes);
        VMeshFile const file(bytes);
        MTModelVMeshParser parser(file.path());
        QVERIFY(parser.read());
        MTModelVMesh const mesh = parser.getVMesh();
        QCOMPARE(mesh.numTetrahedra + mesh.numFaces + mesh.numBoundFaces + mesh.numPoints, 0);
        QVERIFY(!mesh.points.isNull() && !mesh.faces.isNull() && !mesh.tetrahedra.isNull());
        QVERIFY(!mesh.triangles.isNull() && !mesh.boundFaces.isNull());
    }

    void saysWhyThereIsNothingToRead_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("message");
        QTest::newRow("no name") << QString() << QByteArray("file name not filled in.");
        QTest::newRow("empty name") << QStringLiteral("") << QByteArray("file name not filled in.");
        QTest::newRow("missing") << QStringLiteral("/no/such/mesh.vmesh")
                                 << QByteArray("file does not exist.");
        QTest::newRow("a folder") << QDir::tempPath() << QByteArray("could not open file for reading.");
    }

    void saysWhyThereIsNothingToRead()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, message);
        MTModelVMeshParser parser(name);
        expectWarning("MTModelVMeshParser : " + message);
        QVERIFY(!parser.read());
        QVERIFY(isEmpty(parser.getVMesh()));
    }

    void keepsTheOldResultWhenThereIsNothingToRead()
    {
        VMeshFile const file(twoTetrahedra);
        MTModelVMeshParser parser(file.path());
        QVERIFY(parser.read());
        QVERIFY(QFile::remove(file.path()));
        expectWarning("MTModelVMeshParser : file does not exist.");
        QVERIFY(!parser.read());
        compareWithTwoTetrahedra(parser.getVMesh());
    }

    void isEmptyAfterABadLine()
    {
        VMeshFile file(twoTetrahedra);
        MTModelVMeshParser parser(file.path());
        QVERIFY(parser.read());
        file.write("# Labeled\n1 1 1 1\n0 0 0\n0 -1 0 1\n");
        expectBadLine(4);
        QVERIFY(!parser.read());
        QVERIFY(isEmpty(parser.getVMesh()));
    }

    void readsAgainFromTheStart()
    {
        VMeshFile const file(twoTetrahedra);
        MTModelVMeshParser parser(file.path());
        QVERIFY(parser.read());
        QVERIFY(parser.read());
        compareWithTwoTetrahedra(parser.getVMesh());
    }

    void readsAfterAFailure()
    {
        VMeshFile file("# Labeled\n1 1 1 1\n0 0 0\n0 -1 0 1 2\n");
        MTModelVMeshParser parser(file.path());
        expectBadLine(5);
        QVERIFY(!parser.read());
        file.write(twoTetrahedra);
        QVERIFY(parser.read());
        compareWithTwoTetrahedra(parser.getVMesh());
    }

    void sharesItsArrays()
    {
        VMeshFile const file(twoTetrahedra);
        MTModelVMeshParser parser(file.path());
        QVERIFY(parser.read());
        QCOMPARE(parser.getVMesh().points, parser.getVMesh().points);
        QCOMPARE(parser.getVMesh().faces, parser.getVMesh().faces);
        QCOMPARE(parser.getVMesh().tetrahedra, parser.getVMesh().tetrahedra);
        QCOMPARE(parser.getVMesh().triangles, parser.getVMesh().triangles);
        QCOMPARE(parser.getVMesh().boundFaces, parser.getVMesh().boundFaces);
    }

    void leavesOldArraysToTheirHolders()
    {
        VMeshFile file(twoTetrahedra);
        MTModelVMeshParser parser(file.path());
        QVERIFY(parser.read());
        MTModelVMesh const kept = parser.getVMesh();
        file.write("# Labeled\n0 0 0 1\n7 7 7");
        QVERIFY(parser.read());
        QCOMPARE(support::valuesOf(parser.getVMesh().points, 3), (QList<float>{7, 7, 7}));
        compareWithTwoTetrahedra(kept);
    }

    void isCopiedWithItsResult()
    {
        VMeshFile file(twoTetrahedra);
        MTModelVMeshParser parser(file.path());
        QVERIFY(parser.read());
        MTModelVMeshParser copy(parser);
        QCOMPARE(copy.getVMesh().points, parser.getVMesh().points);
        MTModelVMeshParser assigned(QStringLiteral("other"));
        assigned = parser;
        QCOMPARE(assigned.getVMesh().faces, parser.getVMesh().faces);
        compareWithTwoTetrahedra(assigned.getVMesh());
        file.write("# Labeled\n0 0 0 0"); // the name was copied too
        QVERIFY(copy.read());
        QCOMPARE(copy.getVMesh().numPoints, 0);
        compareWithTwoTetrahedra(parser.getVMesh());
    }

    void readsABigMeshBitForBit()
    {
        MTModelVMesh expected = support::tetrahedralBall(6);
        QList<qint32> rows;
        for (int t = 0; t < expected.numTetrahedra; ++t) {
            qint32 const* const p = expected.tetrahedra.data() + 4 * t;
            rows << t << -1 << p[0] << p[1] << p[2] << t << -1 << p[1] << p[2] << p[3];
        }
        expected.numFaces = static_cast<qint32>(rows.size() / 5);
        expected.faces = support::sharedArray(rows);
        expected.numBoundFaces = 3;
        expected.boundFaces = support::sharedArray(rows.first(15));
        QList<qint32> triangles;
        for (qsizetype i = 0; i < rows.size(); i += 5)
            triangles << rows[i + 2] << rows[i + 3] << rows[i + 4] << -1;
        expected.triangles = support::sharedArray(triangles);

        VMeshFile const file(support::vmeshText(expected));
        MTModelVMeshParser parser(file.path());
        QVERIFY(parser.read());
        QVERIFY(support::sameBits(parser.getVMesh(), expected));
    }
};

QTEST_APPLESS_MAIN(tst_MTModelVMeshParser)
#include "tst_MTModelVMeshParser.moc"
