#include "inspect/Bounds.h"

#include "Text.h"

using namespace Qt::StringLiterals;

namespace tool {

void Bounds::addTo(Report& report) const
{
    report.add("nonFiniteVertices"_L1, nonFinite > 0 ? Text::tr("vertices not finite") : QString(),
               nonFinite);
    if (isEmpty) {
        report.add("boundingBox"_L1, {}, Value());
        return;
    }
    Report& box = report.section("boundingBox"_L1, Text::tr("bounding box (mm)"));
    box.add("min"_L1, Text::tr("min"), low);
    box.add("max"_L1, Text::tr("max"), high);
    box.add("size"_L1, Text::tr("size"), size());
}

} // namespace tool
