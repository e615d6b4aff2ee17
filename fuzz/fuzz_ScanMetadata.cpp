#include "Fuzz.h"
#include "framework/ScanMetadata.h"
#include "stl/STLReader.h"

#include <QTimeZone>

#include <atomic>

namespace {

// A field as its description has it, character by character.
QByteArray field(QString const& text, int width)
{
    QString kept;
    for (QChar const c : text)
        if (c != u' ' && kept.size() < width)
            kept += c;
    while (kept.size() < width)
        kept += u' ';
    QByteArray bytes = kept.toUtf8();
    bytes.truncate(width);
    return bytes;
}

QByteArray record(MeshHeader const& header)
{
    QString const date = header.getAcquisitionDate().date().toString(Qt::ISODate);
    return "\xBE\xBE" + field(header.getScannerName(), 20) + field(header.getScannerSerial(), 24) +
           (header.isImported() ? '1' : '0') + field(header.getSoftwareVersion(), 20) + field(date, 10) +
           "   ";
}

QString textFrom(fuzz::Choices& choices)
{
    int const units = choices.below(32);
    bool const isWide = choices.flag();
    QString text;
    for (int i = 0; i < units; ++i) {
        int const low = choices.byte();
        text += QChar(isWide ? choices.byte() << 8 | low : low);
    }
    return text;
}

QDateTime dateFrom(fuzz::Choices& choices)
{
    quint64 milliseconds = 0;
    for (int i = choices.below(9); i > 0; --i)
        milliseconds = milliseconds << 8 | static_cast<quint64>(choices.byte());
    return choices.flag()
               ? QDateTime()
               : QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(milliseconds), QTimeZone::utc());
}

// A file with that header is a binary STL file, whatever the texts say.
void requireReadable(QByteArray const& header)
{
    std::atomic<bool> const cancel = false;
    STLReader reader(nullptr, false, {});
    QByteArray const file = header + QByteArray("\1\0\0\0", 4) + QByteArray(50, '\0');
    fuzz::require(STLReader::isValidStlFile(file) && reader.read(file, cancel));
}

} // namespace

// Three texts, a flag and a date, as the header of an STL file.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    fuzz::silence();
    fuzz::Choices choices(fuzz::bytesOf(data, size));
    QString const name = textFrom(choices);
    QString const serial = textFrom(choices);
    QString const version = textFrom(choices);
    bool const isImported = choices.flag();
    MeshHeader const header(name, serial, isImported, version, dateFrom(choices));
    QByteArray const bytes = conversions::toByteArray(header);
    fuzz::require(bytes.size() == 80);
    fuzz::require(bytes == record(header));
    fuzz::require(bytes == conversions::toByteArray(header));
    requireReadable(bytes);
    return 0;
}
