#pragma once

#include "obj/OBJReader.h"

#include <map>
#include <vector>

/// Corners of faces to the vertices that they became: a map from `VertexIndices` to the order of insertion.
///
/// Corners are chained by position. A mesh has a few corners for each position; a file made to have very many
/// at one position moves on to an ordered map, so that no file makes the search slow.
class OBJCornerMap
{
public:
    explicit OBJCornerMap(qsizetype positionCount);

    /// The ordinal under which `corner`, whose position must be in the range given, was inserted, or -1.
    int find(OBJReader::VertexIndices const& corner) const;
    /// Adds a corner that is not there yet; returns its ordinal.
    int insert(OBJReader::VertexIndices const& corner);

private:
    // A corner but for its position, which is that of its chain. There are as many as vertices: none is
    // larger than it has to be.
    struct Link
    {
        int normal;
        int uv;
        int material;
        int next; // -1 at the end

        bool isOf(OBJReader::VertexIndices const& corner) const
        {
            return normal == corner.normal && uv == corner.uv && material == corner.material;
        }
    };

    int lengthOf(int chain) const;

    std::vector<int> chains; // by position: the first link, or -1
    std::vector<Link> links; // by order of insertion
    std::map<OBJReader::VertexIndices, int> rest;
};
