#include "Program.h"
#include "StlFiles.h"
#include "framework/MeshReader.h"
#include "obj/OBJReader.h"
#include "stl/STLReader.h"
#include "stl/STLTagHandler.h"

#include <QDir>
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

#ifdef Q_OS_UNIX
    // A limit on file sizes stands for a full disk.
    void fullDisk_data()
    {
        QTest::addColumn<QString>("file");
        QTest::newRow("s.stl") << u"s.stl"_s;
        QTest::newRow("s.ply") << u"s.ply"_s;
        QTest::newRow("s.obj") << u"s.png"_s;
    }

    void fullDisk()
    {
        QFETCH(QString, file);
        QString const name = QString::fromLatin1(QTest::currentDataTag());
        verify(support::runShell(u"ulimit -f 8; \"$SURFACEIO\" sample %1 --facets 1000"_s.arg(name),
                                 folder->path()),
               1, {}, u"surfaceio: (./)?%1: could not be written: File too large\n"_s.arg(file));
        QCOMPARE(QDir(folder->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                 QStringList());
    }
#endif

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

    void texturedObj()
    {
        verify(sample({u"s.obj"_s, u"--facets"_s, u"2000"_s}), 0, {}, {});
        OBJReader reader;
        reader.setFileName(folder->filePath(u"s.obj"_s));
        reader.setTextureSupport(SurfaceReader::TextureRequired);
        std::atomic<bool> const cancel = false;
        QVERIFY(reader.read(cancel));
        QCOMPARE(reader.getMesh().indices.size(), 4 * 2000);
        QCOMPARE(reader.getMesh().textureCoordinates.size(), reader.getMesh().vertices.size());
        QCOMPARE(reader.getTexture(), QImage(folder->filePath(u"s.png"_s)));
        verify(sample({u"s.ply"_s, u"--facets"_s, u"2000"_s}), 0, {}, {});
        QCOMPARE(reader.getMesh().vertices, MeshReader::read(folder->filePath(u"s.ply"_s))->vertices);
    }

    void arrayHasNormals()
    {
        verify(sample({u"s.array"_s, u"--facets"_s, u"500"_s}), 0, {}, {});
        QCOMPARE(runProgram({u"check"_s, u"--strict"_s, u"s.array"_s}, folder->path()).exitCode, 0);
    }

    // The gum lies at the rims of the image, where it is red rather than white.
    void textureShowsTheArch()
    {
        verify(sample({u"s.obj"_s, u"--facets"_s, u"500"_s}), 0, {}, {});
        QImage const image(folder->filePath(u"s.png"_s));
        auto const isRed = [&](int x, int y) {
            QColor const color = image.pixelColor(x, y);
            return color.red() - color.green() > 50;
        };
        for (int x = 0; x < image.width(); x += 16) {
            QVERIFY(isRed(x, 0));
            QVERIFY(isRed(x, image.height() - 1));
        }
        int enamel = 0;
        for (int x = 0; x < image.width(); ++x)
            enamel += isRed(x, image.height() / 2) ? 0 : 1;
        QVERIFY(enamel > image.width() / 2);
    }

    void sameTexturedBytes()
    {
        verify(sample({u"a.obj"_s, u"--facets"_s, u"500"_s}), 0, {}, {});
        QByteArray const image = readFile(folder->filePath(u"a.png"_s));
        QByteArray const obj = readFile(folder->filePath(u"a.obj"_s));
        verify(sample({u"a.obj"_s, u"--facets"_s, u"500"_s, u"--force"_s}), 0, {}, {});
        QVERIFY(readFile(folder->filePath(u"a.png"_s)) == image);
        QVERIFY(readFile(folder->filePath(u"a.obj"_s)) == obj);
        verify(sample({u"a.obj"_s, u"--facets"_s, u"500"_s, u"--force"_s, u"--seed"_s, u"2"_s}), 0, {}, {});
        QVERIFY(readFile(folder->filePath(u"a.png"_s)) != image);
    }

    void allOfATexturedObjOrNothing()
    {
        QVERIFY(support::writeFile(folder->filePath(u"s.mtl"_s), "mine"));
        verify(sample({u"s.obj"_s, u"--facets"_s, u"500"_s}), 1, {},
               u"surfaceio: .*s.mtl: exists already; --force replaces it\n"_s);
        QCOMPARE(QDir(folder->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                 QStringList(u"s.mtl"_s));
        verify(sample({u"a  b.obj"_s, u"--facets"_s, u"500"_s}), 2, {}, u"surfaceio: a  b.obj: .*\n"_s);
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
        row("too few", {u"s.stl"_s, u"--facets"_s, u"499"_s}, 2,
            "surfaceio: --facets: Value 499 not in range 500 to 40000000\n.*");
        row("too many", {u"s.stl"_s, u"--facets"_s, u"40000001"_s}, 2, "surfaceio: --facets: .*\n.*");
        row("no number", {u"s.stl"_s, u"--facets"_s, u"many"_s}, 2, "surfaceio: .*--facets.*\n.*");
        for (QString const& seed : {u"-1"_s, u"0.5"_s, u"some"_s, u""_s, u"9223372036854775808"_s})
            row(qPrintable(u"seed \"%1\""_s.arg(seed)), {u"s.stl"_s, u"--seed"_s, seed}, 2,
                "surfaceio: --seed: expected a whole number from 0 to 9223372036854775807\n"
                "surfaceio: see \"surfaceio sample --help\"\n");
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
