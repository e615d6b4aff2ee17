#include "framework/MeshReader.h"
#include "scene/AssociatedShapesXMLReader.h"
#include "scene/AssociatedShapesXMLWriter.h"
#include "support/Meshes.h"
#include "support/ObjFiles.h"
#include "support/PlyFiles.h"
#include "support/StlFiles.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

using geometry::Material;
using geometry::Mesh;
using support::ObjFolder;

using namespace Qt::StringLiterals;

namespace {

constexpr auto notFetched =
    "AssociatedShapesXMLReader : read() called when previous result was not fetched. Meshes deleted.";

QByteArray stl(int number)
{
    return support::binaryStl({support::loneFacet(number)});
}

// Which lone facets the meshes are, or -1.
QList<int> numbersOf(QList<Mesh> const& meshes)
{
    QList<int> numbers;
    for (Mesh const& mesh : meshes) {
        numbers << -1;
        for (int i = 0; i < 10; ++i)
            if (support::cornersOf(mesh) == support::cornersOf({support::loneFacet(i)}))
                numbers.last() = i;
    }
    return numbers;
}

QByteArray shape(QByteArray const& name)
{
    return "<shape>" + name + "</shape>";
}

} // namespace

class tst_AssociatedShapesXMLReaderDisk : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void readsEveryFormat();
    void readsWhatTheWriterWrites();
    void ignoresTheMaterialTable();
    void findsShapesAnywhere_data();
    void findsShapesAnywhere();
    void resolvesPaths_data();
    void resolvesPaths();
    void resolvesAgainstTheDocument();
    void leavesOutWhatCannotBeRead();
    void leavesOutPipes();
    void failsWithoutMeshes();
    void saysWhenItCannotOpen_data();
    void saysWhenItCannotOpen();
    void saysWhenItCannotParse_data();
    void saysWhenItCannotParse();
    void dropsMeshesThatWereNotTaken();
    void dropsThemEvenWhenItFails();
    void materialsAreNeverCleared();
    void bundlesAndFilesShareTheLists();

private:
    QString document(QByteArray const& content) const { return folder->write(u"doc.xml"_s, content); }

    std::unique_ptr<ObjFolder> folder;
};

void tst_AssociatedShapesXMLReaderDisk::initTestCase()
{
    QVERIFY(support::cornersOf({support::loneFacet(0)}) != support::cornersOf({support::loneFacet(1)}));
}

void tst_AssociatedShapesXMLReaderDisk::init()
{
    folder = std::make_unique<ObjFolder>();
    folder->makeFolder(u"parts"_s);
    folder->write(u"0.stl"_s, stl(0));
    folder->write(u"parts/1.stl"_s, stl(1));
    folder->write(u"2.STL"_s, stl(2));
}

void tst_AssociatedShapesXMLReaderDisk::readsEveryFormat()
{
    folder->write(u"b.ply"_s, support::plyTriangle());
    folder->write(u"c.obj"_s, "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n");
    AssociatedShapesXMLReader reader;
    QVERIFY(reader.read(document("<root>" + shape("0.stl") + shape("b.ply") + shape("c.obj") + "</root>")));
    QList<Mesh> const meshes = reader.takeMeshes();
    QCOMPARE(meshes.size(), 3);
    QVERIFY(support::sameBits(meshes[0], MeshReader::read(folder->path(u"0.stl"_s)).value()));
    QVERIFY(support::sameBits(meshes[1], MeshReader::read(folder->path(u"b.ply"_s)).value()));
    QVERIFY(support::sameBits(meshes[2], MeshReader::read(folder->path(u"c.obj"_s)).value()));
}

void tst_AssociatedShapesXMLReaderDisk::readsWhatTheWriterWrites()
{
    AssociatedShapesXMLWriter writer;
    writer.add(u"2.STL"_s, u"m"_s, Material::metal());
    writer.add(folder->path(u"0.stl"_s), u"m"_s, Material::metal());
    AssociatedShapesXMLReader reader;
    QVERIFY(reader.read(document(writer.createXMLContent())));
    QCOMPARE(numbersOf(reader.takeMeshes()), (QList<int>{2, 0}));
}

void tst_AssociatedShapesXMLReaderDisk::ignoresTheMaterialTable()
{
    AssociatedShapesXMLReader reader;
    QVERIFY(
        reader.read(document("<root><shapes><shape materialId='m'>0.stl</shape><shape materialId='unknown'>"
                             "2.STL</shape></shapes><materials><material id='m' shininess='1'/></materials>"
                             "</root>")));
    QCOMPARE(reader.getMaterials(), (QList<Material>{Material::distractor(), Material::distractor()}));
}

