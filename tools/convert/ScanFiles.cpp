#include "convert/ScanFiles.h"

#include "Text.h"
#include "header/Metadata.h"
#include "images/LargeImages.h"
#include "inhouse/data/Unstrip.h"
#include "inspect/Format.h"
#include "inspect/PlyHeaderText.h"
#include "inspect/StlBinary.h"
#include "inspect/StlText.h"
#include "obj/OBJReader.h"
#include "ply/PLYReader.h"
#include "ply/PLYWriter.h"
#include "stl/STLReader.h"
#include "stl/STLWriter.h"

#include <QDebug>
#include <QFile>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

constexpr qint64 indicesOfTriangle = 4;

qint64 triangles(MeshFile const& file)
{
    return geometry::unstrip(file.mesh).getNumIndices() / indicesOfTriangle;
}

// A file without metadata, or whose metadata cannot be told, has none.
void readMetadata(QString const& path, decltype(MetadataFormat::read) read, MeshFile& file)
{
    QFile in(path);
    Metadata metadata;
    if (in.open(QIODevice::ReadOnly) && !read(in, metadata))
        file.metadata = metadata;
}

// A file that was read holds the facets that it claims, or is text.
bool hasTags(QString const& path)
{
    QFile in(path);
    if (!in.open(QIODevice::ReadOnly))
        return false;
    QByteArray const head = in.peek(Source::headBytes);
    qint64 const claimed = stl::isReadAsText(head) ? 0 : stl::claimedFacets(head);
    bool isTagged = false;
    stl::forEachFacet(in, claimed, [&isTagged](stl::FacetRecord const& facet) {
        isTagged = isTagged || facet.tag().tag != 0 || facet.tag().subTag != 0;
    });
    return isTagged;
}

void warnIfCut(QString const& path)
{
    QFile in(path);
    if (!in.open(QIODevice::ReadOnly))
        return;
    ply::HeaderText const header = ply::readHeaderText(in);
    qint64 const missing = header.bodyStart < 0 ? 0 : header.bodyStart + announcedBytes(header) - in.size();
    if (missing > 0)
        qWarning().noquote() << Text::counted(
                                    "%1: %n byte(s) (is|are) missing at its end; what is there was read",
                                    nullptr, missing)
                                    .arg(path);
}

// `read` has the reader read the file.
template <typename Read>
bool readWithTexture(SurfaceReader& reader, QString const& path, MeshFile& file, Read const& read)
{
    reader.setFileName(path);
    reader.setTextureSupport(file.bakesTexture ? SurfaceReader::VertexColorsOptional
                                               : SurfaceReader::TextureOptional);
    if (!readNamingImages(path, read))
        return false;
    file.mesh = reader.getMesh();
    file.mesh.textureCoordinates.clear();
    return true;
}

bool isPlain(QString const& text)
{
    return std::all_of(text.begin(), text.end(),
                       [](QChar c) { return c.unicode() >= ' ' && c.unicode() <= '~'; });
}

} // namespace

bool readStl(QString const& path, MeshFile& file, Reading const& reading)
{
    CountedFile in(path, reading);
    STLReader reader(nullptr, false, path);
    if (!reader.read(&in, reading.cancel))
        return false;
    file.mesh = reader.getMesh();
    readMetadata(path, readStlMetadata, file);
    file.hasTags = hasTags(path);
    return true;
}

bool writeStl(QString const& path, MeshFile const& file)
{
    STLWriter writer;
    writer.setFilePath(path);
    writer.setData(file.mesh, 0, 0);
    writer.setHeaderData(file.metadata);
    if (!writer.write())
        qWarning() << writer.getErrorMessage();
    return writer.getErrorMessage().isEmpty();
}

qint64 stlBytes(QString const&, MeshFile const& file)
{
    return 84 + 50 * triangles(file);
}

bool readPly(QString const& path, MeshFile& file, Reading const& reading)
{
    CountedFile in(path, reading);
    PLYReader reader(PLYReader::MeshMode);
    if (!readWithTexture(reader, path, file, [&] { return reader.read(&in, reading.cancel); }))
        return false;
    file.material = reader.getMaterial();
    readMetadata(path, readPlyMetadata, file);
    warnIfCut(path);
    return true;
}

// Only the reading of a device can be stopped.
bool readObj(QString const& path, MeshFile& file, Reading const& reading)
{
    CountedFile in(path, reading);
    OBJReader reader;
    return readWithTexture(reader, path, file,
                           [&] { return reader.read(&in, reading.cancel) == OBJReader::NoError; });
}

bool writePly(QString const& path, MeshFile const& file)
{
    PLYWriter writer;
    writer.setFilePath(path);
    writer.setData(file.mesh, file.withAlpha, file.material);
    writer.setHeaderData(file.metadata);
    if (!writer.write())
        qWarning() << writer.getErrorMessage();
    return writer.getErrorMessage().isEmpty();
}

// The header's end tells how long it is. A cut header gives a length that no file has.
qint64 plyBytes(QString const& path, MeshFile const& file)
{
    QFile in(path);
    if (!in.open(QIODevice::ReadOnly))
        return -1;
    ply::HeaderText const header = ply::readHeaderText(in);
    bool const isWhole = header.bodyStart >= 0 && header.element("vertex"_L1) != nullptr &&
                         header.element("vertex"_L1)->count == file.mesh.getNumVertices();
    return isWhole ? header.bodyStart + announcedBytes(header) : in.size() + 1;
}

QString plyObstacle(MeshFile const& file)
{
    if (!file.metadata)
        return {};
    QString const name = file.metadata->getScannerName().remove(u'\u00AE').remove(u'\u2122');
    std::array const texts = {std::pair(Text::tr("scanner name"), name),
                              std::pair(Text::tr("scanner serial"), file.metadata->getScannerSerial()),
                              std::pair(Text::tr("software version"), file.metadata->getSoftwareVersion())};
    for (auto const& [what, text] : texts) {
        if (!isPlain(text))
            return Text::tr(
                       "expected a %1 of ASCII letters, found \"%2\": in a PLY header others cut its end off")
                .arg(what, text);
    }
    return {};
}

} // namespace tool
