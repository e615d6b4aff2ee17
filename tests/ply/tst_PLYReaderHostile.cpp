#include "ply/PLYReader.h"
#include "support/Devices.h"
#include "support/PlyFiles.h"

#include <QTest>

using support::plyHeader;
using support::plyPosition;
using support::plyTriangle;

namespace {

std::atomic<bool> const never = false;

QByteArrayList const noBytes = {"property ushort shininess", "property char shininess",
                                "property list shininess"};

// Says that it is larger than it is and never at its end. What it gives when it has nothing left is `last`.
class LyingDevice : public QIODevice
{
public:
    LyingDevice(QByteArray bytes_, qint64 last_)
        : bytes(std::move(bytes_))
        , last(last_)
    {}

    qint64 size() const override { return qint64(1) << 40; }
    bool atEnd() const override { return false; }

protected:
    qint64 readData(char* target, qint64 maxSize) override
    {
        qint64 const count = std::min<qint64>(maxSize, bytes.size() - pos());
        if (count <= 0)
            return last;
        std::memcpy(target, bytes.constData() + pos(), static_cast<std::size_t>(count));
        return count;
    }
    qint64 writeData(char const*, qint64) override { return -1; }

private:
    QByteArray bytes;
    qint64 last;
};

// A header that never ends: zeros, made as they are asked for.
class EndlessDevice : public QIODevice
{
public:
    bool isSequential() const override { return true; }
    qint64 given = 0;

protected:
    qint64 readData(char* target, qint64 maxSize) override
    {
        std::memset(target, 0, static_cast<std::size_t>(maxSize));
        given += maxSize;
        return maxSize;
    }
    qint64 writeData(char const*, qint64) override { return -1; }
};

} // namespace

class tst_PLYReaderHostile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void countsBeyondTheBody();
    void rowsOfNoBytes_data();
    void rowsOfNoBytes();
    void rowsOfNoBytesInAnEmptyBody();
    void facesOfNoBytes();
    void colorlessFacesOfNoBytes();
    void manyPropertiesOfNoBytes();
    void devicesThatNeverEnd_data();
    void devicesThatNeverEnd();
    void linesThatNeverEnd();
    void longLines();
};

void tst_PLYReaderHostile::countsBeyondTheBody()
{
    QByteArray const file = plyHeader(2000000000, plyPosition, 2000000000) + QByteArray(40, '\0');
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(reader.read(file, never));
    QCOMPARE(reader.getMesh().vertices.size(), 4);
    QVERIFY(reader.getMesh().vertices.capacity() < 100);
    QVERIFY(reader.getMesh().indices.isEmpty());
    PLYReader cloudReader(PLYReader::PointCloudMode);
    QVERIFY(cloudReader.read(file, never));
    QCOMPARE(cloudReader.getPointCloud().positions.size(), 4);
}

void tst_PLYReaderHostile::rowsOfNoBytes_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("bytes");
    QTest::addColumn<bool>("success");
    QTest::newRow("few rows") << 10 << 1 << true;
    QTest::newRow("as many as any file may have") << 1024 << 1 << true;
    QTest::newRow("one more") << 1025 << 1 << false;
    QTest::newRow("a byte for each") << 100000 << 100000 << true;
    QTest::newRow("two bytes for each, as written") << 100000 << 200000 << true;
    QTest::newRow("a byte short") << 100000 << 99999 << false;
    QTest::newRow("largest count") << 2147483647 << 40 << false;
    QTest::newRow("no rows") << 0 << 40 << true;
    QTest::newRow("less than none") << -1 << 40 << true;
}

void tst_PLYReaderHostile::rowsOfNoBytes()
{
    QFETCH(int, rows);
    QFETCH(int, bytes);
    QFETCH(bool, success);
    QByteArray const file = plyHeader(rows, noBytes, 0) + QByteArray(bytes, '\1');
    support::SequentialDevice sequential(file);
    PLYReader reader(PLYReader::PointCloudMode);
    QCOMPARE(reader.read(file, never), success);
    QCOMPARE(reader.getPointCloud().positions, QList<QVector3D>(success ? std::max(rows, 0) : 0));
    PLYReader again(PLYReader::PointCloudMode);
    QCOMPARE(again.read(&sequential, never), success);
    QCOMPARE(again.getPointCloud().positions, reader.getPointCloud().positions);
}

void tst_PLYReaderHostile::rowsOfNoBytesInAnEmptyBody()
{
    PLYReader reader(PLYReader::PointCloudMode);
    QVERIFY(reader.read(plyHeader(2147483647, noBytes, 0), never));
    QVERIFY(reader.getPointCloud().positions.isEmpty());
}

