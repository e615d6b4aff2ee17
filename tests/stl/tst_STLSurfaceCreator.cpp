#include "STLCreatorSteps.h"
#include "stl/STLFacets.h"
#include "stl/STLTagHandler.h"
#include "support/Meshes.h"
#include "support/StlFiles.h"

#include <QtTest>

#include <type_traits>

using support::cornersOf;
using support::formatOf;
using support::loneFacet;
using support::StlFacet;
using support::Stream;

static_assert(std::is_polymorphic_v<STLSurfaceCreator> && std::has_virtual_destructor_v<STLSurfaceCreator>);
static_assert(std::is_copy_constructible_v<STLSurfaceCreator> &&
              std::is_copy_assignable_v<STLSurfaceCreator>);

namespace {

std::atomic<bool> const never = false;
std::atomic<bool> const always = true;

QList<StlFacet> lone(int count)
{
    QList<StlFacet> facets;
    for (int i = 0; i < count; ++i)
        facets << loneFacet(i, 1, 2);
    return facets;
}

QList<StlFacet> facetsOf(geometry::Mesh const& mesh)
{
    QList<StlFacet> facets;
    QList<QVector3D> const corners = cornersOf(mesh);
    for (qsizetype i = 0; i < corners.size(); i += 3)
        facets << StlFacet{corners[i], corners[i + 1], corners[i + 2]};
    return facets;
}

} // namespace

class tst_STLSurfaceCreator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void vertices();
    void verticesOfPart();
    void verticesInAnotherByteOrder();
    void verticesInDoublePrecision();
    void verticesOneByOneAndInBlocks();
    void verticesThatAreMissing();
    void verticesOfAnotherLayout();
    void strips();
    void clean();
    void cleanCancelled();
    void normalThreshold();
    void normalsCancelled();
    void finish();

    void untagged();
    void untaggedCancelled();
    void readReplaces();
    void take();
    void copiesShareTheSurfaces();
    void formatThatLeadsNowhere_data();
    void formatThatLeadsNowhere();
    void streamWithoutDevice();
};

void tst_STLSurfaceCreator::vertices()
{
    QList<StlFacet> const facets = lone(2500);
    Stream file(facets);
    STLSurfaceCreator const creator(nullptr, false);
    auto const floats = (creator.*privateMember(support::Vertices()))(file.stream, file.format, 3 * 2500, 96);
    QByteArray const expected = support::bytesOf(cornersOf(facets));
    QCOMPARE(QByteArray(reinterpret_cast<char const*>(floats.get()), expected.size()), expected);
}

void tst_STLSurfaceCreator::verticesOfPart()
{
    QList<StlFacet> const facets = lone(10);
    Stream file(facets);
    STLSurfaceCreator const creator(nullptr, false);
    for (int first = 0; first < 10; ++first) {
        auto const floats =
            (creator.*privateMember(support::Vertices()))(file.stream, file.format, 3, 96 + 50 * first);
        QByteArray const expected = support::bytesOf(cornersOf({facets[first]}));
        QCOMPARE(QByteArray(reinterpret_cast<char const*>(floats.get()), expected.size()), expected);
    }
}

// The creator goes by the stream that it is given.
void tst_STLSurfaceCreator::verticesInAnotherByteOrder()
{
    QByteArray data = support::binaryStl(lone(3));
    for (qsizetype facet = 0; facet < 3; ++facet)
        for (qsizetype i = 0; i < 9; ++i)
            std::reverse(data.begin() + 96 + 50 * facet + 4 * i, data.begin() + 100 + 50 * facet + 4 * i);
    Stream file(data, formatOf(3));
    file.stream.setByteOrder(QDataStream::BigEndian);
    STLSurfaceCreator creator(nullptr, false);
    creator.read(file.stream, file.format, never);
    QCOMPARE(cornersOf(creator.getSTLSurfaceData().first()->getMesh()), cornersOf(lone(3)));
}

void tst_STLSurfaceCreator::verticesInDoublePrecision()
{
    QByteArray data(8, 'x');
    {
        QDataStream out(&data, QIODevice::Append);
        out.setByteOrder(QDataStream::LittleEndian);
        for (double i = 0; i < 9; ++i)
            out << i;
    }
    Stream file(data, {8, int(data.size()), 1, 36, 72});
    file.stream.setFloatingPointPrecision(QDataStream::DoublePrecision);
    STLSurfaceCreator const creator(nullptr, false);
    auto const floats = (creator.*privateMember(support::Vertices()))(file.stream, file.format, 3, 8);
    for (int i = 0; i < 9; ++i)
        QCOMPARE(floats[std::size_t(i)], float(i));
}

