#include "STLCreatorSteps.h"
#include "inhouse/data/STLSurfaceData.h"
#include "stl/STLTagHandler.h"
#include "support/Meshes.h"
#include "support/StlFiles.h"

#include <QDataStream>
#include <QtTest>

#include <functional>

using support::cornersOf;
using support::loneFacet;
using support::StlFacet;
using support::Stream;

namespace {

std::atomic<bool> const never = false;

struct Run
{
    int tag;
    int subTag;
    int triangles;
    int offset;
    bool operator==(Run const&) const = default;
};

struct Surface
{
    int tag;
    int subTag;
    QList<QVector3D> corners;
    bool operator==(Surface const&) const = default;
};

using KeyRuns = QList<std::pair<std::pair<int, int>, QList<Run>>>;

KeyRuns runsOf(support::TagRuns const& runs)
{
    KeyRuns result;
    for (auto key = runs.cbegin(); key != runs.cend(); ++key) {
        QList<Run> list;
        for (STLTagSurfaceData const& run : key.value())
            list << Run{run.tag, run.subTag, run.numberOfTriangles, run.streamOffset};
        result.append({key.key(), list});
    }
    return result;
}

KeyRuns splitOf(Stream& file)
{
    STLSurfaceCreator creator(nullptr, false);
    return runsOf((creator.*privateMember(support::Split()))(file.stream, file.format));
}

QList<Surface> surfacesOf(STLSurfaceCreator const& creator)
{
    QList<Surface> result;
    for (STLSurfaceData const* surface : creator.getSTLSurfaceData())
        result << Surface{surface->getTag(), surface->getSubTag(), cornersOf(surface->getMesh())};
    return result;
}

QList<Surface> surfacesOf(STLTagHandler const& handler, QList<StlFacet> const& facets)
{
    Stream file(facets);
    STLSurfaceCreator creator(&handler, false);
    creator.read(file.stream, file.format, never);
    return surfacesOf(creator);
}

// Facets of the tags (tag, subTag), in file order.
QList<StlFacet> tagged(QList<std::pair<int, int>> const& tags)
{
    QList<StlFacet> facets;
    for (auto const& [tag, subTag] : tags)
        facets << loneFacet(static_cast<int>(facets.size()), subTag, tag);
    return facets;
}

// The corners of those facets whose numbers are given.
QList<QVector3D> lone(QList<int> const& numbers)
{
    QList<StlFacet> facets;
    for (int const number : numbers)
        facets << loneFacet(number);
    return cornersOf(facets);
}

// Sets a flag at the given call of `isAllowed`, which comes once for each key.
class CancellingHandler : public UseAllTagsHandler
{
public:
    CancellingHandler(std::atomic<bool>& cancel_, int call_)
        : cancel(cancel_)
        , call(call_)
    {}
    bool isAllowed(int tag) const override
    {
        if (--call == 0)
            cancel = true;
        return tag % 2 == 0;
    }

private:
    std::atomic<bool>& cancel;
    mutable int call;
};

// Sets a flag when it is moved to one place.
class CancellingBuffer : public QBuffer
{
public:
    CancellingBuffer(std::atomic<bool>& cancel_, qint64 place_)
        : cancel(cancel_)
        , place(place_)
    {}
    bool seek(qint64 position) override
    {
        if (position == place)
            cancel = true;
        return QBuffer::seek(position);
    }

private:
    std::atomic<bool>& cancel;
    qint64 place;
};

} // namespace

class tst_STLSurfaceTags : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void split_data();
    void split();
    void splitOfCutFile();
    void splitOfLargeFile();
    void firstRunOfTag();
    void runMesh();
    void merge();

    void useAll_data();
    void useAll();
    void inclusive();
    void exclusive();
    void restPerSubTag();
    void restOfManyTags();
    void restIsMergedAndCleaned();
    void runsAreMergedAndCleaned();
    void noFacets();
    void emptySurfaces();
    void surfaceHasNormals();
    void manyRuns();
    void cancelBeforeTheFirstKey();
    void cancelBeforeAFurtherKey();
    void cancelBeforeAFurtherRun();
    void cancelDropsTheRest();
    void cancelAfterTheLastKey();
};

