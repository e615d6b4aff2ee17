#include "scene/AssociatedShapesXMLWriter.h"

#include <QTest>

#include <limits>
#include <type_traits>

using geometry::Material;

using namespace Qt::StringLiterals;

static_assert(std::has_virtual_destructor_v<AssociatedShapesXMLWriter>);
static_assert(std::is_default_constructible_v<AssociatedShapesXMLWriter>);
static_assert(std::is_copy_constructible_v<AssociatedShapesXMLWriter>);
static_assert(std::is_copy_assignable_v<AssociatedShapesXMLWriter>);

namespace {

Material const sample(QColor(1, 2, 3), QColor(0xAB, 0xCD, 0xEF), QColor(255, 255, 255), QColor(0, 0, 0),
                      0.25f, 0.1f, 1.0f, 0.0f, 32.0f, 0.5f, 0.04f, true);

QByteArray sampleElement(QByteArray const& id)
{
    return "        <material id=\"" + id +
           "\" ambientColor=\"#010203\" diffuseColor=\"#abcdef\" specularColor=\"#ffffff\" "
           "emissiveColor=\"#000000\" ambientIntensity=\"0.25\" diffuseIntensity=\"0.1\" "
           "specularIntensity=\"1\" emissiveIntensity=\"0\" shininess=\"32\" transparency=\"0.5\" "
           "baseReflectance=\"0.04\" detailNoise=\"true\"/>\n";
}

QByteArray contentWith(Material const& material)
{
    AssociatedShapesXMLWriter writer;
    writer.add(u"f"_s, u"i"_s, material);
    return writer.createXMLContent();
}

} // namespace

class tst_AssociatedShapesXMLWriter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void writesTheWholeDocument();
    void writesNoShapes();
    void writesAMaterialForEachShape();
    void escapesText();
    void formatsNumbers_data();
    void formatsNumbers();
    void formatsColors_data();
    void formatsColors();
    void onlyGrows();
    void copiesAreIndependent();
};

void tst_AssociatedShapesXMLWriter::writesTheWholeDocument()
{
    AssociatedShapesXMLWriter writer;
    writer.add(u"upper.stl"_s, u"enamel"_s, sample);
    writer.add(u"parts/lower.ply"_s, u"gum"_s, sample);
    QByteArray const expected = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                "<root version=\"1\">\n"
                                "    <shapes>\n"
                                "        <shape materialId=\"enamel\">upper.stl</shape>\n"
                                "        <shape materialId=\"gum\">parts/lower.ply</shape>\n"
                                "    </shapes>\n"
                                "    <materials>\n" +
                                sampleElement("enamel") + sampleElement("gum") +
                                "    </materials>\n"
                                "</root>\n";
    QCOMPARE(writer.createXMLContent(), expected);
}

void tst_AssociatedShapesXMLWriter::writesNoShapes()
{
    QCOMPARE(AssociatedShapesXMLWriter().createXMLContent(),
             QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<root version=\"1\">\n    <shapes/>\n"
                        "    <materials/>\n</root>\n"));
}

void tst_AssociatedShapesXMLWriter::writesAMaterialForEachShape()
{
    AssociatedShapesXMLWriter writer;
    writer.add(u"a.stl"_s, u"same"_s, sample);
    writer.add(u"a.stl"_s, u"same"_s, sample);
    QByteArray const content = writer.createXMLContent();
    QCOMPARE(content.count("<shape materialId=\"same\">a.stl</shape>"), 2);
    QCOMPARE(content.count(sampleElement("same")), 2);
    QVERIFY(content.contains(sampleElement("same") + sampleElement("same")));
}

void tst_AssociatedShapesXMLWriter::escapesText()
{
    AssociatedShapesXMLWriter writer;
    writer.add(u"<a> & \"b\" Zähne.stl"_s, u"\"<&>\""_s, sample);
    QByteArray const content = writer.createXMLContent();
    QVERIFY(content.contains("<shape materialId=\"&quot;&lt;&amp;&gt;&quot;\">&lt;a&gt; &amp; "
                             "&quot;b&quot; Z\xC3\xA4hne.stl</shape>"));
}

void tst_AssociatedShapesXMLWriter::formatsNumbers_data()
{
    QTest::addColumn<float>("number");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("six digits") << 0.123456789f << QByteArray("0.123457");
    QTest::newRow("as a double") << 0.1f << QByteArray("0.1");
    QTest::newRow("small") << 1e-7f << QByteArray("1e-07");
    QTest::newRow("large") << 1234567.0f << QByteArray("1.23457e+06");
    QTest::newRow("negative") << -1.5f << QByteArray("-1.5");
    QTest::newRow("minus zero") << -0.0f << QByteArray("0");
    QTest::newRow("infinity") << std::numeric_limits<float>::infinity() << QByteArray("inf");
}

void tst_AssociatedShapesXMLWriter::formatsNumbers()
{
    QFETCH(float, number);
    QFETCH(QByteArray, text);
    Material material = sample;
    material.ambientIntensity = number;
    material.shininess = number;
    material.baseReflectance = number;
    QByteArray const content = contentWith(material);
    for (char const* const name : {"ambientIntensity", "shininess", "baseReflectance"})
        QVERIFY2(content.contains(QByteArray(name) + "=\"" + text + '"'), content.constData());
}

void tst_AssociatedShapesXMLWriter::formatsColors_data()
{
    QTest::addColumn<QColor>("color");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("alpha is lost") << QColor(16, 32, 48, 0) << QByteArray("#102030");
    QTest::newRow("invalid") << QColor() << QByteArray("#000000");
    QTest::newRow("another model") << QColor::fromHsv(0, 255, 255) << QByteArray("#ff0000");
}

void tst_AssociatedShapesXMLWriter::formatsColors()
{
    QFETCH(QColor, color);
    QFETCH(QByteArray, text);
    Material material = sample;
    material.emissiveColor = color;
    QVERIFY(contentWith(material).contains("emissiveColor=\"" + text + '"'));
    material.detailNoise = false;
    QVERIFY(contentWith(material).contains("detailNoise=\"false\""));
}

void tst_AssociatedShapesXMLWriter::onlyGrows()
{
    AssociatedShapesXMLWriter writer;
    writer.add(u"a"_s, u"1"_s, sample);
    QByteArray const first = writer.createXMLContent();
    QCOMPARE(writer.createXMLContent(), first);
    writer.add(u"b"_s, QString(), sample);
    QCOMPARE(writer.createXMLContent().count("<shape materialId=\"1\">a</shape>"), 1);
    QCOMPARE(writer.createXMLContent().count("<shape materialId=\"\">b</shape>"), 1);
}

void tst_AssociatedShapesXMLWriter::copiesAreIndependent()
{
    AssociatedShapesXMLWriter writer;
    writer.add(u"a"_s, u"1"_s, sample);
    AssociatedShapesXMLWriter copy(writer);
    QCOMPARE(copy.createXMLContent(), writer.createXMLContent());
    copy.add(u"b"_s, u"2"_s, sample);
    QVERIFY(copy.createXMLContent() != writer.createXMLContent());
    writer = copy;
    QCOMPARE(copy.createXMLContent(), writer.createXMLContent());
}

QTEST_APPLESS_MAIN(tst_AssociatedShapesXMLWriter)
#include "tst_AssociatedShapesXMLWriter.moc"
