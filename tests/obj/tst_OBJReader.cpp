#include "obj/OBJReader.h"
#include "support/Devices.h"
#include "support/Meshes.h"
#include "support/ObjFiles.h"

#include <QBuffer>
#include <QTest>

#include <sstream>

using namespace Qt::StringLiterals;

namespace {

std::atomic<bool> const running = false;
std::atomic<bool> const cancelled = true;

QByteArray const triangle = "v 1 2 3\nv 4 5 6\nv 7 8 10\nf 1 2 3\n";
QList<QVector3D> const trianglePositions = {{1, 2, 3}, {4, 5, 6}, {7, 8, 10}};
QList<int> const triangleIndices = {0, 1, 2, -1};

char const* const noMeshWarning = "OBJReader: Unable to load mesh with this TextureSupport flag: 0";

/// Claims more bytes than it has.
class LyingDevice : public QIODevice
{
public:
    LyingDevice(QByteArray bytes_, qint64 answer_, bool isSequential_)
        : bytes(std::move(bytes_))
        , answer(answer_)
        , sequential(isSequential_)
    {}
    bool isSequential() const override { return sequential; }
    qint64 size() const override { return bytes.size() + 1000; }
    qint64 bytesAvailable() const override { return 1000; }
    bool atEnd() const override { return false; }

protected:
    qint64 readData(char* target, qint64 maxSize) override
    {
        qint64 const count = std::min(maxSize, qint64(bytes.size()) - next);
        if (count <= 0)
            return answer;
        std::memcpy(target, bytes.constData() + next, static_cast<std::size_t>(count));
        next += count;
        return count;
    }
    qint64 writeData(char const*, qint64) override { return -1; }

private:
    QByteArray bytes;
    qint64 next = 0;
    qint64 answer;
    bool sequential;
};

/// Runs out of memory while it reads.
class ExhaustingDevice : public QIODevice
{
public:
    qint64 size() const override { return 1000; }

protected:
    qint64 readData(char*, qint64) override { throw std::bad_alloc(); }
    qint64 writeData(char const*, qint64) override { return -1; }
};

std::atomic<bool> setByMessage = false;

void setOnMessage(QtMsgType, QMessageLogContext const&, QString const&)
{
    setByMessage = true;
}

/// Sets a flag when it is read for the n-th time; a line a time.
class CancellingDevice : public support::SequentialDevice
{
public:
    CancellingDevice(QByteArray const& text, int reads_)
        : SequentialDevice(text, 1)
        , reads(reads_)
    {}
    std::atomic<bool> cancel = false;

protected:
    qint64 readData(char* target, qint64 maxSize) override
    {
        if (--reads == 0)
            cancel = true;
        return SequentialDevice::readData(target, std::min<qint64>(maxSize, 1));
    }

private:
    int reads;
};

} // namespace

class tst_OBJReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isFresh();
    void hasNoMetaObjectOfItsOwn();
    void errorTexts_data();
    void errorTexts();
    void unlistedErrorsHaveNoText();
    void ordersVertexIndices_data();
    void ordersVertexIndices();

    void needsFileName();
    void needsFile();
    void refusesFolder();
    void refusesNameWithNul();
    void readsFile();
    void storesResultOfFile();
    void fileReadIgnoresCancel();

    void nullBytesAreNoData();
    void emptyBytesAreRead();
    void emptyFileIsRead();
    void bytesKeepLateErrorsToThemselves();
    void bytesStoreErrorsOfLines();
    void resetsError();

    void readsDevices_data();
    void readsDevices();
    void refusesNullDevice();
    void refusesDeviceThatDoesNotOpen();
    void leavesDeviceOpenBehindTheFailingLine();
    void endsWithoutProgress_data();
    void endsWithoutProgress();
    void endsWithoutMemory();

    void cancelsBeforeFirstLine();
    void cancelsBetweenLines();
    void cancelsAfterLastLine();
    void cancelsBeforeNormals();

    void keepsResultAfterFailure_data();
    void keepsResultAfterFailure();
    void secondReadReplacesFirst();
    void computesNormals_data();
    void computesNormals();
};

