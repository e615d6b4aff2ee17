#pragma once

#include "obj/RectanglePacker.h"

/// The packer once more, as plainly as it can be written: no shared lists, every case of a split by itself.
/// What is fast in the library is held against it.
namespace packermodel {

struct Packing
{
    bool isComplete = true;
    std::vector<RectanglePacker::Rectangle> rectangles;
    int width = 0;
    int height = 0;
};

Packing pack(std::vector<RectanglePacker::Rectangle> rectangles, int maximumSide);

} // namespace packermodel
