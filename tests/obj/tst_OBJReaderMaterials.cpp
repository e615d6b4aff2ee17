#include "obj/MaterialFixture.h"
#include "support/Meshes.h"

using namespace Qt::StringLiterals;
using namespace materialtest;

class tst_OBJReaderMaterials : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void replacesUndefinedMaterials_data();
    void replacesUndefinedMaterials();
    void replacementTakesThePlaceOfItsOwnFaces();
    void prunes();
    void recognisesMixedMaterials_data();
    void recognisesMixedMaterials();
    void fixesMixedMaterials();
    void mixedMaterialsMustBeUsed();
    void mixedFileKeepsFlatColor();
    void policies_data();
    void policies();
    void materialsOutliveAFailedRead();
    void materialsEndWithASuccessfulRead();
    void openedLibraryClearsTheMaterials();
};

void tst_OBJReaderMaterials::replacesUndefinedMaterials_data()
{
    QTest::addColumn<QStringList>("texturedNames");
    QTest::addColumn<QStringList>("flatNames");
    QTest::addColumn<QStringList>("used");
    QTest::addColumn<QStringList>("result");
    QTest::addColumn<QStringList>("warnings");
    // Used: name=face. The result likewise.
    using L = QStringList;
    auto const row = [](char const* name, L const& textures, L const& flats, L const& used, L const& result,
                        L const& warnings) {
        QTest::newRow(name) << textures << flats << used << result << warnings;
    };
    row("all defined", {u"a"_s}, {u"b"_s}, {u"a=0"_s, u"b=1"_s}, {u"a=0"_s, u"b=1"_s}, {});
    row("empty table", {}, {}, {u"a=0"_s, u"b=1"_s}, {}, {});
    row("no textured material", {}, {u"b"_s}, {u"a=0"_s, u"b=1"_s}, {u"b=1"_s}, {});
    row("replaced", {u"skin"_s}, {}, {u"missing=0"_s}, {u"skin=0"_s},
        {replacementWarning(u"missing"_s, u"skin"_s)});
    row("first textured one", {u"b"_s, u"c"_s}, {u"a"_s}, {u"x=0"_s}, {u"b=0"_s},
        {replacementWarning(u"x"_s, u"b"_s)});
    row("before the replacement", {u"skin"_s}, {}, {u"missing=0"_s, u"skin=1"_s}, {u"skin=0"_s},
        {replacementWarning(u"missing"_s, u"skin"_s)});
    row("behind the replacement", {u"skin"_s}, {}, {u"skin=1"_s, u"teeth=0"_s}, {u"skin=1"_s},
        {replacementWarning(u"teeth"_s, u"skin"_s)});
    row("two undefined", {u"skin"_s}, {}, {u"a=0"_s, u"b=1"_s}, {u"skin=0"_s},
        {replacementWarning(u"a"_s, u"skin"_s), replacementWarning(u"b"_s, u"skin"_s)});
    row("around the replacement", {u"m"_s}, {u"z"_s}, {u"a=0"_s, u"m=1"_s, u"n=2"_s, u"z=3"_s},
        {u"m=0"_s, u"z=3"_s}, {replacementWarning(u"a"_s, u"m"_s), replacementWarning(u"n"_s, u"m"_s)});
    row("nothing used", {u"a"_s}, {}, {}, {}, {});
}

void tst_OBJReaderMaterials::replacesUndefinedMaterials()
{
    QFETCH(QStringList, texturedNames);
    QFETCH(QStringList, flatNames);
    QFETCH(QStringList, used);
    QFETCH(QStringList, result);
    QFETCH(QStringList, warnings);
    Fixture f;
    for (QString const& name : texturedNames)
        f.materials()[name] = textured();
    for (QString const& name : flatNames)
        f.materials()[name];
    auto const toUsage = [](QStringList const& entries) {
        Usage usage;
        for (QString const& entry : entries)
            usage[entry.section(u'=', 0, 0)] << entry.section(u'=', 1).toUInt();
        return usage;
    };
    Usage usage = toUsage(used);
    for (QString const& text : warnings)
        expect(text);
    (f.reader.*privateMember(support::FixNonExisting()))(usage);
    QVERIFY(usage == toUsage(result));
    QCOMPARE(f.materials().size(), static_cast<std::size_t>(texturedNames.size() + flatNames.size()));
}

