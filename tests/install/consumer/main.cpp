// Reads the STL file of the first argument, writes it as PLY to the second and reads that. With a third one
// it wants messages in German.
#include "framework/MeshReader.h"
#include "framework/MeshWriter.h"
#include "obj/OBJReader.h"
#include "stl/STLReader.h"

#include <QCoreApplication>
#include <QFile>
#include <QLocale>
#include <QObject>
#include <QTranslator>

#include <atomic>
#include <cstdio>

namespace {

bool check(bool condition, char const* what)
{
    if (!condition)
        std::fprintf(stderr, "failed: %s\n", what);
    return condition;
}

// Through the base class and its meta-object, both of which the library has to export.
bool readsWithAReader(QString const& path)
{
    std::atomic<bool> const cancel{false};
    STLReader reader(nullptr, false, {});
    SurfaceReader* const base = qobject_cast<SurfaceReader*>(&reader);
    if (!check(base != nullptr, "the reader is a SurfaceReader"))
        return false;
    base->setFileName(path);
    return check(base->read(cancel), "the reader reads") &&
           check(base->getMesh().getNumIndices() == 16, "the reader gives four triangles");
}

bool copies(QString const& path, QString const& copyPath)
{
    utility::Optional<geometry::Mesh> const mesh = MeshReader::read(path);
    if (!check(mesh.has_value(), "the file is read") ||
        !check(MeshWriter::write(copyPath, *mesh), "it is written"))
        return false;
    utility::Optional<geometry::Mesh> const copy = MeshReader::read(copyPath);
    return check(copy.has_value(), "the copy is read") &&
           check(mesh->getNumVertices() == 4, "it has four vertices") &&
           check(copy->vertices == mesh->vertices, "the copy has the same vertices") &&
           check(copy->indices == mesh->indices, "the copy has the same triangles");
}

// The catalogues are in the library, wherever it lies.
bool speaksGerman()
{
    QTranslator translator;
    if (!check(translator.load(QLocale(QLocale::German), QStringLiteral("surfaceio"), QStringLiteral("_"),
                               QStringLiteral(":/surfaceio/translations")),
               "there is a German catalogue"))
        return false;
    QCoreApplication::installTranslator(&translator);
    return check(conversions::toString(OBJReader::NoData) == QStringLiteral("keine Daten"), "it is used");
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3 && argc != 4)
        return 2;
    QString const path = QFile::decodeName(argv[1]);
    QCoreApplication const application(argc, argv);
    bool const isFine = readsWithAReader(path) && copies(path, QFile::decodeName(argv[2]));
    return isFine && (argc == 3 || speaksGerman()) ? 0 : 1;
}
