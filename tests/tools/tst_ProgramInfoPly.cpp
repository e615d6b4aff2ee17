#include "Program.h"
#include "StlFiles.h"
#include "support/PlyFiles.h"

#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;
using support::PLYBody;
using support::plyColor;
using support::plyCount;
using support::plyHeader;
using support::plyIndices;
using support::plyLines;
using support::plyPosition;
using support::plyStart;
using support::plyTriangle;
using support::runProgram;
using support::verify;

namespace {

// With colours and alpha, a property that nobody knows, a material and comments.
QByteArray fullFile()
{
    QByteArrayList const lines =
        plyStart +
        QByteArrayList{"comment made by hand",
                       "comment scan information",
                       "comment scanner name: ScanPro 3",
                       "comment scanner serial: SN-1",
                       "comment imported: 1",
                       "comment software version: 1.2",
                       "comment acquisition date: 2024-03-01",
                       "comment TextureFile a  b.png"} +
        QByteArrayList{plyCount("vertex", 3)} + plyPosition + plyColor +
        QByteArrayList{"property uchar alpha", "property short quality", plyCount("face", 1)} + plyIndices +
        QByteArrayList{"element velquin_material 1", "property uchar ambient_red",
                       "property float ambient_intensity", "end_header"};
    return plyLines(lines) + PLYBody()
                                 .f32({0, 0, 0})
                                 .u8({10, 20, 30, 255})
                                 .i16(1)
                                 .f32({1, 0, 0})
                                 .u8({20, 20, 30, 255})
                                 .i16(1)
                                 .f32({0, 2, 0})
                                 .u8({40, 20, 30, 0})
                                 .i16(1)
                                 .triangle(0, 1, 2)
                                 .u8(9)
                                 .f32(0.5f)
                                 .bytes;
}

} // namespace