void tst_OBJReaderMaterials::replacementTakesThePlaceOfItsOwnFaces()
{
    // "missing" sorts before "skin": its faces are drawn with "skin", whose own faces are left without a
    // material and so keep their texture coordinates when those of the others move into the atlas.
    Fixture f;
    f.folder.writeImage(u"t.png"_s, support::plainImage(64, 64, Qt::blue));
    f.folder.write(u"m.mtl"_s, "newmtl skin\nmap_Kd t.png\nnewmtl teeth\nmap_Kd t.png\n");
    f.reader.setTextureSupport(SurfaceReader::TextureRequired);
    expect(replacementWarning(u"missing"_s, u"skin"_s));
    QByteArray const corners = "f 1/1 1/1 1/1\n";
    QCOMPARE(f.reader.read("mtllib m.mtl\nv 0 0 0\nv 9 9 9\nvt 1 1\nusemtl teeth\n" + corners +
                               "usemtl skin\nf 2/1 2/1 2/1\n" + "usemtl missing\n" + corners,
                           running),
             OBJReader::NoError);
    QCOMPARE(f.reader.getTexture().size(), QSize(64, 128));
    QCOMPARE(f.reader.getMesh().indices, QList<int>({0, 0, 0, -1, 1, 1, 1, -1, 2, 2, 2, -1}));
    QCOMPARE(f.reader.getMesh().textureCoordinates, QList<QVector2D>({{1, 1}, {1, 1}, {1, 0.5f}}));
}

void tst_OBJReaderMaterials::prunes()
{
    Fixture f;
    f.materials()[u"a"_s] = textured();
    f.materials()[u"b"_s];
    f.materials()[u"c"_s] = textured();
    (f.reader.*privateMember(support::Prune()))({{u"b"_s, {0}}, {u"d"_s, {1}}});
    QCOMPARE(f.materials().size(), 1u);
    QVERIFY(f.materials().contains(u"b"_s));
    (f.reader.*privateMember(support::Prune()))({});
    QVERIFY(f.materials().empty());
}

void tst_OBJReaderMaterials::recognisesMixedMaterials_data()
{
    QTest::addColumn<int>("texturedCount");
    QTest::addColumn<int>("flatCount");
    QTest::addColumn<bool>("isMixed");
    QTest::newRow("none") << 0 << 0 << false;
    QTest::newRow("textured") << 1 << 0 << false;
    QTest::newRow("two textured") << 2 << 0 << false;
    QTest::newRow("flat") << 0 << 1 << false;
    QTest::newRow("two flat") << 0 << 2 << false;
    QTest::newRow("both") << 1 << 1 << true;
    QTest::newRow("many of both") << 3 << 2 << true;
}

void tst_OBJReaderMaterials::recognisesMixedMaterials()
{
    QFETCH(int, texturedCount);
    QFETCH(int, flatCount);
    Fixture f;
    for (int i = 0; i < texturedCount; ++i)
        f.materials()[u"t%1"_s.arg(i)] = textured();
    for (int i = 0; i < flatCount; ++i)
        f.materials()[u"f%1"_s.arg(i)];
    QTEST((f.reader.*privateMember(support::IsMixed()))(), "isMixed");
}

void tst_OBJReaderMaterials::fixesMixedMaterials()
{
    Fixture f;
    f.materials()[u"a"_s].diffuseColor = QColor(1, 2, 3);
    f.materials()[u"b"_s] = textured();
    f.materials()[u"c"_s];
    QList<QVector2D> uvs = {{0.25f, 0.25f}};
    QList<int> indices = {0, 0, 0, -1, 0, 0, 0, -1, 0, 0, 0, -1, 5, 6, 7, -1};
    (f.reader.*privateMember(support::FixMixed()))(uvs, indices,
                                                   {{u"a"_s, {3, 0}}, {u"b"_s, {1}}, {u"c"_s, {2}}});
    QCOMPARE(uvs, QList<QVector2D>({{0.25f, 0.25f}, {0.5f, 0.5f}, {0.5f, 0.5f}}));
    QCOMPARE(indices, QList<int>({1, 1, 1, -1, 0, 0, 0, -1, 2, 2, 2, -1, 1, 1, 1, -1}));
    QImage const flat = f.materials()[u"a"_s].texture;
    QCOMPARE(flat.size(), QSize(3, 3));
    QCOMPARE(flat.format(), QImage::Format_ARGB32);
    QCOMPARE(flat, support::plainImage(3, 3, QColor(1, 2, 3)));
    // Without "Kd" it is filled with an invalid colour, which paints black.
    QCOMPARE(f.materials()[u"c"_s].texture, support::plainImage(3, 3, QColor()));
    QCOMPARE(f.materials()[u"c"_s].texture.pixel(1, 1), 0xff000000u);
    QCOMPARE(f.materials()[u"b"_s].texture, textured().texture);
}

