#include "scene/AssociatedShapesXMLReader.h"

#include "framework/FileAccess.h"
#include "framework/MemoryGuard.h"
#include "framework/MeshReader.h"
#include "inhouse/coreio/DomHelper.h"
#include "inhouse/fundamentals/StringConversions.h"
#include "scene/MaterialAttributes.h"
#include "scene/XmlLimits.h"

#include <QDebug>
#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QFileInfo>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

bool parse(QByteArray const& bytes, QDomDocument& document)
{
    return xmllimits::isWithinLimits(bytes) && document.setContent(bytes);
}

// No more than tells that a file is too long: a device may never end.
QByteArray contentOf(QFile& file)
{
    constexpr qint64 blockBytes = 1024LL * 1024;
    QByteArray content;
    while (content.size() <= xmllimits::maxBytes) {
        QByteArray const block = file.read(blockBytes);
        if (block.isEmpty())
            break;
        content += block;
    }
    return content;
}

void warn(QLatin1StringView text, QString const& name)
{
    qWarning().noquote() << text + name;
}

geometry::Material materialOf(QDomElement const& element)
{
    auto const color = [&](std::size_t i) {
        return QColor(element.attribute(materialattributes::colors[i].name));
    };
    auto const number = [&](std::size_t i) {
        return element.attribute(materialattributes::numbers[i].name).toFloat();
    };
    bool const detailNoise =
        StringConversions::stringToBool(element.attribute(materialattributes::detailNoise));
    return {color(0),  color(1),  color(2),  color(3),  number(0), number(1),
            number(2), number(3), number(4), number(5), number(6), detailNoise};
}

} // namespace

AssociatedShapesXMLReader::~AssociatedShapesXMLReader() = default;

bool AssociatedShapesXMLReader::read(QMap<QString, QByteArray> const& files, QString const& xmlFileName)
{
    return memory::succeeds([&] { return readBundle(files, xmlFileName); });
}

bool AssociatedShapesXMLReader::read(QString const& xmlFilePath)
{
    return memory::succeeds([&] { return readDocument(xmlFilePath); });
}

bool AssociatedShapesXMLReader::readBundle(QMap<QString, QByteArray> const& files, QString const& xmlFileName)
{
    QDomDocument document;
    if (!parse(files.value(xmlFileName), document)) {
        warn("Could not parse "_L1, xmlFileName);
        return false;
    }
    QDomElement const root = document.documentElement();
    auto const known = readMaterialsFromXml(root);
    QDomElement const list = DomHelper::getFirstTagElement(root, u"shapes"_s);
    Shapes found;
    for (QDomElement const& shape : DomHelper::getTagElements(list, u"shape"_s)) {
        QString const name = shape.text();
        geometry::Mesh const mesh = readShape(files.value(name), name);
        QString const id = shape.attribute(u"materialId"_s);
        if (mesh.isNull() || id.isEmpty() || !known.contains(id))
            continue;
        found.meshes.append(mesh);
        found.materials.append(known.value(id));
    }
    keep(found);
    return !meshes.isEmpty();
}

bool AssociatedShapesXMLReader::readDocument(QString const& xmlFilePath)
{
    if (!meshes.isEmpty()) {
        meshes.clear();
        qWarning() << "AssociatedShapesXMLReader : read() called when previous result was not fetched. "
                      "Meshes deleted.";
    }
    QFile file(xmlFilePath);
    if (!files::open(file, QIODevice::ReadOnly)) {
        warn("Could not open "_L1, xmlFilePath);
        return false;
    }
    QDomDocument document;
    if (!parse(contentOf(file), document)) {
        qWarning() << "Could not parse " << xmlFilePath;
        return false;
    }
    QDir const directory(QFileInfo(xmlFilePath).absolutePath());
    Shapes found;
    QDomNodeList const shapes =
        deprecated::DomHelper::getTagElementsRecursively(document.documentElement(), u"shape"_s);
    for (int i = 0; i < shapes.size(); ++i) {
        QString const name = shapes.at(i).toElement().text();
        QString const path = QFileInfo(directory, name).absoluteFilePath();
        if (files::isPipeOrDevice(path))
            continue;
        geometry::Mesh const mesh = readShape(path);
        if (mesh.isNull())
            continue;
        found.meshes.append(mesh);
        found.materials.append(geometry::Material::distractor());
    }
    keep(found);
    return !meshes.isEmpty();
}

// Both lists or none of them.
void AssociatedShapesXMLReader::keep(Shapes const& shapes)
{
    QList<geometry::Material> allMaterials = materials + shapes.materials;
    meshes += shapes.meshes;
    materials.swap(allMaterials);
}

QList<geometry::Mesh> AssociatedShapesXMLReader::takeMeshes()
{
    return std::exchange(meshes, {});
}

QList<geometry::Material> AssociatedShapesXMLReader::getMaterials() const
{
    return materials;
}

QMap<QString, geometry::Material>
AssociatedShapesXMLReader::readMaterialsFromXml(QDomElement const& root) const
{
    QMap<QString, geometry::Material> known;
    QDomElement const list = DomHelper::getFirstTagElement(root, u"materials"_s);
    for (QDomElement const& element : DomHelper::getTagElements(list, u"material"_s))
        known.insert(element.attribute(u"id"_s), materialOf(element));
    return known;
}

geometry::Mesh AssociatedShapesXMLReader::readShape(QByteArray const& bytes, QString const& fileName) const
{
    return MeshReader::read(bytes, fileName).value_or(geometry::Mesh());
}

geometry::Mesh AssociatedShapesXMLReader::readShape(QString const& path) const
{
    return MeshReader::read(path).value_or(geometry::Mesh());
}
