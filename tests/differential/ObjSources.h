#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QVector2D>
#include <QVector3D>

#include <array>

/// OBJ files that every reader should understand alike: triangles, absolute indices, spaces between the
/// tokens.
namespace objsources {

/// 0-based places in the lists of a surface.
struct Corner
{
    int vertex;
    int uv;
    int normal;
};

struct Surface
{
    QList<QVector3D> positions;
    QList<QVector2D> uvs;
    QList<QVector3D> normals;
    QList<std::array<Corner, 3>> faces;
};

/// A box: hard edges, so that each position has three normals.
Surface box();
/// A sphere whose texture coordinates part at a seam, so that the positions there have two.
Surface sphere(int rings, int sectors);
/// Triangles between lists of different lengths, at random. Texture coordinates are multiples of 1/64.
Surface soup(unsigned int seed, int positions, int uvs, int normals, int faces);

/// What a corner of a face names besides its position.
struct Style
{
    bool uvs;
    bool normals;
};

/// How the lines are written.
struct Layout
{
    char numberFormat = 'g';
    int precision = 9;
    char const* lineEnd = "\n";
    char const* separator = " ";
    bool hasNoise = false;       // comments, empty lines, objects, groups, smoothing
    bool hasThirdNumber = false; // a w of 0 behind u and v
    bool hasColors = false;      // red, green and blue behind x, y and z
    bool isInterleaved = false;  // each face behind its own positions, normals and texture coordinates
    bool endsWithoutLineEnd = false;
};

/// The surface as text. With materials, the faces use them in turn, `facesPerMaterial` at a time.
QByteArray textOf(Surface const& surface, Style style, Layout const& layout,
                  QStringList const& materials = {}, int facesPerMaterial = 1);

} // namespace objsources
