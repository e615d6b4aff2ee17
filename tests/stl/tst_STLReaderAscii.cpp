#include "inhouse/data/STLSurfaceData.h"
#include "stl/STLReader.h"
#include "stl/STLTagHandler.h"
#include "support/Meshes.h"
#include "support/StlFiles.h"

#include <QBuffer>
#include <QtTest>

#include <limits>

using support::asciiStl;
using support::cornersOf;
using support::loneFacet;
using support::StlFacet;

namespace {

std::atomic<bool> const never = false;
std::atomic<bool> const always = true;

QList<StlFacet> const twoFacets = {loneFacet(0), loneFacet(1)};

// A solid of three vertex lines, of which the test gives the first.
QByteArray withLine(QByteArray const& line)
{
    return "solid\n" + line + "\nvertex 10 0 0\nvertex 0 10 0\nendsolid\n";
}

bool readBoth(STLReader& reader, QByteArray data)
{
    QBuffer device(&data);
    bool const fromDevice = reader.read(&device, never);
    QList<QVector3D> const corners = cornersOf(reader.getMesh());
    bool const fromBytes = reader.read(data, never);
    return fromDevice && fromBytes && corners == cornersOf(reader.getMesh());
}

} // namespace

class tst_STLReaderAscii : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void facets();
    void firstLine_data();
    void firstLine();
    void longFirstLine_data();
    void longFirstLine();
    void otherLinesAreSkipped();
    void vertexLine_data();
    void vertexLine();
    void badVertexLine_data();
    void badVertexLine();
    void oneBadNumberFailsTheFile();
    void vertexCount_data();
    void vertexCount();
    void lineEnds_data();
    void lineEnds();
    void encodings_data();
    void encodings();
    void emptySolid_data();
    void emptySolid();
    void tagsAreUnknown();
    void cornersAreShared();
    void degenerateFacetsAreDropped();
    void onlyDegenerateFacets();
    void failureKeepsTheMesh();
    void cancelBeforeTheFirstLine();
    void cancelCleansTheMeshHeld();
    void normals();
};

void tst_STLReaderAscii::facets()
{
    QList<StlFacet> facets;
    for (int i = 0; i < 500; ++i)
        facets << loneFacet(i);
    STLReader reader(nullptr, false, {});
    QVERIFY(readBoth(reader, asciiStl(facets)));
    geometry::Mesh const mesh = reader.getMesh();
    QCOMPARE(mesh.vertices, cornersOf(facets));
    for (int i = 0; i < 500; ++i)
        QCOMPARE(mesh.indices.mid(4 * i, 4), QList<int>({3 * i, 3 * i + 1, 3 * i + 2, -1}));
    QCOMPARE(mesh.indices.size(), 4 * 500);
    QCOMPARE(mesh.normals.size(), mesh.vertices.size());
    QVERIFY(mesh.colors.isEmpty() && mesh.textureCoordinates.isEmpty());
    QCOMPARE(reader.getTransform(), QMatrix4x4());
    QVERIFY(reader.takeSTLSurfaceDataSets().isEmpty());
}

void tst_STLReaderAscii::firstLine_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<bool>("isAscii");
    QTest::newRow("bare") << QByteArray("solid") << true;
    QTest::newRow("named") << QByteArray("solid tooth 36 vertex") << true;
    QTest::newRow("longer word") << QByteArray("solidworks") << true;
    QTest::newRow("indented") << QByteArray(" \t \f solid") << true;
    QTest::newRow("byte order mark") << QByteArray("\xEF\xBB\xBFsolid") << true;
    QTest::newRow("capitals") << QByteArray("SOLID") << false;
    QTest::newRow("capital") << QByteArray("Solid") << false;
    QTest::newRow("word before") << QByteArray("a solid") << false;
    QTest::newRow("empty line before") << QByteArray("\nsolid") << false;
    QTest::newRow("cut") << QByteArray("soli") << false;
    QTest::newRow("nothing") << QByteArray("") << false;
}

void tst_STLReaderAscii::firstLine()
{
    QFETCH(QByteArray, line);
    QFETCH(bool, isAscii);
    QByteArray text = asciiStl(twoFacets);
    text.replace(0, text.indexOf('\n'), line);
    STLReader reader(nullptr, false, {});
    QCOMPARE(readBoth(reader, text), isAscii);
    QCOMPARE(cornersOf(reader.getMesh()), isAscii ? cornersOf(twoFacets) : QList<QVector3D>());
}