void tst_AssociatedShapesXMLReaderDisk::findsShapesAnywhere_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QList<int>>("numbers");
    QByteArray const a = shape("0.stl");
    QByteArray const b = shape("parts/1.stl");
    QByteArray const c = shape("2.STL");
    QTest::newRow("directly") << a + b + c << QList<int>{0, 1, 2};
    QTest::newRow("in several shapes")
        << "<shapes>" + a + "</shapes><shapes>" + b + "</shapes>" << QList<int>{0, 1};
    QTest::newRow("in document order") << "<x><y>" + c + "</y>" + b + "</x>" + a << QList<int>{2, 1, 0};
    QTest::newRow("in materials") << "<materials>" + a + "</materials>" << QList<int>{0};
    QTest::newRow("deep") << QByteArray("<x>").repeated(400) + a + QByteArray("</x>").repeated(400)
                          << QList<int>{0};
    QTest::newRow("the same twice") << a + a << QList<int>{0, 0};
    QTest::newRow("other letter case") << "<Shape>0.stl</Shape>" + b << QList<int>{1};
    QTest::newRow("a shape in a shape")
        << QByteArray("<shape><shape>0.stl</shape></shape>") << QList<int>{0, 0};
}

void tst_AssociatedShapesXMLReaderDisk::findsShapesAnywhere()
{
    QFETCH(QByteArray, content);
    QFETCH(QList<int>, numbers);
    AssociatedShapesXMLReader reader;
    QVERIFY(reader.read(document("<root>" + content + "</root>")));
    QCOMPARE(numbersOf(reader.takeMeshes()), numbers);
    QCOMPARE(reader.getMaterials(), QList<Material>(numbers.size(), Material::distractor()));
}

void tst_AssociatedShapesXMLReaderDisk::resolvesPaths_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("relative") << u"parts/1.stl"_s;
    QTest::newRow("with dots") << u"./parts/../parts/1.stl"_s;
    QTest::newRow("out and in again") << u"%2/parts/1.stl"_s;
    QTest::newRow("absolute") << u"%1/parts/1.stl"_s;
}

void tst_AssociatedShapesXMLReaderDisk::resolvesPaths()
{
    QFETCH(QString, name);
    QDir const directory(folder->path(QString()));
    name.replace(u"%1"_s, directory.absolutePath()).replace(u"%2"_s, u"../"_s + directory.dirName());
    AssociatedShapesXMLReader reader;
    QVERIFY(reader.read(document("<root>" + shape(name.toUtf8()) + "</root>")));
    QCOMPARE(numbersOf(reader.takeMeshes()), QList<int>{1});
}

void tst_AssociatedShapesXMLReaderDisk::resolvesAgainstTheDocument()
{
    QString const nested = folder->write(u"parts/doc.xml"_s, "<root>" + shape("1.stl") + "</root>");
    AssociatedShapesXMLReader reader;
    QVERIFY(reader.read(nested));
    QCOMPARE(numbersOf(reader.takeMeshes()), QList<int>{1});
    // The document named relative to the working directory; the shape still lies beside it.
    QVERIFY(reader.read(QDir::current().relativeFilePath(nested)));
    QCOMPARE(numbersOf(reader.takeMeshes()), QList<int>{1});
}

void tst_AssociatedShapesXMLReaderDisk::leavesOutWhatCannotBeRead()
{
    folder->write(u"bad.stl"_s, stl(1).chopped(1));
    folder->write(u"a.txt"_s, stl(1));
    QByteArray const missing = folder->path(u"missing.stl"_s).toUtf8();
    QTest::ignoreMessage(QtWarningMsg,
                         ("The file \"" + missing + "\"  does not exist ( MeshReader::read ) ").constData());
    AssociatedShapesXMLReader reader;
    QVERIFY(reader.read(document("<root>" + shape("missing.stl") + shape("bad.stl") + shape("0.stl") +
                                 shape("a.txt") + shape("") + shape("parts") + "</root>")));
    QCOMPARE(numbersOf(reader.takeMeshes()), QList<int>{0});
    QCOMPARE(reader.getMaterials().size(), 1);
}

// One that nobody writes to would be waited for.
void tst_AssociatedShapesXMLReaderDisk::leavesOutPipes()
{
#ifdef Q_OS_UNIX
    QString const pipe = folder->path(u"pipe.stl"_s);
    QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    AssociatedShapesXMLReader reader;
    QVERIFY(reader.read(document("<root>" + shape("pipe.stl") + shape("0.stl") + "</root>")));
    QCOMPARE(numbersOf(reader.takeMeshes()), QList<int>{0});
#else
    QSKIP("there are no pipes with a path");
#endif
}

