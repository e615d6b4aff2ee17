#include "stl/STLDataFormat.h"
#include "stl/STLTagHandler.h"
#include "stl/STLTagSurfaceData.h"

#include <QtTest>

#include <array>
#include <bit>
#include <type_traits>
#include <utility>

static_assert(std::has_virtual_destructor_v<STLTagHandler> && std::is_abstract_v<STLTagHandler>);
static_assert(std::is_copy_assignable_v<STLTagHandler>);
static_assert(std::is_move_constructible_v<InclusiveTagHandler> &&
              std::is_move_constructible_v<ExclusiveTagHandler>);
static_assert(std::is_copy_constructible_v<UseAllTagsHandler> &&
              std::is_default_constructible_v<UseAllTagsHandler>);
static_assert(!std::is_default_constructible_v<InclusiveTagHandler>);
static_assert(sizeof(STLDataFormat) == 5 * sizeof(qint32) && sizeof(STLTagSurfaceData) == 4 * sizeof(qint32));

namespace {

// A handler of an application of its own: the base answers for the list.
class OddHandler : public STLTagHandler
{
public:
    using STLTagHandler::STLTagHandler;
    bool isAllowed(int tag) const override { return isInTags(tag) && tag % 2 != 0; }
};

} // namespace

class tst_STLTagHandler : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void handlers_data();
    void handlers();
    void ownHandler();
    void copiesAndMoves();
    void records();
};

void tst_STLTagHandler::handlers_data()
{
    QTest::addColumn<QList<int>>("tags");
    QTest::addColumn<int>("tag");
    QTest::addColumn<bool>("isListed");
    QTest::newRow("empty list") << QList<int>() << 0 << false;
    QTest::newRow("listed") << QList<int>{3} << 3 << true;
    QTest::newRow("not listed") << QList<int>{3} << 7 << false;
    QTest::newRow("first") << QList<int>{3, 7, 255} << 3 << true;
    QTest::newRow("last") << QList<int>{3, 7, 255} << 255 << true;
    QTest::newRow("twice") << QList<int>{7, 7} << 7 << true;
    QTest::newRow("negative") << QList<int>{-1} << -1 << true;
    QTest::newRow("negative not listed") << QList<int>{1} << -1 << false;
    QTest::newRow("beyond a byte") << QList<int>{256} << 0 << false;
}

void tst_STLTagHandler::handlers()
{
    QFETCH(QList<int>, tags);
    QFETCH(int, tag);
    QFETCH(bool, isListed);
    InclusiveTagHandler const inclusive(tags);
    QCOMPARE(inclusive.isAllowed(tag), isListed);
    QCOMPARE(inclusive.hasTags(), !tags.isEmpty());
    ExclusiveTagHandler const exclusive(tags);
    QCOMPARE(exclusive.isAllowed(tag), !isListed);
    QCOMPARE(exclusive.hasTags(), !tags.isEmpty());
    UseAllTagsHandler const all;
    QVERIFY(all.isAllowed(tag));
    QVERIFY(all.hasTags());
}

void tst_STLTagHandler::ownHandler()
{
    OddHandler const handler({1, 2, 3});
    STLTagHandler const& base = handler;
    QVERIFY(base.isAllowed(1) && base.isAllowed(3) && !base.isAllowed(2) && !base.isAllowed(5));
    QVERIFY(base.hasTags());
    QVERIFY(!OddHandler(QList<int>()).hasTags());
}

void tst_STLTagHandler::copiesAndMoves()
{
    InclusiveTagHandler inclusive({3});
    InclusiveTagHandler const copy(inclusive);
    InclusiveTagHandler const moved(std::move(inclusive));
    QVERIFY(copy.isAllowed(3) && moved.isAllowed(3) && !copy.isAllowed(4));
    ExclusiveTagHandler exclusive({3});
    ExclusiveTagHandler const exclusiveCopy(exclusive);
    ExclusiveTagHandler const exclusiveMoved(std::move(exclusive));
    QVERIFY(!exclusiveCopy.isAllowed(3) && !exclusiveMoved.isAllowed(3) && exclusiveCopy.isAllowed(4));
    UseAllTagsHandler const all;
    QVERIFY(UseAllTagsHandler(all).isAllowed(3));

    // Assigned through the base, a handler takes over the list and keeps its kind.
    OddHandler odd({1});
    static_cast<STLTagHandler&>(odd) = copy;
    QVERIFY(odd.isAllowed(3) && !odd.isAllowed(1));
}

// The order of the members is fixed.
void tst_STLTagHandler::records()
{
    STLDataFormat const format = {1, 2, 3, 4, 5};
    QCOMPARE((std::bit_cast<std::array<int, 5>>(format)), (std::array{1, 2, 3, 4, 5}));
    QCOMPARE(format.firstVertexOffset, 1);
    QCOMPARE(format.dataSize, 2);
    QCOMPARE(format.numberOfTriangles, 3);
    QCOMPARE(format.vertexBlockSize, 4);
    QCOMPARE(format.recordSize, 5);
    STLDataFormat copy = {};
    copy = format;
    QCOMPARE((std::bit_cast<std::array<int, 5>>(copy)), (std::array{1, 2, 3, 4, 5}));

    STLTagSurfaceData const run = {6, 7, 8, 9};
    QCOMPARE((std::bit_cast<std::array<int, 4>>(run)), (std::array{6, 7, 8, 9}));
    QCOMPARE(run.tag, 6);
    QCOMPARE(run.subTag, 7);
    QCOMPARE(run.numberOfTriangles, 8);
    QCOMPARE(run.streamOffset, 9);
}

QTEST_APPLESS_MAIN(tst_STLTagHandler)
#include "tst_STLTagHandler.moc"