void tst_STLReaderAscii::longFirstLine_data()
{
    QTest::addColumn<QByteArray>("start");
    QTest::addColumn<QByteArray>("end");
    QTest::addColumn<int>("length");
    QTest::addColumn<bool>("isAscii");
    for (int const length : {100, 4094, 4095, 4096, 4097, 8191, 8192, 8193, 16384, 100000}) {
        QTest::addRow("name, %d", length) << QByteArray("solid") << QByteArray("x") << length << true;
        QTest::addRow("vertex at the end, %d", length)
            << QByteArray("solid") << QByteArray("vertex 1 2 3") << length << true;
        QTest::addRow("indented, %d", length) << QByteArray() << QByteArray("solid") << length << true;
        QTest::addRow("words, %d", length) << QByteArray("so") << QByteArray("lid") << length << false;
        QTest::addRow("word before, %d", length) << QByteArray("x") << QByteArray("solid") << length << false;
    }
}

// The first line is read in parts; nothing of it counts as a line of its own.
void tst_STLReaderAscii::longFirstLine()
{
    QFETCH(QByteArray, start);
    QFETCH(QByteArray, end);
    QFETCH(int, length);
    QFETCH(bool, isAscii);
    QByteArray const line = start + QByteArray(length - start.size() - end.size(), ' ') + end;
    for (QByteArray const& lineEnd : {QByteArray("\n"), QByteArray("\r\n")}) {
        QByteArray text = asciiStl(twoFacets);
        text.replace(0, text.indexOf('\n') + 1, line + lineEnd);
        STLReader reader(nullptr, false, {});
        QCOMPARE(readBoth(reader, text), isAscii);
        QCOMPARE(cornersOf(reader.getMesh()), isAscii ? cornersOf(twoFacets) : QList<QVector3D>());
    }
    STLReader reader(nullptr, false, {});
    QVERIFY(!readBoth(reader, line));
}

void tst_STLReaderAscii::otherLinesAreSkipped()
{
    QByteArray const text =
        "solid\nvertex 0.5 1 2\n\n   \nnonsense \xFF\xFE\nVertex 1 2 3\nVERTEX x y z\nver tex\n"
        "facet vertex 1 2 3\nendsolid\nvertex 1.25 3 4\nsolid again\nfacet normal a b c\n"
        "# vertex\nvertex 2 5 7\nvertices\nverte\n";
    STLReader reader(nullptr, false, {});
    // "vertices" does not start with "vertex".
    QVERIFY(readBoth(reader, text));
    QCOMPARE(cornersOf(reader.getMesh()), cornersOf({loneFacet(0)}));
}

void tst_STLReaderAscii::vertexLine_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QVector3D>("vertex");
    QVector3D const vertex(1, 2.5f, -3);
    QTest::newRow("plain") << QByteArray("vertex 1 2.5 -3") << vertex;
    QTest::newRow("indented") << QByteArray("      vertex 1 2.5 -3") << vertex;
    QTest::newRow("tab before the keyword") << QByteArray("\tvertex 1 2.5 -3") << vertex;
    QTest::newRow("many spaces") << QByteArray("vertex   1    2.5  -3   ") << vertex;
    QTest::newRow("exponents") << QByteArray("vertex 1e0 25E-1 -3.0e+00") << vertex;
    QTest::newRow("bare points") << QByteArray("vertex 1. +2.5 -3.") << vertex;
    QTest::newRow("leading zeros") << QByteArray("vertex 01 002.5 -03") << vertex;
    QTest::newRow("tab after a number") << QByteArray("vertex 1\t 2.5\t -3\t") << vertex;
    QTest::newRow("more pieces") << QByteArray("vertex 1 2.5 -3 4 five") << vertex;
    QTest::newRow("longer keyword") << QByteArray("vertexnormal 1 2.5 -3") << vertex;
    QTest::newRow("keyword and colon") << QByteArray("vertex: 1 2.5 -3") << vertex;
    // What stands before the first space is the keyword, a number glued to it with a tab included.
    QTest::newRow("tab after the keyword") << QByteArray("vertex\t9 1 2.5 -3") << vertex;
    QTest::newRow("no space at all after the keyword") << QByteArray("vertex9 1 2.5 -3") << vertex;
    QTest::newRow("rounded") << QByteArray("vertex 0.1 16777217 1e-45")
                             << QVector3D(0.1f, 16777216.0f, 1.40129846e-45f);
    QTest::newRow("largest") << QByteArray("vertex 3.4028234e38 -3.4028234e38 -0")
                             << QVector3D(3.4028234e38f, -3.4028234e38f, -0.0f);
    constexpr float infinity = std::numeric_limits<float>::infinity();
    QTest::newRow("infinities") << QByteArray("vertex inf -inf +inf")
                                << QVector3D(infinity, -infinity, infinity);
}

