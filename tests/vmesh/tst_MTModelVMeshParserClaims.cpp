#include "VMeshFile.h"
#include "support/PrivateAccess.h"
#include "support/VolumeMeshes.h"

#include <QProcess>
#include <QStandardPaths>

namespace support {

struct ParseLine
{
    using Member = bool (MTModelVMeshParser::*)(QString const&, qint64);
    friend Member privateMember(ParseLine);
};
template struct PrivateMember<ParseLine, &MTModelVMeshParser::parseLine>;

} // namespace support

namespace {

bool parseLine(MTModelVMeshParser& parser, QString const& line, qint64 number)
{
    return (parser.*privateMember(support::ParseLine()))(line, number);
}

QByteArray const manyPoints = [] {
    QByteArray text;
    for (int k = 0; k < 10000; ++k)
        text += QByteArray::number(k) + " 0 0\n";
    return text;
}();

} // namespace

/// Counts are claims: nothing is believed that is not there.
class tst_MTModelVMeshParserClaims : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void refusesSizes_data()
    {
        QTest::addColumn<QByteArray>("sizes");
        QTest::newRow("negative tetrahedra") << QByteArray("-1 0 0 0");
        QTest::newRow("negative faces") << QByteArray("0 -1 0 0");
        QTest::newRow("negative bound faces") << QByteArray("0 0 -1 0");
        QTest::newRow("negative points") << QByteArray("0 0 0 -1");
        QTest::newRow("lowest") << QByteArray("0 0 0 -2147483648");
        QTest::newRow("all negative") << QByteArray("-1 -1 -1 -1");
        QTest::newRow("tetrahedra out of all proportion") << QByteArray("2147483647 0 0 0");
        // The file has 26 bytes, so that 4 * 26 tetrahedra may come on top of the 64 MiB.
        QTest::newRow("one tetrahedron more than credible") << QByteArray("4194409 0 0 0\n");
    }

    void refusesSizes()
    {
        QFETCH(QByteArray, sizes);
        VMeshFile const file("# Labeled\n" + sizes);
        MTModelVMeshParser parser(file.path());
        expectBadLine(2);
        QVERIFY(!parser.read());
        QVERIFY(isEmpty(parser.getVMesh()));
    }

    void believesAsManyTetrahedraAsTheFileIsLarge()
    {
        QByteArray const bytes = "# Labeled\n4194400 0 0 0\n"; // 24 bytes
        VMeshFile const file(bytes);
        MTModelVMeshParser parser(file.path());
        QCOMPARE(64 * 1024 * 1024 / 16 + 4 * bytes.size(), 4194400);
        QVERIFY(parser.read());
        MTModelVMesh const mesh = parser.getVMesh();
        QCOMPARE(mesh.numTetrahedra, 4194400);
        QCOMPARE(mesh.tetrahedra.data()[4 * 4194400 - 1], -1);
        VMeshFile const larger("# Labeled\n4194401 0 0 0\n");
        expectBadLine(2);
        QVERIFY(!MTModelVMeshParser(larger.path()).read());
    }

    void endsBehindTheLastLine_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("line");
        QTest::newRow("no point of very many") << QByteArray("# Labeled\n0 0 0 2147483647\n") << 3;
        QTest::newRow("no face of very many") << QByteArray("# Labeled\n0 2147483647 0 0\n") << 3;
        QTest::newRow("no bound face of very many") << QByteArray("# Labeled\n0 0 2147483647 0\n") << 3;
        QTest::newRow("everything") << QByteArray("# Labeled\n4000000 2147483647 2147483647 2147483647\n")
                                    << 3;
        QTest::newRow("two points") << QByteArray("# Labeled\n0 0 0 1431655766\n1 2 3\n4 5 6") << 5;
        QTest::newRow("three faces") << QByteArray(
                                            "# Labeled\n1 858993460 0 0\n0 0 1 2 3\n0 0 1 2 3\n0 0 1 2 3")
                                     << 6;
        QTest::newRow("a bound face") << QByteArray("# Labeled\n0 0 858993460 0\n0 0 1 2 3") << 4;
        QTest::newRow("many points") << QByteArray("# Labeled\n0 0 0 2000000000\n") + manyPoints << 10003;
        QTest::newRow("a bad line before that") << QByteArray("# Labeled\n0 0 0 2000000000\n1 2 3\n4 5") << 4;
    }

    void endsBehindTheLastLine()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(int, line);
        VMeshFile const file(bytes);
        MTModelVMeshParser parser(file.path());
        expectBadLine(line);
        QVERIFY(!parser.read());
        QVERIFY(isEmpty(parser.getVMesh()));
    }

    // The counts end in a sum beyond 32 bits; no section may begin in another.
    void keepsSectionsApart()
    {
        MTModelVMeshParser parser((QString()));
        QVERIFY(parseLine(parser, QStringLiteral("0 2147483647 2147483647 2147483647"), 2));
        QVERIFY(!parseLine(parser, QStringLiteral("0 0 0 0"), 3));
        QVERIFY(parseLine(parser, QStringLiteral("0 0 0"), 3));
        QVERIFY(!parseLine(parser, QStringLiteral("0 0"), 2147483649));
        QVERIFY(!parseLine(parser, QStringLiteral("0 0 0"), 2147483650));
        QVERIFY(!parseLine(parser, QStringLiteral("0 0 0"), 6442450943));
        QVERIFY(parseLine(parser, QStringLiteral("0 0 0"), 6442450944));
    }

    // As for a file whose size says nothing: room is made as rows come, and is exact in the end.
    void growsWithTheRows()
    {
        constexpr int count = 20001;
        MTModelVMeshParser parser((QString()));
        QVERIFY(parseLine(parser, QStringLiteral("1 %1 %1 %1").arg(count), 2));
        for (int k = 0; k < count; ++k)
            QVERIFY(parseLine(parser, QStringLiteral("%1 0 -1").arg(k), 3 + k));
        for (int k = 0; k < count; ++k)
            QVERIFY(parseLine(parser, QStringLiteral("-1 -1 %1 1 2").arg(k), 3 + count + k));
        for (int k = 0; k < count; ++k)
            QVERIFY(parseLine(parser, QStringLiteral("-1 -1 %1 3 4").arg(k), 3 + 2 * count + k));
        MTModelVMesh const mesh = parser.getVMesh();
        for (int k = 0; k < count; ++k) {
            QCOMPARE(QList<float>(mesh.points.data() + 3 * k, mesh.points.data() + 3 * k + 3),
                     (QList<float>{static_cast<float>(k), 0, -1}));
            QCOMPARE(QList<qint32>(mesh.faces.data() + 5 * k, mesh.faces.data() + 5 * k + 5),
                     (QList<qint32>{-1, -1, k, 1, 2}));
            QCOMPARE(QList<qint32>(mesh.triangles.data() + 4 * k, mesh.triangles.data() + 4 * k + 4),
                     (QList<qint32>{k, 1, 2, -1}));
            QCOMPARE(QList<qint32>(mesh.boundFaces.data() + 5 * k, mesh.boundFaces.data() + 5 * k + 5),
                     (QList<qint32>{-1, -1, k, 3, 4}));
        }
    }

    // A pipe has no size.
    void readsAPipe()
    {
        QString const mkfifo = QStandardPaths::findExecutable(QStringLiteral("mkfifo"));
        if (mkfifo.isEmpty())
            QSKIP("needs mkfifo");
        VMeshFile const file("# Labeled\n0 0 0 10000\n" + manyPoints);
        QTemporaryDir const folder;
        QString const pipe = folder.filePath(QStringLiteral("pipe"));
        QCOMPARE(QProcess::execute(mkfifo, {pipe}), 0);
        QProcess cat;
        cat.start(QStringLiteral("sh"),
                  {QStringLiteral("-c"), QStringLiteral("cat \"$0\" > \"$1\""), file.path(), pipe});
        MTModelVMeshParser parser(pipe);
        QVERIFY(parser.read());
        QVERIFY(cat.waitForFinished());
        QCOMPARE(parser.getVMesh().numPoints, 10000);
        QCOMPARE(parser.getVMesh().points.data()[3 * 9999], 9999.0f);
    }

    void readsALongLine()
    {
        VMeshFile const file("# Labeled\n0 0 0 1\n1 " + QByteArray(1000000, '\t') + "2 " +
                             QByteArray(1000000, '0') + "3");
        MTModelVMeshParser parser(file.path());
        QVERIFY(parser.read());
        QCOMPARE(support::valuesOf(parser.getVMesh().points, 3), (QList<float>{1, 2, 3}));
    }
};

QTEST_GUILESS_MAIN(tst_MTModelVMeshParserClaims)
#include "tst_MTModelVMeshParserClaims.moc"
