#include "inhouse/fundamentals/ColorUtil.h"
#include "obj/OBJReader.h"
#include "support/ObjFiles.h"
#include "support/PrivateAccess.h"

#include <QTest>

#include <cmath>
#include <random>

using namespace Qt::StringLiterals;

namespace support {

struct Lookup
{
    using Member = unsigned int (OBJReader::*)(float, float) const;
    friend Member privateMember(Lookup);
};
template struct PrivateMember<Lookup, &OBJReader::textureLookup>;

struct Colors
{
    using Member = QList<unsigned int> (OBJReader::*)(QList<QVector2D> const&) const;
    friend Member privateMember(Colors);
};
template struct PrivateMember<Colors, &OBJReader::determineVertexColorsFromTextureAndUvs>;

} // namespace support

namespace {

std::atomic<bool> const running = false;

/// A reader whose texture a test sets.
class Painted : public OBJReader
{
public:
    explicit Painted(QImage const& image) { texture = image; }
    unsigned int lookup(float u, float v) const { return (this->*privateMember(support::Lookup()))(u, v); }
};

unsigned int packed(int red, int green, int blue)
{
    return 0xff000000u | static_cast<unsigned>(blue) << 16 | static_cast<unsigned>(green) << 8 |
           static_cast<unsigned>(red);
}

/// The rule of the lookup, one channel at a time: pixels outside the image, and the neighbours of the last
/// column and row, count as 0.
int channelAt(QImage const& image, float u, float v, int (*channel)(QRgb))
{
    float const x = u * static_cast<float>(image.width());
    float const y = static_cast<float>(image.height()) * (1.0f - v);
    int const x0 = static_cast<int>(std::floor(x));
    int const y0 = static_cast<int>(std::floor(y));
    double const fx = x - static_cast<float>(x0);
    double const fy = y - static_cast<float>(y0);
    auto const at = [&](int px, int py) { return image.valid(px, py) ? channel(image.pixel(px, py)) : 0; };
    double const c00 = at(x0, y0);
    double const c10 = x0 < image.width() - 1 ? at(x0 + 1, y0) : 0;
    double const c01 = y0 < image.height() - 1 ? at(x0, y0 + 1) : 0;
    double const c11 = x0 < image.width() - 1 && y0 < image.height() - 1 ? at(x0 + 1, y0 + 1) : 0;
    return static_cast<int>((c11 * fx + c01 * (1 - fx)) * fy + (c10 * fx + c00 * (1 - fx)) * (1 - fy));
}

unsigned int modelLookup(QImage const& image, float u, float v)
{
    return packed(channelAt(image, u, v, qRed), channelAt(image, u, v, qGreen),
                  channelAt(image, u, v, qBlue));
}

// Upper row: red, green. Lower row: blue, white.
QImage quadrants(int side)
{
    QImage image(side, side, QImage::Format_ARGB32);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            image.setPixelColor(x, y,
                                y < side / 2 ? (x < side / 2 ? Qt::red : Qt::green)
                                             : (x < side / 2 ? Qt::blue : Qt::white));
    return image;
}

/// A square in the plane, seen from the front: x to the right, y up, u = x and v = y.
QByteArray square(QByteArray const& library, QByteArray const& material)
{
    return "mtllib " + library +
           "\nv 0.25 0.75 0\nv 0.75 0.75 0\nv 0.25 0.25 0\nv 0.75 0.25 0\nvt 0.25 0.75\nvt 0.75 0.75\nvt "
           "0.25 0.25\n"
           "vt 0.75 0.25\nusemtl " +
           material + "\nf 1/1 3/3 4/4\nf 1/1 4/4 2/2\n";
}

constexpr unsigned int red = 0xff0000ff;
constexpr unsigned int green = 0xff00ff00;
constexpr unsigned int blue = 0xffff0000;
constexpr unsigned int white = 0xffffffff;

} // namespace

class tst_OBJReaderColors : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void corners();
    void quarterOfTheLastPixel();
    void lastColumnAndRowRunTowardsBlack();
    void outsideIsBlack_data();
    void outsideIsBlack();
    void firstPixelReachesOutOfTheImage();
    void truncates();
    void ignoresAlpha();
    void followsTheRule_data();
    void followsTheRule();
    void noTextureNoColors();
    void oneColorForEachCoordinate();
    void whichWayIsUp();
    void whichWayIsUpInTheAtlas();
    void whichWayIsUpInTheTexture();
    void wildCoordinatesInAFile();
};

