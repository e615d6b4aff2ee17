#include "framework/ScanMetadata.h"

#include <QtTest>

#include <random>

using conversions::toByteArray;

namespace {

QDateTime const noon(QDate(2024, 2, 29), QTime(12, 0));

MeshHeader named(QString const& name)
{
    return {name, {}, false, {}, {}};
}

} // namespace

class tst_ScanMetadata : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wholeRecord();
    void defaultHeader();
    void textFields_data();
    void textFields();
    void imported();
    void date_data();
    void date();
    void lengthOfAnyInput();
};

void tst_ScanMetadata::wholeRecord()
{
    MeshHeader const header(QStringLiteral("Scan Pro 3"), QStringLiteral("SN 0815/4711"), true,
                            QStringLiteral("2.10.3 beta"), noon);
    QCOMPARE(toByteArray(header), QByteArray("\xBE\xBE"
                                             "ScanPro3            "
                                             "SN0815/4711             "
                                             "1"
                                             "2.10.3beta          "
                                             "2024-02-29"
                                             "   "));
}

void tst_ScanMetadata::defaultHeader()
{
    QCOMPARE(toByteArray(MeshHeader()), "\xBE\xBE" + QByteArray(44, ' ') + '0' + QByteArray(33, ' '));
}

void tst_ScanMetadata::textFields_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("twenty");
    QTest::newRow("empty") << QString() << QByteArray(20, ' ');
    QTest::newRow("spaces only") << QStringLiteral("      ") << QByteArray(20, ' ');
    QTest::newRow("spaces inside") << QStringLiteral(" a b  c ") << QByteArray("abc                 ");
    QTest::newRow("other white space stays")
        << QStringLiteral("a\tb\nc") << QByteArray("a\tb\nc               ");
    QTest::newRow("no-break space stays") << QStringLiteral("a\u00a0b")
                                          << QByteArray("a\xC2\xA0"
                                                        "b                ");
    QTest::newRow("just fits") << QStringLiteral("12345678901234567890")
                               << QByteArray("12345678901234567890");
    QTest::newRow("one too long") << QStringLiteral("123456789012345678901")
                                  << QByteArray("12345678901234567890");
    QTest::newRow("fits without its spaces")
        << QStringLiteral("12345 67890 12345 67890") << QByteArray("12345678901234567890");
    QTest::newRow("padding makes room")
        << QStringLiteral("Gerät") << QByteArray("Ger\xC3\xA4t              ");
    // 18 characters, two of them of two bytes: padded to 20 characters and cut to 20 bytes.
    QTest::newRow("padding is cut") << QStringLiteral("äö1234567890123456")
                                    << QByteArray("\xC3\xA4\xC3\xB6"
                                                  "1234567890123456");
    QTest::newRow("text is cut") << QStringLiteral("ä234567890123456789x")
                                 << QByteArray("\xC3\xA4"
                                               "234567890123456789");
    QTest::newRow("cut in a character")
        << QStringLiteral("1234567890123456789ä") << QByteArray("1234567890123456789\xC3");
    QTest::newRow("three bytes each")
        << QString(20, QChar(0x20AC)) << QByteArray("\xE2\x82\xAC").repeated(7).first(20);
    // Outside the first plane a character is two UTF-16 units and four bytes.
    QTest::newRow("surrogate pairs") << QStringLiteral("\U0001F600").repeated(10)
                                     << QByteArray("\xF0\x9F\x98\x80").repeated(5);
}

void tst_ScanMetadata::textFields()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, twenty);
    QByteArray const asName = toByteArray(named(text));
    QCOMPARE(asName.mid(2, 20), twenty);
    QCOMPARE(asName.size(), 80);
    QCOMPARE(asName.mid(22), toByteArray(MeshHeader()).mid(22));

    QByteArray const asVersion = toByteArray(MeshHeader({}, {}, false, text, {}));
    QCOMPARE(asVersion.mid(47, 20), twenty);
    QCOMPARE(asVersion.first(47), toByteArray(MeshHeader()).first(47));
    QCOMPARE(asVersion.mid(67), toByteArray(MeshHeader()).mid(67));

    QByteArray const asSerial = toByteArray(MeshHeader({}, text, false, {}, {}));
    QCOMPARE(asSerial.mid(22, 20).first(19), twenty.first(19));
    QString const thirty = QStringLiteral("123456789012345678901234567890");
    QCOMPARE(toByteArray(MeshHeader({}, thirty, false, {}, {})).mid(22, 25),
             QByteArray("1234567890123456789012340"));
}

void tst_ScanMetadata::imported()
{
    QCOMPARE(toByteArray(MeshHeader({}, {}, true, {}, {})).at(46), '1');
    QCOMPARE(toByteArray(MeshHeader({}, {}, false, {}, {})).at(46), '0');
}

void tst_ScanMetadata::date_data()
{
    QTest::addColumn<QDateTime>("date");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("noon") << noon << QByteArray("2024-02-29");
    QTest::newRow("universal time") << QDateTime(QDate(1999, 12, 31), QTime(23, 59), Qt::UTC)
                                    << QByteArray("1999-12-31");
    QTest::newRow("first day of the year 1")
        << QDateTime(QDate(1, 1, 1), QTime(0, 0), Qt::UTC) << QByteArray("0001-01-01");
    QTest::newRow("invalid") << QDateTime() << QByteArray(10, ' ');
    QTest::newRow("invalid day") << QDateTime(QDate(2023, 2, 29), QTime(12, 0)) << QByteArray(10, ' ');
    QTest::newRow("year of five digits")
        << QDateTime(QDate(12024, 2, 29), QTime(12, 0), Qt::UTC) << QByteArray(10, ' ');
}

void tst_ScanMetadata::date()
{
    QFETCH(QDateTime, date);
    QFETCH(QByteArray, text);
    QByteArray const record = toByteArray(MeshHeader({}, {}, false, {}, date));
    QCOMPARE(record.mid(67, 10), text);
    QCOMPARE(record.mid(77), QByteArray("   "));
}

void tst_ScanMetadata::lengthOfAnyInput()
{
    std::mt19937 random(5);
    auto const text = [&] {
        QString result(int(random() % 60), Qt::Uninitialized);
        for (QChar& unit : result)
            unit = QChar(char16_t(random()));
        return result;
    };
    for (int i = 0; i < 2000; ++i) {
        MeshHeader const header(text(), text(), random() % 2 == 0, text(),
                                noon.addDays(int(random() % 4000000) - 2000000));
        QByteArray const record = toByteArray(header);
        QCOMPARE(record.size(), 80);
        QVERIFY(record.startsWith("\xBE\xBE") && record.endsWith("   "));
    }
}

QTEST_APPLESS_MAIN(tst_ScanMetadata)
#include "tst_ScanMetadata.moc"
