#include "PlyRows.h"
#include "ply/PLYReader.h"
#include "support/Meshes.h"
#include "support/PlyFiles.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QtNumeric>

using ply_test::triangleWith;
using support::plyColor;
using support::plyCount;
using support::plyIndices;
using support::plyLines;
using support::plyPosition;
using support::plyStart;

using namespace Qt::StringLiterals;

namespace {

std::atomic<bool> const never = false;

constexpr unsigned int opaqueBlack = 0xFF000000u;

// 2 columns, 2 rows. Packed, from the top left: 0xFF030201, 0x80060504, 0xFF090807, 0x00000000.
QImage grid()
{
    QImage image(2, 2, QImage::Format_ARGB32);
    image.setPixelColor(0, 0, QColor(1, 2, 3));
    image.setPixelColor(1, 0, QColor(4, 5, 6, 128));
    image.setPixelColor(0, 1, QColor(7, 8, 9));
    image.setPixelColor(1, 1, QColor(0, 0, 0, 0));
    return image;
}

QImage plain(QColor const& color)
{
    QImage image(1, 1, QImage::Format_ARGB32);
    image.fill(color);
    return image;
}

QByteArrayList const uvLines = {"property float u", "property float v"};

// Three vertices with these texture coordinates, and texture lines behind the format.
QByteArray texturedFile(QByteArrayList const& comments, QByteArrayList const& properties = uvLines,
                        QList<QVector2D> const& coordinates = {{0, 1}, {0.5f, 1}, {0, 0.5f}})
{
    QByteArray file =
        plyLines(plyStart + comments + QByteArrayList{plyCount("vertex", 3)} + plyPosition + properties +
                 QByteArrayList{plyCount("face", 1)} + plyIndices + QByteArrayList{"end_header"});
    for (qsizetype i = 0; i < 3; ++i)
        file += support::PLYBody()
                    .f32({ply_test::corners[i].x(), ply_test::corners[i].y(), ply_test::corners[i].z()})
                    .f32({coordinates[i].x(), coordinates[i].y()})
                    .bytes;
    return file + support::PLYBody().triangle(0, 1, 2).bytes;
}

QList<unsigned int> colorsOf(PLYReader& reader, QByteArray const& file)
{
    return reader.read(file, never) ? reader.getMesh().colors : QList<unsigned int>{0xDEADDEADu};
}

QList<unsigned int> const gridColors = {0xFF030201u, 0x80060504u, 0xFF090807u};

} // namespace

class tst_PLYReaderTexture : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void findsTheTexture_data();
    void findsTheTexture();
    void looksBesideTheFile();
    void looksInTheCurrentFolderWithoutAName();
    void missesTheTexture_data();
    void missesTheTexture();
    void takesTheOverride();
    void lastTextureCounts();
    void missingTextureKeepsTheEarlier();
    void brokenTextureReplacesTheEarlier();
    void followsThePolicy_data();
    void followsThePolicy();
    void coordinatesByAnyName_data();
    void coordinatesByAnyName();
    void coordinatesWithoutTextureAreDropped();
    void samplesWithoutClamping();
    void keepsTheTextureOfAnEarlierRead();
    void requiredTextureKeepsTheMesh();
    void pointCloudsTakeColorsOnly();

private:
    QString path(QString const& name) const { return folder.filePath(name); }

    QTemporaryDir folder;
};

void tst_PLYReaderTexture::initTestCase()
{
    QVERIFY(folder.isValid());
    QVERIFY(QDir(folder.path()).mkpath(u"sub/a folder"_s));
    QVERIFY(grid().save(path(u"grid.png"_s)));
    QVERIFY(grid().save(path(u"a b.png"_s)));
    QVERIFY(grid().save(path(u"g\u00FCte \u20AC.png"_s)));
    QVERIFY(grid().save(path(u"sub/a folder/grid.png"_s)));
    QVERIFY(QDir(folder.path()).mkpath(u"deep"_s));
    QVERIFY(QFile::link(path(u"sub"_s), path(u"deep/link"_s)));
    QVERIFY(grid().save(path(u"grid.jpg"_s), "PNG"));
    QVERIFY(grid().save(path(u"grid"_s), "PNG"));
    QVERIFY(plain(Qt::red).save(path(u"red.png"_s)));
    QFile broken(path(u"broken.png"_s));
    QVERIFY(broken.open(QIODevice::WriteOnly));
    broken.write("this is no image");
}