void tst_OBJReaderColors::corners()
{
    Painted const reader(support::placeImage(4, 4, 200));
    QCOMPARE(reader.lookup(0, 1), packed(0, 0, 200));
    QCOMPARE(reader.lookup(0.25f, 1), packed(1, 0, 200));
    QCOMPARE(reader.lookup(0, 0.75f), packed(0, 1, 200));
    QCOMPARE(reader.lookup(0.75f, 0.25f), packed(3, 3, 200));
    // Row H is outside, and so is column W.
    QCOMPARE(reader.lookup(0, 0), packed(0, 0, 0));
    QCOMPARE(reader.lookup(1, 1), packed(0, 0, 0));
    QCOMPARE(reader.lookup(1, 0), packed(0, 0, 0));
}

void tst_OBJReaderColors::quarterOfTheLastPixel()
{
    QImage image = support::plainImage(2, 2, QColor(255, 255, 255));
    image.setPixelColor(1, 1, QColor(100, 42, 255));
    QCOMPARE(Painted(image).lookup(0.75f, 0.25f), packed(25, 10, 63));
}

void tst_OBJReaderColors::lastColumnAndRowRunTowardsBlack()
{
    Painted const reader(support::plainImage(4, 4, QColor(200, 100, 40)));
    QCOMPARE(reader.lookup(0.5f, 0.5f), packed(200, 100, 40));
    QCOMPARE(reader.lookup(0.875f, 0.5f), packed(100, 50, 20));
    QCOMPARE(reader.lookup(0.5f, 0.125f), packed(100, 50, 20));
    QCOMPARE(reader.lookup(0.875f, 0.125f), packed(50, 25, 10));
    QCOMPARE(reader.lookup(0.9375f, 0.5f), packed(50, 25, 10));
}

void tst_OBJReaderColors::outsideIsBlack_data()
{
    QTest::addColumn<float>("u");
    QTest::addColumn<float>("v");
    constexpr float huge = std::numeric_limits<float>::max();
    constexpr float infinity = std::numeric_limits<float>::infinity();
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    for (float const value :
         {1.0f, 1.5f, 100.0f, -0.25f, -1.0f, -100.0f, 3e9f, -3e9f, huge, -huge, infinity, -infinity, nan}) {
        QTest::addRow("u %g", double(value)) << value << 0.5f;
        if (value != 1.0f)
            QTest::addRow("v %g", double(value)) << 0.5f << (value == -0.25f ? 1.25f : value);
        QTest::addRow("both %g", double(value)) << value << value + 1;
    }
    QTest::addRow("v 0") << 0.5f << 0.0f;
}

void tst_OBJReaderColors::outsideIsBlack()
{
    QFETCH(float, u);
    QFETCH(float, v);
    QCOMPARE(Painted(support::plainImage(4, 4, Qt::white)).lookup(u, v), packed(0, 0, 0));
}

void tst_OBJReaderColors::firstPixelReachesOutOfTheImage()
{
    // Half a pixel to the left of the image and half a pixel above it.
    Painted const reader(support::plainImage(4, 4, QColor(200, 100, 40)));
    QCOMPARE(reader.lookup(-0.125f, 0.5f), packed(100, 50, 20));
    QCOMPARE(reader.lookup(0.5f, 1.125f), packed(100, 50, 20));
    QCOMPARE(reader.lookup(-0.125f, 1.125f), packed(50, 25, 10));
    // To the right and below there is nothing of the kind.
    QCOMPARE(reader.lookup(1.125f, 0.5f), packed(0, 0, 0));
    QCOMPARE(reader.lookup(0.5f, -0.125f), packed(0, 0, 0));
}

void tst_OBJReaderColors::truncates()
{
    QImage image(2, 1, QImage::Format_ARGB32);
    image.setPixelColor(0, 0, QColor(0, 0, 0));
    image.setPixelColor(1, 0, QColor(3, 2, 255));
    QCOMPARE(Painted(image).lookup(0.25f, 1), packed(1, 1, 127));
}

void tst_OBJReaderColors::ignoresAlpha()
{
    QCOMPARE(Painted(support::plainImage(4, 4, QColor(10, 20, 30, 40))).lookup(0.5f, 0.5f),
             packed(10, 20, 30));
    QCOMPARE(Painted(support::plainImage(4, 4, QColor(10, 20, 30, 0))).lookup(0.5f, 0.5f),
             packed(10, 20, 30));
}

void tst_OBJReaderColors::followsTheRule_data()
{
    QTest::addColumn<QSize>("size");
    for (QSize const size :
         {QSize(1, 1), QSize(2, 2), QSize(3, 3), QSize(7, 5), QSize(1, 9), QSize(256, 256), QSize(1000, 3)})
        QTest::addRow("%d x %d", size.width(), size.height()) << size;
}

