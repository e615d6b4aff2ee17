#include "inhouse/data/ShapeNodeIO.h"
#include "support/Devices.h"
#include "support/Meshes.h"
#include "support/ShapeTreeBytes.h"

#include <QBuffer>
#include <QDataStream>
#include <QTest>
#include <QVersionNumber>

#include <limits>

using geometry::Material;
using geometry::Mesh;
using geometry::Shape;
using geometry::ShapeNode;
using support::ShapeTreeBytes;

using namespace Qt::StringLiterals;

namespace {

QVersionNumber const v1(1, 0);
QVersionNumber const v2(2, 0);

// One item in each of the five lists, none like another.
Mesh fullMesh()
{
    Mesh mesh({{1, 2, 3}}, {0, 0, 0, -1}, {{4, 5, 6}});
    mesh.colors = {0xFF0000FFu};
    mesh.textureCoordinates = {{0.25f, 0.75f}};
    return mesh;
}

// Values that a detour over text or double would not bring back.
Mesh oddMesh()
{
    float const nan = std::bit_cast<float>(0xFFA12345u);
    float const denormal = std::numeric_limits<float>::denorm_min();
    Mesh mesh({{-0.0f, nan, denormal}, {1e38f, -1e-38f, std::numeric_limits<float>::infinity()}},
              {1, 0, 77, -1, -5});
    mesh.colors = {0u, 0xFFFFFFFFu, 1u};
    mesh.textureCoordinates = {{nan, -0.0f}};
    return mesh;
}

std::unique_ptr<ShapeNode> load(QByteArray const& bytes, QVersionNumber const& version, bool flag = false)
{
    QDataStream stream(bytes);
    return ShapeNodeIO::loadRecursive(&stream, version, flag);
}

QByteArray save(ShapeNode const* root)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    ShapeNodeIO::saveRecursive(root, &stream);
    return bytes;
}

bool sameTrees(ShapeNode const& a, ShapeNode const& b)
{
    if (a.getName() != b.getName() || !a.getShape() != !b.getShape() ||
        a.getChildren().size() != b.getChildren().size())
        return false;
    if (a.getShape() && (!support::sameBits(a.getShape()->getMesh(), b.getShape()->getMesh()) ||
                         a.getShape()->getMaterial() != b.getShape()->getMaterial()))
        return false;
    for (std::size_t i = 0; i < a.getChildren().size(); ++i)
        if (!sameTrees(*a.getChildren()[i], *b.getChildren()[i]))
            return false;
    return true;
}

ShapeNode* shapeNode(QString const& name, Mesh const& mesh, Material const& material)
{
    auto* const shape = new Shape;
    shape->setMesh(mesh);
    shape->setMaterial(material);
    return new ShapeNode(name, shape);
}

std::unique_ptr<ShapeNode> sampleTree()
{
    Material unusual = support::shapeTreeMaterial();
    unusual.diffuseColor = QColor();
    unusual.shininess = std::numeric_limits<float>::denorm_min();
    unusual.detailNoise = true;
    std::unique_ptr<ShapeNode> root(shapeNode(u"root"_s, fullMesh(), Material::metal()));
    auto* const inner = new ShapeNode(u"Größe \U0001F9B7"_s);
    inner->addChild(shapeNode(QString(), oddMesh(), unusual));
    inner->addChild(shapeNode(u"empty"_s, Mesh(), Material()));
    root->addChild(inner);
    root->addChild(shapeNode(u"last"_s, support::cube(), Material::distractor()));
    return root;
}

QByteArray oneNode()
{
    return ShapeTreeBytes().text(u"ab"_s).u8(1).mesh(fullMesh()).material(0).u32(0).bytes;
}

} // namespace

class tst_ShapeNodeIO : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void latestVersion();
    void writesTheDocumentedBytes();
    void writesShapesAlone();
    void readsBackWhatItWrites();
    void readsBackManyBlocks();
    void readsVersion1();
    void ignoresMaterialsOnRequest();
    void ignoresTheSettingsOfTheStream();
    void readsFromSlowAndSequentialDevices();
    void leavesWhatFollows();
    void convertsColorModels();
    void writesNothingForNull();
    void refusesVersions_data();
    void refusesVersions();
    void refusesEveryCut_data();
    void refusesEveryCut();
    void refusesDamage_data();
    void refusesDamage();
    void failedShapesStayAsTheyWere();
    void saysWhenTheStreamTookNothing();
    void loadsAndSavesDeepTrees();
};

