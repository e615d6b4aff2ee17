#include "obj/OBJReader.h"
#include "support/Meshes.h"

#include <QTest>

#include <random>

// Lines in their plainest spelling are read without cutting them into tokens. White space that is not ASCII
// before a line makes no difference to what it says, but sends it through the tokens: both ways must tell the
// same.

namespace {

std::atomic<bool> const running = false;
QStringList caught;

void catchMessage(QtMsgType, QMessageLogContext const&, QString const& text)
{
    caught << text;
}

struct Outcome
{
    OBJReader::Error code;
    OBJReader::Error stored;
    geometry::Mesh mesh;
    QStringList log;
};

// An em space in UTF-8, or a no-break space in Latin-1.
QByteArray withForeignSpace(QByteArray const& line)
{
    return (line.isValidUtf8() ? "\xe2\x80\x83" : "\xa0") + line;
}

Outcome read(QByteArrayList const& lines, bool throughTokens)
{
    QByteArray text;
    for (QByteArray const& line : lines)
        text += (throughTokens ? withForeignSpace(line) : line) + '\n';
    caught.clear();
    QtMessageHandler const previous = qInstallMessageHandler(catchMessage);
    OBJReader reader;
    OBJReader::Error const code = reader.read(text, running);
    qInstallMessageHandler(previous);
    return {code, reader.getError(), reader.getMesh(), caught};
}

bool agree(QByteArrayList const& lines)
{
    Outcome const plain = read(lines, false);
    Outcome const tokens = read(lines, true);
    return plain.code == tokens.code && plain.stored == tokens.stored && plain.log == tokens.log &&
           support::sameBits(plain.mesh, tokens.mesh);
}

class Lines
{
public:
    explicit Lines(unsigned int seed)
        : random(seed)
    {}

    QByteArrayList text(int count)
    {
        QByteArrayList lines = {"v 0 0 0", "v 1 0 0", "v 0 1 0", "vn 1 0 0", "vn 0 1 0", "vt 0 0", "vt 1 1"};
        for (int i = 0; i < count; ++i)
            lines << line();
        return lines;
    }

private:
    bool isRare() { return random() % 40 == 0; }
    template <std::size_t count>
    QByteArray any(std::array<char const*, count> const& of)
    {
        return of[random() % count];
    }

    QByteArray line()
    {
        QByteArray const keyword = any(std::array{"v", "v", "vn", "vt", "f", "f", "f", "f"});
        int const usual = keyword == "vt" ? 2 : 3;
        int const count = isRare() ? static_cast<int>(random() % 7) : usual;
        QByteArray line = isRare() ? any(std::array{" ", "\t", "", "V", "#"}) + keyword : keyword;
        for (int i = 0; i < count; ++i)
            line += space() + (keyword == "f" ? corner() : number());
        return line + end();
    }

    QByteArray space() { return isRare() ? any(std::array{"  ", "\t", " \t", "\t ", "\v", ""}) : " "; }
    QByteArray end()
    {
        return isRare()
                   ? any(std::array{" ", "\r", " \r", " x", "\tx", " 1", " #", "\xc2\xa0", "\xe4", " \xe4"})
                   : "";
    }

    QByteArray number()
    {
        if (isRare())
            return any(std::array{"x",
                                  "1e39",
                                  "1e-46",
                                  "nan",
                                  "-inf",
                                  "1.",
                                  ".5",
                                  "-.5e1",
                                  "+1",
                                  "1e",
                                  "1e5x",
                                  "--1",
                                  "0x1",
                                  "1,5",
                                  "12345678901234567890123",
                                  "0.1234567890123456789",
                                  "1\t",
                                  "\xc3\xa4",
                                  "-0",
                                  "1e+05",
                                  "3.4028235e38"});
        return QByteArray::number(double(support::randomFloat(random, 100)),
                                  any(std::array{"f", "g", "e"})[0], static_cast<int>(random() % 10));
    }

    QByteArray index()
    {
        if (isRare())
            return any(std::array{"0", "-1", "4", "999999999", "1000000000", "9999999999", "2147483647",
                                  "2147483648", "-2147483648", "+1", "01", "1.", "x", "", "1\t"});
        return QByteArray::number(1 + static_cast<int>(random() % 2));
    }

