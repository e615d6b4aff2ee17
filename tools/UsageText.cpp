#include "UsageText.h"

#include "Text.h"

#include <QRegularExpression>

#include <array>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

// What CLI11 says, and the same with places for what it quotes.
struct Row
{
    char const* pattern;
    char const* text;
};

// The first that fits counts.
constexpr std::array rows = {
    Row{"A subcommand is required", QT_TRANSLATE_NOOP("Text", "A subcommand is required")},
    Row{"(.+) is required", QT_TRANSLATE_NOOP("Text", "%1 is required")},
    Row{"The following argument was not expected: (.+)",
        QT_TRANSLATE_NOOP("Text", "The following argument was not expected: %1")},
    Row{"The following arguments were not expected: (.+)",
        QT_TRANSLATE_NOOP("Text", "The following arguments were not expected: %1")},
    Row{"(.+): (\\d+) required (.+) missing", QT_TRANSLATE_NOOP("Text", "%1: %2 required %3 missing")},
    Row{"(.+): (.*) not in \\{(.*)\\}", QT_TRANSLATE_NOOP("Text", "%1: %2 not in {%3}")},
    Row{"(.+): Value (.*) not in range (\\S+) to (\\S+)",
        QT_TRANSLATE_NOOP("Text", "%1: Value %2 not in range %3 to %4")},
    Row{"Could not convert: (.+) = (.*)", QT_TRANSLATE_NOOP("Text", "Could not convert: %1 = %2")},
    Row{"(.+): Should be true/false or a number",
        QT_TRANSLATE_NOOP("Text", "%1: Should be true/false or a number")},
    Row{"(--?[\\w-]+) requires (--?[\\w-]+)", QT_TRANSLATE_NOOP("Text", "%1 requires %2")},
    Row{"(--?[\\w-]+) excludes (--?[\\w-]+)", QT_TRANSLATE_NOOP("Text", "%1 excludes %2")},
};

// A quoted word may itself look like a place: all are filled at once.
QString filled(QString const& text, QStringList const& words)
{
    switch (words.size()) {
    case 0:
        return text;
    case 1:
        return text.arg(words[0]);
    case 2:
        return text.arg(words[0], words[1]);
    case 3:
        return text.arg(words[0], words[1], words[2]);
    default:
        return text.arg(words[0], words[1], words[2], words[3]);
    }
}

} // namespace

QString usageSentence(QString const& said)
{
    for (Row const& row : rows) {
        QRegularExpression const pattern(
            QRegularExpression::anchoredPattern(QString::fromLatin1(row.pattern)),
            QRegularExpression::DotMatchesEverythingOption);
        if (auto const match = pattern.match(said); match.hasMatch())
            return filled(Text::tr(row.text), match.capturedTexts().mid(1));
    }
    return said;
}

} // namespace tool
