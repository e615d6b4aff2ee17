#include "inhouse/data/PointCloud.h"

#include <QTest>

#include <type_traits>
#include <utility>

using geometry::Material;
using geometry::PointCloud;

class tst_PointCloud : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isEmptyWhenMade();
    void colorsAreReached();
    void materialIsSet();
    void copies();
};

void tst_PointCloud::isEmptyWhenMade()
{
    static_assert(std::has_virtual_destructor_v<PointCloud>);
    PointCloud const cloud;
    QVERIFY(cloud.positions.isEmpty());
    QVERIFY(cloud.normals.isEmpty());
    QVERIFY(cloud.colors().isEmpty());
    QVERIFY(!cloud.material());
}

void tst_PointCloud::colorsAreReached()
{
    PointCloud cloud;
    cloud.colors() << 0xFF0000FF;
    cloud.colors() << 0x12345678;
    QCOMPARE(std::as_const(cloud).colors(), (QList<unsigned int>{0xFF0000FF, 0x12345678}));
    QCOMPARE(&std::as_const(cloud).colors(), &cloud.colors());
}

void tst_PointCloud::materialIsSet()
{
    PointCloud cloud;
    cloud.setMaterial(Material::metal());
    QVERIFY(cloud.material() == Material::metal());
    cloud.setMaterial(Material());
    QVERIFY(cloud.material() == Material());
}

void tst_PointCloud::copies()
{
    PointCloud original;
    original.positions << QVector3D(1, 2, 3);
    original.normals << QVector3D(0, 0, 1);
    original.colors() << 7;
    original.setMaterial(Material::distractor());
    PointCloud const copy = original;
    original.positions.clear();
    original.normals.clear();
    original.colors().clear();
    original.setMaterial(Material());
    QCOMPARE(copy.positions, (QList<QVector3D>{{1, 2, 3}}));
    QCOMPARE(copy.normals, (QList<QVector3D>{{0, 0, 1}}));
    QCOMPARE(copy.colors(), QList<unsigned int>{7});
    QVERIFY(copy.material() == Material::distractor());
}

QTEST_APPLESS_MAIN(tst_PointCloud)
#include "tst_PointCloud.moc"
