#include "Fuzz.h"
#include "scene/AssociatedShapesXMLReader.h"

#include <QMap>
#include <QString>

// The input as a document beside one sound mesh. Meshes and materials of a first read match.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    fuzz::silence();
    QByteArray facet(80, 'h');
    facet += QByteArray("\1\0\0\0", 4) + QByteArray(12, '\0');
    for (char const* const corner :
         {"\0\0\0\0\0\0\0\0\0\0\0\0", "\0\0\x80\x3F\0\0\0\0\0\0\0\0", "\0\0\0\0\0\0\x80\x3F\0\0\0\0"})
        facet += QByteArray(corner, 12);
    facet += QByteArray(2, '\0');
    QMap<QString, QByteArray> const files = {{QStringLiteral("doc"), fuzz::bytesOf(data, size)},
                                             {QStringLiteral("a.stl"), facet}};
    AssociatedShapesXMLReader reader;
    bool const success = reader.read(files, QStringLiteral("doc"));
    QList<geometry::Mesh> const meshes = reader.takeMeshes();
    fuzz::require(success == !meshes.isEmpty());
    fuzz::require(meshes.size() == reader.getMaterials().size());
    for (geometry::Mesh const& mesh : meshes)
        fuzz::requireSound(mesh);
    return 0;
}
