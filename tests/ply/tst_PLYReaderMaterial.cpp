#include "ply/PLYReader.h"
#include "support/PlyFiles.h"

#include <QTest>

using geometry::Material;
using support::plyHeader;
using support::plyMaterial;
using support::plyPosition;

namespace {

std::atomic<bool> const never = false;

QByteArray const triangleBody = support::PLYBody().f32({0, 0, 0, 1, 0, 0, 0, 1, 0}).triangle(0, 1, 2).bytes;

QByteArray fileOf(QByteArrayList const& properties, QByteArray const& record)
{
    QByteArrayList const lines = QByteArrayList{"element velquin_material 1"} + properties;
    return plyHeader(3, plyPosition, 1, lines) + triangleBody + record;
}

// The material of a file that could be read.
Material materialOf(QByteArrayList const& properties, support::PLYBody const& record)
{
    PLYReader reader(PLYReader::MeshMode);
    bool const success = reader.read(fileOf(properties, record.bytes), never) && reader.getMaterial();
    return success ? *reader.getMaterial() : Material::distractor();
}

QByteArrayList colorLines(QByteArray const& group)
{
    return {"property uchar " + group + "_red", "property uchar " + group + "_green",
            "property uchar " + group + "_blue", "property float " + group + "_intensity"};
}

} // namespace

class tst_PLYReaderMaterial : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsTheWholeRecord_data();
    void readsTheWholeRecord();
    void readsRecordsOfDoubles();
    void missingRecordIsDefault();
    void noElementNoMaterial();
    void missingGroupsKeepTheirDefaults();
    void channelsAreCarriedOver();
    void groupsOnlyMatterAtTheIntensity();
    void colorsWithoutIntensityAreLost();
    void intensityWithoutColorsMakesTheColorInvalid();
    void alphaIsSkipped();
    void otherPropertiesAreSkipped();
    void detailNoiseIsTrueForAnythingButZero_data();
    void detailNoiseIsTrueForAnythingButZero();
    void stopsWhereTheBodyEnds_data();
    void stopsWhereTheBodyEnds();
    void failsWhereANumberIsNeeded_data();
    void failsWhereANumberIsNeeded();
    void eachReadReplacesTheMaterial();
    void pointCloudsCarryTheMaterial();
};

void tst_PLYReaderMaterial::readsTheWholeRecord_data()
{
    QTest::addColumn<bool>("bigEndian");
    QTest::newRow("little-endian") << false;
    QTest::newRow("big-endian") << true;
}

void tst_PLYReaderMaterial::readsTheWholeRecord()
{
    QFETCH(bool, bigEndian);
    QByteArray header = plyHeader(3, plyPosition, 1, plyMaterial);
    if (bigEndian)
        header.replace("little", "big");
    QByteArray const body = support::PLYBody(bigEndian)
                                .f32({0, 0, 0, 1, 0, 0, 0, 1, 0})
                                .triangle(0, 1, 2)
                                .u8({1, 2, 3})
                                .f32(0.5f)
                                .u8({4, 5, 6})
                                .f32(-0.25f)
                                .u8({7, 8, 9})
                                .f32(0.1f)
                                .u8({10, 11, 255})
                                .f32(1e10f)
                                .f32({64, 0.125f, 0.04f})
                                .u8(1)
                                .bytes;
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(reader.read(header + body, never));
    Material const expected(QColor(1, 2, 3), QColor(4, 5, 6), QColor(7, 8, 9), QColor(10, 11, 255), 0.5f,
                            -0.25f, 0.1f, 1e10f, 64, 0.125f, 0.04f, true);
    QVERIFY(reader.getMaterial() == expected);
    QCOMPARE(reader.getMesh().indices, (QList<int>{0, 1, 2, -1}));
}

