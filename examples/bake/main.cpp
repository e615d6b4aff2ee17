// Bakes the texture of an OBJ file into colours of its vertices and writes them as PLY.
//
//     example_bake SCAN.obj SCAN.ply
#include "framework/MeshWriter.h"
#include "obj/OBJReader.h"
#include "ply/PLYReader.h"

#include <QFile>
#include <QSet>
#include <QTextStream>

#include <atomic>

namespace {

bool bake(QString const& source, QString const& target, QTextStream& log)
{
    std::atomic<bool> const cancel{false};
    OBJReader reader;
    reader.setFileName(source); // material library and texture are looked for beside it
    reader.setTextureSupport(SurfaceReader::VertexColorsRequired);
    if (!reader.read(cancel)) {
        log << reader.getErrorString() << '\n';
        return false;
    }
    return MeshWriter::write(target, reader.getMesh());
}

bool describe(QString const& path, QTextStream& log)
{
    std::atomic<bool> const cancel{false};
    PLYReader reader(PLYReader::MeshMode);
    reader.setFileName(path);
    if (!reader.read(cancel))
        return false;
    geometry::Mesh const& mesh = reader.getMesh();
    QSet<unsigned int> const colours(mesh.colors.begin(), mesh.colors.end());
    log << mesh.vertices.size() << " vertices, " << colours.size() << " colours\n";
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    QTextStream log(stdout);
    if (argc != 3) {
        log << "usage: example_bake SCAN.obj SCAN.ply\n";
        return 2;
    }
    QString const target = QFile::decodeName(argv[2]);
    return bake(QFile::decodeName(argv[1]), target, log) && describe(target, log) ? 0 : 1;
}
