#pragma once

namespace tool {

class Check;

// What the rows of Formats.cpp check, one file for each family of formats.
void checkVolume(Check& check);
void checkConditions(Check& check);

} // namespace tool
