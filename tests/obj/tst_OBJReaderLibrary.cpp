#include "obj/MaterialFixture.h"
#include "support/Meshes.h"

using namespace Qt::StringLiterals;
using namespace materialtest;

class tst_OBJReaderLibrary : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fileNames_data();
    void fileNames();
    void severalLibraries();
    void libraryWithSpaces();
    void missingLibraryIsNoMessage();
    void libraryNamedNone();
    void libraryNotFound();
    void libraryNotOpened();
    void libraryBesideTheObjFile();
    void secondLibraryReplacesFirst();
    void newMaterials_data();
    void newMaterials();
    void keepsPresentMaterial();
    void textureStatements_data();
    void textureStatements();
    void lastTextureWins();
    void textureBeforeAnyMaterial();
    void textureNameWithSpaces();
    void textureNamesAreRelativeToTheObjFile();
    void diffuseColors_data();
    void diffuseColors();
    void diffuseColorBeforeAnyMaterial();
    void otherStatementsAreIgnored();
    void encodings();
    void namesWithNul();
};

void tst_OBJReaderLibrary::fileNames_data()
{
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QStringList>("tokens");
    QTest::addColumn<QStringList>("names");
    QTest::newRow("none") << QStringList{} << QStringList{u"mtllib"_s} << QStringList{};
    QTest::newRow("missing") << QStringList{} << QStringList{u"mtllib"_s, u"a.mtl"_s} << QStringList{};
    QTest::newRow("one") << QStringList{u"a.mtl"_s} << QStringList{u"mtllib"_s, u"a.mtl"_s}
                         << QStringList{u"a.mtl"_s};
    QTest::newRow("two") << QStringList{u"a.mtl"_s, u"b.mtl"_s}
                         << QStringList{u"mtllib"_s, u"a.mtl"_s, u"b.mtl"_s}
                         << QStringList{u"a.mtl"_s, u"b.mtl"_s};
    QTest::newRow("same twice") << QStringList{u"a.mtl"_s} << QStringList{u"mtllib"_s, u"a.mtl"_s, u"a.mtl"_s}
                                << QStringList{u"a.mtl"_s, u"a.mtl"_s};
    QTest::newRow("with a space") << QStringList{u"my materials.mtl"_s}
                                  << QStringList{u"mtllib"_s, u"my"_s, u"materials.mtl"_s}
                                  << QStringList{u"my materials.mtl"_s};
    QTest::newRow("with two spaces") << QStringList{u"a b c"_s}
                                     << QStringList{u"mtllib"_s, u"a"_s, u"b"_s, u"c"_s}
                                     << QStringList{u"a b c"_s};
    QTest::newRow("the shorter name first")
        << QStringList{u"a"_s, u"a b"_s} << QStringList{u"mtllib"_s, u"a"_s, u"b"_s} << QStringList{u"a"_s};
    QTest::newRow("missing behind") << QStringList{u"a.mtl"_s}
                                    << QStringList{u"mtllib"_s, u"a.mtl"_s, u"b.mtl"_s}
                                    << QStringList{u"a.mtl"_s};
    // The missing name becomes part of the next one.
    QTest::newRow("missing before") << QStringList{u"b.mtl"_s}
                                    << QStringList{u"mtllib"_s, u"a.mtl"_s, u"b.mtl"_s} << QStringList{};
    QTest::newRow("spaces and a second one")
        << QStringList{u"a b"_s, u"c"_s} << QStringList{u"mtllib"_s, u"a"_s, u"b"_s, u"c"_s}
        << QStringList{u"a b"_s, u"c"_s};
}

void tst_OBJReaderLibrary::fileNames()
{
    QFETCH(QStringList, files);
    QFETCH(QStringList, tokens);
    QFETCH(QStringList, names);
    Fixture f;
    for (QString const& file : files)
        f.folder.write(file, {});
    std::vector<QString> const result = (f.reader.*privateMember(support::FileNames()))(tokens);
    QCOMPARE(QStringList(result.begin(), result.end()), names);
}

