#include "LibraryLog.h"
#include "PngHeader.h"
#include "StlFiles.h"
#include "check/Check.h"
#include "check/NearestName.h"
#include "support/PlyFiles.h"

#include <QDir>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;
using namespace tool;
using support::plyCount;
using support::plyIndices;
using support::plyLines;
using support::plyPosition;
using support::plyStart;

namespace {

// A closed surface: a tetrahedron, wound outwards.
QByteArray const corners = "v 0 0 0\nv 9 0 0\nv 0 9 0\nv 0 0 9\n";
QByteArray const plainFaces = "f 1 3 2\nf 1 2 4\nf 1 4 3\nf 2 3 4\n";
QByteArray const mapping = "vt 0 0\nvt 1 0\nvt 0 1\n";
QByteArray const mappedFaces = "usemtl m\nf 1/1 3/2 2/3\nf 1/1 2/2 4/3\nf 1/1 4/2 3/3\nf 2/1 3/2 4/3\n";
QByteArray const mapped = "mtllib s.mtl\n" + corners + mapping + mappedFaces;

} // namespace

// What "check" finds in OBJ and PLY files, and in the files that these name.
class tst_CheckImages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        log.emplace(console);
        folder.emplace();
        QVERIFY(folder->isValid());
        QImage image(4, 4, QImage::Format_RGB32);
        image.fill(Qt::green);
        QVERIFY(image.save(folder->filePath(u"skin.png"_s)));
        write(u"s.mtl"_s, "newmtl m\nmap_Kd skin.png\n");
        write(u"s2.mtl"_s, "newmtl m\nmap_Kd skin.png\nnewmtl n\nmap_Kd skin.png\n");
        write(u"material.mtl"_s, "newmtl other\n");
        write(u"huge.png"_s, support::pngHeader(20000, 20000));
    }

    // Whatever the library says while it reads is caught.
    void cleanup()
    {
        log.reset();
        QCOMPARE(console.warningCount(), 0);
    }

    void obj_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QStringList>("codes");
        QTest::addColumn<QString>("firstReason");
        auto const row = [](char const* name, QByteArray const& bytes, QStringList const& codes,
                            char const* firstReason = "") {
            QTest::newRow(name) << bytes << codes << QString::fromUtf8(firstReason);
        };
        row("plain and sound", corners + plainFaces, {});
        row("textured and sound", mapped, {});
        row("quads", corners + plainFaces + "f 1 2 3 4\nf 1 2 3 4\n", {u"obj-quads"_s},
            "line 9: a face of 4 corners; only triangles are read (2 such faces)");
        row("relative", corners + "f -4 -2 -3\n", {u"obj-relative-indices"_s},
            "line 5: a face with relative (negative) indices; these are not read");
        row("both", corners + "f 1 2 3 4\nf -1 -2 -3\n", {u"obj-quads"_s, u"obj-relative-indices"_s},
            "line 5: a face of 4 corners; only triangles are read");
        row("two corners", corners + "f 1 2\n", {u"obj-short-face"_s},
            "line 5: a face of fewer than 3 corners");
        row("zero", corners + "f 1 2 0\n", {u"obj-bad-index"_s},
            "line 5: expected an index from 1 on as first number of each corner");
        row("outside", corners + "f 1 2 5\n", {u"obj-index-outside"_s},
            "line 5: a face asks for \"v\" number 5, the file has 4");
        row("short line", "v 1 2\n", {u"obj-short-line"_s},
            "line 1: too few numbers: expected 3 behind \"v\" and \"vn\", 2 behind \"vt\"");
        row("two libraries", "mtllib s.mtl s.mtl\n" + corners + plainFaces,
            {u"obj-several-libraries"_s, u"unused-material"_s, u"unused-material"_s},
            "line 1: names several material libraries that exist; one is read");
        row("one library of two", QByteArray(mapped).replace("s.mtl", "s.mtl gone.mtl"),
            {u"missing-library"_s}, "line 1: the material library \"gone.mtl\" does not exist");
        row("partly mapped", corners + mapping + plainFaces + "f 1/1 2/2 3/3\n", {u"obj-partial-mapping"_s},
            "some corners of faces have a texture coordinate and others have none");
        row("nothing", "# nothing\n", {u"obj-no-vertices"_s}, "expected vertices, found none");
        row("polygon", corners + "f 1 3 2 1 3\nf 1 2 4\nf 1 4 3\nf 2 3 4\n", {u"obj-polygons"_s},
            "line 5: a face of more than 4 corners");
        row("decimal commas", corners + plainFaces + "v 1,5 0 2,5\n",
            {u"obj-bad-numbers"_s, u"zero-normals"_s},
            "line 9: a word where a number is expected, and 1 more");
        row("tabs", corners + plainFaces + "v\t1\t2\t3\n", {u"obj-tabs"_s},
            "line 9: a tab behind the keyword");
        row("tabs between numbers", "v 1\t2\t3\nv 1 2\t 3\nf 1\t2\t3\n", {u"obj-inner-tabs"_s},
            "line 1: a tab between numbers, which only spaces separate (2 such lines)");
        row("tabs in a face", corners + plainFaces + "f 1\t2\t3\n", {u"obj-inner-tabs"_s},
            "line 9: a tab between numbers, which only spaces separate");
        row("a tab in a number read as 0", corners + plainFaces + "v 0 9 0\t1\n",
            {u"obj-inner-tabs"_s, u"zero-normals"_s}, "line 9: a tab between numbers");
        row("carriage returns", QByteArray(corners + plainFaces).replace('\n', '\r'), {u"obj-line-ends"_s},
            "line 1: a carriage return inside the line; expected line feeds at the ends of lines");
        row("carriage returns behind a comment", "# made\r" + QByteArray(corners).replace('\n', '\r'),
            {u"obj-line-ends"_s},
            "line 1: a carriage return inside the line; expected line feeds at the ends of lines");
        row("a carriage return in a comment", "# made\rby hand\r\n" + corners + plainFaces, {});
        row("lines of another system", QByteArray(corners + plainFaces).replace("\n", "\r\n"), {});
        row("UTF-16", QByteArray("\xFE\xFF\0v\0 \0", 7), {u"obj-utf-16"_s},
            "is text in UTF-16; only UTF-8, Latin-1 and ASCII are read");
        row("UTF-16 without a mark",
            QByteArray("v\0 \0"
                       "1\0",
                       6),
            {u"obj-utf-16"_s}, "is text in UTF-16; only UTF-8, Latin-1 and ASCII are read");
        row("vertex colours", QByteArray(corners + plainFaces).replace("9 0 0", "9 0 0 1 1 1"),
            {u"obj-vertex-colours"_s}, "line 2: a vertex with a colour behind its position");
        row("normals by position",
            corners + "vn 0 0 1\nvn 0 1 0\nvn 1 0 0\nvn 1 1 1\n"
                      "f 1//1 3//3 2//2\nf 1//4 2//2 4//4\nf 1//1 4//4 3//3\n"
                      "f 2//2 3//3 4//4\n",
            {u"obj-ignored-indices"_s},
            "line 10: a corner whose normal has another number than its position");
        row("coordinates by position", QByteArray(mapped).replace("vt 0 1\n", "vt 0 1\nvt 1 1\n"),
            {u"obj-ignored-indices"_s},
            "line 11: a corner whose texture coordinate has another number than its position, and 6 more");
        row("vertices of two materials",
            "mtllib s2.mtl\nv 0 0 0\nv 9 0 0\nv 0 9 0\nv 9 9 0\nvt 0 0\nvt 1 0\nvt 0 1\nvt 1 1\n"
            "usemtl m\nf 1/1 2/2 3/3\nusemtl n\nf 3/3 2/2 4/4\n",
            {u"obj-shared-vertices"_s, u"open-edges"_s},
            "line 13: a face shares vertices with one of another material");
        row("outside the texture", QByteArray(mapped).replace("vt 1 0", "vt 1.5 -1"),
            {u"texture-range"_s, u"texture-range"_s}, "line 7: u lies outside 0 to 1");
        row("library missing", QByteArray(mapped).replace("s.mtl", "materiel.mtl"),
            {u"missing-library"_s, u"undefined-material"_s},
            "line 1: the material library \"materiel.mtl\" does not exist; is it \"material.mtl\"?");
        row("several libraries missing", QByteArray(mapped).replace("s.mtl", "a.mtl b.mtl c.MTL"),
            {u"missing-library"_s, u"undefined-material"_s},
            "line 1: the material library \"a.mtl b.mtl c.MTL\" does not exist; all of the line is taken as "
            "one "
            "name");
        row("undefined", QByteArray(mapped).replace("usemtl m", "usemtl ghost"),
            {u"unused-material"_s, u"undefined-material"_s}, "s.mtl, line 1: no face has the material \"m\"");
        row("NaN", QByteArray(corners).replace("v 9", "v nan") + plainFaces, {u"nonfinite-vertices"_s},
            "1 vertex with a NaN or an infinity");
        row("zero normals",
            corners + "vn 0 0 0\n" +
                QByteArray(plainFaces)
                    .replace(" 1", " 1//1")
                    .replace(" 2", " 2//1")
                    .replace(" 3", " 3//1")
                    .replace(" 4", " 4//1"),
            {u"zero-normals"_s}, "4 vertices without a normal");
        row("metres", QByteArray(corners).replace('9', "0.07") + plainFaces, {u"units-metres"_s},
            "0.07 mm across; are these metres?");
        row("micrometres", QByteArray(corners).replace('9', "70000") + plainFaces, {u"units-micrometres"_s},
            "70000 mm across; are these micrometres?");
        row("degenerate", corners + plainFaces + "f 1 1 2\n", {u"degenerate-facets"_s},
            "1 facet with two equal corners");
        row("twice", corners + plainFaces + "f 1 3 2\n", {u"nonmanifold-edges"_s, u"duplicate-facets"_s},
            "3 edges with more than two facets");
    }

    void obj()
    {
        QFETCH(QByteArray, bytes);
        write(u"s.obj"_s, bytes);
        verify(u"s.obj"_s);
    }

    void library_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QStringList>("codes");
        QTest::addColumn<QString>("firstReason");
        auto const row = [](char const* name, QByteArray const& lines, QStringList const& codes,
                            char const* firstReason) {
            QTest::newRow(name) << "newmtl m\n" + lines << codes << QString::fromUtf8(firstReason);
        };
        row("letter case", "map_Kd Skin.PNG\n", {u"missing-image"_s, u"library-cut"_s},
            "s.mtl, line 2: the image \"Skin.PNG\" does not exist; is it \"skin.png\"?");
        row("backslash", "map_Kd textures\\skin.png\n",
            {u"backslash-path"_s, u"missing-image"_s, u"library-cut"_s},
            "s.mtl, line 2: the image \"textures\\skin.png\" is named with a backslash");
        row("absolute", "map_Kd C:\\scans\\skin.png\n",
            {u"absolute-path"_s, u"missing-image"_s, u"library-cut"_s},
            "s.mtl, line 2: the image \"C:\\scans\\skin.png\" is named by a path from the root of a disk");
        row("far from all names", "map_Kd occlusion_map.jpeg\n", {u"missing-image"_s, u"library-cut"_s},
            "s.mtl, line 2: the image \"occlusion_map.jpeg\" does not exist");
        row("options", "map_Kd -o 0.5 0 -clamp on skin.png\n", {u"image-options"_s, u"library-cut"_s},
            "s.mtl, line 2: the options \"-o 0.5 0 -clamp on\" are taken as part of the name of "
            "\"skin.png\"");
        row("colour space", "map_Kd -colorspace sRGB -o 0.1 skin.png\n",
            {u"image-options"_s, u"library-cut"_s},
            "s.mtl, line 2: the options \"-colorspace sRGB -o 0.1\" are taken as part of the name of "
            "\"skin.png\"");
        row("options behind", "map_Kd -imfchan r skin.png -bm 1.5\n", {u"image-options"_s, u"library-cut"_s},
            "s.mtl, line 2: the options \"-imfchan r -bm 1.5\" are taken as part of the name of "
            "\"skin.png\"");
        row("an option that nobody knows", "map_Kd -blur 3 my skin.png\n",
            {u"image-options"_s, u"library-cut"_s},
            "s.mtl, line 2: the options \"-blur 3\" are taken as part of the name of \"my skin.png\"");
        row("a name like an option", "map_Kd -occlusion.png\n", {u"missing-image"_s, u"library-cut"_s},
            "s.mtl, line 2: the image \"-occlusion.png\" does not exist");
        row("no image", "map_Kd s.obj\n", {u"no-image"_s, u"library-cut"_s},
            "s.mtl, line 2: \"s.obj\" is no image that can be read");
        row("too large", "map_Kd huge.png\n", {u"image-limit"_s, u"library-cut"_s},
            "s.mtl, line 2: \"huge.png\" has 20000 x 20000 pixels, which take 1526 MiB; the limit is 128 "
            "MiB, and "
            "--image-limit 1526 raises it");
        row("several", "map_Kd skin.png\nmap_bump skin.png\n", {u"several-images"_s},
            "s.mtl, line 1: the material \"m\" has 2 images; the last one, \"skin.png\", becomes its "
            "texture");
        row("unused", "map_Kd skin.png\nnewmtl n\n", {u"unused-material"_s},
            "s.mtl, line 3: no face has the material \"n\"");
    }

    void library()
    {
        QFETCH(QByteArray, bytes);
        write(u"s.mtl"_s, bytes);
        write(u"s.obj"_s, mapped);
        verify(u"s.obj"_s);
    }

    void ply_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QStringList>("codes");
        QTest::addColumn<QString>("firstReason");
        auto const row = [](char const* name, QByteArray const& bytes, QStringList const& codes,
                            char const* firstReason = "") {
            QTest::newRow(name) << bytes << codes << QString::fromUtf8(firstReason);
        };
        row("sound", mappedPly("comment TextureFile skin.png"), {u"open-edges"_s},
            "3 edges with one facet only");
        row("image missing", mappedPly("comment TextureFile skim.png"), {u"missing-image"_s, u"open-edges"_s},
            "the image \"skim.png\" does not exist; is it \"skin.png\"?");
        row("backslash", mappedPly("comment TextureFile a\\skin.png"),
            {u"backslash-path"_s, u"missing-image"_s, u"open-edges"_s},
            "the image \"a\\skin.png\" is named with a backslash");
        row("too large", mappedPly("comment TextureFile huge.png"), {u"image-limit"_s, u"open-edges"_s},
            "\"huge.png\" has 20000 x 20000 pixels, which take 1526 MiB; the limit is 128 MiB, and "
            "--image-limit 1526 raises it");
        row("unnamed", mappedPly("comment nothing"), {u"unnamed-texture"_s, u"open-edges"_s},
            "has texture coordinates, but its header names no image");
        row("outside", mappedPly("comment TextureFile skin.png", 1.5f), {u"texture-range"_s, u"open-edges"_s},
            "1 texture coordinate lies outside 0 to 1");
        row("ASCII", support::plyTriangle().replace("binary_little_endian", "ascii"), {u"ply-ascii"_s},
            "is encoded in ASCII; only binary PLY is read");
        row("carriage returns", support::plyTriangle().replace('\n', '\r'), {u"ply-line-ends"_s},
            "the lines of the header end with carriage returns; expected line feeds");
        row("a carriage return in the header", support::plyTriangle().replace("1.0\n", "1.0\r"),
            {u"ply-line-ends"_s}, "the lines of the header end with carriage returns; expected line feeds");
        row("tabs", support::plyTriangle().replace("property float x", "property\tfloat\tx"), {u"ply-tabs"_s},
            "expected spaces between the words of the header, found a tab: \"property\\tfloat\\tx\"");
        row("quad", QByteArray(support::plyTriangle()).replace(support::plyTriangle().size() - 13, 1, "\x04"),
            {u"ply-polygons"_s}, "has a face of 4 corners; only triangles are read");
        row("cut", support::plyTriangle().chopped(30), {u"ply-size"_s});
        row("bad index", support::plyTriangle().chopped(4) + QByteArray("\x07\0\0\0", 4),
            {u"ply-bad-index"_s}, "a face asks for a vertex that is not there");
    }

    void ply()
    {
        QFETCH(QByteArray, bytes);
        write(u"s.ply"_s, bytes);
        verify(u"s.ply"_s);
    }

    void seamsAreNoGaps()
    {
        // Each corner of each face of a tetrahedron stands in the file for itself.
        QByteArray bytes;
        int count = 0;
        QList<QByteArray> const places = corners.trimmed().split('\n');
        for (QByteArray const& face : plainFaces.trimmed().split('\n')) {
            for (QByteArray const& corner : face.split(' ').mid(1))
                bytes += places[corner.toInt() - 1] + '\n';
            bytes += "f " + QByteArray::number(count + 1) + ' ' + QByteArray::number(count + 2) + ' ' +
                     QByteArray::number(count + 3) + '\n';
            count += 3;
        }
        write(u"s.obj"_s, bytes);
        QCOMPARE(codesOf(u"s.obj"_s), QStringList());
    }

    void nearest_data()
    {
        QTest::addColumn<QString>("wanted");
        QTest::addColumn<QString>("found");
        QTest::newRow("letter case") << u"SKIN.png"_s << u"skin.png"_s;
        QTest::newRow("folders in front") << u"a/b/skin.png"_s << u"skin.png"_s;
        QTest::newRow("of another system") << u"C:\\a\\skin.png"_s << u"skin.png"_s;
        QTest::newRow("other suffix") << u"skin.jpg"_s << u"skin.png"_s;
        QTest::newRow("a letter less") << u"skn.png"_s << u"skin.png"_s;
        QTest::newRow("too far") << u"tooth.tif"_s << QString();
        QTest::newRow("short and other") << u"q"_s << QString();
        QTest::newRow("two letters, none of them there") << u"ff.png"_s << QString();
        QTest::newRow("no name") << QString() << QString();
        QTest::newRow("in the folder named") << u"deep/uppr.png"_s << u"upper.png"_s;
        QTest::newRow("another number") << u"issue-244.png"_s << QString();
        QTest::newRow("the same number") << u"isue-0235.png"_s << u"issue-235.png"_s;
        QTest::newRow("a number in one of them") << u"crown_0.png"_s << u"crown.png"_s;
        QTest::newRow("a library is no image") << u"material.png"_s << QString();
        QTest::newRow("the scan is no image") << u"scan.png"_s << QString();
    }

    void nearest()
    {
        QFETCH(QString, wanted);
        QFETCH(QString, found);
        QVERIFY(QDir(folder->path()).mkpath(u"deep"_s));
        for (QString const& name :
             {u"deep/upper.png"_s, u"-p.png"_s, u"issue-235.png"_s, u"crown.png"_s, u"scan"_s})
            write(name, "x");
        QCOMPARE(nearestName(folder->filePath(wanted), folder->filePath(u"scan"_s), NamedKind::Image), found);
    }

    void nearestLibrary()
    {
        write(u"tooth.obj"_s, "x");
        write(u"tooth.png"_s, "x");
        QString const scan = folder->filePath(u"tooth.obj"_s);
        QString const wanted = folder->filePath(u"tooth.mtl"_s);
        QCOMPARE(nearestName(wanted, scan, NamedKind::Library), QString());
        write(u"Tooth.MTL"_s, "x");
        QCOMPARE(nearestName(wanted, scan, NamedKind::Library), u"Tooth.MTL"_s);
    }

