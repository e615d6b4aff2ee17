#include "framework/XYZWriter.h"
#include "support/Meshes.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <limits>

namespace {

QByteArray contentOf(QString const& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

} // namespace

class tst_XYZWriter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void points_data();
    void points();
    void manyPoints();
    void replacesTheFile();
    void emptyList();
    void cannotBeOpened_data();
    void cannotBeOpened();
};

void tst_XYZWriter::points_data()
{
    QTest::addColumn<QList<QVector3D>>("points");
    QTest::addColumn<QByteArray>("text");
    using Points = QList<QVector3D>;
    constexpr float infinity = std::numeric_limits<float>::infinity();
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    QTest::newRow("one") << Points{{1, 2.5f, -3}} << QByteArray("1.000000 2.500000 -3.000000\n");
    QTest::newRow("two") << Points{{0, 0, 0}, {1, 1, 1}}
                         << QByteArray("0.000000 0.000000 0.000000\n1.000000 1.000000 1.000000\n");
    QTest::newRow("rounded") << Points{{0.1f, 1.0f / 3.0f, -2.0f / 3.0f}}
                             << QByteArray("0.100000 0.333333 -0.666667\n");
    QTest::newRow("small") << Points{{1e-6f, 4e-7f, 1e-30f}} << QByteArray("0.000001 0.000000 0.000000\n");
    QTest::newRow("below zero") << Points{{-1e-9f, -4e-7f, -6e-7f}}
                                << QByteArray("-0.000000 -0.000000 -0.000001\n");
    QTest::newRow("large") << Points{{16777216, -1e10f, 3.40282347e+38f}}
                           << QByteArray("16777216.000000 -10000000000.000000 "
                                         "340282346638528859811704183484516925440.000000\n");
    QTest::newRow("not numbers") << Points{{infinity, -infinity, nan}} << QByteArray("inf -inf nan\n");
}

void tst_XYZWriter::points()
{
    QFETCH(QList<QVector3D>, points);
    QFETCH(QByteArray, text);
    QTemporaryDir const directory;
    QString const path = directory.filePath(QStringLiteral("points.xyz"));
    QVERIFY(XYZWriter::write(path, points));
    QCOMPARE(contentOf(path), text);
}

void tst_XYZWriter::manyPoints()
{
    std::mt19937 random(1);
    QTemporaryDir const directory;
    QString const path = directory.filePath(QStringLiteral("points"));
    QList<QVector3D> const points = support::randomMesh(random, 5000, 0).vertices;
    QVERIFY(XYZWriter::write(path, points));
    QList<QByteArray> const lines = contentOf(path).split('\n');
    QCOMPARE(lines.size(), 5001);
    QVERIFY(lines.last().isEmpty());
    for (qsizetype i = 0; i < points.size(); ++i) {
        QList<QByteArray> const numbers = lines[i].split(' ');
        QCOMPARE(numbers.size(), 3);
        for (int axis = 0; axis < 3; ++axis)
            QCOMPARE(numbers[axis], QByteArray::number(double(points[i][axis]), 'f', 6));
    }
}

void tst_XYZWriter::replacesTheFile()
{
    QTemporaryDir const directory;
    QString const path = directory.filePath(QStringLiteral("points.xyz"));
    QVERIFY(XYZWriter::write(path, {{1, 2, 3}, {4, 5, 6}}));
    QVERIFY(XYZWriter::write(path, {{7, 8, 9}}));
    QCOMPARE(contentOf(path), QByteArray("7.000000 8.000000 9.000000\n"));
}

void tst_XYZWriter::emptyList()
{
    QTemporaryDir const directory;
    QString const path = directory.filePath(QStringLiteral("points.xyz"));
    QVERIFY(!XYZWriter::write(path, {}));
    QVERIFY(QFile::exists(path));
    QCOMPARE(contentOf(path), QByteArray());
    QVERIFY(XYZWriter::write(path, {{1, 2, 3}}));
    QVERIFY(!XYZWriter::write(path, {}));
    QCOMPARE(contentOf(path), QByteArray());
}

void tst_XYZWriter::cannotBeOpened_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("a directory") << QString();
    QTest::newRow("no such directory") << QStringLiteral("none/points.xyz");
}

void tst_XYZWriter::cannotBeOpened()
{
    QFETCH(QString, name);
    QTemporaryDir const directory;
    QVERIFY(!XYZWriter::write(directory.filePath(name), {{1, 2, 3}}));
    QVERIFY(!XYZWriter::write(directory.filePath(name), {}));
    QVERIFY(!QFile::exists(directory.filePath(QStringLiteral("none"))));
}

QTEST_APPLESS_MAIN(tst_XYZWriter)
#include "tst_XYZWriter.moc"
