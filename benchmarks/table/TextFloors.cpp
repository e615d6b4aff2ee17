#include "table/TextFloors.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>

namespace table {

namespace {

class Text
{
public:
    explicit Text(QByteArray const& bytes)
        : next(bytes.constData())
        , end(next + bytes.size())
    {}

    bool atEnd() const { return next == end; }
    char operator[](int i) const { return next[i]; }
    void skip(int count) { next += count; }
    void skipLine()
    {
        auto const left = static_cast<std::size_t>(end - next);
        auto const* const lineFeed = static_cast<char const*>(std::memchr(next, '\n', left));
        next = lineFeed ? lineFeed + 1 : end;
    }

    /// The number at this place, and one character behind it.
    template <typename Number>
    Number take()
    {
        Number number{};
        next = std::from_chars(next, end, number).ptr;
        next += next != end ? 1 : 0;
        return number;
    }

    template <typename Number, std::size_t size>
    void take(std::array<Number, size>& numbers)
    {
        for (Number& number : numbers)
            number = take<Number>();
    }

private:
    char const* next;
    char const* end;
};

QVector3D takePoint(Text& text)
{
    std::array<float, 3> xyz;
    text.take(xyz);
    return {xyz[0], xyz[1], xyz[2]};
}

QVector2D takeCoordinate(Text& text)
{
    std::array<float, 2> uv;
    text.take(uv);
    return {uv[0], uv[1]};
}

// Corners with the same position are chained.
class Corners
{
public:
    explicit Corners(Obj const& from)
        : source(from)
        , chains(static_cast<std::size_t>(from.mesh.vertices.size()), -1)
    {}

    int add(int position, int uv, int normal)
    {
        int& first = chains[static_cast<std::size_t>(position)];
        for (int i = first; i != -1; i = links[static_cast<std::size_t>(i)].next)
            if (links[static_cast<std::size_t>(i)].uv == uv &&
                links[static_cast<std::size_t>(i)].normal == normal)
                return i;
        links.push_back({uv, normal, first});
        result.mesh.vertices.append(source.mesh.vertices.at(position));
        result.mesh.normals.append(source.mesh.normals.at(normal));
        result.coordinates.append(source.coordinates.at(uv));
        return first = static_cast<int>(links.size()) - 1;
    }

