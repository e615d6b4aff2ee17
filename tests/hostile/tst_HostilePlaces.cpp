// Paths that are no ordinary file: nothing hangs, nothing dies, each reader fails or reads what there is.
#include "hostile/AllocationHook.h"
#include "hostile/Bounds.h"
#include "hostile/Messages.h"
#include "hostile/QuickFolder.h"
#include "hostile/Sanitizers.h"
#include "hostile/Subjects.h"

#include <QFile>
#include <QTest>

#include <atomic>
#include <thread>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>
#endif

using hostile::Outcome;
using hostile::Subject;

using namespace Qt::StringLiterals;

namespace {

std::atomic<bool> const never = false;

QString withSuffix(Subject const& subject, QString const& name)
{
    return name + u'.' + QString::fromLatin1(subject.suffix);
}

} // namespace

class tst_HostilePlaces : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void noFile_data() { addSubjects(); }
    void noFile();
    void procFile_data() { addSubjects(); }
    void procFile();
    void holes_data() { addSubjects(); }
    void holes();
    void pipe_data() { addSubjects(); }
    void pipe();
    void shrinks_data() { addSubjects(); }
    void shrinks();

private:
    static void addSubjects();
    static Subject const& fetched();
};

void tst_HostilePlaces::initTestCase()
{
#ifndef Q_OS_UNIX
    QSKIP("these places are those of a POSIX system");
#endif
}

void tst_HostilePlaces::addSubjects()
{
    QTest::addColumn<int>("number");
    for (std::size_t i = 0; i < hostile::subjects().size(); ++i)
        if (hostile::subjects()[i].fromFile)
            QTest::newRow(hostile::subjects()[i].name.constData()) << int(i);
}

Subject const& tst_HostilePlaces::fetched()
{
    QFETCH(int, number);
    return hostile::subjects()[std::size_t(number)];
}

#ifdef Q_OS_UNIX

// A directory, a socket, a link to itself, a link to nothing, a file under a file, a name that is too long,
// and one that nobody may read: what cannot be opened is a failure.
void tst_HostilePlaces::noFile()
{
    hostile::Messages const messages;
    Subject const& subject = fetched();
    hostile::QuickFolder const folder;
    QString const directory = folder.path(withSuffix(subject, u"directory"_s));
    QVERIFY(QDir().mkpath(directory));
    QString const loop = folder.path(withSuffix(subject, u"loop"_s));
    QVERIFY(QFile::link(loop, loop));
    QString const dangling = folder.path(withSuffix(subject, u"dangling"_s));
    QVERIFY(QFile::link(folder.path(u"nothing"_s), dangling));
    QString const socketPath = folder.path(withSuffix(subject, u"socket"_s));
    int const socketNumber = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    qstrncpy(address.sun_path, QFile::encodeName(socketPath).constData(), sizeof(address.sun_path));
    QCOMPARE(::bind(socketNumber, reinterpret_cast<sockaddr const*>(&address), sizeof(address)), 0);
    QString const underFile = folder.write(u"file"_s, subject.seed) + withSuffix(subject, u"/under"_s);
    QString const longName = folder.path(withSuffix(subject, QString(4000, u'n')));
    QStringList places = {directory, loop, dangling, socketPath, underFile, longName, folder.path(u"none"_s),
                          u"."_s};
    QString const forbidden = folder.write(withSuffix(subject, u"forbidden"_s), subject.seed);
    QCOMPARE(::chmod(QFile::encodeName(forbidden).constData(), 0), 0);
    if (::access(QFile::encodeName(forbidden).constData(), R_OK) != 0) // root may read everything
        places << forbidden;
    int const good = hostile::read(subject, subject.seed).result;
    for (QString const& place : places) {
        Outcome const outcome = subject.fromFile(place, never);
        QVERIFY2(outcome.result != good && outcome.fault.isEmpty(), qPrintable(place));
    }
    ::close(socketNumber);
}

