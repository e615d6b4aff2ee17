#include "differential/peers/CNumbers.h"
#include "differential/peers/Peers.h"

#include <assimp/Exporter.hpp>
#include <assimp/Importer.hpp>
#include <assimp/postprocess.h>
#include <assimp/scene.h>

#include <algorithm>
#include <memory>
#include <string_view>

namespace peers {

namespace {

QVector3D vectorOf(aiVector3D const& v)
{
    return {v.x, v.y, v.z};
}

unsigned int packed(aiColor4D const& color)
{
    // It passes on whatever stands in the file: NaN has no byte, and neither has what lies outside.
    auto const byte = [](float value) {
        return value >= 0.0f && value <= 1.0f ? static_cast<unsigned int>(value * 255.0f + 0.5f) : 0u;
    };
    return byte(color.r) | byte(color.g) << 8 | byte(color.b) << 16 | byte(color.a) << 24;
}

void append(aiMesh const& from, PeerMesh& to)
{
    auto const first = static_cast<int>(to.vertices.size());
    for (unsigned int i = 0; i < from.mNumVertices; ++i) {
        to.vertices << vectorOf(from.mVertices[i]);
        if (from.HasNormals())
            to.normals << vectorOf(from.mNormals[i]);
        if (from.HasVertexColors(0))
            to.colors << packed(from.mColors[0][i]);
        if (from.HasTextureCoords(0))
            to.textureCoordinates << QVector2D(from.mTextureCoords[0][i].x, from.mTextureCoords[0][i].y);
    }
    auto const index = [&](unsigned int i) { return first + static_cast<int>(i); };
    for (unsigned int i = 0; i < from.mNumFaces; ++i) {
        aiFace const& face = from.mFaces[i];
        if (face.mNumIndices == 3)
            to.triangles << std::array{index(face.mIndices[0]), index(face.mIndices[1]),
                                       index(face.mIndices[2])};
    }
}

aiColor4D colorOf(unsigned int color)
{
    auto const channel = [&](int shift) { return static_cast<float>(color >> shift & 0xFFu) / 255.0f; };
    return {channel(0), channel(8), channel(16), channel(24)};
}

template <typename List, typename Convert>
auto* arrayOf(List const& list, Convert convert)
{
    using Element = decltype(convert(list.first()));
    auto* const array = new Element[static_cast<std::size_t>(list.size())];
    std::transform(list.begin(), list.end(), array, convert);
    return array;
}

// The arrays belong to the mesh, which deletes them.
void addVertexData(geometry::Mesh const& from, aiMesh& to)
{
    auto const vector = [](QVector3D const& v) { return aiVector3D(v.x(), v.y(), v.z()); };
    to.mNumVertices = static_cast<unsigned int>(from.vertices.size());
    to.mVertices = arrayOf(from.vertices, vector);
    if (!from.normals.isEmpty())
        to.mNormals = arrayOf(from.normals, vector);
    if (!from.colors.isEmpty())
        to.mColors[0] = arrayOf(from.colors, colorOf);
    if (from.textureCoordinates.isEmpty())
        return;
    to.mNumUVComponents[0] = 2;
    to.mTextureCoords[0] =
        arrayOf(from.textureCoordinates, [](QVector2D const& uv) { return aiVector3D(uv.x(), uv.y(), 0); });
}

std::unique_ptr<aiMaterial> materialFor(std::string_view format)
{
    auto material = std::make_unique<aiMaterial>();
    if (format != "obj")
        return material;
    aiString const name("DefaultMaterial");
    aiString const texture("texture.png");
    material->AddProperty(&name, AI_MATKEY_NAME);
    material->AddProperty(&texture, AI_MATKEY_TEXTURE_DIFFUSE(0));
    return material;
}

std::unique_ptr<aiMesh> meshOf(geometry::Mesh const& from)
{
    auto mesh = std::make_unique<aiMesh>();
    mesh->mPrimitiveTypes = aiPrimitiveType_TRIANGLE;
    addVertexData(from, *mesh);
    mesh->mNumFaces = static_cast<unsigned int>(from.indices.size() / 4);
    mesh->mFaces = new aiFace[mesh->mNumFaces];
    for (unsigned int i = 0; i < mesh->mNumFaces; ++i) {
        mesh->mFaces[i].mNumIndices = 3;
        mesh->mFaces[i].mIndices = new unsigned int[3];
        for (unsigned int corner = 0; corner < 3; ++corner)
            mesh->mFaces[i].mIndices[corner] =
                static_cast<unsigned int>(from.indices[qsizetype(4) * i + corner]);
    }
    return mesh;
}

} // namespace

bool hasAssimp()
{
    return true;
}

std::optional<PeerMesh> loadWithAssimp(QString const& path)
{
    CNumbers const numbers;
    Assimp::Importer importer;
    aiScene const* const scene = importer.ReadFile(path.toStdString(), aiProcess_Triangulate);
    if (!scene)
        return {};
    PeerMesh result;
    for (unsigned int i = 0; i < scene->mNumMeshes; ++i)
        append(*scene->mMeshes[i], result);
    return result;
}

bool saveWithAssimp(geometry::Mesh const& mesh, QString const& path, char const* format)
{
    CNumbers const numbers;
    aiScene scene;
    scene.mNumMaterials = 1;
    scene.mMaterials = new aiMaterial* [1] { materialFor(format).release() };
    scene.mNumMeshes = 1;
    scene.mMeshes = new aiMesh* [1] { meshOf(mesh).release() };
    scene.mRootNode = new aiNode;
    scene.mRootNode->mNumMeshes = 1;
    scene.mRootNode->mMeshes = new unsigned int[1]{0};
    Assimp::Exporter exporter;
    return exporter.Export(&scene, format, path.toStdString()) == aiReturn_SUCCESS;
}

} // namespace peers
