#include "Text.h"
#include "check/Check.h"
#include "check/Checkers.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

constexpr qint64 mostShown = 20;
constexpr qint64 components = 3;

qint32 pointCount(CheckContext const& context)
{
    return context.volume ? context.volume->mesh.numPoints : std::numeric_limits<qint32>::max();
}

QString badPoint(CheckContext const& context, qint64 condition, qint32 point)
{
    QString const range =
        context.volume
            ? Text::counted("%1 has %n point(s)", nullptr, pointCount(context)).arg(context.volumePath)
            : Text::tr("points count from 0");
    return Text::tr("line %1: a condition refers to point %2; %3")
        .arg(QString::number(ConditionsFile::lineOfCondition(condition)), QString::number(point), range);
}

void checkReferences(Check& check, MTModelBoundaryConditions const& conditions)
{
    qint64 bad = 0;
    for (qint64 k = 0; k < conditions.numBoundaryConditions; ++k) {
        qint32 const point = conditions.pointIndices.data()[k];
        if (point >= 0 && point < pointCount(check.context))
            continue;
        if (++bad <= mostShown)
            check.findings.add("bad-reference"_L1, badPoint(check.context, k, point),
                               Text::tr("take the volume mesh that the conditions were made for"));
    }
    if (bad > mostShown)
        check.findings.add("more-bad-references"_L1,
                           Text::counted("%n more reference(s) of this kind", nullptr, bad - mostShown));
}

void checkRepetitions(Check& check, MTModelBoundaryConditions const& conditions)
{
    qint32 const* const first = conditions.pointIndices.data();
    std::vector<qint32> points(first, first + conditions.numBoundaryConditions);
    std::sort(points.begin(), points.end());
    auto const different = std::unique(points.begin(), points.end()) - points.begin();
    if (different != conditions.numBoundaryConditions)
        check.findings.add(
            "repeated-points"_L1,
            Text::tr("%1 conditions are for %2 points").arg(conditions.numBoundaryConditions).arg(different));
}

void checkValues(Check& check, MTModelBoundaryConditions const& conditions)
{
    float const* const first = conditions.values.data();
    auto const bad = std::count_if(first, first + components * conditions.numBoundaryConditions,
                                   [](float value) { return !std::isfinite(value); });
    if (bad > 0)
        check.findings.add("non-finite-values"_L1, Text::tr("%1 of %2 components are NaN or infinite")
                                                       .arg(bad)
                                                       .arg(components * conditions.numBoundaryConditions));
}

} // namespace

void checkConditions(Check& check)
{
    ConditionsFile const file = readConditionsFile(check.source.path);
    if (!file.problem.isEmpty()) {
        check.findings.add("malformed"_L1, file.problem);
        return;
    }
    checkReferences(check, file.conditions);
    checkRepetitions(check, file.conditions);
    checkValues(check, file.conditions);
    if (!check.context.volume)
        check.findings.add("not-compared"_L1, Text::tr("the points were not compared with a volume mesh"));
}

} // namespace tool
