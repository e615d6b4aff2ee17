#include "Fuzz.h"
#include "support/VMeshWalks.h"
#include "support/VolumeMeshes.h"
#include "vmesh/FaceRows.h"
#include "vmesh/MTModelVMeshParser.h"
#include "vmesh/MTModelVMeshWriter.h"

#include <algorithm>

namespace {

using namespace Qt::StringLiterals;

bool isEmpty(MTModelVMesh const& mesh)
{
    return support::sameBits(mesh, MTModelVMesh());
}

void requireTriangles(MTModelVMesh const& mesh)
{
    for (qint64 i = 0; i < mesh.numFaces; ++i) {
        qint32 const* const triangle = mesh.triangles.data() + 4 * i;
        qint32 const* const face = mesh.faces.data() + 5 * i;
        fuzz::require(std::equal(triangle, triangle + 3, face + 2) && triangle[3] == -1);
    }
}

QByteArray written(MTModelVMesh& mesh, QString const& path)
{
    fuzz::require(MTModelVMeshWriter(mesh).write(path));
    QFile file(path);
    fuzz::require(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

MTModelVMesh withoutPoints(MTModelVMesh mesh)
{
    mesh.numPoints = 0;
    mesh.points.clear();
    return mesh;
}

// Coordinates are written with few digits; everything else comes back as it was.
void requireRewritten(MTModelVMesh mesh, QString const& path)
{
    written(mesh, path);
    MTModelVMeshParser parser(path);
    fuzz::require(parser.read() && parser.getVMesh().numPoints == mesh.numPoints);
    fuzz::require(support::sameBits(withoutPoints(parser.getVMesh()), withoutPoints(mesh)));
}

// The rows of the search in linear time are those of the writer's own.
void requireSameRows(MTModelVMesh mesh, QString const& path)
{
    mesh.numFaces = mesh.numBoundFaces = 0;
    mesh.faces.clear();
    mesh.triangles.clear();
    mesh.boundFaces.clear();
    MTModelVMesh derived = mesh;
    fuzz::require(deriveFaceRows(derived));
    fuzz::require(written(derived, path) == written(mesh, path));
}

} // namespace

// The input as a file, through the walk over bytes and the walk over text.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    static fuzz::ScratchFolder const folder;
    QString const path = folder.write(u"mesh.vmesh"_s, fuzz::bytesOf(data, size));
    fuzz::silence();
    MTModelVMeshParser parser(path);
    bool const success = parser.read();
    MTModelVMesh const mesh = parser.getVMesh();
    QStringList const log = fuzz::messages();
    fuzz::require(success == log.isEmpty());
    fuzz::require(success || isEmpty(mesh));
    requireTriangles(mesh);

    // Also looks at every value of every array.
    fuzz::silence();
    fuzz::require(parser.read() == success && fuzz::messages() == log);
    fuzz::require(support::sameBits(parser.getVMesh(), mesh));

    fuzz::silence();
    MTModelVMeshParser text(path);
    bool const textSuccess = (text.*privateMember(support::ReadWith()))(privateMember(support::ReadText()));
    fuzz::require(textSuccess == success && fuzz::messages() == log);
    fuzz::require(support::sameBits(text.getVMesh(), mesh));
    constexpr int fewTetrahedra = 64; // the writer's search is a quadratic one
    if (success && mesh.numTetrahedra <= fewTetrahedra) {
        requireRewritten(mesh, folder.path(u"written.vmesh"_s));
        requireSameRows(mesh, folder.path(u"written.vmesh"_s));
    }
    return 0;
}
