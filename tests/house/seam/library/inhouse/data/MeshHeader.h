#pragma once

#include "inhouse/Export.h"

#include <QDateTime>
#include <QString>

#include <utility>

class OTHER_INHOUSE_EXPORT MeshHeader
{
public:
    MeshHeader() = default;
    MeshHeader(QString scannerName_, QString scannerSerial_, bool imported_, QString softwareVersion_,
               QDateTime acquisitionDate_)
        : scannerName(std::move(scannerName_))
        , scannerSerial(std::move(scannerSerial_))
        , imported(imported_)
        , softwareVersion(std::move(softwareVersion_))
        , acquisitionDate(std::move(acquisitionDate_))
    {}
    MeshHeader(MeshHeader const&) = default;
    MeshHeader& operator=(MeshHeader const&) = default;
    virtual ~MeshHeader();

    QString getScannerName() const { return scannerName; }
    QString getScannerSerial() const { return scannerSerial; }
    bool isImported() const { return imported; }
    QString getSoftwareVersion() const { return softwareVersion; }
    QDateTime getAcquisitionDate() const { return acquisitionDate; }

private:
    QString scannerName;
    QString scannerSerial;
    bool imported = false;
    QString softwareVersion;
    QDateTime acquisitionDate;
};
