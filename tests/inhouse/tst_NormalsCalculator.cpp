#include "inhouse/data/Unstrip.h"
#include "inhouse/meshoperations/NormalsCalculator.h"
#include "support/Meshes.h"

#include <QTest>

#include <array>
#include <atomic>
#include <chrono>
#include <cmath>
#include <limits>
#include <random>
#include <thread>

namespace {

using geometry::Mesh;

constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();
constexpr float infinite = std::numeric_limits<float>::infinity();
constexpr float pi = 3.14159265f;
constexpr double accuracy = 1e-6;
std::atomic<bool> const goOn{false};
std::atomic<bool> const stop{true};

using Vector = std::array<long double, 3>;
using Facet = std::array<int, 3>;

Vector operator-(Vector const& a, Vector const& b)
{
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

long double dot(Vector const& a, Vector const& b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

Vector cross(Vector const& a, Vector const& b)
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

long double angleBetween(Vector const& a, Vector const& b)
{
    return std::atan2(std::sqrt(dot(cross(a, b), cross(a, b))), dot(a, b));
}

/// A mesh as the models see it: single triangles, unit normals of the usable ones.
struct Facets
{
    explicit Facets(Mesh const& mesh)
        : vertices(mesh.vertices)
    {
        QList<int> const indices = geometry::unstrip(mesh).indices;
        for (qsizetype i = 0; i < indices.size(); i += 4) {
            corners << Facet{indices[i], indices[i + 1], indices[i + 2]};
            normals << normalOf(corners.last());
        }
    }

    bool isUsable(Facet const& facet) const
    {
        for (int const corner : facet)
            if (corner < 0 || corner >= vertices.size())
                return false;
        return true;
    }

    Vector point(int index) const { return {vertices[index].x(), vertices[index].y(), vertices[index].z()}; }

    /// (0, 0, 0) for a facet that does not count.
    Vector normalOf(Facet const& facet) const
    {
        if (!isUsable(facet))
            return {};
        Vector const normal = cross(point(facet[1]) - point(facet[0]), point(facet[2]) - point(facet[0]));
        long double const length = std::sqrt(dot(normal, normal));
        if (!(length > 0) || std::isinf(length))
            return {};
        return {normal[0] / length, normal[1] / length, normal[2] / length};
    }

    bool isDegenerate(qsizetype facet) const { return normals[facet] == Vector{}; }

    /// From twice the area: the edges from a tip 1e38 away cannot be told apart.
    long double angleAt(Facet const& facet, std::size_t corner) const
    {
        Vector const normal = cross(point(facet[1]) - point(facet[0]), point(facet[2]) - point(facet[0]));
        Vector const tip = point(facet[corner]);
        long double const product =
            dot(point(facet[(corner + 1) % 3]) - tip, point(facet[(corner + 2) % 3]) - tip);
        return std::atan2(std::sqrt(dot(normal, normal)), product);
    }

    QList<QVector3D> vertices;
    QList<Facet> corners;
    QList<Vector> normals;
};

struct ModelNormal
{
    Vector sum{};
    long double weight = 0;
};

QList<ModelNormal> modelNormals(Mesh const& mesh)
{
    Facets const facets(mesh);
    QList<ModelNormal> result(mesh.vertices.size());
    for (qsizetype f = 0; f < facets.corners.size(); ++f)
        for (std::size_t corner = 0; corner < 3 && !facets.isDegenerate(f); ++corner) {
            long double const angle = facets.angleAt(facets.corners[f], corner);
            ModelNormal& normal = result[facets.corners[f][corner]];
            for (std::size_t axis = 0; axis < 3; ++axis)
                normal.sum[axis] += angle * facets.normals[f][axis];
            normal.weight += angle;
        }
    return result;
}

/// Whether `normal` is what `expected` asks for. Where facets nearly cancel out, their rounding decides the
/// direction; there it only has to be a unit vector or zero.
bool isExpectedNormal(QVector3D const& normal, ModelNormal const& expected)
{
    long double const length = std::sqrt(dot(expected.sum, expected.sum));
    if (length == 0)
        return normal == QVector3D(0, 0, 0);
    double const actual = std::hypot(double(normal.x()), double(normal.y()), double(normal.z()));
    if (length < 1e-2L * expected.weight)
        return actual == 0.0 || std::abs(actual - 1.0) < accuracy;
    for (int axis = 0; axis < 3; ++axis)
        if (!(std::abs(normal[axis] - expected.sum[static_cast<std::size_t>(axis)] / length) <= accuracy))
            return false;
    return true;
}

bool hasExpectedNormals(Mesh const& mesh)
{
    QList<ModelNormal> const expected = modelNormals(mesh);
    if (mesh.normals.size() != expected.size())
        return false;
    for (qsizetype i = 0; i < expected.size(); ++i)
        if (!isExpectedNormal(mesh.normals[i], expected[i]))
            return false;
    return true;
}

/// Splits the vertices the slow and obvious way.
class SplitModel
{
public:
    SplitModel(Mesh const& mesh, long double threshold_)
        : result(geometry::unstrip(mesh))
        , facets(mesh)
        , threshold(threshold_)
        , parts(3 * facets.corners.size(), -1)
    {
        for (int vertex = 0; vertex < mesh.vertices.size(); ++vertex)
            splitVertex(vertex);
        QList<int> newVertex(parts.size(), -1);
        for (qsizetype corner = 0; corner < parts.size(); ++corner)
            if (int const part = parts[corner]; part >= 0) {
                int const old = facets.corners[corner / 3][static_cast<std::size_t>(corner % 3)];
                if (newVertex[part] < 0)
                    newVertex[part] = appendCopy(old);
                result.indices[corner + corner / 3] = newVertex[part];
            }
    }

    Mesh result;

private:
    int appendCopy(int vertex)
    {
        result.vertices << QVector3D(result.vertices[vertex]);
        if (!result.colors.isEmpty())
            result.colors << (0U + result.colors[vertex]);
        if (!result.textureCoordinates.isEmpty())
            result.textureCoordinates << QVector2D(result.textureCoordinates[vertex]);
        return static_cast<int>(result.vertices.size()) - 1;
    }

    /// The corners of a vertex, in ascending order.
    QList<int> cornersAt(int vertex) const
    {
        QList<int> corners;
        for (qsizetype f = 0; f < facets.corners.size(); ++f)
            for (int c = 0; c < 3 && facets.isUsable(facets.corners[f]); ++c)
                if (facets.corners[f][static_cast<std::size_t>(c)] == vertex)
                    corners << static_cast<int>(3 * f + c);
        return corners;
    }

    bool reaches(int corner, int vertex) const
    {
        Facet const& facet = facets.corners[corner / 3];
        auto const c = static_cast<std::size_t>(corner % 3);
        return facet[(c + 1) % 3] == vertex || facet[(c + 2) % 3] == vertex;
    }

    bool isSharp(int a, int b) const
    {
        return !facets.isDegenerate(a / 3) && !facets.isDegenerate(b / 3) &&
               angleBetween(facets.normals[a / 3], facets.normals[b / 3]) > threshold;
    }

    static void relabel(QList<int>& labels, int from, int to)
    {
        for (int& label : labels)
            label = label == from ? to : label;
    }

    void splitVertex(int vertex)
    {
        QList<int> const corners = cornersAt(vertex);
        QList<int> labels = corners;
        bool creased = false;
        for (int other = 0; other < facets.vertices.size(); ++other) {
            qsizetype last = -1;
            for (qsizetype i = 0; i < corners.size(); ++i) {
                if (!reaches(corners[i], other))
                    continue;
                if (last >= 0 && isSharp(corners[last], corners[i]))
                    creased = true;
                else if (last >= 0)
                    relabel(labels, labels[i], labels[last]);
                last = i;
            }
        }
        if (creased)
            assignParts(corners, labels);
    }

    bool isAllDegenerate(QList<int> const& corners, QList<int> const& labels, int label) const
    {
        for (qsizetype i = 0; i < corners.size(); ++i)
            if (labels[i] == label && !facets.isDegenerate(corners[i] / 3))
                return false;
        return true;
    }

    void assignParts(QList<int> const& corners, QList<int> labels)
    {
        qsizetype first = 0;
        while (facets.isDegenerate(corners[first] / 3))
            ++first;
        for (qsizetype i = 0; i < corners.size(); ++i)
            if (isAllDegenerate(corners, labels, labels[i]))
                relabel(labels, labels[i], labels[first]);
        for (qsizetype i = 0; i < corners.size(); ++i)
            if (labels[i] != labels[0])
                parts[corners[i]] = corners[labels.indexOf(labels[i])];
    }

    Facets facets;
    long double threshold;
    /// For each corner, the first corner of its part, or -1 where the vertex is kept.
    QList<int> parts;
};

/// Lattice points, so that facets lie in one plane, on one line or at right angles often.
Mesh randomLatticeMesh(std::mt19937& random)
{
    auto const below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    QList<float> const odd = {notANumber, infinite, -infinite, -0.0f, 1e-45f, 1e30f, 3e38f};
    int const oddness = 1 + below(60);
    auto const coordinate = [&] {
        return below(oddness) == 0 ? odd[below(7)] : static_cast<float>(below(4));
    };
    Mesh mesh;
    int const vertexCount = 1 + below(25);
    for (int i = 0; i < vertexCount; ++i) {
        float const x = coordinate();
        float const y = coordinate();
        mesh.vertices << QVector3D(x, y, coordinate());
        mesh.colors << random();
        mesh.textureCoordinates << QVector2D(x, y);
    }
    int const strips = below(25);
    bool const onlyTriangles = below(2) == 0;
    for (int i = 0; i < strips; ++i) {
        for (int length = onlyTriangles ? 3 : below(8); length > 0; --length)
            mesh.indices << (below(80) == 0 ? vertexCount + below(2) : below(vertexCount));
        mesh.indices << -1;
    }
    return mesh;
}

bool allFinite(QList<QVector3D> const& normals)
{
    for (QVector3D const& n : normals)
        if (!std::isfinite(n.x()) || !std::isfinite(n.y()) || !std::isfinite(n.z()))
            return false;
    return true;
}

/// A sheet of size x size squares over a bumpy height field.
Mesh sheet(int size)
{
    Mesh mesh;
    std::mt19937 random(3);
    for (int i = 0; i <= size; ++i)
        for (int j = 0; j <= size; ++j)
            mesh.vertices << QVector3D(static_cast<float>(i), static_cast<float>(j),
                                       support::randomFloat(random, 0.7f));
    for (int i = 0; i < size; ++i)
        for (int j = 0; j < size; ++j) {
            int const v = i * (size + 1) + j;
            mesh.indices << v << v + size + 1 << v + size + 2 << -1 << v << v + size + 2 << v + 1 << -1;
        }
    return mesh;
}

} // namespace

class tst_NormalsCalculator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void smoothCube();
    void weightedByAngle();
    void scales_data();
    void scales();
    void smoothAgreesWithTheModel();
    void slivers();
    void strips();
    void smoothKeepsTheOtherLists();
    void withoutUsableFacets_data();
    void withoutUsableFacets();
    void facetsThatCancelOut();
    void emptyMesh();

    void sharpCube();
    void thresholds_data();
    void thresholds();
    void fold_data();
    void fold();
    void edgeOfThreeFacets();
    void fansThatMeetAtOneVertex();
    void degenerateFacetsSeparateNothing();
    void partsAreAppendedInFacetOrder();
    void attributesAreCopied();
    void listsThatDoNotFitStay();
    void unusableFacetsStay();
    void sharpAgreesWithTheModel();

    void cancelledBefore();
    void cancelledWithin();
};

void tst_NormalsCalculator::smoothCube()
{
    Mesh const mesh = NormalsCalculator::computeGouraudNormals(support::cube(), goOn);
    Mesh expected = support::cube();
    QCOMPARE(mesh.vertices, expected.vertices);
    QCOMPARE(mesh.indices, expected.indices);
    QCOMPARE(mesh.normals.size(), 8);
    // Each corner of a cube belongs to three faces by a right angle, however they are triangulated.
    auto const component = [](float at) { return (at > 0.5f ? 1.0f : -1.0f) / std::sqrt(3.0f); };
    for (int i = 0; i < 8; ++i) {
        QVector3D const& v = mesh.vertices[i];
        QVector3D const normal(component(v.x()), component(v.y()), component(v.z()));
        QVERIFY((mesh.normals[i] - normal).length() < accuracy);
    }
}

void tst_NormalsCalculator::weightedByAngle()
{
    // 90 degrees in the plane z = 0 and 45 in the plane y = 0, whatever the areas.
    Mesh mesh({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {100, 0, 0}, {100, 0, 100}}, {0, 1, 2, -1, 0, 3, 4, -1});
    mesh = NormalsCalculator::computeGouraudNormals(mesh, goOn);
    QVector3D const expected = QVector3D(0, -1, 2).normalized();
    QVERIFY((mesh.normals[0] - expected).length() < accuracy);
    QCOMPARE(mesh.normals[1], QVector3D(0, 0, 1));
    QCOMPARE(mesh.normals[4], QVector3D(0, -1, 0));
}

void tst_NormalsCalculator::scales_data()
{
    QTest::addColumn<float>("scale");
    for (float const scale :
         {1e-45f, 1e-40f, 1e-38f, 1e-30f, 1e-20f, 1e-3f, 1.0f, 1e5f, 1e19f, 1e20f, 1e30f, 3e38f})
        QTest::newRow(qPrintable(QString::number(double(scale)))) << scale;
}

void tst_NormalsCalculator::scales()
{
    QFETCH(float, scale);

    Mesh mesh = support::cube();
    for (QVector3D& vertex : mesh.vertices)
        vertex = (vertex * 2 - QVector3D(1, 1, 1)) * scale; // twice the largest float across
    mesh = NormalsCalculator::computeGouraudNormals(mesh, goOn);
    QVERIFY(hasExpectedNormals(mesh));
    for (QVector3D const& normal : std::as_const(mesh.normals))
        QVERIFY(std::abs(normal.length() - 1.0f) < 1e-6f);
    mesh = NormalsCalculator::computeSharpEdgeNormals(mesh, 1.0f, goOn);
    QCOMPARE(mesh.vertices.size(), 24);
}

void tst_NormalsCalculator::smoothAgreesWithTheModel()
{
    std::mt19937 random(11);
    for (int i = 0; i < 3000; ++i) {
        Mesh const input = randomLatticeMesh(random);
        Mesh const mesh = NormalsCalculator::computeGouraudNormals(input, goOn);
        QVERIFY(allFinite(mesh.normals));
        QVERIFY2(hasExpectedNormals(mesh), qPrintable(QStringLiteral("mesh %1").arg(i)));
    }
    for (int i = 0; i < 300; ++i) {
        Mesh const mesh =
            NormalsCalculator::computeGouraudNormals(support::randomMesh(random, 60, 100), goOn);
        QVERIFY2(hasExpectedNormals(mesh), qPrintable(QStringLiteral("random mesh %1").arg(i)));
    }
}

void tst_NormalsCalculator::slivers()
{
    // Triangles so thin that single-precision products would call them degenerate, or lose their direction.
    std::mt19937 random(5);
    for (int i = 0; i < 2000; ++i) {
        float const x = support::randomFloat(random, 50.0f);
        float const y = support::randomFloat(random, 50.0f);
        float const z = support::randomFloat(random, 50.0f);
        QVector3D const a(x, y, z);
        QVector3D const b(y, z, x);
        QVector3D const nearMiddle = (a + b) / 2 + QVector3D(0, 0, 1e-5f);
        Mesh mesh({a, b, nearMiddle}, {0, 1, 2, -1});
        mesh = NormalsCalculator::computeGouraudNormals(mesh, goOn);
        QVERIFY(hasExpectedNormals(mesh));
    }
}

void tst_NormalsCalculator::strips()
{
    // The same sheet as strips and as triangles: the same normals, and the strips are not touched.
    Mesh triangles({{0, 0, 0}, {0, 1, 0}, {1, 0, 0}, {1, 1, 0}, {2, 0, 1}, {2, 1, 1}}, {});
    Mesh strip = triangles;
    triangles.indices = {0, 1, 2, -1, 2, 1, 3, -1, 2, 3, 4, -1, 4, 3, 5, -1};
    for (QList<int> const& indices : {QList<int>{0, 1, 2, 3, 4, 5, -1}, QList<int>{0, 1, 2, 3, 4, 5},
                                      QList<int>{-1, 0, 1, 2, 3, -1, -1, 2, 3, 4, 5, -1, 4, 3, -1, 5},
                                      QList<int>{0, 1, 2, -1, 2, 1, 3, -1, 2, 3, 4, 5}}) {
        strip.indices = indices;
        Mesh const smooth = NormalsCalculator::computeGouraudNormals(strip, goOn);
        QCOMPARE(smooth.indices, indices);
        QCOMPARE(smooth.normals, NormalsCalculator::computeGouraudNormals(triangles, goOn).normals);
        Mesh const sharp = NormalsCalculator::computeSharpEdgeNormals(strip, 0.5f, goOn);
        QVERIFY(support::sameBits(sharp, NormalsCalculator::computeSharpEdgeNormals(triangles, 0.5f, goOn)));
    }
}

void tst_NormalsCalculator::smoothKeepsTheOtherLists()
{
    Mesh mesh = support::cube();
    mesh.colors = {1, 2, 3};
    mesh.textureCoordinates = {{0, 1}};
    mesh.normals = {{7, 7, 7}};
    Mesh const input = mesh;
    mesh = NormalsCalculator::computeGouraudNormals(mesh, goOn);
    QCOMPARE(mesh.normals.size(), 8);
    mesh.normals = input.normals;
    QVERIFY(support::sameBits(mesh, input));
}

void tst_NormalsCalculator::withoutUsableFacets_data()
{
    QTest::addColumn<QList<QVector3D>>("vertices");
    QTest::addColumn<QList<int>>("indices");
    using Points = QList<QVector3D>;
    using Ints = QList<int>;
    constexpr int smallest = std::numeric_limits<int>::min();
    constexpr int largest = std::numeric_limits<int>::max();
    Points const good = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};

