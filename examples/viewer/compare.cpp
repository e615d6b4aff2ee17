// Compares two pictures of one model on a light background, loosely: each is cut to the model and laid out in
// coarse cells. What is model in one has to be model in the other almost everywhere, and of about the
// same hue, however bright the light makes it.
//
//     viewer_compare ONE.png OTHER.png
//
// Ends with 0 when they are alike, 1 when the outlines differ, 3 when only the colours do.
#include <QColor>
#include <QFile>
#include <QImage>
#include <QList>
#include <QPoint>
#include <QRect>
#include <QTextStream>
#include <QVector2D>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

constexpr int side = 48;
constexpr int differentOutline = 1;
constexpr int wrongUse = 2;
constexpr int differentColours = 3;

// Darker or more coloured than the background, which is what the corner shows.
bool isModel(QImage const& image, int x, int y)
{
    QColor const background = image.pixelColor(0, 0);
    QColor const here = image.pixelColor(x, y);
    constexpr int noticeable = 24;
    return std::abs(here.red() - background.red()) > noticeable ||
           std::abs(here.green() - background.green()) > noticeable ||
           std::abs(here.blue() - background.blue()) > noticeable;
}

// Where the model is, without legends and scales: the largest area of touching pixels.
QList<QPoint> largestArea(QImage const& image)
{
    QImage seen(image.size(), QImage::Format_Grayscale8);
    seen.fill(Qt::white);
    QList<QPoint> largest;
    for (int start = 0; start < image.width() * image.height(); ++start) {
        QList<QPoint> area;
        QList<QPoint> open = {{start % image.width(), start / image.width()}};
        while (!open.isEmpty()) {
            QPoint const at = open.takeLast();
            if (!image.valid(at) || qGray(seen.pixel(at)) == 0 || !isModel(image, at.x(), at.y()))
                continue;
            seen.setPixelColor(at, Qt::black);
            area << at;
            open << at + QPoint(1, 0) << at - QPoint(1, 0) << at + QPoint(0, 1) << at - QPoint(0, 1);
        }
        if (area.size() > largest.size())
            largest = area;
    }
    return largest;
}

// A pixel for each cell: the mean colour of the model there, as opaque as the model covers the cell.
QImage cellsOf(QImage const& image)
{
    QRect box;
    QImage model(image.size(), QImage::Format_ARGB32_Premultiplied);
    model.fill(Qt::transparent);
    for (QPoint const& at : largestArea(image)) {
        box |= QRect(at, at);
        model.setPixelColor(at, image.pixelColor(at));
    }
    return box.isEmpty()
               ? QImage()
               : model.copy(box).scaled(side, side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

bool isCovered(QImage const& cells, int cell)
{
    constexpr int half = 128;
    return qAlpha(cells.pixel(cell % side, cell / side)) >= half;
}

// Hue as direction and saturation as length: grey is zero. Brightness plays no part.
QVector2D tint(QImage const& cells, int cell)
{
    QColor const colour = cells.pixelColor(cell % side, cell / side);
    float const angle = colour.hsvHueF() * 2 * float(M_PI);
    return colour.hsvSaturationF() * QVector2D(std::cos(angle), std::sin(angle));
}

struct Likeness
{
    int both = 0;
    int either = 0;
    double tints = 0;

    double overlap() const { return double(both) / std::max(1, either); }
    double meanTint() const { return tints / std::max(1, both); }
};

Likeness likenessOf(QImage const& a, QImage const& b)
{
    Likeness likeness;
    for (int cell = 0; cell < side * side; ++cell) {
        bool const inBoth = isCovered(a, cell) && isCovered(b, cell);
        likeness.both += inBoth;
        likeness.either += isCovered(a, cell) || isCovered(b, cell);
        if (inBoth)
            likeness.tints += double((tint(a, cell) - tint(b, cell)).length());
    }
    return likeness;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3)
        return wrongUse;
    QImage const one = cellsOf(QImage(QFile::decodeName(argv[1])));
    QImage const other = cellsOf(QImage(QFile::decodeName(argv[2])));
    if (one.isNull() || other.isNull()) {
        QTextStream(stdout) << "there is no model to be seen\n";
        return differentOutline;
    }
    constexpr double leastOverlap = 0.9;
    constexpr double mostTint = 0.08;
    Likeness const found = likenessOf(one, other);
    QTextStream(stdout) << "overlap " << found.overlap() << ", difference of tints " << found.meanTint()
                        << '\n';
    if (found.overlap() < leastOverlap)
        return differentOutline;
    return found.meanTint() > mostTint ? differentColours : 0;
}
