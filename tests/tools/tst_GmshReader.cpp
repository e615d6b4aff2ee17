#include "DamagedMeshers.h"
#include "volume/TetrahedralMesh.h"

#include <QTest>

using namespace Qt::StringLiterals;
using tool::ExitCode;
using tool::Problem;
using tool::volume::readGmsh;
using tool::volume::TetrahedralMesh;

namespace {

QByteArray const format = "$MeshFormat\n2.2 0 8\n$EndMeshFormat\n";
// Numbers with gaps, not ascending.
QByteArray const nodes = "$Nodes\n5\n10 0 0 0\n7 1 0 0\n8 0 1 0\n99 0 0 1\n3 5 5 5\n$EndNodes\n";
QByteArray const tetrahedron = "1 4 2 1 1 10 7 8 99\n";

QByteArray elements(QByteArray const& rows)
{
    return "$Elements\n" + QByteArray::number(rows.count('\n')) + '\n' + rows + "$EndElements\n";
}

} // namespace

class tst_GmshReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tetrahedra()
    {
        TetrahedralMesh mesh;
        QByteArray const rows =
            "1 15 2 1 1 10\n2 1 0 10 7\n" + tetrahedron + "17 2 3 1 1 0 10 7 8\n" + "9 4 0 99 8 7 3\n";
        QVERIFY(!readGmsh(format + nodes + elements(rows), mesh));
        QCOMPARE(mesh.points, (std::vector<float>{0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1, 5, 5, 5}));
        QCOMPARE(mesh.tetrahedra, (std::vector<qint32>{0, 1, 2, 3, 3, 2, 1, 4}));
        QCOMPARE(mesh.leftOut,
                 (std::map<QString, qint64>{{u"points"_s, 1}, {u"lines"_s, 1}, {u"triangles"_s, 1}}));
        QCOMPARE(mesh.curved, 0);
    }

    void cornersOfCurvedTetrahedra()
    {
        QByteArray const many =
            "$Nodes\n10\n1 0 0 0\n2 1 0 0\n3 0 1 0\n4 0 0 1\n5 .5 0 0\n6 .5 .5 0\n7 0 .5 0\n"
            "8 0 0 .5\n9 0 .5 .5\n10 .5 0 .5\n$EndNodes\n";
        TetrahedralMesh mesh;
        QVERIFY(!readGmsh(format + many + elements("1 11 2 1 1 1 2 3 4 5 6 7 8 9 10\n"), mesh));
        QCOMPARE(mesh.tetrahedra, (std::vector<qint32>{0, 1, 2, 3}));
        QCOMPARE(mesh.curved, 1);
        QCOMPARE(mesh.pointCount(), 10);
        QCOMPARE(tool::volume::removeUnusedPoints(mesh), 6);
        QCOMPARE(mesh.points, (std::vector<float>{0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1}));
    }

    void unusedPointsKeepTheOrderOfTheOthers()
    {
        TetrahedralMesh mesh;
        mesh.points = {9, 9, 9, 0, 0, 0, 1, 0, 0, 8, 8, 8, 0, 1, 0, 0, 0, 1};
        mesh.tetrahedra = {5, 1, 4, 2};
        QCOMPARE(tool::volume::removeUnusedPoints(mesh), 2);
        QCOMPARE(mesh.points, (std::vector<float>{0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1}));
        QCOMPARE(mesh.tetrahedra, (std::vector<qint32>{3, 0, 2, 1}));
        QCOMPARE(tool::volume::removeUnusedPoints(mesh), 0);
    }

    void otherSectionsAreSkipped()
    {
        QByteArray const names = "$PhysicalNames\n1\n3 1 \"a $Nodes\"\n$EndPhysicalNames\n";
        QByteArray const data = "$ElementData\n1\n\"q\"\n0\n$EndElementData\n";
        TetrahedralMesh mesh;
        QByteArray const text = format + names + nodes + "\n" + elements(tetrahedron) + data;
        QVERIFY(!readGmsh(text, mesh));
        QCOMPARE(mesh.tetrahedronCount(), 1);
        TetrahedralMesh again;
        QVERIFY(!readGmsh(QByteArray(text).replace('\n', "\r\n"), again));
        QCOMPARE(again.tetrahedra, mesh.tetrahedra);
        QCOMPARE(again.points, mesh.points);
    }

    void problems_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<ExitCode>("code");
        QTest::addColumn<QString>("sentence");
        auto const bad = [](char const* name, QByteArray const& text, QString const& sentence) {
            QTest::newRow(name) << text << ExitCode::Malformed << sentence;
        };
        auto const other = [](char const* name, QByteArray const& text, QString const& sentence) {
            QTest::newRow(name) << text << ExitCode::Unsupported << sentence;
        };
        QByteArray const sound = format + nodes;
        QString const remedy = u"(\"gmsh -save -format msh22 -o OUT.msh IN.msh\" writes that)"_s;
        bad("empty", {}, u"the file ends in line 1: expected \"$MeshFormat\""_s);
        bad("another file", "solid x\n", u"line 1: expected \"$MeshFormat\", found \"solid x\""_s);
        other("version", "$MeshFormat\n4.1 0 8\n$EndMeshFormat\n",
              u"line 2: expected version 2.2 %1, found \"4.1\""_s.arg(remedy));
        other("binary", "$MeshFormat\n2.2 1 8\n\1",
              u"line 2: expected ASCII, \"2.2 0 8\" %1, found \"2.2 1 8\""_s.arg(remedy));
        bad("format of two numbers", "$MeshFormat\n2.2 0\n$EndMeshFormat\n",
            u"line 2: expected three numbers, \"2.2 0 8\", found \"2.2 0\""_s);
        bad("format of words", "$MeshFormat\n2.2 0 x\n$EndMeshFormat\n",
            u"line 2: expected three numbers, \"2.2 0 8\", found \"2.2 0 x\""_s);
        bad("format without an end", "$MeshFormat\n2.2 0 8\n$Nodes\n",
            u"line 3: expected \"$EndMeshFormat\", found \"$Nodes\""_s);
        bad("no nodes", format, u"the file ends in line 4: expected \"$Nodes\""_s);
        bad("no elements", sound, u"the file ends in line 12: expected \"$Elements\""_s);
        bad("elements first", format + elements(tetrahedron),
            u"line 4: expected \"$Nodes\" before \"$Elements\", found \"$Elements\""_s);
        bad("nodes twice", sound + nodes, u"line 12: expected one section \"$Nodes\", found \"$Nodes\""_s);
        bad("elements twice", sound + elements(tetrahedron) + elements(tetrahedron),
            u"line 16: expected one section \"$Elements\", found \"$Elements\""_s);
        bad("no section", sound + "7 8\n",
            u"line 12: expected the beginning of a section, such as \"$Nodes\", found \"7 8\""_s);
        bad("a section without an end", sound + "$Comments\n$Elements\n",
            u"the file ends in line 14: expected \"$EndComments\""_s);
        bad("a count of words", format + "$Nodes\nfive\n",
            u"line 5: expected how many there are, found \"five\""_s);
        bad("a negative count", format + "$Nodes\n-1\n",
            u"line 5: expected how many there are, found \"-1\""_s);
        bad("two counts", format + "$Nodes\n1 2\n", u"line 5: expected how many there are, found \"1 2\""_s);
        bad("too few nodes", QByteArray(sound).replace("\n5\n", "\n6\n"),
            u"line 11: expected node 6 of 6, its number and three coordinates, found \"$EndNodes\""_s);
        bad("too many nodes", QByteArray(sound).replace("\n5\n", "\n4\n"),
            u"line 10: expected \"$EndNodes\", found \"3 5 5 5\""_s);
        bad("a count that nothing can be", QByteArray(sound).replace("\n5\n", "\n9000000000000000000\n"),
            u"line 11: expected node 6 of 9000000000000000000, its number and three coordinates, found "
            "\"$EndNodes\""_s);
        bad("two coordinates", QByteArray(sound).replace("7 1 0 0", "7 1 0"),
            u"line 7: expected node 2 of 5, its number and three coordinates, found \"7 1 0\""_s);
        bad("four coordinates", QByteArray(sound).replace("7 1 0 0", "7 1 0 0 0"),
            u"line 7: expected node 2 of 5, its number and three coordinates, found \"7 1 0 0 0\""_s);
        bad("an infinite coordinate", QByteArray(sound).replace("7 1 0 0", "7 1 inf 0"),
            u"line 7: expected node 2 of 5, its number and three coordinates, found \"7 1 inf 0\""_s);
        bad("node 0", QByteArray(sound).replace("7 1 0 0", "0 1 0 0"),
            u"line 7: expected node 2 of 5, its number and three coordinates, found \"0 1 0 0\""_s);
        bad("the same node twice", QByteArray(sound).replace("7 1 0 0", "99 1 0 0"),
            u"two nodes have the number 99"_s);
        QString const shape = u"its number, type, number of tags, tags and nodes"_s;
        bad("a node too few", sound + elements("1 4 2 1 1 10 7 8\n"),
            u"line 14: expected element 1 of 1, %1, found \"1 4 2 1 1 10 7 8\""_s.arg(shape));
        bad("a node too many", sound + elements("1 4 2 1 1 10 7 8 99 3\n"),
            u"line 14: expected element 1 of 1, %1, found \"1 4 2 1 1 10 7 8 99 3\""_s.arg(shape));
        bad("an element of words", sound + elements("1 4 2 1 1 10 7 8 x\n"),
            u"line 14: expected element 1 of 1, %1, found \"1 4 2 1 1 10 7 8 x\""_s.arg(shape));
        bad("negative tags", sound + elements("1 4 -2 10 7\n"),
            u"line 14: expected element 1 of 1, %1, found \"1 4 -2 10 7\""_s.arg(shape));
        bad("tags that nothing can be", sound + elements("1 4 9223372036854775807 10 7\n"),
            u"line 14: expected element 1 of 1, %1, found \"1 4 9223372036854775807 10 7\""_s.arg(shape));
        bad("a line without an end", sound + elements("1 4 2" + QByteArray(" 1").repeated(300) + '\n'),
            u"line 14: expected element 1 of 1, %1, found \"1 4 2%2\""_s.arg(shape,
                                                                             u" 1"_s.repeated(30).left(55)));
        bad("too few elements", sound + "$Elements\n2\n" + tetrahedron + "$EndElements\n",
            u"line 15: expected element 2 of 2, %1, found \"$EndElements\""_s.arg(shape));
        bad("cut", sound + "$Elements\n2\n" + tetrahedron,
            u"the file ends in line 15: expected element 2 of 2, %1"_s.arg(shape));
        bad("a node that is not there", sound + elements("1 4 0 10 7 8 9\n"),
            u"line 14: a tetrahedron refers to node 9, which is not there"_s);
        bad("a node twice", sound + elements("1 4 0 10 7 8 7\n"),
            u"line 14: a tetrahedron has node 7 twice"_s);
        other("hexahedra", sound + elements("1 5 0 1 2 3 4 5 6 7 8\n"),
              u"line 14: hexahedra are not read, only tetrahedra"_s);
        other("an element that is not known", sound + elements("1 92 0 1 2\n"),
              u"line 14: elements of the type 92 are not known"_s);
        other("a surface", sound + elements("1 2 0 10 7 8\n"), u"holds no tetrahedra"_s);
    }

    void problems()
    {
        QFETCH(QByteArray, text);
        TetrahedralMesh mesh;
        Problem const problem = readGmsh(text, mesh);
        QTEST(problem.sentence, "sentence");
        QTEST(problem.code, "code");
    }

    void damagedAnywhere()
    {
        QByteArray const text =
            format + nodes + elements("3 2 0 10 7 8\n" + tetrahedron + "2 4 0 3 7 8 99\n");
        verifyDamagedAnywhere(text, readGmsh);
    }

    // Nothing else than a problem or sound tetrahedra comes out of a file that was cut anywhere.
    void cutAnywhere()
    {
        QByteArray const text = format + nodes + elements(tetrahedron);
        verifyCutAnywhere(text, text.size() - 1, readGmsh);
    }
};

QTEST_GUILESS_MAIN(tst_GmshReader)
#include "tst_GmshReader.moc"
