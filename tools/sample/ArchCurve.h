#pragma once

#include <vector>

namespace sample {

/// The line along which the teeth stand, in the occlusal plane: y = -(a x² + b x⁴), the front teeth at the
/// origin, +y to the front, +x to the patient's right. About 60 mm wide where the last molars stand.
class ArchCurve
{
public:
    struct Place
    {
        double x;
        double y;
        /// Unit vector to the cheek.
        double outwardX;
        double outwardY;
    };

    ArchCurve();

    /// The place that is `distance` mm along the curve from the midline; negative on the patient's left.
    Place at(double distance) const;

private:
    /// x against length, in steps of x.
    std::vector<double> lengths;
};

} // namespace sample
