#include "Program.h"
#include "StlFiles.h"
#include "support/Meshes.h"
#include "support/ShapeTreeBytes.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using support::Outcome;
using support::runProgram;
using support::ShapeTreeBytes;
using support::shapeTreeHeader;
using support::verify;

namespace {

QByteArray treeBytes()
{
    return ShapeTreeBytes()
        .node(u"jaw"_s, 2)
        .text(u"Zähne"_s)
        .u8(1)
        .mesh(support::cube())
        .material(0)
        .u32(0)
        .node(u"empty"_s, 0)
        .bytes;
}

} // namespace

class tst_ProgramInfoShapeTree : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tree()
    {
        verify(info({store(u"t.bin"_s, shapeTreeHeader(2, 0) + treeBytes())}), 0,
               "t.bin\n"
               "  format                 shape tree\n"
               "  recognised             by its header\n"
               "  size in bytes          " +
                   QByteArray::number(50 + treeBytes().size()) +
                   "\n"
                   "  header                 yes\n"
                   "  version                2.0\n"
                   "  holds                  tree\n"
                   "  nodes                  3\n"
                   "  shapes                 1\n"
                   "  levels below the root  1\n"
                   "  vertices               8\n"
                   "  triangles              12\n"
                   "  bounding box (mm)\n"
                   "    min   0.000 0.000 0.000\n"
                   "    max   1.000 1.000 1.000\n"
                   "    size  1.000 1.000 1.000\n"
                   "  tree\n"
                   "    depth  name   children  vertices  triangles\n"
                   "        0  jaw           2         -          -\n"
                   "        1  Zähne         0         8         12\n"
                   "        1  empty         0         -          -\n",
               {});
    }

    void singleShape()
    {
        QJsonObject const file = jsonOf(store(
            u"s.bin"_s, shapeTreeHeader(2, 0) + ShapeTreeBytes().mesh(support::cube()).material(1).bytes));
        QCOMPARE(file["status"_L1].toString(), u"ok"_s);
        QCOMPARE(file["holds"_L1].toString(), u"shape"_s);
        QCOMPARE(file["vertices"_L1].toInt(), 8);
        QCOMPARE(file["triangles"_L1].toInt(), 12);
    }

    void oldFileBySuffix()
    {
        QByteArray const old = ShapeTreeBytes().text(u"a"_s).u8(1).mesh(support::cube()).u32(0).bytes;
        QJsonObject const file = jsonOf(store(u"old.shapetree"_s, old));
        QCOMPARE(file["status"_L1].toString(), u"ok"_s);
        QCOMPARE(file["header"_L1].toBool(true), false);
        QCOMPARE(file["version"_L1].toString(), u"1.0"_s);
        QCOMPARE(file["tree"_L1].toArray().at(0)["name"_L1].toString(), u"a"_s);
    }

    void countsWhatDoesNotFit()
    {
        geometry::Mesh mesh({{0, 0, 0}, {1, 0, 0}}, {0, 1, 2, -1, 0, -7, 1, -1}, {{0, 0, 1}});
        mesh.colors = {1u, 2u, 3u};
        QJsonObject const file =
            jsonOf(store(u"odd.bin"_s, shapeTreeHeader(1, 0) +
                                           ShapeTreeBytes().text(u"a"_s).u8(1).mesh(mesh).u32(0).bytes));
        QCOMPARE(file["indicesOutside"_L1].toInt(), 2);
        QCOMPARE(file["unmatchedLists"_L1].toInt(), 2);
    }

    void manyNodes()
    {
        ShapeTreeBytes tree;
        for (int i = 0; i < 5000; ++i)
            tree.node(u"n"_s, 1);
        QJsonObject const file =
            jsonOf(store(u"deep.bin"_s, shapeTreeHeader(2, 0) + tree.node(u"n"_s, 0).bytes));
        QCOMPARE(file["nodes"_L1].toInt(), 5001);
        QCOMPARE(file["depth"_L1].toInt(), 5000);
        QCOMPARE(file["tree"_L1].toArray().size(), 1000);
    }

    void refusals_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("errorPattern");
        QTest::newRow("an unknown version")
            << shapeTreeHeader(3, 1) + treeBytes() << 4
            << u"surfaceio: x.bin: expected version 1.0 or 2.0, found 3.1\n"_s;
        QTest::newRow("cut short") << shapeTreeHeader(2, 0) + treeBytes().chopped(1) << 3
                                   << u"surfaceio: x.bin: expected a shape or a tree of shapes, .*\n"_s;
        QTest::newRow("bytes after the tree") << shapeTreeHeader(2, 0) + treeBytes() + "xyz" << 3
                                              << u"surfaceio: x.bin: 3 bytes follow the tree\n"_s;
        QTest::newRow("bytes after the shape")
            << shapeTreeHeader(1, 0) + ShapeTreeBytes().mesh(support::cube()).bytes + "x" << 3
            << u"surfaceio: x.bin: 1 byte follows the shape\n"_s;
    }

    void refusals()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(int, exitCode);
        QFETCH(QString, errorPattern);
        Outcome const outcome = info({store(u"x.bin"_s, bytes)});
        verify(outcome, exitCode, outcome.standardOutput, errorPattern);
        QVERIFY(outcome.standardOutput.contains("shape tree"));
    }

private:
    QString store(QString const& name, QByteArray const& bytes) const
    {
        QFile file(folder.filePath(name));
        return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() ? name : QString();
    }
    Outcome info(QStringList const& arguments) const
    {
        return runProgram(QStringList{u"info"_s} + arguments, folder.path());
    }
    QJsonObject jsonOf(QString const& name) const
    {
        QByteArray const json = info({name, u"--json"_s}).standardOutput;
        return QJsonDocument::fromJson(json).object()["files"_L1].toArray().at(0).toObject();
    }

    QTemporaryDir folder;
};

QTEST_GUILESS_MAIN(tst_ProgramInfoShapeTree)
#include "tst_ProgramInfoShapeTree.moc"
