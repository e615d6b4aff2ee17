#include "differential/peers/Peers.h"
#include "ply/PLYReader.h"
#include "support/Devices.h"
#include "support/Meshes.h"

#include <QDirIterator>
#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

std::atomic<bool> const never = false;

QStringList logged;

// The files are what they are: their messages are compared instead of announced.
class LogCatcher
{
public:
    LogCatcher()
        : before(qInstallMessageHandler(
              [](QtMsgType, QMessageLogContext const&, QString const& text) { logged << text; }))
    {}
    LogCatcher(LogCatcher const&) = delete;
    LogCatcher& operator=(LogCatcher const&) = delete;
    ~LogCatcher() { qInstallMessageHandler(before); }

private:
    QtMessageHandler before;
};

struct Result
{
    bool success = false;
    geometry::Mesh mesh;
    utility::Optional<geometry::Material> material;
    QStringList log;
};

template <typename Read>
Result resultOf(QString const& path, Read const& read)
{
    LogCatcher const catcher;
    logged.clear();
    PLYReader reader(PLYReader::MeshMode);
    reader.setFileName(path);
    bool const success = read(reader);
    return {success, reader.getMesh(), reader.getMaterial(), logged};
}

void compare(Result const& a, Result const& b)
{
    QCOMPARE(a.success, b.success);
    QVERIFY(support::sameBits(a.mesh, b.mesh));
    QVERIFY(a.material == b.material);
    QCOMPARE(a.log, b.log);
}

QByteArray contentOf(QString const& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QList<std::array<int, 3>> trianglesOf(geometry::Mesh const& mesh)
{
    QList<std::array<int, 3>> triangles;
    for (qsizetype i = 0; i < mesh.indices.size(); i += 4)
        triangles << std::array{mesh.indices[i], mesh.indices[i + 1], mesh.indices[i + 2]};
    return triangles;
}

} // namespace

class tst_PlyCorpus : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sameFromEveryDevice_data() { addFiles(); }
    void sameFromEveryDevice();
    void sameAsVtk_data() { addFiles(); }
    void sameAsVtk();

private:
    static void addFiles();
};

void tst_PlyCorpus::addFiles()
{
    QTest::addColumn<QString>("path");
    QString const folder = qEnvironmentVariable("SURFACEIO_CORPUS");
    if (folder.isEmpty() || !QDir(folder).exists())
        QSKIP("no corpus: SURFACEIO_CORPUS names no folder");
    QDirIterator files(folder, {u"*.ply"_s}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QString const path = files.next();
        QTest::newRow(qPrintable(path.mid(folder.size() + 1))) << path;
    }
}

void tst_PlyCorpus::sameFromEveryDevice()
{
    QFETCH(QString, path);
    QByteArray const bytes = contentOf(path);
    Result const fromFile = resultOf(path, [](PLYReader& reader) { return reader.read(never); });
    compare(fromFile, resultOf(path, [&](PLYReader& reader) { return reader.read(bytes, never); }));
    support::SequentialDevice sequential(bytes, 1000);
    compare(fromFile, resultOf(path, [&](PLYReader& reader) { return reader.read(&sequential, never); }));
    support::TrickleDevice trickle(bytes);
    compare(fromFile, resultOf(path, [&](PLYReader& reader) { return reader.read(&trickle, never); }));
}

void tst_PlyCorpus::sameAsVtk()
{
    QFETCH(QString, path);
    if (!peers::hasVtk())
        QSKIP("VTK is not installed");
    Result const ours = resultOf(path, [](PLYReader& reader) { return reader.read(never); });
    if (!ours.success || ours.mesh.isNull())
        return;
    auto const theirs = peers::loadWithVtk(path);
    QVERIFY(theirs);
    QCOMPARE(support::bytesOf(ours.mesh.vertices), support::bytesOf(theirs->vertices));
    QCOMPARE(trianglesOf(ours.mesh), theirs->triangles);
}

QTEST_GUILESS_MAIN(tst_PlyCorpus)
#include "tst_PlyCorpus.moc"
