#include "texture/Png.h"

#include <QBuffer>

namespace tool {

QByteArray pngOf(QImage const& image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    bool const isWritten = buffer.open(QIODevice::WriteOnly) && image.save(&buffer, "png");
    return isWritten ? bytes : QByteArray();
}

} // namespace tool
