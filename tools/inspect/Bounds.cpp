#include "inspect/Bounds.h"

using namespace Qt::StringLiterals;

namespace tool {

void Bounds::addTo(Report& report) const
{
    report.add("nonFiniteVertices"_L1, nonFinite > 0 ? u"vertices not finite"_s : QString(), nonFinite);
    if (isEmpty) {
        report.add("boundingBox"_L1, {}, Value());
        return;
    }
    Report& box = report.section("boundingBox"_L1, u"bounding box (mm)"_s);
    box.add("min"_L1, u"min"_s, low);
    box.add("max"_L1, u"max"_s, high);
    box.add("size"_L1, u"size"_s, size());
}

} // namespace tool
