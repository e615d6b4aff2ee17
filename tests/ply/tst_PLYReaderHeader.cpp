#include "ply/PLYReader.h"
#include "ply/PLYTokens.h"
#include "support/PlyFiles.h"

#include <QTest>

using support::plyHeader;
using support::plyIndices;
using support::plyLines;
using support::plyMaterial;
using support::plyPosition;
using support::plyStart;

namespace {

std::atomic<bool> const never = false;

constexpr auto vertexOrder =
    "Vertex element is not in the expected order. Current PLY reader doesn't support such";
constexpr auto faceOrder =
    "Face element is not in the expected order. Current PLY reader doesn't support such";
constexpr auto materialOrder =
    "velquin_material element is not in the expected order. Current PLY reader doesn't support such";

QByteArrayList const vertexLines = QByteArrayList{"element vertex 3"} + plyPosition;
QByteArrayList const faceLines = QByteArrayList{"element face 1"} + plyIndices;
QByteArrayList const endLine = {"end_header"};
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

class tst_PLYReaderHeader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wantsElementsInOrder_data();
    void wantsElementsInOrder();
    void warnsOfSeveralMaterials_data();
    void warnsOfSeveralMaterials();
    void propertiesNeedAnElement();
    void skipsUnknownProperties_data();
    void skipsUnknownProperties();
    void refusesFaceColors_data();
    void refusesFaceColors();
    void everyTokenIsTaken_data();
    void everyTokenIsTaken();
    void everyTypeServesForLists();
    void judgesTheHeader_data();
    void judgesTheHeader();
    void unfinishedHeadersAreJudgedAsTheyStand_data();
    void unfinishedHeadersAreJudgedAsTheyStand();
    void countsAreDecimalIntegers_data();
    void countsAreDecimalIntegers();
    void lastFormatCounts();
};

void tst_PLYReaderHeader::wantsElementsInOrder_data()
{
    QTest::addColumn<QByteArrayList>("lines");
    QTest::addColumn<QByteArray>("message");
    QByteArrayList const other = {"element edge 0"};
    QTest::newRow("face first") << faceLines + vertexLines << QByteArray(faceOrder);
    QTest::newRow("material first") << plyMaterial + vertexLines + faceLines << QByteArray(materialOrder);
    QTest::newRow("other before vertex") << other + vertexLines + faceLines << QByteArray(vertexOrder);
    QTest::newRow("two vertex elements") << vertexLines + vertexLines << QByteArray(vertexOrder);
    QTest::newRow("vertex after face") << vertexLines + faceLines + vertexLines << QByteArray(vertexOrder);
    QTest::newRow("other between vertex and face")
        << vertexLines + other + faceLines << QByteArray(faceOrder);
    QTest::newRow("two face elements") << vertexLines + faceLines + faceLines << QByteArray(faceOrder);
    QTest::newRow("material without faces") << vertexLines + plyMaterial << QByteArray(materialOrder);
    QTest::newRow("other between face and material")
        << vertexLines + faceLines + other + plyMaterial << QByteArray(materialOrder);
    QTest::newRow("two materials") << vertexLines + faceLines + plyMaterial + plyMaterial
                                   << QByteArray(materialOrder);
    QTest::newRow("face after material")
        << vertexLines + faceLines + plyMaterial + faceLines << QByteArray(faceOrder);
    QTest::newRow("count not looked at") << QByteArrayList{"element face many"} << QByteArray(faceOrder);
}

void tst_PLYReaderHeader::wantsElementsInOrder()
{
    QFETCH(QByteArrayList, lines);
    QFETCH(QByteArray, message);
    QTest::ignoreMessage(QtCriticalMsg, message.constData());
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(!reader.read(plyLines(plyStart + lines + endLine) + triangleBody, never));
}

