#include "Fuzz.h"
#include "stl/STLReader.h"
#include "stl/STLTagHandler.h"

#include <array>
#include <memory>
#include <utility>
#include <vector>

namespace {

using Surfaces = std::vector<std::unique_ptr<STLSurfaceData>>;

std::pair<bool, Surfaces> read(QByteArray const& input, STLTagHandler const* handler)
{
    std::atomic<bool> const cancel = false;
    STLReader reader(handler, false, {});
    bool const success = reader.read(input, cancel);
    Surfaces surfaces;
    for (STLSurfaceData* surface : reader.takeSTLSurfaceDataSets())
        surfaces.emplace_back(surface);
    return {success, std::move(surfaces)};
}

void requireSameTwice(QByteArray const& input, STLTagHandler const* handler)
{
    auto const [firstSuccess, first] = read(input, handler);
    auto const [secondSuccess, second] = read(input, handler);
    fuzz::require(firstSuccess == secondSuccess && first.size() == second.size());
    for (std::size_t i = 0; i < first.size(); ++i) {
        fuzz::requireSound(first[i]->getMesh());
        fuzz::requireSame(first[i]->getMesh(), second[i]->getMesh());
        fuzz::require(first[i]->getTag() == second[i]->getTag() &&
                      first[i]->getSubTag() == second[i]->getSubTag());
    }
}

} // namespace

// The input as it is, and as the facets behind a header whose count fits, through every tag handler.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    fuzz::silence();
    QByteArray const input = fuzz::bytesOf(data, size);
    auto const facets = static_cast<quint32>(size / 50);
    QByteArray wellFormed(80, 'h');
    for (int shift = 0; shift < 32; shift += 8)
        wellFormed += static_cast<char>(facets >> shift & 0xFF);
    wellFormed += input.left(qsizetype(50) * facets);

    InclusiveTagHandler const inclusive({1, 3});
    ExclusiveTagHandler const exclusive({1, 3});
    UseAllTagsHandler const all;
    for (STLTagHandler const* handler :
         std::array<STLTagHandler const*, 4>{nullptr, &inclusive, &exclusive, &all}) {
        requireSameTwice(input, handler);
        requireSameTwice(wellFormed, handler);
    }
    return 0;
}
