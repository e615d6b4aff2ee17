#include "support/Meshes.h"

namespace support {

bool sameBits(geometry::Mesh const& a, geometry::Mesh const& b)
{
    return bytesOf(a.vertices) == bytesOf(b.vertices) && bytesOf(a.normals) == bytesOf(b.normals) &&
           a.indices == b.indices && a.colors == b.colors &&
           bytesOf(a.textureCoordinates) == bytesOf(b.textureCoordinates);
}

geometry::Mesh cube()
{
    QList<QVector3D> const vertices = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0},
                                       {0, 0, 1}, {1, 0, 1}, {1, 1, 1}, {0, 1, 1}};
    QList<int> const indices = {0, 2, 1, -1, 0, 3, 2, -1, 4, 5, 6, -1, 4, 6, 7, -1, 0, 1, 5, -1, 0, 5, 4, -1,
                                1, 2, 6, -1, 1, 6, 5, -1, 2, 3, 7, -1, 2, 7, 6, -1, 3, 0, 4, -1, 3, 4, 7, -1};
    return {vertices, indices};
}

float randomFloat(std::mt19937& random, float range)
{
    constexpr float unit = 1.0f / 8388608.0f;
    auto const mantissa = static_cast<float>(random() >> 8) * unit;
    return (mantissa - 1.0f) * range;
}

geometry::Mesh randomMesh(std::mt19937& random, int vertices, int triangles)
{
    geometry::Mesh mesh;
    for (int i = 0; i < vertices; ++i) {
        float const x = randomFloat(random, 100.0f);
        float const y = randomFloat(random, 100.0f);
        mesh.vertices << QVector3D(x, y, randomFloat(random, 100.0f));
    }
    auto const corner = [&] { return static_cast<int>(random() % static_cast<unsigned>(vertices)); };
    for (int i = 0; i < triangles && vertices > 0; ++i) {
        int const a = corner();
        int const b = corner();
        mesh.indices << a << b << corner() << -1;
    }
    return mesh;
}

} // namespace support
