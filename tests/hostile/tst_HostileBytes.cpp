// Every damage of a systematic kind to a small good file of each format: a sound result or a failure, the
// same when it is read again, within the bound of memory, and no call that Qt complains about.
#include "hostile/AllocationHook.h"
#include "hostile/Bounds.h"
#include "hostile/Messages.h"
#include "hostile/Mutations.h"
#include "hostile/Sanitizers.h"
#include "hostile/Subjects.h"

#include <QTest>

using hostile::Outcome;
using hostile::Subject;
using hostile::Visitor;

namespace {

using Mutation = void (*)(QByteArray const&, qsizetype, Visitor const&);

struct Kind
{
    char const* name;
    Mutation mutation;
    bool forText;
    bool forBytes;
    qsizetype stride;
    qsizetype sanitizedStride;
};

constexpr Kind kinds[] = {
    {"truncations", hostile::mutations::truncations, true, true, 1, 3},
    {"bytes", hostile::mutations::bytes, true, true, 1, 11},
    {"counts", hostile::mutations::counts, false, true, 1, 11},
    {"numbers", hostile::mutations::numbers, true, false, 1, 3},
    {"lines", hostile::mutations::lines, true, false, 1, 3},
    {"long lines", hostile::mutations::longLines, true, false, 1, 5},
};

template <typename Step>
std::size_t peakOf(Step const& step)
{
    hostile::allocations::Watch const watch;
    step();
    return watch.peakBytes();
}

bool hasTextHeader(Subject const& subject)
{
    return subject.suffix == "ply";
}

} // namespace

class tst_HostileBytes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void seeds_data();
    void seeds();
    void damages_data();
    void damages();
};

void tst_HostileBytes::seeds_data()
{
    QTest::addColumn<int>("number");
    for (std::size_t i = 0; i < hostile::subjects().size(); ++i)
        QTest::newRow(hostile::subjects()[i].name.constData()) << int(i);
}

// All of this says nothing unless the seeds themselves are read.
void tst_HostileBytes::seeds()
{
    QFETCH(int, number);
    Subject const& subject = hostile::subjects()[std::size_t(number)];
    bool const hasErrors = subject.suffix == "obj" || subject.suffix == "mtl" || subject.suffix == "png";
    bool const isFacade = subject.name.startsWith("facade");
    QCOMPARE(hostile::read(subject, subject.seed).result, hasErrors && !isFacade ? 0 : 1);
}

void tst_HostileBytes::damages_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("kind");
    for (std::size_t i = 0; i < hostile::subjects().size(); ++i) {
        Subject const& subject = hostile::subjects()[i];
        bool const isText = subject.isText || hasTextHeader(subject);
        for (std::size_t k = 0; k < std::size(kinds); ++k)
            if ((isText && kinds[k].forText) || (!subject.isText && kinds[k].forBytes))
                QTest::addRow("%s: %s", subject.name.constData(), kinds[k].name) << int(i) << int(k);
    }
}

void tst_HostileBytes::damages()
{
    QFETCH(int, number);
    QFETCH(int, kind);
    hostile::Messages messages;
    Subject const& subject = hostile::subjects()[std::size_t(number)];
    Kind const& chosen = kinds[std::size_t(kind)];
    QByteArray trouble;
    chosen.mutation(subject.seed, hostile::isSanitized ? chosen.sanitizedStride : chosen.stride,
                    [&](QByteArray const& bytes, QByteArray const& what) {
                        if (!trouble.isEmpty())
                            return;
                        Outcome first;
                        std::size_t const peak = peakOf([&] { first = hostile::read(subject, bytes); });
                        if (peak > hostile::allowedPeak(bytes.size()))
                            trouble = what + ": " + hostile::megabytes(peak).toUtf8();
                        else if (!first.fault.isEmpty())
                            trouble = what + ": " + first.fault.toUtf8();
                        else if (!(hostile::read(subject, bytes) == first))
                            trouble = what + ": another answer the second time";
                        else if (!messages.complaintOfQt().isEmpty())
                            trouble = what + ": " + messages.complaintOfQt().toUtf8();
                        messages.take();
                    });
    QVERIFY2(trouble.isEmpty(), trouble.constData());
}

QTEST_GUILESS_MAIN(tst_HostileBytes)
#include "tst_HostileBytes.moc"
