#include "obj/OBJReader.h"
#include "support/Devices.h"
#include "support/Meshes.h"
#include "support/ObjFiles.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

std::atomic<bool> const running = false;

QByteArray const positions = "v 0 0 0\nv 1 0 0\nv 0 1 0\nv 0 0 1\nv 1 1 1\n";

QByteArray floatWarning(char const* text)
{
    return QByteArray(
               "`anonymous-namespace'::toFloatIfConditionValid Invalid string to float conversion:  \"") +
           text + '"';
}

QByteArray vertexWarning(char const* text)
{
    return QByteArray("OBJReader::invalid vertex id: ' \"") + text + "\" '";
}

void expectWarnings(QByteArrayList const& warnings)
{
    for (QByteArray const& warning : warnings)
        QTest::ignoreMessage(QtWarningMsg, warning.constData());
}

} // namespace

class tst_OBJReaderText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void positionLines_data();
    void positionLines();
    void badNumbers_data();
    void badNumbers();
    void textureCoordinateLines_data();
    void textureCoordinateLines();
    void normalLines_data();
    void normalLines();
    void incompleteLines_data();
    void incompleteLines();
    void faceLines_data();
    void faceLines();
    void rejectedFaces_data();
    void rejectedFaces();
    void facesMayStandBeforeVertices();
    void ignoredLines_data();
    void ignoredLines();
    void layouts_data();
    void layouts();
    void stopsAtTheFirstError();
    void encodings_data();
    void encodings();
    void longLines();
    void manyLines();
};

void tst_OBJReaderText::positionLines_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QList<QVector3D>>("vertices");
    using Vertices = QList<QVector3D>;
    QTest::newRow("integers") << QByteArray("v 1 -2 3") << Vertices{{1, -2, 3}};
    QTest::newRow("decimals") << QByteArray("v 1.5 -2.25 +3.125") << Vertices{{1.5f, -2.25f, 3.125f}};
    QTest::newRow("exponents") << QByteArray("v 1e1 -2E-1 3e+2") << Vertices{{10, -0.2f, 300}};
    QTest::newRow("w is ignored") << QByteArray("v 1 2 3 0.5") << Vertices{{1, 2, 3}};
    QTest::newRow("colours are ignored") << QByteArray("v 1 2 3 0.5 0.25 1") << Vertices{{1, 2, 3}};
    QTest::newRow("rubbish behind is ignored") << QByteArray("v 1 2 3 abc # x") << Vertices{{1, 2, 3}};
    QTest::newRow("many spaces") << QByteArray("   v    1  2     3   ") << Vertices{{1, 2, 3}};
    QTest::newRow("tab before") << QByteArray("\tv 1 2 3\t") << Vertices{{1, 2, 3}};
    // A tab is white space of a number, but parts no tokens.
    QTest::newRow("tab in a token") << QByteArray("v 1\t 2 3") << Vertices{{1, 2, 3}};
    QTest::newRow("not finite") << QByteArray("v inf -inf 1")
                                << Vertices{{std::numeric_limits<float>::infinity(),
                                             -std::numeric_limits<float>::infinity(), 1}};
    QTest::newRow("two lines") << QByteArray("v 1 2 3\nv 4 5 6") << Vertices{{1, 2, 3}, {4, 5, 6}};
    QTest::newRow("non-ASCII behind") << QByteArray("v 1 2 3 # \xc3\xa4") << Vertices{{1, 2, 3}};
    QTest::newRow("non-ASCII white space around")
        << QByteArray("\xe2\x80\x83v 1 2 3\xc2\xa0") << Vertices{{1, 2, 3}};
    QTest::newRow("byte order mark") << QByteArray("\xef\xbb\xbfv 1 2 3") << Vertices{{1, 2, 3}};
}

void tst_OBJReaderText::positionLines()
{
    QFETCH(QByteArray, line);
    QFETCH(QList<QVector3D>, vertices);
    OBJReader reader;
    QCOMPARE(reader.read(line + '\n', running), OBJReader::NoError);
    QCOMPARE(support::bytesOf(reader.getMesh().vertices), support::bytesOf(vertices));
}

