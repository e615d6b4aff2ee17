#include "Program.h"
#include "StlFiles.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;
using support::binaryStl;
using support::runProgram;
using support::runShell;
using support::stlFacet;
using support::verify;

class tst_ProgramConvertMany : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        folder.emplace();
        QVERIFY(folder->isValid());
        for (char const* name : {"scans/a.stl", "scans/b.STL", "scans/lower/a.stl", "one.stl"})
            write(QString::fromLatin1(name), binaryStl(stlFacet(0)));
        write(u"scans/readme.txt"_s, "not a mesh");
    }

    void targets_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QStringList>("made");
        auto const row = [](char const* name, QStringList const& arguments, QStringList const& made) {
            QTest::newRow(name) << arguments << made;
        };
        row("a folder keeps its subfolders", {u"scans"_s, u"-d"_s, u"out"_s},
            {u"out/a.xyz"_s, u"out/b.xyz"_s, u"out/lower/a.xyz"_s});
        row("beside", {u"scans/"_s, u"one.stl"_s},
            {u"one.xyz"_s, u"scans/a.xyz"_s, u"scans/b.xyz"_s, u"scans/lower/a.xyz"_s});
        row("a pattern", {u"scans/?.stl"_s, u"-d"_s, u"new/out/"_s},
            {u"new/out/a.xyz"_s, u"new/out/b.xyz"_s});
        row("a pattern with folders", {u"sc*/l*/*.stl"_s, u"-d"_s, u"out"_s}, {u"out/a.xyz"_s});
        row("each file once", {u"one.stl"_s, u"./one.stl"_s, u"*.stl"_s, u"--jobs"_s, u"1"_s},
            {u"one.xyz"_s});
        row("many jobs", {u"scans"_s, u"-d"_s, u"out"_s, u"-j"_s, u"64"_s},
            {u"out/a.xyz"_s, u"out/b.xyz"_s, u"out/lower/a.xyz"_s});
    }

    void targets()
    {
        QFETCH(QStringList, arguments);
        QStringList const before = everything();
        verify(convert(arguments + QStringList{u"--to"_s, u"xyz"_s}), 0, {}, {});
        QStringList made = everything();
        made.removeIf([&before](QString const& path) { return before.contains(path); });
        QTEST(made, "made");
        for (QString const& path : made)
            QCOMPARE(read(path).count('\n'), 3);
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
        row("several without --to", {u"a.stl"_s, u"b.stl"_s, u"c.stl"_s}, 2,
            "surfaceio: expected IN and OUT, or --to SUFFIX for several files; found 3 files\n.*");
        row("a folder without --to", {u"one.stl"_s, u"out"_s, u"-d"_s, u"x"_s}, 2,
            "surfaceio: --directory requires --to\n.*");
        row("unknown suffix", {u"one.stl"_s, u"--to"_s, u"doc"_s}, 2, "surfaceio: --to: doc not in .*");
        row("no jobs", {u"one.stl"_s, u"--to"_s, u"xyz"_s, u"-j"_s, u"0"_s}, 2, "surfaceio: --jobs: .*");
        row("one name twice", {u"scans/a.stl"_s, u"scans/lower"_s, u"--to"_s, u"xyz"_s, u"-d"_s, u"out"_s}, 2,
            "surfaceio: scans/a.stl and scans/lower/a.stl would both become out/a.xyz\n");
        row("one name twice, with force",
            {u"scans/a.stl"_s, u"scans/lower"_s, u"--to"_s, u"xyz"_s, u"-d"_s, u"out"_s, u"--force"_s}, 2,
            "surfaceio: scans/a.stl and scans/lower/a.stl would both become out/a.xyz\n");
        row("nothing found", {u"empty"_s, u"--to"_s, u"xyz"_s}, 1,
            "surfaceio: empty: found no files of the suffixes \\.stl, \\.ply, \\.obj, \\.array, \\.vmesh\n");
        row("pattern without files", {u"x*.zzz"_s, u"--to"_s, u"xyz"_s}, 1,
            "surfaceio: x\\*.zzz: no file fits the pattern\n");
        row("pattern with a missing folder", {u"gone/*.stl"_s, u"--to"_s, u"xyz"_s, u"-d"_s, u"new"_s}, 1,
            "surfaceio: gone/\\*.stl: no file fits the pattern\n");
        row("target is a file", {u"one.stl"_s, u"--to"_s, u"xyz"_s, u"-d"_s, u"scans/readme.txt"_s}, 1,
            "surfaceio: scans/readme.txt: expected a folder, found a file\n");
    }

    void refusal()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, exitCode);
        QFETCH(QString, errorPattern);
        QVERIFY(QDir(folder->path()).mkdir(u"empty"_s));
        QStringList const before = everything();
        verify(convert(arguments), exitCode, {}, errorPattern);
        QCOMPARE(everything(), before);
    }

    void dryRun()
    {
        write(u"out/b.ply"_s, "mine");
        QStringList const before = everything();
        verify(convert({u"scans"_s, u"gone.stl"_s, u"--to"_s, u"ply"_s, u"-d"_s, u"out"_s, u"--dry-run"_s}),
               6,
               "scans/a.stl -> out/a.ply\n"
               "scans/lower/a.stl -> out/lower/a.ply\n",
               u"surfaceio: out/b.ply: exists already; --force replaces it\n"
               "surfaceio: gone.stl: there is no such file\n"
               "surfaceio: 2 of 4 files failed\n"_s);
        verify(convert({u"one.stl"_s, u"two.ply"_s, u"--dry-run"_s}), 0, "one.stl -> two.ply\n", {});
        QCOMPARE(everything(), before);
    }

    void someFail()
    {
        write(u"scans/b.STL"_s, binaryStl(stlFacet(0)).chopped(1));
        verify(convert({u"scans"_s, u"--to"_s, u"xyz"_s, u"-d"_s, u"out"_s}), 6, {},
               u"surfaceio: scans/b.STL: the header says 1 facets = 134 bytes, the file holds 133 bytes, .*\n"
               "surfaceio: 1 of 3 files failed\n"_s);
        QCOMPARE(everything(u"out"_s), QStringList({u"a.xyz"_s, u"lower/a.xyz"_s}));
    }

    void failFast()
    {
        verify(convert({u"one.stl"_s, u"gone.stl"_s, u"scans"_s, u"--to"_s, u"xyz"_s, u"-d"_s, u"out"_s,
                        u"-j"_s, u"1"_s, u"--fail-fast"_s}),
               6, {},
               u"surfaceio: gone.stl: there is no such file\n"
               "surfaceio: 1 of 5 files failed\n"
               "surfaceio: 3 of 5 files were not tried, as --fail-fast was given\n"_s);
        QCOMPARE(everything(u"out"_s), QStringList(u"one.xyz"_s));
    }

    void existingFiles()
    {
        write(u"one.xyz"_s, "mine");
        QStringList const arguments = {u"one.stl"_s, u"scans/a.stl"_s, u"--to"_s, u"xyz"_s};
        verify(
            convert(arguments), 6, {},
            u"surfaceio: one.xyz: exists already; --force replaces it\nsurfaceio: 1 of 2 files failed\n"_s);
        QCOMPARE(read(u"one.xyz"_s), QByteArray("mine"));
        verify(convert(arguments + QStringList(u"--force"_s)), 0, {}, {});
        QCOMPARE(read(u"one.xyz"_s).count('\n'), 3);
    }

    void json()
    {
        verify(convert(
                   {u"one.stl"_s, u"gone.stl"_s, u"--to"_s, u"xyz"_s, u"--imported"_s, u"--json"_s, u"-q"_s}),
               6,
               "{\n"
               "  \"schema\": \"surfaceio.convert/1\",\n"
               "  \"files\": [\n"
               "    {\n"
               "      \"path\": \"one.stl\",\n"
               "      \"output\": \"one.xyz\",\n"
               "      \"status\": \"converted\",\n"
               "      \"exitCode\": 0,\n"
               "      \"problem\": null,\n"
               "      \"warnings\": [\"a file of the kind \\\"XYZ points\\\" holds no scan metadata\"]\n"
               "    },\n"
               "    {\n"
               "      \"path\": \"gone.stl\",\n"
               "      \"output\": \"gone.xyz\",\n"
               "      \"status\": \"failed\",\n"
               "      \"exitCode\": 1,\n"
               "      \"problem\": \"gone.stl: there is no such file\",\n"
               "      \"warnings\": []\n"
               "    }\n"
               "  ]\n"
               "}\n",
               u"surfaceio: gone.stl: there is no such file\nsurfaceio: 1 of 2 files failed\n"_s);
    }

    // Every file has something of its own to say, in the library and in the program, and many are at work.
    void messagesBelongToTheirFile()
    {
        QString expected;
        for (int i = 0; i < 40; ++i) {
            QString const name = u"m/%1.ply"_s.arg(i, 2, 10, QChar(u'0'));
            bool const isText = i % 2 == 0;
            write(name, isText ? translucentTriangle().replace("binary_little_endian", "ascii")
                               : translucentTriangle());
            expected += isText
                            ? u"surfaceio: warning: %1: This PLY is encoded in ASCII. We only support binary "
                              "PLYs\nsurfaceio: %1: [^\n]*\n"_s.arg(name)
                            : u"surfaceio: warning: %1: colours lose their alpha; --alpha writes it\n"
                              "surfaceio: %1 -> out/%2.ply\n"_s.arg(name)
                                  .arg(i, 2, 10, QChar(u'0'));
        }
        verify(convert({u"m"_s, u"--to"_s, u"ply"_s, u"-d"_s, u"out"_s, u"-j"_s, u"8"_s, u"-v"_s}), 6, {},
               expected + u"surfaceio: 20 of 40 files failed\n"_s);
    }

    void names_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("non-ASCII") << u"Zähne 歯"_s;
        QTest::newRow("200 characters") << QString(196, u'n');
        QTest::newRow("leading dash") << u"-n"_s;
        QTest::newRow("pattern") << u"a*?"_s;
    }

    void names()
    {
        QFETCH(QString, name);
        write(u"in/%1.stl"_s.arg(name), binaryStl(stlFacet(0)));
        verify(convert({u"in"_s, u"--to"_s, u"xyz"_s, u"--directory="_s + name}), 0, {}, {});
        QCOMPARE(read(u"%1/%1.xyz"_s.arg(name)).count('\n'), 3);
        verify(runProgram({u"convert"_s, u"--to"_s, u"ply"_s, u"--"_s, name + u".stl"_s},
                          folder->filePath(u"in"_s)),
               0, {}, {});
        QCOMPARE(everything(u"in"_s), QStringList({name + u".ply"_s, name + u".stl"_s}));
    }

