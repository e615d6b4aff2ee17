#include "verbs/Inputs.h"

#include "FileName.h"
#include "Text.h"
#include "convert/Suffixes.h"
#include "inspect/Format.h"
#include "verbs/Folder.h"

#include <QDir>
#include <QHash>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

QString joined(QString const& folder, QString const& name)
{
    return folder.isEmpty() || folder.endsWith(u'/') ? folder + name : folder + u'/' + name;
}

// Looks below one folder. Links to folders are not followed: they may lead back here.
class FolderSearch
{
public:
    FolderSearch(QString const& root_, QStringList const& suffixes_)
        : root(root_)
        , suffixes(suffixes_)
    {}

    std::vector<Input> run()
    {
        search(root, {});
        if (inputs.empty())
            return {{root,
                     {},
                     Text::tr("found no files of the suffixes %1").arg(u'.' + suffixes.join(u", ."_s)),
                     "missing"_L1}};
        std::sort(inputs.begin(), inputs.end(),
                  [](Input const& a, Input const& b) { return a.path < b.path; });
        return std::move(inputs);
    }

private:
    void search(QString const& folder, QString const& subfolder)
    {
        Folder const found = folderAt(folder);
        if (!found.problem.isEmpty())
            inputs.push_back({folder, subfolder, found.problem, found.problemCode});
        for (Folder::Entry const& entry : found.entries) {
            QString const path = QDir::cleanPath(joined(folder, entry.name));
            if (entry.isFolder && !entry.isLink)
                search(path, joined(subfolder, entry.name));
            else if (entry.isFile && suffixes.contains(QFileInfo(path).suffix().toLower()))
                inputs.push_back({path, subfolder, {}, {}, true});
        }
    }

    QString root;
    QStringList const& suffixes;
    std::vector<Input> inputs;
};

bool isPattern(QString const& text)
{
    return text.contains(u'*') || text.contains(u'?');
}

// Looks for what fits a pattern, part by part.
class PatternSearch
{
public:
    explicit PatternSearch(QString const& pattern_)
        : pattern(pattern_)
    {}

    std::vector<Input> run()
    {
        QStringList parts = pattern.split(u'/');
        QString const last = parts.takeLast();
        QStringList folders = {pattern.startsWith(u'/') ? u"/"_s : QString()};
        for (QString const& part : parts) {
            QStringList next;
            for (QString const& folder : folders)
                next << (part.isEmpty() ? QStringList(folder)
                                        : fitting(folder, part, &Folder::Entry::isFolder));
            folders = next;
        }
        for (QString const& folder : folders) {
            for (QString const& path : fitting(folder, last, &Folder::Entry::isFile))
                inputs.push_back({path});
        }
        if (inputs.empty())
            return {{pattern, {}, Text::tr("no file fits the pattern"), "missing"_L1}};
        return std::move(inputs);
    }

private:
    QStringList fitting(QString const& folder, QString const& part, bool Folder::Entry::*kind)
    {
        if (!isPattern(part)) {
            QString const path = joined(folder, part);
            return QFileInfo::exists(path) ? QStringList(path) : QStringList();
        }
        QString const place = folder.isEmpty() ? u"."_s : folder;
        Folder const found = folderAt(place);
        if (!found.problem.isEmpty() && QFileInfo(place).isDir())
            inputs.push_back({place, {}, found.problem, found.problemCode});
        QRegularExpression const names(QRegularExpression::wildcardToRegularExpression(part),
                                       QRegularExpression::CaseInsensitiveOption);
        QStringList paths;
        for (Folder::Entry const& entry : found.entries) {
            if (entry.*kind && names.match(entry.name).hasMatch())
                paths << joined(folder, entry.name);
        }
        return paths;
    }

    QString pattern;
    std::vector<Input> inputs;
};

std::vector<Input> expanded(QString const& argument, QStringList const& suffixes)
{
    QFileInfo const info(argument);
    if (info.isDir())
        return FolderSearch(argument, suffixes).run();
    return !info.exists() && isPattern(argument) ? PatternSearch(argument).run()
                                                 : std::vector{Input{argument}};
}

} // namespace

std::vector<Input> inputsIn(std::vector<std::string> const& arguments, QStringList const& suffixes)
{
    QStringList names;
    for (std::string const& argument : arguments)
        names << QDir::cleanPath(QString::fromStdString(argument));
    QSet<QString> const named(names.begin(), names.end());
    std::vector<Input> inputs;
    QHash<QString, std::size_t> places;
    for (QString const& name : names) {
        for (Input& input : expanded(name, suffixes)) {
            if (QString const problem = whyNoFileName(input.path);
                input.problem.isEmpty() && !problem.isEmpty()) {
                input.problem = problem;
                input.problemCode = "undecodable-name"_L1;
            }
            input.isOfFolder = input.isOfFolder && !named.contains(input.path);
            auto const known = places.constFind(input.path);
            if (known == places.constEnd()) {
                places.insert(input.path, inputs.size());
                inputs.push_back(input);
            } else if (input.isOfFolder) {
                inputs[*known].isOfFolder = true;
            }
        }
    }
    return inputs;
}

std::vector<Input> inputsIn(std::vector<std::string> const& arguments)
{
    QStringList suffixes;
    for (Format const& format : formats())
        suffixes << split(format.suffixes);
    return inputsIn(arguments, suffixes);
}

} // namespace tool
