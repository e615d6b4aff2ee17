#include "VMeshFile.h"
#include "support/VolumeMeshes.h"
#include "vmesh/MTModelBoundaryConditionsParser.h"
#include "vmesh/MTModelBoundaryConditionsWriter.h"

#include <QDir>

#include <limits>
#include <type_traits>

static_assert(std::has_virtual_destructor_v<MTModelBoundaryConditionsWriter>);
static_assert(std::is_copy_constructible_v<MTModelBoundaryConditionsWriter> &&
              std::is_copy_assignable_v<MTModelBoundaryConditionsWriter>);

namespace {

MTModelBoundaryConditions conditionList(QList<qint32> const& points, QList<float> const& values)
{
    return {static_cast<qint32>(points.size()), support::sharedArray(points), support::sharedArray(values)};
}

QByteArray written(MTModelBoundaryConditions const& conditions)
{
    VMeshFile const file("");
    return MTModelBoundaryConditionsWriter(conditions).write(file.path()) ? contentOf(file.path())
                                                                          : QByteArray("not written");
}

} // namespace

class tst_MTModelBoundaryConditionsWriter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void writesConditions()
    {
        QCOMPARE(written(conditionList({7, -2}, {0.5f, 1e-7f, 123456789.0f, -1, 0, 1e6f})),
                 QByteArray("FemBoundaryConditions\n{\nDefaultMeshFilename\n2\n"
                            "7 0.5 1e-07 1.23457e+08\n"
                            "-2 -1 0 1e+06\n"
                            "}"));
    }

    void writesSixSignificantDigits_data()
    {
        QTest::addColumn<float>("value");
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("a tenth") << 0.1f << QByteArray("0.1");
        QTest::newRow("a hundred million") << 100000000.0f << QByteArray("1e+08");
        QTest::newRow("six digits") << 123456.0f << QByteArray("123456");
        QTest::newRow("seven digits") << 1234567.0f << QByteArray("1.23457e+06");
        QTest::newRow("a third") << 1.0f / 3.0f << QByteArray("0.333333");
        QTest::newRow("small") << 0.0001f << QByteArray("0.0001");
        QTest::newRow("smaller") << 0.00001f << QByteArray("1e-05");
        QTest::newRow("nan") << std::numeric_limits<float>::quiet_NaN() << QByteArray("nan");
        QTest::newRow("infinity") << std::numeric_limits<float>::infinity() << QByteArray("inf");
    }

    void writesSixSignificantDigits()
    {
        QFETCH(float, value);
        QFETCH(QByteArray, text);
        QCOMPARE(written(conditionList({1}, {value, 0, value})),
                 "FemBoundaryConditions\n{\nDefaultMeshFilename\n1\n1 " + text + " 0 " + text + "\n}");
    }

    void writesRecordsWithoutConditions_data()
    {
        QTest::addColumn<int>("count");
        QTest::newRow("unread") << -1;
        QTest::newRow("none") << 0;
        QTest::newRow("lowest") << std::numeric_limits<int>::min();
    }

    void writesRecordsWithoutConditions()
    {
        QFETCH(int, count);
        MTModelBoundaryConditions conditions;
        conditions.numBoundaryConditions = count;
        QCOMPARE(written(conditions),
                 "FemBoundaryConditions\n{\nDefaultMeshFilename\n" + QByteArray::number(count) + "\n}");
    }

    void holdsACopy()
    {
        auto conditions = std::make_unique<MTModelBoundaryConditions>(conditionList({5}, {1, 2, 3}));
        MTModelBoundaryConditionsWriter writer(*conditions);
        conditions.reset();
        MTModelBoundaryConditionsWriter copy(writer);
        writer = copy;
        VMeshFile const file("");
        QVERIFY(writer.write(file.path()));
        QVERIFY(contentOf(file.path()).endsWith("\n1\n5 1 2 3\n}"));
    }

    void writesTwiceTheSame()
    {
        MTModelBoundaryConditionsWriter writer(conditionList({5}, {1, 2, 3}));
        VMeshFile const first(QByteArray(500, 'x'));
        VMeshFile const second("");
        QVERIFY(writer.write(first.path()) && writer.write(second.path()));
        QCOMPARE(contentOf(first.path()), contentOf(second.path()));
    }

    void readsBackWhatItWrote()
    {
        VMeshFile const file("");
        MTModelBoundaryConditions const conditions =
            conditionList({3, 1, 2}, {1, 2, 3, 0.5f, -0.25f, 8, 0, 0, 100});
        QVERIFY(MTModelBoundaryConditionsWriter(conditions).write(file.path()));
        MTModelBoundaryConditionsParser parser(file.path());
        QVERIFY(parser.read());
        MTModelBoundaryConditions const result = parser.getBoundaryConditions();
        QCOMPARE(result.numBoundaryConditions, 3);
        QCOMPARE(support::valuesOf(result.pointIndices, 3), (QList<qint32>{3, 1, 2}));
        QCOMPARE(support::valuesOf(result.values, 9), support::valuesOf(conditions.values, 9));
    }

    void saysWhenItCannotWrite_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("no folder") << QStringLiteral("/no/such/folder/file");
        QTest::newRow("a folder") << QDir::tempPath();
        QTest::newRow("no name") << QString();
    }

    void saysWhenItCannotWrite()
    {
        QFETCH(QString, name);
        expectWarning("MTModelBoundaryConditionsWriter : could not open file for writing.");
        QVERIFY(!MTModelBoundaryConditionsWriter(conditionList({1}, {1, 2, 3})).write(name));
    }

    void doesNotNoticeAFullDisk()
    {
        if (!QFile::exists(QStringLiteral("/dev/full")))
            QSKIP("needs /dev/full");
        QVERIFY(MTModelBoundaryConditionsWriter(conditionList({1}, {1, 2, 3}))
                    .write(QStringLiteral("/dev/full")));
    }

    void refusesConditionsThatAreNotThere()
    {
        MTModelBoundaryConditions conditions = conditionList({1}, {1, 2, 3});
        MTModelBoundaryConditions const none;
        for (bool const hasPoints : {false, true})
            for (bool const hasValues : {false, true}) {
                MTModelBoundaryConditions parts = conditions;
                parts.pointIndices = hasPoints ? conditions.pointIndices : none.pointIndices;
                parts.values = hasValues ? conditions.values : none.values;
                QCOMPARE(written(parts) != "not written", hasPoints && hasValues);
            }
    }
};

QTEST_APPLESS_MAIN(tst_MTModelBoundaryConditionsWriter)
#include "tst_MTModelBoundaryConditionsWriter.moc"
