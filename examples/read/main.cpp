// Reads a scan of any format and says what is in it.
//
//     example_read FILE
#include "framework/MeshReader.h"

#include <QFile>
#include <QTextStream>

int main(int argc, char** argv)
{
    utility::Optional<geometry::Mesh> const mesh =
        MeshReader::read(QFile::decodeName(argc == 2 ? argv[1] : ""));
    if (!mesh)
        return 1; // the log says why
    // Each triangle has four entries: its corners a, b, c, and -1.
    QTextStream(stdout) << mesh->vertices.size() << " vertices, " << mesh->indices.size() / 4
                        << " triangles\n";
    return 0;
}
