#include "convert/Batch.h"

#include "Text.h"
#include "convert/Progress.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QThreadPool>

#include <array>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <new>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

using Status = BatchResult::Status;

struct Job
{
    Conversion conversion;
    qint64 bytes = 0;
    std::atomic<qint64> bytesRead = 0;
    bool isDone = false;
    BatchResult result;
};

Status statusFor(ExitCode code, BatchOptions const& options)
{
    if (code == ExitCode::Interrupted)
        return Status::Interrupted;
    if (code != ExitCode::Ok)
        return Status::Failed;
    return options.isRehearsal ? Status::Planned : Status::Converted;
}

class Batch
{
public:
    Batch(std::vector<Conversion> const& conversions, BatchOptions const& options);

    std::vector<BatchResult> run(Console& console);

private:
    void work(Job& job);
    ExitCode convertOne(Conversion const& conversion);
    bool waitFor(Job const& job);
    void report(Job const& job, Console& console) const;
    Progress progress();

    BatchOptions options;
    std::deque<Job> jobs;
    std::atomic<bool> isStopped = false;
    std::mutex mutex;
    std::condition_variable oneIsDone;
    QElapsedTimer clock;
};

Batch::Batch(std::vector<Conversion> const& conversions, BatchOptions const& options_)
    : options(options_)
{
    for (Conversion const& conversion : conversions) {
        Job& job = jobs.emplace_back();
        job.conversion = conversion;
        job.conversion.bytesRead = &job.bytesRead;
        QFileInfo const file(conversion.in);
        job.bytes = file.isFile() ? file.size() : 0;
    }
}

std::vector<BatchResult> Batch::run(Console& console)
{
    Interrupt::Deferral const deferral;
    clock.start();
    bool const isInteractive = console.isInteractive();
    auto const show = [&] {
        if (isInteractive)
            console.status(progress().text());
    };
    show(); // all that is to be done, before any of it is
    QThreadPool pool;
    pool.setMaxThreadCount(options.jobs);
    for (Job& job : jobs)
        pool.start([this, &job] { work(job); });
    std::vector<BatchResult> results;
    for (Job const& job : jobs) {
        do
            show();
        while (!waitFor(job));
        if (isInteractive)
            console.status({});
        report(job, console);
        results.push_back(job.result);
    }
    pool.waitForDone();
    return results;
}

void Batch::work(Job& job)
{
    BatchResult result;
    if (Interrupt::flag()) {
        result.status = Status::Interrupted;
        result.code = ExitCode::Interrupted;
    } else if (!isStopped) {
        MessageCapture const capture;
        result.code = convertOne(job.conversion);
        result.status = statusFor(result.code, options);
        result.messages = capture.messages();
    }
    if (options.failFast && result.status == Status::Failed)
        isStopped = true;
    std::lock_guard const lock(mutex);
    job.result = std::move(result);
    job.isDone = true;
    oneIsDone.notify_all();
}

// Said through the console, whose capture keeps it for this file.
ExitCode Batch::convertOne(Conversion const& conversion)
{
    Console said;
    try {
        if (options.isRehearsal)
            return rehearse(conversion, said);
        if (options.makesFolders && conversion.obstacle.isEmpty())
            QDir().mkpath(QFileInfo(conversion.out).absolutePath());
        return convert(conversion, said);
    } catch (std::bad_alloc const&) {
        said.failure(conversion.in + Text::tr(": there is not enough memory for it"));
        return ExitCode::ReadOrWriteFailed;
    }
}

// False when nothing was done for a while.
bool Batch::waitFor(Job const& job)
{
    constexpr auto untilTheLineIsStale = std::chrono::milliseconds(100);
    std::unique_lock lock(mutex);
    return oneIsDone.wait_for(lock, untilTheLineIsStale, [&job] { return job.isDone; });
}

void Batch::report(Job const& job, Console& console) const
{
    for (Message message : job.result.messages) {
        bool const namesFile = message.sentence.startsWith(job.conversion.in + u": "_s) ||
                               message.sentence.startsWith(job.conversion.out + u": "_s);
        if (jobs.size() > 1 && !namesFile)
            message.sentence.prepend(job.conversion.in + u": "_s);
        console.say(message);
    }
    if (job.result.status == Status::Converted)
        console.note(u"%1 -> %2"_s.arg(job.conversion.in, job.conversion.out));
}

// Formats whose reader takes no device count when they are done.
Progress Batch::progress()
{
    Progress progress;
    progress.files = qint64(jobs.size());
    progress.milliseconds = clock.elapsed();
    std::lock_guard const lock(mutex);
    for (Job const& job : jobs) {
        progress.filesDone += job.isDone ? 1 : 0;
        progress.bytes += job.bytes;
        progress.bytesDone += job.isDone ? job.bytes : std::min<qint64>(job.bytes, job.bytesRead);
    }
    return progress;
}

} // namespace

QLatin1StringView nameOf(BatchResult::Status status)
{
    constexpr std::array names = {"converted"_L1, "planned"_L1, "failed"_L1, "skipped"_L1, "interrupted"_L1};
    return names.at(static_cast<std::size_t>(status));
}

std::vector<BatchResult> convertAll(std::vector<Conversion> const& conversions, BatchOptions const& options,
                                    Console& console)
{
    return Batch(conversions, options).run(console);
}

} // namespace tool
