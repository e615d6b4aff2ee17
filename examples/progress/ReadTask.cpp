#include "ReadTask.h"

#include "obj/OBJReader.h"
#include "ply/PLYReader.h"
#include "stl/STLReader.h"

#include <QFileInfo>

ReadTask::ReadTask(QString const& path_)
    : path(path_)
    , file(path_)
{}

void ReadTask::run()
{
    // A reader belongs to one thread: it is made, used and destroyed here. Its mesh is a value and may leave.
    QString const suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QStringLiteral("stl")) {
        STLReader reader(nullptr, false, path);
        if (reader.read(&file, cancelled))
            mesh = reader.getMesh();
    } else if (suffix == QStringLiteral("obj")) {
        OBJReader reader;
        reader.setFileName(path);
        if (reader.read(&file, cancelled) == OBJReader::NoError)
            mesh = reader.getMesh();
    } else {
        PLYReader reader(PLYReader::MeshMode);
        reader.setFileName(path);
        if (reader.read(&file, cancelled))
            mesh = reader.getMesh();
    }
    if (cancelled)
        mesh.reset(); // binary STL ends with fewer surfaces, not with a failure
}
