// Real files of many exporters, good and broken: read through every entry, each comes out as outcomes.tsv
// says. With SURFACEIO_WRITE_OUTCOMES=FILE in the environment that table is written instead of compared, and
// with SURFACEIO_CORPUS_LIMIT=BYTES larger files are left out.
#include "hostile/AllocationHook.h"
#include "hostile/Bounds.h"
#include "hostile/Messages.h"
#include "hostile/Sanitizers.h"
#include "hostile/Subjects.h"
#include "support/Devices.h"

#include <QBuffer>
#include <QDirIterator>
#include <QFile>
#include <QImageReader>
#include <QTest>

using hostile::Outcome;
using hostile::Subject;

using namespace Qt::StringLiterals;

namespace {

std::atomic<bool> const never = false;

QByteArray contentOf(QString const& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("");
}

QByteArrayList formatsOf(QString const& path)
{
    QString const suffix = QFileInfo(path).suffix().toLower();
    if (suffix == u"stl"_s || suffix == u"ply"_s)
        return {suffix.toLatin1()};
    if (suffix == u"obj"_s)
        return {"obj-textured", "obj-colored"};
    if (suffix.isEmpty()) // of fuzzers and tests of format detection
        return {"stl", "ply", "obj-colored"};
    return {};
}

// Decoded, of all images beside the file and below: more than it names, never fewer.
qint64 imageBytesFor(QString const& path)
{
    static QMap<QString, qint64> known;
    QString const folder = QFileInfo(path).absolutePath();
    if (known.contains(folder))
        return known[folder];
    qint64 bytes = 0;
    QDirIterator files(folder, {u"*.png"_s, u"*.jpg"_s}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QSize const size = QImageReader(files.next()).size();
        bytes += qint64(4) * size.width() * size.height();
    }
    return known[folder] = bytes;
}

QByteArray text(Outcome const& outcome)
{
    return QByteArray::number(outcome.result) + ':' + outcome.digest.first(16);
}

// The outcome through the file; then those through bytes, device, one byte at a time and sequential device,
// "=" where it is the same.
QByteArray outcomesOf(QByteArray const& format, QString const& path, QByteArrayList& trouble)
{
    Subject const subject = hostile::subjectFor(format, path);
    QByteArray const bytes = contentOf(path);
    auto const note = [&](Outcome const& outcome) {
        if (!outcome.fault.isEmpty())
            trouble << outcome.fault.toUtf8();
        return text(outcome);
    };
    QByteArray whole;
    {
        hostile::allocations::Watch const watch;
        whole = note(subject.fromFile(path, never));
        qint64 const images = format.startsWith("obj") ? imageBytesFor(path) : 0;
        if (watch.peakBytes() > hostile::allowedPeak(bytes.size() + images))
            trouble << hostile::megabytes(watch.peakBytes()).toUtf8();
    }
    QByteArrayList columns = {whole};
    auto const add = [&](Outcome const& outcome) {
        QByteArray const column = note(outcome);
        columns << (column == whole ? QByteArray("=") : column);
    };
    add(subject.fromBytes(bytes, never));
    QBuffer buffer;
    buffer.setData(bytes);
    add(subject.fromDevice(buffer, never));
    support::TrickleDevice trickle(bytes, 1);
    add(subject.fromDevice(trickle, never));
    support::SequentialDevice sequential(bytes);
    add(subject.fromDevice(sequential, never));
    return columns.join('\t');
}

} // namespace

class tst_Corpus : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyEntry_data();
    void everyEntry();
    void cleanupTestCase();

private:
    QString root;
    QMap<QByteArray, QByteArray> table;
    QByteArrayList written;
};

void tst_Corpus::initTestCase()
{
    root = qEnvironmentVariable("SURFACEIO_CORPUS");
    if (!QFileInfo(root).isDir())
        QSKIP("no corpus: SURFACEIO_CORPUS names no folder");
    for (QByteArray const& line : contentOf(QStringLiteral(SURFACEIO_OUTCOMES)).split('\n')) {
        qsizetype const second = line.indexOf('\t', line.indexOf('\t') + 1);
        if (second > 0 && !line.startsWith('#'))
            table[line.first(second)] = line.sliced(second + 1);
    }
}

void tst_Corpus::everyEntry_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArray>("format");
    QStringList paths;
    QDirIterator files(root, QDir::Files, QDirIterator::Subdirectories);
    bool isLimited = false;
    int const limit = qEnvironmentVariableIntValue("SURFACEIO_CORPUS_LIMIT", &isLimited);
    while (!root.isEmpty() && files.hasNext()) {
        QString const path = files.next();
        if (!isLimited || files.fileInfo().size() <= limit)
            paths << path;
    }
    paths.sort();
    int number = 0;
    for (QString const& path : paths)
        for (QByteArray const& format : formatsOf(path))
            if (!hostile::isSanitized || number++ % 7 == 0)
                QTest::newRow((path.mid(root.size() + 1).toUtf8() + '\t' + format).constData())
                    << path << format;
    if (paths.isEmpty())
        QTest::newRow("none") << QString() << QByteArray();
}

void tst_Corpus::everyEntry()
{
    QFETCH(QString, path);
    QFETCH(QByteArray, format);
    hostile::Messages const messages;
    QByteArrayList trouble;
    QByteArray const name = path.mid(root.size() + 1).toUtf8() + '\t' + format;
    QByteArray const outcomes = outcomesOf(format, path, trouble);
    QVERIFY2(trouble.isEmpty(), trouble.join(", ").constData());
    QCOMPARE(messages.complaintOfQt(), QString());
    if (qEnvironmentVariableIsSet("SURFACEIO_WRITE_OUTCOMES"))
        written << name + '\t' + outcomes;
    else
        QCOMPARE(outcomes, table.value(name));
}

void tst_Corpus::cleanupTestCase()
{
    QFile file(qEnvironmentVariable("SURFACEIO_WRITE_OUTCOMES"));
    if (written.isEmpty())
        return;
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("# file, format, then result and hash through: file, bytes, device, one byte at a time, "
               "sequential\n" +
               written.join('\n') + '\n');
}

QTEST_GUILESS_MAIN(tst_Corpus)
#include "tst_Corpus.moc"
