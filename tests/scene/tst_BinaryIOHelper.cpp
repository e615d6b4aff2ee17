#include "scene/BinaryIOHelper.h"
#include "support/Devices.h"
#include "support/ShapeTreeBytes.h"

#include <QBuffer>
#include <QDataStream>
#include <QTest>

using support::shapeTreeHeader;

namespace {

std::string const magic = "Magic";

QByteArray const framedMagic("\5\0\0\0Magic", 9);

} // namespace

class tst_BinaryIOHelper : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void writesMagic();
    void writesVersions();
    void readsMagic();
    void refusesOtherMagic_data();
    void refusesOtherMagic();
    void refusesOtherMagicOnSequentialDevices_data();
    void refusesOtherMagicOnSequentialDevices();
    void longMagic();
    void readsVersions_data();
    void readsVersions();
    void readsVersionsFromSlowDevices();
    void numbersCutOffReadAsZero();
    void nothingElseIsAVersion_data();
    void nothingElseIsAVersion();
    void restoresAnyPosition();
    void worksAfterAnEarlierFailure();
};

void tst_BinaryIOHelper::writesMagic()
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    BinaryIOHelper::writeMagicString(stream, magic);
    BinaryIOHelper::writeMagicString(stream, std::string());
    BinaryIOHelper::writeMagicString(stream, std::string("a\0b", 3));
    QCOMPARE(bytes, framedMagic + QByteArray("\0\0\0\0\3\0\0\0a\0b", 11));
}

void tst_BinaryIOHelper::writesVersions()
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    BinaryIOHelper::writeVersion(stream, 3, 1);
    QCOMPARE(bytes, QByteArray("\x26\0\0\0{3D7A9E42-6B1C-4F08-9E35-A2C4D6F81B07}\0\0\0\3\0\0\0\1", 50));
}

void tst_BinaryIOHelper::readsMagic()
{
    QDataStream stream(framedMagic + "next");
    QVERIFY(BinaryIOHelper::readAndCheckMagicString(stream, magic));
    QCOMPARE(stream.status(), QDataStream::Ok);
    QCOMPARE(stream.device()->pos(), 9);
    QDataStream empty(QByteArray("\0\0\0\0x", 5));
    QVERIFY(BinaryIOHelper::readAndCheckMagicString(empty, std::string()));
    QCOMPARE(empty.device()->pos(), 4);
}

void tst_BinaryIOHelper::refusesOtherMagic_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("part of the length") << QByteArray("\5\0\0", 3);
    QTest::newRow("only the length") << QByteArray("\5\0\0\0", 4);
    QTest::newRow("a byte short") << framedMagic.chopped(1);
    QTest::newRow("another length") << QByteArray("\6\0\0\0Magic ", 10);
    QTest::newRow("a longer length") << QByteArray("\xFF\xFF\xFF\xFFMagic", 9);
    QTest::newRow("a big-endian length") << QByteArray("\0\0\0\5Magic", 9);
    QTest::newRow("letter case") << QByteArray("\5\0\0\0magic", 9);
    QTest::newRow("the last byte") << QByteArray("\5\0\0\0MagiC", 9);
    QTest::newRow("no length") << QByteArray("Magic");
}

void tst_BinaryIOHelper::refusesOtherMagic()
{
    QFETCH(QByteArray, bytes);
    QDataStream stream(bytes);
    QVERIFY(!BinaryIOHelper::readAndCheckMagicString(stream, magic));
    QCOMPARE(stream.device()->pos(), 0);
    QCOMPARE(stream.status(), QDataStream::ReadPastEnd);
    stream.resetStatus();
    QByteArray again(100, '\0');
    again.resize(std::max(0, stream.readRawData(again.data(), 100)));
    QCOMPARE(again, bytes);
}

void tst_BinaryIOHelper::refusesOtherMagicOnSequentialDevices_data()
{
    refusesOtherMagic_data();
}

void tst_BinaryIOHelper::refusesOtherMagicOnSequentialDevices()
{
    QFETCH(QByteArray, bytes);
    for (qint64 const chunk : {1, 3, 4096}) {
        support::SequentialDevice device(bytes, chunk);
        QVERIFY(device.open(QIODevice::ReadOnly));
        QDataStream stream(&device);
        QVERIFY(!BinaryIOHelper::readAndCheckMagicString(stream, magic));
        QCOMPARE(device.readAll(), bytes);
    }
}

