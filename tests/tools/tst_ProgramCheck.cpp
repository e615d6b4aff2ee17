#include "Program.h"
#include "StlFiles.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTest>

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
        QCOMPARE(jsonOf(u"none"_s)["files"_L1], QJsonArray());
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
        auto const outcome = check({u"scans/*.ply"_s});
        QCOMPARE(outcome.exitCode, 1);
        QVERIFY(outcome.standardOutput.contains("error: there is no such file\n"));
    }

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
