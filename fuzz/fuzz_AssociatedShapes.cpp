#include "Fuzz.h"
#include "scene/AssociatedShapesXMLReader.h"

#include <QMap>
#include <QString>

namespace {

using namespace Qt::StringLiterals;
using Bundle = QMap<QString, QByteArray>;

// One facet, byte by byte.
QByteArray triangle()
{
    QByteArray facet(80, 'h');
    facet += QByteArray("\1\0\0\0", 4) + QByteArray(12, '\0');
    for (char const* const corner :
         {"\0\0\0\0\0\0\0\0\0\0\0\0", "\0\0\x80\x3F\0\0\0\0\0\0\0\0", "\0\0\0\0\0\0\x80\x3F\0\0\0\0"})
        facet += QByteArray(corner, 12);
    return facet + QByteArray(2, '\0');
}

struct Outcome
{
    bool success;
    QList<geometry::Mesh> meshes;
    QStringList log;
};

// The reader keeps its materials, so that what a read adds to them is looked at here.
template <typename... Source>
Outcome read(AssociatedShapesXMLReader& reader, Source const&... source)
{
    qsizetype const materialsBefore = reader.getMaterials().size();
    fuzz::silence();
    bool const success = reader.read(source...);
    QList<geometry::Mesh> const meshes = reader.takeMeshes();
    fuzz::require(success == !meshes.isEmpty());
    fuzz::require(reader.getMaterials().size() == materialsBefore + meshes.size());
    for (geometry::Mesh const& mesh : meshes)
        fuzz::requireSound(mesh);
    return {success, meshes, fuzz::messages()};
}

void requireSame(Outcome const& a, Outcome const& b)
{
    fuzz::require(a.success == b.success && a.log == b.log && a.meshes.size() == b.meshes.size());
    for (qsizetype i = 0; i < a.meshes.size(); ++i)
        fuzz::requireSame(a.meshes[i], b.meshes[i]);
}

} // namespace

// The input as a document beside one sound mesh, in memory and on disk.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    static fuzz::ScratchFolder const folder;
    static QByteArray const mesh = triangle();
    static QString const meshPath = folder.write(u"a.stl"_s, mesh);
    QByteArray const document = fuzz::bytesOf(data, size);
    Bundle const files = {{u"doc"_s, document}, {u"a.stl"_s, mesh}};
    AssociatedShapesXMLReader reader;
    Outcome const inMemory = read(reader, files, u"doc"_s);
    requireSame(inMemory, read(reader, files, u"doc"_s));

    QString const path = folder.write(u"doc.xml"_s, document);
    Outcome const onDisk = read(reader, path);
    requireSame(onDisk, read(reader, path));
    return 0;
}
