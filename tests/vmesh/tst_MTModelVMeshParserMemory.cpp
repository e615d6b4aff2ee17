#include "support/PrivateAccess.h"
#include "vmesh/MTModelVMeshParser.h"

#include <QBuffer>
#include <QTest>

#include <cstdlib>
#include <limits>
#include <new>

namespace {

// The largest array there is memory for.
std::size_t largestArray = std::numeric_limits<std::size_t>::max();

} // namespace

void* operator new[](std::size_t size, std::nothrow_t const&) noexcept
{
    return size > largestArray ? nullptr : std::malloc(size);
}

void operator delete[](void* memory) noexcept
{
    std::free(memory);
}

void operator delete[](void* memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace support {

struct ReadBytes
{
    using Member = bool (MTModelVMeshParser::*)(QIODevice&, qint64&);
    friend Member privateMember(ReadBytes);
};
template struct PrivateMember<ReadBytes, &MTModelVMeshParser::readBytes>;

} // namespace support

/// Rows for which there is no memory end the read; they are never written behind an array that did not grow.
class tst_MTModelVMeshParserMemory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void refusedGrowth_data();
    void refusedGrowth();
};

void tst_MTModelVMeshParserMemory::refusedGrowth_data()
{
    QTest::addColumn<QByteArray>("sizes");
    QTest::addColumn<QByteArray>("row");
    QTest::addColumn<int>("rowBytes");
    QTest::newRow("points") << QByteArray("0 0 0 5000") << QByteArray("1 2 3\n") << 12;
    QTest::newRow("faces") << QByteArray("0 5000 0 0") << QByteArray("-1 -1 0 1 2\n") << 20;
    QTest::newRow("bound faces") << QByteArray("0 0 5000 0") << QByteArray("0 -1 0 1 2\n") << 20;
}

// The device says nothing of its size beforehand, so that the arrays begin with room for 4096 rows.
void tst_MTModelVMeshParserMemory::refusedGrowth()
{
    QFETCH(QByteArray, sizes);
    QFETCH(QByteArray, row);
    QFETCH(int, rowBytes);
    QByteArray file = "# Labeled\n" + sizes + '\n' + row.repeated(5000);
    QBuffer buffer(&file);
    QVERIFY(buffer.open(QIODevice::ReadOnly));
    MTModelVMeshParser parser(QStringLiteral("jaw.vmesh"));
    qint64 line = 0;
    largestArray = static_cast<std::size_t>(rowBytes) * 4900;
    bool const success = (parser.*privateMember(support::ReadBytes()))(buffer, line);
    largestArray = std::numeric_limits<std::size_t>::max();
    QVERIFY(!success);
    QCOMPARE(line, 2 + 4096 + 1);
}

QTEST_APPLESS_MAIN(tst_MTModelVMeshParserMemory)
#include "tst_MTModelVMeshParserMemory.moc"