// Every length at which a file can end.
void tst_STLSurfaceCreator::verticesOneByOneAndInBlocks()
{
    QByteArray const data = support::binaryStl(lone(3));
    for (qsizetype size = 96; size <= data.size(); ++size) {
        Stream file(data.first(size), formatOf(3));
        QList<float> blocks(27, 0.0f);
        QList<float> floats(27, 0.0f);
        stl::readVertices(file.stream, file.format, 96, 3, blocks.data());
        stl::readVerticesOneByOne(file.stream, file.format, 96, 3, floats.data());
        QCOMPARE(support::bytesOf(blocks), support::bytesOf(floats));
    }
}

void tst_STLSurfaceCreator::verticesThatAreMissing()
{
    Stream file(lone(1));
    STLSurfaceCreator const creator(nullptr, false);
    for (int const offset : {96 + 50, 500, -1, std::numeric_limits<int>::max()}) {
        auto const floats =
            (creator.*privateMember(support::Vertices()))(file.stream, file.format, 6, offset);
        QVERIFY(std::all_of(floats.get(), floats.get() + 18, [](float value) { return value == 0.0f; }));
    }
}

void tst_STLSurfaceCreator::verticesOfAnotherLayout()
{
    QByteArray data;
    {
        QDataStream out(&data, QIODevice::WriteOnly);
        out.setByteOrder(QDataStream::LittleEndian);
        out.setFloatingPointPrecision(QDataStream::SinglePrecision);
        for (float i = 0; i < 40; ++i)
            out << i;
    }
    // Records of 20 floats, of which the third to eleventh are the vertices.
    Stream file(data, {12, int(data.size()), 2, 36, 80});
    STLSurfaceCreator creator(nullptr, false);
    creator.read(file.stream, file.format, never);
    QList<QVector3D> const expected = {{3, 4, 5},    {6, 7, 8},    {9, 10, 11},
                                       {23, 24, 25}, {26, 27, 28}, {29, 30, 31}};
    QCOMPARE(cornersOf(creator.getSTLSurfaceData().first()->getMesh()), expected);
}

void tst_STLSurfaceCreator::strips()
{
    STLSurfaceCreator const creator(nullptr, false);
    auto const strips = (creator.*privateMember(support::Strips()))(3, 12);
    QCOMPARE(QList<int>(strips.get(), strips.get() + 12),
             QList<int>({0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1}));
    auto const longer = (creator.*privateMember(support::Strips()))(1, 6);
    QCOMPARE(QList<int>(longer.get(), longer.get() + 6), QList<int>({0, 1, 2, -1, 0, 0}));
    auto const shorter = (creator.*privateMember(support::Strips()))(3, 5);
    QCOMPARE(QList<int>(shorter.get(), shorter.get() + 5), QList<int>({0, 1, 2, -1, 0}));
    QVERIFY((creator.*privateMember(support::Strips()))(0, 0));
}

// The triangle count comes from the indices: a mesh with shared vertices keeps all its triangles.
void tst_STLSurfaceCreator::clean()
{
    STLSurfaceCreator const creator(nullptr, false);
    geometry::Mesh mesh = support::cube();
    mesh.vertices << QVector3D(9, 9, 9);
    mesh.indices << 0 << 0 << 1 << -1;
    mesh.normals = mesh.vertices;
    (creator.*privateMember(support::Clean()))(mesh, never);
    QCOMPARE(cornersOf(mesh), cornersOf(support::cube()));
    QCOMPARE(mesh.getNumVertices(), 8);
    QCOMPARE(mesh.normals.size(), 9);
}

void tst_STLSurfaceCreator::cleanCancelled()
{
    STLSurfaceCreator const creator(nullptr, false);
    geometry::Mesh mesh = support::cube();
    mesh.vertices << QVector3D(9, 9, 9);
    geometry::Mesh const before = mesh;
    (creator.*privateMember(support::Clean()))(mesh, always);
    QVERIFY(support::sameBits(mesh, before));
}

