#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <utility>

namespace support {

/// What a run of the program left behind.
struct Outcome
{
    /// -1 when the program did not end by itself.
    int exitCode = -1;
    QByteArray standardOutput;
    QByteArray standardError;
};

/// The built program.
QString programFile();

/// Runs the built program in the folder `folder` and waits for its end.
Outcome runProgram(QStringList const& arguments, QString const& folder = {});

/// Names and values of environment variables.
using Variables = QList<std::pair<QString, QString>>;

/// Runs the built program with these variables for its language and no others. `runProgram` asks for English.
Outcome runProgramIn(Variables const& language, QStringList const& arguments, QString const& folder = {});

/// Runs `command` of a POSIX shell in `folder`, with "$SURFACEIO" standing for the program. For what only a
/// shell can set up: closed streams, limits, pipes.
Outcome runShell(QString const& command, QString const& folder = {});

/// What a run is expected to leave behind: the exact exit code and result, and a regular expression that the
/// whole of stderr matches. Fails the calling test, with what was found, and returns false.
bool verify(Outcome const& outcome, int exitCode, QByteArray const& standardOutput,
            QString const& standardErrorPattern);

} // namespace support
