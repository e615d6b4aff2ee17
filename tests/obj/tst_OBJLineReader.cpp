#include "obj/OBJLineReader.h"
#include "support/Devices.h"

#include <QBuffer>
#include <QStringDecoder>
#include <QTest>
#include <QTextStream>

#include <random>

using namespace Qt::StringLiterals;

namespace {

using Lines = QList<QStringList>;

/// Lines as they are read one by one: a raw line of the device, decoded by itself, trimmed, parted at spaces.
Lines plainLines(QByteArray const& bytes)
{
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    QTextStream stream(&buffer);
    Lines lines;
    while (!stream.atEnd()) {
        QByteArray const raw = stream.device()->readLine();
        QStringDecoder decoder(QStringDecoder::Utf8);
        QString line = decoder(raw);
        if (decoder.hasError())
            line = QString::fromLatin1(raw);
        line = line.trimmed();
        if (line.isEmpty() || line.startsWith(u'#'))
            lines << QStringList();
        else
            lines << line.split(u' ', Qt::SkipEmptyParts);
    }
    return lines;
}

Lines linesOf(QIODevice& device)
{
    device.open(QIODevice::ReadOnly);
    QTextStream stream(&device);
    OBJLineReader reader(stream);
    Lines lines;
    while (!reader.atEnd() && reader.readLine()) {
        lines << QStringList();
        for (QAnyStringView const token : reader.splitLine())
            lines.back() << token.toString();
    }
    return lines;
}

QByteArray randomText(std::mt19937& random)
{
    // Mostly what OBJ files are made of, and now and then what makes a decoder stumble.
    QByteArrayList const pieces = {"v",
                                   " ",
                                   " ",
                                   "\n",
                                   "\n",
                                   "\r\n",
                                   "1.5",
                                   "#",
                                   "\t",
                                   "\xc3\xa4",
                                   "\xe4",
                                   "\xc3",
                                   "\xef\xbb\xbf",
                                   "\xc2\xa0",
                                   "f",
                                   "1/2/3",
                                   "\xe2\x82",
                                   "\x80",
                                   "\x85",
                                   "\v",
                                   "\f",
                                   "  ",
                                   "x",
                                   "\xf0\x9f\xa6\xb7",
                                   QByteArray(1, '\0')};
    QByteArray text;
    for (unsigned int left = random() % 200; left > 0; --left)
        text += pieces[random() % static_cast<unsigned>(pieces.size())];
    return text;
}

} // namespace

class tst_OBJLineReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cutsNoMoreTokensThanAskedFor_data();
    void cutsNoMoreTokensThanAskedFor();
    void lines_data();
    void lines();
    void randomTexts();
    void endOfTheText();
    void leavesTheDeviceBehindTheLine_data();
    void leavesTheDeviceBehindTheLine();
    void startsWhereTheDeviceStands();
};

void tst_OBJLineReader::cutsNoMoreTokensThanAskedFor_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("tokens");
    QTest::newRow("ASCII") << QByteArray("  a bb  c ")
                           << QStringList{QStringLiteral("a"), QStringLiteral("bb"), QStringLiteral("c")};
    QTest::newRow("UTF-8") << QByteArray("a \xc3\xa4 c\xc2\xa0")
                           << QStringList{QStringLiteral("a"), QStringLiteral("ä"), QStringLiteral("c")};
    // What is not asked for still decides how the line is decoded.
    QTest::newRow("Latin-1 at the end")
        << QByteArray("a \xc3\xa4 \xe4\n")
        << QStringList{QStringLiteral("a"), QStringLiteral("\u00c3\u00a4"), QStringLiteral("ä")};
    QTest::newRow("comment") << QByteArray("# a b") << QStringList();
    QTest::newRow("empty") << QByteArray(" ") << QStringList();
}

void tst_OBJLineReader::cutsNoMoreTokensThanAskedFor()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QStringList, tokens);
    for (std::size_t most = 0; most < 5; ++most) {
        QBuffer buffer(&bytes);
        QVERIFY(buffer.open(QIODevice::ReadOnly));
        QTextStream stream(&buffer);
        OBJLineReader reader(stream);
        QVERIFY(reader.readLine());
        QStringList cut;
        for (QAnyStringView const token : reader.splitLine(most))
            cut << token.toString();
        QCOMPARE(cut, tokens.mid(0, qsizetype(most)));
    }
}

