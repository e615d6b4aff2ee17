#pragma once

#include <QByteArray>
#include <QImage>

/// PLY files of random layout: any order, types and number of properties, most of them sensible, some not.
namespace ply_random {

struct File
{
    QByteArray header;
    QByteArray body;
    bool asCloud = false;
    bool hasFaceColors = false;
    int textureSupport = 0;
    QImage texture;

    QByteArray bytes() const { return header + body; }
};

/// Bytes of the largest value in a body.
constexpr qsizetype longestValue = 8;

/// The same seed gives the same file on every platform. Vertices and faces: `mostRows` of each at most.
File file(quint32 seed, int mostRows);

/// A good file with everything, for a reader that is to have a result before it is put to the test.
QByteArray firstFile();

} // namespace ply_random
