// Writes each surface of a tagged STL file to a file of its own.
//
//     example_tags SCAN.stl FOLDER
#include "framework/MeshWriter.h"
#include "stl/STLReader.h"
#include "stl/STLTagHandler.h"

#include <QDir>
#include <QFile>
#include <QTextStream>

#include <atomic>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

// The reader hands its surfaces over; from here on they delete themselves.
std::vector<std::unique_ptr<STLSurfaceData>> readSurfaces(QString const& path)
{
    std::atomic<bool> const cancel{false};
    UseAllTagsHandler const everyTag;
    STLReader reader(&everyTag, false, path);
    std::vector<std::unique_ptr<STLSurfaceData>> surfaces;
    if (reader.read(cancel)) {
        for (STLSurfaceData* const surface : reader.takeSTLSurfaceDataSets())
            surfaces.emplace_back(surface);
    }
    return surfaces;
}

bool writeSurfaces(std::vector<std::unique_ptr<STLSurfaceData>> const& surfaces, QDir const& folder,
                   QTextStream& log)
{
    qsizetype triangles = 0;
    for (auto const& surface : surfaces) {
        QString const name = u"tag-%1-%2.ply"_s.arg(surface->getTag()).arg(surface->getSubTag());
        if (!MeshWriter::write(folder.filePath(name), surface->getMesh()))
            return false;
        qsizetype const count = surface->getMesh().indices.size() / 4;
        log << "tag " << surface->getTag() << ": " << count << " triangles\n";
        triangles += count;
    }
    log << triangles << " triangles in " << surfaces.size() << " files\n";
    return !surfaces.empty();
}

} // namespace

int main(int argc, char** argv)
{
    QTextStream log(stdout);
    if (argc != 3) {
        log << "usage: example_tags SCAN.stl FOLDER\n";
        return 2;
    }
    QDir const folder(QFile::decodeName(argv[2]));
    if (!folder.mkpath(u"."_s))
        return 1;
    return writeSurfaces(readSurfaces(QFile::decodeName(argv[1])), folder, log) ? 0 : 1;
}
