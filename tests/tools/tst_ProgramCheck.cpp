#include "Program.h"
#include "StlFiles.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTest>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;
using support::binaryStl;
using support::runProgram;
using support::stlFacet;
using support::verify;

class tst_ProgramCheck : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        folder.emplace();
        QVERIFY(folder->isValid());
        QVERIFY(QDir(folder->path()).mkpath(u"scans/deep"_s));
        write(u"short.stl"_s, binaryStl(stlFacet(0)).chopped(1));
        write(u"colours.stl"_s, binaryStl(stlFacet(0, 0x80) + stlFacet(2, 0xC0)));
        write(u"scans/b.stl"_s, binaryStl(stlFacet(0)));
        write(u"scans/deep/a.STL"_s, binaryStl(stlFacet(0)));
        write(u"scans/readme.txt"_s, "no mesh");
    }

    void unreadable()
    {
        verify(check({u"short.stl"_s}), 3,
               "short.stl: error: the header says 1 facets = 134 bytes, the file holds 133 bytes, room for 0 "
               "facets\n"
               "    bytes were lost or added: copy the file again, in binary mode; if it stays so, export it "
               "again\n",
               u"surfaceio: short.stl: 1 error\n"_s);
    }

    void warningAndNote()
    {
        QString const summary = u"surfaceio: warning: colours.stl: 1 warning\n"_s;
        verify(check({u"colours.stl"_s}), 0, withFindings(), summary);
        verify(check({u"colours.stl"_s, u"--strict"_s}), 5, withFindings(), summary);
        verify(check({u"scans/b.stl"_s, u"--strict"_s}), 0, ofOpenFacet("scans/b.stl"), {});
    }

    // The exit codes stay.
    void quiet()
    {
        verify(check({u"colours.stl"_s, u"-q"_s}), 0, {}, {});
        verify(check({u"colours.stl"_s, u"-q"_s, u"--strict"_s}), 5, {}, {});
        verify(check({u"scans/b.stl"_s, u"-q"_s}), 0, {}, {});
        auto const outcome = check({u"short.stl"_s, u"scans/b.stl"_s, u"-q"_s});
        QCOMPARE(outcome.exitCode, 6);
        QVERIFY(outcome.standardOutput.startsWith("short.stl: error: "));
        QCOMPARE(outcome.standardOutput.count('\n'), 2);
    }

    void json()
    {
        QJsonObject const note = {
            {u"code"_s, u"open-edges"_s},
            {u"severity"_s, u"note"_s},
            {u"reason"_s, u"3 edges with one facet only"_s},
            {u"remedy"_s, u"nothing for a scan, which is a sheet; close the surface before printing"_s}};
        QJsonObject const file = {{u"path"_s, u"scans/b.stl"_s},
                                  {u"errors"_s, 0},
                                  {u"warnings"_s, 0},
                                  {u"findings"_s, QJsonArray({note})}};
        QCOMPARE(jsonOf(u"scans/b.stl"_s),
                 QJsonObject({{u"schema"_s, u"surfaceio.check/1"_s}, {u"files"_s, QJsonArray({file})}}));
        QVERIFY(QDir(folder->path()).mkpath(u"none"_s));
        QJsonObject const nothing = {
            {u"code"_s, u"missing"_s},
            {u"severity"_s, u"error"_s},
            {u"reason"_s,
             u"found no files of the suffixes .shapetree, .ply, .stl, .vmesh, .conditions, .obj, .array"_s},
            {u"remedy"_s, u"check the spelling of the path"_s}};
        QCOMPARE(jsonOf(u"none"_s)["files"_L1][0]["findings"_L1], QJsonArray({nothing}));
    }

    void code_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("code");
        auto const row = [](QString const& name, QByteArray const& bytes, QString const& code) {
            QTest::newRow(qPrintable(code)) << name << bytes << code;
        };
        row(u"gone"_s, {}, u"missing"_s);
        row(u"scans/../x"_s, "text", u"unknown-format"_s);
        row(u"x.stl"_s, "short", u"stl-too-short"_s);
        row(u"x.stl"_s, binaryStl(stlFacet(0)) + ' ', u"stl-size"_s);
        row(u"x.stl"_s, "SOLID x\n", u"stl-capital-solid"_s);
        row(u"x.ply"_s, "\n<!DOCTYPE html>", u"web-page"_s);
        row(u"x.array"_s, "PK\x03\x04 and more", u"archive"_s);
        row(u"x.MSH"_s, "$MeshFormat", u"mesher-file"_s);
        row(u"x.stl"_s, binaryStl(stlFacet(0), "solid"), u"stl-says-solid"_s);
        row(u"x.stl"_s, binaryStl(stlFacet(0), "solid") + ' ', u"stl-damaged-solid"_s);
        row(u"x.stl"_s, "solid\nendsolid\n", u"stl-no-vertex"_s);
        row(u"x.stl"_s, "solid\nvertex 0 0\n", u"stl-bad-vertex"_s);
        row(u"x.stl"_s, "solid\nvertex 0 0 0\n", u"stl-vertex-count"_s);
        row(u"x.stl"_s, "solid\n" + facet("0 0 0", "0 0 0", "1 1 1"), u"stl-all-degenerate"_s);
        row(u"x.array"_s, "1", u"array-size"_s);
        row(u"x.ply"_s, "ply\nformat", u"malformed"_s);
    }

    void code()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        QFETCH(QString, code);
        if (!bytes.isEmpty())
            write(name, bytes);
        QJsonObject const finding = jsonOf(name)["files"_L1][0]["findings"_L1][0].toObject();
        QCOMPARE(finding["code"_L1].toString(), code);
        QCOMPARE(finding["severity"_L1].toString(), u"error"_s);
        QVERIFY(!finding["remedy"_L1].toString().isEmpty());
    }

    void otherContent_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QByteArray>("finding");
        auto const row = [](char const* title, QString const& name, QByteArray const& bytes, int exitCode,
                            QByteArray const& finding) {
            QTest::newRow(title) << name << bytes << exitCode << finding;
        };
        QByteArray const page =
            "error: the content is that of a web page\n"
            "    download the file again: a server sent a page in its place, to sign in or to "
            "say why not\n";
        row("a page", u"x.stl"_s, "<!DOCTYPE html>\n<html>" + QByteArray(100, ' '), 3, page);
        row("a page without a document type", u"x.obj"_s, "<HTML lang=\"en\">", 3, page);
        QByteArray const archive = "error: the content is that of an archive, ZIP or gzip\n"
                                   "    unpack it, and take the mesh out of it\n";
        row("ZIP", u"x.stl"_s, "PK\x03\x04" + QByteArray(100, ' '), 3, archive);
        row("gzip", u"x.vmesh"_s, "\x1F\x8B\x08", 3, archive);
        row("capitals", u"x.stl"_s, "SOLID x\nENDSOLID x\n", 3,
            "error: begins with \"SOLID\"; text is known by \"solid\" in small letters, so that this counts "
            "as "
            "binary data\n"
            "    write the words in small letters: readers look for \"solid\" and \"vertex\"\n");
        row("damaged volume mesh", u"x.vmesh"_s, "junk", 3,
            "error: line 1: expected a header with \"# Labeled\", found \"junk\"\n"
            "    export the file again, from the program that wrote it\n");
        row("Gmsh", u"x.msh"_s, "$MeshFormat\n", 4,
            "error: a file of a mesher; \"surfaceio vmesh from\" makes a volume mesh of it\n"
            "    surfaceio vmesh from FILE -o OUT.vmesh\n");
    }

    void otherContent()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        QFETCH(int, exitCode);
        QFETCH(QByteArray, finding);
        write(name, bytes);
        auto const outcome = check({name});
        QCOMPARE(outcome.exitCode, exitCode);
        QCOMPARE(outcome.standardOutput, name.toUtf8() + ": " + finding);
    }

    // What counts as binary by its size is a mesh, whatever its header says.
    void pageInAHeader()
    {
        write(u"x.stl"_s, binaryStl(stlFacet(0), "<html"));
        QCOMPARE(check({u"x.stl"_s}).exitCode, 0);
    }

    void nothingFound()
    {
        // A tetrahedron.
        write(u"closed.stl"_s, "solid\n" + facet("0 0 0", "0 1 0", "1 0 0") +
                                   facet("0 0 0", "1 0 0", "0 0 1") + facet("0 0 0", "0 0 1", "0 1 0") +
                                   facet("1 0 0", "0 1 0", "0 0 1") + "endsolid\n");
        verify(check({u"closed.stl"_s}), 0, "closed.stl: sound\n", {});
    }

    void wrongSuffix()
    {
        write(u"x.ply"_s, binaryStl(stlFacet(0)));
        auto const outcome = check({u"x.ply"_s});
        QCOMPARE(outcome.exitCode, 4);
        QCOMPARE(outcome.standardOutput, "x.ply: error: the content is that of STL, the suffix is not\n"
                                         "    rename the file: readers choose the format by the suffix\n");
    }

    void folders()
    {
        verify(check({u"scans"_s}), 0, ofOpenFacet("scans/b.stl") + ofOpenFacet("scans/deep/a.STL"), {});
        verify(check({u"./scans/"_s, u"scans/b.stl"_s}), 0,
               ofOpenFacet("scans/b.stl") + ofOpenFacet("scans/deep/a.STL"), {});
    }

    void patterns()
    {
        verify(check({u"scans/*.stl"_s}), 0, ofOpenFacet("scans/b.stl"), {});
        verify(check({u"scans/*.ply"_s}), 1,
               "scans/*.ply: error: no file fits the pattern\n    check the spelling of the path\n",
               u"surfaceio: scans/\\*.ply: 1 error\n"_s);
    }

    void emptyFolder()
    {
        QVERIFY(QDir(folder->path()).mkpath(u"none/.hidden"_s));
        write(u"none/.hidden/a.stl"_s, binaryStl(stlFacet(0)));
        QByteArray const nothing =
            "none: error: found no files of the suffixes .shapetree, .ply, .stl, .vmesh, "
            ".conditions, .obj, .array\n    check the spelling of the path\n";
        verify(check({u"none"_s}), 1, nothing, u"surfaceio: none: 1 error\n"_s);
        verify(check({u"none"_s, u"scans/b.stl"_s}), 6, nothing + ofOpenFacet("scans/b.stl"),
               u"surfaceio: none: 1 error\n"_s);
    }

