#include "framework/FileAccess.h"

#include <QFileInfo>

namespace files {

namespace {

bool hasNul(QString const& path)
{
    return path.contains(QChar(u'\0'));
}

} // namespace

bool open(QFile& file, QIODevice::OpenMode mode)
{
    return !file.fileName().isEmpty() && file.open(mode);
}

bool mayBeNamed(QString const& path)
{
    return !hasNul(path) && QFileInfo::exists(path) && !isPipeOrDevice(path);
}

QString absolutePath(QString const& path)
{
    return hasNul(path) ? path : QFileInfo(path).absoluteFilePath();
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