    QTest::newRow("no indices") << good << Ints{};
    QTest::newRow("markers only") << good << Ints{-1, -1, -1, -1};
    QTest::newRow("strips too short") << good << Ints{0, -1, 0, 1, -1, 2, 1};
    QTest::newRow("index too large") << good << Ints{0, 1, 3, -1};
    QTest::newRow("index negative") << good << Ints{0, -2, 1, -1};
    QTest::newRow("extreme indices") << good << Ints{smallest, largest, 0, -1, largest, 1, smallest, -1};
    QTest::newRow("corner twice") << good << Ints{0, 0, 1, -1, 0, 1, 1, -1, 1, 0, 1, -1};
    QTest::newRow("one point") << Points{{1, 2, 3}, {1, 2, 3}, {1, 2, 3}} << Ints{0, 1, 2, -1};
    QTest::newRow("one line") << Points{{1, 1, 1}, {2, 2, 2}, {4, 4, 4}} << Ints{0, 1, 2, -1};
    QTest::newRow("NaN") << Points{{notANumber, 0, 0}, {1, 0, 0}, {0, 1, 0}} << Ints{0, 1, 2, -1};
    QTest::newRow("infinity") << Points{{0, 0, 0}, {1, 0, 0}, {0, infinite, 0}} << Ints{0, 1, 2, -1};
    QTest::newRow("both infinities") << Points{{-infinite, 0, 0}, {infinite, 0, 0}, {0, 1, 0}}
                                     << Ints{0, 1, 2, -1};
    QTest::newRow("all infinite") << Points(3, {infinite, infinite, infinite}) << Ints{0, 1, 2, -1};
}

