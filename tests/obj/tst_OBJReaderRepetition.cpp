#include "obj/MaterialFixture.h"
#include "support/Meshes.h"

using namespace Qt::StringLiterals;
using namespace materialtest;

/// Files that name the same thing again and again, or a thing at great length: what they cost must not change
/// what they give.
class tst_OBJReaderRepetition : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void namesThatNoFileCanHave_data();
    void namesThatNoFileCanHave();
    void longestName();
    void sameFileIsSharedByMaterials();
    void linksAreFollowedOnce();
    void repeatedLibraryIsKept();
    void repeatedLibraryWarnsAgain();
    void libraryNamedAgainAfterAnother();
    void texturesAreSharedByLibraries();
    void badTextureWarnsAgain();
};

void tst_OBJReaderRepetition::namesThatNoFileCanHave_data()
{
    QTest::addColumn<QByteArray>("words");
    QTest::newRow("many words") << QByteArray(" a").repeated(100000);
    QTest::newRow("many folders") << QByteArray(" a/").repeated(100000);
    QTest::newRow("one word") << " " + QByteArray("a").repeated(100000);
    QTest::newRow("one word of folders") << " " + QByteArray("a/").repeated(100000);
    QTest::newRow("not ASCII") << QByteArray(" \xc3\xa4").repeated(100000);
}

void tst_OBJReaderRepetition::namesThatNoFileCanHave()
{
    QFETCH(QByteArray, words);
    Fixture f;
    QCOMPARE(f.reader.read("mtllib" + words + '\n' + surface, running), OBJReader::NoError);
    // Of the words behind the first name, a second one is still found.
    f.folder.write(u"m.mtl"_s, {});
    QCOMPARE(f.reader.read("mtllib m.mtl" + words + '\n' + surface, running), OBJReader::NoError);
    QCOMPARE(f.reader.read("mtllib m.mtl m.mtl" + words + '\n' + surface, running),
             OBJReader::MultipleMaterialFilesUnsupported);
}

void tst_OBJReaderRepetition::longestName()
{
    // 255 characters, in as many words as can be.
    QString const name = QStringList(128, u"a"_s).join(u' ');
    Fixture f;
    f.folder.write(name, "newmtl skin\n");
    QCOMPARE(f.reader.read("mtllib " + name.toLatin1() + "\nv 1 2\n", running),
             OBJReader::IncompleteVertexCoordinates);
    QCOMPARE(f.materials().size(), 1u);
    f.folder.makeFolder(u"b"_s);
    f.folder.write(u"b/"_s + name, "newmtl teeth\nnewmtl bone\n");
    QCOMPARE(f.reader.read("mtllib b/" + name.toLatin1() + "\nv 1 2\n", running),
             OBJReader::IncompleteVertexCoordinates);
    QCOMPARE(f.materials().size(), 2u);
}

void tst_OBJReaderRepetition::sameFileIsSharedByMaterials()
{
    // A file that is named again, in whatever spelling, is decoded once.
    Fixture f;
    f.folder.makeFolder(u"sub"_s);
    f.folder.writeImage(u"t.png"_s, support::placeImage(3, 2));
    f.folder.writeImage(u"u.png"_s, support::placeImage(2, 3));
    QByteArray const absolute = f.folder.path(u"t.png"_s).toUtf8();
    QCOMPARE(f.readLibrary(
                 "newmtl a\nmap_Kd t.png\nnewmtl b\nmap_Kd ./sub/../t.png\nnewmtl c\nmap_Kd " + absolute +
                 "\nnewmtl d\nmap_Kd t.png\nmap_bump u.png\nnewmtl e\nmap_bump u.png\nmap_Kd t.png\n"),
             OBJReader::NoError);
    qint64 const key = f.materials()[u"a"_s].texture.cacheKey();
    for (QString const& name : {u"b"_s, u"c"_s, u"e"_s})
        QCOMPARE(f.materials()[name].texture.cacheKey(), key);
    QCOMPARE(f.materials()[u"a"_s].texture.convertToFormat(QImage::Format_ARGB32), support::placeImage(3, 2));
    QCOMPARE(f.materials()[u"d"_s].texture.convertToFormat(QImage::Format_ARGB32), support::placeImage(2, 3));
    // Not from one reading to the next: the file may be another one by then.
    f.folder.writeImage(u"t.png"_s, support::placeImage(5, 5));
    QCOMPARE(f.readLibrary("newmtl a\nmap_Kd t.png\n"), OBJReader::NoError);
    QCOMPARE(f.materials()[u"a"_s].texture.size(), QSize(5, 5));
}

