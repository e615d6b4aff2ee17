#include "Program.h"
#include "StlFiles.h"
#include "framework/ScanMetadata.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTest>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

using namespace Qt::StringLiterals;
using support::binaryStl;
using support::runProgram;
using support::stlFacet;
using support::verify;

class tst_ProgramInfoStl : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        folder.emplace();
        QVERIFY(folder->isValid());
    }

    void taggedBinary()
    {
        write(u"t.stl"_s, tagged());
        verify(info({u"t.stl"_s}), 0,
               "t.stl\n"
               "  format         STL\n"
               "  recognised     by its size, which is that of the 3 facets it claims\n"
               "  size in bytes  234\n"
               "  encoding       binary\n"
               "  in the file\n"
               "    facets    3\n"
               "    vertices  9\n"
               "  after cleaning\n"
               "    facets    3\n"
               "    vertices  9\n"
               "  bounding box (mm)\n"
               "    min   0.000 0.000 0.000\n"
               "    max   6.000 2.000 0.000\n"
               "    size  6.000 2.000 0.000\n"
               "  scan metadata\n"
               "    scanner name      ScanPro3\n"
               "    scanner serial    SN-1\n"
               "    imported          yes\n"
               "    software version  1.2\n"
               "    acquisition date  2024-03-01\n"
               "  tags\n"
               "    tag  subTag  facets  area (mm²)\n"
               "      3      -1       1       1.000\n"
               "      3       0       1       1.000\n"
               "    200       5       1       1.000\n",
               {});
    }

    void json()
    {
        write(u"t.stl"_s, tagged());
        auto const outcome = info({u"--json"_s, u"t.stl"_s});
        QCOMPARE(outcome.exitCode, 0);
        QJsonObject const root = QJsonDocument::fromJson(outcome.standardOutput).object();
        QCOMPARE(root["schema"_L1].toString(), u"surfaceio.info/1"_s);
        QJsonObject const file = root["files"_L1].toArray().at(0).toObject();
        QCOMPARE(file["path"_L1].toString(), u"t.stl"_s);
        QCOMPARE(file["formatName"_L1].toString(), u"stl"_s);
        QCOMPARE(file["status"_L1].toString(), u"ok"_s);
        QVERIFY(file["problem"_L1].isNull());
        QCOMPARE(file["tags"_L1].toArray().at(2).toObject(),
                 QJsonObject({{u"tag"_s, 200}, {u"subTag"_s, 5}, {u"facets"_s, 1}, {u"area"_s, 1}}));
        QCOMPARE(file["metadata"_L1]["imported"_L1], QJsonValue(true));
    }

    void ascii()
    {
        write(u"a.stl"_s, "solid  x\n facet normal 0 0 0\nouter loop\n"
                          "  vertex 0 0 0\n\tvertex 1 0 0\nvertex   0 1e1 -2\nendloop\nendfacet\nendsolid\n");
        verify(info({u"a.stl"_s}), 0,
               "a.stl\n"
               "  format         STL\n"
               "  recognised     by its first line, which starts with \"solid\"\n"
               "  size in bytes  113\n"
               "  encoding       ascii\n"
               "  in the file\n"
               "    facets    1\n"
               "    vertices  3\n"
               "  after cleaning\n"
               "    facets    1\n"
               "    vertices  3\n"
               "  bounding box (mm)\n"
               "    min   0.000 0.000 -2.000\n"
               "    max   1.000 10.000 0.000\n"
               "    size  1.000 10.000 2.000\n",
               {});
    }

    void problem_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("sentence");
        QByteArray const whole = tagged();
        auto const row = [](char const* name, QByteArray const& bytes, int exitCode, char const* sentence) {
            QTest::newRow(name) << bytes << exitCode << QString::fromUtf8(sentence);
        };
        row("empty", {}, 3, "expected a header of 80 bytes and a facet count of 4, found 0 bytes");
        row("83 bytes", whole.left(83), 3,
            "expected a header of 80 bytes and a facet count of 4, found 83 bytes");
        row("short", whole.chopped(7), 3,
            "the header says 3 facets = 234 bytes, the file holds 227 bytes, room for 2 facets");
        row("trailing byte", whole + 'x', 3,
            "the header says 3 facets = 234 bytes, the file holds 235 bytes, room for 3 facets");
        row("lying count", QByteArray(whole).replace(80, 4, "\xff\xff\xff\xff"), 3,
            "the header says 4294967295 facets = 214748364834 bytes, the file holds 234 bytes, room for 3 "
            "facets");
        row("binary that says solid", binaryStl(stlFacet(0), "solid scan"), 4,
            "a binary STL of 1 facet whose header begins with \"solid\": such a file is read as text, and "
            "as "
            "text it holds no vertices");
        row("damaged binary that says solid", binaryStl(stlFacet(0), "solid scan").chopped(1), 3,
            "begins with \"solid\" as text does, but holds binary data whose size is not that of the facets "
            "it "
            "claims");
        row("ascii, no facets", "solid\nendsolid\n", 3,
            "expected lines that begin with \"vertex\", found none");
        row("ascii, a word", "solid\nvertex 1 2 three\n", 3,
            "line 2: expected \"vertex\" and three numbers with spaces between, found \"vertex 1 2 three\"");
        row("ascii, two numbers", "solid\n\n vertex 1 2\n", 3,
            "line 3: expected \"vertex\" and three numbers with spaces between, found \"vertex 1 2\"");
        row("ascii, tabs", "solid\nvertex\t1\t2\t3\n", 3,
            "line 2: expected \"vertex\" and three numbers with spaces between, found "
            "\"vertex\\t1\\t2\\t3\"");
        row("ascii, two vertices", "solid\nvertex 1 2 3\nvertex 1 2 3\nendsolid\n", 3,
            "expected three vertices for each facet, found 2 vertices, the last in line 3");
    }

    void problem()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(int, exitCode);
        QFETCH(QString, sentence);
        write(u"p.stl"_s, bytes);
        auto const outcome = info({u"p.stl"_s});
        QCOMPARE(QString::fromUtf8(outcome.standardError), u"surfaceio: p.stl: "_s + sentence + u'\n');
        QCOMPARE(outcome.exitCode, exitCode);
    }

    void unknownFormat()
    {
        write(u"x.bin"_s, "what is this\n");
        verify(info({u"x.bin"_s}), 4, "x.bin\n  size in bytes  13\n",
               u"surfaceio: x.bin: neither the content nor the suffix is that of a format known here\n"_s);
    }

    void missingFile()
    {
        verify(info({u"gone.stl"_s}), 1, {}, u"surfaceio: gone.stl: there is no such file\n"_s);
    }

    void folderInsteadOfFile()
    {
        QVERIFY(QDir(folder->path()).mkdir(u"d.stl"_s));
        verify(info({u"d.stl"_s}), 1, {}, u"surfaceio: d.stl: expected a file, found a folder\n"_s);
    }

    void severalFilesOneBad()
    {
        write(u"t.stl"_s, tagged());
        auto const outcome = info({u"t.stl"_s, u"gone.stl"_s, u"t.stl"_s});
        QCOMPARE(outcome.exitCode, 6);
        QCOMPARE(outcome.standardOutput.count("t.stl\n"), 2);
    }

    void names_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("non-ASCII") << u"Zähne 歯.stl"_s;
        QTest::newRow("200 characters") << QString(196, u'n') + u".stl"_s;
        QTest::newRow("leading dash") << u"-n.stl"_s;
        QTest::newRow("brackets") << u"[a,b].stl"_s;
    }

    void names()
    {
        QFETCH(QString, name);
        write(name, tagged());
        auto const outcome = info({u"--"_s, name});
        QCOMPARE(outcome.standardError, QByteArray());
        QCOMPARE(outcome.exitCode, 0);
        QVERIFY(outcome.standardOutput.startsWith(name.toUtf8() + '\n'));
    }