void tst_STLSurfaceTags::split_data()
{
    QTest::addColumn<QList<StlFacet>>("facets");
    QTest::addColumn<KeyRuns>("expected");
    using Facets = QList<StlFacet>;
    QTest::newRow("no facets") << Facets() << KeyRuns{{{-1, -1}, {{0, 0, 0, 0}}}};
    QTest::newRow("zeros") << tagged({{0, 0}, {0, 0}, {0, 0}}) << KeyRuns{{{0, 0}, {{0, 0, 3, 96}}}};
    // Byte 0 is the subTag, byte 1 the tag.
    QTest::newRow("05 03") << Facets{loneFacet(0, 5, 3)} << KeyRuns{{{3, 5}, {{3, 5, 1, 96}}}};
    QTest::newRow("FF 00") << Facets{loneFacet(0, 0xFF, 0)} << KeyRuns{{{0, -1}, {{0, -1, 1, 96}}}};
    QTest::newRow("80 80") << Facets{loneFacet(0, 0x80, 0x80)}
                           << KeyRuns{{{128, -128}, {{128, -128, 1, 96}}}};
    QTest::newRow("7F FF") << Facets{loneFacet(0, 0x7F, 0xFF)} << KeyRuns{{{255, 127}, {{255, 127, 1, 96}}}};
    QTest::newRow("FF FF") << Facets{loneFacet(0, 0xFF, 0xFF)} << KeyRuns{{{255, -1}, {{255, -1, 1, 96}}}};
    QTest::newRow("A A B A") << tagged({{9, 0}, {9, 0}, {2, 0}, {9, 0}})
                             << KeyRuns{{{2, 0}, {{2, 0, 1, 196}}},
                                        {{9, 0}, {{9, 0, 2, 96}, {9, 0, 1, 246}}}};
    QTest::newRow("subTags alone") << tagged({{1, 2}, {1, -3}, {1, 2}})
                                   << KeyRuns{{{1, -3}, {{1, -3, 1, 146}}},
                                              {{1, 2}, {{1, 2, 1, 96}, {1, 2, 1, 196}}}};
    QTest::newRow("keys in order") << tagged({{200, 1}, {3, 5}, {3, -5}, {0, 100}})
                                   << KeyRuns{{{0, 100}, {{0, 100, 1, 246}}},
                                              {{3, -5}, {{3, -5, 1, 196}}},
                                              {{3, 5}, {{3, 5, 1, 146}}},
                                              {{200, 1}, {{200, 1, 1, 96}}}};
}

void tst_STLSurfaceTags::split()
{
    QFETCH(QList<StlFacet>, facets);
    QFETCH(KeyRuns, expected);
    Stream file(facets);
    QCOMPARE(splitOf(file), expected);
}

// Attribute bytes that are missing read as zeros, once: what would follow is not there at all.
void tst_STLSurfaceTags::splitOfCutFile()
{
    QByteArray const data = support::binaryStl(tagged({{1, 2}, {1, 2}}));
    KeyRuns const whole = {{{1, 2}, {{1, 2, 2, 96}}}};
    for (qsizetype size = data.size() - 50; size <= data.size(); ++size) {
        STLDataFormat format = support::formatOf(2);
        format.dataSize = int(size);
        Stream file(data.first(size), format);
        qsizetype const inFacet = size - (data.size() - 50);
        KeyRuns expected = {{{1, 2}, {{1, 2, 1, 96}}}};
        if (inFacet == 50)
            expected = whole;
        else if (inFacet == 49)
            expected.prepend({{0, 2}, {{0, 2, 1, 146}}});
        else if (inFacet > 12)
            expected.prepend({{0, 0}, {{0, 0, 1, 146}}});
        QCOMPARE(splitOf(file), expected);
    }
}

// The layout has 31 bits for the size: a file of 2 to 4 GiB shows no facet, a larger one its start.
void tst_STLSurfaceTags::splitOfLargeFile()
{
    Stream file(tagged({{1, 2}, {1, 2}, {1, 2}}));
    file.format.dataSize = std::numeric_limits<int>::min();
    QCOMPARE(splitOf(file), KeyRuns({{{-1, -1}, {{0, 0, 0, 0}}}}));
    file.format.dataSize = 84 + 50;
    QCOMPARE(splitOf(file), KeyRuns({{{1, 2}, {{1, 2, 1, 96}}}}));
}

