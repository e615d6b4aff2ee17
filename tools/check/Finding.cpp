#include "check/Finding.h"

#include "Text.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

constexpr Kind error(QLatin1StringView code, char const* remedy = "")
{
    return {code, Severity::Error, remedy};
}

constexpr Kind warning(QLatin1StringView code, char const* remedy = "")
{
    return {code, Severity::Warning, remedy};
}

constexpr Kind note(QLatin1StringView code, char const* remedy = "")
{
    return {code, Severity::Note, remedy};
}

constexpr char const* exportAgain =
    QT_TRANSLATE_NOOP("Text", "the file is damaged; copy it again, or export it again");
constexpr char const* triangulate =
    QT_TRANSLATE_NOOP("Text", "make triangles of all faces on export, or in a mesh editor");

constexpr std::array table = {
    // Files that cannot be read.
    error("malformed"_L1, QT_TRANSLATE_NOOP("Text", "export the file again, from the program that wrote it")),
    error("unsupported"_L1),
    error("unreadable"_L1),
    error("missing"_L1, QT_TRANSLATE_NOOP("Text", "check the spelling of the path")),
    error("not-a-file"_L1,
          QT_TRANSLATE_NOOP("Text", "name a regular file; save what a pipe carries to a file first")),
    error("cannot-open"_L1, QT_TRANSLATE_NOOP("Text", "check who may read it")),
    error("undecodable-name"_L1, QT_TRANSLATE_NOOP("Text", "give it a name in UTF-8")),
    error("unknown-format"_L1,
          QT_TRANSLATE_NOOP("Text", "\"surfaceio formats\" lists what can be read; export as one of these")),
    error("mesher-file"_L1, QT_TRANSLATE_NOOP("Text", "surfaceio vmesh from FILE -o OUT.vmesh")),
    error("wrong-suffix"_L1,
          QT_TRANSLATE_NOOP("Text", "rename the file: readers choose the format by the suffix")),
    error("stl-too-short"_L1,
          QT_TRANSLATE_NOOP("Text", "the file was cut off or is no STL; copy or export it again")),
    error("stl-size"_L1, QT_TRANSLATE_NOOP("Text", "bytes were lost or added: copy the file again, in "
                                                   "binary mode; if it stays so, export it again")),
    error("web-page"_L1,
          QT_TRANSLATE_NOOP("Text", "download the file again: a server sent a page in its place, to sign "
                                    "in or to say why not")),
    error("archive"_L1, QT_TRANSLATE_NOOP("Text", "unpack it, and take the mesh out of it")),
    error("stl-capital-solid"_L1,
          QT_TRANSLATE_NOOP("Text",
                            "write the words in small letters: readers look for \"solid\" and \"vertex\"")),
    error("stl-says-solid"_L1,
          QT_TRANSLATE_NOOP(
              "Text",
              "overwrite the first five bytes, for example with spaces; they are not part of the mesh")),
    error("stl-damaged-solid"_L1, QT_TRANSLATE_NOOP("Text", "copy or export the file again")),
    error("stl-no-vertex"_L1, QT_TRANSLATE_NOOP("Text", "the file holds no facets; export it again")),
    error("stl-bad-vertex"_L1,
          QT_TRANSLATE_NOOP(
              "Text",
              "write each vertex as the word, a space and three numbers with points, with spaces between; no "
              "tabs")),
    error("stl-vertex-count"_L1,
          QT_TRANSLATE_NOOP("Text", "the file was cut off, or facets lack a corner; export it again")),
    error("stl-all-degenerate"_L1,
          QT_TRANSLATE_NOOP("Text",
                            "every facet is a point or a line; check units and decimals of the export")),
    error("array-size"_L1,
          QT_TRANSLATE_NOOP("Text", "write the record again, with MeshWriter or \"surfaceio convert\"")),
    // Any mesh.
    warning("log"_L1, QT_TRANSLATE_NOOP(
                          "Text", "the library said this while reading; see docs/formats for the format")),
    warning("empty"_L1, QT_TRANSLATE_NOOP("Text", "the file is sound and holds no facet; export it again")),
    warning("units-metres"_L1,
            QT_TRANSLATE_NOOP("Text", "scale by 1000: coordinates are taken as millimetres")),
    warning("units-micrometres"_L1,
            QT_TRANSLATE_NOOP("Text", "scale by 0.001: coordinates are taken as millimetres")),
    warning("nonfinite-vertices"_L1,
            QT_TRANSLATE_NOOP("Text", "remove the facets at these vertices in a mesh editor")),
    warning("zero-normals"_L1,
            QT_TRANSLATE_NOOP("Text",
                              "these vertices have no area around them; remove slivers in a mesh editor")),
    warning("nonmanifold-edges"_L1,
            QT_TRANSLATE_NOOP("Text", "split or remove the surplus facets before measuring or printing")),
    warning("flipped-facets"_L1,
            QT_TRANSLATE_NOOP("Text", "make the winding of neighbouring facets agree in a mesh editor")),
    warning("duplicate-facets"_L1,
            QT_TRANSLATE_NOOP("Text", "remove the copies; they count twice in areas and normals")),
    note(
        "open-edges"_L1,
        QT_TRANSLATE_NOOP("Text", "nothing for a scan, which is a sheet; close the surface before printing")),
    // STL.
    warning(
        "stl-colour-words"_L1,
        QT_TRANSLATE_NOOP(
            "Text",
            "read the file without tags, or clear the words: surfaceio tags relabel FILE '*=0/0' -o OUT")),
    note("degenerate-facets"_L1,
         QT_TRANSLATE_NOOP("Text", "nothing: readers drop facets with two equal corners")),
    note("sliver-facets"_L1, QT_TRANSLATE_NOOP("Text", "nothing for viewing; remesh before a simulation")),
    // PLY.
    error("ply-ascii"_L1,
          QT_TRANSLATE_NOOP("Text", "export as binary PLY; mesh editors do when they save the file")),
    error("ply-line-ends"_L1,
          QT_TRANSLATE_NOOP("Text", "end each line of the header with a line feed; what is behind "
                                    "\"end_header\" has to stay as it is")),
    error("ply-tabs"_L1, QT_TRANSLATE_NOOP("Text", "put spaces in place of the tabs in the header")),
    error("ply-polygons"_L1, triangulate),
    error("ply-size"_L1, exportAgain),
    error("ply-bad-index"_L1, exportAgain),
    error("ply-points"_L1,
          QT_TRANSLATE_NOOP("Text", "make a surface of the points first, or read them as a point cloud")),
    error("ply-face-colours"_L1,
          QT_TRANSLATE_NOOP("Text", "save without colours of faces, or with colours of vertices")),
    error(
        "ply-elements"_L1,
        QT_TRANSLATE_NOOP("Text", "save with the elements vertex and face first; others cannot be skipped")),
    error("ply-properties"_L1,
          QT_TRANSLATE_NOOP("Text",
                            "save with properties of other types, and with no list but that of corners")),
    // OBJ.
    error("obj-quads"_L1, triangulate),
    error(
        "obj-relative-indices"_L1,
        QT_TRANSLATE_NOOP("Text", "export with indices from 1 on; mesh editors do when they save the file")),
    error("obj-short-face"_L1, exportAgain),
    error("obj-bad-index"_L1, exportAgain),
    error("obj-index-outside"_L1, exportAgain),
    error("obj-short-line"_L1, exportAgain),
    error("obj-utf-16"_L1,
          QT_TRANSLATE_NOOP(
              "Text", "save it as UTF-8 or ASCII; text editors can, and so can iconv -f UTF-16 -t UTF-8")),
    error("obj-line-ends"_L1,
          QT_TRANSLATE_NOOP("Text",
                            "end each line with a line feed; text editors can, and so can tr '\\r' '\\n'")),
    error("obj-inner-tabs"_L1, QT_TRANSLATE_NOOP("Text", "put spaces in place of the tabs")),
    error("obj-several-libraries"_L1,
          QT_TRANSLATE_NOOP("Text", "put all materials into one MTL file, and name that one")),
    error("obj-partial-mapping"_L1,
          QT_TRANSLATE_NOOP("Text", "give every corner a texture coordinate, or none")),
    error("obj-atlas"_L1, QT_TRANSLATE_NOOP("Text", "scale the images down")),
    error("obj-no-vertices"_L1, QT_TRANSLATE_NOOP("Text", "the file holds no mesh; export it again")),
    warning("obj-polygons"_L1,
            QT_TRANSLATE_NOOP("Text",
                              "make triangles of all faces: only the first three corners of these are read")),
    warning("obj-bad-numbers"_L1,
            QT_TRANSLATE_NOOP("Text", "write numbers with a point; such a word is read as 0")),
    warning("obj-tabs"_L1, QT_TRANSLATE_NOOP("Text", "replace tabs by spaces; such a line is not read")),
    warning("obj-continued-lines"_L1,
            QT_TRANSLATE_NOOP("Text", "write each vertex and each face in one line")),
    warning("obj-ignored-indices"_L1,
            QT_TRANSLATE_NOOP("Text", "with as many of them as positions these numbers are ignored: write "
                                      "one more \"vt\" or \"vn\" line, or "
                                      "make the numbers agree")),
    warning(
        "obj-shared-vertices"_L1,
        QT_TRANSLATE_NOOP(
            "Text", "write one more \"vt\" line, in no face: then each material gets vertices of its own")),
    note("obj-vertex-colours"_L1,
         QT_TRANSLATE_NOOP("Text", "colours behind positions are not read; for colours export as PLY")),
    // Materials and images of OBJ and PLY.
    warning("missing-library"_L1,
            QT_TRANSLATE_NOOP("Text", "put the MTL file beside the OBJ file, or correct its name there")),
    warning("missing-image"_L1,
            QT_TRANSLATE_NOOP("Text", "put the image beside the scan, or correct its name")),
    warning("absolute-path"_L1,
            QT_TRANSLATE_NOOP(
                "Text", "name the file relative to the scan; on another computer this path leads nowhere")),
    warning("backslash-path"_L1,
            QT_TRANSLATE_NOOP("Text",
                              "write a slash; a backslash is part of the name for readers on other systems")),
    warning("image-options"_L1,
            QT_TRANSLATE_NOOP("Text", "take the options out; scale the image or the coordinates instead")),
    warning("no-image"_L1, QT_TRANSLATE_NOOP("Text", "convert the image to PNG or JPEG")),
    warning("image-limit"_L1,
            QT_TRANSLATE_NOOP("Text", "scale the image down; applications refuse it with the limit of Qt")),
    warning("library-cut"_L1,
            QT_TRANSLATE_NOOP("Text", "correct this line: materials behind it are as if undefined")),
    warning("undefined-material"_L1,
            QT_TRANSLATE_NOOP("Text", "define it: its faces are drawn with another texture, or without")),
    warning("texture-range"_L1,
            QT_TRANSLATE_NOOP("Text", "textures are not repeated: bring the coordinates into 0 to 1")),
    note("several-images"_L1, QT_TRANSLATE_NOOP("Text", "keep the image of the colours last, or alone")),
    note("unused-material"_L1, QT_TRANSLATE_NOOP("Text", "nothing; its images are not read")),
    note("unnamed-texture"_L1,
         QT_TRANSLATE_NOOP("Text", "name the image in the header: comment TextureFile NAME")),
    // Volume meshes and boundary conditions.
    error("bad-reference"_L1,
          QT_TRANSLATE_NOOP("Text", "indices count from 0; -1 stands for no tetrahedron, never for a point")),
    note("more-bad-references"_L1),
    warning("non-finite-points"_L1),
    warning("incomplete-tetrahedra"_L1,
            QT_TRANSLATE_NOOP("Text", "write a row for each face of each tetrahedron")),
    warning(
        "flat-tetrahedra"_L1,
        QT_TRANSLATE_NOOP("Text", "mesh again, or take the flat ones out: a solver divides by their volume")),
    note("inverted-tetrahedra"_L1,
         QT_TRANSLATE_NOOP("Text", "the format keeps no orientation; swap two points of each after reading")),
    warning("foreign-faces"_L1,
            QT_TRANSLATE_NOOP("Text", "four points were taken from the first rows of that tetrahedron")),
    warning("boundary-mismatch"_L1,
            QT_TRANSLATE_NOOP("Text", "list each face of the outer surface once among the bound faces")),
    warning("open-boundary"_L1,
            QT_TRANSLATE_NOOP("Text", "the body has a gap, or parts of it touch in an edge only")),
    warning("non-finite-values"_L1),
    warning("repeated-points"_L1,
            QT_TRANSLATE_NOOP("Text",
                              "give each point one condition: solvers differ in which of several they take")),
    note("not-compared"_L1,
         QT_TRANSLATE_NOOP(
             "Text", "name the volume mesh before the conditions: surfaceio check MESH.vmesh CONDITIONS")),
};

