#include "inhouse/dataobjects/DataObject.h"

DataObject::~DataObject() = default;

void DataObject::startEditing()
{
    ++openEdits;
}

void DataObject::stopEditing()
{
    if (openEdits > 0 && --openEdits == 0)
        ++revision;
}
