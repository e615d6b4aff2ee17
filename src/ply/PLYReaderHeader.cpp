#include "framework/FileAccess.h"
#include "framework/ImageClaims.h"
#include "framework/MemoryGuard.h"
#include "ply/PLYReader.h"
#include "ply/PLYSource.h"
#include "ply/PLYTokens.h"

#include <QBuffer>
#include <QDebug>
#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype formatTokenCount = 3;
constexpr qsizetype elementTokenCount = 3;
constexpr qsizetype propertyTokenCount = 3;
constexpr qsizetype listPropertyTokenCount = 5;
constexpr qsizetype textureTokenCount = 3;
constexpr int leastVertexProperties = 3;

bool isKeyword(QString const& token, QLatin1StringView keyword)
{
    return token.compare(keyword, Qt::CaseInsensitive) == 0;
}

bool startsWith(QStringList const& tokens, QLatin1StringView keyword)
{
    return !tokens.isEmpty() && isKeyword(tokens.first(), keyword);
}

// Only spaces separate: a tab is part of a token.
QStringList readTokens(QTextStream& stream)
{
    return stream.readLine().trimmed().split(u' ', Qt::SkipEmptyParts);
}

bool isTextureLine(QStringList const& tokens)
{
    return tokens.size() >= textureTokenCount && isKeyword(tokens[0], "comment"_L1) &&
           isKeyword(tokens[1], "TextureFile"_L1);
}

QString textureName(QStringList const& tokens)
{
    // Not a part of the list joined: making one does not look whether it got its memory.
    QString name = tokens[2];
    for (qsizetype i = textureTokenCount; i < tokens.size(); ++i)
        name += u' ' + tokens[i];
    return name;
}

// Null for an element of another name.
ply::ElementToken const* elementOf(QString const& name)
{
    for (auto const& token : ply::elementTokens)
        if (isKeyword(name, token.name))
            return &token;
    return nullptr;
}

// The element that must come directly before; -1 for none at all.
ply::Element predecessorOf(ply::Element element)
{
    return ply::Element(element - 1);
}

void storeCount(ply::Element element, int count, PLYHeader& header)
{
    if (element == ply::Vertex)
        header.setVerticesCount(count);
    else if (element == ply::Face)
        header.setFacesCount(count);
    else
        header.setCurrentElement(element);
}

} // namespace

bool PLYReader::isEmptyOrComment(QStringList const& tokens)
{
    return tokens.isEmpty() || startsWith(tokens, "comment"_L1);
}

bool PLYReader::isColorProperty(ply::Property property)
{
    return ply::isColor(property);
}

bool PLYReader::isMaterialColorProperty(ply::Property property)
{
    constexpr int slotsOfGroup = ply::DiffuseRed - ply::AmbientRed;
    return property >= ply::AmbientRed && property <= ply::EmissiveIntensity &&
           (property - ply::AmbientRed) % slotsOfGroup != ply::AmbientIntensity - ply::AmbientRed;
}

bool PLYReader::isPropertyAllowed(PLYHeader const& header, ply::Property property) const
{
    return !isColorProperty(property) || header.getCurrentElement() != ply::Face || faceColorMode;
}

bool PLYReader::readMagic(QTextStream& stream, PLYHeader& header, std::atomic<bool> const& cancel)
{
    while (!stream.atEnd()) {
        if (cancel)
            return false;
        QStringList const tokens = readTokens(stream);
        if (isTextureLine(tokens))
            handleTexture(textureName(tokens), header);
        else if (!isEmptyOrComment(tokens))
            return tokens.size() == 1 && isKeyword(tokens.first(), "ply"_L1);
    }
    return false;
}

bool PLYReader::readHeader(QTextStream& stream, PLYHeader& header, std::atomic<bool> const& cancel)
{
    while (!stream.atEnd()) {
        if (cancel)
            return false;
        QStringList const tokens = readTokens(stream);
        if (isTextureLine(tokens)) {
            handleTexture(textureName(tokens), header);
        } else if (startsWith(tokens, "format"_L1)) {
            if (!handleFormat(tokens, header))
                return false;
        } else if (startsWith(tokens, "element"_L1)) {
            if (!handleElement(tokens, header))
                return false;
        } else if (startsWith(tokens, "property"_L1)) {
            if (!handleProperty(tokens, header))
                return false;
        } else if (!isEmptyOrComment(tokens) && !startsWith(tokens, "obj_info"_L1)) {
            return startsWith(tokens, "end_header"_L1) && isHeaderValid(header);
        }
    }
    return isHeaderValid(header);
}

