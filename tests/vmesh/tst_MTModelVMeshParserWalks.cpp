#include "VMeshFile.h"
#include "support/VMeshWalks.h"
#include "support/VolumeMeshes.h"
#include "vmesh/FaceRows.h"

#include <QStringEncoder>

#include <random>

namespace {

struct Outcome
{
    bool success = false;
    MTModelVMesh mesh;
    QStringList messages;
};

QStringList* loggedMessages = nullptr;

void log(QtMsgType type, QMessageLogContext const&, QString const& text)
{
    loggedMessages->append(QString::number(type) + u' ' + text);
}

Outcome read(QString const& path, support::VMeshWalk walk)
{
    Outcome outcome;
    loggedMessages = &outcome.messages;
    QtMessageHandler const before = qInstallMessageHandler(log);
    MTModelVMeshParser parser(path);
    outcome.success = (parser.*privateMember(support::ReadWith()))(walk);
    qInstallMessageHandler(before);
    outcome.mesh = parser.getVMesh();
    return outcome;
}

/// Reads bytes both ways and compares everything.
class Comparison
{
public:
    bool agrees(QByteArray const& bytes)
    {
        QString const path = folder.filePath(QString::number(++files));
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            return false;
        file.close();
        Outcome const text = read(path, privateMember(support::ReadText()));
        Outcome const fast = read(path, privateMember(support::ReadBytes()));
        file.remove();
        successes += text.success ? 1 : 0;
        bool const agree = fast.success == text.success && fast.messages == text.messages &&
                           support::sameBits(fast.mesh, text.mesh);
        // Either the whole mesh, or a bad line and an empty record: never a failure without a word.
        bool const isEither =
            text.success ? text.messages.isEmpty() : !text.messages.isEmpty() && isEmpty(text.mesh);
        if (!agree || !isEither)
            qCritical() << "differs:" << bytes.left(2000) << text.messages << fast.messages;
        return agree && isEither;
    }

    int successes = 0;

private:
    QTemporaryDir folder;
    int files = 0;
};

QByteArray boxText(int cells)
{
    MTModelVMesh mesh = support::tetrahedralBall(cells);
    return deriveFaceRows(mesh) ? support::vmeshText(mesh) : QByteArray();
}

class Mutator
{
public:
    explicit Mutator(unsigned seed)
        : random(seed)
    {}

    QByteArray mutated(QByteArray text)
    {
        for (int i = below(3); i >= 0; --i)
            mutate(text);
        return text;
    }
    QByteArray number()
    {
        QByteArray text;
        for (int i = below(6); i >= 0; --i)
            text += numberPieces[static_cast<std::size_t>(below(int(numberPieces.size())))];
        return text;
    }
    int below(int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); }

private:
    static constexpr std::array<char const*, 26> numberPieces = {
        "0",          "1",   "9",   "7",  "3",  "12", "000", "16777217", "123456789",
        "4294967296", ".",   ".5",  "-",  "+",  "e",  "E",   "e-",       "e38",
        "e-46",       "inf", "nan", "\t", "\r", "0x", ",",   "1e400"};
    static constexpr std::array<char const*, 21> snippets = {
        "\n",   "\r",          "\r\n",         " ",           "\t",   "-",    ".",        "e",
        "+",    "\xc3\xa4",    "\xff",         "0",           "\xa0", "\x1a", "\xc2\xa0", "\xef\xbb\xbf",
        "\x0b", "12345678901", "\xe2\x80\x83", "# Labeled\n", "-1"};

    void mutate(QByteArray& text)
    {
        qsizetype const at = below(static_cast<int>(text.size()) + 1);
        switch (below(7)) {
        case 0:
            text.truncate(at);
            break;
        case 1:
            text.remove(at, below(8));
            break;
        case 2:
            text.insert(at, '\0');
            break;
        case 3: // a number in place of another
            text.replace(at, text.indexOf(' ', at) > at ? text.indexOf(' ', at) - at : 0, number());
            break;
        case 4: // a line twice
            text.insert(text.lastIndexOf('\n', at - text.size()) + 1, text.mid(at, 40));
            break;
        default:
            text.insert(at, snippets[static_cast<std::size_t>(below(int(snippets.size())))]);
        }
    }

