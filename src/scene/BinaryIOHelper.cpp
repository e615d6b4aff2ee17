#include "scene/BinaryIOHelper.h"

#include <QDataStream>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

namespace {

std::string const versionMagic = "{3D7A9E42-6B1C-4F08-9E35-A2C4D6F81B07}";

// A device may hand out less than it was asked for without being at its end.
bool readBytes(QDataStream& stream, char* target, int count)
{
    int done = 0;
    while (done < count) {
        int const arrived = stream.readRawData(target + done, count - done);
        if (arrived <= 0)
            return false;
        done += arrived;
        if (done < count)
            stream.resetStatus();
    }
    return true;
}

bool goesOnWith(QDataStream& stream, std::string_view expected)
{
    std::array<char, 256> block;
    while (!expected.empty()) {
        std::size_t const count = std::min(expected.size(), block.size());
        if (!readBytes(stream, block.data(), static_cast<int>(count)) ||
            std::memcmp(block.data(), expected.data(), count) != 0)
            return false;
        expected.remove_prefix(count);
    }
    return true;
}

quint32 lengthField(std::string const& magic)
{
    return qToLittleEndian(static_cast<quint32>(magic.size()));
}

bool holds(QDataStream& stream, std::string const& expected)
{
    quint32 const wanted = lengthField(expected);
    quint32 length = 0;
    return readBytes(stream, reinterpret_cast<char*>(&length), sizeof(length)) && length == wanted &&
           goesOnWith(stream, expected);
}

unsigned readNumber(QDataStream& stream)
{
    quint32 bytes = 0;
    if (!readBytes(stream, reinterpret_cast<char*>(&bytes), sizeof(bytes)))
        return 0;
    return stream.byteOrder() == QDataStream::BigEndian ? qFromBigEndian(bytes) : qFromLittleEndian(bytes);
}

} // namespace

void BinaryIOHelper::writeMagicString(QDataStream& stream, std::string const& magic)
{
    quint32 const length = lengthField(magic);
    stream.writeRawData(reinterpret_cast<char const*>(&length), sizeof(length));
    stream.writeRawData(magic.data(), static_cast<int>(magic.size()));
}

bool BinaryIOHelper::readAndCheckMagicString(QDataStream& stream, std::string const& expected)
{
    stream.startTransaction();
    if (!holds(stream, expected)) {
        stream.rollbackTransaction();
        return false;
    }
    return stream.commitTransaction();
}

void BinaryIOHelper::writeVersion(QDataStream& stream, unsigned major, unsigned minor)
{
    writeMagicString(stream, versionMagic);
    stream << quint32(major) << quint32(minor);
}

utility::Optional<std::pair<unsigned, unsigned>> BinaryIOHelper::readVersion(QDataStream& stream)
{
    if (!readAndCheckMagicString(stream, versionMagic))
        return {};
    unsigned const major = readNumber(stream);
    return std::pair(major, readNumber(stream));
}
