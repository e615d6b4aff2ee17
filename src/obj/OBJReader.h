#pragma once

#include "framework/Export.h"
#include "framework/SurfaceReader.h"

#include <QAnyStringView>
#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QList>
#include <QRect>
#include <QString>
#include <QVector2D>
#include <QVector3D>

#include <atomic>
#include <iosfwd>
#include <map>
#include <vector>

class OBJCornerMap;
class OBJTextureCache;
class QIODevice;
class QTextStream;

/// Reads a Wavefront OBJ surface, with at most one MTL material library and its textures, into one mesh.
///
/// Read are the lines "v" (x, y, z in millimetres), "vt" (u, v), "vn" (taken as they stand), "f" (triangles;
/// of a polygon with more than four corners the first three), "usemtl" and "mtllib"; every other line is
/// skipped. Positions, normals and texture coordinates that are indexed separately become one index by
/// duplicating vertices.
///
/// Several textures become one atlas, and the texture coordinates move with them. What is kept of a texture
/// is decided by the texture policy (`setTextureSupport`): the image and the texture coordinates, or one
/// colour for each vertex, looked up in it. v = 0 is the bottom row of a texture.
///
/// Material and texture files are looked for relative to the directory of `setFileName`, whatever is read.
///
/// After a failure mesh and transform are what they were before; the texture may be a new one or none. Never
/// throws. Threads: see `SurfaceReader`.
class SURFACEIO_EXPORT OBJReader : public SurfaceReader
{
public:
    /// Why a read failed. `conversions::toString` has a text for each.
    enum Error : int
    {
        NoError = 0,
        NoFileName = 1,
        CannotOpenFile = 2,
        /// Null bytes, a device that stops delivering before its end, or no memory for what it delivers.
        NoData = 3,
        Cancelled = 4,
        MultipleMaterialFilesUnsupported = 5,
        /// Some corners have a texture coordinate and others have none.
        IncompleteUvMapping = 6,
        /// A "v" line with fewer than three numbers; likewise the next two for "vt" (two numbers) and "vn".
        IncompleteVertexCoordinates = 7,
        IncompleteTextureCoordinates = 8,
        IncompleteVertexNormalCoordinates = 9,
        /// The file lacks what the texture policy requires, or has no vertices.
        UnableToLoadMeshWithCurrentTextureSupportFlag = 10,
        NoMaterialFileName = 11,
        CannotOpenMaterialFile = 12,
        CannotFindTextureFile = 13,
        CannotOpenTextureFile = 14,
        /// A position index that is 0, missing or no number, or any index that is used and lies outside its
        /// list; relative (negative) indices are outside.
        InvalidVertexId = 15,
        QuadFacesNotSupported = 16,
        InvalidMaterialFile = 17,
        /// An unreadable texture, or textures that do not fit into one atlas. Has no text.
        TextureProcessingFailed = 18
    };

    /// One corner of a face: 0-based indices, -1 for none.
    struct VertexIndices
    {
        /// Position.
        int vertex = -1;
        /// Normal.
        int normal = -1;
        /// Texture coordinate.
        int uv = -1;
        /// Ordinal of the face's material among the used ones, in name order.
        int material = -1;

        /// Lexicographic over the four, signed.
        friend bool operator<(VertexIndices const& a, VertexIndices const& b)
        {
            if (a.vertex != b.vertex)
                return a.vertex < b.vertex;
            if (a.normal != b.normal)
                return a.normal < b.normal;
            if (a.uv != b.uv)
                return a.uv < b.uv;
            return a.material < b.material;
        }
        /// Equal in all four.
        friend bool operator==(VertexIndices const& a, VertexIndices const& b)
        {
            return a.vertex == b.vertex && a.normal == b.normal && a.uv == b.uv && a.material == b.material;
        }
    };

    /// Material name to the 0-based ordinals of the faces that are drawn with it.
    using MaterialUsage = std::map<QString, QList<unsigned int>>;

    /// What an MTL file says about one material.
    struct ObjMaterial
    {
        /// Null for an untextured material.
        QImage texture;
        /// The "Kd" colour; invalid where there is none.
        QColor diffuseColor;
    };

    /// Several textures in one image.
    struct Atlas
    {
        /// (0, 0, width, height) in pixels.
        QRect rect;
        /// Material name to the region of its texture; y is counted from the bottom edge of the atlas.
        std::map<QString, QRect> placements;
        /// The textures, each at its place.
        QImage image;
    };

    /// `sharpEdges` chooses the normals that are computed for a file without any.
    explicit OBJReader(bool sharpEdges = false);
    ~OBJReader() override;

    /// Reads the file of `setFileName`; true on success, else see `getError`. Ignores `cancel`: a read
    /// started here runs to its end.
    bool read(std::atomic<bool> const& cancel) override;
    /// Opens `device`, which stays the caller's, and reads it from where it then stands; leaves it open.
    /// Polls `cancel` for each line. The result is the returned value, not `getError`.
    Error read(QIODevice* device, std::atomic<bool> const& cancel);
    /// Reads the content of an OBJ file. `NoData` for null bytes. Polls `cancel` for each line. The result is
    /// the returned value, not `getError`.
    Error read(QByteArray const& data, std::atomic<bool> const& cancel);

