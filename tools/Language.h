#pragma once

#include <QLocale>
#include <QStringList>
#include <QTranslator>

#include <array>

namespace tool {

/// The language of the messages: of those that the user prefers the first that there is a catalogue for, else
/// English. While it lives, messages of the program, of the library and of Qt are in that language.
class Language
{
public:
    /// What LANGUAGE, LC_ALL, LC_MESSAGES and LANG ask for, best first. The C locale asks for English.
    static QStringList preferred();

    explicit Language(QStringList const& preferred);
    ~Language();
    Language(Language const&) = delete;
    Language& operator=(Language const&) = delete;

    /// From here on everything is in English, for programs that read what is said.
    void becomeEnglish();

private:
    bool load(QString const& name);

    std::array<QTranslator, 3> translators;
};

} // namespace tool
