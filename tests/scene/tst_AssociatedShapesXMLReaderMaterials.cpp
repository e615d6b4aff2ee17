#include "BundleFiles.h"
#include "scene/AssociatedShapesXMLReader.h"
#include "scene/AssociatedShapesXMLWriter.h"

#include <QTest>

using geometry::Material;

using namespace Qt::StringLiterals;
using namespace bundle_test;

namespace {

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

class tst_AssociatedShapesXMLReaderMaterials : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theLastDefinitionCounts();
    void takesEachAttribute();
    void missingAttributesAreZero();
    void badAttributes_data();
    void badAttributes();
    void alphaComesBackOpaque();
};

void tst_AssociatedShapesXMLReaderMaterials::theLastDefinitionCounts()
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

void tst_AssociatedShapesXMLReaderMaterials::takesEachAttribute()
{
    Material const material = materialFrom(
        "ambientColor='#000001' diffuseColor='#000002' specularColor='#000003' emissiveColor='#000004' "
        "ambientIntensity='5' diffuseIntensity='6' specularIntensity='7' emissiveIntensity='8' shininess='9' "
        "transparency='10' baseReflectance='11' detailNoise='true'");
    QCOMPARE(material, Material(QColor(0, 0, 1), QColor(0, 0, 2), QColor(0, 0, 3), QColor(0, 0, 4), 5, 6, 7,
                                8, 9, 10, 11, true));
}

void tst_AssociatedShapesXMLReaderMaterials::missingAttributesAreZero()
{
    QCOMPARE(materialFrom(""), Material(QColor(), QColor(), QColor(), QColor(), 0, 0, 0, 0, 0, 0, 0, false));
}

void tst_AssociatedShapesXMLReaderMaterials::badAttributes_data()
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

void tst_AssociatedShapesXMLReaderMaterials::badAttributes()
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

void tst_AssociatedShapesXMLReaderMaterials::alphaComesBackOpaque()
{
    Material material = Material::metal();
    material.diffuseColor = QColor(10, 20, 30, 0);
    AssociatedShapesXMLWriter writer;
    writer.add(u"a.stl"_s, u"m"_s, material);
    AssociatedShapesXMLReader reader;
    QVERIFY(reader.read({{u"doc"_s, writer.createXMLContent()}, {u"a.stl"_s, stl(1)}}, u"doc"_s));
    QCOMPARE(reader.getMaterials().value(0).diffuseColor, QColor(10, 20, 30, 255));
}

QTEST_APPLESS_MAIN(tst_AssociatedShapesXMLReaderMaterials)
#include "tst_AssociatedShapesXMLReaderMaterials.moc"
