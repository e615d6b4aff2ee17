#include "framework/SurfaceReader.h"
#include "inhouse/meshoperations/NormalsCalculator.h"
#include "support/Meshes.h"

#include <QMetaObject>
#include <QtTest>

#include <type_traits>

static_assert(std::is_abstract_v<SurfaceReader> && std::has_virtual_destructor_v<SurfaceReader>);
static_assert(SurfaceReader::VertexColorsOptional == 0 && SurfaceReader::VertexColorsRequired == 1 &&
              SurfaceReader::TextureOptional == 2 && SurfaceReader::TextureRequired == 3);
static_assert(sizeof(SurfaceReader::TextureSupport) == 4);

namespace {

std::atomic<bool> const never = false;
std::atomic<bool> const always = true;

// Puts a mesh where a file would.
class FixedReader : public SurfaceReader
{
public:
    using SurfaceReader::SurfaceReader;
    bool read(std::atomic<bool> const& cancel) override { return computeNormals(cancel); }

    void setMesh(geometry::Mesh const& result) { mesh = result; }
    void setResult(QMatrix4x4 const& placement, QImage const& image)
    {
        transform = placement;
        texture = image;
    }
    QString name() const { return fileName; }
    bool hasSharpEdges() const { return sharpEdges; }
    TextureSupport support() const { return textureSupport; }
};

// Two triangles that share an edge, their normals `angle` radians apart.
geometry::Mesh bent(float angle)
{
    return {{{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, -std::cos(angle), -std::sin(angle)}},
            {0, 1, 2, -1, 1, 0, 3, -1}};
}

} // namespace

class tst_SurfaceReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void metaObject();
    void fresh();
    void fileName();
    void textureSupport_data();
    void textureSupport();
    void gettersReferToTheReader();
    void smoothNormals();
    void sharpNormals_data();
    void sharpNormals();
    void emptyMeshHasNoNormals();
    void cancelledNormals();
};

void tst_SurfaceReader::metaObject()
{
    QMetaObject const& meta = SurfaceReader::staticMetaObject;
    QCOMPARE(meta.className(), "SurfaceReader");
    QCOMPARE(meta.superClass(), &QObject::staticMetaObject);
    QCOMPARE(meta.methodCount(), meta.methodOffset());
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    QCOMPARE(meta.enumeratorCount(), meta.enumeratorOffset());
    QCOMPARE(meta.classInfoCount(), meta.classInfoOffset());
    FixedReader reader(false);
    QCOMPARE(reader.metaObject(), &meta);
    QCOMPARE(reader.qt_metacast("SurfaceReader"), static_cast<void*>(static_cast<SurfaceReader*>(&reader)));
    QCOMPARE(reader.qt_metacast("QObject"), static_cast<void*>(static_cast<QObject*>(&reader)));
    QCOMPARE(reader.qt_metacast("Other"), nullptr);
    QCOMPARE(SurfaceReader::tr("text", "disambiguation", 3), QStringLiteral("text"));
}

void tst_SurfaceReader::fresh()
{
    for (bool const sharp : {false, true}) {
        FixedReader const reader(sharp);
        QVERIFY(reader.getMesh().isNull());
        QCOMPARE(reader.getTransform(), QMatrix4x4());
        QVERIFY(reader.getTransform().isIdentity());
        QVERIFY(reader.getTexture().isNull());
        QVERIFY(reader.name().isEmpty());
        QCOMPARE(reader.hasSharpEdges(), sharp);
        QCOMPARE(reader.support(), SurfaceReader::VertexColorsOptional);
        QVERIFY(!reader.isTextureSupportRequested());
    }
}

void tst_SurfaceReader::fileName()
{
    FixedReader reader(false);
    reader.setFileName(QStringLiteral("/no/such/file"));
    QCOMPARE(reader.name(), QStringLiteral("/no/such/file"));
    reader.setFileName({});
    QVERIFY(reader.name().isEmpty());
}

void tst_SurfaceReader::textureSupport_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<bool>("isRequested");
    QTest::newRow("vertex colours optional") << 0 << false;
    QTest::newRow("vertex colours required") << 1 << false;
    QTest::newRow("texture optional") << 2 << true;
    QTest::newRow("texture required") << 3 << true;
}

void tst_SurfaceReader::textureSupport()
{
    QFETCH(int, value);
    QFETCH(bool, isRequested);
    FixedReader reader(false);
    reader.setTextureSupport(SurfaceReader::TextureSupport(value));
    QCOMPARE(int(reader.support()), value);
    QCOMPARE(reader.isTextureSupportRequested(), isRequested);
}

void tst_SurfaceReader::gettersReferToTheReader()
{
    FixedReader reader(false);
    geometry::Mesh const& mesh = reader.getMesh();
    QMatrix4x4 const& transform = reader.getTransform();
    QImage const& texture = reader.getTexture();
    QMatrix4x4 shifted;
    shifted.translate(1, 2, 3);
    reader.setMesh(support::cube());
    reader.setResult(shifted, QImage(2, 3, QImage::Format_ARGB32));
    QVERIFY(support::sameBits(mesh, support::cube()));
    QCOMPARE(transform, shifted);
    QCOMPARE(texture.size(), QSize(2, 3));
}

void tst_SurfaceReader::smoothNormals()
{
    FixedReader reader(false);
    reader.setMesh(support::cube());
    QVERIFY(reader.read(never));
    QVERIFY(support::sameBits(reader.getMesh(),
                              NormalsCalculator::computeGouraudNormals(support::cube(), never)));
    QCOMPARE(reader.getMesh().vertices, support::cube().vertices);
    QCOMPARE(reader.getMesh().normals.size(), 8);
}

void tst_SurfaceReader::sharpNormals_data()
{
    QTest::addColumn<float>("angle");
    QTest::addColumn<int>("vertices");
    QTest::newRow("flat") << 0.0f << 4;
    QTest::newRow("half a radian") << 0.5f << 4;
    QTest::newRow("just smooth") << 0.99f << 4;
    QTest::newRow("just sharp") << 1.01f << 6;
    QTest::newRow("right angle") << 1.5707963f << 6;
}

void tst_SurfaceReader::sharpNormals()
{
    QFETCH(float, angle);
    QFETCH(int, vertices);
    FixedReader reader(true);
    reader.setMesh(bent(angle));
    QVERIFY(reader.read(never));
    QCOMPARE(reader.getMesh().getNumVertices(), vertices);
    QVERIFY(support::sameBits(reader.getMesh(),
                              NormalsCalculator::computeSharpEdgeNormals(bent(angle), 1.0f, never)));
}

void tst_SurfaceReader::emptyMeshHasNoNormals()
{
    for (bool const sharp : {false, true}) {
        FixedReader reader(sharp);
        QVERIFY(!reader.read(never));
        QVERIFY(reader.getMesh().isNull());
    }
}

void tst_SurfaceReader::cancelledNormals()
{
    for (bool const sharp : {false, true}) {
        FixedReader reader(sharp);
        reader.setMesh(support::cube());
        QVERIFY(!reader.read(always));
        QVERIFY(reader.getMesh().isNull());
    }
}

QTEST_APPLESS_MAIN(tst_SurfaceReader)
#include "tst_SurfaceReader.moc"
