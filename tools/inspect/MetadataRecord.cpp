#include "inspect/MetadataRecord.h"

#include "Text.h"

using namespace Qt::StringLiterals;

namespace tool {

namespace {

constexpr qsizetype recordBytes = 80;
constexpr QByteArrayView marker = "\xBE\xBE";

struct Field
{
    qsizetype offset;
    qsizetype width;
};
constexpr Field scannerName = {2, 20};
constexpr Field scannerSerial = {22, 24};
constexpr Field imported = {46, 1};
constexpr Field softwareVersion = {47, 20};
constexpr Field acquisitionDate = {67, 10};

QString textOf(QByteArrayView record, Field field)
{
    return QString::fromUtf8(record.sliced(field.offset, field.width)).trimmed();
}

} // namespace

std::optional<MeshHeader> decodeMetadataRecord(QByteArrayView header)
{
    if (header.size() < recordBytes || !header.startsWith(marker))
        return {};
    QDate const date = QDate::fromString(textOf(header, acquisitionDate), Qt::ISODate);
    return MeshHeader(textOf(header, scannerName), textOf(header, scannerSerial),
                      textOf(header, imported) == "1"_L1, textOf(header, softwareVersion),
                      date.isValid() ? date.startOfDay(Qt::UTC) : QDateTime());
}

void addMetadata(Report& report, std::optional<MeshHeader> const& metadata)
{
    if (!metadata) {
        report.add("metadata"_L1, {}, Value());
        return;
    }
    QDate const date = metadata->getAcquisitionDate().date();
    Report& section = report.section("metadata"_L1, Text::tr("scan metadata"));
    section.add("scannerName"_L1, Text::tr("scanner name"), metadata->getScannerName());
    section.add("scannerSerial"_L1, Text::tr("scanner serial"), metadata->getScannerSerial());
    section.add("imported"_L1, Text::tr("imported"), metadata->isImported());
    section.add("softwareVersion"_L1, Text::tr("software version"), metadata->getSoftwareVersion());
    section.add("acquisitionDate"_L1, Text::tr("acquisition date"),
                date.isValid() ? Value(date.toString(Qt::ISODate)) : Value());
}

} // namespace tool
