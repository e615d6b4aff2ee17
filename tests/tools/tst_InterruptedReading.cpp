#include "Interrupt.h"
#include "StlFiles.h"
#include "preview/Loader.h"
#include "texture/SampleObj.h"
#include "texture/TexturedScan.h"
#include "volume/TetrahedralMesh.h"

#include <QTemporaryDir>
#include <QTest>

#include <csignal>

using namespace Qt::StringLiterals;
using namespace tool;

// Ctrl-C came before the reading begins: every reader stops at its first look at the flag. The flag stays for
// the rest of the process, so that this is a test of its own.
class tst_InterruptedReading : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(folder.isValid());
        QString const path = folder.filePath(u"scan.obj"_s);
        Console console;
        QCOMPARE(writeSampleObj(path, sample::makeDentalArch({500, 1}), 1, false, console), ExitCode::Ok);
        preview::Model model;
        QVERIFY(preview::load(path, model));
        TexturedScan scan;
        QCOMPARE(readTexturedScan(path, scan).code, ExitCode::Ok);
        Interrupt::install();
        deferral.emplace();
        QCOMPARE(std::raise(SIGINT), 0);
        QVERIFY(Interrupt::flag());
    }

    void preview()
    {
        preview::Model model;
        QVERIFY(!preview::load(folder.filePath(u"scan.obj"_s), model));
        QVERIFY(model.surfaces.empty());
    }

    void texturedScan()
    {
        TexturedScan scan;
        Problem const problem = readTexturedScan(folder.filePath(u"scan.obj"_s), scan);
        QCOMPARE(problem.code, ExitCode::Interrupted);
        QCOMPARE(problem.sentence, u"interrupted; nothing was written"_s);
        QVERIFY(scan.mesh.isNull());
    }

    void mesherFiles()
    {
        QByteArray const nodes = "$MeshFormat\n2.2 0 8\n$EndMeshFormat\n$Nodes\n1\nno number\n";
        QByteArray const points = "# vtk DataFile Version 2.0\n\nASCII\nDATASET UNSTRUCTURED_GRID\n"
                                  "POINTS 1 float\n0 no number\n";
        volume::TetrahedralMesh mesh;
        QCOMPARE(volume::readGmsh(nodes, mesh).code, ExitCode::Interrupted);
        QCOMPARE(volume::readVtk(points, mesh).code, ExitCode::Interrupted);
    }

private:
    QTemporaryDir folder;
    std::optional<Interrupt::Deferral> deferral;
};

QTEST_GUILESS_MAIN(tst_InterruptedReading)
#include "tst_InterruptedReading.moc"