void tst_ShapeNodeIO::latestVersion()
{
    QCOMPARE(ShapeNodeIO::LATEST_BINARY_VERSION.first, 2u);
    QCOMPARE(ShapeNodeIO::LATEST_BINARY_VERSION.second, 0u);
}

void tst_ShapeNodeIO::writesTheDocumentedBytes()
{
    std::unique_ptr<ShapeNode> const root(shapeNode(u"ab"_s, fullMesh(), support::shapeTreeMaterial()));
    QCOMPARE(save(root.get()).toHex(), oneNode().toHex());
    root->addChild(new ShapeNode(u"c"_s));
    QByteArray const expected = oneNode().chopped(4) + ShapeTreeBytes().u32(1).node(u"c"_s, 0).bytes;
    QCOMPARE(save(root.get()).toHex(), expected.toHex());
}

void tst_ShapeNodeIO::writesShapesAlone()
{
    Shape shape;
    shape.setMesh(fullMesh());
    shape.setMaterial(support::shapeTreeMaterial());
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    QVERIFY(shape.saveBinary(&stream));
    QCOMPARE(bytes.toHex(), ShapeTreeBytes().mesh(fullMesh()).material(0).bytes.toHex());
}

void tst_ShapeNodeIO::readsBackWhatItWrites()
{
    auto const tree = sampleTree();
    QByteArray const bytes = save(tree.get());
    auto const loaded = load(bytes, v2);
    QVERIFY(loaded);
    QVERIFY(sameTrees(*tree, *loaded));
    QCOMPARE(save(loaded.get()), bytes);
}

