#include "BundleFiles.h"
#include "scene/AssociatedShapesXMLReader.h"
#include "scene/AssociatedShapesXMLWriter.h"
#include "support/Meshes.h"
#include "support/PlyFiles.h"

#include <QFile>
#include <QStringEncoder>
#include <QTemporaryDir>
#include <QTest>

using geometry::Material;
using geometry::Mesh;

using namespace Qt::StringLiterals;
using namespace bundle_test;

class tst_AssociatedShapesXMLReaderBundle : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsWhatTheWriterWrites();
    void choosesTheFormatByName();
    void takesObjBytesForAPath();
    void refusesWhatIsNoDocument_data();
    void refusesWhatIsNoDocument();
    void skipsShapes_data();
    void skipsShapes();
    void looksAtDirectChildrenOnly_data();
    void looksAtDirectChildrenOnly();
    void readsOtherEncodings_data();
    void readsOtherEncodings();
};

void tst_AssociatedShapesXMLReaderBundle::readsWhatTheWriterWrites()
{
    AssociatedShapesXMLWriter writer;
    Files files;
    for (int i = 0; i < 5; ++i) {
        QString const name = u"Zähne & <%1>.stl"_s.arg(i);
        writer.add(name, u"id \"%1\""_s.arg(i), numbered(i));
        files.insert(name, stl(i));
    }
    files.insert(u"doc.xml"_s, writer.createXMLContent());
    AssociatedShapesXMLReader reader;
    QVERIFY(reader.read(files, u"doc.xml"_s));
    QList<Mesh> const meshes = reader.takeMeshes();
    QList<Material> const materials = reader.getMaterials();
    QCOMPARE(meshes.size(), 5);
    QCOMPARE(materials.size(), 5);
    for (int i = 0; i < 5; ++i) {
        QVERIFY(support::sameBits(meshes[i], meshOf(stl(i), u"a.stl"_s)));
        QCOMPARE(support::cornersOf(meshes[i]), support::cornersOf({support::loneFacet(i)}));
        QCOMPARE(materials[i], numbered(i));
    }
}

void tst_AssociatedShapesXMLReaderBundle::choosesTheFormatByName()
{
    AssociatedShapesXMLWriter writer;
    for (QString const& name : {u"a.STL"_s, u"b.ply"_s, u"c.txt"_s, u"d"_s})
        writer.add(name, u"m"_s, numbered(1));
    Files const files = {{u"doc"_s, writer.createXMLContent()},
                         {u"a.STL"_s, stl(1)},
                         {u"b.ply"_s, support::plyTriangle()},
                         {u"c.txt"_s, stl(2)},
                         {u"d"_s, stl(3)}};
    AssociatedShapesXMLReader reader;
    QVERIFY(reader.read(files, u"doc"_s));
    QList<Mesh> const meshes = reader.takeMeshes();
    QCOMPARE(meshes.size(), 2);
    QVERIFY(support::sameBits(meshes[0], meshOf(stl(1), u"a.stl"_s)));
    QVERIFY(support::sameBits(meshes[1], meshOf(support::plyTriangle(), u"b.ply"_s)));
    QCOMPARE(reader.getMaterials().size(), 2);
}

