#include "PngHeader.h"
#include "Program.h"
#include "StlFiles.h"
#include "obj/OBJReader.h"
#include "ply/PLYReader.h"

#include <QDir>
#include <QImage>
#include <QImageReader>
#include <QTemporaryDir>
#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;
using support::readFile;
using support::runProgram;
using support::verify;

namespace {

// A square of two materials, its corners apart so that each has its own texture coordinates.
QByteArray const square = "mtllib s.mtl\nv 0 0 0\nv 9 0 0\nv 0 9 0\nv 9 9 0\n"
                          "vt 0.1 0.1\nvt 0.9 0.1\nvt 0.1 0.9\n"
                          "usemtl a\nf 1/1 2/2 3/3\nusemtl b\nf 4/1 3/2 2/3\n";
QByteArray const library = "newmtl a\nmap_Kd a.png\nnewmtl b\nmap_Kd b.png\n";

} // namespace

// atlas, bake, and convert with --texture.
class tst_ProgramTexture : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        folder.emplace();
        QVERIFY(folder->isValid());
        write(u"s.obj"_s, square);
        write(u"s.mtl"_s, library);
        writeImage(u"a.png"_s, 8, 4);
        writeImage(u"b.png"_s, 5, 7);
    }

    void atlasImageIsTheLibrarys()
    {
        verify(run({u"atlas"_s, u"s.obj"_s, u"--image"_s, u"atlas.png"_s}), 0, {}, {});
        OBJReader reader;
        read(reader, u"s.obj"_s, SurfaceReader::TextureRequired);
        QCOMPARE(QImage(path(u"atlas.png"_s)).convertToFormat(QImage::Format_ARGB32), reader.getTexture());
        QVERIFY(!QFile::exists(path(u"s.ply"_s)));
    }

    void atlasMeshIsTheLibrarys_data()
    {
        QTest::addColumn<QString>("image");
        QTest::addColumn<QString>("mesh");
        QTest::addColumn<QByteArray>("named");
        QTest::newRow("side by side") << u"atlas.png"_s << u"s.ply"_s << QByteArray("atlas.png");
        QTest::newRow("below") << u"in/at las.png"_s << u"s.ply"_s << QByteArray("in/at las.png");
        QTest::newRow("above") << u"atlas.png"_s << u"in/s.ply"_s << QByteArray("../atlas.png");
        QTest::newRow("not ASCII") << u"k\u00F6pfe\u20AC.png"_s << u"s.ply"_s
                                   << QByteArray("k\xC3\xB6pfe\xE2\x82\xAC.png");
    }

    void atlasMeshIsTheLibrarys()
    {
        QFETCH(QString, image);
        QFETCH(QString, mesh);
        QFETCH(QByteArray, named);
        QVERIFY(QDir(folder->path()).mkpath(u"in"_s));
        verify(run({u"atlas"_s, u"s.obj"_s, u"--image"_s, image, u"--mesh"_s, mesh}), 0, {}, {});
        QVERIFY(readFile(path(mesh)).contains("\ncomment TextureFile " + named + '\n'));
        OBJReader expected;
        read(expected, u"s.obj"_s, SurfaceReader::TextureRequired);
        PLYReader found(PLYReader::MeshMode);
        read(found, mesh, SurfaceReader::TextureRequired);
        QCOMPARE(found.getMesh().vertices, expected.getMesh().vertices);
        QCOMPARE(found.getMesh().normals, expected.getMesh().normals);
        QCOMPARE(found.getMesh().indices, expected.getMesh().indices);
        QCOMPARE(found.getMesh().textureCoordinates, expected.getMesh().textureCoordinates);
        QCOMPARE(found.getTexture().convertToFormat(QImage::Format_ARGB32), expected.getTexture());
    }

    void atlasOfOneTextureIsThatTexture()
    {
        write(u"s.mtl"_s, "newmtl a\nmap_Kd a.png\n");
        write(u"s.obj"_s, QByteArray(square).replace("usemtl b\n", ""));
        verify(run({u"atlas"_s, u"s.obj"_s, u"--image"_s, u"atlas.png"_s}), 0, {}, {});
        QCOMPARE(QImage(path(u"atlas.png"_s)), QImage(path(u"a.png"_s)));
    }

    void bakedColoursAreTheLibrarys()
    {
        verify(run({u"bake"_s, u"s.obj"_s, u"s.ply"_s}), 0, {}, {});
        OBJReader expected;
        read(expected, u"s.obj"_s, SurfaceReader::VertexColorsRequired);
        PLYReader found(PLYReader::MeshMode);
        read(found, u"s.ply"_s, SurfaceReader::VertexColorsOptional);
        QVERIFY(!expected.getMesh().colors.isEmpty());
        QCOMPARE(found.getMesh().colors, expected.getMesh().colors);
        QCOMPARE(found.getMesh().vertices, expected.getMesh().vertices);
    }

    void bakedPly()
    {
        verify(run({u"atlas"_s, u"s.obj"_s, u"--image"_s, u"a t.png"_s, u"--mesh"_s, u"t.ply"_s}), 0, {}, {});
        verify(run({u"bake"_s, u"t.ply"_s, u"c.ply"_s}), 0, {}, {});
        PLYReader expected(PLYReader::MeshMode);
        read(expected, u"t.ply"_s, SurfaceReader::VertexColorsRequired);
        PLYReader found(PLYReader::MeshMode);
        read(found, u"c.ply"_s, SurfaceReader::VertexColorsOptional);
        QVERIFY(!expected.getMesh().colors.isEmpty());
        QCOMPARE(found.getMesh().colors, expected.getMesh().colors);
        // Nothing is left to bake.
        verify(run({u"bake"_s, u"c.ply"_s, u"d.ply"_s}), 4, {},
               u"surfaceio: c.ply: has no texture: its header names none\n"_s);
    }

    void convertBakesWhenNotSaidOtherwise()
    {
        verify(run({u"bake"_s, u"s.obj"_s, u"baked.ply"_s}), 0, {}, {});
        verify(run({u"convert"_s, u"s.obj"_s, u"a.ply"_s}), 0, {}, {});
        verify(run({u"convert"_s, u"s.obj"_s, u"b.ply"_s, u"--texture"_s, u"bake"_s}), 0, {}, {});
        QCOMPARE(readFile(path(u"a.ply"_s)), readFile(path(u"baked.ply"_s)));
        QCOMPARE(readFile(path(u"b.ply"_s)), readFile(path(u"baked.ply"_s)));
    }

    void convertLeavesTexturesOut()
    {
        verify(run({u"atlas"_s, u"s.obj"_s, u"--image"_s, u"t.png"_s, u"--mesh"_s, u"t.ply"_s}), 0, {}, {});
        for (QString const& name : {u"s.obj"_s, u"t.ply"_s}) {
            verify(run({u"convert"_s, name, u"out.ply"_s, u"--texture"_s, u"none"_s, u"--force"_s}), 0, {},
                   {});
            PLYReader found(PLYReader::MeshMode);
            read(found, u"out.ply"_s, SurfaceReader::TextureOptional);
            QCOMPARE(found.getMesh().vertices.size(), 6);
            QVERIFY(found.getMesh().colors.isEmpty());
            QVERIFY(found.getMesh().textureCoordinates.isEmpty());
        }
        verify(run({u"convert"_s, u"s.obj"_s, u"out.ply"_s, u"--texture"_s, u"some"_s}), 2, {},
               u"surfaceio: --texture: .*\n.*"_s);
    }

    void noTexture_data()
    {
        QTest::addColumn<QByteArray>("obj");
        QTest::addColumn<QByteArray>("mtl");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("sentence");
        auto const row = [](char const* name, QByteArray const& obj, QByteArray const& mtl, int exitCode,
                            QString const& sentence) {
            QTest::newRow(name) << obj << mtl << exitCode << sentence;
        };
        row("no library", QByteArray(square).replace("mtllib", "#"), library, 4,
            u"has no texture: it names no material library"_s);
        row("library missing", QByteArray(square).replace("s.mtl", "S.MTL"), library, 4,
            u"the material library \"S.MTL\" does not exist; is it \"s.mtl\"?"_s);
        row("image missing", square, QByteArray(library).replace("b.png", "textures\\B.png"), 4,
            u"s.mtl, line 4: the image \"textures\\B.png\" does not exist; is it \"b.png\"?"_s);
        row("nothing like it", square, QByteArray(library).replace("b.png", "mandible_left.tiff"), 4,
            u"s.mtl, line 4: the image \"mandible_left.tiff\" does not exist"_s);
        row("options", square, QByteArray(library).replace("b.png", "-s 1 1 1 b.png"), 4,
            u"s.mtl, line 4: the image \"-s 1 1 1 b.png\" does not exist; the options beside \"b.png\" "
            u"are "
            "taken as part of the name"_s);
        row("no image", square, QByteArray(library).replace("b.png", "s.obj"), 4,
            u"s.mtl, line 4: \"s.obj\" is no image that can be read"_s);
        row("image first", square, "map_Kd a.png\n" + library, 4,
            u"s.mtl, line 1: an image stands before the first \"newmtl\""_s);
        row("materials without", square, "newmtl a\nKd 1 1 1\nnewmtl b\n", 4,
            u"has no texture: no material of its faces names an image"_s);
        row("unused only", QByteArray(square).replace("usemtl", "#"), "newmtl c\nmap_Kd a.png\n", 4,
            u"has no texture: no material of its faces names an image"_s);
        row("no coordinates", "mtllib s.mtl\nv 0 0 0\nv 1 0 0\nv 0 1 0\nusemtl a\nf 1 2 3\n", library, 4,
            u"has no texture coordinates"_s);
        row("quads", square + "f 1/1 2/1 3/1 4/1\n", library, 4,
            u"line 13: a face of 4 corners; only triangles are read"_s);
        row("outside", square + "f 1/1 2/1 9/1\n", library, 3,
            u"line 13: a face asks for \"v\" number 9, the file has 4"_s);
    }

    void noTexture()
    {
        QFETCH(QByteArray, obj);
        QFETCH(QByteArray, mtl);
        QFETCH(int, exitCode);
        QFETCH(QString, sentence);
        write(u"s.obj"_s, obj);
        write(u"s.mtl"_s, mtl);
        QStringList const before = names();
        for (QStringList const& arguments :
             {QStringList{u"bake"_s, u"s.obj"_s, u"o.ply"_s},
              QStringList{u"atlas"_s, u"s.obj"_s, u"--image"_s, u"o.png"_s, u"--mesh"_s, u"o.ply"_s}}) {
            support::Outcome const outcome = run(arguments);
            QCOMPARE(QString::fromUtf8(outcome.standardError), u"surfaceio: s.obj: "_s + sentence + u'\n');
            QCOMPARE(outcome.exitCode, exitCode);
            QCOMPARE(outcome.standardOutput, QByteArray());
        }
        QCOMPARE(names(), before);
    }

    void refusal_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("pattern");
        auto const row = [](char const* name, QStringList const& arguments, int exitCode,
                            char const* pattern) {
            QTest::newRow(name) << arguments << exitCode << QString::fromUtf8(pattern);
        };
        QStringList const atlas = {u"atlas"_s, u"s.obj"_s, u"--image"_s};
        row("STL named PLY", {u"bake"_s, u"wrong.ply"_s, u"o.ply"_s}, 4,
            "surfaceio: wrong.ply: the content is that of STL, the suffix is not\n");
        row("no image", {u"atlas"_s, u"s.obj"_s}, 2, "surfaceio: --image is required\n.*");
        row("no PNG", atlas + QStringList{u"o.jpg"_s}, 2, "surfaceio: o.jpg: expected the suffix \\.png\n");
        row("no PLY", atlas + QStringList{u"o.png"_s, u"--mesh"_s, u"o.obj"_s}, 2,
            "surfaceio: o.obj: expected the suffix \\.ply\n");
        row("image exists", atlas + QStringList{u"a.png"_s}, 1,
            "surfaceio: a.png: exists already; --force replaces it\n");
        row("mesh is a folder", atlas + QStringList{u"o.png"_s, u"--mesh"_s, u"in.ply"_s, u"--force"_s}, 1,
            "surfaceio: in.ply: is a folder\n");
        row("a name that gets lost", atlas + QStringList{u"o  o.png"_s, u"--mesh"_s, u"o.ply"_s}, 2,
            "surfaceio: o.ply: a PLY header cannot name an image \"o  o.png\": .*\n");
        row("no such folder", atlas + QStringList{u"no/o.png"_s}, 1, "surfaceio: no/o.png: the folder .*\n");
        row("no scan", {u"atlas"_s, u"gone.obj"_s, u"--image"_s, u"o.png"_s}, 1,
            "surfaceio: gone.obj: there is no such file\n");
        row("an STL scan", {u"atlas"_s, u"s.stl"_s, u"--image"_s, u"o.png"_s}, 2,
            "surfaceio: s.stl: expected one of the suffixes \\.obj, \\.ply\n");
        row("baked to STL", {u"bake"_s, u"s.obj"_s, u"o.stl"_s}, 2,
            "surfaceio: o.stl: expected the suffix \\.ply\n");
    }

    void refusal()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, exitCode);
        QFETCH(QString, pattern);
        QVERIFY(QDir(folder->path()).mkpath(u"in.ply"_s));
        write(u"wrong.ply"_s, support::binaryStl(support::stlFacet(0)));
        QStringList const before = names();
        QByteArray const image = readFile(path(u"a.png"_s));
        verify(run(arguments), exitCode, {}, pattern);
        QCOMPARE(names(), before);
        QCOMPARE(readFile(path(u"a.png"_s)), image);
    }

    // 20000 x 20000 pixels of four bytes are 1526 MiB.
    void imageOverTheLimit()
    {
        write(u"b.png"_s, support::pngHeader(20000, 20000));
        QString const sentence =
            u"\"b.png\" has 20000 x 20000 pixels, which take 1526 MiB; the limit is 128 MiB, "
            "and --image-limit 1526 raises it"_s;
        verify(run({u"bake"_s, u"s.obj"_s, u"o.ply"_s}), 4, {},
               u"surfaceio: s.obj: s.mtl, line 4: "_s + sentence + u'\n');
        verify(run({u"atlas"_s, u"s.obj"_s, u"--image"_s, u"o.png"_s}), 4, {},
               u"surfaceio: s.obj: s.mtl, line 4: "_s + sentence + u'\n');
        QString const warned = u".*surfaceio: warning: "_s + sentence + u"\n.*"_s;
        verify(run({u"convert"_s, u"s.obj"_s, u"o.ply"_s}), 0, {}, warned);
        verify(run({u"preview"_s, u"s.obj"_s, u"-o"_s, u"o.png"_s, u"--size"_s, u"16"_s}), 0, {}, warned);
    }

    void limitOfAPlyTexture()
    {
        verify(run({u"atlas"_s, u"s.obj"_s, u"--image"_s, u"t.png"_s, u"--mesh"_s, u"t.ply"_s}), 0, {}, {});
        write(u"t.png"_s, support::pngHeader(20000, 20000));
        QString const sentence =
            u"\"t.png\" has 20000 x 20000 pixels, which take 1526 MiB; the limit is 128 MiB, "
            "and --image-limit 1526 raises it\n"_s;
        verify(run({u"convert"_s, u"t.ply"_s, u"o.ply"_s}), 0, {}, u"surfaceio: warning: "_s + sentence);
        verify(run({u"info"_s, u"t.ply"_s, u"--json"_s, u"--strict"_s}), 5,
               run({u"info"_s, u"t.ply"_s, u"--json"_s}).standardOutput,
               u"surfaceio: warning: t.ply: "_s + sentence);
    }

    // Refused with the usual limit, read with a raised one.
    void raisedLimit()
    {
        QImage large(5000, 7000, QImage::Format_Mono);
        large.fill(0);
        QVERIFY(large.save(path(u"a.png"_s)));
        write(u"s.mtl"_s, "newmtl a\nmap_Kd a.png\n");
        write(u"s.obj"_s, QByteArray(square).replace("usemtl b\n", ""));
        QStringList const arguments = {u"atlas"_s, u"s.obj"_s, u"--image"_s, u"o.png"_s};
        QCOMPARE(run(arguments).exitCode, 4);
        verify(run(arguments + QStringList{u"--image-limit"_s, u"134"_s}), 0, {}, {});
        QCOMPARE(QImageReader(path(u"o.png"_s)).size(), QSize(5000, 7000));
    }

