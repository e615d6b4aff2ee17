#include "obj/MaterialFixture.h"
#include "support/Meshes.h"

using namespace Qt::StringLiterals;
using namespace materialtest;

class tst_OBJReaderTextures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textureNotFound();
    void textureIsNoImage_data();
    void textureIsNoImage();
    void textureIsBroken();
    void textureIsTooBigForQt();
    void textureEndsTheLibrary();
    void libraryResultCounts_data();
    void libraryResultCounts();
    void keepsWhatWasReadBeforeTheFailure();
};

void tst_OBJReaderTextures::textureNotFound()
{
    Fixture f;
    expect(warning("OBJReader::loadTexture", "Texture file", f.folder.path(u"t.png"_s), "not found"));
    QCOMPARE(f.readLibrary("newmtl a\nmap_Kd t.png\n"), OBJReader::CannotFindTextureFile);
    QVERIFY(f.materials()[u"a"_s].texture.isNull());
    expect(warning("OBJReader::loadTexture", "Texture file", f.folder.path(u"t.png"_s), "not found"));
    QCOMPARE(f.readLibrary("newmtl a\nmap_Kd ./sub/../t.png\n"), OBJReader::CannotFindTextureFile);
    // Backslashes part folders on one platform only.
#ifndef Q_OS_WIN
    f.folder.writeImage(u"t.png"_s, support::plainImage(2, 2, Qt::blue));
    expect(warning("OBJReader::loadTexture", "Texture file", f.folder.path(u".\\t.png"_s), "not found"));
    QCOMPARE(f.readLibrary("newmtl a\nmap_Kd .\\t.png\n"), OBJReader::CannotFindTextureFile);
#endif
}

void tst_OBJReaderTextures::textureIsNoImage_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    for (QString const& suffix : {u"png"_s, u"jpg"_s, u"bmp"_s, u"txt"_s}) {
        QTest::newRow(qPrintable(u"text as "_s + suffix)) << u"t."_s + suffix << QByteArray("this is a text");
        QTest::newRow(qPrintable(u"empty "_s + suffix)) << u"t."_s + suffix << QByteArray();
    }
    QTest::newRow("folder") << u"folder"_s << QByteArray();
}

void tst_OBJReaderTextures::textureIsNoImage()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    Fixture f;
    if (name == u"folder")
        f.folder.makeFolder(name);
    else
        f.folder.write(name, content);
    expect(warning("OBJReader::loadTexture", "Could not read texture file at ", f.folder.path(name)));
    QCOMPARE(f.readLibrary("newmtl a\nmap_Kd " + name.toUtf8() + '\n'), OBJReader::CannotOpenTextureFile);
    QVERIFY(f.materials()[u"a"_s].texture.isNull());
}

void tst_OBJReaderTextures::textureIsBroken()
{
    // An image by its first bytes, and nothing behind them.
    Fixture f;
    f.folder.write(u"t.bmp"_s, QByteArray("BM") + QByteArray(20, '\0'));
    expect(warning("OBJReader::loadTexture", u"Unable to read image data"_s));
    QCOMPARE(f.readLibrary("newmtl a\nmap_Kd t.bmp\n"), OBJReader::TextureProcessingFailed);
    f.reader.setTextureSupport(SurfaceReader::TextureRequired);
    expect(warning("OBJReader::loadTexture", u"Unable to read image data"_s));
    QCOMPARE(f.reader.read("mtllib m.mtl\n" + surface, running), OBJReader::TextureProcessingFailed);
    QCOMPARE(f.reader.getErrorString(), QString());
    QVERIFY(!f.reader.isValid());
}

