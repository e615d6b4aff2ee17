#include "Fuzz.h"
#include "stl/STLReader.h"
#include "stl/STLTagHandler.h"

#include <QBuffer>

#include <array>
#include <atomic>
#include <memory>
#include <utility>
#include <vector>

namespace {

struct Outcome
{
    bool success;
    geometry::Mesh mesh;
    std::vector<std::unique_ptr<STLSurfaceData>> surfaces;
};

template <typename Source>
Outcome read(Source&& source, STLTagHandler const* handler)
{
    std::atomic<bool> const cancel = false;
    STLReader reader(handler, false, {});
    Outcome outcome{reader.read(std::forward<Source>(source), cancel), reader.getMesh(), {}};
    for (STLSurfaceData* surface : reader.takeSTLSurfaceDataSets())
        outcome.surfaces.emplace_back(surface);
    return outcome;
}

void requireSound(Outcome const& outcome)
{
    fuzz::requireSound(outcome.mesh);
    fuzz::require(outcome.success || outcome.surfaces.empty());
    for (auto const& surface : outcome.surfaces)
        fuzz::requireSound(surface->getMesh());
}

void requireSame(Outcome const& a, Outcome const& b)
{
    fuzz::require(a.success == b.success && a.surfaces.size() == b.surfaces.size());
    fuzz::requireSame(a.mesh, b.mesh);
    for (std::size_t i = 0; i < a.surfaces.size(); ++i) {
        fuzz::requireSame(a.surfaces[i]->getMesh(), b.surfaces[i]->getMesh());
        fuzz::require(a.surfaces[i]->getTag() == b.surfaces[i]->getTag() &&
                      a.surfaces[i]->getSubTag() == b.surfaces[i]->getSubTag());
    }
}

// From bytes, once more, and from a device.
void requireSameEveryWay(QByteArray input, STLTagHandler const* handler)
{
    Outcome const outcome = read(input, handler);
    requireSound(outcome);
    requireSame(outcome, read(input, handler));
    QBuffer device(&input);
    requireSame(outcome, read(&device, handler));
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
        requireSameEveryWay(input, handler);
        requireSameEveryWay(wellFormed, handler);
    }
    return 0;
}
