// The flag is set by another thread at any moment: the read ends, as a success or a failure, and the same
// reader reads again afterwards. Set at a certain byte, it ends the read within a block of bytes.
#include "hostile/Messages.h"
#include "hostile/Outcome.h"
#include "hostile/Sanitizers.h"
#include "obj/OBJReader.h"
#include "ply/PLYReader.h"
#include "stl/STLReader.h"
#include "support/Devices.h"
#include "support/PlyFiles.h"
#include "support/StlFiles.h"

#include <QBuffer>
#include <QTest>

#include <functional>
#include <random>
#include <thread>

using hostile::Inspection;

namespace {

constexpr int facetCount = hostile::isSanitized ? 2'000 : 20'000;

std::atomic<bool> const never = false;

using Cancel = std::atomic<bool>;

/// One reader that is used again and again, and a large file for it.
struct Reading
{
    char const* name;
    QByteArray bytes;
    /// Whether the read succeeded.
    std::function<bool(QIODevice&, Cancel const&)> read;
    std::function<geometry::Mesh const&()> mesh;
};

QByteArray asciiFacets()
{
    QList<support::StlFacet> facets;
    for (int i = 0; i < facetCount; ++i)
        facets << support::loneFacet(i);
    return support::asciiStl(facets);
}

QByteArray plyFacets()
{
    support::PLYBody body;
    for (int i = 0; i < facetCount; ++i)
        body.f32({float(i), 0, 0, float(i), 1, 0, float(i), 0, 1});
    for (int i = 0; i < facetCount; ++i)
        body.triangle(3 * i, 3 * i + 1, 3 * i + 2);
    return support::plyHeader(3 * facetCount, support::plyPosition, facetCount) + body.bytes;
}

QByteArray objFacets()
{
    QByteArray text;
    for (int i = 0; i < 3 * facetCount; ++i)
        text += "v " + QByteArray::number(i) + " 0 " + QByteArray::number(i % 3) + '\n';
    for (int i = 1; i <= 3 * facetCount; i += 3)
        text += "f " + QByteArray::number(i) + ' ' + QByteArray::number(i + 1) + ' ' +
                QByteArray::number(i + 2) + '\n';
    return text;
}

std::vector<Reading> readings()
{
    auto const stl = std::make_shared<STLReader>(nullptr, false, QString());
    auto const ply = std::make_shared<PLYReader>(PLYReader::MeshMode);
    auto const obj = std::make_shared<OBJReader>();
    return {
        {"STL", asciiFacets(),
         [=](QIODevice& device, Cancel const& cancel) { return stl->read(&device, cancel); },
         [=]() -> geometry::Mesh const& { return stl->getMesh(); }},
        {"PLY", plyFacets(),
         [=](QIODevice& device, Cancel const& cancel) { return ply->read(&device, cancel); },
         [=]() -> geometry::Mesh const& { return ply->getMesh(); }},
        {"OBJ", objFacets(),
         [=](QIODevice& device, Cancel const& cancel) {
             return obj->read(&device, cancel) == OBJReader::NoError;
         },
         [=]() -> geometry::Mesh const& { return obj->getMesh(); }},
    };
}

/// Sets the flag when it is asked for the byte `offset`.
class CancellingDevice : public support::TrickleDevice
{
public:
    CancellingDevice(QByteArray const& content, qint64 offset_)
        : TrickleDevice(content, 512)
        , offset(offset_)
    {}

    Cancel cancel = false;
    qint64 handedOutAfter = 0;

protected:
    qint64 readData(char* target, qint64 maxSize) override
    {
        cancel = cancel || pos() >= offset;
        qint64 const count = TrickleDevice::readData(target, maxSize);
        handedOutAfter += cancel && count > 0 ? count : 0;
        return count;
    }

private:
    qint64 offset;
};

} // namespace

class tst_HostileCancel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readings_data();
    void atAnyMoment_data() { readings_data(); }
    void atAnyMoment();
    void atACertainByte_data() { readings_data(); }
    void atACertainByte();
};

void tst_HostileCancel::readings_data()
{
    QTest::addColumn<int>("number");
    int number = 0;
    for (Reading const& reading : readings())
        QTest::newRow(reading.name) << number++;
}

void tst_HostileCancel::atAnyMoment()
{
    QFETCH(int, number);
    hostile::Messages const messages;
    Reading const reading = readings()[std::size_t(number)];
    QBuffer first;
    first.setData(reading.bytes);
    QVERIFY(reading.read(first, never));
    auto const expected = Inspection().reader(reading.mesh()).outcome(1);
    QVERIFY(expected.fault.isEmpty());
    std::mt19937 random(1);
    for (int round = 0; round < 30; ++round) {
        Cancel cancel = false;
        Cancel hasBegun = false;
        unsigned const wait = random() % 100'000;
        std::thread other([&] {
            while (!hasBegun)
                std::this_thread::yield();
            for (std::atomic<unsigned> i = 0; i < wait; ++i) {
            }
            cancel = true;
        });
        QBuffer buffer;
        buffer.setData(reading.bytes);
        hasBegun = true;
        reading.read(buffer, cancel);
        other.join();
        QVERIFY(cancel);
        QVERIFY(Inspection().reader(reading.mesh()).outcome(1).fault.isEmpty());
        QBuffer again;
        again.setData(reading.bytes);
        QVERIFY(reading.read(again, never));
        QVERIFY(Inspection().reader(reading.mesh()).outcome(1) == expected);
    }
}

void tst_HostileCancel::atACertainByte()
{
    QFETCH(int, number);
    hostile::Messages const messages;
    Reading const reading = readings()[std::size_t(number)];
    constexpr qint64 block = 256 * 1024;
    for (int part = 0; part < 20; ++part) {
        qint64 const offset = reading.bytes.size() / 20 * part;
        CancellingDevice device(reading.bytes, offset);
        QVERIFY2(!reading.read(device, device.cancel), qPrintable(QString::number(offset)));
        QVERIFY2(device.handedOutAfter <= block, qPrintable(QString::number(device.handedOutAfter)));
    }
    CancellingDevice device(reading.bytes, reading.bytes.size() + 1);
    QVERIFY(reading.read(device, device.cancel));
}

QTEST_GUILESS_MAIN(tst_HostileCancel)
#include "tst_HostileCancel.moc"
