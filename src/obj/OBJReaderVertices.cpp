#include "obj/OBJCornerMap.h"
#include "obj/OBJReader.h"

#include <algorithm>

namespace {

constexpr int noIndex = -1;
constexpr int entriesPerFace = 4; // a, b, c, -1

template <typename Value>
bool isInside(int index, QList<Value> const& list)
{
    return index >= 0 && index < list.size();
}

template <typename Value>
bool isNoneOrInside(int index, QList<Value> const& list)
{
    return index == noIndex || isInside(index, list);
}

template <typename Value>
bool isEmptyOrPerPosition(QList<Value> const& list, QList<QVector3D> const& positions)
{
    return list.isEmpty() || list.size() == positions.size();
}

bool arePositionsInside(QList<int> const& indices, QList<QVector3D> const& positions)
{
    for (qsizetype i = 0; i < indices.size(); ++i)
        if (i % entriesPerFace != 3 && !isInside(indices.at(i), positions))
            return false;
    return true;
}

// Faces to the ordinal of their material in name order. A face without one has ordinal 0, too; the table of a
// file without materials is empty.
std::vector<int> makeMaterialTable(OBJReader::MaterialUsage const& usage, qsizetype faceCount)
{
    if (usage.empty())
        return {};
    std::vector<int> table(static_cast<std::size_t>(faceCount), noIndex);
    int ordinal = 0;
    for (auto const& [name, faces] : usage) {
        for (unsigned int const face : faces)
            if (face < table.size() && table[face] == noIndex)
                table[face] = ordinal;
        ++ordinal;
    }
    std::replace(table.begin(), table.end(), noIndex, 0);
    return table;
}

/// The lists of a mesh, with one entry for each vertex as far as its corner names one.
struct Vertices
{
    QList<QVector3D>& positions;
    QList<QVector3D>& normals;
    QList<QVector2D>& textureCoordinates;

    bool contain(OBJReader::VertexIndices const& corner) const
    {
        return isInside(corner.vertex, positions) && isNoneOrInside(corner.normal, normals) &&
               isNoneOrInside(corner.uv, textureCoordinates);
    }

    void reserve(qsizetype count)
    {
        positions.reserve(count);
        normals.reserve(count);
        textureCoordinates.reserve(count);
    }

    void append(OBJReader::VertexIndices const& corner, Vertices const& source)
    {
        positions.append(source.positions.at(corner.vertex));
        if (corner.normal != noIndex)
            normals.append(source.normals.at(corner.normal));
        if (corner.uv != noIndex)
            textureCoordinates.append(source.textureCoordinates.at(corner.uv));
    }
};

} // namespace

// Files that are written per vertex: whatever the faces say of normals and texture coordinates, the i-th of
// each belongs to the i-th position.
bool OBJReader::areListsPerPosition(QList<QVector3D> const& positions, QList<QVector3D> const& normals,
                                    QList<QVector2D> const& textureCoordinates)
{
    return isEmptyOrPerPosition(normals, positions) && isEmptyOrPerPosition(textureCoordinates, positions);
}

int OBJReader::getNewIndexForCombination(int vertex, int normal, int uv, int material,
                                         OBJCornerMap const& map)
{
    return map.find({vertex, normal, uv, material});
}

OBJReader::Error OBJReader::removeIndexedNormalsAndUvsByDuplicatingVertices(
    QList<QVector3D>& positions, QList<QVector3D>& normals, QList<QVector2D>& textureCoordinates,
    QList<int>& positionIndices, QList<int> const& normalIndices, QList<int> const& textureIndices,
    MaterialUsage const& usage)
{
    if (areListsPerPosition(positions, normals, textureCoordinates)) {
        if (!arePositionsInside(positionIndices, positions))
            error = InvalidVertexId;
        return error;
    }
    QList<QVector3D> newPositions;
    QList<QVector3D> newNormals;
    QList<QVector2D> newTextureCoordinates;
    Vertices const source{positions, normals, textureCoordinates};
    Vertices target{newPositions, newNormals, newTextureCoordinates};
    target.reserve(std::max({positions.size(), normals.size(), textureCoordinates.size()}));

    std::vector<int> const materialOfFace = makeMaterialTable(usage, positionIndices.size() / entriesPerFace);
    OBJCornerMap map(positions.size());
    // The new indices take the places of the old ones, which nobody looks at again.
    int* const indices = positionIndices.data();
    qsizetype const count = positionIndices.size();
    for (qsizetype i = 0; i < count; ++i) {
        if (i % entriesPerFace == 3)
            continue;
        int const material =
            materialOfFace.empty() ? 0 : materialOfFace[static_cast<std::size_t>(i / entriesPerFace)];
        VertexIndices const corner{indices[i], normalIndices.at(i), textureIndices.at(i), material};
        if (!source.contain(corner))
            return error = InvalidVertexId;
        int index = getNewIndexForCombination(corner.vertex, corner.normal, corner.uv, corner.material, map);
        if (index == noIndex) {
            index = map.insert(corner);
            target.append(corner, source);
        }
        indices[i] = index;
    }
    positions = newPositions;
    normals = newNormals;
    textureCoordinates = newTextureCoordinates;
    return NoError;
}
