#include "DamagedMeshers.h"
#include "volume/TetrahedralMesh.h"

#include <QTest>

using namespace Qt::StringLiterals;
using tool::ExitCode;
using tool::Problem;
using tool::volume::readVtk;
using tool::volume::TetrahedralMesh;

namespace {

QByteArray const header = "# vtk DataFile Version 2.0\nBINARY title\nASCII\nDATASET UNSTRUCTURED_GRID\n";
QByteArray const points = "POINTS 5 float\n0 0 0 1 0 0\n0 1 0\n0 0 1 5 5 5\n";
QByteArray const cells = "CELLS 2 9\n3 0 1 2\n4 0 1 2 3\nCELL_TYPES 2\n5\n10\n";
QByteArray const newCells =
    "CELLS 3 7\nOFFSETS vtktypeint64\n0 3 7\nCONNECTIVITY vtktypeint64\n0 1 2\n0 1 2 3\n"
    "CELL_TYPES 2\n5\n10\n";

} // namespace

class tst_VtkReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tetrahedra_data()
    {
        QTest::addColumn<QByteArray>("text");
        QByteArray const field =
            "FIELD FieldData 2\na 2 2 double\n1 2 3 4\nMETADATA\nINFORMATION 0\n\nb 1 1 int\n7\n";
        QByteArray const metadata = "METADATA\nINFORMATION 1\nNAME POINTS LOCATION vtkDataArray\nDATA mm\n\n";
        QTest::newRow("version 2.0") << header + points + cells;
        QTest::newRow("version 5.1") << header + points + newCells;
        QTest::newRow("carriage returns") << QByteArray(header + points + cells).replace('\n', "\r\n");
        QTest::newRow("one line for all numbers")
            << header + QByteArray(points + cells).replace('\n', ' ').replace("CELL", "\nCELL");
        QTest::newRow("fields and metadata")
            << header + field + points + metadata + newCells + field + metadata;
        QTest::newRow("data") << header + points + cells + "CELL_DATA 2\nSCALARS x int\nnonsense";
        QTest::newRow("no title") << QByteArray(header).replace("BINARY title", "") + points + cells;
    }

    void tetrahedra()
    {
        QFETCH(QByteArray, text);
        TetrahedralMesh mesh;
        QCOMPARE(readVtk(text, mesh).sentence, QString());
        QCOMPARE(mesh.points, (std::vector<float>{0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1, 5, 5, 5}));
        QCOMPARE(mesh.tetrahedra, (std::vector<qint32>{0, 1, 2, 3}));
        QCOMPARE(mesh.leftOut, (std::map<QString, qint64>{{u"triangles"_s, 1}}));
        QCOMPARE(mesh.curved, 0);
    }

    void cornersOfCurvedTetrahedra_data()
    {
        QTest::addColumn<QByteArray>("type");
        QTest::newRow("quadratic") << QByteArray("24");
        QTest::newRow("of any order") << QByteArray("71");
    }

    void cornersOfCurvedTetrahedra()
    {
        QFETCH(QByteArray, type);
        TetrahedralMesh mesh;
        QCOMPARE(readVtk(header + points + "CELLS 1 11\n10 4 1 2 3 0 0 0 0 0 0\nCELL_TYPES 1\n" + type + '\n',
                         mesh)
                     .sentence,
                 QString());
        QCOMPARE(mesh.tetrahedra, (std::vector<qint32>{4, 1, 2, 3}));
        QCOMPARE(mesh.curved, 1);
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
        QByteArray const sound = header + points;
        QByteArray const types = "CELL_TYPES 1\n10\n";
        bad("empty", {}, u"the file ends in line 1: expected \"# vtk DataFile Version\" and a number"_s);
        bad("another file", "solid x\n",
            u"line 1: expected \"# vtk DataFile Version\" and a number, found \"solid x\""_s);
        bad("header only", "# vtk DataFile Version 2.0\n", u"the file ends in line 2: expected ASCII"_s);
        bad("no encoding", QByteArray(header).replace("ASCII", "TEXT"),
            u"line 3: expected ASCII, found \"TEXT\""_s);
        other("binary", QByteArray(header).replace("ASCII", "BINARY"),
              u"line 3: expected ASCII (write the file as text), found \"BINARY\""_s);
        bad("no data set", QByteArray(header).replace("DATASET", "POINTS"),
            u"line 4: expected DATASET, found \"POINTS\""_s);
        other("another data set", QByteArray(header).replace("UNSTRUCTURED_GRID", "POLYDATA"),
              u"line 4: expected UNSTRUCTURED_GRID, found \"POLYDATA\""_s);
        bad("no points", header, u"the file ends in line 5: expected POINTS, CELLS and CELL_TYPES"_s);
        bad("no cells", sound + "POINT_DATA 5\n",
            u"line 9: expected POINTS, CELLS and CELL_TYPES, found \"POINT_DATA\""_s);
        bad("no types", sound + "CELLS 1 5\n4 0 1 2 3\n",
            u"the file ends in line 11: expected POINTS, CELLS and CELL_TYPES"_s);
        bad("cells first", header + cells, u"line 5: expected POINTS before CELLS, found \"CELLS\""_s);
        bad("types first", sound + types,
            u"line 9: expected CELLS before CELL_TYPES, found \"CELL_TYPES\""_s);
        bad("points twice", sound + points, u"line 9: expected one section POINTS, found \"POINTS\""_s);
        bad("cells twice", sound + cells + cells, u"line 15: expected one section CELLS, found \"CELLS\""_s);
        bad("types twice", sound + cells + types,
            u"line 15: expected one section CELL_TYPES, found \"CELL_TYPES\""_s);
        bad("no section", sound + "6 7\n",
            u"line 9: expected POINTS, CELLS, CELL_TYPES, FIELD or METADATA, found \"6\""_s);
        bad("a negative count", header + "POINTS -1 float\n",
            u"line 5: expected how many there are, found \"-1\""_s);
        bad("a count that nothing can be", header + "POINTS 2147483648 float\n",
            u"line 5: expected how many there are, found \"2147483648\""_s);
        bad("too few points", QByteArray(sound).replace("POINTS 5", "POINTS 2147483647") + cells,
            u"line 9: expected a coordinate of point 6 of 2147483647, found \"CELLS\""_s);
        bad("a bad coordinate", QByteArray(sound).replace("0 1 0\n", "0 nan 0\n"),
            u"line 7: expected a coordinate of point 3 of 5, found \"nan\""_s);
        bad("too few cells", sound + "CELLS 2 10\n4 0 1 2 3\n" + types,
            u"line 11: expected the number of points of cell 2 of 2, at most 4, found \"CELL_TYPES\""_s);
        bad("a large cell", sound + "CELLS 1 5\n5 0 1 2 3 4\n" + types,
            u"line 10: expected the number of points of cell 1 of 1, at most 4, found \"5\""_s);
        bad("numbers too few", sound + "CELLS 1 6\n4 0 1 2 3\n" + types,
            u"line 10: CELLS announces 6 numbers and has 5"_s);
        bad("a point that is not there", sound + "CELLS 1 5\n4 0 1 2 5\n" + types,
            u"line 10: expected the index of one of 5 points, found \"5\""_s);
        bad("a negative point", sound + "CELLS 1 5\n4 0 1 2 -1\n" + types,
            u"line 10: expected the index of one of 5 points, found \"-1\""_s);
        QByteArray const offsets = "CELLS 2 4\nOFFSETS vtktypeint64\n";
        bad("first offset", sound + offsets + "1 4\n",
            u"line 11: expected offset 1 of 2, from 0 to 0, found \"1\""_s);
        bad("large offset", sound + offsets + "0 5\n",
            u"line 11: expected offset 2 of 2, from 0 to 4, found \"5\""_s);
        bad("descending offsets", sound + "CELLS 3 4\nOFFSETS x\n0 3 2\n",
            u"line 11: expected offset 3 of 3, from 3 to 4, found \"2\""_s);
        bad("last offset", sound + offsets + "0 3\n", u"line 11: expected 4 as last offset, found \"3\""_s);
        bad("no connectivity", sound + offsets + "0 4\n0 1 2 3\n",
            u"line 12: expected CONNECTIVITY, found \"0\""_s);
        bad("connectivity too short", sound + offsets + "0 4\nCONNECTIVITY x\n0 1 2\n" + types,
            u"line 14: expected the index of one of 5 points, found \"CELL_TYPES\""_s);
        bad("another number of types", sound + "CELLS 1 5\n4 0 1 2 3\nCELL_TYPES 2\n10\n10\n",
            u"line 11: expected the number of cells, 1, found \"2\""_s);
        bad("types too few", sound + "CELLS 1 5\n4 0 1 2 3\nCELL_TYPES 1\n",
            u"the file ends in line 12: expected the type of cell 1 of 1"_s);
        other("a type that is not known", sound + "CELLS 1 5\n4 0 1 2 3\nCELL_TYPES 1\n99\n",
              u"line 12: cells of the type 99 are not known"_s);
        bad("a type that does not fit", sound + "CELLS 1 4\n3 0 1 2\n" + types,
            u"line 12: the type of cell 0, tetrahedra, does not fit its 3 points"_s);
        bad("a type of any order that does not fit", sound + "CELLS 1 4\n3 0 1 2\nCELL_TYPES 1\n71\n",
            u"line 12: the type of cell 0, tetrahedra, does not fit its 3 points"_s);
        bad("a point twice", sound + "CELLS 1 5\n4 0 1 0 3\n" + types,
            u"cell 0, counted from 0: a tetrahedron has point 0 twice"_s);
        other("voxels", sound + "CELLS 1 9\n8 0 1 2 3 0 1 2 3\nCELL_TYPES 1\n11\n",
              u"line 12: hexahedra are not read, only tetrahedra"_s);
        other("a surface", sound + "CELLS 1 4\n3 0 1 2\nCELL_TYPES 1\n5\n", u"holds no tetrahedra"_s);
        bad("a cut field", header + "FIELD f 1\na 3 2147483647 double\n1 2\n",
            u"the file ends in line 8: expected a value of a field"_s);
    }

    void problems()
    {
        QFETCH(QByteArray, text);
        TetrahedralMesh mesh;
        Problem const problem = readVtk(text, mesh);
        QTEST(problem.sentence, "sentence");
        QTEST(problem.code, "code");
    }

    void damagedAnywhere_data() { tetrahedra_data(); }

    void damagedAnywhere()
    {
        QFETCH(QByteArray, text);
        verifyDamagedAnywhere(text, readVtk);
    }

    void cutAnywhere_data() { tetrahedra_data(); }

    // The last type may lose its second digit; then it is no tetrahedron.
    void cutAnywhere()
    {
        QFETCH(QByteArray, text);
        QByteArray const trimmed = text.first(text.indexOf("\n10") + 3);
        verifyCutAnywhere(trimmed, trimmed.size(), readVtk);
    }
};

QTEST_GUILESS_MAIN(tst_VtkReader)
#include "tst_VtkReader.moc"
