// Small files that claim much, and large files of the worst kind: memory stays within its bound, and work
// grows with the bytes and not with their square.
#include "hostile/AllocationHook.h"
#include "hostile/Bounds.h"
#include "hostile/GrowingFiles.h"
#include "hostile/Messages.h"
#include "hostile/Seeds.h"
#include "hostile/SubjectParts.h"
#include "hostile/Subjects.h"
#include "support/PlyFiles.h"
#include "support/ShapeTreeBytes.h"
#include "support/StlFiles.h"

#include <QTest>
#include <QtEndian>

#include <cmath>

using hostile::joined;
using hostile::number;
using hostile::Outcome;
using hostile::Subject;

using namespace Qt::StringLiterals;

namespace {

Subject subjectNamed(QByteArray const& name)
{
    return hostile::subjectsOf(name).front();
}

QByteArray plyClaiming(QByteArrayList const& vertexProperties, qint64 vertices, qint64 faces,
                       QByteArrayList const& faceProperties, QByteArray const& body)
{
    return support::plyLines(support::plyStart + QByteArrayList{"element vertex " + number(vertices)} +
                             vertexProperties + QByteArrayList{"element face " + number(faces)} +
                             faceProperties + QByteArrayList{"end_header"}) +
           body;
}

QByteArray pngChunk(QByteArray const& type, quint32 claimed, QByteArray const& content)
{
    QByteArray length(4, '\0');
    qToBigEndian(claimed, length.data());
    return length + type + content;
}

// 57 bytes.
QByteArray pngWithGreatText()
{
    return QByteArray("\x89PNG\r\n\x1a\n", 8) +
           pngChunk("IHDR", 13, QByteArray("\0\0\0\1\0\0\0\1\b\6\0\0\0\x1f\x15\xc4\x89", 17)) +
           pngChunk("tEXt", 1u << 30, QByteArray("a\0bc", 4)) + pngChunk("IEND", 0, "\xae\x42\x60\x82");
}

QByteArray recordClaiming(qint32 vertices, qint32 indices)
{
    QByteArray bytes(8, '\0');
    qToBigEndian(vertices, bytes.data());
    qToBigEndian(indices, bytes.data() + 4);
    return bytes;
}

QByteArray document(QByteArray const& content, QByteArray const& doctype = {})
{
    return doctype +
           "<root><shapes><shape materialId='m'>a.ply</shape></shapes><materials><material "
           "id='m'/></materials>" +
           content + "</root>";
}

constexpr qint64 most = 2147483647;

} // namespace

class tst_HostileBounds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void bombs_data();
    void bombs();
    void decodesAnImageOnce_data();
    void decodesAnImageOnce();
    void grows_data();
    void grows();
};

void tst_HostileBounds::initTestCase()
{
    if (!hostile::allocations::isAvailable())
        QSKIP("allocations can be counted with the GNU C library only, and not under a sanitizer");
}

