#include "Text.h"
#include "Verb.h"
#include "convert/MeshFile.h"
#include "convert/Suffixes.h"
#include "inspect/Format.h"
#include "volume/TetrahedralMesh.h"

#include <CLI/CLI.hpp>

#include <map>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

struct Abilities
{
    QString title;
    bool isInspected = false;
    bool isRead = false;
    bool isWritten = false;
};

using BySuffix = std::map<QString, Abilities>;

BySuffix abilities()
{
    BySuffix all;
    for (volume::MesherFormat const& format : volume::mesherFormats()) {
        for (QString const& suffix : split(format.suffixes))
            all[suffix].title = Text::tr(format.title);
    }
    for (Format const& format : formats()) {
        for (QString const& suffix : split(format.suffixes))
            all[suffix] = {Text::shown(format.title), true};
    }
    for (MeshSource const& source : meshSources()) {
        for (QString const& suffix : split(source.suffixes))
            all[suffix].isRead = true;
    }
    for (MeshTarget const& target : meshTargets()) {
        for (QString const& suffix : split(target.suffixes)) {
            all[suffix].isWritten = true;
            if (all[suffix].title.isEmpty())
                all[suffix].title = Text::shown(target.title);
        }
    }
    return all;
}

ExitCode run(bool json, Console& console)
{
    Table table;
    table.columns = {{"suffix"_L1, Text::tr("suffix")},
                     {"title"_L1, Text::tr("format")},
                     {"info"_L1, Text::tr("info")},
                     {"read"_L1, Text::tr("convert from")},
                     {"write"_L1, Text::tr("convert to")}};
    for (auto const& [suffix, able] : abilities())
        table.rows.push_back({suffix, able.title, able.isInspected, able.isRead, able.isWritten});
    Report report;
    report.add("formats"_L1, Text::tr("formats"), std::move(table));
    console.result(json ? report.json("surfaceio.formats/1"_L1) : report.text());
    return ExitCode::Ok;
}

Verb::Action setUp(CLI::App& app)
{
    auto const json = std::make_shared<bool>(false);
    app.add_flag("--json", *json, Text::utf8("Print JSON, schema surfaceio.formats/1"));
    return [json](Console& console) { return run(*json, console); };
}

} // namespace

Verb const formatsVerb = {
    "formats",
    QT_TRANSLATE_NOOP("Text", "Lists the file formats that are known, and what can be done with each."),
    "  surfaceio formats\n"
    "  surfaceio formats --json",
    setUp,
};

} // namespace tool