void tst_OBJReaderColors::followsTheRule()
{
    QFETCH(QSize, size);
    std::mt19937 random(7);
    QImage image(size, QImage::Format_ARGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, 0xff000000u | static_cast<QRgb>(random()));
    Painted const reader(image);
    for (int i = 0; i < 2000; ++i) {
        auto const coordinate = [&] { return static_cast<float>(random() >> 8) / 8388608.0f - 0.5f; };
        float const u = coordinate();
        float const v = coordinate();
        QCOMPARE(reader.lookup(u, v), modelLookup(image, u, v));
    }
}

void tst_OBJReaderColors::noTextureNoColors()
{
    Painted const reader{QImage()};
    QVERIFY((reader.*privateMember(support::Colors()))({{0.5f, 0.5f}}).isEmpty());
}

void tst_OBJReaderColors::oneColorForEachCoordinate()
{
    Painted const reader(quadrants(2));
    QCOMPARE((reader.*privateMember(support::Colors()))({{0, 1}, {0.5f, 1}, {0, 0.5f}, {0.5f, 0.5f}, {0, 1}}),
             QList<unsigned int>({red, green, blue, white, red}));
    QVERIFY((reader.*privateMember(support::Colors()))({}).isEmpty());
}

void tst_OBJReaderColors::whichWayIsUp()
{
    support::ObjFolder const folder;
    folder.writeImage(u"t.png"_s, quadrants(16));
    folder.write(u"m.mtl"_s, "newmtl a\nmap_Kd t.png\n");
    OBJReader reader;
    reader.setFileName(folder.path(u"scan.obj"_s));
    QCOMPARE(reader.read(square("m.mtl", "a"), running), OBJReader::NoError);
    QCOMPARE(reader.getMesh().vertices,
             QList<QVector3D>({{0.25f, 0.75f, 0}, {0.75f, 0.75f, 0}, {0.25f, 0.25f, 0}, {0.75f, 0.25f, 0}}));
    QCOMPARE(reader.getMesh().colors, QList<unsigned int>({red, green, blue, white}));
}

void tst_OBJReaderColors::whichWayIsUpInTheAtlas()
{
    support::ObjFolder const folder;
    folder.writeImage(u"t.png"_s, quadrants(16));
    folder.writeImage(u"other.png"_s, support::plainImage(11, 23, Qt::gray));
    folder.write(u"m.mtl"_s, "newmtl a\nmap_Kd t.png\nnewmtl b\nmap_Kd other.png\n");
    OBJReader reader;
    reader.setFileName(folder.path(u"scan.obj"_s));
    QCOMPARE(reader.read(square("m.mtl", "a") + "vt 0 0\nusemtl b\nf 1/1 2/2 3/3\n", running),
             OBJReader::NoError);
    QCOMPARE(reader.getMesh().vertices.size(), 7);
    // In order of first use: upper left, lower left, lower right, upper right.
    QCOMPARE(reader.getMesh().colors.mid(0, 4), QList<unsigned int>({red, blue, white, green}));
}

void tst_OBJReaderColors::whichWayIsUpInTheTexture()
{
    support::ObjFolder const folder;
    folder.writeImage(u"t.png"_s, quadrants(16));
    folder.write(u"m.mtl"_s, "newmtl a\nmap_Kd t.png\n");
    OBJReader reader;
    reader.setFileName(folder.path(u"scan.obj"_s));
    reader.setTextureSupport(SurfaceReader::TextureRequired);
    QCOMPARE(reader.read(square("m.mtl", "a"), running), OBJReader::NoError);
    // Image as in the file, v from its bottom row up.
    QCOMPARE(reader.getTexture().convertToFormat(QImage::Format_ARGB32), quadrants(16));
    QCOMPARE(reader.getMesh().textureCoordinates,
             QList<QVector2D>({{0.25f, 0.75f}, {0.75f, 0.75f}, {0.25f, 0.25f}, {0.75f, 0.25f}}));
}

void tst_OBJReaderColors::wildCoordinatesInAFile()
{
    support::ObjFolder const folder;
    folder.writeImage(u"t.png"_s, support::plainImage(4, 4, Qt::white));
    folder.write(u"m.mtl"_s, "newmtl a\nmap_Kd t.png\n");
    OBJReader reader;
    reader.setFileName(folder.path(u"scan.obj"_s));
    QCOMPARE(
        reader.read(
            QByteArray("mtllib m.mtl\nusemtl a\nv 0 0 0\nv 0 0 0\nv 0 0 0\nv 0 0 0\nvt nan 0.5\nvt inf -inf\n"
                       "vt 3e38 -3e38\nvt 0.5 0.5\nf 1/1 2/2 3/3\n"),
            running),
        OBJReader::NoError);
    QCOMPARE(reader.getMesh().colors,
             QList<unsigned int>({packed(0, 0, 0), packed(0, 0, 0), packed(0, 0, 0), white}));
}

QTEST_APPLESS_MAIN(tst_OBJReaderColors)
#include "tst_OBJReaderColors.moc"
