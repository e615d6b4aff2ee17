#include "header/Metadata.h"

#include "Text.h"
#include "convert/Suffixes.h"
#include "output/OutputFile.h"

#include <array>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

constexpr std::array rows = {
    MetadataFormat{"stl"_L1, readStlMetadata, writeStlMetadata},
    MetadataFormat{"ply"_L1, readPlyMetadata, writePlyMetadata},
};

} // namespace

MetadataFormat const* metadataFormatFor(QString const& path)
{
    return rowFor(path, std::span<MetadataFormat const>(rows));
}

Problem copyRest(QIODevice& in, QFile& out)
{
    constexpr qint64 chunk = 1 << 20;
    for (QByteArray bytes = in.read(chunk); !bytes.isEmpty(); bytes = in.read(chunk)) {
        if (out.write(bytes) != bytes.size())
            return {ExitCode::ReadOrWriteFailed, whyNotWritten(out.fileName())};
    }
    return {};
}

} // namespace tool
