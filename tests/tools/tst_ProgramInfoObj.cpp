#include "PngHeader.h"
#include "Program.h"
#include "StlFiles.h"

#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;
using support::runProgram;
using support::verify;

namespace {

QByteArray const corners = "v 0 0 0\nv 1 0 0\nv 0 2 0\n";
QByteArray const mapping = "vt 0 0\nvt 1 0\nvt 0 1\n";

} // namespace

class tst_ProgramInfoObj : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        folder.emplace();
        QVERIFY(folder->isValid());
    }

    void everything()
    {
        write(u"a.obj"_s, "mtllib my face.mtl\no Head\nv 0 0 0 1 0 0\nv 1 0 0\nv 0 2 0\nv 1 nan 0\n" +
                              mapping +
                              "vt 0 1.5\ng left\nusemtl skin\nf 1/1 2/2 3/3\nusemtl ghost\n"
                              "f 1/1 2/2 3/4\nl 1 2\n");
        write(u"my face.mtl"_s, "newmtl skin\nKd 1 0.5 0\nmap_Ka bump.png\nmap_Kd skin.png\n"
                                "newmtl hair\nmap_Kd -s 1 1 1 -clamp on hair.png\n");
        writeImage(u"skin.png"_s, 8, 4);
        writeImage(u"bump.png"_s, 2, 2);
        verify(info({u"a.obj"_s}), 0,
               "a.obj\n"
               "  format               OBJ\n"
               "  recognised           by its suffix only\n"
               "  size in bytes        162\n"
               "  in the file\n"
               "    vertices (v)                               4\n"
               "    texture coordinates (vt)                   4\n"
               "    normals (vn)                               0\n"
               "    faces (f)                                  2\n"
               "    objects (o)                                1\n"
               "    groups (g)                                 1\n"
               "    vertices with colours, which are not read  1\n"
               "  faces\n"
               "    corners  style  relative  count\n"
               "          3  v/vt         no      2\n"
               "  objects\n"
               "    name  faces\n"
               "    Head      2\n"
               "  groups\n"
               "    name  faces\n"
               "    left      2\n"
               "  lines that are not read\n"
               "    keyword  count\n"
               "    l            1\n"
               "  vertices not finite  1\n"
               "  bounding box (mm)\n"
               "    min   0.000 0.000 0.000\n"
               "    max   1.000 2.000 0.000\n"
               "    size  1.000 2.000 0.000\n"
               "  texture coordinates\n"
               "    axis    min    max  outside 0 to 1\n"
               "    u     0.000  1.000               0\n"
               "    v     0.000  1.500               1\n"
               "  material library my face.mtl\n"
               "    found            yes\n"
               "    read up to line  6\n"
               "    material skin\n"
               "      faces           1\n"
               "      diffuse colour  255 127 0\n"
               "      images\n"
               "        image   name      options  state  size  use       line\n"
               "        map_Ka  bump.png        -  found   2 2  replaced     3\n"
               "        map_Kd  skin.png        -  found   8 4  texture      4\n"
               "    material hair\n"
               "      faces           0\n"
               "      diffuse colour  -\n"
               "      images\n"
               "        image   name      options             state    size  use     line\n"
               "        map_Kd  hair.png  -s 1 1 1 -clamp on  missing     -  unused     6\n"
               "  materials that are not defined\n"
               "    name   faces\n"
               "    ghost      1\n"
               "  as read\n"
               "    facets               2\n"
               "    vertices             4\n"
               "    normals              computed\n"
               "    texture coordinates  4\n"
               "    texture in pixels    8 4\n",
               {});
    }

    void json()
    {
        write(u"t.obj"_s,
              "mtllib t.mtl\nmtllib gone.mtl\n" + corners + mapping + "usemtl m\nf 1/1 2/2 3/3\n");
        write(u"t.mtl"_s, "newmtl m\nmap_Kd t.png\n");
        writeImage(u"t.png"_s, 3, 5);
        QJsonObject const file = jsonOf(u"t.obj"_s);
        QCOMPARE(file["formatName"_L1].toString(), u"obj"_s);
        QCOMPARE(file["status"_L1].toString(), u"ok"_s);
        QJsonObject const inFile = {{u"vertices"_s, 3},    {u"textureCoordinates"_s, 3},
                                    {u"normals"_s, 0},     {u"faces"_s, 1},
                                    {u"objects"_s, 0},     {u"groups"_s, 0},
                                    {u"vertexColors"_s, 0}};
        QCOMPARE(file["inFile"_L1].toObject(), inFile);
        QJsonObject const image = {{u"keyword"_s, u"map_Kd"_s},
                                   {u"name"_s, u"t.png"_s},
                                   {u"options"_s, QJsonValue()},
                                   {u"state"_s, u"found"_s},
                                   {u"size"_s, QJsonArray({3, 5})},
                                   {u"use"_s, u"texture"_s},
                                   {u"line"_s, 2}};
        QJsonObject const material = {{u"name"_s, u"m"_s},
                                      {u"faces"_s, 1},
                                      {u"diffuseColor"_s, QJsonValue()},
                                      {u"images"_s, QJsonArray({image})}};
        QJsonObject const found = {{u"name"_s, u"t.mtl"_s},
                                   {u"found"_s, true},
                                   {u"stopsAtLine"_s, QJsonValue()},
                                   {u"materials"_s, QJsonArray({material})}};
        QJsonObject const missing = {{u"name"_s, u"gone.mtl"_s},
                                     {u"found"_s, false},
                                     {u"stopsAtLine"_s, QJsonValue()},
                                     {u"materials"_s, QJsonArray()}};
        QCOMPARE(file["libraries"_L1].toArray(), QJsonArray({found, missing}));
        QCOMPARE(file["read"_L1]["texture"_L1], QJsonArray({3, 5}));
    }

    void recognised()
    {
        write(u"scan.dat"_s, "# by hand\n\no x\n" + corners + "f 1 2 3\n");
        QCOMPARE(jsonOf(u"scan.dat"_s)["recognisedBy"_L1].toString(),
                 u"by its lines, which are those of an OBJ file"_s);
        write(u"text.dat"_s, "v is a letter\nand here is more\n");
        QCOMPARE(info({u"text.dat"_s}).exitCode, 4);
    }

    void refused_data()
    {
        QTest::addColumn<QByteArray>("lines");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("sentence");
        auto const row = [](char const* name, QByteArray const& lines, int exitCode, char const* sentence) {
            QTest::newRow(name) << lines << exitCode << QString::fromUtf8(sentence);
        };
        row("quad", corners + "f 1 2 3 1\nf 1 2 3\nf 1 2 3 1\n", 4,
            "line 4: a face of 4 corners; only triangles are read (2 such faces)");
        row("relative", corners + "f -1 -2 -3\n", 4,
            "line 4: a face with relative (negative) indices; these are not read");
        row("outside", corners + "f 1 2 4\n", 3, "line 4: a face asks for \"v\" number 4, the file has 3");
        row("outside the normals", corners + "vn 0 0 1\nf 1//1 2//1 3//2\n", 3,
            "line 5: a face asks for \"vn\" number 2, the file has 1");
        row("zero", corners + "f 0 1 2\n", 3,
            "line 4: expected an index from 1 on as first number of each corner");
        row("two corners", corners + "f 1 2\n", 3, "line 4: a face of fewer than 3 corners");
        row("short", "v 1 2\n", 3,
            "line 1: too few numbers: expected 3 behind \"v\" and \"vn\", 2 behind \"vt\"");
        row("partly mapped", corners + "vt 0 0\nf 1/1 2/1 3/1\nf 1 2 3\n", 4,
            "some corners of faces have a texture coordinate and others have none");
        row("several libraries", "mtllib r.obj r.obj\n" + corners, 4,
            "line 1: names several material libraries that exist; one is read");
        row("nothing", "# nothing\n", 3, "expected vertices, found none");
    }

    void refused()
    {
        QFETCH(QByteArray, lines);
        QFETCH(int, exitCode);
        QFETCH(QString, sentence);
        write(u"r.obj"_s, lines);
        auto const outcome = info({u"r.obj"_s});
        QCOMPARE(outcome.exitCode, exitCode);
        QCOMPARE(QString::fromUtf8(outcome.standardError), u"surfaceio: r.obj: "_s + sentence + u'\n');
    }

    void atlasThatIsTooLarge()
    {
        write(u"t.obj"_s,
              "mtllib t.mtl\n" + corners + mapping + "usemtl a\nf 1/1 2/2 3/3\nusemtl b\nf 3/3 2/2 1/1\n");
        write(u"t.mtl"_s, "newmtl a\nmap_Kd a.png\nnewmtl b\nmap_Kd b.png\n");
        writeImage(u"a.png"_s, 8193, 1);
        writeImage(u"b.png"_s, 1, 1);
        auto const outcome = info({u"t.obj"_s});
        QCOMPARE(outcome.exitCode, 4);
        QCOMPARE(outcome.standardError,
                 QByteArray("surfaceio: t.obj: its textures do not fit into one atlas of at most 8192 x 8192 "
                            "pixels\n"));
    }

    // 20000 x 20000 pixels of four bytes are 1526 MiB.
    void imageOverTheLimit()
    {
        write(u"t.obj"_s, "mtllib t.mtl\n" + corners + mapping + "usemtl m\nf 1/1 2/2 3/3\n");
        write(u"t.mtl"_s, "newmtl m\nmap_Kd huge.png\n");
        write(u"huge.png"_s, support::pngHeader(20000, 20000));
        auto const outcome = info({u"t.obj"_s});
        QCOMPARE(outcome.exitCode, 0);
        QCOMPARE(
            outcome.standardError,
            QByteArray("surfaceio: warning: t.obj: \"huge.png\" has 20000 x 20000 pixels, which take 1526 "
                       "MiB; the limit is 128 MiB, and --image-limit 1526 raises it\n"));
        QVERIFY(outcome.standardOutput.contains("  over the limit  20000 20000  "));
        verify(info({u"t.obj"_s, u"--image-limit"_s, u"0"_s}), 2, {}, u"surfaceio: --image-limit: .*\n.*"_s);
    }

    // 5000 x 7000 pixels need 134 MiB: refused, and read where the limit is raised.
    void raisedLimit()
    {
        write(u"t.obj"_s, "mtllib t.mtl\n" + corners + mapping + "usemtl m\nf 1/1 2/2 3/3\n");
        write(u"t.mtl"_s, "newmtl m\nmap_Kd large.png\n");
        QImage image(5000, 7000, QImage::Format_Mono);
        image.fill(0);
        QVERIFY(image.save(folder->filePath(u"large.png"_s)));
        QCOMPARE(jsonOf(u"t.obj"_s)["read"_L1]["texture"_L1], QJsonValue());
        auto const outcome = info({u"--json"_s, u"t.obj"_s, u"--image-limit"_s, u"134"_s});
        QCOMPARE(outcome.standardError, QByteArray());
        QCOMPARE(QJsonDocument::fromJson(outcome.standardOutput)["files"_L1][0]["read"_L1]["texture"_L1],
                 QJsonArray({5000, 7000}));
    }

private:
    void write(QString const& name, QByteArray const& bytes)
    {
        QVERIFY(support::writeFile(folder->filePath(name), bytes));
    }

    void writeImage(QString const& name, int width, int height)
    {
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(Qt::blue);
        QVERIFY(image.save(folder->filePath(name)));
    }

    support::Outcome info(QStringList const& arguments)
    {
        return runProgram(QStringList(u"info"_s) + arguments, folder->path());
    }

    QJsonObject jsonOf(QString const& name)
    {
        return QJsonDocument::fromJson(info({u"--json"_s, name}).standardOutput)["files"_L1][0].toObject();
    }

    std::optional<QTemporaryDir> folder;
};

QTEST_GUILESS_MAIN(tst_ProgramInfoObj)
#include "tst_ProgramInfoObj.moc"
