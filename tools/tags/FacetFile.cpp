#include "tags/FacetFile.h"

#include "Text.h"
#include "tags/TaggedFile.h"

#include <QtEndian>

#include <limits>

using namespace Qt::StringLiterals;

namespace tool::tags {

namespace {

constexpr qsizetype geometryBytes = 48;

QByteArray countBytes(qint64 count)
{
    QByteArray bytes(sizeof(quint32), '\0');
    qToLittleEndian(static_cast<quint32>(count), bytes.data());
    return bytes;
}

Problem failed(QString const& sentence)
{
    return sentence.isEmpty() ? Problem() : Problem{ExitCode::ReadOrWriteFailed, sentence};
}

} // namespace

FacetFile::FacetFile(QString const& path)
    : target(path)
    , output(path)
{}

Problem FacetFile::open(QByteArray const& header, bool mayReplace)
{
    if (QString const problem = output.open(mayReplace); !problem.isEmpty())
        return {ExitCode::ReadOrWriteFailed, problem};
    file.setFileName(output.temporaryPath());
    if (!file.open(QIODevice::WriteOnly))
        return {ExitCode::ReadOrWriteFailed, Text::tr("cannot be written: ") + file.errorString()};
    hasFailed = file.write(header + countBytes(0)) != stl::prefixBytes;
    return {};
}

void FacetFile::append(QByteArrayView record, stl::FacetTag const& tag)
{
    QByteArray const attribute = attributeBytes(tag);
    hasFailed = hasFailed || file.write(record.data(), geometryBytes) != geometryBytes ||
                file.write(attribute) != attribute.size();
    ++facetCount;
}

Problem FacetFile::finish()
{
    if (facetCount > std::numeric_limits<quint32>::max())
        return {ExitCode::ReadOrWriteFailed,
                Text::counted("%n facet(s) (is|are) more than an STL file can count", nullptr, facetCount)};
    bool const isWritten =
        !hasFailed && file.seek(stl::headerBytes) && file.write(countBytes(facetCount)) == 4 && file.flush();
    file.close();
    return isWritten ? Problem()
                     : Problem{ExitCode::ReadOrWriteFailed, whyNotWritten(output.temporaryPath())};
}

Problem FacetFile::check() const
{
    return failed(output.check(stl::fileBytes(facetCount)));
}

Problem FacetFile::moveIntoPlace()
{
    return failed(output.moveIntoPlace());
}

Problem FacetFile::commit()
{
    Problem const problem = check();
    return problem ? problem : moveIntoPlace();
}

} // namespace tool::tags
