#include "Program.h"
#include "StlFiles.h"

#include <QDir>
#include <QDirIterator>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

using namespace Qt::StringLiterals;
using support::binaryStl;
using support::runProgram;
using support::stlFacet;

// Ctrl-C. The program is held still (SIGSTOP) where it is to be interrupted, so that nothing depends on how
// fast anything runs.
class tst_ProgramInterrupt : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(folder.isValid());
        QCOMPARE(run({u"sample"_s, u"big.stl"_s, u"--facets"_s, u"200000"_s}), 0);
        QCOMPARE(run({u"sample"_s, u"big.obj"_s, u"--facets"_s, u"50000"_s}), 0);
        QVERIFY(support::writeFile(folder.filePath(u"big.vtk"_s), manyTetrahedra(50'000)));
    }

    void init() { QVERIFY(QDir(folder.filePath(u"out"_s)).removeRecursively()); }

    void whileFilesAreWritten_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("signal");
        QTest::addColumn<QByteArray>("error");
        auto const row = [](char const* name, QStringList const& arguments, int signal, char const* error) {
            QTest::newRow(name) << arguments << signal << QByteArray(error);
        };
        char const* const noFile = "surfaceio: interrupted; 0 of 1 files were converted\n";
        row("convert", {u"convert"_s, u"big.stl"_s, u"out/big.xyz"_s}, SIGINT, noFile);
        row("convert, on request", {u"convert"_s, u"big.stl"_s, u"out/big.xyz"_s}, SIGTERM, noFile);
        row("convert, terminal gone", {u"convert"_s, u"big.stl"_s, u"out/big.xyz"_s}, SIGHUP, noFile);
        row("sample", {u"sample"_s, u"out/big.stl"_s}, SIGINT,
            "surfaceio: out/big.stl: interrupted; nothing was written\n");
        row("preview", {u"preview"_s, u"big.obj"_s, u"-o"_s, u"out/big.png"_s, u"--size"_s, u"64"_s}, SIGINT,
            "surfaceio: out/big.png: interrupted; nothing was written\n");
        row("bake", {u"bake"_s, u"big.obj"_s, u"out/big.ply"_s}, SIGINT,
            "surfaceio: out/big.ply: interrupted; nothing was written\n");
        row("atlas",
            {u"atlas"_s, u"big.obj"_s, u"--image"_s, u"out/big.png"_s, u"--mesh"_s, u"out/big.ply"_s}, SIGINT,
            "surfaceio: out/big.png: interrupted; nothing was written\n");
        row("vmesh", {u"vmesh"_s, u"from"_s, u"big.vtk"_s, u"-o"_s, u"out/big.vmesh"_s}, SIGINT,
            "surfaceio: out/big.vmesh: interrupted; nothing was written\n");
    }

    void whileFilesAreWritten()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, signal);
        QVERIFY(QDir(folder.path()).mkdir(u"out"_s));
        QProcess program;
        startAndHold(program, arguments);
        ::kill(pid_t(program.processId()), signal);
        ::kill(pid_t(program.processId()), SIGCONT);
        QVERIFY(program.waitForFinished());
        QCOMPARE(program.exitStatus(), QProcess::NormalExit);
        QCOMPARE(program.exitCode(), 128 + signal);
        QTEST(program.readAllStandardError(), "error");
        QCOMPARE(entriesOf(folder.filePath(u"out"_s)), QStringList());
    }

    // What is there is whole, and the rest was not begun.
    void batch()
    {
        QVERIFY(QDir(folder.path()).mkdir(u"out"_s));
        QVERIFY(QDir(folder.path()).mkdir(u"many"_s));
        for (int i = 0; i < 4; ++i)
            QVERIFY(QFile::copy(folder.filePath(u"big.stl"_s), folder.filePath(u"many/%1.stl"_s.arg(i))));
        QProcess program;
        startAndHold(program,
                     {u"convert"_s, u"many"_s, u"--to"_s, u"ply"_s, u"-d"_s, u"out"_s, u"-j"_s, u"2"_s});
        ::kill(pid_t(program.processId()), SIGINT);
        ::kill(pid_t(program.processId()), SIGCONT);
        QVERIFY(program.waitForFinished());
        QCOMPARE(program.exitCode(), 130);
        QCOMPARE(program.readAllStandardError(),
                 QByteArray("surfaceio: interrupted; 0 of 4 files were converted\n"));
        QCOMPARE(entriesOf(folder.filePath(u"out"_s)), QStringList());
    }

    // Where nothing is half done the program ends at once. Its output has nowhere to go: it waits for us.
    void whileResultsArePrinted()
    {
        QStringList arguments = {u"info"_s};
        for (int i = 0; i < 1000; ++i) {
            QString const path = u"small/%1.stl"_s.arg(i);
            QVERIFY(QDir(folder.path()).mkpath(u"small"_s));
            QVERIFY(support::writeFile(folder.filePath(path), binaryStl(stlFacet(0))));
            arguments << path;
        }
        QProcess program;
        start(program, arguments);
        QVERIFY(program.waitForReadyRead());
        ::kill(pid_t(program.processId()), SIGINT);
        QVERIFY(program.waitForFinished());
        QCOMPARE(program.exitStatus(), QProcess::NormalExit);
        QCOMPARE(program.exitCode(), 130);
    }

    // A shell has programs in the background ignore Ctrl-C.
    void ignoredSignal()
    {
        QVERIFY(QDir(folder.path()).mkdir(u"out"_s));
        QProcess program;
        program.setWorkingDirectory(folder.path());
        std::signal(SIGINT, SIG_IGN); // is handed on
        startAndHold(program, {u"convert"_s, u"big.stl"_s, u"out/big.xyz"_s});
        std::signal(SIGINT, SIG_DFL);
        ::kill(pid_t(program.processId()), SIGINT);
        ::kill(pid_t(program.processId()), SIGCONT);
        QVERIFY(program.waitForFinished());
        QCOMPARE(program.exitCode(), 0);
        QCOMPARE(entriesOf(folder.filePath(u"out"_s)), QStringList(u"big.xyz"_s));
    }