void tst_OBJReaderLibrary::severalLibraries()
{
    Fixture f;
    f.folder.write(u"a.mtl"_s, {});
    f.folder.write(u"b.mtl"_s, {});
    QCOMPARE(f.reader.read("mtllib a.mtl b.mtl\n" + surface, running),
             OBJReader::MultipleMaterialFilesUnsupported);
    QCOMPARE(f.reader.getError(), OBJReader::MultipleMaterialFilesUnsupported);
    QCOMPARE(f.reader.read("mtllib a.mtl c.mtl\n" + surface, running), OBJReader::NoError);
    // One for each line is fine.
    QCOMPARE(f.reader.read("mtllib a.mtl\nmtllib b.mtl\n" + surface, running), OBJReader::NoError);
}

void tst_OBJReaderLibrary::libraryWithSpaces()
{
    Fixture f;
    f.folder.writeImage(u"t.png"_s, support::plainImage(2, 2, Qt::blue));
    f.folder.write(u"my materials.mtl"_s, "newmtl skin\nmap_Kd t.png\n");
    f.reader.setTextureSupport(SurfaceReader::TextureRequired);
    QCOMPARE(f.reader.read("mtllib my  materials.mtl\nusemtl skin\n" + surface, running), OBJReader::NoError);
    QCOMPARE(f.reader.getTexture().size(), QSize(2, 2));
}

void tst_OBJReaderLibrary::missingLibraryIsNoMessage()
{
    for (QByteArray const name : {"missing.mtl", "NONE", "none", "a b c", "missing/"}) {
        Fixture f;
        QCOMPARE(f.reader.read("mtllib " + name + '\n' + surface, running), OBJReader::NoError);
        f.reader.setTextureSupport(SurfaceReader::TextureOptional);
        QCOMPARE(f.reader.read("mtllib " + name + '\n' + surface, running), OBJReader::NoError);
        QVERIFY(f.materials().empty());
    }
}

void tst_OBJReaderLibrary::libraryNamedNone()
{
    Fixture f;
    f.folder.write(u"NONE"_s, "newmtl a\n");
    QCOMPARE(f.reader.read("mtllib NONE\nv 1 2\n", running), OBJReader::IncompleteVertexCoordinates);
    QVERIFY(f.materials().contains(u"a"_s));
}

void tst_OBJReaderLibrary::libraryNotFound()
{
    Fixture f;
    f.materials()[u"old"_s];
    QCOMPARE(f.handleMTL(u"NONE"_s), OBJReader::NoMaterialFileName);
    expect(warning("OBJReader::handleMTL", "mtl file", f.folder.path(u"a.mtl"_s), "not found"));
    QCOMPARE(f.handleMTL(u"a.mtl"_s), OBJReader::NoMaterialFileName);
    expect(warning("OBJReader::handleMTL", "mtl file", f.folder.path(u"none"_s), "not found"));
    QCOMPARE(f.handleMTL(u"none"_s), OBJReader::NoMaterialFileName);
    QCOMPARE(f.materials().size(), 1u);
}

void tst_OBJReaderLibrary::libraryNotOpened()
{
    Fixture f;
    f.materials()[u"old"_s];
    f.folder.makeFolder(u"a.mtl"_s);
    QString const text =
        warning("OBJReader::handleMTL", "Cannot open mtl file for read only: ", f.folder.path(u"a.mtl"_s));
    expect(text);
    QCOMPARE(f.handleMTL(u"a.mtl"_s), OBJReader::CannotOpenMaterialFile);
    QCOMPARE(f.materials().size(), 1u);

    f.reader.setTextureSupport(SurfaceReader::TextureRequired);
    expect(text);
    QCOMPARE(f.reader.read("mtllib a.mtl\n" + surface, running), OBJReader::CannotOpenMaterialFile);
    QCOMPARE(f.reader.getError(), OBJReader::CannotOpenMaterialFile);
}

void tst_OBJReaderLibrary::libraryBesideTheObjFile()
{
    Fixture f;
    f.folder.makeFolder(u"sub"_s);
    f.folder.write(u"sub/m.mtl"_s, "newmtl a\n");
    QCOMPARE(f.handleMTL(u"sub/m.mtl"_s), OBJReader::NoError);
    QVERIFY(f.materials().contains(u"a"_s));
    f.reader.setFileName(f.folder.path(u"sub/scan.obj"_s));
    f.materials().clear();
    QCOMPARE(f.handleMTL(u"m.mtl"_s), OBJReader::NoError);
    QVERIFY(f.materials().contains(u"a"_s));
}

