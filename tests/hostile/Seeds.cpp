#include "hostile/Seeds.h"

#include "inhouse/data/ShapeNodeIO.h"
#include "support/Meshes.h"
#include "support/PlyFiles.h"
#include "support/ShapeTreeBytes.h"
#include "support/StlFiles.h"
#include "support/VolumeMeshes.h"
#include "vmesh/FaceRows.h"

#include <QtEndian>

#include <bit>

namespace hostile::seeds {

namespace {

using namespace support;

geometry::Mesh triangle()
{
    geometry::Mesh mesh({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {0, 1, 2, -1});
    mesh.normals = {{0, 0, 1}, {0, 0, 1}, {0, 0, 1}};
    mesh.colors = {0xFF0000FF, 0xFF00FF00, 0xFFFF0000};
    mesh.textureCoordinates = {{0, 0}, {1, 0}, {0, 1}};
    return mesh;
}

ShapeTreeBytes& withShape(ShapeTreeBytes& bytes)
{
    return bytes.mesh(triangle()).material(1);
}

} // namespace

QByteArray stlAscii()
{
    return asciiStl({loneFacet(1), loneFacet(2)});
}

QByteArray stlBinary()
{
    return binaryStl({loneFacet(1, 0, 1), loneFacet(2, 5, 2), loneFacet(3, 0, 1), loneFacet(4, 255, 3)});
}

QByteArray plyFull(bool bigEndian)
{
    PLYBody body(bigEndian);
    for (int i = 0; i < 4; ++i)
        body.f32({float(i & 1), float(i >> 1), 0.5f * float(i), 0, 0, 1}).u8({10 * i, 20 * i, 255});
    body.triangle(0, 1, 2).triangle(2, 1, 3);
    for (int i = 0; i < 4; ++i)
        body.u8({1, 2, 3}).f32(0.25f);
    body.f32({0.5f, 0, 0.75f}).u8(1);
    QByteArray header = plyHeader(4, plyPosition + plyNormal + plyColor, 2, plyMaterial);
    if (bigEndian)
        header.replace("little", "big");
    return header + body.bytes;
}

QByteArray plyTextured()
{
    QByteArrayList const lines =
        plyStart + QByteArrayList{"comment TextureFile seeds.png", plyCount("vertex", 3)} + plyPosition +
        QByteArrayList{"property float s", "property float t", plyCount("face", 1)} + plyIndices + plyColor +
        QByteArrayList{"end_header"};
    PLYBody body;
    body.f32({0, 0, 0, 0, 0}).f32({1, 0, 0, 1, 0}).f32({0, 1, 0, 0, 1});
    return plyLines(lines) + body.triangle(0, 1, 2).u8({7, 8, 9}).bytes;
}

QByteArray obj()
{
    return "# a square\no square\nv 0 0 0\nv 1 0 0\nv 1 1 0.5\nv 0 1 0\nvt 0 0\nvt 1 0\nvt 1 1\nvn 0 0 1\n"
           "vn 0 1 0\nf 1/1/1 2/2/1 3/3/1\nf 1/1/2 3/3/2 4/2/2\n";
}

QByteArray objTextured()
{
    return "mtllib seeds.mtl\nv 0 0 0\nv 1 0 0\nv 1 1 0.5\nv 0 1 0\nvt 0 0\nvt 1 0\nvt 1 1\nusemtl a\n"
           "f 1/1 2/2 3/3\nusemtl b\nf 1/1 3/3 4/2\nusemtl c\nf 2/2 3/3 4/1\n";
}

QByteArray mtl()
{
    return "newmtl a\nKd 1 0 0\nmap_Kd a.png\nnewmtl b\nmap_Kd b.png\nnewmtl c\nKd 0.25 0.5 0.75\n";
}

QByteArray vmesh()
{
    MTModelVMesh mesh = volumeMesh({0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1, 1, 1, 1}, {0, 1, 2, 3, 1, 2, 3, 4});
    return deriveFaceRows(mesh) ? vmeshText(mesh) : QByteArray();
}

QByteArray conditions()
{
    return "FemBoundaryConditions\n{\nDefaultMeshFilename\n3\n7 0.5 1e-07 1.23457e+08\n0 0 0 -1\n1 2 3 4\n}";
}

QByteArray shapeTree()
{
    ShapeTreeBytes bytes;
    bytes.node(QStringLiteral("root"), 2).text(QStringLiteral("leaf")).u8(1);
    withShape(bytes).u32(0).node(QStringLiteral("last"), 0);
    return shapeTreeHeader(2, 0) + bytes.bytes;
}

QByteArray shape()
{
    ShapeTreeBytes bytes;
    return shapeTreeHeader(2, 0) + withShape(bytes).bytes;
}

QByteArray associatedShapes()
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<root version=\"1\">\n<shapes>\n"
           "<shape materialId=\"1\">a.ply</shape>\n<shape "
           "materialId=\"2\">a.ply</shape>\n</shapes>\n<materials>\n"
           "<material id=\"1\" ambientColor=\"#102030\" shininess=\"0.5\" detailNoise=\"true\"/>\n"
           "<material id=\"2\" diffuseColor=\"#ff0000\" transparency=\"0.25\"/>\n</materials>\n</root>\n";
}

QByteArray meshRecord()
{
    QByteArray bytes;
    auto const put = [&bytes](auto value) {
        auto const stored = qToBigEndian(value);
        bytes.append(reinterpret_cast<char const*>(&stored), sizeof(stored));
    };
    put(qint32(3));
    put(qint32(4));
    for (int i = 0; i < 2 * 3 * 3; ++i)
        put(std::bit_cast<quint64>(0.5 * i));
    for (qint32 const index : {0, 1, 2, -1})
        put(index);
    return bytes;
}

} // namespace hostile::seeds
