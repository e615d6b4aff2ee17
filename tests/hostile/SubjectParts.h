#pragma once

#include "framework/SurfaceReader.h"
#include "hostile/Subjects.h"

#include <QByteArray>

/// The subjects of each format.
namespace hostile {

Subject plyFor();
Subject objFor(SurfaceReader::TextureSupport policy, QString const& path);

/// An OBJ file that is its own library: it names itself as "seeds.mtl". Beside it lie the images "a.png" and
/// "b.png", of a few pixels, "large.png", of `largeImageSide` squared, "cut.png", which is the same without
/// its end, and the library "other.mtl", which names "large.png".
Subject objWithLibrary();
constexpr int largeImageSide = 1024;

void addPly(std::vector<Subject>& list);
void addObj(std::vector<Subject>& list);
void addVolumes(std::vector<Subject>& list);
void addScene(std::vector<Subject>& list);

inline QByteArray number(qint64 value)
{
    return QByteArray::number(value);
}

/// What `piece(0)`, `piece(1)` and so on give, one behind the other.
template <typename Piece>
QByteArray joined(int count, Piece const& piece)
{
    QByteArray bytes;
    for (int i = 0; i < count; ++i)
        bytes += piece(i);
    return bytes;
}

} // namespace hostile
