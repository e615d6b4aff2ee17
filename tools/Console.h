#pragma once

#include <QString>

#include <atomic>
#include <cstdio>
#include <mutex>
#include <vector>

namespace tool {

/// What the program returns to its caller.
enum class ExitCode : int
{
    Ok = 0,
    /// A file could not be read or written.
    ReadOrWriteFailed = 1,
    /// The command line makes no sense.
    Usage = 2,
    /// A file is damaged, or is not what it says it is.
    Malformed = 3,
    /// A sound file of a kind that the library does not read.
    Unsupported = 4,
    /// All went well but for warnings, under --strict.
    WarningsUnderStrict = 5,
    /// Several files were asked for, and some of them failed.
    SomeFailed = 6,
    /// Ctrl-C.
    Interrupted = 130
};

/// The exit code of several files: that of the only one, or `SomeFailed` when any of several failed.
ExitCode combined(ExitCode soFar, ExitCode next, bool isOnlyFile);

/// `text` with control characters (but line feeds) replaced, so that a file name cannot steer a terminal.
QString printable(QString const& text);

/// A sentence for the user.
struct Message
{
    enum class Kind
    {
        Failure,
        Warning,
        Note
    };

    Kind kind;
    QString sentence;
};

/// While it lives, what is said on this thread is kept here and not shown, to be said later, or otherwise.
/// The innermost capture of a thread gets it.
class MessageCapture
{
public:
    MessageCapture();
    ~MessageCapture();
    MessageCapture(MessageCapture const&) = delete;
    MessageCapture& operator=(MessageCapture const&) = delete;

    std::vector<Message> const& messages() const { return captured; }

private:
    friend class Console;

    MessageCapture* outer;
    std::vector<Message> captured;
};

/// Where everything is printed: results to stdout, everything else to stderr. All text leaves as UTF-8.
/// Any thread may print; a line is never torn.
class Console
{
public:
    enum class Colour
    {
        Auto,
        Always,
        Never
    };

    explicit Console(std::FILE* results = stdout, std::FILE* messages = stderr);

    /// Prints a result exactly as it stands.
    void result(QString const& text);
    /// "surfaceio: sentence". The sentence says what was expected, what was found, and where.
    void failure(QString const& sentence);
    /// "surfaceio: warning: sentence", unless quiet. Counted even when it is not shown.
    void warning(QString const& sentence);
    /// "surfaceio: sentence", only when verbose.
    void note(QString const& sentence);
    /// One of the three.
    void say(Message const& message);

    /// Shows `line` on the terminal in place of the last one, to be replaced by the next; empty takes it
    /// away. To be taken away before anything else is printed.
    void status(QString const& line);
    /// Whether somebody sees what `status` shows: both streams are terminals that can move back in a line.
    bool isInteractive() const;

    void setQuiet(bool quiet);
    bool isQuiet() const { return quiet; }
    void setVerbose(bool verbose);
    void setColour(Colour colour);

    int warningCount() const;
    /// Flushes the results. False when any of them was lost.
    bool finish();

private:
    void write(QByteArray const& bytes);

    mutable std::mutex mutex;
    std::FILE* results;
    std::FILE* messages;
    bool quiet = false;
    bool verbose = false;
    bool coloured = false;
    bool resultsLost = false;
    std::atomic<int> warnings = 0;
};

} // namespace tool
