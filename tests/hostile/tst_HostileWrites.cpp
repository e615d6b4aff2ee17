// Disks that fill up and devices that stop taking bytes, at every byte: a writer says so where its contract
// is to look, and writes whole files otherwise.
#include "framework/MeshWriter.h"
#include "framework/XYZWriter.h"
#include "hostile/Child.h"
#include "hostile/Messages.h"
#include "hostile/QuickFolder.h"
#include "hostile/Seeds.h"
#include "inhouse/data/ShapeNodeIO.h"
#include "ply/PLYWriter.h"
#include "scene/ShapeNodeIOHelper.h"
#include "stl/STLWriter.h"
#include "support/Meshes.h"
#include "support/PrivateAccess.h"
#include "support/VolumeMeshes.h"
#include "vmesh/MTModelBoundaryConditionsWriter.h"
#include "vmesh/MTModelVMeshWriter.h"

#include <QDataStream>
#include <QFile>
#include <QTest>

#include <functional>

#ifdef Q_OS_UNIX
#include <sys/resource.h>

#include <csignal>
#endif

using namespace Qt::StringLiterals;

namespace support {

struct WritePly
{
    using Member = bool (PLYWriter::*)(QDataStream&);
    friend Member privateMember(WritePly);
};
template struct PrivateMember<WritePly, &PLYWriter::writeData>;

struct WriteStl
{
    using Member = bool (STLWriter::*)(QDataStream&);
    friend Member privateMember(WriteStl);
};
template struct PrivateMember<WriteStl, &STLWriter::writeData>;

} // namespace support

namespace {

geometry::Mesh mesh()
{
    geometry::Mesh result = support::cube();
    result.normals = QList<QVector3D>(result.vertices.size(), QVector3D(0, 0, 1));
    result.colors = QList<unsigned int>(result.vertices.size(), 0xFF102030);
    return result;
}

std::unique_ptr<geometry::ShapeNode> tree()
{
    auto* const shape = new geometry::Shape;
    shape->setMesh(mesh());
    auto root = std::make_unique<geometry::ShapeNode>(u"root"_s);
    root->addChild(new geometry::ShapeNode(u"leaf"_s, shape));
    return root;
}

struct Writer
{
    char const* name;
    QString fileName;
    /// Whether it says so when the bytes do not reach the disk.
    bool looks;
    std::function<bool(QString const&)> write;
};

bool writeStl(QString const& path)
{
    STLWriter writer;
    writer.setData(mesh(), 1, 2);
    writer.setFilePath(path);
    return writer.write();
}

bool writePly(QString const& path)
{
    PLYWriter writer;
    writer.setData(mesh(), true, geometry::Material());
    writer.setFilePath(path);
    return writer.write();
}

bool writeRecord(QString const& path)
{
    QList<float> values(3 * 100, 1.5f);
    QList<int> indices(400, 7);
    return MeshWriter::write(path, 100, values.data(), values.data(), 400, indices.data());
}

bool writeVMesh(QString const& path)
{
    MTModelVMesh volume = support::tetrahedralBox(2);
    return MTModelVMeshWriter(volume).write(path);
}

bool writeConditions(QString const& path)
{
    MTModelBoundaryConditions conditions;
    conditions.numBoundaryConditions = 50;
    conditions.pointIndices = support::sharedArray(QList<qint32>(50, 3));
    conditions.values = support::sharedArray(QList<float>(150, 0.25f));
    return MTModelBoundaryConditionsWriter(conditions).write(path);
}

std::vector<Writer> const& writers()
{
    static std::vector<Writer> const list = {
        {"STL", u"a.stl"_s, true, writeStl},
        {"PLY", u"a.ply"_s, true, writePly},
        {"facade, STL", u"a.b.stl"_s, true,
         [](QString const& path) { return MeshWriter::write(path, mesh()); }},
        {"facade, PLY", u"a.b.ply"_s, true,
         [](QString const& path) { return MeshWriter::write(path, mesh()); }},
        {"mesh array record", u"a.mesh"_s, false, writeRecord},
        {"XYZ", u"a.xyz"_s, false,
         [](QString const& path) {
             return XYZWriter::write(path, QList<QVector3D>(100, QVector3D(1, 2, 3)));
         }},
        {"vmesh", u"a.vmesh"_s, false, writeVMesh},
        {"conditions", u"a.bc"_s, false, writeConditions},
        {"shape", u"a.shape"_s, true,
         [](QString const& path) {
             return ShapeNodeIOHelper::write(path, *tree()->getChildren()[0]->getShape());
         }},
        {"shape tree", u"a.tree"_s, false,
         [](QString const& path) { return ShapeNodeIOHelper::write(path, tree().get()); }},
    };
    return list;
}

QByteArray contentOf(QString const& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Takes `room` bytes in writes of at most `chunk`, then says that it took `answer`.
class FullDevice : public QIODevice
{
public:
    FullDevice(qint64 room_, qint64 chunk_, qint64 answer_)
        : room(room_)
        , chunk(chunk_)
        , answer(answer_)
    {}

    QByteArray bytes;

protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(char const* data, qint64 size) override
    {
        constexpr int mostQuestions = 10'000;
        qint64 const count = std::min({size, chunk, room - bytes.size()});
        if (count <= 0) {
            if (++questions > mostQuestions)
                qFatal("a device that is full was asked 10000 times");
            return answer;
        }
        bytes.append(data, count);
        return count;
    }

private:
    qint64 room;
    qint64 chunk;
    qint64 answer;
    int questions = 0;
};

/// Each writer that works on a stream.
struct Streamer
{
    char const* name;
    std::function<bool(QDataStream&)> write;
};

std::vector<Streamer> const& streamers()
{
    static std::vector<Streamer> const list = {
        {"STL",
         [](QDataStream& stream) {
             STLWriter writer;
             writer.setData(mesh(), 1, 2);
             return (writer.*privateMember(support::WriteStl()))(stream);
         }},
        {"PLY",
         [](QDataStream& stream) {
             PLYWriter writer;
             writer.setData(mesh(), true, geometry::Material());
             return (writer.*privateMember(support::WritePly()))(stream);
         }},
        {"shape",
         [](QDataStream& stream) { return tree()->getChildren()[0]->getShape()->saveBinary(&stream); }},
        {"shape tree",
         [](QDataStream& stream) {
             ShapeNodeIO::saveRecursive(tree().get(), &stream);
             return stream.status() == QDataStream::Ok;
         }},
    };
    return list;
}

} // namespace

class tst_HostileWrites : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fullDisk_data();
    void fullDisk();
    void fullDevice_data();
    void fullDevice();
    void noPlace_data() { fullDisk_data(); }
    void noPlace();
};

