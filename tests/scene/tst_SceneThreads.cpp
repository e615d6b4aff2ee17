// Eight threads that read the same files, all at once. Under the thread sanitizer this also shows that
// nothing behind the readers is shared without a lock.
#include "inhouse/catalogue/DistractorCatalog.h"
#include "inhouse/core/ApplicationParametersManagerImpl.h"
#include "inhouse/data/ShapeNodeIO.h"
#include "scene/AssociatedShapesXMLReader.h"
#include "scene/AssociatedShapesXMLWriter.h"
#include "scene/DentalScanReader.h"
#include "scene/DistractorFactory.h"
#include "scene/ShapeNodeIOHelper.h"
#include "support/Meshes.h"
#include "support/ObjFiles.h"
#include "support/PlyFiles.h"
#include "support/StlFiles.h"

#include <QTest>
#include <QVersionNumber>

#include <atomic>
#include <thread>

using geometry::Material;
using geometry::Mesh;

using namespace Qt::StringLiterals;

namespace {

constexpr int threads = 8;
constexpr int rounds = 10;
QString const productId = u"73-418-55-02"_s;

QByteArray stl(int number)
{
    return support::binaryStl({support::loneFacet(number), support::loneFacet(number + 1)});
}

bool sameMeshes(QList<Mesh> const& a, QList<Mesh> const& b)
{
    return std::equal(a.cbegin(), a.cend(), b.cbegin(), b.cend(), support::sameBits);
}

bool sameParts(geometry::ShapeNode const& a, geometry::ShapeNode const& b)
{
    auto const& left = a.getChildren();
    auto const& right = b.getChildren();
    for (std::size_t i = 0; i < left.size() && i < right.size(); ++i)
        if (left[i]->getName() != right[i]->getName() ||
            !support::sameBits(left[i]->getShape()->getMesh(), right[i]->getShape()->getMesh()))
            return false;
    return left.size() == right.size();
}

// What one thread found, to be held against what another did.
struct Findings
{
    QList<Mesh> scans;
    QList<Mesh> bundled;
    QList<Material> materials;
    QList<Mesh> onDisk;
    std::shared_ptr<Distractor> distractor;
    std::unique_ptr<geometry::ShapeNode> tree;

    bool operator==(Findings const& other) const
    {
        return sameMeshes(scans, other.scans) && sameMeshes(bundled, other.bundled) &&
               sameMeshes(onDisk, other.onDisk) && materials == other.materials &&
               sameParts(*distractor->getRoot(), *other.distractor->getRoot()) &&
               distractor->getObjectTransform() == other.distractor->getObjectTransform() &&
               sameParts(*tree, *other.tree);
    }
};

} // namespace

class tst_SceneThreads : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyThreadFindsTheSame();
    void storesMayBeWrittenMeanwhile();

private:
    Findings find() const;

    support::ObjFolder folder;
    QString document;
    QMap<QString, QByteArray> files;
};

void tst_SceneThreads::initTestCase()
{
    folder.makeFolder(u"distractors"_s);
    AssociatedShapesXMLWriter writer;
    for (int i = 0; i < 14; ++i) {
        QString const name = u"part%1.stl"_s.arg(i);
        folder.write(u"distractors/"_s + name, stl(i));
        files.insert(name, stl(i));
        writer.add(name, u"m"_s, Material::metal());
    }
    files.insert(u"part.ply"_s, support::plyTriangle());
    writer.add(u"part.ply"_s, u"m"_s, Material::distractor());
    folder.write(u"distractors/part.ply"_s, support::plyTriangle());
    files.insert(u"doc"_s, writer.createXMLContent());
    document = folder.write(u"distractors/"_s + productId + u".xml"_s, files[u"doc"_s]);

    folder.write(u"scan.stl"_s, stl(3));
    folder.write(u"scan.ply"_s, support::plyTriangle());
    folder.write(u"scan.obj"_s, "mtllib scan.mtl\nusemtl a\nv 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n");
    folder.write(u"scan.mtl"_s, "newmtl a\nKd 1 0 0\n");
    geometry::ShapeNode root(u"root"_s);
    auto* const shape = new geometry::Shape;
    shape->setMesh(support::cube());
    root.addChild(new geometry::ShapeNode(u"cube"_s, shape));
    QVERIFY(ShapeNodeIOHelper::write(folder.path(u"tree"_s), &root));
    ApplicationParametersManagerImpl::instance().setApplicationParameter(u"installedResources"_s,
                                                                         folder.path(u"x"_s).chopped(2));
}

Findings tst_SceneThreads::find() const
{
    Findings found;
    for (QString const& name : {u"scan.stl"_s, u"scan.ply"_s, u"scan.obj"_s}) {
        auto const scan = DentalScanReader::readDentalScan(folder.path(name));
        found.scans << (scan ? scan->getMesh() : Mesh());
    }
    AssociatedShapesXMLReader reader;
    reader.read(files, u"doc"_s);
    found.bundled = reader.takeMeshes();
    reader.read(document);
    found.onDisk = reader.takeMeshes();
    found.materials = reader.getMaterials();
    found.distractor = DistractorFactory::createDistractor(productId);
    found.tree = ShapeNodeIOHelper::read(folder.path(u"tree"_s), QVersionNumber(1, 0), false);
    return found;
}

void tst_SceneThreads::everyThreadFindsTheSame()
{
    std::atomic<int> differences = 0;
    Findings const expected = find();
    QCOMPARE(expected.onDisk.size(), 15);
    QCOMPARE(expected.bundled.size(), 15);
    std::vector<std::thread> running;
    for (int i = 0; i < threads; ++i)
        running.emplace_back([&] {
            for (int round = 0; round < rounds; ++round)
                differences += find() == expected ? 0 : 1;
        });
    for (std::thread& thread : running)
        thread.join();
    QCOMPARE(differences.load(), 0);
}

void tst_SceneThreads::storesMayBeWrittenMeanwhile()
{
    std::atomic<int> failures = 0;
    std::vector<std::thread> running;
    for (int i = 0; i < threads; ++i)
        running.emplace_back([&, i] {
            QString const own = u"own-%1"_s.arg(i);
            auto& parameters = ApplicationParametersManagerImpl::instance();
            for (int round = 0; round < rounds; ++round) {
                DistractorCatalog::addProduct(own, {own, round, {0, 0, 1}, {}});
                parameters.setApplicationParameter(own, round);
                bool const kept = DistractorCatalog::getProductName(own) == own &&
                                  DistractorCatalog::getNumParts(own) == round &&
                                  DistractorCatalog::getNumParts(productId) == 14 &&
                                  parameters.getApplicationParameter(own).toInt() == round;
                failures += kept ? 0 : 1;
            }
        });
    for (std::thread& thread : running)
        thread.join();
    QCOMPARE(failures.load(), 0);
}

QTEST_GUILESS_MAIN(tst_SceneThreads)
#include "tst_SceneThreads.moc"
