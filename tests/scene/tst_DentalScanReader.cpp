#include "obj/OBJReader.h"
#include "ply/PLYReader.h"
#include "scene/DentalScanReader.h"
#include "scene/ScanDataParser.h"
#include "stl/STLReader.h"
#include "support/Meshes.h"
#include "support/ObjFiles.h"
#include "support/PlyFiles.h"
#include "support/PrivateAccess.h"
#include "support/StlFiles.h"

#include <QTest>

#include <type_traits>

using support::ObjFolder;

using namespace Qt::StringLiterals;

static_assert(!std::is_default_constructible_v<DentalScanReader>);
static_assert(std::is_copy_assignable_v<DentalScanReader> && std::is_move_assignable_v<DentalScanReader>);
static_assert(std::is_empty_v<DentalScanReader>);
static_assert(std::has_virtual_destructor_v<ScanDataParser> && std::is_abstract_v<ScanDataParser>);

namespace {

// All that an application needs to make a parser of its own.
class Parser : public ScanDataParser
{};
static_assert(std::is_default_constructible_v<Parser>);
static_assert(std::is_copy_constructible_v<Parser> && std::is_copy_assignable_v<Parser>);

} // namespace

namespace {

constexpr auto wrongEnding = "DentalScanReader : given file is not an .stl, .ply or .obj file.";
constexpr auto unreadable = "DentalScanReader : could not read dental scan from disk.";

std::atomic<bool> const never = false;

QByteArray const objTriangle = "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n";

QByteArray taggedStl()
{
    return support::binaryStl(
        {support::loneFacet(0, 1, 2), support::loneFacet(1, 3, 4), support::loneFacet(2, 1, 2)});
}

QMatrix4x4 placement()
{
    QMatrix4x4 matrix;
    matrix.rotate(30, 1, 2, 3);
    matrix.translate(4, 5, 6);
    return matrix;
}

// A reader that knows a placement, which none of the formats does.
class PlacedReader : public SurfaceReader
{
public:
    explicit PlacedReader(bool succeeds_)
        : SurfaceReader(false)
        , succeeds(succeeds_)
    {}

    bool read(std::atomic<bool> const& cancel) override
    {
        wasCancelled = cancel;
        mesh = support::cube();
        transform = placement();
        return succeeds;
    }

    bool succeeds;
    bool wasCancelled = true;
};

} // namespace

namespace support {

struct WithReader
{
    using Member = std::shared_ptr<DentalScan> (*)(SurfaceReader&);
    friend Member privateMember(WithReader);
};
template struct PrivateMember<WithReader, &DentalScanReader::readDentalScanWithSurfaceReader>;

} // namespace support

class tst_DentalScanReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsSTL();
    void readsPLY();
    void readsOBJ();
    void readsTaggedSTLAsOneSurface();
    void choosesByEnding_data();
    void choosesByEnding();
    void refusesEndings_data();
    void refusesEndings();
    void saysWhenItCannotRead_data();
    void saysWhenItCannotRead();
    void theContentDoesNotChoose();
    void takesMeshAndTransform();
    void setsNothingElse();
};

void tst_DentalScanReader::readsSTL()
{
    ObjFolder const folder;
    for (QByteArray const& bytes : {support::binaryStl({support::loneFacet(0), support::loneFacet(1)}),
                                    support::asciiStl({support::loneFacet(0), support::loneFacet(1)})}) {
        QString const name = folder.write(u"a.stl"_s, bytes);
        auto const scan = DentalScanReader::readDentalScan(name);
        QVERIFY(scan);
        STLReader reader(nullptr, false, name);
        QVERIFY(reader.read(never));
        QVERIFY(support::sameBits(scan->getMesh(), reader.getMesh()));
        QCOMPARE(scan->getObjectTransform(), reader.getTransform());
        QCOMPARE(scan->shared_from_this().get(), static_cast<DataObject*>(scan.get()));
    }
}

void tst_DentalScanReader::readsPLY()
{
    ObjFolder const folder;
    QString const name = folder.write(u"a.ply"_s, support::plyTriangle());
    auto const scan = DentalScanReader::readDentalScan(name);
    QVERIFY(scan);
    PLYReader reader(PLYReader::MeshMode);
    reader.setFileName(name);
    QVERIFY(reader.read(never));
    QVERIFY(support::sameBits(scan->getMesh(), reader.getMesh()));
    QVERIFY(scan->getObjectTransform().isIdentity());
}

