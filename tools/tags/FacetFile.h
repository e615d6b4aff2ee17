#pragma once

#include "Problem.h"
#include "inspect/StlBinary.h"
#include "output/OutputFile.h"

#include <QFile>

namespace tool::tags {

/// A binary STL file that is written facet by facet, and appears when it is whole.
class FacetFile
{
public:
    explicit FacetFile(QString const& path);

    QString const& path() const { return target; }
    qint64 facets() const { return facetCount; }
    Problem open(QByteArray const& header, bool mayReplace);
    /// Adds a facet: the geometry of `record` (50 bytes) under the tag. A failure shows in `finish`.
    void append(QByteArrayView record, stl::FacetTag const& tag);
    /// Writes the facet count and closes the file, still in its temporary place.
    Problem finish();
    /// Whether it is whole, and may be moved into place.
    Problem check() const;
    Problem moveIntoPlace();
    /// Both.
    Problem commit();

private:
    QString target;
    OutputFile output;
    QFile file;
    qint64 facetCount = 0;
    bool hasFailed = false;
};

} // namespace tool::tags
