#include "inspect/PlyHeaderText.h"

#include "Text.h"

#include <array>

using namespace Qt::StringLiterals;

namespace tool::ply {

namespace {

constexpr qint64 longestLine = 65536;
constexpr int mostLines = 100'000;

bool is(QString const& word, QLatin1StringView keyword)
{
    return word.compare(keyword, Qt::CaseInsensitive) == 0;
}

struct TypeBytes
{
    QLatin1StringView names;
    int bytes;
};

constexpr std::array typeBytes = {
    TypeBytes{"uchar uint8"_L1, 1},
    TypeBytes{"short int16"_L1, 2},
    TypeBytes{"int int32 uint uint32 float float32"_L1, 4},
    TypeBytes{"double float64"_L1, 8},
};

struct Use
{
    QLatin1StringView element;
    QLatin1StringView names;
    char const* use;
};

constexpr std::array uses = {
    Use{"vertex"_L1, "x y z"_L1, QT_TRANSLATE_NOOP("Text", "position")},
    Use{"vertex"_L1, "nx ny nz"_L1, QT_TRANSLATE_NOOP("Text", "normal")},
    Use{"vertex"_L1, "red green blue alpha"_L1, QT_TRANSLATE_NOOP("Text", "colour")},
    Use{"vertex"_L1, "texture_u u s texture_v v t"_L1, QT_TRANSLATE_NOOP("Text", "texture coordinate")},
    Use{"face"_L1, "red green blue alpha"_L1, QT_TRANSLATE_NOOP("Text", "face colour")},
    Use{"velquin_material"_L1, "ambient_red ambient_green ambient_blue ambient_intensity"_L1,
        QT_TRANSLATE_NOOP("Text", "material")},
    Use{"velquin_material"_L1, "diffuse_red diffuse_green diffuse_blue diffuse_intensity"_L1,
        QT_TRANSLATE_NOOP("Text", "material")},
    Use{"velquin_material"_L1, "specular_red specular_green specular_blue specular_intensity"_L1,
        QT_TRANSLATE_NOOP("Text", "material")},
    Use{"velquin_material"_L1, "emissive_red emissive_green emissive_blue emissive_intensity"_L1,
        QT_TRANSLATE_NOOP("Text", "material")},
    Use{"velquin_material"_L1, "shininess transparency base_reflectance detail_noise"_L1,
        QT_TRANSLATE_NOOP("Text", "material")},
};

bool hasWord(QLatin1StringView words, QString const& word)
{
    return QString(words).split(u' ').contains(word);
}

bool isReadElement(Element const& element)
{
    return is(element.name, "vertex"_L1) || is(element.name, "face"_L1) ||
           is(element.name, "velquin_material"_L1);
}

bool isIndexList(Property const& property)
{
    return is(property.name, "vertex_indices"_L1) || is(property.name, "vertex_index"_L1);
}

qint64 rowBytes(Element const& element)
{
    constexpr qint64 corners = 3;
    qint64 bytes = 0;
    for (Property const& property : element.properties) {
        bool const isTriangle = property.isList() && is(element.name, "face"_L1);
        if (isTriangle)
            bytes += bytesOf(property.countType) + corners * bytesOf(property.type);
        else if (!property.isList())
            bytes += bytesOf(property.type);
    }
    return bytes;
}

void addComment(QStringList const& words, QString const& line, HeaderText& header)
{
    constexpr qsizetype keywordLength = 7;
    header.comments << line.mid(keywordLength).trimmed();
    if (words.size() >= 3 && is(words[1], "TextureFile"_L1))
        header.textureName = words.mid(2).join(u' ');
}

bool addProperty(QStringList const& words, HeaderText& header)
{
    bool const isList = words.size() == 5 && is(words[1], "list"_L1);
    if (header.elements.empty() || (words.size() != 3 && !isList))
        return false;
    header.elements.back().properties.push_back(isList ? Property{words[4], words[3], words[2]}
                                                       : Property{words[2], words[1], {}});
    return true;
}

// False for a line that no header has.
bool addLine(QStringList const& words, HeaderText& header)
{
    if (is(words[0], "obj_info"_L1))
        return true;
    if (is(words[0], "property"_L1))
        return addProperty(words, header);
    if (words.size() != 3)
        return false;
    if (is(words[0], "format"_L1)) {
        header.format = words[1];
        return true;
    }
    bool isNumber = false;
    header.elements.push_back({words[1], words[2].toInt(&isNumber), {}});
    return is(words[0], "element"_L1) && isNumber;
}

// False when the header is over.
bool takeLine(QString const& line, HeaderText& header)
{
    QStringList const words = line.split(u' ', Qt::SkipEmptyParts);
    if (words.isEmpty())
        return true;
    if (is(words[0], "comment"_L1)) {
        addComment(words, line, header);
        return true;
    }
    if (header.firstLine.isEmpty()) {
        header.firstLine = line;
        return header.hasMagic();
    }
    if (is(words[0], "end_header"_L1))
        return false;
    if (!addLine(words, header))
        header.strangeLine = line;
    return header.strangeLine.isEmpty();
}

} // namespace

Element const* HeaderText::element(QLatin1StringView name) const
{
    for (Element const& candidate : elements) {
        if (is(candidate.name, name))
            return &candidate;
    }
    return nullptr;
}

HeaderText readHeaderText(QIODevice& in)
{
    HeaderText header;
    for (int i = 0; i < mostLines; ++i) {
        QByteArray const bytes = in.readLine(longestLine);
        if (bytes.isEmpty())
            return header;
        QString line = QString::fromUtf8(bytes).trimmed();
        if (i == 0 && line.startsWith(QChar::ByteOrderMark))
            line.remove(0, 1);
        if (takeLine(line, header))
            continue;
        if (header.hasMagic() && header.strangeLine.isEmpty())
            header.bodyStart = in.pos();
        return header;
    }
    return header;
}

int bytesOf(QString const& type)
{
    for (TypeBytes const& row : typeBytes) {
        if (hasWord(row.names, type))
            return row.bytes;
    }
    return 0;
}

qint64 announcedBytes(HeaderText const& header)
{
    qint64 bytes = 0;
    for (Element const& element : header.elements) {
        if (!isReadElement(element))
            break;
        qint64 const rows = is(element.name, "velquin_material"_L1) ? 1 : qMax(element.count, qint64(0));
        bytes += rows * rowBytes(element);
    }
    return bytes;
}

QLatin1StringView useOf(Element const& element, Property const& property)
{
    if (!isReadElement(element))
        return QLatin1StringView(QT_TRANSLATE_NOOP("Text", "not looked at"));
    if (property.isList() && !isIndexList(property))
        return QLatin1StringView(QT_TRANSLATE_NOOP("Text", "fails: a list of its own"));
    if (property.isList() && is(element.name, "face"_L1))
        return QLatin1StringView(QT_TRANSLATE_NOOP("Text", "triangles"));
    bool const hasBytes = !property.isList() && bytesOf(property.type) > 0;
    for (Use const& row : uses) {
        if (is(element.name, row.element) && hasWord(row.names, property.name))
            return hasBytes
                       ? QLatin1StringView(row.use)
                       : QLatin1StringView(QT_TRANSLATE_NOOP("Text", "fails: a type that takes no bytes"));
    }
    return hasBytes ? QLatin1StringView(QT_TRANSLATE_NOOP("Text", "skipped"))
                    : QLatin1StringView(QT_TRANSLATE_NOOP("Text", "skipped, and its bytes shift the rest"));
}

} // namespace tool::ply
