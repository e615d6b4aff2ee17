#include "volume/Words.h"

#include "Text.h"

#include <algorithm>
#include <charconv>
#include <cmath>

using namespace Qt::StringLiterals;

namespace tool::volume {

namespace {

constexpr qsizetype shownCharacters = 60;

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\v' || c == '\f';
}

template <typename Number>
std::optional<Number> numberIn(QByteArrayView word)
{
    Number number = 0;
    auto const [end, error] = std::from_chars(word.begin(), word.end(), number);
    bool const isNumber = error == std::errc() && end == word.end() && !word.isEmpty();
    return isNumber ? std::optional(number) : std::nullopt;
}

} // namespace

Words::Words(QByteArrayView text_)
    : text(text_)
{}

bool Words::next()
{
    while (!skipBlanks() && !atEnd())
        passLineEnd();
    return takeWord();
}

bool Words::nextInLine()
{
    skipBlanks();
    return takeWord();
}

bool Words::nextLine()
{
    found = {};
    while (!atEnd() && text[at] != '\n')
        ++at;
    if (atEnd())
        return false;
    passLineEnd();
    return true;
}

void Words::skipParagraph()
{
    while (nextLine() && skipBlanks()) {
    }
}

QString Words::expected(QString const& what) const
{
    return expected(what, found);
}

QString Words::expectedLine(QString const& what) const
{
    return expected(what, wholeLine().trimmed());
}

QString Words::expected(QString const& what, QByteArrayView instead) const
{
    if (found.isEmpty() && atEnd())
        return Text::tr("the file ends in line %1: expected %2").arg(QString::number(number), what);
    QByteArrayView const shown = instead.first(std::min(instead.size(), shownCharacters));
    return Text::tr("line %1: expected %2, found \"%3\"")
        .arg(QString::number(number), what, QString::fromLatin1(shown));
}

// False at the end of the line.
bool Words::skipBlanks()
{
    while (!atEnd() && isBlank(text[at]))
        ++at;
    return !atEnd() && text[at] != '\n';
}

void Words::passLineEnd()
{
    ++at;
    ++number;
    lineStart = at;
}

bool Words::takeWord()
{
    qsizetype const begin = at;
    while (!atEnd() && text[at] != '\n' && !isBlank(text[at]))
        ++at;
    found = text.sliced(begin, at - begin);
    return !found.isEmpty();
}

QByteArrayView Words::wholeLine() const
{
    qsizetype const end = text.indexOf('\n', lineStart);
    return text.sliced(lineStart, (end < 0 ? text.size() : end) - lineStart);
}

std::optional<qint64> integerIn(QByteArrayView word)
{
    return numberIn<qint64>(word);
}

std::optional<float> coordinateIn(QByteArrayView word)
{
    std::optional<double> const number = numberIn<double>(word);
    if (!number || !std::isfinite(static_cast<float>(*number)))
        return {};
    return static_cast<float>(*number);
}

} // namespace tool::volume