void tst_PLYReaderMaterial::readsRecordsOfDoubles()
{
    Material const material = materialOf(
        {"property short ambient_red", "property double ambient_intensity", "property int shininess",
         "property uint transparency", "property uchar base_reflectance", "property double detail_noise"},
        support::PLYBody().i16(300).f64(0.1).i32(-7).u32(4000000000u).u8(2).f64(0.5));
    QCOMPARE(material.ambientColor, QColor(255, 0, 0));
    QCOMPARE(material.ambientIntensity, 0.1f);
    QCOMPARE(material.shininess, -7.0f);
    QCOMPARE(material.transparency, 4000000000.0f);
    QCOMPARE(material.baseReflectance, 2.0f);
    QVERIFY(material.detailNoise);
}

void tst_PLYReaderMaterial::missingRecordIsDefault()
{
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(reader.read(plyHeader(3, plyPosition, 1, plyMaterial) + triangleBody, never));
    QVERIFY(reader.getMaterial() == Material());
    // So is a body that ends among the vertices.
    QVERIFY(reader.read(plyHeader(3, plyPosition, 1, plyMaterial) + triangleBody.left(12), never));
    QVERIFY(reader.getMaterial() == Material());
}

void tst_PLYReaderMaterial::noElementNoMaterial()
{
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(reader.read(fileOf({}, {}), never));
    QVERIFY(!reader.getMaterial());
    QVERIFY(reader.read(support::plyTriangle(), never));
    QVERIFY(!reader.getMaterial());
}

void tst_PLYReaderMaterial::missingGroupsKeepTheirDefaults()
{
    Material expected;
    expected.specularColor = QColor(1, 2, 3);
    expected.specularIntensity = 0.5f;
    expected.baseReflectance = 0.75f;
    QVERIFY(materialOf(colorLines("specular") + QByteArrayList{"property float base_reflectance"},
                       support::PLYBody().u8({1, 2, 3}).f32({0.5f, 0.75f})) == expected);
}

void tst_PLYReaderMaterial::channelsAreCarriedOver()
{
    Material const material =
        materialOf(colorLines("ambient") +
                       QByteArrayList{"property uchar diffuse_green", "property float diffuse_intensity",
                                      "property float specular_intensity", "property uchar emissive_blue",
                                      "property float emissive_intensity"},
                   support::PLYBody().u8({1, 2, 3}).f32(0.5f).u8(20).f32({0.25f, 0.125f}).u8(30).f32(1));
    QCOMPARE(material.ambientColor, QColor(1, 2, 3));
    QCOMPARE(material.diffuseColor, QColor(1, 20, 3));
    QCOMPARE(material.specularColor, QColor(1, 20, 3));
    QCOMPARE(material.emissiveColor, QColor(1, 20, 30));
    QCOMPARE(material.diffuseIntensity, 0.25f);
    QCOMPARE(material.specularIntensity, 0.125f);
    QCOMPARE(material.emissiveIntensity, 1.0f);
}

void tst_PLYReaderMaterial::groupsOnlyMatterAtTheIntensity()
{
    Material const material = materialOf({"property uchar emissive_red", "property uchar ambient_green",
                                          "property uchar specular_blue", "property float diffuse_intensity"},
                                         support::PLYBody().u8({1, 2, 3}).f32(0.5f));
    QCOMPARE(material.diffuseColor, QColor(1, 2, 3));
    QCOMPARE(material.diffuseIntensity, 0.5f);
    QCOMPARE(material.ambientColor, Material().ambientColor);
    QCOMPARE(material.emissiveColor, Material().emissiveColor);
}

void tst_PLYReaderMaterial::colorsWithoutIntensityAreLost()
{
    QVERIFY(materialOf({"property float ambient_intensity", "property uchar ambient_red",
                        "property uchar ambient_green", "property uchar ambient_blue"},
                       support::PLYBody().f32(Material().ambientIntensity).u8({1, 2, 3}))
                .ambientColor == QColor());
    QVERIFY(materialOf(colorLines("ambient").mid(0, 3), support::PLYBody().u8({1, 2, 3})) == Material());
}

