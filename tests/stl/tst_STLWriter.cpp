#include "framework/ScanMetadata.h"
#include "inhouse/data/Unstrip.h"
#include "stl/STLWriter.h"
#include "support/Meshes.h"
#include "support/PrivateAccess.h"
#include "support/StlFiles.h"

#include <QDataStream>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <limits>
#include <type_traits>

static_assert(std::has_virtual_destructor_v<STLWriter> && std::is_copy_constructible_v<STLWriter> &&
              std::is_copy_assignable_v<STLWriter>);

namespace support {

struct WriteData
{
    using Member = bool (STLWriter::*)(QDataStream&);
    friend Member privateMember(WriteData);
};

template struct PrivateMember<WriteData, &STLWriter::writeData>;

struct WriteFace
{
    using Member = void (STLWriter::*)(QVector3D const&, QVector3D const&, QVector3D const&,
                                       QDataStream&) const;
    friend Member privateMember(WriteFace);
};

template struct PrivateMember<WriteFace, &STLWriter::writeFace>;

} // namespace support

namespace {

geometry::Mesh triangle()
{
    return {{{0, 0, 0}, {2, 0, 0}, {0, 3, 0}}, {0, 1, 2, -1}};
}

// More than fit four blocks, some of them without area or with corners that are no points.
geometry::Mesh manyTriangles()
{
    constexpr float infinity = std::numeric_limits<float>::infinity();
    geometry::Mesh mesh;
    for (int i = 0; i < 5000; ++i)
        mesh.vertices << QVector3D(static_cast<float>(i % 71), static_cast<float>(i * i % 97) / 3.0f,
                                   static_cast<float>(i % 13) * 0.001f);
    mesh.vertices << QVector3D(infinity, 0, 0) << QVector3D(0, std::numeric_limits<float>::quiet_NaN(), 1)
                  << QVector3D(-0.0f, 1e-30f, 3e38f);
    for (int i = 0; i < 43'210; ++i)
        mesh.indices << i % 5003 << i * 7 % 5003 << i * 11 % 5003 << -1;
    return mesh;
}

QByteArray written(geometry::Mesh const& mesh, unsigned char first = 0, unsigned char second = 0)
{
    STLWriter writer;
    writer.setData(mesh, first, second);
    QByteArray bytes;
    writer.write(bytes);
    return bytes;
}

QVector3D vectorAt(QByteArray const& bytes, qsizetype offset)
{
    QDataStream stream(bytes.mid(offset, 12));
    stream.setByteOrder(QDataStream::LittleEndian);
    stream.setFloatingPointPrecision(QDataStream::SinglePrecision);
    QVector3D result;
    stream >> result[0] >> result[1] >> result[2];
    return result;
}

QByteArray contentOf(QString const& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

// Takes `room` bytes, then no more, as a full disk does.
class FullDevice : public QIODevice
{
public:
    explicit FullDevice(qint64 room_)
        : room(room_)
    {}

    QByteArray bytes;

protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(char const* source, qint64 size) override
    {
        qint64 const count = std::min(size, room - bytes.size());
        bytes.append(source, count);
        return count == 0 && size > 0 ? -1 : count;
    }

private:
    qint64 room;
};

QString const emptyMeshMessage = QStringLiteral("Member variable(s) not set.");
QString const writeFailedMessage = QStringLiteral("Writing failed!");

} // namespace

class tst_STLWriter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void oneTriangle();
    void facetsInOrder();
    void stripsAreExpanded();
    void normal_data();
    void normal();
    void meshNormalsAreNotUsed();
    void coordinatesAreExact();
    void header();
    void headerCanBeCleared();
    void verticesWithoutTriangles();
    void emptyMesh();
    void indexOutside_data();
    void indexOutside();
    void longerArrayKeepsItsEnd();
    void file();
    void directoriesAreMade();
    void existingFileIsReplaced();
    void fileThatCannotBeMade_data();
    void fileThatCannotBeMade();
    void removedBeforeOpening();
    void emptyMeshLeavesTheStart();
    void fullDevice_data();
    void fullDevice();
    void fullDeviceInBlocks_data();
    void fullDeviceInBlocks();
    void fullDisk();
    void blocksAreFaces();
    void messageStays();
    void copies();
};

void tst_STLWriter::oneTriangle()
{
    QByteArray const bytes = written(triangle(), 7, 2);
    QByteArray expected = support::binaryStl({{{0, 0, 0}, {2, 0, 0}, {0, 3, 0}, 7, 2}});
    QByteArray const up = QByteArray::fromHex("00000000"
                                              "00000000"
                                              "0000803f");
    expected.replace(84, 12, up);
    QCOMPARE(bytes.toHex(), expected.toHex());
    QCOMPARE(bytes.size(), 134);
    QCOMPARE(bytes.first(80), QByteArray(80, '\0'));
    QCOMPARE(bytes.mid(80, 4).toHex(), QByteArray("01000000"));
    QCOMPARE(bytes.last(2).toHex(), QByteArray("0702"));
}

void tst_STLWriter::facetsInOrder()
{
    geometry::Mesh const cube = support::cube();
    QByteArray const bytes = written(cube, 0xFF, 0x80);
    QCOMPARE(bytes.size(), 84 + 50 * 12);
    QCOMPARE(bytes.mid(80, 4).toHex(), QByteArray("0c000000"));
    QList<QVector3D> const corners = support::cornersOf(cube);
    for (qsizetype facet = 0; facet < 12; ++facet) {
        for (qsizetype corner = 0; corner < 3; ++corner)
            QCOMPARE(vectorAt(bytes, 96 + 50 * facet + 12 * corner), corners[3 * facet + corner]);
        QCOMPARE(bytes.mid(132 + 50 * facet, 2).toHex(), QByteArray("ff80"));
    }
}

void tst_STLWriter::stripsAreExpanded()
{
    geometry::Mesh const strip({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {1, 1, 0}, {5, 5, 5}},
                               {0, 1, 2, 3, -1, 4, 4});
    QByteArray const bytes = written(strip, 1, 1);
    QCOMPARE(bytes, written(geometry::unstrip(strip), 1, 1));
    QCOMPARE(bytes.size(), 84 + 50 * 2);
    QCOMPARE(vectorAt(bytes, 84), QVector3D(0, 0, 1));
    QCOMPARE(vectorAt(bytes, 134), QVector3D(0, 0, 1));
}

void tst_STLWriter::normal_data()
{
    QTest::addColumn<QVector3D>("p2");
    QTest::addColumn<QVector3D>("p3");
    QTest::addColumn<QVector3D>("expected");
    QTest::newRow("anticlockwise") << QVector3D(2, 0, 0) << QVector3D(0, 3, 0) << QVector3D(0, 0, 1);
    QTest::newRow("clockwise") << QVector3D(0, 3, 0) << QVector3D(2, 0, 0) << QVector3D(0, 0, -1);
    QTest::newRow("slanted") << QVector3D(0, 4, 3) << QVector3D(1, 0, 0) << QVector3D(0, 0.6f, -0.8f);
    QTest::newRow("three equal corners") << QVector3D() << QVector3D() << QVector3D();
    QTest::newRow("two equal corners") << QVector3D(1, 2, 3) << QVector3D(1, 2, 3) << QVector3D();
    QTest::newRow("collinear") << QVector3D(1, 1, 1) << QVector3D(2, 2, 2) << QVector3D();
    QTest::newRow("area below a hundred-thousandth")
        << QVector3D(0.003f, 0, 0) << QVector3D(0, 0.003f, 0) << QVector3D();
    QTest::newRow("area of nearly one")
        << QVector3D(1.000004f, 0, 0) << QVector3D(0, 1, 0) << QVector3D(0, 0, 1.000004f);
}

void tst_STLWriter::normal()
{
    QFETCH(QVector3D, p2);
    QFETCH(QVector3D, p3);
    QFETCH(QVector3D, expected);
    QByteArray const bytes = written(geometry::Mesh({{0, 0, 0}, p2, p3}, {0, 1, 2, -1}));
    QCOMPARE(bytes.size(), 134);
    QVector3D const found = vectorAt(bytes, 84);
    QCOMPARE(found, QVector3D::normal({0, 0, 0}, p2, p3));
    QVERIFY2(
        (found - expected).length() < 1e-6f,
        qPrintable(
            QStringLiteral("%1 %2 %3").arg(double(found.x())).arg(double(found.y())).arg(double(found.z()))));
}

void tst_STLWriter::meshNormalsAreNotUsed()
{
    geometry::Mesh mesh = triangle();
    QByteArray const bytes = written(mesh);
    mesh.normals = {{1, 0, 0}, {1, 0, 0}, {1, 0, 0}};
    mesh.colors = {1u, 2u, 3u};
    mesh.textureCoordinates = {{0, 0}, {0, 1}, {1, 0}};
    QCOMPARE(written(mesh), bytes);
}

void tst_STLWriter::coordinatesAreExact()
{
    constexpr float infinity = std::numeric_limits<float>::infinity();
    QList<QVector3D> const corners = {{0.1f, -0.0f, 1.40129846e-45f},
                                      {3.40282347e+38f, -infinity, std::numeric_limits<float>::quiet_NaN()},
                                      {1.0f / 3.0f, 16777217.0f, -1.17549435e-38f}};
    QByteArray const bytes = written(geometry::Mesh(corners, {2, 0, 1, -1}));
    QCOMPARE(bytes.mid(96, 12), support::bytesOf(QList<QVector3D>({corners[2]})));
    QCOMPARE(bytes.mid(108, 12), support::bytesOf(QList<QVector3D>({corners[0]})));
    QCOMPARE(bytes.mid(120, 12), support::bytesOf(QList<QVector3D>({corners[1]})));
}

void tst_STLWriter::header()
{
    MeshHeader const header(QStringLiteral("Scan Pro 3"), QStringLiteral("S/N 1"), true,
                            QStringLiteral("1.2"), QDateTime(QDate(2024, 2, 29), QTime(1, 2)));
    STLWriter writer;
    writer.setData(triangle(), 0, 0);
    writer.setHeaderData(header);
    QByteArray bytes;
    QVERIFY(writer.write(bytes));
    QCOMPARE(bytes.first(80), conversions::toByteArray(header));
    QCOMPARE(bytes.mid(80), written(triangle()).mid(80));
}

void tst_STLWriter::headerCanBeCleared()
{
    STLWriter writer;
    writer.setData(triangle(), 0, 0);
    writer.setHeaderData(MeshHeader());
    writer.setHeaderData({});
    QByteArray bytes;
    QVERIFY(writer.write(bytes));
    QCOMPARE(bytes, written(triangle()));
}

void tst_STLWriter::verticesWithoutTriangles()
{
    STLWriter writer;
    writer.setData(geometry::Mesh({{1, 2, 3}}, {}), 0, 0);
    QByteArray bytes;
    QVERIFY(writer.write(bytes));
    QCOMPARE(bytes, QByteArray(84, '\0'));
    QCOMPARE(writer.getErrorMessage(), QString());
}

void tst_STLWriter::emptyMesh()
{
    STLWriter writer;
    QByteArray bytes;
    QVERIFY(!writer.write(bytes));
    QCOMPARE(bytes, QByteArray(84, '\0'));
    QCOMPARE(writer.getErrorMessage(), emptyMeshMessage);

    // The count comes before the look at the vertices.
    writer.setData(geometry::Mesh({}, {0, 1, 2, -1, 0, 1, 2, -1}), 0, 0);
    writer.setHeaderData(MeshHeader());
    bytes.clear();
    QVERIFY(!writer.write(bytes));
    QCOMPARE(bytes, conversions::toByteArray(MeshHeader()) + QByteArray::fromHex("02000000"));
    QCOMPARE(writer.getErrorMessage(), emptyMeshMessage);
}

void tst_STLWriter::indexOutside_data()
{
    QTest::addColumn<QList<int>>("indices");
    QTest::addColumn<int>("facetsWritten");
    constexpr int most = std::numeric_limits<int>::max();
    constexpr int least = std::numeric_limits<int>::min();
    QTest::newRow("one past the end") << QList<int>{0, 1, 3, -1} << 0;
    QTest::newRow("first corner") << QList<int>{3, 1, 2, -1} << 0;
    QTest::newRow("second corner") << QList<int>{0, 3, 2, -1} << 0;
    QTest::newRow("largest") << QList<int>{0, 1, most, -1} << 0;
    QTest::newRow("below the marker") << QList<int>{0, -2, 2, -1} << 0;
    QTest::newRow("smallest") << QList<int>{least, 1, 2, -1} << 0;
    QTest::newRow("second facet") << QList<int>{0, 1, 2, -1, 0, 1, 9, -1, 0, 1, 2, -1} << 1;
}

void tst_STLWriter::indexOutside()
{
    QFETCH(QList<int>, indices);
    QFETCH(int, facetsWritten);
    geometry::Mesh mesh = triangle();
    mesh.indices = indices;
    STLWriter writer;
    writer.setData(mesh, 0, 0);
    QByteArray bytes;
    QVERIFY(!writer.write(bytes));
    QCOMPARE(writer.getErrorMessage(), writeFailedMessage);
    QCOMPARE(bytes.size(), 84 + 50 * facetsWritten);
}

void tst_STLWriter::longerArrayKeepsItsEnd()
{
    STLWriter writer;
    writer.setData(triangle(), 0, 0);
    QByteArray bytes(200, 'x');
    QVERIFY(writer.write(bytes));
    QCOMPARE(bytes, written(triangle()) + QByteArray(66, 'x'));
}

void tst_STLWriter::file()
{
    QTemporaryDir const directory;
    STLWriter writer;
    writer.setData(support::cube(), 3, 4);
    writer.setFilePath(directory.filePath(QStringLiteral("cube.stl")));
    QVERIFY(writer.write());
    QCOMPARE(contentOf(directory.filePath(QStringLiteral("cube.stl"))), written(support::cube(), 3, 4));
    QCOMPARE(writer.getErrorMessage(), QString());
}

void tst_STLWriter::directoriesAreMade()
{
    QTemporaryDir const directory;
    QString const path = directory.filePath(QStringLiteral("a/b c/d\u00e4/mesh"));
    STLWriter writer;
    writer.setData(triangle(), 0, 0);
    writer.setFilePath(path);
    QVERIFY(writer.write());
    QCOMPARE(contentOf(path), written(triangle()));
}

void tst_STLWriter::existingFileIsReplaced()
{
    QTemporaryDir const directory;
    QString const path = directory.filePath(QStringLiteral("mesh.stl"));
    STLWriter writer;
    writer.setFilePath(path);
    writer.setData(support::cube(), 0, 0);
    QVERIFY(writer.write());
    writer.setData(triangle(), 0, 0);
    QVERIFY(writer.write());
    QCOMPARE(contentOf(path), written(triangle()));
}

void tst_STLWriter::fileThatCannotBeMade_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("a directory") << QStringLiteral("folder");
    QTest::newRow("below a file") << QStringLiteral("plain/mesh.stl");
    QTest::newRow("a name with a place marker") << QStringLiteral("plain/%1%2.stl");
}

