#include "inhouse/dataobjects/SurfaceScan.h"

SurfaceScan::~SurfaceScan() = default;
