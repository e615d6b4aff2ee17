#include "framework/FileAccess.h"

#include <QFileInfo>

namespace files {

bool open(QFile& file, QIODevice::OpenMode mode)
{
    return !file.fileName().isEmpty() && file.open(mode);
}

bool isPipeOrDevice(QString const& path)
{
    QFileInfo const info(path);
    return info.exists() && !info.isFile() && !info.isDir();
}

qint64 readFully(QIODevice* device, char* target, qint64 size)
{
    qint64 done = 0;
    while (done < size) {
        qint64 const bytes = device->read(target + done, size - done);
        if (bytes <= 0)
            break;
        done += bytes;
    }
    return done;
}

} // namespace files
