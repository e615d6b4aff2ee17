#pragma once

#include <QImage>
#include <QString>

#include <map>

/// The images that one material library has named so far, so that a file which is named again, by many
/// materials or many times by one, is decoded once and its pixels are shared.
class OBJTextureCache
{
public:
    /// The image of the file; null where it is not known. `path` is canonical.
    QImage find(QString const& path) const;
    /// Keeps the image, and drops such as no material has any more when there is much of them.
    void insert(QString const& path, QImage const& image);

private:
    std::map<QString, QImage> images;
    qsizetype bytesSinceCleaning = 0;
};