private:
    static QByteArray mappedPly(QByteArray const& comment, float u = 0.5f)
    {
        QByteArrayList const lines =
            plyStart + QByteArrayList{comment, plyCount("vertex", 3)} + plyPosition +
            QByteArrayList{"property float s", "property float t", plyCount("face", 1)} + plyIndices +
            QByteArrayList{"end_header"};
        return plyLines(lines) + support::PLYBody()
                                     .f32({0, 0, 0, u, 0})
                                     .f32({9, 0, 0, 1, 0})
                                     .f32({0, 9, 0, 0, 1})
                                     .triangle(0, 1, 2)
                                     .bytes;
    }

    void write(QString const& name, QByteArray const& bytes)
    {
        QVERIFY(support::writeFile(folder->filePath(name), bytes));
    }

    Findings findingsOf(QString const& name) const
    {
        CheckContext context;
        return checkFile(folder->filePath(name), context);
    }

    QStringList codesOf(QString const& name) const
    {
        QStringList codes;
        Findings const findings = findingsOf(name);
        for (Finding const& finding : findings.all())
            codes << QString(finding.kind->code);
        return codes;
    }

    void verify(QString const& name)
    {
        QFETCH(QStringList, codes);
        QFETCH(QString, firstReason);
        QCOMPARE(codesOf(name), codes);
        Findings const findings = findingsOf(name);
        if (!firstReason.isEmpty())
            QCOMPARE(findings.all().front().reason, firstReason);
        for (Finding const& finding : findings.all())
            QVERIFY2(!finding.remedy.isEmpty(), finding.kind->code.data());
    }

    std::optional<QTemporaryDir> folder;
    Console console;
    std::optional<LogToConsole> log;
};

QTEST_GUILESS_MAIN(tst_CheckImages)
#include "tst_CheckImages.moc"
