#pragma once

#include "inhouse/Export.h"

class OTHER_INHOUSE_EXPORT DataObject
{
public:
    DataObject() = default;
    DataObject(DataObject const&) = delete;
    DataObject& operator=(DataObject const&) = delete;
    virtual ~DataObject();

    void startEditing() {}
    void stopEditing() {}
};
