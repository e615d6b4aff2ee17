#include "inspect/Formats.h"

namespace tool {

std::span<Format const> formats()
{
    // Formats with an unmistakable beginning go first.
    static std::array const table = {shapeTreeFormat,  plyFormat, stlFormat,  volumeFormat,
                                     conditionsFormat, objFormat, arrayFormat};
    return table;
}

} // namespace tool