void tst_OBJReaderText::badNumbers_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QVector3D>("vertex");
    QTest::addColumn<QByteArrayList>("warnings");
    using Texts = QByteArrayList;
    QTest::newRow("letter") << QByteArray("v 1 x 3") << QVector3D(1, 0, 3) << Texts{floatWarning("x")};
    QTest::newRow("all three") << QByteArray("v a b c") << QVector3D(0, 0, 0)
                               << Texts{floatWarning("a"), floatWarning("b"), floatWarning("c")};
    QTest::newRow("rubbish behind") << QByteArray("v 1f 2 3") << QVector3D(0, 2, 3)
                                    << Texts{floatWarning("1f")};
    QTest::newRow("comma") << QByteArray("v 1,5 2 3") << QVector3D(0, 2, 3) << Texts{floatWarning("1,5")};
    QTest::newRow("hexadecimal") << QByteArray("v 0x10 2 3") << QVector3D(0, 2, 3)
                                 << Texts{floatWarning("0x10")};
    QTest::newRow("too great") << QByteArray("v 1e39 -1e39 3") << QVector3D(0, 0, 3)
                               << Texts{floatWarning("1e39"), floatWarning("-1e39")};
    QTest::newRow("too small") << QByteArray("v 1e-46 2 3") << QVector3D(0, 2, 3)
                               << Texts{floatWarning("1e-46")};
    QTest::newRow("infinity of a Windows runtime")
        << QByteArray("v 1.#INF 2 3") << QVector3D(0, 2, 3) << Texts{floatWarning("1.#INF")};
    QTest::newRow("tab between numbers")
        << QByteArray("v 1\t2 3 4") << QVector3D(0, 3, 4) << Texts{floatWarning("1\\t2")};
    QTest::newRow("comment") << QByteArray("v 1 2 #3") << QVector3D(1, 2, 0) << Texts{floatWarning("#3")};
    QTest::newRow("not ASCII") << QByteArray("v 1 2 \xc3\xa4") << QVector3D(1, 2, 0)
                               << Texts{floatWarning("\xc3\xa4")};
    QTest::newRow("Latin-1") << QByteArray("v 1 2 \xe4") << QVector3D(1, 2, 0)
                             << Texts{floatWarning("\xc3\xa4")};
}

void tst_OBJReaderText::badNumbers()
{
    QFETCH(QByteArray, line);
    QFETCH(QVector3D, vertex);
    QFETCH(QByteArrayList, warnings);
    expectWarnings(warnings);
    OBJReader reader;
    QCOMPARE(reader.read(line + '\n', running), OBJReader::NoError);
    QCOMPARE(support::bytesOf(reader.getMesh().vertices), support::bytesOf(QList<QVector3D>{vertex}));
    QVERIFY(reader.isValid());
}

void tst_OBJReaderText::textureCoordinateLines_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QVector2D>("uv");
    QTest::addColumn<QByteArrayList>("warnings");
    QTest::newRow("two") << QByteArray("vt 0.25 0.75") << QVector2D(0.25f, 0.75f) << QByteArrayList();
    QTest::newRow("three") << QByteArray("vt 0.25 0.75 0.5") << QVector2D(0.25f, 0.75f) << QByteArrayList();
    QTest::newRow("third is rubbish")
        << QByteArray("vt 0.25 0.75 x") << QVector2D(0.25f, 0.75f) << QByteArrayList();
    QTest::newRow("outside 0 to 1") << QByteArray("vt -3 17") << QVector2D(-3, 17) << QByteArrayList();
    QTest::newRow("bad u") << QByteArray("vt u 0.75") << QVector2D(0, 0.75f)
                           << QByteArrayList{floatWarning("u")};
    QTest::newRow("bad v") << QByteArray("vt 0.25 v") << QVector2D(0.25f, 0)
                           << QByteArrayList{floatWarning("v")};
}

void tst_OBJReaderText::textureCoordinateLines()
{
    QFETCH(QByteArray, line);
    QFETCH(QVector2D, uv);
    QFETCH(QByteArrayList, warnings);
    support::ObjFolder const folder;
    folder.writeImage(u"t.png"_s, support::plainImage(4, 4, Qt::blue));
    folder.write(u"m.mtl"_s, "newmtl m\nmap_Kd t.png\n");
    OBJReader reader;
    reader.setFileName(folder.path(u"a.obj"_s));
    reader.setTextureSupport(SurfaceReader::TextureRequired);
    expectWarnings(warnings);
    QCOMPARE(reader.read("mtllib m.mtl\nv 0 0 0\nusemtl m\nf 1/1 1/1 1/1\n" + line + '\n', running),
             OBJReader::NoError);
    QCOMPARE(support::bytesOf(reader.getMesh().textureCoordinates), support::bytesOf(QList<QVector2D>{uv}));
}

