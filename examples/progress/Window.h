#pragma once

#include "ReadTask.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QThread>
#include <QTimer>
#include <QWidget>

#include <memory>

/// Shows how far a scan has been read, and lets the user cancel.
class Window : public QWidget
{
    Q_OBJECT

public:
    explicit Window(QWidget* parent = nullptr);
    /// Cancels what is running and waits for it.
    ~Window() override;

    /// Starts to read, once the window has been drawn.
    void read(QString const& path);
    /// What the user would press.
    QPushButton& cancelButton() { return *cancelling; }
    /// What is said below the bar.
    QString message() const { return label->text(); }

Q_SIGNALS:
    /// Emitted when a read has ended, however it did.
    void ended();

private:
    void start();
    void showProgress();
    void showResult();

    QProgressBar* bar;
    QPushButton* cancelling;
    QLabel* label;
    QTimer timer;
    std::unique_ptr<ReadTask> task;
    std::unique_ptr<QThread> worker;
};