private:
    int run(QStringList const& arguments) { return runProgram(arguments, folder.path()).exitCode; }

    void start(QProcess& program, QStringList const& arguments)
    {
        program.setWorkingDirectory(folder.path());
        program.start(support::programFile(), arguments);
        QVERIFY(program.waitForStarted());
    }

    // Holds the program as soon as it has made a temporary folder for its result, with nothing in place yet.
    // A program that was too fast is run again.
    void startAndHold(QProcess& program, QStringList const& arguments)
    {
        QDir const out(folder.filePath(u"out"_s));
        for (int attempt = 0; attempt < 50; ++attempt) {
            start(program, arguments);
            while (program.state() == QProcess::Running && entriesOf(out).isEmpty())
                program.waitForFinished(1);
            ::kill(pid_t(program.processId()), SIGSTOP);
            if (program.state() == QProcess::Running && !hasFiles(out))
                return;
            ::kill(pid_t(program.processId()), SIGCONT);
            program.waitForFinished();
            QVERIFY(QDir(out).removeRecursively() && QDir(folder.path()).mkdir(u"out"_s));
        }
        QFAIL("the program is always done before it can be held");
    }

    static QByteArray manyTetrahedra(int count)
    {
        QByteArray const number = QByteArray::number(count);
        return "# vtk DataFile Version 2.0\n\nASCII\nDATASET UNSTRUCTURED_GRID\nPOINTS 4 float\n"
               "0 0 0 1 0 0 0 1 0 0 0 1\nCELLS " +
               number + ' ' + QByteArray::number(5 * count) + '\n' +
               QByteArray("4 0 1 2 3\n").repeated(count) + "CELL_TYPES " + number + '\n' +
               QByteArray("10\n").repeated(count);
    }

    static QStringList entriesOf(QDir const& where)
    {
        return where.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }

    static bool hasFiles(QDir const& where)
    {
        return QDirIterator(where.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories).hasNext();
    }

    QTemporaryDir folder;
};

QTEST_GUILESS_MAIN(tst_ProgramInterrupt)
#include "tst_ProgramInterrupt.moc"
