#include "Program.h"
#include "StlFiles.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using support::readFile;
using support::runProgram;
using support::runShell;
using support::verify;

namespace {

// One tetrahedron; the file of the mesher also has a line and a node that nothing uses.
QByteArray const gmsh =
    "$MeshFormat\n2.2 0 8\n$EndMeshFormat\n$Nodes\n5\n1 0 0 0\n2 9 9 9\n3 1 0 0\n4 0 1 0\n"
    "5 0 0 1\n$EndNodes\n$Elements\n2\n1 1 0 1 3\n2 4 0 1 3 4 5\n$EndElements\n";

QByteArray const one = "# Labeled\n1 4 4 4\n"
                       "0.000000 0.000000 0.000000\n1.000000 0.000000 0.000000\n"
                       "0.000000 1.000000 0.000000\n0.000000 0.000000 1.000000\n"
                       "0 -1 0 1 2\n0 -1 1 2 3\n0 -1 0 2 3\n0 -1 0 1 3\n"
                       "0 -1 0 1 2\n0 -1 1 2 3\n0 -1 0 2 3\n0 -1 0 1 3";

QByteArray const conditions = "FemBoundaryConditions\n{\nDefaultMeshFilename\n3\n"
                              "0 0 0 -1.5\n3 0 0 0\n3 2 0 0.25\n}";

} // namespace

