#include "Program.h"
#include "StlFiles.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using support::runProgram;
using support::verify;

namespace {

// Two tetrahedra on the two sides of the face 1 2 3.
QByteArray const sound = "# Labeled\n2 7 6 5\n"
                         "0 0 0\n1 0 0\n0 1 0\n0 0 1\n1 1 1\n"
                         "0 -1 0 1 2\n0 1 1 2 3\n0 -1 0 2 3\n0 -1 0 1 3\n"
                         "1 -1 2 3 4\n1 -1 1 3 4\n1 -1 1 2 4\n"
                         "0 -1 0 1 2\n0 -1 0 2 3\n0 -1 0 1 3\n"
                         "1 -1 2 3 4\n1 -1 1 3 4\n1 -1 1 2 4";

QByteArray const broken = "# Labeled\n2 3 1 5\n"
                          "0 0 0\n1 0 0\n0 1 0\n0 0 1\nnan 0 0\n"
                          "0 -1 0 1 2\n0 5 1 2 3\n-2 1 1 2 7\n"
                          "0 -1 0 1 -1";

QByteArray conditions(QByteArray const& rows)
{
    return "FemBoundaryConditions\n{\nDefaultMeshFilename\n" + rows + "}";
}

} // namespace

class tst_ProgramVolume : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        folder.emplace();
        QVERIFY(folder->isValid());
        write(u"jaw.vmesh"_s, sound);
        write(u"broken.vmesh"_s, broken);
    }

    void info()
    {
        verify(run({u"info"_s, u"jaw.vmesh"_s}), 0,
               "jaw.vmesh\n"
               "  format         volume mesh\n"
               "  recognised     by its first line, which holds \"# Labeled\", and the four counts in its "
               "second\n"
               "  size in bytes  189\n"
               "  in the file\n"
               "    tetrahedra       2\n"
               "    face rows        7\n"
               "    bound-face rows  6\n"
               "    points           5\n"
               "  bounding box (mm)\n"
               "    min   0.000 0.000 0.000\n"
               "    max   1.000 1.000 1.000\n"
               "    size  1.000 1.000 1.000\n"
               "  tetrahedra\n"
               "    with unknown points  0\n"
               "    flat                 0\n"
               "    inverted             0\n"
               "  boundary\n"
               "    points                5\n"
               "    edges                 9\n"
               "    faces                 6\n"
               "    Euler characteristic  2\n"
               "    open edges            0\n",
               {});
    }

    void infoOfBrokenMesh()
    {
        verify(run({u"info"_s, u"broken.vmesh"_s}), 3,
               "broken.vmesh\n"
               "  format               volume mesh\n"
               "  recognised           by its first line, which holds \"# Labeled\", and the four counts in "
               "its second\n"
               "  size in bytes        93\n"
               "  in the file\n"
               "    tetrahedra       2\n"
               "    face rows        3\n"
               "    bound-face rows  1\n"
               "    points           5\n"
               "  vertices not finite  1\n"
               "  bounding box (mm)\n"
               "    min   0.000 0.000 0.000\n"
               "    max   1.000 1.000 1.000\n"
               "    size  1.000 1.000 1.000\n"
               "  tetrahedra\n"
               "    with unknown points  1\n"
               "    flat                 0\n"
               "    inverted             0\n"
               "  bad references       4\n"
               "  bad references\n"
               "    line  problem\n"
               "       9  a face row refers to tetrahedron 5, of 2\n"
               "      10  a face row refers to tetrahedron -2, of 2\n"
               "      10  a face row refers to point 7, of 5\n"
               "      11  a bound-face row refers to point -1, of 5\n",
               u"surfaceio: broken.vmesh: line 9: a face row refers to tetrahedron 5, of 2\n"_s);
    }

    void infoAsJson()
    {
        write(u"c"_s, conditions("1\n4 0 0 1\n"));
        auto const outcome = run({u"info"_s, u"--json"_s, u"jaw.vmesh"_s, u"c"_s});
        QCOMPARE(outcome.exitCode, 0);
        QJsonArray const files =
            QJsonDocument::fromJson(outcome.standardOutput).object()["files"_L1].toArray();
        QJsonObject const mesh = files[0].toObject();
        QCOMPARE(mesh["formatName"_L1].toString(), u"vmesh"_s);
        QCOMPARE(
            mesh["inFile"_L1].toObject(),
            QJsonObject({{u"tetrahedra"_s, 2}, {u"faces"_s, 7}, {u"boundFaces"_s, 6}, {u"points"_s, 5}}));
        QCOMPARE(mesh["tetrahedra"_L1].toObject(),
                 QJsonObject({{u"incomplete"_s, 0}, {u"flat"_s, 0}, {u"inverted"_s, 0}}));
        QCOMPARE(mesh["boundary"_L1].toObject(), QJsonObject({{u"points"_s, 5},
                                                              {u"edges"_s, 9},
                                                              {u"faces"_s, 6},
                                                              {u"eulerCharacteristic"_s, 2},
                                                              {u"openEdges"_s, 0}}));
        QCOMPARE(mesh["badReferenceCount"_L1].toInt(), 0);
        QCOMPARE(mesh["badReferences"_L1].toArray(), QJsonArray());
        QCOMPARE(files[1]["formatName"_L1].toString(), u"conditions"_s);
        QCOMPARE(files[1]["inFile"_L1]["conditions"_L1].toInt(), 1);
    }

    void problem_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("sentence");
        auto const row = [](char const* name, QByteArray const& bytes, QString const& sentence) {
            QTest::newRow(name) << bytes << sentence;
        };
        QByteArray const head = "# Labeled\n1 2 1 2\n";
        QByteArray const points = "0 0 0\n1 1 1\n";
        row("no header", "# Plain\n0 0 0 0\n",
            u"line 1: expected a header with \"# Labeled\", found \"# Plain\""_s);
        row("empty", {}, u"the file ends before line 1: expected a header with \"# Labeled\""_s);
        row("three sizes", "# Labeled\n0 0 0\n",
            u"line 2: expected four counts (tetrahedra, faces, bound faces, points) that the file can hold, "
            "found \"0 0 0\""_s);
        row("incredible sizes", "# Labeled\n2147483647 0 0 0\n",
            u"line 2: expected four counts (tetrahedra, faces, bound faces, points) that the file can hold, "
            "found \"2147483647 0 0 0\""_s);
        row("a bad point", head + "0 0 0\n1\t1 x\n",
            u"line 4: expected point 2 of 2, three numbers with single blanks between, found \"1\\t1 x\""_s);
        row("no first point", head,
            u"the file ends before line 3: expected point 1 of 2, three numbers with single blanks between"_s);
        row("a bad face", head + points + "0 -1 0 0 0\n0 -1 0 0  0\n",
            u"line 6: expected face row 2 of 2, five integers with single blanks between, found \"0 -1 0 0  "
            "0\""_s);
        row("no bound face", head + points + "0 -1 0 0 0\n0 -1 0 0 0\n",
            u"the file ends before line 7: expected bound-face row 1 of 1, five integers with single blanks "
            "between"_s);
        row("conditions without a count", "FemBoundaryConditions\n{\n",
            u"the file ends before line 4: expected the number of conditions"_s);
        row("conditions with a bad count", conditions("-1\n"),
            u"line 4: expected the number of conditions, found \"-1\""_s);
        row("a bad condition", conditions("2\n1 0 0 0\n1 0 0\n"),
            u"line 6: expected condition 2 of 2, an index and three numbers with single blanks between, "
            u"found "
            "\"1 0 0\""_s);
        row("a condition too few", "FemBoundaryConditions\n{\n\n1\n",
            u"the file ends before line 5: expected condition 1 of 1, an index and three numbers with single "
            "blanks between"_s);
    }

    void problem()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, sentence);
        QString const name = bytes.startsWith("Fem") ? u"bad"_s : u"bad.vmesh"_s;
        write(name, bytes);
        auto const inspected = run({u"info"_s, name});
        QCOMPARE(inspected.exitCode, 3);
        QCOMPARE(QString::fromUtf8(inspected.standardError), u"surfaceio: %1: %2\n"_s.arg(name, sentence));
        auto const checked = run({u"check"_s, name});
        QCOMPARE(checked.exitCode, 3);
        QCOMPARE(QString::fromUtf8(checked.standardOutput),
                 u"%1: error: %2\n    export the file again, from the program that wrote it\n"_s.arg(
                     name, sentence));
        QCOMPARE(checked.standardError, "surfaceio: " + name.toUtf8() + ": 1 error\n");
    }

    // Those of another name belong to nobody knows which mesh.
    void conditionsInAFolder()
    {
        QVERIFY(QDir(folder->path()).mkpath(u"all"_s));
        write(u"all/jaw.conditions"_s, conditions("1\n5 0 0 1\n"));
        write(u"all/jaw.vmesh"_s, sound);
        write(u"all/load.conditions"_s, conditions("1\n5 0 0 1\n"));
        write(u"all/none.conditions"_s, {});
        auto const outcome = run({u"check"_s, u"all"_s});
        QCOMPARE(outcome.exitCode, 6);
        QCOMPARE(outcome.standardOutput,
                 QByteArray(
                     "all/jaw.conditions: error: line 5: a condition refers to point 5; all/jaw.vmesh has 5 "
                     "points\n"
                     "    take the volume mesh that the conditions were made for\n"
                     "all/jaw.vmesh: sound\n"
                     "all/load.conditions: note: the points were not compared with a volume mesh\n"
                     "    name the volume mesh before the conditions: surfaceio check MESH.vmesh CONDITIONS\n"
                     "all/load.conditions: sound\n"
                     "all/none.conditions: error: the file ends before line 4: expected the number of "
                     "conditions\n"
                     "    export the file again, from the program that wrote it\n"));
    }

    void formats()
    {
        QByteArray const table = run({u"formats"_s}).standardOutput;
        QVERIFY(table.contains("\n  conditions  boundary conditions    yes            no          no\n"));
        QVERIFY(table.contains("\n  msh         Gmsh, for vmesh from    no            no          no\n"));
        QVERIFY(table.contains("\n  vtk         VTK, for vmesh from     no            no          no\n"));
    }

    void checkOfSoundMesh() { verify(run({u"check"_s, u"jaw.vmesh"_s}), 0, "jaw.vmesh: sound\n", {}); }

    void checkOfBrokenMesh()
    {
        verify(run({u"check"_s, u"broken.vmesh"_s}), 3,
               "broken.vmesh: error: line 9: a face row refers to tetrahedron 5, of 2\n"
               "    indices count from 0; -1 stands for no tetrahedron, never for a point\n"
               "broken.vmesh: error: line 10: a face row refers to tetrahedron -2, of 2\n"
               "    indices count from 0; -1 stands for no tetrahedron, never for a point\n"
               "broken.vmesh: error: line 10: a face row refers to point 7, of 5\n"
               "    indices count from 0; -1 stands for no tetrahedron, never for a point\n"
               "broken.vmesh: error: line 11: a bound-face row refers to point -1, of 5\n"
               "    indices count from 0; -1 stands for no tetrahedron, never for a point\n"
               "broken.vmesh: warning: 1 of 5 points have a NaN or an infinity\n"
               "broken.vmesh: warning: 1 of 2 tetrahedra have points that no face row tells\n"
               "    write a row for each face of each tetrahedron\n"
               "broken.vmesh: warning: 2 face rows have a tetrahedron on one side only, but there are 1 "
               "bound-face rows\n"
               "    list each face of the outer surface once among the bound faces\n",
               u"surfaceio: broken.vmesh: 4 errors, 3 warnings\n"_s);
    }

    void checkOfTetrahedra_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QByteArray>("findings");
        QByteArray const head = "# Labeled\n1 4 4 4\n0 0 0\n1 0 0\n0 1 0\n";
        QByteArray const rows = "0 -1 0 1 2\n0 -1 1 2 3\n0 -1 0 2 3\n0 -1 0 1 3\n";
        QTest::newRow("flat") << head + "1 1 1e-7\n" + rows + rows
                              << QByteArray("warning: 1 of 1 tetrahedra are flat\n");
        QTest::newRow("thin, not flat") << head + "1 1 1e-5\n" + rows + rows << QByteArray("");
        QTest::newRow("inverted")
            << head + "0 0 -1\n" + rows + rows
            << QByteArray("note: 1 of 1 tetrahedra have a negative volume in the order in which the face "
                          "rows bring their points\n");
        QTest::newRow("a gap in the boundary")
            << QByteArray(head).replace("1 4 4 4", "1 3 3 4") + "0 0 1\n" + rows.chopped(11) +
                   rows.chopped(11)
            << QByteArray("warning: 3 of 6 edges of the boundary do not join exactly two bound faces\n");
    }

    void checkOfTetrahedra()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QByteArray, findings);
        write(u"t.vmesh"_s, bytes);
        QByteArray lines;
        for (QByteArray const& line : run({u"check"_s, u"t.vmesh"_s}).standardOutput.split('\n')) {
            if (line.startsWith("t.vmesh: ") && !line.endsWith(": sound"))
                lines += line.mid(9) + '\n';
        }
        QCOMPARE(lines, findings);
    }

    void checkOfForeignFace()
    {
        QByteArray bytes = sound;
        bytes.replace("1 -1 1 2 4\n0 -1 0 1 2", "1 -1 0 2 4\n0 -1 0 1 2");
        write(u"t.vmesh"_s, bytes);
        auto const outcome = run({u"check"_s, u"t.vmesh"_s});
        QCOMPARE(outcome.exitCode, 0);
        QVERIFY(outcome.standardOutput.contains(
            "t.vmesh: warning: 1 face row has a point that its tetrahedron does not have, the first in "
            "line 14\n"));
    }

    void checkOfManyBadReferences()
    {
        QByteArray bytes = "# Labeled\n0 30 0 1\n0 0 0\n";
        for (int i = 0; i < 30; ++i)
            bytes += "-1 -1 0 0 9\n";
        write(u"t.vmesh"_s, bytes);
        auto const outcome = run({u"check"_s, u"t.vmesh"_s});
        QCOMPARE(outcome.standardOutput.count(": error: "), 20);
        QVERIFY(outcome.standardOutput.contains("t.vmesh: note: 10 more references of this kind\n"));
    }

    void checkOfConditions()
    {
        write(u"c"_s, conditions("2\n4 0 0 1\n0 0 0 -1\n"));
        verify(run({u"check"_s, u"jaw.vmesh"_s, u"c"_s}), 0, "jaw.vmesh: sound\nc: sound\n", {});
    }

    void checkOfBadConditions()
    {
        write(u"c"_s, conditions("4\n4 0 0 1\n5 0 0 -1\n-1 nan 0 inf\n4 0 0 0\n"));
        verify(run({u"check"_s, u"jaw.vmesh"_s, u"c"_s}), 6,
               "jaw.vmesh: sound\n"
               "c: error: line 6: a condition refers to point 5; jaw.vmesh has 5 points\n"
               "    take the volume mesh that the conditions were made for\n"
               "c: error: line 7: a condition refers to point -1; jaw.vmesh has 5 points\n"
               "    take the volume mesh that the conditions were made for\n"
               "c: warning: 4 conditions are for 3 points\n"
               "    give each point one condition: solvers differ in which of several they take\n"
               "c: warning: 2 of 12 components are NaN or infinite\n",
               u"surfaceio: c: 2 errors, 2 warnings\n"_s);
    }

    void checkOfConditionsWithoutAMesh()
    {
        write(u"c"_s, conditions("2\n99 0 0 1\n-1 0 0 0\n"));
        verify(run({u"check"_s, u"c"_s}), 3,
               "c: error: line 6: a condition refers to point -1; points count from 0\n"
               "    take the volume mesh that the conditions were made for\n"
               "c: note: the points were not compared with a volume mesh\n"
               "    name the volume mesh before the conditions: surfaceio check MESH.vmesh CONDITIONS\n",
               u"surfaceio: c: 1 error\n"_s);
    }

    void checkWarnsUnderStrict()
    {
        write(u"c"_s, conditions("2\n1 0 0 0\n1 0 0 0\n"));
        QCOMPARE(run({u"check"_s, u"c"_s}).exitCode, 0);
        QCOMPARE(run({u"check"_s, u"--strict"_s, u"c"_s}).exitCode, 5);
    }

    void checkAsJson()
    {
        write(u"c"_s, conditions("1\n7 0 0 0\n"));
        auto const outcome = run({u"check"_s, u"--json"_s, u"jaw.vmesh"_s, u"c"_s});
        QCOMPARE(outcome.exitCode, 6);
        QJsonObject const root = QJsonDocument::fromJson(outcome.standardOutput).object();
        QCOMPARE(root["schema"_L1].toString(), u"surfaceio.check/1"_s);
        QJsonObject const mesh = root["files"_L1].toArray().at(0).toObject();
        QCOMPARE(mesh, QJsonObject({{u"path"_s, u"jaw.vmesh"_s},
                                    {u"errors"_s, 0},
                                    {u"warnings"_s, 0},
                                    {u"findings"_s, QJsonArray()}}));
        QJsonObject const finding = root["files"_L1][1]["findings"_L1].toArray().at(0).toObject();
        QCOMPARE(
            finding,
            QJsonObject({{u"severity"_s, u"error"_s},
                         {u"code"_s, u"bad-reference"_s},
                         {u"reason"_s, u"line 5: a condition refers to point 7; jaw.vmesh has 5 points"_s},
                         {u"remedy"_s, u"take the volume mesh that the conditions were made for"_s}}));
    }

    void checkOfOtherFiles()
    {
        write(u"good.stl"_s, support::binaryStl(support::stlFacet(0)));
        write(u"short.stl"_s, support::binaryStl(support::stlFacet(0)).chopped(1));
        write(u"x.doc"_s, "text");
        verify(run({u"check"_s, u"good.stl"_s}), 0,
               "good.stl: note: 3 edges with one facet only\n"
               "    nothing for a scan, which is a sheet; close the surface before printing\n"
               "good.stl: sound\n",
               {});
        verify(run({u"check"_s, u"short.stl"_s}), 3,
               "short.stl: error: the header says 1 facets = 134 bytes, the file holds 133 bytes, room for 0 "
               "facets\n"
               "    bytes were lost or added: copy the file again, in binary mode; if it stays so, export it "
               "again\n",
               u"surfaceio: short.stl: 1 error\n"_s);
        verify(run({u"check"_s, u"x.doc"_s}), 4,
               "x.doc: error: neither the content nor the suffix is that of a format known here\n"
               "    \"surfaceio formats\" lists what can be read; export as one of these\n",
               u"surfaceio: x.doc: 1 error\n"_s);
        verify(run({u"check"_s, u"gone"_s}), 1,
               "gone: error: there is no such file\n"
               "    check the spelling of the path\n",
               u"surfaceio: gone: 1 error\n"_s);
    }

    void convertToSurface()
    {
        verify(run({u"convert"_s, u"jaw.vmesh"_s, u"jaw.stl"_s}), 0, {}, {});
        QByteArray const stl = support::readFile(folder->filePath(u"jaw.stl"_s));
        QCOMPARE(stl.size(), 84 + 6 * 50);
    }

    void convertRefusesBadReferences()
    {
        verify(run({u"convert"_s, u"broken.vmesh"_s, u"out.stl"_s}), 3, {},
               u"surfaceio: broken.vmesh: line 9: a face row refers to tetrahedron 5, of 2\n"_s);
        QVERIFY(!QFile::exists(folder->filePath(u"out.stl"_s)));
    }

    void convertRefusesAShortMesh()
    {
        write(u"short.vmesh"_s, sound.chopped(11));
        verify(
            run({u"convert"_s, u"short.vmesh"_s, u"out.stl"_s}), 3, {},
            u"surfaceio: short.vmesh: the file ends before line 20: expected bound-face row 6 of 6, .*\n"_s);
    }

private:
    void write(QString const& name, QByteArray const& bytes)
    {
        QVERIFY(support::writeFile(folder->filePath(name), bytes));
    }

    support::Outcome run(QStringList const& arguments) { return runProgram(arguments, folder->path()); }

    std::optional<QTemporaryDir> folder;
};

QTEST_GUILESS_MAIN(tst_ProgramVolume)
#include "tst_ProgramVolume.moc"
