#include "Program.h"
#include "StlFiles.h"

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using support::runProgramIn;
using support::Variables;

namespace {

Variables const german = {{u"LANGUAGE"_s, u"de"_s}};
Variables const polish = {{u"LANGUAGE"_s, u"pl"_s}};
Variables const english = {{u"LANGUAGE"_s, u"en"_s}};

QString outputOf(Variables const& language, QStringList const& arguments, QString const& folder = {})
{
    return QString::fromUtf8(runProgramIn(language, arguments, folder).standardOutput);
}

// Whether the line says something: three words of letters, and no command.
bool isProse(QString const& line)
{
    static QRegularExpression const words(u"[[:alpha:]]{3,} [[:alpha:]]+ [[:alpha:]]{2,}"_s);
    return words.match(line).hasMatch() && !line.contains(u"surfaceio "_s);
}

} // namespace

// Messages and help in the languages of the users, and nothing of that for programs.
class tst_ProgramLanguage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(folder.isValid());
        QCOMPARE(runProgramIn(english, {u"sample"_s, u"arch.stl"_s, u"--facets"_s, u"2000"_s}, folder.path())
                     .exitCode,
                 0);
        QCOMPARE(runProgramIn(english, {u"sample"_s, u"arch.ply"_s, u"--facets"_s, u"2000"_s}, folder.path())
                     .exitCode,
                 0);
        QCOMPARE(runProgramIn(english, {u"sample"_s, u"arch.obj"_s, u"--facets"_s, u"2000"_s}, folder.path())
                     .exitCode,
                 0);
        QCOMPARE(runProgramIn(english, {u"bundle"_s, u"pack"_s, u"case.xml"_s, u"arch.stl"_s}, folder.path())
                     .exitCode,
                 0);
        QVERIFY(support::writeFile(folder.filePath(u"cut.stl"_s), QByteArray(100, '\1')));
    }

    // Of what the user prefers the first that there is. The C locale means English.
    void choice_data()
    {
        QTest::addColumn<Variables>("variables");
        QTest::addColumn<QString>("sentence");
        QString const inEnglish = u"there is no such file"_s;
        QString const inGerman = u"diese Datei gibt es nicht"_s;
        QString const inPolish = u"nie ma takiego pliku"_s;
        auto const row = [](char const* name, Variables const& variables, QString const& sentence) {
            QTest::newRow(name) << variables << sentence;
        };
        row("nothing", {}, inEnglish);
        row("LANGUAGE", german, inGerman);
        row("LANGUAGE, Polish", polish, inPolish);
        row("a list", {{u"LANGUAGE"_s, u"fr:pl:de"_s}}, inPolish);
        row("a region", {{u"LANGUAGE"_s, u"de_CH"_s}}, inGerman);
        row("no catalogue", {{u"LANGUAGE"_s, u"fr"_s}}, inEnglish);
        row("English before German", {{u"LANGUAGE"_s, u"en:de"_s}}, inEnglish);
        row("a name that is none", {{u"LANGUAGE"_s, u"../../de"_s}}, inEnglish);
        row("LC_ALL", {{u"LC_ALL"_s, u"de_DE.UTF-8"_s}}, inGerman);
        row("LC_MESSAGES", {{u"LC_MESSAGES"_s, u"pl_PL.UTF-8"_s}, {u"LANG"_s, u"C.UTF-8"_s}}, inPolish);
        row("LANG", {{u"LANG"_s, u"de_AT.UTF-8"_s}}, inGerman);
        row("LANGUAGE before LANG", {{u"LANG"_s, u"de_DE.UTF-8"_s}, {u"LANGUAGE"_s, u"pl"_s}}, inPolish);
        row("C", {{u"LC_ALL"_s, u"C"_s}}, inEnglish);
        row("POSIX", {{u"LC_ALL"_s, u"POSIX"_s}}, inEnglish);
        row("C.UTF-8", {{u"LC_ALL"_s, u"C.UTF-8"_s}}, inEnglish);
        row("C wins", {{u"LC_ALL"_s, u"C"_s}, {u"LANGUAGE"_s, u"de"_s}}, inEnglish);
        row("LANG is C", {{u"LANG"_s, u"C"_s}}, inEnglish);
    }

    void choice()
    {
        QFETCH(Variables, variables);
        QFETCH(QString, sentence);
        auto const outcome = runProgramIn(variables, {u"info"_s, u"gone.stl"_s}, folder.path());
        QCOMPARE(outcome.exitCode, 1);
        QString const said = QString::fromUtf8(outcome.standardError);
        // Qt itself remarks on a locale that the system does not have.
        QCOMPARE(said.sliced(said.lastIndexOf(u"surfaceio: "_s)),
                 u"surfaceio: gone.stl: %1\n"_s.arg(sentence));
    }

    void plurals_data()
    {
        QTest::addColumn<Variables>("language");
        QTest::addColumn<int>("count");
        QTest::addColumn<QString>("phrase");
        QTest::newRow("en, 1") << english << 1 << u": 1 facet with two equal corners\n"_s;
        QTest::newRow("en, 2") << english << 2 << u": 2 facets with two equal corners\n"_s;
        QTest::newRow("de, 1") << german << 1 << u": 1 Facette mit zwei gleichen Ecken\n"_s;
        QTest::newRow("de, 2") << german << 2 << u": 2 Facetten mit zwei gleichen Ecken\n"_s;
        QTest::newRow("pl, 1") << polish << 1 << u": 1 ścianka z dwoma jednakowymi narożnikami\n"_s;
        QTest::newRow("pl, 2") << polish << 2 << u": 2 ścianki z dwoma jednakowymi narożnikami\n"_s;
        QTest::newRow("pl, 5") << polish << 5 << u": 5 ścianek z dwoma jednakowymi narożnikami\n"_s;
        QTest::newRow("pl, 12") << polish << 12 << u": 12 ścianek z dwoma jednakowymi narożnikami\n"_s;
        QTest::newRow("pl, 22") << polish << 22 << u": 22 ścianki z dwoma jednakowymi narożnikami\n"_s;
    }

    void plurals()
    {
        QFETCH(Variables, language);
        QFETCH(int, count);
        QFETCH(QString, phrase);
        QByteArray facets = support::stlFacet(0);
        for (int i = 0; i < count; ++i) {
            QByteArray degenerate = support::stlFacet(0);
            degenerate.replace(bytesOfCorner * 2, bytesOfCorner,
                               degenerate.mid(bytesOfCorner, bytesOfCorner));
            facets += degenerate;
        }
        QVERIFY(support::writeFile(folder.filePath(u"some.stl"_s), support::binaryStl(facets)));
        QString const said = outputOf(language, {u"check"_s, u"some.stl"_s}, folder.path());
        QVERIFY2(said.contains(phrase), qPrintable(said));
    }

    // Byte for byte, and what is said beside it too.
    void json_data()
    {
        QTest::addColumn<QString>("line");
        for (char const* const line :
             {"info --json arch.stl arch.ply arch.obj cut.stl gone.stl",
              "check --json arch.stl cut.stl gone.stl .", "formats --json", "tags list --json arch.stl",
              "header get --json arch.ply", "bundle list --json case.xml", "bundle list --json cut.stl",
              "convert --json --dry-run arch.stl cut.stl --to ply -d other",
              "convert --json cut.stl . --to ply -d here --force", "tags split --json arch.stl -d . --force"})
            QTest::newRow(line) << QString::fromLatin1(line);
    }

    void json()
    {
        QFETCH(QString, line);
        QStringList const arguments = line.split(u' ');
        auto const expected = runProgramIn(english, arguments, folder.path());
        for (Variables const& language :
             {german, polish, Variables{{u"LC_ALL"_s, u"de_DE.UTF-8"_s}}, Variables{{u"LC_ALL"_s, u"C"_s}}}) {
            auto const outcome = runProgramIn(language, arguments, folder.path());
            QCOMPARE(outcome.standardOutput, expected.standardOutput);
            QCOMPARE(outcome.standardError, expected.standardError);
            QCOMPARE(outcome.exitCode, expected.exitCode);
        }
    }

    // What the system says of a file is in the language of the rest.
    void reasonsOfTheSystem()
    {
        if (!QDir(u"/proc/self"_s).exists())
            QSKIP("needs a folder that takes no file");
        QString const said =
            outputOf({{u"LC_ALL"_s, u"de_DE.UTF-8"_s}},
                     {u"convert"_s, u"--json"_s, u"arch.stl"_s, u"/proc/arch.ply"_s}, folder.path());
        QVERIFY2(said.contains(u"cannot be written to: No such file or directory\""_s), qPrintable(said));
    }

    void tables()
    {
        QString const inGerman = outputOf(german, {u"info"_s, u"arch.stl"_s}, folder.path());
        QVERIFY2(inGerman.startsWith(
                     u"arch.stl\n  Format          STL\n"
                     "  erkannt         an ihrer Größe, die zu den 2000 Facetten passt, die sie angibt\n"
                     "  Größe in Bytes  100084\n"_s),
                 qPrintable(inGerman));
        QString const inPolish = outputOf(polish, {u"formats"_s});
        QVERIFY2(inPolish.contains(u"\n  vmesh         siatka objętościowa    tak  "_s),
                 qPrintable(inPolish));
        // Numbers have a point in every language.
        QVERIFY(inGerman.contains(QRegularExpression(u"  max +-?\\d+\\.\\d{3} "_s)));
        QVERIFY(!inGerman.contains(QRegularExpression(u"\\d,\\d"_s)));
    }

    void usageErrors()
    {
        auto const outcome = runProgramIn(german, {u"info"_s, u"--color"_s, u"red"_s, u"arch.stl"_s});
        QCOMPARE(outcome.exitCode, 2);
        QCOMPARE(QString::fromUtf8(outcome.standardError),
                 u"surfaceio: --color: red ist nicht unter {auto,always,never}\n"
                 "surfaceio: siehe „surfaceio info --help“\n"_s);
        // A command line without results has no JSON.
        for (QStringList const& arguments : {QStringList{u"info"_s}, QStringList{u"info"_s, u"--json"_s}}) {
            auto const missing = runProgramIn(polish, arguments);
            QCOMPARE(missing.standardOutput, QByteArray());
            QCOMPARE(QString::fromUtf8(missing.standardError),
                     u"surfaceio: Brakuje: FILE\nsurfaceio: zobacz „surfaceio info --help”\n"_s);
        }
    }

    void valuesOutOfRange_data()
    {
        QTest::addColumn<Variables>("language");
        QTest::addColumn<QString>("option");
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("sentence");
        QTest::newRow("range, German")
            << german << u"--facets"_s << u"3"_s << u"der Wert 3 liegt nicht im Bereich 500 bis 40000000"_s;
        QTest::newRow("range, Polish") << polish << u"--facets"_s << u"3"_s
                                       << u"wartość 3 nie mieści się w zakresie od 500 do 40000000"_s;
        QTest::newRow("a value like a place")
            << german << u"--facets"_s << u"%3 to %4"_s
            << u"der Wert %3 to %4 liegt nicht im Bereich 500 bis 40000000"_s;
        QTest::newRow("no value") << german << u"--facets"_s << u""_s
                                  << u"der Wert  liegt nicht im Bereich 500 bis 40000000"_s;
        QTest::newRow("seed, German") << german << u"--seed"_s << u"-4"_s
                                      << u"erwartet wurde eine ganze Zahl von 0 bis 9223372036854775807"_s;
        QTest::newRow("seed, Polish") << polish << u"--seed"_s << u"-4"_s
                                      << u"oczekiwano liczby całkowitej od 0 do 9223372036854775807"_s;
    }

    void valuesOutOfRange()
    {
        QFETCH(Variables, language);
        QFETCH(QString, option);
        QFETCH(QString, value);
        QFETCH(QString, sentence);
        auto const outcome = runProgramIn(language, {u"sample"_s, u"s.stl"_s, option, value});
        QCOMPARE(outcome.exitCode, 2);
        QCOMPARE(QString::fromUtf8(outcome.standardError).section(u'\n', 0, 0),
                 u"surfaceio: "_s + option + u": "_s + sentence);
    }

    // No line of any help was forgotten.
    void help_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("program") << QStringList{u"--help"_s};
        QTest::newRow("manual") << QStringList{u"manual"_s};
        for (char const* const verb :
             {"info",          "check",     "convert",    "bake",        "atlas",
              "preview",       "header",    "header get", "header set",  "header clear",
              "tags",          "tags list", "tags split", "tags merge",  "tags relabel",
              "sample",        "formats",   "bundle",     "bundle list", "bundle pack",
              "bundle unpack", "vmesh",     "vmesh from", "vmesh faces", "vmesh conditions",
              "completion",    "manual"})
            QTest::newRow(verb) << QString::fromLatin1(verb).split(u' ') + QStringList{u"--help"_s};
    }

    void help()
    {
        QFETCH(QStringList, arguments);
        QStringList const lines = outputOf(english, arguments).split(u'\n');
        for (Variables const& language : {german, polish}) {
            QStringList const others = outputOf(language, arguments).split(u'\n');
            QVERIFY(others.size() > 3);
            for (QString const& line : others)
                QVERIFY2(!isProse(line) || !lines.contains(line), qPrintable(line));
        }
    }

    // As man formats them.
    void manualPages()
    {
        if (support::runShell(u"command -v groff"_s).exitCode != 0)
            QSKIP("there is no groff");
        for (char const* const language : {"de", "pl"}) {
            auto const outcome = support::runShell(
                u"LANGUAGE=%1 \"$SURFACEIO\" manual | groff -man -ww -z -Kutf8 -Tutf8"_s.arg(
                    QLatin1StringView(language)),
                folder.path());
            QVERIFY(support::verify(outcome, 0, {}, {}));
        }
    }

private:
    static constexpr int bytesOfCorner = 12;
    QTemporaryDir folder;
};

QTEST_GUILESS_MAIN(tst_ProgramLanguage)
#include "tst_ProgramLanguage.moc"
