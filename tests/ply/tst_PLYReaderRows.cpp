#include "RandomPly.h"
#include "ply/PLYReader.h"
#include "support/Devices.h"
#include "support/PrivateAccess.h"

#include <QBuffer>
#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace support {

struct DecodesRows
{
    using Member = bool PLYReader::*;
    friend Member privateMember(DecodesRows);
};
template struct PrivateMember<DecodesRows, &PLYReader::decodesRows>;

} // namespace support

using ply_random::File;
using support::CancellingDevice;
using support::SequentialDevice;
using support::TrickleDevice;

namespace {

// Everything that a caller can see of a read.
struct Outcome
{
    bool success = false;
    QStringList messages;
    qint64 position = 0;
    QByteArray lists;
    QList<QColor> faceColors;
    QByteArray material;
    QImage texture;
};

QStringList* heard = nullptr;

void listen(QtMsgType type, QMessageLogContext const&, QString const& text)
{
    heard->append(QString::number(type) + text);
}

template <typename Value>
QByteArray bytesOf(QList<Value> const& list)
{
    auto const* const first = reinterpret_cast<char const*>(list.constData());
    qsizetype const size = list.size() * qsizetype(sizeof(Value));
    return QByteArray::number(list.size()) + ':' + QByteArray(first, size);
}

QByteArray listsOf(PLYReader const& reader)
{
    geometry::Mesh const& mesh = reader.getMesh();
    geometry::PointCloud const& cloud = reader.getPointCloud();
    return bytesOf(mesh.vertices) + bytesOf(mesh.normals) + bytesOf(mesh.indices) + bytesOf(mesh.colors) +
           bytesOf(mesh.textureCoordinates) + bytesOf(cloud.positions) + bytesOf(cloud.normals) +
           bytesOf(cloud.colors());
}

// Bit for bit: a material's numbers may be no numbers.
QByteArray bytesOf(utility::Optional<geometry::Material> const& material)
{
    if (!material)
        return "none";
    QList<QColor> const colors = {material->ambientColor, material->diffuseColor, material->specularColor,
                                  material->emissiveColor};
    QByteArray names;
    for (QColor const& color : colors)
        names += color.isValid() ? color.name(QColor::HexArgb).toUtf8() : "-";
    QList<float> const numbers = {material->ambientIntensity, material->shininess, material->transparency};
    return names + bytesOf(numbers) + (material->detailNoise ? "noise" : "");
}

// A reader that has read something before, so that leftovers show.
void readBefore(PLYReader& reader, std::atomic<bool> const& never)
{
    reader.read(ply_random::firstFile(), never);
}

Outcome outcomeOf(File const& file, QIODevice& device, std::atomic<bool> const& cancel, bool decodesRows)
{
    std::atomic<bool> const never = false;
    PLYReader reader(file.asCloud ? PLYReader::PointCloudMode : PLYReader::MeshMode);
    reader.*privateMember(support::DecodesRows()) = decodesRows;
    readBefore(reader, never);
    reader.activeFaceColorMode(file.hasFaceColors);
    reader.setTextureSupport(SurfaceReader::TextureSupport(file.textureSupport));
    reader.setTextureOverride(file.texture);
    Outcome outcome;
    heard = &outcome.messages;
    QtMessageHandler const before = qInstallMessageHandler(listen);
    outcome.success = reader.read(&device, cancel);
    qInstallMessageHandler(before);
    outcome.position = device.pos();
    outcome.lists = listsOf(reader);
    outcome.faceColors = reader.getFaceColors();
    outcome.material = bytesOf(reader.getMaterial());
    outcome.texture = reader.getTexture();
    return outcome;
}

void compare(Outcome const& rows, Outcome const& values, QByteArray const& file)
{
    bool const isSame = rows.success == values.success && rows.messages == values.messages &&
                        rows.position == values.position && rows.lists == values.lists &&
                        rows.faceColors == values.faceColors && rows.material == values.material &&
                        rows.texture == values.texture;
    if (!isSame)
        qInfo().noquote() << file.left(file.indexOf("end_header")) << rows.success << values.success
                          << rows.messages << values.messages << rows.position << values.position;
    QVERIFY(isSame);
}

void readBothWays(File const& file, QByteArray const& bytes)
{
    std::atomic<bool> const never = false;
    QBuffer first;
    QBuffer second;
    first.setData(bytes);
    second.setData(bytes);
    compare(outcomeOf(file, first, never, true), outcomeOf(file, second, never, false), bytes);
}

template <typename Device>
void readBothWays(File const& file, qint64 chunk)
{
    std::atomic<bool> const never = false;
    Device first(file.bytes(), chunk);
    Device second(file.bytes(), chunk);
    compare(outcomeOf(file, first, never, true), outcomeOf(file, second, never, false), file.bytes());
}

} // namespace

