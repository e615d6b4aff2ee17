#include "stl/STLReader.h"
#include "support/PrivateAccess.h"
#include "support/StlFiles.h"

#include <QBuffer>
#include <QDirIterator>
#include <QTest>

#include <random>

namespace support {

struct ReadsBytes
{
    using Member = bool STLReader::*;
    friend Member privateMember(ReadsBytes);
};
template struct PrivateMember<ReadsBytes, &STLReader::readsBytes>;

} // namespace support

namespace {

std::atomic<bool> const never = false;
std::atomic<bool> const always = true;

template <typename Value>
QByteArray bytesOf(QList<Value> const& list)
{
    qsizetype const size = list.size() * qsizetype(sizeof(Value));
    return QByteArray(reinterpret_cast<char const*>(list.constData()), size) + '|';
}

// The result and what is left of it in a reader that has read before.
QByteArray outcomeOf(QByteArray const& text, bool readsBytes, bool asDevice, std::atomic<bool> const& cancel)
{
    STLReader reader(nullptr, false, {});
    reader.*privateMember(support::ReadsBytes()) = readsBytes;
    reader.read(support::asciiStl({support::loneFacet(7)}), never);
    QBuffer buffer;
    buffer.setData(text);
    bool const success = asDevice ? reader.read(&buffer, cancel) : reader.read(text, cancel);
    geometry::Mesh const& mesh = reader.getMesh();
    return QByteArray(success ? "yes " : "no ") + bytesOf(mesh.vertices) + bytesOf(mesh.indices) +
           bytesOf(mesh.normals);
}

void compare(QByteArray const& text)
{
    for (bool const asDevice : {false, true})
        if (outcomeOf(text, true, asDevice, never) != outcomeOf(text, false, asDevice, never))
            QFAIL(text.toPercentEncoding(" \n").constData());
}

class Maker
{
public:
    explicit Maker(quint32 seed)
        : random(seed)
    {}

    QByteArray text()
    {
        QByteArray result =
            of({"solid", "solid x", " solid\t", "solid Z\xC3\xA4hne", "\xEF\xBB\xBFsolid"}) + lineEnd();
        for (int facet = below(5); facet >= 0; --facet) {
            result += of({"facet normal 0 0 1", "  facet", "\tfacet", ""}) + lineEnd();
            for (int corner = 0; corner < 3; ++corner)
                result += vertexLine() + lineEnd();
            result += of({"endfacet", " endloop", "verte", "-- vertex", "  "}) + lineEnd();
        }
        if (once(6))
            result += of({"vertex 1 2", "Zahn \xC3\xA4", "\xC2\xA0vertex 1 2 3", "\xFF\xFE",
                          "vertex 1 2 \xC3\xA4", "  vertexx 4 5 6", "vertex 1 2 3 4 \xE9"}) +
                      lineEnd();
        if (!once(3))
            result += "endsolid";
        if (once(4))
            result += lineEnd();
        return result;
    }

    QByteArray broken(QByteArray bytes)
    {
        for (int i = below(3); i >= 0; --i)
            bytes[below(static_cast<int>(bytes.size()))] =
                static_cast<char>(once(2) ? random() : of({" ", "\t", "\r", "\n", "e", "."})[0]);
        return bytes;
    }

private:
    int below(int limit) { return static_cast<int>(random() % static_cast<quint32>(limit)); }
    bool once(int in) { return below(in) == 0; }
    QByteArray of(QByteArrayList const& choices) { return choices[below(static_cast<int>(choices.size()))]; }
    QByteArray lineEnd() { return once(8) ? of({"\r\n", "\n\n", "\r\r\n"}) : QByteArray("\n"); }
    QByteArray space() { return once(12) ? of({"  ", "\t", " \t", "   "}) : QByteArray(" "); }

