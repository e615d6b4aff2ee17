#include "obj/OBJTextureCache.h"

namespace {

constexpr qsizetype bytesBetweenCleanings = qsizetype(64) * 1024 * 1024;

} // namespace

OBJTexture const* OBJTextureCache::find(QString const& path) const
{
    auto const found = entries.find(path);
    return found == entries.end() || found->second.isDropped ? nullptr : &found->second.texture;
}

OBJTexture const& OBJTextureCache::insert(QString const& path, OBJTexture const& texture)
{
    if (bytesSinceCleaning > bytesBetweenCleanings)
        dropUnused();
    Entry& entry = entries[path];
    entry.isToStay = entry.isDropped;
    entry.isDropped = false;
    entry.texture = texture;
    bytesSinceCleaning += texture.image.sizeInBytes();
    return entry.texture;
}

// An image that is not shared is nobody's but the cache's.
void OBJTextureCache::dropUnused()
{
    for (auto& [path, entry] : entries) {
        if (entry.isToStay || !entry.texture.image.isDetached())
            continue;
        entry.texture.image = QImage();
        entry.isDropped = true;
    }
    bytesSinceCleaning = 0;
}