void tst_OBJReader::isFresh()
{
    OBJReader const reader;
    QCOMPARE(reader.getError(), OBJReader::NoError);
    QVERIFY(reader.isValid());
    QCOMPARE(reader.getErrorString(), QString());
    QVERIFY(reader.getMesh().isNull());
    QVERIFY(reader.getTransform().isIdentity());
    QVERIFY(reader.getTexture().isNull());
}

void tst_OBJReader::hasNoMetaObjectOfItsOwn()
{
    OBJReader const reader;
    QCOMPARE(reader.metaObject(), &SurfaceReader::staticMetaObject);
}

void tst_OBJReader::errorTexts_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("error");
    QTest::addColumn<QString>("text");
    auto const row = [](int value, OBJReader::Error error, char const* text) {
        QTest::addRow("%d", value) << value << int(error) << QString::fromLatin1(text);
    };
    row(0, OBJReader::NoError, "");
    row(1, OBJReader::NoFileName, "no file name");
    row(2, OBJReader::CannotOpenFile, "cannot open file");
    row(3, OBJReader::NoData, "no data");
    row(4, OBJReader::Cancelled, "cancelled");
    row(5, OBJReader::MultipleMaterialFilesUnsupported, "multiple material files unsupported");
    row(6, OBJReader::IncompleteUvMapping, "incomplete uv mapping");
    row(7, OBJReader::IncompleteVertexCoordinates, "incomplete vertex coordinates");
    row(8, OBJReader::IncompleteTextureCoordinates, "incomplete texture coordinates");
    row(9, OBJReader::IncompleteVertexNormalCoordinates, "incomplete vertex normal coordinates");
    row(10, OBJReader::UnableToLoadMeshWithCurrentTextureSupportFlag,
        "unable to load mesh with current texture support flag");
    row(11, OBJReader::NoMaterialFileName, "no material file name");
    row(12, OBJReader::CannotOpenMaterialFile, "cannot open material file");
    row(13, OBJReader::CannotFindTextureFile, "cannot find texture file");
    row(14, OBJReader::CannotOpenTextureFile, "cannot open texture file");
    row(15, OBJReader::InvalidVertexId, "invalid vertex id");
    row(16, OBJReader::QuadFacesNotSupported, "quad faces not supported");
    row(17, OBJReader::InvalidMaterialFile, "invalid material file");
    row(18, OBJReader::TextureProcessingFailed, "");
}

void tst_OBJReader::errorTexts()
{
    QFETCH(int, value);
    QFETCH(int, error);
    QFETCH(QString, text);
    QCOMPARE(error, value);
    static_assert(sizeof(OBJReader::Error) == 4);
    QCOMPARE(conversions::toString(OBJReader::Error(value)), text);
    std::ostringstream stream;
    stream << OBJReader::Error(value);
    QCOMPARE(stream.str(), text.toStdString());
}

