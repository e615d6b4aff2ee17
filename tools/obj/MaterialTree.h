#pragma once

#include "images/ImageFile.h"
#include "obj/ObjText.h"

#include <QColor>

namespace tool::obj {

/// A line of an MTL file that names an image.
struct ImageLine
{
    qint64 line = 0;
    QString keyword;
    /// Everything behind the keyword, which is what the library opens.
    QString given;
    /// Options like "-s 1 1 1", in front and behind, and the name without them.
    QString options;
    QString name;
    ImageFile image;
};

/// A material of an MTL file.
struct MtlMaterial
{
    QString name;
    qint64 line = 0;
    /// Its "Kd" as the library takes it; invalid without one.
    QColor diffuse;
    /// The last one becomes the texture.
    std::vector<ImageLine> images;
    /// Of the OBJ file.
    qint64 faces = 0;
};

/// A material library that an OBJ file names.
struct MtlLibrary
{
    /// Of the OBJ file.
    qint64 line = 0;
    QString name;
    bool isFound = false;
    /// Not found, and the name is several words with the suffix .mtl, of which no file exists.
    bool isSeveral = false;
    std::vector<MtlMaterial> materials;
    /// Where the library stops reading, as an image cannot be loaded or no material was begun; 0 when it does
    /// not. Materials behind it are as if undefined.
    qint64 stopsAt = 0;
};

/// All that an OBJ file names: libraries, their materials, and the images of these.
struct MaterialTree
{
    std::vector<MtlLibrary> libraries;
    /// Line of the first "mtllib" that names several files that exist; 0 without one.
    qint64 lineOfSeveral = 0;
    /// Materials that faces have and no library defines.
    std::vector<Names::Entry> undefined;
};

/// Opens the libraries that the file at `objPath` names, and looks at their images without loading them.
MaterialTree materialTreeOf(QString const& objPath, ObjText const& text);

/// What is wrong with a library that `isSeveral`.
QString severalNamesProblem(MtlLibrary const& library);

/// The path of a file that an OBJ file, or an MTL file of it, names: relative to the OBJ file.
QString pathBeside(QString const& objPath, QString const& name);

/// Calls `visit(material, image)` for each image of each material.
template <typename Visit>
void forEachImage(MaterialTree const& tree, Visit const& visit)
{
    for (MtlLibrary const& library : tree.libraries) {
        for (MtlMaterial const& material : library.materials) {
            for (ImageLine const& image : material.images)
                visit(material, image);
        }
    }
}

} // namespace tool::obj
