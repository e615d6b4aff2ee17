#include "Program.h"
#include "StlFiles.h"
#include "ply/PLYReader.h"
#include "preview/Shading.h"

#include <QImage>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;
using support::runProgram;
using support::verify;

namespace {

constexpr int materials = 16;
constexpr int facesOfMaterial = 2;
constexpr int faces = materials * facesOfMaterial;
constexpr int samplesOfFace = 500;
// Texture coordinates are moved and scaled in single precision.
constexpr double slack = 0.05;

// The same numbers on every run and platform.
class Numbers
{
public:
    quint32 next() { return state = state * 1664525u + 1013904223u; }
    float nextFraction() { return static_cast<float>(next() >> 8) / static_cast<float>(1 << 24); }

private:
    quint32 state = 1;
};

struct Face
{
    int material = 0;
    std::array<QVector3D, 3> positions;
    std::array<QVector2D, 3> textureCoordinates;
};

/// What a lookup between four pixels is made of: what those inside the image give, and the weight of the
/// others.
struct Footprint
{
    std::array<double, 3> inside = {0, 0, 0};
    double outsideWeight = 0;
};

Footprint footprintAt(QImage const& image, QVector2D const& uv)
{
    double const x = static_cast<double>(uv.x()) * image.width() - 0.5;
    double const y = (1.0 - static_cast<double>(uv.y())) * image.height() - 0.5;
    int const left = static_cast<int>(std::floor(x));
    int const top = static_cast<int>(std::floor(y));
    Footprint footprint;
    for (int dy = 0; dy < 2; ++dy) {
        for (int dx = 0; dx < 2; ++dx) {
            double const weight = (dx == 1 ? x - left : 1 - (x - left)) * (dy == 1 ? y - top : 1 - (y - top));
            if (!image.valid(left + dx, top + dy)) {
                footprint.outsideWeight += weight;
                continue;
            }
            QRgb const pixel = image.pixel(left + dx, top + dy);
            footprint.inside[0] += weight * qRed(pixel);
            footprint.inside[1] += weight * qGreen(pixel);
            footprint.inside[2] += weight * qBlue(pixel);
        }
    }
    return footprint;
}

bool isWithin(QRgb color, Footprint const& footprint)
{
    constexpr double rounding = 0.5;
    std::array const channels = {qRed(color), qGreen(color), qBlue(color)};
    for (std::size_t i = 0; i < channels.size(); ++i) {
        double const value = channels[i];
        if (value < footprint.inside[i] - slack - rounding ||
            value > footprint.inside[i] + 255 * footprint.outsideWeight + slack + rounding)
            return false;
    }
    return true;
}

template <typename Vector>
Vector between(std::array<Vector, 3> const& corners, QVector3D const& weights)
{
    return corners[0] * weights.x() + corners[1] * weights.y() + corners[2] * weights.z();
}

QVector3D nextWeights(Numbers& numbers)
{
    float const a = numbers.nextFraction();
    float const b = numbers.nextFraction();
    return a + b <= 1 ? QVector3D(a, b, 1 - a - b) : QVector3D(1 - a, 1 - b, a + b - 1);
}

} // namespace

// An OBJ file with 16 textures and what "atlas" makes of it show the same, everywhere.
class tst_AtlasPair : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(folder.isValid());
        makeTextures();
        makeFaces();
        writeScan();
        verify(
            runProgram({u"atlas"_s, u"scan.obj"_s, u"--image"_s, u"atlas.png"_s, u"--mesh"_s, u"scan.ply"_s},
                       folder.path()),
            0, {}, {});
        PLYReader reader(PLYReader::MeshMode);
        reader.setFileName(folder.filePath(u"scan.ply"_s));
        reader.setTextureSupport(SurfaceReader::TextureRequired);
        std::atomic<bool> const cancel = false;
        QVERIFY(reader.read(cancel));
        mesh = reader.getMesh();
        atlas = reader.getTexture();
    }

    void sameFaces()
    {
        QCOMPARE(mesh.indices.size(), 4 * faces);
        for (int face = 0; face < faces; ++face) {
            for (int corner = 0; corner < 3; ++corner)
                QCOMPARE(mesh.vertices[mesh.indices[4 * face + corner]], scan[face].positions[corner]);
        }
    }

    void sameColoursEverywhere()
    {
        Numbers numbers;
        int wholeFootprints = 0;
        for (int face = 0; face < faces; ++face) {
            std::array<QVector2D, 3> const moved = movedCoordinates(face);
            for (int sample = 0; sample < samplesOfFace; ++sample) {
                QVector3D const weights = nextWeights(numbers);
                Footprint const expected = footprintAt(textures[scan[face].material],
                                                       between(scan[face].textureCoordinates, weights));
                QVector2D const uv = between(moved, weights);
                QVERIFY(isWithin(tool::preview::textureColor(atlas, uv.x(), uv.y()), expected));
                wholeFootprints += expected.outsideWeight == 0;
            }
        }
        // Most of them: the textures are 9 pixels wide and more.
        QVERIFY(wholeFootprints > faces * samplesOfFace * 3 / 4);
    }

    void samePreview()
    {
        for (QString const& view : {u"occlusal"_s, u"iso"_s}) {
            verify(preview(u"scan.obj"_s, view), 0, {}, {});
            verify(preview(u"scan.ply"_s, view), 0, {}, {});
            QByteArray const fromObj = support::readFile(folder.filePath(u"scan.obj.png"_s));
            QVERIFY(!fromObj.isEmpty());
            QVERIFY(fromObj == support::readFile(folder.filePath(u"scan.ply.png"_s)));
        }
    }

