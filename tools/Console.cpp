#include "Console.h"

#include "Text.h"

#include <QByteArray>

#include <array>

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

struct Style
{
    char const* prefix;
    char const* colour;
};

// In the order of Message::Kind.
constexpr std::array styles = {Style{"", "\x1b[31m"},
                               Style{QT_TRANSLATE_NOOP("Text", "warning: "), "\x1b[33m"}, Style{"", ""}};

thread_local MessageCapture* innermostCapture = nullptr;

} // namespace

MessageCapture::MessageCapture()
    : outer(innermostCapture)
{
    innermostCapture = this;
}

MessageCapture::~MessageCapture()
{
    innermostCapture = outer;
}

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
    say({Message::Kind::Failure, sentence});
}

void Console::warning(QString const& sentence)
{
    say({Message::Kind::Warning, sentence});
}

void Console::note(QString const& sentence)
{
    say({Message::Kind::Note, sentence});
}

void Console::say(Message const& message)
{
    if (innermostCapture != nullptr) {
        innermostCapture->captured.push_back(message);
        return;
    }
    if (message.kind == Message::Kind::Warning)
        ++warnings;
    bool const isShown = message.kind == Message::Kind::Failure ||
                         (message.kind == Message::Kind::Warning && !quiet) ||
                         (message.kind == Message::Kind::Note && verbose);
    if (!isShown)
        return;
    Style const& style = styles.at(static_cast<std::size_t>(message.kind));
    bool const isStyled = coloured && *style.colour != '\0';
    QByteArray line = "surfaceio: ";
    line += isStyled ? style.colour : "";
    line += *style.prefix == '\0' ? QByteArray() : Text::tr(style.prefix).toUtf8();
    line += printable(message.sentence).toUtf8();
    line += isStyled ? resetStyle : "";
    write(line + '\n');
}

void Console::status(QString const& line)
{
    constexpr char const* clearLine = "\r\x1b[K";
    write(clearLine + printable(line).toUtf8());
}

bool Console::isInteractive() const
{
    return !quiet && isTerminal(results) && isTerminal(messages) && qgetenv("TERM") != "dumb";
}

void Console::write(QByteArray const& bytes)
{
    std::lock_guard const lock(mutex);
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), messages);
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
