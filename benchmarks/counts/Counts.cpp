#include "framework/MeshReader.h"
#include "framework/MeshWriter.h"
#include "framework/XYZWriter.h"
#include "obj/OBJReader.h"
#include "ply/PLYReader.h"
#include "ply/PLYWriter.h"
#include "scene/ShapeNodeIOHelper.h"
#include "stl/STLReader.h"
#include "stl/STLTagHandler.h"
#include "stl/STLWriter.h"
#include "vmesh/FaceRows.h"
#include "vmesh/MTModelBoundaryConditionsParser.h"
#include "vmesh/MTModelBoundaryConditionsWriter.h"
#include "vmesh/MTModelVMeshParser.h"
#include "vmesh/MTModelVMeshWriter.h"

#include <valgrind/callgrind.h>

#include <QFile>
#include <QVersionNumber>

#include <atomic>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <memory>

// Every reader and writer over two small inputs, to be run by counts.py under callgrind, which collects only
// between the marks: "ROW ELEMENTS" names each part. Usage: counts FOLDER

namespace {

std::atomic<bool> const never = false;

// What is counted, and over how many elements.
struct Row
{
    char const* name;
    std::function<bool()> work;
};

// An undulating square of 2 * columns * rows triangles, with normals and colours.
geometry::Mesh squareOf(int columns, int rows)
{
    geometry::Mesh mesh;
    for (int y = 0; y <= rows; ++y)
        for (int x = 0; x <= columns; ++x) {
            auto const bump = static_cast<float>((x * 7919 + y * 104729) % 997) / 4000.0f;
            mesh.vertices << QVector3D(static_cast<float>(x) * 0.31f, static_cast<float>(y) * 0.29f, bump);
            mesh.normals << QVector3D(bump, 0.5f - bump, 1.0f).normalized();
            mesh.colors << (0xff000000u | static_cast<unsigned int>(x * 131 + y * 31));
        }
    for (int y = 0; y < rows; ++y)
        for (int x = 0; x < columns; ++x) {
            int const a = y * (columns + 1) + x;
            int const b = a + columns + 1;
            mesh.indices << a << a + 1 << b << -1 << a + 1 << b + 1 << b << -1;
        }
    return mesh;
}

QByteArray number(float value)
{
    return QByteArray::number(static_cast<double>(value), 'f', 6);
}

QByteArray numbers(QVector3D const& vector)
{
    return ' ' + number(vector.x()) + ' ' + number(vector.y()) + ' ' + number(vector.z()) + '\n';
}

template <typename Value>
QSharedPointer<Value> arrayOf(qsizetype count)
{
    return QSharedPointer<Value>(new Value[static_cast<std::size_t>(count)](),
                                 std::default_delete<Value[]>());
}

class Input
{
public:
    Input(QString const& folder_, int rows)
        : folder(folder_ + u'/' + QString::number(rows) + u'.')
        , mesh(squareOf(100, rows))
        , facets(mesh.indices.size() / 4)
    {
        makeMeshes();
        makeTexts();
        makeVolume();
        makeConditions();
    }

    QList<Row> rows() const { return meshRows() + textRows() + otherRows(); }
    qsizetype elements() const { return facets; }

private:
    QString path(char const* name) const { return folder + QLatin1StringView(name); }
    // Each writer has a file of its own, which its counted run replaces.
    QString out(char const* suffix) const
    {
        return folder + QStringLiteral("out.") + QLatin1StringView(suffix);
    }

    void write(char const* name, QByteArray const& bytes) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write %s", qPrintable(file.fileName()));
    }

