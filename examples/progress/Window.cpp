#include "Window.h"

#include <QVBoxLayout>

namespace {
constexpr int full = 100;
constexpr int refreshMilliseconds = 50;
} // namespace

Window::Window(QWidget* parent)
    : QWidget(parent)
    , bar(new QProgressBar(this))
    , cancelling(new QPushButton(tr("Cancel"), this))
    , label(new QLabel(this))
{
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(bar);
    layout->addWidget(label);
    layout->addWidget(cancelling);
    bar->setRange(0, full);
    cancelling->setEnabled(false);
    // The window asks, rather than the worker telling: as often as eyes can follow, however fast the reader
    // is.
    timer.setInterval(refreshMilliseconds);
    connect(&timer, &QTimer::timeout, this, &Window::showProgress);
    connect(cancelling, &QPushButton::clicked, this, [this] { task->cancel(); });
}

Window::~Window()
{
    if (worker) {
        task->cancel();
        worker->wait();
    }
}

void Window::read(QString const& path)
{
    if (worker)
        return; // one at a time
    task = std::make_unique<ReadTask>(path);
    label->setText(tr("Reading %1").arg(path));
    cancelling->setEnabled(true);
    QTimer::singleShot(0, this, &Window::start);
}

void Window::start()
{
    worker.reset(QThread::create([running = task.get()] { running->run(); }));
    connect(worker.get(), &QThread::finished, this, &Window::showResult);
    worker->start();
    timer.start();
}

void Window::showProgress()
{
    bar->setValue(int(full * task->progress()));
}

void Window::showResult()
{
    worker->wait();
    timer.stop();
    showProgress();
    cancelling->setEnabled(false);
    if (task->isCancelled()) {
        label->setText(tr("cancelled"));
    } else if (utility::Optional<geometry::Mesh> const& mesh = task->result()) {
        label->setText(tr("%1 vertices, %2 triangles, %3 % of the file")
                           .arg(mesh->vertices.size())
                           .arg(mesh->indices.size() / 4)
                           .arg(bar->value()));
    } else {
        label->setText(tr("This file cannot be read."));
    }
    worker.release()->deleteLater();
    Q_EMIT ended();
}
