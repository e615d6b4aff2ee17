#include "images/ImageFile.h"

#include "Text.h"

#include <QFileInfo>
#include <QImageReader>
#include <QPixelFormat>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

constexpr qint64 mebibyte = 1 << 20;

// As Qt counts before it makes room for an image: 32 bits a pixel at least.
qint64 memoryOf(QSize const& size, QImage::Format format)
{
    constexpr qint64 leastBits = 32;
    qint64 const bits = std::max<qint64>(leastBits, QImage::toPixelFormat(format).bitsPerPixel());
    qint64 const bytes = (size.width() * bits + 31) / 32 * 4 * size.height();
    return (bytes + mebibyte - 1) / mebibyte;
}

} // namespace

ImageFile imageFileAt(QString const& path)
{
    ImageFile file;
    file.isFound = !path.contains(QChar(u'\0')) && QFileInfo(path).isFile();
    if (!file.isFound)
        return file;
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    file.size = reader.canRead() ? reader.size() : QSize();
    if (file.isImage())
        file.memory = memoryOf(file.size, reader.imageFormat());
    return file;
}

bool ImageFile::isOverLimit() const
{
    int const limit = QImageReader::allocationLimit();
    return limit > 0 && memory > limit;
}

QString ImageFile::limitProblem(QString const& name) const
{
    return Text::tr("\"%1\" has %2 x %3 pixels, which take %4 MiB; the limit is %5 MiB, and "
                    "--image-limit %4 raises it")
        .arg(name)
        .arg(size.width())
        .arg(size.height())
        .arg(memory)
        .arg(QImageReader::allocationLimit());
}

} // namespace tool
