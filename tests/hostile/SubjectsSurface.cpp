#include "hostile/Attempt.h"
#include "hostile/QuickFolder.h"
#include "hostile/Seeds.h"
#include "hostile/SubjectParts.h"
#include "obj/OBJReader.h"
#include "ply/PLYReader.h"
#include "support/ObjFiles.h"

#include <QFile>
#include <QFileInfo>

#include <memory>

using namespace Qt::StringLiterals;

namespace hostile {

namespace {

using Policy = SurfaceReader::TextureSupport;

struct PlyOptions
{
    PLYReader::ReadMode mode = PLYReader::MeshMode;
    Policy policy = Policy::VertexColorsOptional;
    bool hasFaceColors = false;
    QImage texture = {};
};

Outcome inspectPly(PLYReader const& reader, bool success)
{
    Inspection inspection;
    inspection.reader(reader.getMesh()).image(reader.getTexture());
    geometry::PointCloud const& cloud = reader.getPointCloud();
    inspection.list(cloud.positions).list(cloud.normals).list(cloud.colors());
    for (QColor const& color : reader.getFaceColors())
        inspection.number(color.isValid() ? color.rgba() : -1);
    if (reader.getMaterial())
        inspection.material(*reader.getMaterial());
    return inspection.outcome(success ? 1 : 0);
}

template <typename Read>
Outcome readPly(PlyOptions const& options, Read const& read)
{
    PLYReader reader(options.mode);
    reader.setTextureSupport(options.policy);
    reader.activeFaceColorMode(options.hasFaceColors);
    reader.setTextureOverride(options.texture);
    return attempt([&] { return read(reader); }, [&](bool success) { return inspectPly(reader, success); });
}

Subject ply(QByteArray const& name, QByteArray const& seed, PlyOptions const& options)
{
    Subject subject{name, "ply", seed};
    subject.equivalent = [](QByteArray const& bytes) { return bytes; };
    subject.fromBytes = [=](QByteArray const& bytes, std::atomic<bool> const& cancel) {
        return readPly(options, [&](PLYReader& reader) { return reader.read(bytes, cancel); });
    };
    subject.fromDevice = [=](QIODevice& device, std::atomic<bool> const& cancel) {
        return readPly(options, [&](PLYReader& reader) { return reader.read(&device, cancel); });
    };
    subject.fromFile = [=](QString const& path, std::atomic<bool> const& cancel) {
        return readPly(options, [&](PLYReader& reader) {
            reader.setFileName(path);
            return reader.read(cancel);
        });
    };
    return subject;
}

template <typename Read>
Outcome readObj(Policy policy, QString const& fileName, Read const& read)
{
    OBJReader reader;
    reader.setTextureSupport(policy);
    reader.setFileName(fileName);
    return attempt([&] { return read(reader); },
                   [&](OBJReader::Error error) {
                       Inspection inspection;
                       inspection.objReader(reader.getMesh());
                       // After a failure the texture may be that of the file.
                       if (error == OBJReader::NoError)
                           inspection.image(reader.getTexture());
                       return inspection.outcome(error);
                   });
}

Subject obj(QByteArray const& name, QByteArray const& seed, Policy policy, QString const& fileName)
{
    Subject subject{name, "obj", seed};
    subject.isText = true;
    subject.fromBytes = [=](QByteArray const& bytes, std::atomic<bool> const& cancel) {
        return readObj(policy, fileName, [&](OBJReader& reader) { return reader.read(bytes, cancel); });
    };
    subject.fromDevice = [=](QIODevice& device, std::atomic<bool> const& cancel) {
        return readObj(policy, fileName, [&](OBJReader& reader) { return reader.read(&device, cancel); });
    };
    subject.fromFile = [=](QString const& path, std::atomic<bool> const& cancel) {
        return readObj(policy, path, [&](OBJReader& reader) {
            reader.read(cancel);
            return reader.getError();
        });
    };
    return subject;
}

// Everything that the textured OBJ file needs.
struct ObjFiles : QuickFolder
{
    ObjFiles()
    {
        write(u"seeds.mtl"_s, seeds::mtl());
        write(u"a.png"_s, support::placeImage(8, 4));
        write(u"b.png"_s, support::placeImage(4, 4));
        write(u"seeds.obj"_s, seeds::objTextured());
    }
};

QByteArray contentOf(QString const& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// A library or an image that an OBJ file in the same folder names.
Subject besideObj(QByteArray const& name, QString const& fileName, Policy policy)
{
    auto const folder = std::make_shared<ObjFiles>();
    QByteArray const seed = contentOf(folder->path(fileName));
    Subject subject{name, QFileInfo(fileName).suffix().toLatin1(), seed};
    subject.fromBytes = [=](QByteArray const& bytes, std::atomic<bool> const& cancel) {
        folder->write(fileName, bytes);
        return readObj(policy, folder->path(u"seeds.obj"_s),
                       [&](OBJReader& reader) { return reader.read(seeds::objTextured(), cancel); });
    };
    return subject;
}

} // namespace

Subject plyFor()
{
    return ply("ply", {}, {});
}

Subject objFor(Policy policy, QString const& path)
{
    return obj("obj", {}, policy, path);
}

Subject objWithLibrary()
{
    auto const folder = std::make_shared<ObjFiles>();
    folder->write(u"large.png"_s, support::plainImage(largeImageSide, largeImageSide, Qt::red));
    folder->write(u"cut.png"_s, contentOf(folder->path(u"large.png"_s)).chopped(1000));
    folder->write(u"other.mtl"_s, "newmtl a\nmap_Kd large.png\n");
    Subject subject{"obj-with-library", "obj", {}};
    subject.isText = true;
    subject.fromBytes = [folder](QByteArray const& bytes, std::atomic<bool> const& cancel) {
        folder->write(u"seeds.mtl"_s, bytes);
        return readObj(Policy::TextureOptional, folder->path(u"seeds.obj"_s),
                       [&](OBJReader& reader) { return reader.read(bytes, cancel); });
    };
    return subject;
}

void addPly(std::vector<Subject>& list)
{
    list.push_back(ply("ply-mesh", seeds::plyFull(), {}));
    list.push_back(ply("ply-mesh-big-endian", seeds::plyFull(true), {}));
    list.push_back(ply("ply-cloud", seeds::plyFull(), {PLYReader::PointCloudMode}));
    PlyOptions const textured{PLYReader::MeshMode, Policy::TextureRequired, true, support::placeImage(4, 4)};
    list.push_back(ply("ply-textured", seeds::plyTextured(), textured));
    PlyOptions const colored{PLYReader::MeshMode, Policy::VertexColorsOptional, true,
                             support::placeImage(4, 4)};
    list.push_back(ply("ply-colored", seeds::plyTextured(), colored));
}

void addObj(std::vector<Subject>& list)
{
    static ObjFiles const folder;
    QString const fileName = folder.path(u"seeds.obj"_s);
    list.push_back(obj("obj-plain", seeds::obj(), Policy::VertexColorsOptional, {}));
    list.push_back(obj("obj-textured", seeds::objTextured(), Policy::TextureRequired, fileName));
    list.push_back(obj("obj-colored", seeds::objTextured(), Policy::VertexColorsRequired, fileName));
    Subject mtl = besideObj("mtl", u"seeds.mtl"_s, Policy::TextureRequired);
    mtl.isText = true;
    list.push_back(mtl);
    list.push_back(besideObj("image", u"a.png"_s, Policy::VertexColorsRequired));
}

} // namespace hostile
