#include "framework/MeshReader.h"
#include "framework/MeshWriter.h"
#include "support/Meshes.h"
#include "support/StlFiles.h"

#include <QDataStream>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

using support::loneFacet;
using support::StlFacet;

namespace {

QList<StlFacet> const facets = {loneFacet(0, 1, 2), loneFacet(1, 3, 4), loneFacet(2, 5, 6)};

// A mesh array record that was read, or the marks that were there before.
struct Record
{
    int numVertices = -7;
    int numIndices = -8;
    float* vertices = nullptr;
    float* normals = nullptr;
    int* indices = nullptr;

    Record() = default;
    Q_DISABLE_COPY_MOVE(Record)
    ~Record()
    {
        delete[] vertices;
        delete[] normals;
        delete[] indices;
    }

    bool read(QString const& path)
    {
        return MeshReader::read(path, &numVertices, &vertices, &normals, &numIndices, &indices);
    }
    bool isUntouched() const
    {
        return numVertices == -7 && numIndices == -8 && !vertices && !normals && !indices;
    }
    QList<float> positions() const { return {vertices, vertices + 3 * numVertices}; }
    QList<float> directions() const { return {normals, normals + 3 * numVertices}; }
    QList<int> strips() const { return {indices, indices + numIndices}; }
};

class File
{
public:
    explicit File(QByteArray const& content, QString const& name = QStringLiteral("file"))
        : path(directory.filePath(name))
    {
        QFile file(path);
        file.open(QIODevice::WriteOnly);
        file.write(content);
    }

    QTemporaryDir directory;
    QString path;
};

QByteArray recordBytes(qint32 numVertices, qint32 numIndices, QList<double> const& values,
                       QList<qint32> const& indices)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << numVertices << numIndices;
    for (double const value : values)
        stream << value;
    for (qint32 const index : indices)
        stream << index;
    return bytes;
}

QByteArray const twoVertices =
    recordBytes(2, 5, {1, 2, 3, 4, 5, 6, 0.1, 0.2, 0.3, -1, -2, -3}, {0, 1, 0, -1, 77});
constexpr auto trailing =
    "MeshReader: QDataStream didn't reach end of stream. This might indicate an extraction error!";

} // namespace

class tst_MeshReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isPLY_data();
    void isPLY();

    void missingFile();
    void stlFile_data();
    void stlFile();
    void unknownSuffix_data();
    void unknownSuffix();
    void brokenStl();
    void stlBytes();
    void emptyBytes_data();
    void emptyBytes();
    void unknownBytes();

    void record();
    void recordIsNarrowed();
    void recordWithoutPoints();
    void shortRecord();
    void trailingBytes_data();
    void trailingBytes();
    void recordThatCannotBeOpened();
    void counts_data();
    void counts();
    void writtenRecordComesBack();
};

void tst_MeshReader::isPLY_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<bool>("expected");
    QTest::newRow("small") << QStringLiteral("ply") << true;
    QTest::newRow("capitals") << QStringLiteral("PLY") << true;
    QTest::newRow("mixed") << QStringLiteral("pLy") << true;
    QTest::newRow("a path") << QStringLiteral("mesh.ply") << false;
    QTest::newRow("with its dot") << QStringLiteral(".ply") << false;
    QTest::newRow("longer") << QStringLiteral("plyx") << false;
    QTest::newRow("shorter") << QStringLiteral("pl") << false;
    QTest::newRow("with a space") << QStringLiteral("ply ") << false;
    QTest::newRow("other") << QStringLiteral("stl") << false;
    QTest::newRow("empty") << QString() << false;
}

void tst_MeshReader::isPLY()
{
    QFETCH(QString, suffix);
    QFETCH(bool, expected);
    QCOMPARE(MeshReader::isPLY(suffix), expected);
}

void tst_MeshReader::missingFile()
{
    for (char const* const path :
         {"/no/such/file.stl", "/no/such/file.ply", "/no/such/file.obj", "/no/such/file"}) {
        QByteArray const message =
            QByteArray("The file \"") + path + "\"  does not exist ( MeshReader::read ) ";
        QTest::ignoreMessage(QtWarningMsg, message.constData());
        QVERIFY(!MeshReader::read(QString::fromLatin1(path)));
    }
    QTest::ignoreMessage(QtWarningMsg, "The file \"\"  does not exist ( MeshReader::read ) ");
    QVERIFY(!MeshReader::read(QString()));
}

