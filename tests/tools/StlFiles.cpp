#include "StlFiles.h"

#include <QDataStream>
#include <QFile>
#include <QIODevice>

namespace support {

QByteArray stlFacet(float offset, int tag, int subTag)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream.setFloatingPointPrecision(QDataStream::SinglePrecision);
    for (float const value :
         {0.0f, 0.0f, 1.0f, offset, 0.0f, 0.0f, offset + 1, 0.0f, 0.0f, offset, 2.0f, 0.0f})
        stream << value;
    stream << qint8(subTag) << quint8(tag);
    return bytes;
}

QByteArray binaryStl(QByteArray const& facets, QByteArray const& header)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream << quint32(facets.size() / 50);
    return header.leftJustified(80, '\0') + bytes + facets;
}

bool writeFile(QString const& path, QByteArray const& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
}

QByteArray readFile(QString const& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace support