void tst_NormalsCalculator::withoutUsableFacets()
{
    QFETCH(QList<QVector3D>, vertices);
    QFETCH(QList<int>, indices);

    Mesh const mesh(vertices, indices, QList<QVector3D>(1, {9, 9, 9}));
    Mesh const smooth = NormalsCalculator::computeGouraudNormals(mesh, goOn);
    QCOMPARE(smooth.normals, QList<QVector3D>(vertices.size()));
    QCOMPARE(smooth.indices, indices);
    Mesh const sharp = NormalsCalculator::computeSharpEdgeNormals(mesh, 0.5f, goOn);
    QCOMPARE(sharp.normals, QList<QVector3D>(vertices.size()));
    QCOMPARE(sharp.indices, geometry::unstrip(mesh).indices);
    QCOMPARE(support::bytesOf(sharp.vertices), support::bytesOf(vertices));
}

void tst_NormalsCalculator::facetsThatCancelOut()
{
    std::mt19937 random(17);
    for (int i = 0; i < 200; ++i) {
        Mesh mesh = support::randomMesh(random, 3, 0);
        mesh.indices = {0, 1, 2, -1, 1, 0, 2, -1};
        mesh = NormalsCalculator::computeGouraudNormals(mesh, goOn);
        QCOMPARE(mesh.normals, QList<QVector3D>(3));
    }
}

