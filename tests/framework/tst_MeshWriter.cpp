#include "framework/MeshWriter.h"
#include "stl/STLWriter.h"
#include "support/Meshes.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QByteArray contentOf(QString const& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

QByteArray stlOf(geometry::Mesh const& mesh)
{
    STLWriter writer;
    writer.setData(mesh, 0, 0);
    QByteArray bytes;
    writer.write(bytes);
    return bytes;
}

} // namespace

class tst_MeshWriter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void stl_data();
    void stl();
    void unexpectedExtension_data();
    void unexpectedExtension();
    void emptyMesh();
    void cannotBeMade();
    void record();
    void recordWithoutPoints();
    void recordReplacesTheFile();
    void recordThatCannotBeOpened();
};

void tst_MeshWriter::stl_data()
{
    QTest::addColumn<QString>("name");
    for (char const* const name : {"mesh.stl", "MESH.STL", "mesh.Stl", "scan.tar.stl", "mesh.ply.stl",
                                   "mesh.xstl", ".stl", "new folder/mesh.stl"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void tst_MeshWriter::stl()
{
    QFETCH(QString, name);
    QTemporaryDir const directory;
    QVERIFY(MeshWriter::write(directory.filePath(name), support::cube()));
    QCOMPARE(contentOf(directory.filePath(name)), stlOf(support::cube()));
}

void tst_MeshWriter::unexpectedExtension_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("suffix");
    QTest::newRow("text") << QStringLiteral("out.txt") << QStringLiteral("txt");
    QTest::newRow("format before the end") << QStringLiteral("mesh.stl.bak") << QStringLiteral("stl.bak");
    QTest::newRow("all after the first dot") << QStringLiteral("v1.2.obj") << QStringLiteral("2.obj");
    QTest::newRow("none") << QStringLiteral("stl") << QString();
    QTest::newRow("empty") << QStringLiteral("mesh.") << QString();
    QTest::newRow("dots of folders do not count") << QStringLiteral("a.stl/mesh") << QString();
}

void tst_MeshWriter::unexpectedExtension()
{
    QFETCH(QString, name);
    QFETCH(QString, suffix);
    QTemporaryDir const directory;
    QTest::ignoreMessage(
        QtWarningMsg,
        qPrintable(QStringLiteral("Couldn't write mesh. Unexpected extension:  \"%1\"").arg(suffix)));
    QVERIFY(!MeshWriter::write(directory.filePath(name), support::cube()));
    QVERIFY(!QFile::exists(directory.filePath(name)));
}

void tst_MeshWriter::emptyMesh()
{
    QTemporaryDir const directory;
    QTest::ignoreMessage(QtWarningMsg, "Couldn't write mesh as .stl:  \"Member variable(s) not set.\"");
    QVERIFY(!MeshWriter::write(directory.filePath(QStringLiteral("mesh.stl")), {}));
    QCOMPARE(contentOf(directory.filePath(QStringLiteral("mesh.stl"))), QByteArray(84, '\0'));
}

void tst_MeshWriter::cannotBeMade()
{
    QTemporaryDir const directory;
    QString const path = directory.filePath(QStringLiteral("folder.stl"));
    QVERIFY(QDir().mkdir(path));
    QTest::ignoreMessage(
        QtWarningMsg,
        qPrintable(
            QStringLiteral("Couldn't write mesh as .stl:  \"Unable to create .stl file at location: %1\"")
                .arg(path)));
    QVERIFY(!MeshWriter::write(path, support::cube()));
}

void tst_MeshWriter::record()
{
    QTemporaryDir const directory;
    QString const path = directory.filePath(QStringLiteral("any.name"));
    float vertices[] = {1, -2.5f, 0.1f};
    float normals[] = {0, 0, 1};
    int indices[] = {0, -1, 0x01020304};
    QVERIFY(MeshWriter::write(path, 1, vertices, normals, 3, indices));
    QCOMPARE(contentOf(path).toHex(), QByteArray("00000001"
                                                 "00000003"
                                                 "3ff0000000000000"
                                                 "c004000000000000"
                                                 "3fb99999a0000000"
                                                 "0000000000000000"
                                                 "0000000000000000"
                                                 "3ff0000000000000"
                                                 "00000000"
                                                 "ffffffff"
                                                 "01020304"));
}

void tst_MeshWriter::recordWithoutPoints()
{
    QTemporaryDir const directory;
    QString const path = directory.filePath(QStringLiteral("record"));
    QVERIFY(MeshWriter::write(path, 0, nullptr, nullptr, 0, nullptr));
    QCOMPARE(contentOf(path), QByteArray(8, '\0'));
}

void tst_MeshWriter::recordReplacesTheFile()
{
    QTemporaryDir const directory;
    QString const path = directory.filePath(QStringLiteral("record"));
    int indices[] = {1, 2, 3, 4};
    QVERIFY(MeshWriter::write(path, 0, nullptr, nullptr, 4, indices));
    QVERIFY(MeshWriter::write(path, 0, nullptr, nullptr, 1, indices));
    QCOMPARE(contentOf(path).toHex(), QByteArray("000000000000000100000001"));
}

void tst_MeshWriter::recordThatCannotBeOpened()
{
    QTemporaryDir const directory;
    QVERIFY(!MeshWriter::write(directory.path(), 0, nullptr, nullptr, 0, nullptr));
    QVERIFY(!MeshWriter::write(directory.filePath(QStringLiteral("none/record")), 0, nullptr, nullptr, 0,
                               nullptr));
}

QTEST_GUILESS_MAIN(tst_MeshWriter)
#include "tst_MeshWriter.moc"
