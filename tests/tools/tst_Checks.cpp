#include "StlFiles.h"
#include "check/Checkers.h"
#include "support/Meshes.h"

#include <QFile>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;
using namespace tool;
using support::binaryStl;
using support::stlFacet;

namespace {

QStringList codesOf(Findings const& findings)
{
    QStringList codes;
    for (Finding const& finding : findings.all())
        codes << QString(finding.kind->code);
    return codes;
}

} // namespace

class tst_Checks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tableOfKinds()
    {
        QSet<QString> codes;
        for (Kind const& kind : kinds()) {
            codes << QString(kind.code);
            QVERIFY2(!QByteArrayView(kind.remedy).endsWith('.'), kind.remedy);
            QCOMPARE(&kindOf(kind.code), &kind);
        }
        QCOMPARE(codes.size(), qsizetype(kinds().size()));
        QCOMPARE(kindOf("no such code"_L1).code, "unreadable"_L1);
    }

    void remedies()
    {
        Findings findings;
        findings.add("bad-reference"_L1, u"of its kind"_s);
        findings.add("bad-reference"_L1, u"another"_s, u"do this"_s);
        QCOMPARE(findings.all()[0].remedy, QString::fromUtf8(kindOf("bad-reference"_L1).remedy));
        QCOMPARE(findings.all()[1].remedy, u"do this"_s);
    }

    void exitCode()
    {
        Findings findings;
        findings.add("open-edges"_L1, u"a note"_s);
        findings.add("empty"_L1, u"a warning"_s);
        QCOMPARE(findings.exitCode(), ExitCode::Ok);
        findings.fail(ExitCode::Unsupported, "wrong-suffix"_L1, u"the first error"_s);
        findings.add("malformed"_L1, u"another"_s);
        QCOMPARE(findings.exitCode(), ExitCode::Unsupported);
        QCOMPARE(findings.count(Severity::Error), 2);
    }

    void everyKindIsDocumented()
    {
        QFile file(QStringLiteral(SURFACEIO_DOCS "/cli.md"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QByteArray const text = file.readAll();
        for (Kind const& kind : kinds())
            QVERIFY2(text.contains('`' + QByteArray(kind.code.data(), kind.code.size()) + '`'),
                     kind.code.data());
    }

    void mesh_data()
    {
        QTest::addColumn<QList<QVector3D>>("vertices");
        QTest::addColumn<QList<int>>("indices");
        QTest::addColumn<QStringList>("codes");
        QTest::addColumn<QString>("firstReason");
        geometry::Mesh const cube = support::cube();
        auto const row = [](char const* name, QList<QVector3D> const& vertices, QList<int> const& indices,
                            QStringList const& codes, char const* firstReason = "") {
            QTest::newRow(name) << vertices << indices << codes << QString::fromLatin1(firstReason);
        };
        auto const scaled = [&cube](float factor) {
            QList<QVector3D> vertices;
            for (QVector3D const& vertex : cube.vertices)
                vertices << factor * vertex;
            return vertices;
        };
        row("closed and sound", cube.vertices, cube.indices, {});
        row("no facets", cube.vertices, {}, {u"empty"_s}, "no facets");
        row("metres", scaled(0.07f), cube.indices, {u"units-metres"_s}, "0.07 mm across; are these metres?");
        row("just millimetres", scaled(0.5f), cube.indices, {});
        row("micrometres", scaled(70000), cube.indices, {u"units-micrometres"_s},
            "70000 mm across; are these micrometres?");
        row("far away", scaled(2.5e9f), cube.indices, {u"units-micrometres"_s},
            "2500000000 mm across; are these micrometres?");
        row("tiny", scaled(1.25e-5f), cube.indices, {u"units-metres"_s},
            "0.0000125 mm across; are these metres?");
        row("a wall", scaled(5000), cube.indices, {});
        row("open", cube.vertices, cube.indices.mid(4), {u"open-edges"_s}, "3 edges with one facet only");
        row("twice the same facet", cube.vertices, cube.indices + cube.indices.mid(0, 4),
            {u"nonmanifold-edges"_s, u"duplicate-facets"_s}, "3 edges with more than two facets");
        QList<int> flipped = cube.indices;
        std::swap(flipped[0], flipped[1]);
        row("wound the other way", cube.vertices, flipped, {u"flipped-facets"_s},
            "3 edges whose two facets are wound against each other");
        QList<QVector3D> holed = cube.vertices;
        holed[0].setX(std::numeric_limits<float>::quiet_NaN());
        holed[1].setY(std::numeric_limits<float>::infinity());
        row("not finite", holed, cube.indices, {u"nonfinite-vertices"_s},
            "2 vertices with a NaN or an infinity");
    }

    void mesh()
    {
        QFETCH(QList<QVector3D>, vertices);
        QFETCH(QList<int>, indices);
        QFETCH(QStringList, codes);
        QFETCH(QString, firstReason);
        Findings findings;
        checkMesh(geometry::Mesh(vertices, indices), findings);
        QCOMPARE(codesOf(findings), codes);
        if (!codes.isEmpty())
            QCOMPARE(findings.all().front().reason, firstReason);
    }

    void zeroNormals()
    {
        geometry::Mesh mesh = support::cube();
        mesh.normals = QList<QVector3D>(8, QVector3D(0, 0, 1));
        mesh.normals[3] = {};
        Findings findings;
        checkMesh(mesh, findings);
        QCOMPARE(codesOf(findings), QStringList(u"zero-normals"_s));
    }

    // The corners of a facet with a NaN have no normal for want of a place, not of an area.
    void normalsBesideNoPlace()
    {
        geometry::Mesh mesh(
            {{0, 0, 0}, {9, 0, 0}, {0, std::numeric_limits<float>::quiet_NaN(), 0}, {9, 9, 9}},
            {0, 1, 2, -1});
        mesh.normals = QList<QVector3D>(4);
        Findings findings;
        checkMesh(mesh, findings);
        QCOMPARE(codesOf(findings),
                 QStringList({u"nonfinite-vertices"_s, u"zero-normals"_s, u"open-edges"_s}));
        QCOMPARE(findings.all()[1].reason, u"1 vertex without a normal"_s);
    }

    void stl_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QStringList>("codes");
        auto const row = [](char const* name, QByteArray const& bytes, QStringList const& codes) {
            QTest::newRow(name) << bytes << codes;
        };
        QByteArray const sliver =
            stlFacet(0).replace(24, 24, stlFacet(7).mid(24, 12) + stlFacet(14).mid(24, 12));
        row("plain", binaryStl(stlFacet(0) + stlFacet(2)), {});
        row("tags", binaryStl(stlFacet(0, 3) + stlFacet(2, 47)), {});
        row("a high tag beside none", binaryStl(stlFacet(0, 200) + stlFacet(2)), {});
        row("every word valid as a colour", binaryStl(stlFacet(0, 0x80) + stlFacet(2, 0xFF, -1)),
            {u"stl-colour-words"_s});
        row("COLOR=", binaryStl(stlFacet(0, 0x40), "COLOR=abcd"), {u"stl-colour-words"_s});
        row("COLOR= without words", binaryStl(stlFacet(0), "COLOR=abcd"), {});
        row("degenerate", binaryStl(stlFacet(0) + QByteArray(50, '\0')), {u"degenerate-facets"_s});
        row("sliver", binaryStl(sliver), {u"sliver-facets"_s});
        row("ascii", "solid\nendsolid\n", {});
    }

    void stl()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QStringList, codes);
        QTemporaryDir const folder;
        QString const path = folder.filePath(u"s.stl"_s);
        QVERIFY(support::writeFile(path, bytes));
        Findings findings;
        checkStlFacets({path, bytes.size(), bytes}, findings);
        QCOMPARE(codesOf(findings), codes);
    }

    void manyColourWords()
    {
        QByteArray facets = stlFacet(0);
        for (int i = 0; i < 9; ++i)
            facets += stlFacet(0, 0x80 + i);
        QTemporaryDir const folder;
        QString const path = folder.filePath(u"s.stl"_s);
        QByteArray const bytes = binaryStl(facets);
        QVERIFY(support::writeFile(path, bytes));
        Findings findings;
        checkStlFacets({path, bytes.size(), bytes}, findings);
        QCOMPARE(findings.all().front().reason,
                 u"the attribute words look like colours of 15 bits; as tags they make 10 surfaces"_s);
    }
};

QTEST_APPLESS_MAIN(tst_Checks)
#include "tst_Checks.moc"
