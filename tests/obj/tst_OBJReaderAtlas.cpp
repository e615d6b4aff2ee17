#include "obj/OBJReader.h"
#include "support/Meshes.h"
#include "support/ObjFiles.h"
#include "support/PrivateAccess.h"

#include <QTest>

#include <random>

using namespace Qt::StringLiterals;

namespace support {

struct MaterialTable
{
    using Member = std::map<QString, OBJReader::ObjMaterial> OBJReader::*;
    friend Member privateMember(MaterialTable);
};
template struct PrivateMember<MaterialTable, &OBJReader::materials>;

struct BuildAtlas
{
    using Member = OBJReader::Error (OBJReader::*)(OBJReader::Atlas&) const;
    friend Member privateMember(BuildAtlas);
};
template struct PrivateMember<BuildAtlas, &OBJReader::buildTextureAtlas>;

struct GenerateImage
{
    using Member = OBJReader::Error (OBJReader::*)(OBJReader::Atlas&) const;
    friend Member privateMember(GenerateImage);
};
template struct PrivateMember<GenerateImage, &OBJReader::generateAtlasImage>;

struct AdjustUVs
{
    using Member = void (OBJReader::*)(OBJReader::Atlas&, OBJReader::MaterialUsage const&, QList<int> const&,
                                       QList<QVector2D>&);
    friend Member privateMember(AdjustUVs);
};
template struct PrivateMember<AdjustUVs, &OBJReader::adjustUVs>;

struct Combine
{
    using Member = OBJReader::Error (OBJReader::*)(OBJReader::MaterialUsage const&, QList<int> const&,
                                                   QList<QVector2D>&);
    friend Member privateMember(Combine);
};
template struct PrivateMember<Combine, &OBJReader::combineTexturesAndAdjustUVs>;

} // namespace support

namespace {

std::atomic<bool> const running = false;
using Usage = OBJReader::MaterialUsage;
char const* const tooBig = "Could not create texture atlas successfully. Images might be too big.";

struct Fixture
{
    OBJReader reader;

    void add(QString const& name, QImage const& texture) { materials()[name].texture = texture; }
    std::map<QString, OBJReader::ObjMaterial>& materials()
    {
        return reader.*privateMember(support::MaterialTable());
    }
    OBJReader::Error build(OBJReader::Atlas& atlas)
    {
        return (reader.*privateMember(support::BuildAtlas()))(atlas);
    }
    OBJReader::Error combine(Usage const& usage, QList<int> const& indices, QList<QVector2D>& uvs)
    {
        return (reader.*privateMember(support::Combine()))(usage, indices, uvs);
    }
};

/// Where the region of a material lies in the rows of the image.
QRect rowsOf(QRect const& region, int atlasHeight)
{
    return {region.x(), atlasHeight - region.y() - region.height(), region.width(), region.height()};
}

QRect boundsOf(std::map<QString, QRect> const& placements)
{
    QRect bounds;
    for (auto const& [name, region] : placements)
        bounds |= region;
    return bounds;
}

QImage noise(std::mt19937& random, QSize size)
{
    QImage image(size, QImage::Format_ARGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, 0xff000000u | static_cast<QRgb>(random()));
    return image;
}

} // namespace

class tst_OBJReaderAtlas : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsEmpty();
    void combinesNothing_data();
    void combinesNothing();
    void oneMaterialKeepsItsTexture();
    void twoSquares();
    void showsRedWhereNoTextureIs();
    void transparentTexturesBlendWithRed();
    void drawsHighResolutionsInFull();
    void drawsFormats_data();
    void drawsFormats();
    void packsRandomTextures_data();
    void packsRandomTextures();
    void tooBigForTheAtlas_data();
    void tooBigForTheAtlas();
    void imageBeyondTheLimit_data();
    void imageBeyondTheLimit();
    void missingPlacementsAreInserted();
    void movesCoordinates();
    void movesCoordinatesOutsideTheUnitSquare();
    void sharedVerticesMoveOnce();
    void verticesWithoutMaterialStay();
    void failureKeepsMaterials();
    void fileWithTwoTextures();
    void fileWithATooBigTexture();
    void oneTextureIsNotLimited();
};