void tst_OBJReaderRepetition::linksAreFollowedOnce()
{
    // ".." behind a link to a folder leads out of the folder that the link names.
    Fixture f;
    f.folder.makeFolder(u"far"_s);
    f.folder.makeFolder(u"far/away"_s);
    if (!QFile::link(f.folder.path(u"far/away"_s), f.folder.path(u"link"_s)) ||
        !QFile::exists(f.folder.path(u"link/../away"_s)))
        QSKIP("no links to folders here");
    f.folder.writeImage(u"far/t.png"_s, support::plainImage(3, 3, Qt::blue));
    f.folder.writeImage(u"t.png"_s, support::plainImage(4, 4, Qt::blue));
    f.folder.write(u"far/m.mtl"_s, "newmtl a\nmap_Kd link/../t.png\nnewmtl b\nmap_Kd t.png\n");
    QCOMPARE(f.handleMTL(u"link/../m.mtl"_s), OBJReader::NoError);
    QCOMPARE(f.materials()[u"a"_s].texture.size(), QSize(3, 3));
    QCOMPARE(f.materials()[u"b"_s].texture.size(), QSize(4, 4));
}

void tst_OBJReaderRepetition::repeatedLibraryIsKept()
{
    Fixture f;
    f.folder.writeImage(u"t.png"_s, support::plainImage(2, 2, Qt::blue));
    f.folder.write(u"m.mtl"_s, "newmtl a\nmap_Kd t.png\nKd 1 0 0\n");
    f.reader.setTextureSupport(SurfaceReader::TextureRequired);
    QCOMPARE(
        f.reader.read("mtllib m.mtl\nusemtl a\n" + surface + "mtllib m.mtl\nmtllib ./m.mtl\nmtllib m.mtl\n",
                      running),
        OBJReader::NoError);
    QCOMPARE(f.reader.getTexture().size(), QSize(2, 2));
    // Only within one read.
    f.folder.write(u"m.mtl"_s, "newmtl b\n");
    QCOMPARE(f.reader.read(QByteArray("mtllib m.mtl\nv 1 2\n"), running),
             OBJReader::IncompleteVertexCoordinates);
    QCOMPARE(f.materials().size(), 1u);
    QVERIFY(f.materials().contains(u"b"_s));
}

void tst_OBJReaderRepetition::repeatedLibraryWarnsAgain()
{
    Fixture f;
    QString const badNumber = warning("`anonymous-namespace'::toFloatIfConditionValid",
                                      "Invalid string to float conversion: ", u"x"_s);
    f.folder.write(u"m.mtl"_s, "newmtl a\nKd x 1 1\nKd 0 0 0\n");
    for (int i = 0; i < 3; ++i)
        expect(badNumber);
    QCOMPARE(f.reader.read("mtllib m.mtl\nmtllib m.mtl\nmtllib m.mtl\n" + surface, running),
             OBJReader::NoError);

    f.folder.write(u"n.mtl"_s, "newmtl a\nmap_Kd missing.png\n");
    for (int i = 0; i < 2; ++i)
        expect(
            warning("OBJReader::loadTexture", "Texture file", f.folder.path(u"missing.png"_s), "not found"));
    QCOMPARE(f.reader.read("mtllib n.mtl\nmtllib n.mtl\n" + surface, running), OBJReader::NoError);
}

