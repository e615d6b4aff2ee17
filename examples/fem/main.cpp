// Makes a volume mesh and conditions for a finite-element solver, writes both, and reads them back.
//
//     example_fem FOLDER
#include "Beam.h"
#include "vmesh/FaceRows.h"
#include "vmesh/MTModelBoundaryConditionsParser.h"
#include "vmesh/MTModelBoundaryConditionsWriter.h"
#include "vmesh/MTModelVMeshParser.h"
#include "vmesh/MTModelVMeshWriter.h"

#include <QDir>
#include <QFile>
#include <QTextStream>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

template <typename Array>
bool sameValues(Array const& a, Array const& b, qsizetype count)
{
    return a && b && std::equal(a.data(), a.data() + count, b.data());
}

bool meshReadsBack(MTModelVMesh& mesh, QString const& path)
{
    if (!MTModelVMeshWriter(mesh).write(path))
        return false;
    MTModelVMeshParser parser(path);
    if (!parser.read())
        return false;
    MTModelVMesh const back = parser.getVMesh();
    return back.numTetrahedra == mesh.numTetrahedra &&
           sameValues(back.points, mesh.points, 3 * mesh.numPoints) &&
           sameValues(back.faces, mesh.faces, 5 * mesh.numFaces) &&
           sameValues(back.boundFaces, mesh.boundFaces, 5 * mesh.numBoundFaces);
}

bool conditionsReadBack(MTModelBoundaryConditions const& conditions, QString const& path)
{
    if (!MTModelBoundaryConditionsWriter(conditions).write(path))
        return false;
    MTModelBoundaryConditionsParser parser(path);
    if (!parser.read())
        return false;
    MTModelBoundaryConditions const back = parser.getBoundaryConditions();
    qint32 const count = conditions.numBoundaryConditions;
    return back.numBoundaryConditions == count &&
           sameValues(back.pointIndices, conditions.pointIndices, count) &&
           sameValues(back.values, conditions.values, 3 * count);
}

} // namespace

int main(int argc, char** argv)
{
    QTextStream log(stdout);
    if (argc != 2) {
        log << "usage: example_fem FOLDER\n";
        return 2;
    }
    QDir const folder(QFile::decodeName(argv[1]));
    MTModelVMesh beam = makeBeam(8);
    MTModelBoundaryConditions const conditions = pullBeam(beam, 0.5f);
    // The file lists faces. The writer would find them too, but in a time that grows with the square of the
    // mesh.
    if (!folder.mkpath(u"."_s) || !deriveFaceRows(beam))
        return 1;
    log << beam.numTetrahedra << " tetrahedra, " << beam.numFaces << " faces, " << beam.numBoundFaces
        << " of them outside\nheld at 4 points, pulled at 4\n";
    if (!meshReadsBack(beam, folder.filePath(u"beam.vmesh"_s)) ||
        !conditionsReadBack(conditions, folder.filePath(u"beam.conditions"_s)))
        return 1;
    log << "read back the same\n";
    return 0;
}
