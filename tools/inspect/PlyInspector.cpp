#include "Text.h"
#include "check/Checkers.h"
#include "header/Metadata.h"
#include "images/ImageFile.h"
#include "inspect/Bounds.h"
#include "inspect/Formats.h"
#include "inspect/MetadataRecord.h"
#include "inspect/PlyReading.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

using ply::Element;
using ply::HeaderText;
using ply::Property;
using ply::Reading;

constexpr int channels = 4;

QString recognise(Source const& source)
{
    QByteArray head = source.head;
    QBuffer in(&head);
    in.open(QIODevice::ReadOnly);
    return ply::readHeaderText(in).hasMagic() ? Text::tr("by its first line, \"ply\"") : QString();
}

// Without rows it is left out of the text.
void addTable(Report& report, QLatin1StringView key, QString const& label, Table table)
{
    QString const shown = table.rows.empty() ? QString() : label;
    report.add(key, shown, std::move(table));
}

QString typeOf(Property const& property)
{
    return property.isList() ? Text::tr("list of %1, counted by %2").arg(property.type, property.countType)
                             : property.type;
}

// Neighbours of the same type and use share a row: "x y z".
void addProperties(Table& table, Element const& element)
{
    QString names;
    QString type;
    QString use;
    auto const finish = [&] {
        if (!names.isEmpty())
            table.rows.push_back({element.name, names, type, use});
        names.clear();
    };
    for (Property const& property : element.properties) {
        QString const nextUse = Text::shown(useOf(element, property));
        if (typeOf(property) != type || nextUse != use)
            finish();
        type = typeOf(property);
        use = nextUse;
        names += names.isEmpty() ? property.name : u' ' + property.name;
    }
    finish();
}

void addElements(Report& report, HeaderText const& header)
{
    Table elements;
    elements.columns = {{"name"_L1, Text::tr("element")}, {"count"_L1, Text::tr("count")}};
    Table properties;
    properties.columns = {{"element"_L1, Text::tr("element")},
                          {"names"_L1, Text::tr("properties")},
                          {"type"_L1, Text::tr("type")},
                          {"use"_L1, Text::tr("use")}};
    for (Element const& element : header.elements) {
        elements.rows.push_back({element.name, element.count});
        addProperties(properties, element);
    }
    addTable(report, "elements"_L1, Text::tr("elements"), std::move(elements));
    addTable(report, "properties"_L1, Text::tr("properties"), std::move(properties));
}

struct Points
{
    QList<QVector3D> const& positions;
    QList<QVector3D> const& normals;
    QList<unsigned int> const& colors;
    qint64 facets;
};

Points pointsOf(Reading const& reading)
{
    geometry::PointCloud const& cloud = reading.reader->getPointCloud();
    geometry::Mesh const& mesh = reading.reader->getMesh();
    if (reading.isCloud)
        return {cloud.positions, cloud.normals, cloud.colors(), 0};
    return {mesh.vertices, mesh.normals, mesh.colors, mesh.indices.size() / 4};
}

// Least, greatest and mean of each channel, red first.
struct ColorRange
{
    std::array<int, channels> least = {255, 255, 255, 255};
    std::array<int, channels> greatest = {0, 0, 0, 0};
    std::array<double, channels> sum = {0, 0, 0, 0};

    void add(unsigned int color)
    {
        for (std::size_t i = 0; i < channels; ++i) {
            int const value = static_cast<int>(color >> 8 * i & 0xFF);
            least[i] = qMin(least[i], value);
            greatest[i] = qMax(greatest[i], value);
            sum[i] += value;
        }
    }
};

void addColors(Report& report, QList<unsigned int> const& colors)
{
    if (colors.isEmpty()) {
        report.add("colors"_L1, {}, Value());
        return;
    }
    ColorRange range;
    for (unsigned int const color : colors)
        range.add(color);
    Table table;
    table.columns = {{"channel"_L1, Text::tr("channel")},
                     {"min"_L1, Text::tr("min")},
                     {"max"_L1, Text::tr("max")},
                     {"mean"_L1, Text::tr("mean")}};
    std::array const names = {Text::tr("red"), Text::tr("green"), Text::tr("blue"), Text::tr("alpha")};
    for (std::size_t i = 0; i < channels; ++i)
        table.rows.push_back(
            {names[i], range.least[i], range.greatest[i], range.sum[i] / static_cast<double>(colors.size())});
    report.add("colors"_L1, Text::tr("colours"), std::move(table));
}

void addTexture(Report& report, ImageFile const& image, HeaderText const& header)
{
    if (header.textureName.isEmpty()) {
        report.add("texture"_L1, {}, Value());
        return;
    }
    Report& texture = report.section("texture"_L1, Text::tr("texture"));
    texture.add("name"_L1, Text::tr("name"), header.textureName);
    texture.add("found"_L1, Text::tr("found"), image.isFound);
    texture.add("size"_L1, Text::tr("size in pixels"),
                image.isImage() ? Value::array({qint64(image.size.width()), qint64(image.size.height())})
                                : Value());
}

Value colorValue(QColor const& color)
{
    return color.isValid() ? Value::array({qint64(color.red()), qint64(color.green()), qint64(color.blue())})
                           : Value();
}

