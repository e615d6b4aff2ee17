// Files that an earlier build wrote, and what they hold. They are never written anew: if one of these tests
// fails, existing plans no longer load.
#include "framework/MeshReader.h"
#include "scene/AssociatedShapesXMLReader.h"
#include "scene/AssociatedShapesXMLWriter.h"
#include "scene/ShapeNodeIOHelper.h"
#include "support/Meshes.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QVersionNumber>

using geometry::Material;
using geometry::Mesh;
using geometry::Shape;
using geometry::ShapeNode;

using namespace Qt::StringLiterals;

namespace {

Mesh triangle(float x)
{
    Mesh mesh({{x, 0, 0}, {x + 1.5f, 0, 0}, {x, -2.25f, 1e-3f}}, {0, 1, 2, -1},
              QList<QVector3D>(3, {0, 0, 1}));
    mesh.colors = {0xFF0000FFu, 0x80FF00FFu, 0u};
    mesh.textureCoordinates = {{0, 0}, {1, 0}, {0, 0.5f}};
    return mesh;
}

Material glaze()
{
    return {QColor(1, 2, 3),
            QColor(200, 100, 50, 25),
            QColor(),
            QColor(255, 255, 255),
            0.125f,
            0.25f,
            0.5f,
            1.0f,
            33.0f,
            0.1f,
            0.04f,
            true};
}

Shape* shapeOf(Mesh const& mesh, Material const& material)
{
    auto* const shape = new Shape;
    shape->setMesh(mesh);
    shape->setMaterial(material);
    return shape;
}

// The tree of the files; in files of version 1.0 every material is the default one.
std::unique_ptr<ShapeNode> sampleTree(Material const& material)
{
    auto root = std::make_unique<ShapeNode>(u"Oberkiefer"_s, shapeOf(triangle(0), material));
    auto* const group = new ShapeNode(u"Zähne \U0001F9B7"_s);
    group->addChild(new ShapeNode(u"11"_s, shapeOf(triangle(10), material)));
    group->addChild(new ShapeNode(QString(), shapeOf(Mesh(), material)));
    root->addChild(group);
    root->addChild(new ShapeNode(u"last"_s));
    return root;
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

QByteArray bytesOf(QString const& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray document()
{
    AssociatedShapesXMLWriter writer;
    writer.add(u"upper & lower.stl"_s, u"glaze"_s, glaze());
    writer.add(u"triangle.ply"_s, u"metal"_s, Material::metal());
    return writer.createXMLContent();
}

} // namespace

class tst_SceneGolden : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void trees_data();
    void trees();
    void treesAreWrittenTheSame();
    void shapes();
    void shapesAreWrittenTheSame();
    void documents();
    void documentsAreWrittenTheSame();

private:
    static QString golden(char const* name) { return QFINDTESTDATA(u"golden/"_s + QLatin1StringView(name)); }
};

void tst_SceneGolden::trees_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QVersionNumber>("versionIfMissing");
    QTest::addColumn<bool>("hasMaterials");
    QTest::newRow("2.0") << golden("tree-2.0.shapetree") << QVersionNumber(1, 0) << true;
    QTest::newRow("1.0") << golden("tree-1.0.shapetree") << QVersionNumber(2, 0) << false;
    QTest::newRow("1.0 without header")
        << golden("tree-1.0-no-header.shapetree") << QVersionNumber(1, 0) << false;
}

void tst_SceneGolden::trees()
{
    QFETCH(QString, file);
    QFETCH(QVersionNumber, versionIfMissing);
    QFETCH(bool, hasMaterials);
    auto const root = ShapeNodeIOHelper::read(file, versionIfMissing, false);
    QVERIFY(root);
    QVERIFY(sameTrees(*root, *sampleTree(hasMaterials ? glaze() : Material())));
}

void tst_SceneGolden::treesAreWrittenTheSame()
{
    QTemporaryDir const folder;
    QString const path = folder.filePath(u"tree"_s);
    QVERIFY(ShapeNodeIOHelper::write(path, sampleTree(glaze()).get()));
    QCOMPARE(bytesOf(path).toHex(), bytesOf(golden("tree-2.0.shapetree")).toHex());
}

void tst_SceneGolden::shapes()
{
    auto const shape = ShapeNodeIOHelper::readShape(golden("shape-2.0.shapetree"));
    QVERIFY(shape);
    QVERIFY(support::sameBits(shape->getMesh(), triangle(7)));
    QCOMPARE(shape->getMaterial(), glaze());
}

void tst_SceneGolden::shapesAreWrittenTheSame()
{
    QTemporaryDir const folder;
    QString const path = folder.filePath(u"shape"_s);
    std::unique_ptr<Shape> const shape(shapeOf(triangle(7), glaze()));
    QVERIFY(ShapeNodeIOHelper::write(path, *shape));
    QCOMPARE(bytesOf(path).toHex(), bytesOf(golden("shape-2.0.shapetree")).toHex());
}

void tst_SceneGolden::documents()
{
    QString const path = golden("associated-shapes.xml");
    QDir const folder = QFileInfo(path).dir();
    QString const stl = u"upper & lower.stl"_s;
    QString const ply = u"triangle.ply"_s;
    QMap<QString, QByteArray> const files = {{u"doc"_s, bytesOf(path)},
                                             {stl, bytesOf(folder.filePath(stl))},
                                             {ply, bytesOf(folder.filePath(ply))}};
    AssociatedShapesXMLReader reader;
    QVERIFY(reader.read(files, u"doc"_s));
    QList<Mesh> const bundled = reader.takeMeshes();
    QVERIFY(reader.read(path));
    QList<Mesh> const onDisk = reader.takeMeshes();
    QCOMPARE(bundled.size(), 2);
    QCOMPARE(onDisk.size(), 2);
    for (int i = 0; i < 2; ++i) {
        QVERIFY(support::sameBits(bundled[i], onDisk[i]));
        QCOMPARE(bundled[i].vertices, triangle(0).vertices);
        QCOMPARE(bundled[i].indices, (QList<int>{0, 1, 2, -1}));
    }
    Material opaque = glaze();
    opaque.diffuseColor.setAlpha(255);
    opaque.specularColor = QColor(0, 0, 0);
    QCOMPARE(reader.getMaterials(),
             (QList<Material>{opaque, Material::metal(), Material::distractor(), Material::distractor()}));
}

void tst_SceneGolden::documentsAreWrittenTheSame()
{
    QCOMPARE(document(), bytesOf(golden("associated-shapes.xml")));
}

QTEST_GUILESS_MAIN(tst_SceneGolden)
#include "tst_SceneGolden.moc"
