#include "VMeshFile.h"
#include "support/PrivateAccess.h"
#include "support/VolumeMeshes.h"

namespace support {

struct ParseLine
{
    using Member = bool (MTModelVMeshParser::*)(QString const&, qint64);
    friend Member privateMember(ParseLine);
};
template struct PrivateMember<ParseLine, &MTModelVMeshParser::parseLine>;

struct ReadTriangle
{
    using Member = void (MTModelVMeshParser::*)(qint32, qint32, qint32, qint32, qint32);
    friend Member privateMember(ReadTriangle);
};
template struct PrivateMember<ReadTriangle, &MTModelVMeshParser::readTriangle>;

} // namespace support

namespace {

constexpr qint32 lowest = std::numeric_limits<qint32>::min();

// The tetrahedra that `count` of them become by the face rows.
QList<qint32> tetrahedraOf(int count, QByteArrayList const& rows)
{
    VMeshFile const file("# Labeled\n" + QByteArray::number(count) + " " + QByteArray::number(rows.size()) +
                         " 0 0\n" + rows.join('\n'));
    MTModelVMeshParser parser(file.path());
    return parser.read() ? support::valuesOf(parser.getVMesh().tetrahedra, 4 * count) : QList<qint32>{-99};
}

bool parseLine(MTModelVMeshParser& parser, QString const& line, qint64 number)
{
    return (parser.*privateMember(support::ParseLine()))(line, number);
}

} // namespace

