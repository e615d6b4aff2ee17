#include "obj/OBJReaderHelper.h"

#include "obj/OBJReader.h"

#include <QDebug>
#include <QFile>

utility::Optional<geometry::Mesh> OBJReaderHelper::read(QString const& fileName)
{
    OBJReader::Error code = OBJReader::NoError;
    QFile file(fileName);
    if (!fileName.isEmpty() && file.open(QIODevice::ReadOnly)) {
        QByteArray const bytes = file.readAll();
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
