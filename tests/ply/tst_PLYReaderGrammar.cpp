#include "ply/PLYReader.h"
#include "support/PlyFiles.h"

#include <QTest>

using support::plyHeader;
using support::plyIndices;
using support::plyPosition;
using support::plyStart;

namespace {

std::atomic<bool> const never = false;

QByteArray const triangleBody = support::PLYBody().f32({0, 0, 0, 1, 0, 0, 0, 1, 0}).triangle(0, 1, 2).bytes;

// Whether the file was read, with the triangle in it.
bool readsTriangle(QByteArray const& header)
{
    PLYReader reader(PLYReader::MeshMode);
    return reader.read(header + triangleBody, never) &&
           reader.getMesh().vertices == QList<QVector3D>{{0, 0, 0}, {1, 0, 0}, {0, 1, 0}} &&
           reader.getMesh().indices == QList<int>{0, 1, 2, -1};
}

// The usual header with one of its lines put in place of another, or left out.
QByteArray headerWith(QByteArray const& line, QByteArray const& replacement)
{
    QByteArray header = plyHeader(3, plyPosition, 1);
    return header.replace(line + '\n', replacement.isNull() ? QByteArray() : replacement + '\n');
}

} // namespace

class tst_PLYReaderGrammar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void acceptsTheMagicLine_data();
    void acceptsTheMagicLine();
    void refusesOtherMagicLines_data();
    void refusesOtherMagicLines();
    void acceptsLines_data();
    void acceptsLines();
    void refusesLines_data();
    void refusesLines();
};

void tst_PLYReaderGrammar::acceptsTheMagicLine_data()
{
    QTest::addColumn<QByteArray>("start");
    QTest::newRow("lower case") << QByteArray("ply\n");
    QTest::newRow("capitals") << QByteArray("PLY\n");
    QTest::newRow("mixed case") << QByteArray("pLy\n");
    QTest::newRow("white space around it") << QByteArray(" \t ply \t\n");
    QTest::newRow("empty lines before it") << QByteArray("\n  \n\t\nply\n");
    QTest::newRow("comments before it") << QByteArray("comment one\nCOMMENT two\ncomment\nply\n");
}

void tst_PLYReaderGrammar::acceptsTheMagicLine()
{
    QFETCH(QByteArray, start);
    QVERIFY(readsTriangle(headerWith("ply", start.chopped(1))));
}

void tst_PLYReaderGrammar::refusesOtherMagicLines_data()
{
    QTest::addColumn<QByteArray>("start");
    QTest::newRow("none") << QByteArray();
    QTest::newRow("two tokens") << QByteArray("ply extra");
    QTest::newRow("another word") << QByteArray("plx");
    QTest::newRow("more letters") << QByteArray("plyx");
    QTest::newRow("tab inside") << QByteArray("ply\t1");
    QTest::newRow("obj_info before it") << QByteArray("obj_info one\nply");
    QTest::newRow("header line before it") << QByteArray("format binary_little_endian 1.0\nply");
    QTest::newRow("comment without a space") << QByteArray("comment:one\nply");
    QTest::newRow("line ends of a single carriage return") << QByteArray("ply\rcomment\r");
}

void tst_PLYReaderGrammar::refusesOtherMagicLines()
{
    QFETCH(QByteArray, start);
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(!reader.read(headerWith("ply", start) + triangleBody, never));
    QVERIFY(!reader.read(start, never));
}

