// Compares two pictures of one model on a light background, loosely: each is cut to the model, and what
// is model in one has to be model in the other almost everywhere.
//
//     viewer_compare ONE.png OTHER.png
#include <QColor>
#include <QFile>
#include <QImage>
#include <QList>
#include <QPoint>
#include <QRect>
#include <QTextStream>

#include <algorithm>
#include <cstdlib>

namespace {

constexpr int side = 64;

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

QImage cutToModel(QImage const& image)
{
    QRect box;
    QImage mask(image.size(), QImage::Format_Grayscale8);
    mask.fill(Qt::white);
    for (QPoint const& at : largestArea(image)) {
        box |= QRect(at, at);
        mask.setPixelColor(at, Qt::black);
    }
    return box.isEmpty() ? QImage()
                         : mask.copy(box).scaled(side, side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

// The share of pixels that are model in both among those that are in either.
double overlap(QImage const& a, QImage const& b)
{
    int both = 0;
    int either = 0;
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            bool const inA = qGray(a.pixel(x, y)) < 128;
            bool const inB = qGray(b.pixel(x, y)) < 128;
            both += inA && inB;
            either += inA || inB;
        }
    }
    return either > 0 ? double(both) / either : 0;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3)
        return 2;
    QImage const one = cutToModel(QImage(QFile::decodeName(argv[1])));
    QImage const other = cutToModel(QImage(QFile::decodeName(argv[2])));
    if (one.isNull() || other.isNull()) {
        QTextStream(stdout) << "there is no model to be seen\n";
        return 1;
    }
    constexpr double wanted = 0.9;
    double const found = overlap(one, other);
    QTextStream(stdout) << "overlap " << found << '\n';
    return found >= wanted ? 0 : 1;
}
