#include "PlyModel.h"

namespace ply_model {

namespace {

// Values of one row, 0 where they are not there in full.
struct Row
{
    QList<Field> const& fields;
    int index;
    qsizetype start;
    qsizetype length;

    float value(QByteArray const& name, float missing) const
    {
        float result = missing;
        qsizetype offset = start;
        for (int i = 0; i < fields.size(); ++i) {
            qsizetype const end = offset + fields[i].size;
            if (fields[i].name == name)
                result = end <= length ? static_cast<float>(valueAt(index, i)) : 0.0f;
            offset = end;
        }
        return result;
    }
    bool has(QByteArray const& name) const { return value(name, -1) != -1; }
    int channel(QByteArray const& name, int missing) const
    {
        return static_cast<int>(value(name, static_cast<float>(missing)));
    }
    QColor color() const
    {
        return QColor(channel("red", 0), channel("green", 0), channel("blue", 0), channel("alpha", 255));
    }
};

unsigned int packed(QColor const& color)
{
    return static_cast<unsigned int>(color.alpha()) << 24 | static_cast<unsigned int>(color.blue()) << 16 |
           static_cast<unsigned int>(color.green()) << 8 | static_cast<unsigned int>(color.red());
}

void cutVertices(Shape const& shape, qsizetype length, Result& result)
{
    int const bytes = rowBytes(shape.vertexFields);
    for (int i = 0; i < shape.vertices && length > qsizetype(i) * bytes; ++i) {
        Row const row{shape.vertexFields, i, qsizetype(i) * bytes, length};
        result.positions << QVector3D(row.value("x", 0), row.value("y", 0), row.value("z", 0));
        if (row.has("nx") || row.has("ny") || row.has("nz"))
            result.normals << QVector3D(row.value("nx", 0), row.value("ny", 0), row.value("nz", 0));
        if (row.has("red"))
            result.colors << packed(row.color());
        else if (row.has("u") && shape.hasTexture)
            result.coordinates << QVector2D(row.value("u", 0), row.value("v", 0));
    }
}

// Whether the list at `offset` could be read; the warning when its count could not.
bool cutList(Shape const& shape, int face, qsizetype offset, qsizetype length, Result& result)
{
    if (offset >= length) {
        result.warning = "Unsupported indices count ( 0 ) (only triangles supported)!";
        return false;
    }
    QList<int> triangle;
    for (int corner = 0; corner < 3; ++corner) {
        qsizetype const begin = offset + 1 + 4 * corner;
        if (begin >= length)
            return false;
        int const index = begin + 4 <= length ? cornerAt(shape, face, corner) : 0;
        if (index >= result.positions.size())
            return false;
        triangle << index;
    }
    result.indices << triangle << -1;
    return true;
}

bool cutFaces(Shape const& shape, qsizetype start, qsizetype length, Result& result)
{
    int const bytes = rowBytes(shape.faceFields);
    for (int i = 0; i < shape.faces; ++i) {
        qsizetype const rowStart = start + qsizetype(i) * bytes;
        if (rowStart >= length)
            return true;
        qsizetype offset = rowStart;
        for (Field const& field : shape.faceFields) {
            if (field.name == "list" && !cutList(shape, i, offset, length, result))
                return false;
            offset += field.size;
        }
        Row const row{shape.faceFields, i, rowStart, length};
        if (shape.hasFaceColors)
            result.faceColors << (row.has("red") ? row.color() : QColor());
    }
    return true;
}

void cutMaterial(Shape const& shape, qsizetype start, qsizetype length, Result& result)
{
    if (shape.materialFields.isEmpty())
        return;
    geometry::Material material;
    int channels[3] = {0, 0, 0};
    qsizetype offset = start;
    for (int i = 0; i < shape.materialFields.size() && offset < length; ++i) {
        Field const& field = shape.materialFields[i];
        offset += field.size;
        int const value = offset <= length ? valueAt(0, i) : 0;
        auto const number = static_cast<float>(value);
        QColor const color(channels[0], channels[1], channels[2]);
        if (field.name.endsWith("_red"))
            channels[0] = value;
        else if (field.name.endsWith("_green"))
            channels[1] = value;
        else if (field.name.endsWith("_blue"))
            channels[2] = value;
        else if (field.name == "ambient_intensity")
            material.ambientIntensity = number, material.ambientColor = color;
        else if (field.name == "emissive_intensity")
            material.emissiveIntensity = number, material.emissiveColor = color;
        else if (field.name == "shininess")
            material.shininess = number;
        else if (field.name == "detail_noise")
            material.detailNoise = value != 0;
    }
    result.material = material;
}

bool isPropertyName(QByteArray const& name)
{
    for (auto const& token : ply::propertyTokens)
        if (name == QByteArrayView(token.name))
            return true;
    return false;
}

struct HeaderState
{
    bool hasFormat = false;
    QByteArray element;
    int vertices = 0;
    int faces = 0;
    int vertexProperties = 0;
    int materialProperties = 0;
};

bool takeElement(QByteArrayList const& words, HeaderState& state)
{
    if (words.size() != 3)
        return false;
    state.element = words[1];
    bool isNumber = false;
    int const count = words[2].toInt(&isNumber);
    if (state.element == "vertex")
        state.vertices = count;
    else if (state.element == "face")
        state.faces = count;
    return isNumber;
}

bool takeProperty(QByteArrayList const& words, HeaderState& state, Result& result)
{
    if (words.size() == 5)
        return words[1] == "list" && words[4] == "vertex_indices";
    if (words.size() != 3)
        return false;
    if (!isPropertyName(words[2]))
        result.critical =
            "Property " + words[2] + " of type " + words[1] + " is not handled! Property will be skipped.";
    state.vertexProperties += state.element == "vertex" ? 1 : 0;
    state.materialProperties += state.element == "velquin_material" ? 1 : 0;
    return true;
}

bool takeLine(QByteArrayList const& words, HeaderState& state, Result& result)
{
    if (words.isEmpty() || words[0] == "comment" || words[0] == "end_header")
        return true;
    if (words[0] == "format") {
        state.hasFormat = words.size() == 3 && words[1].startsWith("binary_") && words[1].endsWith("_endian");
        return state.hasFormat;
    }
    if (words[0] == "element")
        return takeElement(words, state);
    return words[0] == "property" && takeProperty(words, state, result);
}

} // namespace

Result cutBody(Shape const& shape, qsizetype length)
{
    Result result;
    cutVertices(shape, length, result);
    qsizetype end = qsizetype(shape.vertices) * rowBytes(shape.vertexFields);
    if (!shape.asCloud) {
        if (!cutFaces(shape, end, length, result))
            return result;
        end += qsizetype(shape.faces) * rowBytes(shape.faceFields);
    }
    cutMaterial(shape, end, length, result);
    result.success = true;
    return result;
}

Result cutHeader(Shape const& shape, QByteArray const& header)
{
    Result result;
    HeaderState state;
    QByteArrayList lines = header.split('\n');
    if (lines.takeFirst().trimmed() != "ply")
        return result;
    for (QByteArray const& line : lines) {
        QByteArrayList words = line.trimmed().split(' ');
        words.removeAll(QByteArray());
        if (!takeLine(words, state, result))
            return result;
    }
    result.success = state.hasFormat && state.vertexProperties >= 3 &&
                     (shape.asCloud || state.faces != 0 || state.vertices == 0);
    if (result.success && state.materialProperties > 0)
        result.material = geometry::Material();
    return result;
}

} // namespace ply_model