// Files of the kernel claim no bytes and have some; a device may have none or no end.
void tst_HostilePlaces::procFile()
{
    hostile::Messages const messages;
    Subject const& subject = fetched();
    for (QString const& place :
         {u"/proc/self/status"_s, u"/proc/self/maps"_s, u"/proc/cpuinfo"_s, u"/dev/null"_s}) {
        if (!QFile::exists(place))
            QSKIP("no /proc here");
        // The facade chooses by suffix.
        hostile::QuickFolder const folder;
        QString const link = folder.path(withSuffix(subject, u"link"_s));
        QVERIFY(QFile::link(place, link));
        Outcome const outcome = subject.fromFile(link, never);
        QVERIFY2(outcome.fault.isEmpty(), qPrintable(place));
    }
}

// Five gigabytes of nothing, which is one line of NULs to a text format.
void tst_HostilePlaces::holes()
{
    Subject const& subject = fetched();
    if (subject.suffix == "obj")
        QSKIP("an OBJ line may be as long as memory holds");
    hostile::Messages const messages;
    hostile::QuickFolder const folder;
    QString const path = folder.write(withSuffix(subject, u"holes"_s), QByteArray());
    QFile file(path);
    QVERIFY(file.resize(qint64(5) << 30));
    hostile::allocations::Watch const watch;
    Outcome const outcome = subject.fromFile(path, never);
    QVERIFY2(watch.peakBytes() <= (std::size_t(512) << 20),
             qPrintable(hostile::megabytes(watch.peakBytes())));
    QVERIFY2(outcome.fault.isEmpty(), qPrintable(outcome.fault));
}

// A pipe is waited for, and ends when its writer goes.
void tst_HostilePlaces::pipe()
{
    Subject const& subject = fetched();
    hostile::Messages const messages;
    hostile::QuickFolder const folder;
    for (qsizetype const length : {qsizetype(0), subject.seed.size() / 2, subject.seed.size()}) {
        QString const path = folder.path(withSuffix(subject, u"pipe%1"_s.arg(length)));
        QByteArray const name = QFile::encodeName(path);
        QCOMPARE(::mkfifo(name.constData(), 0600), 0);
        // Open both ways, so that neither side waits for ever: a reader that opens the pipe twice finds it
        // open.
        int const keep = ::open(name.constData(), O_RDWR | O_NONBLOCK);
        QVERIFY(keep >= 0);
        QCOMPARE(::write(keep, subject.seed.constData(), std::size_t(length)), ssize_t(length));
        Outcome outcome;
        std::atomic<bool> done = false;
        std::thread reader([&] {
            outcome = subject.fromFile(path, never);
            done = true;
        });
        // Time for the reader to open it; one that comes later finds a writer in the loop. The last writer's
        // going is the end of the pipe.
        QTest::qSleep(20);
        ::close(keep);
        while (!done) {
            int const late = ::open(name.constData(), O_WRONLY | O_NONBLOCK);
            if (late >= 0)
                ::close(late);
            QTest::qSleep(1);
        }
        reader.join();
        QVERIFY2(outcome.fault.isEmpty(), qPrintable(outcome.fault));
    }
}

// Cut while the reader is in it: what it finds missing is missing.
void tst_HostilePlaces::shrinks()
{
    Subject const& subject = fetched();
    hostile::Messages const messages;
    hostile::QuickFolder const folder;
    for (int round = 0; round < 20; ++round) {
        QString const path = folder.write(withSuffix(subject, u"shrinks"_s), subject.seed.repeated(200));
        std::atomic<bool> done = false;
        std::thread cutter([&] {
            QFile file(path);
            for (qint64 size = file.size(); size > 0 && !done; size -= size / 8 + 1)
                file.resize(size);
        });
        Outcome const outcome = subject.fromFile(path, never);
        done = true;
        cutter.join();
        QVERIFY2(outcome.fault.isEmpty(), qPrintable(outcome.fault));
    }
}

#else

void tst_HostilePlaces::noFile() {}
void tst_HostilePlaces::procFile() {}
void tst_HostilePlaces::holes() {}
void tst_HostilePlaces::pipe() {}
void tst_HostilePlaces::shrinks() {}

#endif

QTEST_GUILESS_MAIN(tst_HostilePlaces)
#include "tst_HostilePlaces.moc"