void tst_OBJReader::unlistedErrorsHaveNoText()
{
    for (int const value : {-1, 19, 1000, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
        QCOMPARE(conversions::toString(OBJReader::Error(value)), QString());
}

void tst_OBJReader::ordersVertexIndices_data()
{
    using Corner = QList<int>;
    QTest::addColumn<Corner>("a");
    QTest::addColumn<Corner>("b");
    QTest::addColumn<bool>("isLess");
    QTest::newRow("equal") << Corner{1, 2, 3, 4} << Corner{1, 2, 3, 4} << false;
    QTest::newRow("vertex first") << Corner{1, 9, 9, 9} << Corner{2, 0, 0, 0} << true;
    QTest::newRow("then normal") << Corner{1, 1, 9, 9} << Corner{1, 2, 0, 0} << true;
    QTest::newRow("then uv") << Corner{1, 1, 1, 9} << Corner{1, 1, 2, 0} << true;
    QTest::newRow("then material") << Corner{1, 1, 1, 1} << Corner{1, 1, 1, 2} << true;
    QTest::newRow("signed") << Corner{0, -1, 0, 0} << Corner{0, 0, 0, 0} << true;
    QTest::newRow("greater") << Corner{2, 0, 0, 0} << Corner{1, 9, 9, 9} << false;
}

void tst_OBJReader::ordersVertexIndices()
{
    QFETCH(QList<int>, a);
    QFETCH(QList<int>, b);
    QFETCH(bool, isLess);
    OBJReader::VertexIndices const left{a[0], a[1], a[2], a[3]};
    OBJReader::VertexIndices const right{b[0], b[1], b[2], b[3]};
    QCOMPARE(left < right, isLess);
    QCOMPARE(right < left, a != b && !isLess);
}

void tst_OBJReader::needsFileName()
{
    OBJReader reader;
    QVERIFY(!reader.read(running));
    QCOMPARE(reader.getError(), OBJReader::NoFileName);
    QCOMPARE(reader.getErrorString(), u"no file name"_s);
    QVERIFY(!reader.isValid());
}

void tst_OBJReader::needsFile()
{
    support::ObjFolder const folder;
    OBJReader reader;
    reader.setFileName(folder.path(u"missing.obj"_s));
    QVERIFY(!reader.read(running));
    QCOMPARE(reader.getError(), OBJReader::CannotOpenFile);
}

void tst_OBJReader::refusesFolder()
{
    support::ObjFolder const folder;
    folder.makeFolder(u"folder.obj"_s);
    OBJReader reader;
    reader.setFileName(folder.path(u"folder.obj"_s));
    QVERIFY(!reader.read(running));
    QCOMPARE(reader.getError(), OBJReader::CannotOpenFile);
}

void tst_OBJReader::refusesNameWithNul()
{
    support::ObjFolder const folder;
    OBJReader reader;
    reader.setFileName(folder.write(u"a.obj"_s, triangle) + QChar(u'\0') + u"b"_s);
    QVERIFY(!reader.read(running));
    QCOMPARE(reader.getError(), OBJReader::CannotOpenFile);
}

void tst_OBJReader::readsFile()
{
    support::ObjFolder const folder;
    OBJReader reader;
    reader.setFileName(folder.write(u"a.obj"_s, triangle));
    QVERIFY(reader.read(running));
    QCOMPARE(reader.getError(), OBJReader::NoError);
    QCOMPARE(reader.getMesh().vertices, trianglePositions);
    QCOMPARE(reader.getMesh().indices, triangleIndices);
    QVERIFY(reader.getMesh().colors.isEmpty());
    QVERIFY(reader.getMesh().textureCoordinates.isEmpty());
    QVERIFY(reader.getTransform().isIdentity());
}

void tst_OBJReader::storesResultOfFile()
{
    support::ObjFolder const folder;
    OBJReader reader;
    reader.setFileName(folder.write(u"a.obj"_s, "v 1 2\n"));
    QVERIFY(!reader.read(running));
    QCOMPARE(reader.getError(), OBJReader::IncompleteVertexCoordinates);

    // A code that is only found when all lines are read.
    reader.setFileName(folder.write(u"b.obj"_s, "# nothing\n"));
    QTest::ignoreMessage(QtWarningMsg, noMeshWarning);
    QVERIFY(!reader.read(running));
    QCOMPARE(reader.getError(), OBJReader::UnableToLoadMeshWithCurrentTextureSupportFlag);
    QVERIFY(!reader.isValid());

    reader.setFileName(folder.write(u"c.obj"_s, triangle));
    QVERIFY(reader.read(running));
    QCOMPARE(reader.getError(), OBJReader::NoError);
}

void tst_OBJReader::fileReadIgnoresCancel()
{
    support::ObjFolder const folder;
    OBJReader reader;
    reader.setFileName(folder.write(u"a.obj"_s, triangle));
    QVERIFY(reader.read(cancelled));
    QCOMPARE(reader.getMesh().vertices, trianglePositions);
    QVERIFY(cancelled);
}

void tst_OBJReader::nullBytesAreNoData()
{
    OBJReader reader;
    QCOMPARE(reader.read(QByteArray("v 1 2\n"), running), OBJReader::IncompleteVertexCoordinates);
    QCOMPARE(reader.read(QByteArray(), running), OBJReader::NoData);
    QCOMPARE(reader.getError(), OBJReader::IncompleteVertexCoordinates);
}

void tst_OBJReader::emptyBytesAreRead()
{
    OBJReader reader;
    QTest::ignoreMessage(QtWarningMsg, noMeshWarning);
    QCOMPARE(reader.read(QByteArray(""), running), OBJReader::UnableToLoadMeshWithCurrentTextureSupportFlag);
    QVERIFY(reader.getMesh().isNull());
}

void tst_OBJReader::emptyFileIsRead()
{
    support::ObjFolder const folder;
    OBJReader reader;
    reader.setFileName(folder.write(u"a.obj"_s, {}));
    QTest::ignoreMessage(QtWarningMsg, noMeshWarning);
    QVERIFY(!reader.read(running));
    QCOMPARE(reader.getError(), OBJReader::UnableToLoadMeshWithCurrentTextureSupportFlag);
}

void tst_OBJReader::bytesKeepLateErrorsToThemselves()
{
    OBJReader reader;
    QTest::ignoreMessage(QtWarningMsg, noMeshWarning);
    QCOMPARE(reader.read(QByteArray("# nothing\n"), running),
             OBJReader::UnableToLoadMeshWithCurrentTextureSupportFlag);
    QCOMPARE(reader.getError(), OBJReader::NoError);
    QVERIFY(reader.isValid());
    QCOMPARE(reader.read(triangle, cancelled), OBJReader::Cancelled);
    QCOMPARE(reader.getError(), OBJReader::NoError);

    QTest::ignoreMessage(QtWarningMsg,
                         "OBJReader: mixed textured and untextured vertices are not supported.");
    QCOMPARE(reader.read("vt 0 0\n" + triangle + "f 1/1 2 3\n", running), OBJReader::IncompleteUvMapping);
    QCOMPARE(reader.getError(), OBJReader::NoError);
}

void tst_OBJReader::bytesStoreErrorsOfLines()
{
    OBJReader reader;
    for (auto const& [text, code] : std::initializer_list<std::pair<char const*, OBJReader::Error>>{
             {"v 1 2\n", OBJReader::IncompleteVertexCoordinates},
             {"vt 1\n", OBJReader::IncompleteTextureCoordinates},
             {"vn 1 2\n", OBJReader::IncompleteVertexNormalCoordinates},
             {"f 1 2 3 4\n", OBJReader::QuadFacesNotSupported},
             {"f 1 2\n", OBJReader::InvalidVertexId},
             {"v 1 2 3\nf 1 1 2\n", OBJReader::InvalidVertexId}}) {
        QCOMPARE(reader.read(QByteArray(text), running), code);
        QCOMPARE(reader.getError(), code);
        QCOMPARE(reader.getErrorString(), conversions::toString(code));
        QVERIFY(!reader.isValid());
    }
}

void tst_OBJReader::resetsError()
{
    OBJReader reader;
    QCOMPARE(reader.read(QByteArray("v 1 2\n"), running), OBJReader::IncompleteVertexCoordinates);
    QCOMPARE(reader.read(triangle, running), OBJReader::NoError);
    QCOMPARE(reader.getError(), OBJReader::NoError);
}

void tst_OBJReader::readsDevices_data()
{
    QTest::addColumn<bool>("isSequential");
    QTest::addColumn<int>("chunk");
    for (int const chunk : {1, 2, 7, 4096}) {
        QTest::addRow("random access, %d", chunk) << false << chunk;
        QTest::addRow("sequential, %d", chunk) << true << chunk;
    }
}

void tst_OBJReader::readsDevices()
{
    QFETCH(bool, isSequential);
    QFETCH(int, chunk);
    std::unique_ptr<QIODevice> device;
    if (isSequential)
        device = std::make_unique<support::SequentialDevice>(triangle, chunk);
    else
        device = std::make_unique<support::TrickleDevice>(triangle, chunk);
    OBJReader reader;
    QCOMPARE(reader.read(device.get(), running), OBJReader::NoError);
    QCOMPARE(reader.getMesh().vertices, trianglePositions);
    QCOMPARE(reader.getMesh().indices, triangleIndices);
    QVERIFY(device->isOpen());
}

void tst_OBJReader::refusesNullDevice()
{
    OBJReader reader;
    QCOMPARE(reader.read(static_cast<QIODevice*>(nullptr), running), OBJReader::CannotOpenFile);
}

void tst_OBJReader::refusesDeviceThatDoesNotOpen()
{
    support::ObjFolder const folder;
    QFile file(folder.path(u"missing.obj"_s));
    OBJReader reader;
    QCOMPARE(reader.read(&file, running), OBJReader::CannotOpenFile);
    QCOMPARE(reader.getError(), OBJReader::NoError);
}

void tst_OBJReader::leavesDeviceOpenBehindTheFailingLine()
{
    QByteArray const bytes = "v 1 2 3\nv 1 2\nrest of the stream";
    QBuffer buffer;
    buffer.setData(bytes);
    OBJReader reader;
    QCOMPARE(reader.read(&buffer, running), OBJReader::IncompleteVertexCoordinates);
    QVERIFY(buffer.isOpen());
    QCOMPARE(buffer.readAll(), QByteArray("rest of the stream"));

    support::SequentialDevice pipe(bytes);
    QCOMPARE(reader.read(&pipe, running), OBJReader::IncompleteVertexCoordinates);
    QCOMPARE(pipe.readAll(), QByteArray("rest of the stream"));
}

void tst_OBJReader::endsWithoutProgress_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("answer");
    QTest::addColumn<bool>("isSequential");
    for (int const answer : {0, -1}) {
        for (bool const isSequential : {false, true}) {
            QTest::addRow("nothing, %d, %d", answer, isSequential) << QByteArray() << answer << isSequential;
            QTest::addRow("a line, %d, %d", answer, isSequential) << triangle << answer << isSequential;
            QTest::addRow("half a line, %d, %d", answer, isSequential)
                << QByteArray(triangle + "v 1") << answer << isSequential;
        }
    }
}

void tst_OBJReader::endsWithoutProgress()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, answer);
    QFETCH(bool, isSequential);
    LyingDevice device(bytes, answer, isSequential);
    OBJReader reader;
    OBJReader::Error const code = reader.read(&device, running);
    bool const isCut = bytes.endsWith("v 1");
    QCOMPARE(code, isCut ? OBJReader::IncompleteVertexCoordinates : OBJReader::NoData);
    QVERIFY(reader.getMesh().isNull());
}

