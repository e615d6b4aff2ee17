#pragma once

#include <QCoreApplication>

#include <string>

namespace tool {

/// What people read, in their language. What programs read (option names, codes, keys, numbers) never comes
/// from here. A text that stands in a table is marked with QT_TRANSLATE_NOOP("Text", "...") and
/// translated where it is shown.
class Text
{
    // Text::tr("..."). The context has the name of the class, as lupdate takes that where it loses its way.
    Q_DECLARE_TR_FUNCTIONS(Text)

public:
    /// The text for `count` things, "%n" being their number. In English, which needs no catalogue, "(s)"
    /// stands for the s of the plural, and "(one|many)" for a word each.
    static QString counted(char const* text, char const* comment, qint64 count);
    /// A text that is marked where it stands.
    static QString shown(QLatin1StringView text) { return tr(text.data()); }
    /// A text as CLI11 takes it.
    static std::string utf8(char const* text);
};

} // namespace tool