void tst_STLWriter::fileThatCannotBeMade()
{
    QFETCH(QString, name);
    QTemporaryDir const directory;
    QVERIFY(QDir(directory.path()).mkdir(QStringLiteral("folder")));
    QFile plain(directory.filePath(QStringLiteral("plain")));
    QVERIFY(plain.open(QIODevice::WriteOnly));
    plain.close();

    STLWriter writer;
    writer.setData(triangle(), 0, 0);
    writer.setFilePath(directory.filePath(name));
    QVERIFY(!writer.write());
    QCOMPARE(writer.getErrorMessage(),
             QStringLiteral("Unable to create .stl file at location: ") + directory.filePath(name));

    writer.setFilePath({});
    QVERIFY(!writer.write());
    QCOMPARE(writer.getErrorMessage(), QStringLiteral("Unable to create .stl file at location: "));
}

// What was at the path is gone before it is known whether a new file can be made.
void tst_STLWriter::removedBeforeOpening()
{
    QTemporaryDir const directory;
    QString const target = directory.filePath(QStringLiteral("old"));
    QString const path = directory.filePath(QStringLiteral("mesh.stl"));
    QFile file(target);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("old") == 3);
    file.close();
    QVERIFY(file.link(path));

    STLWriter writer;
    writer.setData(triangle(), 0, 0);
    writer.setFilePath(path);
    QVERIFY(writer.write());
    QCOMPARE(contentOf(target), QByteArray("old"));
    QCOMPARE(contentOf(path), written(triangle()));
}

