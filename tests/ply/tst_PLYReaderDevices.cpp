#include "ply/PLYReader.h"
#include "support/Devices.h"
#include "support/Meshes.h"
#include "support/PlyFiles.h"

#include <QBuffer>
#include <QFile>
#include <QStringEncoder>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using support::plyCount;
using support::plyHeader;
using support::plyIndices;
using support::plyLines;
using support::plyPosition;
using support::plyStart;
using support::plyTriangle;
using support::SequentialDevice;
using support::TrickleDevice;

using namespace Qt::StringLiterals;

namespace {

std::atomic<bool> const never = false;

// Three vertices whose bytes are `positions`, and a triangle.
constexpr qsizetype positionBytes = 36;

QByteArray body(QByteArray const& positions)
{
    return positions + support::PLYBody().triangle(2, 0, 1).bytes;
}

QByteArrayList headerLines(QByteArrayList const& more = {})
{
    return plyStart + more + QByteArrayList{plyCount("vertex", 3)} + plyPosition +
           QByteArrayList{plyCount("face", 1)} + plyIndices + QByteArrayList{"end_header"};
}

QByteArray encoded(QStringConverter::Encoding encoding, QByteArrayList const& lines)
{
    QStringEncoder encode(encoding, QStringConverter::Flag::WriteBom);
    return encode(QString::fromUtf8(plyLines(lines)));
}

using DevicePointer = std::unique_ptr<QIODevice>;

enum class Kind
{
    Buffer,
    OpenBuffer,
    BufferPlacedElsewhere,
    BufferOpenForWriting,
    TextBuffer,
    File,
    UnbufferedFile,
    TextFile,
    Trickle,
    TrickleByOne,
    UnbufferedTrickle,
    Sequential,
    SequentialBySeven,
    UnbufferedSequential
};

constexpr Kind kinds[] = {Kind::Buffer,
                          Kind::OpenBuffer,
                          Kind::BufferPlacedElsewhere,
                          Kind::BufferOpenForWriting,
                          Kind::TextBuffer,
                          Kind::File,
                          Kind::UnbufferedFile,
                          Kind::TextFile,
                          Kind::Trickle,
                          Kind::TrickleByOne,
                          Kind::UnbufferedTrickle,
                          Kind::Sequential,
                          Kind::SequentialBySeven,
                          Kind::UnbufferedSequential};

DevicePointer opened(DevicePointer device, QIODevice::OpenMode mode = QIODevice::ReadOnly)
{
    device->open(mode);
    return device;
}

DevicePointer bufferOf(QByteArray const& bytes)
{
    auto buffer = std::make_unique<QBuffer>();
    buffer->setData(bytes);
    return buffer;
}

DevicePointer fileOf(QByteArray const& bytes, QString const& path)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(bytes);
    return std::make_unique<QFile>(path);
}

DevicePointer deviceOf(Kind kind, QByteArray const& bytes, QString const& path)
{
    constexpr auto unbuffered = QIODevice::ReadOnly | QIODevice::Unbuffered;
    switch (kind) {
    case Kind::Buffer:
        return bufferOf(bytes);
    case Kind::OpenBuffer:
        return opened(bufferOf(bytes), QIODevice::ReadWrite);
    case Kind::BufferPlacedElsewhere: {
        DevicePointer buffer = opened(bufferOf(bytes));
        buffer->read(bytes.size() - 3);
        return buffer;
    }
    case Kind::BufferOpenForWriting:
        return opened(bufferOf(bytes), QIODevice::Append);
    case Kind::TextBuffer:
        return opened(bufferOf(bytes), QIODevice::ReadOnly | QIODevice::Text);
    case Kind::File:
        return fileOf(bytes, path);
    case Kind::UnbufferedFile:
        return opened(fileOf(bytes, path), unbuffered);
    case Kind::TextFile:
        return opened(fileOf(bytes, path), QIODevice::ReadOnly | QIODevice::Text);
    case Kind::Trickle:
        return std::make_unique<TrickleDevice>(bytes);
    case Kind::TrickleByOne:
        return std::make_unique<TrickleDevice>(bytes, 1);
    case Kind::UnbufferedTrickle:
        return opened(std::make_unique<TrickleDevice>(bytes), unbuffered);
    case Kind::Sequential:
        return std::make_unique<SequentialDevice>(bytes);
    case Kind::SequentialBySeven:
        return std::make_unique<SequentialDevice>(bytes, 7);
    case Kind::UnbufferedSequential:
        return opened(std::make_unique<SequentialDevice>(bytes, 5), unbuffered);
    }
    return nullptr;
}

} // namespace