bool PLYReader::handleFormat(QStringList const& tokens, PLYHeader& header) const
{
    if (tokens.size() != formatTokenCount)
        return false;
    auto const format = formatMap.constFind(tokens[1]);
    if (format == formatMap.constEnd())
        return false;
    header.setFormat(*format);
    return true;
}

bool PLYReader::handleElement(QStringList const& tokens, PLYHeader& header) const
{
    if (tokens.size() != elementTokenCount)
        return false;
    ply::ElementToken const* const element = elementOf(tokens[1]);
    if (!element) {
        header.setCurrentElement(ply::Other);
        return true;
    }
    if (header.getCurrentElement() != predecessorOf(element->value)) {
        qCritical().noquote()
            << element->title +
                   " element is not in the expected order. Current PLY reader doesn't support such"_L1;
        return false;
    }
    bool isNumber = false;
    int const count = tokens[2].toInt(&isNumber);
    if (element->value == ply::Material && count != 1)
        qWarning() << "PLYReader: only 1 velquin_material is supported! Found " << count;
    storeCount(element->value, count, header);
    return isNumber;
}

bool PLYReader::handleProperty(QStringList const& tokens, PLYHeader& header) const
{
    if (tokens.size() == listPropertyTokenCount && isKeyword(tokens[1], "list"_L1)) {
        if (!handleListProperty(tokens, header))
            return false;
        header.addProperty(ply::VertexIndices, ply::List);
        return true;
    }
    if (tokens.size() != propertyTokenCount)
        return false;
    ply::Type const type = typeMap.value(tokens[1], ply::Type(-1));
    ply::Property const property = propertyMap.value(tokens[2], ply::Unknown);
    if (property == ply::Unknown)
        qCritical().noquote() << u"Property %1 of type %2 is not handled! Property will be skipped."_s.arg(
            tokens[2], tokens[1]);
    if (!isPropertyAllowed(header, property))
        return false;
    header.addProperty(property, type);
    return true;
}

bool PLYReader::handleListProperty(QStringList const& tokens, PLYHeader& header) const
{
    if (tokens.size() != listPropertyTokenCount || !isKeyword(tokens[1], "list"_L1))
        return false;
    if (!isKeyword(tokens[4], "vertex_indices"_L1) && !isKeyword(tokens[4], "vertex_index"_L1))
        return false;
    auto const countType = typeMap.constFind(tokens[2]);
    auto const indicesType = typeMap.constFind(tokens[3]);
    if (countType == typeMap.constEnd() || indicesType == typeMap.constEnd())
        return false;
    header.setVertexIndicesTypes(*indicesType, *countType);
    return true;
}

bool PLYReader::handleTexture(QString const& name, PLYHeader& header) const
{
    if (!textureOverride.isNull()) {
        header.setTexture(textureOverride);
        return true;
    }
    QString const path = QFileInfo(fileName).dir().absoluteFilePath(name);
    if (!files::mayBeNamed(path)) {
        qWarning() << "Texture file" << files::absolutePath(path) << "not found";
        return false;
    }
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    QImage const image = images::claimsTooMuch(path) ? QImage() : reader.read();
    header.setTexture(image);
    return !image.isNull();
}

bool PLYReader::isHeaderValid(PLYHeader const& header) const
{
    if (header.getFormat() == ply::Format(-1) || header.getVertexPropertiesCount() < leastVertexProperties)
        return false;
    if (readMode != MeshMode || header.getFacesCount() != 0)
        return true;
    return header.getVerticesCount() == 0;
}

QString PLYReader::getTextureFileName(QByteArray const& data)
{
    return memory::resultOr(QString(), [&data] {
        QBuffer buffer;
        buffer.setData(data);
        buffer.open(QIODevice::ReadOnly);
        PLYSource source(buffer);
        QTextStream stream(&source);
        while (!stream.atEnd()) {
            QStringList const tokens = readTokens(stream);
            if (isTextureLine(tokens))
                return textureName(tokens);
            if (startsWith(tokens, "end_header"_L1))
                break;
        }
        return QString();
    });
}
