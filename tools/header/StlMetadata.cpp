#include "Text.h"
#include "framework/ScanMetadata.h"
#include "header/Metadata.h"
#include "inspect/MetadataRecord.h"
#include "inspect/StlBinary.h"
#include "inspect/StlText.h"
#include "output/OutputFile.h"

using namespace Qt::StringLiterals;

namespace tool {

namespace {

Problem readHeader(QIODevice& in, QByteArray& header)
{
    constexpr qint64 enoughForALine = 4096;
    QByteArray const head = in.peek(enoughForALine);
    if (stl::isReadAsText(head))
        return {ExitCode::Unsupported, Text::tr("is read as ASCII STL, which has no room for metadata")};
    header = in.read(stl::headerBytes);
    if (head.size() < stl::prefixBytes)
        return {ExitCode::Malformed,
                Text::counted("expected a header of 80 bytes and a facet count of 4, found %n byte(s)",
                              nullptr, head.size())};
    return {};
}

} // namespace

Problem readStlMetadata(QIODevice& in, Metadata& metadata)
{
    QByteArray header;
    Problem problem = readHeader(in, header);
    metadata = decodeMetadataRecord(header);
    return problem;
}

Problem writeStlMetadata(QIODevice& in, Metadata const& metadata, QFile& out)
{
    QByteArray header;
    if (Problem problem = readHeader(in, header))
        return problem;
    QByteArray const record =
        metadata ? conversions::toByteArray(*metadata) : QByteArray(qsizetype(stl::headerBytes), '\0');
    if (out.write(record) != record.size())
        return {ExitCode::ReadOrWriteFailed, whyNotWritten(out.fileName())};
    return copyRest(in, out);
}

} // namespace tool
