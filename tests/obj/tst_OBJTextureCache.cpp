#include "obj/OBJTextureCache.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

OBJTexture textureOf(QImage const& image)
{
    return {image, OBJReader::NoError, {}};
}

// 32 MiB each, so that the third one that is inserted finds more than 64 MiB before it.
QImage largeImage(Qt::GlobalColor color)
{
    QImage image(4096, 2049, QImage::Format_ARGB32);
    image.fill(color);
    return image;
}

} // namespace

class tst_OBJTextureCache : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsWhatWasInserted();
    void sharesPixels();
    void keepsSmallImages();
    void dropsLargeImagesThatNobodyHas();
    void keepsLargeImagesThatSomebodyHas();
    void keepsLargeImagesThatAreAskedForAgain();
    void keepsFailures();
};

void tst_OBJTextureCache::findsWhatWasInserted()
{
    OBJTextureCache cache;
    QVERIFY(!cache.find(u"a"_s));
    QVERIFY(!cache.find(QString()));
    cache.insert(u"a"_s, textureOf(QImage(2, 3, QImage::Format_ARGB32)));
    cache.insert(u"b"_s, textureOf(QImage(4, 5, QImage::Format_RGB32)));
    QCOMPARE(cache.find(u"a"_s)->image.size(), QSize(2, 3));
    QCOMPARE(cache.find(u"b"_s)->image.size(), QSize(4, 5));
    QVERIFY(!cache.find(u"A"_s));
}

void tst_OBJTextureCache::sharesPixels()
{
    OBJTextureCache cache;
    QImage const image(2, 2, QImage::Format_ARGB32);
    cache.insert(u"a"_s, textureOf(image));
    QCOMPARE(cache.find(u"a"_s)->image.cacheKey(), image.cacheKey());
}

void tst_OBJTextureCache::keepsSmallImages()
{
    OBJTextureCache cache;
    for (int i = 0; i < 1000; ++i)
        cache.insert(QString::number(i), textureOf(QImage(8, 8, QImage::Format_ARGB32)));
    for (int i = 0; i < 1000; ++i)
        QVERIFY(cache.find(QString::number(i)));
}

void tst_OBJTextureCache::dropsLargeImagesThatNobodyHas()
{
    OBJTextureCache cache;
    cache.insert(u"a"_s, textureOf(largeImage(Qt::blue)));
    cache.insert(u"b"_s, textureOf(largeImage(Qt::blue)));
    QVERIFY(cache.find(u"a"_s));
    cache.insert(u"c"_s, textureOf(largeImage(Qt::blue)));
    QVERIFY(!cache.find(u"a"_s));
    QVERIFY(!cache.find(u"b"_s));
    QVERIFY(cache.find(u"c"_s));
}

void tst_OBJTextureCache::keepsLargeImagesThatSomebodyHas()
{
    OBJTextureCache cache;
    QImage const kept = largeImage(Qt::green);
    cache.insert(u"kept"_s, textureOf(kept));
    for (int i = 0; i < 4; ++i)
        cache.insert(QString::number(i), textureOf(largeImage(Qt::blue)));
    QCOMPARE(cache.find(u"kept"_s)->image.cacheKey(), kept.cacheKey());
    QVERIFY(!cache.find(u"0"_s));
}

// So that libraries in turn cannot have large images decoded each time.
void tst_OBJTextureCache::keepsLargeImagesThatAreAskedForAgain()
{
    OBJTextureCache cache;
    for (int round = 0; round < 2; ++round)
        for (int i = 0; i < 4; ++i)
            if (!cache.find(QString::number(i)))
                cache.insert(QString::number(i), textureOf(largeImage(Qt::blue)));
    for (int i = 0; i < 4; ++i)
        QVERIFY(cache.find(QString::number(i)));
    cache.insert(u"other"_s, textureOf(largeImage(Qt::blue)));
    QVERIFY(cache.find(u"0"_s));
}

void tst_OBJTextureCache::keepsFailures()
{
    OBJTextureCache cache;
    cache.insert(u"bad"_s, {{}, OBJReader::TextureProcessingFailed, u"why"_s});
    for (int i = 0; i < 4; ++i)
        cache.insert(QString::number(i), textureOf(largeImage(Qt::blue)));
    QVERIFY(cache.find(u"bad"_s));
    QCOMPARE(cache.find(u"bad"_s)->error, OBJReader::TextureProcessingFailed);
    QCOMPARE(cache.find(u"bad"_s)->errorText, u"why"_s);
}

QTEST_APPLESS_MAIN(tst_OBJTextureCache)
#include "tst_OBJTextureCache.moc"
