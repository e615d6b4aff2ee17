#pragma once

#include "hostile/Subjects.h"

/// The subjects of each format.
namespace hostile {

void addPly(std::vector<Subject>& list);
void addObj(std::vector<Subject>& list);
void addVolumes(std::vector<Subject>& list);
void addScene(std::vector<Subject>& list);

} // namespace hostile
