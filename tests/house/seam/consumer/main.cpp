// Reads an STL file from memory through SurfaceIO and looks at whose mesh, cleaner and normals it met.
#include "framework/MeshWriter.h"
#include "ply/PLYReader.h"
#include "stl/STLReader.h"

#include <QByteArray>
#include <QDataStream>
#include <QIODevice>
#include <QList>
#include <QVector3D>

#include <atomic>
#include <cstdio>

static_assert(geometry::Mesh::isReplacement);

namespace {

/// One facet in the plane x = 0, twice. Its true normal is (1, 0, 0).
QByteArray twoEqualFacets()
{
    QByteArray bytes(80, ' ');
    QDataStream stream(&bytes, QIODevice::Append);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream.setFloatingPointPrecision(QDataStream::SinglePrecision);
    stream << quint32(2);
    for (int facet = 0; facet < 2; ++facet) {
        for (float const value : {1.f, 0.f, 0.f, 0.f, 0.f, 0.f, 0.f, 1.f, 0.f, 0.f, 0.f, 1.f})
            stream << value;
        stream << quint16(0);
    }
    return bytes;
}

bool check(bool condition, char const* what)
{
    if (!condition)
        std::fprintf(stderr, "failed: %s\n", what);
    return condition;
}

bool readsWithTheReplacement(bool sharpEdges, QVector3D const& expectedNormal)
{
    std::atomic<bool> const cancel{false};
    STLReader reader(nullptr, sharpEdges, {});
    return check(reader.read(twoEqualFacets(), cancel), "the file is read") &&
           check(reader.getMesh().vertices.size() == 6, "the other cleaner leaves all vertices") &&
           check(reader.getMesh().vertices[4] == QVector3D(0, 1, 0), "the vertices are those of the file") &&
           check(reader.getMesh().indices == QList<int>({0, 1, 2, -1, 3, 4, 5, -1}), "the indices fit") &&
           check(reader.getMesh().normals == QList<QVector3D>(6, expectedNormal),
                 "the other normals are set");
}

} // namespace

int main()
{
    bool const good = readsWithTheReplacement(false, {0, 0, 1}) && readsWithTheReplacement(true, {0, 1, 0});
    return good ? 0 : 1;
}
