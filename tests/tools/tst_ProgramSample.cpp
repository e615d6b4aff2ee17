#include "Program.h"
#include "StlFiles.h"
#include "stl/STLReader.h"
#include "stl/STLTagHandler.h"

#include <QTemporaryDir>
#include <QTest>

#include <atomic>
#include <memory>

using namespace Qt::StringLiterals;
using support::readFile;
using support::runProgram;
using support::verify;

class tst_ProgramSample : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        folder.emplace();
        QVERIFY(folder->isValid());
    }

    void taggedStl()
    {
        verify(sample({u"s.stl"_s, u"--facets"_s, u"5001"_s}), 0, {}, {});
        QByteArray const bytes = readFile(folder->filePath(u"s.stl"_s));
        QCOMPARE(bytes.size(), 84 + 50 * 5001);
        QVERIFY(bytes.startsWith("\xBE\xBE"
                                 "SurfaceIOsample     seed-1"));
    }

    void everyTagIsASurface()
    {
        verify(sample({u"s.stl"_s, u"--facets"_s, u"5000"_s}), 0, {}, {});
        UseAllTagsHandler const handler;
        STLReader reader(&handler, false, folder->filePath(u"s.stl"_s));
        std::atomic<bool> const cancel = false;
        QVERIFY(reader.read(cancel));
        QList<int> tags;
        int facets = 0;
        for (STLSurfaceData* surface : reader.takeSTLSurfaceDataSets()) {
            std::unique_ptr<STLSurfaceData> const owner(surface);
            tags << surface->getTag();
            facets += surface->getMesh().getNumIndices() / 4;
        }
        QCOMPARE(tags, QList<int>({1, 31, 32, 33, 34, 35, 36, 37, 41, 42, 43, 44, 45, 46, 47}));
        QCOMPARE(facets, 5000);
    }

    void sameCommandSameBytes()
    {
        verify(sample({u"a.stl"_s, u"--facets"_s, u"1000"_s, u"--seed"_s, u"3"_s}), 0, {}, {});
        verify(sample({u"b.stl"_s, u"--facets"_s, u"1000"_s, u"--seed"_s, u"3"_s}), 0, {}, {});
        verify(sample({u"c.stl"_s, u"--facets"_s, u"1000"_s, u"--seed"_s, u"4"_s}), 0, {}, {});
        QVERIFY(readFile(folder->filePath(u"a.stl"_s)) == readFile(folder->filePath(u"b.stl"_s)));
        QVERIFY(readFile(folder->filePath(u"a.stl"_s)) != readFile(folder->filePath(u"c.stl"_s)));
    }

    void points()
    {
        verify(sample({u"s.xyz"_s, u"--facets"_s, u"1000"_s}), 0, {}, {});
        QVERIFY(readFile(folder->filePath(u"s.xyz"_s)).count('\n') > 500);
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
        row("no name", {}, 2, "surfaceio: OUT is required\n.*");
        row("no suffix", {u"s"_s}, 2, "surfaceio: s: expected one of the suffixes \\.stl, .*\n");
        row("unknown suffix", {u"s.doc"_s}, 2, "surfaceio: s.doc: expected one of the suffixes .*\n");
        row("too few", {u"s.stl"_s, u"--facets"_s, u"499"_s}, 2, "surfaceio: --facets: .*499.*\n.*");
        row("too many", {u"s.stl"_s, u"--facets"_s, u"40000001"_s}, 2, "surfaceio: --facets: .*\n.*");
        row("no number", {u"s.stl"_s, u"--facets"_s, u"many"_s}, 2, "surfaceio: .*--facets.*\n.*");
        row("negative seed", {u"s.stl"_s, u"--seed"_s, u"-1"_s}, 2, "surfaceio: .*--seed.*\n.*");
        row("no such folder", {u"no/s.stl"_s}, 1,
            "surfaceio: no/s.stl: the folder \".*/no\" does not exist\n");
    }

    void refusal()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, exitCode);
        QFETCH(QString, errorPattern);
        verify(sample(arguments), exitCode, {}, errorPattern);
        QVERIFY(QDir(folder->path()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
    }

    void existingFileStaysWithoutForce()
    {
        QVERIFY(support::writeFile(folder->filePath(u"s.stl"_s), "mine"));
        verify(sample({u"s.stl"_s}), 1, {}, u"surfaceio: s.stl: exists already; --force replaces it\n"_s);
        QCOMPARE(readFile(folder->filePath(u"s.stl"_s)), QByteArray("mine"));
        verify(sample({u"s.stl"_s, u"--force"_s, u"--facets"_s, u"500"_s}), 0, {}, {});
        QCOMPARE(readFile(folder->filePath(u"s.stl"_s)).size(), 84 + 50 * 500);
    }

private:
    support::Outcome sample(QStringList const& arguments)
    {
        return runProgram(QStringList(u"sample"_s) + arguments, folder->path());
    }

    std::optional<QTemporaryDir> folder;
};

QTEST_GUILESS_MAIN(tst_ProgramSample)
#include "tst_ProgramSample.moc"