void tst_ShapeNodeIO::readsBackManyBlocks()
{
    std::mt19937 random(1);
    Mesh mesh = support::randomMesh(random, 50'000, 30'000);
    mesh.normals = mesh.vertices;
    mesh.colors.fill(0x01020304u, 12'289);
    mesh.textureCoordinates.fill({0.5f, 0.25f}, 6'144);
    QString const name(100'000, u'n');
    std::unique_ptr<ShapeNode> const root(shapeNode(name, mesh, Material()));
    auto const loaded = load(save(root.get()), v2);
    QVERIFY(loaded);
    QVERIFY(sameTrees(*root, *loaded));
}

void tst_ShapeNodeIO::readsVersion1()
{
    ShapeTreeBytes tree;
    tree.text(u"a"_s).u8(1).mesh(fullMesh()).u32(1).node(u"b"_s, 0);
    for (QVersionNumber const& version : {v1, QVersionNumber(1)}) {
        auto const loaded = load(tree.bytes, version);
        QVERIFY(loaded);
        QCOMPARE(loaded->getName(), u"a"_s);
        QVERIFY(support::sameBits(loaded->getShape()->getMesh(), fullMesh()));
        QCOMPARE(loaded->getShape()->getMaterial(), Material());
        QCOMPARE(loaded->getChildren().size(), std::size_t(1));
        QCOMPARE(loaded->getChildren()[0]->getName(), u"b"_s);
    }
}

void tst_ShapeNodeIO::ignoresMaterialsOnRequest()
{
    auto const loaded = load(oneNode(), v2, true);
    QVERIFY(loaded);
    QVERIFY(support::sameBits(loaded->getShape()->getMesh(), fullMesh()));
    QCOMPARE(loaded->getShape()->getMaterial(), Material());
    QCOMPARE(load(oneNode(), v2, false)->getShape()->getMaterial(), support::shapeTreeMaterial());
}

void tst_ShapeNodeIO::ignoresTheSettingsOfTheStream()
{
    auto const tree = sampleTree();
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setByteOrder(QDataStream::LittleEndian); // the default is big-endian
    out.setFloatingPointPrecision(QDataStream::SinglePrecision);
    ShapeNodeIO::saveRecursive(tree.get(), &out);
    QCOMPARE(bytes, save(tree.get()));
    QDataStream in(bytes);
    in.setByteOrder(QDataStream::LittleEndian);
    auto const loaded = ShapeNodeIO::loadRecursive(&in, v2, false);
    QVERIFY(loaded && sameTrees(*tree, *loaded));
}

void tst_ShapeNodeIO::readsFromSlowAndSequentialDevices()
{
    auto const tree = sampleTree();
    support::TrickleDevice trickle(save(tree.get()));
    support::SequentialDevice sequential(save(tree.get()), 5);
    for (QIODevice* const device :
         {static_cast<QIODevice*>(&trickle), static_cast<QIODevice*>(&sequential)}) {
        QVERIFY(device->open(QIODevice::ReadOnly));
        QDataStream stream(device);
        auto const loaded = ShapeNodeIO::loadRecursive(&stream, v2, false);
        QVERIFY(loaded && sameTrees(*tree, *loaded));
        QCOMPARE(stream.status(), QDataStream::Ok);
    }
}

void tst_ShapeNodeIO::leavesWhatFollows()
{
    QDataStream stream(oneNode() + "rest");
    QVERIFY(ShapeNodeIO::loadRecursive(&stream, v2, false));
    QCOMPARE(stream.device()->readAll(), QByteArray("rest"));
}

void tst_ShapeNodeIO::convertsColorModels()
{
    Material material;
    material.ambientColor = QColor::fromHsv(120, 255, 255);
    material.diffuseColor = QColor::fromCmyk(0, 0, 0, 255);
    material.specularColor = QColor(u"nothing that is a colour"_s);
    material.emissiveColor = QColor(1, 2, 3, 4);
    std::unique_ptr<ShapeNode> const root(shapeNode(u"r"_s, Mesh(), material));
    Material const loaded = load(save(root.get()), v2)->getShape()->getMaterial();
    QCOMPARE(loaded.ambientColor, QColor(0, 255, 0));
    QCOMPARE(loaded.diffuseColor, QColor(0, 0, 0));
    QVERIFY(!loaded.specularColor.isValid());
    QCOMPARE(loaded.emissiveColor, QColor(1, 2, 3, 4));
}

void tst_ShapeNodeIO::writesNothingForNull()
{
    QVERIFY(save(nullptr).isEmpty());
}

void tst_ShapeNodeIO::refusesVersions_data()
{
    QTest::addColumn<QVersionNumber>("version");
    QTest::newRow("none") << QVersionNumber();
    QTest::newRow("0.0") << QVersionNumber(0, 0);
    QTest::newRow("1.1") << QVersionNumber(1, 1);
    QTest::newRow("1.0.1") << QVersionNumber(1, 0, 1);
    QTest::newRow("2.1") << QVersionNumber(2, 1);
    QTest::newRow("3.0") << QVersionNumber(3, 0);
    QTest::newRow("-1.0") << QVersionNumber(-1, 0);
    QTest::newRow("258.0") << QVersionNumber(258, 0);
}

void tst_ShapeNodeIO::refusesVersions()
{
    QFETCH(QVersionNumber, version);
    QVERIFY(!load(ShapeTreeBytes().node(u"a"_s, 0).bytes, version));
    QDataStream stream(ShapeTreeBytes().emptyMesh().material(0).bytes);
    QVERIFY(!Shape().loadBinary(&stream, version, false));
}

void tst_ShapeNodeIO::refusesEveryCut_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QVersionNumber>("version");
    QTest::newRow("one node") << oneNode() << v2;
    QTest::newRow("a tree") << save(sampleTree().get()) << v2;
    ShapeTreeBytes old;
    old.text(u"a"_s).u8(1).mesh(fullMesh()).u32(2).node(u"b"_s, 0).node(u"c"_s, 0);
    QTest::newRow("version 1") << old.bytes << v1;
}

void tst_ShapeNodeIO::refusesEveryCut()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QVersionNumber, version);
    QVERIFY(load(bytes, version));
    for (qsizetype length = 0; length < bytes.size(); ++length) {
        QDataStream stream(bytes.first(length));
        QVERIFY2(!ShapeNodeIO::loadRecursive(&stream, version, false), qPrintable(QString::number(length)));
        QCOMPARE(stream.status(), QDataStream::ReadPastEnd);
    }
}