void tst_HostileWrites::fullDisk_data()
{
    QTest::addColumn<int>("number");
    for (std::size_t i = 0; i < writers().size(); ++i)
        QTest::newRow(writers()[i].name) << int(i);
}

void tst_HostileWrites::fullDisk()
{
#ifdef Q_OS_UNIX
    QFETCH(int, number);
    Writer const& writer = writers()[std::size_t(number)];
    hostile::Messages const messages;
    hostile::QuickFolder const folder;
    QString const path = folder.path(writer.fileName);
    QVERIFY(writer.write(path));
    QByteArray const whole = contentOf(path);
    QVERIFY(whole.size() > 200);
    for (qint64 room = 0; room <= whole.size() + 7; room += 7) {
        hostile::ChildEnd const end = hostile::runInChild([&] {
            std::signal(SIGXFSZ, SIG_IGN);
            rlimit const limit = {rlim_t(room), rlim_t(room)};
            return ::setrlimit(RLIMIT_FSIZE, &limit) == 0 && writer.write(path) ? 1 : 0;
        });
        bool const fits = room >= whole.size();
        QCOMPARE(end.signal, 0);
        QCOMPARE(end.result, fits || !writer.looks ? 1 : 0);
        QByteArray const written = contentOf(path);
        QVERIFY(fits ? written == whole : whole.startsWith(written) && written.size() <= room);
    }
#else
    QSKIP("no way to limit the size of files here");
#endif
}

void tst_HostileWrites::fullDevice_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("answer");
    for (std::size_t i = 0; i < streamers().size(); ++i)
        for (int const answer : {0, -1})
            QTest::addRow("%s, %d", streamers()[i].name, answer) << int(i) << answer;
}

void tst_HostileWrites::fullDevice()
{
    QFETCH(int, number);
    QFETCH(int, answer);
    Streamer const& streamer = streamers()[std::size_t(number)];
    hostile::Messages const messages;
    constexpr qint64 everything = 1 << 20;
    FullDevice good(everything, everything, answer);
    QVERIFY(good.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    QDataStream stream(&good);
    QVERIFY(streamer.write(stream));
    for (qint64 room = 0; room <= good.bytes.size(); ++room) {
        FullDevice device(room, everything, answer);
        QVERIFY(device.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        QDataStream to(&device);
        QCOMPARE(streamer.write(to), room == good.bytes.size());
    }
    // A write that takes half of what it is given, and says so, is not one that took it all.
    FullDevice half(everything, 3, answer);
    QVERIFY(half.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    QDataStream to(&half);
    QVERIFY(!streamer.write(to));
}

// A directory, a link to itself, a file where a folder should be, no name: false, and nothing is there
// afterwards that was not before.
void tst_HostileWrites::noPlace()
{
    QFETCH(int, number);
    Writer const& writer = writers()[std::size_t(number)];
    hostile::Messages const messages;
    hostile::QuickFolder const folder;
    QString const directory = folder.path(u"directory."_s + writer.fileName);
    QVERIFY(QDir().mkpath(directory + u"/inside"_s));
    QString const underFile = folder.write(u"file"_s, QByteArray("content")) + u'/' + writer.fileName;
    QString const longName = folder.path(QString(4000, u'n') + writer.fileName);
    for (QString const& place : {directory, underFile, longName, QString(), u"/proc/"_s + writer.fileName})
        QVERIFY2(!writer.write(place), qPrintable(place));
    QVERIFY(QFileInfo(directory + u"/inside"_s).isDir());
    QCOMPARE(contentOf(folder.path(u"file"_s)), QByteArray("content"));
    QCOMPARE(messages.complaintOfQt(), QString());
}

QTEST_GUILESS_MAIN(tst_HostileWrites)
#include "tst_HostileWrites.moc"
