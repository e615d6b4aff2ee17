#include "Floor.h"
#include "framework/MeshReader.h"
#include "table/Contender.h"
#include "table/TextFloors.h"

#include <QFile>
#include <QImage>
#include <QtEndian>

#include <bit>
#include <cmath>
#include <cstring>
#include <memory>

using table::Size;
using table::Work;

namespace {

QByteArray bytesOf(QString const& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

std::optional<Size> sizeOf(geometry::Mesh const& mesh)
{
    return Size{mesh.getNumVertices(), mesh.getNumIndices() / 4};
}

// A fresh name for each file, as in the program that is compared.
std::optional<Size> writeFresh(QString const& folder, QByteArray const& bytes)
{
    static int count = 0;
    QString const path = folder + QStringLiteral("/floor.%1").arg(count++);
    QFile::remove(path);
    QFile file(path);
    bool const success = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    return success ? std::optional(Size{}) : std::nullopt; // how much it is the file tells
}

// Positions, normals and colours, triangles: the layout of scan.ply, taken for granted.
geometry::Mesh readPly(QByteArray const& bytes)
{
    auto const countBehind = [&](char const* text) {
        qsizetype const first = bytes.indexOf(text) + static_cast<qsizetype>(std::strlen(text));
        return bytes.mid(first, bytes.indexOf('\n', first) - first).toInt();
    };
    geometry::Mesh mesh;
    mesh.vertices.resize(countBehind("element vertex "));
    mesh.normals.resize(mesh.vertices.size());
    mesh.colors.resize(mesh.vertices.size());
    mesh.indices.resize(4 * qsizetype(countBehind("element face ")));
    char const* next = bytes.constData() + bytes.indexOf("end_header\n") + std::strlen("end_header\n");
    QVector3D* position = mesh.vertices.data();
    QVector3D* normal = mesh.normals.data();
    for (unsigned int& color : mesh.colors) {
        std::memcpy(static_cast<void*>(position++), next, 12);
        std::memcpy(static_cast<void*>(normal++), next + 12, 12);
        color = 0xff000000u | static_cast<unsigned char>(next[24]) |
                unsigned(static_cast<unsigned char>(next[25])) << 8 |
                unsigned(static_cast<unsigned char>(next[26])) << 16;
        next += 27;
    }
    int* const indices = mesh.indices.data();
    for (qsizetype i = 0; i < mesh.indices.size(); i += 4, next += 13) {
        std::memcpy(indices + i, next + 1, 12);
        indices[i + 3] = -1;
    }
    return mesh;
}

Work plyBytes(QString const& folder)
{
    return [bytes = bytesOf(folder + QStringLiteral("/scan.ply"))] { return sizeOf(readPly(bytes)); };
}

// The bytes of a file that exists, written to a new one.
auto writePrepared(char const* name)
{
    return [name](QString const& folder) -> Work {
        return [folder, bytes = bytesOf(folder + u'/' + QLatin1StringView(name))] {
            return writeFresh(folder, bytes);
        };
    };
}

Work writeConditions(QString const& folder)
{
    auto conditions = std::make_shared<table::Conditions>(
        table::readConditions(bytesOf(folder + QStringLiteral("/conditions.txt"))));
    return [folder, conditions] { return writeFresh(folder, table::conditionsText(*conditions)); };
}

// The lists of the only shape of the tree, copied out of its bytes.
std::optional<Size> readTree(QByteArray const& bytes)
{
    geometry::Mesh mesh;
    qsizetype const first = bytes.indexOf("s\0c\0a\0n\0") + 8 + 1; // the name, whether there is a shape
    char const* next = bytes.constData() + first;
    auto const take = [&](auto& list) {
        list.resize(qFromLittleEndian<quint32>(next));
        auto const size = static_cast<std::size_t>(list.size()) * sizeof(list.first());
        std::memcpy(static_cast<void*>(list.data()), next + 4, size);
        next += 4 + size;
    };
    take(mesh.vertices);
    take(mesh.normals);
    take(mesh.indices);
    take(mesh.colors);
    return sizeOf(mesh);
}

struct Record
{
    std::unique_ptr<float[]> numbers;
    std::unique_ptr<int[]> indices;
};

std::optional<Size> readArray(QByteArray const& bytes)
{
    auto const vertices = static_cast<std::size_t>(qFromBigEndian<qint32>(bytes.constData()));
    auto const indices = static_cast<std::size_t>(qFromBigEndian<qint32>(bytes.constData() + 4));
    Record record{std::unique_ptr<float[]>(new float[6 * vertices]),
                  std::unique_ptr<int[]>(new int[indices])};
    char const* next = bytes.constData() + 8;
    for (std::size_t i = 0; i < 6 * vertices; ++i, next += 8)
        record.numbers[i] = static_cast<float>(std::bit_cast<double>(qFromBigEndian<quint64>(next)));
    for (std::size_t i = 0; i < indices; ++i, next += 4)
        record.indices[i] = qFromBigEndian<qint32>(next);
    return Size{static_cast<qint64>(vertices), static_cast<qint64>(indices / 4)};
}

double blend(QImage const& image, int x, int y, int shift, double fx, double fy)
{
    auto const at = [&](int column, int row) {
        auto const* const line = reinterpret_cast<QRgb const*>(image.constScanLine(row));
        return static_cast<double>(line[column] >> shift & 0xff);
    };
    return (at(x + 1, y + 1) * fx + at(x, y + 1) * (1 - fx)) * fy +
           (at(x + 1, y) * fx + at(x, y) * (1 - fx)) * (1 - fy);
}

// Coordinates that lie inside.
unsigned int colorAt(QImage const& image, QVector2D uv)
{
    double const x = std::min<double>(uv.x() * float(image.width()), image.width() - 1.001);
    double const y = std::min<double>((1 - uv.y()) * float(image.height()), image.height() - 1.001);
    int const left = static_cast<int>(x);
    int const upper = static_cast<int>(y);
    unsigned int color = 0xff000000u;
    for (int channel = 0; channel < 3; ++channel)
        color |= static_cast<unsigned int>(blend(image, left, upper, 16 - 8 * channel, x - left, y - upper))
                 << 8 * channel;
    return color;
}

std::optional<Size> readColored(QString const& folder)
{
    QImage const image(folder + QStringLiteral("/textured0.bmp"));
    table::Obj obj = table::readObj(bytesOf(folder + QStringLiteral("/textured.obj")));
    bench::floor::addNormals(obj.mesh);
    obj.mesh.colors.resize(obj.coordinates.size());
    for (qsizetype i = 0; i < obj.coordinates.size(); ++i)
        obj.mesh.colors[i] = colorAt(image, obj.coordinates.at(i));
    return sizeOf(obj.mesh);
}

std::optional<Size> readAtlas(QString const& folder)
{
    constexpr int columns = 8;
    table::Obj obj = table::readObj(bytesOf(folder + QStringLiteral("/atlas.obj")));
    bench::floor::addNormals(obj.mesh);
    QImage atlas;
    for (int i = 0; i < columns * columns; ++i) {
        QImage const image(folder + QStringLiteral("/atlas%1.bmp").arg(i));
        if (atlas.isNull())
            atlas = QImage(columns * image.size(), QImage::Format_ARGB32);
        auto const bytes = static_cast<std::size_t>(4 * image.width());
        for (int y = 0; y < image.height(); ++y)
            std::memcpy(atlas.scanLine(i / columns * image.height() + y) + i % columns * bytes,
                        image.constScanLine(y), bytes);
    }
    return atlas.isNull() ? std::nullopt : sizeOf(obj.mesh);
}

std::optional<Size> sizeOf(QList<geometry::Mesh> const& meshes)
{
    Size size{};
    for (geometry::Mesh const& mesh : meshes) {
        size.vertices += mesh.getNumVertices();
        size.facets += mesh.getNumIndices() / 4;
    }
    return size;
}

std::optional<Size> readPositions(QByteArray const& bytes)
{
    geometry::Mesh mesh = table::readObj(bytes).mesh;
    bench::floor::addNormals(mesh);
    return sizeOf(mesh);
}

std::optional<Size> readConditions(QByteArray const& bytes)
{
    return Size{static_cast<qint64>(table::readConditions(bytes).points.size()), 0};
}

// What `function` makes of the bytes of a file, which are mapped: the least that reading them costs.
template <typename Function>
auto ofBytes(char const* name, Function function)
{
    return [name, function](QString const& folder) -> Work {
        return [path = folder + u'/' + QLatin1StringView(name), function]() -> std::optional<Size> {
            QFile file(path);
            if (!file.open(QIODevice::ReadOnly))
                return {};
            auto const* const mapped = reinterpret_cast<char const*>(file.map(0, file.size()));
            return mapped ? function(QByteArray::fromRawData(mapped, file.size())) : std::nullopt;
        };
    };
}

auto ofFolder(std::optional<Size> (*function)(QString const&))
{
    return
        [function](QString const& folder) -> Work { return [folder, function] { return function(folder); }; };
}

} // namespace

int main(int argc, char** argv)
{
    auto const ply = [](QByteArray const& bytes) { return sizeOf(readPly(bytes)); };
    auto const stl = [](QByteArray const& bytes) { return sizeOf(bench::floor::readStl(bytes)); };
    auto const tags = [](QByteArray const& bytes) { return sizeOf(bench::floor::readTaggedStl(bytes)); };
    auto const ascii = [](QByteArray const& bytes) { return sizeOf(bench::floor::readAsciiStl(bytes)); };
    auto const split = [](QByteArray const& bytes) { return sizeOf(table::readSplitObj(bytes).mesh); };
    return table::run({{"ply-read", ofBytes("scan.ply", ply)},
                       {"ply-read-bytes", plyBytes},
                       {"ply-write", writePrepared("scan.ply")},
                       {"stl-read", ofBytes("scan.stl", stl)},
                       {"stl-read-shuffled", ofBytes("shuffled.stl", stl)},
                       {"stl-read-32-tags", ofBytes("tags.stl", tags)},
                       {"stl-read-alternating", ofBytes("alternating.stl", tags)},
                       {"stl-read-ascii", ofBytes("ascii.stl", ascii)},
                       {"stl-write", writePrepared("scan.stl")},
                       {"obj-read-positions", ofBytes("positions.obj", readPositions)},
                       {"obj-read-split", ofBytes("split.obj", split)},
                       {"obj-texture-colors", ofFolder(readColored)},
                       {"obj-atlas", ofFolder(readAtlas)},
                       {"vmesh-read", ofBytes("box.vmesh", table::readVolume)},
                       {"conditions-read", ofBytes("conditions.txt", readConditions)},
                       {"conditions-write", writeConditions},
                       {"tree-read", ofBytes("scan.shapetree", readTree)},
                       {"tree-write", writePrepared("scan.shapetree")},
                       {"array-read", ofBytes("scan.array", readArray)},
                       {"array-write", writePrepared("scan.array")}},
                      argc, argv);
}
