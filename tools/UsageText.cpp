#include "UsageText.h"

#include "Rewording.h"
#include "Text.h"

#include <array>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

// What CLI11 says, and the same with places for what it quotes.
constexpr std::array rows = {
    Rewording{"A subcommand is required", QT_TRANSLATE_NOOP("Text", "A subcommand is required")},
    Rewording{"(.+) is required", QT_TRANSLATE_NOOP("Text", "%1 is required")},
    Rewording{"The following argument was not expected: (.+)",
              QT_TRANSLATE_NOOP("Text", "The following argument was not expected: %1")},
    Rewording{"The following arguments were not expected: (.+)",
              QT_TRANSLATE_NOOP("Text", "The following arguments were not expected: %1")},
    Rewording{"(.+): (\\d+) required (.+) missing", QT_TRANSLATE_NOOP("Text", "%1: %2 required %3 missing")},
    Rewording{"(.+): (.*) not in \\{(.*)\\}", QT_TRANSLATE_NOOP("Text", "%1: %2 not in {%3}")},
    Rewording{"(.+): Value (.*) not in range (\\S+) to (\\S+)",
              QT_TRANSLATE_NOOP("Text", "%1: Value %2 not in range %3 to %4")},
    Rewording{"Could not convert: (.+) = (.*)", QT_TRANSLATE_NOOP("Text", "Could not convert: %1 = %2")},
    Rewording{"(.+): Should be true/false or a number",
              QT_TRANSLATE_NOOP("Text", "%1: Should be true/false or a number")},
    Rewording{"(--?[\\w-]+) requires (--?[\\w-]+)", QT_TRANSLATE_NOOP("Text", "%1 requires %2")},
    Rewording{"(--?[\\w-]+) excludes (--?[\\w-]+)", QT_TRANSLATE_NOOP("Text", "%1 excludes %2")},
};

} // namespace

QString usageSentence(QString const& said)
{
    return reworded(said, rows);
}

} // namespace tool
