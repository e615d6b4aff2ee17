#include "BundleFiles.h"
#include "scene/AssociatedShapesXMLReader.h"
#include "scene/AssociatedShapesXMLWriter.h"
#include "support/Meshes.h"

#include <QTest>

#include <type_traits>

using geometry::Material;
using geometry::Mesh;

using namespace Qt::StringLiterals;
using namespace bundle_test;

static_assert(std::has_virtual_destructor_v<AssociatedShapesXMLReader>);
static_assert(std::is_default_constructible_v<AssociatedShapesXMLReader>);
static_assert(std::is_copy_constructible_v<AssociatedShapesXMLReader>);
static_assert(std::is_copy_assignable_v<AssociatedShapesXMLReader>);

class tst_AssociatedShapesXMLReaderState : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void accumulates();
    void takingEmptiesTheMeshes();
    void failuresKeepWhatIsHeld();
    void copiesAreIndependent();
};

void tst_AssociatedShapesXMLReaderState::accumulates()
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

void tst_AssociatedShapesXMLReaderState::takingEmptiesTheMeshes()
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

void tst_AssociatedShapesXMLReaderState::failuresKeepWhatIsHeld()
{
    AssociatedShapesXMLReader reader;
    AssociatedShapesXMLWriter writer;
    writer.add(u"a.stl"_s, u"m"_s, numbered(1));
    QVERIFY(reader.read({{u"doc"_s, writer.createXMLContent()}, {u"a.stl"_s, stl(1)}}, u"doc"_s));
    QTest::ignoreMessage(QtWarningMsg, "Could not parse doc");
    QVERIFY(!reader.read({}, u"doc"_s));
    QCOMPARE(reader.takeMeshes().size(), 1);
}

void tst_AssociatedShapesXMLReaderState::copiesAreIndependent()
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

QTEST_APPLESS_MAIN(tst_AssociatedShapesXMLReaderState)
#include "tst_AssociatedShapesXMLReaderState.moc"
