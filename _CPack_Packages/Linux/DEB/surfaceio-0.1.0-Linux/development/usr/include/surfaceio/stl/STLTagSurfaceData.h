#pragma once

/// A run of consecutive facets of a binary STL file that share a tag.
struct STLTagSurfaceData
{
    /// Second attribute byte of the facets, 0 to 255.
    int tag;
    /// First attribute byte of the facets, -128 to 127.
    int subTag;
    /// Number of facets in the run.
    int numberOfTriangles;
    /// Byte offset of the first vertex of the first facet.
    int streamOffset;
};
