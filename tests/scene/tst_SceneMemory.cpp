// Memory runs out in the middle of the scene's entries: where a function of the in-house libraries is called,
// which this program defines itself (they go before those of a shared library), or at any `operator new`.
// No exception comes out, lists still match, and nothing is lost (the leak checker looks at that).
#include "inhouse/catalogue/DistractorCatalog.h"
#include "inhouse/core/ApplicationParametersManagerImpl.h"
#include "inhouse/coreio/DomHelper.h"
#include "inhouse/fundamentals/StringConversions.h"
#include "scene/AssociatedShapesXMLReader.h"
#include "scene/AssociatedShapesXMLWriter.h"
#include "scene/DistractorFactory.h"
#include "scene/ShapeNodeIOHelper.h"
#include "support/ObjFiles.h"
#include "support/StlFiles.h"

#include <QDomNodeList>
#include <QTest>
#include <QVersionNumber>

#include <cstdlib>
#include <new>

using namespace Qt::StringLiterals;

namespace {

// Calls that are still answered; negative for all.
int answers = -1;

void answer()
{
    if (answers == 0)
        throw std::bad_alloc();
    answers -= answers > 0 ? 1 : 0;
}

// Allocations until one fails; 0 for none.
int allocations = 0;

constexpr int parts = 3;

} // namespace

void* operator new(std::size_t size)
{
    bool const fails = allocations > 0 && --allocations == 0;
    void* const memory = fails ? nullptr : std::malloc(size);
    if (!memory)
        throw std::bad_alloc();
    return memory;
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

QString DistractorCatalog::getProductName(QString const& productId)
{
    answer();
    return productId;
}

int DistractorCatalog::getNumParts(QString const&)
{
    answer();
    return parts;
}

QVector3D DistractorCatalog::getDefaultAlignmentDirection(QString const&)
{
    answer();
    return {0, 0, 1};
}

QMatrix4x4 DistractorCatalog::getObjectSpaceTransform(QString const&)
{
    answer();
    return {};
}

bool StringConversions::stringToBool(QString const& text)
{
    answer();
    return text == u"true"_s;
}

QDomNodeList deprecated::DomHelper::getTagElementsRecursively(QDomElement const& parent, QString const& tag)
{
    answer();
    return parent.elementsByTagName(tag);
}

class tst_SceneMemory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup() { answers = -1; }
    void distractors();
    void bundles();
    void documents();
    void trees();

private:
    support::ObjFolder folder;
    QMap<QString, QByteArray> bundle;
};

void tst_SceneMemory::initTestCase()
{
    folder.makeFolder(u"distractors"_s);
    AssociatedShapesXMLWriter writer;
    for (int i = 0; i < parts; ++i) {
        QString const name = u"%1.stl"_s.arg(i);
        bundle[name] = support::binaryStl({support::loneFacet(i)});
        folder.write(u"distractors/"_s + name, bundle[name]);
        writer.add(name, name, geometry::Material::metal());
    }
    bundle[u"doc"_s] = writer.createXMLContent();
    folder.write(u"distractors/id.xml"_s, bundle[u"doc"_s]);
    QString const root = folder.path(u"x"_s).chopped(2);
    ApplicationParametersManagerImpl::instance().setApplicationParameter(u"installedResources"_s, root);
}

void tst_SceneMemory::distractors()
{
    // The document, the name, the count before each part and after the last, two for the placement.
    constexpr int calls = 1 + 1 + parts + 1 + 2;
    QTest::ignoreMessage(QtWarningMsg, ("DistractorFactory : unable to read distractor file from disk ( \"" +
                                        folder.path(u"distractors/id.xml"_s).toUtf8() + "\" )")
                                           .constData());
    for (answers = 0; answers < calls;) {
        int const answered = answers;
        QVERIFY2(!DistractorFactory::createDistractor(u"id"_s), qPrintable(QString::number(answered)));
        answers = answered + 1;
    }
    auto const distractor = DistractorFactory::createDistractor(u"id"_s);
    QVERIFY(distractor && answers == 0);
    QCOMPARE(distractor->getRoot()->getChildren().size(), std::size_t(parts));
    QVERIFY(distractor->getRoot()->getChildren().back()->getShape());
}

void tst_SceneMemory::bundles()
{
    AssociatedShapesXMLReader reader;
    QVERIFY(reader.read(bundle, u"doc"_s));
    for (int const answered : {0, 1, 2}) {
        answers = answered;
        QVERIFY(!reader.read(bundle, u"doc"_s));
    }
    answers = -1;
    QCOMPARE(reader.getMaterials().size(), parts);
    QVERIFY(reader.read(bundle, u"doc"_s));
    QCOMPARE(reader.getMaterials().size(), 2 * parts);
    QCOMPARE(reader.takeMeshes().size(), 2 * parts);
}

void tst_SceneMemory::documents()
{
    AssociatedShapesXMLReader reader;
    answers = 0;
    QVERIFY(!reader.read(folder.path(u"distractors/id.xml"_s)));
    QVERIFY(reader.takeMeshes().isEmpty() && reader.getMaterials().isEmpty());
    answers = 1;
    QVERIFY(reader.read(folder.path(u"distractors/id.xml"_s)));
    QCOMPARE(reader.takeMeshes().size(), parts);
}

void tst_SceneMemory::trees()
{
    geometry::ShapeNode root(u"root"_s, new geometry::Shape);
    root.addChild(new geometry::ShapeNode(u"child"_s));
    QString const name = folder.path(u"tree"_s);
    int failures = 0;
    bool isDone = false;
    // What is left of a tree is reported or not, as memory has run out there or here.
    auto const previous = qInstallMessageHandler([](QtMsgType, QMessageLogContext const&, QString const&) {});
    for (int n = 1; !isDone; ++n) {
        allocations = n;
        isDone = ShapeNodeIOHelper::write(name, &root) &&
                 ShapeNodeIOHelper::write(name + u'2', geometry::Shape()) &&
                 ShapeNodeIOHelper::readShape(name + u'2') &&
                 ShapeNodeIOHelper::read(name, QVersionNumber(2, 0), false);
        isDone = isDone && allocations > 0;
        failures += isDone ? 0 : 1;
        allocations = 0;
    }
    qInstallMessageHandler(previous);
    QVERIFY(failures > 10);
}

QTEST_GUILESS_MAIN(tst_SceneMemory)
#include "tst_SceneMemory.moc"