void tst_PLYReaderHeader::warnsOfSeveralMaterials_data()
{
    QTest::addColumn<QByteArray>("count");
    QTest::addColumn<QByteArray>("shown");
    QTest::addColumn<bool>("success");
    QTest::newRow("2") << QByteArray("2") << QByteArray("2") << true;
    QTest::newRow("0") << QByteArray("0") << QByteArray("0") << true;
    QTest::newRow("-1") << QByteArray("-1") << QByteArray("-1") << true;
    QTest::newRow("no number") << QByteArray("one") << QByteArray("0") << false;
    QTest::newRow("beyond int") << QByteArray("2147483648") << QByteArray("0") << false;
}

void tst_PLYReaderHeader::warnsOfSeveralMaterials()
{
    QFETCH(QByteArray, count);
    QFETCH(QByteArray, shown);
    QFETCH(bool, success);
    QByteArray const message = "PLYReader: only 1 velquin_material is supported! Found  " + shown;
    QTest::ignoreMessage(QtWarningMsg, message.constData());
    QByteArray const header = headerWith("end_header", "element velquin_material " + count + "\nend_header");
    QCOMPARE(readsTriangle(header), success);
}

void tst_PLYReaderHeader::propertiesNeedAnElement()
{
    QTest::ignoreMessage(QtWarningMsg, "PLYReader: Invalid property");
    QVERIFY(readsTriangle(headerWith("element vertex 3", "property float x\nelement vertex 3")));
    QTest::ignoreMessage(QtWarningMsg, "PLYReader: Invalid property");
    QVERIFY(readsTriangle(headerWith("element vertex 3", plyIndices[0] + "\nelement vertex 3")));
}

void tst_PLYReaderHeader::skipsUnknownProperties_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("unknown name") << QByteArray("char") << QByteArray("confidence");
    QTest::newRow("known name in capitals") << QByteArray("char") << QByteArray("X");
    QTest::newRow("vertex_index of no list") << QByteArray("char") << QByteArray("vertex_index");
    QTest::newRow("both unknown") << QByteArray("quaternion") << QByteArray("rotation");
    QTest::newRow("type in capitals") << QByteArray("CHAR") << QByteArray("flags");
    QTest::newRow("percent signs") << QByteArray("%2") << QByteArray("%1%2");
    QTest::newRow("quotation marks") << QByteArray("\"char\"") << QByteArray("\"a\"");
    QTest::newRow("tab in the name") << QByteArray("char") << QByteArray("a\tb");
    QTest::newRow("beyond ASCII") << QByteArray("char")
                                  << QByteArray("gr\xC3\xB6\xC3\x9F"
                                                "e");
}

void tst_PLYReaderHeader::skipsUnknownProperties()
{
    QFETCH(QByteArray, type);
    QFETCH(QByteArray, name);
    QByteArray const message =
        "Property " + name + " of type " + type + " is not handled! Property will be skipped.";
    QByteArray const line = "property " + type + ' ' + name;
    QTest::ignoreMessage(QtCriticalMsg, message.constData());
    QVERIFY(readsTriangle(headerWith(plyPosition[2], line + '\n' + plyPosition[2])));
    QTest::ignoreMessage(QtCriticalMsg, message.constData());
    QVERIFY(readsTriangle(headerWith(plyIndices[0], plyIndices[0] + '\n' + line)));
}

void tst_PLYReaderHeader::refusesFaceColors_data()
{
    QTest::addColumn<QByteArray>("name");
    for (QByteArray const name : {"red", "green", "blue", "alpha"})
        QTest::newRow(name.constData()) << name;
}

void tst_PLYReaderHeader::refusesFaceColors()
{
    QFETCH(QByteArray, name);
    QByteArray const header = headerWith("end_header", "property uchar " + name + "\nend_header");
    for (auto const mode : {PLYReader::MeshMode, PLYReader::PointCloudMode}) {
        PLYReader reader(mode);
        QVERIFY(!reader.read(header + triangleBody + '\x9', never));
        reader.activeFaceColorMode(true);
        QVERIFY(reader.read(header + triangleBody + '\x9', never));
    }
    // Of a vertex or a material they are fine.
    QVERIFY(readsTriangle(
        headerWith("end_header", "element velquin_material 1\nproperty uchar " + name + "\nend_header")));
}