void tst_OBJReaderLibrary::secondLibraryReplacesFirst()
{
    Fixture f;
    f.folder.write(u"a.mtl"_s, "newmtl a\n");
    f.folder.write(u"b.mtl"_s, "newmtl b\n");
    QCOMPARE(f.reader.read(QByteArray("mtllib a.mtl\nmtllib b.mtl\nv 1 2\n"), running),
             OBJReader::IncompleteVertexCoordinates);
    QCOMPARE(f.materials().size(), 1u);
    QVERIFY(f.materials().contains(u"b"_s));
}

void tst_OBJReaderLibrary::newMaterials_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QStringList>("names");
    QTest::newRow("plain") << QByteArray("newmtl skin") << QStringList{u"skin"_s};
    QTest::newRow("words") << QByteArray("  newmtl  my   skin ") << QStringList{u"my skin"_s};
    QTest::newRow("no name") << QByteArray("newmtl") << QStringList{QString()};
    QTest::newRow("keyword inside") << QByteArray("xnewmtlx skin") << QStringList{u"skin"_s};
    QTest::newRow("before map") << QByteArray("newmtlmap skin") << QStringList{u"skin"_s};
    QTest::newRow("two") << QByteArray("newmtl b\nnewmtl a") << QStringList{u"a"_s, u"b"_s};
    QTest::newRow("capitals") << QByteArray("NEWMTL skin") << QStringList{};
    QTest::newRow("tab") << QByteArray("newmtl\tskin") << QStringList{QString()};
    QTest::newRow("comment") << QByteArray("#newmtl skin") << QStringList{};
    QTest::newRow("byte order mark") << QByteArray("\xef\xbb\xbfnewmtl skin") << QStringList{u"skin"_s};
    QTest::newRow("carriage return") << QByteArray("newmtl skin\r") << QStringList{u"skin"_s};
}

void tst_OBJReaderLibrary::newMaterials()
{
    QFETCH(QByteArray, line);
    QFETCH(QStringList, names);
    Fixture f;
    QCOMPARE(f.readLibrary(line), OBJReader::NoError);
    QStringList result;
    for (auto const& [name, material] : f.materials()) {
        result << name;
        QVERIFY(material.texture.isNull());
        QVERIFY(!material.diffuseColor.isValid());
    }
    QCOMPARE(result, names);
}

void tst_OBJReaderLibrary::keepsPresentMaterial()
{
    Fixture f;
    f.folder.writeImage(u"t.png"_s, support::plainImage(2, 2, Qt::blue));
    QCOMPARE(f.readLibrary("newmtl a\nmap_Kd t.png\nKd 1 0 0\nnewmtl b\nnewmtl a\nKd 0 1 0\n"),
             OBJReader::NoError);
    QCOMPARE(f.materials().size(), 2u);
    QVERIFY(!f.materials()[u"a"_s].texture.isNull());
    QCOMPARE(f.materials()[u"a"_s].diffuseColor, QColor(0, 255, 0));
    QVERIFY(f.materials()[u"b"_s].texture.isNull());
}

void tst_OBJReaderLibrary::textureStatements_data()
{
    QTest::addColumn<QByteArray>("keyword");
    QTest::addColumn<bool>("isTexture");
    for (char const* const keyword : {"map_Kd", "map_Ka", "map_Ks", "map_d", "map_bump", "map_Bump",
                                      "bump_map", "map", "mymapping", "map_kd", "map_Kdx"})
        QTest::newRow(keyword) << QByteArray(keyword) << true;
    for (char const* const keyword :
         {"bump", "disp", "norm", "Map_Kd", "MAP_Kd", "refl", "decal", "Kd_texture"})
        QTest::newRow(keyword) << QByteArray(keyword) << false;
}

void tst_OBJReaderLibrary::textureStatements()
{
    QFETCH(QByteArray, keyword);
    QFETCH(bool, isTexture);
    Fixture f;
    QImage const image = support::placeImage(3, 2);
    f.folder.writeImage(u"t.png"_s, image);
    QCOMPARE(f.readLibrary("newmtl a\n" + keyword + " t.png\n"), OBJReader::NoError);
    QCOMPARE(f.materials()[u"a"_s].texture.isNull(), !isTexture);
    if (isTexture)
        QCOMPARE(f.materials()[u"a"_s].texture.convertToFormat(QImage::Format_ARGB32), image);
}

