#include "Program.h"
#include "StlFiles.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

using namespace Qt::StringLiterals;
using support::binaryStl;
using support::readFile;
using support::runProgram;
using support::runShell;
using support::stlFacet;
using support::verify;

class tst_ProgramConvert : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        folder.emplace();
        QVERIFY(folder->isValid());
        write(u"in.stl"_s, binaryStl(stlFacet(0) + stlFacet(3)));
    }

    void toXyz()
    {
        verify(convert({u"in.stl"_s, u"out.xyz"_s}), 0, {}, {});
        QCOMPARE(read(u"out.xyz"_s), QByteArray("0.000000 0.000000 0.000000\n"
                                                "1.000000 0.000000 0.000000\n"
                                                "0.000000 2.000000 0.000000\n"
                                                "3.000000 0.000000 0.000000\n"
                                                "4.000000 0.000000 0.000000\n"
                                                "3.000000 2.000000 0.000000\n"));
    }

    void coincidentVerticesAreMerged()
    {
        write(u"in.stl"_s, binaryStl(stlFacet(0) + stlFacet(1)));
        verify(convert({u"in.stl"_s, u"out.xyz"_s}), 0, {}, {});
        QCOMPARE(read(u"out.xyz"_s), QByteArray("0.000000 0.000000 0.000000\n"
                                                "1.000000 0.000000 0.000000\n"
                                                "0.000000 2.000000 0.000000\n"
                                                "2.000000 0.000000 0.000000\n"
                                                "1.000000 2.000000 0.000000\n"));
    }

    void toStlAndBack()
    {
        verify(convert({u"in.stl"_s, u"again.stl"_s}), 0, {}, {});
        QCOMPARE(read(u"again.stl"_s), binaryStl(stlFacet(0) + stlFacet(3)));
    }

    void toArrayRecordAndBack()
    {
        verify(convert({u"in.stl"_s, u"out.array"_s}), 0, {}, {});
        QByteArray const record = read(u"out.array"_s);
        QCOMPARE(record.size(), 8 + 48 * 6 + 4 * 8);
        QCOMPARE(record.left(8), QByteArray("\0\0\0\x06\0\0\0\x08", 8));
        verify(convert({u"out.array"_s, u"again.stl"_s}), 0, {}, {});
        QCOMPARE(read(u"again.stl"_s), binaryStl(stlFacet(0) + stlFacet(3)));
    }

    void suffixesInCapitals()
    {
        write(u"IN.STL"_s, binaryStl(stlFacet(0)));
        verify(convert({u"IN.STL"_s, u"OUT.Xyz"_s}), 0, {}, {});
        QCOMPARE(read(u"OUT.Xyz"_s).count('\n'), 3);
    }

    void refusal_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("errorPattern");
        auto const row = [](char const* name, QStringList const& arguments, int exitCode,
                            char const* pattern) {
            QTest::newRow(name) << arguments << exitCode << QString::fromUtf8(pattern);
        };
        row("no files", {}, 2, "surfaceio: IN is required\n.*");
        row("one file", {u"in.stl"_s}, 2, "surfaceio: OUT is required\n.*");
        row("unknown target", {u"in.stl"_s, u"out.doc"_s}, 2,
            "surfaceio: out.doc: expected one of the suffixes \\.stl, .*\n");
        row("unknown source", {u"in.doc"_s, u"out.stl"_s}, 2,
            "surfaceio: in.doc: expected one of the suffixes \\.stl, .*\n");
        row("missing source", {u"gone.stl"_s, u"out.stl"_s}, 1,
            "surfaceio: gone.stl: there is no such file\n");
        row("missing folder", {u"in.stl"_s, u"no/out.stl"_s}, 1,
            "surfaceio: no/out.stl: the folder \".*/no\" does not exist\n");
        row("short", {u"short.stl"_s, u"out.stl"_s}, 3,
            "surfaceio: short.stl: the header says 2 facets = 184 bytes, the file holds 183 bytes, room for "
            "1 "
            "facets\n");
        row("says solid", {u"solid.stl"_s, u"out.stl"_s}, 4,
            "surfaceio: solid.stl: a binary STL of 1 facet .*\n");
        row("no facets", {u"empty.stl"_s, u"out.stl"_s}, 1,
            "surfaceio: empty.stl: holds no facets that could be converted\n");
        row("points", {u"points.obj"_s, u"out.ply"_s}, 1,
            "surfaceio: points.obj: holds no facets that could be converted\n");
        row("points to points", {u"points.obj"_s, u"out.xyz"_s}, 1,
            "surfaceio: points.obj: holds no facets that could be converted\n");
        row("STL named PLY", {u"wrong.ply"_s, u"out.stl"_s}, 4,
            "surfaceio: wrong.ply: the content is that of STL, the suffix is not\n");
        row("bad record", {u"bad.array"_s, u"out.stl"_s}, 3,
            "surfaceio: bad.array: expected counts from 0 on, found -1 vertices and -1 indices\n");
        row("onto itself", {u"in.stl"_s, u"in.stl"_s}, 1,
            "surfaceio: in.stl: exists already; --force replaces it\n");
    }

    void refusal()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, exitCode);
        QFETCH(QString, errorPattern);
        write(u"short.stl"_s, binaryStl(stlFacet(0) + stlFacet(3)).chopped(1));
        write(u"solid.stl"_s, binaryStl(stlFacet(0), "solid"));
        write(u"empty.stl"_s, binaryStl({}));
        write(u"points.obj"_s, "v 0 0 0\nv 1 0 0\nv 0 1 0\n");
        write(u"wrong.ply"_s, binaryStl(stlFacet(0)));
        write(u"bad.array"_s, QByteArray(8, '\xff'));
        QStringList const before = everything();
        verify(convert(arguments), exitCode, {}, errorPattern);
        QCOMPARE(everything(), before);
    }

    // What no target holds is said whatever the options are.
    void losses_data()
    {
        QTest::addColumn<QString>("in");
        QTest::addColumn<QString>("out");
        QTest::addColumn<QString>("warning");
        auto const row = [](char const* in, char const* out, char const* warning) {
            QTest::addRow("%s to %s", in, out)
                << QString::fromUtf8(in) << QString::fromUtf8(out)
                << (*warning == '\0' ? QString()
                                     : u"surfaceio: warning: "_s + QString::fromUtf8(warning) + u'\n');
        };
        row("in.stl", "out.stl", "");
        row("tag.stl", "out.stl", "facets lose their tags");
        row("subtag.stl", "out.ply", "facets lose their tags");
        row("text.stl", "out.stl", "");
        row("colours.ply", "out.ply", "");
        row("colours.ply", "out.stl",
            "vertices lose their colours: a file of the kind \"binary STL\" holds none");
        row("colours.ply", "out.xyz",
            "vertices lose their colours: a file of the kind \"XYZ points\" holds none");
        row("colours.ply", "out.array",
            "vertices lose their colours: a file of the kind \"mesh array record\" holds none");
        row("library.obj", "out.ply",
            "library.obj: the material library \"Library.mtl\" does not exist; is it \"library.mtl\"\\?");
        row("image.obj", "out.ply", "the image \".*/gone.png\" does not exist");
    }

    void losses()
    {
        QFETCH(QString, in);
        QFETCH(QString, out);
        QFETCH(QString, warning);
        write(u"tag.stl"_s, binaryStl(stlFacet(0) + stlFacet(3, 7)));
        write(u"subtag.stl"_s, binaryStl(stlFacet(0, 0, -1)));
        write(u"text.stl"_s, "solid a\nvertex 0 0 0\nvertex 1 0 0\nvertex 0 1 0\nendsolid\n");
        write(u"library.mtl"_s, "newmtl a\n");
        write(u"image.mtl"_s, "newmtl a\nmap_Kd gone.png\n");
        write(u"image.obj"_s,
              "mtllib image.mtl\nv 0 0 0\nv 1 0 0\nv 0 1 0\nvt 0 0\nusemtl a\nf 1/1 2/1 3/1\n");
        write(u"library.obj"_s, "mtllib Library.mtl\nv 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n");
        write(u"colours.ply"_s,
              "ply\nformat binary_little_endian 1.0\nelement vertex 3\nproperty float x\nproperty float y\n"
              "property float z\nproperty uchar red\nproperty uchar green\nproperty uchar blue\n"
              "element face 1\nproperty list uchar int vertex_indices\nend_header\n" +
                  QByteArray("\0\0\0\0\0\0\0\0\0\0\0\0abc\0\0\x80\x3f\0\0\0\0\0\0\0\0"
                             "abc\0\0\0\0\0\0\x80\x3f\0\0\0\0"
                             "abc",
                             45) +
                  QByteArray("\3\0\0\0\0\1\0\0\0\2\0\0\0", 13));
        verify(convert({in, out, u"--strict"_s}), warning.isEmpty() ? 0 : 5, {}, warning);
        verify(convert({in, u"none-"_s + out, u"--texture"_s, u"none"_s}), 0, {},
               in == "library.obj"_L1 ? QString() : warning);
    }

    void wordsThatAreNoNumbers()
    {
        write(u"a.obj"_s, "v 0 0 0\nv 1 0 0\nv 0 0,5 \"\nv 0 1 0\nf 1 2 4\n");
        verify(convert({u"a.obj"_s, u"out.ply"_s, u"--strict"_s}), 5, {},
               u"surfaceio: warning: \"0,5\" stands where a number is expected, and is read as 0\n"
               "surfaceio: warning: \".*\" stands where a number is expected, and is read as 0\n"_s);
    }

    void ontoItselfWithForce()
    {
        verify(convert({u"in.stl"_s, u"in.stl"_s, u"--force"_s}), 0, {}, {});
        QCOMPARE(read(u"in.stl"_s), binaryStl(stlFacet(0) + stlFacet(3)));
        QCOMPARE(everything(), QStringList(u"in.stl"_s));
    }

    void failedConversionLeavesTheOldFile()
    {
        write(u"short.stl"_s, binaryStl(stlFacet(0)).chopped(1));
        write(u"out.xyz"_s, "mine");
        verify(convert({u"short.stl"_s, u"out.xyz"_s, u"--force"_s}), 3, {}, u".*"_s);
        QCOMPARE(read(u"out.xyz"_s), QByteArray("mine"));
    }

    void folderAsTarget()
    {
        QVERIFY(QDir(folder->path()).mkdir(u"out.stl"_s));
        verify(convert({u"in.stl"_s, u"out.stl"_s, u"--force"_s}), 1, {},
               u"surfaceio: out.stl: is a folder\n"_s);
    }

