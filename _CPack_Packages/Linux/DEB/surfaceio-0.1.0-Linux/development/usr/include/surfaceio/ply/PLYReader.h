#pragma once

#include "framework/SurfaceReader.h"
#include "inhouse/data/Material.h"
#include "inhouse/data/Optional.h"
#include "inhouse/data/PointCloud.h"
#include "ply/PLYHeader.h"
#include "ply/PLYTypes.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QColor>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

class QDataStream;
class QIODevice;
class QTextStream;

namespace ply {
struct FaceRow;
struct VertexRow;
class RowDecoder;
} // namespace ply

/// Reads binary PLY files of either byte order into a `geometry::Mesh` or a `geometry::PointCloud`: one
/// vertex element, triangles, one `velquin_material` record, a texture named by a comment line
/// ("comment TextureFile NAME", relative to the directory of the file name), colours of faces on request.
///
/// Coordinates are taken as millimetres. Indices in the file and in the mesh are 0-based; the mesh holds
/// a, b, c, -1 for each triangle. Normals come from the file, else they are computed smooth.
///
/// Texture policies 0 and 1 turn a texture into vertex colours, 2 keeps texture and coordinates where the
/// file has both, 3 fails where it has not. Vertex colours of the file win over texture coordinates.
///
/// What a body that ends early leaves of the vertices is kept, and values cut off read as 0; faces must not
/// ask for vertices that are not there. `char` and `ushort` values take no bytes, so that what follows them
/// in a row is shifted; where a number is needed (coordinates, colours) they make the read fail.
///
/// Failures are a false result. Order and property problems of the header are logged as critical, the
/// encoding, a missing texture, polygons other than triangles and material values as warnings, everything
/// else silently. Memory grows with the bytes that are there, never with a count in the header.
///
/// Threads: as `SurfaceReader`. The flag is polled for each header line, vertex, face, material property
/// and component of a colour or vector; once a row where whole rows are decoded.
class SURFACEIO_EXPORT PLYReader : public SurfaceReader
{
public:
    /// What the body becomes.
    enum ReadMode : qint32
    {
        /// Vertices and triangles make a mesh. A file with vertices and no faces is refused.
        MeshMode = 0,
        /// Vertices make a point cloud; faces are not looked at.
        PointCloudMode = 1
    };

    /// Makes a mesh or a point cloud, as `readMode` says. There is nothing to read yet.
    explicit PLYReader(ReadMode readMode);
    ~PLYReader() override;

    /// Whether faces may have colours, which `getFaceColors` then gives. Off until called; while off, a face
    /// colour in the header makes the read fail.
    void activeFaceColorMode(bool active);
    /// An image for any texture line of the header, in place of the file that the line names. A null image
    /// turns that off.
    void setTextureOverride(QImage const& image);

    /// Reads the file of the name set. False without a name, and when it cannot be opened.
    bool read(std::atomic<bool> const& cancel) override;
    /// Reads the bytes of a file. The file name serves for the texture only.
    bool read(QByteArray const& data, std::atomic<bool> const& cancel);
    /// Reads a device from its start, opening it when it is not open for reading. It stays open, placed
    /// behind the last byte read. A sequential device is read from where it stands, and some way beyond the
    /// mesh; a read from it that gives nothing counts as its end.
    ///
    /// On failure mesh, texture and point cloud are what they were. Face colours and material are emptied
    /// when the reading of faces and of the material begins.
    bool read(QIODevice* device, std::atomic<bool> const& cancel);

    /// One colour for each face read, when face colours are on; invalid for a file without.
    QList<QColor> const& getFaceColors() const { return faceColors; }
    /// The material record of the last read. A file that announces one and ends before it gives `Material()`.
    utility::Optional<geometry::Material> const& getMaterial() const { return material; }
    /// The result of `PointCloudMode`.
    geometry::PointCloud const& getPointCloud() const { return pointCloud; }

    /// The name in the first texture line of a PLY file's header, runs of spaces collapsed to one; empty when
    /// there is none before "end_header".
    static QString getTextureFileName(QByteArray const& data);

private:
    /// The body before it becomes a mesh or a point cloud. Of the last three, each is empty or has an
    /// entry for each position. Colours are packed, AABBGGRR.
    struct VertexData
    {
        QList<QVector3D> positions;
        QList<QVector3D> normals;
        QList<unsigned int> colors;
        QList<QVector2D> textureCoordinates;
    };
    struct FaceData
    {
        QList<int>& indices;
        int vertexCount;
        int count = 0;
    };
    struct Vertex;
    struct VertexTargets;
    struct Face;
    struct MaterialData;
    using PropertyList = QList<PLYHeader::TypedProperty>;

