#include "verbs/Inputs.h"

#include "convert/Suffixes.h"
#include "inspect/Format.h"

#include <QDir>
#include <QDirIterator>
#include <QSet>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

std::vector<Input> filesBelow(QString const& folder, QStringList const& suffixes)
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
    std::vector<Input> inputs;
    for (QString const& path : files) {
        QString const below = QDir(folder).relativeFilePath(QFileInfo(path).absolutePath());
        inputs.push_back({path, below == "."_L1 ? QString() : below});
    }
    return inputs;
}

bool isPattern(QString const& text)
{
    return text.contains(u'*') || text.contains(u'?');
}

QStringList entriesLike(QString const& folder, QString const& pattern, QDir::Filters kind)
{
    QString const prefix = folder.isEmpty() || folder.endsWith(u'/') ? folder : folder + u'/';
    if (!isPattern(pattern))
        return {prefix + pattern};
    QStringList paths;
    QDir const where(folder.isEmpty() ? u"."_s : folder);
    for (QString const& name : where.entryList({pattern}, kind | QDir::NoDotAndDotDot, QDir::Name))
        paths << prefix + name;
    return paths;
}

QStringList filesLike(QString const& pattern)
{
    QStringList parts = pattern.split(u'/');
    QString const last = parts.takeLast();
    QStringList folders = {pattern.startsWith(u'/') ? u"/"_s : QString()};
    for (QString const& part : parts) {
        QStringList next;
        for (QString const& folder : folders)
            next << (part.isEmpty() ? QStringList(folder) : entriesLike(folder, part, QDir::Dirs));
        folders = next;
    }
    QStringList files;
    for (QString const& folder : folders)
        files << entriesLike(folder, last, QDir::Files);
    return files;
}

std::vector<Input> expanded(QString const& argument, QStringList const& suffixes)
{
    QFileInfo const info(argument);
    if (info.isDir())
        return filesBelow(argument, suffixes);
    std::vector<Input> inputs;
    if (!info.exists() && isPattern(argument)) {
        for (QString const& path : filesLike(argument))
            if (QFileInfo(path).isFile())
                inputs.push_back({path, {}});
    }
    return inputs.empty() ? std::vector{Input{argument, {}}} : inputs;
}

} // namespace

std::vector<Input> inputsIn(std::vector<std::string> const& arguments, QStringList const& suffixes)
{
    std::vector<Input> inputs;
    QSet<QString> known;
    for (std::string const& argument : arguments) {
        for (Input& input : expanded(QDir::cleanPath(QString::fromStdString(argument)), suffixes)) {
            if (!known.contains(input.path))
                inputs.push_back(input);
            known.insert(input.path);
        }
    }
    return inputs;
}

QStringList filesIn(std::vector<std::string> const& arguments, QStringList const& suffixes)
{
    QStringList files;
    for (Input const& input : inputsIn(arguments, suffixes))
        files << input.path;
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