#ifdef Q_OS_UNIX
    void pipeAsSource()
    {
        makePipe(u"pipe.stl"_s);
        verify(convert({u"pipe.stl"_s, u"out.stl"_s}), 1, {},
               u"surfaceio: pipe.stl: expected a regular file, found a pipe, socket or device\n"_s);
    }

    void pipeAsTarget()
    {
        makePipe(u"pipe.stl"_s);
        verify(convert({u"in.stl"_s, u"pipe.stl"_s, u"--force"_s}), 1, {},
               u"surfaceio: pipe.stl: is a pipe, socket or device, and is not replaced\n"_s);
    }

    void linkAsTargetStaysALink()
    {
        write(u"real.xyz"_s, "old");
        QVERIFY(QFile::link(u"real.xyz"_s, folder->filePath(u"link.xyz"_s)));
        verify(convert({u"in.stl"_s, u"link.xyz"_s, u"--force"_s}), 0, {}, {});
        QVERIFY(QFileInfo(folder->filePath(u"link.xyz"_s)).isSymLink());
        QCOMPARE(read(u"real.xyz"_s).count('\n'), 6);
    }

    void permissionsOfTheReplacedFileStay()
    {
        write(u"out.xyz"_s, "old");
        auto const permissions = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;
        QVERIFY(QFile::setPermissions(folder->filePath(u"out.xyz"_s), permissions));
        verify(convert({u"in.stl"_s, u"out.xyz"_s, u"--force"_s}), 0, {}, {});
        QCOMPARE(QFile::permissions(folder->filePath(u"out.xyz"_s)), permissions);
    }

    // A limit on file sizes stands for a full disk: what was there before stays.
    void fullDisk_data()
    {
        QTest::addColumn<QString>("out");
        for (char const* out : {"out.xyz", "out.array", "out.stl", "out.ply"})
            QTest::newRow(out) << QString::fromLatin1(out);
    }

    void fullDisk()
    {
        QFETCH(QString, out);
        write(out, "mine");
        verify(runProgram({u"sample"_s, u"big.stl"_s, u"--facets"_s, u"1000"_s}, folder->path()), 0, {}, {});
        verify(runShell(u"ulimit -f 8; \"$SURFACEIO\" convert --force big.stl %1"_s.arg(out), folder->path()),
               1, {},
               u"surfaceio: warning: facets lose their tags\n"
               "surfaceio: %1: could not be written: File too large\n"_s.arg(out));
        QCOMPARE(read(out), QByteArray("mine"));
        QCOMPARE(everything(), QStringList({u"big.stl"_s, u"in.stl"_s, out}));
    }
