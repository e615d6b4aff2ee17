#include "LibraryLog.h"
#include "Report.h"
#include "Text.h"
#include "bundle/BundleWork.h"
#include "bundle/ShapeList.h"
#include "framework/MeshReader.h"
#include "output/OutputFile.h"
#include "ply/PLYWriter.h"
#include "scene/AssociatedShapesXMLReader.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>

using namespace Qt::StringLiterals;

namespace tool::bundle {

namespace {

struct Kept
{
    qsizetype number;
    QString name;
};

// The facade takes the bytes of an OBJ for the path of one.
QByteArray bundledBytes(QString const& path)
{
    if (QFileInfo(path).suffix().compare("obj"_L1, Qt::CaseInsensitive) == 0)
        return path.toUtf8();
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString whyLeftOut(ListedShape const& shape, ShapeList const& list, QString const& path)
{
    if (QString reason = list.whyNotInBundle(shape); !reason.isEmpty())
        return reason;
    if (QString reason = whyNoMesh(path); !reason.isEmpty())
        return reason;
    auto const mesh = MeshReader::read(path);
    return mesh && !mesh->isNull() ? QString() : Text::tr("no mesh could be read from its file");
}

// The files of all shapes that a bundle keeps, in the order in which it hands them out.
QList<Kept> gather(ShapeList const& list, QString const& document, QMap<QString, QByteArray>& files,
                   Console& console)
{
    QList<Kept> kept;
    for (qsizetype i = 0; i < list.shapes.size(); ++i) {
        ListedShape const& shape = list.shapes[i];
        QString const path = pathOf(shape, document);
        if (QString const reason = whyLeftOut(shape, list, path); !reason.isEmpty()) {
            console.warning(Text::tr("%1: shape %2, \"%3\", is left out: %4")
                                .arg(document)
                                .arg(i + 1)
                                .arg(shape.name, reason));
            continue;
        }
        files.insert(shape.name, bundledBytes(path));
        kept.append({i + 1, shape.name});
    }
    return kept;
}

QString fileNameOf(Kept const& shape)
{
    QString const base = QFileInfo(shape.name).completeBaseName();
    return u"%1-%2.ply"_s.arg(shape.number, 2, 10, QLatin1Char('0')).arg(base.isEmpty() ? u"shape"_s : base);
}

QString writePly(QString const& path, geometry::Mesh const& mesh, geometry::Material const& material,
                 bool mayReplace)
{
    OutputFile output(path);
    if (QString problem = output.open(mayReplace); !problem.isEmpty())
        return problem;
    PLYWriter writer;
    writer.setFilePath(output.temporaryPath());
    writer.setData(mesh, true, material);
    LogCapture const capture; // what is said names the temporary file
    if (!writer.write())
        return whyNotWritten(output.temporaryPath());
    return output.commit(-1);
}

ExitCode writeAll(QList<Kept> const& kept, QList<geometry::Mesh> const& meshes,
                  QList<geometry::Material> const& materials, UnpackOptions const& options, Console& console)
{
    Table files;
    files.columns = {{"path"_L1, {}}, {"shape"_L1, {}}};
    for (qsizetype i = 0; i < kept.size(); ++i) {
        QString const path = QDir(options.folder).filePath(fileNameOf(kept[i]));
        QString const problem = writePly(path, meshes[i], materials[i], options.mayReplace);
        if (!problem.isEmpty())
            return reported({ExitCode::ReadOrWriteFailed, problem}, path, console);
        files.rows.push_back({path, qint64(kept[i].number)});
        if (!options.json)
            console.result(path + u'\n');
    }
    Report report;
    report.add("files"_L1, {}, std::move(files));
    if (options.json)
        console.result(report.json("surfaceio.unpack/1"_L1));
    return ExitCode::Ok;
}

} // namespace

ExitCode unpack(UnpackOptions const& options, Console& console)
{
    ShapeList list;
    if (Problem const problem = readShapeList(options.document, list))
        return reported(problem, options.document, console);
    QString const documentKey = QStringLiteral("/");
    QMap<QString, QByteArray> files = {{documentKey, list.document}};
    QList<Kept> const kept = gather(list, options.document, files, console);
    AssociatedShapesXMLReader reader;
    {
        // Of shapes that are left out, which have been named already.
        LogCapture const log;
        reader.read(files, documentKey);
    }
    QList<geometry::Mesh> const meshes = reader.takeMeshes();
    QList<geometry::Material> const materials = reader.getMaterials();
    if (meshes.isEmpty() || meshes.size() != kept.size())
        return reported({ExitCode::ReadOrWriteFailed, Text::tr("holds no shape that could be unpacked")},
                        options.document, console);
    if (!QDir().mkpath(options.folder))
        return reported({ExitCode::ReadOrWriteFailed, Text::tr("the folder cannot be made")}, options.folder,
                        console);
    return writeAll(kept, meshes, materials, options, console);
}

} // namespace tool::bundle
