#include "inhouse/fundamentals/ColorUtil.h"

#include <QTest>

class tst_ColorUtil : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void packs_data();
    void packs();
};

void tst_ColorUtil::packs_data()
{
    QTest::addColumn<QColor>("color");
    QTest::addColumn<unsigned int>("withAlpha");

    QTest::newRow("red") << QColor(255, 0, 0) << 0xFF0000FFU;
    QTest::newRow("green") << QColor(0, 255, 0) << 0xFF00FF00U;
    QTest::newRow("blue") << QColor(0, 0, 255) << 0xFFFF0000U;
    QTest::newRow("black") << QColor(0, 0, 0) << 0xFF000000U;
    QTest::newRow("white") << QColor(255, 255, 255) << 0xFFFFFFFFU;
    QTest::newRow("every byte another") << QColor(0x12, 0x34, 0x56, 0x78) << 0x78563412U;
    QTest::newRow("clear") << QColor(1, 2, 3, 0) << 0x00030201U;
    QTest::newRow("largest alpha, all else 0") << QColor(0, 0, 0, 255) << 0xFF000000U;
    QTest::newRow("from HSV") << QColor::fromHsv(0, 255, 255) << 0xFF0000FFU;
    QTest::newRow("invalid is opaque black") << QColor() << 0xFF000000U;
}

void tst_ColorUtil::packs()
{
    QFETCH(QColor, color);
    QFETCH(unsigned int, withAlpha);
    QCOMPARE(ColorUtil::toAABBGGRR(color, true), withAlpha);
    QCOMPARE(ColorUtil::toAABBGGRR(color, false), withAlpha & 0x00FFFFFFU);
}

QTEST_APPLESS_MAIN(tst_ColorUtil)
#include "tst_ColorUtil.moc"