void tst_NormalsCalculator::emptyMesh()
{
    QVERIFY(support::sameBits(NormalsCalculator::computeGouraudNormals(Mesh(), goOn), Mesh()));
    QVERIFY(support::sameBits(NormalsCalculator::computeSharpEdgeNormals(Mesh(), 1.0f, goOn), Mesh()));
    QVERIFY(NormalsCalculator::computeGouraudNormals(Mesh({}, {0, 1, 2, -1}), goOn).isNull());
    QVERIFY(NormalsCalculator::computeSharpEdgeNormals(Mesh({}, {0, 1, 2, -1}), 1.0f, goOn).isNull());
}

void tst_NormalsCalculator::sharpCube()
{
    Mesh const cube = support::cube();
    Mesh const mesh = NormalsCalculator::computeSharpEdgeNormals(cube, 1.0f, goOn);
    QCOMPARE(mesh.vertices.size(), 24);
    QCOMPARE(mesh.vertices.mid(0, 8), cube.vertices);
    QCOMPARE(mesh.indices.size(), cube.indices.size());
    Facets const facets(mesh);
    for (qsizetype f = 0; f < facets.corners.size(); ++f)
        for (std::size_t corner = 0; corner < 3; ++corner) {
            int const index = facets.corners[f][corner];
            auto const at = 4 * f + static_cast<qsizetype>(corner);
            QCOMPARE(mesh.vertices[index], cube.vertices[cube.indices[at]]);
            for (std::size_t axis = 0; axis < 3; ++axis)
                QCOMPARE(mesh.normals[index][static_cast<int>(axis)],
                         static_cast<float>(facets.normals[f][axis]));
        }
}