void tst_PLYReaderMaterial::intensityWithoutColorsMakesTheColorInvalid()
{
    Material const material = materialOf({"property float diffuse_intensity"}, support::PLYBody().f32(0.5f));
    QVERIFY(!material.diffuseColor.isValid());
    QCOMPARE(material.diffuseIntensity, 0.5f);
}

void tst_PLYReaderMaterial::alphaIsSkipped()
{
    Material const material =
        materialOf({"property uchar ambient_red", "property uchar alpha", "property float ambient_intensity"},
                   support::PLYBody().u8({9, 100}).f32(0.5f));
    QCOMPARE(material.ambientColor, QColor(9, 0, 0, 255));
    QCOMPARE(material.ambientIntensity, 0.5f);
}

void tst_PLYReaderMaterial::otherPropertiesAreSkipped()
{
    QTest::ignoreMessage(QtCriticalMsg,
                         "Property gloss of type double is not handled! Property will be skipped.");
    Material expected;
    expected.shininess = 5;
    QVERIFY(materialOf({"property double gloss", "property uchar red", "property float x",
                        "property int vertex_indices", "property char ny", "property ushort u",
                        "property list uchar int vertex_index", "property float shininess"},
                       support::PLYBody().f64(1).u8(2).f32(3).i32(4).f32(5)) == expected);
}

void tst_PLYReaderMaterial::detailNoiseIsTrueForAnythingButZero_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<bool>("noise");
    using Body = support::PLYBody;
    QTest::newRow("0") << QByteArray("uchar") << Body().u8(0).bytes << false;
    QTest::newRow("1") << QByteArray("uchar") << Body().u8(1).bytes << true;
    QTest::newRow("255") << QByteArray("uchar") << Body().u8(255).bytes << true;
    QTest::newRow("-1") << QByteArray("int") << Body().i32(-1).bytes << true;
    QTest::newRow("unsigned") << QByteArray("uint") << Body().u32(0x80000000u).bytes << true;
    QTest::newRow("0.0") << QByteArray("float") << Body().f32(0).bytes << false;
    QTest::newRow("a fraction, as a variant has it")
        << QByteArray("float") << Body().f32(0.25f).bytes << QVariant(0.25f).toBool();
    QTest::newRow("double 0") << QByteArray("double") << Body().f64(0).bytes << false;
    QTest::newRow("no bytes") << QByteArray("ushort") << Body().i16(1).bytes << false;
}

void tst_PLYReaderMaterial::detailNoiseIsTrueForAnythingButZero()
{
    QFETCH(QByteArray, type);
    QFETCH(QByteArray, value);
    QFETCH(bool, noise);
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(reader.read(fileOf({"property " + type + " detail_noise"}, value), never));
    Material expected;
    expected.detailNoise = noise;
    QVERIFY(reader.getMaterial() == expected);
}

void tst_PLYReaderMaterial::stopsWhereTheBodyEnds_data()
{
    QTest::addColumn<int>("bytes");
    QTest::addColumn<QColor>("ambient");
    QTest::addColumn<float>("intensity");
    QTest::addColumn<float>("shininess");
    QColor const ambient = Material().ambientColor;
    float const intensity = Material().ambientIntensity;
    float const shininess = Material().shininess;
    QTest::newRow("nothing") << 0 << ambient << intensity << shininess;
    QTest::newRow("red") << 1 << ambient << intensity << shininess;
    QTest::newRow("colour") << 3 << ambient << intensity << shininess;
    // A value cut off reads as 0.
    QTest::newRow("part of the intensity") << 5 << QColor(1, 2, 3) << 0.0f << shininess;
    QTest::newRow("intensity") << 7 << QColor(1, 2, 3) << 0.5f << shininess;
    QTest::newRow("part of the shininess") << 8 << QColor(1, 2, 3) << 0.5f << 0.0f;
    QTest::newRow("everything") << 11 << QColor(1, 2, 3) << 0.5f << 20.0f;
}

