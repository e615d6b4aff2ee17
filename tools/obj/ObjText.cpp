#include "obj/ObjText.h"

#include "Text.h"
#include "obj/TextLines.h"

#include <QIODevice>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

using namespace Qt::StringLiterals;

namespace tool::obj {

namespace {

using Tokens = TextLines::Tokens;

// Most numbers are plain. The rest is for Qt to judge, whose rules the library follows.
template <typename Number>
bool takePlain(QByteArrayView token, Number& number)
{
    auto const [end, error] = std::from_chars(token.begin(), token.end(), number);
    return error == std::errc() && end == token.end();
}

std::optional<float> toFloat(QByteArrayView token)
{
    float number = 0;
    if (takePlain(token, number))
        return number;
    bool isNumber = false;
    number = token.toFloat(&isNumber);
    return isNumber ? std::optional(number) : std::nullopt;
}

int toInt(QByteArrayView token)
{
    int number = 0;
    return takePlain(token, number) ? number : token.toInt();
}

struct Corner
{
    std::array<int, 3> indices = {0, 0, 0}; // position, texture coordinate, normal; 0 for none
    std::array<bool, 3> isNamed = {false, false, false};

    CornerStyle style() const
    {
        if (isNamed[1])
            return isNamed[2] ? CornerStyle::VVtVn : CornerStyle::VVt;
        return isNamed[2] ? CornerStyle::VVn : CornerStyle::V;
    }
    bool isRelative() const
    {
        return std::any_of(indices.begin(), indices.end(), [](int index) { return index < 0; });
    }
};

Corner cornerOf(QByteArrayView token)
{
    Corner corner;
    for (std::size_t part = 0; part < corner.indices.size() && !token.isNull(); ++part) {
        qsizetype const slash = token.indexOf('/');
        QByteArrayView const number = slash < 0 ? token : token.first(slash);
        corner.isNamed[part] = !number.isEmpty();
        corner.indices[part] = toInt(number);
        token = slash < 0 ? QByteArrayView() : token.sliced(slash + 1);
    }
    return corner;
}

class Reader
{
public:
    explicit Reader(QIODevice& device)
        : lines(device)
        , mostPositions(device.size() / bytesOfShortestPosition)
    {}

    ObjText read()
    {
        while (lines.next())
            readLine(lines.tokens());
        if (text.vertices == 0 && lines.commentWithReturn() > 0)
            text.returns.add(lines.commentWithReturn());
        return std::move(text);
    }

private:
    struct Row
    {
        QLatin1StringView keyword;
        void (Reader::*read)(Tokens const& tokens);
    };

    void readLine(Tokens const& tokens)
    {
        // In the order of their number in a file.
        static constexpr std::array rows = {
            Row{"v"_L1, &Reader::readVertex},      Row{"f"_L1, &Reader::readFace},
            Row{"vn"_L1, &Reader::readNormal},     Row{"vt"_L1, &Reader::readTextureCoordinate},
            Row{"usemtl"_L1, &Reader::readName},   Row{"g"_L1, &Reader::readName},
            Row{"o"_L1, &Reader::readName},        Row{"s"_L1, &Reader::ignore},
            Row{"mtllib"_L1, &Reader::readLibrary}};
        if (lines.bytes().endsWith('\\'))
            text.continued.add(lines.number());
        if (lines.bytes().contains('\r'))
            text.returns.add(lines.number());
        for (Row const& row : rows) {
            if (tokens.front() == QByteArrayView(row.keyword))
                return (this->*row.read)(tokens);
        }
        readOther(tokens);
    }

    void readOther(Tokens const& tokens)
    {
        QByteArrayView const keyword = tokens.front();
        qsizetype const tab = keyword.indexOf('\t');
        if (tab >= 0)
            text.tabs.add(lines.number());
        ++text.skipped[decoded(tab < 0 ? keyword : keyword.first(tab)).left(longestKeyword)];
    }

    void ignore(Tokens const&) {}

    // A tab that parts nothing explains what follows from it.
    void addMistake(Occurrence& mistake)
    {
        bool const isExplained = lines.bytes().contains('\t');
        if (!isExplained)
            mistake.add(lines.number());
        else if (lines.number() != lastTabLine)
            text.innerTabs.add(lastTabLine = lines.number());
    }

    // The numbers behind the keyword, as far as they are there; false when they are too few.
    template <std::size_t count>
    bool readNumbers(Tokens const& tokens, std::array<float, count>& numbers)
    {
        if (tokens.size() <= count) {
            addMistake(text.shortLines);
            return false;
        }
        for (std::size_t i = 0; i < count; ++i) {
            std::optional<float> const number = toFloat(tokens[i + 1]);
            if (!number)
                addMistake(text.badNumbers);
            numbers[i] = number.value_or(0.0f);
        }
        return true;
    }

    void readVertex(Tokens const& tokens)
    {
        constexpr std::size_t withColor = 7;
        ++text.vertices;
        std::array<float, 3> xyz = {};
        if (!readNumbers(tokens, xyz))
            return;
        if (!std::all_of(xyz.begin(), xyz.end(), [](float value) { return std::isfinite(value); }))
            text.nonFinite.add(lines.number());
        text.bounds.add({xyz[0], xyz[1], xyz[2]});
        if (tokens.size() >= withColor)
            text.vertexColors.add(lines.number());
    }

    void readNormal(Tokens const& tokens)
    {
        ++text.normals;
        std::array<float, 3> xyz = {};
        readNumbers(tokens, xyz);
    }