void tst_OBJReaderAtlas::startsEmpty()
{
    OBJReader::Atlas const atlas;
    QVERIFY(atlas.rect.isNull());
    QVERIFY(atlas.placements.empty());
    QVERIFY(atlas.image.isNull());
}

void tst_OBJReaderAtlas::combinesNothing_data()
{
    QTest::addColumn<bool>("isUsed");
    QTest::addColumn<bool>("isTextured");
    QTest::addColumn<bool>("hasCoordinates");
    QTest::newRow("nothing used") << false << true << true;
    QTest::newRow("no texture") << true << false << true;
    QTest::newRow("no coordinates") << true << true << false;
}

void tst_OBJReaderAtlas::combinesNothing()
{
    QFETCH(bool, isUsed);
    QFETCH(bool, isTextured);
    QFETCH(bool, hasCoordinates);
    Fixture f;
    f.add(u"a"_s, isTextured ? support::plainImage(2, 2, Qt::blue) : QImage());
    QList<QVector2D> uvs = {{0.5f, 0.5f}};
    if (!hasCoordinates)
        uvs.clear();
    QList<QVector2D> const before = uvs;
    Usage const usage = isUsed ? Usage{{u"a"_s, {0}}, {u"b"_s, {1}}} : Usage{};
    QCOMPARE(f.combine(usage, {0, 0, 0, -1, 0, 0, 0, -1}, uvs), OBJReader::NoError);
    QVERIFY(f.reader.getTexture().isNull());
    QCOMPARE(uvs, before);
    QVERIFY(f.materials().empty());
}

void tst_OBJReaderAtlas::oneMaterialKeepsItsTexture()
{
    Fixture f;
    QImage const image = support::placeImage(10, 20);
    f.add(u"a"_s, image);
    QList<QVector2D> uvs = {{0.25f, 0.75f}, {5, -5}};
    QCOMPARE(f.combine({{u"a"_s, {0}}}, {0, 1, 0, -1}, uvs), OBJReader::NoError);
    QCOMPARE(f.reader.getTexture(), image);
    QCOMPARE(uvs, QList<QVector2D>({{0.25f, 0.75f}, {5, -5}}));
    QVERIFY(f.materials().empty());
}

void tst_OBJReaderAtlas::twoSquares()
{
    Fixture f;
    f.add(u"a"_s, support::plainImage(512, 512, Qt::blue));
    f.add(u"b"_s, support::plainImage(512, 512, Qt::green));
    OBJReader::Atlas atlas;
    QCOMPARE(f.build(atlas), OBJReader::NoError);
    QCOMPARE(atlas.rect, QRect(0, 0, 512, 1024));
    QCOMPARE(atlas.placements.size(), 2u);
    // y counts from the bottom, so that the first one is in the lower rows of the image.
    QCOMPARE(atlas.placements[u"a"_s], QRect(0, 0, 512, 512));
    QCOMPARE(atlas.placements[u"b"_s], QRect(0, 512, 512, 512));
    QCOMPARE(atlas.image.size(), QSize(512, 1024));
    QCOMPARE(atlas.image.format(), QImage::Format_ARGB32);
    QCOMPARE(atlas.image.copy(0, 512, 512, 512), support::plainImage(512, 512, Qt::blue));
    QCOMPARE(atlas.image.copy(0, 0, 512, 512), support::plainImage(512, 512, Qt::green));
}

void tst_OBJReaderAtlas::showsRedWhereNoTextureIs()
{
    Fixture f;
    f.add(u"a"_s, support::plainImage(4, 4, Qt::blue));
    f.add(u"b"_s, support::plainImage(1, 1, Qt::green));
    OBJReader::Atlas atlas;
    QCOMPARE(f.build(atlas), OBJReader::NoError);
    QRegion covered;
    for (auto const& [name, region] : atlas.placements)
        covered |= rowsOf(region, atlas.rect.height());
    int redCount = 0;
    for (int y = 0; y < atlas.rect.height(); ++y) {
        for (int x = 0; x < atlas.rect.width(); ++x) {
            bool const isRed = atlas.image.pixelColor(x, y) == QColor(255, 0, 0, 255);
            QCOMPARE(isRed, !covered.contains(QPoint(x, y)));
            redCount += isRed;
        }
    }
    QVERIFY(redCount > 0);
}