void tst_NormalsCalculator::thresholds_data()
{
    QTest::addColumn<float>("threshold");
    QTest::addColumn<int>("vertices");

    QTest::newRow("half a radian") << 0.5f << 24;
    QTest::newRow("one radian") << 1.0f << 24;
    QTest::newRow("zero joins what is flat") << 0.0f << 24;
    QTest::newRow("just below a right angle") << 1.5707f << 24;
    QTest::newRow("a right angle, to the nearest float") << pi / 2 << 8;
    QTest::newRow("just above a right angle") << 1.5709f << 8;
    QTest::newRow("pi") << pi << 8;
    QTest::newRow("beyond pi") << 7.0f << 8;
    QTest::newRow("infinity") << infinite << 8;
    // Every edge is sharp: 12 triangles with 3 vertices of their own.
    QTest::newRow("below zero") << -0.1f << 36;
    QTest::newRow("below minus pi") << -7.0f << 36;
    QTest::newRow("NaN") << notANumber << 36;
}

void tst_NormalsCalculator::thresholds()
{
    QFETCH(float, threshold);
    QTEST(static_cast<int>(
              NormalsCalculator::computeSharpEdgeNormals(support::cube(), threshold, goOn).vertices.size()),
          "vertices");
}

void tst_NormalsCalculator::fold_data()
{
    QTest::addColumn<double>("angle");
    QTest::addColumn<bool>("split");
    for (double const threshold : {0.5, 1.0}) {
        auto const row = [&](double offset) {
            QTest::addRow("%g%+g", threshold, offset) << threshold + offset << (offset > 0);
        };
        row(-0.2);
        row(-1e-5);
        row(1e-5);
        row(0.2);
    }
}