class tst_MTModelVMeshParserTetrahedra : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void putsTetrahedraTogether_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<QByteArrayList>("rows");
        QTest::addColumn<QList<qint32>>("tetrahedra");
        using Rows = QByteArrayList;
        using Slots = QList<qint32>;
        QTest::newRow("no face") << 2 << Rows{} << Slots(8, -1);
        QTest::newRow("one face, first side") << 1 << Rows{"0 -1 1 2 3"} << Slots{1, 2, 3, -1};
        QTest::newRow("one face, second side") << 1 << Rows{"-1 0 1 2 3"} << Slots{1, 2, 3, -1};
        QTest::newRow("no tetrahedron on either side") << 1 << Rows{"-1 -1 1 2 3"} << Slots(4, -1);
        QTest::newRow("a very negative tetrahedron")
            << 1 << Rows{QByteArray::number(lowest) + " -2 1 2 3"} << Slots(4, -1);
        QTest::newRow("two faces") << 1 << Rows{"0 -1 0 1 2", "0 -1 1 2 3"} << Slots{0, 1, 2, 3};
        QTest::newRow("a third face changes nothing")
            << 1 << Rows{"0 -1 0 1 2", "0 -1 1 2 3", "0 -1 0 1 3"} << Slots{0, 1, 2, 3};
        QTest::newRow("a third face with a new point changes nothing")
            << 1 << Rows{"0 -1 0 1 2", "0 -1 1 2 3", "0 -1 7 8 9"} << Slots{0, 1, 2, 3};
        QTest::newRow("the order of the first face stays")
            << 1 << Rows{"0 -1 5 4 9", "0 -1 9 4 1"} << Slots{5, 4, 9, 1};
        QTest::newRow("the same face twice leaves a gap")
            << 1 << Rows{"0 -1 0 1 2", "0 -1 2 0 1"} << Slots{0, 1, 2, -1};
        QTest::newRow("the gap is filled later")
            << 1 << Rows{"0 -1 0 1 2", "0 -1 2 0 1", "0 -1 0 1 6"} << Slots{0, 1, 2, 6};
        QTest::newRow("of two new points the last wins")
            << 1 << Rows{"0 -1 0 1 2", "0 -1 7 0 8"} << Slots{0, 1, 2, 8};
        QTest::newRow("of three new points the last wins")
            << 1 << Rows{"0 -1 0 1 2", "0 -1 7 8 9"} << Slots{0, 1, 2, 9};
        QTest::newRow("a new point before known ones")
            << 1 << Rows{"0 -1 0 1 2", "0 -1 7 0 1"} << Slots{0, 1, 2, 7};
        QTest::newRow("both sides") << 2 << Rows{"0 1 0 1 2", "0 -1 0 1 3", "1 -1 2 1 4"}
                                    << Slots{0, 1, 2, 3, 0, 1, 2, 4};
        QTest::newRow("both sides the same") << 1 << Rows{"0 0 0 1 2", "0 0 5 6 7"} << Slots{0, 1, 2, 7};
        QTest::newRow("points need not exist")
            << 1 << Rows{"0 -1 99 -5 2147483647"} << Slots{99, -5, 2147483647, -1};
        QTest::newRow("a face that starts with -1 leaves the tetrahedron unseen")
            << 1 << Rows{"0 -1 -1 1 2", "0 -1 3 4 5"} << Slots{3, 4, 5, -1};
        QTest::newRow("a face of -1 behind a first one is no new point")
            << 1 << Rows{"0 -1 0 1 2", "0 -1 -1 -1 -1"} << Slots{0, 1, 2, -1};
        QTest::newRow("just beyond the last tetrahedron") << 1 << Rows{"1 -1 1 2 3"} << Slots(4, -1);
        QTest::newRow("far beyond the last tetrahedron")
            << 1 << Rows{"2147483647 536870912 1 2 3", "0 1073741824 4 5 6"} << Slots{4, 5, 6, -1};
        QTest::newRow("no tetrahedra at all") << 0 << Rows{"0 1 1 2 3"} << Slots{};
    }

    void putsTetrahedraTogether()
    {
        QFETCH(int, count);
        QFETCH(QByteArrayList, rows);
        QFETCH(QList<qint32>, tetrahedra);
        QCOMPARE(tetrahedraOf(count, rows), tetrahedra);
    }

    void keepsRowsOfTetrahedraThatAreNotThere()
    {
        VMeshFile const file("# Labeled\n1 1 1 0\n5 9 1 2 3\n8 -1 4 5 6\n");
        MTModelVMeshParser parser(file.path());
        QVERIFY(parser.read());
        MTModelVMesh const mesh = parser.getVMesh();
        QCOMPARE(support::valuesOf(mesh.faces, 5), (QList<qint32>{5, 9, 1, 2, 3}));
        QCOMPARE(support::valuesOf(mesh.triangles, 4), (QList<qint32>{1, 2, 3, -1}));
        QCOMPARE(support::valuesOf(mesh.boundFaces, 5), (QList<qint32>{8, -1, 4, 5, 6}));
    }

    void boundFacesTouchNothingElse()
    {
        VMeshFile const file("# Labeled\n1 0 2 0\n0 -1 1 2 3\n0 -1 2 3 4\n");
        MTModelVMeshParser parser(file.path());
        QVERIFY(parser.read());
        QCOMPARE(support::valuesOf(parser.getVMesh().tetrahedra, 4), QList<qint32>(4, -1));
        QCOMPARE(parser.getVMesh().numFaces, 0);
    }

    void boundFacesAreKeptAsTheyStand()
    {
        VMeshFile const file("# Labeled\n0 0 1 0\n-7 4 3 2 -1\n");
        MTModelVMeshParser parser(file.path());
        QVERIFY(parser.read());
        QCOMPARE(support::valuesOf(parser.getVMesh().boundFaces, 5), (QList<qint32>{-7, 4, 3, 2, -1}));
    }

    void parsesLinesByTheirNumber()
    {
        MTModelVMeshParser parser((QString()));
        QVERIFY(parseLine(parser, QStringLiteral("7 7 7 7 7"), 3)); // no sizes yet: ignored
        QVERIFY(parseLine(parser, QStringLiteral("# Labeled"), 1));
        QVERIFY(parseLine(parser, QStringLiteral("1 1 1 1"), 2));
        QVERIFY(parseLine(parser, QStringLiteral("1 2 3"), 3));
        QVERIFY(!parseLine(parser, QStringLiteral("1 2 3"), 4));
        QVERIFY(parseLine(parser, QStringLiteral("0 -1 0 1 2"), 4));
        QVERIFY(parseLine(parser, QStringLiteral("0 -1 3 4 5"), 5));
        QVERIFY(parseLine(parser, QStringLiteral("anything"), 6));
        QVERIFY(parseLine(parser, QString(), 7));
        MTModelVMesh const mesh = parser.getVMesh();
        QCOMPARE(support::valuesOf(mesh.points, 3), (QList<float>{1, 2, 3}));
        QCOMPARE(support::valuesOf(mesh.tetrahedra, 4), (QList<qint32>{0, 1, 2, -1}));
        QCOMPARE(support::valuesOf(mesh.boundFaces, 5), (QList<qint32>{0, -1, 3, 4, 5}));
    }

    void arraysStartWithTheirFill()
    {
        MTModelVMeshParser parser((QString()));
        QVERIFY(parseLine(parser, QStringLiteral("1 1 1 1"), 2));
        MTModelVMesh const mesh = parser.getVMesh();
        QCOMPARE(support::valuesOf(mesh.points, 3), QList<float>(3, 0));
        QCOMPARE(support::valuesOf(mesh.faces, 5), QList<qint32>(5, 0));
        QCOMPARE(support::valuesOf(mesh.tetrahedra, 4), QList<qint32>(4, -1));
        QCOMPARE(support::valuesOf(mesh.triangles, 4), QList<qint32>(4, -1));
        QCOMPARE(support::valuesOf(mesh.boundFaces, 5), QList<qint32>(5, -1));
    }

    // The slot of a triangle is that of the running counter.
    void trianglesGoWhereTheCounterIs()
    {
        MTModelVMeshParser parser((QString()));
        QVERIFY(parseLine(parser, QStringLiteral("0 2 0 0"), 2));
        (parser.*privateMember(support::ReadTriangle()))(11, 12, 1, 2, 3);
        QVERIFY(parseLine(parser, QStringLiteral("0 1 4 5 6"), 3));
        QCOMPARE(support::valuesOf(parser.getVMesh().triangles, 8),
                 (QList<qint32>{1, 2, 3, -1, 4, 5, 6, -1}));
        QCOMPARE(support::valuesOf(parser.getVMesh().faces, 5), (QList<qint32>{0, 1, 4, 5, 6}));
    }
};

QTEST_APPLESS_MAIN(tst_MTModelVMeshParserTetrahedra)
#include "tst_MTModelVMeshParserTetrahedra.moc"
