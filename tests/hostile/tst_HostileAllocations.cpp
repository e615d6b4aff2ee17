// Every allocation of a read fails, once and for good: a failure or the right result, never an exception, and
// the same reader reads afterwards as if nothing had been. Where the process ends, it does so within Qt, in a
// function that cannot fail any other way.
#include "hostile/Attempt.h"
#include "hostile/Child.h"
#include "hostile/Messages.h"
#include "hostile/Subjects.h"

#include <QFile>
#include <QTest>

#include <cstdio>

#ifdef Q_OS_LINUX
#include <dlfcn.h>
#include <execinfo.h>
#include <sys/mman.h>
#include <unistd.h>

#include <csignal>
#endif

using hostile::FaultPlan;
using hostile::Outcome;
using hostile::Subject;

using namespace Qt::StringLiterals;

namespace {

std::atomic<bool> const never = false;

#ifdef Q_OS_LINUX

// What a child leaves for its parent.
struct Report
{
    static constexpr int mostFrames = 64;

    std::size_t number;
    bool isDone;
    std::size_t reached;
    std::size_t thrown;
    std::size_t wrong;
    std::size_t unusable;
    std::size_t firstThrown;
    std::size_t firstWrong;
    std::size_t firstUnusable;
    int frameCount;
    void* frames[mostFrames];
};

Report* report = nullptr;

QString const ours = u"ours"_s;

// With a stack of frames that belong to the places where the process was when an allocation failed.
void onDeath(int)
{
    hostile::allocations::stopFailing();
    report->frameCount = ::backtrace(report->frames, Report::mostFrames);
    ::_exit(99);
}

QString nameOf(void* frame)
{
    Dl_info info = {};
    if (::dladdr(frame, &info) == 0 || !info.dli_fname)
        return u"?"_s;
    QString const file = QFile::decodeName(info.dli_fname);
    return file.mid(file.lastIndexOf(u'/') + 1) + u':' +
           QString::fromLatin1(info.dli_sname ? info.dli_sname : "?");
}

// The frames of Qt between the end of the process and ourselves, innermost first; "ours" when there is none.
QString placeOf(Report const& death)
{
    QStringList names;
    for (int i = 0; i < death.frameCount; ++i) {
        QString const name = nameOf(death.frames[i]);
        if (name.startsWith(u"libQt6"_s))
            names << name.mid(name.indexOf(u':') + 1);
        else if (!names.isEmpty())
            break;
        else if (i > 2 && (name.startsWith(u"tst_"_s) || name.startsWith(u"libsurfaceio"_s)))
            return ours;
    }
    return names.isEmpty() ? ours : names.join(u" < "_s);
}

// An exception that crosses QImageReader leaves the lock over its plugins locked, so that the next image
// waits for ever.
bool hasImages(Subject const& subject)
{
    return subject.name == "obj-textured" || subject.name == "obj-colored" || subject.suffix == "mtl" ||
           subject.suffix == "png";
}

// Where normals and cleaning lack memory they answer as if they were cancelled, and these formats do not
// look. The shapes of a document that cannot be read are left out.
bool mayLackParts(Subject const& subject)
{
    return subject.suffix == "stl" || subject.suffix == "ply" || subject.suffix == "xml";
}

// The list of normals that no face has is made when all lines are read.
Subject withoutNormals(Subject const& obj)
{
    Subject subject = obj;
    subject.name += "-without-normals";
    subject.seed = "v 0 0 0\nv 1 0 0\nv 1 1 0\nvt 0 0\nvt 1 0\nf 1/1 2/2 3/2\nf 3/1 2/1 1/1\n";
    return subject;
}

using Reading = std::function<Outcome()>;

// The allocations from number `report->number` on, until one is not reached. Returns 0 when there are no
// more.
int failOneAfterAnother(Reading const& reading, bool forGood, Outcome const& expected)
{
    for (int const signal : {SIGABRT, SIGSEGV, SIGBUS, SIGFPE})
        std::signal(signal, onDeath);
    for (;; ++report->number) {
        FaultPlan& plan = hostile::faultPlan();
        plan = {};
        plan.isActive = true;
        plan.first = report->number;
        plan.forGood = forGood;
        Outcome const again = reading();
        if (!plan.wasReached) {
            report->isDone = true;
            return 0;
        }
        ++report->reached;
        auto const count = [&](bool isBad, std::size_t& counter, std::size_t& first) {
            if (isBad && counter++ == 0)
                first = report->number;
        };
        count(plan.threw, report->thrown, report->firstThrown);
        bool const claimsSuccess = !plan.threw && plan.outcome.result == expected.result;
        count(!plan.outcome.fault.isEmpty() || (claimsSuccess && !(plan.outcome == expected)), report->wrong,
              report->firstWrong);
        count(!(again == expected), report->unusable, report->firstUnusable);
    }
}

#endif

} // namespace

