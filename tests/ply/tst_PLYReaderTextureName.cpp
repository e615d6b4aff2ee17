#include "ply/PLYReader.h"
#include "support/PlyFiles.h"

#include <QTest>

using support::plyHeader;
using support::plyPosition;

using namespace Qt::StringLiterals;

class tst_PLYReaderTextureName : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void namesTheTexture_data();
    void namesTheTexture();
};

void tst_PLYReaderTextureName::namesTheTexture_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << plyHeader(3, plyPosition, 1, {"comment TextureFile grid.png"}) << u"grid.png"_s;
    QTest::newRow("spaces") << QByteArray("ply\ncomment TextureFile a  b.png") << u"a b.png"_s;
    QTest::newRow("carriage return") << QByteArray("ply\r\ncomment TextureFile a.png\r\nend_header\r\n")
                                     << u"a.png"_s;
    QTest::newRow("first of two") << QByteArray("comment TextureFile 1\ncomment TextureFile 2\n") << u"1"_s;
    QTest::newRow("any letter case") << QByteArray("Comment textureFILE X.PNG") << u"X.PNG"_s;
    QTest::newRow("behind empty lines") << QByteArray("\n\n  \nply\n\ncomment TextureFile a") << u"a"_s;
    QTest::newRow("behind nonsense") << QByteArray("nonsense\n!\ncomment TextureFile a") << u"a"_s;
    QTest::newRow("UTF-8") << QByteArray("comment TextureFile z\xC3\xA4hne.png") << u"z\u00E4hne.png"_s;
    QTest::newRow("byte-order mark") << QByteArray("\xEF\xBB\xBF"
                                                   "comment TextureFile a")
                                     << u"a"_s;
    QTest::newRow("UTF-16") << QByteArray("\xFF\xFE"
                                          "c\0o\0m\0m\0e\0n\0t\0 \0T\0e\0x\0t\0u\0r\0e\0F\0i\0l\0e\0 \0a\0",
                                          44)
                            << u"a"_s;
    QTest::newRow("nothing") << QByteArray() << QString();
    QTest::newRow("no texture line") << support::plyTriangle() << QString();
    QTest::newRow("no name") << QByteArray("comment TextureFile\nend_header\n") << QString();
    QTest::newRow("behind the end") << QByteArray("ply\nend_header\ncomment TextureFile a") << QString();
    QTest::newRow("behind END_HEADER and more")
        << QByteArray("ply\nEND_HEADER x\ncomment TextureFile a") << QString();
    QTest::newRow("no comment") << QByteArray("obj_info TextureFile a\n") << QString();
    QTest::newRow("one word") << QByteArray("commentTextureFile a\n") << QString();
}

void tst_PLYReaderTextureName::namesTheTexture()
{
    QFETCH(QByteArray, data);
    QFETCH(QString, name);
    QCOMPARE(PLYReader::getTextureFileName(data), name);
}

QTEST_GUILESS_MAIN(tst_PLYReaderTextureName)
#include "tst_PLYReaderTextureName.moc"
