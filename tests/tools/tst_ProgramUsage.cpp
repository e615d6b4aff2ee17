#include "Program.h"
#include "StlFiles.h"

#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using support::runProgram;
using support::runShell;
using support::verify;

// How the program meets its caller: usage, exit codes, streams.
class tst_ProgramUsage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(folder.isValid());
        QVERIFY(support::writeFile(folder.filePath(u"one.stl"_s), support::binaryStl(support::stlFacet(0))));
    }

    void usageError_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("errorPattern");
        QTest::newRow("no verb") << QStringList()
                                 << "surfaceio: A subcommand is required\nsurfaceio: see "
                                    "\"surfaceio --help\"\n";
        QTest::newRow("unknown verb") << QStringList(u"frobnicate"_s)
                                      << "surfaceio: expected one of info, check, convert, .*, "
                                         "completion, found \"frobnicate\"\nsurfaceio: see "
                                         "\"surfaceio --help\"\n";
        QTest::newRow("unknown verb of a verb")
            << QStringList{u"header"_s, u"frob"_s}
            << "surfaceio: expected one of get, set, clear, found \"frob\"\nsurfaceio: see "
               "\"surfaceio header --help\"\n";
        QTest::newRow("no file") << QStringList(u"info"_s)
                                 << "surfaceio: FILE is required\nsurfaceio: see \"surfaceio info --help\"\n";
        QTest::newRow("unknown option") << QStringList{u"info"_s, u"--shiny"_s, u"one.stl"_s}
                                        << "surfaceio: .*--shiny\nsurfaceio: see \"surfaceio info --help\"\n";
        QTest::newRow("bad colour") << QStringList{u"info"_s, u"--color"_s, u"red"_s, u"one.stl"_s}
                                    << "surfaceio: .*red.*\nsurfaceio: see \"surfaceio info --help\"\n";
    }

    void usageError()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, errorPattern);
        verify(runProgram(arguments, folder.path()), 2, {}, errorPattern);
    }

    void help()
    {
        auto const outcome = runProgram({u"--help"_s});
        QCOMPARE(outcome.exitCode, 0);
        QCOMPARE(outcome.standardError, QByteArray());
        QVERIFY(outcome.standardOutput.contains("\n  info  "));
    }

    void version() { verify(runProgram({u"--version"_s}), 0, "surfaceio " SURFACEIO_VERSION "\n", {}); }

    // Every verb says first what it is for, and shows two commands.
    void helpOfVerb_data()
    {
        QTest::addColumn<QString>("verb");
        for (QString const& verb : verbs())
            QTest::newRow(qPrintable(verb)) << verb;
    }

    void helpOfVerb()
    {
        QFETCH(QString, verb);
        auto const outcome = runProgram({verb, u"--help"_s});
        QCOMPARE(outcome.exitCode, 0);
        QCOMPARE(outcome.standardError, QByteArray());
        QList<QByteArray> const lines = outcome.standardOutput.split('\n');
        QVERIFY(lines[0].endsWith('.'));
        QCOMPARE(lines[2], QByteArray("Examples:"));
        QByteArray const command = "  surfaceio " + verb.toUtf8();
        QVERIFY(lines[3].startsWith(command));
        QVERIFY(lines[4].startsWith(command));
        QVERIFY(lines[5].startsWith("Usage: surfaceio " + verb.toUtf8()));
    }

    void messagesAreColouredOnRequestOnly()
    {
        QStringList const arguments = {u"info"_s, u"gone.stl"_s};
        verify(runProgram(arguments, folder.path()), 1, {},
               u"surfaceio: gone.stl: there is no such file\n"_s);
        verify(runProgram(arguments + QStringList{u"--color"_s, u"always"_s}, folder.path()), 1, {},
               u"surfaceio: \x1b\\[31mgone.stl: there is no such file\x1b\\[0m\n"_s);
    }

#ifdef Q_OS_UNIX
    void closedStandardOutput()
    {
        verify(runShell(u"\"$SURFACEIO\" info one.stl >&-"_s, folder.path()), 1, {},
               u"surfaceio: the results could not be written to the standard output\n"_s);
    }

    void closedStandardError()
    {
        verify(runShell(u"\"$SURFACEIO\" info gone.stl 2>&-"_s, folder.path()), 1, {}, {});
    }

    void readerOfStandardOutputThatGoesAway()
    {
        verify(runShell(u"(sleep 0.2; exec \"$SURFACEIO\" info one.stl) | true; wait"_s, folder.path()), 0,
               {}, u"surfaceio: the results could not be written to the standard output\n"_s);
    }
#endif

private:
    static QStringList verbs()
    {
        QByteArray const help = runProgram({u"--help"_s}).standardOutput;
        QStringList names;
        for (QByteArray const& line : help.mid(help.indexOf("Subcommands:")).split('\n').mid(1)) {
            if (line.startsWith("  ") && line[2] != ' ')
                names << QString::fromUtf8(line.trimmed().split(' ').first());
        }
        return names;
    }

    QTemporaryDir folder;
};

QTEST_GUILESS_MAIN(tst_ProgramUsage)
#include "tst_ProgramUsage.moc"
