#pragma once

#include "Problem.h"
#include "inspect/StlBinary.h"

#include <QFile>

#include <functional>

namespace tool::tags {

/// A binary STL file whose facets are copied byte for byte.
class TaggedFile
{
public:
    /// Opens `path`, which must hold exactly the facets that it claims.
    Problem open(QString const& path);

    QByteArray const& header() const { return headerBytes; }
    qint64 facets() const { return facetCount; }
    /// Calls `visit` with the 50 bytes and the tag of each facet, in file order, from the first on.
    Problem forEach(std::function<void(QByteArrayView, stl::FacetTag)> const& visit);

private:
    QFile file;
    QByteArray headerBytes;
    qint64 facetCount = 0;
};

/// Which facets a written tag applies to, and which it becomes: "3=31", "4/1=32/0", "*=1". A part that is not
/// given stays (on the right) or is any (on the left).
struct Rule
{
    std::optional<int> fromTag;
    std::optional<int> fromSubTag;
    std::optional<int> toTag;
    std::optional<int> toSubTag;

    bool appliesTo(stl::FacetTag const& tag) const;
    stl::FacetTag applied(stl::FacetTag const& tag) const;
};

/// A rule from its text; none when it is not of that form or a number is out of its range (tags 0 to 255,
/// subTags -128 to 127).
std::optional<Rule> ruleFrom(QString const& text);

/// The two attribute bytes of a tag.
QByteArray attributeBytes(stl::FacetTag const& tag);

} // namespace tool::tags