    /// The outcome of the last `read(cancel)`. The other two store only what a line of the file causes, not
    /// what is found when all lines are read.
    Error getError() const;
    /// `conversions::toString(getError())`.
    QString getErrorString() const;
    /// Whether `getError()` is `NoError`.
    bool isValid() const;

private:
    using Tokens = std::vector<QAnyStringView>;
    struct WorkingLists;
    struct LibraryReading;

    // The text (OBJReaderText.cpp).
    Error readText(QTextStream& stream, std::atomic<bool> const& cancel);
    Error readLines(QTextStream& stream, WorkingLists& lists, std::atomic<bool> const& cancel);
    static bool readPlainLine(QByteArrayView line, WorkingLists& lists);
    void readLine(Tokens const& tokens, WorkingLists& lists);
    void readPosition(Tokens const& tokens, WorkingLists& lists);
    void readTextureCoordinate(Tokens const& tokens, WorkingLists& lists);
    void readNormal(Tokens const& tokens, WorkingLists& lists);
    void readFace(Tokens const& tokens, WorkingLists& lists);
    static void appendFace(VertexIndices const& a, VertexIndices const& b, VertexIndices const& c,
                           WorkingLists& lists);
    void readMaterialUse(Tokens const& tokens, WorkingLists& lists);
    void readMaterialLibrary(Tokens const& tokens, WorkingLists& lists);
    void convertLineToFloat(Tokens const& tokens, float& x, float& y, float& z) const;
    void convertFaceLine(Tokens const& tokens, VertexIndices& a, VertexIndices& b, VertexIndices& c);
    void parseFaceElementIndexGroup(QAnyStringView text, VertexIndices& out);
    static QString parseMaterialName(Tokens const& tokens);

    // One index for positions, normals and texture coordinates (OBJReaderVertices.cpp).
    static bool areListsPerPosition(QList<QVector3D> const& positions, QList<QVector3D> const& normals,
                                    QList<QVector2D> const& textureCoordinates);
    static int getNewIndexForCombination(int vertex, int normal, int uv, int material,
                                         OBJCornerMap const& map);
    Error removeIndexedNormalsAndUvsByDuplicatingVertices(
        QList<QVector3D>& positions, QList<QVector3D>& normals, QList<QVector2D>& textureCoordinates,
        QList<int>& positionIndices, QList<int> const& normalIndices, QList<int> const& textureIndices,
        MaterialUsage const& usage);

    // Materials and textures (OBJReaderMaterials.cpp).
    std::vector<QString> reconstructMTLFileNames(QList<QString> const& tokens) const;
    Error handleMTL(QString const& mtlFileName);
    Error handleMTL(QString const& mtlFileName, LibraryReading& library);
    Error readMTLLine(Tokens const& tokens, LibraryReading& library);
    Error readTextureStatement(Tokens const& tokens, LibraryReading& library);
    QColor readDiffuseColor(Tokens const& tokens, bool& hasWarned) const;
    Error loadTexture(QString const& textureFileName, QImage& image, OBJTextureCache& known) const;
    void fixMaterials(WorkingLists& lists);
    void fixNonExistingButUsedMaterials(MaterialUsage& usage) const;
    void pruneUnusedMaterials(MaterialUsage const& usage);
    bool isMeshUsingTexturedAndNonTexturedMaterialsAtTheSameTime() const;
    void fixMixedMaterialUsage(QList<QVector2D>& textureCoordinates, QList<int>& textureIndices,
                               MaterialUsage const& usage);
    Error buildMesh(WorkingLists& lists, std::atomic<bool> const& cancel);
    geometry::Mesh makeTexturedMesh(WorkingLists const& lists) const;
    geometry::Mesh makeColoredMesh(WorkingLists& lists);

    // The atlas and the colours of vertices (OBJReaderAtlas.cpp).
    Error combineTexturesAndAdjustUVs(MaterialUsage const& usage, QList<int> const& indices,
                                      QList<QVector2D>& textureCoordinates);
    Error buildTextureAtlas(Atlas& atlas) const;
    Error packRectangles(Atlas& atlas) const;
    Error generateAtlasImage(Atlas& atlas) const;
    void adjustUVs(Atlas& atlas, MaterialUsage const& usage, QList<int> const& indices,
                   QList<QVector2D>& textureCoordinates);
    QList<unsigned int>
    determineVertexColorsFromTextureAndUvs(QList<QVector2D> const& textureCoordinates) const;
    unsigned int textureLookup(float u, float v) const;

    Error error = NoError;
    std::map<QString, ObjMaterial> materials;
};

namespace conversions {

/// A short English text; empty for `NoError`, `TextureProcessingFailed` and values that are none of the enum.
SURFACEIO_EXPORT QString toString(OBJReader::Error error);

} // namespace conversions

/// Writes `conversions::toString(error)` as UTF-8.
SURFACEIO_EXPORT std::ostream& operator<<(std::ostream& stream, OBJReader::Error const& error);
