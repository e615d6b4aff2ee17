#pragma once

#include "inhouse/Export.h"

class QString;

class OTHER_INHOUSE_EXPORT DistractorAdvancementConstraint
{
public:
    DistractorAdvancementConstraint(float, float) {}
};

/// Only counts its parts.
class OTHER_INHOUSE_EXPORT DistractorAdvancement
{
public:
    DistractorAdvancement(float, float, float, float) {}

    void addMovablePart(QString const&, DistractorAdvancementConstraint const&) { ++numberOfParts; }
    int getNumberOfParts() const { return numberOfParts; }

private:
    int numberOfParts = 0;
};