class tst_PLYReaderDevices : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void headerAndBodyMeet_data();
    void headerAndBodyMeet();
    void nonUtf8CommentsOfAnyLength();
    void linesOfAnyLength_data();
    void linesOfAnyLength();
    void staysOpenBehindTheMesh();
    void keepsTextMode();
    void valuesAreWholeHoweverTheyCome();
    void devicesThatCannotBeOpened();
    void devicesThatCannotBeReset();
    void sequentialDevicesAreReadFromWhereTheyStand();
};

void tst_PLYReaderDevices::headerAndBodyMeet_data()
{
    QTest::addColumn<QByteArray>("header");
    QTest::addColumn<QByteArray>("positions");
    QByteArray const plain = QByteArray("\0\0\x80\x3f", 4).repeated(9);
    auto const padded = [](QByteArray const& start) { return start.leftJustified(positionBytes, '#'); };
    QByteArrayList const lines = headerLines();

    QTest::newRow("plain") << plyLines(lines) << plain;
    QTest::newRow("carriage returns") << plyLines(lines, "\r\n") << plain;
    QTest::newRow("carriage returns, line feeds next") << plyLines(lines, "\r\n") << padded("\n\n\r\n");
    QTest::newRow("some carriage returns") << plyLines(lines, "\r\n").replace("face 1\r", "face 1") << plain;
    QTest::newRow("spaces behind the end") << plyLines(lines).chopped(1) + "  \t \n" << plain;
    QTest::newRow("body of line feeds") << plyLines(lines) << QByteArray(positionBytes, '\n');
    QTest::newRow("body of spaces") << plyLines(lines) << QByteArray(positionBytes, ' ');
    QTest::newRow("body of zeros") << plyLines(lines) << QByteArray(positionBytes, '\0');
    QTest::newRow("body like a line") << plyLines(lines) << padded("property float nx\n");
    QTest::newRow("body like the end") << plyLines(lines) << padded("end_header\nend_header\n");
    QTest::newRow("body of no UTF-8") << plyLines(lines) << QByteArray(positionBytes, '\xC3');
    QTest::newRow("body that continues a character") << plyLines(lines) << QByteArray(positionBytes, '\x80');
    QTest::newRow("body like a UTF-8 mark") << plyLines(lines) << padded("\xEF\xBB\xBF");
    QTest::newRow("body like a UTF-16 mark") << plyLines(lines) << padded("\xFF\xFE");
    QTest::newRow("body of carriage returns and line feeds")
        << plyLines(lines) << QByteArray("\r\n").repeated(18);

    QTest::newRow("UTF-8 comment") << plyLines(
                                          headerLines({"comment Gebi\xC3\x9F \xE2\x82\xAC \xF0\x9F\xA6\xB7"}))
                                   << plain;
    QTest::newRow("Latin-1 comment") << plyLines(headerLines({"comment Gebi\xDF", "comment caf\xE9"}))
                                     << plain;
    QTest::newRow("Latin-1 comment, body of no UTF-8")
        << plyLines(headerLines({"comment caf\xE9"})) << QByteArray(positionBytes, '\xA9');
    QTest::newRow("cut characters") << plyLines(headerLines(
                                           {"comment \xE2\x82", "comment \xF0\x9F\xA6", "comment \xC3"}))
                                    << plain;
    QTest::newRow("overlong and surrogates")
        << plyLines(headerLines({"comment \xC0\x80 \xED\xA0\x80 \xFF\xFE"})) << plain;
    QTest::newRow("zeros in a comment") << plyLines(headerLines({QByteArray("comment a\0b\0", 12)})) << plain;
    QTest::newRow("other line separators")
        << plyLines(headerLines({"comment a\r\rb \xE2\x80\xA8 \v\f \xC2\x85"})) << plain;

    QTest::newRow("UTF-8 mark") << "\xEF\xBB\xBF" + plyLines(lines) << plain;
    QTest::newRow("UTF-8 mark, carriage returns")
        << "\xEF\xBB\xBF" + plyLines(lines, "\r\n") << padded("\xEF\xBB\xBF");
    QTest::newRow("UTF-16, little") << encoded(QStringConverter::Utf16LE, lines)
                                    << padded(QByteArray("\0\n\n\0", 4));
    QTest::newRow("UTF-16, big") << encoded(QStringConverter::Utf16BE, lines)
                                 << padded(QByteArray("\0\n\n\0", 4));
    QTest::newRow("UTF-32, little") << encoded(QStringConverter::Utf32LE, lines)
                                    << QByteArray(positionBytes, '\0');
    QTest::newRow("UTF-32, big") << encoded(QStringConverter::Utf32BE, lines)
                                 << QByteArray(positionBytes, '\n');
    QByteArrayList const newlineBytes = headerLines({"comment \xE0\xA8\x8A \xE0\xA4\x8A"});
    QTest::newRow("UTF-16 with 0A in other characters")
        << encoded(QStringConverter::Utf16LE, newlineBytes) << plain;
    QTest::newRow("UTF-16 with 0A, big") << encoded(QStringConverter::Utf16BE, newlineBytes) << plain;

    QTest::newRow("long header") << plyLines(headerLines(QByteArrayList(3000, "comment padding \xE9")))
                                 << plain;
    QTest::newRow("long line") << plyLines(headerLines({"comment " + QByteArray(200000, 'x')})) << plain;
    QTest::newRow("long line of no ASCII")
        << plyLines(headerLines({"comment " + QByteArray(200000, '\xE9')})) << plain;
    QTest::newRow("long UTF-16 line")
        << encoded(QStringConverter::Utf16BE,
                   headerLines({"comment " + QByteArray("\xE2\x82\xAC").repeated(50000)}))
        << plain;
}