void tst_PLYReaderTexture::findsTheTexture_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("plain") << QByteArray("comment TextureFile grid.png");
    QTest::newRow("lower case") << QByteArray("comment texturefile grid.png");
    QTest::newRow("capitals") << QByteArray("COMMENT TEXTUREFILE grid.png");
    QTest::newRow("a space in the name") << QByteArray("comment TextureFile a b.png");
    QTest::newRow("spaces collapsed") << QByteArray("  comment   TextureFile  a    b.png  ");
    QTest::newRow("beyond ASCII") << QByteArray("comment TextureFile g\xC3\xBCte \xE2\x82\xAC.png");
    QTest::newRow("in a folder") << QByteArray("comment TextureFile sub/a folder/grid.png");
    QTest::newRow("up and down") << QByteArray("comment TextureFile sub/../grid.png");
#ifdef Q_OS_UNIX
    QTest::newRow("up from where a link leads") << QByteArray("comment TextureFile deep/link/../grid.png");
#endif
    QTest::newRow("absolute") << "comment TextureFile " + path(u"grid.png"_s).toUtf8();
    QTest::newRow("PNG of another suffix") << QByteArray("comment TextureFile grid.jpg");
    QTest::newRow("no suffix") << QByteArray("comment TextureFile grid");
    QTest::newRow("carriage return") << QByteArray("comment TextureFile grid.png\r");
}

void tst_PLYReaderTexture::findsTheTexture()
{
    QFETCH(QByteArray, line);
    PLYReader reader(PLYReader::MeshMode);
    reader.setFileName(path(u"mesh.ply"_s));
    QCOMPARE(colorsOf(reader, texturedFile({line})), gridColors);
    QCOMPARE(colorsOf(reader, line + '\n' + texturedFile({})), gridColors);
    QCOMPARE(colorsOf(reader, texturedFile({}).replace("end_header", line + "\nend_header")), gridColors);
}

void tst_PLYReaderTexture::looksBesideTheFile()
{
    QFile file(path(u"sub/mesh.ply"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(texturedFile({"comment TextureFile a folder/grid.png"}));
    file.close();
    PLYReader reader(PLYReader::MeshMode);
    reader.setFileName(file.fileName());
    QVERIFY(reader.read(never));
    QCOMPARE(reader.getMesh().colors, gridColors);
}

void tst_PLYReaderTexture::looksInTheCurrentFolderWithoutAName()
{
    QString const before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(folder.path()));
    PLYReader reader(PLYReader::MeshMode);
    QList<unsigned int> const colors = colorsOf(reader, texturedFile({"comment TextureFile grid.png"}));
    QVERIFY(QDir::setCurrent(before));
    QCOMPARE(colors, gridColors);
}

void tst_PLYReaderTexture::missesTheTexture_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("missing");
    QTest::newRow("no such file") << QByteArray("comment TextureFile no.png") << u"no.png"_s;
    QTest::newRow("no such folder") << QByteArray("comment TextureFile no/grid.png") << u"no/grid.png"_s;
    QTest::newRow("quoted") << QByteArray("comment TextureFile \"grid.png\"") << u"\"grid.png\""_s;
    QTest::newRow("two names") << QByteArray("comment TextureFile grid.png red.png") << u"grid.png red.png"_s;
    QTest::newRow("tab") << QByteArray("comment TextureFile grid\t.png") << u"grid\t.png"_s;
    QTest::newRow("NUL") << QByteArray("comment TextureFile grid.png").append('\0').append("x")
                         << u"grid.png"_s + QChar(u'\0') + u'x';
    QTest::newRow("not an image") << QByteArray("comment TextureFile broken.png") << QString();
    QTest::newRow("a folder") << QByteArray("comment TextureFile sub") << QString();
    QTest::newRow("no name") << QByteArray("comment TextureFile") << QString();
    QTest::newRow("another word") << QByteArray("comment Texture grid.png") << QString();
    QTest::newRow("not a comment") << QByteArray("obj_info TextureFile grid.png") << QString();
}

void tst_PLYReaderTexture::missesTheTexture()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, missing);
    PLYReader reader(PLYReader::MeshMode);
    reader.setFileName(path(u"mesh.ply"_s));
    QString message;
    if (!missing.isEmpty()) {
        QDebug(&message) << "Texture file" << path(missing) << "not found";
        QTest::ignoreMessage(QtWarningMsg, message.trimmed().toUtf8().constData());
    }
    QCOMPARE(colorsOf(reader, texturedFile({line})), QList<unsigned int>());
}

void tst_PLYReaderTexture::takesTheOverride()
{
    PLYReader reader(PLYReader::MeshMode);
    reader.setFileName(path(u"mesh.ply"_s));
    reader.setTextureOverride(plain(Qt::green));
    QList<QVector2D> const inside(3, QVector2D(0.5f, 0.5f));
    QList<unsigned int> const green(3, 0xFF00FF00u);
    QCOMPARE(colorsOf(reader, texturedFile({"comment TextureFile grid.png"}, uvLines, inside)), green);
    QCOMPARE(colorsOf(reader, texturedFile({"comment TextureFile no such file"}, uvLines, inside)), green);
    // Without a texture line it is not asked for.
    QCOMPARE(colorsOf(reader, texturedFile({})), QList<unsigned int>());
    reader.setTextureOverride({});
    QCOMPARE(colorsOf(reader, texturedFile({"comment TextureFile grid.png"})), gridColors);
}

