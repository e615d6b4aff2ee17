#pragma once

#include <QSize>
#include <QString>

namespace tool {

/// What can be told of an image file without loading it.
struct ImageFile
{
    bool isFound = false;
    /// Invalid when the file is no image that can be read.
    QSize size;
    /// What it takes in memory, in MiB, rounded up as Qt compares it with its limit.
    qint64 memory = 0;

    bool isImage() const { return size.isValid(); }
    /// Whether Qt refuses to load it, as it takes more memory than the limit of this process.
    bool isOverLimit() const;
    /// "image.png has 20000 x 20000 pixels, which take 1526 MiB; the limit is 128 MiB, and
    /// --image-limit 1526 raises it".
    QString limitProblem(QString const& name) const;
};

ImageFile imageFileAt(QString const& path);

} // namespace tool
