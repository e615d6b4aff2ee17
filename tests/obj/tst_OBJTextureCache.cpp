#include "obj/OBJTextureCache.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

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
};

void tst_OBJTextureCache::findsWhatWasInserted()
{
    OBJTextureCache cache;
    QVERIFY(cache.find(u"a"_s).isNull());
    QVERIFY(cache.find(QString()).isNull());
    cache.insert(u"a"_s, QImage(2, 3, QImage::Format_ARGB32));
    cache.insert(u"b"_s, QImage(4, 5, QImage::Format_RGB32));
    QCOMPARE(cache.find(u"a"_s).size(), QSize(2, 3));
    QCOMPARE(cache.find(u"b"_s).size(), QSize(4, 5));
    QVERIFY(cache.find(u"A"_s).isNull());
}

void tst_OBJTextureCache::sharesPixels()
{
    OBJTextureCache cache;
    QImage const image(2, 2, QImage::Format_ARGB32);
    cache.insert(u"a"_s, image);
    QCOMPARE(cache.find(u"a"_s).cacheKey(), image.cacheKey());
}

void tst_OBJTextureCache::keepsSmallImages()
{
    OBJTextureCache cache;
    for (int i = 0; i < 1000; ++i)
        cache.insert(QString::number(i), QImage(8, 8, QImage::Format_ARGB32));
    for (int i = 0; i < 1000; ++i)
        QVERIFY(!cache.find(QString::number(i)).isNull());
}

void tst_OBJTextureCache::dropsLargeImagesThatNobodyHas()
{
    OBJTextureCache cache;
    cache.insert(u"a"_s, largeImage(Qt::blue));
    cache.insert(u"b"_s, largeImage(Qt::blue));
    QVERIFY(!cache.find(u"a"_s).isNull());
    cache.insert(u"c"_s, largeImage(Qt::blue));
    QVERIFY(cache.find(u"a"_s).isNull());
    QVERIFY(cache.find(u"b"_s).isNull());
    QVERIFY(!cache.find(u"c"_s).isNull());
}

void tst_OBJTextureCache::keepsLargeImagesThatSomebodyHas()
{
    OBJTextureCache cache;
    QImage const kept = largeImage(Qt::green);
    cache.insert(u"kept"_s, kept);
    for (int i = 0; i < 4; ++i)
        cache.insert(QString::number(i), largeImage(Qt::blue));
    QCOMPARE(cache.find(u"kept"_s).cacheKey(), kept.cacheKey());
    QVERIFY(cache.find(u"0"_s).isNull());
}

QTEST_APPLESS_MAIN(tst_OBJTextureCache)
#include "tst_OBJTextureCache.moc"