void tst_OBJReaderMaterials::mixedMaterialsMustBeUsed()
{
    // A read prunes first, so that this cannot happen there.
    Fixture f;
    f.materials()[u"a"_s];
    QList<QVector2D> uvs;
    QList<int> indices;
    QVERIFY_THROWS_EXCEPTION(std::out_of_range,
                             (f.reader.*privateMember(support::FixMixed()))(uvs, indices, {{u"b"_s, {0}}}));
}

void tst_OBJReaderMaterials::mixedFileKeepsFlatColor()
{
    Fixture f;
    f.folder.writeImage(u"t.png"_s, support::plainImage(61, 61, QColor(10, 20, 30)));
    f.folder.write(u"m.mtl"_s, "newmtl skin\nmap_Kd t.png\nnewmtl teeth\nKd 1 0.5 0\n");
    QByteArray const text = "mtllib m.mtl\nv 0 0 0\nv 1 0 0\nv 0 1 0\nvt 0.5 0.5\n"
                            "usemtl skin\nf 1/1 2/1 3/1\nusemtl teeth\nf 1 2 3\n";
    f.reader.setTextureSupport(SurfaceReader::TextureRequired);
    QCOMPARE(f.reader.read(text, running), OBJReader::NoError);
    QCOMPARE(f.reader.getTexture().size(), QSize(61, 64));
    // The packer puts the great texture at the bottom and the small one above it.
    QCOMPARE(f.reader.getTexture().pixelColor(1, 1), QColor(255, 127, 0));
    QCOMPARE(f.reader.getTexture().pixelColor(4, 1), QColor(255, 0, 0));
    QCOMPARE(f.reader.getTexture().pixelColor(30, 40), QColor(10, 20, 30));
    QCOMPARE(f.reader.getMesh().vertices.size(), 6);
    for (int i : {3, 4, 5})
        QCOMPARE(f.reader.getMesh().textureCoordinates[i], QVector2D(1.5f / 61, 62.5f / 64));

    f.reader.setTextureSupport(SurfaceReader::VertexColorsRequired);
    QCOMPARE(f.reader.read(text, running), OBJReader::NoError);
    QCOMPARE(f.reader.getMesh().colors.mid(3), QList<unsigned int>(3, 0xff007fff));
}

void tst_OBJReaderMaterials::policies_data()
{
    QTest::addColumn<QByteArray>("mtl");
    QTest::addColumn<QByteArray>("vt");
    QTest::addColumn<int>("policy");
    QTest::addColumn<QString>("result");
    QByteArray const texture = "newmtl a\nmap_Kd t.png\n";
    QByteArray const flat = "newmtl a\nKd 1 0 0\n";
    QByteArray const vt = "vt 0.5 0.5\nvt 0.5 0.5\nvt 0.5 0.5\n";
    QStringList const all = {u"plain"_s, u"none"_s, u"plain"_s, u"none"_s};
    auto const rows = [](char const* name, QByteArray const& mtl, QByteArray const& uvs,
                         QStringList const& results) {
        for (int policy = 0; policy < 4; ++policy)
            QTest::addRow("%s, %d", name, policy) << mtl << uvs << policy << results[policy];
    };
    rows("textured", texture, vt, {u"coloured"_s, u"coloured"_s, u"textured"_s, u"textured"_s});
    rows("texture without coordinates", texture, "", all);
    rows("coordinates without texture", "newmtl a\n", vt, all);
    rows("coordinates without materials", "", vt, all);
    rows("flat", flat, vt, all);
    rows("flat without coordinates", flat, "", all);
    rows("two flat", flat + "newmtl b\nKd 0 1 0\n", vt, all);
    rows("no materials", "", "", all);
}

