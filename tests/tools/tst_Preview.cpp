#include "preview/Annotations.h"
#include "preview/Canvas.h"
#include "preview/Lettering.h"
#include "preview/Palette.h"
#include "preview/Renderer.h"
#include "preview/Shading.h"
#include "preview/View.h"

#include <QSet>
#include <QTest>
#include <QVector3D>

#include <algorithm>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;
using namespace tool::preview;

class tst_Preview : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void viewsAreRightHanded()
    {
        for (View const& view : views()) {
            QVERIFY(qAbs(view.right.length() - 1.0f) < 1e-6f);
            QVERIFY(qAbs(view.up.length() - 1.0f) < 1e-6f);
            QVector3D const cross = QVector3D::crossProduct(view.right, view.up);
            QVERIFY((cross - view.toViewer).length() < 1e-6f);
            QCOMPARE(viewNamed(view.name), &view);
        }
        QVERIFY(viewNamed("below"_L1) == nullptr);
    }

    // However a square is cut in two, every sample in it is drawn exactly once.
    void neighboursShareNoSample_data()
    {
        QTest::addColumn<QPoint>("middle");
        for (int x = 16; x < 16 * 8; x += 23) {
            for (int y = 16; y < 16 * 8; y += 16)
                QTest::addRow("%d %d", x, y) << QPoint(x, y);
        }
    }

    void neighboursShareNoSample()
    {
        QFETCH(QPoint, middle);
        // A fan of four triangles around a point, over all of a canvas of 8 by 8.
        std::array const rim = {QPoint(0, 0), QPoint(128, 0), QPoint(128, 128), QPoint(0, 128)};
        int drawn = 0;
        for (std::size_t i = 0; i < 4; ++i) {
            Canvas canvas(8, 1);
            canvas.draw({corner(rim[i], 0), corner(rim[(i + 1) % 4], 0), corner(middle, 0)},
                        [&drawn](auto const&) { return ++drawn, 0u; });
        }
        QCOMPARE(drawn, 64);
    }

    void theCloserOneIsSeen()
    {
        Canvas canvas(2, 1);
        auto const square = [&canvas](double depth, QRgb color) {
            canvas.draw({corner({-100, -100}, depth), corner({200, -100}, depth), corner({-100, 200}, depth)},
                        [color](auto const&) { return color; });
        };
        square(1, 0xFF0000FF);
        square(2, 0xFF00FF00);
        square(1, 0xFFFF0000);
        QCOMPARE(canvas.toImage(0).pixel(0, 0), 0xFF00FF00u);
    }

    void valuesAreInterpolated()
    {
        Canvas canvas(4, 1);
        std::array triangle = {corner({0, 0}, 0), corner({64, 0}, 0), corner({0, 64}, 0)};
        triangle[1].values[3] = 4.0f;
        QList<float> seen;
        canvas.draw(triangle, [&seen](std::array<float, 6> const& values) { return seen << values[3], 0u; });
        QCOMPARE(seen.mid(0, 3), QList<float>({0.5f, 1.5f, 2.5f}));
    }

    void scaleBar_data()
    {
        QTest::addColumn<double>("pixelsPerMillimetre");
        QTest::addColumn<double>("length");
        QTest::newRow("a jaw") << 6.0 << 20.0;
        QTest::newRow("a tooth") << 60.0 << 2.0;
        QTest::newRow("exactly") << 12.8 << 10.0;
        QTest::newRow("in micrometres") << 0.006 << 20000.0;
        QTest::newRow("nothing") << 0.0 << 0.0;
        QTest::newRow("absurd") << 1e9 << 0.0;
    }

    void scaleBar()
    {
        QFETCH(double, pixelsPerMillimetre);
        QFETCH(double, length);
        QCOMPARE(scaleBarLength(pixelsPerMillimetre, 128.0), length);
    }

    void tagsAreToldApart()
    {
        QSet<QRgb> colors;
        for (int tag = 0; tag < 64; ++tag)
            colors << tagColor(tag, 0);
        QCOMPARE(colors.size(), 64);
        QVERIFY(tagColor(3, 0) != tagColor(3, 1));
        QCOMPARE(qAlpha(tagColor(-1, -128)), 255);
    }

    // Teeth of both dentitions in FDI numbers, and the gum. 2.3 is what an eye just notices.
    void teethAreToldApart()
    {
        QList<int> lower = {1};
        QList<int> all = {1};
        for (int quadrant = 10; quadrant <= 40; quadrant += 10) {
            for (int tooth = 1; tooth <= 8; ++tooth) {
                all << quadrant + tooth;
                if (quadrant >= 30)
                    lower << quadrant + tooth;
            }
        }
        for (int tag = 51; tag <= 85; ++tag)
            all << tag;
        QVERIFY(leastDistanceIn(all) > 20);
        QVERIFY(leastDistanceIn(lower) > 30);
    }

    void lettering()
    {
        QImage image(20, 10, QImage::Format_RGB32);
        image.fill(0xFFFFFFFF);
        drawText(image, "1\x01", {0, 0}, {1, 0xFF000000});
        QByteArray dots;
        for (int x = 0; x < 6; ++x)
            dots += image.pixel(x, 0) == 0xFF000000 ? '#' : '.';
        QCOMPARE(dots, QByteArray("..#..."));
        drawText(image, "outside", {-300, 500}, {4, 0xFF000000});
        QCOMPARE(textSize("ab", 3), QSize(36, 24));
    }

    void texture()
    {
        QImage image(2, 2, QImage::Format_RGB32);
        image.setPixel(0, 0, 0xFFFF0000); // upper left
        image.setPixel(1, 0, 0xFF00FF00);
        image.setPixel(0, 1, 0xFF0000FF); // lower left: u and v near 0
        image.setPixel(1, 1, 0xFF000000);
        QCOMPARE(textureColor(image, 0.25f, 0.25f), 0xFF0000FFu);
        QCOMPARE(textureColor(image, 0.25f, 0.75f), 0xFFFF0000u);
        QCOMPARE(textureColor(image, 1.25f, -0.75f), 0xFF0000FFu);
        QCOMPARE(textureColor(image, 0.5f, 0.75f), 0xFF808000u);
        QCOMPARE(textureColor(image, std::numeric_limits<float>::quiet_NaN(), 0.0f), 0xFFFF00FFu);
    }

    void nothingToSee_data()
    {
        QTest::addColumn<QList<QVector3D>>("vertices");
        QTest::addColumn<QList<int>>("indices");
        float const nan = std::numeric_limits<float>::quiet_NaN();
        QTest::newRow("no facet") << QList<QVector3D>() << QList<int>();
        QTest::newRow("no such vertex") << QList<QVector3D>(3) << QList<int>({0, 1, 3, -1});
        QTest::newRow("NaN") << QList<QVector3D>({{0, 0, 0}, {1, 0, 0}, {0, nan, 0}})
                             << QList<int>({0, 1, 2, -1});
        QTest::newRow("a point") << QList<QVector3D>(3) << QList<int>({0, 1, 2, -1});
    }

    void nothingToSee()
    {
        QFETCH(QList<QVector3D>, vertices);
        QFETCH(QList<int>, indices);
        Model const model = {{Surface{geometry::Mesh(vertices, indices), {}}}};
        QImage const image = render(model, views()[0], Colouring::Auto, {16, {}}).image;
        QImage empty(16, 16, QImage::Format_RGB32);
        empty.fill(backgroundColor);
        QCOMPARE(image, empty);
    }

