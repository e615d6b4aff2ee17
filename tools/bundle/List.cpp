#include "LibraryLog.h"
#include "Report.h"
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
        return {{}, {}, (QStringList{u"it cannot be read"_s} + log.messages()).join(u": "_s)};
    return {mesh->getNumVertices(), qint64(geometry::unstrip(*mesh).indices.size() / 4), {}};
}

Value orNothing(QString const& text)
{
    return text.isEmpty() ? Value() : Value(text);
}

Table emptyTable()
{
    Table table;
    table.columns = {{"file"_L1, u"file"_s},
                     {"materialId"_L1, u"material"_s},
                     {"vertices"_L1, u"vertices"_s},
                     {"triangles"_L1, u"triangles"_s},
                     {"problem"_L1, u"skipped because"_s},
                     {"bundleProblem"_L1, u"skipped in memory because"_s}};
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
    report.add("document"_L1, u"document"_s, options.document);
    report.add("materials"_L1, u"materials"_s, qint64(shapes.materialIds.size()));
    report.add("loaded"_L1, u"shapes that load"_s, loaded);
    report.add("skipped"_L1, u"shapes that are skipped"_s, skipped);
    QString const label = table.rows.empty() ? QString() : u"shapes"_s;
    report.add("shapes"_L1, label, std::move(table));
    console.result(options.json ? report.json("surfaceio.bundle/1"_L1) : report.text());
    return verdict(loaded, skipped);
}

} // namespace tool::bundle
