#include "volume/TetrahedralMesh.h"

#include "Text.h"
#include "volume/CellKinds.h"

#include <algorithm>
#include <array>
#include <memory>

using namespace Qt::StringLiterals;

namespace tool::volume {

namespace {

template <typename Value>
QSharedPointer<Value> toShared(std::vector<Value> const& values)
{
    QSharedPointer<Value> array(new Value[values.size()], std::default_delete<Value[]>());
    std::copy(values.begin(), values.end(), array.data());
    return array;
}

constexpr std::array formats = {
    MesherFormat{"msh"_L1, QT_TRANSLATE_NOOP("Text", "Gmsh, for vmesh from"), readGmsh},
    MesherFormat{"vtk"_L1, QT_TRANSLATE_NOOP("Text", "VTK, for vmesh from"), readVtk},
};

} // namespace

std::span<MesherFormat const> mesherFormats()
{
    return formats;
}

Problem problemOf(CellKind const& kind, qint64 line)
{
    if (kind.dimension < 3 || kind.isTetrahedron())
        return {};
    return unsupported(Text::tr("line %1: %2 are not read, only tetrahedra")
                           .arg(QString::number(line), Text::shown(kind.name)));
}

Problem problemOf(TetrahedralMesh const& mesh)
{
    return mesh.tetrahedra.empty() ? unsupported(Text::tr("holds no tetrahedra")) : Problem();
}

qint64 removeUnusedPoints(TetrahedralMesh& mesh)
{
    constexpr qint32 unused = -1;
    std::vector<qint32> numbers(mesh.points.size() / 3, unused);
    for (qint32 const point : mesh.tetrahedra)
        numbers[static_cast<std::size_t>(point)] = 0;
    qint32 used = 0;
    for (std::size_t k = 0; k < numbers.size(); ++k) {
        if (numbers[k] == unused)
            continue;
        std::copy_n(mesh.points.begin() + 3 * std::ptrdiff_t(k), 3,
                    mesh.points.begin() + 3 * std::ptrdiff_t(used));
        numbers[k] = used++;
    }
    for (qint32& point : mesh.tetrahedra)
        point = numbers[static_cast<std::size_t>(point)];
    qint64 const removed = mesh.pointCount() - used;
    mesh.points.resize(3 * static_cast<std::size_t>(used));
    return removed;
}

MTModelVMesh toVolumeMesh(TetrahedralMesh const& mesh)
{
    MTModelVMesh volume;
    volume.numPoints = static_cast<qint32>(mesh.pointCount());
    volume.numTetrahedra = static_cast<qint32>(mesh.tetrahedronCount());
    volume.points = toShared(mesh.points);
    volume.tetrahedra = toShared(mesh.tetrahedra);
    return volume;
}

} // namespace tool::volume
