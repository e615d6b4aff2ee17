#include "inhouse/catalogue/DistractorCatalog.h"
#include "inhouse/core/ApplicationParametersManagerImpl.h"
#include "inhouse/coreio/DomHelper.h"
#include "inhouse/data/ShapeNodeIO.h"
#include "inhouse/dataobjects/DentalScan.h"
#include "inhouse/dataobjects/Distractor.h"
#include "inhouse/math/Operations.h"

DataObject::~DataObject() = default;
Surface3DModel::~Surface3DModel() = default;
SurfaceScan::~SurfaceScan() = default;
DentalScan::~DentalScan() = default;
SurfaceTree::~SurfaceTree() = default;
Distractor::~Distractor() = default;

ApplicationParametersManagerImpl& ApplicationParametersManagerImpl::instance()
{
    static ApplicationParametersManagerImpl parameters;
    return parameters;
}