Q_DECLARE_METATYPE(Subject)

class tst_HostileAllocations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyAllocation_data();
    void everyAllocation();
};

void tst_HostileAllocations::initTestCase()
{
    if (!hostile::allocations::isAvailable() || !hostile::canFork())
        QSKIP("allocations can be made to fail with the GNU C library only, and not under a sanitizer");
}

void tst_HostileAllocations::everyAllocation_data()
{
    QTest::addColumn<Subject>("subject");
    QTest::addColumn<bool>("fromFile");
    QTest::addColumn<bool>("forGood");
    std::vector<Subject> subjects = hostile::subjects();
    subjects.push_back(withoutNormals(hostile::subjectsOf("obj-plain").front()));
    for (Subject const& subject : subjects)
        for (bool const fromFile : {false, true})
            for (bool const forGood : {false, true})
                if (!hasImages(subject) && (fromFile ? bool(subject.fromFile) : bool(subject.fromBytes)))
                    QTest::addRow("%s, %s, %s", subject.name.constData(), fromFile ? "file" : "bytes",
                                  forGood ? "for good" : "once")
                        << subject << fromFile << forGood;
}

void tst_HostileAllocations::everyAllocation()
{
#ifdef Q_OS_LINUX
    QFETCH(Subject, subject);
    QFETCH(bool, fromFile);
    QFETCH(bool, forGood);
    hostile::Messages const messages;
    QString const path = hostile::fileOf(subject, subject.seed);
    Reading const reading = [&] {
        return fromFile ? subject.fromFile(path, never) : subject.fromBytes(subject.seed, never);
    };
    Outcome const expected = reading(); // and what is loaded once is loaded
    void* warm[4];
    ::backtrace(warm, 4);
    report = static_cast<Report*>(
        ::mmap(nullptr, sizeof(Report), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
    QVERIFY(report != MAP_FAILED);
    report->number = 1;
    QMap<QString, int> deaths;
    while (!report->isDone) {
        report->frameCount = 0;
        hostile::ChildEnd const end =
            hostile::runInChild([&] { return failOneAfterAnother(reading, forGood, expected); });
        if (report->isDone)
            break;
        QVERIFY2(end.result == 99,
                 qPrintable(u"allocation %1, signal %2"_s.arg(report->number).arg(end.signal)));
        ++deaths[placeOf(*report)];
        ++report->number;
    }
    if (qEnvironmentVariableIsSet("SURFACEIO_LIST_DEATHS"))
        for (auto death = deaths.cbegin(); death != deaths.cend(); ++death)
            std::fprintf(stderr, "%d at %s\n", death.value(), qPrintable(death.key()));
    QVERIFY2(!deaths.contains(ours), "the process ended in our own code");
    QVERIFY(report->reached > 0);
    QVERIFY2(
        report->thrown == 0,
        qPrintable(
            u"%1 of %2 threw, first %3"_s.arg(report->thrown).arg(report->reached).arg(report->firstThrown)));
    QVERIFY2(
        report->wrong == 0 || mayLackParts(subject),
        qPrintable(
            u"%1 of %2 wrong, first %3"_s.arg(report->wrong).arg(report->reached).arg(report->firstWrong)));
    QVERIFY2(report->unusable == 0, qPrintable(u"%1 of %2 unusable, first %3"_s.arg(report->unusable)
                                                   .arg(report->reached)
                                                   .arg(report->firstUnusable)));
    ::munmap(report, sizeof(Report));
#endif
}

QTEST_GUILESS_MAIN(tst_HostileAllocations)
#include "tst_HostileAllocations.moc"