    void initMaps();

    bool readDevice(QIODevice& device, std::atomic<bool> const& cancel);
    bool readMagic(QTextStream& stream, PLYHeader& header, std::atomic<bool> const& cancel);
    bool readHeader(QTextStream& stream, PLYHeader& header, std::atomic<bool> const& cancel);
    bool handleFormat(QStringList const& tokens, PLYHeader& header) const;
    bool handleElement(QStringList const& tokens, PLYHeader& header) const;
    bool handleProperty(QStringList const& tokens, PLYHeader& header) const;
    bool handleListProperty(QStringList const& tokens, PLYHeader& header) const;
    bool handleTexture(QString const& name, PLYHeader& header) const;
    bool isHeaderValid(PLYHeader const& header) const;
    bool isPropertyAllowed(PLYHeader const& header, ply::Property property) const;
    static bool isEmptyOrComment(QStringList const& tokens);
    static bool isColorProperty(ply::Property property);
    static bool isMaterialColorProperty(ply::Property property);

    bool readBinary(QIODevice* device, PLYHeader const& header, ply::Format format,
                    std::atomic<bool> const& cancel);
    bool readVerticesData(QDataStream& stream, PLYHeader const& header, VertexData& vertices,
                          std::atomic<bool> const& cancel);
    bool readFacesData(QDataStream& stream, PLYHeader const& header, QList<int>& indices, int vertexCount,
                       std::atomic<bool> const& cancel);
    bool readMaterialData(QDataStream& stream, PLYHeader const& header, std::atomic<bool> const& cancel);
    static bool readVertex(QDataStream& stream, PropertyList const& properties, Vertex& vertex,
                           std::atomic<bool> const& cancel);
    void appendVertex(Vertex const& vertex, PLYHeader const& header, VertexData& vertices) const;
    static bool readFace(QDataStream& stream, PLYHeader const& header, PropertyList const& properties,
                         Face& face, std::atomic<bool> const& cancel);
    static bool readIndices(QDataStream& stream, PLYHeader const& header, Face& face);
    static bool readMaterialProperty(QDataStream& stream, PLYHeader::TypedProperty const& property,
                                     MaterialData& record, std::atomic<bool> const& cancel);

    bool readVertexRows(QDataStream& stream, PLYHeader const& header, PropertyList const& properties,
                        VertexData& vertices, std::atomic<bool> const& cancel) const;
    VertexTargets extended(VertexData& vertices, PLYHeader const& header, ply::VertexRow const& row,
                           qsizetype rows) const;
    static void decodeVertex(ply::RowDecoder const& decoder, char const* bytes, ply::VertexRow const& row,
                             PLYHeader const& header, VertexTargets& targets);
    bool readFaceRows(QDataStream& stream, PLYHeader const& header, PropertyList const& properties,
                      FaceData& faces, std::atomic<bool> const& cancel);
    static qsizetype decodeFaces(ply::RowDecoder const& decoder, QByteArrayView bytes,
                                 ply::FaceRow const& row, FaceData& faces, std::atomic<bool> const& cancel);
    void appendFaceColors(ply::RowDecoder const& decoder, QByteArrayView bytes, ply::FaceRow const& row);

    void storePointCloud(VertexData const& vertices);
    bool storeMesh(PLYHeader const& header, VertexData const& vertices, QList<int> const& indices,
                   std::atomic<bool> const& cancel);

    static QVariant readBinaryData(QDataStream& stream, ply::Type type);
    static bool readColor(QDataStream& stream, QColor& color, ply::Property property, ply::Type type,
                          std::atomic<bool> const& cancel);
    static bool readMaterialColor(QDataStream& stream, QColor& color, ply::Property property, ply::Type type,
                                  std::atomic<bool> const& cancel);
    static bool readVectorComponent(QDataStream& stream, QVector3D& vector, ply::Property property,
                                    ply::Type type, std::atomic<bool> const& cancel);
    static bool readTextureCoord(QDataStream& stream, QVector2D& uv, ply::Property property, ply::Type type);

    QMap<QString, ply::Property> propertyMap;
    QMap<QString, ply::Type> typeMap;
    QMap<QString, ply::Format> formatMap;
    QList<QColor> faceColors;
    bool faceColorMode = false;
    ReadMode readMode;
    geometry::PointCloud pointCloud;
    utility::Optional<geometry::Material> material;
    QImage textureOverride;
    /// Whether rows of fixed layout are decoded from memory. For tests: off, all go value by value.
    bool decodesRows = true;
};
