#pragma once

#include "inhouse/data/Mesh.h"

#include <QByteArray>
#include <QMessageLogContext>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

/// What the fuzz targets share: the invariants that every mesh from a reader keeps.
namespace fuzz {

inline QByteArray bytesOf(std::uint8_t const* data, std::size_t size)
{
    return {reinterpret_cast<char const*>(data), static_cast<qsizetype>(size)};
}

/// Ends the process where libFuzzer sees it.
inline void require(bool condition)
{
    if (!condition)
        std::abort();
}

inline bool hasOneEach(qsizetype count, qsizetype vertices)
{
    return count == 0 || count == vertices;
}

/// Triangles as a, b, c, -1 with indices in range, and lists that are empty or as long as the vertices.
inline void requireSound(geometry::Mesh const& mesh)
{
    qsizetype const vertices = mesh.vertices.size();
    require(mesh.indices.size() % 4 == 0);
    for (qsizetype i = 0; i < mesh.indices.size(); ++i)
        require(i % 4 == 3 ? mesh.indices[i] == -1 : mesh.indices[i] >= 0 && mesh.indices[i] < vertices);
    require(hasOneEach(mesh.normals.size(), vertices));
    require(hasOneEach(mesh.colors.size(), vertices));
    require(hasOneEach(mesh.textureCoordinates.size(), vertices));
}

template <typename List>
bool sameBytes(List const& a, List const& b)
{
    return a.size() == b.size() && (a.isEmpty() || std::memcmp(a.constData(), b.constData(),
                                                               static_cast<std::size_t>(a.size()) *
                                                                   sizeof(typename List::value_type)) == 0);
}

inline void requireSame(geometry::Mesh const& a, geometry::Mesh const& b)
{
    require(sameBytes(a.vertices, b.vertices) && sameBytes(a.normals, b.normals) && a.indices == b.indices &&
            a.colors == b.colors && sameBytes(a.textureCoordinates, b.textureCoordinates));
}

/// Keeps the library's messages off the terminal while fuzzing.
inline void silence()
{
    static bool const done = [] {
        qInstallMessageHandler([](QtMsgType, QMessageLogContext const&, QString const&) {});
        return true;
    }();
    static_cast<void>(done);
}

} // namespace fuzz
