#pragma once

#include "framework/SurfaceReader.h"
#include "hostile/Subjects.h"

/// The subjects of each format.
namespace hostile {

Subject plyFor();
Subject objFor(SurfaceReader::TextureSupport policy, QString const& path);

/// An OBJ file that is its own library: it names itself as "seeds.mtl". Beside it lie the images "a.png" and
/// "b.png", of a few pixels, and "large.png", of `largeImageSide` squared.
Subject objWithLibrary();
constexpr int largeImageSide = 1024;

void addPly(std::vector<Subject>& list);
void addObj(std::vector<Subject>& list);
void addVolumes(std::vector<Subject>& list);
void addScene(std::vector<Subject>& list);

} // namespace hostile
