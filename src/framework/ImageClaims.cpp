#include "framework/ImageClaims.h"

#include <QFile>
#include <QtEndian>

#include <algorithm>
#include <array>

namespace images {

namespace {

constexpr std::array<char, 8> pngSignature = {'\x89', 'P', 'N', 'G', '\r', '\n', '\x1a', '\n'};
constexpr std::array<char, 4> imageEnd = {'I', 'E', 'N', 'D'};
constexpr qint64 checksumBytes = 4;
constexpr qint64 harmless = 1024LL * 1024;
constexpr char lowerCaseBit = 0x20;

template <std::size_t count>
bool readExactly(QFile& file, std::array<char, count>& bytes)
{
    return file.read(bytes.data(), count) == qint64(count);
}

} // namespace

bool claimsTooMuch(QString const& path)
{
    QFile file(path);
    std::array<char, pngSignature.size()> start;
    if (!file.open(QIODevice::ReadOnly) || file.isSequential() || !readExactly(file, start) ||
        start != pngSignature)
        return false;
    // The length of a chunk's content, its type, the content, a checksum.
    std::array<char, 8> chunk;
    while (readExactly(file, chunk)) {
        qint64 const claimed = qFromBigEndian<quint32>(chunk.data());
        qint64 const left = file.size() - file.pos();
        // What follows the end is no chunk.
        if (std::equal(imageEnd.begin(), imageEnd.end(), chunk.begin() + imageEnd.size()))
            return false;
        bool const isAncillary = (chunk[4] & lowerCaseBit) != 0;
        if (isAncillary && claimed > left && claimed >= harmless)
            return true;
        if (claimed + checksumBytes > left || !file.seek(file.pos() + claimed + checksumBytes))
            return false;
    }
    return false;
}

} // namespace images
