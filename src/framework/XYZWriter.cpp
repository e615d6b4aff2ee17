#include "framework/XYZWriter.h"

#include "framework/FileAccess.h"

#include <QFile>
#include <QTextStream>

namespace {

constexpr int decimals = 6;

QString number(float value)
{
    return QString::number(static_cast<double>(value), 'f', decimals);
}

} // namespace

bool XYZWriter::write(QString const& path, QList<QVector3D> const& points)
{
    QFile file(path);
    if (!files::open(file, QIODevice::WriteOnly))
        return false;
    if (points.isEmpty())
        return false;
    QTextStream stream(&file);
    for (QVector3D const& point : points)
        stream << number(point.x()) << ' ' << number(point.y()) << ' ' << number(point.z()) << '\n';
    return true;
}
