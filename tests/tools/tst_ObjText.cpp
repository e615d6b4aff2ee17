#include "obj/ObjText.h"

#include <QBuffer>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace tool::obj;

namespace {

ObjText textOf(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    return readObjText(buffer);
}

QStringList kindsOf(ObjText const& text)
{
    QStringList kinds;
    for (auto const& [kind, count] : text.faceKinds)
        kinds << u"%1 %2%3 %4"_s.arg(QString::number(kind.corners), QString(nameOf(kind.style)),
                                     kind.isRelative ? u" relative"_s : QString(), QString::number(count));
    return kinds;
}

} // namespace

class tst_ObjText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void faceKinds_data()
    {
        QTest::addColumn<QByteArray>("lines");
        QTest::addColumn<QStringList>("kinds");
        auto const row = [](QByteArray const& lines, QStringList const& kinds) {
            QTest::newRow(lines.constData()) << lines << kinds;
        };
        row("", {});
        row("f 1 2 3", {u"3 v 1"_s});
        row("f 1/1 2/2 3/3", {u"3 v/vt 1"_s});
        row("f 1//1 2//2 3//3", {u"3 v//vn 1"_s});
        row("f 1/1/1 2/2/2 3/3/3\nf 3/3/3 2/2/2 1/1/1", {u"3 v/vt/vn 2"_s});
        row("f 1/1/1 2//2 3/3/3", {u"3 mixed 1"_s});
        row("f 1/ 2/ 3/", {u"3 v 1"_s});
        row("f -1 -2 -3", {u"3 v relative 1"_s});
        row("f 1/-1 2/2 3/3", {u"3 v/vt relative 1"_s});
        row("f 1//1 2//2 3//-1", {u"3 v//vn relative 1"_s});
        row("f 1 2 3 4\nf 1 2 3\nf 1 2", {u"2 v 1"_s, u"3 v 1"_s, u"4 v 1"_s});
        row("  f   1  2 3 4 5 -6  ", {u"6 v relative 1"_s});
        row("f\t1 2 3", {});
        row("F 1 2 3", {});
        row("#f 1 2 3", {});
        row("f", {u"0 v 1"_s});
    }

    void faceKinds()
    {
        QFETCH(QByteArray, lines);
        QFETCH(QStringList, kinds);
        QCOMPARE(kindsOf(textOf(lines)), kinds);
    }

    void occurrence_data()
    {
        QTest::addColumn<QByteArray>("lines");
        QTest::addColumn<QByteArray>("what");
        QTest::addColumn<qint64>("count");
        QTest::addColumn<qint64>("firstLine");
        auto const row = [](QByteArray const& lines, QByteArray const& what, int count, int firstLine) {
            QTest::newRow(lines.constData()) << lines << what << qint64(count) << qint64(firstLine);
        };
        row("f 1 2 3\n\nf 1 2 3 4\nf 1 2 3 4", "quads", 2, 3);
        row("f 1 2 3 4 5", "polygons", 1, 1);
        row("f 1 2\nf", "shortFaces", 2, 1);
        row("f 1 2 3\nf 1 -2 -3", "relative", 1, 2);
        row("f 0 2 3", "badIndices", 1, 1);
        row("f a b 3", "badIndices", 2, 1);
        row("f /1 2 3", "badIndices", 1, 1);
        row("f 1 2 3 4 0", "badIndices", 0, 0);
        row("v 1 2", "shortLines", 1, 1);
        row("vt 1", "shortLines", 1, 1);
        row("vn 1 2 3\nvn 1 2", "shortLines", 1, 2);
        row("v 1 x 3", "badNumbers", 1, 1);
        row("v 1 +2 3e1", "badNumbers", 0, 0);
        row("v 1,5 2,5 3", "badNumbers", 2, 1);
        row("v nan 2 inf", "nonFinite", 1, 1);
        row("v\t1\t2\t3", "tabs", 1, 1);
        row("f 1 2 \\\n3", "continued", 1, 1);
        row("v 1 2 3 0.5 0.5 0.5\nv 1 2 3 1", "vertexColors", 1, 1);
        row("vt 0 0\nvt 1 1\nvt 1.5 0", "u", 1, 3);
        row("usemtl a\nf 1 2 3\nusemtl b\nf 4 3 5\nf 4 5 6\nv 1 2 3\nv 1 2 3\nv 1 2 3\nv 1 2 3\n",
            "sharedPositions", 1, 4);
        row("usemtl a\nf 1 2 3\nusemtl a\nf 3 2 1\nusemtl b\nf 4 5 6\nv 1 2 3\nv 1 2 3\nv 1 2 3\nv 1 2 3\n",
            "sharedPositions", 0, 0);
        row("f 1 2 3\nusemtl b\nf 1 2 3\nusemtl c\nf 999999999 8 9\n", "sharedPositions", 0, 0);
        row("vt 0 -0.01\nvt nan nan", "v", 2, 1);
    }

    void occurrence()
    {
        QFETCH(QByteArray, lines);
        QFETCH(QByteArray, what);
        QFETCH(qint64, count);
        QFETCH(qint64, firstLine);
        ObjText const text = textOf(lines);
        std::map<QByteArray, Occurrence> const found = {
            {"quads", text.quads},           {"polygons", text.polygons},
            {"shortFaces", text.shortFaces}, {"relative", text.relative},
            {"badIndices", text.badIndices}, {"shortLines", text.shortLines},
            {"badNumbers", text.badNumbers}, {"sharedPositions", text.sharedPositions},
            {"nonFinite", text.nonFinite},   {"tabs", text.tabs},
            {"continued", text.continued},   {"vertexColors", text.vertexColors},
            {"u", text.u.outside},           {"v", text.v.outside},
        };
        QCOMPARE(found.at(what).count, count);
        QCOMPARE(found.at(what).firstLine, firstLine);
    }

    void counts()
    {
        ObjText const text = textOf("v 0 0 0\nv 1 2 3\nvt 0.25 -3\nvn 0 0 1\nf 1/1/1 2/1/1 7/1/2\nl 1 2\n");
        QCOMPARE(text.vertices, 2);
        QCOMPARE(text.textureCoordinates, 1);
        QCOMPARE(text.normals, 1);
        QCOMPARE(text.faces, 1);
        QCOMPARE(text.bounds.size(), QVector3D(1, 2, 3));
        QCOMPARE(text.u.least, 0.25f);
        QCOMPARE(text.u.greatest, 0.25f);
        QCOMPARE(text.v.least, -3.0f);
        QCOMPARE(text.positionIndices.largest, 7);
        QCOMPARE(text.positionIndices.lineOfLargest, 5);
        QCOMPARE(text.normalIndices.largest, 2);
        QCOMPARE(text.skipped, (std::map<QString, qint64>{{u"l"_s, 1}}));
    }

    void names()
    {
        ObjText const text =
            textOf("f 1 2 3\no a  b\ng x\nf 1 2 3\ng\nf 1 2 3\ng x\nf 1 2 3\nusemtl m\xE4\n");
        QCOMPARE(text.objects.all().size(), std::size_t(1));
        QCOMPARE(text.objects.all()[0].name, u"a b"_s);
        QCOMPARE(text.objects.all()[0].faces, 3);
        QCOMPARE(text.objects.facesWithout(), 1);
        QCOMPARE(text.groups.facesOf(u"x"_s), 2);
        QCOMPARE(text.groups.facesWithout(), 2);
        QCOMPARE(text.groups.facesOf(u"y"_s), 0);
        QCOMPARE(text.materials.all()[0].name, u"m\u00E4"_s);
        QCOMPARE(text.materials.facesWithout(), 4);
    }
};

QTEST_APPLESS_MAIN(tst_ObjText)
#include "tst_ObjText.moc"