void tst_OBJReaderAtlas::transparentTexturesBlendWithRed()
{
    Fixture f;
    f.add(u"a"_s, support::plainImage(4, 4, QColor(0, 0, 255, 0)));
    f.add(u"b"_s, support::plainImage(4, 4, QColor(0, 0, 255, 128)));
    OBJReader::Atlas atlas;
    QCOMPARE(f.build(atlas), OBJReader::NoError);
    auto const colorOf = [&](QString const& name) {
        return atlas.image.pixelColor(rowsOf(atlas.placements[name], atlas.rect.height()).center());
    };
    QCOMPARE(colorOf(u"a"_s), QColor(255, 0, 0, 255));
    QCOMPARE(colorOf(u"b"_s), QColor(127, 0, 128, 255));
}

void tst_OBJReaderAtlas::drawsHighResolutionsInFull()
{
    // Qt says of "skin@2x.png" that two of its pixels make one of the screen; here a pixel is a pixel.
    support::ObjFolder const folder;
    folder.writeImage(u"skin@2x.png"_s, support::placeImage(12, 8));
    folder.writeImage(u"b.png"_s, support::plainImage(3, 3, Qt::green));
    folder.write(u"m.mtl"_s, "newmtl a\nmap_Kd skin@2x.png\nnewmtl b\nmap_Kd b.png\n");
    OBJReader reader;
    reader.setFileName(folder.path(u"scan.obj"_s));
    reader.setTextureSupport(SurfaceReader::TextureRequired);
    QCOMPARE(
        reader.read(
            QByteArray("mtllib m.mtl\nv 0 0 0\nvt 0 0\nusemtl b\nf 1/1 1/1 1/1\nusemtl a\nf 1/1 1/1 1/1\n"),
            running),
        OBJReader::NoError);
    QImage const atlas = reader.getTexture();
    QCOMPARE(atlas.copy(0, atlas.height() - 8, 12, 8), support::placeImage(12, 8));
}

void tst_OBJReaderAtlas::drawsFormats_data()
{
    QTest::addColumn<int>("format");
    for (QImage::Format const format :
         {QImage::Format_RGB32, QImage::Format_ARGB32_Premultiplied, QImage::Format_RGB888,
          QImage::Format_Grayscale8, QImage::Format_Indexed8, QImage::Format_RGBA64, QImage::Format_RGBX8888})
        QTest::addRow("%d", int(format)) << int(format);
}

void tst_OBJReaderAtlas::drawsFormats()
{
    QFETCH(int, format);
    QImage gray = support::plainImage(5, 5, QColor(80, 80, 80));
    gray = format == QImage::Format_Indexed8
               ? gray.convertToFormat(QImage::Format_Indexed8, QList<QRgb>{qRgb(80, 80, 80)})
               : gray.convertToFormat(QImage::Format(format));
    Fixture f;
    f.add(u"a"_s, gray);
    f.add(u"b"_s, support::plainImage(5, 5, Qt::green));
    OBJReader::Atlas atlas;
    QCOMPARE(f.build(atlas), OBJReader::NoError);
    QCOMPARE(atlas.image.copy(rowsOf(atlas.placements[u"a"_s], atlas.rect.height())),
             support::plainImage(5, 5, QColor(80, 80, 80)));
}

void tst_OBJReaderAtlas::packsRandomTextures_data()
{
    QTest::addColumn<unsigned int>("seed");
    QTest::addColumn<int>("count");
    for (unsigned int seed = 1; seed <= 10; ++seed)
        QTest::addRow("%u", seed) << seed << static_cast<int>(2 + 3 * seed);
}

