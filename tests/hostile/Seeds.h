#pragma once

#include <QByteArray>

/// Small good files, with everything in them that their format has.
namespace hostile::seeds {

QByteArray stlAscii();
/// Four facets of the tags 1, 2, 1, 3.
QByteArray stlBinary();
/// Normals, colours, triangles and material.
QByteArray plyFull(bool bigEndian = false);
/// Texture line, texture coordinates and colours of faces.
QByteArray plyTextured();
QByteArray obj();
/// Uses `seeds.mtl` with the materials a, b (textured) and c.
QByteArray objTextured();
QByteArray mtl();
QByteArray vmesh();
QByteArray conditions();
QByteArray shapeTree();
QByteArray shape();
/// Names the file "a.ply" twice.
QByteArray associatedShapes();
QByteArray meshRecord();

} // namespace hostile::seeds
