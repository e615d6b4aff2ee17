#include "Text.h"
#include "inhouse/data/ShapeNodeIO.h"
#include "inhouse/data/Unstrip.h"
#include "inspect/Bounds.h"
#include "inspect/Formats.h"
#include "scene/BinaryIOHelper.h"

#include <QDataStream>
#include <QFile>
#include <QVersionNumber>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

using geometry::Shape;
using geometry::ShapeNode;

// A file holds a tree or a single shape. Only the content tells: what leaves fewer bytes over.
struct Contents
{
    bool hasHeader = false;
    QVersionNumber version = QVersionNumber(1, 0);
    std::unique_ptr<ShapeNode> tree;
    bool isSingleShape = false;
    /// What follows the tree or the shape.
    qint64 bytesLeft = 0;
};

utility::Optional<std::pair<unsigned, unsigned>> versionOf(QByteArray const& head)
{
    QDataStream stream(head);
    auto const version = BinaryIOHelper::readVersion(stream);
    return stream.status() == QDataStream::Ok ? version : std::nullopt;
}

QString recognise(Source const& source)
{
    return versionOf(source.head) ? Text::tr("by its header") : QString();
}

std::unique_ptr<ShapeNode> loadShape(QDataStream& stream, QVersionNumber const& version)
{
    auto shape = std::make_unique<Shape>();
    if (!shape->loadBinary(&stream, version, false))
        return nullptr;
    return std::make_unique<ShapeNode>(QString(), shape.release());
}

Contents contentsOf(QFile& file, QByteArray const& head)
{
    Contents contents;
    QDataStream stream(&file);
    if (auto const version = versionOf(head)) {
        contents.hasHeader = true;
        contents.version =
            QVersionNumber(static_cast<int>(version->first), static_cast<int>(version->second));
        BinaryIOHelper::readVersion(stream);
    }
    qint64 const begin = file.pos();
    contents.tree = ShapeNodeIO::loadRecursive(&stream, contents.version, false);
    contents.bytesLeft = file.size() - file.pos();
    if (!contents.hasHeader || (contents.tree && contents.bytesLeft == 0))
        return contents;
    file.seek(begin);
    stream.resetStatus();
    std::unique_ptr<ShapeNode> shape = loadShape(stream, contents.version);
    qint64 const bytesLeft = file.size() - file.pos();
    if (shape && (!contents.tree || bytesLeft < contents.bytesLeft)) {
        contents.tree = std::move(shape);
        contents.isSingleShape = true;
        contents.bytesLeft = bytesLeft;
    }
    return contents;
}

struct Totals
{
    qint64 nodes = 0;
    qint64 shapes = 0;
    qint64 depth = 0;
    qint64 vertices = 0;
    qint64 triangles = 0;
    qint64 indicesOutside = 0;
    qint64 unmatchedLists = 0;
    Bounds bounds;

    void add(geometry::Mesh const& mesh, qint64 meshTriangles)
    {
        ++shapes;
        vertices += mesh.vertices.size();
        triangles += meshTriangles;
        for (int const index : mesh.indices)
            indicesOutside += index < -1 || index >= mesh.vertices.size() ? 1 : 0;
        for (qsizetype const size : {mesh.normals.size(), mesh.colors.size(), mesh.textureCoordinates.size()})
            unmatchedLists += size != 0 && size != mesh.vertices.size() ? 1 : 0;
        for (QVector3D const& vertex : mesh.vertices)
            bounds.add(vertex);
    }
};

// Beyond this many nodes only the totals go on.
constexpr std::size_t shownNodes = 1000;

class Surveyor
{
public:
    Surveyor()
    {
        table.columns = {{"depth"_L1, Text::tr("depth")},
                         {"name"_L1, Text::tr("name")},
                         {"children"_L1, Text::tr("children")},
                         {"vertices"_L1, Text::tr("vertices")},
                         {"triangles"_L1, Text::tr("triangles")}};
    }

