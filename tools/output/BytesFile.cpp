#include "output/BytesFile.h"

#include "Text.h"

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
    if (!file.open(QIODevice::WriteOnly))
        return Text::tr("cannot be written: ") + file.errorString();
    bool const isWritten = file.write(content) == bytes && file.flush();
    return isWritten ? QString() : whyNotWritten(file.fileName());
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