    void readTextureCoordinate(Tokens const& tokens)
    {
        ++text.textureCoordinates;
        std::array<float, 2> uv = {};
        if (!readNumbers(tokens, uv))
            return;
        text.u.add(uv[0], lines.number());
        text.v.add(uv[1], lines.number());
    }

    void readFace(Tokens const& tokens)
    {
        FaceKind kind;
        kind.corners = static_cast<int>(tokens.size()) - 1;
        for (std::size_t i = 1; i < tokens.size(); ++i)
            readCorner(cornerOf(tokens[i]), i, kind);
        noteSharedPositions(tokens);
        ++text.faces;
        ++text.faceKinds[kind];
        countFace(kind);
        for (Names* const names : {&text.objects, &text.groups, &text.materials})
            names->addFace();
    }

    void readCorner(Corner const& corner, std::size_t place, FaceKind& kind)
    {
        if (place == 1)
            kind.style = corner.style();
        else if (kind.style != corner.style())
            kind.style = CornerStyle::Mixed;
        kind.isRelative = kind.isRelative || corner.isRelative();
        if (place > cornersRead)
            return;
        if (corner.indices[0] == 0)
            addMistake(text.badIndices);
        if (corner.indices[1] != corner.indices[0])
            text.otherTexture.add(lines.number());
        if (corner.indices[2] != corner.indices[0])
            text.otherNormal.add(lines.number());
        text.positionIndices.add(corner.indices[0], lines.number());
        text.textureIndices.add(corner.indices[1], lines.number());
        text.normalIndices.add(corner.indices[2], lines.number());
    }

    // An index is a claim: no file has more positions than its bytes allow.
    void noteSharedPositions(Tokens const& tokens)
    {
        bool isShared = false;
        for (std::size_t i = 1; i < tokens.size() && i <= cornersRead; ++i) {
            int const index = cornerOf(tokens[i]).indices[0];
            if (index < 1 || index > mostPositions || text.materials.ordinal() == 0)
                continue;
            if (std::size_t(index) > materialOfPosition.size())
                materialOfPosition.resize(static_cast<std::size_t>(index), 0);
            int& material = materialOfPosition[static_cast<std::size_t>(index) - 1];
            isShared = isShared || (material != 0 && material != text.materials.ordinal());
            material = text.materials.ordinal();
        }
        if (isShared)
            text.sharedPositions.add(lines.number());
    }

    void countFace(FaceKind const& kind)
    {
        constexpr int quad = 4;
        if (kind.isRelative)
            text.relative.add(lines.number());
        if (kind.corners < 3)
            addMistake(text.shortFaces);
        else if (kind.corners == quad)
            text.quads.add(lines.number());
        else if (kind.corners > quad)
            text.polygons.add(lines.number());
    }

    void readName(Tokens const& tokens)
    {
        QString const name = restOf(lines.words());
        char const keyword = tokens.front().front();
        Names& names = keyword == 'o' ? text.objects : keyword == 'g' ? text.groups : text.materials;
        names.begin(name);
    }

    void readLibrary(Tokens const&) { text.libraries.push_back({lines.number(), lines.words().mid(1)}); }

    static constexpr qsizetype longestKeyword = 40;
    static constexpr std::size_t cornersRead = 3; // whatever a polygon has

    static constexpr qint64 bytesOfShortestPosition = 8; // "v 1 2 3" and the line feed

    TextLines lines;
    qint64 mostPositions;
    qint64 lastTabLine = 0;
    std::vector<int> materialOfPosition;
    ObjText text;
};

// By its byte order mark, or as every second of its first bytes is a zero.
bool isUtf16(QByteArrayView start)
{
    if (start.startsWith("\xFF\xFE") || start.startsWith("\xFE\xFF"))
        return true;
    constexpr qsizetype looked = 4;
    return start.size() >= looked && (start[0] == '\0') != (start[1] == '\0') &&
           (start[0] == '\0') == (start[2] == '\0') && (start[1] == '\0') == (start[3] == '\0');
}

} // namespace

QLatin1StringView nameOf(CornerStyle style)
{
    static constexpr std::array names = {"v"_L1, "v/vt"_L1, "v//vn"_L1, "v/vt/vn"_L1,
                                         QLatin1StringView(QT_TRANSLATE_NOOP("Text", "mixed"))};
    return names[static_cast<std::size_t>(style)];
}

void Names::begin(QString const& name)
{
    current.reset();
    if (name.isEmpty())
        return;
    auto const [place, isNew] = places.try_emplace(name, entries.size());
    if (isNew)
        entries.push_back({name, 0});
    current = place->second;
}

void Names::addFace()
{
    ++(current ? entries[*current].faces : withoutName);
}

qint64 Names::facesOf(QString const& name) const
{
    auto const place = places.find(name);
    return place == places.end() ? 0 : entries[place->second].faces;
}

void TextureRange::add(float value, qint64 line)
{
    if (!(value >= 0.0f && value <= 1.0f)) // a NaN is outside too
        outside.add(line);
    if (std::isfinite(value)) {
        least = std::min(least, value);
        greatest = std::max(greatest, value);
    }
}

ObjText readObjText(QIODevice& device)
{
    constexpr qint64 start = 4;
    if (isUtf16(device.peek(start))) {
        ObjText text;
        text.isUtf16 = true;
        return text;
    }
    return Reader(device).read();
}

} // namespace tool::obj