void tst_OBJReader::endsWithoutMemory()
{
    ExhaustingDevice device;
    OBJReader reader;
    QCOMPARE(reader.read(&device, running), OBJReader::NoData);
}

void tst_OBJReader::cancelsBeforeFirstLine()
{
    OBJReader reader;
    QCOMPARE(reader.read(triangle, cancelled), OBJReader::Cancelled);
    QVERIFY(reader.getMesh().isNull());
    support::TrickleDevice device(triangle);
    QCOMPARE(reader.read(&device, cancelled), OBJReader::Cancelled);
    QCOMPARE(device.pos(), 0);
}

void tst_OBJReader::cancelsBetweenLines()
{
    // While the first line is read; the second would be an error.
    CancellingDevice device("v 1 2 3\nv 1 2\n", 3);
    OBJReader reader;
    QCOMPARE(reader.read(&device, device.cancel), OBJReader::Cancelled);
    QVERIFY(device.cancel);
    QVERIFY(reader.getMesh().isNull());
}

void tst_OBJReader::cancelsAfterLastLine()
{
    CancellingDevice device("v 1 2 3\nv 1 2 3", 14);
    OBJReader reader;
    QCOMPARE(reader.read(&device, device.cancel), OBJReader::Cancelled);
    QVERIFY(reader.getMesh().isNull());

    // An error of the last line comes first.
    CancellingDevice bad("v 1 2 3\nv 1 2", 12);
    QCOMPARE(reader.read(&bad, bad.cancel), OBJReader::IncompleteVertexCoordinates);
    QVERIFY(bad.cancel);
}

