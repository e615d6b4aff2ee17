#include "framework/RowBlocks.h"

#include <QBuffer>
#include <QTest>

#include <algorithm>

namespace {

// Remembers how long each write was; takes `capacity` bytes in all.
class Recorder : public QIODevice
{
public:
    qint64 capacity = std::numeric_limits<qint64>::max();
    QByteArray bytes;
    QList<qint64> ends;

protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(char const* source, qint64 size) override
    {
        qint64 const count = std::min(size, capacity - bytes.size());
        bytes.append(source, count);
        ends << bytes.size();
        return count == 0 && size > 0 ? -1 : count;
    }
};

// Puts `count` rows of `rowBytes`, no two alike, and appends them to `expected`.
bool writeRows(RowBlocks& blocks, qsizetype rowBytes, qsizetype count, QByteArray& expected)
{
    return blocks.putRows(count, rowBytes, [&](qsizetype first, qsizetype rows, char* target) {
        if (rows < 1 || first + rows > count)
            qFatal("rows %lld to %lld of %lld", qint64(first), qint64(first + rows), qint64(count));
        for (qsizetype i = 0; i < rows * rowBytes; ++i)
            target[i] = static_cast<char>((first * rowBytes + i) * 31 >> 3);
        expected.append(target, rows * rowBytes);
    });
}

} // namespace

class tst_RowBlocks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rows_data();
    void rows();
    void nothing();
    void fullDevice_data();
    void fullDevice();
};

void tst_RowBlocks::rows_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("rowBytes");
    QTest::addColumn<int>("count");
    constexpr int block = RowBlocks::blockBytes;
    QTest::newRow("one") << 0 << 50 << 1;
    QTest::newRow("one block") << 0 << 64 << block / 64;
    QTest::newRow("one block less a row") << 0 << 64 << block / 64 - 1;
    QTest::newRow("crooked rows") << 0 << 50 << 3 * block / 50;
    QTest::newRow("crooked start") << 84 << 50 << 3 * block / 50;
    QTest::newRow("a byte before the end of a block") << block - 1 << 13 << 2 * block / 13;
    QTest::newRow("behind the first block") << block + 7 << 27 << block / 27;
    QTest::newRow("bytes") << 3 << 1 << block + 5;
}

void tst_RowBlocks::rows()
{
    QFETCH(int, start);
    QFETCH(int, rowBytes);
    QFETCH(int, count);
    Recorder device;
    QVERIFY(device.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    QByteArray expected(start, 's');
    QCOMPARE(device.write(expected), start);
    device.ends.clear();

    QDataStream stream(&device);
    RowBlocks blocks(stream, rowBytes);
    QVERIFY(writeRows(blocks, rowBytes, count, expected));
    qsizetype const wholeBlocks = device.ends.size();
    QVERIFY(blocks.write());
    QVERIFY(device.bytes == expected);
    for (qsizetype i = 0; i < wholeBlocks; ++i)
        QCOMPARE(device.ends[i], (start / RowBlocks::blockBytes + 1 + i) * RowBlocks::blockBytes);
    QCOMPARE(wholeBlocks, expected.size() / RowBlocks::blockBytes - start / RowBlocks::blockBytes);
    QVERIFY(device.ends.size() <= wholeBlocks + 1);
}

void tst_RowBlocks::nothing()
{
    Recorder device;
    QVERIFY(device.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    QDataStream stream(&device);
    RowBlocks blocks(stream, 12);
    QVERIFY(blocks.room().size() >= 12);
    QVERIFY(blocks.write());
    QVERIFY(device.ends.isEmpty());
}

void tst_RowBlocks::fullDevice_data()
{
    QTest::addColumn<qint64>("capacity");
    constexpr qint64 block = RowBlocks::blockBytes;
    for (qint64 const capacity : {qint64(0), qint64(1), block - 1, block, block + 1, 2 * block - 1})
        QTest::addRow("%lld bytes", capacity) << capacity;
}

void tst_RowBlocks::fullDevice()
{
    QFETCH(qint64, capacity);
    Recorder device;
    device.capacity = capacity;
    QVERIFY(device.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    QDataStream stream(&device);
    RowBlocks blocks(stream, 50);
    QByteArray expected;
    QVERIFY(!writeRows(blocks, 50, 2 * RowBlocks::blockBytes / 50 + 1, expected));
    QVERIFY(!blocks.write());
    QCOMPARE(stream.status(), QDataStream::WriteFailed);
    QCOMPARE(device.bytes.size(), capacity);
    QVERIFY(expected.startsWith(device.bytes));
}

QTEST_GUILESS_MAIN(tst_RowBlocks)
#include "tst_RowBlocks.moc"
