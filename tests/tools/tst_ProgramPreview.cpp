#include "Program.h"
#include "StlFiles.h"

#include <QDir>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using support::binaryStl;
using support::readFile;
using support::runProgram;
using support::stlFacet;
using support::verify;

// Small pictures of the sample are kept as golden files. To make them anew, set SURFACEIO_NEW_GOLDEN, run,
// and look at each.
class tst_ProgramPreview : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        folder.emplace();
        QVERIFY(folder->isValid());
    }

    void golden_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("front") << QStringList{u"--view"_s, u"front"_s};
        QTest::newRow("occlusal") << QStringList{u"--view"_s, u"occlusal"_s};
        QTest::newRow("left") << QStringList{u"--view"_s, u"left"_s};
        QTest::newRow("right") << QStringList{u"--view"_s, u"right"_s};
        QTest::newRow("iso") << QStringList{};
        QTest::newRow("by-colour") << QStringList{u"--by"_s, u"colour"_s};
        QTest::newRow("by-normal") << QStringList{u"--by"_s, u"normal"_s};
        QTest::newRow("sheet") << QStringList{u"--sheet"_s};
    }

    void golden()
    {
        QFETCH(QStringList, arguments);
        QString const path = folder->filePath(u"p.png"_s);
        verify(runProgram({u"sample"_s, u"s.stl"_s, u"--facets"_s, u"6000"_s}, folder->path()), 0, {}, {});
        verify(preview(QStringList{u"s.stl"_s, u"-o"_s, path, u"--size"_s, u"96"_s} + arguments), 0, {}, {});
        QString const name = QString::fromLatin1(QTest::currentDataTag()) + u".png"_s;
        QString const kept = QStringLiteral(SURFACEIO_GOLDEN) + u'/' + name;
        if (qEnvironmentVariableIsSet("SURFACEIO_NEW_GOLDEN")) {
            QFile::remove(kept);
            QVERIFY(QFile::copy(path, kept));
        }
        QVERIFY(areAlike(QImage(path), QImage(kept)));
    }

