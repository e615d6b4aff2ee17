#include "ply/PLYWriter.h"
#include "support/Meshes.h"
#include "support/PrivateAccess.h"

#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#ifdef Q_OS_UNIX
#include <sys/resource.h>

#include <csignal>
#endif

using namespace Qt::StringLiterals;

namespace support {

struct WriteData
{
    using Member = bool (PLYWriter::*)(QDataStream&);
    friend Member privateMember(WriteData);
};
template struct PrivateMember<WriteData, &PLYWriter::writeData>;

} // namespace support

namespace {

// Takes so many bytes and no more.
class FullDevice : public QIODevice
{
public:
    explicit FullDevice(qint64 capacity_)
        : capacity(capacity_)
    {
        open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    }

    bool isSequential() const override { return true; }

protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(char const*, qint64 size) override
    {
        if (size > capacity)
            return -1;
        capacity -= size;
        return size;
    }

private:
    qint64 capacity;
};

// Two vertices, one triangle, with everything.
PLYWriter fullWriter()
{
    PLYWriter writer;
    geometry::Mesh mesh({{1, 2, 3}, {4, 5, 6}}, {0, 1, 0, -1}, {{0, 0, 1}, {0, 1, 0}},
                        QList<unsigned int>{1u, 2u});
    writer.setData(mesh, true, geometry::Material::metal());
    writer.setFilePath(u"some.ply"_s);
    return writer;
}

QByteArray bytesOf(PLYWriter& writer)
{
    QByteArray bytes;
    return writer.write(bytes) ? bytes : QByteArray();
}

QByteArray contentOf(QString const& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

#ifdef Q_OS_UNIX
// No file of this process grows beyond so many bytes while this lives.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes)
        : handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &before);
        rlimit const limit{bytes, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    FileSizeLimit(FileSizeLimit const&) = delete;
    FileSizeLimit& operator=(FileSizeLimit const&) = delete;
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handler);
    }

private:
    rlimit before{};
    void (*handler)(int);
};
#endif

} // namespace

class tst_PLYWriterFailures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cannotCreate_data();
    void cannotCreate();
    void replacesTheFile();
    void keepsTheMessage();
    void reportsTheStepThatFailed_data();
    void reportsTheStepThatFailed();
    void failsAtEveryLength();
    void refusesListsThatAreTooShort_data();
    void refusesListsThatAreTooShort();
    void ignoresWhatListsHaveTooMuch();
    void keepsAPartlyWrittenFile();
    void noticesAFullDiskAtTheEnd();
    void copiesEveryField();
};

void tst_PLYWriterFailures::cannotCreate_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("no path") << QString();
    QTest::newRow("no such folder") << u"no/such/folder/mesh.ply"_s;
    QTest::newRow("a folder") << u"."_s;
    QTest::newRow("percent signs") << u"no/%1/%2.ply"_s;
}