void tst_OBJReaderMaterials::policies()
{
    QFETCH(QByteArray, mtl);
    QFETCH(QByteArray, vt);
    QFETCH(int, policy);
    QFETCH(QString, result);
    Fixture f;
    QImage const image = support::plainImage(4, 4, QColor(10, 20, 30));
    f.folder.writeImage(u"t.png"_s, image);
    f.folder.write(u"m.mtl"_s, mtl);
    f.reader.setTextureSupport(SurfaceReader::TextureSupport(policy));
    if (result == u"none")
        expect(warning("OBJReader: Unable to load mesh with this TextureSupport flag:", policy));
    if (mtl.contains("t.png"))
        expect(replacementWarning(u"b"_s, u"a"_s));
    OBJReader::Error const code = f.reader.read("mtllib m.mtl\nv 0 0 0\nv 1 0 0\nv 0 1 0\n" + vt +
                                                    "usemtl a\nf 1/1 2/2 3/3\nusemtl b\nf 1/1 2/2 3/3\n",
                                                running);
    QCOMPARE(code, result == u"none" ? OBJReader::UnableToLoadMeshWithCurrentTextureSupportFlag
                                     : OBJReader::NoError);
    bool const isTextured = result == u"textured";
    QCOMPARE(f.reader.getTexture().isNull(), !isTextured);
    if (isTextured)
        QCOMPARE(f.reader.getTexture().convertToFormat(QImage::Format_ARGB32), image);
    QCOMPARE(f.reader.getMesh().vertices.size(), result == u"none" ? 0 : 3);
    QCOMPARE(f.reader.getMesh().textureCoordinates.size(), isTextured ? 3 : 0);
    QCOMPARE(f.reader.getMesh().colors, QList<unsigned int>(result == u"coloured" ? 3 : 0, 0xff1e140a));
}

void tst_OBJReaderMaterials::materialsOutliveAFailedRead()
{
    Fixture f;
    f.folder.writeImage(u"t.png"_s, support::plainImage(4, 4, Qt::blue));
    f.folder.write(u"m.mtl"_s, "newmtl a\nmap_Kd t.png\n");
    QCOMPARE(f.reader.read(QByteArray("mtllib m.mtl\nv 1 2\n"), running),
             OBJReader::IncompleteVertexCoordinates);
    f.reader.setTextureSupport(SurfaceReader::TextureRequired);
    QCOMPARE(f.reader.read("usemtl a\n" + surface, running), OBJReader::NoError);
    QCOMPARE(f.reader.getTexture().size(), QSize(4, 4));
}

void tst_OBJReaderMaterials::materialsEndWithASuccessfulRead()
{
    Fixture f;
    f.folder.writeImage(u"t.png"_s, support::plainImage(4, 4, Qt::blue));
    f.folder.write(u"m.mtl"_s, "newmtl a\nmap_Kd t.png\n");
    QCOMPARE(f.reader.read("mtllib m.mtl\nusemtl a\n" + surface, running), OBJReader::NoError);
    QVERIFY(f.materials().empty());
    f.reader.setTextureSupport(SurfaceReader::TextureOptional);
    QCOMPARE(f.reader.read("usemtl a\n" + surface, running), OBJReader::NoError);
    QVERIFY(f.reader.getTexture().isNull());
}

void tst_OBJReaderMaterials::openedLibraryClearsTheMaterials()
{
    Fixture f;
    f.materials()[u"old"_s];
    QCOMPARE(f.readLibrary(""), OBJReader::NoError);
    QVERIFY(f.materials().empty());
    f.materials()[u"old"_s];
    f.folder.writeImage(u"t.png"_s, support::plainImage(4, 4, Qt::blue));
    QCOMPARE(f.readLibrary("map_Kd t.png\n"), OBJReader::InvalidMaterialFile);
    QVERIFY(f.materials().empty());
}

QTEST_APPLESS_MAIN(tst_OBJReaderMaterials)
#include "tst_OBJReaderMaterials.moc"
