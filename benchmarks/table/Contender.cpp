#include "table/Contender.h"

#include <QFile>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>

#if __has_include(<valgrind/callgrind.h>)
#include <valgrind/callgrind.h>
#else
#define CALLGRIND_TOGGLE_COLLECT
#endif

namespace table {

namespace {

struct Time
{
    double clock;
    double processor;
};

double processorMilliseconds()
{
    std::timespec time{};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return 1e3 * static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_nsec);
}

// A line of /proc/self/status, in kB; 0 elsewhere.
long memory(QByteArray const& name)
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (QByteArray const& line : status.readAll().split('\n'))
        if (line.startsWith(name))
            return line.mid(name.size() + 1).simplified().split(' ').first().toLong();
    return 0;
}

bool measure(Work const& work, Time& time)
{
    using Clock = std::chrono::steady_clock;
    auto const start = Clock::now();
    double const processor = processorMilliseconds();
    CALLGRIND_TOGGLE_COLLECT;
    bool const success = work();
    CALLGRIND_TOGGLE_COLLECT;
    time.processor = processorMilliseconds() - processor;
    time.clock = std::chrono::duration<double, std::milli>(Clock::now() - start).count();
    return success;
}

int measureAll(Work const& work, int rounds)
{
    QByteArray clocks;
    QByteArray processors;
    long peak = 0;
    for (int round = 0; round < rounds; ++round) {
        long const before = memory("VmRSS");
        Time time{};
        if (!measure(work, time))
            return EXIT_FAILURE;
        if (round == 0)
            peak = memory("VmHWM") - before;
        QByteArray const separator = round == 0 ? "" : ", ";
        clocks += separator + QByteArray::number(time.clock, 'f', 3);
        processors += separator + QByteArray::number(time.processor, 'f', 3);
    }
    std::printf("{\"clock\": [%s], \"processor\": [%s], \"peak\": %ld}\n", clocks.constData(),
                processors.constData(), peak);
    return EXIT_SUCCESS;
}

} // namespace

int run(std::vector<Contender> const& contenders, int argc, char** argv)
{
    if (argc != 4) {
        for (Contender const& contender : contenders)
            std::puts(contender.row);
        return EXIT_SUCCESS;
    }
    for (Contender const& contender : contenders)
        if (std::strcmp(contender.row, argv[1]) == 0)
            return measureAll(contender.prepare(QString::fromLocal8Bit(argv[2])), std::atoi(argv[3]));
    return EXIT_FAILURE;
}

} // namespace table
