#include "LibraryLog.h"

#include "Console.h"

#include <QDebug>

namespace tool {

namespace {

Console* shownOn = nullptr;
thread_local LogCapture* innermostCapture = nullptr;

void handleMessage(QtMsgType type, QMessageLogContext const&, QString const& text)
{
    bool const isWarning = type != QtDebugMsg && type != QtInfoMsg;
    if (isWarning && innermostCapture != nullptr)
        innermostCapture->add(text.trimmed());
    else if (shownOn != nullptr && isWarning)
        shownOn->warning(text.trimmed());
    else if (shownOn != nullptr)
        shownOn->note(text.trimmed());
}

} // namespace

LogToConsole::LogToConsole(Console& console)
{
    shownOn = &console;
    qInstallMessageHandler(handleMessage);
}

LogToConsole::~LogToConsole()
{
    qInstallMessageHandler(nullptr);
    shownOn = nullptr;
}

LogCapture::LogCapture()
    : outer(innermostCapture)
{
    innermostCapture = this;
}

LogCapture::~LogCapture()
{
    innermostCapture = outer;
}

} // namespace tool
