#include "table/Contender.h"

#include <QFile>

#include <algorithm>
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

constexpr std::size_t fewestRounds = 2;
constexpr std::size_t mostRounds = 50;

/// Milliseconds of each round, and what the first round did.
struct Measured
{
    std::vector<double> clock;
    std::vector<double> processor;
    long peak = 0;
    Size size{};
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

bool measure(Work const& work, Measured& measured)
{
    using Clock = std::chrono::steady_clock;
    auto const start = Clock::now();
    double const processor = processorMilliseconds();
    CALLGRIND_TOGGLE_COLLECT;
    auto const size = work();
    CALLGRIND_TOGGLE_COLLECT;
    measured.processor.push_back(processorMilliseconds() - processor);
    measured.clock.push_back(std::chrono::duration<double, std::milli>(Clock::now() - start).count());
    measured.size = size.value_or(Size());
    return size.has_value();
}

bool measureFor(Work const& work, double milliseconds, Measured& measured)
{
    double left = milliseconds;
    for (std::size_t round = 0; round < fewestRounds || (left > 0 && round < mostRounds); ++round) {
        long const before = memory("VmRSS");
        if (!measure(work, measured))
            return false;
        if (round == 0)
            measured.peak = memory("VmHWM") - before;
        left -= measured.clock.back();
    }
    return true;
}

QByteArray toJson(std::vector<double> const& milliseconds)
{
    QByteArray list;
    for (double const one : milliseconds)
        list += (list.isEmpty() ? "" : ", ") + QByteArray::number(one, 'f', 3);
    return '[' + list + ']';
}

int report(Measured const& measured, char const* lacks)
{
    std::printf("{\"clock\": %s, \"processor\": %s, \"peak\": %ld, \"vertices\": %lld, \"facets\": %lld, "
                "\"result\": %lld, \"lacks\": \"%s\"}\n",
                toJson(measured.clock).constData(), toJson(measured.processor).constData(), measured.peak,
                measured.size.vertices, measured.size.facets, measured.size.bytes, lacks);
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
    auto const isAsked = [&](Contender const& one) { return std::strcmp(one.row, argv[1]) == 0; };
    auto const found = std::find_if(contenders.begin(), contenders.end(), isAsked);
    Measured measured;
    double const milliseconds = QByteArray(argv[3]).toDouble();
    bool const success = found != contenders.end() &&
                         measureFor(found->prepare(QFile::decodeName(argv[2])), milliseconds, measured);
    return success ? report(measured, found->lacks) : EXIT_FAILURE;
}

} // namespace table
