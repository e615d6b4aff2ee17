#include "Report.h"
#include "Text.h"
#include "tags/FacetFile.h"
#include "tags/TagWork.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <map>
#include <memory>

using namespace Qt::StringLiterals;

namespace tool::tags {

namespace {

using Parts = std::map<QString, QByteArray>;
using Files = std::vector<std::unique_ptr<FacetFile>>;

QString nameFor(stl::FacetTag const& tag, SplitOptions const& options)
{
    QString name = options.pattern;
    name.replace("{tag}"_L1, QString::number(tag.tag));
    name.replace("{subTag}"_L1, QString::number(tag.subTag));
    name.replace("{name}"_L1, QFileInfo(options.in).completeBaseName());
    return QDir(options.directory).filePath(name);
}

Problem collect(TaggedFile& file, SplitOptions const& options, Parts& parts)
{
    std::map<stl::FacetTag, QByteArray*> partOfTag;
    return file.forEach([&](QByteArrayView record, stl::FacetTag tag) {
        QByteArray*& part = partOfTag[tag];
        if (part == nullptr)
            part = &parts[nameFor(tag, options)];
        part->append(record);
    });
}

Problem write(FacetFile& file, QByteArrayView facets, QByteArray const& header, bool mayReplace)
{
    if (Problem problem = file.open(header, mayReplace))
        return problem;
    for (qsizetype i = 0; i < facets.size(); i += stl::facetBytes) {
        stl::FacetRecord const record(facets.sliced(i, stl::facetBytes));
        file.append(record.record(), record.tag());
    }
    return file.finish();
}

void printFiles(Files const& files, bool json, Console& console)
{
    Table table;
    table.columns = {{"path"_L1, {}}, {"facets"_L1, {}}};
    QString text;
    for (auto const& file : files) {
        table.rows.push_back({file->path(), file->facets()});
        text += u"%1\t%2\n"_s.arg(printable(file->path()), QString::number(file->facets()));
    }
    Report report;
    report.add("files"_L1, {}, std::move(table));
    console.result(json ? report.json("surfaceio.split/1"_L1) : text);
}

ExitCode writeAll(Parts const& parts, TaggedFile const& source, SplitOptions const& options, Console& console)
{
    Files files;
    for (auto const& [path, facets] : parts) {
        files.push_back(std::make_unique<FacetFile>(path));
        if (Problem const problem = write(*files.back(), facets, source.header(), options.mayReplace))
            return reported(problem, path, console);
    }
    for (auto const& file : files) {
        if (Problem const problem = file->check())
            return reported(problem, file->path(), console);
    }
    for (auto const& file : files) {
        if (Problem const problem = file->moveIntoPlace())
            return reported(problem, file->path(), console);
    }
    printFiles(files, options.json, console);
    return ExitCode::Ok;
}

Problem patternProblem(QString const& pattern)
{
    if (!pattern.endsWith(".stl"_L1, Qt::CaseInsensitive) || pattern.contains(u'/'))
        return {ExitCode::Usage, Text::tr("expected a file name that ends with .stl")};
    static QRegularExpression const place(u"\\{[^{}]*\\}"_s);
    for (auto match = place.globalMatch(pattern); match.hasNext();) {
        QString const word = match.next().captured();
        if (word != "{name}"_L1 && word != "{tag}"_L1 && word != "{subTag}"_L1)
            return {ExitCode::Usage, Text::tr("expected {name}, {tag} or {subTag}, found %1").arg(word)};
    }
    return {};
}

} // namespace

ExitCode split(SplitOptions const& options, Console& console)
{
    if (Problem const problem = patternProblem(options.pattern))
        return reported(problem, options.pattern, console);
    TaggedFile source;
    if (Problem const problem = source.open(options.in))
        return reported(problem, options.in, console);
    Parts parts;
    if (Problem const problem = collect(source, options, parts))
        return reported(problem, options.in, console);
    return writeAll(parts, source, options, console);
}

} // namespace tool::tags
