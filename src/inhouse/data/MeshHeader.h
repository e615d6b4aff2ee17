#pragma once

#include "inhouse/Export.h"

#include <QDateTime>
#include <QString>

/// What is known about the acquisition of a scan. Travels from a scan file to the file written from it.
class SURFACEIO_INHOUSE_EXPORT MeshHeader
{
public:
    /// Empty texts, not imported, an invalid date.
    MeshHeader() = default;
    MeshHeader(QString scannerName, QString scannerSerial, bool imported, QString softwareVersion,
               QDateTime acquisitionDate);
    MeshHeader(MeshHeader const&) = default;
    MeshHeader& operator=(MeshHeader const&) = default;
    virtual ~MeshHeader();

    QString getScannerName() const { return scannerName; }
    QString getScannerSerial() const { return scannerSerial; }
    /// Whether the scan came in from outside, rather than straight from a scanner.
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
