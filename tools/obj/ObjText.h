#pragma once

#include "inspect/Bounds.h"

#include <QStringList>

#include <limits>
#include <map>
#include <optional>
#include <tuple>
#include <vector>

class QIODevice;

namespace tool::obj {

/// How often something stands in a file, and in which line first.
struct Occurrence
{
    qint64 count = 0;
    qint64 firstLine = 0;

    void add(qint64 line)
    {
        if (count++ == 0)
            firstLine = line;
    }
    explicit operator bool() const { return count > 0; }
};

/// What the corners of a face name.
enum class CornerStyle
{
    V,
    VVt,
    VVn,
    VVtVn,
    /// Corners of one face differ.
    Mixed
};

/// "v", "v/vt", "v//vn", "v/vt/vn" or "mixed".
QLatin1StringView nameOf(CornerStyle style);

/// Faces that are written alike.
struct FaceKind
{
    int corners = 0;
    CornerStyle style = CornerStyle::V;
    /// Whether an index is negative.
    bool isRelative = false;

    friend bool operator<(FaceKind const& a, FaceKind const& b)
    {
        return std::tie(a.corners, a.style, a.isRelative) < std::tie(b.corners, b.style, b.isRelative);
    }
};

/// The indices of one kind: positions, texture coordinates or normals.
struct IndexUse
{
    qint64 largest = 0;
    qint64 lineOfLargest = 0;

    void add(qint64 index, qint64 line)
    {
        if (index > largest) {
            largest = index;
            lineOfLargest = line;
        }
    }
};

/// Objects, groups or materials, in the order of the file, with the faces behind each.
class Names
{
public:
    /// Faces from here on are of this name.
    void begin(QString const& name);
    void addFace();

    struct Entry
    {
        QString name;
        qint64 faces = 0;
    };
    std::vector<Entry> const& all() const { return entries; }
    qint64 facesOf(QString const& name) const;
    /// Of the name that faces are of now, from 1 on; 0 without one.
    int ordinal() const { return current ? static_cast<int>(*current) + 1 : 0; }
    /// Before the first name, or behind an empty one.
    qint64 facesWithout() const { return withoutName; }

private:
    std::vector<Entry> entries;
    std::map<QString, std::size_t> places;
    std::optional<std::size_t> current;
    qint64 withoutName = 0;
};

/// A line "mtllib".
struct LibraryLine
{
    qint64 line = 0;
    /// The words behind the keyword.
    QStringList words;
};

/// What the texture coordinates reach, those of one axis.
struct TextureRange
{
    float least = std::numeric_limits<float>::infinity();
    float greatest = -std::numeric_limits<float>::infinity();
    Occurrence outside;

    void add(float value, qint64 line);
};

/// What stands in an OBJ file, whether or not the library reads it.
struct ObjText
{
    qint64 vertices = 0;
    qint64 textureCoordinates = 0;
    qint64 normals = 0;
    qint64 faces = 0;
    /// Vertices with a colour behind their position.
    Occurrence vertexColors;
    Bounds bounds;
    Occurrence nonFinite;
    TextureRange u;
    TextureRange v;

    std::map<FaceKind, qint64> faceKinds;
    /// Of four corners; of more; of fewer than three.
    Occurrence quads;
    Occurrence polygons;
    Occurrence shortFaces;
    Occurrence relative;
    /// A position index that is 0, missing or no number.
    Occurrence badIndices;
    /// Corners whose texture coordinate or normal has another number than their position.
    Occurrence otherTexture;
    Occurrence otherNormal;
    /// Faces with a position that a face of another material has too.
    Occurrence sharedPositions;
    IndexUse positionIndices;
    IndexUse textureIndices;
    IndexUse normalIndices;

    /// Too few numbers behind "v", "vt" or "vn"; words that are no numbers.
    Occurrence shortLines;
    Occurrence badNumbers;
    /// Lines with a carriage return inside them, which ends no line; of comments only where nothing else is.
    Occurrence returns;
    /// Too few numbers, or words that are none, as tabs stand between them; these count nowhere else.
    Occurrence innerTabs;
    /// Two bytes for each letter: nothing else is known then.
    bool isUtf16 = false;
    /// Keywords with a tab behind them, which nobody reads; lines that go on in the next.
    Occurrence tabs;
    Occurrence continued;
    /// Keywords that are not read, but for "o", "g" and "s".
    std::map<QString, qint64> skipped;

    Names objects;
    Names groups;
    Names materials;
    std::vector<LibraryLine> libraries;
};

/// Reads all of `device`, from where it stands.
ObjText readObjText(QIODevice& device);

} // namespace tool::obj