// 0.5 radian here, where the base of the readers has 1.0: an edge of 0.8 radian is sharp.
void tst_STLSurfaceCreator::normalThreshold()
{
    geometry::Mesh const bent({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, -0.69670671f, -0.71735609f}},
                              {0, 1, 2, -1, 1, 0, 3, -1});
    geometry::Mesh mesh = bent;
    STLSurfaceCreator const sharp(nullptr, true);
    (sharp.*privateMember(support::AddNormals()))(mesh, never);
    QCOMPARE(mesh.getNumVertices(), 6);
    QCOMPARE(cornersOf(mesh), cornersOf(bent));

    geometry::Mesh flat = bent;
    flat.vertices[3] = {0, -0.9f, -0.4f};
    geometry::Mesh const unsplit = flat;
    (sharp.*privateMember(support::AddNormals()))(flat, never);
    QCOMPARE(flat.vertices, unsplit.vertices);

    mesh = bent;
    STLSurfaceCreator const smooth(nullptr, false);
    (smooth.*privateMember(support::AddNormals()))(mesh, never);
    QCOMPARE(mesh.vertices, bent.vertices);
    QCOMPARE(mesh.normals.size(), 4);
}

void tst_STLSurfaceCreator::normalsCancelled()
{
    for (bool const isSharp : {false, true}) {
        geometry::Mesh mesh = support::cube();
        STLSurfaceCreator const creator(nullptr, isSharp);
        (creator.*privateMember(support::AddNormals()))(mesh, always);
        QVERIFY(mesh.isNull());
    }
}

void tst_STLSurfaceCreator::finish()
{
    STLSurfaceCreator const creator(nullptr, false);
    geometry::Mesh mesh = support::cube();
    mesh.indices << 1 << 1 << 1 << -1;
    std::unique_ptr<STLSurfaceData> const surface((creator.*privateMember(support::Finish()))(17, -5, mesh));
    QCOMPARE(surface->getTag(), 17);
    QCOMPARE(surface->getSubTag(), -5);
    QCOMPARE(surface->getTransform(), QMatrix4x4());
    QCOMPARE(cornersOf(surface->getMesh()), cornersOf(support::cube()));
    QCOMPARE(surface->getMesh().normals.size(), 8);
    QVERIFY(support::sameBits(surface->getMesh(), mesh));
}

void tst_STLSurfaceCreator::untagged()
{
    InclusiveTagHandler const inclusive({});
    ExclusiveTagHandler const exclusive({});
    QList<StlFacet> facets = facetsOf(support::cube());
    facets[3].tagByte = 7;
    facets[5].subTagByte = 9;
    for (STLTagHandler const* handler :
         {static_cast<STLTagHandler const*>(nullptr), static_cast<STLTagHandler const*>(&inclusive),
          static_cast<STLTagHandler const*>(&exclusive)}) {
        Stream file(facets);
        STLSurfaceCreator creator(handler, false);
        creator.read(file.stream, file.format, never);
        QCOMPARE(creator.getSTLSurfaceData().size(), 1);
        STLSurfaceData const* const surface = creator.getSTLSurfaceData().first();
        QCOMPARE(surface->getTag(), 0);
        QCOMPARE(surface->getSubTag(), -1);
        QCOMPARE(surface->getTransform(), QMatrix4x4());
        QCOMPARE(cornersOf(surface->getMesh()), cornersOf(support::cube()));
        QCOMPARE(surface->getMesh().getNumVertices(), 8);
        QCOMPARE(surface->getMesh().normals.size(), 8);
    }
}

void tst_STLSurfaceCreator::untaggedCancelled()
{
    Stream file(lone(3));
    STLSurfaceCreator creator(nullptr, false);
    creator.read(file.stream, file.format, always);
    QCOMPARE(creator.getSTLSurfaceData().size(), 1);
    QVERIFY(creator.getSTLSurfaceData().first()->getMesh().isNull());
}

void tst_STLSurfaceCreator::readReplaces()
{
    UseAllTagsHandler const all;
    STLSurfaceCreator creator(&all, false);
    Stream first({loneFacet(0, 1, 1), loneFacet(1, 2, 2)});
    creator.read(first.stream, first.format, never);
    QCOMPARE(creator.getSTLSurfaceData().size(), 2);
    Stream second(lone(4));
    creator.read(second.stream, second.format, never);
    QCOMPARE(creator.getSTLSurfaceData().size(), 1);
    QCOMPARE(cornersOf(creator.getSTLSurfaceData().first()->getMesh()), cornersOf(lone(4)));
}

void tst_STLSurfaceCreator::take()
{
    STLSurfaceCreator creator(nullptr, false);
    QVERIFY(creator.getSTLSurfaceData().isEmpty());
    QVERIFY(creator.takeSTLSurfaceData().isEmpty());
    Stream file(lone(2));
    creator.read(file.stream, file.format, never);
    QList<STLSurfaceData*> const held = creator.getSTLSurfaceData();
    QCOMPARE(creator.getSTLSurfaceData(), held);
    QList<STLSurfaceData*> const taken = creator.takeSTLSurfaceData();
    QCOMPARE(taken, held);
    QVERIFY(creator.getSTLSurfaceData().isEmpty());
    creator.read(file.stream, file.format, never);
    QCOMPARE(cornersOf(taken.first()->getMesh()), cornersOf(lone(2)));
    qDeleteAll(taken);
}

