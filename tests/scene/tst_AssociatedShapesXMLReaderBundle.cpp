#include "framework/MeshReader.h"
#include "scene/AssociatedShapesXMLReader.h"
#include "scene/AssociatedShapesXMLWriter.h"
#include "support/Meshes.h"
#include "support/PlyFiles.h"
#include "support/StlFiles.h"

#include <QFile>
#include <QStringEncoder>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>
#include <limits>
#include <type_traits>

using geometry::Material;
using geometry::Mesh;

using namespace Qt::StringLiterals;

static_assert(std::has_virtual_destructor_v<AssociatedShapesXMLReader>);
static_assert(std::is_default_constructible_v<AssociatedShapesXMLReader>);
static_assert(std::is_copy_constructible_v<AssociatedShapesXMLReader>);
static_assert(std::is_copy_assignable_v<AssociatedShapesXMLReader>);

namespace {

using Files = QMap<QString, QByteArray>;

QByteArray stl(int number)
{
    return support::binaryStl({support::loneFacet(number)});
}

Mesh meshOf(QByteArray const& bytes, QString const& name)
{
    return MeshReader::read(bytes, name).value();
}

Material numbered(int number)
{
    Material material = Material::metal();
    material.shininess = static_cast<float>(number);
    return material;
}

QByteArray documentWith(QByteArray const& content)
{
    return "<root>" + content + "</root>";
}

QByteArray materialsWith(QByteArray const& attributes)
{
    return "<materials><material id='m' " + attributes + "/></materials>";
}

// What a reader makes of a single shape with that material element.
Material materialFrom(QByteArray const& attributes)
{
    AssociatedShapesXMLReader reader;
    Files const files = {{u"x"_s, documentWith("<shapes><shape materialId='m'>a.stl</shape></shapes>" +
                                               materialsWith(attributes))},
                         {u"a.stl"_s, stl(1)}};
    return reader.read(files, u"x"_s) ? reader.getMaterials().value(0) : Material();
}

} // namespace

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
    void theLastDefinitionCounts();
    void takesEachAttribute();
    void missingAttributesAreZero();
    void badAttributes_data();
    void badAttributes();
    void alphaComesBackOpaque();
    void accumulates();
    void takingEmptiesTheMeshes();
    void failuresKeepWhatIsHeld();
    void copiesAreIndependent();
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

void tst_AssociatedShapesXMLReaderBundle::theLastDefinitionCounts()
{
    AssociatedShapesXMLReader reader;
    Files const files = {
        {u"doc"_s, documentWith("<shapes><shape materialId='m'>a.stl</shape></shapes><materials>"
                                "<material id='m' shininess='1' transparency='1'/>"
                                "<material id='m' shininess='2'/></materials>")},
        {u"a.stl"_s, stl(1)}};
    QVERIFY(reader.read(files, u"doc"_s));
    QCOMPARE(reader.getMaterials().value(0).shininess, 2.0f);
    QCOMPARE(reader.getMaterials().value(0).transparency, 0.0f);
}

void tst_AssociatedShapesXMLReaderBundle::takesEachAttribute()
{
    Material const material = materialFrom(
        "ambientColor='#000001' diffuseColor='#000002' specularColor='#000003' emissiveColor='#000004' "
        "ambientIntensity='5' diffuseIntensity='6' specularIntensity='7' emissiveIntensity='8' shininess='9' "
        "transparency='10' baseReflectance='11' detailNoise='true'");
    QCOMPARE(material, Material(QColor(0, 0, 1), QColor(0, 0, 2), QColor(0, 0, 3), QColor(0, 0, 4), 5, 6, 7,
                                8, 9, 10, 11, true));
}

void tst_AssociatedShapesXMLReaderBundle::missingAttributesAreZero()
{
    QCOMPARE(materialFrom(""), Material(QColor(), QColor(), QColor(), QColor(), 0, 0, 0, 0, 0, 0, 0, false));
}

void tst_AssociatedShapesXMLReaderBundle::badAttributes_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<QColor>("color");
    QTest::addColumn<float>("number");
    QTest::addColumn<bool>("noise");
    QColor const invalid;
    QTest::newRow("good") << QByteArray("ambientColor='#0a0B0c' shininess='1.5' detailNoise='TRUE'")
                          << QColor(10, 11, 12) << 1.5f << true;
    QTest::newRow("text") << QByteArray("ambientColor='no colour' shininess='much' detailNoise='yes'")
                          << invalid << 0.0f << false;
    QTest::newRow("empty") << QByteArray("ambientColor='' shininess='' detailNoise=''") << invalid << 0.0f
                           << false;
    QTest::newRow("a decimal comma") << QByteArray("ambientColor='#12345' shininess='1,5' detailNoise='0'")
                                     << invalid << 0.0f << false;
    QTest::newRow("a colour's name") << QByteArray("ambientColor='red' shininess='-1e3' detailNoise='1'")
                                     << QColor(255, 0, 0) << -1000.0f << true;
    QTest::newRow("short colour") << QByteArray("ambientColor='#abc' shininess='0x10' detailNoise='-1'")
                                  << QColor(0xAA, 0xBB, 0xCC) << 0.0f << false;
    QTest::newRow("beyond float") << QByteArray("ambientColor='#80102030' shininess='1e60' detailNoise='2'")
                                  << QColor(0x10, 0x20, 0x30, 0x80) << u"1e60"_s.toFloat() << false;
    QTest::newRow("blanks") << QByteArray("ambientColor=' red' shininess=' 7 ' detailNoise=' true'")
                            << QColor(u" red"_s) << 7.0f << false;
}