/// Holds the decoding of whole rows to the reading value by value.
class tst_PLYReaderRows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void generated();
    void everyLength();
    void acrossBlocks_data();
    void acrossBlocks();
    void slowDevices();
    void cancelled();
    void files();
};

// Set SURFACEIO_GENERATED_FILES for a longer run.
void tst_PLYReaderRows::generated()
{
    int const wanted = qEnvironmentVariableIntValue("SURFACEIO_GENERATED_FILES");
    int successes = 0;
    int const count = wanted > 0 ? wanted : 3000;
    for (int seed = 0; seed < count; ++seed) {
        File const file = ply_random::file(quint32(seed), 12);
        readBothWays(file, file.bytes());
        if (QTest::currentTestFailed())
            QFAIL(QByteArray::number(seed).constData());
        QBuffer buffer;
        buffer.setData(file.bytes());
        std::atomic<bool> const never = false;
        successes += outcomeOf(file, buffer, never, true).success ? 1 : 0;
    }
    // Both kinds are common, or the comparison says little.
    QVERIFY(successes > count / 3 && successes < count - count / 10);
}

void tst_PLYReaderRows::everyLength()
{
    for (quint32 seed = 0; seed < 80; ++seed) {
        File const file = ply_random::file(seed, 4);
        QByteArray const bytes = file.bytes();
        for (qsizetype length = file.header.size(); length < bytes.size(); ++length) {
            readBothWays(file, bytes.left(length));
            if (QTest::currentTestFailed())
                QFAIL((QByteArray::number(seed) + " cut to " + QByteArray::number(length)).constData());
        }
    }
}

void tst_PLYReaderRows::acrossBlocks_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 0; seed < 10; ++seed)
        QTest::addRow("%u", seed) << seed;
}

// So many rows that several blocks of bytes are read, and rows lie across their ends.
void tst_PLYReaderRows::acrossBlocks()
{
    QFETCH(quint32, seed);
    File const file = ply_random::file(seed, 9000);
    readBothWays(file, file.bytes());
    readBothWays(file, file.bytes().chopped(file.body.size() / 3));
    readBothWays<TrickleDevice>(file, 1000);
    QTemporaryDir folder;
    QFile written(folder.filePath(QStringLiteral("some.ply")));
    QVERIFY(written.open(QIODevice::WriteOnly) && written.write(file.bytes()) == file.bytes().size());
    written.close();
    std::atomic<bool> const never = false;
    QFile first(written.fileName());
    QFile second(written.fileName());
    compare(outcomeOf(file, first, never, true), outcomeOf(file, second, never, false), file.bytes());
}

void tst_PLYReaderRows::slowDevices()
{
    for (quint32 seed = 0; seed < 100; ++seed) {
        File const file = ply_random::file(seed, 6);
        for (qint64 const chunk : {1, 7, 64}) {
            readBothWays<TrickleDevice>(file, chunk);
            readBothWays<SequentialDevice>(file, chunk);
        }
        if (QTest::currentTestFailed())
            QFAIL(QByteArray::number(seed).constData());
    }
}

// The flag comes up while the bytes of a body arrive. Both ways fail, and leave the same, but for the very
// last value: by then its row is looked at no more when it came in one piece.
void tst_PLYReaderRows::cancelled()
{
    for (quint32 seed = 0; seed < 25; ++seed) {
        File const file = ply_random::file(seed, 3);
        qsizetype const end = file.bytes().size() - ply_random::longestValue;
        for (qsizetype offset = file.header.size(); offset < end; ++offset) {
            CancellingDevice first(file.bytes(), offset);
            CancellingDevice second(file.bytes(), offset);
            bool const asRows = outcomeOf(file, first, first.cancel, true).success;
            bool const asValues = outcomeOf(file, second, second.cancel, false).success;
            if (asRows && !asValues)
                QFAIL((QByteArray::number(seed) + " at " + QByteArray::number(offset)).constData());
        }
    }
}

// Files of other programs, where they are at hand.
void tst_PLYReaderRows::files()
{
    QString const folder = qEnvironmentVariable("SURFACEIO_CORPUS");
    if (folder.isEmpty() || !QFileInfo(folder).isDir())
        QSKIP("no corpus");
    QDirIterator paths(folder, {QStringLiteral("*.ply")}, QDir::Files, QDirIterator::Subdirectories);
    int seen = 0;
    while (paths.hasNext()) {
        QFile file(paths.next());
        if (file.size() > 64 * 1024 * 1024 || !file.open(QIODevice::ReadOnly))
            continue;
        readBothWays(File(), file.readAll());
        if (QTest::currentTestFailed())
            QFAIL(qPrintable(file.fileName()));
        ++seen;
    }
    QVERIFY(seen > 0);
}

QTEST_GUILESS_MAIN(tst_PLYReaderRows)
#include "tst_PLYReaderRows.moc"