void tst_OBJReaderLibrary::lastTextureWins()
{
    Fixture f;
    f.folder.writeImage(u"color.png"_s, support::plainImage(2, 2, Qt::blue));
    f.folder.writeImage(u"bump.png"_s, support::plainImage(5, 7, Qt::gray));
    QCOMPARE(f.readLibrary("newmtl a\nmap_Kd color.png\nmap_bump bump.png\nbump color.png\n"),
             OBJReader::NoError);
    QCOMPARE(f.materials()[u"a"_s].texture.size(), QSize(5, 7));
}

void tst_OBJReaderLibrary::textureBeforeAnyMaterial()
{
    Fixture f;
    f.folder.writeImage(u"t.png"_s, support::plainImage(2, 2, Qt::blue));
    QCOMPARE(f.readLibrary("map_Kd t.png\nnewmtl a\n"), OBJReader::InvalidMaterialFile);
    QVERIFY(f.materials().empty());
    // The texture is loaded first, so its failure counts first.
    expect(warning("OBJReader::loadTexture", "Texture file", f.folder.path(u"x.png"_s), "not found"));
    QCOMPARE(f.readLibrary("map_Kd x.png\n"), OBJReader::CannotFindTextureFile);
    // A material without a name does not count either.
    QCOMPARE(f.readLibrary("newmtl\nmap_Kd t.png\n"), OBJReader::InvalidMaterialFile);
    QVERIFY(f.materials().at(QString()).texture.isNull());
}

void tst_OBJReaderLibrary::textureNameWithSpaces()
{
    Fixture f;
    f.folder.writeImage(u"my scan 1.png"_s, support::plainImage(2, 2, Qt::blue));
    QCOMPARE(f.readLibrary("newmtl a\nmap_Kd my  scan 1.png\n"), OBJReader::NoError);
    QVERIFY(!f.materials()[u"a"_s].texture.isNull());
    // Options are taken as part of the name.
    expect(warning("OBJReader::loadTexture", "Texture file", f.folder.path(u"-s 1 1 1 my scan 1.png"_s),
                   "not found"));
    QCOMPARE(f.readLibrary("newmtl a\nmap_Kd -s 1 1 1 my scan 1.png\n"), OBJReader::CannotFindTextureFile);
}

void tst_OBJReaderLibrary::textureNamesAreRelativeToTheObjFile()
{
    Fixture f;
    f.folder.makeFolder(u"sub"_s);
    f.folder.write(u"sub/m.mtl"_s, "newmtl a\nmap_Kd t.png\n");
    f.folder.writeImage(u"sub/t.png"_s, support::plainImage(2, 2, Qt::blue));
    expect(warning("OBJReader::loadTexture", "Texture file", f.folder.path(u"t.png"_s), "not found"));
    QCOMPARE(f.handleMTL(u"sub/m.mtl"_s), OBJReader::CannotFindTextureFile);
    f.folder.writeImage(u"t.png"_s, support::plainImage(3, 3, Qt::blue));
    QCOMPARE(f.handleMTL(u"sub/m.mtl"_s), OBJReader::NoError);
    QCOMPARE(f.materials()[u"a"_s].texture.size(), QSize(3, 3));
    // An absolute name stands for itself.
    f.folder.write(u"sub/m.mtl"_s, "newmtl a\nmap_Kd " + f.folder.path(u"sub/t.png"_s).toUtf8() + '\n');
    QCOMPARE(f.handleMTL(u"sub/m.mtl"_s), OBJReader::NoError);
    QCOMPARE(f.materials()[u"a"_s].texture.size(), QSize(2, 2));
}