void tst_PLYReaderHeader::everyTokenIsTaken_data()
{
    QTest::addColumn<QByteArray>("line");
    for (auto const& token : ply::propertyTokens) {
        QByteArray const line = "property uchar " + QByteArray(token.name.data(), token.name.size());
        QTest::newRow(line.constData()) << line;
    }
    for (auto const& token : ply::typeTokens) {
        QByteArray const line = "property " + QByteArray(token.name.data(), token.name.size()) + " x";
        QTest::newRow(line.constData()) << line;
    }
}

void tst_PLYReaderHeader::everyTokenIsTaken()
{
    QFETCH(QByteArray, line);
    QVERIFY(readsTriangle(headerWith("end_header", "element velquin_material 1\n" + line + "\nend_header")));
}

void tst_PLYReaderHeader::everyTypeServesForLists()
{
    for (auto const& count : ply::typeTokens)
        for (auto const& entry : ply::typeTokens) {
            QByteArray const line = "property list " + QByteArray(count.name.data(), count.name.size()) +
                                    ' ' + QByteArray(entry.name.data(), entry.name.size()) +
                                    " vertex_indices";
            PLYReader reader(PLYReader::PointCloudMode);
            QVERIFY2(reader.read(headerWith(plyIndices[0], line) + triangleBody, never), line.constData());
        }
}

void tst_PLYReaderHeader::judgesTheHeader_data()
{
    QTest::addColumn<QByteArray>("header");
    QTest::addColumn<bool>("asMesh");
    QTest::addColumn<bool>("asCloud");
    QByteArrayList const two = plyPosition.mid(0, 2);
    QTest::newRow("vertices and faces") << plyHeader(3, plyPosition, 1) << true << true;
    QTest::newRow("vertices, no faces") << plyHeader(10, plyPosition, 0) << false << true;
    QTest::newRow("neither") << plyHeader(0, plyPosition, 0) << true << true;
    QTest::newRow("faces, no vertices") << plyHeader(0, plyPosition, 5) << true << true;
    QTest::newRow("less than no vertices") << plyHeader(-1, plyPosition, 0) << false << true;
    QTest::newRow("less than no faces") << plyHeader(3, plyPosition, -1) << true << true;
    QTest::newRow("x and y") << plyHeader(3, two, 1) << false << false;
    QTest::newRow("three of any meaning")
        << plyHeader(3, {"property float s", "property float t", "property uchar shininess"}, 1) << true
        << true;
    QTest::newRow("the same three times")
        << plyHeader(3, {"property float x", "property float x", "property float x"}, 1) << true << true;
    QTest::newRow("no properties") << plyHeader(3, {}, 1) << false << false;
    QTest::newRow("no elements") << plyLines(plyStart + endLine) << false << false;
    QTest::newRow("no face element") << plyLines(plyStart + vertexLines + endLine) << false << true;
    QTest::newRow("no vertex element, other")
        << plyLines(plyStart + QByteArrayList{"element edge 3"} + endLine) << false << false;
    QTest::newRow("no format") << plyLines(QByteArrayList{"ply"} + vertexLines + faceLines + endLine) << false
                               << false;
}

void tst_PLYReaderHeader::judgesTheHeader()
{
    QFETCH(QByteArray, header);
    QFETCH(bool, asMesh);
    QFETCH(bool, asCloud);
    PLYReader meshReader(PLYReader::MeshMode);
    QCOMPARE(meshReader.read(header, never), asMesh);
    PLYReader cloudReader(PLYReader::PointCloudMode);
    QCOMPARE(cloudReader.read(header, never), asCloud);
    QVERIFY(meshReader.getMesh().isNull());
    QVERIFY(cloudReader.getPointCloud().positions.isEmpty());
}

