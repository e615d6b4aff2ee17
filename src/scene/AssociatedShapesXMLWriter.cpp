#include "scene/AssociatedShapesXMLWriter.h"

#include "inhouse/fundamentals/StringConversions.h"
#include "scene/MaterialAttributes.h"

#include <QXmlStreamWriter>

using namespace Qt::StringLiterals;

namespace {

void writeShape(QXmlStreamWriter& xml, QString const& fileName, QString const& materialId)
{
    xml.writeStartElement(u"shape"_s);
    xml.writeAttribute(u"materialId"_s, materialId);
    xml.writeCharacters(fileName);
    xml.writeEndElement();
}

void writeMaterial(QXmlStreamWriter& xml, QString const& id, geometry::Material const& material)
{
    xml.writeStartElement(u"material"_s);
    xml.writeAttribute(u"id"_s, id);
    for (auto const& color : materialattributes::colors)
        xml.writeAttribute(color.name, (material.*color.field).name());
    for (auto const& number : materialattributes::numbers)
        xml.writeAttribute(number.name, QString::number(double(material.*number.field), 'g', 6));
    xml.writeAttribute(materialattributes::detailNoise,
                       StringConversions::boolToString(material.detailNoise));
    xml.writeEndElement();
}

} // namespace

AssociatedShapesXMLWriter::~AssociatedShapesXMLWriter() = default;

void AssociatedShapesXMLWriter::add(QString const& fileName, QString const& materialId,
                                    geometry::Material const& material)
{
    fileNames.append(fileName);
    materialIds.append(materialId);
    materials.append(material);
}

QByteArray AssociatedShapesXMLWriter::createXMLContent() const
{
    QByteArray content;
    QXmlStreamWriter xml(&content);
    xml.setAutoFormatting(true);
    xml.writeStartDocument(u"1.0"_s);
    xml.writeStartElement(u"root"_s);
    xml.writeAttribute(u"version"_s, QString::number(1));

    xml.writeStartElement(u"shapes"_s);
    for (qsizetype i = 0; i < fileNames.size(); ++i)
        writeShape(xml, fileNames[i], materialIds[i]);
    xml.writeEndElement();

    xml.writeStartElement(u"materials"_s);
    for (qsizetype i = 0; i < materials.size(); ++i)
        writeMaterial(xml, materialIds[i], materials[i]);
    xml.writeEndElement();

    xml.writeEndElement();
    xml.writeEndDocument();
    return content;
}
