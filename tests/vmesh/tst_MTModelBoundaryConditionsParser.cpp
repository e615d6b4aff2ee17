#include "VMeshFile.h"
#include "support/VolumeMeshes.h"
#include "vmesh/MTModelBoundaryConditionsParser.h"

#include <QDir>

#include <limits>
#include <type_traits>

static_assert(std::has_virtual_destructor_v<MTModelBoundaryConditionsParser>);
static_assert(std::is_copy_constructible_v<MTModelBoundaryConditionsParser> &&
              std::is_copy_assignable_v<MTModelBoundaryConditionsParser>);

namespace {

QByteArray const head = "FemBoundaryConditions\n{\nDefaultMeshFilename\n";
QByteArray const twoConditions = head + "2\n7 0.5 -1e-07 1.23457e+08\n0 1 2 3\n}";

void compareWithTwoConditions(MTModelBoundaryConditions const& conditions)
{
    QCOMPARE(conditions.numBoundaryConditions, 2);
    QCOMPARE(support::valuesOf(conditions.pointIndices, 2), (QList<qint32>{7, 0}));
    QCOMPARE(support::valuesOf(conditions.values, 6), (QList<float>{0.5f, -1e-07f, 1.23457e+08f, 1, 2, 3}));
}

bool isUnread(MTModelBoundaryConditions const& conditions)
{
    return conditions.numBoundaryConditions == -1 && conditions.pointIndices.isNull() &&
           conditions.values.isNull();
}

void expectBadConditionsLine(int line)
{
    expectWarning("MTModelBoundaryConditionsParser : could not parse line " + QByteArray::number(line) +
                  " .");
}

} // namespace

