#include <QCoreApplication>

// The floor of a start: nothing but Qt Core.
int main(int argc, char** argv)
{
    QCoreApplication const application(argc, argv);
}
