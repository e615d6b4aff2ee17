#include "obj/OBJReaderHelper.h"

#include "obj/OBJReader.h"

#include <QDebug>
#include <QFile>

#include <new>

namespace {

bool open(QFile& file)
{
    // Qt logs an empty name; a system takes a NUL for the end of the name, and would open another file.
    QString const name = file.fileName();
    return !name.isEmpty() && !name.contains(QChar(u'\0')) && file.open(QIODevice::ReadOnly);
}

// Null bytes, which are no data, also where there is no memory for what the file holds.
QByteArray readAll(QFile& file)
{
    try {
        return file.readAll();
    } catch (std::bad_alloc const&) {
        return {};
    }
}

} // namespace

utility::Optional<geometry::Mesh> OBJReaderHelper::read(QString const& fileName)
{
    OBJReader::Error code = OBJReader::NoError;
    if (QFile file(fileName); open(file)) {
        QByteArray const bytes = readAll(file);
        file.close();
        OBJReader reader(false);
        std::atomic<bool> const cancel = false;
        code = reader.read(bytes, cancel);
        if (code == OBJReader::NoError)
            return reader.getMesh();
    }
    qWarning() << "Could not read the OBJ file: " << fileName << conversions::toString(code);
    return {};
}
