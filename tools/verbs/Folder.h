#pragma once

#include <QStringList>

namespace tool {

/// What stands in a folder, but for hidden entries. Names that are not UTF-8 are told with U+FFFD for what
/// could not be decoded; nothing can be opened by such a name.
struct Folder
{
    struct Entry
    {
        QString name;
        /// Links to folders too.
        bool isFolder = false;
        bool isLink = false;
        /// Neither a folder nor a pipe, socket or device. Links that lead nowhere are files.
        bool isFile = false;
    };

    /// Sorted by name.
    std::vector<Entry> entries;
    /// Why it could not be read, or not to its end; empty when it was.
    QString problem = {};
    /// One of the codes of check/Finding.cpp.
    QLatin1StringView problemCode = {};
};

Folder folderAt(QString const& path);

} // namespace tool