void tst_OBJReaderText::normalLines_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QVector3D>("normal");
    QTest::addColumn<QByteArrayList>("warnings");
    QTest::newRow("unit") << QByteArray("vn 0 0 -1") << QVector3D(0, 0, -1) << QByteArrayList();
    QTest::newRow("not normalised") << QByteArray("vn 3 4 5") << QVector3D(3, 4, 5) << QByteArrayList();
    QTest::newRow("zero") << QByteArray("vn 0 0 0") << QVector3D(0, 0, 0) << QByteArrayList();
    QTest::newRow("fourth is ignored") << QByteArray("vn 1 2 3 x") << QVector3D(1, 2, 3) << QByteArrayList();
    QTest::newRow("bad number") << QByteArray("vn 1 y 3") << QVector3D(1, 0, 3)
                                << QByteArrayList{floatWarning("y")};
}

void tst_OBJReaderText::normalLines()
{
    QFETCH(QByteArray, line);
    QFETCH(QVector3D, normal);
    QFETCH(QByteArrayList, warnings);
    expectWarnings(warnings);
    OBJReader reader;
    QCOMPARE(reader.read("v 0 0 0\n" + line + '\n', running), OBJReader::NoError);
    QCOMPARE(support::bytesOf(reader.getMesh().normals), support::bytesOf(QList<QVector3D>{normal}));
}

void tst_OBJReaderText::incompleteLines_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<int>("code");
    for (char const* const line : {"v", "v ", "v 1", "v 1 2", "v 1\t2\t3", "v x y"})
        QTest::newRow(line) << QByteArray(line) << int(OBJReader::IncompleteVertexCoordinates);
    for (char const* const line : {"vt", "vt 0.5", "vt 0.5\t0.5", "vt x"})
        QTest::newRow(line) << QByteArray(line) << int(OBJReader::IncompleteTextureCoordinates);
    for (char const* const line : {"vn", "vn 0", "vn 0 0", "vn 0\t0\t1"})
        QTest::newRow(line) << QByteArray(line) << int(OBJReader::IncompleteVertexNormalCoordinates);
}

void tst_OBJReaderText::incompleteLines()
{
    QFETCH(QByteArray, line);
    QFETCH(int, code);
    OBJReader reader;
    QCOMPARE(int(reader.read(positions + line + '\n' + positions, running)), code);
    QVERIFY(reader.getMesh().isNull());
}

void tst_OBJReaderText::faceLines_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QList<int>>("indices");
    using Indices = QList<int>;
    Indices const triangle = {0, 1, 2, -1};
    QTest::newRow("position") << QByteArray("f 1 2 3") << triangle;
    QTest::newRow("position and uv") << QByteArray("f 1/3 2/2 3/1") << triangle;
    QTest::newRow("position and normal") << QByteArray("f 1//3 2//2 3//1") << triangle;
    QTest::newRow("all") << QByteArray("f 1/3/9 2/2/8 3/1/7") << triangle;
    QTest::newRow("mixed forms") << QByteArray("f 1 2/2 3//1") << triangle;
    QTest::newRow("slash behind") << QByteArray("f 1/ 2// 3/1/") << triangle;
    QTest::newRow("fourth part") << QByteArray("f 1/2/3/4 2/// 3/1/1/1/1") << triangle;
    QTest::newRow("other parts are no numbers") << QByteArray("f 1/x/y 2/1.5/ 3/-/+") << triangle;
    QTest::newRow("other parts are negative")
        << QByteArray("f 1/-1/-1 2/-9/-9 3/-2147483648/-2147483648") << triangle;
    QTest::newRow("sign and zeros") << QByteArray("f +1 002 +03") << triangle;
    QTest::newRow("tab in a token") << QByteArray("f 1\t 2 3") << triangle;
    QTest::newRow("pentagon") << QByteArray("f 1 2 3 4 5") << triangle;
    QTest::newRow("hexagon") << QByteArray("f 3 2 1 1 1 1") << Indices{2, 1, 0, -1};
    QTest::newRow("fourth corner is never looked at") << QByteArray("f 1 2 3 x -5") << triangle;
    QTest::newRow("a million corners")
        << "f 3 2 1" + QByteArray(" 1/1/1").repeated(1000000) << Indices{2, 1, 0, -1};
    QTest::newRow("a million parts") << "f 3" + QByteArray("/").repeated(1000000) + " 2/" +
                                            QByteArray("/9").repeated(1000000) + " 1"
                                     << Indices{2, 1, 0, -1};
    QTest::newRow("many corners, not ASCII")
        << "f 3 2 1" + QByteArray(" \xe4").repeated(1000) << Indices{2, 1, 0, -1};
    // White space of Unicode at the end of a line is no token, so that this is a quad's fifth corner or not.
    QTest::newRow("no-break space inside") << QByteArray("f 3 2 1 1 \xc2\xa0 x") << Indices{2, 1, 0, -1};
    QTest::newRow("same corner thrice") << QByteArray("f 2 2 2") << Indices{1, 1, 1, -1};
    QTest::newRow("two faces") << QByteArray("f 1 2 3\nf 3 4 5") << Indices{0, 1, 2, -1, 2, 3, 4, -1};
    QTest::newRow("non-ASCII fifth token") << QByteArray("f 1 2 3 4 \xc3\xa4") << triangle;
}

