#include "differential/ObjFaces.h"
#include "support/ObjFiles.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;
using namespace objfaces;

namespace {

QByteArray bytesOf(QString const& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Keeps the log of real files' oddities off the log of the test.
class Silence
{
public:
    Silence()
        : before(qInstallMessageHandler([](QtMsgType, QMessageLogContext const&, QString const&) {}))
    {}
    ~Silence() { qInstallMessageHandler(before); }
    Q_DISABLE_COPY_MOVE(Silence)

private:
    QtMessageHandler before;
};

/// What a file has, as far as readers differ in it.
struct Kinds
{
    qsizetype positions = 0;
    qsizetype uvs = 0;
    qsizetype normals = 0;
    qsizetype faces = 0;
    bool hasQuads = false;
    bool hasPolygons = false;
    bool hasShortFaces = false;
    bool hasRelativeIndices = false;
    bool hasZeros = false;
    bool hasTabs = false;
    bool hasContinuedLines = false;
    bool hasWeights = false; // a fourth number behind x, y and z, by which some divide
    bool hasGreatNumbers = false;
    bool hasUnevenCorners = false;      // the indices of a corner are not all the same
    std::array<qsizetype, 4> corners{}; // with nothing but a position, with uv, with normal, with both
};

void addCorner(QByteArray const& group, Kinds& kinds)
{
    QByteArrayList const parts = group.split('/');
    bool const hasUv = parts.size() > 1 && !parts[1].isEmpty();
    bool const hasNormal = parts.size() > 2 && !parts[2].isEmpty();
    ++kinds.corners[std::size_t(hasUv) + 2 * std::size_t(hasNormal)];
    kinds.hasRelativeIndices |= group.contains('-');
    kinds.hasZeros |= parts.contains("0");
    kinds.hasUnevenCorners |= (hasUv && parts[1] != parts[0]) || (hasNormal && parts[2] != parts[0]);
}

void addFace(QByteArrayList const& tokens, Kinds& kinds)
{
    ++kinds.faces;
    kinds.hasShortFaces |= tokens.size() < 4;
    kinds.hasQuads |= tokens.size() == 5;
    kinds.hasPolygons |= tokens.size() > 5;
    for (QByteArray const& group : tokens.mid(1))
        addCorner(group, kinds);
}

void addVector(QByteArrayList const& tokens, qsizetype& count, Kinds& kinds)
{
    ++count;
    for (QByteArray const& number : tokens.mid(1))
        kinds.hasGreatNumbers |= std::abs(number.toDouble()) > double(std::numeric_limits<float>::max());
}

Kinds kindsOf(QByteArray const& text)
{
    Kinds kinds;
    for (QByteArray const& raw : text.split('\n')) {
        QByteArray const line = raw.trimmed();
        QByteArrayList const tokens = line.simplified().split(' ');
        QByteArray const keyword = tokens.front();
        kinds.hasTabs |= line.contains('\t') && (keyword.startsWith('v') || keyword == "f");
        kinds.hasContinuedLines |= line.endsWith('\\');
        kinds.hasWeights |= keyword == "v" && tokens.size() != 4 && tokens.size() != 7;
        if (keyword == "v")
            addVector(tokens, kinds.positions, kinds);
        else if (keyword == "vt")
            addVector(tokens, kinds.uvs, kinds);
        else if (keyword == "vn")
            addVector(tokens, kinds.normals, kinds);
        else if (keyword == "f")
            addFace(tokens, kinds);
    }
    return kinds;
}

// Lists as long as that of the positions belong to the positions, whatever the faces say, and of lists that
// are not there the indices are ignored: here only.
bool isTakenPerPosition(Kinds const& kinds)
{
    auto const fits = [&](qsizetype count) { return count == 0 || count == kinds.positions; };
    bool const namesUvs = kinds.corners[1] + kinds.corners[3] > 0;
    bool const namesNormals = kinds.corners[2] + kinds.corners[3] > 0;
    bool const isNamedAsItIs = namesUvs == (kinds.uvs > 0) && namesNormals == (kinds.normals > 0);
    return fits(kinds.uvs) && fits(kinds.normals) && (kinds.hasUnevenCorners || !isNamedAsItIs);
}

// Why a file is refused, or why readers differ in it; no text when no reason is known.
QString oddityOf(Kinds const& kinds)
{
    struct Reason
    {
        bool applies;
        char const* text;
    };
    auto const isOneKind = [&] { return std::count(kinds.corners.begin(), kinds.corners.end(), 0) >= 3; };
    for (Reason const& reason :
         {Reason{kinds.faces == 0, "no faces"}, Reason{kinds.hasQuads, "quads"},
          Reason{kinds.hasPolygons, "polygons"},
          Reason{kinds.hasShortFaces, "faces of fewer than three corners"},
          Reason{kinds.hasRelativeIndices, "relative indices"}, Reason{kinds.hasZeros, "index 0"},
          Reason{kinds.hasTabs, "tabs where spaces belong"},
          Reason{kinds.hasContinuedLines, "continued lines"},
          Reason{!isOneKind(), "corners of different kinds"}, Reason{kinds.hasWeights, "weighted positions"},
          Reason{kinds.hasGreatNumbers, "numbers beyond single precision"},
          Reason{isTakenPerPosition(kinds), "lists per position, which the faces do not index so"}})
        if (reason.applies)
            return QString::fromLatin1(reason.text);
    return {};
}

// Assimp looks at fifteen decimals of a number, which are few for one like 0.0000000000033.
bool isForAssimp(QByteArray const& text)
{
    static QRegularExpression const manyDecimals(u"\\.[0-9]{16}"_s);
    return !manyDecimals.match(QString::fromLatin1(text)).hasMatch();
}

} // namespace

/// Real files, against the programs that read them too.
class tst_ObjCorpusDifferential : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void corpus_data();
    void corpus();

private:
    support::ObjFolder folder;
};