void tst_OBJReaderAtlas::packsRandomTextures()
{
    QFETCH(unsigned int, seed);
    QFETCH(int, count);
    std::mt19937 random(seed);
    Fixture f;
    std::map<QString, QImage> textures;
    for (int i = 0; i < count; ++i) {
        QSize const size(1 + static_cast<int>(random() % 60), 1 + static_cast<int>(random() % 60));
        QString const name = u"m%1"_s.arg(i);
        textures[name] = noise(random, size);
        f.add(name, textures[name]);
    }
    OBJReader::Atlas atlas;
    QCOMPARE(f.build(atlas), OBJReader::NoError);
    QCOMPARE(atlas.rect, boundsOf(atlas.placements));
    QCOMPARE(atlas.image.size(), atlas.rect.size());
    QCOMPARE(atlas.placements.size(), textures.size());
    QRegion covered;
    for (auto const& [name, region] : atlas.placements) {
        QVERIFY(!covered.intersects(region));
        covered |= region;
        // Every texture is there, pixel by pixel and the right way up.
        QCOMPARE(atlas.image.copy(rowsOf(region, atlas.rect.height())), textures[name]);
    }
}

void tst_OBJReaderAtlas::tooBigForTheAtlas_data()
{
    QTest::addColumn<QList<QSize>>("sizes");
    using Sizes = QList<QSize>;
    QTest::newRow("wide") << Sizes{{8193, 1}, {1, 1}};
    QTest::newRow("high") << Sizes{{1, 1}, {1, 8193}};
    QTest::newRow("together") << Sizes{{8192, 8192}, {1, 1}};
}

void tst_OBJReaderAtlas::tooBigForTheAtlas()
{
    QFETCH(QList<QSize>, sizes);
    Fixture f;
    for (qsizetype i = 0; i < sizes.size(); ++i)
        f.add(u"m%1"_s.arg(i), QImage(sizes[i], QImage::Format_Mono));
    OBJReader::Atlas atlas;
    QTest::ignoreMessage(QtWarningMsg, tooBig);
    QCOMPARE(f.build(atlas), OBJReader::TextureProcessingFailed);
    QVERIFY(atlas.image.isNull());
    QVERIFY(atlas.rect.isNull());
}

void tst_OBJReaderAtlas::imageBeyondTheLimit_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("code");
    QTest::newRow("widest") << QSize(8192, 1) << int(OBJReader::NoError);
    QTest::newRow("highest") << QSize(1, 8192) << int(OBJReader::NoError);
    QTest::newRow("too wide") << QSize(8193, 1) << int(OBJReader::TextureProcessingFailed);
    QTest::newRow("too high") << QSize(1, 8193) << int(OBJReader::TextureProcessingFailed);
    // Compared as unsigned numbers.
    QTest::newRow("negative") << QSize(-1, 1) << int(OBJReader::TextureProcessingFailed);
    QTest::newRow("empty") << QSize(0, 0) << int(OBJReader::TextureProcessingFailed);
}

void tst_OBJReaderAtlas::imageBeyondTheLimit()
{
    QFETCH(QSize, size);
    Fixture f;
    OBJReader::Atlas atlas;
    atlas.rect = QRect(QPoint(0, 0), size);
    QTEST(int((f.reader.*privateMember(support::GenerateImage()))(atlas)), "code");
}

void tst_OBJReaderAtlas::missingPlacementsAreInserted()
{
    Fixture f;
    f.add(u"a"_s, support::plainImage(2, 2, Qt::blue));
    OBJReader::Atlas atlas;
    atlas.rect = QRect(0, 0, 4, 4);
    QCOMPARE((f.reader.*privateMember(support::GenerateImage()))(atlas), OBJReader::NoError);
    QCOMPARE(atlas.placements[u"a"_s], QRect());
    QCOMPARE(atlas.image.copy(0, 2, 2, 2), support::plainImage(2, 2, Qt::blue));
}

