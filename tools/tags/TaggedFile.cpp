#include "tags/TaggedFile.h"

#include "Text.h"
#include "inspect/Formats.h"
#include "inspect/StlText.h"

using namespace Qt::StringLiterals;

namespace tool::tags {

namespace {

constexpr int largestTag = 255;
constexpr int smallestSubTag = -128;
constexpr int largestSubTag = 127;

std::optional<int> numberIn(QString const& text, int smallest, int largest)
{
    bool isNumber = false;
    int const number = text.toInt(&isNumber);
    bool const isAllowed = isNumber && number >= smallest && number <= largest;
    return isAllowed ? std::optional(number) : std::nullopt;
}

struct Side
{
    std::optional<int> tag;
    std::optional<int> subTag;
};

/// "*", "3", "3/1", "*/1".
std::optional<Side> sideFrom(QString const& text)
{
    QStringList const parts = text.split(u'/');
    Side side;
    if (parts.size() > 2)
        return {};
    if (parts[0] != "*"_L1 && !(side.tag = numberIn(parts[0], 0, largestTag)))
        return {};
    if (parts.size() == 2 && parts[1] != "*"_L1 &&
        !(side.subTag = numberIn(parts[1], smallestSubTag, largestSubTag)))
        return {};
    return side;
}

} // namespace

Problem TaggedFile::open(QString const& path)
{
    if (QString const problem = whyNotRegular(path); !problem.isEmpty())
        return {ExitCode::ReadOrWriteFailed, problem};
    file.setFileName(path);
    if (!file.open(QIODevice::ReadOnly))
        return {ExitCode::ReadOrWriteFailed, Text::tr("cannot be opened: ") + file.errorString()};
    Inspection ignored;
    std::optional<RecognisedFile> const known = recogniseFile(path, ignored);
    if (known && known->format->name != stlFormat.name)
        return {ExitCode::Unsupported,
                Text::tr("is %1; tags are in binary STL").arg(Text::shown(known->format->title))};
    QByteArray const head = file.peek(Source::headBytes);
    facetCount = stl::claimedFacets(head);
    if (stl::isReadAsText(head))
        return {ExitCode::Unsupported, Text::tr("is read as ASCII STL, which has no tags")};
    if (head.size() < stl::prefixBytes || file.size() != stl::fileBytes(facetCount))
        return {ExitCode::Malformed,
                Text::tr("expected a binary STL of %1 facets = %2 bytes, as its header says, found %3 bytes")
                    .arg(facetCount)
                    .arg(stl::fileBytes(facetCount))
                    .arg(file.size())};
    headerBytes = head.left(stl::headerBytes);
    return {};
}

Problem TaggedFile::forEach(std::function<void(QByteArrayView, stl::FacetTag)> const& visit)
{
    qint64 const seen = stl::forEachFacet(
        file, facetCount, [&visit](stl::FacetRecord const& facet) { visit(facet.record(), facet.tag()); });
    if (seen == facetCount)
        return {};
    return {
        ExitCode::ReadOrWriteFailed,
        Text::tr("expected %1 facets, could read %2: %3").arg(facetCount).arg(seen).arg(file.errorString())};
}

bool Rule::appliesTo(stl::FacetTag const& tag) const
{
    return (!fromTag || *fromTag == tag.tag) && (!fromSubTag || *fromSubTag == tag.subTag);
}

stl::FacetTag Rule::applied(stl::FacetTag const& tag) const
{
    return {toTag.value_or(tag.tag), toSubTag.value_or(tag.subTag)};
}

std::optional<Rule> ruleFrom(QString const& text)
{
    QStringList const sides = text.split(u'=');
    if (sides.size() != 2)
        return {};
    std::optional<Side> const from = sideFrom(sides[0]);
    std::optional<Side> const to = sideFrom(sides[1]);
    if (!from || !to)
        return {};
    return Rule{from->tag, from->subTag, to->tag, to->subTag};
}

QByteArray attributeBytes(stl::FacetTag const& tag)
{
    QByteArray bytes;
    bytes += static_cast<char>(tag.subTag);
    bytes += static_cast<char>(tag.tag);
    return bytes;
}

} // namespace tool::tags
