#include "framework/MemoryGuard.h"

#include <QTest>

#include <stdexcept>

class tst_MemoryGuard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void passesResultsOn()
    {
        QVERIFY(memory::succeeds([] { return true; }));
        QVERIFY(!memory::succeeds([] { return false; }));
        QCOMPARE(memory::resultOr(7, [] { return 3; }), 3);
    }

    void takesWantOfMemoryForAFailure()
    {
        QVERIFY(!memory::succeeds([]() -> bool { throw std::bad_alloc(); }));
        QVERIFY(!memory::succeeds([]() -> bool { throw std::bad_array_new_length(); }));
        QCOMPARE(memory::resultOr(7, []() -> int { throw std::bad_alloc(); }), 7);
    }

    void hidesNothingElse()
    {
        auto const fail = []() -> bool { throw std::logic_error("a mistake"); };
        QVERIFY_THROWS_EXCEPTION(std::logic_error, memory::succeeds(fail));
    }
};

QTEST_GUILESS_MAIN(tst_MemoryGuard)
#include "tst_MemoryGuard.moc"
