#include "verbs/Folder.h"

#include "FileName.h"
#include "Text.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <filesystem>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

// QDir and QDirIterator neither tell of a folder that they cannot read nor of a name that they cannot decode.
namespace fs = std::filesystem;

QString nameOf(fs::path const& path)
{
    std::u8string const bytes = path.filename().u8string();
    return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

bool isHidden(QString const& folder, QString const& name)
{
    return name.startsWith(u'.') || QFileInfo(QDir(folder).filePath(name)).isHidden();
}

Folder::Entry entryOf(fs::directory_entry const& found)
{
    std::error_code ignored; // what cannot be asked is a file, which will tell when it is opened
    Folder::Entry entry = {nameOf(found.path()), found.is_directory(ignored), found.is_symlink(ignored)};
    fs::file_type const type = found.status(ignored).type();
    entry.isFile = !entry.isFolder && type != fs::file_type::fifo && type != fs::file_type::socket &&
                   type != fs::file_type::character && type != fs::file_type::block;
    return entry;
}

} // namespace

Folder folderAt(QString const& path)
{
    if (QString const problem = whyNoFileName(path); !problem.isEmpty())
        return {{}, problem, "undecodable-name"_L1};
    Folder folder;
    std::error_code error;
    fs::directory_iterator entry(QFileInfo(path).filesystemFilePath(), error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        if (!isHidden(path, nameOf(entry->path())))
            folder.entries.push_back(entryOf(*entry));
    }
    if (error) {
        folder.problem = Text::tr("the folder cannot be read: ") + QString::fromStdString(error.message());
        folder.problemCode = "cannot-open"_L1;
    }
    std::sort(folder.entries.begin(), folder.entries.end(),
              [](Folder::Entry const& a, Folder::Entry const& b) { return a.name < b.name; });
    return folder;
}

} // namespace tool
