#include "hostile/Subjects.h"

#include "framework/MeshReader.h"
#include "hostile/Attempt.h"
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
        return attempt([&] { return reader.read(bytes, cancel); },
                       [&](bool success) { return inspectStl(reader, success); });
    };
    subject.fromDevice = [=](QIODevice& device, std::atomic<bool> const& cancel) {
        STLReader reader(handler, sharpEdges, {});
        return attempt([&] { return reader.read(&device, cancel); },
                       [&](bool success) { return inspectStl(reader, success); });
    };
    subject.fromFile = [=](QString const& path, std::atomic<bool> const& cancel) {
        STLReader reader(handler, sharpEdges, path);
        return attempt([&] { return reader.read(cancel); },
                       [&](bool success) { return inspectStl(reader, success); });
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

// The outputs of the call, owned.
struct Record
{
    int vertexCount = -1;
    int indexCount = -1;
    std::unique_ptr<float[]> vertices;
    std::unique_ptr<float[]> normals;
    std::unique_ptr<int[]> indices;
    bool success = false;
};

Record takeRecord(QString const& path)
{
    Record record;
    float* vertices = nullptr;
    float* normals = nullptr;
    int* indices = nullptr;
    record.success =
        MeshReader::read(path, &record.vertexCount, &vertices, &normals, &record.indexCount, &indices);
    record.vertices.reset(vertices);
    record.normals.reset(normals);
    record.indices.reset(indices);
    return record;
}

Outcome inspectRecord(Record const& record)
{
    bool const isSet = record.vertexCount >= 0 && record.indexCount >= 0 && record.vertices &&
                       record.normals && record.indices;
    return Inspection()
        .require(record.success == isSet, "outputs")
        .array(record.vertices.get(), qint64(3) * record.vertexCount)
        .array(record.normals.get(), qint64(3) * record.vertexCount)
        .array(record.indices.get(), record.indexCount)
        .outcome(record.success ? 1 : 0);
}

Outcome readRecord(QString const& path, std::atomic<bool> const&)
{
    return attempt([&] { return takeRecord(path); }, inspectRecord);
}

Outcome readFacade(QString const& path, std::atomic<bool> const&)
{
    return attempt([&] { return MeshReader::read(path); },
                   [&](utility::Optional<geometry::Mesh> const& mesh) {
                       geometry::Mesh const none;
                       Inspection inspection;
                       if (path.endsWith(u".obj"_s))
                           inspection.objReader(mesh.value_or(none));
                       else
                           inspection.reader(mesh.value_or(none));
                       return inspection.outcome(mesh ? 1 : 0);
                   });
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

Subject subjectFor(QByteArray const& format, QString const& path)
{
    if (format == "stl")
        return stl("stl", {}, nullptr, false);
    if (format == "ply")
        return plyFor();
    return objFor(format == "obj-textured" ? SurfaceReader::TextureOptional
                                           : SurfaceReader::VertexColorsOptional,
                  path);
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