void tst_NormalsCalculator::fold()
{
    QFETCH(double, angle);
    QFETCH(bool, split);

    float const threshold = angle < 0.75 ? 0.5f : 1.0f;
    Mesh const mesh({{0, 0, 0}, {0, 1, 0}, {-1, 0, 0}, {float(std::cos(angle)), 0, float(-std::sin(angle))}},
                    {0, 1, 2, -1, 1, 0, 3, -1});
    Mesh const result = NormalsCalculator::computeSharpEdgeNormals(mesh, threshold, goOn);
    QCOMPARE(result.indices, split ? (QList<int>{0, 1, 2, -1, 4, 5, 3, -1}) : mesh.indices);
    QCOMPARE(result.vertices.size(), split ? 6 : 4);
}

void tst_NormalsCalculator::edgeOfThreeFacets()
{
    // Facets in the order flat, upright, flat: each is compared with the next in the list only.
    Mesh const mesh({{0, 0, 0}, {0, 1, 0}, {-1, 0, 0}, {0, 0, 1}, {1, 0, 0}},
                    {0, 1, 2, -1, 0, 1, 3, -1, 1, 0, 4, -1});
    Mesh const result = NormalsCalculator::computeSharpEdgeNormals(mesh, 1.0f, goOn);
    QCOMPARE(result.indices, (QList<int>{0, 1, 2, -1, 5, 6, 3, -1, 7, 8, 4, -1}));

    Mesh reordered = mesh;
    reordered.indices = {0, 1, 2, -1, 1, 0, 4, -1, 0, 1, 3, -1};
    QCOMPARE(NormalsCalculator::computeSharpEdgeNormals(reordered, 1.0f, goOn).indices,
             (QList<int>{0, 1, 2, -1, 1, 0, 4, -1, 5, 6, 3, -1}));
}