void tst_OBJReaderTextures::textureIsTooBigForQt()
{
    // 9000 x 9000 in 32 bits are beyond the 128 MiB that Qt allocates for an image by default.
    QByteArray bmp("BM", 2);
    auto const append = [&bmp](quint32 value, int bytes) {
        for (int i = 0; i < bytes; ++i)
            bmp += static_cast<char>(value >> (8 * i) & 0xff);
    };
    for (quint32 const value : {54u, 0u, 54u, 40u, 9000u, 9000u})
        append(value, 4);
    append(1, 2);
    append(32, 2);
    for (int i = 0; i < 6; ++i)
        append(0, 4);
    Fixture f;
    f.folder.write(u"t.bmp"_s, bmp + QByteArray(100, '\0'));
    QTest::ignoreMessage(QtWarningMsg,
                         "QImageIOHandler: Rejecting image as it exceeds the current allocation "
                         "limit of 128 megabytes");
    expect(warning("OBJReader::loadTexture", u"Unable to read image data"_s));
    QCOMPARE(f.readLibrary("newmtl a\nmap_Kd t.bmp\n"), OBJReader::TextureProcessingFailed);
}

void tst_OBJReaderTextures::textureEndsTheLibrary()
{
    Fixture f;
    expect(warning("OBJReader::loadTexture", "Texture file", f.folder.path(u"t.png"_s), "not found"));
    QCOMPARE(f.readLibrary("newmtl a\nKd 1 0 0\nmap_Kd t.png\nnewmtl b\n"), OBJReader::CannotFindTextureFile);
    QCOMPARE(f.materials().size(), 1u);
    QCOMPARE(f.materials()[u"a"_s].diffuseColor, QColor(255, 0, 0));
}

void tst_OBJReaderTextures::libraryResultCounts_data()
{
    QTest::addColumn<int>("policy");
    QTest::addColumn<int>("code");
    QTest::newRow("vertex colours optional")
        << int(SurfaceReader::VertexColorsOptional) << int(OBJReader::NoError);
    QTest::newRow("vertex colours required") << int(SurfaceReader::VertexColorsRequired)
                                             << int(OBJReader::UnableToLoadMeshWithCurrentTextureSupportFlag);
    QTest::newRow("texture optional") << int(SurfaceReader::TextureOptional) << int(OBJReader::NoError);
    QTest::newRow("texture required")
        << int(SurfaceReader::TextureRequired) << int(OBJReader::CannotFindTextureFile);
}

void tst_OBJReaderTextures::libraryResultCounts()
{
    QFETCH(int, policy);
    QFETCH(int, code);
    Fixture f;
    f.folder.write(u"m.mtl"_s, "newmtl a\nmap_Kd t.png\n");
    f.reader.setTextureSupport(SurfaceReader::TextureSupport(policy));
    expect(warning("OBJReader::loadTexture", "Texture file", f.folder.path(u"t.png"_s), "not found"));
    if (code == OBJReader::UnableToLoadMeshWithCurrentTextureSupportFlag)
        expect(warning("OBJReader: Unable to load mesh with this TextureSupport flag:", policy));
    QCOMPARE(int(f.reader.read("mtllib m.mtl\nusemtl a\n" + surface, running)), code);
    QCOMPARE(f.reader.getError(), code == OBJReader::CannotFindTextureFile ? OBJReader::CannotFindTextureFile
                                                                           : OBJReader::NoError);
}

void tst_OBJReaderTextures::keepsWhatWasReadBeforeTheFailure()
{
    Fixture f;
    f.folder.writeImage(u"t.png"_s, support::plainImage(2, 2, Qt::blue));
    f.folder.write(u"m.mtl"_s, "newmtl a\nmap_Kd t.png\nnewmtl b\nmap_Kd missing.png\n");
    f.reader.setTextureSupport(SurfaceReader::TextureOptional);
    expect(warning("OBJReader::loadTexture", "Texture file", f.folder.path(u"missing.png"_s), "not found"));
    QCOMPARE(f.reader.read("mtllib m.mtl\nusemtl a\n" + surface, running), OBJReader::NoError);
    QCOMPARE(f.reader.getTexture().size(), QSize(2, 2));
}

QTEST_APPLESS_MAIN(tst_OBJReaderTextures)
#include "tst_OBJReaderTextures.moc"