private:
    // Noise, so that no neighbouring pixel could pass for another.
    void makeTextures()
    {
        Numbers numbers;
        for (int i = 0; i < materials; ++i) {
            QImage image(9 + static_cast<int>(numbers.next() >> 27),
                         9 + static_cast<int>(numbers.next() >> 26),
                         i % 3 == 0 ? QImage::Format_ARGB32 : QImage::Format_RGB32);
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x)
                    image.setPixel(x, y, 0xFF000000u | numbers.next() >> 8);
            }
            if (i % 5 == 1)
                image = image.convertToFormat(QImage::Format_Grayscale8);
            QString const path = folder.filePath(textureName(i));
            QVERIFY(image.save(path));
            textures[static_cast<std::size_t>(i)] = QImage(path).convertToFormat(QImage::Format_ARGB32);
        }
    }

    // Squares in a grid, each of one material, with corners anywhere in its texture.
    void makeFaces()
    {
        Numbers numbers;
        for (int face = 0; face < faces; ++face) {
            int const square = face / facesOfMaterial;
            float const x = 10.0f * static_cast<float>(square % 4);
            float const y = 10.0f * static_cast<float>(square / 4);
            std::array const corners = {QVector3D(x, y, 0), QVector3D(x + 10, y, 1),
                                        QVector3D(x + 10, y + 10, 0), QVector3D(x, y + 10, 2)};
            Face& made = scan[static_cast<std::size_t>(face)];
            made.material = square * 7 % materials;
            made.positions = face % 2 == 0 ? std::array{corners[0], corners[1], corners[2]}
                                           : std::array{corners[0], corners[2], corners[3]};
            for (QVector2D& uv : made.textureCoordinates)
                uv = {numbers.nextFraction(), numbers.nextFraction()};
        }
        scan[0].textureCoordinates = {QVector2D(0, 0), QVector2D(1, 0), QVector2D(1, 1)};
    }

    void writeScan()
    {
        QByteArray obj = "mtllib scan.mtl\n";
        QByteArray mtl;
        for (int i = 0; i < materials; ++i)
            mtl += "newmtl m" + QByteArray::number(i) + "\nmap_Kd " + textureName(i).toUtf8() + '\n';
        // Positions of both faces of a square stand twice, so that there are fewer of them than coordinates:
        // one vertex for all that stand alike.
        int corner = 0;
        for (Face const& face : scan) {
            obj += "usemtl m" + QByteArray::number(face.material) + "\nf";
            for (int k = 0; k < 3; ++k, ++corner)
                obj += ' ' + QByteArray::number(corner + 1) + '/' + QByteArray::number(corner + 2);
            obj += '\n';
        }
        obj += "vt 0.5 0.5\n"; // in no face; keeps the lists from being as long as one another
        for (Face const& face : scan) {
            for (int k = 0; k < 3; ++k) {
                QVector3D const p = face.positions[static_cast<std::size_t>(k)];
                QVector2D const t = face.textureCoordinates[static_cast<std::size_t>(k)];
                obj += line("v", {p.x(), p.y(), p.z()}) + line("vt", {t.x(), t.y()});
            }
        }
        QVERIFY(support::writeFile(folder.filePath(u"scan.obj"_s), obj));
        QVERIFY(support::writeFile(folder.filePath(u"scan.mtl"_s), mtl));
    }

    static QByteArray line(QByteArray const& keyword, std::initializer_list<float> numbers)
    {
        QByteArray text = keyword;
        for (float const number : numbers)
            text += ' ' + QByteArray::number(static_cast<double>(number), 'g', 9);
        return text + '\n';
    }

    static QString textureName(int material) { return u"texture %1.png"_s.arg(material); }

    std::array<QVector2D, 3> movedCoordinates(int face) const
    {
        std::array<QVector2D, 3> moved;
        for (int corner = 0; corner < 3; ++corner)
            moved[static_cast<std::size_t>(corner)] =
                mesh.textureCoordinates[mesh.indices[4 * face + corner]];
        return moved;
    }

    support::Outcome preview(QString const& name, QString const& view)
    {
        return runProgram({u"preview"_s, name, u"-o"_s, name + u".png"_s, u"--size"_s, u"200"_s, u"--view"_s,
                           view, u"--force"_s},
                          folder.path());
    }

    QTemporaryDir folder;
    std::array<QImage, materials> textures;
    std::array<Face, faces> scan;
    geometry::Mesh mesh;
    QImage atlas;
};

QTEST_GUILESS_MAIN(tst_AtlasPair)
#include "tst_AtlasPair.moc"
