#include "VMeshFile.h"
#include "support/PrivateAccess.h"
#include "support/VolumeMeshes.h"
#include "vmesh/MTModelBoundaryConditionsParser.h"
#include "vmesh/MTModelBoundaryConditionsWriter.h"

#include <QDir>
#include <QTextStream>

#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <type_traits>

static_assert(std::has_virtual_destructor_v<MTModelBoundaryConditionsWriter>);
static_assert(std::is_copy_constructible_v<MTModelBoundaryConditionsWriter> &&
              std::is_copy_assignable_v<MTModelBoundaryConditionsWriter>);

namespace support {

struct WriteConditions
{
    using Member = void (MTModelBoundaryConditionsWriter::*)(QTextStream&) const;
    friend Member privateMember(WriteConditions);
};

template struct PrivateMember<WriteConditions, &MTModelBoundaryConditionsWriter::writeBoundaryConditions>;

} // namespace support

namespace {

MTModelBoundaryConditions conditionList(QList<qint32> const& points, QList<float> const& values)
{
    return {static_cast<qint32>(points.size()), support::sharedArray(points), support::sharedArray(values)};
}

// Any float, usual ones, and many in the middle of two texts of six digits.
float someFloat(std::mt19937& random)
{
    int const digits = static_cast<int>(random() % 2'000'000) * 10 - 9'999'995;
    switch (random() % 4) {
    case 0:
        return std::bit_cast<float>(static_cast<quint32>(random()));
    case 1:
        return std::uniform_real_distribution<float>(-100.0f, 100.0f)(random);
    case 2:
        return static_cast<float>(digits) * std::pow(10.0f, static_cast<float>(random() % 9));
    default:
        return static_cast<float>(int(random() % 4'000'001) - 2'000'000) /
               static_cast<float>(1 << random() % 24);
    }
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

    // Lines of bytes for a device, a text stream for a string: the same text, of any float there is.
    void writesTheSameOntoDevicesAndIntoStrings()
    {
        std::mt19937 random(5);
        QList<qint32> points;
        QList<float> values;
        for (int i = 0; i < 150'000; ++i) {
            points << static_cast<qint32>(random());
            for (int k = 0; k < 3; ++k)
                values << someFloat(random);
        }
        using Limits = std::numeric_limits<float>;
        points << 0 << std::numeric_limits<qint32>::min() << std::numeric_limits<qint32>::max() << -1 << 1;
        values << 0.0f << -0.0f << 999999.5f << 999999.4f << -0.000099999995f << 0.0001f << Limits::lowest()
               << Limits::denorm_min() << -Limits::min() << Limits::infinity() << -Limits::infinity()
               << Limits::quiet_NaN() << -Limits::quiet_NaN() << -1.175494e-38f << 123456.5f;
        MTModelBoundaryConditions const conditions = conditionList(points, values);
        QString text;
        QTextStream stream(&text);
        MTModelBoundaryConditionsWriter const writer(conditions);
        (writer.*privateMember(support::WriteConditions()))(stream);
        stream.flush();
        QByteArray const bytes = written(conditions);
        QByteArray const body = bytes.mid(bytes.indexOf("150005\n") + 7).chopped(1);
        QCOMPARE(body.size(), text.size());
        QVERIFY(body == text.toLatin1());
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
