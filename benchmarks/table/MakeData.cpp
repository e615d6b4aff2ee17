#include "framework/MeshReader.h"
#include "framework/MeshWriter.h"
#include "ply/PLYWriter.h"
#include "scene/ShapeNodeIOHelper.h"
#include "vmesh/FaceRows.h"
#include "vmesh/MTModelBoundaryConditionsWriter.h"
#include "vmesh/MTModelVMeshWriter.h"

#include <QFile>
#include <QImage>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <initializer_list>
#include <memory>
#include <random>

// Makes the files of the table from what `surfaceio sample` wrote: FOLDER/scan.stl and FOLDER/colors.ply.
// Usage: table_data FOLDER FACETS

namespace {

constexpr qsizetype headerBytes = 84;
constexpr qsizetype facetBytes = 50;
constexpr qsizetype attributeOffset = 48;

using Facet = std::array<char, facetBytes>;

class Maker
{
public:
    Maker(QString const& folder_, int facets_)
        : folder(folder_)
        , facets(facets_)
        , scan(bytesOf(QStringLiteral("scan.stl")))
        , mesh(*MeshReader::read(path(QStringLiteral("colors.ply"))))
    {}

    void makeAll()
    {
        makeStl();
        makeAscii();
        makePly();
        makeObj();
        makeTextured(QStringLiteral("textured"), 1, std::min(4096, sideFor(facets)));
        makeTextured(QStringLiteral("atlas"), 64, std::min(512, sideFor(facets)));
        makeVolume();
        makeConditions();
        makeRecords();
    }

private:
    QString path(QString const& name) const { return folder + u'/' + name; }
    // The texture shrinks with the mesh, so that small runs are short.
    static int sideFor(int facets) { return facets >= 500'000 ? 4096 : 256; }

    QByteArray bytesOf(QString const& name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    void write(QString const& name, QByteArray const& bytes) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write %s", qPrintable(file.fileName()));
    }

    Facet* records(QByteArray& bytes) const
    {
        static_assert(alignof(Facet) == 1);
        return reinterpret_cast<Facet*>(bytes.data() + headerBytes);
    }

    void writeTagged(QString const& name, qint64 runs, int tags) const
    {
        QByteArray bytes = scan;
        Facet* const first = records(bytes);
        for (qint64 i = 0; i < facets; ++i) {
            first[i][attributeOffset] = 0;
            first[i][attributeOffset + 1] = static_cast<char>(i * runs / facets % tags);
        }
        write(name, bytes);
    }

    void makeStl() const
    {
        QByteArray bytes = scan;
        std::mt19937 random(1);
        std::shuffle(records(bytes), records(bytes) + facets, random);
        write(QStringLiteral("shuffled.stl"), bytes);
        writeTagged(QStringLiteral("tags.stl"), 32, 32);
        writeTagged(QStringLiteral("alternating.stl"), facets / 10, 2);
    }

    // The numbers with six decimals, or six digits in the format 'g', and single spaces between them.
    static void append(QByteArray& text, QByteArray before, char format, std::initializer_list<float> numbers,
                       char const* after)
    {
        for (float const number : numbers) {
            text += before + QByteArray::number(static_cast<double>(number), format, 6);
            before = " ";
        }
        text += after;
    }

    void makeAscii() const
    {
        QByteArray text = "solid scan\n";
        for (qint64 i = 0; i < facets; ++i) {
            std::array<float, 12> numbers;
            std::memcpy(&numbers, scan.constData() + headerBytes + i * facetBytes, sizeof(numbers));
            append(text, "  facet normal ", 'e', {numbers[0], numbers[1], numbers[2]}, "\n    outer loop\n");
            for (std::size_t corner = 3; corner < 12; corner += 3)
                append(text, "      vertex ", 'e',
                       {numbers[corner], numbers[corner + 1], numbers[corner + 2]}, "\n");
            text += "    endloop\n  endfacet\n";
        }
        write(QStringLiteral("ascii.stl"), text + "endsolid scan\n");
    }

    void makePly() const
    {
        PLYWriter writer; // the reader has computed normals
        writer.setData(mesh, false, {});
        writer.setFilePath(path(QStringLiteral("scan.ply")));
        writer.write();
    }

    QByteArray positionLines() const
    {
        QByteArray text;
        for (QVector3D const& vertex : mesh.vertices)
            append(text, "v ", 'f', {vertex.x(), vertex.y(), vertex.z()}, "\n");
        return text;
    }

    template <typename Corner>
    QByteArray faceLines(Corner const& corner, qsizetype first, qsizetype last) const
    {
        QByteArray text;
        for (qsizetype i = 4 * first; i < 4 * last; i += 4) {
            text += 'f';
            for (int k = 0; k < 3; ++k)
                text += ' ' + corner(mesh.indices.at(i + k));
            text += '\n';
        }
        return text;
    }

    // Coordinates within [0, 1), spread over the texture along the arch.
    QByteArray coordinateLines() const
    {
        QByteArray text;
        for (QVector3D const& vertex : mesh.vertices)
            append(text, "vt ", 'f',
                   {vertex.x() / 100.0f - std::floor(vertex.x() / 100.0f),
                    vertex.y() / 100.0f - std::floor(vertex.y() / 100.0f)},
                   "\n");
        return text;
    }

    void makeObj() const
    {
        QByteArray const positions = positionLines();
        auto const plain = [](int index) { return QByteArray::number(index + 1); };
        write(QStringLiteral("positions.obj"), positions + faceLines(plain, 0, facets));
        QByteArray normals;
        for (QVector3D const& normal : mesh.normals)
            append(normals, "vn ", 'f', {normal.x(), normal.y(), normal.z()}, "\n");
        // One coordinate more than there are positions: the lists are not taken as they are.
        QByteArray const coordinates = coordinateLines() + "vt 0.5 0.5\n";
        auto const split = [](int index) {
            QByteArray const number = QByteArray::number(index + 1);
            return number + '/' + number + '/' + number;
        };
        write(QStringLiteral("split.obj"), positions + coordinates + normals + faceLines(split, 0, facets));
    }

    void makeTextured(QString const& name, int textures, int side) const
    {
        auto const corner = [](int index) {
            QByteArray const number = QByteArray::number(index + 1);
            return number + '/' + number;
        };
        // The atlas is about its pixels: few faces.
        qsizetype const used = textures == 1 ? facets : std::min(facets, 6400);
        QByteArray text = "mtllib " + name.toUtf8() + ".mtl\n" + positionLines() + coordinateLines();
        QByteArray library;
        for (int i = 0; i < textures; ++i) {
            QByteArray const material = name.toUtf8() + QByteArray::number(i);
            library += "newmtl " + material + "\nmap_Kd " + material + ".bmp\n";
            text += "usemtl " + material + '\n' +
                    faceLines(corner, used * i / textures, used * (i + 1) / textures);
            QImage image(side, side, QImage::Format_RGB32);
            for (int y = 0; y < side; ++y)
                for (int x = 0; x < side; ++x)
                    image.setPixel(x, y, qRgb(x, y, 3 * i));
            image.save(path(QString::fromUtf8(material) + QStringLiteral(".bmp")));
        }
        write(name + QStringLiteral(".mtl"), library);
        write(name + QStringLiteral(".obj"), text);
    }

    // A grid of cubes, six tetrahedra in each.
    void makeVolume() const
    {
        int const cells = static_cast<int>(std::cbrt(facets / 6.0));
        int const side = cells + 1;
        MTModelVMesh volume;
        volume.numPoints = side * side * side;
        volume.numTetrahedra = 6 * cells * cells * cells;
        volume.points = arrayOf<float>(3 * volume.numPoints);
        volume.tetrahedra = arrayOf<qint32>(4 * volume.numTetrahedra);
        float* point = volume.points.data();
        for (int i = 0; i < volume.numPoints; ++i)
            for (int const at : {i % side, i / side % side, i / side / side})
                *point++ = static_cast<float>(at) * 1.2345f;
        qint32* corner = volume.tetrahedra.data();
        constexpr int axisOrders[6][3] = {{0, 1, 2}, {0, 2, 1}, {1, 0, 2}, {1, 2, 0}, {2, 0, 1}, {2, 1, 0}};
        int const steps[3] = {1, side, side * side};
        for (int cell = 0; cell < cells * cells * cells; ++cell)
            for (auto const& order : axisOrders) {
                int at = cell % cells + side * (cell / cells % cells + side * (cell / cells / cells));
                *corner++ = at;
                for (int const axis : order)
                    *corner++ = at += steps[axis];
            }
        deriveFaceRows(volume);
        MTModelVMeshWriter(volume).write(path(QStringLiteral("box.vmesh")));
        write(QStringLiteral("box.mesh"), meditText(volume));
    }

    // A line for each row of `width` indices, counted from 1, and a reference number.
    static QByteArray meditRows(char const* title, qint32 const* index, int count, int stride, int width)
    {
        QByteArray text = title + ('\n' + QByteArray::number(count)) + '\n';
        for (int row = 0; row < count; ++row, index += stride) {
            for (int k = 0; k < width; ++k)
                text += QByteArray::number(index[k] + 1) + ' ';
            text += "0\n";
        }
        return text;
    }

    // The same volume in the text format of another library: points, faces, tetrahedra.
    static QByteArray meditText(MTModelVMesh const& volume)
    {
        QByteArray text = "MeshVersionFormatted 1\nDimension 3\nVertices\n";
        text += QByteArray::number(volume.numPoints) + '\n';
        float const* point = volume.points.data();
        for (int i = 0; i < volume.numPoints; ++i, point += 3)
            append(text, {}, 'g', {point[0], point[1], point[2]}, " 0\n");
        text += meditRows("Triangles", volume.faces.data() + 2, volume.numFaces, 5, 3);
        text += meditRows("Tetrahedra", volume.tetrahedra.data(), volume.numTetrahedra, 4, 4);
        return text + "End\n";
    }

    template <typename Value>
    static QSharedPointer<Value> arrayOf(qint64 count)
    {
        return {new Value[static_cast<std::size_t>(count)], std::default_delete<Value[]>()};
    }

    void makeConditions() const
    {
        MTModelBoundaryConditions conditions;
        conditions.numBoundaryConditions = facets;
        conditions.pointIndices = arrayOf<qint32>(facets);
        conditions.values = arrayOf<float>(3 * qint64(facets));
        for (int i = 0; i < facets; ++i) {
            conditions.pointIndices.data()[i] = i;
            for (int k = 0; k < 3; ++k)
                conditions.values.data()[3 * i + k] = mesh.vertices.at(i % mesh.vertices.size())[k];
        }
        MTModelBoundaryConditionsWriter(conditions).write(path(QStringLiteral("conditions.txt")));
    }

    void makeRecords()
    {
        auto* const root = new geometry::Shape;
        root->setMesh(mesh);
        geometry::ShapeNode node(QStringLiteral("scan"), root);
        ShapeNodeIOHelper::write(path(QStringLiteral("scan.shapetree")), &node);
        MeshWriter::write(path(QStringLiteral("scan.array")), mesh.getNumVertices(),
                          reinterpret_cast<float*>(mesh.vertices.data()),
                          reinterpret_cast<float*>(mesh.normals.data()), mesh.getNumIndices(),
                          mesh.indices.data());
    }

    QString folder;
    int facets;
    QByteArray scan;
    geometry::Mesh mesh;
};

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3)
        return 2;
    Maker(QFile::decodeName(argv[1]), QByteArray(argv[2]).toInt()).makeAll();
    return 0;
}
