#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>
#include <QTemporaryDir>

namespace support {

/// A temporary folder for an OBJ file and what belongs to it.
class ObjFolder
{
public:
    /// The absolute path of a file in the folder.
    QString path(QString const& name) const { return folder.filePath(name); }
    /// Writes a file and returns its absolute path.
    QString write(QString const& name, QByteArray const& bytes) const;
    /// Writes an image in the format of the name's suffix.
    QString writeImage(QString const& name, QImage const& image) const;
    /// Makes a folder in the folder.
    void makeFolder(QString const& name) const;

private:
    QTemporaryDir folder;
};

/// An ARGB32 image of one colour.
QImage plainImage(int width, int height, QColor const& color);
/// An ARGB32 image in which every pixel tells its place: red is x, green is y, blue is `blue`.
QImage placeImage(int width, int height, int blue = 0);

} // namespace support
