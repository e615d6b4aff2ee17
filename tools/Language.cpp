#include "Language.h"

#include <QCoreApplication>
#include <QLibraryInfo>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

constexpr auto english = "en"_L1;

// What the C library says of files that cannot be opened goes by this variable too.
void tellCLibrary(QString const& language)
{
    qputenv("LANGUAGE", language.toLatin1());
}

} // namespace

QStringList Language::preferred()
{
    // Whoever sets this wants the same text everywhere.
    QByteArray const all = qgetenv("LC_ALL");
    if (all == "C" || all == "POSIX")
        return {};
    return QLocale::system().uiLanguages();
}

Language::Language(QStringList const& preferred)
{
    for (QString const& wanted : preferred) {
        QString const language = wanted.section(u'-', 0, 0);
        if (language == english || language == "C"_L1)
            break;
        if (load(language)) {
            tellCLibrary(language);
            return;
        }
    }
    tellCLibrary(english);
}

Language::~Language()
{
    becomeEnglish();
}

bool Language::load(QString const& name)
{
    QString const catalogues = u":/surfaceio/translations"_s;
    if (!translators[0].load(u"surfaceio-program_"_s + name, catalogues))
        return false;
    static_cast<void>(translators[1].load(u"surfaceio_"_s + name, catalogues));
    static_cast<void>(
        translators[2].load(u"qtbase_"_s + name, QLibraryInfo::path(QLibraryInfo::TranslationsPath)));
    for (QTranslator& translator : translators)
        QCoreApplication::installTranslator(&translator);
    return true;
}

void Language::becomeEnglish()
{
    for (QTranslator& translator : translators)
        QCoreApplication::removeTranslator(&translator);
    tellCLibrary(english);
}

} // namespace tool
