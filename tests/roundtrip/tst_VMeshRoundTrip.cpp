#include "support/VolumeMeshes.h"
#include "vmesh/FaceRows.h"
#include "vmesh/MTModelVMeshParser.h"
#include "vmesh/MTModelVMeshWriter.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTextStream>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

constexpr char gmshModel[] = R"(SetFactory("OpenCASCADE");
Box(1) = {0, 0, 0, 10, 20, 15};
Sphere(2) = {5, 10, 7.5, 4};
BooleanDifference{ Volume{1}; Delete; }{ Volume{2}; Delete; }
Mesh.CharacteristicLengthMax = 3;
)";

// The nodes and tetrahedra of a Gmsh file of version 2.2.
MTModelVMesh readGmsh(QString const& path)
{
    constexpr int tetrahedronType = 4;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QTextStream stream(&file);
    QList<float> points;
    QList<int> tetrahedra;
    QHash<int, int> numbers;
    while (!stream.atEnd()) {
        QString const section = stream.readLine();
        if (section != "$Nodes"_L1 && section != "$Elements"_L1)
            continue;
        for (int count = stream.readLine().toInt(); count > 0; --count) {
            QStringList const words = stream.readLine().split(u' ');
            if (section == "$Nodes"_L1) {
                numbers[words[0].toInt()] = static_cast<int>(numbers.size());
                for (int i = 1; i <= 3; ++i)
                    points << words[i].toFloat();
            } else if (words[1].toInt() == tetrahedronType) {
                for (qsizetype i = words.size() - 4; i < words.size(); ++i)
                    tetrahedra << numbers[words[i].toInt()];
            }
        }
    }
    return support::volumeMesh(points, tetrahedra);
}

QByteArray contentOf(QString const& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

QSet<QSet<int>> pointSetsOf(MTModelVMesh const& mesh)
{
    QSet<QSet<int>> sets;
    for (int t = 0; t < mesh.numTetrahedra; ++t) {
        int const* const p = mesh.tetrahedra.data() + 4 * t;
        sets << QSet<int>(p, p + 4);
    }
    return sets;
}

} // namespace

class tst_VMeshRoundTrip : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void meshes_data()
    {
        QTest::addColumn<MTModelVMesh>("mesh");
        QTest::newRow("box") << support::tetrahedralBox(4);
        QTest::newRow("ball") << support::tetrahedralBall(5);
    }

    void meshes()
    {
        QFETCH(MTModelVMesh, mesh);
        verifyRoundTrip(mesh);
    }

    // A mesh as a mesher makes it, of a box with a spherical hole.
    void gmsh()
    {
        QString const program = QStandardPaths::findExecutable(u"gmsh"_s);
        if (program.isEmpty())
            QSKIP("needs gmsh");
        QTemporaryDir const folder;
        QFile model(folder.filePath(u"model.geo"_s));
        QVERIFY(model.open(QIODevice::WriteOnly) && model.write(gmshModel) > 0);
        model.close();
        QProcess process;
        process.start(program, {u"-3"_s, u"-format"_s, u"msh22"_s, u"-v"_s, u"0"_s, u"-nt"_s, u"1"_s, u"-o"_s,
                                folder.filePath(u"model.msh"_s), model.fileName()});
        QVERIFY(process.waitForFinished(120000));
        QCOMPARE(process.exitCode(), 0);

        MTModelVMesh const mesh = readGmsh(folder.filePath(u"model.msh"_s));
        QVERIFY(mesh.numTetrahedra > 500);
        verifyRoundTrip(mesh);
    }

private:
    // Through the writer's own rows, the parser, the writer again and the parser again.
    void verifyRoundTrip(MTModelVMesh mesh)
    {
        QTemporaryDir const folder;
        QString const first = folder.filePath(u"first.vmesh"_s);
        QString const second = folder.filePath(u"second.vmesh"_s);
        QVERIFY(MTModelVMeshWriter(mesh).write(first));
        MTModelVMeshParser parser(first);
        QVERIFY(parser.read());
        MTModelVMesh result = parser.getVMesh();
        QCOMPARE(result.numPoints, mesh.numPoints);
        QCOMPARE(result.numTetrahedra, mesh.numTetrahedra);
        for (int i = 0; i < 3 * mesh.numPoints; ++i)
            QVERIFY(qAbs(result.points.data()[i] - mesh.points.data()[i]) < 1e-5f);
        QCOMPARE(pointSetsOf(result), pointSetsOf(mesh));
        QCOMPARE(2 * result.numFaces, 4 * result.numTetrahedra + result.numBoundFaces);

        QVERIFY(MTModelVMeshWriter(result).write(second));
        QCOMPARE(contentOf(second), contentOf(first));
        MTModelVMesh derived = mesh;
        QVERIFY(deriveFaceRows(derived));
        QVERIFY(MTModelVMeshWriter(derived).write(second));
        QCOMPARE(contentOf(second), contentOf(first));
    }
};

QTEST_GUILESS_MAIN(tst_VMeshRoundTrip)
#include "tst_VMeshRoundTrip.moc"
