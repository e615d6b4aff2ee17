#include "PlyOutcome.h"
#include "support/PlyFiles.h"

#include <array>

namespace {

using fuzz::Choices;

constexpr std::array types = {"float", "double", "uchar", "int", "short", "uint", "char", "ushort"};
constexpr std::array counts = {0, 1, 2, 3, 4, 7, 40, 2000, 2147483647};

void addProperties(Choices& choices, QByteArrayList const& names, QByteArrayList& lines)
{
    if (choices.flag())
        return;
    QByteArray const type = choices.of(types);
    for (QByteArray const& name : names)
        lines << "property " + type + ' ' + name;
}

// A header that passes, with whatever properties and types the input decides.
QByteArray header(Choices& choices)
{
    QByteArrayList lines = {"ply", choices.flag() ? "format binary_big_endian 1.0"
                                                  : "format binary_little_endian 1.0"};
    if (choices.flag())
        lines << "comment TextureFile a.png";
    lines << support::plyCount("vertex", choices.of(counts));
    addProperties(choices, {"x", "y", "z"}, lines);
    addProperties(choices, {"nx", "ny", "nz"}, lines);
    addProperties(choices, {"red", "green", "blue"}, lines);
    addProperties(choices, {"alpha"}, lines);
    addProperties(choices, {"texture_u", "texture_v"}, lines);
    addProperties(choices, {"quality"}, lines);
    lines << support::plyCount("face", choices.of(counts));
    QByteArray const countType = choices.of(types);
    lines << "property list " + countType + ' ' + choices.of(types) + " vertex_indices";
    addProperties(choices, {"red", "green", "blue"}, lines);
    addProperties(choices, {"flags"}, lines);
    if (choices.flag())
        lines += support::plyMaterial;
    return support::plyLines(lines + QByteArrayList{"end_header"});
}

} // namespace

// Some thirty decisions on the reader and the header, then the body.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    Choices choices(fuzz::bytesOf(data, size));
    auto const settings = fuzz::PlySettings::from(choices);
    QByteArray const head = header(choices);
    auto const outcome = fuzz::requireSameEveryWay(head + choices.rest(), settings);
    // Each face of such a header is one triangle.
    if (outcome.success && settings.faceColors && settings.mode == PLYReader::MeshMode)
        fuzz::require(outcome.faceColors.size() * 4 == outcome.mesh.indices.size());
    return 0;
}
