#include "Fuzz.h"
#include "inhouse/data/ShapeNodeIO.h"
#include "scene/BinaryIOHelper.h"

#include <QDataStream>
#include <QIODevice>
#include <QVersionNumber>

namespace {

QByteArray saved(geometry::ShapeNode const& root)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    ShapeNodeIO::saveRecursive(&root, &stream);
    return bytes;
}

std::unique_ptr<geometry::ShapeNode> loaded(QByteArray const& input, QVersionNumber const& version)
{
    QDataStream stream(input);
    return ShapeNodeIO::loadRecursive(&stream, version, false);
}

// What was loaded is saved and loaded again to the same bytes.
void requireStable(QByteArray const& input, QVersionNumber const& version)
{
    auto const root = loaded(input, version);
    if (!root)
        return;
    QByteArray const bytes = saved(*root);
    auto const again = loaded(bytes, QVersionNumber(2, 0));
    fuzz::require(again && saved(*again) == bytes);
}

void requireRewound(QByteArray const& input)
{
    QDataStream stream(input);
    auto const version = BinaryIOHelper::readVersion(stream);
    fuzz::require(version || stream.device()->pos() == 0);
}

} // namespace

// The input as a whole file, and as a tree of either version.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    fuzz::silence();
    QByteArray const input = fuzz::bytesOf(data, size);
    requireRewound(input);
    for (QByteArray const& tree : {input, input.mid(50)}) {
        requireStable(tree, QVersionNumber(1, 0));
        requireStable(tree, QVersionNumber(2, 0));
        geometry::Shape shape;
        QDataStream stream(tree);
        shape.loadBinary(&stream, QVersionNumber(2, 0), false);
    }
    return 0;
}