void tst_OBJReaderAtlas::movesCoordinates()
{
    Fixture f;
    f.add(u"a"_s, support::plainImage(30, 20, Qt::blue));
    f.add(u"b"_s, support::plainImage(7, 50, Qt::green));
    OBJReader::Atlas atlas;
    atlas.rect = QRect(0, 0, 37, 53);
    atlas.placements = {{u"a"_s, {7, 3, 30, 20}}, {u"b"_s, {0, 1, 7, 50}}};
    QList<QVector2D> const before = {{0, 0}, {1, 1}, {0.3f, 0.7f}, {0, 0}, {1, 1}, {0.3f, 0.7f}};
    QList<QVector2D> uvs = before;
    (f.reader.*privateMember(support::AdjustUVs()))(atlas, {{u"a"_s, {1}}, {u"b"_s, {0}}},
                                                    {3, 4, 5, -1, 0, 1, 2, -1}, uvs);
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(uvs[i].x(), before[i].x() * (30.0f / 37.0f) + 7.0f / 37.0f);
        QCOMPARE(uvs[i].y(), before[i].y() * (20.0f / 53.0f) + 3.0f / 53.0f);
        QCOMPARE(uvs[i + 3].x(), before[i].x() * (7.0f / 37.0f) + 0.0f / 37.0f);
        QCOMPARE(uvs[i + 3].y(), before[i].y() * (50.0f / 53.0f) + 1.0f / 53.0f);
    }
}

void tst_OBJReaderAtlas::movesCoordinatesOutsideTheUnitSquare()
{
    // Nothing is wrapped: such a coordinate falls into the neighbour or outside.
    Fixture f;
    f.add(u"a"_s, support::plainImage(2, 2, Qt::blue));
    f.add(u"b"_s, support::plainImage(2, 2, Qt::green));
    QList<QVector2D> uvs = {{1.5f, -1}, {0.5f, 0.5f}};
    QCOMPARE(f.combine({{u"a"_s, {0}}, {u"b"_s, {1}}}, {0, 0, 0, -1, 1, 1, 1, -1}, uvs), OBJReader::NoError);
    QCOMPARE(f.reader.getTexture().size(), QSize(2, 4));
    QCOMPARE(uvs, QList<QVector2D>({{1.5f, -0.5f}, {0.5f, 0.75f}}));
}

void tst_OBJReaderAtlas::sharedVerticesMoveOnce()
{
    Fixture f;
    f.add(u"a"_s, support::plainImage(2, 2, Qt::blue));
    f.add(u"b"_s, support::plainImage(2, 2, Qt::green));
    QList<QVector2D> uvs = {{1, 1}, {1, 1}};
    QCOMPARE(f.combine({{u"a"_s, {0, 1, 2}}, {u"b"_s, {3}}},
                       {0, 0, 0, -1, 0, 0, 0, -1, 0, 0, 0, -1, 1, 1, 1, -1}, uvs),
             OBJReader::NoError);
    QCOMPARE(uvs, QList<QVector2D>({{1, 0.5f}, {1, 1}}));
}

void tst_OBJReaderAtlas::verticesWithoutMaterialStay()
{
    Fixture f;
    f.add(u"a"_s, support::plainImage(2, 2, Qt::blue));
    f.add(u"b"_s, support::plainImage(2, 2, Qt::green));
    QList<QVector2D> uvs = {{1, 1}, {1, 1}, {0.75f, 1}};
    QCOMPARE(f.combine({{u"a"_s, {0}}, {u"b"_s, {2}}}, {0, 0, 0, -1, 2, 2, 2, -1, 1, 1, 1, -1}, uvs),
             OBJReader::NoError);
    QCOMPARE(uvs, QList<QVector2D>({{1, 0.5f}, {1, 1}, {0.75f, 1}}));
}

void tst_OBJReaderAtlas::failureKeepsMaterials()
{
    Fixture f;
    f.add(u"a"_s, QImage(8193, 1, QImage::Format_Mono));
    f.add(u"b"_s, QImage(1, 1, QImage::Format_Mono));
    QList<QVector2D> uvs = {{1, 1}};
    QTest::ignoreMessage(QtWarningMsg, tooBig);
    QCOMPARE(f.combine({{u"a"_s, {0}}, {u"b"_s, {1}}}, {0, 0, 0, -1, 0, 0, 0, -1}, uvs),
             OBJReader::TextureProcessingFailed);
    QCOMPARE(f.materials().size(), 2u);
    QCOMPARE(uvs, QList<QVector2D>({{1, 1}}));
}

