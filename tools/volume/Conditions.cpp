#include "Problem.h"
#include "Report.h"
#include "Text.h"
#include "volume/VolumeFile.h"
#include "volume/VolumeWork.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <vector>

using namespace Qt::StringLiterals;

namespace tool::volume {

namespace {

constexpr std::array axes = {"x"_L1, "y"_L1, "z"_L1};

QVector3D vectorAt(QSharedPointer<float> const& array, qint64 index)
{
    float const* const v = array.data() + 3 * index;
    return {v[0], v[1], v[2]};
}

// Points that a mesh must have.
Problem findProblem(MTModelBoundaryConditions const& conditions, qint32 pointCount)
{
    for (qint64 k = 0; k < conditions.numBoundaryConditions; ++k) {
        qint32 const point = conditions.pointIndices.data()[k];
        if (point < 0 || point >= pointCount)
            return {ExitCode::Malformed, Text::tr("line %1: a condition refers to point %2, of %3")
                                             .arg(QString::number(ConditionsFile::lineOfCondition(k)),
                                                  QString::number(point), QString::number(pointCount))};
    }
    return {};
}

qint64 differentPoints(MTModelBoundaryConditions const& conditions)
{
    qint32 const* const first = conditions.pointIndices.data();
    std::vector<qint32> points(first, first + conditions.numBoundaryConditions);
    std::sort(points.begin(), points.end());
    return std::unique(points.begin(), points.end()) - points.begin();
}

qint64 zeroConditions(MTModelBoundaryConditions const& conditions)
{
    qint64 count = 0;
    for (qint64 k = 0; k < conditions.numBoundaryConditions; ++k) {
        float const* const v = conditions.values.data() + 3 * k;
        count += v[0] == 0 && v[1] == 0 && v[2] == 0 ? 1 : 0;
    }
    return count;
}

// Least, greatest and sum of each component.
Table components(MTModelBoundaryConditions const& conditions)
{
    Table table;
    table.columns = {{"component"_L1, Text::tr("component")},
                     {"min"_L1, Text::tr("least")},
                     {"max"_L1, Text::tr("greatest")},
                     {"sum"_L1, Text::tr("sum")}};
    for (std::size_t axis = 0; axis < axes.size() && conditions.numBoundaryConditions > 0; ++axis) {
        float least = std::numeric_limits<float>::infinity();
        float greatest = -least;
        double sum = 0;
        for (qint64 k = 0; k < conditions.numBoundaryConditions; ++k) {
            float const value = conditions.values.data()[3 * k + qint64(axis)];
            least = std::min(least, value);
            greatest = std::max(greatest, value);
            sum += double(value);
        }
        table.rows.push_back({axes.at(axis), least, greatest, sum});
    }
    return table;
}

Table rows(MTModelBoundaryConditions const& conditions, MTModelVMesh const* mesh)
{
    Table table;
    table.columns = {{"point"_L1, Text::tr("point")}, {"value"_L1, Text::tr("value")}};
    if (mesh != nullptr)
        table.columns.push_back({"position"_L1, Text::tr("position (mm)")});
    for (qint64 k = 0; k < conditions.numBoundaryConditions; ++k) {
        qint32 const point = conditions.pointIndices.data()[k];
        std::vector<Value> row = {point, vectorAt(conditions.values, k)};
        if (mesh != nullptr)
            row.emplace_back(vectorAt(mesh->points, point));
        table.rows.push_back(std::move(row));
    }
    return table;
}

} // namespace

ExitCode conditions(ConditionsOptions const& options, Console& console)
{
    bool const hasMesh = !options.mesh.isEmpty();
    VolumeFile volume;
    ConditionsFile file;
    if (Problem const problem = hasMesh ? readSound(options.mesh, volume) : Problem())
        return reported(problem, options.mesh, console);
    Problem problem = readSound(options.in, file);
    if (!problem && hasMesh)
        problem = findProblem(file.conditions, volume.mesh.numPoints);
    if (problem)
        return reported(problem, options.in, console);
    Report report;
    report.add("path"_L1, {}, options.in);
    report.add("conditions"_L1, Text::tr("conditions"), file.conditions.numBoundaryConditions);
    report.add("points"_L1, Text::tr("different points"), differentPoints(file.conditions));
    report.add("zero"_L1, Text::tr("that are zero"), zeroConditions(file.conditions));
    bool const hasRows = file.conditions.numBoundaryConditions > 0;
    report.add("components"_L1, hasRows ? Text::tr("components") : QString(), components(file.conditions));
    report.add("rows"_L1, hasRows ? Text::tr("rows") : QString(),
               rows(file.conditions, hasMesh ? &volume.mesh : nullptr));
    console.result(options.json ? report.json("surfaceio.conditions/1"_L1) : report.text());
    return ExitCode::Ok;
}

} // namespace tool::volume
