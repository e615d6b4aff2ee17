#include "Text.h"
#include "check/Checkers.h"
#include "inspect/Formats.h"
#include "obj/ObjReading.h"
#include "obj/TextLines.h"

#include <QBuffer>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

using obj::ImageLine;
using obj::MtlLibrary;
using obj::MtlMaterial;
using obj::Names;
using obj::ObjText;

constexpr std::size_t mostNames = 100;
constexpr std::size_t mostKeywords = 20;

// A text of which every line begins with a word of the format, and one of them is a vertex or a face.
QString recognise(Source const& source)
{
    static constexpr std::array keywords = {"v", "vt", "vn", "f", "o", "g", "s", "usemtl", "mtllib"};
    QByteArray head = source.head.left(source.head.lastIndexOf('\n') + 1);
    QBuffer in(&head);
    in.open(QIODevice::ReadOnly);
    obj::TextLines lines(in);
    bool hasContent = false;
    while (lines.next()) {
        QByteArrayView const keyword = lines.tokens().front();
        if (std::find(keywords.begin(), keywords.end(), keyword) == keywords.end())
            return {};
        hasContent = hasContent || ((keyword == "v" || keyword == "f") && lines.tokens().size() > 3);
    }
    return hasContent ? Text::tr("by its lines, which are those of an OBJ file") : QString();
}

// Without rows it is left out of the text.
void addTable(Report& report, QLatin1StringView key, QString const& label, Table table)
{
    QString const shown = table.rows.empty() ? QString() : label;
    report.add(key, shown, std::move(table));
}

void addCounts(Report& report, ObjText const& text)
{
    Report& counts = report.section("inFile"_L1, Text::tr("in the file"));
    counts.add("vertices"_L1, Text::tr("vertices (v)"), text.vertices);
    counts.add("textureCoordinates"_L1, Text::tr("texture coordinates (vt)"), text.textureCoordinates);
    counts.add("normals"_L1, Text::tr("normals (vn)"), text.normals);
    counts.add("faces"_L1, Text::tr("faces (f)"), text.faces);
    counts.add("objects"_L1, Text::tr("objects (o)"), qint64(text.objects.all().size()));
    counts.add("groups"_L1, Text::tr("groups (g)"), qint64(text.groups.all().size()));
    counts.add("vertexColors"_L1, Text::tr("vertices with colours, which are not read"),
               text.vertexColors.count);
}

void addFaces(Report& report, ObjText const& text)
{
    Table table;
    table.columns = {{"corners"_L1, Text::tr("corners")},
                     {"style"_L1, Text::tr("style")},
                     {"relative"_L1, Text::tr("relative")},
                     {"count"_L1, Text::tr("count")}};
    for (auto const& [kind, count] : text.faceKinds)
        table.rows.push_back({kind.corners, Text::shown(nameOf(kind.style)), kind.isRelative, count});
    addTable(report, "faceKinds"_L1, Text::tr("faces"), std::move(table));
}

void addNames(Report& report, QLatin1StringView key, QString const& label, Names const& names)
{
    Table table;
    table.columns = {{"name"_L1, Text::tr("name")}, {"faces"_L1, Text::tr("faces")}};
    for (Names::Entry const& entry : names.all()) {
        if (table.rows.size() < mostNames)
            table.rows.push_back({entry.name, entry.faces});
    }
    addTable(report, key, label, std::move(table));
}

void addSkipped(Report& report, ObjText const& text)
{
    Table table;
    table.columns = {{"keyword"_L1, Text::tr("keyword")}, {"count"_L1, Text::tr("count")}};
    for (auto const& [keyword, count] : text.skipped) {
        if (table.rows.size() < mostKeywords)
            table.rows.push_back({keyword, count});
    }
    addTable(report, "skippedLines"_L1, Text::tr("lines that are not read"), std::move(table));
}

void addTextureRange(Report& report, ObjText const& text)
{
    Table table;
    table.columns = {{"axis"_L1, Text::tr("axis")},
                     {"min"_L1, Text::tr("min")},
                     {"max"_L1, Text::tr("max")},
                     {"outside"_L1, Text::tr("outside 0 to 1")}};
    if (text.textureCoordinates > 0)
        table.rows = {{"u"_L1, text.u.least, text.u.greatest, text.u.outside.count},
                      {"v"_L1, text.v.least, text.v.greatest, text.v.outside.count}};
    addTable(report, "textureRange"_L1, Text::tr("texture coordinates"), std::move(table));
}

QString useOf(MtlMaterial const& material, ImageLine const& image)
{
    if (material.faces == 0)
        return Text::tr("unused");
    return &image == &material.images.back() ? Text::tr("texture") : Text::tr("replaced");
}

QString stateOf(ImageFile const& image)
{
    if (!image.isFound)
        return Text::tr("missing");
    if (!image.isImage())
        return Text::tr("no image");
    return image.isOverLimit() ? Text::tr("over the limit") : Text::tr("found");
}

