#include "preview/Loader.h"

#include "convert/MeshFile.h"
#include "images/LargeImages.h"
#include "inhouse/data/Unstrip.h"
#include "obj/OBJReader.h"
#include "ply/PLYReader.h"
#include "stl/STLReader.h"
#include "stl/STLTagHandler.h"

#include <QFile>
#include <QFileInfo>

#include <memory>

using namespace Qt::StringLiterals;

namespace tool::preview {

namespace {

bool loadStl(QString const& path, Model& model)
{
    UseAllTagsHandler const handler;
    STLReader reader(&handler, false, path);
    if (!reader.read(Interrupt::flag()))
        return false;
    for (STLSurfaceData* const data : reader.takeSTLSurfaceDataSets()) {
        std::unique_ptr<STLSurfaceData> const owner(data);
        model.surfaces.push_back({owner->getMesh(), {}, owner->getTag(), owner->getSubTag()});
    }
    if (model.surfaces.empty()) // ASCII
        model.surfaces.push_back({reader.getMesh(), {}});
    return true;
}

// `read` has the reader read the file, from a device: only that can be stopped.
template <typename Read>
bool loadWith(SurfaceReader& reader, QString const& path, Model& model, Read const& read)
{
    QFile file(path);
    reader.setFileName(path);
    reader.setTextureSupport(SurfaceReader::TextureOptional);
    if (!readNamingImages(path, [&] { return read(file); }))
        return false;
    model.surfaces.push_back({geometry::unstrip(reader.getMesh()), reader.getTexture()});
    return true;
}

bool loadPly(QString const& path, Model& model)
{
    PLYReader reader(PLYReader::MeshMode);
    return loadWith(reader, path, model,
                    [&reader](QFile& file) { return reader.read(&file, Interrupt::flag()); });
}

bool loadObj(QString const& path, Model& model)
{
    OBJReader reader;
    return loadWith(reader, path, model, [&reader](QFile& file) {
        return reader.read(&file, Interrupt::flag()) == OBJReader::NoError;
    });
}

bool loadAnyMesh(QString const& path, Model& model)
{
    MeshSource const* const source = meshSourceFor(path);
    MeshFile file;
    if (source == nullptr || !source->read(path, file, {}))
        return false;
    model.surfaces.push_back({geometry::unstrip(file.mesh), {}});
    return true;
}

struct Row
{
    QLatin1StringView suffix;
    bool (*load)(QString const& path, Model& model);
};

// Formats of which more can be shown than a bare mesh.
constexpr std::array rows = {
    Row{"stl"_L1, loadStl},
    Row{"ply"_L1, loadPly},
    Row{"obj"_L1, loadObj},
};

} // namespace

bool load(QString const& path, Model& model)
{
    QString const suffix = QFileInfo(path).suffix().toLower();
    for (Row const& row : rows) {
        if (row.suffix == suffix)
            return row.load(path, model);
    }
    return loadAnyMesh(path, model);
}

} // namespace tool::preview
