#pragma once

#include "framework/SurfaceReader.h"
#include "hostile/Subjects.h"

/// The subjects of each format.
namespace hostile {

Subject plyFor();
Subject objFor(SurfaceReader::TextureSupport policy, QString const& path);

void addPly(std::vector<Subject>& list);
void addObj(std::vector<Subject>& list);
void addVolumes(std::vector<Subject>& list);
void addScene(std::vector<Subject>& list);

} // namespace hostile