Value sizeOf(QSize const& size)
{
    return size.isValid() ? Value::array({qint64(size.width()), qint64(size.height())}) : Value();
}

void addImages(Report& report, MtlMaterial const& material)
{
    Table table;
    table.columns = {{"keyword"_L1, Text::tr("image")},   {"name"_L1, Text::tr("name")},
                     {"options"_L1, Text::tr("options")}, {"state"_L1, Text::tr("state")},
                     {"size"_L1, Text::tr("size")},       {"use"_L1, Text::tr("use")},
                     {"line"_L1, Text::tr("line")}};
    for (ImageLine const& image : material.images)
        table.rows.push_back({image.keyword, image.name,
                              image.options.isEmpty() ? Value() : Value(image.options), stateOf(image.image),
                              sizeOf(image.image.size), useOf(material, image), image.line});
    addTable(report, "images"_L1, Text::tr("images"), std::move(table));
}

Value colorValue(QColor const& color)
{
    return color.isValid() ? Value::array({qint64(color.red()), qint64(color.green()), qint64(color.blue())})
                           : Value();
}

void addMaterials(Report& report, MtlLibrary const& library)
{
    report.addList("materials"_L1);
    for (MtlMaterial const& material : library.materials) {
        Report& item = report.addItem("materials"_L1, Text::tr("material %1").arg(material.name));
        item.add("name"_L1, {}, material.name);
        item.add("faces"_L1, Text::tr("faces"), material.faces);
        item.add("diffuseColor"_L1, Text::tr("diffuse colour"), colorValue(material.diffuse));
        addImages(item, material);
    }
}

void addLibraries(Report& report, obj::MaterialTree const& tree)
{
    report.addList("libraries"_L1);
    for (MtlLibrary const& library : tree.libraries) {
        Report& item = report.addItem("libraries"_L1, Text::tr("material library %1").arg(library.name));
        item.add("name"_L1, {}, library.name);
        item.add("found"_L1, Text::tr("found"), library.isFound);
        QString const label = library.stopsAt > 0 ? Text::tr("read up to line") : QString();
        item.add("stopsAtLine"_L1, label, library.stopsAt > 0 ? Value(library.stopsAt) : Value());
        addMaterials(item, library);
    }
    Table table;
    table.columns = {{"name"_L1, Text::tr("name")}, {"faces"_L1, Text::tr("faces")}};
    for (Names::Entry const& entry : tree.undefined)
        table.rows.push_back({entry.name, entry.faces});
    addTable(report, "undefinedMaterials"_L1, Text::tr("materials that are not defined"), std::move(table));
}

void addRead(Report& report, obj::Reading const& reading)
{
    if (!reading.reader->isValid())
        return;
    constexpr qint64 indicesOfTriangle = 4;
    geometry::Mesh const& mesh = reading.reader->getMesh();
    QImage const& texture = reading.reader->getTexture();
    Report& read = report.section("read"_L1, Text::tr("as read"));
    read.add("facets"_L1, Text::tr("facets"), mesh.indices.size() / indicesOfTriangle);
    read.add("vertices"_L1, Text::tr("vertices"), qint64(mesh.vertices.size()));
    read.add("normals"_L1, Text::tr("normals"),
             reading.text.normals > 0 ? Text::tr("in the file") : Text::tr("computed"));
    read.add("textureCoordinates"_L1, Text::tr("texture coordinates"),
             qint64(mesh.textureCoordinates.size()));
    read.add("texture"_L1, Text::tr("texture in pixels"),
             sizeOf(texture.isNull() ? QSize() : texture.size()));
}

void warnOfLargeImages(obj::MaterialTree const& tree, Inspection& inspection)
{
    obj::forEachImage(tree, [&](MtlMaterial const&, ImageLine const& image) {
        if (image.image.isOverLimit())
            inspection.warnings << image.image.limitProblem(image.given);
    });
    inspection.warnings.removeDuplicates();
}

void inspect(Source const& source, Inspection& inspection)
{
    std::optional<obj::Reading> const reading = obj::readFile(source.path);
    if (!reading) {
        inspection.fail(ExitCode::ReadOrWriteFailed, Text::tr("cannot be opened"), "cannot-open"_L1);
        return;
    }
    Report& report = inspection.report;
    addCounts(report, reading->text);
    addFaces(report, reading->text);
    addNames(report, "objects"_L1, Text::tr("objects"), reading->text.objects);
    addNames(report, "groups"_L1, Text::tr("groups"), reading->text.groups);
    addSkipped(report, reading->text);
    reading->text.bounds.addTo(report);
    addTextureRange(report, reading->text);
    addLibraries(report, reading->tree);
    addRead(report, *reading);
    warnOfLargeImages(reading->tree, inspection);
    obj::judge(*reading, inspection);
}

} // namespace

Format const objFormat = {"obj"_L1, "OBJ"_L1, "obj"_L1, recognise, inspect, checkObj};

} // namespace tool
