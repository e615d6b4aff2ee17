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
    return ply::readHeaderText(in).hasMagic() ? u"by its first line, \"ply\""_s : QString();
}

// Without rows it is left out of the text.
void addTable(Report& report, QLatin1StringView key, QString const& label, Table table)
{
    QString const shown = table.rows.empty() ? QString() : label;
    report.add(key, shown, std::move(table));
}

QString typeOf(Property const& property)
{
    return property.isList() ? u"list of %1, counted by %2"_s.arg(property.type, property.countType)
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
        if (typeOf(property) != type || useOf(element, property) != use)
            finish();
        type = typeOf(property);
        use = useOf(element, property);
        names += names.isEmpty() ? property.name : u' ' + property.name;
    }
    finish();
}

void addElements(Report& report, HeaderText const& header)
{
    Table elements;
    elements.columns = {{"name"_L1, u"element"_s}, {"count"_L1, u"count"_s}};
    Table properties;
    properties.columns = {{"element"_L1, u"element"_s},
                          {"names"_L1, u"properties"_s},
                          {"type"_L1, u"type"_s},
                          {"use"_L1, u"use"_s}};
    for (Element const& element : header.elements) {
        elements.rows.push_back({element.name, element.count});
        addProperties(properties, element);
    }
    addTable(report, "elements"_L1, u"elements"_s, std::move(elements));
    addTable(report, "properties"_L1, u"properties"_s, std::move(properties));
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
    table.columns = {
        {"channel"_L1, u"channel"_s}, {"min"_L1, u"min"_s}, {"max"_L1, u"max"_s}, {"mean"_L1, u"mean"_s}};
    constexpr std::array names = {"red"_L1, "green"_L1, "blue"_L1, "alpha"_L1};
    for (std::size_t i = 0; i < channels; ++i)
        table.rows.push_back(
            {names[i], range.least[i], range.greatest[i], range.sum[i] / static_cast<double>(colors.size())});
    report.add("colors"_L1, u"colours"_s, std::move(table));
}

void addTexture(Report& report, ImageFile const& image, HeaderText const& header)
{
    if (header.textureName.isEmpty()) {
        report.add("texture"_L1, {}, Value());
        return;
    }
    Report& texture = report.section("texture"_L1, u"texture"_s);
    texture.add("name"_L1, u"name"_s, header.textureName);
    texture.add("found"_L1, u"found"_s, image.isFound);
    texture.add("size"_L1, u"size in pixels"_s,
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
    Report& section = report.section("material"_L1, u"material"_s);
    section.add("ambientColor"_L1, u"ambient colour"_s, colorValue(material->ambientColor));
    section.add("ambientIntensity"_L1, u"ambient intensity"_s, material->ambientIntensity);
    section.add("diffuseColor"_L1, u"diffuse colour"_s, colorValue(material->diffuseColor));
    section.add("diffuseIntensity"_L1, u"diffuse intensity"_s, material->diffuseIntensity);
    section.add("specularColor"_L1, u"specular colour"_s, colorValue(material->specularColor));
    section.add("specularIntensity"_L1, u"specular intensity"_s, material->specularIntensity);
    section.add("emissiveColor"_L1, u"emissive colour"_s, colorValue(material->emissiveColor));
    section.add("emissiveIntensity"_L1, u"emissive intensity"_s, material->emissiveIntensity);
    section.add("shininess"_L1, u"shininess"_s, material->shininess);
    section.add("transparency"_L1, u"transparency"_s, material->transparency);
    section.add("baseReflectance"_L1, u"base reflectance"_s, material->baseReflectance);
    section.add("detailNoise"_L1, u"detail noise"_s, material->detailNoise);
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

QLatin1StringView normalsOf(HeaderText const& header, Reading const& reading)
{
    if (declares(header, "normal"_L1))
        return "in the file"_L1;
    return reading.isCloud ? "none"_L1 : "computed"_L1;
}

void addContents(Report& report, HeaderText const& header, Reading const& reading)
{
    Points const points = pointsOf(reading);
    Report& counts = report.section("read"_L1, u"as read"_s);
    counts.add("facets"_L1, u"facets"_s, points.facets);
    counts.add("vertices"_L1, u"vertices"_s, qint64(points.positions.size()));
    counts.add("normals"_L1, u"normals"_s, normalsOf(header, reading));
    counts.add("textureCoordinates"_L1, u"texture coordinates"_s,
               qint64(reading.reader->getMesh().textureCoordinates.size()));
    Bounds bounds;
    for (QVector3D const& position : points.positions)
        bounds.add(position);
    bounds.addTo(report);
    addColors(report, points.colors);
    report.add("faceColors"_L1, reading.hasFaceColors ? u"face colours"_s : QString(),
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
    table.columns = {{"text"_L1, u"other comments"_s}};
    for (QString const& comment : header.comments) {
        if (!isReported(comment))
            table.rows.push_back({comment});
    }
    addTable(report, "comments"_L1, u"header"_s, std::move(table));
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
        inspection.fail(ExitCode::ReadOrWriteFailed, u"cannot be opened: "_s + file.errorString());
        return;
    }
    HeaderText const header = ply::readHeaderText(file);
    Reading const reading = ply::readFile(source.path, header);
    Report& report = inspection.report;
    report.add("encoding"_L1, u"encoding"_s, header.format.isEmpty() ? Value() : Value(header.format));
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
