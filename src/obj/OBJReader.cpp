#include "obj/OBJReader.h"

#include "framework/MemoryGuard.h"

#include <QFile>
#include <QTextStream>

#include <array>
#include <ostream>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array errorTexts = {
    ""_L1,
    "no file name"_L1,
    "cannot open file"_L1,
    "no data"_L1,
    "cancelled"_L1,
    "multiple material files unsupported"_L1,
    "incomplete uv mapping"_L1,
    "incomplete vertex coordinates"_L1,
    "incomplete texture coordinates"_L1,
    "incomplete vertex normal coordinates"_L1,
    "unable to load mesh with current texture support flag"_L1,
    "no material file name"_L1,
    "cannot open material file"_L1,
    "cannot find texture file"_L1,
    "cannot open texture file"_L1,
    "invalid vertex id"_L1,
    "quad faces not supported"_L1,
    "invalid material file"_L1,
    // The application shows nothing for a texture that it cannot use.
    ""_L1,
};
static_assert(errorTexts.size() == OBJReader::TextureProcessingFailed + 1);

} // namespace

OBJReader::OBJReader(bool sharpEdges_)
    : SurfaceReader(sharpEdges_)
{}

OBJReader::~OBJReader() = default;

bool OBJReader::read(std::atomic<bool> const&)
{
    if (fileName.isEmpty()) {
        error = NoFileName;
        return false;
    }
    std::atomic<bool> const neverCancelled = false;
    // A system takes a NUL for the end of the name, and would open another file.
    error = fileName.contains(QChar(u'\0')) ? CannotOpenFile : memory::resultOr(NoData, [&] {
        QFile file(fileName);
        return read(&file, neverCancelled);
    });
    return error == NoError;
}

OBJReader::Error OBJReader::read(QIODevice* device, std::atomic<bool> const& cancel)
{
    if (!device || !device->open(QIODevice::ReadOnly))
        return CannotOpenFile;
    return memory::resultOr(NoData, [&] {
        QTextStream stream(device);
        return readText(stream, cancel);
    });
}

OBJReader::Error OBJReader::read(QByteArray const& data, std::atomic<bool> const& cancel)
{
    if (data.isNull())
        return NoData;
    return memory::resultOr(NoData, [&] {
        QTextStream stream(data, QIODevice::ReadOnly);
        return readText(stream, cancel);
    });
}

OBJReader::Error OBJReader::getError() const
{
    return error;
}

QString OBJReader::getErrorString() const
{
    return conversions::toString(error);
}

bool OBJReader::isValid() const
{
    return error == NoError;
}

QString conversions::toString(OBJReader::Error error)
{
    auto const index = static_cast<std::size_t>(error);
    return index < errorTexts.size() ? QString(errorTexts[index]) : QString();
}

std::ostream& operator<<(std::ostream& stream, OBJReader::Error const& error)
{
    return stream << conversions::toString(error).toStdString();
}
