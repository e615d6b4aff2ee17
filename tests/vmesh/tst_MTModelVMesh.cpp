#include "support/VolumeMeshes.h"
#include "vmesh/MTModelBoundaryConditions.h"

#include <QtTest>

#include <type_traits>

static_assert(std::is_same_v<decltype(MTModelVMesh::points), QSharedPointer<float>>);
static_assert(std::is_same_v<decltype(MTModelVMesh::faces), QSharedPointer<qint32>>);
static_assert(std::is_same_v<decltype(MTModelVMesh::numPoints), qint32>);
static_assert(std::is_nothrow_move_constructible_v<MTModelVMesh> &&
              std::is_nothrow_move_assignable_v<MTModelVMesh>);
static_assert(std::is_same_v<decltype(MTModelBoundaryConditions::pointIndices), QSharedPointer<qint32>>);
static_assert(std::is_same_v<decltype(MTModelBoundaryConditions::values), QSharedPointer<float>>);
static_assert(std::is_same_v<decltype(MTModelBoundaryConditions::numBoundaryConditions), qint32>);

namespace {

MTModelVMesh fullMesh()
{
    MTModelVMesh mesh;
    mesh.numTetrahedra = 1;
    mesh.numFaces = 2;
    mesh.numBoundFaces = 3;
    mesh.numPoints = 4;
    mesh.points = support::sharedArray(QList<float>(12, 1.5f));
    mesh.faces = support::sharedArray(QList<qint32>(10, 2));
    mesh.tetrahedra = support::sharedArray(QList<qint32>(4, 3));
    mesh.triangles = support::sharedArray(QList<qint32>(8, 4));
    mesh.boundFaces = support::sharedArray(QList<qint32>(15, 5));
    return mesh;
}

bool sharesArrays(MTModelVMesh const& a, MTModelVMesh const& b)
{
    return a.points == b.points && a.faces == b.faces && a.tetrahedra == b.tetrahedra &&
           a.triangles == b.triangles && a.boundFaces == b.boundFaces;
}

bool hasNoArrays(MTModelVMesh const& mesh)
{
    return mesh.points.isNull() && mesh.faces.isNull() && mesh.tetrahedra.isNull() &&
           mesh.triangles.isNull() && mesh.boundFaces.isNull();
}

bool hasNoArrays(MTModelBoundaryConditions const& conditions)
{
    return conditions.pointIndices.isNull() && conditions.values.isNull();
}

MTModelBoundaryConditions fullConditions()
{
    return {1, support::sharedArray(QList<qint32>{7}), support::sharedArray(QList<float>{1, 2, 3})};
}

} // namespace

class tst_MTModelVMesh : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isEmptyAtFirst()
    {
        MTModelVMesh const mesh;
        QCOMPARE(mesh.numTetrahedra, 0);
        QCOMPARE(mesh.numFaces, 0);
        QCOMPARE(mesh.numBoundFaces, 0);
        QCOMPARE(mesh.numPoints, 0);
        QVERIFY(hasNoArrays(mesh));
    }

    void hasItsFieldsInOrder()
    {
        auto const [numTetrahedra, numFaces, numBoundFaces, numPoints, points, faces, tetrahedra, triangles,
                    boundFaces] = fullMesh();
        QCOMPARE(numTetrahedra, 1);
        QCOMPARE(numFaces, 2);
        QCOMPARE(numBoundFaces, 3);
        QCOMPARE(numPoints, 4);
        QCOMPARE(*points, 1.5f);
        QCOMPARE(*faces, 2);
        QCOMPARE(*tetrahedra, 3);
        QCOMPARE(*triangles, 4);
        QCOMPARE(*boundFaces, 5);
    }

    void copiesShareTheArrays()
    {
        MTModelVMesh const mesh = fullMesh();
        MTModelVMesh const copy(mesh);
        QVERIFY(sharesArrays(copy, mesh));
        QVERIFY(support::sameBits(copy, mesh));
        MTModelVMesh assigned;
        assigned = mesh;
        QVERIFY(sharesArrays(assigned, mesh));
        QVERIFY(support::sameBits(assigned, mesh));
    }

    void movesTakeTheArrays()
    {
        MTModelVMesh mesh = fullMesh();
        MTModelVMesh const copy = mesh;
        MTModelVMesh moved(std::move(mesh));
        // What a move leaves behind is what this test is about.
        QVERIFY(hasNoArrays(mesh)); // NOLINT(bugprone-use-after-move)
        QVERIFY(sharesArrays(moved, copy));
        MTModelVMesh assigned;
        assigned = std::move(moved);
        // As above.
        QVERIFY(hasNoArrays(moved)); // NOLINT(bugprone-use-after-move)
        QVERIFY(sharesArrays(assigned, copy));
        QVERIFY(support::sameBits(assigned, copy));
    }

    void arraysLiveAsLongAsACopy()
    {
        MTModelVMesh survivor;
        {
            MTModelVMesh const mesh = fullMesh();
            survivor = mesh;
        }
        QCOMPARE(support::valuesOf(survivor.points, 12), QList<float>(12, 1.5f));
        QCOMPARE(support::valuesOf(survivor.boundFaces, 15), QList<qint32>(15, 5));
    }

    void conditionsAreUnreadAtFirst()
    {
        MTModelBoundaryConditions const conditions;
        QCOMPARE(conditions.numBoundaryConditions, -1);
        QVERIFY(hasNoArrays(conditions));
    }

    void copiesOfConditionsShareTheArrays()
    {
        MTModelBoundaryConditions const conditions = fullConditions();
        MTModelBoundaryConditions const copy(conditions);
        MTModelBoundaryConditions assigned;
        assigned = conditions;
        for (MTModelBoundaryConditions const& other : {copy, assigned}) {
            QCOMPARE(other.numBoundaryConditions, 1);
            QCOMPARE(other.pointIndices, conditions.pointIndices);
            QCOMPARE(other.values, conditions.values);
        }
    }

    void movesOfConditionsTakeTheArrays()
    {
        MTModelBoundaryConditions conditions = fullConditions();
        MTModelBoundaryConditions const copy = conditions;
        MTModelBoundaryConditions moved(std::move(conditions));
        // What a move leaves behind is what this test is about.
        QVERIFY(hasNoArrays(conditions)); // NOLINT(bugprone-use-after-move)
        MTModelBoundaryConditions assigned;
        assigned = std::move(moved);
        // As above.
        QVERIFY(hasNoArrays(moved)); // NOLINT(bugprone-use-after-move)
        QCOMPARE(assigned.pointIndices, copy.pointIndices);
        QCOMPARE(assigned.values, copy.values);
        QCOMPARE(assigned.numBoundaryConditions, 1);
    }
};

QTEST_APPLESS_MAIN(tst_MTModelVMesh)
#include "tst_MTModelVMesh.moc"