void tst_DentalScanReader::readsOBJ()
{
    ObjFolder const folder;
    QString const name = folder.write(u"a.obj"_s, objTriangle);
    auto const scan = DentalScanReader::readDentalScan(name);
    QVERIFY(scan);
    OBJReader reader(false);
    reader.setFileName(name);
    QVERIFY(reader.read(never));
    QVERIFY(support::sameBits(scan->getMesh(), reader.getMesh()));
    QVERIFY(scan->getObjectTransform().isIdentity());
}

void tst_DentalScanReader::readsTaggedSTLAsOneSurface()
{
    ObjFolder const folder;
    auto const scan = DentalScanReader::readDentalScan(folder.write(u"a.stl"_s, taggedStl()));
    QVERIFY(scan);
    QCOMPARE(support::cornersOf(scan->getMesh()),
             support::cornersOf({support::loneFacet(0), support::loneFacet(1), support::loneFacet(2)}));
    // Smooth normals: one for each vertex.
    QCOMPARE(scan->getMesh().normals.size(), scan->getMesh().vertices.size());
}

void tst_DentalScanReader::choosesByEnding_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("the last ending") << u"a.ply.obj.stl"_s << taggedStl();
    QTest::newRow("nothing but the ending") << u".stl"_s << taggedStl();
    QTest::newRow("non-ASCII") << u"Zähne oben.ply"_s << support::plyTriangle();
}

void tst_DentalScanReader::choosesByEnding()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    ObjFolder const folder;
    QVERIFY(DentalScanReader::readDentalScan(folder.write(name, bytes)));
}

void tst_DentalScanReader::refusesEndings_data()
{
    QTest::addColumn<QString>("name");
    for (char const* const name : {"a.STL", "a.Stl", "a.PLY", "a.OBJ", "a.stl.bak", "a.txt", "a", "stl",
                                   "a.stl ", "a.obj/", "a.vmesh"})
        QTest::newRow(name) << QString::fromLatin1(name);
    QTest::newRow("empty") << QString();
}

void tst_DentalScanReader::refusesEndings()
{
    QFETCH(QString, name);
    QTest::ignoreMessage(QtWarningMsg, wrongEnding);
    QVERIFY(!DentalScanReader::readDentalScan(name));
}

void tst_DentalScanReader::saysWhenItCannotRead_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("STL: a length that does not fit")
        << u"a.stl"_s << support::binaryStl({support::loneFacet(0)}) + "x";
    QTest::newRow("STL: empty") << u"a.stl"_s << QByteArray();
    QTest::newRow("STL: PLY inside") << u"a.stl"_s << support::plyTriangle();
    QTest::newRow("PLY: empty") << u"a.ply"_s << QByteArray();
}

void tst_DentalScanReader::saysWhenItCannotRead()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    ObjFolder const folder;
    QTest::ignoreMessage(QtWarningMsg, unreadable);
    QVERIFY(!DentalScanReader::readDentalScan(folder.write(name, bytes)));
    QTest::ignoreMessage(QtWarningMsg, unreadable);
    QVERIFY(!DentalScanReader::readDentalScan(folder.path(u"missing.stl"_s)));
}

void tst_DentalScanReader::theContentDoesNotChoose()
{
    ObjFolder const folder;
    QTest::ignoreMessage(QtWarningMsg, "OBJReader: Unable to load mesh with this TextureSupport flag: 0");
    QTest::ignoreMessage(QtWarningMsg, unreadable);
    QVERIFY(!DentalScanReader::readDentalScan(
        folder.write(u"a.obj"_s, support::asciiStl({support::loneFacet(0)}))));
}

void tst_DentalScanReader::takesMeshAndTransform()
{
    auto const readWith = privateMember(support::WithReader());
    PlacedReader good(true);
    auto const scan = readWith(good);
    QVERIFY(scan);
    QVERIFY(!good.wasCancelled);
    QVERIFY(support::sameBits(scan->getMesh(), support::cube()));
    QCOMPARE(scan->getObjectTransform(), placement());
    PlacedReader bad(false);
    QTest::ignoreMessage(QtWarningMsg, unreadable);
    QVERIFY(!readWith(bad));
}

void tst_DentalScanReader::setsNothingElse()
{
    ObjFolder const folder;
    auto const scan = DentalScanReader::readDentalScan(folder.write(u"a.stl"_s, taggedStl()));
    QVERIFY(scan);
    QCOMPARE(scan->getRevision(), 0);
    QVERIFY(!scan->isEditing());
}

QTEST_GUILESS_MAIN(tst_DentalScanReader)
#include "tst_DentalScanReader.moc"
