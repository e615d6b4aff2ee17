#include "framework/ImageClaims.h"

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>

using namespace Qt::StringLiterals;

namespace {

QByteArray png()
{
    QImage image(3, 2, QImage::Format_ARGB32);
    image.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "PNG");
    return bytes;
}

QByteArray chunk(QByteArray const& type, quint32 claimed, QByteArray const& content)
{
    QByteArray length(4, '\0');
    qToBigEndian(claimed, length.data());
    return length + type + content;
}

// Behind the signature and the header, which every PNG begins with.
QByteArray withChunk(QByteArray const& more)
{
    constexpr qsizetype start = 8 + 25;
    return png().first(start) + more + png().sliced(start);
}

} // namespace

class tst_ImageClaims : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void claims_data();
    void claims();
    void noFile();
};

void tst_ImageClaims::claims_data()
{
    constexpr quint32 megabyte = 1u << 20;
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("tooMuch");
    QTest::newRow("a gigabyte of text") << withChunk(chunk("tEXt", 1u << 30, "a")) << true;
    QTest::newRow("as much as a chunk can claim") << withChunk(chunk("zTXt", 0xFFFFFFFFu, {})) << true;
    QTest::newRow("a megabyte") << withChunk(chunk("iTXt", megabyte, "a")) << true;
    QTest::newRow("a chunk of one's own") << withChunk(chunk("prIv", 1u << 30, "a")) << true;
    QTest::newRow("behind the image") << png().chopped(12) + chunk("tEXt", 1u << 30, "a") << true;
    QTest::newRow("a byte less") << withChunk(chunk("iTXt", megabyte - 1, "a")) << false;
    QTest::newRow("all there") << withChunk(chunk("tEXt", megabyte, QByteArray(megabyte + 4, 'a'))) << false;
    QTest::newRow("image data") << withChunk(chunk("IDAT", 1u << 30, "a")) << false;
    QTest::newRow("a good image") << png() << false;
    QTest::newRow("a good image and what follows") << png() + QByteArray(100, 'x') << false;
    QTest::newRow("cut in a chunk's head") << withChunk({}).first(37) << false;
    QTest::newRow("the signature") << png().first(8) << false;
    QTest::newRow("another format") << "BM" + QByteArray(100, 't') << false;
    QTest::newRow("nothing") << QByteArray() << false;
}

void tst_ImageClaims::claims()
{
    QFETCH(QByteArray, bytes);
    QTemporaryDir const folder;
    QFile file(folder.filePath(u"image.png"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
    file.close();
    QTEST(images::claimsTooMuch(file.fileName()), "tooMuch");
}

void tst_ImageClaims::noFile()
{
    QTemporaryDir const folder;
    QVERIFY(!images::claimsTooMuch(folder.path()));
    QVERIFY(!images::claimsTooMuch(folder.filePath(u"none.png"_s)));
}

QTEST_GUILESS_MAIN(tst_ImageClaims)
#include "tst_ImageClaims.moc"
