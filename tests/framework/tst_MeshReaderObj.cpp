#include "framework/MeshReader.h"
#include "support/Meshes.h"
#include "support/ObjFiles.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QByteArray const triangle = "v 1 2 3\nv 4 5 6\nv 7 8 10\nvn 1 0 0\nvn 0 1 0\nvn 0 0 1\nf 3 2 1\n";
geometry::Mesh const triangleMesh({{1, 2, 3}, {4, 5, 6}, {7, 8, 10}}, {2, 1, 0, -1},
                                  {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}});

void expectFailure(QString const& path, QString const& text)
{
    QString warning;
    QDebug(&warning) << "Could not read the OBJ file: " << path << text;
    QTest::ignoreMessage(QtWarningMsg, warning.trimmed().toUtf8().constData());
}

} // namespace

class tst_MeshReaderObj : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsFiles_data();
    void readsFiles();
    void failedFileIsEmpty();
    void bytesArePaths();
    void bytesOfAFileAreNotRead();
    void bytesAreUtf8();
    void keepsNoTexture();
};

void tst_MeshReaderObj::readsFiles_data()
{
    QTest::addColumn<QString>("name");
    for (QString const& name :
         {u"a.obj"_s, u"a.OBJ"_s, u"a.Obj"_s, u"scan.ply.obj"_s, u"a b.obj"_s, u".obj"_s})
        QTest::newRow(qPrintable(name)) << name;
}

void tst_MeshReaderObj::readsFiles()
{
    QFETCH(QString, name);
    support::ObjFolder const folder;
    auto const mesh = MeshReader::read(folder.write(name, triangle));
    QVERIFY(mesh);
    QVERIFY(support::sameBits(*mesh, triangleMesh));
}

void tst_MeshReaderObj::failedFileIsEmpty()
{
    support::ObjFolder const folder;
    QString const path = folder.write(u"a.obj"_s, "f 1 2 3 4\n");
    expectFailure(path, u"quad faces not supported"_s);
    QVERIFY(!MeshReader::read(path));
}

void tst_MeshReaderObj::bytesArePaths()
{
    support::ObjFolder const folder;
    QString const path = folder.write(u"file"_s, triangle);
    auto const mesh = MeshReader::read(path.toUtf8(), u"any name.OBJ"_s);
    QVERIFY(mesh);
    QVERIFY(support::sameBits(*mesh, triangleMesh));
}

void tst_MeshReaderObj::bytesOfAFileAreNotRead()
{
    expectFailure(QString::fromUtf8(triangle), QString());
    QVERIFY(!MeshReader::read(triangle, u"a.obj"_s));
    QByteArray const withNul("v 1\0", 4);
    expectFailure(QString::fromUtf8(withNul), QString());
    QVERIFY(!MeshReader::read(withNul, u"a.obj"_s));
}

void tst_MeshReaderObj::bytesAreUtf8()
{
    support::ObjFolder const folder;
    QString const path = folder.write(u"zähne.obj"_s, triangle);
    QVERIFY(MeshReader::read(path.toUtf8(), u"a.obj"_s));
    expectFailure(QString::fromUtf8(path.toLatin1()), QString());
    QVERIFY(!MeshReader::read(path.toLatin1(), u"a.obj"_s));
}

void tst_MeshReaderObj::keepsNoTexture()
{
    support::ObjFolder const folder;
    folder.writeImage(u"t.png"_s, support::plainImage(4, 4, Qt::blue));
    folder.write(u"m.mtl"_s, "newmtl a\nmap_Kd t.png\n");
    auto const mesh = MeshReader::read(
        folder.write(u"a.obj"_s, "mtllib m.mtl\nv 1 2 3\nvt 0.5 0.5\nusemtl a\nf 1/1 1/1 1/1\n"));
    QVERIFY(mesh);
    QVERIFY(mesh->textureCoordinates.isEmpty());
}

QTEST_APPLESS_MAIN(tst_MeshReaderObj)
#include "tst_MeshReaderObj.moc"
