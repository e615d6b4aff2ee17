#include "Text.h"
#include "bundle/BundleWork.h"
#include "bundle/ShapeList.h"
#include "framework/MeshReader.h"
#include "inspect/Format.h"
#include "output/BytesFile.h"
#include "ply/PLYReader.h"
#include "scene/AssociatedShapesXMLWriter.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace tool::bundle {

namespace {

using geometry::Material;

struct Preset
{
    QLatin1StringView name;
    Material (*material)();
};

constexpr std::array presets = {Preset{QLatin1StringView("default"), [] { return Material(); }},
                                Preset{QLatin1StringView("metal"), Material::metal},
                                Preset{QLatin1StringView("distractor"), Material::distractor}};

struct NamedMaterial
{
    QString id;
    Material material;
};

// What the file says about itself, under an id of its own; the default where it says nothing.
NamedMaterial ownMaterial(QString const& path, QString const& listedName)
{
    if (!MeshReader::isPLY(QFileInfo(path).suffix()))
        return {u"default"_s, Material()};
    PLYReader reader(PLYReader::MeshMode);
    reader.setFileName(path);
    bool const isRead = reader.read(std::atomic<bool>(false));
    if (!isRead || !reader.getMaterial())
        return {u"default"_s, Material()};
    return {listedName, *reader.getMaterial()};
}

NamedMaterial materialFor(QString const& path, QString const& listedName, QString const& wanted)
{
    for (Preset const& preset : presets)
        if (wanted == preset.name)
            return {wanted, preset.material()};
    return ownMaterial(path, listedName);
}

Problem addMesh(QString const& path, PackOptions const& options, AssociatedShapesXMLWriter& document)
{
    if (QString const reason = whyNoMesh(path); !reason.isEmpty())
        return {ExitCode::ReadOrWriteFailed, reason};
    auto const mesh = MeshReader::read(path);
    if (!mesh || mesh->isNull()) {
        Problem problem = refusalOf(path);
        return problem ? problem
                       : Problem{ExitCode::ReadOrWriteFailed, Text::tr("no mesh could be read from it")};
    }
    QDir const folder(QFileInfo(options.out).absolutePath());
    QString const name = folder.relativeFilePath(QFileInfo(path).absoluteFilePath());
    NamedMaterial const look = materialFor(path, name, options.material);
    document.add(name, look.id, look.material);
    return {};
}

QString writeDocument(QByteArray const& content, PackOptions const& options)
{
    BytesFile output(options.out);
    QString problem = output.open(options.mayReplace);
    if (problem.isEmpty())
        problem = output.write(content);
    return problem.isEmpty() ? output.commit() : problem;
}

} // namespace

QStringList materialNames()
{
    QStringList names = {u"own"_s};
    for (Preset const& preset : presets)
        names << preset.name;
    return names;
}

ExitCode pack(PackOptions const& options, Console& console)
{
    AssociatedShapesXMLWriter document;
    for (QString const& path : options.meshes)
        if (Problem const problem = addMesh(path, options, document))
            return reported(problem, path, console);
    QString const problem = writeDocument(document.createXMLContent(), options);
    return problem.isEmpty() ? ExitCode::Ok
                             : reported({ExitCode::ReadOrWriteFailed, problem}, options.out, console);
}

} // namespace tool::bundle
