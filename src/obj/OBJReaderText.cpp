#include "framework/NumberParsing.h"
#include "obj/OBJLineReader.h"
#include "obj/OBJNumbers.h"
#include "obj/OBJReader.h"
#include "obj/OBJReaderLists.h"

#include <QDebug>

#include <array>
#include <limits>
#include <type_traits>

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t quadTokens = 1 + 4;
constexpr int noIndex = -1;

bool isEqual(QLatin1StringView token, QLatin1StringView keyword)
{
    return token == keyword;
}

template <typename OtherView>
bool isEqual(OtherView token, QLatin1StringView keyword)
{
    return QAnyStringView(token) == QAnyStringView(keyword);
}

bool isKeyword(QAnyStringView token, QLatin1StringView keyword)
{
    return token.visit([keyword](auto view) { return isEqual(view, keyword); });
}

// A line may have millions of tokens. All of them make the name of a material; of a library's name the path
// cannot be longer than some thousand; of the others there are never more looked at than tell a quad from
// what is none.
std::size_t tokensThatCount(QByteArrayView line)
{
    constexpr std::size_t library = 1 + 4096 + 2;
    char const first = line.isEmpty() ? ' ' : line.front();
    bool const isAscii = static_cast<unsigned char>(first) < 0x80;
    if (first == 'u' || !isAscii)
        return std::numeric_limits<std::size_t>::max();
    return first == 'm' ? library : quadTokens + 1;
}

void append(QAnyStringView token, QString& text)
{
    token.visit([&text](auto view) {
        if constexpr (std::is_same_v<decltype(view), QUtf8StringView>)
            text += view.toString();
        else
            text += view;
    });
}

// The indices of a file count from 1.
int toZeroBased(int index)
{
    return index == std::numeric_limits<int>::min() ? index : index - 1;
}

} // namespace

OBJReader::Error OBJReader::readText(QTextStream& stream, std::atomic<bool> const& cancel)
{
    error = NoError;
    WorkingLists lists;
    if (Error const result = readLines(stream, lists, cancel); result != NoError)
        return result;
    fixMaterials(lists);
    if (!areListsPerPosition(lists.positions, lists.normals, lists.textureCoordinates))
        lists.completeIndices();
    if (Error const result = removeIndexedNormalsAndUvsByDuplicatingVertices(
            lists.positions, lists.normals, lists.textureCoordinates, lists.positionIndices,
            lists.normalIndices, lists.textureIndices, lists.usage);
        result != NoError)
        return result;
    if (!lists.textureCoordinates.isEmpty() && lists.textureCoordinates.size() != lists.positions.size()) {
        qWarning("%s", "OBJReader: mixed textured and untextured vertices are not supported.");
        return IncompleteUvMapping;
    }
    if (Error const result =
            combineTexturesAndAdjustUVs(lists.usage, lists.positionIndices, lists.textureCoordinates);
        result != NoError)
        return result;
    return buildMesh(lists, cancel);
}

OBJReader::Error OBJReader::readLines(QTextStream& stream, WorkingLists& lists,
                                      std::atomic<bool> const& cancel)
{
    OBJLineReader reader(stream);
    while (error == NoError && !reader.atEnd()) {
        if (cancel)
            return Cancelled;
        if (!reader.readLine())
            return NoData;
        if (!readPlainLine(reader.getBytes(), lists))
            readLine(reader.splitLine(tokensThatCount(reader.getBytes())), lists);
    }
    if (error != NoError)
        return error;
    lists.positionIndices = lists.positionFaces.take();
    lists.normalIndices = lists.normalFaces.take();
    lists.textureIndices = lists.textureFaces.take();
    lists.textures = {};
    return cancel ? Cancelled : NoError;
}

void OBJReader::readLine(Tokens const& tokens, WorkingLists& lists)
{
    struct Line
    {
        QLatin1StringView keyword;
        void (OBJReader::*read)(Tokens const&, WorkingLists&);
    };
    // In the order of their number in a file.
    static constexpr std::array lines = {
        Line{"f"_L1, &OBJReader::readFace},
        Line{"v"_L1, &OBJReader::readPosition},
        Line{"vn"_L1, &OBJReader::readNormal},
        Line{"vt"_L1, &OBJReader::readTextureCoordinate},
        Line{"usemtl"_L1, &OBJReader::readMaterialUse},
        Line{"mtllib"_L1, &OBJReader::readMaterialLibrary},
    };
    for (Line const& line : lines)
        if (!tokens.empty() && isKeyword(tokens.front(), line.keyword))
            return (this->*line.read)(tokens, lists);
}