QString remedyOf(Kind const& kind)
{
    return *kind.remedy == '\0' ? QString() : Text::tr(kind.remedy);
}

} // namespace

QLatin1StringView nameOf(Severity severity)
{
    static constexpr std::array names = {QT_TRANSLATE_NOOP("Text", "note"),
                                         QT_TRANSLATE_NOOP("Text", "warning"),
                                         QT_TRANSLATE_NOOP("Text", "error")};
    return QLatin1StringView(names[static_cast<std::size_t>(severity)]);
}

std::span<Kind const> kinds()
{
    return table;
}

Kind const& kindOf(QLatin1StringView code)
{
    auto const named = [](QLatin1StringView name) {
        return std::find_if(table.begin(), table.end(),
                            [name](Kind const& kind) { return kind.code == name; });
    };
    auto const kind = named(code);
    return kind == table.end() ? *named("unreadable"_L1) : *kind;
}

void Findings::add(QLatin1StringView code, QString const& reason, QString const& remedy)
{
    Kind const& kind = kindOf(code);
    list.push_back({&kind, reason, remedy.isEmpty() ? remedyOf(kind) : remedy});
    if (kind.severity == Severity::Error && result == ExitCode::Ok)
        result = ExitCode::Malformed;
}

void Findings::fail(ExitCode exitCode, QLatin1StringView code, QString const& reason, QString const& remedy)
{
    if (result == ExitCode::Ok)
        result = exitCode;
    add(code, reason, remedy);
}

qint64 Findings::count(Severity severity) const
{
    return std::count_if(list.begin(), list.end(),
                         [severity](Finding const& finding) { return finding.kind->severity == severity; });
}

} // namespace tool
