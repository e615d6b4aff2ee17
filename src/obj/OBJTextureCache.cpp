#include "obj/OBJTextureCache.h"

namespace {

constexpr qsizetype bytesBetweenCleanings = qsizetype(64) * 1024 * 1024;

} // namespace

QImage OBJTextureCache::find(QString const& path) const
{
    auto const found = images.find(path);
    return found == images.end() ? QImage() : found->second;
}

void OBJTextureCache::insert(QString const& path, QImage const& image)
{
    // An image that is not shared is nobody's but the cache's.
    if (bytesSinceCleaning > bytesBetweenCleanings) {
        std::erase_if(images, [](auto const& entry) { return entry.second.isDetached(); });
        bytesSinceCleaning = 0;
    }
    images[path] = image;
    bytesSinceCleaning += image.sizeInBytes();
}