// Nothing is duplicated, so all but one of the copies must give the surfaces up before they die.
void tst_STLSurfaceCreator::copiesShareTheSurfaces()
{
    UseAllTagsHandler const all;
    STLSurfaceCreator original(&all, false);
    Stream file({loneFacet(0, 1, 1), loneFacet(1, 2, 2)});
    original.read(file.stream, file.format, never);
    {
        STLSurfaceCreator copy(original);
        QCOMPARE(copy.getSTLSurfaceData(), original.getSTLSurfaceData());
        STLSurfaceCreator assigned(nullptr, true);
        assigned = original;
        QCOMPARE(assigned.takeSTLSurfaceData(), original.getSTLSurfaceData());
        QCOMPARE(copy.takeSTLSurfaceData(), original.getSTLSurfaceData());
        // Handler and flag came along as well.
        assigned.read(file.stream, file.format, never);
        QCOMPARE(assigned.getSTLSurfaceData().size(), 2);
        QVERIFY(support::sameBits(assigned.getSTLSurfaceData().first()->getMesh(),
                                  original.getSTLSurfaceData().first()->getMesh()));
    }
    QCOMPARE(cornersOf(original.getSTLSurfaceData().first()->getMesh()), cornersOf({loneFacet(0)}));
}

void tst_STLSurfaceCreator::formatThatLeadsNowhere_data()
{
    QTest::addColumn<int>("firstVertexOffset");
    QTest::addColumn<int>("dataSize");
    QTest::addColumn<int>("numberOfTriangles");
    QTest::addColumn<int>("vertexBlockSize");
    QTest::addColumn<int>("recordSize");
    constexpr int most = std::numeric_limits<int>::max();
    constexpr int least = std::numeric_limits<int>::min();
    QTest::newRow("zeros") << 0 << 0 << 0 << 0 << 0;
    QTest::newRow("largest") << most << most << most << most << most;
    QTest::newRow("smallest") << least << least << least << least << least;
    QTest::newRow("records of no length") << 96 << most << most << 36 << 0;
    QTest::newRow("many records of no length") << 96 << 184 << 20'000'000 << 36 << 0;
    QTest::newRow("records that go back") << 96 << most << most << 36 << -50;
    QTest::newRow("offset before the start") << -96 << 134 << 1 << 36 << 50;
    QTest::newRow("blocks longer than records") << 96 << 134 << 1 << 5000 << 50;
    QTest::newRow("negative blocks") << 96 << 134 << 1 << -36 << 50;
    QTest::newRow("negative count") << 96 << 84 << -1 << 36 << 50;
}

void tst_STLSurfaceCreator::formatThatLeadsNowhere()
{
    QFETCH(int, firstVertexOffset);
    QFETCH(int, dataSize);
    QFETCH(int, numberOfTriangles);
    QFETCH(int, vertexBlockSize);
    QFETCH(int, recordSize);
    UseAllTagsHandler const all;
    for (STLTagHandler const* handler :
         {static_cast<STLTagHandler const*>(nullptr), static_cast<STLTagHandler const*>(&all)}) {
        Stream file(support::binaryStl(lone(2)),
                    {firstVertexOffset, dataSize, numberOfTriangles, vertexBlockSize, recordSize});
        STLSurfaceCreator creator(handler, false);
        creator.read(file.stream, file.format, never);
        QCOMPARE(creator.getSTLSurfaceData().size(), 1);
        QVERIFY(creator.getSTLSurfaceData().first()->getMesh().getNumVertices() <= 6);
    }
}

void tst_STLSurfaceCreator::streamWithoutDevice()
{
    QDataStream stream;
    UseAllTagsHandler const all;
    for (STLTagHandler const* handler :
         {static_cast<STLTagHandler const*>(nullptr), static_cast<STLTagHandler const*>(&all)}) {
        STLSurfaceCreator creator(handler, false);
        creator.read(stream, formatOf(1000), never);
        QCOMPARE(creator.getSTLSurfaceData().size(), 1);
        QVERIFY(creator.getSTLSurfaceData().first()->getMesh().isNull());
    }
}

QTEST_APPLESS_MAIN(tst_STLSurfaceCreator)
#include "tst_STLSurfaceCreator.moc"