void tst_STLSurfaceTags::firstRunOfTag()
{
    STLSurfaceCreator const creator(nullptr, false);
    QList<STLTagSurfaceData> const list = {{7, 1, 2, 3}, {5, 4, 5, 6}, {5, 7, 8, 9}};
    auto const find = [&](int tag) {
        STLTagSurfaceData const run = (creator.*privateMember(support::FirstRunOfTag()))(tag, list);
        return Run{run.tag, run.subTag, run.numberOfTriangles, run.streamOffset};
    };
    QCOMPARE(find(5), (Run{5, 4, 5, 6}));
    QCOMPARE(find(7), (Run{7, 1, 2, 3}));
    QCOMPARE(find(4), (Run{0, 0, 0, 0}));
    QCOMPARE(find(-1), (Run{0, 0, 0, 0}));
}

void tst_STLSurfaceTags::runMesh()
{
    StlFacet const first = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
    StlFacet const second = {{0, 1, 0}, {1, 0, 0}, {1, 1, 0}};
    Stream file({loneFacet(5), first, second, loneFacet(6)});
    STLSurfaceCreator const creator(nullptr, true);
    geometry::Mesh const mesh =
        (creator.*privateMember(support::RunMesh()))({3, 4, 2, 146}, file.stream, file.format);
    QCOMPARE(mesh.vertices, QList<QVector3D>({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {1, 1, 0}}));
    QCOMPARE(mesh.indices, QList<int>({0, 1, 2, -1, 2, 1, 3, -1}));
    QVERIFY(mesh.normals.isEmpty());
}

void tst_STLSurfaceTags::merge()
{
    STLSurfaceCreator const creator(nullptr, false);
    geometry::Mesh a({{1, 0, 0}, {2, 0, 0}, {3, 0, 0}}, {0, 1, 2, -1}, {{0, 0, 1}, {0, 0, 1}, {0, 0, 1}},
                     QList<unsigned int>{1, 2, 3});
    geometry::Mesh const b({{4, 0, 0}, {1, 0, 0}}, {1, 0, 1, -1, 0, 0, 1, -2, -1}, {{0, 1, 0}, {0, 1, 0}});
    geometry::Mesh const merged = (creator.*privateMember(support::Merge()))(a, b);
    QCOMPARE(merged.vertices, QList<QVector3D>({{1, 0, 0}, {2, 0, 0}, {3, 0, 0}, {4, 0, 0}, {1, 0, 0}}));
    QCOMPARE(merged.indices, QList<int>({0, 1, 2, -1, 4, 3, 4, -1, 3, 3, 4, -2, -1}));
    QVERIFY(merged.normals.isEmpty() && merged.colors.isEmpty());
    QCOMPARE(a.normals.size(), 3);

    geometry::Mesh const empty;
    QCOMPARE((creator.*privateMember(support::Merge()))(empty, b).indices, b.indices);
    QCOMPARE((creator.*privateMember(support::Merge()))(a, empty).indices, a.indices);
    QVERIFY((creator.*privateMember(support::Merge()))(empty, empty).isNull());
}

void tst_STLSurfaceTags::useAll_data()
{
    QTest::addColumn<QList<StlFacet>>("facets");
    QTest::addColumn<QList<Surface>>("expected");
    QTest::newRow("zeros") << tagged({{0, 0}, {0, 0}}) << QList<Surface>{{0, 0, lone({0, 1})}};
    QTest::newRow("A A B A") << tagged({{9, 1}, {9, 1}, {2, 1}, {9, 1}})
                             << QList<Surface>{{2, 1, lone({2})}, {9, 1, lone({0, 1, 3})}};
    QTest::newRow("key order") << tagged({{200, 1}, {3, 5}, {3, -5}, {0, 100}})
                               << QList<Surface>{{0, 100, lone({3})},
                                                 {3, -5, lone({2})},
                                                 {3, 5, lone({1})},
                                                 {200, 1, lone({0})}};
}

void tst_STLSurfaceTags::useAll()
{
    QFETCH(QList<StlFacet>, facets);
    QFETCH(QList<Surface>, expected);
    QCOMPARE(surfacesOf(UseAllTagsHandler(), facets), expected);
}

void tst_STLSurfaceTags::inclusive()
{
    QList<StlFacet> const facets = tagged({{3, 0}, {7, 1}, {3, 0}});
    QCOMPARE(surfacesOf(InclusiveTagHandler({3}), facets),
             QList<Surface>({{3, 0, lone({0, 2})}, {-1, 1, lone({1})}}));
    QCOMPARE(surfacesOf(InclusiveTagHandler({7, 3}), facets),
             QList<Surface>({{3, 0, lone({0, 2})}, {7, 1, lone({1})}}));
    QCOMPARE(surfacesOf(InclusiveTagHandler({8}), facets),
             QList<Surface>({{-1, 0, lone({0, 2})}, {-1, 1, lone({1})}}));
}

