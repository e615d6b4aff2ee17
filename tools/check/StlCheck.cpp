#include "Text.h"
#include "check/Checkers.h"
#include "inspect/StlBinary.h"
#include "inspect/StlText.h"

#include <QFile>

#include <set>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

/// The attribute words of a file, as those see them who keep colours in them: five bits for each of blue,
/// green and red, and the highest bit to say that they are valid.
struct ColourWords
{
    qint64 zero = 0;
    qint64 valid = 0;
    qint64 other = 0;
    std::set<stl::FacetTag> distinct;

    void add(stl::FacetTag const& tag)
    {
        constexpr int validBit = 0x80;
        distinct.insert(tag);
        if ((tag.tag & validBit) != 0)
            ++valid;
        else if (tag == stl::FacetTag())
            ++zero;
        else
            ++other;
    }

    bool lookLikeColours() const
    {
        constexpr std::size_t manyTags = 8;
        return valid > 0 && other == 0 && (zero == 0 || distinct.size() > manyTags);
    }
};

struct FacetCounts
{
    qint64 degenerate = 0;
    qint64 slivers = 0;
    ColourWords words;

    void add(stl::FacetRecord const& facet)
    {
        words.add(facet.tag());
        bool const isDegenerate = facet.corner(0) == facet.corner(1) || facet.corner(1) == facet.corner(2) ||
                                  facet.corner(2) == facet.corner(0);
        degenerate += isDegenerate;
        slivers += !isDegenerate && facet.area() == 0.0;
    }
};

void checkWords(Source const& source, ColourWords const& words, Findings& findings)
{
    bool const saysColor = source.head.left(stl::headerBytes).contains("COLOR=");
    bool const hasWords = words.valid + words.other > 0;
    if (!(saysColor && hasWords) && !words.lookLikeColours())
        return;
    char const* const text =
        saysColor
            ? QT_TRANSLATE_N_NOOP("Text",
                                  "the attribute words look like colours of 15 bits, and the header says "
                                  "COLOR=; as tags they make %n surface(s)")
            : QT_TRANSLATE_N_NOOP(
                  "Text",
                  "the attribute words look like colours of 15 bits; as tags they make %n surface(s)");
    findings.add("stl-colour-words"_L1, Text::counted(text, nullptr, words.distinct.size()));
}

} // namespace

void checkStlFacets(Source const& source, Findings& findings)
{
    QFile file(source.path);
    if (stl::isReadAsText(source.head) || !file.open(QIODevice::ReadOnly))
        return;
    FacetCounts facets;
    stl::forEachFacet(file, stl::claimedFacets(source.head),
                      [&](stl::FacetRecord const& facet) { facets.add(facet); });
    checkWords(source, facets.words, findings);
    if (facets.degenerate > 0)
        findings.add("degenerate-facets"_L1,
                     Text::counted("%n facet(s) with two equal corners", nullptr, facets.degenerate));
    if (facets.slivers > 0)
        findings.add("sliver-facets"_L1, Text::counted("%n facet(s) without area", nullptr, facets.slivers));
}

} // namespace tool
