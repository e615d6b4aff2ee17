// Devices that promise more than they have, and never say that they are at their end: every reader ends, as
// it does for a file of the bytes that came.
#include "hostile/HostileDevice.h"
#include "hostile/Messages.h"
#include "hostile/Sanitizers.h"
#include "hostile/Subjects.h"
#include "obj/OBJReader.h"
#include "support/StlFiles.h"

#include <QTest>

using hostile::Ending;
using hostile::HostileDevice;
using hostile::Outcome;
using hostile::Subject;

using namespace Qt::StringLiterals;

namespace {

std::atomic<bool> const never = false;

constexpr qsizetype stride = hostile::isSanitized ? 7 : 1;
constexpr qint64 everything = 1 << 20;

// A binary file as long as it claims, of which `bytes` came: facets that begin among them, the last with
// zeros for the floats that are not there as a whole.
QByteArray asCompleteStl(QByteArray const& bytes)
{
    constexpr qsizetype start = 84;
    constexpr qsizetype normal = 12;
    constexpr qsizetype facet = 50;
    constexpr qsizetype corners = 36;
    if (bytes.size() < start)
        return {};
    qsizetype const behind = std::max<qsizetype>(0, bytes.size() - start - normal);
    qsizetype const facets = (behind + facet - 1) / facet;
    qsizetype const inFacet = behind % facet;
    QByteArray const whole =
        inFacet < corners ? bytes.chopped(bytes.size() > start + normal ? inFacet % 4 : 0) : bytes;
    return support::binaryStl(quint32(facets), whole.mid(start).leftJustified(facets * facet, '\0', true));
}

} // namespace

class tst_HostileDevices : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void endsAsTruncated_data();
    void endsAsTruncated();
    void binaryStlKeepsItsClaim();
    void objSeesThatItGotNoData();
    void byteByByte_data() { addSubjects(); }
    void byteByByte();

private:
    static void addSubjects();
};

void tst_HostileDevices::addSubjects()
{
    QTest::addColumn<int>("number");
    for (std::size_t i = 0; i < hostile::subjects().size(); ++i)
        if (hostile::subjects()[i].fromDevice)
            QTest::newRow(hostile::subjects()[i].name.constData()) << int(i);
}

void tst_HostileDevices::endsAsTruncated_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<bool>("sequential");
    QTest::addColumn<int>("chunk");
    for (std::size_t i = 0; i < hostile::subjects().size(); ++i)
        for (bool const sequential : {false, true})
            for (int const chunk : {1, 4096})
                if (hostile::subjects()[i].fromDevice)
                    QTest::addRow("%s, %s, %d at a time", hostile::subjects()[i].name.constData(),
                                  sequential ? "sequential" : "random access", chunk)
                        << int(i) << sequential << chunk;
}

// Where a subject says nothing else, any sound result will do: to have ended is what counts.
void tst_HostileDevices::endsAsTruncated()
{
    hostile::Messages const messages;
    QFETCH(int, number);
    QFETCH(bool, sequential);
    QFETCH(int, chunk);
    Subject const& subject = hostile::subjects()[std::size_t(number)];
    for (qsizetype length = 0; length <= subject.seed.size(); length += stride) {
        QByteArray const bytes = subject.seed.first(length);
        Outcome expected;
        if (subject.equivalent)
            expected = hostile::read(subject, subject.equivalent(bytes));
        for (Ending const ending : {Ending::Nothing, Ending::Error}) {
            HostileDevice device(bytes, {subject.seed.size(), chunk, ending, sequential});
            Outcome const outcome = subject.fromDevice(device, never);
            QVERIFY2(outcome.fault.isEmpty(), qPrintable(outcome.fault));
            if (!subject.equivalent || (sequential && subject.name.startsWith("shapetree")))
                continue;
            QVERIFY2(outcome.result == expected.result, qPrintable(QString::number(length)));
            QVERIFY2(outcome.digest == expected.digest, qPrintable(QString::number(length)));
        }
    }
    QCOMPARE(messages.complaintOfQt(), QString());
}

void tst_HostileDevices::binaryStlKeepsItsClaim()
{
    hostile::Messages const messages;
    Subject const subject = hostile::subjectsOf("stl-binary").front();
    for (qsizetype length = 0; length <= subject.seed.size(); ++length) {
        QByteArray const bytes = subject.seed.first(length);
        Outcome const expected = hostile::read(subject, asCompleteStl(bytes));
        for (Ending const ending : {Ending::Nothing, Ending::Error}) {
            HostileDevice device(bytes, {subject.seed.size(), everything, ending, false});
            Outcome const outcome = subject.fromDevice(device, never);
            QVERIFY2(outcome == expected, qPrintable(QString::number(length)));
        }
    }
}

// The device denies its end to the last, so that the last line is never known to be whole.
void tst_HostileDevices::objSeesThatItGotNoData()
{
    hostile::Messages const messages;
    Subject const subject = hostile::subjectsOf("obj-plain").front();
    for (qsizetype length = 0; length <= subject.seed.size(); ++length)
        for (bool const sequential : {false, true})
            for (Ending const ending : {Ending::Nothing, Ending::Error}) {
                HostileDevice device(subject.seed.first(length),
                                     {everything, everything, ending, sequential});
                Outcome const outcome = subject.fromDevice(device, never);
                // A line cut within its last number may be one with too few of them.
                bool const isCutLine = length > 0 && !subject.seed.first(length).endsWith('\n');
                if (!isCutLine)
                    QCOMPARE(outcome.result, int(OBJReader::NoData));
                QVERIFY(outcome.result != OBJReader::NoError);
            }
}

// One byte a call to the honest end gives what the bytes give.
void tst_HostileDevices::byteByByte()
{
    hostile::Messages const messages;
    QFETCH(int, number);
    Subject const& subject = hostile::subjects()[std::size_t(number)];
    class Honest : public HostileDevice
    {
    public:
        using HostileDevice::HostileDevice;
        bool atEnd() const override { return QIODevice::atEnd(); }
        qint64 bytesAvailable() const override { return size() - pos(); }
    };
    Honest device(subject.seed, {subject.seed.size(), 1, Ending::Error, false});
    QVERIFY(subject.fromDevice(device, never) == hostile::read(subject, subject.seed));
}

QTEST_GUILESS_MAIN(tst_HostileDevices)
#include "tst_HostileDevices.moc"
