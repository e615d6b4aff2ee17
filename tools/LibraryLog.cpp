#include "LibraryLog.h"

#include "Console.h"
#include "Rewording.h"
#include "Text.h"

#include <QDebug>

#include <array>

namespace tool {

namespace {

// What the library says to developers, and the same for people.
constexpr std::array rows = {
    Rewording{"`anonymous-namespace'::toFloatIfConditionValid Invalid string to float conversion: *\"(.*)\"",
              QT_TRANSLATE_NOOP("Text", "\"%1\" stands where a number is expected, and is read as 0")},
    Rewording{"(?:OBJReader::loadTexture )?Texture file \"(.*)\" not found",
              QT_TRANSLATE_NOOP("Text", "the image \"%1\" does not exist")},
};

Console* shownOn = nullptr;
thread_local LogCapture* innermostCapture = nullptr;

void handleMessage(QtMsgType type, QMessageLogContext const&, QString const& text)
{
    bool const isWarning = type != QtDebugMsg && type != QtInfoMsg;
    if (isWarning && innermostCapture != nullptr)
        innermostCapture->add(text.trimmed());
    else if (shownOn != nullptr && isWarning)
        shownOn->warning(reworded(text.trimmed(), rows));
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
