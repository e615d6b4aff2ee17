#include "Program.h"
#include "StlFiles.h"

#include <QDir>
#include <QImage>
#include <QMap>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using support::runProgram;
using support::runShell;
using support::verify;

// What the program and its package tell shells, man and desktops. All is held against --help.
class tst_ProgramDescription : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(folder.isValid());
        collect({});
        QVERIFY(flags.size() > 15);
        QVERIFY(flags[u"convert"_s].contains(u"--dry-run"_s));
        QVERIFY(flags[u"tags list"_s].contains(u"--json"_s));
        for (char const* shell : {"bash", "zsh", "fish"}) {
            auto const outcome = runProgram({u"completion"_s, QString::fromLatin1(shell)});
            QCOMPARE(outcome.exitCode, 0);
            QVERIFY(support::writeFile(folder.filePath(QString::fromLatin1(shell)), outcome.standardOutput));
        }
        auto const manual = runProgram({u"manual"_s});
        QVERIFY(support::writeFile(folder.filePath(u"surfaceio.1"_s), manual.standardOutput));
    }

    void commands_data()
    {
        QTest::addColumn<QString>("command");
        for (auto const& command : flags.keys())
            QTest::addRow("surfaceio %s", qPrintable(command)) << command;
    }

    void commands()
    {
        QFETCH(QString, command);
        QString const bash = text(u"bash"_s);
        QRegularExpression const options(
            u"^        \"%1\"\\) options='([^']*)' words='([^']*)' ;;$"_s.arg(command),
            QRegularExpression::MultilineOption);
        auto const found = options.match(bash);
        QCOMPARE(sorted(found.captured(1).split(u' ')), sorted(flags[command]));
        for (QString const& verb : verbs[command])
            QVERIFY(found.captured(2).split(u' ').contains(verb));

        QString const function = u"_surfaceio"_s + (command.isEmpty() ? QString() : u'_' + command);
        QString const zsh = between(
            text(u"zsh"_s), u"\n"_s + QString(function).replace(u' ', u'_') + u"() {\n"_s, u"\n}\n"_s);
        QString const manual = between(text(u"surfaceio.1"_s) + u".S"_s, sectionOf(command), u"\n.S"_s);
        QString const common = between(text(u"surfaceio.1"_s), u"Every verb takes:\n"_s, u"\n.S"_s);
        for (QString const& flag : flags[command]) {
            QVERIFY2(zsh.contains(u')' + flag + u'['), qPrintable(flag));
            QString const bold = u"\\fB"_s + QString(flag).replace(u'-', u"\\-"_s) + u"\\fR"_s;
            QVERIFY2(manual.contains(bold) || common.contains(bold), qPrintable(flag));
            QVERIFY2(fishHas(command, flag), qPrintable(flag));
        }
        for (QString const& verb : verbs[command])
            QVERIFY2(zsh.contains(u'\'' + verb + u':'), qPrintable(verb));
    }

    void syntax_data()
    {
        QTest::addColumn<QString>("check");
        QTest::newRow("bash") << u"bash -n bash"_s;
        QTest::newRow("zsh") << u"zsh -n zsh"_s;
        QTest::newRow("fish") << u"fish -n fish"_s;
        QTest::newRow("groff") << u"groff -man -ww -z -Tutf8 surfaceio.1"_s;
        QString const files = QStringLiteral(SURFACEIO_SOURCE) + u"/tools/desktop/"_s;
        QTest::newRow("desktop entry") << u"desktop-file-validate "_s + files + u"surfaceio.desktop"_s;
        QTest::newRow("metainfo") << u"appstreamcli validate --no-net "_s + files +
                                         u"org.surfaceio.SurfaceIO.metainfo.xml >/dev/null"_s;
        QTest::newRow("xml") << u"xmllint --noout "_s + files + u"*.xml"_s;
    }

    void syntax()
    {
        QFETCH(QString, check);
        if (isMissing(check.section(u' ', 0, 0)))
            QSKIP("it is not installed");
        verify(runShell(check, folder.path()), 0, {}, {});
    }

    void mimeTypes()
    {
        if (isMissing(u"update-mime-database"_s))
            QSKIP("it is not installed");
        QString const command =
            u"mkdir -p mime/packages && cp '%1/tools/desktop/surfaceio.mime.xml' mime/packages/ && "
            "update-mime-database mime && sort mime/globs"_s.arg(QStringLiteral(SURFACEIO_SOURCE));
        auto const outcome = runShell(command, folder.path());
        QCOMPARE(outcome.exitCode, 0);
        QVERIFY(outcome.standardOutput.contains("\nmodel/x-ply:*.ply\n"));
        QVERIFY(outcome.standardOutput.contains("\napplication/x-surfaceio-vmesh:*.vmesh\n"));
    }

    void languagesOfTheDesktop_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("english");
        QTest::addColumn<QString>("translated");
        QString const metainfo = u"org.surfaceio.SurfaceIO.metainfo.xml"_s;
        QTest::newRow("kinds of files")
            << u"surfaceio.mime.xml"_s << u"<comment>"_s << u"<comment xml:lang=\"%1\">"_s;
        QTest::newRow("summary") << metainfo << u"<summary>"_s << u"<summary xml:lang=\"%1\">"_s;
        QTest::newRow("description") << metainfo << u"<p>"_s << u"<p xml:lang=\"%1\">"_s;
        QTest::newRow("name") << u"surfaceio.desktop"_s << u"\nGenericName="_s << u"\nGenericName[%1]="_s;
        QTest::newRow("comment") << u"surfaceio.desktop"_s << u"\nComment="_s << u"\nComment[%1]="_s;
    }

    void languagesOfTheDesktop()
    {
        QFETCH(QString, file);
        QFETCH(QString, english);
        QFETCH(QString, translated);
        QString const text = QString::fromUtf8(
            support::readFile(QStringLiteral(SURFACEIO_SOURCE) + u"/tools/desktop/"_s + file));
        QVERIFY(text.contains(english));
        for (QString const& language : {u"de"_s, u"pl"_s})
            QCOMPARE(text.count(translated.arg(language)), text.count(english));
    }

    // As a file manager runs it, with names that it makes up.
    void thumbnailer_data()
    {
        QTest::addColumn<QString>("out");
        QTest::newRow("a picture") << u"out.png"_s;
        QTest::newRow("a temporary name") << u"thumb.X7TMPQ"_s;
        QTest::newRow("no suffix") << u".thumbnail"_s;
    }

    void thumbnailer()
    {
        QFETCH(QString, out);
        QByteArray const entry =
            support::readFile(QStringLiteral(SURFACEIO_SOURCE) + u"/tools/desktop/surfaceio.thumbnailer"_s);
        QString command = between(QString::fromUtf8(entry), u"\nExec=surfaceio "_s, u"\n"_s);
        QVERIFY(support::writeFile(folder.filePath(u"-a b.stl"_s), support::binaryStl(support::stlFacet(0))));
        QVERIFY(support::writeFile(folder.filePath(out), {}));
        command.replace(u"%s"_s, u"128"_s).replace(u"%i"_s, u"'-a b.stl'"_s).replace(u"%o"_s, out);
        verify(runShell(u"\"$SURFACEIO\" "_s + command, folder.path()), 0, {}, {});
        QCOMPARE(QImage(folder.filePath(out)).size(), QSize(128, 128));
    }

    void bashAnswers_data()
    {
        QTest::addColumn<QString>("words");
        QTest::addColumn<QByteArray>("answer");
        QTest::newRow("a verb") << u"conv"_s << QByteArray("convert\n");
        QTest::newRow("a verb within a verb") << u"tags l"_s << QByteArray("list\n");
        QTest::newRow("an option") << u"tags list --j"_s << QByteArray("--json\n");
        QTest::newRow("behind a file") << u"convert a.stl --dry"_s << QByteArray("--dry-run\n");
        QTest::newRow("a value") << u"convert --material d"_s << QByteArray("distractor\n");
        QTest::newRow("a value of every verb") << u"info --color n"_s << QByteArray("never\n");
        QTest::newRow("a shell") << u"completion z"_s << QByteArray("zsh\n");
        QTest::newRow("a file is left to the shell") << u"info b"_s << QByteArray("\n");
    }

    void bashAnswers()
    {
        QFETCH(QString, words);
        if (isMissing(u"bash"_s))
            QSKIP("it is not installed");
        QString const script = u". ./bash; COMP_WORDS=(surfaceio %1); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); "
                               "_surfaceio; printf \"%s\\n\" \"${COMPREPLY[@]}\""_s.arg(words);
        QFETCH(QByteArray, answer);
        verify(runShell(u"bash -c '%1'"_s.arg(script), folder.path()), 0, answer, {});
    }

    void fishAnswers()
    {
        if (isMissing(u"fish"_s))
            QSKIP("it is not installed");
        QString const ask =
            u"HOME=\"$PWD\" fish --no-config -c 'source fish; complete -C \"surfaceio %1\"'"_s;
        verify(runShell(ask.arg(u"tags l"_s), folder.path()), 0,
               "list\tPrints the tags of a file, their facets and areas.\n", {});
        verify(runShell(ask.arg(u"info --color n"_s), folder.path()), 0,
               "never\tColour messages: auto, always or never\n", {});
    }

    void exitCodesAreThoseOfTheDocumentation()
    {
        QString const page =
            QString::fromUtf8(support::readFile(QStringLiteral(SURFACEIO_SOURCE) + u"/docs/cli.md"_s))
                .remove(u'`');
        QString const rows = between(page, u"\n## Exit codes\n"_s, u"\n\nWith"_s);
        QString const manual = between(text(u"surfaceio.1"_s), u".SH EXIT STATUS\n"_s, u".SH"_s);
        QString expected;
        for (QString const& row : rows.split(u'\n').mid(3)) {
            QStringList const cells = row.split(u'|');
            expected += u".TP\n\\fB%1\\fR\n%2\n"_s.arg(cells[1].trimmed(),
                                                       cells[2].trimmed().replace(u'-', u"\\-"_s));
        }
        QCOMPARE(expected.count(u".TP"_s), 8);
        QCOMPARE(manual, expected);
    }

