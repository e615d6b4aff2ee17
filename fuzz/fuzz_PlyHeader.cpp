#include "PlyOutcome.h"
#include "support/PlyFiles.h"

namespace {

// Three positions of 0, then faces without a corner beyond the first vertex, the same in either byte order.
QByteArray body()
{
    support::PLYBody rows;
    rows.bytes.fill('\0', 36);
    for (int i = 0; i < 60; ++i)
        rows.triangle(0, 0, 0);
    return rows.bytes;
}

void requireTextureName(QByteArray const& file)
{
    QString const name = PLYReader::getTextureFileName(file);
    fuzz::require(name == PLYReader::getTextureFileName(file));
    fuzz::require(!name.contains(QStringLiteral("  ")));
}

} // namespace

// Four decisions, then a header: as a whole file, and as the lines between the format and the end of a header
// with a body behind it.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    fuzz::Choices choices(fuzz::bytesOf(data, size));
    auto const settings = fuzz::PlySettings::from(choices);
    bool const isWhole = choices.flag();
    QByteArray const lines = choices.rest();
    QByteArray const file =
        isWhole ? lines : support::plyLines(support::plyStart) + lines + "\nend_header\n" + body();
    requireTextureName(file);
    fuzz::requireSameEveryWay(file, settings);
    return 0;
}