void tst_NormalsCalculator::fansThatMeetAtOneVertex()
{
    // No two facets share an edge, so none is sharp, however they stand to each other.
    Mesh const mesh({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, -1, 0}, {0, 0, 1}}, {0, 1, 2, -1, 0, 3, 4, -1});
    QCOMPARE(NormalsCalculator::computeSharpEdgeNormals(mesh, 0.5f, goOn).indices, mesh.indices);
}

void tst_NormalsCalculator::degenerateFacetsSeparateNothing()
{
    QList<QVector3D> const vertices = {{0, 0, 0}, {0, 1, 0}, {-1, 0, 0}, {0, 0, -1}, {0, 2, 0}, {1, 0, 0}};
    // Between two facets of one plane lies one without area.
    Mesh flat(vertices, {0, 1, 2, -1, 0, 4, 1, -1, 4, 0, 5, -1});
    QCOMPARE(NormalsCalculator::computeSharpEdgeNormals(flat, 0.5f, goOn).indices, flat.indices);
    // A fold, and degenerate facets that hang on one of its sides or on nothing.
    Mesh const fold(vertices, {0, 0, 5, -1, 0, 1, 2, -1, 1, 0, 3, -1, 0, 0, 4, -1});
    Mesh const result = NormalsCalculator::computeSharpEdgeNormals(fold, 0.5f, goOn);
    QCOMPARE(result.indices, (QList<int>{0, 0, 5, -1, 0, 1, 2, -1, 6, 7, 3, -1, 0, 0, 4, -1}));
    QCOMPARE(result.normals[0], QVector3D(0, 0, 1));
    QVERIFY(hasExpectedNormals(result));
}

void tst_NormalsCalculator::partsAreAppendedInFacetOrder()
{
    // Two folds; the second facet of each splits off, corner by corner as the list has them.
    Mesh const mesh(
        {{0, 0, 0}, {0, 1, 0}, {-1, 0, 0}, {0, 0, -1}, {5, 0, 0}, {5, 1, 0}, {4, 0, 0}, {5, 0, -1}},
        {4, 5, 6, -1, 0, 1, 2, -1, 1, 0, 3, -1, 7, 5, 4, -1});
    Mesh const result = NormalsCalculator::computeSharpEdgeNormals(mesh, 0.5f, goOn);
    QCOMPARE(result.indices, (QList<int>{4, 5, 6, -1, 0, 1, 2, -1, 8, 9, 3, -1, 7, 10, 11, -1}));
    QCOMPARE(result.vertices.mid(8), (QList<QVector3D>{{0, 1, 0}, {0, 0, 0}, {5, 1, 0}, {5, 0, 0}}));
}

