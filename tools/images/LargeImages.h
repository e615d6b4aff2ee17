#pragma once

#include "LibraryLog.h"

namespace tool {

/// The images that an OBJ or PLY file names and Qt refuses for their size, each as a sentence.
QStringList imagesOverLimit(QString const& meshPath);

/// Logs again what was logged while the file at `meshPath` was read; where Qt refused an image, says which
/// one and why.
void logAgain(QString const& meshPath, QStringList const& log);

/// Calls `read`, which reads the file at `meshPath`. Images that Qt refuses are named in the log.
template <typename Read>
bool readNamingImages(QString const& meshPath, Read const& read)
{
    QStringList log;
    bool isRead = false;
    {
        LogCapture const capture;
        isRead = read();
        log = capture.messages();
    }
    logAgain(meshPath, log);
    return isRead;
}

} // namespace tool
