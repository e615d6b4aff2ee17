#pragma once

#include <QString>

namespace tool {

/// How far a batch is.
struct Progress
{
    qint64 filesDone = 0;
    qint64 files = 0;
    qint64 bytesDone = 0;
    qint64 bytes = 0;
    qint64 milliseconds = 0;

    /// A bar, files done of all, the share of the bytes, their rate and the time left. What the bytes that
    /// were read so far do not tell yet is left out: "[######..............] 3/10  31 %  44.2 MB/s  0:07
    /// left".
    QString text() const;
};

} // namespace tool
