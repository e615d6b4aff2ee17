#include "inhouse/data/STLSurfaceData.h"
#include "stl/STLReader.h"
#include "stl/STLTagHandler.h"
#include "support/Devices.h"
#include "support/StlFiles.h"

#include <QBuffer>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

#include <functional>
#include <memory>

using support::asciiStl;
using support::binaryStl;
using support::cornersOf;
using support::loneFacet;
using support::StlFacet;

namespace {

std::atomic<bool> const never = false;

using DeviceMaker = std::function<std::unique_ptr<QIODevice>(QByteArray const&)>;

std::unique_ptr<QIODevice> bufferOf(QByteArray const& data)
{
    auto buffer = std::make_unique<QBuffer>();
    buffer->setData(data);
    return buffer;
}

QList<StlFacet> manyFacets()
{
    // More bytes than any buffer of Qt's streams and devices holds.
    QList<StlFacet> facets;
    for (int i = 0; i < 1000; ++i)
        facets << loneFacet(i, 1, 2);
    return facets;
}

// Opens however often it is asked, and stays where it is.
class StubbornDevice : public support::TrickleDevice
{
public:
    using TrickleDevice::TrickleDevice;
    bool open(OpenMode mode) override { return isOpen() || TrickleDevice::open(mode); }
};

class RefusingDevice : public support::TrickleDevice
{
public:
    using TrickleDevice::TrickleDevice;
    bool open(OpenMode mode) override { return !isOpen() && TrickleDevice::open(mode); }
};

class ClosedDevice : public support::TrickleDevice
{
public:
    using TrickleDevice::TrickleDevice;
    bool open(OpenMode) override { return false; }
};

} // namespace

Q_DECLARE_METATYPE(DeviceMaker)

class tst_STLReaderDevices : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readWhole_data();
    void readWhole();
    void file();
    void fileThatCannotBeRead_data();
    void fileThatCannotBeRead();
    void fileIsClosedAfterwards();
    void deviceStaysOpen();
    void openFileFails();
    void openDeviceThatRefuses();
    void openBufferIsRewound();
    void openDeviceThatStaysWhereItIs();
    void deviceThatDoesNotOpen();
    void noDevice();
    void nullBytes();
    void sequentialBinary_data();
    void sequentialBinary();
    void lyingSize_data();
    void lyingSize();
    void sizeBeyond32Bits();
    void lyingEnd_data();
    void lyingEnd();
};

void tst_STLReaderDevices::readWhole_data()
{
    QTest::addColumn<DeviceMaker>("make");
    QTest::addColumn<bool>("isSequential");
    QTest::newRow("buffer") << DeviceMaker(bufferOf) << false;
    for (int const chunk : {1, 2, 3, 7, 4096, 1000000})
        QTest::addRow("%d bytes at a time", chunk) << DeviceMaker([chunk](QByteArray const& data) {
            return std::make_unique<support::TrickleDevice>(data, chunk);
        }) << false;
    for (int const chunk : {1, 7, 4096})
        QTest::addRow("sequential, %d bytes at a time", chunk)
            << DeviceMaker([chunk](QByteArray const& data) {
                   return std::make_unique<support::SequentialDevice>(data, chunk);
               })
            << true;
}

void tst_STLReaderDevices::readWhole()
{
    QFETCH(DeviceMaker, make);
    QFETCH(bool, isSequential);
    STLReader reader(nullptr, false, {});
    std::unique_ptr<QIODevice> const ascii = make(asciiStl(manyFacets()));
    QVERIFY(reader.read(ascii.get(), never));
    QCOMPARE(cornersOf(reader.getMesh()), cornersOf(manyFacets()));
    if (isSequential)
        return;

    std::unique_ptr<QIODevice> const binary = make(binaryStl(manyFacets()));
    QVERIFY(reader.read(binary.get(), never));
    QCOMPARE(cornersOf(reader.getMesh()), cornersOf(manyFacets()));

    UseAllTagsHandler const all;
    STLReader tagged(&all, false, {});
    std::unique_ptr<QIODevice> const again = make(binaryStl(manyFacets()));
    QVERIFY(tagged.read(again.get(), never));
    QCOMPARE(cornersOf(tagged.getMesh()), cornersOf(manyFacets()));
}