#ifdef Q_OS_UNIX
    void pipeDoesNotHang()
    {
        QByteArray const path = QFile::encodeName(folder->filePath(u"pipe.stl"_s));
        QCOMPARE(mkfifo(path.constData(), 0600), 0);
        verify(info({u"pipe.stl"_s}), 1, {},
               u"surfaceio: pipe.stl: expected a regular file, found a pipe, socket or device\n"_s);
    }

    void danglingLink()
    {
        QVERIFY(QFile::link(u"nowhere.stl"_s, folder->filePath(u"l.stl"_s)));
        verify(
            info({u"l.stl"_s}), 1, {},
            u"surfaceio: l.stl: expected a file, found a link to \".*nowhere.stl\", which does not exist\n"_s);
    }
#endif

private:
    static QByteArray tagged()
    {
        MeshHeader const header(u"Scan Pro 3"_s, u"SN-1"_s, true, u"1.2"_s, QDate(2024, 3, 1).startOfDay());
        return binaryStl(stlFacet(0, 3, 0) + stlFacet(2, 200, 5) + stlFacet(5, 3, -1),
                         conversions::toByteArray(header));
    }

    void write(QString const& name, QByteArray const& bytes)
    {
        QVERIFY(support::writeFile(folder->filePath(name), bytes));
    }

    support::Outcome info(QStringList const& arguments)
    {
        return runProgram(QStringList(u"info"_s) + arguments, folder->path());
    }

    std::optional<QTemporaryDir> folder;
};

QTEST_GUILESS_MAIN(tst_ProgramInfoStl)
#include "tst_ProgramInfoStl.moc"
