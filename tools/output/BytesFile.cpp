#include "output/BytesFile.h"

#include <QFile>

namespace tool {

BytesFile::BytesFile(QString const& path_)
    : path(path_)
    , output(path_)
{}

QString BytesFile::open(bool mayReplace)
{
    return output.open(mayReplace);
}

QString BytesFile::write(QByteArray const& content)
{
    bytes = content.size();
    QFile file(output.temporaryPath());
    bool const isWritten = file.open(QIODevice::WriteOnly) && file.write(content) == bytes && file.flush();
    return isWritten ? QString() : file.errorString();
}

QString BytesFile::check() const
{
    return output.check(bytes);
}

QString BytesFile::moveIntoPlace()
{
    return output.moveIntoPlace();
}

QString BytesFile::commit()
{
    return output.commit(bytes);
}

} // namespace tool