private:
    // Lightness, and how far towards red and yellow, in CIE L*a*b*.
    static QVector3D labOf(QRgb color)
    {
        auto const linear = [](int value) {
            double const c = value / 255.0;
            return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
        };
        auto const curve = [](double t) { return t > 0.008856 ? std::cbrt(t) : 7.787 * t + 16.0 / 116; };
        double const r = linear(qRed(color));
        double const g = linear(qGreen(color));
        double const b = linear(qBlue(color));
        double const x = curve((0.4124 * r + 0.3576 * g + 0.1805 * b) / 0.9505);
        double const y = curve(0.2126 * r + 0.7152 * g + 0.0722 * b);
        double const z = curve((0.0193 * r + 0.1192 * g + 0.9505 * b) / 1.089);
        return {static_cast<float>(116 * y - 16), static_cast<float>(500 * (x - y)),
                static_cast<float>(200 * (y - z))};
    }

    static double distanceBetween(QRgb a, QRgb b)
    {
        return static_cast<double>((labOf(a) - labOf(b)).length());
    }

    static double leastDistanceIn(QList<int> const& tags)
    {
        double least = 1e9;
        for (int const a : tags) {
            for (int const b : tags) {
                if (a < b)
                    least = std::min(least, distanceBetween(tagColor(a, 0), tagColor(b, 0)));
            }
        }
        return least;
    }

    static Corner corner(QPoint place, double depth)
    {
        Corner made;
        made.x = place.x();
        made.y = place.y();
        made.depth = depth;
        return made;
    }
};

QTEST_APPLESS_MAIN(tst_Preview)
#include "tst_Preview.moc"