private:
    static QString between(QString const& all, QString const& begin, QString const& end)
    {
        qsizetype const from = all.indexOf(begin);
        qsizetype const first = from + begin.size();
        return from < 0 ? QString() : all.mid(first, all.indexOf(end, first) - first);
    }

    static QStringList sorted(QStringList list)
    {
        list.sort();
        return list;
    }

    static QString sectionOf(QString const& command)
    {
        return command.isEmpty() ? u".SH OPTIONS\n"_s : u".SS surfaceio %1\n"_s.arg(command);
    }

    static bool isMissing(QString const& program)
    {
        return runShell(u"command -v "_s + program).exitCode != 0;
    }

    // The verbs and flags of a command as its help lists them.
    void collect(QStringList const& command)
    {
        QByteArray const help = runProgram(command + QStringList(u"--help"_s)).standardOutput;
        QString const name = command.join(u' ');
        bool areVerbs = false;
        static QRegularExpression const option(u"^  ((?:-[a-zA-Z],)?--?[a-z-]+)"_s);
        for (QString const& line : QString::fromUtf8(help).split(u'\n')) {
            areVerbs = areVerbs || line == "Subcommands:"_L1;
            if (auto const match = option.match(line); match.hasMatch())
                flags[name] << match.captured(1).split(u',');
            else if (areVerbs && line.startsWith("  "_L1) && line[2] != u' ')
                verbs[name] << line.trimmed().section(u' ', 0, 0);
        }
        for (QString const& verb : verbs.value(name))
            collect(command + QStringList(verb));
    }

    QString text(QString const& name) { return QString::fromUtf8(support::readFile(folder.filePath(name))); }

    bool fishHas(QString const& command, QString const& flag)
    {
        QString condition = u"true"_s;
        for (QString const& verb : command.split(u' ', Qt::SkipEmptyParts))
            condition += u"; and __fish_seen_subcommand_from "_s + verb;
        bool const isLong = flag.startsWith("--"_L1);
        QString const option = isLong ? u" -l %1 "_s.arg(flag.mid(2)) : u" -s %1 "_s.arg(flag.mid(1));
        for (QString const& line : text(u"fish"_s).split(u'\n')) {
            bool const isOfCommand = line.contains(u" -n '%1'"_s.arg(condition)) ||
                                     line.contains(u" -n '%1; and not "_s.arg(condition));
            if (isOfCommand && line.contains(option))
                return true;
        }
        return false;
    }

    QMap<QString, QStringList> flags;
    QMap<QString, QStringList> verbs;
    QTemporaryDir folder;
};

QTEST_GUILESS_MAIN(tst_ProgramDescription)
#include "tst_ProgramDescription.moc"
