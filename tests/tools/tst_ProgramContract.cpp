#include "Program.h"
#include "StlFiles.h"

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using support::binaryStl;
using support::runProgram;
using support::runShell;
using support::stlFacet;
using support::verify;

// What every verb promises its caller: exit codes, JSON, quiet, colours. 130 is in tst_ProgramInterrupt.
class tst_ProgramContract : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(folder.isValid());
        write(u"one.stl"_s, binaryStl(stlFacet(0)));
        write(u"tagged.stl"_s, binaryStl(stlFacet(0, 1) + stlFacet(3, 2)));
        write(u"cut.stl"_s, binaryStl(stlFacet(0)).chopped(1));
        write(u"solid.stl"_s, binaryStl(stlFacet(0), "solid"));
        write(u"metres.stl"_s, binaryStl(stlFacet(0) + stlFacet(9'000)));
        write(u"one.msh"_s,
              "$MeshFormat\n2.2 0 8\n$EndMeshFormat\n$Nodes\n4\n1 0 0 0\n2 1 0 0\n3 0 1 0\n4 0 0 1\n"
              "$EndNodes\n$Elements\n1\n1 4 0 1 2 3 4\n$EndElements\n");
        write(u"cut.msh"_s, "$MeshFormat\n2.2 0 8\n");
        write(u"new.msh"_s, "$MeshFormat\n4.1 0 8\n");
        write(u"load.txt"_s, "FemBoundaryConditions\n{\nDefaultMeshFilename\n1\n0 0 0 1\n}");
        QCOMPARE(run({u"vmesh"_s, u"from"_s, u"one.msh"_s, u"-o"_s, u"one.vmesh"_s}).exitCode, 0);
        QCOMPARE(run({u"bundle"_s, u"pack"_s, u"shapes.xml"_s, u"one.stl"_s}).exitCode, 0);
    }

    void exitCode_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<int>("exitCode");
        auto const row = [](int exitCode, char const* command) {
            QTest::addRow("%d: %s", exitCode, command) << QString::fromUtf8(command) << exitCode;
        };
        row(0, "info one.stl");
        row(0, "info --strict one.stl");
        row(0, "convert one.stl fine.xyz --imported");
        row(1, "info gone.stl");
        row(1, "check gone.stl");
        row(1, "convert gone.stl out.xyz");
        row(1, "convert one.stl one.stl");
        row(1, "preview gone.stl -o out.png");
        row(1, "sample gone/out.stl");
        row(2, "");
        row(2, "frobnicate");
        row(2, "info");
        row(2, "info one.stl --shiny");
        row(2, "convert one.stl out.doc");
        row(2, "convert one.stl ./one.stl gone.stl");
        row(2, "preview one.stl -o out.doc");
        row(2, "tags relabel one.stl x=y -o out.stl");
        row(2, "completion csh");
        row(2, "vmesh");
        row(2, "vmesh from one.msh");
        row(3, "info cut.stl");
        row(3, "check cut.stl");
        row(3, "convert cut.stl out.xyz");
        row(3, "preview cut.stl -o out.png");
        row(3, "tags list cut.stl");
        row(3, "info --strict cut.stl");
        row(3, "vmesh from cut.msh -o out.vmesh");
        row(4, "info solid.stl");
        row(4, "convert solid.stl out.xyz");
        row(4, "vmesh from new.msh -o out.vmesh");
        row(5, "convert one.stl out.xyz --imported --strict --force");
        row(5, "check metres.stl --strict");
        row(5, "check metres.stl --strict --quiet");
        row(6, "info one.stl gone.stl");
        row(6, "check one.stl cut.stl");
        row(6, "convert one.stl gone.stl --to xyz");
    }

    void exitCode()
    {
        QFETCH(QString, command);
        QFETCH(int, exitCode);
        QCOMPARE(run(command.split(u' ', Qt::SkipEmptyParts)).exitCode, exitCode);
        QDir(folder.path()).remove(u"one.xyz"_s);
    }

    // Every --json of every help has a row, prints nothing but JSON, and its schema is in the documentation.
    void json_data()
    {
        QTest::addColumn<QStringList>("command");
        for (QStringList const& command : jsonCommands())
            QTest::newRow(qPrintable(command.join(u' '))) << command;
    }

    void json()
    {
        QFETCH(QStringList, command);
        static QMap<QString, QStringList> const arguments = {
            {u"info"_s, {u"one.stl"_s}},
            {u"check"_s, {u"one.stl"_s}},
            {u"convert"_s, {u"one.stl"_s, u"json.ply"_s}},
            {u"header get"_s, {u"one.stl"_s}},
            {u"tags list"_s, {u"one.stl"_s}},
            {u"tags split"_s, {u"tagged.stl"_s}},
            {u"vmesh from"_s, {u"one.msh"_s, u"-o"_s, u"json.vmesh"_s}},
            {u"vmesh faces"_s, {u"one.vmesh"_s, u"-o"_s, u"faces.vmesh"_s}},
            {u"vmesh conditions"_s, {u"load.txt"_s}},
            {u"formats"_s, {}},
            {u"bundle list"_s, {u"shapes.xml"_s}},
            {u"bundle unpack"_s, {u"shapes.xml"_s, u"unpacked"_s}},
        };
        QString const name = command.join(u' ');
        QVERIFY2(arguments.contains(name), "give this verb a row above");
        auto const outcome = run(command + arguments[name] + QStringList(u"--json"_s));
        QCOMPARE(outcome.exitCode, 0);
        QCOMPARE(outcome.standardError, QByteArray());
        QJsonParseError error;
        auto const document = QJsonDocument::fromJson(outcome.standardOutput, &error);
        QCOMPARE(error.error, QJsonParseError::NoError);
        QString const schema = document.object()[u"schema"_s].toString();
        QVERIFY(schema.startsWith("surfaceio."_L1) && schema.endsWith("/1"_L1));
        QByteArray const page = support::readFile(QStringLiteral(SURFACEIO_DOCS) + u"/cli.md"_s);
        QVERIFY2(page.contains('`' + schema.toUtf8() + '`'), qPrintable(schema));
    }

    void partsOfASplitAsJson()
    {
        QVERIFY(QDir(folder.path()).mkdir(u"parts"_s));
        verify(run({u"tags"_s, u"split"_s, u"tagged.stl"_s, u"-d"_s, u"parts"_s, u"--json"_s}), 0,
               "{\n"
               "  \"schema\": \"surfaceio.split/1\",\n"
               "  \"files\": [\n"
               "    {\"path\": \"parts/tagged-1.stl\", \"facets\": 1},\n"
               "    {\"path\": \"parts/tagged-2.stl\", \"facets\": 1}\n"
               "  ]\n"
               "}\n",
               {});
    }

    void shapesOfABundleAsJson()
    {
        verify(run({u"bundle"_s, u"unpack"_s, u"shapes.xml"_s, u"shapes"_s, u"--json"_s}), 0,
               "{\n"
               "  \"schema\": \"surfaceio.unpack/1\",\n"
               "  \"files\": [\n"
               "    {\"path\": \"shapes/01-one.ply\", \"shape\": 1}\n"
               "  ]\n"
               "}\n",
               {});
    }

    // Every verb, and every verb within a verb, begins its help with what it is for and two examples that the
    // program would take.
    void helpBeginsWithExamples_data()
    {
        QTest::addColumn<QStringList>("command");
        for (QStringList const& command : commandsBelow({}))
            QTest::newRow(qPrintable(command.join(u' '))) << command;
    }

    void helpBeginsWithExamples()
    {
        QFETCH(QStringList, command);
        QString const help = QString::fromUtf8(runProgram(command + QStringList(u"--help"_s)).standardOutput);
        QStringList const lines = help.split(u'\n');
        QVERIFY(lines[0].endsWith(u'.') && lines[0][0].isUpper());
        QCOMPARE(lines.mid(1, 2), QStringList({QString(), u"Examples:"_s}));
        QString const name = u"  surfaceio "_s + command.join(u' ');
        QVERIFY(lines[3].startsWith(name) && lines[4].startsWith(name));
        QVERIFY(lines[5].startsWith("Usage: "_L1));
    }

    void quietShowsFailuresOnly()
    {
        QStringList const command = {u"convert"_s, u"one.stl"_s, u"quiet.xyz"_s, u"--imported"_s,
                                     u"--force"_s};
        verify(run(command), 0, {}, u"surfaceio: warning: .*\n"_s);
        verify(run(command + QStringList(u"--quiet"_s)), 0, {}, {});
        verify(run({u"convert"_s, u"gone.stl"_s, u"quiet.xyz"_s, u"--force"_s, u"-q"_s}), 1, {},
               u"surfaceio: gone.stl: there is no such file\n"_s);
    }

    void verboseTellsWhatIsDone()
    {
        verify(run({u"convert"_s, u"one.stl"_s, u"told.xyz"_s, u"-v"_s}), 0, {},
               u"surfaceio: one.stl -> told.xyz\n"_s);
    }

#ifdef Q_OS_UNIX
    void coloursOnATerminal_data()
    {
        QTest::addColumn<QString>("environment");
        QTest::addColumn<QString>("option");
        QTest::addColumn<bool>("isColoured");
        QTest::newRow("auto") << u"NO_COLOR="_s << QString() << true;
        QTest::newRow("NO_COLOR") << u"NO_COLOR=1"_s << QString() << false;
        QTest::newRow("never") << u"NO_COLOR="_s << u"--color never"_s << false;
        QTest::newRow("always, against NO_COLOR") << u"NO_COLOR=1"_s << u"--color always"_s << true;
    }

    void coloursOnATerminal()
    {
        if (runShell(u"command -v script"_s).exitCode != 0)
            QSKIP("there is no script(1) to make a terminal with");
        QFETCH(QString, environment);
        QFETCH(QString, option);
        QFETCH(bool, isColoured);
        QString const command =
            u"%1 TERM=xterm script -qec '\"$SURFACEIO\" info gone.stl %2' /dev/null </dev/null"_s.arg(
                environment, option);
        QByteArray const sentence = "gone.stl: there is no such file";
        QByteArray const shown = isColoured ? "\x1b[31m" + sentence + "\x1b[0m" : sentence;
        verify(runShell(command, folder.path()), 1, "surfaceio: " + shown + "\r\n", {});
    }
#endif

private:
    void write(QString const& name, QByteArray const& bytes)
    {
        QVERIFY(support::writeFile(folder.filePath(name), bytes));
    }

    support::Outcome run(QStringList const& arguments)
    {
        return runProgram(arguments, folder.path());
    }

    static QString helpOf(QStringList const& command)
    {
        return QString::fromUtf8(runProgram(command + QStringList(u"--help"_s)).standardOutput);
    }

    // All verbs, and the verbs within them.
    static QList<QStringList> commandsBelow(QStringList const& command)
    {
        QString const help = helpOf(command);
        QList<QStringList> found;
        qsizetype const verbs = help.indexOf(u"\nSubcommands:\n"_s);
        for (QString const& line : help.mid(verbs < 0 ? help.size() : verbs).split(u'\n')) {
            if (!line.startsWith("  "_L1) || line[2] == u' ')
                continue;
            QStringList const verb = command + QStringList(line.trimmed().section(u' ', 0, 0));
            found << verb;
            found << commandsBelow(verb);
        }
        return found;
    }

    static QList<QStringList> jsonCommands()
    {
        QList<QStringList> found;
        for (QStringList const& command : commandsBelow({})) {
            if (helpOf(command).contains(u"\n  --json "_s))
                found << command;
        }
        return found;
    }

    QTemporaryDir folder;
};

QTEST_GUILESS_MAIN(tst_ProgramContract)
#include "tst_ProgramContract.moc"
