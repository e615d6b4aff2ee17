#pragma once

#include <QFile>

namespace files {

/// Opens `file`. False without a word for one without a name, of which Qt would log a line of its own.
bool open(QFile& file, QIODevice::OpenMode mode);

/// Reads `size` bytes, however few the device hands out at a time. Fewer only when it gives nothing more.
qint64 readFully(QIODevice* device, char* target, qint64 size);

} // namespace files
