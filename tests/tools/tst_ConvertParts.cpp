#include "convert/Plan.h"
#include "convert/Progress.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace tool;

// What a batch is before it runs, and how it shows.
class tst_ConvertParts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void progressText_data()
    {
        QTest::addColumn<qint64>("filesDone");
        QTest::addColumn<qint64>("bytesDone");
        QTest::addColumn<qint64>("milliseconds");
        QTest::addColumn<QString>("text");
        auto const row = [](char const* name, qint64 filesDone, qint64 bytesDone, qint64 milliseconds,
                            QString const& text) {
            QTest::newRow(name) << filesDone << bytesDone << milliseconds << text;
        };
        row("nothing yet", 0, 0, 0, u"[....................] 0/10  0:00"_s);
        row("no bytes known", 0, 0, 61'400, u"[....................] 0/10  1:01"_s);
        row("no time passed", 1, 10'000'000, 0, u"[##..................] 1/10  0:00"_s);
        row("a third", 3, 33'000'000, 1'000, u"[######..............] 3/10  33 %  33.0 MB/s  0:02 left"_s);
        row("slow", 9, 99'000'000, 7'200'000, u"[###################.] 9/10  99 %  0.0 MB/s  1:13 left"_s);
        row("all is read", 9, 100'000'000, 1'000, u"[####################] 9/10  100 %  finishing"_s);
        row("more than all", 9, 200'000'000, 1'000, u"[####################] 9/10  100 %  finishing"_s);
    }

    void progressText()
    {
        QFETCH(qint64, filesDone);
        QFETCH(qint64, bytesDone);
        QFETCH(qint64, milliseconds);
        QTEST(Progress({filesDone, 10, bytesDone, 100'000'000, milliseconds}).text(), "text");
    }

    void progressOfEmptyFiles()
    {
        QCOMPARE(Progress({0, 2, 0, 0, 500}).text(), u"[....................] 0/2  0:01"_s);
    }

    void targetPath_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("subfolder");
        QTest::addColumn<QString>("directory");
        QTest::addColumn<QString>("target");
        auto const row = [](char const* name, QString const& path, QString const& subfolder,
                            QString const& directory, QString const& target) {
            QTest::newRow(name) << path << subfolder << directory << target;
        };
        row("beside", u"a.stl"_s, {}, {}, u"a.ply"_s);
        row("beside, in a folder", u"x/a.stl"_s, u"x"_s, {}, u"x/a.ply"_s);
        row("beside, at the root", u"/a.stl"_s, {}, {}, u"/a.ply"_s);
        row("into a folder", u"x/a.stl"_s, {}, u"out/"_s, u"out/a.ply"_s);
        row("into its subfolder", u"x/y/a.stl"_s, u"y"_s, u"out"_s, u"out/y/a.ply"_s);
        row("only the last suffix goes", u"a.b.stl"_s, {}, u"/out"_s, u"/out/a.b.ply"_s);
        row("up", u"a.stl"_s, {}, u"../out"_s, u"../out/a.ply"_s);
        row("leading dash", u"-a.stl"_s, {}, {}, u"-a.ply"_s);
    }

    void targetPath()
    {
        QFETCH(QString, path);
        QFETCH(QString, subfolder);
        QFETCH(QString, directory);
        QTEST(tool::targetPath({path, subfolder}, {u"ply"_s, directory}), "target");
    }

    void collisions_data()
    {
        QTest::addColumn<QStringList>("paths");
        QTest::addColumn<QStringList>("sentences");
        QTest::newRow("none") << QStringList{u"a.stl"_s, u"o/a.ply"_s, u"b.stl"_s, u"o/b.ply"_s}
                              << QStringList();
        QTest::newRow("onto itself") << QStringList{u"a.ply"_s, u"a.ply"_s} << QStringList();
        QTest::newRow("two inputs") << QStringList{u"a.stl"_s, u"o/a.ply"_s, u"x/a.stl"_s, u"o/a.ply"_s}
                                    << QStringList(u"a.stl and x/a.stl would both become o/a.ply"_s);
        QTest::newRow("two names of one folder")
            << QStringList{u"a.stl"_s, u"o/a.ply"_s, u"b.stl"_s, u"./x/../o/a.ply"_s}
            << QStringList(u"a.stl and b.stl would both become ./x/../o/a.ply"_s);
        QTest::newRow("an input") << QStringList{u"a.stl"_s, u"b.stl"_s, u"b.stl"_s, u"c.stl"_s}
                                  << QStringList(
                                         u"a.stl would become b.stl, which is to be converted itself"_s);
    }

    void collisions()
    {
        QFETCH(QStringList, paths);
        std::vector<Conversion> conversions;
        for (qsizetype i = 0; i < paths.size(); i += 2)
            conversions.push_back({paths[i], paths[i + 1]});
        QTEST(collisionsOf(conversions), "sentences");
    }

#ifdef Q_OS_UNIX
    void collisionThroughALinkedFolder()
    {
        QTemporaryDir const folder;
        QVERIFY(QDir(folder.path()).mkdir(u"real"_s));
        QVERIFY(QFile::link(u"real"_s, folder.filePath(u"link"_s)));
        QString const one = folder.filePath(u"real/a.ply"_s);
        QString const other = folder.filePath(u"link/a.ply"_s);
        QCOMPARE(collisionsOf({{u"a.stl"_s, one}, {u"b.stl"_s, other}}),
                 QStringList(u"a.stl and b.stl would both become "_s + other));
    }
#endif
};

QTEST_GUILESS_MAIN(tst_ConvertParts)
#include "tst_ConvertParts.moc"
