#include "STLCreatorSteps.h"
#include "inhouse/data/Conversions.h"

#include <QtTest>

#include <random>

using support::formatOf;
using support::StlFacet;

namespace {

std::atomic<bool> const never = false;
std::atomic<bool> const always = true;

// Corners on a small grid: many are shared, some facets are degenerate, some coordinates are -0.
class Maker
{
public:
    explicit Maker(quint32 seed)
        : random(seed)
    {}

    QByteArray file(int facets)
    {
        QList<StlFacet> list;
        for (int i = 0; i < facets; ++i)
            list.append({corner(), corner(), corner()});
        return support::binaryStl(list);
    }

private:
    int below(int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); }
    QVector3D corner() { return {coordinate(), coordinate(), coordinate()}; }
    float coordinate() { return below(3) == 0 ? -0.0f : static_cast<float>(below(5)); }

    std::mt19937 random;
};

QByteArray bytesOf(geometry::Mesh const& mesh)
{
    QByteArray bytes;
    auto const append = [&](auto const& list) {
        bytes += QByteArray(reinterpret_cast<char const*>(list.constData()),
                            list.size() * qsizetype(sizeof(list[0]))) +
                 '|';
    };
    append(mesh.vertices);
    append(mesh.indices);
    append(mesh.normals);
    return bytes;
}

struct Input
{
    QByteArray bytes;
    STLDataFormat format;
    bool isSharp = false;
    QDataStream::ByteOrder order = QDataStream::LittleEndian;
};

QByteArray surfaceOf(Input const& input, std::atomic<bool> const& cancel = never)
{
    STLSurfaceCreator creator(nullptr, input.isSharp);
    support::Stream file(input.bytes, input.format);
    file.stream.setByteOrder(input.order);
    creator.read(file.stream, input.format, cancel);
    return creator.getSTLSurfaceData().isEmpty() ? "none"
                                                 : bytesOf(creator.getSTLSurfaceData().first()->getMesh());
}

// `facets` is how many are there, cut ones included.
QByteArray steps(Input const& input, int facets, std::atomic<bool> const& cancel = never)
{
    STLSurfaceCreator const creator(nullptr, input.isSharp);
    support::Stream file(input.bytes, input.format);
    file.stream.setByteOrder(input.order);
    int const first = input.format.firstVertexOffset;
    auto const vertices =
        (creator.*privateMember(support::Vertices()))(file.stream, input.format, 3 * facets, first);
    auto const indices = (creator.*privateMember(support::Strips()))(facets, 4 * facets);
    geometry::Mesh mesh(data::Conversions::toVector(vertices.get(), 3 * facets),
                        data::Conversions::toVector(indices.get(), 4 * facets));
    (creator.*privateMember(support::Clean()))(mesh, cancel);
    (creator.*privateMember(support::AddNormals()))(mesh, cancel);
    return bytesOf(mesh);
}

Input inputOf(QByteArray const& bytes, int facets)
{
    return {bytes, formatOf(facets)};
}

} // namespace

/// A surface made at once of the arrays that were read is that of the steps one after the other, each of
/// which leaves a mesh.
class tst_STLSteps : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void generated_data();
    void generated();
    void runs();
    void everyCut();
    void anotherByteOrder();
    void claimsMoreThanThereIs();
    void cancelled();
    void nothingIsHeldTwice();
};

void tst_STLSteps::generated_data()
{
    QTest::addColumn<int>("facets");
    QTest::addColumn<bool>("isSharp");
    for (int const facets : {0, 1, 2, 7, 40, 300, 2500})
        for (bool const isSharp : {false, true})
            QTest::addRow("%d facets%s", facets, isSharp ? ", sharp" : "") << facets << isSharp;
}

void tst_STLSteps::generated()
{
    QFETCH(int const, facets);
    QFETCH(bool const, isSharp);
    for (quint32 seed = 0; seed < 20; ++seed) {
        Input input = inputOf(Maker(seed).file(facets), facets);
        input.isSharp = isSharp;
        QCOMPARE(surfaceOf(input), steps(input, facets));
    }
}

// The mesh of a run of facets has no normals yet.
void tst_STLSteps::runs()
{
    constexpr int facets = 50;
    STLSurfaceCreator const creator(nullptr, false);
    support::Stream file(Maker(3).file(facets), formatOf(facets));
    for (int first = 0; first < facets; ++first) {
        STLTagSurfaceData const run = {0, 0, facets - first, 96 + 50 * first};
        geometry::Mesh const mesh =
            (creator.*privateMember(support::RunMesh()))(run, file.stream, file.format);
        QVERIFY(mesh.normals.isEmpty());
        auto const vertices = (creator.*privateMember(support::Vertices()))(
            file.stream, file.format, 3 * run.numberOfTriangles, run.streamOffset);
        auto const indices =
            (creator.*privateMember(support::Strips()))(run.numberOfTriangles, 4 * run.numberOfTriangles);
        geometry::Mesh expected(data::Conversions::toVector(vertices.get(), 3 * run.numberOfTriangles),
                                data::Conversions::toVector(indices.get(), 4 * run.numberOfTriangles));
        (creator.*privateMember(support::Clean()))(expected, never);
        QCOMPARE(bytesOf(mesh), bytesOf(expected));
    }
}

void tst_STLSteps::everyCut()
{
    constexpr int facets = 4;
    QByteArray const whole = Maker(5).file(facets);
    for (qsizetype size = 96; size <= whole.size(); ++size) {
        // A facet is there from the first byte of its vertices on.
        int const present = static_cast<int>((size - 96 + 49) / 50);
        Input const input = inputOf(whole.first(size), facets);
        QCOMPARE(surfaceOf(input), steps(input, present));
    }
}

void tst_STLSteps::anotherByteOrder()
{
    Input input = inputOf(Maker(6).file(30), 30);
    QByteArray const little = surfaceOf(input);
    input.order = QDataStream::BigEndian;
    QCOMPARE(surfaceOf(input), steps(input, 30));
    QVERIFY(surfaceOf(input) != little);
}

void tst_STLSteps::claimsMoreThanThereIs()
{
    Input input = inputOf(Maker(7).file(30), 30);
    QByteArray const expected = steps(input, 30);
    for (int const claimed : {31, 1000, 40'000'000}) {
        input.format.numberOfTriangles = claimed;
        QCOMPARE(surfaceOf(input), expected);
    }
    input.format.numberOfTriangles = -1;
    QCOMPARE(surfaceOf(input), steps(input, 0));
}

void tst_STLSteps::cancelled()
{
    Input const input = inputOf(Maker(8).file(30), 30);
    QCOMPARE(surfaceOf(input, always), steps(input, 30, always));
}

// The lists of a result have no room for the facets that were dropped or the vertices that were merged.
void tst_STLSteps::nothingIsHeldTwice()
{
    STLSurfaceCreator creator(nullptr, false);
    support::Stream file(Maker(9).file(3000), formatOf(3000));
    creator.read(file.stream, file.format, never);
    geometry::Mesh const& mesh = creator.getSTLSurfaceData().first()->getMesh();
    QVERIFY(mesh.getNumVertices() > 0 && mesh.getNumVertices() <= 216);
    QVERIFY(mesh.vertices.capacity() <= 2 * mesh.vertices.size());
    QVERIFY(mesh.indices.capacity() <= 2 * mesh.indices.size());
}

QTEST_APPLESS_MAIN(tst_STLSteps)
#include "tst_STLSteps.moc"