void tst_OBJLineReader::lines_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<Lines>("lines");
    QTest::newRow("empty") << QByteArray("") << Lines{};
    QTest::newRow("line feed") << QByteArray("\n") << Lines{{}};
    QTest::newRow("one") << QByteArray("a b") << Lines{{u"a"_s, u"b"_s}};
    QTest::newRow("one with line feed") << QByteArray("a b\n") << Lines{{u"a"_s, u"b"_s}};
    QTest::newRow("carriage return") << QByteArray("a\r\nb\r") << Lines{{u"a"_s}, {u"b"_s}};
    QTest::newRow("carriage returns only") << QByteArray("a\rb\r") << Lines{{u"a\rb"_s}};
    QTest::newRow("empty parts") << QByteArray("  a   b  ") << Lines{{u"a"_s, u"b"_s}};
    QTest::newRow("tabs") << QByteArray("\ta\tb c\t") << Lines{{u"a\tb"_s, u"c"_s}};
    QTest::newRow("comment") << QByteArray("# a\n #b\na #c") << Lines{{}, {}, {u"a"_s, u"#c"_s}};
    QTest::newRow("UTF-8, then Latin-1, then UTF-8")
        << QByteArray("\xc3\xa4\n\xe4\n\xc3\xb6") << Lines{{u"ä"_s}, {u"ä"_s}, {u"ö"_s}};
    // What is cut off at the end of the text is no error for the decoder, but is dropped.
    QTest::newRow("cut character at the end") << QByteArray("a\xe2\x82") << Lines{{u"a"_s}};
    QTest::newRow("cut character in a line") << QByteArray("a\xe2\x82\n") << Lines{{u"a\u00e2\u0082"_s}};
    QTest::newRow("byte order marks") << QByteArray("\xef\xbb\xbf"
                                                    "a\n\xef\xbb\xbf"
                                                    "b")
                                      << Lines{{u"a"_s}, {u"b"_s}};
    QTest::newRow("byte order mark before a comment") << QByteArray("\xef\xbb\xbf#a\n") << Lines{{}};
    QTest::newRow("white space of Unicode") << QByteArray("\xe3\x80\x80"
                                                          "a\xe3\x80\x80"
                                                          "b\xe3\x80\x80")
                                            << Lines{{u"a\u3000b"_s}};
    // U+0085 is white space, as a byte only in Latin-1.
    QTest::newRow("next line of Latin-1") << QByteArray("\x85"
                                                        "a\x85")
                                          << Lines{{u"a"_s}};
    QTest::newRow("NUL") << QByteArray("a\0b \0", 5)
                         << Lines{{QString::fromLatin1("a\0b", 3), QString(QChar(0))}};
}

void tst_OBJLineReader::lines()
{
    QFETCH(QByteArray, bytes);
    QFETCH(Lines, lines);
    QCOMPARE(plainLines(bytes), lines);
    QBuffer buffer(&bytes);
    QCOMPARE(linesOf(buffer), lines);
    for (int const chunk : {1, 3, 1000}) {
        support::TrickleDevice trickle(bytes, chunk);
        QCOMPARE(linesOf(trickle), lines);
        support::SequentialDevice pipe(bytes, chunk);
        QCOMPARE(linesOf(pipe), lines);
    }
}

void tst_OBJLineReader::randomTexts()
{
    std::mt19937 random(5);
    for (int i = 0; i < 3000; ++i) {
        QByteArray bytes = randomText(random);
        Lines const expected = plainLines(bytes);
        QBuffer buffer(&bytes);
        QCOMPARE(linesOf(buffer), expected);
        support::TrickleDevice trickle(bytes, 1 + random() % 20);
        QCOMPARE(linesOf(trickle), expected);
        support::SequentialDevice pipe(bytes, 1 + random() % 20);
        QCOMPARE(linesOf(pipe), expected);
    }
}

void tst_OBJLineReader::endOfTheText()
{
    QByteArray bytes = "a\nb";
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QTextStream stream(&buffer);
    OBJLineReader reader(stream);
    QVERIFY(!reader.atEnd());
    QVERIFY(reader.readLine());
    QVERIFY(!reader.atEnd());
    QVERIFY(reader.readLine());
    QVERIFY(reader.atEnd());
    QVERIFY(!reader.readLine());
    QVERIFY(reader.splitLine().empty());
}

void tst_OBJLineReader::leavesTheDeviceBehindTheLine_data()
{
    QTest::addColumn<int>("count");
    for (int count = 0; count <= 4; ++count)
        QTest::addRow("%d", count) << count;
}

void tst_OBJLineReader::leavesTheDeviceBehindTheLine()
{
    QFETCH(int, count);
    QByteArray const bytes = "first\nsecond line\n" + QByteArray(100000, 'x') + "\nlast";
    std::array<qint64, 5> const positions = {0, 6, 18, 100019, 100023};
    support::TrickleDevice trickle(bytes, 1000);
    QBuffer buffer;
    buffer.setData(bytes);
    for (QIODevice* const device : std::initializer_list<QIODevice*>{&trickle, &buffer}) {
        device->open(QIODevice::ReadOnly);
        {
            QTextStream stream(device);
            OBJLineReader reader(stream);
            for (int i = 0; i < count; ++i)
                QVERIFY(reader.readLine());
        }
        QCOMPARE(device->pos(), positions[static_cast<unsigned>(count)]);
    }
    support::SequentialDevice pipe(bytes, 1000);
    pipe.open(QIODevice::ReadOnly);
    {
        QTextStream stream(&pipe);
        OBJLineReader reader(stream);
        for (int i = 0; i < count; ++i)
            QVERIFY(reader.readLine());
    }
    QCOMPARE(pipe.readAll(), bytes.mid(positions[static_cast<unsigned>(count)]));
}

void tst_OBJLineReader::startsWhereTheDeviceStands()
{
    QByteArray bytes = "first\nsecond\n";
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    buffer.seek(6);
    QTextStream stream(&buffer);
    OBJLineReader reader(stream);
    QVERIFY(reader.readLine());
    QCOMPARE(reader.splitLine().size(), 1u);
    QVERIFY(reader.splitLine().front() == "second"_L1);
    QVERIFY(reader.atEnd());
}

QTEST_APPLESS_MAIN(tst_OBJLineReader)
#include "tst_OBJLineReader.moc"
