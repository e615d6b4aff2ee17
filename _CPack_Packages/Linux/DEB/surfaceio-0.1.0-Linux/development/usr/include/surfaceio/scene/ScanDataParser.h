#pragma once

#include "framework/Export.h"

/// Abstract base of the application's parsers of scan data. What a parser does is declared where it is
/// implemented, in the application; here is only what lets it be owned through this class.
class SURFACEIO_EXPORT ScanDataParser
{
public:
    ScanDataParser() = default;
    ScanDataParser(ScanDataParser const&) = default;
    ScanDataParser& operator=(ScanDataParser const&) = default;
    virtual ~ScanDataParser() = 0;
};
