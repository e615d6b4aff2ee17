#pragma once

#include <QStringList>

namespace tool {

class Console;

/// While it lives, what the library logs is shown on the console: warnings and worse as
/// "surfaceio: warning: ...", the rest as notes. What names functions of the library is said in other words.
/// One at a time.
class LogToConsole
{
public:
    explicit LogToConsole(Console& console);
    ~LogToConsole();
    LogToConsole(LogToConsole const&) = delete;
    LogToConsole& operator=(LogToConsole const&) = delete;
};

/// While it lives, warnings that the library logs on this thread are kept here and not shown. The innermost
/// capture of a thread gets them.
class LogCapture
{
public:
    LogCapture();
    ~LogCapture();
    LogCapture(LogCapture const&) = delete;
    LogCapture& operator=(LogCapture const&) = delete;

    QStringList const& messages() const { return captured; }
    void add(QString const& message) { captured << message; }

private:
    LogCapture* outer;
    QStringList captured;
};

} // namespace tool