void tst_PLYReaderMaterial::stopsWhereTheBodyEnds()
{
    QFETCH(int, bytes);
    QFETCH(QColor, ambient);
    QFETCH(float, intensity);
    QFETCH(float, shininess);
    PLYReader reader(PLYReader::MeshMode);
    QByteArray const record = support::PLYBody().u8({1, 2, 3}).f32({0.5f, 20}).bytes;
    QVERIFY(reader.read(
        fileOf(colorLines("ambient") + QByteArrayList{"property float shininess"}, record.left(bytes)),
        never));
    Material expected;
    expected.ambientColor = ambient;
    expected.ambientIntensity = intensity;
    expected.shininess = shininess;
    QVERIFY(reader.getMaterial() == expected);
}

void tst_PLYReaderMaterial::failsWhereANumberIsNeeded_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("property");
    QTest::newRow("ambient_intensity") << QByteArray("ambient_intensity") << 18;
    QTest::newRow("diffuse_intensity") << QByteArray("diffuse_intensity") << 22;
    QTest::newRow("specular_intensity") << QByteArray("specular_intensity") << 26;
    QTest::newRow("emissive_intensity") << QByteArray("emissive_intensity") << 30;
    QTest::newRow("shininess") << QByteArray("shininess") << 31;
    QTest::newRow("transparency") << QByteArray("transparency") << 32;
    QTest::newRow("base_reflectance") << QByteArray("base_reflectance") << 33;
    for (QByteArray const group : {"ambient", "diffuse", "specular", "emissive"})
        for (QByteArray const channel : {"red", "green", "blue"})
            QTest::newRow((group + '_' + channel).constData()) << group + '_' + channel << -1;
}

void tst_PLYReaderMaterial::failsWhereANumberIsNeeded()
{
    QFETCH(QByteArray, name);
    QFETCH(int, property);
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(reader.read(fileOf({"property float shininess"}, {}), never));
    for (QByteArray const type : {"char", "ushort", "list", "nonsense"}) {
        QByteArray const message =
            "Failed to convert property  " + QByteArray::number(property) + "  to the expected type";
        if (property >= 0)
            QTest::ignoreMessage(QtWarningMsg, message.constData());
        QVERIFY(!reader.read(fileOf({"property " + type + ' ' + name}, "\1\1"), never));
        QVERIFY(!reader.getMaterial());
    }
}

void tst_PLYReaderMaterial::eachReadReplacesTheMaterial()
{
    QByteArray const withMaterial = fileOf({"property float shininess"}, support::PLYBody().f32(7).bytes);
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(reader.read(withMaterial, never));
    QCOMPARE(reader.getMaterial()->shininess, 7.0f);
    // Failures before the material begins leave it alone.
    QVERIFY(!reader.read(QByteArray("no mesh"), never));
    QVERIFY(!reader.read(QByteArray(withMaterial).replace("float x", "char x"), never));
    QTest::ignoreMessage(QtWarningMsg, "Unsupported indices count ( 0 ) (only triangles supported)!");
    QVERIFY(
        !reader.read(QByteArray(withMaterial).replace(triangleBody, triangleBody.left(36) + '\0'), never));
    QCOMPARE(reader.getMaterial()->shininess, 7.0f);
    QVERIFY(reader.read(support::plyTriangle(), never));
    QVERIFY(!reader.getMaterial());
}

void tst_PLYReaderMaterial::pointCloudsCarryTheMaterial()
{
    QByteArray const file =
        plyHeader(1, plyPosition, 5, {"element velquin_material 1", "property float shininess"}) +
        support::PLYBody().f32({1, 2, 3, 7}).bytes;
    PLYReader reader(PLYReader::PointCloudMode);
    QVERIFY(reader.read(file, never));
    QCOMPARE(reader.getMaterial()->shininess, 7.0f);
    QVERIFY(reader.getPointCloud().material() == *reader.getMaterial());
}

QTEST_GUILESS_MAIN(tst_PLYReaderMaterial)
#include "tst_PLYReaderMaterial.moc"
