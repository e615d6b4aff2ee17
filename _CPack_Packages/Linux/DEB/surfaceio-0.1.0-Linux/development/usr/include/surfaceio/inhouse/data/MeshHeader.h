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
    /// What the getters of the same names give back.
    MeshHeader(QString scannerName, QString scannerSerial, bool imported, QString softwareVersion,
               QDateTime acquisitionDate);
    MeshHeader(MeshHeader const&) = default;
    MeshHeader& operator=(MeshHeader const&) = default;
    virtual ~MeshHeader();

    /// Name of the scanner's model, as its maker writes it.
    QString getScannerName() const { return scannerName; }
    /// Serial number of the scanner.
    QString getScannerSerial() const { return scannerSerial; }
    /// Whether the scan came in from outside, rather than straight from a scanner.
    bool isImported() const { return imported; }
    /// Version of the software that acquired the scan.
    QString getSoftwareVersion() const { return softwareVersion; }
    /// When the scan was acquired; invalid when not known.
    QDateTime getAcquisitionDate() const { return acquisitionDate; }

private:
    QString scannerName;
    QString scannerSerial;
    bool imported = false;
    QString softwareVersion;
    QDateTime acquisitionDate;
};