void tst_AssociatedShapesXMLReaderBundle::badAttributes()
{
    QFETCH(QByteArray, attributes);
    QFETCH(QColor, color);
    QFETCH(float, number);
    QFETCH(bool, noise);
    Material const material = materialFrom(attributes);
    QCOMPARE(material.ambientColor, color);
    QCOMPARE(material.ambientColor.isValid(), color.isValid());
    QCOMPARE(material.shininess, number);
    QCOMPARE(material.detailNoise, noise);
}

void tst_AssociatedShapesXMLReaderBundle::alphaComesBackOpaque()
{
    Material material = Material::metal();
    material.diffuseColor = QColor(10, 20, 30, 0);
    AssociatedShapesXMLWriter writer;
    writer.add(u"a.stl"_s, u"m"_s, material);
    AssociatedShapesXMLReader reader;
    QVERIFY(reader.read({{u"doc"_s, writer.createXMLContent()}, {u"a.stl"_s, stl(1)}}, u"doc"_s));
    QCOMPARE(reader.getMaterials().value(0).diffuseColor, QColor(10, 20, 30, 255));
}

void tst_AssociatedShapesXMLReaderBundle::accumulates()
{
    AssociatedShapesXMLReader reader;
    auto const read = [&](int number) {
        AssociatedShapesXMLWriter writer;
        writer.add(u"a.stl"_s, u"m"_s, numbered(number));
        return reader.read({{u"doc"_s, writer.createXMLContent()}, {u"a.stl"_s, stl(number)}}, u"doc"_s);
    };
    QVERIFY(read(1));
    QVERIFY(read(2));
    // Nothing new, but something is held.
    QVERIFY(reader.read({{u"doc"_s, "<root/>"}}, u"doc"_s));
    QList<Mesh> const meshes = reader.takeMeshes();
    QCOMPARE(meshes.size(), 2);
    QVERIFY(support::sameBits(meshes[0], meshOf(stl(1), u"a.stl"_s)));
    QVERIFY(support::sameBits(meshes[1], meshOf(stl(2), u"a.stl"_s)));
    QVERIFY(!reader.read({{u"doc"_s, "<root/>"}}, u"doc"_s));
    QVERIFY(read(3));
    QCOMPARE(reader.takeMeshes().size(), 1);
    QCOMPARE(reader.getMaterials(), (QList<Material>{numbered(1), numbered(2), numbered(3)}));
}

void tst_AssociatedShapesXMLReaderBundle::takingEmptiesTheMeshes()
{
    AssociatedShapesXMLReader reader;
    QVERIFY(reader.takeMeshes().isEmpty());
    AssociatedShapesXMLWriter writer;
    writer.add(u"a.stl"_s, u"m"_s, numbered(1));
    QVERIFY(reader.read({{u"doc"_s, writer.createXMLContent()}, {u"a.stl"_s, stl(1)}}, u"doc"_s));
    QCOMPARE(reader.takeMeshes().size(), 1);
    QVERIFY(reader.takeMeshes().isEmpty());
    QCOMPARE(reader.getMaterials().size(), 1);
    QCOMPARE(reader.getMaterials().size(), 1);
}

void tst_AssociatedShapesXMLReaderBundle::failuresKeepWhatIsHeld()
{
    AssociatedShapesXMLReader reader;
    AssociatedShapesXMLWriter writer;
    writer.add(u"a.stl"_s, u"m"_s, numbered(1));
    QVERIFY(reader.read({{u"doc"_s, writer.createXMLContent()}, {u"a.stl"_s, stl(1)}}, u"doc"_s));
    QTest::ignoreMessage(QtWarningMsg, "Could not parse doc");
    QVERIFY(!reader.read({}, u"doc"_s));
    QCOMPARE(reader.takeMeshes().size(), 1);
}

void tst_AssociatedShapesXMLReaderBundle::copiesAreIndependent()
{
    AssociatedShapesXMLReader reader;
    AssociatedShapesXMLWriter writer;
    writer.add(u"a.stl"_s, u"m"_s, numbered(1));
    QVERIFY(reader.read({{u"doc"_s, writer.createXMLContent()}, {u"a.stl"_s, stl(1)}}, u"doc"_s));
    AssociatedShapesXMLReader copy(reader);
    QCOMPARE(copy.takeMeshes().size(), 1);
    QCOMPARE(reader.takeMeshes().size(), 1);
    reader = copy;
    QVERIFY(reader.takeMeshes().isEmpty());
    QCOMPARE(reader.getMaterials().size(), 1);
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