void tst_STLReaderAscii::vertexLine()
{
    QFETCH(QByteArray, line);
    QFETCH(QVector3D, vertex);
    STLReader reader(nullptr, false, {});
    QVERIFY(reader.read(withLine(line), never));
    QList<QVector3D> const expected = {vertex, {10, 0, 0}, {0, 10, 0}};
    QCOMPARE(support::bytesOf(cornersOf(reader.getMesh())), support::bytesOf(expected));
}

void tst_STLReaderAscii::badVertexLine_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("no number") << QByteArray("vertex");
    QTest::newRow("no number, spaces") << QByteArray("vertex   ");
    QTest::newRow("one number") << QByteArray("vertex 1");
    QTest::newRow("two numbers") << QByteArray("vertex 1 2");
    QTest::newRow("two numbers and spaces") << QByteArray("vertex 1 2   ");
    QTest::newRow("tabs between the numbers") << QByteArray("vertex 1\t2\t3");
    QTest::newRow("tabs only") << QByteArray("vertex\t1\t2\t3");
    QTest::newRow("a tab piece before the keyword") << QByteArray("\t vertex 1 2 3");
    QTest::newRow("first is a word") << QByteArray("vertex x 2 3");
    QTest::newRow("second is a word") << QByteArray("vertex 1 y 3");
    QTest::newRow("third is a word") << QByteArray("vertex 1 2 z");
    QTest::newRow("text after a number") << QByteArray("vertex 1mm 2mm 3mm");
    QTest::newRow("decimal commas") << QByteArray("vertex 1,5 2,5 3,5");
    QTest::newRow("group separators") << QByteArray("vertex 1,000 2 3");
    QTest::newRow("commas between the numbers") << QByteArray("vertex 1, 2, 3");
    QTest::newRow("hexadecimal") << QByteArray("vertex 0x1 2 3");
    QTest::newRow("two signs") << QByteArray("vertex --1 2 3");
    QTest::newRow("empty exponent") << QByteArray("vertex 1e 2 3");
    QTest::newRow("beyond a float") << QByteArray("vertex 3.5e38 2 3");
    QTest::newRow("beyond a double") << QByteArray("vertex 1 1e999 3");
    QTest::newRow("below a float") << QByteArray("vertex 1 2 1e-60");
    QTest::newRow("an indefinite number of a C runtime") << QByteArray("vertex 1.#IND 0 0");
    QTest::newRow("a NUL byte") << QByteArray("vertex 1 2 3\0", 13);
    QTest::newRow("a no-break space") << QByteArray("vertex 1\xC2\xA0"
                                                    "2 3");
}

void tst_STLReaderAscii::badVertexLine()
{
    QFETCH(QByteArray, line);
    STLReader reader(nullptr, false, {});
    QVERIFY(!readBoth(reader, withLine(line)));
    QVERIFY(reader.getMesh().isNull());
}

void tst_STLReaderAscii::oneBadNumberFailsTheFile()
{
    QByteArray const good = asciiStl({loneFacet(0), loneFacet(1), loneFacet(2)});
    STLReader reader(nullptr, false, {});
    QVERIFY(!reader.read(good + "vertex 1 2 x\n", never));
    QVERIFY(reader.getMesh().isNull());
    QVERIFY(reader.read(good, never));
}

void tst_STLReaderAscii::vertexCount_data()
{
    QTest::addColumn<int>("count");
    for (int const count : {1, 2, 3, 4, 5, 6, 299, 300, 301})
        QTest::addRow("%d", count) << count;
}

