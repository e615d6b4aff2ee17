#include "framework/ScanMetadata.h"

namespace conversions {

namespace {

constexpr qsizetype recordBytes = 80;
constexpr qsizetype markerBytes = 2;
constexpr qsizetype scannerNameWidth = 20;
constexpr qsizetype scannerSerialWidth = 24;
constexpr qsizetype importedWidth = 1;
constexpr qsizetype softwareVersionWidth = 20;
constexpr qsizetype acquisitionDateWidth = 10;
constexpr qsizetype paddingBytes = 3;
static_assert(markerBytes + scannerNameWidth + scannerSerialWidth + importedWidth + softwareVersionWidth +
                  acquisitionDateWidth + paddingBytes ==
              recordBytes);

QByteArray textField(QString text, qsizetype width)
{
    text.remove(u' ');
    return text.leftJustified(width, u' ', true).toUtf8().left(width);
}

} // namespace

QByteArray toByteArray(MeshHeader const& header)
{
    QByteArray record("\xBE\xBE", markerBytes);
    record += textField(header.getScannerName(), scannerNameWidth);
    record += textField(header.getScannerSerial(), scannerSerialWidth);
    record += header.isImported() ? '1' : '0';
    record += textField(header.getSoftwareVersion(), softwareVersionWidth);
    record += textField(header.getAcquisitionDate().date().toString(Qt::ISODate), acquisitionDateWidth);
    return record.leftJustified(recordBytes, ' ');
}

} // namespace conversions
