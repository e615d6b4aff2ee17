#include "ply/PLYWriter.h"
#include "support/Meshes.h"
#include "support/PlyFiles.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QtNumeric>

#include <bit>

using support::plyColor;
using support::plyCount;
using support::plyLines;
using support::plyMaterial;
using support::plyNormal;
using support::plyPosition;
using support::plyStart;

using namespace Qt::StringLiterals;

namespace {

// Two triangles over four vertices.
geometry::Mesh square()
{
    return {{{0, 0, 0}, {1.5f, 0, 0}, {1.5f, 2, 0}, {0, 2, -0.0f}}, {0, 1, 2, -1, 0, 2, 3, -1}};
}

QList<QVector3D> const someNormals = {{0, 0, 1}, {0, 1, 0}, {1, 0, 0}, {0.25f, -0.5f, 0.125f}};
QList<unsigned int> const someColors = {0xFF0000FFu, 0x8000FF00u, 0x00FF0000u, 0x01020304u};

geometry::Material material()
{
    return {QColor(1, 2, 3),
            QColor(4, 5, 6),
            QColor(7, 8, 9),
            QColor(10, 11, 12),
            0.5f,
            0.25f,
            0.75f,
            1.0f,
            64.0f,
            0.125f,
            0.04f,
            true};
}

MeshHeader scan()
{
    return {u"Scan\u00AEPro\u2122 3"_s, u"SN 4711"_s, true, u"5.6.7"_s,
            QDateTime(QDate(2024, 2, 29), QTime(23, 59))};
}

QByteArrayList const scanComments = {
    "comment scan information", "comment scanner name: ScanPro 3", "comment scanner serial: SN 4711",
    "comment imported: 1",      "comment software version: 5.6.7", "comment acquisition date: 2024-02-29",
};

QByteArray floatBytes(float value)
{
    return support::PLYBody().f32(value).bytes;
}

QByteArray vectorBytes(QVector3D const& vector)
{
    return floatBytes(vector.x()) + floatBytes(vector.y()) + floatBytes(vector.z());
}

QByteArray colorBytes(unsigned int color, bool withAlpha)
{
    QByteArray bytes;
    for (int shift = 0; shift < (withAlpha ? 32 : 24); shift += 8)
        bytes += static_cast<char>(color >> shift & 0xFF);
    return bytes;
}

QByteArray const materialBytes = support::PLYBody()
                                     .u8({1, 2, 3})
                                     .f32(0.5f)
                                     .u8({4, 5, 6})
                                     .f32(0.25f)
                                     .u8({7, 8, 9})
                                     .f32(0.75f)
                                     .u8({10, 11, 12})
                                     .f32({1, 64, 0.125f, 0.04f})
                                     .u8(1)
                                     .bytes;

struct Choice
{
    bool normals;
    bool colors;
    bool alpha;
    bool material;
    bool metadata;
};

QByteArray expectedHeader(Choice const& choice)
{
    QByteArrayList lines = plyStart;
    if (choice.metadata)
        lines += scanComments;
    lines += plyCount("vertex", 4);
    lines += plyPosition;
    if (choice.normals)
        lines += plyNormal;
    if (choice.colors)
        lines += plyColor;
    if (choice.colors && choice.alpha)
        lines += "property uchar alpha";
    lines += {plyCount("face", 2), "property list uchar int vertex_index"};
    if (choice.material)
        lines += plyMaterial;
    lines += "end_header";
    return plyLines(lines);
}

QByteArray expectedBody(Choice const& choice)
{
    QByteArray bytes;
    for (int i = 0; i < 4; ++i) {
        bytes += vectorBytes(square().vertices[i]);
        if (choice.normals)
            bytes += vectorBytes(someNormals[i]);
        if (choice.colors)
            bytes += colorBytes(someColors[i], choice.alpha);
    }
    bytes += support::PLYBody().triangle(0, 1, 2).triangle(0, 2, 3).bytes;
    return choice.material ? bytes + materialBytes : bytes;
}

QByteArray written(PLYWriter& writer)
{
    QByteArray bytes(100'000, 'x'); // more than is written: no byte of it may stay
    return writer.write(bytes) ? bytes : QByteArray();
}

QByteArray contentOf(QString const& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class tst_PLYWriter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void writesEveryCombination_data();
    void writesEveryCombination();
    void writesTheLeastMesh();
    void writesAnEmptyMesh();
    void writesTrianglesOfStrips();
    void writesIndicesAsGiven();
    void writesValuesBitForBit();
    void writesAPointCloud();
    void pointCloudKeepsAlphaAndMaterial();
    void newDataReplacesOld();
    void writesScanComments_data();
    void writesScanComments();
    void cutsTheHeaderByUtf16Length_data();
    void cutsTheHeaderByUtf16Length();
    void headerDataCanBeTakenBack();
};

void tst_PLYWriter::writesEveryCombination_data()
{
    QTest::addColumn<int>("bits");
    for (int bits = 0; bits < 32; ++bits)
        QTest::addRow("normals %d colors %d alpha %d material %d metadata %d", bits & 1, bits >> 1 & 1,
                      bits >> 2 & 1, bits >> 3 & 1, bits >> 4 & 1)
            << bits;
}

void tst_PLYWriter::writesEveryCombination()
{
    QFETCH(int, bits);
    Choice const choice{(bits & 1) != 0, (bits & 2) != 0, (bits & 4) != 0, (bits & 8) != 0, (bits & 16) != 0};
    geometry::Mesh mesh = square();
    if (choice.normals)
        mesh.normals = someNormals;
    if (choice.colors)
        mesh.colors = someColors;
    PLYWriter writer;
    writer.setData(mesh, choice.alpha,
                   choice.material ? utility::Optional<geometry::Material>(material()) : std::nullopt);
    writer.setHeaderData(choice.metadata ? utility::Optional<MeshHeader>(scan()) : std::nullopt);

    QByteArray const expected = expectedHeader(choice) + expectedBody(choice);
    QCOMPARE(written(writer), expected);
    QTemporaryDir const folder;
    QString const path = folder.filePath(u"mesh.ply"_s);
    writer.setFilePath(path);
    QVERIFY(writer.write());
    QCOMPARE(contentOf(path), expected);
    QCOMPARE(writer.getErrorMessage(), QString());
}

void tst_PLYWriter::writesTheLeastMesh()
{
    PLYWriter writer;
    writer.setData(square(), false, {});
    QByteArray const header = "ply\n"
                              "format binary_little_endian 1.0\n"
                              "element vertex 4\n"
                              "property float x\n"
                              "property float y\n"
                              "property float z\n"
                              "element face 2\n"
                              "property list uchar int vertex_index\n"
                              "end_header\n";
    QByteArray const bytes = written(writer);
    QCOMPARE(bytes.left(header.size()), header);
    QCOMPARE(bytes.size(), header.size() + 4 * 12 + 2 * 13);
}

void tst_PLYWriter::writesAnEmptyMesh()
{
    PLYWriter writer;
    QByteArray const header =
        plyLines(plyStart + QByteArrayList{plyCount("vertex", 0)} + plyPosition +
                 QByteArrayList{plyCount("face", 0), "property list uchar int vertex_index", "end_header"});
    QCOMPARE(written(writer), header);
    writer.setData(geometry::Mesh(), true, {});
    QCOMPARE(written(writer), header);
}

void tst_PLYWriter::writesTrianglesOfStrips()
{
    geometry::Mesh mesh = square();
    mesh.indices = {0, 1, 2, 3, -1, 1, 2, -1, 3, 2, 0};
    PLYWriter writer;
    writer.setData(mesh, false, {});
    QByteArray const bytes = written(writer);
    QVERIFY(bytes.contains("\nelement face 3\n"));
    QCOMPARE(bytes.right(39), support::PLYBody().triangle(0, 1, 2).triangle(2, 1, 3).triangle(3, 2, 0).bytes);
}

void tst_PLYWriter::writesIndicesAsGiven()
{
    geometry::Mesh mesh = square();
    mesh.indices = {0, 99, -7, -1, 2147483647, 1, 1, -1};
    PLYWriter writer;
    writer.setData(mesh, false, {});
    QCOMPARE(written(writer).right(26),
             support::PLYBody().triangle(0, 99, -7).triangle(2147483647, 1, 1).bytes);
}

void tst_PLYWriter::writesValuesBitForBit()
{
    auto const notANumber = std::bit_cast<float>(0x7FC12345u);
    geometry::Mesh mesh({{-0.0f, notANumber, static_cast<float>(qInf())}, {1e-45f, -3.4e38f, 0.1f}}, {});
    PLYWriter writer;
    writer.setData(mesh, false, {});
    QCOMPARE(written(writer).right(24).toHex(), QByteArray("00000080"
                                                           "4523c17f"
                                                           "0000807f"
                                                           "01000000"
                                                           "9ec97fff"
                                                           "cdcccc3d"));
}

void tst_PLYWriter::writesAPointCloud()
{
    geometry::PointCloud cloud;
    cloud.positions = square().vertices;
    cloud.normals = someNormals;
    cloud.colors() = someColors;
    cloud.setMaterial(material());
    PLYWriter writer;
    writer.setData(cloud);

    QByteArray expected = plyLines(plyStart + QByteArrayList{plyCount("vertex", 4)} + plyPosition +
                                   plyNormal + plyColor + QByteArrayList{plyCount("face", 0)} +
                                   QByteArrayList{"property list uchar int vertex_index", "end_header"});
    for (int i = 0; i < 4; ++i)
        expected +=
            vectorBytes(cloud.positions[i]) + vectorBytes(someNormals[i]) + colorBytes(someColors[i], false);
    QCOMPARE(written(writer), expected);
}

void tst_PLYWriter::pointCloudKeepsAlphaAndMaterial()
{
    geometry::PointCloud cloud;
    cloud.positions = {{1, 2, 3}};
    cloud.colors() = {0x40302010u};
    PLYWriter writer;
    writer.setData(square(), true, material());
    writer.setData(cloud);
    QByteArray const bytes = written(writer);
    QVERIFY(bytes.contains("\nproperty uchar alpha\nelement face 0\n"));
    QVERIFY(bytes.endsWith("end_header\n" + vectorBytes({1, 2, 3}) + QByteArray("\x10\x20\x30\x40") +
                           materialBytes));
}

void tst_PLYWriter::newDataReplacesOld()
{
    geometry::Mesh mesh = square();
    mesh.normals = someNormals;
    mesh.colors = someColors;
    PLYWriter writer;
    writer.setData(mesh, true, material());
    writer.setData(square(), false, {});
    QCOMPARE(written(writer), expectedHeader({}) + expectedBody({}));
}

void tst_PLYWriter::writesScanComments_data()
{
    QTest::addColumn<MeshHeader>("header");
    QTest::addColumn<QByteArrayList>("comments");
    QTest::newRow("everything") << scan() << scanComments;
    QTest::newRow("nothing") << MeshHeader()
                             << QByteArrayList{"comment scan information",   "comment scanner name: ",
                                               "comment scanner serial: ",   "comment imported: 0",
                                               "comment software version: ", "comment acquisition date: "};
    QTest::newRow("spaces and percent signs stay")
        << MeshHeader(u" a  %1 %2 "_s, u"%1"_s, false, u"  "_s, QDateTime(QDate(1999, 12, 31), QTime(0, 0)))
        << QByteArrayList{"comment scan information",     "comment scanner name:  a  %1 %2 ",
                          "comment scanner serial: %1",   "comment imported: 0",
                          "comment software version:   ", "comment acquisition date: 1999-12-31"};
    QTest::newRow("every mark goes") << MeshHeader(u"\u2122\u2122A\u00AE\u00AE"_s, {}, false, {}, {})
                                     << QByteArrayList{
                                            "comment scan information",   "comment scanner name: A",
                                            "comment scanner serial: ",   "comment imported: 0",
                                            "comment software version: ", "comment acquisition date: "};
}

void tst_PLYWriter::writesScanComments()
{
    QFETCH(MeshHeader, header);
    QFETCH(QByteArrayList, comments);
    PLYWriter writer;
    writer.setHeaderData(header);
    QByteArray const start = plyLines(plyStart + comments + QByteArrayList{plyCount("vertex", 0)});
    QCOMPARE(written(writer).left(start.size()), start);
}

void tst_PLYWriter::cutsTheHeaderByUtf16Length_data()
{
    QTest::addColumn<QString>("serial");
    QTest::addColumn<int>("lost");
    QTest::newRow("ASCII") << u"abc"_s << 0;
    QTest::newRow("two bytes, one unit") << u"\u00E4"_s << 1;
    QTest::newRow("three bytes, one unit") << u"\u20AC"_s << 2;
    QTest::newRow("four bytes, two units") << u"\U0001F9B7"_s << 2;
    QTest::newRow("marks are kept in the serial") << u"\u00AE\u2122"_s << 3;
    QTest::newRow("more than the last line") << QString(12, u'\u00FC') << 12;
}

void tst_PLYWriter::cutsTheHeaderByUtf16Length()
{
    QFETCH(QString, serial);
    QFETCH(int, lost);
    PLYWriter writer;
    writer.setData(square(), false, {});
    writer.setHeaderData(MeshHeader({}, serial, false, {}, {}));
    QByteArray const header = plyLines(
        plyStart +
        QByteArrayList{"comment scan information", "comment scanner name: ",
                       "comment scanner serial: " + serial.toUtf8(), "comment imported: 0",
                       "comment software version: ", "comment acquisition date: ", plyCount("vertex", 4)} +
        plyPosition +
        QByteArrayList{plyCount("face", 2), "property list uchar int vertex_index", "end_header"});
    QCOMPARE(written(writer), header.chopped(lost) + expectedBody({}));
}

void tst_PLYWriter::headerDataCanBeTakenBack()
{
    PLYWriter writer;
    writer.setHeaderData(scan());
    writer.setHeaderData({});
    QVERIFY(!written(writer).contains("comment"));
}

QTEST_GUILESS_MAIN(tst_PLYWriter)
#include "tst_PLYWriter.moc"