    void makeMeshes()
    {
        MeshWriter::write(path("mesh.ply"), mesh);
        MeshWriter::write(path("mesh.stl"), mesh);
        QFile stl(path("mesh.stl"));
        if (!stl.open(QIODevice::ReadOnly))
            qFatal("no STL");
        QByteArray tagged = stl.readAll();
        for (qsizetype i = 0; i < facets; ++i) // 100 runs of two tags
            tagged[84 + 50 * i + 49] = static_cast<char>(i * 100 / facets % 2);
        write("tags.stl", tagged);
        auto* const vertices = reinterpret_cast<float*>(mesh.vertices.data());
        MeshWriter::write(path("mesh.array"), mesh.getNumVertices(), vertices,
                          reinterpret_cast<float*>(mesh.normals.data()), mesh.getNumIndices(),
                          mesh.indices.data());
        auto* const shape = new geometry::Shape;
        shape->setMesh(mesh);
        tree = std::make_unique<geometry::ShapeNode>(QStringLiteral("square"), shape);
        ShapeNodeIOHelper::write(path("mesh.shapetree"), tree.get());
    }

    void makeTexts() const
    {
        QByteArray ascii = "solid square\n";
        QByteArray positions;
        QByteArray normals;
        QByteArray coordinates;
        QByteArray faces;
        QByteArray split;
        for (qsizetype i = 0; i < mesh.vertices.size(); ++i) {
            positions += 'v' + numbers(mesh.vertices[i]);
            normals += "vn" + numbers(mesh.normals[i]);
            coordinates += "vt " + number(mesh.vertices[i].x() / 40.0f) + ' ' + number(0.5f) + '\n';
        }
        coordinates += "vt 0.5 0.5\n"; // the lists do not run in step
        for (qsizetype i = 0; i < mesh.indices.size(); i += 4) {
            ascii += "facet normal 0 0 1\nouter loop\n";
            faces += 'f';
            split += 'f';
            for (qsizetype corner = i; corner < i + 3; ++corner) {
                int const index = mesh.indices[corner];
                QByteArray const text = QByteArray::number(index + 1);
                ascii += "vertex" + numbers(mesh.vertices[index]);
                faces += ' ' + text;
                split += ' ' + text + '/' + text + '/' + text;
            }
            ascii += "endloop\nendfacet\n";
            faces += '\n';
            split += '\n';
        }
        write("ascii.stl", ascii + "endsolid square\n");
        write("positions.obj", positions + faces);
        write("split.obj", positions + coordinates + normals + split);
    }

    // As many tetrahedra as facets: each facet and a point below it.
    void makeVolume()
    {
        volume.numPoints = static_cast<qint32>(mesh.vertices.size()) + 1;
        volume.points = arrayOf<float>(3 * qsizetype(volume.numPoints));
        std::memcpy(volume.points.data(), mesh.vertices.constData(),
                    sizeof(QVector3D) * mesh.vertices.size());
        volume.numTetrahedra = static_cast<qint32>(facets);
        volume.tetrahedra = arrayOf<qint32>(4 * facets);
        for (qsizetype i = 0; i < 4 * facets; ++i)
            volume.tetrahedra.data()[i] = mesh.indices[i] < 0 ? volume.numPoints - 1 : mesh.indices[i];
        MTModelVMesh withRows = volume;
        deriveFaceRows(withRows);
        volume = withRows;
        MTModelVMeshWriter(volume).write(path("mesh.vmesh"));
    }

    void makeConditions()
    {
        conditions.numBoundaryConditions = static_cast<qint32>(facets);
        conditions.pointIndices = arrayOf<qint32>(facets);
        conditions.values = arrayOf<float>(3 * facets);
        for (qsizetype i = 0; i < facets; ++i)
            conditions.pointIndices.data()[i] = static_cast<qint32>(i * 7 % facets);
        for (qsizetype i = 0; i < 3 * facets; ++i)
            conditions.values.data()[i] = std::sin(static_cast<float>(i)) * (i % 3 == 0 ? 1e-3f : 10.0f);
        MTModelBoundaryConditionsWriter(conditions).write(path("conditions.txt"));
    }

