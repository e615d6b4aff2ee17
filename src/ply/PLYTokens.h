#pragma once

#include "ply/PLYTypes.h"

#include <QLatin1StringView>

#include <array>

/// The words of a PLY header and what they stand for. Lookup, writer and tests walk these tables.
namespace ply {

template <typename Value>
struct Token
{
    QLatin1StringView name;
    Value value;
};

inline constexpr std::array formatTokens{
    Token<Format>{QLatin1StringView("ascii"), Ascii},
    Token<Format>{QLatin1StringView("binary_little_endian"), BinaryLittleEndian},
    Token<Format>{QLatin1StringView("binary_big_endian"), BinaryBigEndian},
};
static_assert(formatTokens.size() == 3);

inline constexpr std::array typeTokens{
    Token<Type>{QLatin1StringView("char"), Int8},      Token<Type>{QLatin1StringView("int8"), Int8},
    Token<Type>{QLatin1StringView("uchar"), UInt8},    Token<Type>{QLatin1StringView("uint8"), UInt8},
    Token<Type>{QLatin1StringView("short"), Int16},    Token<Type>{QLatin1StringView("int16"), Int16},
    Token<Type>{QLatin1StringView("ushort"), UInt16},  Token<Type>{QLatin1StringView("uint16"), UInt16},
    Token<Type>{QLatin1StringView("int"), Int32},      Token<Type>{QLatin1StringView("int32"), Int32},
    Token<Type>{QLatin1StringView("uint"), UInt32},    Token<Type>{QLatin1StringView("uint32"), UInt32},
    Token<Type>{QLatin1StringView("float"), Float32},  Token<Type>{QLatin1StringView("float32"), Float32},
    Token<Type>{QLatin1StringView("double"), Float64}, Token<Type>{QLatin1StringView("float64"), Float64},
    Token<Type>{QLatin1StringView("list"), List},
};
static_assert(typeTokens.size() == 17);

struct ElementToken
{
    QLatin1StringView name;
    Element value;
    /// What a message calls it.
    QLatin1StringView title;
};

/// In the order in which a header must declare them.
inline constexpr std::array elementTokens{
    ElementToken{QLatin1StringView("vertex"), Vertex, QLatin1StringView("Vertex")},
    ElementToken{QLatin1StringView("face"), Face, QLatin1StringView("Face")},
    ElementToken{QLatin1StringView("velquin_material"), Material, QLatin1StringView("velquin_material")},
};
static_assert(elementTokens.size() == Other);

inline constexpr std::array propertyTokens{
    Token<Property>{QLatin1StringView("x"), X},
    Token<Property>{QLatin1StringView("y"), Y},
    Token<Property>{QLatin1StringView("z"), Z},
    Token<Property>{QLatin1StringView("nx"), Nx},
    Token<Property>{QLatin1StringView("ny"), Ny},
    Token<Property>{QLatin1StringView("nz"), Nz},
    Token<Property>{QLatin1StringView("red"), Red},
    Token<Property>{QLatin1StringView("green"), Green},
    Token<Property>{QLatin1StringView("blue"), Blue},
    Token<Property>{QLatin1StringView("alpha"), Alpha},
    Token<Property>{QLatin1StringView("texture_u"), TextureU},
    Token<Property>{QLatin1StringView("u"), TextureU},
    Token<Property>{QLatin1StringView("s"), TextureU},
    Token<Property>{QLatin1StringView("texture_v"), TextureV},
    Token<Property>{QLatin1StringView("v"), TextureV},
    Token<Property>{QLatin1StringView("t"), TextureV},
    Token<Property>{QLatin1StringView("vertex_indices"), VertexIndices},
    Token<Property>{QLatin1StringView("ambient_red"), AmbientRed},
    Token<Property>{QLatin1StringView("ambient_green"), AmbientGreen},
    Token<Property>{QLatin1StringView("ambient_blue"), AmbientBlue},
    Token<Property>{QLatin1StringView("ambient_intensity"), AmbientIntensity},
    Token<Property>{QLatin1StringView("diffuse_red"), DiffuseRed},
    Token<Property>{QLatin1StringView("diffuse_green"), DiffuseGreen},
    Token<Property>{QLatin1StringView("diffuse_blue"), DiffuseBlue},
    Token<Property>{QLatin1StringView("diffuse_intensity"), DiffuseIntensity},
    Token<Property>{QLatin1StringView("specular_red"), SpecularRed},
    Token<Property>{QLatin1StringView("specular_green"), SpecularGreen},
    Token<Property>{QLatin1StringView("specular_blue"), SpecularBlue},
    Token<Property>{QLatin1StringView("specular_intensity"), SpecularIntensity},
    Token<Property>{QLatin1StringView("emissive_red"), EmissiveRed},
    Token<Property>{QLatin1StringView("emissive_green"), EmissiveGreen},
    Token<Property>{QLatin1StringView("emissive_blue"), EmissiveBlue},
    Token<Property>{QLatin1StringView("emissive_intensity"), EmissiveIntensity},
    Token<Property>{QLatin1StringView("shininess"), Shininess},
    Token<Property>{QLatin1StringView("transparency"), Transparency},
    Token<Property>{QLatin1StringView("base_reflectance"), BaseReflectance},
    Token<Property>{QLatin1StringView("detail_noise"), DetailNoise},
};
static_assert(propertyTokens.size() == 37);

/// A channel of the colour of a vertex or face.
constexpr bool isColor(Property property)
{
    return property >= Red && property <= Alpha;
}

/// Bytes that `PLYReader::readBinaryData` consumes for one value, by type.
inline constexpr std::array<int, 9> bodyBytes{0, 1, 2, 0, 4, 4, 4, 8, 0};
static_assert(bodyBytes.size() == List + 1);

/// The same for any value of the type, "not set" included.
constexpr int bytesInBody(Type type)
{
    return type >= Int8 && type <= List ? bodyBytes[static_cast<std::size_t>(type)] : 0;
}

} // namespace ply