void tst_STLWriter::emptyMeshLeavesTheStart()
{
    QTemporaryDir const directory;
    QString const path = directory.filePath(QStringLiteral("mesh.stl"));
    STLWriter writer;
    writer.setFilePath(path);
    QVERIFY(!writer.write());
    QCOMPARE(writer.getErrorMessage(), emptyMeshMessage);
    QCOMPARE(contentOf(path), QByteArray(84, '\0'));
}

void tst_STLWriter::fullDevice_data()
{
    QTest::addColumn<int>("room");
    for (int const room : {0, 1, 79, 80, 83, 84, 90, 100, 131, 132, 133})
        QTest::addRow("%d bytes", room) << room;
}

void tst_STLWriter::fullDevice()
{
    QFETCH(int, room);
    FullDevice device(room);
    QVERIFY(device.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    QDataStream stream(&device);
    STLWriter writer;
    writer.setData(triangle(), 0, 0);
    QVERIFY(!(writer.*privateMember(support::WriteData()))(stream));
    QCOMPARE(writer.getErrorMessage(), writeFailedMessage);
    QCOMPARE(device.bytes, written(triangle()).first(room));
}

void tst_STLWriter::fullDeviceInBlocks_data()
{
    QTest::addColumn<int>("room");
    for (int const room : {84, 524'287, 524'288, 524'289, 1'000'000, 1'999'999})
        QTest::addRow("%d bytes", room) << room;
}

void tst_STLWriter::fullDeviceInBlocks()
{
    QFETCH(int, room);
    STLWriter writer;
    writer.setData(manyTriangles(), 1, 2);
    QByteArray whole;
    QVERIFY(writer.write(whole));
    FullDevice device(room);
    QVERIFY(device.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    QDataStream stream(&device);
    QVERIFY(!(writer.*privateMember(support::WriteData()))(stream));
    QCOMPARE(writer.getErrorMessage(), writeFailedMessage);
    QVERIFY(device.bytes == whole.first(room));
}

// Facets go out by the block; each is what writing it alone gives, whatever its corners are.
void tst_STLWriter::blocksAreFaces()
{
    geometry::Mesh const mesh = manyTriangles();
    STLWriter writer;
    writer.setData(mesh, 3, 200);
    QByteArray bytes;
    QVERIFY(writer.write(bytes));
    QByteArray expected;
    QDataStream stream(&expected, QIODevice::WriteOnly);
    for (qsizetype i = 0; i < mesh.indices.size(); i += 4)
        (writer.*privateMember(support::WriteFace()))(mesh.vertices[mesh.indices[i]],
                                                      mesh.vertices[mesh.indices[i + 1]],
                                                      mesh.vertices[mesh.indices[i + 2]], stream);
    QCOMPARE(expected.size(), 50 * mesh.indices.size() / 4);
    QVERIFY(bytes.mid(84) == expected);
}

void tst_STLWriter::fullDisk()
{
    QFile full(QStringLiteral("/dev/full"));
    if (!full.open(QIODevice::WriteOnly))
        QSKIP("no /dev/full here");
    QDataStream stream(&full);
    STLWriter writer;
    writer.setData(triangle(), 0, 0);
    QVERIFY(!(writer.*privateMember(support::WriteData()))(stream));
    QCOMPARE(writer.getErrorMessage(), writeFailedMessage);
}

void tst_STLWriter::messageStays()
{
    STLWriter writer;
    QCOMPARE(writer.getErrorMessage(), QString());
    QByteArray bytes;
    QVERIFY(!writer.write(bytes));
    writer.setData(triangle(), 0, 0);
    QVERIFY(writer.write(bytes));
    QCOMPARE(writer.getErrorMessage(), emptyMeshMessage);
    writer.setFilePath({});
    QVERIFY(!writer.write());
    QCOMPARE(writer.getErrorMessage(), QStringLiteral("Unable to create .stl file at location: "));
}

void tst_STLWriter::copies()
{
    QTemporaryDir const directory;
    STLWriter writer;
    writer.setData(triangle(), 8, 9);
    writer.setHeaderData(MeshHeader());
    writer.setFilePath(directory.filePath(QStringLiteral("mesh.stl")));
    QVERIFY(writer.write());

    STLWriter const original = writer;
    STLWriter assigned;
    QByteArray bytes;
    QVERIFY(!assigned.write(bytes));
    assigned = original;
    writer.setData({}, 0, 0);
    for (STLWriter copy : {original, assigned}) {
        QFile::remove(directory.filePath(QStringLiteral("mesh.stl")));
        QVERIFY(copy.write());
        bytes.clear();
        QVERIFY(copy.write(bytes));
        QCOMPARE(contentOf(directory.filePath(QStringLiteral("mesh.stl"))), bytes);
        QCOMPARE(bytes.first(80), conversions::toByteArray(MeshHeader()));
        QCOMPARE(bytes.last(2).toHex(), QByteArray("0809"));
        QCOMPARE(copy.getErrorMessage(), QString());
    }
}

QTEST_GUILESS_MAIN(tst_STLWriter)
#include "tst_STLWriter.moc"