void tst_OBJReaderLibrary::diffuseColors_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QColor>("color");
    QTest::addColumn<QStringList>("badNumbers");
    QTest::newRow("truncated") << QByteArray("Kd 1 0.5 0") << QColor(255, 127, 0, 255) << QStringList();
    QTest::newRow("tenths") << QByteArray("Kd 0.1 0.6 0.9") << QColor(25, 153, 229) << QStringList();
    QTest::newRow("nearly 1") << QByteArray("Kd 0.999 0.9999 0.99999") << QColor(254, 254, 254)
                              << QStringList();
    QTest::newRow("one 255th") << QByteArray("Kd 0.003921569 0.00392 0.0078432") << QColor(1, 0, 2)
                               << QStringList();
    QTest::newRow("small negative") << QByteArray("Kd -0.001 0 0") << QColor(0, 0, 0) << QStringList();
    QTest::newRow("letters") << QByteArray("Kd x 0.5 y") << QColor(0, 127, 0) << QStringList{u"x"_s, u"y"_s};
    QTest::newRow("fourth number") << QByteArray("Kd 1 1 1 z") << QColor(255, 255, 255) << QStringList();
    QTest::newRow("two numbers") << QByteArray("Kd 1 1") << QColor(255, 255, 0) << QStringList();
    QTest::newRow("no numbers") << QByteArray("Kd") << QColor(0, 0, 0) << QStringList();
    // What no colour can hold.
    QTest::newRow("too bright") << QByteArray("Kd 1.004 0 0") << QColor(256, 0, 0) << QStringList();
    QTest::newRow("as bytes") << QByteArray("Kd 255 255 255") << QColor(65025, 65025, 65025) << QStringList();
    QTest::newRow("negative") << QByteArray("Kd 0 -1 0") << QColor(0, -255, 0) << QStringList();
    QTest::newRow("huge") << QByteArray("Kd 0 0 1e38") << QColor(0, 0, -1) << QStringList();
    QTest::newRow("infinite") << QByteArray("Kd inf -inf 0") << QColor(-1, -1, 0) << QStringList();
    QTest::newRow("nan") << QByteArray("Kd nan 0 0") << QColor(-1, 0, 0) << QStringList();
}

void tst_OBJReaderLibrary::diffuseColors()
{
    QFETCH(QByteArray, line);
    QFETCH(QColor, color);
    QFETCH(QStringList, badNumbers);
    Fixture f;
    for (QString const& number : badNumbers)
        expect(warning("`anonymous-namespace'::toFloatIfConditionValid",
                       "Invalid string to float conversion: ", number));
    QCOMPARE(f.readLibrary("newmtl a\n" + line), OBJReader::NoError);
    QCOMPARE(f.materials()[u"a"_s].diffuseColor.isValid(), color.isValid());
    QCOMPARE(f.materials()[u"a"_s].diffuseColor, color);
}

void tst_OBJReaderLibrary::diffuseColorBeforeAnyMaterial()
{
    Fixture f;
    QCOMPARE(f.readLibrary("Kd 1 0 0\nnewmtl a\n"), OBJReader::NoError);
    QCOMPARE(f.materials().size(), 2u);
    QCOMPARE(f.materials()[QString()].diffuseColor, QColor(255, 0, 0));
    QVERIFY(!f.materials()[u"a"_s].diffuseColor.isValid());
}

void tst_OBJReaderLibrary::otherStatementsAreIgnored()
{
    Fixture f;
    QCOMPARE(
        f.readLibrary("newmtl a\nKa 1 0 0\nKs 1 x 0\nKe 1\nNs 250\nNi 1\n  d 0.5\nTr 0.5\nillum 2\nkd 1 0 0\n"
                      "KD 1 0 0\nKd\t1 0 0\n# Kd 1 0 0\n\n \nsharpness 60\n"),
        OBJReader::NoError);
    QCOMPARE(f.materials().size(), 1u);
    QVERIFY(!f.materials()[u"a"_s].diffuseColor.isValid());
}

void tst_OBJReaderLibrary::encodings()
{
    Fixture f;
    QCOMPARE(f.readLibrary("newmtl h\xc3\xa4ut\nnewmtl z\xe4hne\n"), OBJReader::NoError);
    QCOMPARE(f.materials().size(), 2u);
    QVERIFY(f.materials().contains(u"häut"_s));
    QVERIFY(f.materials().contains(u"zähne"_s));
}

void tst_OBJReaderLibrary::namesWithNul()
{
    // Qt warns of such a path when it is handed one.
    Fixture f;
    QByteArray const name("m\0.mtl", 6);
    QCOMPARE(f.reader.read("mtllib " + name + '\n' + surface, running), OBJReader::NoError);
    QString const texture = QString::fromLatin1("t\0.png", 6);
    expect(warning("OBJReader::loadTexture", "Texture file", f.folder.path(texture), "not found"));
    QCOMPARE(f.readLibrary("newmtl a\nmap_Kd " + texture.toLatin1() + '\n'),
             OBJReader::CannotFindTextureFile);
}

QTEST_APPLESS_MAIN(tst_OBJReaderLibrary)
#include "tst_OBJReaderLibrary.moc"
