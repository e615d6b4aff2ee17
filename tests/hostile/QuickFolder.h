#pragma once

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QString>
#include <QTemporaryDir>

namespace hostile {

/// A temporary folder, in memory where there is such a place: writing over a file ten thousand times waits
/// for the disk each time.
class QuickFolder
{
public:
    QuickFolder()
        : folder(place())
    {}

    QString path(QString const& name) const { return folder.filePath(name); }
    /// Writes a file and returns its path.
    QString write(QString const& name, QByteArray const& bytes) const;
    QString write(QString const& name, QImage const& image) const;

private:
    static QString place()
    {
        QString const memory = QStringLiteral("/dev/shm");
        return (QFileInfo(memory).isWritable() ? memory : QDir::tempPath()) +
               QStringLiteral("/hostile-XXXXXX");
    }

    QTemporaryDir folder;
};

} // namespace hostile