void tst_NormalsCalculator::attributesAreCopied()
{
    Mesh mesh({{0, 0, 0}, {0, 1, 0}, {-1, 0, 0}, {0, 0, -1}}, {0, 1, 2, -1, 1, 0, 3, -1});
    mesh.colors = {0xFF0000FF, 0xFF00FF00, 0xFFFF0000, 0x80123456};
    mesh.textureCoordinates = {{0, 0}, {0, 1}, {1, 0}, {0.5f, 0.25f}};
    mesh.normals = QList<QVector3D>(4, {3, 3, 3});
    Mesh const result = NormalsCalculator::computeSharpEdgeNormals(mesh, 0.5f, goOn);
    QCOMPARE(result.colors, mesh.colors + (QList<unsigned int>{0xFF00FF00, 0xFF0000FF}));
    QCOMPARE(result.textureCoordinates, mesh.textureCoordinates + (QList<QVector2D>{{0, 1}, {0, 0}}));
    QCOMPARE(result.normals,
             (QList<QVector3D>{{0, 0, 1}, {0, 0, 1}, {0, 0, 1}, {1, 0, 0}, {1, 0, 0}, {1, 0, 0}}));
}

void tst_NormalsCalculator::listsThatDoNotFitStay()
{
    Mesh mesh = support::cube();
    mesh.colors = {1, 2, 3};
    mesh.textureCoordinates = QList<QVector2D>(9);
    Mesh const result = NormalsCalculator::computeSharpEdgeNormals(mesh, 0.5f, goOn);
    QCOMPARE(result.vertices.size(), 24);
    QCOMPARE(result.colors, mesh.colors);
    QCOMPARE(result.textureCoordinates, mesh.textureCoordinates);
}

void tst_NormalsCalculator::unusableFacetsStay()
{
    Mesh mesh = support::cube();
    QList<int> const unusable = {0, 1, 8, -1, 0, -7, 1, -1};
    mesh.indices = unusable + mesh.indices;
    Mesh const result = NormalsCalculator::computeSharpEdgeNormals(mesh, 0.5f, goOn);
    QCOMPARE(result.indices.mid(0, 8), unusable);
    QCOMPARE(result.indices.mid(8),
             NormalsCalculator::computeSharpEdgeNormals(support::cube(), 0.5f, goOn).indices);
}

void tst_NormalsCalculator::sharpAgreesWithTheModel()
{
    std::mt19937 random(29);
    for (int i = 0; i < 4000; ++i) {
        Mesh const mesh = randomLatticeMesh(random);
        float const threshold = QList<float>{0.5f, 1.0f, 2.0f, 3.0f}[i % 4];
        Mesh result = NormalsCalculator::computeSharpEdgeNormals(mesh, threshold, goOn);
        QVERIFY2(hasExpectedNormals(result), qPrintable(QStringLiteral("mesh %1").arg(i)));
        result.normals.clear();
        Mesh const expected = SplitModel(mesh, static_cast<long double>(threshold)).result;
        QVERIFY2(support::sameBits(result, expected), qPrintable(QStringLiteral("mesh %1").arg(i)));
    }
}

void tst_NormalsCalculator::cancelledBefore()
{
    for (Mesh const& mesh : {Mesh(), support::cube()}) {
        QVERIFY(support::sameBits(NormalsCalculator::computeGouraudNormals(mesh, stop), Mesh()));
        QVERIFY(support::sameBits(NormalsCalculator::computeSharpEdgeNormals(mesh, 0.5f, stop), Mesh()));
    }
}

void tst_NormalsCalculator::cancelledWithin()
{
    // Wherever the flag comes in time: either all or nothing.
    Mesh const mesh = sheet(150);
    Mesh const smooth = NormalsCalculator::computeGouraudNormals(mesh, goOn);
    Mesh const sharp = NormalsCalculator::computeSharpEdgeNormals(mesh, 0.5f, goOn);
    QVERIFY(sharp.vertices.size() > mesh.vertices.size());
    for (int microseconds = 0; microseconds < 6000; microseconds += 300) {
        std::atomic<bool> cancel{false};
        std::thread setter([&] {
            std::this_thread::sleep_for(std::chrono::microseconds(microseconds));
            cancel = true;
        });
        Mesh const smoothNow = NormalsCalculator::computeGouraudNormals(mesh, cancel);
        Mesh const sharpNow = NormalsCalculator::computeSharpEdgeNormals(mesh, 0.5f, cancel);
        setter.join();
        QVERIFY(support::sameBits(smoothNow, smoothNow.isNull() ? Mesh() : smooth));
        QVERIFY(support::sameBits(sharpNow, sharpNow.isNull() ? Mesh() : sharp));
    }
}

QTEST_APPLESS_MAIN(tst_NormalsCalculator)
#include "tst_NormalsCalculator.moc"
