#include "Program.h"
#include "StlFiles.h"
#include "framework/MeshReader.h"
#include "ply/PLYReader.h"
#include "ply/PLYWriter.h"
#include "scene/AssociatedShapesXMLReader.h"
#include "scene/AssociatedShapesXMLWriter.h"
#include "support/Meshes.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTest>

using geometry::Material;
using namespace Qt::StringLiterals;
using support::binaryStl;
using support::Outcome;
using support::runProgram;
using support::stlFacet;
using support::verify;

namespace {

Material numbered(int number)
{
    Material material = Material::distractor();
    material.shininess = static_cast<float>(number);
    return material;
}

} // namespace

class tst_ProgramBundle : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        folder.emplace();
        QVERIFY(QDir(folder->path()).mkpath(u"parts"_s));
        store(u"a.stl"_s, binaryStl(stlFacet(0)));
        store(u"parts/b.stl"_s, binaryStl(stlFacet(3) + stlFacet(6)));
        store(u"c.obj"_s, "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n");
        PLYWriter writer;
        writer.setFilePath(path(u"d.ply"_s));
        writer.setData(support::cube(), false, numbered(7));
        QVERIFY(writer.write());
    }

    void listsWhatLoads()
    {
        pack({u"case.xml"_s, u"a.stl"_s, u"parts/b.stl"_s, u"c.obj"_s});
        verify(bundle({u"list"_s, u"case.xml"_s}), 0,
               "document                 case.xml\n"
               "materials                1\n"
               "shapes that load         3\n"
               "shapes that are skipped  0\n"
               "shapes\n"
               "  file         material  vertices  triangles  skipped because  skipped in memory because\n"
               "  a.stl        default          3          1                -                          -\n"
               "  parts/b.stl  default          6          2                -                          -\n"
               "  c.obj        default          3          1                -                          -\n",
               {});
    }

    void listsWhatIsSkipped()
    {
        store(u"bad.stl"_s, "short");
        store(u"case.xml"_s, "<root><shapes>"
                             "<shape materialId='m'>a.stl</shape><shape materialId='m'>missing.stl</shape>"
                             "<shape materialId='m'>bad.stl</shape><shape materialId='m'>case.xml</shape>"
                             "<shape materialId='m'>parts</shape><shape>a.stl</shape>"
                             "<shape materialId='n'>a.stl</shape></shapes><shape materialId='m'>a.stl</shape>"
                             "<materials><material id='m'/></materials></root>");
        Outcome const outcome = bundle({u"list"_s, u"case.xml"_s, u"--json"_s});
        QCOMPARE(outcome.exitCode, 6);
        QJsonObject const report = QJsonDocument::fromJson(outcome.standardOutput).object();
        QCOMPARE(report["schema"_L1].toString(), u"surfaceio.bundle/1"_s);
        QCOMPARE(report["loaded"_L1].toInt(), 4);
        QCOMPARE(report["skipped"_L1].toInt(), 4);
        QStringList problems;
        QStringList bundleProblems;
        for (auto const& shape : report["shapes"_L1].toArray()) {
            problems << shape["problem"_L1].toString();
            bundleProblems << shape["bundleProblem"_L1].toString();
        }
        QCOMPARE(problems, (QStringList{{},
                                        u"there is no such file"_s,
                                        u"it cannot be read"_s,
                                        u"expected one of the suffixes .stl, .ply, .obj"_s,
                                        u"expected a file, found a folder"_s,
                                        {},
                                        {},
                                        {}}));
        QCOMPARE(bundleProblems, (QStringList{{},
                                              {},
                                              {},
                                              {},
                                              {},
                                              u"it has no material id"_s,
                                              u"its material \"n\" is not defined"_s,
                                              u"it does not stand under root/shapes"_s}));
    }

    void listsAsTheLibraryReads()
    {
        store(u"case.xml"_s,
              "<!DOCTYPE root [<!ENTITY p 'parts'>]><root><x><shape>&p;/b<!-- c -->.stl</shape></x>"
              "<shape><![CDATA[a]]>.<i>stl</i></shape></root>");
        Outcome const outcome = bundle({u"list"_s, u"case.xml"_s, u"--json"_s});
        QCOMPARE(outcome.exitCode, 0);
        AssociatedShapesXMLReader reader;
        QVERIFY(reader.read(path(u"case.xml"_s)));
        QCOMPARE(reader.takeMeshes().size(), 2);
        QJsonArray const shapes =
            QJsonDocument::fromJson(outcome.standardOutput).object()["shapes"_L1].toArray();
        QCOMPARE(shapes.at(0)["file"_L1].toString(), u"parts/b.stl"_s);
        QCOMPARE(shapes.at(1)["file"_L1].toString(), u"a.stl"_s);
    }

    void packsRelativeToTheDocument()
    {
        verify(pack({u"parts/case.xml"_s, u"a.stl"_s, u"parts/b.stl"_s, u"--material"_s, u"metal"_s}), 0, {},
               {});
        AssociatedShapesXMLWriter expected;
        expected.add(u"../a.stl"_s, u"metal"_s, Material::metal());
        expected.add(u"b.stl"_s, u"metal"_s, Material::metal());
        QCOMPARE(read(u"parts/case.xml"_s), expected.createXMLContent());
        verify(pack({u"parts/case.xml"_s, u"a.stl"_s}), 1, {},
               u"surfaceio: .*exists already; --force .*\n"_s);
        verify(pack({u"parts/case.xml"_s, u"a.stl"_s, u"--force"_s}), 0, {}, {});
        QVERIFY(read(u"parts/case.xml"_s).contains("id=\"default\""));
    }

    void packsTheMaterialsOfPly()
    {
        verify(pack({u"case.xml"_s, u"d.ply"_s, u"a.stl"_s}), 0, {}, {});
        AssociatedShapesXMLWriter expected;
        expected.add(u"d.ply"_s, u"d.ply"_s, numbered(7));
        expected.add(u"a.stl"_s, u"default"_s, Material());
        QCOMPARE(read(u"case.xml"_s), expected.createXMLContent());
    }

    void refusesToPack_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("errorPattern");
        QTest::newRow("a missing mesh") << QStringList{u"x.xml"_s, u"a.stl"_s, u"missing.stl"_s} << 1
                                        << u"surfaceio: missing.stl: there is no such file\n"_s;
        QTest::newRow("a damaged mesh")
            << QStringList{u"x.xml"_s, u"bad.stl"_s} << 3
            << u"surfaceio: bad.stl: expected a header of 80 bytes and a facet count of 4, found 5 bytes\n"_s;
        QTest::newRow("no facets") << QStringList{u"x.xml"_s, u"none.stl"_s} << 1
                                   << u"surfaceio: none.stl: no mesh could be read from it\n"_s;
        QTest::newRow("STL named PLY")
            << QStringList{u"x.xml"_s, u"wrong.ply"_s} << 4
            << u"surfaceio: wrong.ply: the content is that of STL, the suffix is not\n"_s;
        QTest::newRow("no mesh file") << QStringList{u"x.xml"_s, u"bad.txt"_s} << 1
                                      << u"surfaceio: bad.txt: expected one of the suffixes .*\n"_s;
        QTest::newRow("no mesh") << QStringList{u"x.xml"_s} << 2 << u"surfaceio: MESH is required\n.*"_s;
        QTest::newRow("an unknown material")
            << QStringList{u"x.xml"_s, u"a.stl"_s, u"--material"_s, u"gold"_s} << 2
            << u"surfaceio: --material: .*"_s;
        QTest::newRow("a folder that is missing")
            << QStringList{u"nowhere/x.xml"_s, u"a.stl"_s} << 1 << u"surfaceio: nowhere/x.xml: .*\n"_s;
    }

    void refusesToPack()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, exitCode);
        QFETCH(QString, errorPattern);
        store(u"bad.stl"_s, "short");
        store(u"bad.txt"_s, "text");
        store(u"none.stl"_s, support::binaryStl({}));
        store(u"wrong.ply"_s, support::binaryStl(support::stlFacet(0)));
        verify(pack(arguments), exitCode, {}, errorPattern);
        QVERIFY(!QFile::exists(path(u"x.xml"_s)));
    }

    void unpacksWithMaterials()
    {
        AssociatedShapesXMLWriter writer;
        writer.add(u"parts/b.stl"_s, u"one"_s, numbered(1));
        writer.add(u"c.obj"_s, u"two"_s, numbered(2));
        writer.add(u"missing.stl"_s, u"two"_s, numbered(2));
        writer.add(u"a.stl"_s, u"three"_s, numbered(3));
        store(u"case.xml"_s, writer.createXMLContent());
        verify(
            bundle({u"unpack"_s, u"case.xml"_s, u"new/out"_s}), 0,
            "new/out/01-b.ply\nnew/out/02-c.ply\nnew/out/04-a.ply\n",
            u"surfaceio: warning: case.xml: shape 3, \"missing.stl\", is left out: there is no such file\n"_s);
        compare(u"new/out/01-b.ply"_s, u"parts/b.stl"_s, numbered(1));
        compare(u"new/out/02-c.ply"_s, u"c.obj"_s, numbered(2));
        compare(u"new/out/04-a.ply"_s, u"a.stl"_s, numbered(3));
        verify(bundle({u"unpack"_s, u"case.xml"_s, u"new/out"_s, u"-q"_s}), 1, {},
               u"surfaceio: new/out/01-b.ply: exists already; .*\n"_s);
        QCOMPARE(bundle({u"unpack"_s, u"case.xml"_s, u"new/out"_s, u"-q"_s, u"--force"_s}).exitCode, 0);
    }

    void packsWhatItUnpacked()
    {
        AssociatedShapesXMLWriter writer;
        writer.add(u"d.ply"_s, u"one"_s, numbered(1));
        writer.add(u"a.stl"_s, u"two"_s, numbered(2));
        store(u"case.xml"_s, writer.createXMLContent());
        QCOMPARE(bundle({u"unpack"_s, u"case.xml"_s, u"out"_s}).exitCode, 0);
        verify(pack({u"out/case.xml"_s, u"out/01-d.ply"_s, u"out/02-a.ply"_s}), 0, {}, {});
        AssociatedShapesXMLWriter expected;
        expected.add(u"01-d.ply"_s, u"01-d.ply"_s, numbered(1));
        expected.add(u"02-a.ply"_s, u"02-a.ply"_s, numbered(2));
        QCOMPARE(read(u"out/case.xml"_s), expected.createXMLContent());
    }

    void refusesDocuments_data()
    {
        QTest::addColumn<QByteArray>("document");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("errorPattern");
        QTest::newRow("text") << QByteArray("text") << 3
                              << u"surfaceio: x.xml: expected an associated-shapes document: line 1: .*\n"_s;
        QTest::newRow("cut short")
            << QByteArray("<root>\n<shapes>") << 3
            << u"surfaceio: x.xml: expected an associated-shapes document: line 2: .*\n"_s;
        QTest::newRow("too deep")
            << QByteArray("<x>").repeated(1000) + QByteArray("</x>").repeated(1000) << 3
            << u"surfaceio: x.xml: expected an .* document: it is beyond the limits .*\n"_s;
        QTest::newRow("no shapes") << QByteArray("<root/>") << 1 << QString();
    }

    void refusesDocuments()
    {
        QFETCH(QByteArray, document);
        QFETCH(int, exitCode);
        QFETCH(QString, errorPattern);
        store(u"x.xml"_s, document);
        Outcome const listed = bundle({u"list"_s, u"x.xml"_s});
        verify(listed, exitCode, listed.standardOutput, errorPattern);
        Outcome const unpacked = bundle({u"unpack"_s, u"x.xml"_s, u"out"_s});
        verify(unpacked, exitCode, {},
               exitCode == 1 ? u"surfaceio: x.xml: holds no shape that could be unpacked\n"_s : errorPattern);
        QVERIFY(!QFile::exists(path(u"out"_s)));
    }

    void saysWhatIsMissing()
    {
        verify(bundle({}), 2, {}, u"surfaceio: A subcommand is required\n.*"_s);
        verify(bundle({u"list"_s, u"missing.xml"_s}), 1, {},
               u"surfaceio: missing.xml: there is no such file\n"_s);
        verify(bundle({u"list"_s, u"parts"_s}), 1, {},
               u"surfaceio: parts: expected a file, found a folder\n"_s);
    }

private:
    QString path(QString const& name) const { return folder->filePath(name); }
    void store(QString const& name, QByteArray const& bytes) const
    {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), bytes.size());
    }
    QByteArray read(QString const& name) const { return support::readFile(path(name)); }
    Outcome bundle(QStringList const& arguments) const
    {
        return runProgram(QStringList{u"bundle"_s} + arguments, folder->path());
    }
    Outcome pack(QStringList const& arguments) const { return bundle(QStringList{u"pack"_s} + arguments); }
    // A file that was unpacked has the mesh of its source and the material of the document.
    void compare(QString const& unpacked, QString const& source, Material const& material) const
    {
        PLYReader reader(PLYReader::MeshMode);
        reader.setFileName(path(unpacked));
        QVERIFY(reader.read(std::atomic<bool>(false)));
        QVERIFY(support::sameBits(reader.getMesh(), MeshReader::read(path(source)).value()));
        QCOMPARE(reader.getMaterial().value(), material);
    }

    std::optional<QTemporaryDir> folder;
};

QTEST_GUILESS_MAIN(tst_ProgramBundle)
#include "tst_ProgramBundle.moc"
