// Prints the area of a mesh file in mm².
//
//     example_area FILE
#include "framework/MeshReader.h"

#include <QFile>

#include <cstdio>

int main(int argc, char** argv)
{
    if (argc != 2)
        return 2;
    QString const path = QFile::decodeName(argv[1]);

    utility::Optional<geometry::Mesh> const mesh = MeshReader::read(path); // its suffix says how
    if (!mesh)
        return 1; // the log says why
    double area = 0;
    for (qsizetype i = 0; i < mesh->indices.size(); i += 4) { // each triangle is a, b, c, -1
        auto const corner = [&](int n) { return mesh->vertices[mesh->indices[i + n]]; };
        area += QVector3D::crossProduct(corner(1) - corner(0), corner(2) - corner(0)).length() / 2;
    }

    std::puts(qPrintable(QString::number(area, 'f', 1)));
    return 0;
}