    Obj result;

private:
    struct Link
    {
        int uv;
        int normal;
        int next;
    };
    Obj const& source;
    std::vector<int> chains;
    std::vector<Link> links;
};

void storeFace(std::array<int, 5> const& face, std::vector<int>& tetrahedra)
{
    for (int side = 0; side < 2; ++side) {
        if (face[side] < 0)
            continue;
        int* const corners = tetrahedra.data() + 4 * static_cast<std::size_t>(face[side]);
        if (corners[0] == -1)
            std::copy(face.begin() + 2, face.end(), corners);
        else if (corners[3] == -1)
            for (int k = 2; k < 5; ++k)
                if (std::find(corners, corners + 3, face[k]) == corners + 3)
                    corners[3] = face[k];
    }
}

} // namespace

Obj readObj(QByteArray const& bytes)
{
    Obj obj;
    for (Text text(bytes); !text.atEnd();) {
        if (text[0] == 'v' && text[1] == ' ') {
            text.skip(2);
            obj.mesh.vertices.append(takePoint(text));
        } else if (text[0] == 'v' && text[1] == 't') {
            text.skip(3);
            obj.coordinates.append(takeCoordinate(text));
            text.skipLine();
        } else if (text[0] == 'f') {
            text.skip(2);
            for (int corner = 0; corner < 3; ++corner) {
                obj.mesh.indices.append(text.take<int>() - 1);
                if (text[-1] == '/')
                    text.take<int>();
            }
            obj.mesh.indices.append(-1);
        } else {
            text.skipLine();
        }
    }
    return obj;
}

Obj readSplitObj(QByteArray const& bytes)
{
    Obj obj;
    QList<std::array<int, 3>> corners;
    for (Text text(bytes); !text.atEnd();) {
        if (text[0] == 'v' && text[1] == ' ') {
            text.skip(2);
            obj.mesh.vertices.append(takePoint(text));
        } else if (text[0] == 'v' && text[1] == 't') {
            text.skip(3);
            obj.coordinates.append(takeCoordinate(text));
            if (text[-1] != '\n')
                text.skipLine();
        } else if (text[0] == 'v' && text[1] == 'n') {
            text.skip(3);
            obj.mesh.normals.append(takePoint(text));
        } else if (text[0] == 'f') {
            text.skip(2);
            for (int corner = 0; corner < 3; ++corner)
                text.take(corners.emplaceBack());
        } else {
            text.skipLine();
        }
    }
    Corners split(obj);
    QList<int> indices;
    indices.reserve(corners.size() / 3 * 4);
    for (qsizetype i = 0; i < corners.size(); ++i) {
        auto const& [position, uv, normal] = corners.at(i);
        indices.append(split.add(position - 1, uv - 1, normal - 1));
        if (i % 3 == 2)
            indices.append(-1);
    }
    split.result.mesh.indices = indices;
    return split.result;
}

std::optional<Size> readVolume(QByteArray const& bytes)
{
    Text text(bytes);
    text.skipLine();
    std::array<int, 4> sizes;
    text.take(sizes);
    auto const [tetrahedronCount, faceCount, boundFaceCount, pointCount] = sizes;
    std::vector<std::array<float, 3>> points(static_cast<std::size_t>(pointCount));
    std::vector<std::array<int, 5>> faces(static_cast<std::size_t>(faceCount));
    std::vector<std::array<int, 4>> triangles(faces.size());
    std::vector<std::array<int, 5>> boundFaces(static_cast<std::size_t>(boundFaceCount));
    std::vector<int> tetrahedra(4 * static_cast<std::size_t>(tetrahedronCount), -1);
    for (auto& point : points)
        text.take(point);
    for (std::size_t i = 0; i < faces.size(); ++i) {
        text.take(faces[i]);
        storeFace(faces[i], tetrahedra);
        triangles[i] = {faces[i][2], faces[i][3], faces[i][4], -1};
    }
    for (auto& face : boundFaces)
        text.take(face);
    return Size{pointCount, tetrahedronCount};
}

Conditions readConditions(QByteArray const& bytes)
{
    Text text(bytes);
    for (int line = 0; line < 3; ++line)
        text.skipLine();
    Conditions conditions;
    conditions.points.resize(static_cast<std::size_t>(text.take<int>()));
    conditions.values.resize(3 * conditions.points.size());
    for (std::size_t i = 0; i < conditions.points.size(); ++i) {
        conditions.points[i] = text.take<int>();
        for (std::size_t k = 3 * i; k < 3 * i + 3; ++k)
            conditions.values[k] = text.take<float>();
    }
    return conditions;
}

QByteArray conditionsText(Conditions const& conditions)
{
    constexpr qsizetype longestLine = 64;
    constexpr int significantDigits = 6;
    auto const count = static_cast<qsizetype>(conditions.points.size());
    QByteArray text("FemBoundaryConditions\n{\nDefaultMeshFilename\n" + QByteArray::number(count) + '\n');
    qsizetype const start = text.size();
    text.resize(start + longestLine * count + 1);
    char* next = text.data() + start;
    char* const end = text.data() + text.size();
    for (std::size_t i = 0; i < conditions.points.size(); ++i) {
        next = std::to_chars(next, end, conditions.points[i]).ptr;
        for (std::size_t k = 3 * i; k < 3 * i + 3; ++k) {
            *next++ = ' ';
            next =
                std::to_chars(next, end, conditions.values[k], std::chars_format::general, significantDigits)
                    .ptr;
        }
        *next++ = '\n';
    }
    *next++ = '}';
    text.resize(next - text.constData());
    return text;
}

} // namespace table
