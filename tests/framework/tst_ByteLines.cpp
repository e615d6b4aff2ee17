#include "framework/ByteLines.h"
#include "support/Devices.h"

#include <QBuffer>
#include <QTextStream>
#include <QtTest>

using text::ByteLines;

namespace {

QByteArrayList linesOf(QIODevice& device)
{
    QByteArrayList lines;
    ByteLines reader(device);
    for (; reader.fetch(); reader.goBehind(reader.line()))
        lines << reader.line().toByteArray();
    return lines;
}

// Promises more than it holds, and hands out what it holds in pieces with nothing in between.
class LyingDevice : public support::SequentialDevice
{
public:
    using SequentialDevice::SequentialDevice;
    qint64 size() const override { return qint64(1) << 40; }
    qint64 bytesAvailable() const override { return size(); }
    bool atEnd() const override { return false; }
};

class BrokenDevice : public QIODevice
{
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(char const*, qint64) override { return -1; }
};

} // namespace

class tst_ByteLines : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void longestLine() { QCOMPARE(text::longestLine, 4194304); }

    void cutsLinesAsATextStreamDoes_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("a line feed") << QByteArray("\n");
        QTest::newRow("two line feeds") << QByteArray("\n\n");
        QTest::newRow("no line end") << QByteArray("a");
        QTest::newRow("line feeds") << QByteArray("a\nbc\n\nx\n");
        QTest::newRow("carriage returns with line feeds") << QByteArray("a\r\nbc\r\n\r\nx\r\n");
        QTest::newRow("a carriage return too many") << QByteArray("a\r\r\nb\r\r\n");
        QTest::newRow("carriage returns within a line") << QByteArray("a\rb\r\rc\nx\r");
        QTest::newRow("a carriage return") << QByteArray("\r");
        QTest::newRow("two carriage returns") << QByteArray("\r\r");
        QTest::newRow("a carriage return at the end") << QByteArray("a\nb\r");
        QTest::newRow("a line feed before a carriage return") << QByteArray("a\n\rb\n");
        QTest::newRow("nul") << QByteArray("a\0b\n\0", 5);
        QTest::newRow("longer than a block") << QByteArray(700000, 'x') + "\nb\n" + QByteArray(300000, 'y');
        QTest::newRow("exactly a block") << QByteArray(262144, 'x');
        QTest::newRow("exactly a block with its line feed") << QByteArray(262143, 'x') + '\n';
        QTest::newRow("a line feed behind a block") << QByteArray(262144, 'x') + '\n';
        QTest::newRow("a line end across the block") << QByteArray(262143, 'x') + "\r\ny\r\n";
    }

    void cutsLinesAsATextStreamDoes()
    {
        QFETCH(QByteArray, bytes);
        QByteArrayList expected;
        QTextStream stream(bytes);
        for (QString line = stream.readLine(); !line.isNull(); line = stream.readLine())
            expected << line.toLatin1();

        QBuffer buffer(&bytes);
        QVERIFY(buffer.open(QIODevice::ReadOnly));
        QCOMPARE(linesOf(buffer), expected);
        support::TrickleDevice trickle(bytes, bytes.size() > 1000 ? 4001 : 1);
        QVERIFY(trickle.open(QIODevice::ReadOnly));
        QCOMPARE(linesOf(trickle), expected);
        LyingDevice liar(bytes);
        QVERIFY(liar.open(QIODevice::ReadOnly));
        QCOMPARE(linesOf(liar), expected);
    }

    void endsWhereADeviceFails()
    {
        BrokenDevice device;
        QVERIFY(device.open(QIODevice::ReadOnly));
        QCOMPARE(linesOf(device), QByteArrayList());
    }

    void goesWhereItIsTold()
    {
        QByteArray bytes = "first\nsecond\nthird";
        QBuffer buffer(&bytes);
        QVERIFY(buffer.open(QIODevice::ReadOnly));
        ByteLines lines(buffer);
        QVERIFY(lines.fetch());
        lines.goTo(lines.text() + qstrlen("first\n"));
        QVERIFY(lines.fetch());
        QCOMPARE(lines.line().toByteArray(), QByteArray("second"));
        lines.goBehind(lines.line());
        QVERIFY(lines.fetch());
        QCOMPARE(lines.line().toByteArray(), QByteArray("third"));
        QCOMPARE(lines.text()[5], '\n'); // though the data has none
        lines.goBehind(lines.line());
        QVERIFY(!lines.fetch());
        QVERIFY(!lines.fetch());
    }
};

QTEST_APPLESS_MAIN(tst_ByteLines)
#include "tst_ByteLines.moc"