void tst_ShapeNodeIO::refusesDamage_data()
{
    QTest::addColumn<QByteArray>("bytes");
    constexpr quint32 lie = 0xFFFFFFFF;
    auto const name = [] { return ShapeTreeBytes().text(u"a"_s); };
    QTest::newRow("a name without an end") << ShapeTreeBytes().u32(lie).u16('a').bytes;
    QTest::newRow("a shape flag of 2") << name().u8(2).emptyMesh().material(0).u32(0).bytes;
    QTest::newRow("a shape flag of 255") << name().u8(255).u32(0).bytes;
    QTest::newRow("children without an end") << name().u8(0).u32(lie).node(u"b"_s, 0).bytes;
    QTest::newRow("vertices") << name().u8(1).u32(lie).f32(1).f32(2).f32(3).bytes;
    QTest::newRow("vertices, a third of one") << name().u8(1).u32(1).f32(1).bytes;
    QTest::newRow("normals") << name().u8(1).u32(0).u32(lie).f32(1).bytes;
    QTest::newRow("indices") << name().u8(1).u32(0).u32(0).u32(lie).u32(1).bytes;
    QTest::newRow("colours") << name().u8(1).u32(0).u32(0).u32(0).u32(lie).u32(1).bytes;
    QTest::newRow("coordinates") << name().u8(1).u32(0).u32(0).u32(0).u32(0).u32(lie).u32(1).bytes;
    ShapeTreeBytes badColor = name().u8(1).emptyMesh().color(2, 0, 0, 0, 0);
    for (int i = 0; i < 3; ++i)
        badColor.color(1, 0, 0, 0, 0);
    QTest::newRow("a colour flag of 2") << badColor.bytes + QByteArray(7 * 4 + 1 + 4, '\0');
    QTest::newRow("a noise flag of 2") << name().u8(1).emptyMesh().material(2).u32(0).bytes;
    ShapeTreeBytes chain;
    for (int i = 0; i < 1000; ++i)
        chain.node(u"c"_s, lie);
    QTest::newRow("each node claims children") << chain.bytes;
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("only 0xFF") << QByteArray(1000, '\xFF');
}

void tst_ShapeNodeIO::refusesDamage()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(!load(bytes, v2));
    support::SequentialDevice device(bytes);
    QVERIFY(device.open(QIODevice::ReadOnly));
    QDataStream stream(&device);
    QVERIFY(!ShapeNodeIO::loadRecursive(&stream, v2, false));
    QVERIFY(stream.status() != QDataStream::Ok);
}

void tst_ShapeNodeIO::failedShapesStayAsTheyWere()
{
    Shape shape;
    shape.setMesh(support::cube());
    shape.setMaterial(Material::metal());
    QByteArray const bytes = ShapeTreeBytes().mesh(fullMesh()).material(0).bytes;
    QDataStream stream(bytes.chopped(1));
    QVERIFY(!shape.loadBinary(&stream, v2, false));
    QVERIFY(support::sameBits(shape.getMesh(), support::cube()));
    QCOMPARE(shape.getMaterial(), Material::metal());
}

void tst_ShapeNodeIO::saysWhenTheStreamTookNothing()
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QVERIFY(buffer.open(QIODevice::WriteOnly));
    QDataStream stream(&buffer);
    stream.setStatus(QDataStream::WriteFailed);
    QVERIFY(!Shape().saveBinary(&stream));
    ShapeNode const node(u"n"_s);
    ShapeNodeIO::saveRecursive(&node, &stream);
    QVERIFY(bytes.isEmpty());
}

void tst_ShapeNodeIO::loadsAndSavesDeepTrees()
{
    constexpr int levels = 100'000;
    ShapeTreeBytes tree;
    for (int i = 0; i < levels; ++i)
        tree.node(u"n"_s, 1);
    tree.node(u"leaf"_s, 0);
    auto root = load(tree.bytes, v2);
    QVERIFY(root);
    int depth = 0;
    for (ShapeNode const* node = root.get(); !node->getChildren().empty(); ++depth)
        node = node->getChildren()[0].get();
    QCOMPARE(depth, levels);
    QCOMPARE(save(root.get()), tree.bytes);
    root.reset();
    QVERIFY(!load(tree.bytes.chopped(1), v2));
}

QTEST_APPLESS_MAIN(tst_ShapeNodeIO)
#include "tst_ShapeNodeIO.moc"
