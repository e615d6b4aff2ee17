#include "stl/STLFacets.h"
#include "support/Devices.h"

#include <QBuffer>
#include <QTest>

#include <random>

namespace {

QByteArray randomBytes(qsizetype size)
{
    std::mt19937 random(1);
    QByteArray bytes(size, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(random());
    return bytes;
}

STLDataFormat formatOf(int facets)
{
    return {stl::firstVertexOffset, static_cast<int>(stl::fileBytes(static_cast<quint32>(facets))), facets,
            stl::vertexBlockBytes, stl::facetBytes};
}

void compare(QIODevice& device, STLDataFormat const& format)
{
    stl::AttributeReader reader(&device, format);
    for (qint64 position = format.firstVertexOffset; position < format.dataSize;
         position += format.recordSize) {
        stl::AttributeWord const word = reader.read(position);
        stl::AttributeWord const alone = reader.readAlone(position);
        QCOMPARE(word.bytes, alone.bytes);
        QCOMPARE(word.isComplete, alone.isComplete);
    }
}

} // namespace

/// Attribute words of many records read at once are those that are read one by one.
class tst_STLFacets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void attributesOfManyBlocks();
    void attributesAtEveryLength();
    void attributesOfOtherLayouts();
};

void tst_STLFacets::attributesOfManyBlocks()
{
    QByteArray bytes = randomBytes(stl::fileBytes(3456));
    QBuffer buffer(&bytes);
    QVERIFY(buffer.open(QIODevice::ReadOnly));
    compare(buffer, formatOf(3456));
    support::TrickleDevice slow(bytes, 777);
    QVERIFY(slow.open(QIODevice::ReadOnly));
    compare(slow, formatOf(3456));
}

void tst_STLFacets::attributesAtEveryLength()
{
    QByteArray const all = randomBytes(stl::fileBytes(5));
    for (qsizetype length = 0; length <= all.size(); ++length) {
        QByteArray bytes = all.left(length);
        QBuffer buffer(&bytes);
        QVERIFY(buffer.open(QIODevice::ReadOnly));
        compare(buffer, formatOf(5));
        if (QTest::currentTestFailed())
            QFAIL(QByteArray::number(length).constData());
    }
}

void tst_STLFacets::attributesOfOtherLayouts()
{
    QByteArray bytes = randomBytes(400);
    QBuffer buffer(&bytes);
    QVERIFY(buffer.open(QIODevice::ReadOnly));
    compare(buffer, {0, 400, 40, 3, 10});
    compare(buffer, {0, 400, 400, 1, 1});
    compare(buffer, {7, 900, 4, 36, 200});
}

QTEST_GUILESS_MAIN(tst_STLFacets)
#include "tst_STLFacets.moc"