void tst_PLYReaderDevices::headerAndBodyMeet()
{
    QFETCH(QByteArray, header);
    QFETCH(QByteArray, positions);
    QTemporaryDir const folder;
    QByteArray const file = header + body(positions);
    for (Kind const kind : kinds) {
        DevicePointer const device = deviceOf(kind, file, folder.filePath(u"mesh.ply"_s));
        PLYReader reader(PLYReader::MeshMode);
        QVERIFY2(reader.read(device.get(), never), QByteArray::number(int(kind)).constData());
        QCOMPARE(support::bytesOf(reader.getMesh().vertices), positions);
        QCOMPARE(reader.getMesh().indices, (QList<int>{2, 0, 1, -1}));
    }
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(reader.read(file, never));
    QCOMPARE(support::bytesOf(reader.getMesh().vertices), positions);
}

// A decoder that waits at the end of a read for the rest of a character must not take the line feed for it.
void tst_PLYReaderDevices::nonUtf8CommentsOfAnyLength()
{
    QByteArray const positions(positionBytes, '\x0A');
    for (QByteArray const& character : QByteArrayList{"\xE9", "\xE2\x82", "\xF0\x9F\xA6"})
        for (int padding = 0; padding < 16; ++padding) {
            QByteArray const comment = "comment " + QByteArray(padding, 'x') + character;
            DevicePointer const device =
                deviceOf(Kind::Trickle, plyLines(headerLines({comment})) + body(positions), {});
            PLYReader reader(PLYReader::MeshMode);
            QVERIFY(reader.read(device.get(), never));
            QCOMPARE(support::bytesOf(reader.getMesh().vertices), positions);
        }
}

void tst_PLYReaderDevices::linesOfAnyLength_data()
{
    QTest::addColumn<int>("around");
    QTest::newRow("a text stream's buffer") << 16384;
    QTest::newRow("two of them") << 2 * 16384;
    QTest::newRow("a read of the source") << 65536;
}

