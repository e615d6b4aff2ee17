#include "Program.h"
#include "StlFiles.h"
#include "tags/TaggedFile.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using support::binaryStl;
using support::readFile;
using support::runProgram;
using support::stlFacet;
using support::verify;

class tst_ProgramTags : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        folder.emplace();
        QVERIFY(folder->isValid());
        write(u"s.stl"_s, source());
    }

    void list()
    {
        verify(tags({u"list"_s, u"s.stl"_s}), 0,
               "tags\n"
               "  tag  subTag  facets  area (mm²)\n"
               "    3       0       2       2.000\n"
               "    3       1       1       1.000\n"
               "  200      -5       1       1.000\n",
               {});
        verify(tags({u"list"_s, u"s.stl"_s, u"--json"_s}), 0,
               "{\n"
               "  \"schema\": \"surfaceio.tags/1\",\n"
               "  \"path\": \"s.stl\",\n"
               "  \"tags\": [\n"
               "    {\"tag\": 3, \"subTag\": 0, \"facets\": 2, \"area\": 2},\n"
               "    {\"tag\": 3, \"subTag\": 1, \"facets\": 1, \"area\": 1},\n"
               "    {\"tag\": 200, \"subTag\": -5, \"facets\": 1, \"area\": 1}\n"
               "  ]\n"
               "}\n",
               {});
    }

    void splitByTag()
    {
        verify(tags({u"split"_s, u"s.stl"_s}), 0, "./s-200.stl\t1\n./s-3.stl\t3\n", {});
        QCOMPARE(read(u"s-3.stl"_s), binaryStl(stlFacet(0, 3) + stlFacet(9, 3) + stlFacet(5, 3, 1), "head"));
        QCOMPARE(read(u"s-200.stl"_s), binaryStl(stlFacet(2, 200, -5), "head"));
    }

    void splitByPattern()
    {
        QVERIFY(QDir(folder->path()).mkdir(u"parts"_s));
        verify(tags({u"split"_s, u"s.stl"_s, u"-d"_s, u"parts"_s, u"--pattern"_s,
                     u"{subTag}_{tag} {name}.STL"_s}),
               0, "parts/-5_200 s.STL\t1\nparts/0_3 s.STL\t2\nparts/1_3 s.STL\t1\n", {});
        QCOMPARE(read(u"parts/1_3 s.STL"_s), binaryStl(stlFacet(5, 3, 1), "head"));
    }

    // Nothing is written when one of the files may not be.
    void splitIsAllOrNothing()
    {
        write(u"s-200.stl"_s, "mine");
        QStringList const before = everything();
        verify(tags({u"split"_s, u"s.stl"_s}), 1, {},
               u"surfaceio: ./s-200.stl: exists already; --force replaces it\n"_s);
        QCOMPARE(everything(), before);
        verify(tags({u"split"_s, u"s.stl"_s, u"--force"_s}), 0, "./s-200.stl\t1\n./s-3.stl\t3\n", {});
    }

    void merge()
    {
        write(u"a.stl"_s, binaryStl(stlFacet(1, 7, 7), "first"));
        write(u"b.stl"_s, binaryStl(stlFacet(2, 8, 8), "second"));
        write(u"c=d.stl"_s, binaryStl(stlFacet(3, 9, 9)));
        verify(
            tags({u"merge"_s, u"a.stl"_s, u"31=b.stl"_s, u"4/-2=b.stl"_s, u"c=d.stl"_s, u"-o"_s, u"m.stl"_s}),
            0, {}, {});
        QCOMPARE(read(u"m.stl"_s),
                 binaryStl(stlFacet(1, 7, 7) + stlFacet(2, 31, 0) + stlFacet(2, 4, -2) + stlFacet(3, 9, 9),
                           "first"));
    }

    void splitAndMergeGiveTheSameFacets()
    {
        verify(runProgram({u"sample"_s, u"t.stl"_s, u"--facets"_s, u"2000"_s}, folder->path()), 0, {}, {});
        QCOMPARE(tags({u"split"_s, u"t.stl"_s, u"--pattern"_s, u"p{tag}.stl"_s}).exitCode, 0);
        QStringList parts;
        for (int const tag : {1, 31, 32, 33, 34, 35, 36, 37, 41, 42, 43, 44, 45, 46, 47})
            parts << u"p%1.stl"_s.arg(tag);
        verify(tags(QStringList{u"merge"_s, u"-o"_s, u"m.stl"_s} + parts), 0, {}, {});
        QVERIFY(read(u"m.stl"_s) == read(u"t.stl"_s));
    }

    void relabel()
    {
        verify(tags({u"relabel"_s, u"s.stl"_s, u"3/1=9/2"_s, u"3=31"_s, u"*=1/*"_s, u"-o"_s, u"r.stl"_s}), 0,
               {}, {});
        QCOMPARE(
            read(u"r.stl"_s),
            binaryStl(stlFacet(0, 31) + stlFacet(2, 1, -5) + stlFacet(9, 31) + stlFacet(5, 9, 2), "head"));
    }

    void relabelInPlace()
    {
        verify(tags({u"relabel"_s, u"s.stl"_s, u"*=0/0"_s, u"-o"_s, u"s.stl"_s, u"--force"_s}), 0, {}, {});
        QCOMPARE(read(u"s.stl"_s), binaryStl(stlFacet(0) + stlFacet(2) + stlFacet(9) + stlFacet(5), "head"));
    }

    void relabelWarnsOfIdleRules()
    {
        verify(tags({u"relabel"_s, u"s.stl"_s, u"77=1"_s, u"-o"_s, u"r.stl"_s}), 0, {},
               u"surfaceio: warning: s.stl: no facet for the rule 77=1\n"_s);
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
        row("nothing", {}, 2,
            "surfaceio: A subcommand is required\nsurfaceio: see \"surfaceio tags --help\"\n");
        row("missing", {u"list"_s, u"gone.stl"_s}, 1, "surfaceio: gone.stl: there is no such file\n");
        row("ascii", {u"list"_s, u"ascii.stl"_s}, 4,
            "surfaceio: ascii.stl: is read as ASCII STL, which has no tags\n");
        row("short", {u"split"_s, u"short.stl"_s}, 3,
            "surfaceio: short.stl: expected a binary STL of 1 facets = 134 bytes, as its header says, found "
            "133 "
            "bytes\n");
        row("tiny", {u"split"_s, u"tiny.stl"_s}, 3,
            "surfaceio: tiny.stl: expected a binary STL .*found 3 bytes\n");
        row("PLY", {u"list"_s, u"a.ply"_s}, 4, "surfaceio: a.ply: is PLY; tags are in binary STL\n");
        row("OBJ", {u"split"_s, u"a.obj"_s}, 4, "surfaceio: a.obj: is OBJ; tags are in binary STL\n");
        row("pattern with an unknown word", {u"split"_s, u"s.stl"_s, u"--pattern"_s, u"{tag}-{subtag}.stl"_s},
            2,
            "surfaceio: \\{tag\\}-\\{subtag\\}.stl: expected \\{name\\}, \\{tag\\} or \\{subTag\\}, found "
            "\\{subtag\\}\n");
        row("pattern without suffix", {u"split"_s, u"s.stl"_s, u"--pattern"_s, u"{tag}"_s}, 2,
            "surfaceio: \\{tag\\}: expected a file name that ends with .stl\n");
        row("pattern with a folder", {u"split"_s, u"s.stl"_s, u"--pattern"_s, u"../{tag}.stl"_s}, 2,
            "surfaceio: \\.\\./\\{tag\\}.stl: expected a file name that ends with .stl\n");
        row("no such folder", {u"split"_s, u"s.stl"_s, u"-d"_s, u"no"_s}, 1,
            "surfaceio: no/s-200.stl: the folder \".*/no\" does not exist\n");
        row("merge without output", {u"merge"_s, u"s.stl"_s}, 2, "surfaceio: --output is required\n.*");
        row("merge with a bad one", {u"merge"_s, u"s.stl"_s, u"short.stl"_s, u"-o"_s, u"m.stl"_s}, 3,
            "surfaceio: short.stl: expected .*\n");
        row("relabel without rule", {u"relabel"_s, u"s.stl"_s, u"-o"_s, u"r.stl"_s}, 2,
            "surfaceio: RULE is required\n.*");
        row("relabel with nonsense", {u"relabel"_s, u"s.stl"_s, u"x"_s, u"-o"_s, u"r.stl"_s}, 2,
            "surfaceio: s.stl: \"x\": expected a rule such as .*\n");
    }

    void refusal()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, exitCode);
        QFETCH(QString, errorPattern);
        write(u"ascii.stl"_s, "solid x\nendsolid\n");
        write(u"short.stl"_s, binaryStl(stlFacet(0)).chopped(1));
        write(u"tiny.stl"_s, "abc");
        write(u"a.ply"_s, "ply\nformat binary_little_endian 1.0\nend_header\n");
        write(u"a.obj"_s, "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n");
        QStringList const before = everything();
        verify(tags(arguments), exitCode, {}, errorPattern);
        QCOMPARE(everything(), before);
    }

