#include "Rewording.h"

#include "Text.h"

#include <QRegularExpression>

namespace tool {

namespace {

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

QString reworded(QString const& said, std::span<Rewording const> rows)
{
    for (Rewording const& row : rows) {
        QRegularExpression const pattern(
            QRegularExpression::anchoredPattern(QString::fromLatin1(row.pattern)),
            QRegularExpression::DotMatchesEverythingOption);
        if (auto const match = pattern.match(said); match.hasMatch())
            return filled(Text::tr(row.text), match.capturedTexts().mid(1));
    }
    return said;
}

} // namespace tool
