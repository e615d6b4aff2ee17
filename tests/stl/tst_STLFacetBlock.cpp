// Facets by the block against facets one by one, bit for bit.
#include "stl/STLFacetBlock.h"

#include <QDataStream>
#include <QTest>

#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>

namespace {

// The record as it is described: a normal, three corners, two bytes.
QByteArray record(QVector3D const& p1, QVector3D const& p2, QVector3D const& p3, stl::Attributes attributes)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setFloatingPointPrecision(QDataStream::SinglePrecision);
    stream.setByteOrder(QDataStream::LittleEndian);
    for (QVector3D const& point : {stl::facetNormal(p1, p2, p3), p1, p2, p3})
        stream << point.x() << point.y() << point.z();
    stream << attributes.first << attributes.second;
    return bytes;
}

// Corners whose facets have lengths of every kind: 0, about 1e-5, about 1, too large to tell.
float coordinate(std::mt19937& random)
{
    using Limits = std::numeric_limits<float>;
    constexpr float special[] = {0.0f,
                                 -0.0f,
                                 1.0f,
                                 -1.0f,
                                 1.000004f,
                                 0.9999951f,
                                 1e-5f,
                                 0.003f,
                                 0.0031622776f,
                                 1e20f,
                                 -1e19f,
                                 1e-20f,
                                 Limits::denorm_min(),
                                 Limits::min(),
                                 Limits::max(),
                                 Limits::lowest(),
                                 Limits::infinity(),
                                 -Limits::infinity(),
                                 Limits::quiet_NaN()};
    switch (random() % 4) {
    case 0:
        return special[random() % std::size(special)];
    case 1:
        return static_cast<float>(int(random() % 5) - 2);
    default:
        return std::uniform_real_distribution<float>(-3.0f, 3.0f)(random);
    }
}

} // namespace

class tst_STLFacetBlock : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void normals_data();
    void normals();
    void randomFacets();
    void faces_data();
    void faces();
};

void tst_STLFacetBlock::normals_data()
{
    QTest::addColumn<QList<float>>("numbers"); // second and third corner, normal
    using Numbers = QList<float>;
    QTest::newRow("up") << Numbers{2, 0, 0, 0, 3, 0, 0, 0, 1};
    QTest::newRow("slanted") << Numbers{0, 4, 3, 1, 0, 0, 0, 0.6f, -0.8f};
    QTest::newRow("no area") << Numbers{1, 1, 1, 2, 2, 2, 0, 0, 0};
    QTest::newRow("hardly any area") << Numbers{-0.003f, 0, 0, 0, 0.003f, 0, 0, 0, 0};
    QTest::newRow("nearly 1") << Numbers{1.000004f, 0, 0, 0, 1, 0, 0, 0, 1.000004f};
}

void tst_STLFacetBlock::normals()
{
    QFETCH(QList<float>, numbers);
    auto const vectorAt = [&](qsizetype i) { return QVector3D(numbers[i], numbers[i + 1], numbers[i + 2]); };
    std::array<QVector3D, 3> const vertices = {QVector3D(), vectorAt(0), vectorAt(3)};
    std::array<int, 4> const indices = {0, 1, 2, -1};
    std::array<char, stl::facetBytes> facet;
    stl::putFacets(indices, vertices.data(), {7, 2}, facet.data());
    QCOMPARE(QByteArray(facet.data(), facet.size()).toHex(),
             record(vertices[0], vertices[1], vertices[2], {7, 2}).toHex());
    QVector3D normal;
    std::memcpy(static_cast<void*>(&normal), facet.data(), sizeof(normal));
    QVERIFY((normal - vectorAt(6)).length() < 1e-6f);
}

// Groups of every size around that of a batch; not a byte behind the last facet is touched.
void tst_STLFacetBlock::randomFacets()
{
    std::mt19937 random(11);
    int finite = 0;
    for (int round = 0; round < 3000; ++round) {
        QList<QVector3D> vertices(200);
        for (QVector3D& vertex : vertices)
            vertex = {coordinate(random), coordinate(random), coordinate(random)};
        QList<int> indices;
        QByteArray expected;
        stl::Attributes const attributes = {static_cast<unsigned char>(random()),
                                            static_cast<unsigned char>(random())};
        for (int i = 0; i < round % 150; ++i) {
            int const a = static_cast<int>(random() % 200);
            int const b = static_cast<int>(random() % 200);
            int const c = static_cast<int>(random() % 200);
            indices << a << b << c << -1;
            expected += record(vertices[a], vertices[b], vertices[c], attributes);
            finite += std::isfinite(stl::facetNormal(vertices[a], vertices[b], vertices[c]).x()) ? 1 : 0;
        }
        QByteArray bytes(expected.size() + 16, 'x');
        stl::putFacets({indices.constData(), static_cast<std::size_t>(indices.size())}, vertices.constData(),
                       attributes, bytes.data());
        QCOMPARE(bytes.toHex(), (expected + QByteArray(16, 'x')).toHex());
    }
    QVERIFY(finite > 50'000);
}

void tst_STLFacetBlock::faces_data()
{
    QTest::addColumn<QList<int>>("indices");
    QTest::addColumn<qsizetype>("vertexCount");
    QTest::addColumn<bool>("expected");
    constexpr int most = std::numeric_limits<int>::max();
    constexpr int least = std::numeric_limits<int>::min();
    QTest::newRow("none") << QList<int>() << qsizetype(0) << true;
    QTest::newRow("good") << QList<int>{0, 1, 2, -1, 2, 2, 2, -1} << qsizetype(3) << true;
    QTest::newRow("the marker is not looked at") << QList<int>{0, 1, 2, 99} << qsizetype(3) << true;
    QTest::newRow("first corner") << QList<int>{3, 1, 2, -1} << qsizetype(3) << false;
    QTest::newRow("second corner") << QList<int>{0, -1, 2, -1} << qsizetype(3) << false;
    QTest::newRow("third corner of the second")
        << QList<int>{0, 1, 2, -1, 0, 1, least, -1} << qsizetype(3) << false;
    QTest::newRow("no vertices") << QList<int>{0, 0, 0, -1} << qsizetype(0) << false;
    QTest::newRow("more vertices than indices can tell")
        << QList<int>{0, most, 2, -1} << qsizetype(1) * most * 4 << true;
    QTest::newRow("negative for all that") << QList<int>{0, -2, 2, -1} << qsizetype(1) * most * 4 << false;
}

void tst_STLFacetBlock::faces()
{
    QFETCH(QList<int>, indices);
    QFETCH(qsizetype, vertexCount);
    QFETCH(bool, expected);
    QCOMPARE(stl::areFaces({indices.constData(), static_cast<std::size_t>(indices.size())}, vertexCount),
             expected);
}

QTEST_GUILESS_MAIN(tst_STLFacetBlock)
#include "tst_STLFacetBlock.moc"
