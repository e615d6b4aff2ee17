#pragma once

#include "inhouse/data/Mesh.h"

#include <QList>

/// Rough stand-ins for the 14 parts of a telescoping distractor: a rod, its carriages, plates and screws, in
/// millimetres, along the z axis. Real parts come with the application's resources.
QList<geometry::Mesh> makePartMeshes();
