#include "hostile/QuickFolder.h"

#include <QFile>

namespace hostile {

QString QuickFolder::write(QString const& name, QByteArray const& bytes) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("no room for the files of a test");
    return file.fileName();
}

QString QuickFolder::write(QString const& name, QImage const& image) const
{
    if (!image.save(path(name)))
        qFatal("no room for the images of a test");
    return path(name);
}

} // namespace hostile