#ifdef Q_OS_UNIX
    // A limit on file sizes stands for a full disk.
    void fullDisk_data()
    {
        QTest::addColumn<QString>("path");
        QTest::newRow("relabel big.stl *=1 -o s.stl --force") << u"s.stl"_s;
        QTest::newRow("merge big.stl -o s.stl --force") << u"s.stl"_s;
        QTest::newRow("split big.stl --pattern s.stl --force") << u"./s.stl"_s;
    }

    void fullDisk()
    {
        QFETCH(QString, path);
        write(u"big.stl"_s, binaryStl(stlFacet(0, 3).repeated(300)));
        QByteArray const before = read(u"s.stl"_s);
        QStringList const names = everything();
        verify(support::runShell(u"set -f; ulimit -f 8; \"$SURFACEIO\" tags %1"_s.arg(
                                     QString::fromLatin1(QTest::currentDataTag())),
                                 folder->path()),
               1, {}, u"surfaceio: %1: could not be written: File too large\n"_s.arg(path));
        QCOMPARE(read(u"s.stl"_s), before);
        QCOMPARE(everything(), names);
    }
#endif

    void rule_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("isRule");
        for (char const* good : {"3=31", "0=255", "3/1=4/2", "*=1", "*/-128=*/127", "3=*/5", "*=*"})
            QTest::newRow(good) << QString::fromLatin1(good) << true;
        for (char const* bad : {"", "=", "3", "3=", "=3", "3=256", "-1=3", "3/128=1", "3=1/-129", "3=1=2",
                                "a=1", "3/=1", "3/1/1=1", "3=1x"})
            QTest::newRow(bad) << QString::fromLatin1(bad) << false;
    }

    void rule()
    {
        QFETCH(QString, text);
        QFETCH(bool, isRule);
        QCOMPARE(tool::tags::ruleFrom(text).has_value(), isRule);
    }

private:
    static QByteArray source()
    {
        return binaryStl(stlFacet(0, 3) + stlFacet(2, 200, -5) + stlFacet(9, 3) + stlFacet(5, 3, 1), "head");
    }

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

    support::Outcome tags(QStringList const& arguments)
    {
        return runProgram(QStringList(u"tags"_s) + arguments, folder->path());
    }

    std::optional<QTemporaryDir> folder;
};

QTEST_GUILESS_MAIN(tst_ProgramTags)
#include "tst_ProgramTags.moc"