void tst_OBJReaderText::faceLines()
{
    QFETCH(QByteArray, line);
    QFETCH(QList<int>, indices);
    OBJReader reader;
    QCOMPARE(reader.read(positions + line + '\n', running), OBJReader::NoError);
    QCOMPARE(reader.getMesh().indices, indices);
    QCOMPARE(reader.getMesh().vertices.size(), 5);
}

void tst_OBJReaderText::rejectedFaces_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<int>("code");
    QTest::addColumn<QByteArrayList>("warnings");
    auto const row = [](char const* line, OBJReader::Error code, QByteArrayList const& warnings) {
        QTest::newRow(line) << QByteArray(line) << int(code) << warnings;
    };
    row("f 1 2 3 4", OBJReader::QuadFacesNotSupported, {});
    row("f 1/1 2/2 3/3 4/4", OBJReader::QuadFacesNotSupported, {});
    // The number of corners comes first, whatever they are.
    row("f 0 x 9 -1", OBJReader::QuadFacesNotSupported, {});
    row("f 1 2 3 #", OBJReader::QuadFacesNotSupported, {});
    row("f 1 2 3 4 \xc2\xa0", OBJReader::QuadFacesNotSupported, {});
    row("f", OBJReader::InvalidVertexId, {});
    row("f 1", OBJReader::InvalidVertexId, {});
    row("f 1 2", OBJReader::InvalidVertexId, {});
    row("f 1\t2\t3", OBJReader::InvalidVertexId, {});
    row("f 0 1 2", OBJReader::InvalidVertexId, {vertexWarning("0")});
    row("f 1 0/1 2", OBJReader::InvalidVertexId, {vertexWarning("0")});
    row("f 1 2 x/3", OBJReader::InvalidVertexId, {vertexWarning("x")});
    row("f /1/1 1 2", OBJReader::InvalidVertexId, {vertexWarning("")});
    row("f 1.0 2 3", OBJReader::InvalidVertexId, {vertexWarning("1.0")});
    row("f 2147483648 2 3", OBJReader::InvalidVertexId, {vertexWarning("2147483648")});
    row("f 0 x 00", OBJReader::InvalidVertexId,
        {vertexWarning("0"), vertexWarning("x"), vertexWarning("00")});
    row("f \xc3\xa4 1 2", OBJReader::InvalidVertexId, {vertexWarning("\xc3\xa4")});
    // Relative indices and those beyond the list, where a mesh would use them.
    row("f -1 1 2", OBJReader::InvalidVertexId, {});
    row("f 1 2 -3", OBJReader::InvalidVertexId, {});
    row("f 1 2 6", OBJReader::InvalidVertexId, {});
    row("f 1 2147483647 3", OBJReader::InvalidVertexId, {});
    row("f 1 -2147483648 3", OBJReader::InvalidVertexId, {});
}

void tst_OBJReaderText::rejectedFaces()
{
    QFETCH(QByteArray, line);
    QFETCH(int, code);
    QFETCH(QByteArrayList, warnings);
    expectWarnings(warnings);
    OBJReader reader;
    QCOMPARE(int(reader.read(positions + line + '\n', running)), code);
    QCOMPARE(int(reader.getError()), code);
    QVERIFY(reader.getMesh().isNull());
}

void tst_OBJReaderText::facesMayStandBeforeVertices()
{
    OBJReader reader;
    QCOMPARE(reader.read("f 5 4 3\n" + positions, running), OBJReader::NoError);
    QCOMPARE(reader.getMesh().indices, QList<int>({4, 3, 2, -1}));
    QCOMPARE(reader.read("f 1//2 2//2 3//1\nvn 0 0 1\n" + positions + "vn 0 1 0\n", running),
             OBJReader::NoError);
    QCOMPARE(reader.getMesh().normals, QList<QVector3D>({{0, 1, 0}, {0, 1, 0}, {0, 0, 1}}));
    QCOMPARE(reader.read("f 6 4 3\n" + positions, running), OBJReader::InvalidVertexId);
}

