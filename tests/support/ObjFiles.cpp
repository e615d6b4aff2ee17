#include "support/ObjFiles.h"

#include <QColor>
#include <QDir>
#include <QFile>

namespace support {

QString ObjFolder::write(QString const& name, QByteArray const& bytes) const
{
    QFile file(path(name));
    bool const isWritten = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    return isWritten ? file.fileName() : QString();
}

QString ObjFolder::writeImage(QString const& name, QImage const& image) const
{
    return image.save(path(name)) ? path(name) : QString();
}

void ObjFolder::makeFolder(QString const& name) const
{
    QDir(folder.path()).mkpath(name);
}

QImage plainImage(int width, int height, QColor const& color)
{
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(color);
    return image;
}

QImage placeImage(int width, int height, int blue)
{
    QImage image(width, height, QImage::Format_ARGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.setPixelColor(x, y, QColor(x, y, blue));
    return image;
}

} // namespace support
