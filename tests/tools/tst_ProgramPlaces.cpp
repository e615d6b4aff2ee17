#include "Program.h"
#include "StlFiles.h"

#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using support::runProgram;
using support::runShell;
using support::verify;

namespace {

QByteArray const oneTetrahedron =
    "$MeshFormat\n2.2 0 8\n$EndMeshFormat\n$Nodes\n4\n1 0 0 0\n2 1 0 0\n3 0 1 0\n4 0 0 1\n"
    "$EndNodes\n$Elements\n1\n1 4 0 1 2 3 4\n$EndElements\n";
QByteArray const conditions = "FemBoundaryConditions\n{\nDefaultMeshFilename\n1\n0 0 0 1\n}";

} // namespace

// Files in strange places, under strange names, and outputs that are not there, for every verb.
class tst_ProgramPlaces : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(folder.isValid());
        for (char const* const name :
             {"p.stl", "p.ply", "p.obj", "p.array", "p.vmesh", "p.msh", "p.vtk", "p.xml", "p.mtl", "p.png"})
            QCOMPARE(
                ::mkfifo(QFile::encodeName(folder.filePath(QString::fromLatin1(name))).constData(), 0600), 0);
        QByteArray const face =
            "usemtl a\nv 0 0 0\nv 1 0 0\nv 0 1 0\nvt 0 0\nvt 1 0\nvt 0 1\nf 1/1 2/2 3/3\n";
        write(u"library.obj"_s, "mtllib p.mtl\n" + face);
        write(u"image.obj"_s, "mtllib image.mtl\n" + face);
        write(u"image.mtl"_s, "newmtl a\nmap_Kd p.png\n");
        write(u"one.stl"_s, support::binaryStl(support::stlFacet(0)));
        QCOMPARE(run(u"sample s.obj --facets 500"_s), 0);
        QCOMPARE(run(u"atlas s.obj --image a.png --mesh texture.ply"_s), 0);
        write(u"texture.ply"_s, support::readFile(folder.filePath(u"texture.ply"_s))
                                    .replace("TextureFile a.png", "TextureFile p.png"));
        write(u"one.msh"_s, oneTetrahedron);
        write(u"load.txt"_s, conditions);
        QCOMPARE(run(u"bundle pack one.xml one.stl"_s), 0);
        QCOMPARE(run(u"bundle pack shapes.xml one.stl"_s), 0);
        write(u"shapes.xml"_s,
              support::readFile(folder.filePath(u"shapes.xml"_s)).replace("one.stl", "p.stl"));
    }

    // Pipes that nobody writes to, named on the command line and inside of files. A program that opened one
    // would wait for ever; a run ends after a minute with -1.
    void neverWaits_data()
    {
        QTest::addColumn<int>("exitCode");
        auto const row = [](int exitCode, char const* command) { QTest::newRow(command) << exitCode; };
        for (char const* const suffix : {"stl", "ply", "obj", "array", "vmesh"}) {
            for (char const* const command :
                 {"info p.%s", "check p.%s", "convert p.%s out.xyz", "preview p.%s -o out.png"})
                QTest::addRow(command, suffix) << 1;
        }
        row(1, "bake p.obj out.ply");
        row(1, "atlas p.ply --image out.png");
        row(1, "tags list p.stl");
        row(1, "tags split p.stl");
        row(1, "tags merge p.stl -o out.stl");
        row(1, "tags relabel p.stl 1=2 -o out.stl");
        row(1, "header get p.stl");
        row(1, "header set p.ply --imported yes");
        row(1, "header clear p.stl");
        row(1, "bundle list p.xml");
        row(1, "bundle unpack p.xml out");
        row(1, "bundle pack out.xml p.stl");
        row(1, "vmesh from p.msh -o out.vmesh");
        row(1, "vmesh from p.vtk -o out.vmesh");
        row(1, "vmesh faces p.vmesh -o out.vmesh");
        row(1, "vmesh conditions p.stl");
        row(1, "vmesh conditions one.stl --mesh p.vmesh");
        // As targets.
        row(1, "convert one.stl p.ply --force");
        row(1, "preview one.stl -o p.png --force");
        row(1, "sample p.stl --force");
        row(1, "tags merge one.stl -o p.stl --force");
        // Named by files.
        for (char const* const file : {"library.obj", "image.obj", "texture.ply"}) {
            for (char const* const command :
                 {"info %s", "check %s", "convert %s out.xyz", "preview %s -o out.png --size 16"})
                QTest::addRow(command, file) << 0;
            for (char const* const command : {"bake %s out.ply", "atlas %s --image out.png"})
                QTest::addRow(command, file) << 4;
        }
        row(1, "bundle list shapes.xml");
        row(1, "bundle unpack shapes.xml out");
        // In folders.
        row(0, "check . --quiet");
        row(0, "convert . --to xyz -d out");
    }

    void neverWaits()
    {
        QFETCH(int, exitCode);
        QCOMPARE(run(QString::fromUtf8(QTest::currentDataTag())), exitCode);
        for (char const* const name : {"out.png", "out.xyz", "out.ply"})
            QFile::remove(folder.filePath(QString::fromLatin1(name)));
    }

    void unreadable_data()
    {
        QTest::addColumn<QString>("file");
        auto const row = [](char const* command, char const* file) {
            QTest::newRow(command) << QString::fromLatin1(file);
        };
        row("info un.stl", "un.stl");
        row("convert un.stl out.ply", "un.stl");
        row("convert un.vmesh out.stl", "un.vmesh");
        row("preview un.obj -o out.png", "un.obj");
        row("bake un.obj out.ply", "un.obj");
        row("atlas un.ply --image out.png", "un.ply");
        row("tags list un.stl", "un.stl");
        row("tags split un.stl", "un.stl");
        row("tags merge one.stl un.stl -o out.stl", "un.stl");
        row("tags relabel un.stl 1=2 -o out.stl", "un.stl");
        row("header get un.ply", "un.ply");
        row("header set un.stl --imported yes", "un.stl");
        row("header clear un.stl", "un.stl");
        row("bundle list un.xml", "un.xml");
        row("bundle unpack un.xml parts", "un.xml");
        row("vmesh from un.msh -o out.vmesh", "un.msh");
        row("vmesh from un.vtk -o out.vmesh", "un.vtk");
        row("vmesh faces un.vmesh -o out.vmesh", "un.vmesh");
        row("vmesh conditions un.txt", "un.txt");
        row("vmesh conditions load.txt --mesh un.vmesh", "un.vmesh");
    }

    void unreadable()
    {
        QTemporaryDir const place;
        QFETCH(QString, file);
        QVERIFY(support::writeFile(place.filePath(file), "something"));
        QVERIFY(support::writeFile(place.filePath(u"one.stl"_s), support::binaryStl(support::stlFacet(0))));
        QVERIFY(support::writeFile(place.filePath(u"load.txt"_s), "FemBoundaryConditions"));
        QVERIFY(QFile::setPermissions(place.filePath(file), {}));
        QVERIFY(::chmod(QFile::encodeName(place.path()).constData(), 0777) == 0);
        QString const asNobody = u"setpriv --reuid=65534 --regid=65534 --clear-groups "_s;
        bool const isRoot = ::geteuid() == 0;
        if (isRoot && runShell(asNobody + u"\"$SURFACEIO\" --version"_s).exitCode != 0)
            QSKIP("root reads everything, and cannot become somebody else here");
        QString const command = u"\"$SURFACEIO\" "_s + QString::fromUtf8(QTest::currentDataTag());
        verify(runShell((isRoot ? asNobody : QString()) + command, place.path()), 1, {},
               u"surfaceio: %1: cannot be opened: Permission denied\n"_s.arg(file));
        QCOMPARE(QDir(place.path())
                     .entryList({u"out.*"_s, u"parts"_s, u".surfaceio*"_s}, QDir::AllEntries | QDir::Hidden),
                 QStringList());
    }

    // What prints a result says when nobody gets it.
    void closedOutput_data()
    {
        QTest::addColumn<QString>("arguments");
        for (char const* const command :
             {"--help", "--version", "info one.stl", "check one.stl", "formats", "completion bash", "manual",
              "header get one.stl", "tags list one.stl", "tags split one.stl --force", "bundle list one.xml",
              "bundle unpack one.xml parts --force", "convert one.stl out.ply --force --json",
              "vmesh from one.msh -o out.vmesh --force", "vmesh conditions load.txt"})
            QTest::newRow(command) << QString::fromLatin1(command);
    }

    void closedOutput()
    {
        QFETCH(QString, arguments);
        for (char const* const output : {">&-", ">/dev/full"}) {
            if (!QFile::exists(u"/dev/full"_s))
                QSKIP("there is no /dev/full");
            verify(runShell(u"\"$SURFACEIO\" %1 %2"_s.arg(arguments, QString::fromLatin1(output)),
                            folder.path()),
                   1, {}, u"surfaceio: the results could not be written to the standard output\n"_s);
        }
    }

    void names_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("dash") << u"-scan"_s;
        QTest::newRow("two dashes") << u"--help"_s;
        QTest::newRow("not ASCII") << u"Zähne 牙 \U0001F9B7"_s;
        QTest::newRow("200 characters") << QString(200, u'n');
        QTest::newRow("pattern") << u"[a] $b 'c' %d"_s;
    }

    // One scan, or one model of a mesher, on its way through every verb.
    void names()
    {
        QTemporaryDir const place;
        QFETCH(QString, name);
        QVERIFY(support::writeFile(place.filePath(name + u".msh"_s), oneTetrahedron));
        QVERIFY(support::writeFile(place.filePath(name + u".txt"_s), conditions));
        // NAME stands for the name of all files.
        for (char const* const command : {"sample --facets=500 -- NAME.stl",
                                          "info -- NAME.stl",
                                          "check -- NAME.stl",
                                          "convert -- NAME.stl NAME.ply",
                                          "convert --to=xyz -- NAME.ply",
                                          "preview --output=NAME.png --size=16 -- NAME.stl",
                                          "header set --imported=yes -- NAME.ply",
                                          "header get -- NAME.ply",
                                          "header clear -- NAME.ply",
                                          "tags list -- NAME.stl",
                                          "tags relabel --output=NAME-r.stl -- NAME.stl 1=2",
                                          "tags split -- NAME.stl",
                                          "tags merge --output=NAME-m.stl -- NAME.stl 9=NAME-r.stl",
                                          "sample --facets=500 -- NAME-o.obj",
                                          "bake -- NAME-o.obj NAME-b.ply",
                                          "atlas --image=NAME-a.png --mesh=NAME-a.ply -- NAME-o.obj",
                                          "bundle pack -- NAME.xml NAME.stl NAME-a.ply",
                                          "bundle list -- NAME.xml",
                                          "bundle unpack -- NAME.xml NAME",
                                          "vmesh from --output=NAME.vmesh -- NAME.msh",
                                          "vmesh faces --output=NAME-f.vmesh -- NAME.vmesh",
                                          "vmesh conditions --mesh=NAME.vmesh -- NAME.txt",
                                          "convert -- NAME.vmesh NAME-v.stl"}) {
            QStringList arguments = QString::fromLatin1(command).split(u' ');
            arguments.replaceInStrings(u"NAME"_s, name);
            auto const outcome = runProgram(arguments, place.path());
            QVERIFY2(outcome.exitCode == 0, (command + (": " + outcome.standardError)).constData());
        }
    }

private:
    void write(QString const& name, QByteArray const& bytes)
    {
        QVERIFY(support::writeFile(folder.filePath(name), bytes));
    }

    int run(QString const& command) { return runProgram(command.split(u' '), folder.path()).exitCode; }

    QTemporaryDir folder;
};

QTEST_GUILESS_MAIN(tst_ProgramPlaces)
#include "tst_ProgramPlaces.moc"