#ifdef Q_OS_UNIX
    void unreadableFolder()
    {
        QVERIFY(QFile::setPermissions(folder->filePath(u"scans/deep"_s), {}));
        QVERIFY(::chmod(QFile::encodeName(folder->path()).constData(), 0777) == 0);
        QString const asNobody = u"setpriv --reuid=65534 --regid=65534 --clear-groups "_s;
        bool const isRoot = ::geteuid() == 0;
        if (isRoot && support::runShell(asNobody + u"\"$SURFACEIO\" --version"_s).exitCode != 0)
            QSKIP("root reads everything, and cannot become somebody else here");
        QString const command = (isRoot ? asNobody : QString()) + u"\"$SURFACEIO\" check "_s;
        QByteArray const deep = "scans/deep: error: the folder cannot be read: Permission denied\n"
                                "    check who may read it\n";
        QString const summary = u"surfaceio: scans/deep: 1 error\n"_s;
        verify(support::runShell(command + u"scans"_s, folder->path()), 6, ofOpenFacet("scans/b.stl") + deep,
               summary);
        verify(support::runShell(command + u"scans/deep"_s, folder->path()), 1, deep, summary);
        verify(support::runShell(command + u"scans/deep/a.STL"_s, folder->path()), 1,
               "scans/deep/a.STL: error: cannot be opened: Permission denied\n    check who may read it\n",
               u"surfaceio: scans/deep/a.STL: 1 error\n"_s);
        QVERIFY(QFile::setPermissions(folder->filePath(u"scans/deep"_s), QFile::Permissions(0x7000)));
    }

    void undecodableName()
    {
        if (support::runShell(u"cp scans/b.stl \"$(printf 'scans/deep/x\\377.stl')\""_s, folder->path())
                .exitCode != 0)
            QSKIP("this disk takes names in UTF-8 only");
        verify(support::runShell(u"\"$SURFACEIO\" check scans/deep/x*"_s, folder->path()), 1,
               "scans/deep/x\xEF\xBF\xBD.stl: error: the name is not UTF-8, and nothing can be opened by it\n"
               "    give it a name in UTF-8\n",
               u"surfaceio: scans/deep/x\uFFFD.stl: 1 error\n"_s);
        QCOMPARE(support::runShell(u"rm scans/deep/x*"_s, folder->path()).exitCode, 0); // Qt cannot
    }