void tst_ObjCorpusDifferential::corpus_data()
{
    QTest::addColumn<QString>("path");
    QString const corpus = qEnvironmentVariable("SURFACEIO_CORPUS");
    if (corpus.isEmpty() || !QDir(corpus).exists())
        QSKIP("no corpus: SURFACEIO_CORPUS names no folder");
    folder.writeImage(u"texture.png"_s, support::plainImage(4, 4, Qt::blue));
    folder.write(u"one.mtl"_s, "newmtl one\nmap_Kd texture.png\n");
    QDirIterator files(corpus, {u"*.obj"_s}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QString const path = files.next();
        // Made to crash a reader, not to be read.
        if (path.contains(u"/fuzzer/"_s))
            continue;
        QTest::newRow(qPrintable(path.mid(corpus.size() + 1))) << path;
    }
}

void tst_ObjCorpusDifferential::corpus()
{
    QFETCH(QString, path);
    QByteArray const text = bytesOf(path);
    QString const oddity = oddityOf(kindsOf(text));
    OBJReader::Error code = OBJReader::NoError;
    geometry::Mesh mesh;
    {
        Silence const silence;
        mesh = readWithOneTexture(text, folder.path(QString()), code);
    }
    QVERIFY2(code == OBJReader::NoError || !oddity.isEmpty(), qPrintable(conversions::toString(code)));
    if (!oddity.isEmpty())
        QSKIP(qPrintable(oddity));
    Faces const ours = facesOf(mesh, text.contains("vn "));
    for (Peer const& peer : allPeers()) {
        bool const isMeant = peer.isThere && (peer.load != peers::loadWithAssimp || isForAssimp(text));
        std::optional<peers::PeerMesh> const theirs = isMeant ? peer.load(path) : std::nullopt;
        QString const found = theirs ? differenceOf(ours, facesOf(*theirs), 1) : QString();
        QVERIFY2(found.isEmpty(), qPrintable(QLatin1String(peer.name) + u": "_s + found));
    }
}

QTEST_GUILESS_MAIN(tst_ObjCorpusDifferential)
#include "tst_ObjCorpusDifferential.moc"
