// Reads a scan on a worker thread while a window shows how far it is.
//
//     example_progress FILE [--once [--cancel]]
//
// With --once it ends by itself and prints what the window said last; with --cancel somebody presses the
// button.
#include "Window.h"

#include <QApplication>
#include <QTextStream>

using namespace Qt::StringLiterals;

int main(int argc, char** argv)
{
    QApplication const application(argc, argv);
    QStringList const arguments = QApplication::arguments();
    if (arguments.size() < 2) {
        QTextStream(stdout) << "usage: example_progress FILE [--once [--cancel]]\n";
        return 2;
    }
    Window window;
    window.show();
    window.read(arguments[1]);
    if (arguments.contains(u"--cancel"_s))
        window.cancelButton().click();
    if (arguments.contains(u"--once"_s)) {
        QObject::connect(&window, &Window::ended, &application, [&window] {
            QTextStream(stdout) << window.message() << '\n';
            QApplication::quit();
        });
    }
    return QApplication::exec();
}