#ifdef Q_OS_UNIX
    // A limit of one block of 512 bytes stands for a full disk.
    void fullDisk()
    {
        writeImage(u"b.png"_s, 60, 60);
        QStringList const before = names();
        verify(support::runShell(u"ulimit -f 1; \"$SURFACEIO\" atlas s.obj --image o.png --mesh o.ply"_s,
                                 folder->path()),
               1, {}, u"surfaceio: o.png: could not be written: File too large\n"_s);
        QCOMPARE(names(), before);
    }
#endif

private:
    QString path(QString const& name) const
    {
        return folder->filePath(name);
    }

    QStringList names() const
    {
        return QDir(folder->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    void write(QString const& name, QByteArray const& bytes)
    {
        QVERIFY(support::writeFile(path(name), bytes));
    }

    // Noise, the same in every run.
    void writeImage(QString const& name, int width, int height)
    {
        QImage image(width, height, QImage::Format_RGB32);
        quint32 state = 1;
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                state = state * 1664525u + 1013904223u;
                image.setPixel(x, y, 0xFF000000u | state >> 8);
            }
        }
        QVERIFY(image.save(path(name)));
    }

    void read(SurfaceReader& reader, QString const& name, SurfaceReader::TextureSupport policy)
    {
        reader.setFileName(path(name));
        reader.setTextureSupport(policy);
        std::atomic<bool> const cancel = false;
        QVERIFY(reader.read(cancel));
    }

    support::Outcome run(QStringList const& arguments)
    {
        return runProgram(arguments, folder->path());
    }

    std::optional<QTemporaryDir> folder;
};

QTEST_GUILESS_MAIN(tst_ProgramTexture)
#include "tst_ProgramTexture.moc"
