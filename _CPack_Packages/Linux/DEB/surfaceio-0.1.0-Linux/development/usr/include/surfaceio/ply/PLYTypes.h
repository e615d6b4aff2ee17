#pragma once

#include <QtGlobal>

/// The vocabulary of a PLY header.
///
/// The enumerators are unscoped and their names distinct, so that `ply::X` and `ply::Property::X` are the
/// same. -1 means "not set" for `Format`, `Type` and `Element`.
namespace ply {

/// How the body is encoded.
enum Format : qint32
{
    Ascii = 0,
    BinaryLittleEndian = 1,
    BinaryBigEndian = 2
};

/// What a property's values are. `Int8`, `UInt16` and `List` values take no bytes when a single value is
/// read (see `PLYReader`).
enum Type : qint32
{
    Int8 = 0,
    UInt8 = 1,
    Int16 = 2,
    UInt16 = 3,
    Int32 = 4,
    UInt32 = 5,
    Float32 = 6,
    Float64 = 7,
    List = 8
};

/// What a header declares properties for.
enum Element : qint32
{
    Vertex = 0,
    Face = 1,
    Material = 2,
    Other = 3
};

/// What a property means. 14 is unused.
enum Property : qint32
{
    Unknown = 0,
    X = 1,
    Y = 2,
    Z = 3,
    Nx = 4,
    Ny = 5,
    Nz = 6,
    Red = 7,
    Green = 8,
    Blue = 9,
    Alpha = 10,
    TextureU = 11,
    TextureV = 12,
    VertexIndices = 13,
    AmbientRed = 15,
    AmbientGreen = 16,
    AmbientBlue = 17,
    AmbientIntensity = 18,
    DiffuseRed = 19,
    DiffuseGreen = 20,
    DiffuseBlue = 21,
    DiffuseIntensity = 22,
    SpecularRed = 23,
    SpecularGreen = 24,
    SpecularBlue = 25,
    SpecularIntensity = 26,
    EmissiveRed = 27,
    EmissiveGreen = 28,
    EmissiveBlue = 29,
    EmissiveIntensity = 30,
    Shininess = 31,
    Transparency = 32,
    BaseReflectance = 33,
    DetailNoise = 34
};

} // namespace ply