void tst_OBJReaderText::ignoredLines_data()
{
    QTest::addColumn<QByteArray>("line");
    for (char const* const line : {"",
                                   " ",
                                   "\t",
                                   "\r",
                                   "#",
                                   "# v 9 9 9",
                                   "#v 9 9 9",
                                   "  # v 9 9 9",
                                   "o name",
                                   "o",
                                   "g a b c",
                                   "g",
                                   "s 1",
                                   "s off",
                                   "s",
                                   "l 1 2",
                                   "p 1",
                                   "vp 1 2 3",
                                   "V 9 9 9",
                                   "F 1 2 3",
                                   "VT 1",
                                   "Vn 1",
                                   "vv 9 9 9",
                                   "v\t9\t9\t9",
                                   "f\t1\t2\t3",
                                   "v# 1",
                                   "ff 1 2 3 4",
                                   "curv 1 2",
                                   "mtllib",
                                   "MTLLIB a.mtl",
                                   "mtllib missing.mtl",
                                   "usemtl a",
                                   "usemtl",
                                   "\xc3\xa4 1 2 3",
                                   "\xe4 1 2 3",
                                   "v\xc2\xa0"
                                   "9 9 9 9",
                                   "-1 2 3",
                                   "1 2 3",
                                   "call x.obj",
                                   "shadow_obj a.obj",
                                   "\x1a"})
        QTest::addRow("%s", QByteArray(line).toPercentEncoding().constData()) << QByteArray(line);
    QTest::newRow("NUL") << QByteArray("\0v 9 9 9", 8);
    QTest::newRow("NULs") << QByteArray(100, '\0');
}

void tst_OBJReaderText::ignoredLines()
{
    QFETCH(QByteArray, line);
    OBJReader reader;
    for (QByteArray const& end : {QByteArray("\n"), QByteArray("\r\n")}) {
        QCOMPARE(reader.read(line + end + positions + line + end + "f 1 2 3\n" + line, running),
                 OBJReader::NoError);
        QCOMPARE(reader.getMesh().vertices.size(), 5);
        QCOMPARE(reader.getMesh().indices, QList<int>({0, 1, 2, -1}));
    }
}

void tst_OBJReaderText::layouts_data()
{
    QTest::addColumn<QByteArray>("text");
    QByteArray const text = "v 1 2 3\nv 4 5 6\nv 7 8 10\nf 1 2 3\n";
    QByteArray crlf = text;
    QTest::newRow("line feeds") << text;
    QTest::newRow("carriage returns too") << crlf.replace("\n", "\r\n");
    QTest::newRow("no line feed at the end") << text.chopped(1);
    QTest::newRow("empty lines") << QByteArray(text).replace("\n", "\n\n\r\n \n");
    QTest::newRow("byte order mark") << "\xef\xbb\xbf" + text;
    // Each line is decoded by itself, so each may begin with one.
    QTest::newRow("byte order mark in each line")
        << QByteArray("\n" + text.chopped(1)).replace("\n", "\n\xef\xbb\xbf");
    QTest::newRow("spaces") << QByteArray(text).replace(" ", "   ").replace("\n", "  \n  ");
    QTest::newRow("comments") << QByteArray(text).replace("\n", "\n# comment\n");
}

void tst_OBJReaderText::layouts()
{
    QFETCH(QByteArray, text);
    for (int const chunk : {1, 5, 100}) {
        OBJReader reader;
        support::TrickleDevice device(text, chunk);
        QCOMPARE(reader.read(&device, running), OBJReader::NoError);
        QCOMPARE(reader.getMesh().vertices, QList<QVector3D>({{1, 2, 3}, {4, 5, 6}, {7, 8, 10}}));
        QCOMPARE(reader.getMesh().indices, QList<int>({0, 1, 2, -1}));
    }
}

void tst_OBJReaderText::stopsAtTheFirstError()
{
    // Neither the bad number nor the quad behind it is seen.
    OBJReader reader;
    QCOMPARE(reader.read(QByteArray("v 1 2\nv x y z\nf 1 2 3 4\n"), running),
             OBJReader::IncompleteVertexCoordinates);
    QTest::ignoreMessage(QtWarningMsg, vertexWarning("0").constData());
    QCOMPARE(reader.read(QByteArray("f 0 1 2\nv 1\n"), running), OBJReader::InvalidVertexId);
}

