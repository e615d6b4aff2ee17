#pragma once

#include <QFile>

namespace files {

/// Opens `file`. False without a word for one without a name, of which Qt would log a line of its own.
bool open(QFile& file, QIODevice::OpenMode mode);

/// Whether there is a file or folder at `path` that another file may name: neither one that `isPipeOrDevice`
/// nor a path with a NUL inside. Of that Qt would log a line of its own.
bool mayBeNamed(QString const& path);

/// `path` for messages: absolute, without detours. One with a NUL inside stays as it is.
QString absolutePath(QString const& path);

/// Whether a pipe, a socket or a device is at `path`, links followed. It may never answer: one that a file
/// names is as good as missing.
bool isPipeOrDevice(QString const& path);

/// Reads `size` bytes, however few the device hands out at a time. Fewer only when it gives nothing more.
qint64 readFully(QIODevice* device, char* target, qint64 size);

} // namespace files
