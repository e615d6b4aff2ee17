#include "obj/FreeSpaces.h"

#include <QRect>
#include <QTest>

#include <random>

namespace {

/// The list and its search once more, as plainly as can be.
class PlainSpaces
{
public:
    explicit PlainSpaces(QSize bin)
        : spaces{QRect(QPoint(0, 0), bin)}
    {}

    std::optional<QPoint> insert(int w, int h)
    {
        for (qsizetype i = spaces.size() - 1; i >= 0; --i) {
            QRect const space = spaces[i];
            if (space.width() < w || space.height() < h)
                continue;
            spaces[i] = spaces.back();
            spaces.pop_back();
            QRect const right(space.x() + w, space.y(), space.width() - w, space.height());
            QRect const rightShort(space.x() + w, space.y(), space.width() - w, h);
            QRect const upper(space.x(), space.y() + h, space.width(), space.height() - h);
            QRect const upperShort(space.x(), space.y() + h, w, space.height() - h);
            bool const isWide = space.width() - w > space.height() - h;
            for (QRect const& rest :
                 isWide ? QList<QRect>{right, upperShort} : QList<QRect>{upper, rightShort})
                if (!rest.isEmpty())
                    spaces << rest;
            return space.topLeft();
        }
        return std::nullopt;
    }

private:
    QList<QRect> spaces;
};

} // namespace

class tst_FreeSpaces : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fillsTheBin();
    void startsAnew();
    void emptyBinHoldsNothing();
    void findsWhatAPlainSearchFinds_data();
    void findsWhatAPlainSearchFinds();
};

void tst_FreeSpaces::fillsTheBin()
{
    FreeSpaces spaces;
    spaces.reset({5, 3});
    QVERIFY(!spaces.insert(6, 1));
    QVERIFY(!spaces.insert(1, 4));
    QCOMPARE(*spaces.insert(5, 3), QPoint(0, 0));
    QVERIFY(!spaces.insert(1, 1));
}

void tst_FreeSpaces::startsAnew()
{
    FreeSpaces spaces;
    for (int side = 1; side < 40; ++side) {
        spaces.reset({side, side});
        for (int i = 0; i < side * side; ++i)
            QVERIFY(spaces.insert(1, 1));
        QVERIFY(!spaces.insert(1, 1));
    }
}

void tst_FreeSpaces::emptyBinHoldsNothing()
{
    FreeSpaces spaces;
    for (QSize const bin : {QSize(0, 0), QSize(0, 5), QSize(5, 0)}) {
        spaces.reset(bin);
        QVERIFY(!spaces.insert(1, 1));
    }
}

void tst_FreeSpaces::findsWhatAPlainSearchFinds_data()
{
    QTest::addColumn<unsigned int>("seed");
    QTest::addColumn<int>("greatest");
    QTest::newRow("small") << 1u << 12;
    QTest::newRow("medium") << 2u << 60;
    QTest::newRow("large") << 3u << 900;
}

void tst_FreeSpaces::findsWhatAPlainSearchFinds()
{
    QFETCH(unsigned int, seed);
    QFETCH(int, greatest);
    std::mt19937 random(seed);
    QSize const bin(1000, 900);
    FreeSpaces spaces;
    spaces.reset(bin);
    PlainSpaces plain(bin);
    for (int i = 0; i < 4000; ++i) {
        auto const side = [&] { return 1 + static_cast<int>(random() % static_cast<unsigned>(greatest)); };
        int const width = side();
        int const height = side();
        QCOMPARE(spaces.insert(width, height), plain.insert(width, height));
    }
}

QTEST_APPLESS_MAIN(tst_FreeSpaces)
#include "tst_FreeSpaces.moc"
