#include "inhouse/data/Mesh.h"
#include "support/Meshes.h"

#include <QTest>

#include <memory>
#include <type_traits>
#include <utility>

namespace {

using geometry::Mesh;

QList<QVector3D> const vertices = {{0, 0, 0}, {1, 0.5f, -0.0f}, {0, 1, 1e30f}};
QList<int> const indices = {0, 1, 2, -1};
QList<QVector3D> const normals = {{0, 0, 1}, {0, 1, 0}, {1, 0, 0}};
QList<unsigned int> const colors = {0xFF0000FF, 0x80123456, 0};
QList<QVector2D> const textureCoordinates = {{0, 0}, {0.5f, 1}, {-2, 7}};

Mesh full()
{
    Mesh mesh(vertices, indices, normals, colors);
    mesh.textureCoordinates = textureCoordinates;
    return mesh;
}

/// Opens the protected operations.
class Probe : public Mesh
{
public:
    using Mesh::empty;
    using Mesh::Mesh;
    using Mesh::print;
};

class NeverEmpty : public Mesh
{
protected:
    bool empty() const override { return false; }
};

} // namespace

class tst_Mesh : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isEmptyWhenMade();
    void constructors();
    void accessors();
    void isNullAsksForVertices_data();
    void isNullAsksForVertices();
    void isNullAsksTheVirtualFunction();
    void copiesAreIndependent();
    void copiesShare();
    void moves();
    void prints();
    void isPolymorphic();
};

void tst_Mesh::isEmptyWhenMade()
{
    Mesh const mesh;
    QVERIFY(mesh.isNull());
    QVERIFY(support::sameBits(mesh, Mesh({}, {})));
    QCOMPARE(mesh.getNumVertices(), 0);
    QCOMPARE(mesh.getNumIndices(), 0);
}

void tst_Mesh::constructors()
{
    Mesh const bare(vertices, indices);
    QCOMPARE(bare.vertices, vertices);
    QCOMPARE(bare.indices, indices);
    QVERIFY(bare.normals.isEmpty() && bare.colors.isEmpty() && bare.textureCoordinates.isEmpty());

    Mesh const withNormals(vertices, indices, normals);
    QCOMPARE(withNormals.vertices, vertices);
    QCOMPARE(withNormals.indices, indices);
    QCOMPARE(withNormals.normals, normals);
    QVERIFY(withNormals.colors.isEmpty() && withNormals.textureCoordinates.isEmpty());

    Mesh const colored(vertices, indices, normals, colors);
    QCOMPARE(colored.vertices, vertices);
    QCOMPARE(colored.indices, indices);
    QCOMPARE(colored.normals, normals);
    QCOMPARE(colored.colors, colors);
    QVERIFY(colored.textureCoordinates.isEmpty());

    Mesh const textured(vertices, indices, normals, textureCoordinates);
    QCOMPARE(textured.vertices, vertices);
    QCOMPARE(textured.indices, indices);
    QCOMPARE(textured.normals, normals);
    QVERIFY(textured.colors.isEmpty());
    QCOMPARE(textured.textureCoordinates, textureCoordinates);
}

void tst_Mesh::accessors()
{
    Mesh const mesh = full();
    QCOMPARE(mesh.getNumVertices(), 3);
    QCOMPARE(mesh.getNumIndices(), 4);
    float const* coordinates = mesh.getVertices();
    for (int i = 0; i < 3; ++i)
        for (int axis = 0; axis < 3; ++axis)
            QCOMPARE(coordinates[3 * i + axis], vertices[i][axis]);
    for (int i = 0; i < 4; ++i)
        QCOMPARE(mesh.getIndices()[i], indices[i]);
}

void tst_Mesh::isNullAsksForVertices_data()
{
    QTest::addColumn<Mesh>("mesh");
    QTest::addColumn<bool>("isNull");

    QTest::newRow("one vertex") << Mesh({{0, 0, 0}}, {}) << false;
    QTest::newRow("full") << full() << false;
    QTest::newRow("nothing") << Mesh() << true;
    QTest::newRow("indices only") << Mesh({}, indices) << true;
    QTest::newRow("all but vertices") << Mesh({}, indices, normals, colors) << true;
}

void tst_Mesh::isNullAsksForVertices()
{
    QFETCH(Mesh, mesh);
    QTEST(mesh.isNull(), "isNull");
    QTEST(static_cast<geometry::PointSet const&>(mesh).isNull(), "isNull");
}

void tst_Mesh::isNullAsksTheVirtualFunction()
{
    QVERIFY(!NeverEmpty().isNull());
    QVERIFY(Probe().empty());
    QVERIFY(!Probe(vertices, indices).empty());
}

void tst_Mesh::copiesAreIndependent()
{
    Mesh const original = full();
    Mesh copy = original;
    QVERIFY(support::sameBits(copy, original));
    copy.vertices[0] = {9, 9, 9};
    copy.indices.clear();
    copy.colors[1] = 7;
    QVERIFY(support::sameBits(original, full()));
    copy = original;
    QVERIFY(support::sameBits(copy, full()));
}

void tst_Mesh::copiesShare()
{
    Mesh const original = full();
    Mesh const copy = original;
    QCOMPARE(copy.getVertices(), original.getVertices());
    QCOMPARE(copy.getIndices(), original.getIndices());
}

void tst_Mesh::moves()
{
    Mesh source = full();
    Mesh target(std::move(source));
    QVERIFY(support::sameBits(target, full()));
    Mesh assigned;
    assigned = std::move(target);
    QVERIFY(support::sameBits(assigned, full()));
}

void tst_Mesh::prints()
{
    QString text;
    QDebug(&text).noquote() << full();
    QCOMPARE(text.trimmed(),
             QStringLiteral("Mesh(vertices 3, normals 3, indices 4, colors 3, textureCoordinates 3)"));

    // The caller's own settings of the stream hold on afterwards.
    QString pair;
    QDebug(&pair).nospace() << Mesh() << 1 << 2;
    QCOMPARE(pair,
             QStringLiteral("Mesh(vertices 0, normals 0, indices 0, colors 0, textureCoordinates 0)12"));
}

void tst_Mesh::isPolymorphic()
{
    static_assert(std::has_virtual_destructor_v<geometry::PointSet>);
    static_assert(std::is_base_of_v<geometry::PointSet, Mesh>);
    static_assert(std::is_nothrow_move_constructible_v<Mesh>);
    QString text;
    std::unique_ptr<geometry::PointSet> const points = std::make_unique<Mesh>(full());
    QDebug(&text) << *points;
    QVERIFY(text.startsWith(u"Mesh(vertices 3"));
}

QTEST_APPLESS_MAIN(tst_Mesh)
#include "tst_Mesh.moc"