void tst_STLReaderDevices::file()
{
    QTemporaryDir const directory;
    for (QByteArray const& content : {asciiStl(manyFacets()), binaryStl(manyFacets())}) {
        QFile file(directory.filePath(QStringLiteral("any name at all")));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
        file.close();
        STLReader named(nullptr, false, file.fileName());
        QVERIFY(named.read(never));
        QCOMPARE(cornersOf(named.getMesh()), cornersOf(manyFacets()));
        STLReader device(nullptr, false, {});
        QVERIFY(device.read(&file, never));
        QCOMPARE(cornersOf(device.getMesh()), cornersOf(manyFacets()));
    }
}

void tst_STLReaderDevices::fileThatCannotBeRead_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("no name") << QString();
    QTest::newRow("no such file") << QStringLiteral("/no/such/file.stl");
    QTest::newRow("a directory") << QStringLiteral("/");
}

void tst_STLReaderDevices::fileThatCannotBeRead()
{
    QFETCH(QString, name);
    STLReader reader(nullptr, false, name);
    QVERIFY(!reader.read(never));
    QVERIFY(reader.getMesh().isNull());
}

void tst_STLReaderDevices::fileIsClosedAfterwards()
{
    QTemporaryDir const directory;
    QFile file(directory.filePath(QStringLiteral("mesh.stl")));
    STLReader reader(nullptr, false, file.fileName());
    for (int count = 1; count < 4; ++count) {
        QByteArray const content = binaryStl(manyFacets().first(count));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
        file.close();
        QVERIFY(reader.read(never));
        QCOMPARE(reader.getMesh().getNumIndices(), 4 * count);
    }
}

void tst_STLReaderDevices::deviceStaysOpen()
{
    STLReader reader(nullptr, false, {});
    std::unique_ptr<QIODevice> const buffer = bufferOf(binaryStl(manyFacets()));
    QVERIFY(reader.read(buffer.get(), never));
    QVERIFY(buffer->isOpen());
    QCOMPARE(buffer->openMode() & QIODevice::ReadWrite, QIODevice::ReadOnly);
}

void tst_STLReaderDevices::openFileFails()
{
    QTemporaryDir const directory;
    QFile file(directory.filePath(QStringLiteral("mesh.stl")));
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.write(binaryStl(manyFacets())) > 0);
    STLReader reader(nullptr, false, {});
    // Qt's own message: the file is opened without a look at its state.
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral("^QFile::open: File .* already open$")));
    QVERIFY(!reader.read(&file, never));
    QVERIFY(reader.getMesh().isNull());
}

void tst_STLReaderDevices::openDeviceThatRefuses()
{
    RefusingDevice device(binaryStl(manyFacets()));
    STLReader reader(nullptr, false, {});
    QVERIFY(reader.read(&device, never));
    QVERIFY(!reader.read(&device, never));
    QVERIFY(device.isOpen());
    device.close();
    QVERIFY(reader.read(&device, never));
}

void tst_STLReaderDevices::openBufferIsRewound()
{
    STLReader reader(nullptr, false, {});
    for (QByteArray const& content : {asciiStl(manyFacets()), binaryStl(manyFacets())}) {
        std::unique_ptr<QIODevice> const buffer = bufferOf(content);
        QVERIFY(buffer->open(QIODevice::ReadOnly) && buffer->seek(777));
        QVERIFY(reader.read(buffer.get(), never));
        QCOMPARE(cornersOf(reader.getMesh()), cornersOf(manyFacets()));
    }
}

void tst_STLReaderDevices::openDeviceThatStaysWhereItIs()
{
    QByteArray const junk = "not a first line\n";
    STLReader reader(nullptr, false, {});
    StubbornDevice text(junk + asciiStl(manyFacets()));
    QVERIFY(text.open(QIODevice::ReadOnly) && text.seek(junk.size()));
    QVERIFY(reader.read(&text, never));
    QCOMPARE(cornersOf(reader.getMesh()), cornersOf(manyFacets()));

    // The line is read where the device stands; binary data starts at byte 0 all the same.
    StubbornDevice binary(binaryStl(manyFacets()));
    QVERIFY(binary.open(QIODevice::ReadOnly) && binary.seek(1234));
    QVERIFY(reader.read(&binary, never));
    QCOMPARE(cornersOf(reader.getMesh()), cornersOf(manyFacets()));
}

