#include "vmesh/NumberRow.h"

#include <QtTest>

namespace {

using Integers = std::array<qint32, 5>;
using Reals = std::array<float, 3>;

} // namespace

class tst_NumberRow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsIntegers_data()
    {
        QTest::addColumn<QByteArray>("row");
        QTest::addColumn<bool>("isRead");
        QTest::newRow("lf") << QByteArray("-7 0 999999999 -999999999 007\n") << true;
        QTest::newRow("crlf") << QByteArray("-7 0 999999999 -999999999 007\r\n") << true;
        QTest::newRow("minus zero") << QByteArray("-7 -0 999999999 -999999999 7\n") << true;
        // Left to others, who accept some of them.
        QTest::newRow("ten digits") << QByteArray("-7 0 1000000000 1 2\n") << false;
        QTest::newRow("a plus") << QByteArray("-7 +0 1 1 2\n") << false;
        QTest::newRow("a tab") << QByteArray("-7 0\t 1 1 2\n") << false;
        QTest::newRow("two carriage returns") << QByteArray("-7 0 1 1 2\r\r\n") << false;
        QTest::newRow("two minuses") << QByteArray("--7 0 1 1 2\n") << false;
        QTest::newRow("a lone minus") << QByteArray("- 0 1 1 2\n") << false;
        QTest::newRow("two blanks") << QByteArray("-7  0 1 1 2\n") << false;
        QTest::newRow("a blank before") << QByteArray(" -7 0 1 1 2\n") << false;
        QTest::newRow("a blank behind") << QByteArray("-7 0 1 1 2 \n") << false;
        QTest::newRow("four") << QByteArray("-7 0 1 1\n2\n") << false;
        QTest::newRow("six") << QByteArray("-7 0 1 1 2 3\n") << false;
        QTest::newRow("a fraction") << QByteArray("-7 0 1 1 2.0\n") << false;
        QTest::newRow("empty") << QByteArray("\n") << false;
    }

    void readsIntegers()
    {
        QFETCH(QByteArray, row);
        QFETCH(bool, isRead);
        QByteArray const text = row + "next\n";
        Integers values;
        char const* const end = vmesh::readIntegers(text.constData(), values);
        QCOMPARE(end, isRead ? text.constData() + row.size() : nullptr);
        if (isRead)
            QCOMPARE(values, (Integers{-7, 0, 999999999, -999999999, 7}));
    }

    void readsRealNumbers_data()
    {
        QTest::addColumn<QByteArray>("row");
        QTest::addColumn<bool>("isRead");
        QTest::newRow("lf") << QByteArray("1.25 -0.5 100\n") << true;
        QTest::newRow("crlf") << QByteArray("1.25 -0.5 100\r\n") << true;
        QTest::newRow("exponents") << QByteArray("125e-2 -5E-1 +1e+2\n") << true;
        QTest::newRow("tabs") << QByteArray("\t1.25 -.5\t 100.\t\n") << true;
        QTest::newRow("two carriage returns") << QByteArray("1.25 -0.5 100\r\r\n") << true;
        QTest::newRow("a carriage return within") << QByteArray("1.25\r -0.5 100\n") << true;
        QTest::newRow("two") << QByteArray("1.25 -0.5\n100\n") << false;
        QTest::newRow("four") << QByteArray("1.25 -0.5 100 1\n") << false;
        QTest::newRow("two blanks") << QByteArray("1.25  -0.5 100\n") << false;
        QTest::newRow("a blank before") << QByteArray(" 1.25 -0.5 100\n") << false;
        QTest::newRow("a blank behind") << QByteArray("1.25 -0.5 100 \n") << false;
        QTest::newRow("a comma") << QByteArray("1,25 -0.5 100\n") << false;
        QTest::newRow("no number") << QByteArray("1.25 x 100\n") << false;
        QTest::newRow("overflow") << QByteArray("1.25 1e39 100\n") << false;
        QTest::newRow("latin-1 no-break space") << QByteArray("1.25 -0.5\xa0 100\n") << false;
        QTest::newRow("empty") << QByteArray("\n") << false;
        QTest::newRow("a carriage return only") << QByteArray("\r\n") << false;
    }

    void readsRealNumbers()
    {
        QFETCH(QByteArray, row);
        QFETCH(bool, isRead);
        QByteArray const text = row + "next\n";
        Reals values;
        char const* const end = vmesh::readRealNumbers(text.constData(), values);
        QCOMPARE(end, isRead ? text.constData() + row.size() : nullptr);
        if (isRead)
            QCOMPARE(values, (Reals{1.25f, -0.5f, 100}));
    }
};

QTEST_APPLESS_MAIN(tst_NumberRow)
#include "tst_NumberRow.moc"