void tst_BinaryIOHelper::longMagic()
{
    std::string const text = std::string(1000, 'm') + "end";
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    BinaryIOHelper::writeMagicString(out, text);
    QDataStream in(bytes);
    QVERIFY(BinaryIOHelper::readAndCheckMagicString(in, text));
    bytes.back() = 'X';
    QDataStream other(bytes);
    QVERIFY(!BinaryIOHelper::readAndCheckMagicString(other, text));
    QCOMPARE(other.device()->pos(), 0);
}

void tst_BinaryIOHelper::readsVersions_data()
{
    QTest::addColumn<unsigned>("major");
    QTest::addColumn<unsigned>("minor");
    QTest::newRow("2.0") << 2u << 0u;
    QTest::newRow("3.1") << 3u << 1u;
    QTest::newRow("large") << 0xFFFFFFFFu << 0x80000001u;
}

void tst_BinaryIOHelper::readsVersions()
{
    QFETCH(unsigned, major);
    QFETCH(unsigned, minor);
    QDataStream stream(shapeTreeHeader(major, minor) + "next");
    auto const version = BinaryIOHelper::readVersion(stream);
    QVERIFY(version);
    QCOMPARE(version->first, major);
    QCOMPARE(version->second, minor);
    QCOMPARE(stream.device()->pos(), 50);

    QByteArray littleEndian;
    QDataStream out(&littleEndian, QIODevice::WriteOnly);
    out.setByteOrder(QDataStream::LittleEndian);
    BinaryIOHelper::writeVersion(out, major, minor);
    QDataStream in(littleEndian);
    in.setByteOrder(QDataStream::LittleEndian);
    QCOMPARE(BinaryIOHelper::readVersion(in), version);
}

void tst_BinaryIOHelper::readsVersionsFromSlowDevices()
{
    QByteArray const bytes = shapeTreeHeader(2, 7) + "next";
    support::TrickleDevice trickle(bytes);
    support::SequentialDevice sequential(bytes, 3);
    for (QIODevice* const device :
         {static_cast<QIODevice*>(&trickle), static_cast<QIODevice*>(&sequential)}) {
        QVERIFY(device->open(QIODevice::ReadOnly));
        QDataStream stream(device);
        auto const version = BinaryIOHelper::readVersion(stream);
        QVERIFY(version);
        QCOMPARE(version->first, 2u);
        QCOMPARE(version->second, 7u);
        QCOMPARE(device->readAll(), QByteArray("next"));
    }
}

void tst_BinaryIOHelper::numbersCutOffReadAsZero()
{
    QByteArray const bytes = shapeTreeHeader(2, 7);
    for (qsizetype length = 42; length < 50; ++length) {
        QDataStream stream(bytes.first(length));
        auto const version = BinaryIOHelper::readVersion(stream);
        QVERIFY(version);
        QCOMPARE(version->first, length < 46 ? 0u : 2u);
        QCOMPARE(version->second, 0u);
        QCOMPARE(stream.status(), QDataStream::ReadPastEnd);
    }
}

void tst_BinaryIOHelper::nothingElseIsAVersion_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QByteArray const header = shapeTreeHeader(2, 0);
    for (qsizetype length = 0; length < 42; ++length)
        QTest::addRow("%d bytes", int(length)) << header.first(length);
    QTest::newRow("lower case") << header.toLower();
    QTest::newRow("a big-endian length") << QByteArray("\0\0\0\x26", 4) + header.sliced(4);
    QTest::newRow("another text") << QByteArray("\x26\0\0\0", 4) + QByteArray(46, '{');
}

void tst_BinaryIOHelper::nothingElseIsAVersion()
{
    QFETCH(QByteArray, bytes);
    QDataStream stream(bytes);
    QVERIFY(!BinaryIOHelper::readVersion(stream));
    QCOMPARE(stream.device()->pos(), 0);
}

void tst_BinaryIOHelper::restoresAnyPosition()
{
    QDataStream stream("before" + framedMagic);
    QVERIFY(stream.device()->seek(3));
    QVERIFY(!BinaryIOHelper::readAndCheckMagicString(stream, magic));
    QCOMPARE(stream.device()->pos(), 3);
    QVERIFY(stream.device()->seek(6));
    QVERIFY(BinaryIOHelper::readAndCheckMagicString(stream, magic));
}

void tst_BinaryIOHelper::worksAfterAnEarlierFailure()
{
    QDataStream stream(framedMagic);
    QVERIFY(!BinaryIOHelper::readAndCheckMagicString(stream, "other"));
    QVERIFY(BinaryIOHelper::readAndCheckMagicString(stream, magic));
    QCOMPARE(stream.status(), QDataStream::Ok);
}

QTEST_APPLESS_MAIN(tst_BinaryIOHelper)
#include "tst_BinaryIOHelper.moc"