#endif

    void someOfSeveral()
    {
        auto const outcome = check({u"short.stl"_s, u"scans/b.stl"_s});
        QCOMPARE(outcome.exitCode, 6);
        QVERIFY(outcome.standardOutput.endsWith(ofOpenFacet("scans/b.stl")));
    }

private:
    static QByteArray withFindings()
    {
        return "colours.stl: warning: the attribute words look like colours of 15 bits; as tags they make 2 "
               "surfaces\n"
               "    read the file without tags, or clear the words: surfaceio tags relabel FILE '*=0/0' -o "
               "OUT\n"
               "colours.stl: note: 6 edges with one facet only\n"
               "    nothing for a scan, which is a sheet; close the surface before printing\n";
    }

    static QByteArray ofOpenFacet(QByteArray const& path)
    {
        return path +
               ": note: 3 edges with one facet only\n"
               "    nothing for a scan, which is a sheet; close the surface before printing\n" +
               path + ": sound\n";
    }

    static QByteArray facet(QByteArray const& a, QByteArray const& b, QByteArray const& c)
    {
        return "vertex " + a + "\nvertex " + b + "\nvertex " + c + '\n';
    }

    void write(QString const& name, QByteArray const& bytes)
    {
        QVERIFY(support::writeFile(folder->filePath(name), bytes));
    }

    QJsonObject jsonOf(QString const& name)
    {
        return QJsonDocument::fromJson(check({u"--json"_s, name}).standardOutput).object();
    }

    support::Outcome check(QStringList const& arguments)
    {
        return runProgram(QStringList(u"check"_s) + arguments, folder->path());
    }

    std::optional<QTemporaryDir> folder;
};

QTEST_GUILESS_MAIN(tst_ProgramCheck)
#include "tst_ProgramCheck.moc"
