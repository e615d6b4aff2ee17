#include "obj/OBJReaderHelper.h"
#include "support/Meshes.h"
#include "support/ObjFiles.h"

#include <QDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

void expectFailure(QString const& path, QString const& text)
{
    QString warning;
    QDebug(&warning) << "Could not read the OBJ file: " << path << text;
    QTest::ignoreMessage(QtWarningMsg, warning.trimmed().toUtf8().constData());
}

} // namespace

class tst_OBJReaderHelper : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void reads();
    void readsPerVertexNormals();
    void missingFileHasNoText();
    void folderHasNoText();
    void nulIsNoEndOfAName();
    void failures_data();
    void failures();
    void needsNoTexture();
    void looksForMaterialsInTheCurrentFolder();
};

void tst_OBJReaderHelper::reads()
{
    support::ObjFolder const folder;
    auto const mesh =
        OBJReaderHelper::read(folder.write(u"a.obj"_s, "v 1 2 3\nv 4 5 6\nv 7 8 10\nf 3 2 1\n"));
    QVERIFY(mesh);
    QCOMPARE(mesh->vertices, QList<QVector3D>({{1, 2, 3}, {4, 5, 6}, {7, 8, 10}}));
    QCOMPARE(mesh->indices, QList<int>({2, 1, 0, -1}));
    QVERIFY(mesh->colors.isEmpty());
    QVERIFY(mesh->textureCoordinates.isEmpty());
}

void tst_OBJReaderHelper::readsPerVertexNormals()
{
    support::ObjFolder const folder;
    auto const mesh = OBJReaderHelper::read(folder.write(u"a"_s, "v 1 2 3\nvn 0 0 1\n"));
    QVERIFY(mesh);
    QCOMPARE(mesh->normals, QList<QVector3D>({{0, 0, 1}}));
}

void tst_OBJReaderHelper::missingFileHasNoText()
{
    support::ObjFolder const folder;
    QString const path = folder.path(u"missing.obj"_s);
    expectFailure(path, QString());
    QVERIFY(!OBJReaderHelper::read(path));
    expectFailure(QString(), QString());
    QVERIFY(!OBJReaderHelper::read({}));
}

void tst_OBJReaderHelper::folderHasNoText()
{
    support::ObjFolder const folder;
    folder.makeFolder(u"a.obj"_s);
    QString const path = folder.path(u"a.obj"_s);
    expectFailure(path, QString());
    QVERIFY(!OBJReaderHelper::read(path));
}

void tst_OBJReaderHelper::nulIsNoEndOfAName()
{
    support::ObjFolder const folder;
    QString const path = folder.write(u"a.obj"_s, "v 1 2 3\nvn 0 0 1\n");
    QVERIFY(OBJReaderHelper::read(path));
    QString const longer = path + QChar(u'\0') + u"x"_s;
    expectFailure(longer, QString());
    QVERIFY(!OBJReaderHelper::read(longer));
}

void tst_OBJReaderHelper::failures_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("hasNoMesh");
    QTest::newRow("quad") << QByteArray("f 1 2 3 4\n") << u"quad faces not supported"_s << false;
    QTest::newRow("position") << QByteArray("v 1 2\n") << u"incomplete vertex coordinates"_s << false;
    QTest::newRow("index") << QByteArray("v 1 2 3\nf 1 1 2\n") << u"invalid vertex id"_s << false;
    // Qt gives null bytes for a file without any.
    QTest::newRow("empty") << QByteArray() << u"no data"_s << false;
    QTest::newRow("no vertices") << QByteArray("# nothing\n")
                                 << u"unable to load mesh with current texture support flag"_s << true;
}

void tst_OBJReaderHelper::failures()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, text);
    QFETCH(bool, hasNoMesh);
    support::ObjFolder const folder;
    QString const path = folder.write(u"a.obj"_s, content);
    if (hasNoMesh)
        QTest::ignoreMessage(QtWarningMsg, "OBJReader: Unable to load mesh with this TextureSupport flag: 0");
    expectFailure(path, text);
    QVERIFY(!OBJReaderHelper::read(path));
}

void tst_OBJReaderHelper::needsNoTexture()
{
    support::ObjFolder const folder;
    auto const mesh = OBJReaderHelper::read(
        folder.write(u"a.obj"_s, "mtllib missing.mtl\nv 1 2 3\nvt 0 0\nusemtl a\nf 1/1 1/1 1/1\n"));
    QVERIFY(mesh);
    QCOMPARE(mesh->vertices.size(), 1);
}

void tst_OBJReaderHelper::looksForMaterialsInTheCurrentFolder()
{
    // Only the bytes are handed on to the reader, so that it does not know where the OBJ file lies.
    support::ObjFolder const folder;
    folder.writeImage(u"t.png"_s, support::plainImage(4, 4, Qt::blue));
    folder.write(u"m.mtl"_s, "newmtl a\nmap_Kd t.png\n");
    QString const path =
        folder.write(u"a.obj"_s, "mtllib m.mtl\nv 1 2 3\nvt 0.5 0.5\nusemtl a\nf 1/1 1/1 1/1\n");
    auto const elsewhere = OBJReaderHelper::read(path);
    QVERIFY(elsewhere);
    QVERIFY(elsewhere->colors.isEmpty());

    QString const before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(QFileInfo(path).path()));
    auto const here = OBJReaderHelper::read(path);
    QVERIFY(QDir::setCurrent(before));
    QVERIFY(here);
    QCOMPARE(here->colors, QList<unsigned int>({0xffff0000}));
}

QTEST_APPLESS_MAIN(tst_OBJReaderHelper)
#include "tst_OBJReaderHelper.moc"