#ifdef Q_OS_UNIX
    void pipe()
    {
        QCOMPARE(mkfifo(QFile::encodeName(folder->filePath(u"scans/pipe.stl"_s)).constData(), 0600), 0);
        verify(convert({u"scans"_s, u"--to"_s, u"xyz"_s, u"-d"_s, u"out"_s}), 0, {}, {});
        verify(convert({u"scans/pipe.stl"_s, u"one.stl"_s, u"--to"_s, u"xyz"_s, u"-d"_s, u"out"_s}), 6, {},
               u"surfaceio: scans/pipe.stl: expected a regular file, found a pipe, socket or device\n"
               "surfaceio: 1 of 2 files failed\n"_s);
    }

    void closedStandardOutput()
    {
        verify(runShell(u"\"$SURFACEIO\" convert one.stl --to xyz --json >&-"_s, folder->path()), 1, {},
               u"surfaceio: the results could not be written to the standard output\n"_s);
        QCOMPARE(read(u"one.xyz"_s).count('\n'), 3);
    }

    // A limit on file sizes stands for a full disk.
    void fullDisk()
    {
        verify(runProgram({u"sample"_s, u"scans/big.stl"_s, u"--facets"_s, u"1000"_s}, folder->path()), 0, {},
               {});
        verify(runShell(u"ulimit -f 8; \"$SURFACEIO\" convert scans --to xyz -d out"_s, folder->path()), 6,
               {},
               u"surfaceio: warning: scans/big.stl: facets lose their tags\n"
               "surfaceio: out/big.xyz: could not be written: File too large\n"
               "surfaceio: 1 of 4 files failed\n"_s);
        QCOMPARE(everything(u"out"_s), QStringList({u"a.xyz"_s, u"b.xyz"_s, u"lower/a.xyz"_s}));
    }

    // The rest is converted, and nobody takes it for all.
    void unreadableFolder()
    {
        write(u"scans/\U0001F9B7/c.stl"_s, binaryStl(stlFacet(0)));
        QVERIFY(QFile::setPermissions(folder->filePath(u"scans/lower"_s), {}));
        QVERIFY(::chmod(QFile::encodeName(folder->path()).constData(), 0777) == 0);
        QString const asNobody = u"setpriv --reuid=65534 --regid=65534 --clear-groups "_s;
        bool const isRoot = geteuid() == 0;
        if (isRoot && runShell(asNobody + u"\"$SURFACEIO\" --version"_s).exitCode != 0)
            QSKIP("root reads everything, and cannot become somebody else here");
        QString const command =
            (isRoot ? asNobody : QString()) + u"\"$SURFACEIO\" convert scans -d out --to xyz"_s;
        auto const json = runShell(command + u" --json --dry-run"_s, folder->path());
        verify(runShell(command, folder->path()), 6, {},
               u"surfaceio: scans/lower: the folder cannot be read: Permission denied\n"
               "surfaceio: 1 of 4 files failed\n"_s);
        auto const inside = runShell(command + u" --force 'scans/lower/*.stl'"_s, folder->path());
        QVERIFY(QFile::setPermissions(folder->filePath(u"scans/lower"_s), QFile::Permissions(0x7000)));
        QCOMPARE(everything(u"out"_s), QStringList({u"a.xyz"_s, u"b.xyz"_s, u"\U0001F9B7/c.xyz"_s}));
        QCOMPARE(json.exitCode, 6);
        QVERIFY(json.standardOutput.contains(
            "    {\n"
            "      \"path\": \"scans/lower\",\n"
            "      \"output\": null,\n"
            "      \"status\": \"failed\",\n"
            "      \"exitCode\": 1,\n"
            "      \"problem\": \"scans/lower: the folder cannot be read: Permission denied\",\n"
            "      \"warnings\": []\n"
            "    }"));
        verify(inside, 6, {},
               u"surfaceio: scans/lower: the folder cannot be read: Permission denied\n"
               "surfaceio: 1 of 4 files failed\n"_s);
    }

    void undecodableNames()
    {
        if (runShell(u"cd scans && cp a.stl \"$(printf 'x\\377.stl')\" && mkdir \"$(printf 'y\\376')\""_s,
                     folder->path())
                .exitCode != 0)
            QSKIP("this disk takes names in UTF-8 only");
        QString const sentence = u": the name is not UTF-8, and nothing can be opened by it\n"_s;
        verify(convert({u"scans"_s, u"--to"_s, u"xyz"_s, u"-d"_s, u"out"_s}), 6, {},
               u"surfaceio: scans/x\uFFFD.stl"_s + sentence + u"surfaceio: scans/y\uFFFD"_s + sentence +
                   u"surfaceio: 2 of 5 files failed\n"_s);
        QString const program = u"\"$SURFACEIO\" "_s;
        for (char const* const arguments :
             {"info scans/x?.stl", "convert scans/x?.stl out.ply", "convert scans/x?.stl --to ply"})
            verify(runShell(program + QString::fromLatin1(arguments), folder->path()), 1, {},
                   u"surfaceio: scans/x\uFFFD.stl"_s + sentence);
        verify(runShell(program + u"convert one.stl \"$(printf 'o\\377.ply')\""_s, folder->path()), 1, {},
               u"surfaceio: o\uFFFD.ply"_s + sentence);
        verify(runShell(program + u"convert one.stl --to ply -d \"$(printf 'o\\377')\""_s, folder->path()), 1,
               {}, u"surfaceio: o\uFFFD"_s + sentence);
        QCOMPARE(everything(u"out"_s), QStringList({u"a.xyz"_s, u"b.xyz"_s, u"lower/a.xyz"_s}));
        QCOMPARE(runShell(u"rm -r scans/x* scans/y*"_s, folder->path()).exitCode, 0); // Qt cannot
    }

    void linkThatLeadsNowhere()
    {
        QVERIFY(QFile::link(u"gone.stl"_s, folder->filePath(u"scans/lower/link.stl"_s)));
        QVERIFY(QFile::link(u"../.."_s, folder->filePath(u"scans/lower/folder.stl"_s)));
        verify(convert({u"scans/lower"_s, u"--to"_s, u"xyz"_s, u"-d"_s, u"out"_s}), 6, {},
               u"surfaceio: scans/lower/link.stl: expected a file, found a link to \".*gone.stl\", which "
               u"does not "
               "exist\nsurfaceio: 1 of 2 files failed\n"_s);
        QCOMPARE(everything(u"out"_s), QStringList(u"a.xyz"_s));
    }

    void unreadableFile()
    {
        QVERIFY(QFile::setPermissions(folder->filePath(u"one.stl"_s), {}));
        QVERIFY(::chmod(QFile::encodeName(folder->path()).constData(), 0777) == 0);
        QString const command = u"\"$SURFACEIO\" convert one.stl scans/a.stl --to xyz -d out"_s;
        QString const asNobody = u"setpriv --reuid=65534 --regid=65534 --clear-groups "_s;
        bool const isRoot = geteuid() == 0;
        if (isRoot && runShell(asNobody + u"\"$SURFACEIO\" --version"_s).exitCode != 0)
            QSKIP("root reads everything, and cannot become somebody else here");
        verify(
            runShell((isRoot ? asNobody : QString()) + command, folder->path()), 6, {},
            u"surfaceio: one.stl: cannot be opened: Permission denied\nsurfaceio: 1 of 2 files failed\n"_s);
        QCOMPARE(everything(u"out"_s), QStringList(u"a.xyz"_s));
    }

    // The line is for eyes only: both streams have to be terminals.
    void progressOnATerminal()
    {
        if (runShell(u"command -v script"_s).exitCode != 0)
            QSKIP("there is no script(1) to make a terminal with");
        QString const command = u"export TERM=xterm; script -qec '\"$SURFACEIO\" convert --force one.stl "
                                "scans/a.stl --to xyz %1' /dev/null </dev/null"_s;
        auto const shown = runShell(command.arg(QString()), folder->path());
        QCOMPARE(shown.exitCode, 0);
        QVERIFY(shown.standardOutput.contains("\r\x1b[K[....................] 0/2  0:00"));
        QVERIFY(shown.standardOutput.endsWith("\r\x1b[K"));
        for (char const* hidden : {"| cat", "2>&1 | cat", "2>/dev/null", "--quiet"}) {
            auto const outcome = runShell(command.arg(QString::fromLatin1(hidden)), folder->path());
            QCOMPARE(outcome.standardOutput, QByteArray());
        }
    }
