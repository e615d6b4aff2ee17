#include "Program.h"
#include "StlFiles.h"
#include "framework/ScanMetadata.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using support::binaryStl;
using support::readFile;
using support::runProgram;
using support::stlFacet;
using support::verify;

class tst_ProgramHeader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        folder.emplace();
        QVERIFY(folder->isValid());
    }

    void getOfStl()
    {
        write(u"s.stl"_s, withRecord());
        verify(header({u"get"_s, u"s.stl"_s}), 0,
               "scan metadata\n"
               "  scanner name      ScanPro\n"
               "  scanner serial    SN-1\n"
               "  imported          yes\n"
               "  software version  1.2\n"
               "  acquisition date  2024-03-01\n",
               {});
        verify(header({u"get"_s, u"s.stl"_s, u"--json"_s}), 0,
               "{\n"
               "  \"schema\": \"surfaceio.header/1\",\n"
               "  \"path\": \"s.stl\",\n"
               "  \"metadata\": {\n"
               "    \"scannerName\": \"ScanPro\",\n"
               "    \"scannerSerial\": \"SN-1\",\n"
               "    \"imported\": true,\n"
               "    \"softwareVersion\": \"1.2\",\n"
               "    \"acquisitionDate\": \"2024-03-01\"\n"
               "  }\n"
               "}\n",
               {});
    }

