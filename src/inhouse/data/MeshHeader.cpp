#include "inhouse/data/MeshHeader.h"

#include <utility>

MeshHeader::MeshHeader(QString scannerName_, QString scannerSerial_, bool imported_, QString softwareVersion_,
                       QDateTime acquisitionDate_)
    : scannerName(std::move(scannerName_))
    , scannerSerial(std::move(scannerSerial_))
    , imported(imported_)
    , softwareVersion(std::move(softwareVersion_))
    , acquisitionDate(std::move(acquisitionDate_))
{}

MeshHeader::~MeshHeader() = default;