    QByteArray number()
    {
        if (once(24))
            return of({"nan", "inf", "-inf", "1e-50", "1e50", "+1", ".5", "5.", "-0", "1,5", "0x1",
                       "12345678901234567890.5"});
        double const value = (below(2000001) - 1000000) / 777.0;
        return once(2) ? QByteArray::number(value, 'e', 6) : QByteArray::number(value, 'f', below(9));
    }

    QByteArray vertexLine()
    {
        QByteArray line = once(16) ? of({"\tvertex", "\t vertex", " \tvertex", "vertex3", "Vertex"})
                                   : QByteArray(below(8), ' ') + "vertex";
        for (int axis = 0; axis < 3; ++axis)
            line += space() + number();
        return once(12) ? line + of({" ", "\t", " 7", " x", "\v", " \xC3\xA4"}) : line;
    }

    std::mt19937 random;
};

} // namespace

/// ASCII files that are read as bytes give what they give when they are decoded.
class tst_STLReaderAsciiBytes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void generated();
    void everyLength();
    void acrossBlocks();
    void cancelled();
    void files();
};

// Set SURFACEIO_GENERATED_FILES for a longer run.
void tst_STLReaderAsciiBytes::generated()
{
    int const wanted = qEnvironmentVariableIntValue("SURFACEIO_GENERATED_FILES");
    int const count = wanted > 0 ? wanted : 3000;
    int successes = 0;
    for (int seed = 0; seed < count; ++seed) {
        Maker maker(static_cast<quint32>(seed));
        QByteArray const text = maker.text();
        compare(text);
        compare(maker.broken(text));
        successes += outcomeOf(text, true, false, never).startsWith("yes") ? 1 : 0;
        if (QTest::currentTestFailed())
            return;
    }
    QVERIFY(successes > count / 10 && successes < count - count / 10);
}

void tst_STLReaderAsciiBytes::everyLength()
{
    for (quint32 seed = 0; seed < 20; ++seed) {
        QByteArray const text = Maker(seed).text();
        for (qsizetype length = 1; length < text.size(); ++length)
            compare(text.left(length));
    }
}

void tst_STLReaderAsciiBytes::acrossBlocks()
{
    QList<support::StlFacet> facets;
    for (int i = 0; i < 6000; ++i)
        facets << support::loneFacet(i);
    QByteArray const text = support::asciiStl(facets);
    QVERIFY(text.size() > 2 * 262144);
    compare(text);
    compare(text.chopped(text.size() / 3));
    compare(QByteArray(text).insert(300000, "\xC3\xA4"));
    compare(QByteArray(text).insert(300000, QByteArray(300000, 'x')));
    for (QByteArray const& longLine :
         {QByteArray(5000000, 'x'), "vertex 1 2 3 " + QByteArray(5000000, ' '), QByteArray(4194303, ' ')})
        compare(QByteArray(text).insert(text.indexOf("facet"), longLine + '\n'));
}

void tst_STLReaderAsciiBytes::cancelled()
{
    QByteArray const text = support::asciiStl({support::loneFacet(1)});
    for (bool const asDevice : {false, true}) {
        QCOMPARE(outcomeOf(text, true, asDevice, always), outcomeOf(text, false, asDevice, always));
        QCOMPARE(outcomeOf("solid", true, asDevice, always), outcomeOf("solid", false, asDevice, always));
    }
}

// Files of other programs, where they are at hand.
void tst_STLReaderAsciiBytes::files()
{
    QString const folder = qEnvironmentVariable("SURFACEIO_CORPUS");
    if (folder.isEmpty() || !QFileInfo(folder).isDir())
        QSKIP("no corpus");
    QDirIterator paths(folder, {QStringLiteral("*.stl")}, QDir::Files, QDirIterator::Subdirectories);
    while (paths.hasNext()) {
        QFile file(paths.next());
        if (file.size() < 4 * 1024 * 1024 && file.open(QIODevice::ReadOnly))
            compare(file.readAll());
    }
}

QTEST_GUILESS_MAIN(tst_STLReaderAsciiBytes)
#include "tst_STLReaderAsciiBytes.moc"