void tst_OBJReaderAtlas::fileWithTwoTextures()
{
    support::ObjFolder const folder;
    folder.writeImage(u"a.png"_s, support::plainImage(512, 512, Qt::blue));
    folder.writeImage(u"b.png"_s, support::plainImage(512, 512, Qt::green));
    folder.write(u"m.mtl"_s, "newmtl a\nmap_Kd a.png\nnewmtl b\nmap_Kd b.png\nnewmtl unused\nmap_Kd a.png\n");
    QByteArray const text = "mtllib m.mtl\nv 0 0 0\nv 1 0 0\nv 0 1 0\nvt 0 0\nvt 1 1\nvt 0.5 0.25\nvt 9 9\n"
                            "usemtl b\nf 1/1 2/2 3/3\nusemtl a\nf 1/1 2/2 3/3\n";
    OBJReader reader;
    reader.setFileName(folder.path(u"scan.obj"_s));
    reader.setTextureSupport(SurfaceReader::TextureRequired);
    QCOMPARE(reader.read(text, running), OBJReader::NoError);
    QCOMPARE(reader.getTexture().size(), QSize(512, 1024));
    QCOMPARE(reader.getMesh().indices, QList<int>({0, 1, 2, -1, 3, 4, 5, -1}));
    QCOMPARE(reader.getMesh().textureCoordinates,
             QList<QVector2D>({{0, 0.5f}, {1, 1}, {0.5f, 0.625f}, {0, 0}, {1, 0.5f}, {0.5f, 0.125f}}));
    // As the atlas is the texture that colours are looked up in: v = 0.625 lies in "b", v = 0.125 in "a".
    reader.setTextureSupport(SurfaceReader::VertexColorsRequired);
    QCOMPARE(reader.read(text, running), OBJReader::NoError);
    QVERIFY(reader.getTexture().isNull());
    QCOMPARE(reader.getMesh().colors[2], 0xff00ff00u);
    QCOMPARE(reader.getMesh().colors[5], 0xffff0000u);
}

void tst_OBJReaderAtlas::fileWithATooBigTexture()
{
    support::ObjFolder const folder;
    folder.writeImage(u"a.png"_s, QImage(8193, 1, QImage::Format_Mono));
    folder.writeImage(u"b.png"_s, support::plainImage(1, 1, Qt::green));
    folder.write(u"m.mtl"_s, "newmtl a\nmap_Kd a.png\nnewmtl b\nmap_Kd b.png\n");
    for (int policy = 0; policy < 4; ++policy) {
        OBJReader reader;
        reader.setFileName(folder.path(u"scan.obj"_s));
        reader.setTextureSupport(SurfaceReader::TextureSupport(policy));
        QTest::ignoreMessage(QtWarningMsg, tooBig);
        QCOMPARE(reader.read(
                     QByteArray(
                         "mtllib m.mtl\nv 0 0 0\nvt 0 0\nusemtl b\nf 1/1 1/1 1/1\nusemtl a\nf 1/1 1/1 1/1\n"),
                     running),
                 OBJReader::TextureProcessingFailed);
        QCOMPARE(reader.getError(), OBJReader::NoError);
        QVERIFY(reader.getMesh().isNull());
    }
}

void tst_OBJReaderAtlas::oneTextureIsNotLimited()
{
    support::ObjFolder const folder;
    folder.writeImage(u"a.png"_s, QImage(8193, 1, QImage::Format_Mono));
    folder.write(u"m.mtl"_s, "newmtl a\nmap_Kd a.png\n");
    OBJReader reader;
    reader.setFileName(folder.path(u"scan.obj"_s));
    reader.setTextureSupport(SurfaceReader::TextureRequired);
    QCOMPARE(reader.read(QByteArray("mtllib m.mtl\nv 0 0 0\nvt 0 0\nusemtl a\nf 1/1 1/1 1/1\n"), running),
             OBJReader::NoError);
    QCOMPARE(reader.getTexture().size(), QSize(8193, 1));
}

QTEST_APPLESS_MAIN(tst_OBJReaderAtlas)
#include "tst_OBJReaderAtlas.moc"
