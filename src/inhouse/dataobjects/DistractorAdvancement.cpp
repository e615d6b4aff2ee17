#include "inhouse/dataobjects/DistractorAdvancement.h"

#include <algorithm>
#include <cmath>

DistractorAdvancementConstraint::DistractorAdvancementConstraint(float start_, float end_)
    : start(start_)
    , end(end_)
{}

float DistractorAdvancementConstraint::getOffset(float advancement) const
{
    return std::max(0.0f, std::min(advancement, end) - start);
}

DistractorAdvancement::DistractorAdvancement(float current_, float minimum_, float maximum_, float step_)
    : current(current_)
    , minimum(minimum_)
    , maximum(maximum_)
    , step(step_)
{}

void DistractorAdvancement::setCurrent(float advancement)
{
    if (std::isnan(advancement))
        return;
    float wanted = advancement;
    if (step > 0.0f && std::isfinite(advancement)) {
        // In double: a count of float steps would drift by more than a hundredth of a step over 20 mm.
        double const steps = std::round((double(advancement) - minimum) / step);
        wanted = static_cast<float>(minimum + steps * step);
    }
    current = std::max(minimum, std::min(wanted, maximum));
}

void DistractorAdvancement::addMovablePart(QString const& partName,
                                           DistractorAdvancementConstraint const& constraint)
{
    movableParts.append({partName, constraint});
}

float DistractorAdvancement::getOffset(QString const& partName) const
{
    auto const part = std::find_if(movableParts.cbegin(), movableParts.cend(),
                                   [&](MovablePart const& candidate) { return candidate.first == partName; });
    return part == movableParts.cend() ? 0.0f : part->second.getOffset(current);
}
