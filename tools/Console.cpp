#include "Console.h"

#include <QByteArray>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace tool {

namespace {

bool isTerminal([[maybe_unused]] std::FILE* stream)
{
#ifdef Q_OS_UNIX
    return isatty(fileno(stream)) == 1;
#else
    return false;
#endif
}

bool wantsColour(Console::Colour colour, std::FILE* stream)
{
    if (colour != Console::Colour::Auto)
        return colour == Console::Colour::Always;
    return isTerminal(stream) && qEnvironmentVariableIsEmpty("NO_COLOR");
}

constexpr char const* resetStyle = "\x1b[0m";

} // namespace

struct Console::Style
{
    char const* prefix;
    char const* colour;
};

ExitCode combined(ExitCode soFar, ExitCode next, bool isOnlyFile)
{
    if (isOnlyFile || next == ExitCode::Interrupted)
        return next;
    return next == ExitCode::Ok ? soFar : ExitCode::SomeFailed;
}

QString printable(QString const& text)
{
    QString shown = text;
    for (QChar& character : shown) {
        if (character.category() == QChar::Other_Control && character != u'\n')
            character = QChar::ReplacementCharacter;
    }
    return shown;
}

Console::Console(std::FILE* results_, std::FILE* messages_)
    : results(results_)
    , messages(messages_)
{
    setColour(Colour::Auto);
}

void Console::result(QString const& text)
{
    QByteArray const bytes = text.toUtf8();
    auto const size = static_cast<std::size_t>(bytes.size());
    std::lock_guard const lock(mutex);
    if (std::fwrite(bytes.constData(), 1, size, results) != size)
        resultsLost = true;
}

void Console::failure(QString const& sentence)
{
    message({"", "\x1b[31m"}, sentence);
}

void Console::warning(QString const& sentence)
{
    {
        std::lock_guard const lock(mutex);
        ++warnings;
    }
    if (!quiet)
        message({"warning: ", "\x1b[33m"}, sentence);
}

void Console::note(QString const& sentence)
{
    if (verbose)
        message({"", ""}, sentence);
}

void Console::message(Style const& style, QString const& sentence)
{
    QByteArray line = "surfaceio: ";
    bool const isStyled = coloured && *style.colour != '\0';
    line += isStyled ? style.colour : "";
    line += style.prefix;
    line += printable(sentence).toUtf8();
    line += isStyled ? resetStyle : "";
    line += '\n';
    std::lock_guard const lock(mutex);
    std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), messages);
    std::fflush(messages);
}

void Console::setQuiet(bool quiet_)
{
    quiet = quiet_;
}

void Console::setVerbose(bool verbose_)
{
    verbose = verbose_;
}

void Console::setColour(Colour colour)
{
    coloured = wantsColour(colour, messages);
}

int Console::warningCount() const
{
    std::lock_guard const lock(mutex);
    return warnings;
}

bool Console::finish()
{
    std::lock_guard const lock(mutex);
    if (std::fflush(results) != 0 || std::ferror(results) != 0)
        resultsLost = true;
    return !resultsLost;
}

} // namespace tool