void tst_STLSurfaceTags::exclusive()
{
    QList<StlFacet> const facets = tagged({{3, 0}, {7, 1}, {3, 0}});
    QCOMPARE(surfacesOf(ExclusiveTagHandler({3}), facets),
             QList<Surface>({{7, 1, lone({1})}, {-1, 0, lone({0, 2})}}));
    QCOMPARE(surfacesOf(ExclusiveTagHandler({8}), facets),
             QList<Surface>({{3, 0, lone({0, 2})}, {7, 1, lone({1})}}));
}

void tst_STLSurfaceTags::restPerSubTag()
{
    QList<StlFacet> const facets = tagged({{9, 2}, {4, -1}, {1, 2}, {6, -7}, {5, 0}});
    // Rest surfaces: subTags ascending, within each the keys ascending.
    QCOMPARE(
        surfacesOf(InclusiveTagHandler({5}), facets),
        QList<Surface>({{5, 0, lone({4})}, {-1, -7, lone({3})}, {-1, -1, lone({1})}, {-1, 2, lone({2, 0})}}));
}

void tst_STLSurfaceTags::restOfManyTags()
{
    QList<std::pair<int, int>> tags;
    QList<int> numbers;
    for (int tag = 255; tag >= 0; --tag) {
        tags << std::pair(tag, 3);
        numbers.prepend(255 - tag);
    }
    QCOMPARE(surfacesOf(InclusiveTagHandler({-4}), tagged(tags)), QList<Surface>({{-1, 3, lone(numbers)}}));
}

void tst_STLSurfaceTags::restIsMergedAndCleaned()
{
    StlFacet first = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, 5, 1};
    StlFacet second = {{0, 1, 0}, {1, 0, 0}, {1, 1, 0}, 5, 2};
    Stream file({first, second});
    InclusiveTagHandler const handler({77});
    STLSurfaceCreator creator(&handler, false);
    creator.read(file.stream, file.format, never);
    QCOMPARE(creator.getSTLSurfaceData().size(), 1);
    geometry::Mesh const mesh = creator.getSTLSurfaceData().first()->getMesh();
    QCOMPARE(mesh.vertices, QList<QVector3D>({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {1, 1, 0}}));
    QCOMPARE(mesh.indices, QList<int>({0, 1, 2, -1, 2, 1, 3, -1}));
    QCOMPARE(mesh.normals.size(), 4);
}

void tst_STLSurfaceTags::runsAreMergedAndCleaned()
{
    StlFacet const first = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, 5, 1};
    StlFacet const second = {{0, 1, 0}, {1, 0, 0}, {1, 1, 0}, 5, 1};
    Stream file({first, loneFacet(3, 6, 1), second});
    UseAllTagsHandler const handler;
    STLSurfaceCreator creator(&handler, false);
    creator.read(file.stream, file.format, never);
    geometry::Mesh const mesh = creator.getSTLSurfaceData().first()->getMesh();
    QCOMPARE(mesh.vertices, QList<QVector3D>({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {1, 1, 0}}));
    QCOMPARE(mesh.indices, QList<int>({0, 1, 2, -1, 2, 1, 3, -1}));
}

void tst_STLSurfaceTags::noFacets()
{
    QCOMPARE(surfacesOf(UseAllTagsHandler(), {}), QList<Surface>({{-1, -1, {}}}));
    QCOMPARE(surfacesOf(InclusiveTagHandler({-1}), {}), QList<Surface>({{-1, -1, {}}}));
    QCOMPARE(surfacesOf(ExclusiveTagHandler({4}), {}), QList<Surface>({{-1, -1, {}}}));
    QCOMPARE(surfacesOf(InclusiveTagHandler({0}), {}), QList<Surface>());
    QCOMPARE(surfacesOf(ExclusiveTagHandler({-1}), {}), QList<Surface>());
}

// A tag of nothing but degenerate facets is a surface all the same when allowed, and no rest surface.
void tst_STLSurfaceTags::emptySurfaces()
{
    QList<StlFacet> const facets = {{{1, 1, 1}, {1, 1, 1}, {2, 2, 2}, 6, 4}, loneFacet(1, 7, 5)};
    QCOMPARE(surfacesOf(UseAllTagsHandler(), facets), QList<Surface>({{4, 6, {}}, {5, 7, lone({1})}}));
    QCOMPARE(surfacesOf(InclusiveTagHandler({5}), facets), QList<Surface>({{5, 7, lone({1})}}));
}