#ifdef Q_OS_UNIX
    // A limit on file sizes stands for a full disk.
    void fullDisk()
    {
        QByteArray const big = binaryStl(stlFacet(0).repeated(300));
        write(u"s.stl"_s, big);
        verify(support::runShell(u"ulimit -f 8; \"$SURFACEIO\" header set s.stl --imported yes"_s,
                                 folder->path()),
               1, {}, u"surfaceio: s.stl: could not be written: File too large\n"_s);
        QCOMPARE(readFile(folder->filePath(u"s.stl"_s)), big);
        QCOMPARE(QDir(folder->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                 QStringList(u"s.stl"_s));
    }
#endif

    void getWhereThereIsNone()
    {
        write(u"s.stl"_s, binaryStl(stlFacet(0), "some header"));
        verify(header({u"get"_s, u"s.stl"_s}), 0, "no scan metadata\n", {});
    }

    // What is not given stays, and so does every byte of the mesh.
    void setOfStl()
    {
        write(u"s.stl"_s, withRecord());
        verify(header({u"set"_s, u"s.stl"_s, u"--scanner-serial"_s, u"SN-2"_s, u"--imported"_s, u"no"_s}), 0,
               {}, {});
        MeshHeader const expected(u"ScanPro"_s, u"SN-2"_s, false, u"1.2"_s, QDate(2024, 3, 1).startOfDay());
        QCOMPARE(read(u"s.stl"_s), binaryStl(facets(), conversions::toByteArray(expected)));
    }

    void setWhereThereIsNone()
    {
        write(u"s.stl"_s, binaryStl(facets(), "some header"));
        verify(header({u"set"_s, u"s.stl"_s, u"--date"_s, u"2020-02-29"_s}), 0, {}, {});
        MeshHeader const expected({}, {}, false, {}, QDate(2020, 2, 29).startOfDay());
        QCOMPARE(read(u"s.stl"_s), binaryStl(facets(), conversions::toByteArray(expected)));
    }

    void setWarnsOfWhatIsLost()
    {
        write(u"s.stl"_s, withRecord());
        verify(header({u"set"_s, u"s.stl"_s, u"--scanner-name"_s, u"Scan Pro"_s, u"--software-version"_s,
                       u"0123456789012345678901"_s}),
               0, {},
               u"surfaceio: warning: the scanner name \"Scan Pro\" is stored as \"ScanPro\"\n"
               "surfaceio: warning: the software version \"0123456789012345678901\" is stored as "
               "\"01234567890123456789\"\n"_s);
        verify(header({u"set"_s, u"s.stl"_s, u"--scanner-name"_s, u"a b"_s, u"--strict"_s, u"-q"_s}), 5, {},
               {});
    }

    void clearOfStl()
    {
        write(u"s.stl"_s, withRecord());
        verify(header({u"clear"_s, u"s.stl"_s}), 0, {}, {});
        QCOMPARE(read(u"s.stl"_s), binaryStl(facets()));
    }

    void ply_data()
    {
        QTest::addColumn<QByteArray>("lineEnd");
        QTest::newRow("LF") << QByteArray("\n");
        QTest::newRow("CR LF") << QByteArray("\r\n");
    }

    void ply()
    {
        QFETCH(QByteArray, lineEnd);
        auto const lines = [&lineEnd](QByteArray const& text) {
            return QByteArray(text).replace("\n", lineEnd);
        };
        QByteArray const begin = lines("ply\nformat binary_little_endian 1.0\n");
        QByteArray const end =
            lines("comment mine\nelement vertex 1\nend_header\n") + "\nend_header\n\x00\xff";
        write(u"s.ply"_s, begin + end);
        verify(header({u"get"_s, u"s.ply"_s}), 0, "no scan metadata\n", {});
        verify(
            header({u"set"_s, u"s.ply"_s, u"--scanner-name"_s, u"Scan® Pro"_s, u"--date"_s, u"2024-03-01"_s}),
            0, {}, u"surfaceio: warning: the scanner name \"Scan® Pro\" is stored as \"Scan Pro\"\n"_s);
        QCOMPARE(read(u"s.ply"_s),
                 begin +
                     lines("comment scan information\ncomment scanner name: Scan Pro\n"
                           "comment scanner serial: \ncomment imported: 0\n"
                           "comment software version: \ncomment acquisition date: 2024-03-01\n") +
                     end);
        verify(header({u"set"_s, u"s.ply"_s, u"--imported"_s, u"yes"_s}), 0, {}, {});
        verify(header({u"get"_s, u"s.ply"_s}), 0,
               "scan metadata\n"
               "  scanner name      Scan Pro\n"
               "  scanner serial\n"
               "  imported          yes\n"
               "  software version\n"
               "  acquisition date  2024-03-01\n",
               {});
        verify(header({u"clear"_s, u"s.ply"_s}), 0, {}, {});
        QCOMPARE(read(u"s.ply"_s), begin + end);
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
            "surfaceio: A subcommand is required\nsurfaceio: see \"surfaceio header --help\"\n");
        row("no file", {u"get"_s}, 2,
            "surfaceio: FILE is required\nsurfaceio: see \"surfaceio header get --help\"\n");
        row("no date", {u"set"_s, u"ok.stl"_s, u"--date"_s, u"1.3.24"_s}, 2, "surfaceio: .*yyyy-mm-dd\n.*");
        row("two lines", {u"set"_s, u"ok.stl"_s, u"--scanner-name"_s, u"a\nb"_s}, 2,
            "surfaceio: .*single line\n.*");
        row("imported", {u"set"_s, u"ok.stl"_s, u"--imported"_s, u"maybe"_s}, 2,
            "surfaceio: --imported: .*\n.*");
        row("suffix", {u"get"_s, u"a.obj"_s}, 2,
            "surfaceio: a.obj: expected one of the suffixes .stl, .ply\n");
        row("missing", {u"get"_s, u"gone.stl"_s}, 1, "surfaceio: gone.stl: there is no such file\n");
        row("ascii", {u"clear"_s, u"ascii.stl"_s}, 4,
            "surfaceio: ascii.stl: is read as ASCII STL, which has no room for metadata\n");
        row("short", {u"clear"_s, u"short.stl"_s}, 3, "surfaceio: short.stl: expected a header of 80 .*\n");
        row("no ply", {u"clear"_s, u"no.ply"_s}, 3, "surfaceio: no.ply: expected a PLY header .*\n");
        row("endless ply", {u"clear"_s, u"endless.ply"_s}, 3,
            "surfaceio: endless.ply: expected a PLY header .*\n");
    }

    void refusal()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, exitCode);
        QFETCH(QString, errorPattern);
        write(u"a.obj"_s, "v 0 0 0\n");
        write(u"ok.stl"_s, withRecord());
        write(u"ascii.stl"_s, "solid x\nendsolid\n");
        write(u"short.stl"_s, QByteArray(83, 'x'));
        write(u"no.ply"_s, "plyy\n");
        write(u"endless.ply"_s, "ply\nformat ascii 1.0\n");
        QDir const files(folder->path());
        QStringList const before = files.entryList(QDir::AllEntries | QDir::Hidden);
        verify(header(arguments), exitCode, {}, errorPattern);
        QCOMPARE(files.entryList(QDir::AllEntries | QDir::Hidden), before);
        QCOMPARE(read(u"ok.stl"_s), withRecord());
    }

private:
    static QByteArray facets()
    {
        return stlFacet(0, 3, 1) + stlFacet(5, 200, -1);
    }

    static QByteArray withRecord()
    {
        MeshHeader const header(u"ScanPro"_s, u"SN-1"_s, true, u"1.2"_s, QDate(2024, 3, 1).startOfDay());
        return binaryStl(facets(), conversions::toByteArray(header));
    }

    void write(QString const& name, QByteArray const& bytes)
    {
        QVERIFY(support::writeFile(folder->filePath(name), bytes));
    }

    QByteArray read(QString const& name)
    {
        return readFile(folder->filePath(name));
    }

    support::Outcome header(QStringList const& arguments)
    {
        return runProgram(QStringList(u"header"_s) + arguments, folder->path());
    }

    std::optional<QTemporaryDir> folder;
};

QTEST_GUILESS_MAIN(tst_ProgramHeader)
#include "tst_ProgramHeader.moc"