    QByteArray corner()
    {
        switch (random() % 4) {
        case 0:
            return index();
        case 1:
            return index() + '/' + index();
        case 2:
            return index() + "//" + index();
        default:
            return index() + '/' + index() + '/' + index() +
                   (isRare() ? any(std::array{"/", "/1", "//", "x"}) : "");
        }
    }

    std::mt19937 random;
};

} // namespace

class tst_OBJReaderPlainLines : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lines_data();
    void lines();
    void randomLines_data();
    void randomLines();
};

void tst_OBJReaderPlainLines::lines_data()
{
    QTest::addColumn<QByteArray>("line");
    for (char const* const line : {"v",
                                   "v ",
                                   "v 1 2 3",
                                   "v  1  2  3",
                                   "v 1 2 3 4",
                                   "v 1 2 3x",
                                   "v 1 2 3 x",
                                   "v 1 2 3/",
                                   "v\t1 2 3",
                                   "v1 2 3",
                                   "v 1 2",
                                   "v 1 2 ",
                                   "v 1,2,3",
                                   "v 1 2 3\r",
                                   "v 1 2 3 \r",
                                   "v 1 2 3\t",
                                   "v 1 2 3\v4",
                                   "v 1 2 1e39",
                                   "v 1 2 nan",
                                   "vn 1 2 3",
                                   "vn 1 2",
                                   "vn1 2 3",
                                   "vnx 1 2 3",
                                   "vt 1 2",
                                   "vt 1 2 3",
                                   "vt 1",
                                   "vt1 2",
                                   "vtx 1 2",
                                   "vp 1 2 3",
                                   "va",
                                   "f",
                                   "f ",
                                   "f 1 2 3",
                                   "f  1  2  3 ",
                                   "f 1 2 3 3",
                                   "f 1 2 3 3 3",
                                   "f 1 2",
                                   "f1 2 3",
                                   "f 1/1/1 2/2/2 3/1/1",
                                   "f 1//1 2//2 3//1",
                                   "f 1/1 2/2 3/1",
                                   "f 1/ 2/ 3/",
                                   "f 1// 2// 3//",
                                   "f 1/1/1/1 2 3",
                                   "f 1/x 2 3",
                                   "f x 2 3",
                                   "f 0 2 3",
                                   "f 1 2 0",
                                   "f /1 2 3",
                                   "f 1 2 3x",
                                   "f 1 2 3\r",
                                   "f 1\t2\t3",
                                   "f 1 2 -1",
                                   "f 1 2 4",
                                   "f 1 2 999999999",
                                   "f 1 2 1000000000",
                                   "f 1 2 4294967297",
                                   "f 0000000001 2 3",
                                   "f 1 2 3 #",
                                   "f 1/1/9 2 3",
                                   "#",
                                   "",
                                   "ff 1 2 3",
                                   "f\xc3\xa4 1 2 3",
                                   "v 1 2 3 \xc3\xa4",
                                   "v 1 2 3\xc2\xa0",
                                   "v 1 2 3\xe4",
                                   "v 1 2 3 \xe4"})
        QTest::addRow("%s", QByteArray(line).toPercentEncoding(" /").constData()) << QByteArray(line);
}

void tst_OBJReaderPlainLines::lines()
{
    QFETCH(QByteArray, line);
    QByteArrayList const positions = {"v 0 0 0", "v 1 0 0", "v 0 1 0"};
    QVERIFY(agree(QByteArrayList{line} + positions));
    QVERIFY(agree(positions + QByteArrayList{line}));
    QVERIFY(agree(positions + QByteArrayList{"vn 0 0 1", "vt 0 0", "vt 1 1", line, "f 1/1/1 2/2/1 3/1/1"}));
}

void tst_OBJReaderPlainLines::randomLines_data()
{
    QTest::addColumn<int>("count");
    for (int const count : {1, 3, 10, 30, 100})
        QTest::addRow("%d", count) << count;
}

void tst_OBJReaderPlainLines::randomLines()
{
    QFETCH(int, count);
    Lines lines(static_cast<unsigned int>(count));
    for (int i = 0; i < 2000; ++i) {
        QByteArrayList const text = lines.text(count);
        QVERIFY2(agree(text), text.join('\n').constData());
    }
}

QTEST_APPLESS_MAIN(tst_OBJReaderPlainLines)
#include "tst_OBJReaderPlainLines.moc"