class tst_ProgramInfoPly : public QObject
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
        write(u"f.ply"_s, fullFile());
        verify(info({u"f.ply"_s}), 0,
               "f.ply\n"
               "  format         PLY\n"
               "  recognised     by its first line, \"ply\"\n"
               "  size in bytes  " +
                   QByteArray::number(fullFile().size()) +
                   "\n"
                   "  encoding       binary_little_endian\n"
                   "  elements\n"
                   "    element           count\n"
                   "    vertex                3\n"
                   "    face                  1\n"
                   "    velquin_material      1\n"
                   "  properties\n"
                   "    element           properties            type                           use\n"
                   "    vertex            x y z                 float                          position\n"
                   "    vertex            red green blue alpha  uchar                          colour\n"
                   "    vertex            quality               short                          skipped\n"
                   "    face              vertex_indices        list of int, counted by uchar  triangles\n"
                   "    velquin_material  ambient_red           uchar                          material\n"
                   "    velquin_material  ambient_intensity     float                          material\n"
                   "  as read\n"
                   "    facets               1\n"
                   "    vertices             3\n"
                   "    normals              computed\n"
                   "    texture coordinates  0\n"
                   "  bounding box (mm)\n"
                   "    min   0.000 0.000 0.000\n"
                   "    max   1.000 2.000 0.000\n"
                   "    size  1.000 2.000 0.000\n"
                   "  colours\n"
                   "    channel  min  max     mean\n"
                   "    red       10   40   23.333\n"
                   "    green     20   20   20.000\n"
                   "    blue      30   30   30.000\n"
                   "    alpha      0  255  170.000\n"
                   "  texture\n"
                   "    name            a b.png\n"
                   "    found           no\n"
                   "    size in pixels  -\n"
                   "  material\n"
                   "    ambient colour      9 0 0\n"
                   "    ambient intensity   0.500\n"
                   "    diffuse colour      204 204 204\n"
                   "    diffuse intensity   0.800\n"
                   "    specular colour     255 255 255\n"
                   "    specular intensity  0.200\n"
                   "    emissive colour     0 0 0\n"
                   "    emissive intensity  0.000\n"
                   "    shininess           32.000\n"
                   "    transparency        0.000\n"
                   "    base reflectance    0.040\n"
                   "    detail noise        no\n"
                   "  scan metadata\n"
                   "    scanner name      ScanPro 3\n"
                   "    scanner serial    SN-1\n"
                   "    imported          yes\n"
                   "    software version  1.2\n"
                   "    acquisition date  2024-03-01\n"
                   "  header\n"
                   "    other comments\n"
                   "    made by hand\n",
               {});
    }

    void json()
    {
        write(u"t.ply"_s, plyTriangle());
        auto const outcome = info({u"--json"_s, u"t.ply"_s});
        QCOMPARE(outcome.exitCode, 0);
        QJsonObject const file = QJsonDocument::fromJson(outcome.standardOutput)["files"_L1][0].toObject();
        QCOMPARE(file["formatName"_L1].toString(), u"ply"_s);
        QCOMPARE(file["status"_L1].toString(), u"ok"_s);
        QCOMPARE(file["read"_L1]["facets"_L1], QJsonValue(1));
        QCOMPARE(file["elements"_L1][0].toObject(), QJsonObject({{u"name"_s, u"vertex"_s}, {u"count"_s, 3}}));
        QCOMPARE(file["properties"_L1][1].toObject(),
                 QJsonObject({{u"element"_s, u"face"_s},
                              {u"names"_s, u"vertex_indices"_s},
                              {u"type"_s, u"list of int, counted by uchar"_s},
                              {u"use"_s, u"triangles"_s}}));
        for (auto const key : {"colors"_L1, "texture"_L1, "material"_L1, "metadata"_L1, "problem"_L1})
            QVERIFY2(file[key].isNull(), key.data());
        QVERIFY(file["comments"_L1].toArray().isEmpty());
    }

    void texture()
    {
        QImage image(4, 2, QImage::Format_RGB32);
        image.fill(Qt::red);
        QVERIFY(image.save(folder->filePath(u"a b.png"_s)));
        QByteArray file =
            "comment TextureFile a b.png\n" +
            plyHeader(3, plyPosition + QByteArrayList{"property float u", "property float v"}, 1);
        file += PLYBody().f32({0, 0, 0, 0, 1, 1, 0, 0, 0, 1, 0, 2, 0, 0, 1}).triangle(0, 1, 2).bytes;
        write(u"t.ply"_s, file);
        QJsonObject const report = reportOf(u"t.ply"_s);
        QCOMPARE(report["status"_L1].toString(), u"ok"_s);
        QCOMPARE(report["texture"_L1]["found"_L1], QJsonValue(true));
        QCOMPARE(report["texture"_L1]["size"_L1].toArray(), (QJsonArray{4, 2}));
        QCOMPARE(report["read"_L1]["textureCoordinates"_L1], QJsonValue(3));
    }

    void bigEndian()
    {
        QByteArray const header = plyHeader(3, plyPosition, 1).replace("little", "big");
        write(u"b.ply"_s, header + PLYBody(true).f32({0, 0, 0, 1, 0, 0, 0, 3, 0}).triangle(0, 1, 2).bytes);
        QJsonObject const report = reportOf(u"b.ply"_s);
        QCOMPARE(report["encoding"_L1].toString(), u"binary_big_endian"_s);
        QCOMPARE(report["boundingBox"_L1]["max"_L1].toArray(), (QJsonArray{1, 3, 0}));
    }

    void recognisedWithoutItsSuffix()
    {
        write(u"mesh.dat"_s, plyTriangle());
        QCOMPARE(reportOf(u"mesh.dat"_s)["formatName"_L1].toString(), u"ply"_s);
        write(u"mark.dat"_s, "\xEF\xBB\xBF"
                             "comment\r\n\r\n" +
                                 plyTriangle());
        QCOMPARE(reportOf(u"mark.dat"_s)["formatName"_L1].toString(), u"ply"_s);
    }

    void utf16HeaderIsReadAllTheSame()
    {
        QByteArray file = "\xFF\xFE";
        for (char const character : plyHeader(3, plyPosition, 1))
            file += QByteArray(1, character) + '\0';
        write(u"wide.ply"_s, file + plyTriangle().right(49));
        QJsonObject const report = reportOf(u"wide.ply"_s);
        QCOMPARE(report["recognisedBy"_L1].toString(), u"by its suffix only"_s);
        QCOMPARE(report["status"_L1].toString(), u"ok"_s);
        QCOMPARE(report["read"_L1]["facets"_L1], QJsonValue(1));
    }

    void problem_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("sentence");
        auto const row = [](char const* name, QByteArray const& bytes, int exitCode, char const* sentence) {
            QTest::newRow(name) << bytes << exitCode << QString::fromUtf8(sentence);
        };
        auto const with = [](char const* from, char const* to) { return plyTriangle().replace(from, to); };
        row("empty", {}, 3, "expected \"ply\" in the first line, found \"\"");
        row("another file", "nonsense\n", 3, "expected \"ply\" in the first line, found \"nonsense\"");
        row("no format", with("format binary_little_endian 1.0\n", ""), 3,
            "expected the format \"binary_little_endian\" or \"binary_big_endian\", found \"\"");
        row("unknown format", with("binary_little", "binary_middle"), 3,
            "expected the format \"binary_little_endian\" or \"binary_big_endian\", found "
            "\"binary_middle_endian\"");
        row("ASCII", with("binary_little_endian", "ascii"), 4,
            "is encoded in ASCII; only binary PLY is read");
        row("strange line", with("end_header", "start_body"), 3,
            "expected a line of a PLY header, found \"start_body\"");
        row("count is no number", with("vertex 3", "vertex many"), 3,
            "expected a line of a PLY header, found \"element vertex many\"");
        row("cut header", plyTriangle().left(61), 3, "expected a line of a PLY header, found \"property\"");
        row("header without its end", plyLines(plyStart), 3,
            "expected \"end_header\", found the end of the file");
        row("elements in another order",
            plyLines(plyStart + QByteArrayList{"element edge 1", "element vertex 3", "end_header"}), 4,
            "has the elements edge, vertex; expected vertex, face and velquin_material first, in this order");
        row("no vertices", plyLines(plyStart + QByteArrayList{"end_header"}), 3,
            "expected a vertex element of at least 3 properties, found 0");
        row("two properties", plyHeader(3, plyPosition.mid(0, 2), 1), 3,
            "expected a vertex element of at least 3 properties, found 2");
        row("another list", with("end_header", "property list uchar float texcoord\nend_header"), 4,
            "has a list \"texcoord\"; the only list that is read is \"vertex_indices\"");
        row("positions of no bytes", with("float y", "ushort y"), 4,
            "stores \"y\" as \"ushort\", a type that is read as no bytes");
        row("quad", plyTriangle().chopped(13) + PLYBody().u8(4).i32(0).i32(1).i32(2).i32(0).bytes, 4,
            "has a face of 4 corners; only triangles are read");
        row("index out of range", plyTriangle().chopped(4) + PLYBody().i32(3).bytes, 3,
            "a face asks for a vertex that is not there");
        row("a byte short", plyTriangle().chopped(1), 3,
            "the header announces a body of 49 bytes, the file holds 48: 1 are missing");
        row("half of the vertices", plyTriangle().chopped(30), 3,
            "the header announces a body of 49 bytes, the file holds 19: 30 are missing");
        row("no body", plyTriangle().chopped(49), 3,
            "the header announces a body of 49 bytes, the file holds 0: 49 are missing");
        row("points", plyHeader(3, plyPosition, 0) + plyTriangle().right(49).left(36), 4,
            "holds 3 points and no faces; as a mesh it is not read");
        row("face colours", with("end_header", "property uchar red\nend_header") + "\x9", 4,
            "faces have colours; such a file is read only where they are asked for");
        row("two thousand million", with("vertex 3", "vertex 2000000000"), 3,
            "the header announces a body of 24000000013 bytes, the file holds 49: 23999999964 are missing");
    }

    void problem()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(int, exitCode);
        QFETCH(QString, sentence);
        write(u"x.ply"_s, bytes);
        auto const outcome = info({u"--json"_s, u"x.ply"_s});
        QCOMPARE(outcome.standardError, "surfaceio: x.ply: " + sentence.toUtf8() + '\n');
        QCOMPARE(outcome.exitCode, exitCode);
        QJsonObject const file = QJsonDocument::fromJson(outcome.standardOutput)["files"_L1][0].toObject();
        QCOMPARE(file["problem"_L1].toString(), sentence);
        QCOMPARE(file["status"_L1].toString(), exitCode == 3 ? u"malformed"_s : u"unsupported"_s);
    }

    void contentOfWhatIsNoMesh()
    {
        write(u"points.ply"_s, plyHeader(2, plyPosition + plyColor, 0) +
                                   PLYBody().f32({1, 2, 3}).u8({1, 2, 3}).f32({4, 5, 6}).u8({1, 2, 3}).bytes);
        QJsonObject const points = reportOf(u"points.ply"_s);
        QCOMPARE(points["read"_L1]["vertices"_L1], QJsonValue(2));
        QCOMPARE(points["read"_L1]["normals"_L1].toString(), u"none"_s);
        QCOMPARE(points["colors"_L1].toArray().size(), 4);
        write(u"faces.ply"_s, plyTriangle().replace("end_header", "property uchar red\nend_header") + "\x9");
        QCOMPARE(reportOf(u"faces.ply"_s)["faceColors"_L1], QJsonValue(1));
    }

private:
    void write(QString const& name, QByteArray const& bytes)
    {
        QVERIFY(support::writeFile(folder->filePath(name), bytes));
    }
    support::Outcome info(QStringList const& arguments)
    {
        return runProgram(QStringList{u"info"_s} + arguments, folder->path());
    }
    QJsonObject reportOf(QString const& name)
    {
        return QJsonDocument::fromJson(info({u"--json"_s, name}).standardOutput)["files"_L1][0].toObject();
    }

    std::optional<QTemporaryDir> folder;
};

QTEST_GUILESS_MAIN(tst_ProgramInfoPly)
#include "tst_ProgramInfoPly.moc"
