#include "VMeshFile.h"
#include "support/VolumeMeshes.h"

#include <limits>

namespace {

MTModelVMesh parsed(QByteArray const& bytes)
{
    VMeshFile const file(bytes);
    MTModelVMeshParser parser(file.path());
    return parser.read() ? parser.getVMesh() : MTModelVMesh();
}

constexpr float infinity = std::numeric_limits<float>::infinity();

} // namespace

class tst_MTModelVMeshParserLines : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsTheBadLine_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("line");
        QByteArray const head = "# Labeled\n1 1 1 1\n";
        QByteArray const point = head + "0 0 0\n";
        QByteArray const face = point + "0 -1 0 1 2\n";
        struct BadLine
        {
            char const* name;
            QByteArray bytes;
            int line;
        };
        QList<BadLine> const rows = {
            {"no sizes", "# Labeled", 2},
            {"no sizes, line end", "# Labeled\n", 2},
            {"blank line before the sizes", "# Labeled\n\n0 0 0 0", 2},
            {"three sizes", "# Labeled\n0 0 0", 2},
            {"five sizes", "# Labeled\n0 0 0 0 0", 2},
            {"a blank behind the sizes", "# Labeled\n1 4 4 4 ", 2},
            {"a blank before the sizes", "# Labeled\n 1 4 4 4", 2},
            {"two blanks between sizes", "# Labeled\n1  4 4 4", 2},
            {"tabs between sizes", "# Labeled\n1\t4\t4\t4", 2},
            {"a size that is no integer", "# Labeled\n1 4 4 4.0", 2},
            {"a size with an exponent", "# Labeled\n1 4 4 1e1", 2},
            {"a hexadecimal size", "# Labeled\n1 4 4 0x4", 2},
            {"a size beyond 32 bits", "# Labeled\n0 0 0 2147483648", 2},
            {"a comment behind the sizes", "# Labeled\n0 0 0 0 # sizes", 2},
            {"no point", head, 3},
            {"blank line before the points", head + "\n0 0 0\n", 3},
            {"two coordinates", head + "0 0\n", 3},
            {"four coordinates", head + "0 0 0 0\n", 3},
            {"a blank behind a point", head + "0 0 0 \n", 3},
            {"two blanks in a point", head + "0  0 0\n", 3},
            {"a comma in a coordinate", head + "0 0,5 0\n", 3},
            {"no number in x", head + "x 0 0\n", 3},
            {"no number in y", head + "0 y 0\n", 3},
            {"no number in z", head + "0 0 z\n", 3},
            {"a coordinate beyond single precision", head + "0 0 1e39\n", 3},
            {"a coordinate below single precision", head + "0 0 1e-60\n", 3},
            {"a coordinate beyond double precision", head + "0 0 1e400\n", 3},
            {"no face", point, 4},
            {"no face, no line end", head + "0 0 0", 4},
            {"blank line before the faces", point + "\n0 -1 0 1 2\n", 4},
            {"four values in a face", point + "0 -1 0 1\n", 4},
            {"six values in a face", point + "0 -1 0 1 2 3\n", 4},
            {"a blank behind a face", point + "0 -1 0 1 2 \n", 4},
            {"two blanks in a face", point + "0 -1  0 1 2\n", 4},
            {"a fraction in a face", point + "0 -1 0 1 2.5\n", 4},
            {"no number in t1", point + "t -1 0 1 2\n", 4},
            {"no number in t2", point + "0 t 0 1 2\n", 4},
            {"a face beyond 32 bits", point + "0 -1 0 1 -2147483649\n", 4},
            {"no bound face", face, 5},
            {"no bound face, no line end", point + "0 -1 0 1 2", 5},
            {"four values in a bound face", face + "0 -1 0 1", 5},
            {"six values in a bound face", face + "0 -1 0 1 2 3", 5},
            {"a blank behind a bound face", face + "0 -1 0 1 2 ", 5},
            {"no number in a bound face", face + "0 -1 0 1 b", 5},
            {"one bound face of two", "# Labeled\n0 0 2 0\n0 -1 0 1 2", 4},
            {"one bound face of two, line end", "# Labeled\n0 0 2 0\n0 -1 0 1 2\n", 4},
            {"carriage returns only", "# Labeled\r0 0 0 0\r", 2},
        };
        for (BadLine const& row : rows)
            QTest::newRow(row.name) << row.bytes << row.line;
    }

    void findsTheBadLine()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(int, line);
        VMeshFile const file(bytes);
        MTModelVMeshParser parser(file.path());
        expectBadLine(line);
        QVERIFY(!parser.read());
        QVERIFY(isEmpty(parser.getVMesh()));
    }

    void knowsItsHeader_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<bool>("isKnown");
        QTest::newRow("as written") << QByteArray("# Labeled") << true;
        QTest::newRow("within a line") << QByteArray("solid # Labeled mesh") << true;
        QTest::newRow("beside other characters") << QByteArray("\xc3\xa4# Labeled\xc3\xa4") << true;
        QTest::newRow("beside a broken character") << QByteArray("\xff# Labeled") << true;
        QTest::newRow("lower case") << QByteArray("# labeled") << false;
        QTest::newRow("two blanks") << QByteArray("#  Labeled") << false;
        QTest::newRow("no blank") << QByteArray("#Labeled") << false;
        QTest::newRow("another type") << QByteArray("# Plain") << false;
        QTest::newRow("empty line") << QByteArray("") << false;
    }

    void knowsItsHeader()
    {
        QFETCH(QByteArray, line);
        QFETCH(bool, isKnown);
        VMeshFile const file(line + "\n0 0 0 0\n");
        MTModelVMeshParser parser(file.path());
        if (!isKnown) {
            expectWarning("MTModelVMeshParser : for now only .vmesh files of type Labeled are supported.");
            expectBadLine(1);
        }
        QCOMPARE(parser.read(), isKnown);
    }

    void wantsAHeaderInAnEmptyFile()
    {
        VMeshFile const file("");
        MTModelVMeshParser parser(file.path());
        expectWarning("MTModelVMeshParser : for now only .vmesh files of type Labeled are supported.");
        expectBadLine(1);
        QVERIFY(!parser.read());
        QVERIFY(isEmpty(parser.getVMesh()));
    }

    void readsNumbersAsQtDoes_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<float>("value");
        QTest::newRow("fixed") << QByteArray("0.500000") << 0.5f;
        QTest::newRow("exponent") << QByteArray("1.5E-3") << 0.0015f;
        QTest::newRow("plus") << QByteArray("+2") << 2.0f;
        QTest::newRow("leading zeros") << QByteArray("007.25") << 7.25f;
        QTest::newRow("no digit before the point") << QByteArray(".5") << 0.5f;
        QTest::newRow("no digit behind the point") << QByteArray("5.") << 5.0f;
        QTest::newRow("minus zero") << QByteArray("-0.0") << -0.0f;
        QTest::newRow("a tab before") << QByteArray("\t3") << 3.0f;
        QTest::newRow("a tab behind") << QByteArray("3\t") << 3.0f;
        QTest::newRow("infinity") << QByteArray("inf") << infinity;
        QTest::newRow("minus infinity") << QByteArray("-inf") << -infinity;
        QTest::newRow("many digits") << QByteArray("0.1000000000000000055511151231257827") << 0.1f;
        // Just above the middle of two floats, but on the middle once rounded to double: the even one wins.
        QTest::newRow("rounded twice") << QByteArray("1.00000005960464477540") << 1.0f;
        QTest::newRow("greatest") << QByteArray("3.4028234e38") << std::numeric_limits<float>::max();
        QTest::newRow("denormal") << QByteArray("1e-45") << std::numeric_limits<float>::denorm_min();
    }

    void readsNumbersAsQtDoes()
    {
        QFETCH(QByteArray, text);
        QFETCH(float, value);
        MTModelVMesh const mesh = parsed("# Labeled\n0 0 0 1\n" + text + " 0 " + text);
        QCOMPARE(support::valuesOf(mesh.points, 3), (QList<float>{value, 0, value}));
        QCOMPARE(std::signbit(*mesh.points), std::signbit(value));
    }

    void readsNan()
    {
        MTModelVMesh const mesh = parsed("# Labeled\n0 0 0 1\nnan 0 0");
        QVERIFY(std::isnan(*mesh.points));
    }

    void readsIntegersAsQtDoes()
    {
        MTModelVMesh const mesh =
            parsed("# Labeled\n+0 01 0\t \v2\n0 0 0\n1 1 1\n-2147483648 -1 +7 2147483647 -007");
        QCOMPARE(mesh.numPoints, 2);
        QCOMPARE(support::valuesOf(mesh.faces, 5), (QList<qint32>{std::numeric_limits<qint32>::min(), -1, 7,
                                                                  std::numeric_limits<qint32>::max(), -7}));
    }

    void numbersPointsAndFacesFromZeroInFileOrder()
    {
        MTModelVMesh const mesh =
            parsed("# Labeled\n1 2 2 2\n1 2 3\n4 5 6\n0 -1 9 8 7\n-1 0 6 5 4\n1 1 1 1 1\n2 2 2 2 2");
        QCOMPARE(support::valuesOf(mesh.points, 6), (QList<float>{1, 2, 3, 4, 5, 6}));
        QCOMPARE(support::valuesOf(mesh.faces, 10), (QList<qint32>{0, -1, 9, 8, 7, -1, 0, 6, 5, 4}));
        QCOMPARE(support::valuesOf(mesh.triangles, 8), (QList<qint32>{9, 8, 7, -1, 6, 5, 4, -1}));
        QCOMPARE(support::valuesOf(mesh.boundFaces, 10), (QList<qint32>{1, 1, 1, 1, 1, 2, 2, 2, 2, 2}));
    }
};

QTEST_APPLESS_MAIN(tst_MTModelVMeshParserLines)
#include "tst_MTModelVMeshParserLines.moc"
