#include "scene/XmlLimits.h"

#include <QStringDecoder>
#include <QXmlStreamReader>

#include <array>
#include <string_view>

using namespace Qt::StringLiterals;

namespace xmllimits {

namespace {

// The markup as it stands, before any entity is followed and any attribute compared: a look at the bytes.
class MarkupScanner
{
public:
    explicit MarkupScanner(std::string_view text_)
        : text(text_)
    {}

    bool isWithinLimits()
    {
        while (position < text.size()) {
            bool const opens = text[position] == '<';
            if (opens && (skips("<!--", "-->") || skips("<![CDATA[", "]]>") || skips("<?", "?>")))
                continue;
            if (!(opens ? scanTag() : scanContent()))
                return false;
        }
        return true;
    }

private:
    bool skips(std::string_view begin, std::string_view end)
    {
        if (text.substr(position, begin.size()) != begin)
            return false;
        std::size_t const found = text.find(end, position + begin.size());
        position = found == std::string_view::npos ? text.size() : found + end.size();
        return true;
    }

    bool scanContent()
    {
        std::size_t const end = std::min(text.find('<', position), text.size());
        bool const fine = countReferences(text.substr(position, end - position), references, maxReferences);
        position = end;
        return fine;
    }

    bool scanTag()
    {
        if (text.substr(position, doctype.size()) == doctype)
            return scanDoctype();
        int attributes = 0;
        ++position;
        while (position < text.size() && text[position] != '>' && text[position] != '<') {
            char const c = text[position];
            if (c == '=' && ++attributes > maxAttributes)
                return false;
            if (c != '"' && c != '\'')
                ++position;
            else if (!countReferences(quoted(), references, maxReferences))
                return false;
        }
        position += position < text.size() && text[position] == '>' ? 1 : 0;
        return true;
    }

    bool scanDoctype()
    {
        std::size_t const begin = position;
        int brackets = 0;
        position += doctype.size();
        while (position < text.size()) {
            if (position - begin > maxDoctypeBytes)
                return false;
            char const c = text[position];
            if (c == '"' || c == '\'') {
                if (!countReferences(quoted(), nestedReferences, maxNestedReferences))
                    return false;
                continue;
            }
            if (skips("<!--", "-->") || skips("<?", "?>"))
                continue;
            ++position;
            brackets += c == '[' ? 1 : c == ']' ? -1 : 0;
            if (c == '>' && brackets <= 0)
                break;
        }
        return position - begin <= maxDoctypeBytes;
    }

    // What stands between the quotes; the position moves behind them.
    std::string_view quoted()
    {
        std::size_t const begin = position + 1;
        std::size_t const end = std::min(text.find(text[position], begin), text.size());
        position = std::min(end + 1, text.size());
        return text.substr(begin, end - begin);
    }

    static bool countReferences(std::string_view content, int& count, int limit)
    {
        for (std::size_t at = content.find('&'); at != std::string_view::npos; at = content.find('&', at + 1))
            if (!isPredefined(content.substr(at + 1)) && ++count > limit)
                return false;
        return true;
    }

    // Stands for one character, whatever the document declares.
    static bool isPredefined(std::string_view name)
    {
        constexpr std::array<std::string_view, 6> predefined = {"#", "lt;", "gt;", "amp;", "quot;", "apos;"};
        for (std::string_view const candidate : predefined)
            if (name.substr(0, candidate.size()) == candidate)
                return true;
        return false;
    }

    static constexpr std::string_view doctype = "<!DOCTYPE";

    std::string_view text;
    std::size_t position = 0;
    int references = 0;
    int nestedReferences = 0;
};

// What entities and defaults make of it: a look at the tokens.
class TokenCounter
{
public:
    explicit TokenCounter(qsizetype documentBytes)
        : mostMemory(baseMemory + memoryForEachByte * documentBytes)
    {}

    bool take(QXmlStreamReader const& xml)
    {
        switch (xml.tokenType()) {
        case QXmlStreamReader::StartElement:
            ++depth;
            shapeDepth += xml.qualifiedName() == "shape"_L1 ? 1 : 0;
            takeAttributes(xml.attributes());
            memory += nodeMemory;
            break;
        case QXmlStreamReader::EndElement:
            --depth;
            shapeDepth -= xml.qualifiedName() == "shape"_L1 ? 1 : 0;
            break;
        default:
            characters += xml.text().size() * (1 + qint64(shapeDepth));
            memory += nodeMemory + characterMemory * xml.text().size();
        }
        return ++tokens <= maxTokens && depth <= maxDepth && attributeCount <= maxAttributesOfAll &&
               characters <= maxCharacters && memory <= mostMemory;
    }

private:
    // As measured with Qt 6.4 on a 64-bit machine.
    static constexpr qint64 nodeMemory = 260;
    static constexpr qint64 attributeListMemory = 1750;
    static constexpr qint64 attributeMemory = 430;
    static constexpr qint64 characterMemory = 4;

    void takeAttributes(QXmlStreamAttributes const& attributes)
    {
        attributeCount += attributes.size();
        memory += (attributes.isEmpty() ? 0 : attributeListMemory) + attributeMemory * attributes.size();
        for (QXmlStreamAttribute const& attribute : attributes) {
            characters += attribute.value().size();
            memory += characterMemory * attribute.value().size();
        }
    }

    int tokens = 0;
    int depth = 0;
    int shapeDepth = 0;
    qint64 attributeCount = 0;
    qint64 characters = 0;
    qint64 memory = 0;
    qint64 mostMemory;
};

// In UTF-16 and UTF-32 the markup is not at hand as bytes.
QByteArray withMarkupAsBytes(QByteArray const& document)
{
    auto const encoding = QStringDecoder::encodingForData(document, u'<');
    if (!encoding || *encoding == QStringDecoder::Utf8)
        return document;
    QStringDecoder decode(*encoding);
    return QString(decode(document)).toUtf8();
}

} // namespace

bool isWithinLimits(QByteArray const& document)
{
    if (document.size() > maxBytes)
        return false;
    QByteArray const bytes = withMarkupAsBytes(document);
    if (!MarkupScanner({bytes.constData(), static_cast<std::size_t>(bytes.size())}).isWithinLimits())
        return false;
    QXmlStreamReader xml(document);
    // As QDomDocument reads by default.
    xml.setNamespaceProcessing(false);
    TokenCounter counter(document.size());
    while (!xml.atEnd()) {
        xml.readNext();
        if (!counter.take(xml))
            return false;
    }
    return true;
}

} // namespace xmllimits