#endif

    void names_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("non-ASCII") << u"Zähne 歯"_s;
        QTest::newRow("200 characters") << QString(196, u'n');
        QTest::newRow("leading dash") << u"-n"_s;
        QTest::newRow("two dots") << u"a.b"_s;
        QTest::newRow("hidden") << u".a"_s;
    }

    void names()
    {
        QFETCH(QString, name);
        write(name + u".stl"_s, binaryStl(stlFacet(0)));
        verify(convert({u"--"_s, name + u".stl"_s, name + u".xyz"_s}), 0, {}, {});
        QCOMPARE(read(name + u".xyz"_s).count('\n'), 3);
    }

private:
    void write(QString const& name, QByteArray const& bytes)
    {
        QVERIFY(support::writeFile(folder->filePath(name), bytes));
    }

    QByteArray read(QString const& name)
    {
        return readFile(folder->filePath(name));
    }

    QStringList everything()
    {
        return QDir(folder->path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }

#ifdef Q_OS_UNIX
    void makePipe(QString const& name)
    {
        QCOMPARE(mkfifo(QFile::encodeName(folder->filePath(name)).constData(), 0600), 0);
    }
#endif

    support::Outcome convert(QStringList const& arguments)
    {
        return runProgram(QStringList(u"convert"_s) + arguments, folder->path());
    }

    std::optional<QTemporaryDir> folder;
};

QTEST_GUILESS_MAIN(tst_ProgramConvert)
#include "tst_ProgramConvert.moc"