void tst_STLReaderAscii::vertexCount()
{
    QFETCH(int, count);
    QByteArray text = "solid\n";
    for (int i = 0; i < count; ++i)
        text += "vertex " + QByteArray::number(i) + ' ' + QByteArray::number(i * i) + " 1\n";
    STLReader reader(nullptr, false, {});
    QCOMPARE(reader.read(text, never), count % 3 == 0);
    QCOMPARE(reader.getMesh().getNumVertices(), count % 3 == 0 ? count : 0);
}

void tst_STLReaderAscii::lineEnds_data()
{
    QTest::addColumn<QByteArray>("end");
    QTest::addColumn<bool>("works");
    QTest::newRow("line feed") << QByteArray("\n") << true;
    QTest::newRow("carriage return and line feed") << QByteArray("\r\n") << true;
    QTest::newRow("empty lines") << QByteArray("\n\n\r\n") << true;
    // One line, and as it starts with "solid", not a vertex.
    QTest::newRow("carriage return") << QByteArray("\r") << false;
}

void tst_STLReaderAscii::lineEnds()
{
    QFETCH(QByteArray, end);
    QFETCH(bool, works);
    QByteArray const text = asciiStl(twoFacets).replace("\n", end);
    STLReader reader(nullptr, false, {});
    QCOMPARE(readBoth(reader, text), works);
    QCOMPARE(cornersOf(reader.getMesh()), works ? cornersOf(twoFacets) : QList<QVector3D>());
    QCOMPARE(readBoth(reader, text.trimmed()), works);
}

void tst_STLReaderAscii::encodings_data()
{
    QTest::addColumn<QStringConverter::Encoding>("encoding");
    QTest::newRow("UTF-8 with a mark") << QStringConverter::Utf8;
    QTest::newRow("UTF-16, little-endian") << QStringConverter::Utf16LE;
    QTest::newRow("UTF-16, big-endian") << QStringConverter::Utf16BE;
}

void tst_STLReaderAscii::encodings()
{
    QFETCH(QStringConverter::Encoding, encoding);
    QStringEncoder encode(encoding, QStringEncoder::Flag::WriteBom);
    QByteArray const text = encode(QString::fromLatin1(asciiStl(twoFacets)));
    STLReader reader(nullptr, false, {});
    QVERIFY(readBoth(reader, text));
    QCOMPARE(cornersOf(reader.getMesh()), cornersOf(twoFacets));
}

void tst_STLReaderAscii::emptySolid_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("the word") << QByteArray("solid");
    QTest::newRow("one line") << QByteArray("solid nothing\n");
    QTest::newRow("begin and end") << QByteArray("solid nothing\nendsolid nothing\n");
    QTest::newRow("a facet without vertices")
        << QByteArray("solid\nfacet normal 0 0 1\nendfacet\nendsolid\n");
    QTest::newRow("keywords in capitals") << asciiStl(twoFacets).replace("vertex", "VERTEX");
}

void tst_STLReaderAscii::emptySolid()
{
    QFETCH(QByteArray, text);
    STLReader reader(nullptr, false, {});
    QVERIFY(reader.read(asciiStl(twoFacets), never));
    QVERIFY(!reader.read(text, never));
    // No vertices are a multiple of three, so the mesh held is replaced before the normals fail.
    QVERIFY(reader.getMesh().isNull());
}

void tst_STLReaderAscii::tagsAreUnknown()
{
    UseAllTagsHandler const all;
    STLReader reader(&all, false, {});
    QVERIFY(reader.read(asciiStl(twoFacets), never));
    QCOMPARE(cornersOf(reader.getMesh()), cornersOf(twoFacets));
    QVERIFY(reader.takeSTLSurfaceDataSets().isEmpty());
}

void tst_STLReaderAscii::cornersAreShared()
{
    StlFacet const first = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
    StlFacet const second = {{0, 1, 0}, {1, 0, 0}, {1, 1, 5}};
    STLReader reader(nullptr, false, {});
    QVERIFY(reader.read(asciiStl({first, second}), never));
    QCOMPARE(reader.getMesh().vertices, QList<QVector3D>({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {1, 1, 5}}));
    QCOMPARE(reader.getMesh().indices, QList<int>({0, 1, 2, -1, 2, 1, 3, -1}));
}