void tst_OBJReaderText::encodings_data()
{
    QTest::addColumn<QByteArray>("use");
    QTest::addColumn<QString>("name");
    QTest::newRow("ASCII") << QByteArray("skin") << u"skin"_s;
    QTest::newRow("UTF-8") << QByteArray("h\xc3\xa4ut") << u"häut"_s;
    QTest::newRow("Latin-1") << QByteArray("h\xe4ut") << u"häut"_s;
    QTest::newRow("beyond the BMP") << QByteArray("\xf0\x9f\xa6\xb7") << u"\U0001F9B7"_s;
    QTest::newRow("UTF-8 and Latin-1 in one line") << QByteArray("\xc3\xa4\xe4") << u"\u00c3\u00a4\u00e4"_s;
    QTest::newRow("overlong") << QByteArray("\xc0\x80") << u"\u00c0\u0080"_s;
    QTest::newRow("surrogate") << QByteArray("\xed\xa0\x80") << u"\u00ed\u00a0\u0080"_s;
    QTest::newRow("several words") << QByteArray("my   skin \xc3\xa4") << u"my skin ä"_s;
    // White space of Unicode is trimmed at the ends of a line, but only spaces part tokens.
    QTest::newRow("no-break space") << QByteArray("a\xc2\xa0z\xc2\xa0") << u"a\u00a0z"_s;
    QTest::newRow("byte order mark inside") << QByteArray("\xef\xbb\xbfz") << u"\ufeffz"_s;
}

void tst_OBJReaderText::encodings()
{
    // The name as the file writes it and the name that the warning shows are the same material.
    QFETCH(QByteArray, use);
    QFETCH(QString, name);
    support::ObjFolder const folder;
    folder.writeImage(u"t.png"_s, support::plainImage(4, 4, Qt::blue));
    folder.write(u"m.mtl"_s, "newmtl other\nmap_Kd t.png\n");
    OBJReader reader;
    reader.setFileName(folder.path(u"a.obj"_s));
    QString expected;
    QDebug(&expected)
        << "Corrupt OBJ file detected: Material " << name
        << " is used but not defined. Replacing it with the first known textured material instead. ("
        << u"other"_s << ")";
    QTest::ignoreMessage(QtWarningMsg, expected.trimmed().toUtf8().constData());
    QCOMPARE(reader.read("mtllib m.mtl\nv 0 0 0\nvt 0.5 0.5\nusemtl " + use + "\nf 1/1 1/1 1/1\n", running),
             OBJReader::NoError);
    QCOMPARE(reader.getMesh().colors.size(), 1);
}

void tst_OBJReaderText::longLines()
{
    // Longer than anything that is read at a time, before, between and behind the lines that count.
    QByteArray const comment = '#' + QByteArray(300000, 'x') + '\n';
    QByteArray const padded = "v 1 2 3 " + QByteArray(200000, ' ') + "9\n";
    QByteArray const text = comment + padded + comment + padded + "v 4 5 6\nf 1 2 3\n" + comment.chopped(1);
    for (qint64 const chunk : {1000, 65536, 1000000}) {
        OBJReader reader;
        support::TrickleDevice device(text, chunk);
        QCOMPARE(reader.read(&device, running), OBJReader::NoError);
        QCOMPARE(reader.getMesh().vertices, QList<QVector3D>({{1, 2, 3}, {1, 2, 3}, {4, 5, 6}}));
        QCOMPARE(reader.getMesh().indices, QList<int>({0, 1, 2, -1}));
    }
}

// Lines of every length fall on every place of a block.
void tst_OBJReaderText::manyLines()
{
    QByteArray text;
    QList<QVector3D> vertices;
    for (int i = 0; i < 20000; ++i) {
        text +=
            "v " + QByteArray::number(i) + QByteArray(i % 37, ' ') + " 0.5 " + QByteArray::number(-i) + '\n';
        vertices << QVector3D(float(i), 0.5f, float(-i));
    }
    OBJReader reader;
    QCOMPARE(reader.read(text, running), OBJReader::NoError);
    QCOMPARE(reader.getMesh().vertices, vertices);
    support::SequentialDevice pipe(text, 1000);
    QCOMPARE(reader.read(&pipe, running), OBJReader::NoError);
    QCOMPARE(reader.getMesh().vertices, vertices);
}

QTEST_APPLESS_MAIN(tst_OBJReaderText)
#include "tst_OBJReaderText.moc"