    std::mt19937 random;
};

QByteArray encoded(QByteArray const& text, QStringConverter::Encoding encoding)
{
    QStringEncoder encoder(encoding, QStringConverter::Flag::WriteBom);
    return encoder(QString::fromLatin1(text));
}

} // namespace

/// The parser walks over bytes where it can. A plain walk over text says what has to come out.
class tst_MTModelVMeshParserWalks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // One is refused and one is beyond the last row, where nothing matters.
    void agreeOnEndlessLines()
    {
        QByteArray const longLine(qsizetype(5) << 20, 'x');
        Comparison comparison;
        QVERIFY(comparison.agrees("# Labeled" + longLine + "\n0 0 0 0"));
        QCOMPARE(comparison.successes, 0);
        QVERIFY(comparison.agrees(boxText(1) + '\n' + longLine));
        QCOMPARE(comparison.successes, 1);
    }

    void agreeOnMeshes()
    {
        Comparison comparison;
        for (int const cells : {1, 2, 7}) {
            QByteArray const text = boxText(cells);
            QByteArray const windows = QByteArray(text).replace("\n", "\r\n");
            for (QByteArray const& bytes : {text, text + "\n", windows, windows + "\r\n", text + "\r"})
                QVERIFY(comparison.agrees(bytes));
        }
        QCOMPARE(comparison.successes, 15);
    }

    void agreeOnEveryTruncation()
    {
        Comparison comparison;
        QByteArray const text = boxText(1) + "\n\nmore";
        QByteArray const windows = QByteArray(text).replace("\n", "\r\n").first(300);
        for (qsizetype size = 0; size <= text.size(); ++size)
            QVERIFY(comparison.agrees(text.first(size)));
        for (qsizetype size = 0; size <= windows.size(); ++size)
            QVERIFY(comparison.agrees(windows.first(size)));
        QVERIFY(comparison.successes > 5);
    }

    void agreeOnBrokenFiles_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("lf") << boxText(1);
        QTest::newRow("crlf") << boxText(1).replace("\n", "\r\n");
        QTest::newRow("few lines") << QByteArray("# Labeled\n1 1 1 1\n0.5 1 2\n0 -1 0 1 2\n0 -1 0 1 2\nmore");
    }

    void agreeOnBrokenFiles()
    {
        QFETCH(QByteArray, text);
        Comparison comparison;
        Mutator mutator(static_cast<unsigned>(text.size()));
        for (int i = 0; i < 1000; ++i)
            QVERIFY(comparison.agrees(mutator.mutated(text)));
        QVERIFY(comparison.successes > 20);
    }

    void agreeOnNumbers()
    {
        Comparison comparison;
        Mutator mutator(99);
        for (int i = 0; i < 2000; ++i) {
            QByteArray const number = mutator.number();
            QVERIFY(comparison.agrees("# Labeled\n0 0 0 2\n0 " + number + " 1\n0 0 " + number));
            QVERIFY(
                comparison.agrees("# Labeled\n9 1 1 0\n" + number + " 0 0 0 0\n0 0 0 0 " + number + "\n"));
        }
        QVERIFY(comparison.successes > 200);
    }

    void agreeOnEncodings()
    {
        Comparison comparison;
        QByteArray const text = boxText(1);
        using Encoding = QStringConverter::Encoding;
        for (Encoding const encoding :
             {QStringConverter::Utf8, QStringConverter::Utf16LE, QStringConverter::Utf16BE,
              QStringConverter::Utf32LE, QStringConverter::Utf32BE}) {
            QByteArray const bytes = encoded(text, encoding);
            for (qsizetype const cut : {0, 1, 2, 3, 4, 5, 6, 7, 40, 41, 42, 43})
                QVERIFY(comparison.agrees(bytes.chopped(cut)));
        }
        QVERIFY(comparison.successes >= 5);
        QStringEncoder withoutBom(QStringConverter::Utf16LE);
        QVERIFY(comparison.agrees(withoutBom(QString::fromLatin1(text))));
    }

    void agreeOnForeignCharacters_data()
    {
        QTest::addColumn<QByteArray>("inserted");
        QTest::newRow("latin-1") << QByteArray("\xe4");
        QTest::newRow("latin-1 no-break space") << QByteArray("\xa0");
        QTest::newRow("utf-8") << QByteArray("\xc3\xa4");
        QTest::newRow("no-break space") << QByteArray("\xc2\xa0");
        QTest::newRow("em space") << QByteArray("\xe2\x80\x83");
        QTest::newRow("byte order mark") << QByteArray("\xef\xbb\xbf");
        QTest::newRow("half a character") << QByteArray("\xe2\x80");
        QTest::newRow("four bytes") << QByteArray("\xf0\x9f\xa6\xb7");
        QTest::newRow("three of four bytes") << QByteArray("\xf0\x9f\xa6");
        QTest::newRow("arabic digit") << QByteArray("\xd9\xa3");
        QTest::newRow("fullwidth digit") << QByteArray("\xef\xbc\x93");
        QTest::newRow("line separator") << QByteArray("\xe2\x80\xa8");
        QTest::newRow("next line") << QByteArray("\xc2\x85");
        QTest::newRow("nul") << QByteArray(1, '\0');
        QTest::newRow("delete") << QByteArray("\x7f");
        QTest::newRow("vertical tab") << QByteArray("\x0b");
        QTest::newRow("form feed") << QByteArray("\x0c");
        QTest::newRow("end of file") << QByteArray("\x1a");
    }

    // Everywhere: before, within and behind numbers, next to line ends, at the end of the file.
    void agreeOnForeignCharacters()
    {
        QFETCH(QByteArray, inserted);
        Comparison comparison;
        QByteArray const text = "# Labeled\r\n1 1 1 1\n0.5 1 2\r\n0 -1 0 1 2\n0 -1 0 1 2\r\nx";
        for (qsizetype at = 0; at <= text.size(); ++at)
            QVERIFY(comparison.agrees(QByteArray(text).insert(at, inserted)));
        for (qsizetype const end : {text.size() - 1, text.size() - 2, text.size() - 3})
            QVERIFY(comparison.agrees(text.first(end) + inserted));
    }

    // The walk over bytes reads in blocks; the first ends at 262144.
    void agreeAtTheEdgesOfBlocks()
    {
        Comparison comparison;
        QByteArray const text = boxText(10);
        constexpr qsizetype block = 262144;
        QVERIFY(text.size() > block + 1000);
        QVERIFY(comparison.agrees(text));
        for (qsizetype at = block - 40; at <= block + 40; at += 7) {
            QVERIFY(comparison.agrees(QByteArray(text).insert(at, '\r')));
            QVERIFY(comparison.agrees(text.first(at)));
        }
        QVERIFY(comparison.agrees(QByteArray(text).insert(block - 5, '\n')));
        QVERIFY(comparison.agrees(QByteArray(text).insert(block - 5, "\xc3\xa4")));
    }

    void agreeOnLongLines()
    {
        Comparison comparison;
        QByteArray const blank(300000, '\t');
        QByteArray const zeros(600000, '0');
        QVERIFY(comparison.agrees("# Labeled" + blank + "\n0 0 0 1\n" + blank + "1 2 " + zeros + "3\n"));
        QVERIFY(comparison.agrees("# Labeled\n0 1 0 0\n0 0 0 0 " + zeros + "3"));
        QVERIFY(comparison.agrees("# Labeled\n0 1 0 0\n0 0 0 0 " + zeros + "x"));
        QCOMPARE(comparison.successes, 2);
        QByteArray const full(262144 - 22, '0'); // the block is full exactly where the file ends
        QVERIFY(comparison.agrees("# Labeled\n0 0 0 1\n1 2 " + full));
    }
};

QTEST_APPLESS_MAIN(tst_MTModelVMeshParserWalks)
#include "tst_MTModelVMeshParserWalks.moc"
