#include "framework/MeshReader.h"
#include "framework/MeshWriter.h"
#include "ply/PLYReader.h"
#include "ply/PLYWriter.h"
#include "support/Meshes.h"
#include "support/PlyFiles.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

std::atomic<bool> const never = false;

QByteArray contentOf(QString const& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

bool put(QString const& path, QByteArray const& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

QByteArray plyOf(geometry::Mesh const& mesh)
{
    PLYWriter writer;
    writer.setData(mesh, false, {});
    QByteArray bytes;
    writer.write(bytes);
    return bytes;
}

geometry::Mesh readDirectly(QByteArray const& bytes)
{
    PLYReader reader(PLYReader::MeshMode);
    reader.read(bytes, never);
    return reader.getMesh();
}

// Three vertices of u = v = 0.5 and a texture line.
QByteArray texturedTriangle()
{
    QByteArray file =
        "comment TextureFile green.png\n" +
        support::plyHeader(3, support::plyPosition + QByteArrayList{"property float u", "property float v"},
                           1);
    for (int i = 0; i < 3; ++i)
        file += support::PLYBody().f32({float(i), 0, 0, 0.5f, 0.5f}).bytes;
    return file + support::PLYBody().triangle(0, 1, 2).bytes;
}

} // namespace

class tst_FacadePly : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsFiles_data();
    void readsFiles();
    void leavesOtherSuffixes_data();
    void leavesOtherSuffixes();
    void failsAsTheReaderDoes();
    void turnsTexturesIntoColors();
    void writesFiles_data();
    void writesFiles();
    void writesColorsWithoutAlpha();
    void reportsWhatTheWriterReports();
};

void tst_FacadePly::readsFiles_data()
{
    QTest::addColumn<QString>("name");
    for (char const* const name : {"model.ply", "model.PLY", "model.Ply", "a.b.ply", ".ply", "model.stl.ply"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void tst_FacadePly::readsFiles()
{
    QFETCH(QString, name);
    QTemporaryDir const folder;
    QByteArray const bytes = plyOf(support::cube());
    QVERIFY(put(folder.filePath(name), bytes));
    auto const fromFile = MeshReader::read(folder.filePath(name));
    QVERIFY(fromFile);
    QVERIFY(support::sameBits(*fromFile, readDirectly(bytes)));
    auto const fromBytes = MeshReader::read(bytes, name);
    QVERIFY(fromBytes);
    QVERIFY(support::sameBits(*fromBytes, *fromFile));
}

void tst_FacadePly::leavesOtherSuffixes_data()
{
    QTest::addColumn<QString>("name");
    for (char const* const name : {"model.ply.bak", "model.reply", "ply", "model.", "model.ply "})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void tst_FacadePly::leavesOtherSuffixes()
{
    QFETCH(QString, name);
    QTemporaryDir const folder;
    QVERIFY(put(folder.filePath(name), support::plyTriangle()));
    QVERIFY(!MeshReader::read(folder.filePath(name)));
    QVERIFY(!MeshReader::read(support::plyTriangle(), name));
}

void tst_FacadePly::failsAsTheReaderDoes()
{
    QTemporaryDir const folder;
    QString const path = folder.filePath(u"model.ply"_s);
    QVERIFY(put(path, "nonsense"));
    QVERIFY(!MeshReader::read(path));
    QVERIFY(!MeshReader::read("nonsense", u"model.ply"_s));
    QTest::ignoreMessage(QtWarningMsg, "Empty data for : \"model.ply\"");
    QVERIFY(!MeshReader::read(QByteArray(), u"model.ply"_s));
    QByteArray const ascii = support::plyTriangle().replace("binary_little_endian", "ascii");
    QTest::ignoreMessage(QtWarningMsg, "This PLY is encoded in ASCII. We only support binary PLYs");
    QVERIFY(!MeshReader::read(ascii, u"model.ply"_s));
}

void tst_FacadePly::turnsTexturesIntoColors()
{
    QTemporaryDir const folder;
    QImage green(1, 1, QImage::Format_RGB32);
    green.fill(Qt::green);
    QVERIFY(green.save(folder.filePath(u"green.png"_s)));
    QString const path = folder.filePath(u"model.ply"_s);
    QVERIFY(put(path, texturedTriangle()));
    QList<unsigned int> const colors(3, 0xFF00FF00u);
    QCOMPARE(MeshReader::read(path).value_or(geometry::Mesh()).colors, colors);
    // Bytes find it beside the file that they say they are.
    QCOMPARE(MeshReader::read(texturedTriangle(), path).value_or(geometry::Mesh()).colors, colors);
    QVERIFY(MeshReader::read(path)->textureCoordinates.isEmpty());
}

void tst_FacadePly::writesFiles_data()
{
    QTest::addColumn<QString>("name");
    for (char const* const name :
         {"mesh.ply", "scan.tar.ply", "scan.PLY", "scan.reply", "a.stl.ply", ".ply", "x.y.zply"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void tst_FacadePly::writesFiles()
{
    QFETCH(QString, name);
    QTemporaryDir const folder;
    QVERIFY(MeshWriter::write(folder.filePath(name), support::cube()));
    QCOMPARE(contentOf(folder.filePath(name)), plyOf(support::cube()));
}

void tst_FacadePly::writesColorsWithoutAlpha()
{
    geometry::Mesh mesh = support::cube();
    mesh.colors = QList<unsigned int>(8, 0x40302010u);
    QTemporaryDir const folder;
    QString const path = folder.filePath(u"mesh.ply"_s);
    QVERIFY(MeshWriter::write(path, mesh));
    QVERIFY(!contentOf(path).contains("alpha"));
    QVERIFY(!contentOf(path).contains("velquin_material"));
    QVERIFY(!contentOf(path).contains("comment"));
    QCOMPARE(MeshReader::read(path)->colors, QList<unsigned int>(8, 0xFF302010u));
}

void tst_FacadePly::reportsWhatTheWriterReports()
{
    QTemporaryDir const folder;
    QString const path = folder.filePath(u"no/mesh.ply"_s);
    QByteArray const message =
        "Couldn't write mesh as .ply:  \"Unable to create .ply file at location: " + path.toUtf8() + '"';
    QTest::ignoreMessage(QtWarningMsg, message.constData());
    QVERIFY(!MeshWriter::write(path, support::cube()));
    QVERIFY(!QDir(folder.filePath(u"no"_s)).exists());
}

QTEST_GUILESS_MAIN(tst_FacadePly)
#include "tst_FacadePly.moc"