void tst_HostileBounds::bombs_data()
{
    QTest::addColumn<QByteArray>("subject");
    QTest::addColumn<QByteArray>("bytes");
    QByteArrayList const free = {"property ushort x", "property ushort y", "property ushort z"};
    QByteArrayList const skipped = {"property char a", "property char b", "property char c"};
    QByteArray const body(40, '\0');
    QTest::newRow("PLY: vertices of no bytes")
        << QByteArray("ply-mesh") << plyClaiming(free, most, 1, support::plyIndices, body);
    QTest::newRow("PLY: vertices of nothing")
        << QByteArray("ply-mesh") << plyClaiming(skipped, most, 1, support::plyIndices, body);
    QTest::newRow("PLY: points of nothing")
        << QByteArray("ply-cloud") << plyClaiming(skipped, most, 0, {}, body);
    QTest::newRow("PLY: faces of nothing")
        << QByteArray("ply-mesh") << plyClaiming(support::plyPosition, 3, most, {}, body);
    QTest::newRow("PLY: colours of faces of nothing")
        << QByteArray("ply-colored") << plyClaiming(support::plyPosition, 3, most, {}, body);
    QTest::newRow("PLY: many vertices")
        << QByteArray("ply-mesh") << plyClaiming(support::plyPosition, most, most, support::plyIndices, body);
    QTest::newRow("PLY: a line without an end")
        << QByteArray("ply-mesh") << "ply\ncomment " + QByteArray(qsizetype(1) << 27, 'x');
    for (bool const isNegative : {false, true})
        QTest::addRow("STL: a count that wraps, %d", int(isNegative))
            << QByteArray("stl-binary")
            << support::binaryStl(support::wrappingCount(184, isNegative), QByteArray(100, '\0'));
    QTest::newRow("STL: the largest count")
        << QByteArray("stl-binary-all") << support::binaryStl(0xFFFFFFFFu, QByteArray(100, '\0'));
    QTest::newRow("PNG: a text of a gigabyte") << QByteArray("image") << pngWithGreatText();
    QTest::newRow("shape tree: a long name")
        << QByteArray("shapetree-tree") << support::shapeTreeHeader(2, 0) + QByteArray(8, '\xff');
    QTest::newRow("shape tree: many children")
        << QByteArray("shapetree-tree")
        << support::shapeTreeHeader(2, 0) + support::ShapeTreeBytes().node(u"a"_s, 0xFFFFFFFFu).bytes;
    QTest::newRow("shape: many vertices")
        << QByteArray("shapetree-shape") << support::shapeTreeHeader(2, 0) + QByteArray(8, '\xff');
    QTest::newRow("record: many vertices") << QByteArray("record") << recordClaiming(most, 0);
    QTest::newRow("record: many indices") << QByteArray("record") << recordClaiming(0, most);
    QTest::newRow("record: as many as are believed") << QByteArray("record") << recordClaiming(1'398'101, 0);
    for (qint64 const count : {qint64(4'100'000), qint64(2'097'152), most}) {
        QTest::addRow("vmesh: %lld tetrahedra", count)
            << QByteArray("vmesh") << "# Labeled\n" + number(count) + " 0 0 0\n";
        QTest::addRow("vmesh: %lld of everything", count)
            << QByteArray("vmesh") << "# Labeled\n" + (number(count) + ' ').repeated(4) + '\n';
        QTest::addRow("conditions: %lld", count)
            << QByteArray("conditions") << "a\n\n\n" + number(count) + '\n';
    }
    QTest::newRow("XML: 200 000 levels")
        << QByteArray("xml")
        << document(QByteArray("<x>").repeated(200'000) + QByteArray("</x>").repeated(200'000));
    QTest::newRow("XML: 40 000 attributes")
        << QByteArray("xml")
        << document("<x" + joined(40'000, [](int i) { return " a" + number(i) + "=''"; }) + "/>");
    QTest::newRow("XML: 100 000 references")
        << QByteArray("xml")
        << document(QByteArray("&e;").repeated(100'000),
                    "<!DOCTYPE root [<!ENTITY e '" + QByteArray(4000, 'x') + "'>]>");
    QTest::newRow("OBJ: the largest indices")
        << QByteArray("obj-plain") << QByteArray("v 0 0 0\nf 2147483647 2147483647 2147483647\n");
    QTest::newRow("OBJ: normals from the last index")
        << QByteArray("obj-plain") << QByteArray("v 0 0 0\nvn 0 0 1\nvn 0 0 1\nf 1//2147483647 1//1 1//1\n");
}

// 64 MiB, and for the few large ones 12 times their bytes.
void tst_HostileBounds::bombs()
{
    QFETCH(QByteArray, subject);
    QFETCH(QByteArray, bytes);
    hostile::Messages const messages;
    Subject const chosen = subjectNamed(subject);
    hostile::allocations::Watch const watch;
    Outcome const outcome = hostile::read(chosen, bytes);
    QVERIFY2(watch.peakBytes() <= hostile::allowedPeak(bytes.size()),
             qPrintable(hostile::megabytes(watch.peakBytes())));
    QVERIFY2(outcome.fault.isEmpty(), qPrintable(outcome.fault));
}

void tst_HostileBounds::decodesAnImageOnce_data()
{
    QTest::addColumn<QByteArray>("one");
    QTest::addColumn<QByteArray>("many");
    QByteArray const image = "newmtl a\nmap_Kd large.png\n";
    QTest::newRow("the same line") << image << image.repeated(1000);
    QTest::newRow("the same image") << image << image + QByteArray("map_Ka ./large.png\n").repeated(1000);
    QTest::newRow("one image for many materials")
        << image
        << image + joined(1000, [](int i) { return "newmtl " + number(i) + "\nmap_Kd large.png\n"; });
    QTest::newRow("in turn with another")
        << image << image + QByteArray("map_Kd a.png\nmap_Kd large.png\n").repeated(500);
    QTest::newRow("libraries in turn")
        << image << image + QByteArray("mtllib other.mtl\nmtllib seeds.mtl\n").repeated(10);
    QByteArray const warning = image + "Kd x 1 1\n";
    QTest::newRow("a library that is read again for its warning")
        << warning << warning + QByteArray("mtllib seeds.mtl\n").repeated(20);
    QByteArray const cut = "newmtl a\nmap_Kd cut.png\n";
    QTest::newRow("an image that cannot be decoded")
        << cut << cut + QByteArray("mtllib seeds.mtl\n").repeated(20);
}

// Many lines allocate less than one more image, and hold no more than one.
void tst_HostileBounds::decodesAnImageOnce()
{
    QFETCH(QByteArray, one);
    QFETCH(QByteArray, many);
    QByteArray const start = "mtllib seeds.mtl\nv 0 0 0\nvt 0 0\nusemtl a\nf 1/1 1/1 1/1\n";
    constexpr std::size_t imageBytes = std::size_t(4) * hostile::largeImageSide * hostile::largeImageSide;
    Subject const subject = hostile::objWithLibrary();
    hostile::Messages const messages;
    std::size_t total = 0;
    for (QByteArray const& library : {one, many}) {
        hostile::allocations::Watch const watch;
        Outcome const outcome = hostile::read(subject, start + library);
        QVERIFY2(outcome.fault.isEmpty(), qPrintable(outcome.fault));
        QCOMPARE(outcome.result, 0);
        QVERIFY(watch.totalBytes() > imageBytes);
        QVERIFY2(total == 0 || watch.totalBytes() < total + imageBytes,
                 qPrintable(hostile::megabytes(watch.totalBytes() - total)));
        QVERIFY(watch.peakBytes() <= hostile::allowedPeak(library.size()) + imageBytes);
        total = watch.totalBytes();
    }
}

void tst_HostileBounds::grows_data()
{
    QTest::addColumn<int>("number");
    for (int i = 0; i < int(hostile::growingFiles().size()); ++i)
        QTest::newRow(hostile::growingFiles()[std::size_t(i)].name.constData()) << i;
}

// Without a clock: the allocations and their bytes may double with the file, and a fixed part stays.
void tst_HostileBounds::grows()
{
    QFETCH(int, number);
    hostile::GrowingFile const& file = hostile::growingFiles()[std::size_t(number)];
    hostile::Messages const messages;
    constexpr double factor = 2.4;
    constexpr double fixedCount = 2'000;
    constexpr double fixedBytes = 4.0 * 1024 * 1024;
    double count = 0;
    double total = 0;
    for (int const size : hostile::growingSizes) {
        QByteArray const bytes = file.make(size);
        hostile::allocations::Watch const watch;
        Outcome const outcome = hostile::read(file.subject, bytes);
        auto const nowCount = double(watch.count());
        auto const nowTotal = double(watch.totalBytes());
        QVERIFY2(outcome.fault.isEmpty(), qPrintable(outcome.fault));
        QVERIFY2(watch.peakBytes() <= hostile::allowedPeak(bytes.size()),
                 qPrintable(hostile::megabytes(watch.peakBytes())));
        if (count > 0) {
            QVERIFY2(nowCount <= factor * count + fixedCount,
                     qPrintable(u"%1 after %2 allocations"_s.arg(nowCount).arg(count)));
            QVERIFY2(nowTotal <= factor * total + fixedBytes,
                     qPrintable(u"%1 after %2 bytes"_s.arg(nowTotal).arg(total)));
        }
        count = nowCount;
        total = nowTotal;
    }
}

QTEST_GUILESS_MAIN(tst_HostileBounds)
#include "tst_HostileBounds.moc"
