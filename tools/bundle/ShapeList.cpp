#include "bundle/ShapeList.h"

#include "LibraryLog.h"
#include "Text.h"
#include "inspect/Format.h"
#include "scene/AssociatedShapesXMLReader.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QXmlStreamReader>

using namespace Qt::StringLiterals;

namespace tool::bundle {

namespace {

// The library has the last word on what a document is.
bool isDocument(QByteArray const& bytes)
{
    LogCapture const log;
    AssociatedShapesXMLReader().read({{u"document"_s, bytes}}, u"document"_s);
    return !log.messages().contains(u"Could not parse document"_s);
}

class Collector
{
public:
    explicit Collector(ShapeList& list_)
        : list(list_)
    {}

    void take(QXmlStreamReader const& xml)
    {
        if (xml.isStartElement())
            start(xml.qualifiedName().toString(), xml.attributes());
        else if (xml.isEndElement())
            end();
        else if (xml.isCharacters() && (xml.isCDATA() || !xml.isWhitespace()))
            for (qsizetype const shape : openShapes)
                list.shapes[shape].name += xml.text();
    }

private:
    void start(QString const& name, QXmlStreamAttributes const& attributes)
    {
        if (path.size() == 1 && name == "shapes"_L1)
            ++shapesElements;
        if (path.size() == 1 && name == "materials"_L1)
            ++materialsElements;
        if (name == "shape"_L1) {
            openShapes << list.shapes.size();
            bool const isInTable = path.size() == 2 && path[1] == "shapes"_L1 && shapesElements == 1;
            list.shapes.append({{}, attributes.value("materialId"_L1).toString(), isInTable});
        }
        if (name == "material"_L1 && path.size() == 2 && path[1] == "materials"_L1 && materialsElements == 1)
            list.materialIds << attributes.value("id"_L1).toString();
        path << name;
    }

    void end()
    {
        if (path.takeLast() == "shape"_L1)
            openShapes.removeLast();
    }

    ShapeList& list;
    QStringList path;
    QList<qsizetype> openShapes;
    int shapesElements = 0;
    int materialsElements = 0;
};

} // namespace

QString ShapeList::whyNotInBundle(ListedShape const& shape) const
{
    if (!shape.isInTable)
        return Text::tr("it does not stand under root/shapes");
    if (shape.materialId.isEmpty())
        return Text::tr("it has no material id");
    if (!materialIds.contains(shape.materialId))
        return Text::tr("its material \"%1\" is not defined").arg(shape.materialId);
    return {};
}

Problem readShapeList(QString const& path, ShapeList& list)
{
    if (QString const reason = whyNotRegular(path); !reason.isEmpty())
        return {ExitCode::ReadOrWriteFailed, reason};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {ExitCode::ReadOrWriteFailed, Text::tr("cannot be opened: ") + file.errorString()};
    list.document = file.readAll();
    QXmlStreamReader xml(list.document);
    xml.setNamespaceProcessing(false);
    if (!isDocument(list.document)) {
        while (!xml.atEnd())
            xml.readNext();
        QString const why =
            xml.hasError() ? Text::tr("line %1: %2").arg(xml.lineNumber()).arg(xml.errorString().trimmed())
                           : Text::tr("it is beyond the limits of such documents");
        return {ExitCode::Malformed, Text::tr("expected an associated-shapes document: ") + why};
    }
    Collector collector(list);
    while (!xml.atEnd()) {
        xml.readNext();
        collector.take(xml);
    }
    return {};
}

QString pathOf(ListedShape const& shape, QString const& documentPath)
{
    QDir const directory(QFileInfo(documentPath).absolutePath());
    return QFileInfo(directory, shape.name).absoluteFilePath();
}

QString whyNoMesh(QString const& path)
{
    if (QString reason = whyNotRegular(path); !reason.isEmpty())
        return reason;
    QString const suffix = QFileInfo(path).suffix().toLower();
    bool const isKnown = suffix == "stl"_L1 || suffix == "ply"_L1 || suffix == "obj"_L1;
    return isKnown ? QString() : Text::tr("expected one of the suffixes .stl, .ply, .obj");
}

} // namespace tool::bundle
