// Shows what is in a file in a window, in any format from which the library reads a surface or points: drag
// to turn it, wheel to zoom.
//
//     example_viewer FILE [--picture PICTURE.png]
//
// With --picture it draws once, 480 by 480 pixels, writes the picture, prints what it says about the file,
// and ends.
#include "Viewport.h"

#include <QApplication>
#include <QDockWidget>
#include <QFileDialog>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {

constexpr int pictureSide = 480;

int writePicture(Viewport& viewport, Scene const& scene, QString const& path)
{
    viewport.setAttribute(Qt::WA_DontShowOnScreen);
    viewport.resize(pictureSide, pictureSide);
    viewport.show();
    viewport.setScene(scene);
    QImage const picture = viewport.grabFramebuffer();
    if (!viewport.isValid()) {
        QTextStream(stdout) << "skipped: there is no OpenGL\n";
        return 0;
    }
    QTextStream(stdout) << scene.notes.join(u'\n') << '\n';
    return picture.save(path) ? 0 : 1;
}

class Window : public QMainWindow
{
public:
    Window()
        : viewport(new Viewport(this))
        , notes(new QLabel(this))
    {
        setCentralWidget(viewport);
        auto* const dock = new QDockWidget(tr("Scan"), this);
        notes->setAlignment(Qt::AlignTop | Qt::AlignLeft);
        notes->setTextInteractionFlags(Qt::TextSelectableByMouse);
        notes->setTextFormat(Qt::PlainText);
        dock->setWidget(notes);
        addDockWidget(Qt::RightDockWidgetArea, dock);
        QMenu* const menu = menuBar()->addMenu(tr("&File"));
        menu->addAction(tr("&Open..."), QKeySequence::Open, this, [this] {
            QString const path = QFileDialog::getOpenFileName(
                this, {}, {}, tr("Surfaces (*.stl *.ply *.obj *.vmesh *.shapetree *.xml *.array)"));
            if (!path.isEmpty())
                open(path);
        });
    }

    void open(QString const& path)
    {
        Scene const scene = loadScene(path);
        if (scene.parts.empty()) {
            QMessageBox::warning(this, windowTitle(), tr("This file cannot be read:\n%1").arg(path));
            return;
        }
        viewport->setScene(scene);
        notes->setText(scene.notes.join(u'\n'));
        setWindowTitle(path);
    }

private:
    Viewport* viewport;
    QLabel* notes;
};

} // namespace

int main(int argc, char** argv)
{
    QApplication const application(argc, argv);
    QStringList const arguments = QApplication::arguments();
    if (arguments.size() == 4 && arguments[2] == u"--picture"_s) {
        Viewport viewport;
        Scene const scene = loadScene(arguments[1]);
        return scene.parts.empty() ? 1 : writePicture(viewport, scene, arguments[3]);
    }
    Window window;
    window.resize(900, 600);
    window.show();
    if (arguments.size() > 1)
        window.open(arguments[1]);
    return QApplication::exec();
}
