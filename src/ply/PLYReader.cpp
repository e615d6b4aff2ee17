#include "ply/PLYReader.h"

#include "framework/MemoryGuard.h"
#include "ply/PLYSource.h"
#include "ply/PLYTokens.h"

#include <QBuffer>
#include <QDebug>
#include <QFile>
#include <QTextStream>

namespace {

template <typename Value, typename Tokens>
QMap<QString, Value> mapOf(Tokens const& tokens)
{
    QMap<QString, Value> map;
    for (auto const& token : tokens)
        map.insert(token.name, token.value);
    return map;
}

bool ensureReadable(QIODevice& device)
{
    if (device.isReadable())
        return true;
    if (device.isOpen())
        device.close();
    return device.open(QIODevice::ReadOnly);
}

} // namespace

PLYReader::PLYReader(ReadMode readMode_)
    : SurfaceReader(false)
    , readMode(readMode_)
{
    initMaps();
}

PLYReader::~PLYReader() = default;

void PLYReader::initMaps()
{
    propertyMap = mapOf<ply::Property>(ply::propertyTokens);
    typeMap = mapOf<ply::Type>(ply::typeTokens);
    formatMap = mapOf<ply::Format>(ply::formatTokens);
}

void PLYReader::activeFaceColorMode(bool active)
{
    faceColorMode = active;
}

void PLYReader::setTextureOverride(QImage const& image)
{
    textureOverride = image;
}

bool PLYReader::read(std::atomic<bool> const& cancel)
{
    if (fileName.isEmpty())
        return false;
    return memory::succeeds([&] {
        QFile file(fileName);
        return read(&file, cancel);
    });
}

bool PLYReader::read(QByteArray const& data, std::atomic<bool> const& cancel)
{
    return memory::succeeds([&] {
        QBuffer buffer;
        buffer.setData(data);
        return read(&buffer, cancel);
    });
}

bool PLYReader::read(QIODevice* device, std::atomic<bool> const& cancel)
{
    return memory::succeeds([&] { return device && ensureReadable(*device) && readDevice(*device, cancel); });
}

bool PLYReader::readDevice(QIODevice& device, std::atomic<bool> const& cancel)
{
    PLYSource source(device);
    QTextStream text(&source);
    PLYHeader header;
    if (!source.isReady() || !readMagic(text, header, cancel) || !readHeader(text, header, cancel))
        return false;
    if (cancel || source.hasEndlessLine())
        return false;
    if (header.getFormat() == ply::Ascii) {
        qWarning() << "This PLY is encoded in ASCII. We only support binary PLYs";
        return false;
    }
    source.startBody();
    return readBinary(&source, header, header.getFormat(), cancel);
}