class tst_MTModelBoundaryConditionsParser : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isUnreadAtFirst()
    {
        QVERIFY(isUnread(MTModelBoundaryConditionsParser(QStringLiteral("x")).getBoundaryConditions()));
    }

    void readsConditions_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("as written") << twoConditions;
        QTest::newRow("crlf") << QByteArray(twoConditions).replace("\n", "\r\n");
        QTest::newRow("any first three lines") << "a\n\n\xff\xfe}{\n" + twoConditions.mid(head.size());
        QTest::newRow("no last line") << twoConditions.chopped(2);
        QTest::newRow("a line end only") << twoConditions.chopped(1);
        QTest::newRow("anything behind") << twoConditions.chopped(1) + "8 8 8\n9 9 9 9\n\n\xff";
        QTest::newRow("blanks around the count") << QByteArray(twoConditions).replace("\n2\n", "\n \t2 \n");
        QTest::newRow("a plus and zeros") << QByteArray(twoConditions).replace("\n2\n", "\n+002\n");
    }

    void readsConditions()
    {
        QFETCH(QByteArray, bytes);
        VMeshFile const file(bytes);
        MTModelBoundaryConditionsParser parser(file.path());
        QVERIFY(parser.read());
        compareWithTwoConditions(parser.getBoundaryConditions());
    }

    void readsNoConditions_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("as written") << head + "0\n}";
        QTest::newRow("no last line") << head + "0";
        QTest::newRow("a bad line behind") << head + "0\nbad\n";
    }

    void readsNoConditions()
    {
        QFETCH(QByteArray, bytes);
        VMeshFile const file(bytes);
        MTModelBoundaryConditionsParser parser(file.path());
        QVERIFY(parser.read());
        QCOMPARE(parser.getBoundaryConditions().numBoundaryConditions, 0);
        QVERIFY(!parser.getBoundaryConditions().pointIndices.isNull());
        QVERIFY(!parser.getBoundaryConditions().values.isNull());
    }

    void findsTheBadLine_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("line");
        QTest::newRow("three lines") << head << 4;
        QTest::newRow("three lines, no line end") << head.chopped(1) << 4;
        QTest::newRow("an empty count") << head + "\n" << 4;
        QTest::newRow("no integer") << head + "2.0\n" << 4;
        QTest::newRow("two integers") << head + "2 2\n" << 4;
        QTest::newRow("a condition for the count") << head + "1 0 0 0\n1 0 0 0\n" << 4;
        QTest::newRow("a count beyond 32 bits") << head + "2147483648\n" << 4;
        QTest::newRow("a negative count") << head + "-1\n" << 4;
        QTest::newRow("the lowest count") << head + "-2147483648\n" << 4;
        QTest::newRow("two of three") << head + "3\n1 0 0 0\n2 0 0 0" << 7;
        QTest::newRow("two of three, line end") << head + "3\n1 0 0 0\n2 0 0 0\n" << 7;
        QTest::newRow("two of three, last line") << head + "3\n1 0 0 0\n2 0 0 0\n}" << 7;
        QTest::newRow("none of very many") << head + "2147483647\n" << 5;
        QTest::newRow("two of very many") << head + "1431655766\n1 0 0 0\n2 0 0 0\n" << 7;
        QTest::newRow("two blanks") << head + "1\n1 0  0 0\n" << 5;
        QTest::newRow("a blank behind") << head + "1\n1 0 0 0 \n" << 5;
        QTest::newRow("a blank before") << head + "1\n 1 0 0 0\n" << 5;
        QTest::newRow("three parts") << head + "1\n1 0 0\n" << 5;
        QTest::newRow("five parts") << head + "1\n1 0 0 0 0\n" << 5;
        QTest::newRow("an empty line") << head + "1\n\n1 0 0 0\n" << 5;
        QTest::newRow("an index that is no integer") << head + "1\n1.5 0 0 0\n" << 5;
        QTest::newRow("x is no number") << head + "1\n1 x 0 0\n" << 5;
        QTest::newRow("y is no number") << head + "1\n1 0 0,5 0\n" << 5;
        QTest::newRow("z is no number") << head + "1\n1 0 0 z\n" << 5;
        QTest::newRow("z beyond single precision") << head + "1\n1 0 0 1e39\n" << 5;
        QTest::newRow("the second line") << head + "2\n1 0 0 0\n1 0 0\n" << 6;
    }

    void findsTheBadLine()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(int, line);
        VMeshFile const file(bytes);
        MTModelBoundaryConditionsParser parser(file.path());
        expectBadConditionsLine(line);
        QVERIFY(!parser.read());
        QVERIFY(isUnread(parser.getBoundaryConditions()));
    }

    void saysNothingOfAFileWithoutACountLine_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("one line") << QByteArray("FemBoundaryConditions");
        QTest::newRow("one line, line end") << QByteArray("FemBoundaryConditions\n");
        QTest::newRow("two lines") << QByteArray("FemBoundaryConditions\n{");
        QTest::newRow("two lines, line end") << QByteArray("FemBoundaryConditions\n{\n");
    }

    void saysNothingOfAFileWithoutACountLine()
    {
        QFETCH(QByteArray, bytes);
        VMeshFile const file(bytes);
        MTModelBoundaryConditionsParser parser(file.path());
        QVERIFY(!parser.read());
        QVERIFY(isUnread(parser.getBoundaryConditions()));
    }

    void saysWhyThereIsNothingToRead_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("message");
        QTest::newRow("no name") << QString() << QByteArray("file name not filled in.");
        QTest::newRow("missing") << QStringLiteral("/no/such/file") << QByteArray("file does not exist.");
        QTest::newRow("a folder") << QDir::tempPath() << QByteArray("could not open file for reading.");
    }

    void saysWhyThereIsNothingToRead()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, message);
        MTModelBoundaryConditionsParser parser(name);
        expectWarning("MTModelBoundaryConditionsParser : " + message);
        QVERIFY(!parser.read());
        QVERIFY(isUnread(parser.getBoundaryConditions()));
    }

    void keepsTheOldResultWhenThereIsNothingToRead()
    {
        VMeshFile const file(twoConditions);
        MTModelBoundaryConditionsParser parser(file.path());
        QVERIFY(parser.read());
        QVERIFY(QFile::remove(file.path()));
        expectWarning("MTModelBoundaryConditionsParser : file does not exist.");
        QVERIFY(!parser.read());
        compareWithTwoConditions(parser.getBoundaryConditions());
    }

    void readsAgainFromTheStart()
    {
        VMeshFile file(head + "1\n9 9 9 9");
        MTModelBoundaryConditionsParser parser(file.path());
        QVERIFY(parser.read());
        MTModelBoundaryConditions const kept = parser.getBoundaryConditions();
        file.write(twoConditions);
        QVERIFY(parser.read());
        compareWithTwoConditions(parser.getBoundaryConditions());
        QCOMPARE(kept.numBoundaryConditions, 1);
        QCOMPARE(support::valuesOf(kept.pointIndices, 1), QList<qint32>{9});
        file.write("one line");
        QVERIFY(!parser.read());
        QVERIFY(isUnread(parser.getBoundaryConditions()));
    }

    void sharesItsArrays()
    {
        VMeshFile const file(twoConditions);
        MTModelBoundaryConditionsParser parser(file.path());
        QVERIFY(parser.read());
        MTModelBoundaryConditionsParser const copy(parser);
        MTModelBoundaryConditionsParser assigned((QString()));
        assigned = parser;
        MTModelBoundaryConditions const conditions = parser.getBoundaryConditions();
        for (MTModelBoundaryConditions const& other :
             {parser.getBoundaryConditions(), copy.getBoundaryConditions(),
              assigned.getBoundaryConditions()}) {
            QCOMPARE(other.pointIndices, conditions.pointIndices);
            QCOMPARE(other.values, conditions.values);
        }
        QVERIFY(assigned.read()); // the name was copied too
        compareWithTwoConditions(assigned.getBoundaryConditions());
    }

    void doesNotCheckIndices()
    {
        VMeshFile const file(head + "1\n-2147483648 nan inf -inf");
        MTModelBoundaryConditionsParser parser(file.path());
        QVERIFY(parser.read());
        MTModelBoundaryConditions const conditions = parser.getBoundaryConditions();
        QCOMPARE(*conditions.pointIndices, std::numeric_limits<qint32>::min());
        QVERIFY(std::isnan(conditions.values.data()[0]));
        QCOMPARE(conditions.values.data()[1], std::numeric_limits<float>::infinity());
        QCOMPARE(conditions.values.data()[2], -std::numeric_limits<float>::infinity());
    }

    void readsManyConditions()
    {
        constexpr int count = 10001;
        QByteArray text = head + QByteArray::number(count) + "\n";
        for (int k = 0; k < count; ++k)
            text += QByteArray::number(count - k) + " " + QByteArray::number(k) + " 0.5 -1\n";
        VMeshFile const file(text + "}");
        MTModelBoundaryConditionsParser parser(file.path());
        QVERIFY(parser.read());
        MTModelBoundaryConditions const conditions = parser.getBoundaryConditions();
        for (int k = 0; k < count; ++k) {
            QCOMPARE(conditions.pointIndices.data()[k], count - k);
            float const* const value = conditions.values.data() + 3 * k;
            QCOMPARE(QList<float>(value, value + 3), (QList<float>{static_cast<float>(k), 0.5f, -1}));
        }
    }
};

QTEST_APPLESS_MAIN(tst_MTModelBoundaryConditionsParser)
#include "tst_MTModelBoundaryConditionsParser.moc"
