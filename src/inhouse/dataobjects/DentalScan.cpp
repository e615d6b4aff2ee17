#include "inhouse/dataobjects/DentalScan.h"

DentalScan::~DentalScan() = default;