void tst_PLYReaderTexture::lastTextureCounts()
{
    PLYReader reader(PLYReader::MeshMode);
    reader.setFileName(path(u"mesh.ply"_s));
    QCOMPARE(colorsOf(reader, texturedFile({"comment TextureFile red.png", "comment TextureFile grid.png"})),
             gridColors);
}

void tst_PLYReaderTexture::missingTextureKeepsTheEarlier()
{
    PLYReader reader(PLYReader::MeshMode);
    reader.setFileName(path(u"mesh.ply"_s));
    QString message;
    QDebug(&message) << "Texture file" << path(u"no.png"_s) << "not found";
    QTest::ignoreMessage(QtWarningMsg, message.trimmed().toUtf8().constData());
    QCOMPARE(colorsOf(reader, texturedFile({"comment TextureFile grid.png", "comment TextureFile no.png"})),
             gridColors);
}

void tst_PLYReaderTexture::brokenTextureReplacesTheEarlier()
{
    PLYReader reader(PLYReader::MeshMode);
    reader.setFileName(path(u"mesh.ply"_s));
    QCOMPARE(
        colorsOf(reader, texturedFile({"comment TextureFile grid.png", "comment TextureFile broken.png"})),
        QList<unsigned int>());
}

void tst_PLYReaderTexture::followsThePolicy_data()
{
    QTest::addColumn<int>("policy");
    QTest::addColumn<bool>("withTexture");
    QTest::addColumn<QByteArrayList>("properties");
    QTest::addColumn<QByteArray>("result");
    QByteArrayList const uv = uvLines;
    QByteArrayList const colors = {"property int red", "property float green"};
    QByteArrayList const none = {"property int shininess", "property float shininess"};
    struct Row
    {
        char const* name;
        bool withTexture;
        QByteArrayList properties;
        QByteArray results[4];
    };
    Row const rows[] = {
        {"texture and coordinates", true, uv, {"sampled", "sampled", "textured", "textured"}},
        {"coordinates alone", false, uv, {"bare", "bare", "bare", "fails"}},
        {"texture alone", true, none, {"bare", "bare", "bare", "fails"}},
        {"texture and colors", true, colors, {"colored", "colored", "colored", "fails"}},
        {"colors alone", false, colors, {"colored", "colored", "colored", "fails"}},
        {"nothing", false, none, {"bare", "bare", "bare", "fails"}},
    };
    for (Row const& row : rows)
        for (int policy = 0; policy < 4; ++policy)
            QTest::addRow("%s, policy %d", row.name, policy)
                << policy << row.withTexture << row.properties << row.results[policy];
}

void tst_PLYReaderTexture::followsThePolicy()
{
    QFETCH(int, policy);
    QFETCH(bool, withTexture);
    QFETCH(QByteArrayList, properties);
    QFETCH(QByteArray, result);
    QByteArrayList const comments =
        withTexture ? QByteArrayList{"comment TextureFile grid.png"} : QByteArrayList();
    PLYReader reader(PLYReader::MeshMode);
    reader.setFileName(path(u"mesh.ply"_s));
    reader.setTextureSupport(SurfaceReader::TextureSupport(policy));
    QCOMPARE(reader.read(texturedFile(comments, properties), never), result != "fails");
    QCOMPARE(reader.getMesh().vertices, result == "fails" ? QList<QVector3D>() : ply_test::corners);
    QCOMPARE(reader.getMesh().colors.size(), result == "sampled" || result == "colored" ? 3 : 0);
    if (result == "sampled")
        QCOMPARE(reader.getMesh().colors, gridColors);
    bool const textured = result == "textured";
    QCOMPARE(reader.getMesh().textureCoordinates,
             textured ? (QList<QVector2D>{{0, 1}, {0.5f, 1}, {0, 0.5f}}) : QList<QVector2D>());
    QCOMPARE(reader.getTexture().isNull(), !textured);
    if (textured)
        QCOMPARE(reader.getTexture().convertToFormat(QImage::Format_ARGB32), grid());
    QVERIFY(result == "fails" || reader.getMesh().normals.size() == 3);
}

void tst_PLYReaderTexture::coordinatesByAnyName_data()
{
    QTest::addColumn<QByteArray>("u");
    QTest::addColumn<QByteArray>("v");
    for (QByteArray const u : {"u", "s", "texture_u"})
        for (QByteArray const v : {"v", "t", "texture_v"})
            QTest::newRow((u + ' ' + v).constData()) << u << v;
}

