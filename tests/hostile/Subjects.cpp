#include "hostile/Subjects.h"

#include "framework/MeshReader.h"
#include "hostile/QuickFolder.h"
#include "hostile/Seeds.h"
#include "hostile/SubjectParts.h"
#include "stl/STLReader.h"
#include "stl/STLTagHandler.h"

#include <QBuffer>

#include <memory>

using namespace Qt::StringLiterals;

namespace hostile {

namespace {

Outcome inspectStl(STLReader& reader, bool success)
{
    Inspection inspection;
    inspection.reader(reader.getMesh());
    for (STLSurfaceData* const surface : reader.takeSTLSurfaceDataSets()) {
        std::unique_ptr<STLSurfaceData> const owner(surface);
        inspection.reader(surface->getMesh()).number(surface->getTag()).number(surface->getSubTag());
    }
    return inspection.outcome(success ? 1 : 0);
}

Subject stl(QByteArray const& name, QByteArray const& seed, STLTagHandler const* handler, bool sharpEdges)
{
    Subject subject{name, "stl", seed};
    subject.isText = seed.startsWith("solid");
    subject.fromBytes = [=](QByteArray const& bytes, std::atomic<bool> const& cancel) {
        STLReader reader(handler, sharpEdges, {});
        bool const success = reader.read(bytes, cancel);
        return inspectStl(reader, success);
    };
    subject.fromDevice = [=](QIODevice& device, std::atomic<bool> const& cancel) {
        STLReader reader(handler, sharpEdges, {});
        bool const success = reader.read(&device, cancel);
        return inspectStl(reader, success);
    };
    subject.fromFile = [=](QString const& path, std::atomic<bool> const& cancel) {
        STLReader reader(handler, sharpEdges, path);
        bool const success = reader.read(cancel);
        return inspectStl(reader, success);
    };
    return subject;
}

void addStl(std::vector<Subject>& list)
{
    static InclusiveTagHandler const inclusive({1, 3});
    static ExclusiveTagHandler const exclusive({1});
    static UseAllTagsHandler const all;
    list.push_back(stl("stl-ascii", seeds::stlAscii(), nullptr, false));
    list.push_back(stl("stl-binary", seeds::stlBinary(), nullptr, true));
    list.push_back(stl("stl-binary-inclusive", seeds::stlBinary(), &inclusive, false));
    list.push_back(stl("stl-binary-exclusive", seeds::stlBinary(), &exclusive, false));
    list.push_back(stl("stl-binary-all", seeds::stlBinary(), &all, false));
}

Outcome readRecord(QString const& path, std::atomic<bool> const&)
{
    int vertexCount = -1;
    int indexCount = -1;
    float* vertices = nullptr;
    float* normals = nullptr;
    int* indices = nullptr;
    bool const success = MeshReader::read(path, &vertexCount, &vertices, &normals, &indexCount, &indices);
    std::unique_ptr<float[]> const ownVertices(vertices);
    std::unique_ptr<float[]> const ownNormals(normals);
    std::unique_ptr<int[]> const ownIndices(indices);
    return Inspection()
        .require(success == (vertexCount >= 0 && indexCount >= 0 && vertices && normals && indices),
                 "outputs")
        .array(vertices, qint64(3) * vertexCount)
        .array(normals, qint64(3) * vertexCount)
        .array(indices, indexCount)
        .outcome(success ? 1 : 0);
}

Outcome readFacade(QString const& path, std::atomic<bool> const&)
{
    geometry::Mesh const none;
    auto const mesh = MeshReader::read(path);
    Inspection inspection;
    if (path.endsWith(u".obj"_s))
        inspection.objReader(mesh.value_or(none));
    else
        inspection.reader(mesh.value_or(none));
    return inspection.outcome(mesh ? 1 : 0);
}

void addFacade(std::vector<Subject>& list)
{
    Subject record{"record", "mesh", seeds::meshRecord()};
    record.fromFile = readRecord;
    list.push_back(record);
    for (auto const& [suffix, seed] : {std::pair("stl", seeds::stlBinary()),
                                       std::pair("ply", seeds::plyFull()), std::pair("obj", seeds::obj())}) {
        Subject subject{QByteArray("facade-") + suffix, suffix, seed};
        subject.isText = subject.suffix == "obj";
        subject.fromFile = readFacade;
        list.push_back(subject);
    }
}

std::vector<Subject> makeSubjects()
{
    std::vector<Subject> list;
    addStl(list);
    addPly(list);
    addObj(list);
    addVolumes(list);
    addScene(list);
    addFacade(list);
    return list;
}

} // namespace

std::vector<Subject> const& subjects()
{
    static std::vector<Subject> const list = makeSubjects();
    return list;
}

std::vector<Subject> subjectsOf(QByteArrayView format)
{
    std::vector<Subject> chosen;
    for (Subject const& subject : subjects())
        if (subject.name.startsWith(format))
            chosen.push_back(subject);
    return chosen;
}

Outcome read(Subject const& subject, QByteArray const& bytes)
{
    std::atomic<bool> const never = false;
    if (subject.fromBytes)
        return subject.fromBytes(bytes, never);
    if (!subject.fromDevice)
        return subject.fromFile(fileOf(subject, bytes), never);
    QBuffer buffer;
    buffer.setData(bytes);
    return subject.fromDevice(buffer, never);
}

QString fileOf(Subject const& subject, QByteArray const& bytes)
{
    static QuickFolder const folder;
    return folder.write(u"hostile."_s + QString::fromLatin1(subject.suffix), bytes);
}

} // namespace hostile
