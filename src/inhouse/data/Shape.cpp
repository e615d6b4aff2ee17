#include "inhouse/data/Shape.h"

#include "inhouse/data/ShapeRecord_p.h"

#include <QDataStream>
#include <QFileDevice>
#include <QVersionNumber>

#include <new>
#include <utility>

namespace geometry {

namespace {

// A full disk is noticed when the buffered bytes go out, not when they are handed over.
bool flush(QDataStream const& stream)
{
    auto* const file = qobject_cast<QFileDevice*>(stream.device());
    return !file || file->flush();
}

} // namespace

bool Shape::loadBinary(QDataStream* stream, QVersionNumber const& version, bool ignoreMaterial)
{
    if (!shaperecord::isKnown(version))
        return false;
    try {
        Shape loaded;
        if (!shaperecord::readMesh(*stream, loaded.mesh))
            return false;
        if (shaperecord::hasMaterials(version) && !shaperecord::readMaterial(*stream, loaded.material))
            return false;
        if (ignoreMaterial)
            loaded.material = Material();
        *this = std::move(loaded);
        return true;
    } catch (std::bad_alloc const&) {
        return false;
    }
}

bool Shape::saveBinary(QDataStream* stream) const
{
    return shaperecord::writeMesh(*stream, mesh) && shaperecord::writeMaterial(*stream, material) &&
           flush(*stream);
}

} // namespace geometry