void tst_AssociatedShapesXMLReaderDisk::failsWithoutMeshes()
{
    AssociatedShapesXMLReader reader;
    QVERIFY(!reader.read(document("<root/>")));
    QVERIFY(!reader.read(document("<shape>0.stl</shape>")));
    QVERIFY(reader.takeMeshes().isEmpty());
    QVERIFY(reader.getMaterials().isEmpty());
}

void tst_AssociatedShapesXMLReaderDisk::saysWhenItCannotOpen_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("missing") << u"no such \"file\".xml"_s;
    QTest::newRow("a folder") << u"parts"_s;
}

void tst_AssociatedShapesXMLReaderDisk::saysWhenItCannotOpen()
{
    QFETCH(QString, name);
    QString const path = folder->path(name);
    QTest::ignoreMessage(QtWarningMsg, ("Could not open " + path.toUtf8()).constData());
    AssociatedShapesXMLReader reader;
    QVERIFY(!reader.read(path));
    QTest::ignoreMessage(QtWarningMsg, "Could not open ");
    QVERIFY(!reader.read(QString()));
}

void tst_AssociatedShapesXMLReaderDisk::saysWhenItCannotParse_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text") << QByteArray("0.stl");
    QTest::newRow("cut short") << QByteArray("<root><shape>0.stl</shape>");
    QTest::newRow("an STL file") << stl(1);
}

void tst_AssociatedShapesXMLReaderDisk::saysWhenItCannotParse()
{
    QFETCH(QByteArray, content);
    QString const path = document(content);
    QTest::ignoreMessage(QtWarningMsg, ("Could not parse  \"" + path.toUtf8() + '"').constData());
    AssociatedShapesXMLReader reader;
    QVERIFY(!reader.read(path));
    QVERIFY(reader.takeMeshes().isEmpty());
}

void tst_AssociatedShapesXMLReaderDisk::dropsMeshesThatWereNotTaken()
{
    AssociatedShapesXMLReader reader;
    QVERIFY(reader.read(document("<root>" + shape("0.stl") + shape("2.STL") + "</root>")));
    QTest::ignoreMessage(QtWarningMsg, notFetched);
    QVERIFY(reader.read(document("<root>" + shape("parts/1.stl") + "</root>")));
    QCOMPARE(numbersOf(reader.takeMeshes()), QList<int>{1});
    QCOMPARE(reader.getMaterials().size(), 3);
}

void tst_AssociatedShapesXMLReaderDisk::dropsThemEvenWhenItFails()
{
    AssociatedShapesXMLReader reader;
    QVERIFY(reader.read(document("<root>" + shape("0.stl") + "</root>")));
    QString const missing = folder->path(u"missing"_s);
    QTest::ignoreMessage(QtWarningMsg, notFetched);
    QTest::ignoreMessage(QtWarningMsg, ("Could not open " + missing.toUtf8()).constData());
    QVERIFY(!reader.read(missing));
    QVERIFY(reader.takeMeshes().isEmpty());
    QCOMPARE(reader.getMaterials().size(), 1);
}

void tst_AssociatedShapesXMLReaderDisk::materialsAreNeverCleared()
{
    AssociatedShapesXMLReader reader;
    QString const path = document("<root>" + shape("0.stl") + "</root>");
    QVERIFY(reader.read(path));
    QCOMPARE(reader.takeMeshes().size(), 1);
    QVERIFY(reader.read(path));
    QCOMPARE(reader.takeMeshes().size(), 1);
    QCOMPARE(reader.getMaterials(), QList<Material>(2, Material::distractor()));
}

void tst_AssociatedShapesXMLReaderDisk::bundlesAndFilesShareTheLists()
{
    AssociatedShapesXMLWriter writer;
    writer.add(u"a.stl"_s, u"m"_s, Material::metal());
    QMap<QString, QByteArray> const bundle = {{u"doc"_s, writer.createXMLContent()}, {u"a.stl"_s, stl(3)}};
    QString const path = document("<root>" + shape("0.stl") + "</root>");
    AssociatedShapesXMLReader reader;
    QVERIFY(reader.read(path));
    // A bundle adds to what a file left, without a word; a file drops what a bundle left.
    QVERIFY(reader.read(bundle, u"doc"_s));
    QTest::ignoreMessage(QtWarningMsg, notFetched);
    QVERIFY(reader.read(path));
    QVERIFY(reader.read(bundle, u"doc"_s));
    QCOMPARE(numbersOf(reader.takeMeshes()), (QList<int>{0, 3}));
    QCOMPARE(reader.getMaterials(), (QList<Material>{Material::distractor(), Material::metal(),
                                                     Material::distractor(), Material::metal()}));
}

QTEST_GUILESS_MAIN(tst_AssociatedShapesXMLReaderDisk)
#include "tst_AssociatedShapesXMLReaderDisk.moc"