#endif

private:
    static QByteArray translucentTriangle()
    {
        QByteArray const corner(12, '\0');
        QByteArray bytes = "ply\nformat binary_little_endian 1.0\nelement vertex 3\nproperty float x\n"
                           "property float y\nproperty float z\nproperty uchar red\nproperty uchar green\n"
                           "property uchar blue\nproperty uchar alpha\nelement face 1\n"
                           "property list uchar int vertex_indices\nend_header\n";
        for (int i = 0; i < 3; ++i)
            bytes += corner.left(4 * i) + QByteArray("\0\0\x80\x3f", 4) + corner.left(8 - 4 * i) + "\1\2\3\4";
        return bytes + QByteArray("\3\0\0\0\0\1\0\0\0\2\0\0\0", 13);
    }

    void write(QString const& name, QByteArray const& bytes)
    {
        QString const path = folder->filePath(name);
        QVERIFY(QDir().mkpath(QFileInfo(path).absolutePath()));
        QVERIFY(support::writeFile(path, bytes));
    }

    QByteArray read(QString const& name)
    {
        return support::readFile(folder->filePath(name));
    }

    // All files, hidden ones too.
    QStringList everything(QString const& below = {})
    {
        QDir const root(folder->filePath(below));
        QDirIterator iterator(root.path(), QDir::Files | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot,
                              QDirIterator::Subdirectories);
        QStringList paths;
        while (iterator.hasNext())
            paths << root.relativeFilePath(iterator.next());
        paths.sort();
        return paths;
    }

    support::Outcome convert(QStringList const& arguments)
    {
        return runProgram(QStringList(u"convert"_s) + arguments, folder->path());
    }

    std::optional<QTemporaryDir> folder;
};

QTEST_GUILESS_MAIN(tst_ProgramConvertMany)
#include "tst_ProgramConvertMany.moc"