void tst_STLReaderAscii::degenerateFacetsAreDropped()
{
    StlFacet const line = {{1, 2, 3}, {4, 5, 6}, {1, 2, 3}};
    STLReader reader(nullptr, false, {});
    QVERIFY(reader.read(asciiStl({line, loneFacet(1), line, loneFacet(2)}), never));
    QCOMPARE(reader.getMesh().vertices, cornersOf({loneFacet(1), loneFacet(2)}));
    QCOMPARE(reader.getMesh().indices, QList<int>({0, 1, 2, -1, 3, 4, 5, -1}));
}

void tst_STLReaderAscii::onlyDegenerateFacets()
{
    StlFacet const point = {{1, 2, 3}, {1, 2, 3}, {1, 2, 3}};
    STLReader reader(nullptr, false, {});
    QVERIFY(!reader.read(asciiStl({point}), never));
    QVERIFY(reader.getMesh().isNull());
}

void tst_STLReaderAscii::failureKeepsTheMesh()
{
    STLReader reader(nullptr, false, {});
    QVERIFY(reader.read(asciiStl(twoFacets), never));
    geometry::Mesh const mesh = reader.getMesh();
    QVERIFY(!reader.read(QByteArray("solid\nvertex 1 2 3\nvertex 4 5 6\n"), never));
    QVERIFY(support::sameBits(reader.getMesh(), mesh));
    QVERIFY(!reader.read(QByteArray("solid\nvertex 1 2 three\n"), never));
    QVERIFY(support::sameBits(reader.getMesh(), mesh));
    QVERIFY(!reader.read(QByteArray("no solid\n"), never));
    QVERIFY(support::sameBits(reader.getMesh(), mesh));
}

void tst_STLReaderAscii::cancelBeforeTheFirstLine()
{
    QByteArray data = asciiStl(twoFacets);
    STLReader reader(nullptr, false, {});
    QVERIFY(!reader.read(data, always));
    QVERIFY(reader.getMesh().isNull());
    QBuffer device(&data);
    QVERIFY(!reader.read(&device, always));
    QVERIFY(reader.getMesh().isNull());
}

// The clean-up takes a mesh for a fresh one, with a triangle for every three vertices. That of an earlier
// read shares its vertices, so that it loses triangles; its normals stay.
void tst_STLReaderAscii::cancelCleansTheMeshHeld()
{
    QList<StlFacet> facets;
    QList<QVector3D> const corners = cornersOf(support::cube());
    for (qsizetype i = 0; i < corners.size(); i += 3)
        facets << StlFacet{corners[i], corners[i + 1], corners[i + 2]};
    STLReader reader(nullptr, false, {});
    QVERIFY(reader.read(asciiStl(facets), never));
    geometry::Mesh const mesh = reader.getMesh();
    QCOMPARE(mesh.getNumVertices(), 8);
    QCOMPARE(mesh.getNumIndices(), 4 * 12);

    QVERIFY(!reader.read(asciiStl(twoFacets), always));
    QCOMPARE(cornersOf(reader.getMesh()), corners.first(3 * (8 / 3)));
    QCOMPARE(reader.getMesh().vertices, mesh.vertices.first(4));
    QCOMPARE(reader.getMesh().normals, mesh.normals);
}

void tst_STLReaderAscii::normals()
{
    // Two facets at a right angle, and two that differ by 0.8 radian.
    StlFacet const floor = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
    StlFacet const wall = {{0, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    StlFacet const slope = {{1, 0, 0}, {0, 0, 0}, {0, -0.69670671f, -0.71735609f}};
    STLReader smooth(nullptr, false, {});
    QVERIFY(smooth.read(asciiStl({floor, wall, slope}), never));
    QCOMPARE(smooth.getMesh().getNumVertices(), 5);
    STLReader sharp(nullptr, true, {});
    QVERIFY(sharp.read(asciiStl({floor, wall, slope}), never));
    // Beyond 1 radian an edge is sharp, and both its ends have two vertices; 0.8 radian is smooth.
    QCOMPARE(sharp.getMesh().getNumVertices(), 7);
    QCOMPARE(cornersOf(sharp.getMesh()), cornersOf({floor, wall, slope}));
}

QTEST_APPLESS_MAIN(tst_STLReaderAscii)
#include "tst_STLReaderAscii.moc"