void tst_OBJReader::cancelsBeforeNormals()
{
    // When all lines are read there is only one more step that can be cancelled. The warning of the undefined
    // material comes before it.
    support::ObjFolder const folder;
    folder.writeImage(u"t.png"_s, support::plainImage(2, 2, Qt::blue));
    folder.write(u"m.mtl"_s, "newmtl a\nmap_Kd t.png\n");
    OBJReader reader;
    reader.setFileName(folder.path(u"a.obj"_s));
    QCOMPARE(reader.read(triangle, running), OBJReader::NoError);
    geometry::Mesh const before = reader.getMesh();

    QtMessageHandler const handler = qInstallMessageHandler(setOnMessage);
    OBJReader::Error const code = reader.read("mtllib m.mtl\nusemtl b\nv 9 9 9\n" + triangle, setByMessage);
    qInstallMessageHandler(handler);
    QVERIFY(setByMessage);
    QCOMPARE(code, OBJReader::Cancelled);
    QCOMPARE(reader.getError(), OBJReader::NoError);
    QVERIFY(support::sameBits(reader.getMesh(), before));
}

void tst_OBJReader::keepsResultAfterFailure_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("policy");
    QTest::addColumn<int>("code");
    QTest::addColumn<QByteArray>("warning");
    auto const row = [](char const* name, QByteArray const& bytes, int policy, OBJReader::Error code,
                        QByteArray const& warning) {
        QTest::newRow(name) << bytes << policy << int(code) << warning;
    };
    row("line", triangle + "v 1 2\n", 0, OBJReader::IncompleteVertexCoordinates, {});
    row("index", triangle + "f 1 2 9\n", 0, OBJReader::InvalidVertexId, {});
    row("mixed", "vt 0 0\n" + triangle + "f 1/1 2 3\n", 0, OBJReader::IncompleteUvMapping,
        "OBJReader: mixed textured and untextured vertices are not supported.");
    row("empty", "", 0, OBJReader::UnableToLoadMeshWithCurrentTextureSupportFlag, noMeshWarning);
    row("no colours", triangle, 1, OBJReader::UnableToLoadMeshWithCurrentTextureSupportFlag,
        "OBJReader: Unable to load mesh with this TextureSupport flag: 1");
    row("no texture", triangle, 3, OBJReader::UnableToLoadMeshWithCurrentTextureSupportFlag,
        "OBJReader: Unable to load mesh with this TextureSupport flag: 3");
}

