#include "inhouse/dataobjects/Surface3DModel.h"

Surface3DModel::~Surface3DModel() = default;
