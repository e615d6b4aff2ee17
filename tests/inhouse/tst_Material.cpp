#include "inhouse/data/Material.h"

#include <QTest>

#include <algorithm>
#include <array>
#include <functional>

namespace {

using geometry::Material;

Material numbered()
{
    return {QColor(1, 2, 3),
            QColor(4, 5, 6),
            QColor(7, 8, 9),
            QColor(10, 11, 12),
            0.1f,
            0.2f,
            0.3f,
            0.4f,
            50.0f,
            0.6f,
            0.7f,
            true};
}

} // namespace

class tst_Material : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void constructorFillsInDeclarationOrder();
    void fieldsAreDeclaredInOrder();
    void looks_data();
    void looks();
    void presetsDiffer();
    void presetsAreMetals();
    void copies();
    void comparesEveryField();
};

void tst_Material::constructorFillsInDeclarationOrder()
{
    Material const m = numbered();
    QCOMPARE(m.ambientColor, QColor(1, 2, 3));
    QCOMPARE(m.diffuseColor, QColor(4, 5, 6));
    QCOMPARE(m.specularColor, QColor(7, 8, 9));
    QCOMPARE(m.emissiveColor, QColor(10, 11, 12));
    QCOMPARE(m.ambientIntensity, 0.1f);
    QCOMPARE(m.diffuseIntensity, 0.2f);
    QCOMPARE(m.specularIntensity, 0.3f);
    QCOMPARE(m.emissiveIntensity, 0.4f);
    QCOMPARE(m.shininess, 50.0f);
    QCOMPARE(m.transparency, 0.6f);
    QCOMPARE(m.baseReflectance, 0.7f);
    QCOMPARE(m.detailNoise, true);
}

void tst_Material::fieldsAreDeclaredInOrder()
{
    Material const m;
    std::array<void const*, 12> const fields = {
        &m.ambientColor,     &m.diffuseColor,     &m.specularColor,     &m.emissiveColor,
        &m.ambientIntensity, &m.diffuseIntensity, &m.specularIntensity, &m.emissiveIntensity,
        &m.shininess,        &m.transparency,     &m.baseReflectance,   &m.detailNoise};
    QVERIFY(std::is_sorted(fields.begin(), fields.end(), std::less<>()));
}

void tst_Material::looks_data()
{
    QTest::addColumn<Material>("material");
    QTest::newRow("default") << Material();
    QTest::newRow("metal") << Material::metal();
    QTest::newRow("distractor") << Material::distractor();
}

void tst_Material::looks()
{
    QFETCH(Material, material);

    for (QColor const& color :
         {material.ambientColor, material.diffuseColor, material.specularColor, material.emissiveColor}) {
        QVERIFY(color.isValid());
        QCOMPARE(color.alpha(), 255);
    }
    for (float const fraction :
         {material.ambientIntensity, material.diffuseIntensity, material.specularIntensity,
          material.emissiveIntensity, material.transparency, material.baseReflectance}) {
        QVERIFY(fraction >= 0.0f);
        QVERIFY(fraction <= 1.0f);
    }
    QVERIFY(material.shininess > 0.0f);
    // Opaque, and no lamp.
    QCOMPARE(material.transparency, 0.0f);
    QCOMPARE(material.emissiveIntensity, 0.0f);
    QCOMPARE(material.emissiveColor, QColor(Qt::black));
}

void tst_Material::presetsDiffer()
{
    QVERIFY(!(Material() == Material::metal()));
    QVERIFY(!(Material() == Material::distractor()));
    QVERIFY(!(Material::metal() == Material::distractor()));
    QVERIFY(Material::metal() == Material::metal());
}

void tst_Material::presetsAreMetals()
{
    // What tells a metal from a dielectric: reflectance at normal incidence.
    QVERIFY(Material().baseReflectance < 0.1f);
    for (Material const& metal : {Material::metal(), Material::distractor()}) {
        QVERIFY(metal.baseReflectance > 0.4f);
        QVERIFY(metal.specularIntensity > Material().specularIntensity);
        QVERIFY(metal.shininess > Material().shininess);
    }
}

void tst_Material::copies()
{
    Material const original = numbered();
    Material copy = original;
    QVERIFY(copy == original);
    copy.shininess = 1.0f;
    QVERIFY(original == numbered());
    copy = original;
    QVERIFY(copy == original);
}

void tst_Material::comparesEveryField()
{
    std::array<void (*)(Material&), 12> const changes = {
        [](Material& m) { m.ambientColor = Qt::red; },   [](Material& m) { m.diffuseColor = Qt::red; },
        [](Material& m) { m.specularColor = Qt::red; },  [](Material& m) { m.emissiveColor = Qt::red; },
        [](Material& m) { m.ambientIntensity = 9.0f; },  [](Material& m) { m.diffuseIntensity = 9.0f; },
        [](Material& m) { m.specularIntensity = 9.0f; }, [](Material& m) { m.emissiveIntensity = 9.0f; },
        [](Material& m) { m.shininess = 9.0f; },         [](Material& m) { m.transparency = 9.0f; },
        [](Material& m) { m.baseReflectance = 9.0f; },   [](Material& m) { m.detailNoise = false; }};
    for (auto const change : changes) {
        Material changed = numbered();
        change(changed);
        QVERIFY(!(changed == numbered()));
    }
}

QTEST_APPLESS_MAIN(tst_Material)
#include "tst_Material.moc"