void tst_OBJReader::keepsResultAfterFailure()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, policy);
    QFETCH(int, code);
    QFETCH(QByteArray, warning);
    OBJReader reader;
    QCOMPARE(reader.read(triangle, running), OBJReader::NoError);
    geometry::Mesh const before = reader.getMesh();
    reader.setTextureSupport(SurfaceReader::TextureSupport(policy));
    if (!warning.isEmpty())
        QTest::ignoreMessage(QtWarningMsg, warning.constData());
    QCOMPARE(int(reader.read(bytes, running)), code);
    QVERIFY(support::sameBits(reader.getMesh(), before));
}

void tst_OBJReader::secondReadReplacesFirst()
{
    OBJReader reader;
    QCOMPARE(reader.read("vn 0 0 1\nvn 0 0 1\nvn 0 0 1\n" + triangle, running), OBJReader::NoError);
    QCOMPARE(reader.read(QByteArray("v 0 0 0\nvn 1 0 0\n"), running), OBJReader::NoError);
    QCOMPARE(reader.getMesh().vertices, QList<QVector3D>({{0, 0, 0}}));
    QCOMPARE(reader.getMesh().normals, QList<QVector3D>({{1, 0, 0}}));
    QVERIFY(reader.getMesh().indices.isEmpty());
}

void tst_OBJReader::computesNormals_data()
{
    QTest::addColumn<bool>("sharpEdges");
    QTest::newRow("smooth") << false;
    QTest::newRow("sharp") << true;
}

void tst_OBJReader::computesNormals()
{
    // A right-angled roof: its normals are split at the ridge, or not.
    QFETCH(bool, sharpEdges);
    OBJReader reader(sharpEdges);
    QCOMPARE(reader.read(QByteArray("v 0 0 0\nv 0 1 0\nv 1 0 0\nv 0 0 1\nf 1 2 3\nf 1 4 2\n"), running),
             OBJReader::NoError);
    QCOMPARE(reader.getMesh().indices.size(), 8);
    QCOMPARE(reader.getMesh().normals.size(), reader.getMesh().vertices.size());
    QCOMPARE(reader.getMesh().vertices.size(), sharpEdges ? 6 : 4);
}

QTEST_APPLESS_MAIN(tst_OBJReader)
#include "tst_OBJReader.moc"