void tst_OBJReaderRepetition::libraryNamedAgainAfterAnother()
{
    Fixture f;
    f.folder.write(u"a.mtl"_s, "newmtl a\n");
    f.folder.write(u"b.mtl"_s, "newmtl b\n");
    expect(warning("OBJReader::loadTexture", "Texture file", f.folder.path(u"missing.png"_s), "not found"));
    f.folder.write(u"bad.mtl"_s, "newmtl bad\nmap_Kd missing.png\n");
    for (auto const& [libraries, last] : std::initializer_list<std::pair<char const*, QString>>{
             {"mtllib a.mtl\nmtllib b.mtl\nmtllib a.mtl\n", u"a"_s},
             {"mtllib a.mtl\nmtllib b.mtl\nmtllib a.mtl\nmtllib b.mtl\n", u"b"_s},
             {"mtllib a.mtl\nmtllib bad.mtl\nmtllib a.mtl\n", u"a"_s},
             {"mtllib a.mtl\nmtllib missing.mtl\nmtllib a.mtl\n", u"a"_s}}) {
        QCOMPARE(f.reader.read(QByteArray(libraries) + "v 1 2\n", running),
                 OBJReader::IncompleteVertexCoordinates);
        QCOMPARE(f.materials().size(), 1u);
        QVERIFY(f.materials().contains(last));
    }
}

void tst_OBJReaderRepetition::texturesAreSharedByLibraries()
{
    // Each library clears the table, the texture is the right one all the same.
    Fixture f;
    f.folder.writeImage(u"t.png"_s, support::plainImage(2, 2, Qt::blue));
    f.folder.writeImage(u"u.png"_s, support::plainImage(3, 3, Qt::blue));
    f.folder.write(u"a.mtl"_s, "newmtl a\nmap_Kd t.png\n");
    f.folder.write(u"b.mtl"_s, "newmtl a\nmap_Kd u.png\nmap_Kd ./t.png\n");
    f.folder.write(u"c.mtl"_s, "newmtl a\nmap_Kd u.png\n");
    f.reader.setTextureSupport(SurfaceReader::TextureRequired);
    for (auto const& [libraries, side] : std::initializer_list<std::pair<char const*, int>>{
             {"mtllib a.mtl\nmtllib b.mtl\n", 2},
             {"mtllib a.mtl\nmtllib c.mtl\nmtllib b.mtl\nmtllib c.mtl\n", 3},
             {"mtllib c.mtl\nmtllib b.mtl\nmtllib c.mtl\nmtllib a.mtl\n", 2}}) {
        QCOMPARE(f.reader.read(QByteArray(libraries) + "usemtl a\n" + surface, running), OBJReader::NoError);
        QCOMPARE(f.reader.getTexture().size(), QSize(side, side));
    }
}

void tst_OBJReaderRepetition::badTextureWarnsAgain()
{
    Fixture f;
    f.folder.writeImage(u"whole.png"_s, support::placeImage(64, 64));
    QFile whole(f.folder.path(u"whole.png"_s));
    QVERIFY(whole.open(QIODevice::ReadOnly));
    f.folder.write(u"cut.png"_s, whole.readAll().chopped(40));
    f.folder.write(u"text.png"_s, "no image");
    f.folder.write(u"cut.mtl"_s, "newmtl a\nmap_Kd cut.png\n");
    f.folder.write(u"text.mtl"_s, "newmtl a\nmap_Kd text.png\n");
    for (int i = 0; i < 2; ++i) {
        expect(warning("OBJReader::loadTexture", u"Unable to read image data"_s));
        expect(warning("OBJReader::loadTexture", "Could not read texture file at ",
                       f.folder.path(u"text.png"_s)));
    }
    QCOMPARE(f.reader.read("mtllib cut.mtl\nmtllib text.mtl\nmtllib cut.mtl\nmtllib text.mtl\n" + surface,
                           running),
             OBJReader::NoError);
}

QTEST_APPLESS_MAIN(tst_OBJReaderRepetition)
#include "tst_OBJReaderRepetition.moc"