class tst_ProgramVmesh : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        folder.emplace();
        QVERIFY(folder->isValid());
        write(u"in.msh"_s, gmsh);
        write(u"one.vmesh"_s, one);
        write(u"load.txt"_s, conditions);
    }

    void from()
    {
        verify(run(u"vmesh from in.msh -o out.vmesh"_s), 0,
               "in the file\n"
               "  tetrahedra           1\n"
               "  with nodes on edges  0\n"
               "  inverted             0\n"
               "  points               5\n"
               "left out\n"
               "  points  1\n"
               "  elements\n"
               "    kind   count\n"
               "    lines      1\n"
               "written\n"
               "  tetrahedra       1\n"
               "  face rows        4\n"
               "  bound-face rows  4\n"
               "  points           4\n"
               "  flat tetrahedra  0\n",
               {});
        QCOMPARE(content(u"out.vmesh"_s), one);
    }

    void fromKeepingPoints()
    {
        auto const outcome = run(u"vmesh from in.msh -o out.vmesh --keep-points --json"_s);
        QCOMPARE(outcome.exitCode, 0);
        QCOMPARE(outcome.standardError, QByteArray());
        QJsonObject const report = QJsonDocument::fromJson(outcome.standardOutput).object();
        QCOMPARE(
            report,
            QJsonObject(
                {{u"schema"_s, u"surfaceio.vmesh-from/1"_s},
                 {u"path"_s, u"in.msh"_s},
                 {u"output"_s, u"out.vmesh"_s},
                 {u"inFile"_s,
                  QJsonObject(
                      {{u"tetrahedra"_s, 1}, {u"curved"_s, 0}, {u"inverted"_s, 0}, {u"points"_s, 5}})},
                 {u"leftOut"_s, QJsonObject({{u"points"_s, 0},
                                             {u"elements"_s, QJsonArray({QJsonObject({{u"kind"_s, u"lines"_s},
                                                                                      {u"count"_s, 1}})})}})},
                 {u"written"_s, QJsonObject({{u"tetrahedra"_s, 1},
                                             {u"faces"_s, 4},
                                             {u"boundFaces"_s, 4},
                                             {u"points"_s, 5},
                                             {u"flat"_s, 0}})}}));
        QVERIFY(content(u"out.vmesh"_s).contains("\n1 4 4 5\n"));
        QVERIFY(content(u"out.vmesh"_s).contains("\n0 -1 0 2 3\n"));
    }

    // The same box by different programs, in different formats.
    void meshers_data()
    {
        QTest::addColumn<QString>("file");
        for (char const* const file :
             {"gmsh.msh", "gmsh.vtk", "meshio.msh", "meshio42.vtk", "meshio51.vtk", "vtk91.vtk"})
            QTest::newRow(file) << QString::fromLatin1(file);
    }

    void meshers()
    {
        QFETCH(QString, file);
        QString const first = QStringLiteral(SURFACEIO_MESHERS) + u"/gmsh.msh"_s;
        QCOMPARE(
            runProgram({u"vmesh"_s, u"from"_s, first, u"-o"_s, u"first.vmesh"_s}, folder->path()).exitCode,
            0);
        auto const outcome = runProgram(
            {u"vmesh"_s, u"from"_s, QStringLiteral(SURFACEIO_MESHERS) + u'/' + file, u"-o"_s, u"box.vmesh"_s},
            folder->path());
        QCOMPARE(outcome.exitCode, 0);
        QCOMPARE(outcome.standardError, QByteArray());
        QCOMPARE(content(u"box.vmesh"_s), content(u"first.vmesh"_s));
    }

    // Its surface is that of the box, 376 mm² around 480 mm³.
    void boxIsWhole()
    {
        QString const file = QStringLiteral(SURFACEIO_MESHERS) + u"/gmsh.msh"_s;
        QCOMPARE(runProgram({u"vmesh"_s, u"from"_s, file, u"-o"_s, u"box.vmesh"_s}, folder->path()).exitCode,
                 0);
        auto const checked = run(u"check box.vmesh"_s);
        QCOMPARE(checked.exitCode, 0);
        QVERIFY(checked.standardOutput.endsWith("\nbox.vmesh: sound\n"));
        QCOMPARE(run(u"convert box.vmesh box.stl"_s).exitCode, 0);
        auto const tags = run(u"tags list box.stl --json"_s);
        QJsonObject const row =
            QJsonDocument::fromJson(tags.standardOutput).object()["tags"_L1].toArray().at(0).toObject();
        QCOMPARE(row["facets"_L1].toInt(), 40);
        QVERIFY(std::abs(row["area"_L1].toDouble() - 376.0) < 1e-3);
    }

    void secondOrder()
    {
        QString const file = QStringLiteral(SURFACEIO_MESHERS) + u"/second-order.msh"_s;
        auto const outcome =
            runProgram({u"vmesh"_s, u"from"_s, file, u"-o"_s, u"box.vmesh"_s, u"--strict"_s}, folder->path());
        QCOMPARE(outcome.exitCode, 5);
        QCOMPARE(
            QString::fromUtf8(outcome.standardError),
            u"surfaceio: warning: %1: 42 of 42 tetrahedra have nodes on their edges; only their corners were taken\n"_s
                .arg(file));
        QVERIFY(content(u"box.vmesh"_s).startsWith("# Labeled\n42 104 40 22\n"));
    }

    void otherFormats_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("sentence");
        QString const remedy = u" (\"gmsh -save -format msh22 -o OUT.msh IN.msh\" writes that)"_s;
        QTest::newRow("version 4.1") << u"version41.msh"_s
                                     << u"line 2: expected version 2.2%1, found \"4.1\""_s.arg(remedy);
        QTest::newRow("binary") << u"binary.msh"_s
                                << u"line 2: expected ASCII, \"2.2 0 8\"%1, found \"2.2 1 8\""_s.arg(remedy);
    }

    void otherFormats()
    {
        QFETCH(QString, file);
        QFETCH(QString, sentence);
        QString const path = QStringLiteral(SURFACEIO_MESHERS) + u'/' + file;
        auto const outcome =
            runProgram({u"vmesh"_s, u"from"_s, path, u"-o"_s, u"box.vmesh"_s}, folder->path());
        QCOMPARE(outcome.exitCode, 4);
        QCOMPARE(QString::fromUtf8(outcome.standardError), u"surfaceio: %1: %2\n"_s.arg(path, sentence));
        QVERIFY(!QFile::exists(folder->filePath(u"box.vmesh"_s)));
    }

    void warnings_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QByteArray>("warning");
        QTest::newRow("inverted")
            << QByteArray(gmsh).replace("1 3 4 5\n", "1 3 5 4\n")
            << QByteArray("have a negative volume in the order of their points; the written file "
                          "keeps no orientation");
        QTest::newRow("flat") << QByteArray(gmsh).replace("5 0 0 1\n", "5 1 1 0\n")
                              << QByteArray("are flat in six decimals; are the coordinates in millimetres?");
        QTest::newRow("flat when rounded")
            << QByteArray(gmsh)
                   .replace("3 1 0 0\n", "3 1e-7 0 0\n")
                   .replace("4 0 1 0\n", "4 0 1e-7 0\n")
                   .replace("5 0 0 1\n", "5 0 0 1e-7\n")
            << QByteArray("are flat in six decimals; are the coordinates in millimetres?");
    }

    void warnings()
    {
        QFETCH(QByteArray, text);
        QFETCH(QByteArray, warning);
        write(u"in.msh"_s, text);
        auto const outcome = run(u"vmesh from in.msh -o out.vmesh --strict"_s);
        QCOMPARE(outcome.standardError, "surfaceio: warning: in.msh: 1 of 1 tetrahedra " + warning + '\n');
        QCOMPARE(outcome.exitCode, 5);
        QVERIFY(QFile::exists(folder->filePath(u"out.vmesh"_s)));
    }

    void faces()
    {
        // Every face is listed by each of its tetrahedra, points in any order, and none is bound.
        write(u"rows.vmesh"_s, "# Labeled\n2 8 0 5\n0 0 0\n1 0 0\n0 1 0\n0 0 1\n1 1 1\n"
                               "0 -1 2 1 0\n0 -1 3 2 1\n0 -1 0 2 3\n0 -1 3 1 0\n"
                               "1 -1 1 2 3\n1 -1 2 3 4\n1 -1 3 4 1\n1 -1 1 4 2\n");
        verify(run(u"vmesh faces rows.vmesh -o out.vmesh"_s), 0,
               "in the file\n"
               "  tetrahedra       2\n"
               "  face rows        8\n"
               "  bound-face rows  0\n"
               "  points           5\n"
               "written\n"
               "  tetrahedra       2\n"
               "  face rows        7\n"
               "  bound-face rows  6\n"
               "  points           5\n",
               {});
        verify(run(u"check out.vmesh"_s), 0, "out.vmesh: sound\n", {});
        auto const outcome = run(u"vmesh faces rows.vmesh -o rows.vmesh --force --json"_s);
        QCOMPARE(outcome.exitCode, 0);
        QCOMPARE(QJsonDocument::fromJson(outcome.standardOutput)["written"_L1]["boundFaces"_L1].toInt(), 6);
        QCOMPARE(content(u"rows.vmesh"_s), content(u"out.vmesh"_s));
    }

    void facesOfASoundMeshStay()
    {
        QCOMPARE(run(u"vmesh faces one.vmesh -o out.vmesh"_s).exitCode, 0);
        QCOMPARE(content(u"out.vmesh"_s), one);
    }

    void facesThatAreLost()
    {
        write(u"odd.vmesh"_s, QByteArray(one)
                                  .replace("1 4 4 4", "1 5 4 5")
                                  .replace("1.000000\n0 -1", "1.000000\n5 5 5\n0 -1")
                                  .replace("0 -1 0 1 3\n0 -1 0 1 2", "0 -1 0 1 3\n0 -1 0 1 4\n0 -1 0 1 2"));
        auto const outcome = run(u"vmesh faces odd.vmesh -o out.vmesh"_s);
        QCOMPARE(outcome.exitCode, 0);
        QCOMPARE(outcome.standardError,
                 QByteArray("surfaceio: warning: odd.vmesh: 1 face rows with a point that their tetrahedron "
                            "does not have are lost, the first in line 12\n"));
    }

    void failures_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("sentence");
        auto const row = [](char const* command, int exitCode, char const* sentence) {
            QTest::newRow(command) << QString::fromUtf8(command) << exitCode << QString::fromUtf8(sentence);
        };
        row("vmesh from gone.msh -o out.vmesh", 1, "gone.msh: there is no such file");
        row("vmesh from folder.msh -o out.vmesh", 1, "folder.msh: expected a file, found a folder");
        row("vmesh from one.vmesh -o out.vmesh", 2, "one.vmesh: expected one of the suffixes .msh, .vtk");
        row("vmesh from in.msh -o out.stl", 2, "out.stl: expected the suffix .vmesh");
        row("vmesh from in.msh -o one.vmesh", 1, "one.vmesh: exists already; --force replaces it");
        row("vmesh from in.msh -o gone/out.vmesh", 1,
            "gone/out.vmesh: the folder \".*/gone\" does not exist");
        row("vmesh from bad.msh -o out.vmesh", 3,
            "bad.msh: line 1: expected \"\\$MeshFormat\", found \"solid\"");
        row("vmesh faces gone.vmesh -o out.vmesh", 1, "gone.vmesh: there is no such file");
        row("vmesh faces one.vmesh -o out.ply", 2, "out.ply: expected the suffix .vmesh");
        row("vmesh faces bad.msh -o out.vmesh", 3,
            "bad.msh: line 1: expected a header with \"# Labeled\", found \"solid\"");
        row("vmesh faces incomplete.vmesh -o out.vmesh", 3,
            "incomplete.vmesh: 1 of 1 tetrahedra have points that no face row tells");
        row("vmesh faces refers.vmesh -o out.vmesh", 3,
            "refers.vmesh: line 7: a face row refers to point 7, of 4");
        row("vmesh conditions gone.txt", 1, "gone.txt: there is no such file");
        row("vmesh conditions one.vmesh", 3,
            "one.vmesh: line 4: expected the number of conditions, found \".*\"");
        row("vmesh conditions load.txt --mesh gone.vmesh", 1, "gone.vmesh: there is no such file");
        row("vmesh conditions load.txt --mesh bad.msh", 3,
            "bad.msh: line 1: expected a header with \"# Labeled\", found \"solid\"");
        row("vmesh conditions far.txt --mesh one.vmesh", 3,
            "far.txt: line 5: a condition refers to point 4, of 4");
    }

    void failures()
    {
        QVERIFY(QDir(folder->path()).mkdir(u"folder.msh"_s));
        write(u"bad.msh"_s, "solid\n");
        write(u"incomplete.vmesh"_s, "# Labeled\n1 1 0 3\n0 0 0\n1 0 0\n0 1 0\n0 -1 0 1 2\n");
        write(u"refers.vmesh"_s, QByteArray(one).replace("0 -1 0 1 2\n0 -1 1 2 3", "0 -1 0 1 7\n0 -1 1 2 3"));
        write(u"far.txt"_s, QByteArray(conditions).replace("\n0 0 0", "\n4 0 0"));
        QFETCH(QString, command);
        QFETCH(int, exitCode);
        QFETCH(QString, sentence);
        verify(run(command), exitCode, {}, u"surfaceio: "_s + sentence + u'\n');
        QVERIFY(!QFile::exists(folder->filePath(u"out.vmesh"_s)));
        QCOMPARE(content(u"one.vmesh"_s), one);
    }

    void conditionsAreListed()
    {
        verify(run(u"vmesh conditions load.txt --mesh one.vmesh"_s), 0,
               "conditions        3\n"
               "different points  2\n"
               "that are zero     1\n"
               "components\n"
               "  component   least  greatest     sum\n"
               "  x           0.000     2.000   2.000\n"
               "  y           0.000     0.000   0.000\n"
               "  z          -1.500     0.250  -1.250\n"
               "rows\n"
               "  point               value      position (mm)\n"
               "      0  0.000 0.000 -1.500  0.000 0.000 0.000\n"
               "      3   0.000 0.000 0.000  0.000 0.000 1.000\n"
               "      3   2.000 0.000 0.250  0.000 0.000 1.000\n",
               {});
    }

    void conditionsAsJson()
    {
        auto const outcome = run(u"vmesh conditions load.txt --json"_s);
        QCOMPARE(outcome.exitCode, 0);
        QJsonObject const report = QJsonDocument::fromJson(outcome.standardOutput).object();
        QCOMPARE(report["schema"_L1].toString(), u"surfaceio.conditions/1"_s);
        QCOMPARE(report["conditions"_L1].toInt(), 3);
        QCOMPARE(report["points"_L1].toInt(), 2);
        QCOMPARE(report["zero"_L1].toInt(), 1);
        QCOMPARE(
            report["components"_L1].toArray().at(2).toObject(),
            QJsonObject({{u"component"_s, u"z"_s}, {u"min"_s, -1.5}, {u"max"_s, 0.25}, {u"sum"_s, -1.25}}));
        QCOMPARE(report["rows"_L1].toArray().at(0).toObject(),
                 QJsonObject({{u"point"_s, 0}, {u"value"_s, QJsonArray({0, 0, -1.5})}}));
    }

    void noConditions()
    {
        write(u"none.txt"_s, "FemBoundaryConditions\n{\nDefaultMeshFilename\n0\n}");
        verify(run(u"vmesh conditions none.txt"_s), 0,
               "conditions        0\ndifferent points  0\nthat are zero     0\n", {});
    }