    void survey(ShapeNode const& root)
    {
        std::vector<std::pair<ShapeNode const*, qint64>> open = {{&root, 0}};
        while (!open.empty()) {
            auto const [node, depth] = open.back();
            open.pop_back();
            visit(*node, depth);
            auto const& children = node->getChildren();
            for (auto child = children.rbegin(); child != children.rend(); ++child)
                open.emplace_back(child->get(), depth + 1);
        }
    }

    void addTo(Report& report)
    {
        report.add("nodes"_L1, Text::tr("nodes"), totals.nodes);
        report.add("shapes"_L1, Text::tr("shapes"), totals.shapes);
        report.add("depth"_L1, Text::tr("levels below the root"), totals.depth);
        report.add("vertices"_L1, Text::tr("vertices"), totals.vertices);
        report.add("triangles"_L1, Text::tr("triangles"), totals.triangles);
        report.add("indicesOutside"_L1, totals.indicesOutside > 0 ? Text::tr("indices outside") : QString(),
                   totals.indicesOutside);
        report.add("unmatchedLists"_L1,
                   totals.unmatchedLists > 0 ? Text::tr("lists of other lengths") : QString(),
                   totals.unmatchedLists);
        totals.bounds.addTo(report);
        bool const isWhole = totals.nodes <= qint64(shownNodes);
        report.add("tree"_L1,
                   isWhole ? Text::tr("tree")
                           : Text::counted("tree, its first %n node(s)", nullptr, shownNodes),
                   table);
    }

private:
    void visit(ShapeNode const& node, qint64 depth)
    {
        ++totals.nodes;
        totals.depth = std::max(totals.depth, depth);
        Value vertices;
        Value triangles;
        if (Shape const* const shape = node.getShape()) {
            qint64 const count = geometry::unstrip(shape->getMesh()).indices.size() / 4;
            totals.add(shape->getMesh(), count);
            vertices = shape->getMesh().getNumVertices();
            triangles = count;
        }
        if (table.rows.size() < shownNodes)
            table.rows.push_back(
                {depth, node.getName(), qint64(node.getChildren().size()), vertices, triangles});
    }

    Totals totals;
    Table table;
};

bool isKnownVersion(QVersionNumber const& version)
{
    return version == QVersionNumber(1, 0) || version == QVersionNumber(2, 0);
}

void inspect(Source const& source, Inspection& inspection)
{
    QFile file(source.path);
    if (!file.open(QIODevice::ReadOnly)) {
        inspection.fail(ExitCode::ReadOrWriteFailed, Text::tr("cannot be opened: ") + file.errorString());
        return;
    }
    Contents const contents = contentsOf(file, source.head);
    Report& report = inspection.report;
    report.add("header"_L1, Text::tr("header"), contents.hasHeader);
    report.add("version"_L1, Text::tr("version"), contents.version.toString());
    if (!isKnownVersion(contents.version)) {
        inspection.fail(ExitCode::Unsupported,
                        Text::tr("expected version 1.0 or 2.0, found %1").arg(contents.version.toString()));
        return;
    }
    if (!contents.tree) {
        inspection.fail(ExitCode::Malformed,
                        Text::tr("expected a shape or a tree of shapes, found damage or an early "
                                 "end"));
        return;
    }
    report.add("holds"_L1, Text::tr("holds"), contents.isSingleShape ? Text::tr("shape") : Text::tr("tree"));
    Surveyor surveyor;
    surveyor.survey(*contents.tree);
    surveyor.addTo(report);
    if (contents.bytesLeft > 0)
        inspection.fail(
            ExitCode::Malformed,
            Text::counted(contents.isSingleShape
                              ? QT_TRANSLATE_N_NOOP("Text", "%n byte(s) (follows|follow) the shape")
                              : QT_TRANSLATE_N_NOOP("Text", "%n byte(s) (follows|follow) the tree"),
                          nullptr, contents.bytesLeft));
}

} // namespace

Format const shapeTreeFormat = {"shapetree"_L1, QLatin1StringView(QT_TRANSLATE_NOOP("Text", "shape tree")),
                                "shapetree"_L1, recognise, inspect};

} // namespace tool