void tst_AssociatedShapesXMLReaderBundle::takesObjBytesForAPath()
{
    QTemporaryDir const folder;
    QFile file(folder.filePath(u"real.obj"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n");
    file.close();
    AssociatedShapesXMLWriter writer;
    writer.add(u"a.obj"_s, u"m"_s, numbered(1));
    Files const files = {{u"doc"_s, writer.createXMLContent()}, {u"a.obj"_s, file.fileName().toUtf8()}};
    AssociatedShapesXMLReader reader;
    QVERIFY(reader.read(files, u"doc"_s));
    QCOMPARE(reader.takeMeshes().value(0).vertices, (QList<QVector3D>{{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}));
}

void tst_AssociatedShapesXMLReaderBundle::refusesWhatIsNoDocument_data()
{
    QTest::addColumn<Files>("files");
    QTest::newRow("not in the bundle") << Files{{u"other"_s, "<root/>"}};
    QTest::newRow("empty") << Files{{u"d \"o\" c"_s, ""}};
    QTest::newRow("text") << Files{{u"d \"o\" c"_s, "text"}};
    QTest::newRow("cut short") << Files{{u"d \"o\" c"_s, "<root><shapes></shapes>"}};
    QTest::newRow("two roots") << Files{{u"d \"o\" c"_s, "<root/><root/>"}};
    QTest::newRow("an attribute twice") << Files{{u"d \"o\" c"_s, "<root a='1' a='2'/>"}};
    QTest::newRow("an unknown encoding")
        << Files{{u"d \"o\" c"_s, "<?xml version='1.0' encoding='no-such-encoding'?><root/>"}};
    QTest::newRow("an STL file") << Files{{u"d \"o\" c"_s, stl(1)}};
}

void tst_AssociatedShapesXMLReaderBundle::refusesWhatIsNoDocument()
{
    QFETCH(Files, files);
    QTest::ignoreMessage(QtWarningMsg, "Could not parse d \"o\" c");
    AssociatedShapesXMLReader reader;
    QVERIFY(!reader.read(files, u"d \"o\" c"_s));
    QVERIFY(reader.takeMeshes().isEmpty());
    QVERIFY(reader.getMaterials().isEmpty());
}

void tst_AssociatedShapesXMLReaderBundle::skipsShapes_data()
{
    QTest::addColumn<QByteArray>("shape");
    QTest::addColumn<QString>("warning");
    QString const none;
    QTest::newRow("not in the bundle")
        << QByteArray("<shape materialId='m'>b.stl</shape>") << u"Empty data for : \"b.stl\""_s;
    QTest::newRow("without a name") << QByteArray("<shape materialId='m'/>") << u"Empty data for : \"\""_s;
    QTest::newRow("damaged") << QByteArray("<shape materialId='m'>bad.stl</shape>") << none;
    QTest::newRow("of no known format") << QByteArray("<shape materialId='m'>a.txt</shape>") << none;
    QTest::newRow("without an id") << QByteArray("<shape>a.stl</shape>") << none;
    QTest::newRow("with an empty id") << QByteArray("<shape materialId=''>a.stl</shape>") << none;
    QTest::newRow("with an unknown id") << QByteArray("<shape materialId='n'>a.stl</shape>") << none;
    QTest::newRow("with an id in other letter case")
        << QByteArray("<shape materialId='M'>a.stl</shape>") << none;
    QTest::newRow("an attribute in other letter case")
        << QByteArray("<shape materialID='m'>a.stl</shape>") << none;
    QTest::newRow("a name in blanks")
        << QByteArray("<shape materialId='m'> a.stl </shape>") << u"Empty data for : \" a.stl \""_s;
}

void tst_AssociatedShapesXMLReaderBundle::skipsShapes()
{
    QFETCH(QByteArray, shape);
    QFETCH(QString, warning);
    QByteArray const materials = "<materials><material id='m'/><material id=''/></materials>";
    Files files = {{u"doc"_s, documentWith("<shapes>" + shape + "</shapes>" + materials)},
                   {u"a.stl"_s, stl(1)},
                   {u"a.txt"_s, stl(1)},
                   {u"bad.stl"_s, stl(1).chopped(1)}};
    auto const expectWarning = [&] {
        if (!warning.isEmpty())
            QTest::ignoreMessage(QtWarningMsg, warning.toUtf8().constData());
    };
    AssociatedShapesXMLReader reader;
    expectWarning();
    QVERIFY(!reader.read(files, u"doc"_s));
    QVERIFY(reader.getMaterials().isEmpty());

    // The shapes around it are read all the same.
    QByteArray const good = "<shape materialId='m'>a.stl</shape>";
    files[u"doc"_s] = documentWith("<shapes>" + good + shape + good + "</shapes>" + materials);
    expectWarning();
    QVERIFY(reader.read(files, u"doc"_s));
    QCOMPARE(reader.takeMeshes().size(), 2);
    QCOMPARE(reader.getMaterials().size(), 2);
}

void tst_AssociatedShapesXMLReaderBundle::looksAtDirectChildrenOnly_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("shapes");
    QByteArray const shape = "<shape materialId='m'>a.stl</shape>";
    QByteArray const list = "<shapes>" + shape + "</shapes>";
    QByteArray const materials = materialsWith("");
    QTest::newRow("materials first") << materials + list << 1;
    QTest::newRow("no materials") << list << 0;
    QTest::newRow("no shapes") << materials << 0;
    QTest::newRow("nothing") << QByteArray() << 0;
    QTest::newRow("a shape outside shapes") << shape + materials << 0;
    QTest::newRow("a shape deeper") << "<shapes><group>" + shape + "</group></shapes>" + materials << 0;
    QTest::newRow("only the first shapes")
        << list + "<shapes>" + shape + shape + "</shapes>" + materials << 1;
    QTest::newRow("only the first materials") << list + "<materials/>" + materials << 0;
    QTest::newRow("shapes deeper") << "<group>" + list + "</group>" + materials << 0;
    QTest::newRow("other letter case") << "<Shapes>" + shape + "</Shapes>" + materials << 0;
    QTest::newRow("others between") << "<shapes><!-- c -->" + shape + "<other>a.stl</other>" + shape +
                                           "text</shapes><other/>" + materials
                                    << 2;
    QTest::newRow("a name in pieces") << "<shapes><shape materialId='m'>a<!-- c -->.<![CDATA[st]]><i>l</i>"
                                         "</shape></shapes>" +
                                             materials
                                      << 1;
}

void tst_AssociatedShapesXMLReaderBundle::looksAtDirectChildrenOnly()
{
    QFETCH(QByteArray, content);
    QFETCH(int, shapes);
    for (QByteArray const root : {"root", "anything"}) {
        AssociatedShapesXMLReader reader;
        Files const files = {{u"doc"_s, '<' + root + '>' + content + "</" + root + '>'},
                             {u"a.stl"_s, stl(1)}};
        QCOMPARE(reader.read(files, u"doc"_s), shapes > 0);
        QCOMPARE(reader.takeMeshes().size(), shapes);
        QCOMPARE(reader.getMaterials().size(), shapes);
    }
}

void tst_AssociatedShapesXMLReaderBundle::readsOtherEncodings_data()
{
    QTest::addColumn<QByteArray>("document");
    QString const text = QString::fromUtf8(
        documentWith("<shapes><shape materialId='m'>ä.stl</shape></shapes>" + materialsWith("")));
    QTest::newRow("UTF-8") << text.toUtf8();
    QTest::newRow("UTF-8 with a mark") << "\xEF\xBB\xBF" + text.toUtf8();
    QTest::newRow("Latin-1") << "<?xml version='1.0' encoding='ISO-8859-1'?>" + text.toLatin1();
    for (auto const encoding :
         {QStringConverter::Utf16LE, QStringConverter::Utf16BE, QStringConverter::Utf32LE}) {
        QStringEncoder plain(encoding);
        QByteArray const bytes = plain(text);
        QTest::addRow("%s", QStringConverter::nameForEncoding(encoding)) << bytes;
        QStringEncoder marked(encoding, QStringConverter::Flag::WriteBom);
        QByteArray const withMark = marked(text);
        QTest::addRow("%s with a mark", QStringConverter::nameForEncoding(encoding)) << withMark;
    }
}

void tst_AssociatedShapesXMLReaderBundle::readsOtherEncodings()
{
    QFETCH(QByteArray, document);
    AssociatedShapesXMLReader reader;
    QVERIFY(reader.read({{u"doc"_s, document}, {u"ä.stl"_s, stl(1)}}, u"doc"_s));
    QCOMPARE(reader.takeMeshes().size(), 1);
}

QTEST_APPLESS_MAIN(tst_AssociatedShapesXMLReaderBundle)
#include "tst_AssociatedShapesXMLReaderBundle.moc"
