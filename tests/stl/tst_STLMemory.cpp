#include "inhouse/data/STLSurfaceData.h"
#include "stl/STLReader.h"
#include "stl/STLTagHandler.h"
#include "support/StlFiles.h"

#include <QBuffer>
#include <QtTest>

#include <cstdlib>
#include <limits>
#include <new>

using support::cornersOf;
using support::loneFacet;
using support::StlFacet;

namespace {

std::atomic<bool> const never = false;

// Larger requests fail.
std::atomic<std::size_t> mostBytes = std::numeric_limits<std::size_t>::max();

class ScarceMemory
{
public:
    explicit ScarceMemory(std::size_t bytes) { mostBytes = bytes; }
    ~ScarceMemory() { mostBytes = std::numeric_limits<std::size_t>::max(); }
    Q_DISABLE_COPY_MOVE(ScarceMemory)
};

} // namespace

void* operator new(std::size_t size)
{
    void* const memory = size > mostBytes ? nullptr : std::malloc(size);
    if (!memory)
        throw std::bad_alloc();
    return memory;
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

// The sanitizers' own forms for arrays would not come by here.
void* operator new[](std::size_t size)
{
    return operator new(size);
}

void operator delete[](void* memory) noexcept
{
    operator delete(memory);
}

void operator delete[](void* memory, std::size_t) noexcept
{
    operator delete(memory);
}

class tst_STLMemory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void binary_data();
    void binary();
    void secondSurface();
    void ascii();
};

void tst_STLMemory::binary_data()
{
    QTest::addColumn<bool>("isTagged");
    QTest::newRow("one surface") << false;
    QTest::newRow("by tags") << true;
}

void tst_STLMemory::binary()
{
    QFETCH(bool, isTagged);
    QList<StlFacet> facets;
    for (int i = 0; i < 20000; ++i)
        facets << loneFacet(i);
    QByteArray data = support::binaryStl(facets);
    QBuffer device(&data);
    UseAllTagsHandler const all;
    STLReader reader(isTagged ? &all : nullptr, false, {});
    QVERIFY(reader.read(&device, never));
    {
        ScarceMemory const scarce(100000);
        QVERIFY(!reader.read(&device, never));
        QVERIFY(!reader.read(data, never));
    }
    // Nothing of the read before is left that could be taken for the file.
    QVERIFY(reader.getMesh().isNull());
    QVERIFY(reader.takeSTLSurfaceDataSets().isEmpty());
    QVERIFY(reader.read(&device, never));
    QCOMPARE(cornersOf(reader.getMesh()), cornersOf(facets));
}

// A surface is made before memory ends; it goes as well.
void tst_STLMemory::secondSurface()
{
    QList<StlFacet> facets = {loneFacet(0, 1, 1)};
    for (int i = 1; i < 20000; ++i)
        facets << loneFacet(i, 2, 2);
    UseAllTagsHandler const all;
    STLReader reader(&all, false, {});
    {
        ScarceMemory const scarce(100000);
        QVERIFY(!reader.read(support::binaryStl(facets), never));
    }
    QVERIFY(reader.takeSTLSurfaceDataSets().isEmpty());
}

void tst_STLMemory::ascii()
{
    QList<StlFacet> facets;
    for (int i = 0; i < 5000; ++i)
        facets << loneFacet(i);
    QByteArray const data = support::asciiStl(facets);
    STLReader reader(nullptr, false, {});
    {
        ScarceMemory const scarce(100000);
        QVERIFY(!reader.read(data, never));
    }
    QVERIFY(reader.read(data, never));
    QCOMPARE(cornersOf(reader.getMesh()), cornersOf(facets));
}

QTEST_APPLESS_MAIN(tst_STLMemory)
#include "tst_STLMemory.moc"
