// Eight threads with readers and writers of their own, all formats at once: each gets what one thread alone
// gets.
#include "framework/MeshWriter.h"
#include "framework/XYZWriter.h"
#include "hostile/Messages.h"
#include "hostile/QuickFolder.h"
#include "hostile/Subjects.h"
#include "inhouse/data/ShapeNode.h"
#include "scene/AssociatedShapesXMLWriter.h"
#include "scene/ShapeNodeIOHelper.h"
#include "support/Meshes.h"
#include "support/VolumeMeshes.h"
#include "vmesh/FaceRows.h"
#include "vmesh/MTModelBoundaryConditionsWriter.h"
#include "vmesh/MTModelVMeshWriter.h"

#include <QCryptographicHash>
#include <QFile>
#include <QTest>

#include <array>
#include <thread>

using hostile::Outcome;
using hostile::Subject;

using namespace Qt::StringLiterals;

namespace {

std::atomic<bool> const never = false;

constexpr std::size_t threadCount = 8;
constexpr int rounds = 6;

// Two subjects write to one file of theirs.
bool isForThreads(Subject const& subject)
{
    return subject.suffix != "mtl" && subject.suffix != "png";
}

QByteArray hashOf(QString const& path)
{
    QFile file(path);
    QCryptographicHash hash(QCryptographicHash::Sha1);
    return file.open(QIODevice::ReadOnly) && hash.addData(&file) ? hash.result() : QByteArray();
}

// One file of each format, into a folder of the thread's own.
QByteArrayList writeAll(hostile::QuickFolder const& folder)
{
    geometry::Mesh const mesh = support::cube();
    QString const ply = folder.path(u"a.ply"_s);
    QString const stl = folder.path(u"a.stl"_s);
    QString const xyz = folder.path(u"a.xyz"_s);
    QString const record = folder.path(u"a.mesh"_s);
    QString const vmesh = folder.path(u"a.vmesh"_s);
    QString const conditions = folder.path(u"a.bc"_s);
    QString const tree = folder.path(u"a.tree"_s);
    std::array<float, 9> values = {1, 2, 3, 4, 5, 6, 7, 8, 9};
    std::array<int, 4> indices = {0, 1, 2, -1};
    MTModelVMesh volume = support::tetrahedralBox(2);
    auto* const shape = new geometry::Shape;
    shape->setMesh(mesh);
    geometry::ShapeNode root(u"root"_s, shape);
    AssociatedShapesXMLWriter document;
    document.add(u"a.ply"_s, u"1"_s, geometry::Material::metal());
    bool const success = MeshWriter::write(ply, mesh) && MeshWriter::write(stl, mesh) &&
                         XYZWriter::write(xyz, mesh.vertices) &&
                         MeshWriter::write(record, 3, values.data(), values.data(), 4, indices.data()) &&
                         deriveFaceRows(volume) && MTModelVMeshWriter(volume).write(vmesh) &&
                         MTModelBoundaryConditionsWriter({}).write(conditions) &&
                         ShapeNodeIOHelper::write(tree, &root);
    QByteArrayList hashes = {document.createXMLContent(), success ? "written" : "not written"};
    for (QString const& path : {ply, stl, xyz, record, vmesh, conditions, tree})
        hashes << hashOf(path);
    return hashes;
}

struct Work
{
    std::vector<Subject> subjects;
    std::vector<QString> paths;
    hostile::QuickFolder folder;
    std::atomic<std::size_t> waiting = 0;
};

// What one thread found, in the order of the subjects.
struct Findings
{
    std::vector<Outcome> outcomes;
    QByteArrayList written;

    friend bool operator==(Findings const&, Findings const&) = default;
};

Findings findingsOf(Work const& work)
{
    Findings findings;
    for (std::size_t i = 0; i < work.subjects.size(); ++i) {
        Subject const& subject = work.subjects[i];
        if (subject.fromBytes)
            findings.outcomes.push_back(subject.fromBytes(subject.seed, never));
        if (subject.fromFile)
            findings.outcomes.push_back(subject.fromFile(work.paths[i], never));
    }
    hostile::QuickFolder const own;
    findings.written = writeAll(own);
    return findings;
}

} // namespace

class tst_HostileThreads : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void allAtOnce();
};

void tst_HostileThreads::allAtOnce()
{
    hostile::Messages const messages;
    Work work;
    for (Subject const& subject : hostile::subjects()) {
        if (!isForThreads(subject))
            continue;
        work.paths.push_back(work.folder.write(
            QString::fromLatin1(subject.name) + u'.' + QString::fromLatin1(subject.suffix), subject.seed));
        work.subjects.push_back(subject);
    }
    Findings const expected = findingsOf(work);
    QCOMPARE(expected.written[1], QByteArray("written"));
    std::array<int, threadCount> same = {};
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < threadCount; ++i)
        threads.emplace_back([&, i] {
            for (++work.waiting; work.waiting < threadCount;)
                std::this_thread::yield();
            for (int round = 0; round < rounds; ++round)
                same[i] += findingsOf(work) == expected ? 1 : 0;
        });
    for (std::thread& thread : threads)
        thread.join();
    for (int const count : same)
        QCOMPARE(count, rounds);
}

QTEST_GUILESS_MAIN(tst_HostileThreads)
#include "tst_HostileThreads.moc"