void tst_STLSurfaceTags::surfaceHasNormals()
{
    Stream file(tagged({{1, 1}, {2, 2}, {3, 3}}));
    InclusiveTagHandler const handler({2});
    for (bool const sharp : {false, true}) {
        STLSurfaceCreator creator(&handler, sharp);
        creator.read(file.stream, file.format, never);
        QCOMPARE(creator.getSTLSurfaceData().size(), 3);
        for (STLSurfaceData const* surface : creator.getSTLSurfaceData()) {
            QCOMPARE(surface->getMesh().normals.size(), 3);
            QCOMPARE(surface->getTransform(), QMatrix4x4());
        }
    }
}

// Tags that change with every facet are legal; the time must stay linear.
void tst_STLSurfaceTags::manyRuns()
{
    constexpr int count = 40000;
    QList<StlFacet> facets;
    QList<int> even;
    for (int i = 0; i < count; ++i) {
        facets << loneFacet(i, 0, i % 2);
        if (i % 2 == 0)
            even << i;
    }
    QList<Surface> const surfaces = surfacesOf(UseAllTagsHandler(), facets);
    QCOMPARE(surfaces.size(), 2);
    QCOMPARE(surfaces[0].corners, lone(even));
    QCOMPARE(surfaces[1].corners.size(), 3 * count / 2);
}

void tst_STLSurfaceTags::cancelBeforeTheFirstKey()
{
    std::atomic<bool> const always = true;
    Stream file(tagged({{1, 1}, {2, 2}}));
    UseAllTagsHandler const handler;
    STLSurfaceCreator creator(&handler, false);
    creator.read(file.stream, file.format, always);
    QCOMPARE(surfacesOf(creator), QList<Surface>());
}

void tst_STLSurfaceTags::cancelBeforeAFurtherKey()
{
    std::atomic<bool> cancel = false;
    Stream file(tagged({{2, 1}, {4, 2}, {6, 3}}));
    CancellingHandler const handler(cancel, 2);
    STLSurfaceCreator creator(&handler, false);
    creator.read(file.stream, file.format, cancel);
    QCOMPARE(surfacesOf(creator), QList<Surface>({{2, 1, lone({0})}, {4, 2, lone({1})}}));
    QCOMPARE(creator.getSTLSurfaceData().last()->getMesh().normals.size(), 3);
}

void tst_STLSurfaceTags::cancelBeforeAFurtherRun()
{
    std::atomic<bool> cancel = false;
    // The second key has two runs; the flag is set as the first of them is read.
    CancellingBuffer buffer(cancel, 146);
    buffer.setData(support::binaryStl(tagged({{2, 1}, {4, 2}, {2, 1}, {4, 2}})));
    QVERIFY(buffer.open(QIODevice::ReadOnly));
    QDataStream stream(&buffer);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream.setFloatingPointPrecision(QDataStream::SinglePrecision);
    UseAllTagsHandler const handler;
    STLSurfaceCreator creator(&handler, false);
    creator.read(stream, support::formatOf(4), cancel);
    QVERIFY(cancel);
    QCOMPARE(surfacesOf(creator), QList<Surface>({{2, 1, lone({0, 2})}}));
}

void tst_STLSurfaceTags::cancelDropsTheRest()
{
    std::atomic<bool> cancel = false;
    Stream file(tagged({{1, 1}, {2, 1}, {3, 1}, {4, 1}}));
    CancellingHandler const handler(cancel, 3);
    STLSurfaceCreator creator(&handler, false);
    creator.read(file.stream, file.format, cancel);
    QCOMPARE(surfacesOf(creator), QList<Surface>({{2, 1, lone({1})}}));
}

// Nobody looks at the flag again.
void tst_STLSurfaceTags::cancelAfterTheLastKey()
{
    std::atomic<bool> cancel = false;
    Stream file(tagged({{1, 1}, {2, 1}, {3, 1}, {4, 1}}));
    CancellingHandler const handler(cancel, 4);
    STLSurfaceCreator creator(&handler, false);
    creator.read(file.stream, file.format, cancel);
    QVERIFY(cancel);
    QCOMPARE(surfacesOf(creator),
             QList<Surface>({{2, 1, lone({1})}, {4, 1, lone({3})}, {-1, 1, lone({0, 2})}}));
}

QTEST_APPLESS_MAIN(tst_STLSurfaceTags)
#include "tst_STLSurfaceTags.moc"
