#include "table/Contender.h"

#include <assimp/Exporter.hpp>
#include <assimp/Importer.hpp>
#include <assimp/postprocess.h>
#include <assimp/scene.h>

#include <QFile>

#include <memory>

using table::Size;
using table::Work;

namespace {

QByteArray pathOf(QString const& folder, char const* name)
{
    return QFile::encodeName(folder + u'/' + QLatin1StringView(name));
}

std::optional<Size> sizeOf(aiScene const* scene)
{
    if (!scene)
        return {};
    Size size{};
    for (unsigned int i = 0; i < scene->mNumMeshes; ++i) {
        size.vertices += scene->mMeshes[i]->mNumVertices;
        size.facets += scene->mMeshes[i]->mNumFaces;
    }
    return size;
}

auto read(char const* name, unsigned int steps)
{
    return [name, steps](QString const& folder) -> Work {
        return [path = pathOf(folder, name), steps] {
            Assimp::Importer importer;
            return sizeOf(importer.ReadFile(path.constData(), steps));
        };
    };
}

auto write(char const* name, char const* format, char const* suffix)
{
    return [=](QString const& folder) -> Work {
        auto importer = std::make_shared<Assimp::Importer>();
        importer->ReadFile(pathOf(folder, name).constData(), aiProcess_JoinIdenticalVertices);
        return [=, count = 0]() mutable -> std::optional<Size> {
            QByteArray const path = pathOf(folder, "out.assimp") + QByteArray::number(count++) + suffix;
            Assimp::Exporter exporter;
            if (!importer->GetScene() ||
                exporter.Export(importer->GetScene(), format, path.constData()) != aiReturn_SUCCESS)
                return {};
            return sizeOf(importer->GetScene());
        };
    };
}

} // namespace

int main(int argc, char** argv)
{
    constexpr unsigned int merged = aiProcess_JoinIdenticalVertices;
    constexpr unsigned int smooth = merged | aiProcess_DropNormals | aiProcess_GenSmoothNormals;
    return table::run({{"ply-read", read("scan.ply", 0)},
                       {"ply-write", write("scan.ply", "plyb", ".ply")},
                       {"stl-read", read("scan.stl", smooth)},
                       {"stl-read-shuffled", read("shuffled.stl", smooth)},
                       {"stl-read-ascii", read("ascii.stl", 0), "merging, normals of vertices"},
                       {"stl-write", write("scan.ply", "stlb", ".stl")},
                       {"obj-read-positions", read("positions.obj", smooth)},
                       {"obj-read-split", read("split.obj", merged)}},
                      argc, argv);
}