#ifdef Q_OS_UNIX
    // Each limit of blocks of 512 bytes loses another part of the picture, the least only its end.
    void fullDisk()
    {
        verify(runProgram({u"sample"_s, u"s.stl"_s, u"--facets"_s, u"2000"_s}, folder->path()), 0, {}, {});
        verify(preview({u"s.stl"_s, u"-o"_s, u"p.png"_s, u"--size"_s, u"64"_s}), 0, {}, {});
        QByteArray const picture = readFile(folder->filePath(u"p.png"_s));
        QVERIFY(picture.size() > 1024);
        for (qsizetype blocks = 0; blocks <= (picture.size() - 1) / 1024; ++blocks) {
            QString const command =
                u"ulimit -f %1; \"$SURFACEIO\" preview s.stl -o p.png --size 64 --force"_s;
            verify(support::runShell(command.arg(blocks), folder->path()), 1, {},
                   u"surfaceio: p.png: could not be written: File too large\n"_s);
            QCOMPARE(readFile(folder->filePath(u"p.png"_s)), picture);
        }
        QCOMPARE(QDir(folder->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                 QStringList({u"p.png"_s, u"s.stl"_s}));
    }
#endif

    void sameCommandSameBytes()
    {
        verify(runProgram({u"sample"_s, u"s.stl"_s, u"--facets"_s, u"2000"_s}, folder->path()), 0, {}, {});
        for (QString const& name : {u"a.png"_s, u"b.png"_s})
            verify(preview({u"s.stl"_s, u"-o"_s, name, u"--size"_s, u"64"_s}), 0, {}, {});
        QCOMPARE(readFile(folder->filePath(u"a.png"_s)), readFile(folder->filePath(u"b.png"_s)));
    }

    void missingLibrary()
    {
        write(u"a.obj"_s, "mtllib gone.mtl\nv 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n");
        verify(preview({u"a.obj"_s, u"-o"_s, u"p.png"_s, u"--strict"_s}), 5, {},
               u"surfaceio: warning: a.obj: the material library \"gone.mtl\" does not exist\n"_s);
    }

    void missingLibraryAnywhere_data()
    {
        QTest::addColumn<QByteArray>("text");
        QByteArray const face = "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n";
        QByteArray const comments = QByteArray("# comment\n").repeated(120'000); // more than a block
        QTest::newRow("at the end") << comments + face + "mtllib gone.mtl";
        QTest::newRow("over the end of a block")
            << QByteArray("#").leftJustified((1 << 20) - 7, '.') + "\nmtllib gone.mtl\n" + face;
        QTest::newRow("behind a line longer than blocks")
            << QByteArray("#").leftJustified(3 << 20, '.') + "\n\tmtllib  gone.mtl\r\n" + face;
        QTest::newRow("behind a line that only has the word")
            << "# mtllib a.mtl\ng mtllib b.mtl\n" + face + "mtllib gone.mtl\n";
        QTest::newRow("before everything") << "mtllib gone.mtl\n" + face + comments;
    }

    void missingLibraryAnywhere()
    {
        QFETCH(QByteArray, text);
        write(u"a.obj"_s, text);
        verify(preview({u"a.obj"_s, u"-o"_s, u"p.png"_s}), 0, {},
               u"surfaceio: warning: a.obj: the material library \"gone.mtl\" does not exist\n"_s);
    }

    void size()
    {
        write(u"s.stl"_s, binaryStl(stlFacet(0)));
        verify(preview({u"s.stl"_s, u"-o"_s, u"p.png"_s}), 0, {}, {});
        QCOMPARE(QImage(folder->filePath(u"p.png"_s)).size(), QSize(512, 512));
        verify(preview({u"s.stl"_s, u"-o"_s, u"sheet.png"_s, u"--sheet"_s, u"--size"_s, u"50"_s}), 0, {}, {});
        QCOMPARE(QImage(folder->filePath(u"sheet.png"_s)).size(), QSize(150, 100));
    }

    void noTags()
    {
        write(u"s.stl"_s, binaryStl(stlFacet(0)));
        QString const warning = u"surfaceio: warning: s.stl: has no tags that could colour it\n"_s;
        verify(preview({u"s.stl"_s, u"-o"_s, u"p.png"_s, u"--by"_s, u"tag"_s}), 0, {}, warning);
        verify(preview({u"s.stl"_s, u"-o"_s, u"q.png"_s, u"--by"_s, u"tag"_s, u"--strict"_s}), 5, {},
               warning);
        write(u"t.stl"_s, binaryStl(stlFacet(0, 3)));
        verify(preview({u"t.stl"_s, u"-o"_s, u"t.png"_s, u"--by"_s, u"tag"_s, u"--strict"_s}), 0, {}, {});
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
        row("no picture", {u"s.stl"_s}, 2, "surfaceio: --output is required\n.*");
        row("no png", {u"s.stl"_s, u"-o"_s, u"p.jpg"_s}, 2, "surfaceio: p.jpg: expected the suffix .png\n");
        row("unknown format", {u"s.stl"_s, u"-o"_s, u"p"_s, u"--format"_s, u"jpg"_s}, 2,
            "surfaceio: --format: .*jpg.*\n.*");
        row("unknown view", {u"s.stl"_s, u"-o"_s, u"p.png"_s, u"--view"_s, u"below"_s}, 2,
            "surfaceio: --view: .*below.*\n.*");
        row("unknown colouring", {u"s.stl"_s, u"-o"_s, u"p.png"_s, u"--by"_s, u"age"_s}, 2,
            "surfaceio: --by: .*age.*\n.*");
        row("STL named PLY", {u"wrong.ply"_s, u"-o"_s, u"p.png"_s}, 4,
            "surfaceio: wrong.ply: the content is that of STL, the suffix is not\n");
        row("too large", {u"s.stl"_s, u"-o"_s, u"p.png"_s, u"--size"_s, u"5000"_s}, 2,
            "surfaceio: --size: .*\n.*");
        row("missing", {u"gone.stl"_s, u"-o"_s, u"p.png"_s}, 1,
            "surfaceio: gone.stl: there is no such file\n");
        row("damaged", {u"bad.stl"_s, u"-o"_s, u"p.png"_s}, 3,
            "surfaceio: bad.stl: the header says 1 facets .*\n");
        row("exists", {u"s.stl"_s, u"-o"_s, u"old.png"_s}, 1,
            "surfaceio: old.png: exists already; --force replaces it\n");
    }

    void refusal()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, exitCode);
        QFETCH(QString, errorPattern);
        write(u"s.stl"_s, binaryStl(stlFacet(0)));
        write(u"bad.stl"_s, binaryStl(stlFacet(0)).chopped(1));
        write(u"wrong.ply"_s, binaryStl(stlFacet(0)));
        write(u"old.png"_s, "mine");
        verify(preview(arguments), exitCode, {}, errorPattern);
        QCOMPARE(readFile(folder->filePath(u"old.png"_s)), QByteArray("mine"));
        QVERIFY(!QFile::exists(folder->filePath(u"p.png"_s)));
    }

private:
    // Normals come from functions of the C library, which may differ in their last bit from one to the next.
    static bool areAlike(QImage const& a, QImage const& b)
    {
        if (a.isNull() || a.size() != b.size())
            return false;
        constexpr int tolerance = 3;
        int unlike = 0;
        for (int i = 0; i < a.width() * a.height(); ++i) {
            QRgb const x = a.pixel(i % a.width(), i / a.width());
            QRgb const y = b.pixel(i % a.width(), i / a.width());
            unlike += qAbs(qRed(x) - qRed(y)) > tolerance || qAbs(qGreen(x) - qGreen(y)) > tolerance ||
                      qAbs(qBlue(x) - qBlue(y)) > tolerance;
        }
        return unlike == 0;
    }

    void write(QString const& name, QByteArray const& bytes)
    {
        QVERIFY(support::writeFile(folder->filePath(name), bytes));
    }

    support::Outcome preview(QStringList const& arguments)
    {
        return runProgram(QStringList(u"preview"_s) + arguments, folder->path());
    }

    std::optional<QTemporaryDir> folder;
};

QTEST_GUILESS_MAIN(tst_ProgramPreview)
#include "tst_ProgramPreview.moc"
