#pragma once

/// Where the facets lie in a binary STL stream. Offsets and sizes in bytes.
struct STLDataFormat
{
    /// First vertex of the first facet: 80-byte header, 4-byte count, 12-byte facet normal.
    int firstVertexOffset;
    /// Length of a well-formed file with `numberOfTriangles` facets, as 84 + 50 * count gives it in 32 bits.
    int dataSize;
    /// Number of facet records.
    int numberOfTriangles;
    /// Vertex data in one record: 3 vertices of 3 floats.
    int vertexBlockSize;
    /// One facet record.
    int recordSize;
};
