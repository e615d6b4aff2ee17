#pragma once

#include "obj/OBJReader.h"

#include <QImage>
#include <QString>

#include <map>

/// What came of reading a file as a texture.
struct OBJTexture
{
    QImage image;
    OBJReader::Error error = OBJReader::NoError;
    /// The decoder's words on a failure.
    QString errorText;
};

/// What one read has made of the files that its material libraries name, so that a file which is named again,
/// many times by one material, by many materials or by libraries in turn, is decoded twice at most, and its
/// pixels are shared.
class OBJTextureCache
{
public:
    /// What came of the file, valid until the next insert(); null where it is not known. `path` is canonical.
    OBJTexture const* find(QString const& path) const;
    /// Keeps the texture, and drops images that no material has any more when there is much of them. An image
    /// that was dropped once and is inserted again stays.
    OBJTexture const& insert(QString const& path, OBJTexture const& texture);

private:
    struct Entry
    {
        OBJTexture texture;
        bool isDropped = false;
        bool isToStay = false;
    };

    void dropUnused();

    std::map<QString, Entry> entries;
    qsizetype bytesSinceCleaning = 0;
};
