#include "PngHeader.h"

#include <QtEndian>

namespace support {

namespace {

QByteArray bigEndian(quint32 value)
{
    QByteArray bytes(4, '\0');
    qToBigEndian(value, bytes.data());
    return bytes;
}

quint32 crcOf(QByteArray const& bytes)
{
    constexpr quint32 polynomial = 0xEDB88320u;
    quint32 crc = ~0u;
    for (char const byte : bytes) {
        crc ^= static_cast<quint8>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 1) != 0 ? crc >> 1 ^ polynomial : crc >> 1;
    }
    return ~crc;
}

QByteArray chunk(QByteArray const& type, QByteArray const& content)
{
    return bigEndian(static_cast<quint32>(content.size())) + type + content +
           bigEndian(crcOf(type + content));
}

} // namespace

QByteArray pngHeader(int width, int height)
{
    QByteArray const size = bigEndian(static_cast<quint32>(width)) + bigEndian(static_cast<quint32>(height));
    QByteArray const rgbOfEightBits("\x08\x02\0\0\0", 5);
    return "\x89PNG\r\n\x1a\n" + chunk("IHDR", size + rgbOfEightBits) + chunk("IDAT", {}) + chunk("IEND", {});
}

} // namespace support
