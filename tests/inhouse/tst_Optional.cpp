#include "inhouse/data/Material.h"
#include "inhouse/data/Mesh.h"
#include "inhouse/data/Optional.h"

#include <QTest>

#include <cstdint>

namespace {

/// Counts the values alive, so that a leak or a second destruction shows.
class Counted
{
public:
    explicit Counted(int number_)
        : number(number_)
    {
        ++alive;
    }
    Counted(Counted const& other)
        : number(other.number)
    {
        ++alive;
    }
    Counted& operator=(Counted const&) = default;
    ~Counted() { --alive; }

    int number;
    static inline int alive = 0;
};

using utility::Optional;

} // namespace

class tst_Optional : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QCOMPARE(Counted::alive, 0); }
    void cleanup() { QCOMPARE(Counted::alive, 0); }
    void emptyWhenMade();
    void holdsAValue();
    void assigns_data();
    void assigns();
    void resets();
    void emplaces();
    void holdsInline();
    void holdsWhatReadersGive();
};

void tst_Optional::emptyWhenMade()
{
    Optional<Counted> const none;
    QVERIFY(!none);
    QVERIFY(!none.has_value());
    QVERIFY(!Optional<Counted>(none));
    QCOMPARE(Counted::alive, 0);
}

void tst_Optional::holdsAValue()
{
    Optional<Counted> some = Counted(5);
    QVERIFY(some);
    QCOMPARE(some->number, 5);
    (*some).number = 6;
    QCOMPARE(some.value().number, 6);
    Optional<Counted> const copy = some;
    some->number = 7;
    QCOMPARE(copy->number, 6);
    QCOMPARE(Counted::alive, 2);
}

void tst_Optional::assigns_data()
{
    QTest::addColumn<bool>("targetEngaged");
    QTest::addColumn<bool>("sourceEngaged");
    QTest::newRow("empty to empty") << false << false;
    QTest::newRow("engaged to empty") << false << true;
    QTest::newRow("empty to engaged") << true << false;
    QTest::newRow("engaged to engaged") << true << true;
}

void tst_Optional::assigns()
{
    QFETCH(bool, targetEngaged);
    QFETCH(bool, sourceEngaged);

    Optional<Counted> target;
    Optional<Counted> source;
    if (targetEngaged)
        target = Counted(1);
    if (sourceEngaged)
        source = Counted(2);
    target = source;
    QCOMPARE(target.has_value(), sourceEngaged);
    QCOMPARE(source.has_value(), sourceEngaged);
    QCOMPARE(target ? target->number : 0, sourceEngaged ? 2 : 0);
    QCOMPARE(Counted::alive, sourceEngaged ? 2 : 0);
}

void tst_Optional::resets()
{
    Optional<Counted> some = Counted(1);
    some.reset();
    QVERIFY(!some);
    QCOMPARE(Counted::alive, 0);
    some.reset();
    QVERIFY(!some);
}

void tst_Optional::emplaces()
{
    Optional<Counted> some;
    some.emplace(3);
    QCOMPARE(some->number, 3);
    some.emplace(4);
    QCOMPARE(some->number, 4);
    QCOMPARE(Counted::alive, 1);
}

void tst_Optional::holdsInline()
{
    Optional<Counted> const some = Counted(1);
    auto const begin = reinterpret_cast<std::uintptr_t>(&some);
    auto const at = reinterpret_cast<std::uintptr_t>(&*some);
    QVERIFY(at >= begin);
    QVERIFY(at + sizeof(Counted) <= begin + sizeof(some));
}

void tst_Optional::holdsWhatReadersGive()
{
    Optional<geometry::Mesh> mesh = geometry::Mesh({{1, 2, 3}}, {});
    QCOMPARE(mesh->getNumVertices(), 1);
    mesh = {};
    QVERIFY(!mesh);
    Optional<geometry::Material> material;
    material.emplace(geometry::Material::metal());
    QVERIFY(*material == geometry::Material::metal());
}

QTEST_APPLESS_MAIN(tst_Optional)
#include "tst_Optional.moc"
