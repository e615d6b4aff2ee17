#include "inhouse/data/STLSurfaceData.h"
#include "support/Meshes.h"

#include <QTest>

#include <type_traits>

class tst_STLSurfaceData : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void holdsWhatItIsGiven_data();
    void holdsWhatItIsGiven();
    void keepsItsOwnCopy();
    void isPolymorphic();
};

void tst_STLSurfaceData::holdsWhatItIsGiven_data()
{
    QTest::addColumn<int>("tag");
    QTest::addColumn<int>("subTag");
    QTest::newRow("untagged file") << 0 << -1;
    QTest::newRow("rest") << -1 << 5;
    QTest::newRow("largest") << 255 << 127;
    QTest::newRow("smallest") << 0 << -128;
}

void tst_STLSurfaceData::holdsWhatItIsGiven()
{
    QFETCH(int, tag);
    QFETCH(int, subTag);

    QMatrix4x4 transform;
    transform.translate(1, 2, 3);
    STLSurfaceData const surface(tag, support::cube(), transform, subTag);
    QCOMPARE(surface.getTag(), tag);
    QCOMPARE(surface.getSubTag(), subTag);
    QVERIFY(support::sameBits(surface.getMesh(), support::cube()));
    QCOMPARE(surface.getTransform(), transform);
}

void tst_STLSurfaceData::keepsItsOwnCopy()
{
    geometry::Mesh mesh = support::cube();
    QMatrix4x4 transform;
    STLSurfaceData const surface(1, mesh, transform, 2);
    mesh.vertices[0] = {5, 5, 5};
    mesh.indices.clear();
    transform.scale(2);
    QVERIFY(support::sameBits(surface.getMesh(), support::cube()));
    QVERIFY(surface.getTransform().isIdentity());
    // The same object each time.
    QCOMPARE(&surface.getMesh(), &surface.getMesh());
}

void tst_STLSurfaceData::isPolymorphic()
{
    static_assert(std::has_virtual_destructor_v<STLSurfaceData>);
    static_assert(std::is_same_v<decltype(std::declval<STLSurfaceData>().getMesh()), geometry::Mesh const&>);
    static_assert(std::is_same_v<decltype(std::declval<STLSurfaceData>().getTransform()), QMatrix4x4 const&>);
}

QTEST_APPLESS_MAIN(tst_STLSurfaceData)
#include "tst_STLSurfaceData.moc"