void OBJReader::readPosition(Tokens const& tokens, WorkingLists& lists)
{
    if (tokens.size() < 4) {
        error = IncompleteVertexCoordinates;
        return;
    }
    float x = 0;
    float y = 0;
    float z = 0;
    convertLineToFloat(tokens, x, y, z);
    lists.positions.append({x, y, z});
}

void OBJReader::readTextureCoordinate(Tokens const& tokens, WorkingLists& lists)
{
    if (tokens.size() < 3) {
        error = IncompleteTextureCoordinates;
        return;
    }
    float const u = toFloatIfConditionValid(tokens[1], error);
    float const v = toFloatIfConditionValid(tokens[2], error);
    lists.textureCoordinates.append({u, v});
}

void OBJReader::readNormal(Tokens const& tokens, WorkingLists& lists)
{
    if (tokens.size() < 4) {
        error = IncompleteVertexNormalCoordinates;
        return;
    }
    float x = 0;
    float y = 0;
    float z = 0;
    convertLineToFloat(tokens, x, y, z);
    lists.normals.append({x, y, z});
}

void OBJReader::readFace(Tokens const& tokens, WorkingLists& lists)
{
    if (tokens.size() == quadTokens) {
        error = QuadFacesNotSupported;
        return;
    }
    VertexIndices a;
    VertexIndices b;
    VertexIndices c;
    convertFaceLine(tokens, a, b, c);
    appendFace(a, b, c, lists);
}

void OBJReader::appendFace(VertexIndices const& a, VertexIndices const& b, VertexIndices const& c,
                           WorkingLists& lists)
{
    lists.positionFaces.append(a.vertex, b.vertex, c.vertex);
    lists.normalFaces.appendOptional(a.normal, b.normal, c.normal, lists.faceCount);
    lists.textureFaces.appendOptional(a.uv, b.uv, c.uv, lists.faceCount);
    if (!lists.currentMaterial.isEmpty()) {
        if (!lists.currentFaces)
            lists.currentFaces = &lists.usage[lists.currentMaterial];
        lists.currentFaces->append(lists.faceCount);
    }
    ++lists.faceCount;
}

void OBJReader::readMaterialUse(Tokens const& tokens, WorkingLists& lists)
{
    lists.currentMaterial = parseMaterialName(tokens);
    lists.currentFaces = nullptr;
}

void OBJReader::readMaterialLibrary(Tokens const& tokens, WorkingLists& lists)
{
    QList<QString> texts;
    for (QAnyStringView const token : tokens)
        texts.append(token.toString());
    std::vector<QString> const names = reconstructMTLFileNames(texts);
    if (names.size() > 1) {
        error = MultipleMaterialFilesUnsupported;
    } else if (names.size() == 1 && names.front() != lists.currentLibrary) {
        // Some programs name their library before each object.
        LibraryReading library{lists.textures};
        Error const result = handleMTL(names.front(), library);
        lists.currentLibrary = result == NoError && !library.hasWarned ? names.front() : QString();
        if (textureSupport == TextureRequired)
            error = result;
    }
}

void OBJReader::convertLineToFloat(Tokens const& tokens, float& x, float& y, float& z) const
{
    x = toFloatIfConditionValid(tokens[1], error);
    y = toFloatIfConditionValid(tokens[2], error);
    z = toFloatIfConditionValid(tokens[3], error);
}

void OBJReader::convertFaceLine(Tokens const& tokens, VertexIndices& a, VertexIndices& b, VertexIndices& c)
{
    if (tokens.size() < quadTokens - 1) {
        error = InvalidVertexId;
        return;
    }
    parseFaceElementIndexGroup(tokens[1], a);
    parseFaceElementIndexGroup(tokens[2], b);
    parseFaceElementIndexGroup(tokens[3], c);
}

void OBJReader::parseFaceElementIndexGroup(QAnyStringView text, VertexIndices& out)
{
    QString const group = text.toString();
    QStringView rest = group;
    std::array<QStringView, 3> parts;
    for (QStringView& part : parts) {
        qsizetype const slash = rest.indexOf(u'/');
        part = rest.left(slash < 0 ? rest.size() : slash);
        rest = slash < 0 ? QStringView() : rest.sliced(slash + 1);
    }
    out.vertex = toZeroBased(numbers::toInt(parts[0]));
    out.uv = toZeroBased(numbers::toInt(parts[1]));
    out.normal = toZeroBased(numbers::toInt(parts[2]));
    if (out.vertex != noIndex)
        return;
    out.normal = out.uv = noIndex;
    error = InvalidVertexId;
    qWarning() << "OBJReader::invalid vertex id: '" << parts[0].toString() << "'";
}

QString OBJReader::parseMaterialName(Tokens const& tokens)
{
    QString name;
    for (std::size_t i = 1; i < tokens.size(); ++i) {
        if (i > 1)
            name += u' ';
        append(tokens[i], name);
    }
    return name;
}