void tst_PLYWriterFailures::cannotCreate()
{
    QFETCH(QString, path);
    QTemporaryDir const folder;
    QString const full = path.isEmpty() ? path : folder.filePath(path);
    PLYWriter writer;
    writer.setFilePath(full);
    QCOMPARE(writer.getErrorMessage(), QString());
    QVERIFY(!writer.write());
    QCOMPARE(writer.getErrorMessage(), u"Unable to create .ply file at location: "_s + full);
    QCOMPARE(QDir(folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
}

void tst_PLYWriterFailures::replacesTheFile()
{
    QTemporaryDir const folder;
    QString const path = folder.filePath(u"mesh.ply"_s);
    PLYWriter writer = fullWriter();
    writer.setFilePath(path);
    QVERIFY(writer.write());
    QByteArray const first = contentOf(path);
    QCOMPARE(first, bytesOf(writer));
    writer.setData(geometry::Mesh(), false, {});
    QVERIFY(writer.write());
    QCOMPARE(contentOf(path), bytesOf(writer));
    QVERIFY(contentOf(path).size() < first.size());
}

void tst_PLYWriterFailures::keepsTheMessage()
{
    QTemporaryDir const folder;
    PLYWriter writer;
    writer.setFilePath(folder.filePath(u"no/mesh.ply"_s));
    QVERIFY(!writer.write());
    QString const message = writer.getErrorMessage();
    writer.setFilePath(folder.filePath(u"mesh.ply"_s));
    QVERIFY(writer.write());
    QCOMPARE(writer.getErrorMessage(), message);
}

void tst_PLYWriterFailures::reportsTheStepThatFailed_data()
{
    QTest::addColumn<int>("missing");
    QTest::addColumn<QByteArray>("warning");
    QTest::addColumn<QString>("what");
    QByteArray const vertices = "PLYWriter: failed to write vertices - 3";
    QByteArray const faces = "PLYWriter: failed to write faces - 3";
    QByteArray const material = "PLYWriter: failed to write material - 3";
    QTest::newRow("material") << 1 << material << u"data"_s;
    QTest::newRow("all of the material") << 41 << material << u"data"_s;
    QTest::newRow("end of the face") << 42 << faces << u"data"_s;
    QTest::newRow("face") << 54 << faces << u"data"_s;
    QTest::newRow("end of the vertices") << 55 << vertices << u"data"_s;
    QTest::newRow("vertices") << 110 << vertices << u"data"_s;
    QTest::newRow("end of the header") << 111 << QByteArray() << u"header"_s;
}

void tst_PLYWriterFailures::reportsTheStepThatFailed()
{
    QFETCH(int, missing);
    QFETCH(QByteArray, warning);
    QFETCH(QString, what);
    PLYWriter writer = fullWriter();
    FullDevice device(bytesOf(writer).size() - missing);
    QDataStream stream(&device);
    if (!warning.isEmpty())
        QTest::ignoreMessage(QtWarningMsg, warning.constData());
    QVERIFY(!(writer.*privateMember(support::WriteData()))(stream));
    QCOMPARE(writer.getErrorMessage(), u"Could not write %1 to file at location: some.ply"_s.arg(what));
}

void tst_PLYWriterFailures::failsAtEveryLength()
{
    PLYWriter writer = fullWriter();
    qsizetype const size = bytesOf(writer).size();
    qsizetype const headerSize = size - 110;
    for (qsizetype capacity = 0; capacity <= size; ++capacity) {
        FullDevice device(capacity);
        QDataStream stream(&device);
        if (capacity >= headerSize && capacity < size)
            QTest::ignoreMessage(QtWarningMsg,
                                 QRegularExpression(u"^PLYWriter: failed to write \\w+ - 3$"_s));
        QCOMPARE((writer.*privateMember(support::WriteData()))(stream), capacity == size);
    }
}

void tst_PLYWriterFailures::refusesListsThatAreTooShort_data()
{
    QTest::addColumn<int>("normals");
    QTest::addColumn<int>("colors");
    QTest::newRow("normals") << 2 << 0;
    QTest::newRow("colors") << 3 << 1;
    QTest::newRow("both") << 1 << 2;
}

void tst_PLYWriterFailures::refusesListsThatAreTooShort()
{
    QFETCH(int, normals);
    QFETCH(int, colors);
    geometry::Mesh mesh(QList<QVector3D>(3), {0, 1, 2, -1});
    mesh.normals.resize(normals);
    mesh.colors.resize(colors);
    PLYWriter writer;
    writer.setData(mesh, false, {});
    writer.setFilePath(u"here"_s);
    QTest::ignoreMessage(QtWarningMsg, "PLYWriter: failed to write vertices - 0");
    QByteArray bytes;
    QVERIFY(!writer.write(bytes));
    QCOMPARE(writer.getErrorMessage(), u"Could not write data to file at location: here"_s);
    QVERIFY(bytes.endsWith("end_header\n"));
}

void tst_PLYWriterFailures::ignoresWhatListsHaveTooMuch()
{
    geometry::Mesh mesh({{1, 2, 3}}, {}, {{0, 0, 1}}, QList<unsigned int>{5u});
    PLYWriter writer;
    writer.setData(mesh, true, {});
    QByteArray const expected = bytesOf(writer);
    mesh.normals.append({9, 9, 9});
    mesh.colors.append(9u);
    writer.setData(mesh, true, {});
    QCOMPARE(bytesOf(writer), expected);
}

void tst_PLYWriterFailures::keepsAPartlyWrittenFile()
{
#ifdef Q_OS_UNIX
    QTemporaryDir const folder;
    QString const path = folder.filePath(u"mesh.ply"_s);
    PLYWriter writer;
    writer.setFilePath(path);
    writer.setData(geometry::Mesh(QList<QVector3D>(20000), {}), false, {});
    QByteArray const whole = bytesOf(writer);
    QTest::ignoreMessage(QtWarningMsg, "PLYWriter: failed to write vertices - 3");
    {
        FileSizeLimit const limit(50000);
        QVERIFY(!writer.write());
    }
    QCOMPARE(writer.getErrorMessage(), u"Could not write data to file at location: "_s + path);
    QByteArray const part = contentOf(path);
    QVERIFY(!part.isEmpty());
    QVERIFY(part.size() <= 50000);
    QVERIFY(whole.startsWith(part));
#else
    QSKIP("no way to fill a disk here");
#endif
}

void tst_PLYWriterFailures::noticesAFullDiskAtTheEnd()
{
#ifdef Q_OS_UNIX
    QTemporaryDir const folder;
    PLYWriter writer = fullWriter();
    QString const path = folder.filePath(u"mesh.ply"_s);
    writer.setFilePath(path);
    {
        FileSizeLimit const limit(100);
        QVERIFY(!writer.write());
    }
    QCOMPARE(writer.getErrorMessage(), u"Could not write data to file at location: "_s + path);
#else
    QSKIP("no way to fill a disk here");
#endif
}

void tst_PLYWriterFailures::copiesEveryField()
{
    QTemporaryDir const folder;
    PLYWriter writer = fullWriter();
    writer.setHeaderData(MeshHeader(u"name"_s, u"serial"_s, true, u"1"_s, {}));
    writer.setFilePath(folder.filePath(u"no/folder.ply"_s));
    QVERIFY(!writer.write());

    PLYWriter copy(writer);
    PLYWriter assigned;
    assigned = writer;
    QByteArray const expected = bytesOf(writer);
    for (PLYWriter* const other : {&copy, &assigned}) {
        QCOMPARE(bytesOf(*other), expected);
        QCOMPARE(other->getErrorMessage(), writer.getErrorMessage());
        QVERIFY(!other->write());
    }
    copy.setData(geometry::Mesh(), false, {});
    QCOMPARE(bytesOf(writer), expected);
}

QTEST_GUILESS_MAIN(tst_PLYWriterFailures)
#include "tst_PLYWriterFailures.moc"