void tst_PLYReaderHostile::facesOfNoBytes()
{
    QByteArray const vertices = QByteArray(36, '\0');
    auto const fileOf = [&](int faces, QByteArray const& rest) {
        return plyHeader(3, plyPosition, faces)
                   .replace("property list uchar int vertex_indices", "property ushort shininess") +
               vertices + rest;
    };
    PLYReader reader(PLYReader::MeshMode);
    reader.activeFaceColorMode(true);
    QVERIFY(reader.read(fileOf(5, "\1"), never));
    QCOMPARE(reader.getFaceColors(), QList<QColor>(5));
    QVERIFY(reader.getMesh().indices.isEmpty());
    QVERIFY(reader.read(fileOf(2000, QByteArray(2000, '\1')), never));
    QCOMPARE(reader.getFaceColors(), QList<QColor>(2000));
    QVERIFY(reader.read(fileOf(2147483647, {}), never));
    QVERIFY(reader.getFaceColors().isEmpty());
    QVERIFY(!reader.read(fileOf(2147483647, QByteArray(40, '\1')), never));
    QVERIFY(reader.getFaceColors().isEmpty());
}

// Two thousand million rows that leave no trace are no rows.
void tst_PLYReaderHostile::colorlessFacesOfNoBytes()
{
    for (char const* const line : {"property ushort shininess", "comment none"}) {
        QByteArray const file =
            plyHeader(3, plyPosition, 2147483647).replace("property list uchar int vertex_indices", line) +
            QByteArray(40, '\0');
        PLYReader reader(PLYReader::MeshMode);
        QVERIFY(reader.read(file, never));
        QCOMPARE(reader.getMesh().vertices.size(), 3);
        QVERIFY(reader.getMesh().indices.isEmpty());
        std::atomic<bool> const cancel = true;
        QVERIFY(!reader.read(file, cancel));
    }
}

// The header's lines times the body's rows are far more than either.
void tst_PLYReaderHostile::manyPropertiesOfNoBytes()
{
    QByteArrayList const properties = QByteArrayList(100000, noBytes[0]) + QByteArrayList{"property uchar x"};
    PLYReader reader(PLYReader::PointCloudMode);
    QVERIFY(reader.read(plyHeader(2000000, properties, 0) + QByteArray(1000000, '\1'), never));
    QCOMPARE(reader.getPointCloud().positions, QList<QVector3D>(1000000, QVector3D(1, 0, 0)));
}

void tst_PLYReaderHostile::devicesThatNeverEnd_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("vertices");
    QTest::addColumn<int>("indices");
    QTest::addColumn<bool>("success");
    QTest::newRow("nothing") << QByteArray() << 0 << 0 << false;
    QTest::newRow("half a header") << QByteArray("ply\nformat binary_little_endian 1.0\nelem") << 0 << 0
                                   << false;
    QTest::newRow("comments") << QByteArray("ply\ncomment\n\n") << 0 << 0 << false;
    QByteArray const header = plyHeader(2000000000, plyPosition, 2000000000);
    QTest::newRow("a header") << header << 0 << 0 << true;
    QTest::newRow("two vertices") << header + QByteArray(24, '\0') << 2 << 0 << true;
    QTest::newRow("two and a half") << header + QByteArray(30, '\0') << 3 << 0 << true;
    QTest::newRow("a triangle") << plyTriangle().replace("face 1", "face 2000000000") << 3 << 4 << true;
}

void tst_PLYReaderHostile::devicesThatNeverEnd()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, vertices);
    QFETCH(int, indices);
    QFETCH(bool, success);
    for (qint64 const last : {0, -1})
        for (QIODevice::OpenMode const mode :
             {QIODevice::OpenMode(QIODevice::ReadOnly), QIODevice::ReadOnly | QIODevice::Unbuffered}) {
            LyingDevice device(bytes, last);
            QVERIFY(device.open(mode));
            PLYReader reader(PLYReader::MeshMode);
            QCOMPARE(reader.read(&device, never), success);
            QCOMPARE(reader.getMesh().vertices.size(), vertices);
            QCOMPARE(reader.getMesh().indices.size(), indices);
        }
}

void tst_PLYReaderHostile::linesThatNeverEnd()
{
    EndlessDevice device;
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(!reader.read(&device, never));
    QVERIFY(device.given < 5 * 1024 * 1024);
}

// A comment is skipped however long it is, but not for ever.
void tst_PLYReaderHostile::longLines()
{
    constexpr qsizetype longest = 4 * 1024 * 1024 - 1;
    QByteArray const comment = "comment ";
    for (bool const isTooLong : {false, true}) {
        QByteArray const line =
            comment + QByteArray(longest - comment.size() + (isTooLong ? 1 : 0), 'x') + '\n';
        PLYReader reader(PLYReader::MeshMode);
        QCOMPARE(reader.read(plyTriangle().replace(0, 4, "ply\n" + line + line), never), !isTooLong);
        QCOMPARE(reader.getMesh().vertices.size(), isTooLong ? 0 : 3);
    }
}

QTEST_GUILESS_MAIN(tst_PLYReaderHostile)
#include "tst_PLYReaderHostile.moc"