void addMaterial(Report& report, utility::Optional<geometry::Material> const& material)
{
    if (!material) {
        report.add("material"_L1, {}, Value());
        return;
    }
    Report& section = report.section("material"_L1, Text::tr("material"));
    section.add("ambientColor"_L1, Text::tr("ambient colour"), colorValue(material->ambientColor));
    section.add("ambientIntensity"_L1, Text::tr("ambient intensity"), material->ambientIntensity);
    section.add("diffuseColor"_L1, Text::tr("diffuse colour"), colorValue(material->diffuseColor));
    section.add("diffuseIntensity"_L1, Text::tr("diffuse intensity"), material->diffuseIntensity);
    section.add("specularColor"_L1, Text::tr("specular colour"), colorValue(material->specularColor));
    section.add("specularIntensity"_L1, Text::tr("specular intensity"), material->specularIntensity);
    section.add("emissiveColor"_L1, Text::tr("emissive colour"), colorValue(material->emissiveColor));
    section.add("emissiveIntensity"_L1, Text::tr("emissive intensity"), material->emissiveIntensity);
    section.add("shininess"_L1, Text::tr("shininess"), material->shininess);
    section.add("transparency"_L1, Text::tr("transparency"), material->transparency);
    section.add("baseReflectance"_L1, Text::tr("base reflectance"), material->baseReflectance);
    section.add("detailNoise"_L1, Text::tr("detail noise"), material->detailNoise);
}

bool declares(HeaderText const& header, QLatin1StringView use)
{
    Element const* const vertex = header.element("vertex"_L1);
    if (vertex == nullptr)
        return false;
    for (Property const& property : vertex->properties) {
        if (useOf(*vertex, property) == use)
            return true;
    }
    return false;
}

QString normalsOf(HeaderText const& header, Reading const& reading)
{
    if (declares(header, "normal"_L1))
        return Text::tr("in the file");
    return reading.isCloud ? Text::tr("none") : Text::tr("computed");
}

void addContents(Report& report, HeaderText const& header, Reading const& reading)
{
    Points const points = pointsOf(reading);
    Report& counts = report.section("read"_L1, Text::tr("as read"));
    counts.add("facets"_L1, Text::tr("facets"), points.facets);
    counts.add("vertices"_L1, Text::tr("vertices"), qint64(points.positions.size()));
    counts.add("normals"_L1, Text::tr("normals"), normalsOf(header, reading));
    counts.add("textureCoordinates"_L1, Text::tr("texture coordinates"),
               qint64(reading.reader->getMesh().textureCoordinates.size()));
    Bounds bounds;
    for (QVector3D const& position : points.positions)
        bounds.add(position);
    bounds.addTo(report);
    addColors(report, points.colors);
    report.add("faceColors"_L1, reading.hasFaceColors ? Text::tr("face colours") : QString(),
               reading.hasFaceColors ? qint64(reading.reader->getFaceColors().size()) : qint64(0));
}

// Whether the comment is in the report already, as texture or as metadata.
bool isReported(QString const& comment)
{
    constexpr std::array beginnings = {"TextureFile "_L1,     "scan information"_L1, "scanner name:"_L1,
                                       "scanner serial:"_L1,  "imported:"_L1,        "software version:"_L1,
                                       "acquisition date:"_L1};
    return std::any_of(beginnings.begin(), beginnings.end(), [&](QLatin1StringView beginning) {
        return comment.startsWith(beginning, Qt::CaseInsensitive);
    });
}

void addComments(Report& report, HeaderText const& header)
{
    Table table;
    table.columns = {{"text"_L1, Text::tr("other comments")}};
    for (QString const& comment : header.comments) {
        if (!isReported(comment))
            table.rows.push_back({comment});
    }
    addTable(report, "comments"_L1, Text::tr("header"), std::move(table));
}

void addMetadataLines(Report& report, QFile& file)
{
    std::optional<MeshHeader> metadata;
    if (file.seek(0))
        readPlyMetadata(file, metadata);
    addMetadata(report, metadata);
}

void inspect(Source const& source, Inspection& inspection)
{
    QFile file(source.path);
    if (!file.open(QIODevice::ReadOnly)) {
        inspection.fail(ExitCode::ReadOrWriteFailed, Text::tr("cannot be opened: ") + file.errorString());
        return;
    }
    HeaderText const header = ply::readHeaderText(file);
    Reading const reading = ply::readFile(source.path, header);
    Report& report = inspection.report;
    report.add("encoding"_L1, Text::tr("encoding"), header.format.isEmpty() ? Value() : Value(header.format));
    addElements(report, header);
    if (reading.success)
        addContents(report, header, reading);
    ImageFile const texture = imageFileAt(QFileInfo(source.path).dir().absoluteFilePath(header.textureName));
    addTexture(report, texture, header);
    if (texture.isOverLimit())
        inspection.warnings << texture.limitProblem(header.textureName);
    addMaterial(report, reading.reader->getMaterial());
    addMetadataLines(report, file);
    addComments(report, header);
    ply::judge(source, header, reading, inspection);
}

} // namespace

Format const plyFormat = {"ply"_L1, "PLY"_L1, "ply"_L1, recognise, inspect, checkPly};

} // namespace tool
