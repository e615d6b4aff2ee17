#pragma once

#include "sample/DentalArch.h"

#include <QByteArray>
#include <QImage>

namespace sample {

/// The lines of an OBJ file: positions, texture coordinates and facets, all of the material that the library
/// `libraryName` defines.
QByteArray objOf(DentalArch const& arch, QString const& libraryName);

/// That library. `imageName` becomes the texture of its material.
QByteArray mtlOf(QString const& imageName);

/// The image for the texture coordinates of any arch of this seed: gum, enamel and fissures finer than most
/// meshes are. The same pixels on every platform.
QImage textureOf(quint64 seed);

} // namespace sample