void tst_PLYReaderTexture::coordinatesByAnyName()
{
    QFETCH(QByteArray, u);
    QFETCH(QByteArray, v);
    PLYReader reader(PLYReader::MeshMode);
    reader.setFileName(path(u"mesh.ply"_s));
    reader.setTextureSupport(SurfaceReader::TextureRequired);
    QVERIFY(reader.read(
        texturedFile({"comment TextureFile grid.png"}, {"property float " + v, "property float " + u}),
        never));
    QCOMPARE(reader.getMesh().textureCoordinates, (QList<QVector2D>{{1, 0}, {1, 0.5f}, {0.5f, 0}}));
    // One of the two is enough.
    QVERIFY(reader.read(
        texturedFile({"comment TextureFile grid.png"}, {"property float " + v, "property float shininess"}),
        never));
    QCOMPARE(reader.getMesh().textureCoordinates, (QList<QVector2D>{{0, 0}, {0, 0.5f}, {0, 0}}));
}

void tst_PLYReaderTexture::coordinatesWithoutTextureAreDropped()
{
    PLYReader reader(PLYReader::MeshMode);
    reader.setTextureSupport(SurfaceReader::TextureOptional);
    QVERIFY(reader.read(texturedFile({}), never));
    QVERIFY(reader.getMesh().textureCoordinates.isEmpty());
    QVERIFY(reader.getMesh().colors.isEmpty());
}

void tst_PLYReaderTexture::samplesWithoutClamping()
{
    auto const notANumber = static_cast<float>(qQNaN());
    auto const sampled = [this](QVector2D a, QVector2D b, QVector2D c) {
        PLYReader reader(PLYReader::MeshMode);
        reader.setFileName(path(u"mesh.ply"_s));
        return colorsOf(reader, texturedFile({"comment TextureFile grid.png"}, uvLines, {a, b, c}));
    };
    QList<unsigned int> const outside(3, opaqueBlack);
    QCOMPARE(sampled({1, 1}, {0, 0}, {1, 0}), outside);
    QCOMPARE(sampled({-0.5f, 1}, {2, 1}, {0, 1.5f}), outside);
    QCOMPARE(sampled({notANumber, 1}, {0, notANumber}, {1e38f, 1e38f}), outside);
    QCOMPARE(sampled({0.99f, 0.01f}, {-0.49f, 1.49f}, {0.5f, 0.51f}),
             (QList<unsigned int>{0u, 0xFF030201u, 0x80060504u}));
}

void tst_PLYReaderTexture::keepsTheTextureOfAnEarlierRead()
{
    PLYReader reader(PLYReader::MeshMode);
    reader.setFileName(path(u"mesh.ply"_s));
    reader.setTextureSupport(SurfaceReader::TextureOptional);
    QVERIFY(reader.read(texturedFile({"comment TextureFile grid.png"}), never));
    QVERIFY(reader.read(support::plyTriangle(), never));
    QVERIFY(reader.getMesh().textureCoordinates.isEmpty());
    QVERIFY(!reader.getTexture().isNull());
}

void tst_PLYReaderTexture::requiredTextureKeepsTheMesh()
{
    PLYReader reader(PLYReader::MeshMode);
    reader.activeFaceColorMode(true);
    QVERIFY(
        reader.read(texturedFile({}).replace(
                        "end_header", "element velquin_material 1\nproperty uchar detail_noise\nend_header"),
                    never));
    QVERIFY(reader.getMaterial());
    geometry::Mesh const before = reader.getMesh();
    reader.setTextureSupport(SurfaceReader::TextureRequired);
    reader.activeFaceColorMode(false);
    QVERIFY(
        !reader.read(triangleWith({}, plyIndices, {}, support::PLYBody().triangle(2, 1, 0).bytes), never));
    QVERIFY(support::sameBits(reader.getMesh(), before));
    QVERIFY(reader.getFaceColors().isEmpty());
    QVERIFY(!reader.getMaterial());
}

void tst_PLYReaderTexture::pointCloudsTakeColorsOnly()
{
    PLYReader reader(PLYReader::PointCloudMode);
    reader.setFileName(path(u"mesh.ply"_s));
    QVERIFY(reader.read(texturedFile({"comment TextureFile grid.png"}), never));
    QCOMPARE(reader.getPointCloud().colors(), gridColors);
    reader.setTextureSupport(SurfaceReader::TextureRequired);
    QVERIFY(reader.read(texturedFile({"comment TextureFile grid.png"}), never));
    QVERIFY(reader.getPointCloud().colors().isEmpty());
    QVERIFY(reader.getTexture().isNull());
    QVERIFY(reader.getMesh().isNull());
}

QTEST_GUILESS_MAIN(tst_PLYReaderTexture)
#include "tst_PLYReaderTexture.moc"