void tst_PLYReaderDevices::linesOfAnyLength()
{
    QFETCH(int, around);
    QByteArray const positions(positionBytes, '\x0A');
    for (int length = around - 20; length < around + 20; ++length)
        for (char const character : {'x', '\xE9'}) {
            QByteArray const comment = "comment " + QByteArray(length - 10, 'y') + QByteArray(2, character);
            PLYReader reader(PLYReader::MeshMode);
            QVERIFY(reader.read(plyLines(headerLines({comment})) + body(positions), never));
            QCOMPARE(support::bytesOf(reader.getMesh().vertices), positions);
        }
}

void tst_PLYReaderDevices::staysOpenBehindTheMesh()
{
    QByteArray const file = plyTriangle() + "what follows";
    for (Kind const kind : {Kind::Buffer, Kind::OpenBuffer, Kind::Trickle, Kind::UnbufferedTrickle}) {
        DevicePointer const device = deviceOf(kind, file, {});
        PLYReader reader(PLYReader::MeshMode);
        QVERIFY(reader.read(device.get(), never));
        QVERIFY(device->isOpen());
        QCOMPARE(device->pos(), plyTriangle().size());
        QCOMPARE(device->read(4), QByteArray("what"));
        // And once more, from the start.
        QVERIFY(reader.read(device.get(), never));
        QCOMPARE(reader.getMesh().indices, (QList<int>{0, 1, 2, -1}));
    }
    QTemporaryDir const folder;
    DevicePointer const device = deviceOf(Kind::File, file, folder.filePath(u"mesh.ply"_s));
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(reader.read(device.get(), never));
    QCOMPARE(device->readAll(), QByteArray("what follows"));
}

void tst_PLYReaderDevices::keepsTextMode()
{
    DevicePointer const device = deviceOf(Kind::TextBuffer, plyTriangle() + "a\r\nb", {});
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(reader.read(device.get(), never));
    QVERIFY(device->isTextModeEnabled());
    QCOMPARE(device->readAll(), QByteArray("a\nb"));
}

void tst_PLYReaderDevices::valuesAreWholeHoweverTheyCome()
{
    QByteArrayList const properties = {"property double x", "property double y", "property double z"};
    QByteArray file = plyHeader(50, properties, 1);
    QList<QVector3D> expected;
    support::PLYBody bytes;
    for (int i = 0; i < 50; ++i) {
        expected << QVector3D(0.5f * float(i), -float(i), 1.0f / float(i + 1));
        bytes.f64(double(expected.last().x()))
            .f64(double(expected.last().y()))
            .f64(double(expected.last().z()));
    }
    file += bytes.triangle(0, 1, 49).bytes;
    for (qint64 chunk = 1; chunk < 20; ++chunk) {
        TrickleDevice trickle(file, chunk);
        SequentialDevice sequential(file, chunk);
        for (QIODevice* const device :
             {static_cast<QIODevice*>(&trickle), static_cast<QIODevice*>(&sequential)}) {
            PLYReader reader(PLYReader::MeshMode);
            QVERIFY(reader.read(device, never));
            QCOMPARE(reader.getMesh().vertices, expected);
            QCOMPARE(reader.getMesh().indices, (QList<int>{0, 1, 49, -1}));
        }
    }
}

void tst_PLYReaderDevices::devicesThatCannotBeOpened()
{
    QFile file(u"/no/such/file.ply"_s);
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(!reader.read(&file, never));
    QVERIFY(!reader.read(static_cast<QIODevice*>(nullptr), never));
}

namespace {

class UnseekableDevice : public TrickleDevice
{
public:
    using TrickleDevice::TrickleDevice;
    bool seek(qint64) override { return false; }
};

} // namespace

void tst_PLYReaderDevices::devicesThatCannotBeReset()
{
    UnseekableDevice device(plyTriangle());
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(!reader.read(&device, never));
}

void tst_PLYReaderDevices::sequentialDevicesAreReadFromWhereTheyStand()
{
    SequentialDevice device("two\nlines\n" + plyTriangle());
    QVERIFY(device.open(QIODevice::ReadOnly));
    device.readLine();
    device.readLine();
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(reader.read(&device, never));
    QCOMPARE(reader.getMesh().indices, (QList<int>{0, 1, 2, -1}));
    QVERIFY(!reader.read(&device, never));
}

QTEST_GUILESS_MAIN(tst_PLYReaderDevices)
#include "tst_PLYReaderDevices.moc"
