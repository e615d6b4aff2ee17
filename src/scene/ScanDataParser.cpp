#include "scene/ScanDataParser.h"

ScanDataParser::~ScanDataParser() = default;
