#include "LibraryLog.h"
#include "Report.h"
#include "Text.h"
#include "bundle/BundleWork.h"
#include "bundle/ShapeList.h"
#include "framework/MeshReader.h"
#include "inhouse/data/Unstrip.h"

using namespace Qt::StringLiterals;

namespace tool::bundle {

namespace {

struct Look
{
    Value vertices;
    Value triangles;
    QString problem;
};

Look lookAt(QString const& path)
{
    if (QString const reason = whyNoMesh(path); !reason.isEmpty())
        return {{}, {}, reason};
    LogCapture const log;
    auto const mesh = MeshReader::read(path);
    if (!mesh || mesh->isNull())
        return {{}, {}, (QStringList{Text::tr("it cannot be read")} + log.messages()).join(u": "_s)};
    return {mesh->getNumVertices(), qint64(geometry::unstrip(*mesh).indices.size() / 4), {}};
}

Value orNothing(QString const& text)
{
    return text.isEmpty() ? Value() : Value(text);
}

Table emptyTable()
{
    Table table;
    table.columns = {{"file"_L1, Text::tr("file")},
                     {"materialId"_L1, Text::tr("material")},
                     {"vertices"_L1, Text::tr("vertices")},
                     {"triangles"_L1, Text::tr("triangles")},
                     {"problem"_L1, Text::tr("skipped because")},
                     {"bundleProblem"_L1, Text::tr("skipped in memory because")}};
    return table;
}

ExitCode verdict(qint64 loaded, qint64 skipped)
{
    if (loaded == 0)
        return ExitCode::ReadOrWriteFailed;
    return skipped == 0 ? ExitCode::Ok : ExitCode::SomeFailed;
}

} // namespace

ExitCode list(ListOptions const& options, Console& console)
{
    ShapeList shapes;
    if (Problem const problem = readShapeList(options.document, shapes))
        return reported(problem, options.document, console);
    Table table = emptyTable();
    qint64 loaded = 0;
    for (ListedShape const& shape : shapes.shapes) {
        Look const look = lookAt(pathOf(shape, options.document));
        loaded += look.problem.isEmpty() ? 1 : 0;
        table.rows.push_back({shape.name, orNothing(shape.materialId), look.vertices, look.triangles,
                              orNothing(look.problem), orNothing(shapes.whyNotInBundle(shape))});
    }
    qint64 const skipped = shapes.shapes.size() - loaded;
    Report report;
    report.add("document"_L1, Text::tr("document"), options.document);
    report.add("materials"_L1, Text::tr("materials"), qint64(shapes.materialIds.size()));
    report.add("loaded"_L1, Text::tr("shapes that load"), loaded);
    report.add("skipped"_L1, Text::tr("shapes that are skipped"), skipped);
    QString const label = table.rows.empty() ? QString() : Text::tr("shapes");
    report.add("shapes"_L1, label, std::move(table));
    console.result(options.json ? report.json("surfaceio.bundle/1"_L1) : report.text());
    return verdict(loaded, skipped);
}

} // namespace tool::bundle