void tst_STLReaderDevices::deviceThatDoesNotOpen()
{
    ClosedDevice device(binaryStl(manyFacets()));
    STLReader reader(nullptr, false, {});
    QVERIFY(!reader.read(&device, never));
}

void tst_STLReaderDevices::noDevice()
{
    STLReader reader(nullptr, false, {});
    QVERIFY(!reader.read(static_cast<QIODevice*>(nullptr), never));
}

void tst_STLReaderDevices::nullBytes()
{
    STLReader reader(nullptr, false, {});
    QVERIFY(!reader.read(QByteArray(), never));
    QVERIFY(!reader.read(QByteArray(""), never));
}

void tst_STLReaderDevices::sequentialBinary_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::newRow("no facets") << binaryStl(0, {});
    QTest::newRow("one facet") << binaryStl({loneFacet(0)});
    QTest::newRow("many facets") << binaryStl(manyFacets());
    QTest::newRow("nothing") << QByteArray("");
}

// It cannot go back to where the first line was looked for.
void tst_STLReaderDevices::sequentialBinary()
{
    QFETCH(QByteArray, data);
    STLReader reader(nullptr, false, {});
    for (int const chunk : {7, 100000}) {
        support::SequentialDevice device(data, chunk);
        QVERIFY(!reader.read(&device, never));
    }
    QVERIFY(reader.takeSTLSurfaceDataSets().isEmpty());
}

void tst_STLReaderDevices::lyingSize_data()
{
    QTest::addColumn<quint32>("claimed");
    QTest::addColumn<qint64>("missing");
    for (quint32 const claimed : {3u, 4u, 5u, 1000u, 40000000u}) {
        QTest::addRow("%u facets, nothing comes", claimed) << claimed << qint64(0);
        QTest::addRow("%u facets, an error comes", claimed) << claimed << qint64(-1);
    }
}

// Three facets are there, whatever size and count say; they must not cost the time or memory of the claim.
void tst_STLReaderDevices::lyingSize()
{
    QFETCH(quint32, claimed);
    QFETCH(qint64, missing);
    QList<StlFacet> const facets = manyFacets().first(3);
    QByteArray const data = binaryStl(claimed, binaryStl(facets).mid(84));
    UseAllTagsHandler const all;
    for (STLTagHandler const* handler :
         {static_cast<STLTagHandler const*>(nullptr), static_cast<STLTagHandler const*>(&all)}) {
        support::LyingDevice device(data, 84 + 50 * qint64(claimed), missing);
        STLReader reader(handler, false, {});
        QVERIFY(reader.read(&device, never));
        QList<STLSurfaceData*> const surfaces = reader.takeSTLSurfaceDataSets();
        QCOMPARE(surfaces.size(), 1);
        QCOMPARE(cornersOf(surfaces.first()->getMesh()), cornersOf(facets));
        qDeleteAll(surfaces);
    }
}

void tst_STLReaderDevices::sizeBeyond32Bits()
{
    QList<StlFacet> const facets = manyFacets().first(3);
    QByteArray const data = binaryStl(facets);
    STLReader reader(nullptr, false, {});
    // Only the low 32 bits of the size are looked at.
    for (qint64 const multiple : {1, 2, 1000000}) {
        support::LyingDevice device(data, data.size() + (multiple << 32), -1);
        QVERIFY(reader.read(&device, never));
        QCOMPARE(cornersOf(reader.getMesh()), cornersOf(facets));
    }
    support::LyingDevice device(data, data.size() + (qint64(1) << 31), -1);
    QVERIFY(!reader.read(&device, never));
}

void tst_STLReaderDevices::lyingEnd_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<bool>("works");
    QTest::newRow("text") << asciiStl(manyFacets()) << true;
    QTest::newRow("text without vertices") << QByteArray("solid\nendsolid") << false;
    QTest::newRow("other text") << QByteArray("facet\nendfacet") << false;
    QTest::newRow("nothing") << QByteArray() << false;
}

void tst_STLReaderDevices::lyingEnd()
{
    QFETCH(QByteArray, data);
    QFETCH(bool, works);
    for (qint64 const missing : {0, -1}) {
        support::LyingDevice device(data, 1000000000, missing);
        STLReader reader(nullptr, false, {});
        QCOMPARE(reader.read(&device, never), works);
    }
}

QTEST_GUILESS_MAIN(tst_STLReaderDevices)
#include "tst_STLReaderDevices.moc"
