#include "hostile/GrowingFiles.h"

#include "hostile/SubjectParts.h"
#include "support/CollidingPoints.h"
#include "support/PlyFiles.h"
#include "support/ShapeTreeBytes.h"
#include "support/StlFiles.h"

using namespace Qt::StringLiterals;

namespace hostile {

namespace {

using Files = std::vector<GrowingFile>;

void add(Files& files, QByteArray const& name, QByteArray const& subject, QByteArray (*make)(int))
{
    files.push_back({name, subjectsOf(subject).front(), make});
}

QByteArray const libraryStart = "mtllib seeds.mtl\nv 0 0 0\nv 1 0 0\nv 0 1 0\nvt 0 0\nvt 1 0\nvt 0 1\n";

QByteArray xmlDocument(QByteArray const& shapes, QByteArray const& materials, QByteArray const& rest = {})
{
    return "<root><shapes>" + shapes + "</shapes><materials>" + materials + "</materials>" + rest + "</root>";
}

void addStl(Files& files)
{
    add(files, "STL: a tag for each facet", "stl-binary-all", [](int size) {
        QByteArray body;
        for (int i = 0; i < size; ++i)
            body += support::facetBytes(support::loneFacet(i % 1000, i % 251, i % 241));
        return support::binaryStl(quint32(size), body);
    });
    add(files, "STL: two tags in turn", "stl-binary-all", [](int size) {
        return support::binaryStl(quint32(size), (support::facetBytes(support::loneFacet(1, 0, 1)) +
                                                  support::facetBytes(support::loneFacet(2, 0, 2)))
                                                     .repeated(size / 2));
    });
    add(files, "STL: one corner for all", "stl-binary", [](int size) {
        return support::binaryStl(quint32(size), joined(size, [](int i) {
                                      support::StlFacet facet = support::loneFacet(i);
                                      facet.a = {};
                                      return support::facetBytes(facet);
                                  }));
    });
    add(files, "STL: the same facet again", "stl-binary", [](int size) {
        return support::binaryStl(quint32(size), support::facetBytes(support::loneFacet(1)).repeated(size));
    });
    add(files, "STL: lines of nothing", "stl-ascii",
        [](int size) { return "solid\n" + QByteArray("facet normal\n").repeated(size); });
    add(files, "STL: blanks before the numbers", "stl-ascii", [](int size) {
        return "solid\nvertex" + QByteArray(size, ' ') + "1 2 3\nvertex 1 2 4\nvertex 2 2 2\n";
    });
    // All of them go to one place of the table in which equal corners meet.
    add(files, "STL: corners that collide", "stl-binary", [](int size) {
        auto const points = support::collidingPoints(3 * std::size_t(size), 0x12345678);
        return support::binaryStl(quint32(size), joined(size, [&points](int i) {
                                      auto const* p = &points[3 * std::size_t(i)];
                                      support::StlFacet facet;
                                      for (QVector3D* const corner : {&facet.a, &facet.b, &facet.c}) {
                                          *corner = {p->x, p->y, p->z};
                                          ++p;
                                      }
                                      return support::facetBytes(facet);
                                  }));
    });
}

void addPly(Files& files)
{
    add(files, "PLY: comments", "ply-mesh", [](int size) {
        return "ply\n" + QByteArray("comment c\n").repeated(size) + support::plyTriangle().mid(4);
    });
    add(files, "PLY: a long comment", "ply-mesh", [](int size) {
        return "ply\ncomment " + QByteArray(20 * size, 'x') + '\n' + support::plyTriangle().mid(4);
    });
    add(files, "PLY: properties of no name", "ply-mesh", [](int size) {
        return support::plyTriangle().replace(
            "property float x", QByteArray("property char p\n").repeated(size / 4) + "property float x");
    });
}

void addObj(Files& files)
{
    add(files, "OBJ: positions at one place", "obj-plain",
        [](int size) { return QByteArray("v 0 0 0\n").repeated(size) + "vn 0 0 1\nf 1//1 2//1 3//1\n"; });
    add(files, "OBJ: normals at one corner", "obj-plain", [](int size) {
        return "v 0 0 0\nv 1 0 0\nv 1 1 0\nv 2 2 2\n" + QByteArray("vn 0 0 1\n").repeated(size) +
               joined(size, [](int i) { return "f 1//" + number(i + 1) + " 2//1 3//1\n"; });
    });
    add(files, "OBJ: one line", "obj-plain",
        [](int size) { return QByteArray("v 0 0 0 f 1 1 1 vn 0 0 1 ").repeated(size); });
    // The last of them has a million.
    add(files, "OBJ: corners of a face", "obj-plain",
        [](int size) { return "v 0 0 0\nf 1 1 1" + QByteArray(" 1").repeated(10 * size); });
    add(files, "OBJ: corners of a face in pieces", "obj-plain",
        [](int size) { return "v 0 0 0\nf 1/1/1 1 1" + QByteArray("/1").repeated(10 * size); });
    add(files, "OBJ: materials that nobody knows", "obj-plain", [](int size) {
        return "v 0 0 0\n" + joined(size, [](int i) { return "usemtl " + number(i) + "\nf 1 1 1\n"; });
    });
    add(files, "OBJ: materials in turn", "obj-plain",
        [](int size) { return "v 0 0 0\n" + QByteArray("usemtl a\nf 1 1 1\nusemtl b\n").repeated(size); });
    add(files, "MTL: materials", "mtl",
        [](int size) { return joined(size, [](int i) { return "newmtl " + number(i) + "\nKd 1 0 0\n"; }); });
    add(files, "MTL: one image again and again", "mtl", [](int size) {
        return "newmtl a\n" + QByteArray("map_Kd a.png\nmap_Kd ./a.png\n").repeated(size / 10);
    });
    files.push_back({"OBJ and MTL: materials with an image", objWithLibrary(), [](int size) {
                         return libraryStart + joined(size / 10, [](int i) {
                                    return "newmtl " + number(i) + "\nmap_Kd a.png\nusemtl " + number(i) +
                                           "\nf 1/1 2/2 3/3\n";
                                });
                     }});
    files.push_back({"OBJ and MTL: materials with a colour", objWithLibrary(), [](int size) {
                         return libraryStart + "newmtl a\nmap_Kd a.png\nusemtl a\nf 1/1 2/2 3/3\n" +
                                joined(size / 10, [](int i) {
                                    return "newmtl " + number(i) + "\nKd 1 0 0\nusemtl " + number(i) +
                                           "\nf 1 2 3\n";
                                });
                     }});
}

void addVolumes(Files& files)
{
    add(files, "vmesh: points", "vmesh", [](int size) {
        return "# Labeled\n0 0 0 " + number(size) + '\n' + QByteArray("0 0 0\n").repeated(size);
    });
    add(files, "vmesh: faces of one tetrahedron", "vmesh", [](int size) {
        return "# Labeled\n1 " + number(size) + " 0 0\n" + QByteArray("0 0 1 2 3\n").repeated(size);
    });
    add(files, "conditions", "conditions",
        [](int size) { return "a\n\n\n" + number(size) + '\n' + QByteArray("0 0 0 0\n").repeated(size); });
    add(files, "conditions: a pipe's growth", "conditions", [](int size) {
        return "a\n\n\n" + number(2000000000) + '\n' + QByteArray("0 0 0 0\n").repeated(size);
    });
}

void addScene(Files& files)
{
    add(files, "shape tree: a chain", "shapetree-tree", [](int size) {
        return support::shapeTreeHeader(2, 0) +
               support::ShapeTreeBytes().node(u"a"_s, 1).bytes.repeated(size) +
               support::ShapeTreeBytes().node(u"a"_s, 0).bytes;
    });
    add(files, "shape tree: a fan", "shapetree-tree", [](int size) {
        return support::shapeTreeHeader(2, 0) + support::ShapeTreeBytes().node(u"a"_s, quint32(size)).bytes +
               support::ShapeTreeBytes().node(u"b"_s, 0).bytes.repeated(size);
    });
    add(files, "XML: shapes without a file", "xml", [](int size) {
        return xmlDocument(QByteArray("<shape materialId='m'>b.x</shape>").repeated(size),
                           "<material id='m'/>");
    });
    add(files, "XML: materials", "xml", [](int size) {
        return xmlDocument({}, joined(size, [](int i) { return "<material id='" + number(i) + "'/>"; }));
    });
    add(files, "XML: levels", "xml", [](int size) {
        return xmlDocument({}, {}, QByteArray("<x>").repeated(size) + QByteArray("</x>").repeated(size));
    });
    add(files, "XML: attributes", "xml", [](int size) {
        return xmlDocument({}, {},
                           "<x" + joined(size, [](int i) { return " a" + number(i) + "=''"; }) + "/>");
    });
}

Files makeFiles()
{
    Files files;
    addStl(files);
    addPly(files);
    addObj(files);
    addVolumes(files);
    addScene(files);
    return files;
}

} // namespace

std::vector<GrowingFile> const& growingFiles()
{
    static Files const files = makeFiles();
    return files;
}

} // namespace hostile