    bool readStl(char const* name, STLTagHandler const* tags) const
    {
        return STLReader(tags, false, path(name)).read(never);
    }
    bool readObj(char const* name) const
    {
        OBJReader reader;
        reader.setFileName(path(name));
        return reader.read(never);
    }
    bool readPly() const
    {
        PLYReader reader(PLYReader::MeshMode);
        reader.setFileName(path("mesh.ply"));
        return reader.read(never);
    }
    bool writePly() const
    {
        PLYWriter writer;
        writer.setData(mesh, false, {});
        writer.setFilePath(out("ply"));
        return writer.write();
    }
    bool writeStl() const
    {
        STLWriter writer;
        writer.setData(mesh, 0, 0);
        writer.setFilePath(out("stl"));
        return writer.write();
    }
    bool readArray() const
    {
        int vertexCount = 0;
        int indexCount = 0;
        float* vertices = nullptr;
        float* normals = nullptr;
        int* indices = nullptr;
        bool const success =
            MeshReader::read(path("mesh.array"), &vertexCount, &vertices, &normals, &indexCount, &indices);
        std::unique_ptr<float[]> const ownedVertices(vertices);
        std::unique_ptr<float[]> const ownedNormals(normals);
        std::unique_ptr<int[]> const ownedIndices(indices);
        return success;
    }
    bool writeArray() const
    {
        geometry::Mesh copy = mesh;
        return MeshWriter::write(
            out("array"), copy.getNumVertices(), reinterpret_cast<float*>(copy.vertices.data()),
            reinterpret_cast<float*>(copy.normals.data()), copy.getNumIndices(), copy.indices.data());
    }

    QList<Row> meshRows() const
    {
        return {{"ply-read", [this] { return readPly(); }},
                {"ply-write", [this] { return writePly(); }},
                {"stl-read", [this] { return readStl("mesh.stl", nullptr); }},
                {"stl-read-tags",
                 [this] {
                     UseAllTagsHandler const tags;
                     return readStl("tags.stl", &tags);
                 }},
                {"stl-write", [this] { return writeStl(); }}};
    }
    QList<Row> textRows() const
    {
        return {{"stl-read-ascii", [this] { return readStl("ascii.stl", nullptr); }},
                {"obj-read-positions", [this] { return readObj("positions.obj"); }},
                {"obj-read-split", [this] { return readObj("split.obj"); }},
                {"vmesh-read", [this] { return MTModelVMeshParser(path("mesh.vmesh")).read(); }},
                {"vmesh-write",
                 [this] {
                     MTModelVMesh copy = volume;
                     return MTModelVMeshWriter(copy).write(out("vmesh"));
                 }},
                {"conditions-read",
                 [this] { return MTModelBoundaryConditionsParser(path("conditions.txt")).read(); }},
                {"conditions-write",
                 [this] { return MTModelBoundaryConditionsWriter(conditions).write(out("txt")); }},
                {"xyz-write", [this] { return XYZWriter::write(out("xyz"), mesh.vertices); }}};
    }
    QList<Row> otherRows() const
    {
        return {{"tree-read",
                 [this] {
                     return ShapeNodeIOHelper::read(path("mesh.shapetree"), QVersionNumber(2, 0), false) !=
                            nullptr;
                 }},
                {"tree-write", [this] { return ShapeNodeIOHelper::write(out("shapetree"), tree.get()); }},
                {"array-read", [this] { return readArray(); }},
                {"array-write", [this] { return writeArray(); }}};
    }

    QString folder;
    geometry::Mesh mesh;
    qsizetype facets;
    std::unique_ptr<geometry::ShapeNode> tree;
    MTModelVMesh volume;
    MTModelBoundaryConditions conditions;
};

// Once for what is made at the first call only, then with the counter running.
bool count(Row const& row, qsizetype elements)
{
    QByteArray const name = row.name + (' ' + QByteArray::number(elements));
    if (!row.work())
        return false;
    CALLGRIND_TOGGLE_COLLECT;
    bool const success = row.work();
    CALLGRIND_TOGGLE_COLLECT;
    CALLGRIND_DUMP_STATS_AT(name.constData());
    return success;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2)
        return EXIT_FAILURE;
    for (int const rows : {50, 100}) {
        Input const input(QFile::decodeName(argv[1]), rows);
        for (Row const& row : input.rows())
            if (!count(row, input.elements())) {
                std::fprintf(stderr, "%s failed\n", row.name);
                return EXIT_FAILURE;
            }
    }
    return EXIT_SUCCESS;
}
