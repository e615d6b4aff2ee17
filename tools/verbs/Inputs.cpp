#include "verbs/Inputs.h"

#include "convert/Suffixes.h"
#include "inspect/Format.h"

#include <QDir>
#include <QDirIterator>

namespace tool {

namespace {

QStringList filesBelow(QString const& folder, QStringList const& suffixes)
{
    QStringList files;
    // Links to folders are not followed: they may lead back here.
    QDirIterator iterator(folder, QDir::Files | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (iterator.hasNext()) {
        QString const path = QDir::cleanPath(iterator.next());
        if (suffixes.contains(QFileInfo(path).suffix().toLower()))
            files << path;
    }
    files.sort();
    return files;
}

QStringList filesLike(QString const& pattern)
{
    QFileInfo const info(pattern);
    QDir const folder = info.dir();
    QStringList files;
    for (QString const& name : folder.entryList({info.fileName()}, QDir::Files, QDir::Name))
        files << (pattern.contains(u'/') ? folder.filePath(name) : name);
    return files;
}

QStringList expanded(QString const& argument, QStringList const& suffixes)
{
    QFileInfo const info(argument);
    if (info.isDir())
        return filesBelow(argument, suffixes);
    bool const isPattern = !info.exists() && (argument.contains(u'*') || argument.contains(u'?'));
    QStringList const files = isPattern ? filesLike(argument) : QStringList();
    return files.isEmpty() ? QStringList(argument) : files;
}

} // namespace

QStringList filesIn(std::vector<std::string> const& arguments, QStringList const& suffixes)
{
    QStringList files;
    for (std::string const& argument : arguments)
        files << expanded(QDir::cleanPath(QString::fromStdString(argument)), suffixes);
    files.removeDuplicates();
    return files;
}

QStringList filesIn(std::vector<std::string> const& arguments)
{
    QStringList suffixes;
    for (Format const& format : formats())
        suffixes << split(format.suffixes);
    return filesIn(arguments, suffixes);
}

} // namespace tool
