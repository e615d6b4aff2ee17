#include "Program.h"

#include <QProcess>
#include <QProcessEnvironment>
#include <QRegularExpression>
#include <QTest>

#include <array>

using namespace Qt::StringLiterals;

namespace support {

namespace {

constexpr int patienceInMs = 60'000;

constexpr std::array languageVariables = {"LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG"};

// English, in whatever locale the tests run.
QProcessEnvironment usualEnvironment()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"LANGUAGE"_s, u"en"_s);
    return environment;
}

Outcome run(QString const& command, QStringList const& arguments, QString const& folder,
            QProcessEnvironment environment = usualEnvironment())
{
    QProcess process;
    environment.insert(u"SURFACEIO"_s, programFile());
    environment.remove(u"NO_COLOR"_s);
    process.setProcessEnvironment(environment);
    if (!folder.isEmpty())
        process.setWorkingDirectory(folder);
    process.start(command, arguments);
    process.closeWriteChannel();
    bool const ended = process.waitForFinished(patienceInMs) && process.exitStatus() == QProcess::NormalExit;
    if (!ended)
        process.kill();
    return {ended ? process.exitCode() : -1, process.readAllStandardOutput(), process.readAllStandardError()};
}

} // namespace

QString programFile()
{
    return QStringLiteral(SURFACEIO_PROGRAM);
}

Outcome runProgram(QStringList const& arguments, QString const& folder)
{
    return run(programFile(), arguments, folder);
}

Outcome runProgramIn(Variables const& language, QStringList const& arguments, QString const& folder)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (char const* const name : languageVariables)
        environment.remove(QString::fromLatin1(name));
    for (auto const& [name, value] : language)
        environment.insert(name, value);
    return run(programFile(), arguments, folder, environment);
}

Outcome runShell(QString const& command, QString const& folder)
{
    return run(u"/bin/sh"_s, {u"-c"_s, command}, folder);
}

bool verify(Outcome const& outcome, int exitCode, QByteArray const& standardOutput,
            QString const& standardErrorPattern)
{
    QRegularExpression const pattern(QRegularExpression::anchoredPattern(standardErrorPattern),
                                     QRegularExpression::DotMatchesEverythingOption);
    QString const error = QString::fromUtf8(outcome.standardError);
    return QTest::qCompare(error, pattern.match(error).hasMatch() ? error : standardErrorPattern, "stderr",
                           "pattern", __FILE__, __LINE__) &&
           QTest::qCompare(outcome.standardOutput, standardOutput, "stdout", "expected", __FILE__,
                           __LINE__) &&
           QTest::qCompare(outcome.exitCode, exitCode, "exit code", "expected", __FILE__, __LINE__);
}

} // namespace support