void tst_PLYReaderGrammar::acceptsLines_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QByteArray>("replacement");
    QByteArray const format = plyStart[1];
    QTest::newRow("format in capitals") << format << QByteArray("FORMAT binary_little_endian 1.0");
    QTest::newRow("another version") << format << QByteArray("format binary_little_endian 2.0");
    QTest::newRow("no version number") << format << QByteArray("format binary_little_endian x");
    QTest::newRow("spaces") << format << QByteArray("  format   binary_little_endian  1.0  ");
    QTest::newRow("tabs around") << format << QByteArray("\tformat binary_little_endian 1.0\t");
    QTest::newRow("element in mixed case")
        << QByteArray("element vertex 3") << QByteArray("Element Vertex 3");
    QTest::newRow("face in capitals") << QByteArray("element face 1") << QByteArray("ELEMENT FACE 1");
    QTest::newRow("property in capitals") << plyPosition[1] << QByteArray("PROPERTY float y");
    QTest::newRow("list in capitals")
        << plyIndices[0] << QByteArray("Property LIST uchar int VERTEX_INDICES");
    QTest::newRow("vertex_index") << plyIndices[0] << QByteArray("property list uchar int vertex_index");
    QTest::newRow("Vertex_Index") << plyIndices[0] << QByteArray("property list uchar int Vertex_Index");
    QTest::newRow("sized type names")
        << plyIndices[0] << QByteArray("property list uint8 int32 vertex_indices");
    QTest::newRow("end in capitals") << QByteArray("end_header") << QByteArray("END_HEADER");
    QTest::newRow("words behind the end")
        << QByteArray("end_header") << QByteArray("end_header of this file");
    QTest::newRow("spaces around the end") << QByteArray("end_header") << QByteArray("  end_header ");
    QTest::newRow("empty lines") << QByteArray("end_header") << QByteArray("\n   \n\t\nend_header");
    QTest::newRow("comments") << format
                              << QByteArray("comment\n" + format + "\nComment end_header\ncomment element x");
    QTest::newRow("obj_info") << format << QByteArray("obj_info\n" + format + "\nOBJ_INFO element vertex 7");
    QTest::newRow("TextureFile without a name") << format << QByteArray(format + "\ncomment TextureFile");
}

void tst_PLYReaderGrammar::acceptsLines()
{
    QFETCH(QByteArray, line);
    QFETCH(QByteArray, replacement);
    QVERIFY(readsTriangle(headerWith(line, replacement)));
}

void tst_PLYReaderGrammar::refusesLines_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QByteArray>("replacement");
    QByteArray const format = plyStart[1];
    QByteArray const x = plyPosition[0];
    QByteArray const list = plyIndices[0];
    QTest::newRow("format left out") << format << QByteArray();
    QTest::newRow("format without a version") << format << QByteArray("format binary_little_endian");
    QTest::newRow("format of four words") << format << QByteArray("format binary_little_endian 1.0 x");
    QTest::newRow("format in the wrong case") << format << QByteArray("format Binary_Little_Endian 1.0");
    QTest::newRow("unknown format") << format << QByteArray("format binary 1.0");
    QTest::newRow("tab inside") << format << QByteArray("format binary_little_endian\t1.0");
    QTest::newRow("unknown word") << format << QByteArray(format + "\nremark hello");
    QTest::newRow("second magic line") << format << QByteArray(format + "\nply");
    QTest::newRow("element of two words") << QByteArray("element vertex 3") << QByteArray("element vertex");
    QTest::newRow("element of four words")
        << QByteArray("element vertex 3") << QByteArray("element vertex 3 x");
    QTest::newRow("other element of two words")
        << QByteArray("end_header") << QByteArray("element edge\nend_header");
    QTest::newRow("property of two words") << x << QByteArray("property x");
    QTest::newRow("property of four words") << x << QByteArray("property float x y");
    QTest::newRow("property of six words") << list << QByteArray("property list uchar int vertex_indices x");
    QTest::newRow("five words, no list") << list << QByteArray("property lists uchar int vertex_indices");
    QTest::newRow("list of four words") << list << QByteArray("property list uchar vertex_indices");
    QTest::newRow("unknown count type") << list << QByteArray("property list byte int vertex_indices");
    QTest::newRow("unknown entry type") << list << QByteArray("property list uchar integer vertex_indices");
    QTest::newRow("count type in capitals") << list << QByteArray("property list UCHAR int vertex_indices");
    QTest::newRow("another list") << list << QByteArray("property list uchar int texcoord");
    QTest::newRow("another list besides")
        << list << QByteArray(list + "\nproperty list uchar float texcoord");
    QTest::newRow("list of other vertices") << x << QByteArray("property list uchar int neighbours\n" + x);
    QTest::newRow("end misspelt") << QByteArray("end_header") << QByteArray("endheader");
    QTest::newRow("tab behind a keyword") << x << QByteArray("property\tfloat x");
}

void tst_PLYReaderGrammar::refusesLines()
{
    QFETCH(QByteArray, line);
    QFETCH(QByteArray, replacement);
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(!reader.read(headerWith(line, replacement) + triangleBody, never));
    QVERIFY(reader.getMesh().isNull());
}

QTEST_GUILESS_MAIN(tst_PLYReaderGrammar)
#include "tst_PLYReaderGrammar.moc"