void tst_PLYReaderHeader::unfinishedHeadersAreJudgedAsTheyStand_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<bool>("success");
    QByteArray const whole = plyLines(plyStart + vertexLines + faceLines);
    QTest::newRow("no end_header") << whole << true;
    QTest::newRow("no line end") << whole.chopped(1) << true;
    QTest::newRow("half of end_header") << whole + "end_hea" << false;
    QTest::newRow("end_header without a line end") << whole + "end_header" << true;
    QTest::newRow("comment last") << whole + "comment hello" << true;
    QTest::newRow("empty line last") << whole + "\n" << true;
    QTest::newRow("spaces last") << whole + "   " << true;
    QTest::newRow("half an element") << whole + "element edg" << false;
    QTest::newRow("element without properties")
        << plyLines(plyStart + QByteArrayList{"element vertex 3"}) << false;
    QTest::newRow("no faces yet") << plyLines(plyStart + vertexLines) << false;
    QTest::newRow("magic line only") << QByteArray("ply\n") << false;
    QTest::newRow("nothing but comments") << QByteArray("comment\n\ncomment x") << false;
    QTest::newRow("nothing") << QByteArray() << false;
}

void tst_PLYReaderHeader::unfinishedHeadersAreJudgedAsTheyStand()
{
    QFETCH(QByteArray, file);
    QFETCH(bool, success);
    PLYReader reader(PLYReader::MeshMode);
    QCOMPARE(reader.read(file, never), success);
    QVERIFY(reader.getMesh().isNull());
}

void tst_PLYReaderHeader::countsAreDecimalIntegers_data()
{
    QTest::addColumn<QByteArray>("count");
    QTest::addColumn<bool>("success");
    QTest::newRow("3") << QByteArray("3") << true;
    QTest::newRow("003") << QByteArray("003") << true;
    QTest::newRow("+3") << QByteArray("+3") << true;
    QTest::newRow("largest") << QByteArray("2147483647") << true;
    QTest::newRow("one more") << QByteArray("2147483648") << false;
    QTest::newRow("3.0") << QByteArray("3.0") << false;
    QTest::newRow("3e0") << QByteArray("3e0") << false;
    QTest::newRow("0x3") << QByteArray("0x3") << false;
    QTest::newRow("1,000") << QByteArray("1,000") << false;
    QTest::newRow("1.000") << QByteArray("1.000") << false;
    QTest::newRow("3;") << QByteArray("3;") << false;
    QTest::newRow("three") << QByteArray("three") << false;
    QTest::newRow("Arabic digit") << QByteArray("\xD9\xA3") << false;
}

void tst_PLYReaderHeader::countsAreDecimalIntegers()
{
    QFETCH(QByteArray, count);
    QFETCH(bool, success);
    PLYReader reader(PLYReader::MeshMode);
    QByteArray const vertices = support::PLYBody().f32({0, 0, 0, 1, 0, 0, 0, 1, 0}).bytes;
    QCOMPARE(reader.read(headerWith("element vertex 3", "element vertex " + count) + vertices, never),
             success);
    QCOMPARE(reader.read(headerWith("element face 1", "element face " + count) + vertices, never), success);
    // The count of another element is not even looked at.
    QVERIFY(readsTriangle(headerWith("end_header", "element edge " + count + "\nend_header")));
}

void tst_PLYReaderHeader::lastFormatCounts()
{
    QVERIFY(readsTriangle(headerWith("end_header", "format binary_little_endian 1.0\nend_header")
                              .replace("ply\nformat binary_little", "ply\nformat binary_big")));
}

QTEST_GUILESS_MAIN(tst_PLYReaderHeader)
#include "tst_PLYReaderHeader.moc"
