#include "texture/Atlas.h"

#include "Problem.h"
#include "Text.h"
#include "convert/Suffixes.h"
#include "output/BytesFile.h"
#include "texture/Png.h"
#include "texture/TexturedPly.h"
#include "texture/TexturedScan.h"

#include <QDebug>
#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

Problem failed(QString const& sentence)
{
    return sentence.isEmpty() ? Problem() : Problem{ExitCode::ReadOrWriteFailed, sentence};
}

Problem open(BytesFile& file, QLatin1StringView suffix, bool mayReplace)
{
    if (!hasSuffix(file.path, suffix))
        return {ExitCode::Usage, Text::tr("expected the suffix .%1").arg(QString(suffix))};
    return failed(file.open(mayReplace));
}

// As the header of the mesh names it.
QString imageNameFrom(QString const& meshPath, QString const& imagePath)
{
    return QFileInfo(meshPath).absoluteDir().relativeFilePath(QFileInfo(imagePath).absoluteFilePath());
}

ExitCode read(AtlasOptions const& options, TexturedScan& scan, Console& console)
{
    if (Problem const problem = readTexturedScan(options.in, scan))
        return reported(problem, problem.code == ExitCode::Interrupted ? options.image : options.in, console);
    for (QString const& message : scan.log)
        qWarning().noquote() << message;
    console.note(Text::tr("%1: %2 x %3 pixels")
                     .arg(options.image)
                     .arg(scan.texture.width())
                     .arg(scan.texture.height()));
    return ExitCode::Ok;
}

Problem writeImage(BytesFile& file, TexturedScan const& scan)
{
    QByteArray const bytes = pngOf(scan.texture);
    return bytes.isEmpty() ? failed(Text::tr("could not be written")) : failed(file.write(bytes));
}

ExitCode writeImageOnly(AtlasOptions const& options, Console& console)
{
    BytesFile image(options.image);
    if (Problem const problem = open(image, "png"_L1, options.mayReplace))
        return reported(problem, image.path, console);
    TexturedScan scan;
    if (ExitCode const code = read(options, scan, console); code != ExitCode::Ok)
        return code;
    Problem problem = writeImage(image, scan);
    if (!problem)
        problem = failed(image.commit());
    return reported(problem, image.path, console);
}

// The image goes first: there is never a mesh whose image is not there yet.
ExitCode commitBoth(BytesFile& image, BytesFile& mesh, Console& console)
{
    for (BytesFile const* const file : {&image, &mesh}) {
        if (Problem const problem = failed(file->check()))
            return reported(problem, file->path, console);
    }
    for (BytesFile* const file : {&image, &mesh}) {
        if (Problem const problem = failed(file->moveIntoPlace()))
            return reported(problem, file->path, console);
    }
    return ExitCode::Ok;
}

ExitCode writeBoth(AtlasOptions const& options, Console& console)
{
    BytesFile image(options.image);
    BytesFile mesh(options.mesh);
    QString const name = imageNameFrom(options.mesh, options.image);
    if (Problem const problem = open(image, "png"_L1, options.mayReplace))
        return reported(problem, image.path, console);
    if (Problem const problem = open(mesh, "ply"_L1, options.mayReplace))
        return reported(problem, mesh.path, console);
    if (QString const obstacle = textureNameProblem(name); !obstacle.isEmpty())
        return reported({ExitCode::Usage, obstacle}, mesh.path, console);
    TexturedScan scan;
    if (ExitCode const code = read(options, scan, console); code != ExitCode::Ok)
        return code;
    if (Problem const problem = writeImage(image, scan))
        return reported(problem, image.path, console);
    if (Problem const problem = failed(mesh.write(texturedPly(scan.mesh, name))))
        return reported(problem, mesh.path, console);
    return commitBoth(image, mesh, console);
}

} // namespace

ExitCode writeAtlas(AtlasOptions const& options, Console& console)
{
    return options.mesh.isEmpty() ? writeImageOnly(options, console) : writeBoth(options, console);
}

} // namespace tool