void tst_MeshReader::stlFile_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("binary") << QStringLiteral("mesh.stl") << support::binaryStl(facets);
    QTest::newRow("ASCII") << QStringLiteral("mesh.stl") << support::asciiStl(facets);
    QTest::newRow("capitals") << QStringLiteral("MESH.STL") << support::binaryStl(facets);
    QTest::newRow("two suffixes") << QStringLiteral("mesh.ply.Stl") << support::binaryStl(facets);
    QTest::newRow("nothing but a suffix") << QStringLiteral(".stl") << support::binaryStl(facets);
    QTest::newRow("name outside ASCII") << QStringLiteral("Kiefer \u00fc.stl") << support::binaryStl(facets);
}

void tst_MeshReader::stlFile()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    File const file(content, name);
    utility::Optional<geometry::Mesh> const mesh = MeshReader::read(file.path);
    QVERIFY(mesh);
    // Tags are not asked for: one surface.
    QCOMPARE(support::cornersOf(*mesh), support::cornersOf(facets));
    QCOMPARE(mesh->normals.size(), mesh->vertices.size());
}

void tst_MeshReader::unknownSuffix_data()
{
    QTest::addColumn<QString>("name");
    for (char const* const name :
         {"mesh", "mesh.", "mesh.stl.bak", "model.ply.bak", "mesh.stlx", "mesh.st", "stl", "ply", "mesh.xyz"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void tst_MeshReader::unknownSuffix()
{
    QFETCH(QString, name);
    File const file(support::binaryStl(facets), name);
    QVERIFY(!MeshReader::read(file.path));
}

void tst_MeshReader::brokenStl()
{
    File const cut(support::binaryStl(facets).chopped(1), QStringLiteral("cut.stl"));
    QVERIFY(!MeshReader::read(cut.path));
    File const empty({}, QStringLiteral("empty.stl"));
    QVERIFY(!MeshReader::read(empty.path));
    // Accepted by the reader, though there is nothing in it.
    File const none(support::binaryStl(0, {}), QStringLiteral("none.stl"));
    utility::Optional<geometry::Mesh> const mesh = MeshReader::read(none.path);
    QVERIFY(mesh && mesh->isNull());
}

void tst_MeshReader::stlBytes()
{
    for (QString const& name : {QStringLiteral("x.stl"), QStringLiteral("/no/such/x.y.STL")}) {
        for (QByteArray const& content : {support::binaryStl(facets), support::asciiStl(facets)}) {
            utility::Optional<geometry::Mesh> const mesh = MeshReader::read(content, name);
            QVERIFY(mesh);
            QCOMPARE(support::cornersOf(*mesh), support::cornersOf(facets));
        }
    }
    QVERIFY(!MeshReader::read(support::binaryStl(facets).chopped(1), QStringLiteral("x.stl")));
}

void tst_MeshReader::emptyBytes_data()
{
    QTest::addColumn<QString>("name");
    for (char const* const name : {"x.stl", "x.ply", "x.obj", "x.other", ""})
        QTest::addRow("'%s'", name) << QString::fromLatin1(name);
}

void tst_MeshReader::emptyBytes()
{
    QFETCH(QString, name);
    for (QByteArray const& data : {QByteArray(), QByteArray("")}) {
        QTest::ignoreMessage(QtWarningMsg, qPrintable(QStringLiteral("Empty data for : \"%1\"").arg(name)));
        QVERIFY(!MeshReader::read(data, name));
    }
}

void tst_MeshReader::unknownBytes()
{
    for (char const* const name : {"", "stl", "x", "x.stl.bak", "x.txt"})
        QVERIFY(!MeshReader::read(support::binaryStl(facets), QString::fromLatin1(name)));
}

void tst_MeshReader::record()
{
    File const file(twoVertices);
    Record record;
    QVERIFY(record.read(file.path));
    QCOMPARE(record.numVertices, 2);
    QCOMPARE(record.numIndices, 5);
    QCOMPARE(record.positions(), QList<float>({1, 2, 3, 4, 5, 6}));
    QCOMPARE(record.directions(), QList<float>({0.1f, 0.2f, 0.3f, -1, -2, -3}));
    QCOMPARE(record.strips(), QList<int>({0, 1, 0, -1, 77}));
}

void tst_MeshReader::recordIsNarrowed()
{
    File const file(recordBytes(1, 0, {1.0 / 3.0, 1e-60, 16777217.0, 1e-45, -0.0, 2.0}, {}));
    Record record;
    QVERIFY(record.read(file.path));
    QList<float> const expected = {1.0f / 3.0f, 0.0f, 16777216.0f, 1.40129846e-45f, -0.0f, 2.0f};
    QCOMPARE(support::bytesOf(record.positions() + record.directions()), support::bytesOf(expected));
}

void tst_MeshReader::recordWithoutPoints()
{
    File const file(recordBytes(0, 0, {}, {}));
    Record record;
    QVERIFY(record.read(file.path));
    QCOMPARE(record.numVertices, 0);
    QCOMPARE(record.numIndices, 0);
    QVERIFY(record.vertices && record.normals && record.indices);
}

// What is missing is 0, from the value on that is cut; nobody says so.
void tst_MeshReader::shortRecord()
{
    QList<float> const values = {1, 2, 3, 4, 5, 6, 0.1f, 0.2f, 0.3f, -1, -2, -3};
    QList<int> const indices = {0, 1, 0, -1, 77};
    for (qsizetype size = 8; size < twoVertices.size(); ++size) {
        File const file(twoVertices.first(size));
        Record record;
        QVERIFY(record.read(file.path));
        QList<float> const found = record.positions() + record.directions();
        for (qsizetype i = 0; i < 12; ++i)
            QCOMPARE(found[i], 8 + 8 * (i + 1) <= size ? values[i] : 0.0f);
        for (qsizetype i = 0; i < 5; ++i)
            QCOMPARE(record.indices[i], 104 + 4 * (i + 1) <= size ? indices[i] : 0);
    }
    for (qsizetype size = 0; size < 8; ++size) {
        File const file(twoVertices.first(size));
        Record record;
        QVERIFY(record.read(file.path));
        QCOMPARE(record.numVertices, size < 4 ? 0 : 2);
        QCOMPARE(record.numIndices, 0);
        QVERIFY(record.positions().count(0.0f) == 3 * record.numVertices);
    }
}

void tst_MeshReader::trailingBytes_data()
{
    QTest::addColumn<QByteArray>("rest");
    QTest::newRow("one byte") << QByteArray(1, '\0');
    QTest::newRow("many bytes") << QByteArray(100000, 'x');
}

void tst_MeshReader::trailingBytes()
{
    QFETCH(QByteArray, rest);
    File const file(twoVertices + rest);
    Record record;
    QTest::ignoreMessage(QtWarningMsg, trailing);
    QVERIFY(record.read(file.path));
    QCOMPARE(record.strips(), QList<int>({0, 1, 0, -1, 77}));
}

void tst_MeshReader::recordThatCannotBeOpened()
{
    Record record;
    QVERIFY(!record.read(QStringLiteral("/no/such/file")));
    QVERIFY(!record.read(QStringLiteral("/")));
    QVERIFY(record.isUntouched());
}

void tst_MeshReader::counts_data()
{
    QTest::addColumn<qint32>("numVertices");
    QTest::addColumn<qint32>("numIndices");
    QTest::addColumn<bool>("isRead");
    constexpr qint32 most = std::numeric_limits<qint32>::max();
    constexpr qint32 least = std::numeric_limits<qint32>::min();
    QTest::newRow("negative vertices") << -1 << 0 << false;
    QTest::newRow("negative indices") << 0 << -1 << false;
    QTest::newRow("most negative") << least << least << false;
    QTest::newRow("largest vertices") << most << 0 << false;
    QTest::newRow("largest indices") << 0 << most << false;
    QTest::newRow("both largest") << most << most << false;
    QTest::newRow("a gigabyte") << 45000000 << 0 << false;
    QTest::newRow("a scan cut short") << 500000 << 2000000 << true;
}

// Memory follows the bytes that are there, with room for a record that lost its end.
void tst_MeshReader::counts()
{
    QFETCH(qint32, numVertices);
    QFETCH(qint32, numIndices);
    QFETCH(bool, isRead);
    File const file(recordBytes(numVertices, numIndices, {1, 2, 3}, {}));
    Record record;
    QCOMPARE(record.read(file.path), isRead);
    QCOMPARE(record.isUntouched(), !isRead);
    if (isRead)
        QCOMPARE(record.positions().first(4), QList<float>({1, 2, 3, 0}));
}

void tst_MeshReader::writtenRecordComesBack()
{
    std::mt19937 random(9);
    geometry::Mesh mesh = support::randomMesh(random, 1000, 2000);
    mesh.normals = support::randomMesh(random, 1000, 0).vertices;
    File const file({});
    auto* const vertices = reinterpret_cast<float*>(mesh.vertices.data());
    auto* const normals = reinterpret_cast<float*>(mesh.normals.data());
    QVERIFY(MeshWriter::write(file.path, 1000, vertices, normals, 8000, mesh.indices.data()));
    Record record;
    QVERIFY(record.read(file.path));
    QCOMPARE(support::bytesOf(record.positions()), support::bytesOf(mesh.vertices));
    QCOMPARE(support::bytesOf(record.directions()), support::bytesOf(mesh.normals));
    QCOMPARE(record.strips(), mesh.indices);
}

QTEST_GUILESS_MAIN(tst_MeshReader)
#include "tst_MeshReader.moc"
