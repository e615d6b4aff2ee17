#include "ply/PLYReader.h"
#include "ply/PLYValues.h"

#include <QDataStream>

#include <algorithm>

namespace ply {

namespace {

constexpr int notANumber = -1;

bool isFloat(QVariant const& value)
{
    return value.typeId() == QMetaType::Float || value.typeId() == QMetaType::Double;
}

bool fitsInt(double value)
{
    constexpr double limit = 2147483648.0;
    return value > -limit - 0.5 && value < limit - 0.5;
}

} // namespace

int toInt(QVariant const& value, bool* isNumber)
{
    if (!isFloat(value) || fitsInt(value.toDouble()))
        return value.toInt(isNumber);
    *isNumber = false;
    return notANumber;
}

} // namespace ply

namespace {

template <typename Stored>
Stored readAs(QDataStream& stream)
{
    Stored value{};
    stream >> value;
    return value;
}

double readDouble(QDataStream& stream)
{
    stream.setFloatingPointPrecision(QDataStream::DoublePrecision);
    auto const value = readAs<double>(stream);
    stream.setFloatingPointPrecision(QDataStream::SinglePrecision);
    return value;
}

constexpr int slotsOfGroup = ply::DiffuseRed - ply::AmbientRed;
static_assert(ply::SpecularRed - ply::DiffuseRed == slotsOfGroup &&
              ply::EmissiveRed - ply::SpecularRed == slotsOfGroup);

bool setChannel(QColor& color, int channel, QVariant const& value)
{
    using Setter = void (QColor::*)(int);
    constexpr Setter setters[] = {&QColor::setRed, &QColor::setGreen, &QColor::setBlue, &QColor::setAlpha};
    bool isNumber = false;
    // QColor clamps too, but logs a line for each value.
    int const number = std::clamp(ply::toInt(value, &isNumber), 0, 255);
    if (isNumber)
        (color.*setters[channel])(number);
    return isNumber;
}

} // namespace

QVariant PLYReader::readBinaryData(QDataStream& stream, ply::Type type)
{
    switch (type) {
    case ply::UInt8:
        return int(readAs<quint8>(stream));
    case ply::Int16:
        return int(readAs<qint16>(stream));
    case ply::Int32:
        return int(readAs<qint32>(stream));
    case ply::UInt32:
        return uint(readAs<qint32>(stream));
    case ply::Float32:
        return readAs<float>(stream);
    case ply::Float64:
        return readDouble(stream);
    default:
        return {};
    }
}

bool PLYReader::readColor(QDataStream& stream, QColor& color, ply::Property property, ply::Type type,
                          std::atomic<bool> const& cancel)
{
    return !cancel && setChannel(color, property - ply::Red, readBinaryData(stream, type));
}

bool PLYReader::readMaterialColor(QDataStream& stream, QColor& color, ply::Property property, ply::Type type,
                                  std::atomic<bool> const& cancel)
{
    int const channel =
        property == ply::Alpha ? ply::Alpha - ply::Red : (property - ply::AmbientRed) % slotsOfGroup;
    return !cancel && setChannel(color, channel, readBinaryData(stream, type));
}

bool PLYReader::readVectorComponent(QDataStream& stream, QVector3D& vector, ply::Property property,
                                    ply::Type type, std::atomic<bool> const& cancel)
{
    if (cancel)
        return false;
    bool isNumber = false;
    int const component = (property - ply::X) % 3;
    vector[component] = readBinaryData(stream, type).toFloat(&isNumber);
    return isNumber;
}

bool PLYReader::readTextureCoord(QDataStream& stream, QVector2D& uv, ply::Property property, ply::Type type)
{
    bool isNumber = false;
    uv[property - ply::TextureU] = readBinaryData(stream, type).toFloat(&isNumber);
    return isNumber;
}
