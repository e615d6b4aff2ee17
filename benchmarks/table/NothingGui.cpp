#include <QCoreApplication>
#include <QImage>

// What a program takes that has images: the library of Qt that they come from, and all that it brings along.
int main(int argc, char** argv)
{
    QCoreApplication const application(argc, argv);
    return QImage(1, 1, QImage::Format_RGB32).isNull() ? 1 : 0;
}
