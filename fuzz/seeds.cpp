// Writes the seeds of those fuzz targets whose input is more than a file of the format: fuzz_seeds CORPUS.
#include "support/PlyFiles.h"
#include "support/VolumeMeshes.h"
#include "vmesh/FaceRows.h"

#include <QDir>
#include <QFile>
#include <QTextStream>

namespace {

using support::PLYBody;
using support::plyCount;
using support::plyLines;

class Corpus
{
public:
    explicit Corpus(QString const& folder_)
        : folder(folder_)
    {}

    void add(QString const& target, QString const& name, QByteArray const& bytes)
    {
        QDir const place(folder.filePath(target));
        QFile file(place.filePath(name));
        isGood = isGood && folder.mkpath(target) && file.open(QIODevice::WriteOnly) &&
                 file.write(bytes) == bytes.size();
    }
    bool isComplete() const { return isGood; }

private:
    QDir folder;
    bool isGood = true;
};

QByteArray bytes(std::initializer_list<int> values)
{
    QByteArray result;
    for (int const value : values)
        result.append(static_cast<char>(value));
    return result;
}

using namespace Qt::StringLiterals;

// Mode, face colours, texture policy, whole file or lines in a header; then the text.
void addPlyHeaders(Corpus& corpus)
{
    QByteArrayList const triangle = QByteArrayList{plyCount("vertex", 3)} + support::plyPosition +
                                    QByteArrayList{plyCount("face", 1)} + support::plyIndices;
    auto const add = [&](QString const& name, QByteArray const& choices, QByteArray const& text) {
        corpus.add(u"PlyHeader"_s, name + u".bin"_s, choices + text);
    };
    add(u"whole"_s, bytes({1, 0, 0, 1}), support::plyTriangle());
    add(u"lines"_s, bytes({1, 0, 0, 0}), plyLines(triangle));
    add(u"crlf"_s, bytes({1, 0, 0, 0}), plyLines(triangle, "\r\n"));
    add(u"points"_s, bytes({0, 0, 0, 0}),
        plyLines(QByteArrayList{plyCount("vertex", 3)} + support::plyPosition));
    add(u"texture"_s, bytes({1, 0, 3, 0}),
        plyLines(QByteArrayList{"comment TextureFile a  b.png", plyCount("vertex", 3)} +
                 support::plyPosition +
                 QByteArrayList{"property float texture_u", "property float texture_v", plyCount("face", 1)} +
                 support::plyIndices));
    add(u"material"_s, bytes({1, 0, 0, 0}), plyLines(triangle + support::plyMaterial));
    add(u"face-colors"_s, bytes({1, 1, 0, 0}), plyLines(triangle + support::plyColor));
    add(u"latin-1-comment"_s, bytes({1, 0, 0, 0}), plyLines(QByteArrayList{"comment Z\xE4hne"} + triangle));
    add(u"huge-counts"_s, bytes({1, 0, 0, 0}),
        plyLines({plyCount("vertex", 2147483647), "property char x", plyCount("face", 2147483647)}));
}

// Three decisions on the reader, then those of the header in the order in which the target takes them.
void addPlyBodies(Corpus& corpus)
{
    PLYBody triangle;
    triangle.f32({0, 0, 0, 1, 0, 0, 0, 1, 0}).triangle(0, 1, 2);
    PLYBody bigEndian(true);
    bigEndian.f32({0, 0, 0, 1, 0, 0, 0, 1, 0}).triangle(0, 1, 2);
    PLYBody colored;
    for (int i = 0; i < 3; ++i)
        colored.f32({float(i), float(i * i), 0, 0, 0, 1}).u8({10, 20, 30, 40}).f32({0.25f, 0.75f});
    colored.triangle(2, 1, 0).u8({50, 60, 70});
    auto const head = [](int isBig, int skipsMore) {
        return bytes({isBig, 0, 3, 0, 0, skipsMore, skipsMore, skipsMore, skipsMore, skipsMore, 1, 2, 3,
                      skipsMore, skipsMore, 0});
    };
    corpus.add(u"PlyBody"_s, u"little.bin"_s, bytes({1, 0, 0}) + head(0, 1) + triangle.bytes);
    corpus.add(u"PlyBody"_s, u"big.bin"_s, bytes({1, 0, 0}) + head(1, 1) + bigEndian.bytes);
    corpus.add(u"PlyBody"_s, u"points.bin"_s, bytes({0, 0, 0}) + head(0, 1) + triangle.bytes);
    corpus.add(u"PlyBody"_s, u"cut.bin"_s, bytes({1, 0, 0}) + head(0, 1) + triangle.bytes.chopped(1));
    corpus.add(u"PlyBody"_s, u"rich.bin"_s,
               bytes({1, 1, 2, 0, 1, 3, 0, 0, 0, 0, 0, 2, 0, 2, 0, 0, 1, 1, 2, 3, 0, 2, 1, 0}) +
                   colored.bytes);
    corpus.add(u"PlyBody"_s, u"rows-of-nothing.bin"_s,
               bytes({1, 0, 0, 0, 0, 8, 0, 6, 1, 1, 1, 1, 1, 8, 6, 6, 1, 1, 0}) + QByteArray(64, '\1'));
}

void addObjs(Corpus& corpus)
{
    QByteArray const corners = "v 0 0 0\nv 1 0 0\nv 0 1 0\nv 1 1 0\n";
    QByteArray const uvs = "vt 0 0\nvt 1 0\nvt 0.5 1\n";
    QByteArray const library = "newmtl red\nKd 1 0 0\nnewmtl one\nmap_Kd a.png\nnewmtl two\nmap_Kd b c.bmp\n";
    QByteArray const faces = "usemtl one\nf 1/1 2/2 3/3\nusemtl two\nf 2/2 3/1 4/3\n";
    auto const add = [&](QString const& name, int policy, QByteArray const& text) {
        corpus.add(u"Obj"_s, name + u".bin"_s, bytes({policy}) + text);
    };
    add(u"plain"_s, 0, corners + "f 1 2 3\nf 2 4 3\n");
    add(u"normals"_s, 0, corners + "vn 0 0 1\nvn 1 0 0\nf 1//1 2//1 3//1\nf 2//2 4//1 3//1\n");
    add(u"atlas"_s, 3, "mtllib m.mtl\n" + corners + uvs + faces + "\n%%\n" + library);
    add(u"atlas-colors"_s, 1, "mtllib m.mtl\n" + corners + uvs + faces + "\n%%\n" + library);
    add(u"mixed"_s, 2, "mtllib m.mtl\n" + corners + uvs + faces + "usemtl red\nf 1 2 4\n\n%%\n" + library);
    add(u"undefined"_s, 2, "mtllib m.mtl\n" + corners + uvs + "usemtl none\nf 1/1 2/2 3/3\n\n%%\n" + library);
    add(u"broken-image"_s, 3,
        "mtllib m.mtl\n" + corners + uvs + faces + "\n%%\nnewmtl one\nmap_Kd broken.png\n");
    add(u"quad"_s, 0, corners + "f 1 2 3 4\n");
    add(u"out-of-range"_s, 0, corners + "f 1 2 9\n");
    add(u"latin-1"_s, 0, "o Z\xE4hne\r\n" + corners + "f 1 2 3\r\n");
}

// The greatest side (an odd first byte: 8192, else one more than the second byte), a count, and the sides.
void addAtlases(Corpus& corpus)
{
    corpus.add(u"AtlasPacker"_s, u"none.bin"_s, bytes({1, 0}));
    corpus.add(u"AtlasPacker"_s, u"powers.bin"_s, bytes({1, 4, 64, 64, 32, 64, 64, 16, 8, 8}));
    corpus.add(u"AtlasPacker"_s, u"too-large.bin"_s, bytes({0, 9, 3, 8, 8, 8, 3, 20, 2}));
    corpus.add(u"AtlasPacker"_s, u"no-area.bin"_s, bytes({1, 3, 0, 5, 5, 0, 3, 4}));
    corpus.add(u"AtlasPacker"_s, u"whole.bin"_s, bytes({1, 2, 160, 0, 160, 0, 1, 1}));
    QByteArray many = bytes({1, 48});
    for (int i = 0; i < 48; ++i)
        many += bytes({1 + i % 13, 1 + i * 7 % 29});
    corpus.add(u"AtlasPacker"_s, u"many.bin"_s, many);
}

void addVolumes(Corpus& corpus)
{
    MTModelVMesh mesh = support::tetrahedralBox(1);
    QByteArray const text = deriveFaceRows(mesh) ? support::vmeshText(mesh) : QByteArray();
    corpus.add(u"VMesh"_s, u"box.vmesh"_s, text);
    corpus.add(u"VMesh"_s, u"crlf.vmesh"_s, QByteArray(text).replace("\n", "\r\n"));
    corpus.add(u"VMesh"_s, u"short.vmesh"_s, "# Labeled\n1 1 1 1\n0.5 1 2\n0 -1 0 1 2\n0 -1 0 1 2\nmore");
    corpus.add(u"VMesh"_s, u"nothing.vmesh"_s, "# Labeled\n0 0 0 0");
    corpus.add(u"VMesh"_s, u"claims.vmesh"_s, "# Labeled\n0 2147483647 2147483647 2147483647\n");
    corpus.add(u"VMesh"_s, u"not-ascii.vmesh"_s, "# Labeled \xC3\xA4\n0 0 0 1\n1 2\xC2\xA0 3\n");
    QByteArray const start = "FemBoundaryConditions\n{\nDefaultMeshFilename\n";
    corpus.add(u"Conditions"_s, u"two.txt"_s, start + "2\n7 0.5 1e-07 1.23457e+08\n0 0 0 -1\n}");
    corpus.add(u"Conditions"_s, u"none.txt"_s, start + "0\n}");
    corpus.add(u"Conditions"_s, u"claims.txt"_s, start + "2147483647\n0 0 0 0\n");
    corpus.add(u"Conditions"_s, u"blanks.txt"_s, start + "1\n0  0 0\n");
    corpus.add(u"Conditions"_s, u"two-lines.txt"_s, "a\nb");
}

void addNumbers(Corpus& corpus)
{
    corpus.add(u"Numbers"_s, u"plain.txt"_s, "-12.5e-3");
    corpus.add(u"Numbers"_s, u"many-digits.txt"_s, "0.1234567890123456789012345");
    corpus.add(u"Numbers"_s, u"halfway.txt"_s, "16777217.0000000000000000000000001");
    corpus.add(u"Numbers"_s, u"overflow.txt"_s, "3.40282357e38");
    corpus.add(u"Numbers"_s, u"underflow.txt"_s, "1e-46");
    corpus.add(u"Numbers"_s, u"words.txt"_s, " +inf");
    corpus.add(u"Numbers"_s, u"integers.txt"_s, "0 -1 999999999 3 4\r\n");
    corpus.add(u"Numbers"_s, u"reals.txt"_s, "1 2.5 -3e4\n");
    corpus.add(u"Numbers"_s, u"beyond-int.txt"_s, "2147483648");
    corpus.add(u"Numbers"_s, u"utf-16.txt"_s, QByteArray("1\0.\0005\0", 6));
}

// Of each text the number of units, whether they take two bytes, and the units; a flag; a date.
void addMetadata(Corpus& corpus)
{
    auto const text = [](QByteArray const& latin1) { return bytes({int(latin1.size()), 0}) + latin1; };
    QByteArray const wide = bytes({2, 1, 0x3D, 0xD8, 0x37, 0xDD});
    corpus.add(u"ScanMetadata"_s, u"usual.bin"_s,
               text("Scanner 3") + text("SN 0001") + text("1.2.3") + bytes({1, 6, 1, 0x7A, 0, 0, 0, 0, 0}));
    corpus.add(u"ScanMetadata"_s, u"wide.bin"_s, wide + wide + wide + bytes({0, 0, 1}));
    corpus.add(u"ScanMetadata"_s, u"long.bin"_s,
               text(QByteArray(31, 'a')) + text(QByteArray(31, '\xE4')) + text(QByteArray(31, ' ')) +
                   bytes({0}));
    corpus.add(u"ScanMetadata"_s, u"solid.bin"_s, text("solid") + text("solid") + text("solid") + bytes({1}));
}

// Which mesher, then its text.
void addMeshers(Corpus& corpus)
{
    QByteArray const gmsh = bytes({0});
    QByteArray const nodes =
        "$MeshFormat\n2.2 0 8\n$EndMeshFormat\n$Nodes\n5\n10 0 0 0\n7 1 0 0\n8 0 1 0\n99 0 0 1\n"
        "3 5 5 5\n$EndNodes\n";
    corpus.add(u"Meshers"_s, u"gmsh.bin"_s,
               gmsh + nodes +
                   "$PhysicalNames\n1\n3 1 \"bone\"\n$EndPhysicalNames\n$Elements\n3\n1 4 2 1 1 10 7 8 99\n"
                   "2 2 2 1 1 10 7 8\n3 11 1 1 10 7 8 99 3 3 3 3 3 3\n$EndElements\n");
    corpus.add(u"Meshers"_s, u"gmsh-claims.bin"_s, gmsh + nodes + "$Elements\n9223372036854775807\n");
    QByteArray const vtk = bytes({1});
    QByteArray const points = "# vtk DataFile Version 2.0\ntitle\nASCII\nDATASET UNSTRUCTURED_GRID\n"
                              "POINTS 5 float\n0 0 0 1 0 0\n0 1 0\n0 0 1 5 5 5\n";
    QByteArray const types = "CELL_TYPES 2\n5\n10\n";
    corpus.add(u"Meshers"_s, u"vtk-2.bin"_s, vtk + points + "CELLS 2 9\n3 0 1 2\n4 0 1 2 3\n" + types);
    corpus.add(u"Meshers"_s, u"vtk-5.bin"_s,
               vtk + points +
                   "METADATA\nINFORMATION 0\n\nCELLS 3 7\nOFFSETS vtktypeint64\n0 3 7\n"
                   "CONNECTIVITY vtktypeint64\n0 1 2\n0 1 2 3\n" +
                   types + "POINT_DATA 5\nSCALARS a float 1\n");
    corpus.add(u"Meshers"_s, u"vtk-claims.bin"_s, vtk + points + "CELLS 2147483647 2147483647\n4 0 1 2 3\n");
}

void addMeshArrays(Corpus& corpus)
{
    PLYBody record(true);
    record.i32(1).i32(4);
    for (int i = 0; i < 6; ++i)
        record.f64(i / 4.0);
    for (int const index : {0, 0, 0, -1})
        record.i32(index);
    corpus.add(u"MeshArray"_s, u"one.bin"_s, record.bytes);
    corpus.add(u"MeshArray"_s, u"cut.bin"_s, record.bytes.chopped(1));
    corpus.add(u"MeshArray"_s, u"more.bin"_s, record.bytes + "more");
    corpus.add(u"MeshArray"_s, u"negative.bin"_s, PLYBody(true).i32(-1).i32(0).bytes);
    corpus.add(u"MeshArray"_s, u"claims.bin"_s, PLYBody(true).i32(2147483647).i32(2147483647).bytes);
    corpus.add(u"MeshArray"_s, u"empty.bin"_s, PLYBody(true).i32(0).i32(0).bytes);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2)
        return 2;
    Corpus corpus(QFile::decodeName(argv[1]));
    addPlyHeaders(corpus);
    addPlyBodies(corpus);
    addObjs(corpus);
    addAtlases(corpus);
    addVolumes(corpus);
    addNumbers(corpus);
    addMetadata(corpus);
    addMeshers(corpus);
    addMeshArrays(corpus);
    QTextStream(stderr) << (corpus.isComplete() ? "done\n" : "could not write every seed\n");
    return corpus.isComplete() ? 0 : 1;
}
