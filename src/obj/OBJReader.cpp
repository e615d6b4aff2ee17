#include "obj/OBJReader.h"

#include "framework/MemoryGuard.h"

#include <QCoreApplication>
#include <QFile>
#include <QTextStream>

#include <array>
#include <ostream>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array errorTexts = {
    "",
    QT_TRANSLATE_NOOP("OBJReader", "no file name"),
    QT_TRANSLATE_NOOP("OBJReader", "cannot open file"),
    QT_TRANSLATE_NOOP("OBJReader", "no data"),
    QT_TRANSLATE_NOOP("OBJReader", "cancelled"),
    QT_TRANSLATE_NOOP("OBJReader", "multiple material files unsupported"),
    QT_TRANSLATE_NOOP("OBJReader", "incomplete uv mapping"),
    QT_TRANSLATE_NOOP("OBJReader", "incomplete vertex coordinates"),
    QT_TRANSLATE_NOOP("OBJReader", "incomplete texture coordinates"),
    QT_TRANSLATE_NOOP("OBJReader", "incomplete vertex normal coordinates"),
    QT_TRANSLATE_NOOP("OBJReader", "unable to load mesh with current texture support flag"),
    QT_TRANSLATE_NOOP("OBJReader", "no material file name"),
    QT_TRANSLATE_NOOP("OBJReader", "cannot open material file"),
    QT_TRANSLATE_NOOP("OBJReader", "cannot find texture file"),
    QT_TRANSLATE_NOOP("OBJReader", "cannot open texture file"),
    QT_TRANSLATE_NOOP("OBJReader", "invalid vertex id"),
    QT_TRANSLATE_NOOP("OBJReader", "quad faces not supported"),
    QT_TRANSLATE_NOOP("OBJReader", "invalid material file"),
    // The application shows nothing for a texture that it cannot use.
    "",
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
    if (index >= errorTexts.size())
        return {};
    char const* const text = errorTexts[index];
    return *text == '\0' ? u""_s : QCoreApplication::translate("OBJReader", text);
}

std::ostream& operator<<(std::ostream& stream, OBJReader::Error const& error)
{
    return stream << conversions::toString(error).toStdString();
}