#ifdef Q_OS_UNIX
    // What cannot be opened, and what never ends.
    void pipes()
    {
        verify(runShell(u"mkfifo p.msh && \"$SURFACEIO\" vmesh from p.msh -o out.vmesh"_s, folder->path()), 1,
               {}, u"surfaceio: p.msh: .*\n"_s);
        verify(runShell(u"mkfifo p.txt && \"$SURFACEIO\" vmesh conditions p.txt"_s, folder->path()), 1, {},
               u"surfaceio: p.txt: .*\n"_s);
    }

    // The old file stays when the disk is full, and nothing else is left behind.
    void fullDisk()
    {
        QByteArray big = "# vtk DataFile Version 2.0\n\nASCII\nDATASET UNSTRUCTURED_GRID\nPOINTS 4 float\n"
                         "0 0 0 1 0 0 0 1 0 0 0 1\nCELLS 400 2000\n";
        for (int i = 0; i < 400; ++i)
            big += "4 0 1 2 3\n";
        big += "CELL_TYPES 400\n" + QByteArray("10\n").repeated(400);
        write(u"big.vtk"_s, big);
        auto const outcome = runShell(
            u"ulimit -f 8; \"$SURFACEIO\" vmesh from big.vtk -o one.vmesh --force"_s, folder->path());
        QCOMPARE(outcome.exitCode, 1);
        QCOMPARE(outcome.standardError,
                 QByteArray("surfaceio: one.vmesh: could not be written: File too large\n"));
        QCOMPARE(content(u"one.vmesh"_s), one);
        QCOMPARE(
            QDir(folder->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size(), 4);
    }
#endif

private:
    void write(QString const& name, QByteArray const& bytes)
    {
        QVERIFY(support::writeFile(folder->filePath(name), bytes));
    }

    QByteArray content(QString const& name)
    {
        return readFile(folder->filePath(name));
    }

    support::Outcome run(QString const& command)
    {
        return runProgram(command.split(u' '), folder->path());
    }

    std::optional<QTemporaryDir> folder;
};

QTEST_GUILESS_MAIN(tst_ProgramVmesh)
#include "tst_ProgramVmesh.moc"
