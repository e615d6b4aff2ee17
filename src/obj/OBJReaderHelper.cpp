#include "obj/OBJReaderHelper.h"

#include "framework/FileAccess.h"
#include "framework/MemoryGuard.h"
#include "obj/OBJReader.h"

#include <QDebug>
#include <QFile>

namespace {

bool open(QFile& file)
{
    // A system takes a NUL for the end of the name, and would open another file.
    return !file.fileName().contains(QChar(u'\0')) && files::open(file, QIODevice::ReadOnly);
}

// `code` stays as it is for a file that cannot be opened.
utility::Optional<geometry::Mesh> readFile(QString const& fileName, OBJReader::Error& code)
{
    QFile file(fileName);
    if (!open(file))
        return {};
    // Null bytes, which are no data, also where there is no memory for what the file holds.
    QByteArray const bytes = memory::resultOr(QByteArray(), [&file] { return file.readAll(); });
    file.close();
    OBJReader reader(false);
    std::atomic<bool> const cancel = false;
    code = reader.read(bytes, cancel);
    return code == OBJReader::NoError ? utility::Optional<geometry::Mesh>(reader.getMesh()) : std::nullopt;
}

} // namespace

utility::Optional<geometry::Mesh> OBJReaderHelper::read(QString const& fileName)
{
    using Result = utility::Optional<geometry::Mesh>;
    OBJReader::Error code = OBJReader::NoError;
    Result const mesh = memory::resultOr(Result(), [&] { return readFile(fileName, code); });
    if (!mesh)
        qWarning() << "Could not read the OBJ file: " << fileName << conversions::toString(code);
    return mesh;
}
