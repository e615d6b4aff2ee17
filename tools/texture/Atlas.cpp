#include "texture/Atlas.h"

#include "Problem.h"
#include "convert/Suffixes.h"
#include "output/OutputFile.h"
#include "texture/TexturedPly.h"
#include "texture/TexturedScan.h"

#include <QBuffer>
#include <QDebug>
#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

Problem failed(QString const& sentence)
{
    return sentence.isEmpty() ? Problem() : Problem{ExitCode::ReadOrWriteFailed, sentence};
}

/// One of the two files, written in the temporary folder and not yet in its place.
class Part
{
public:
    explicit Part(QString const& path_)
        : path(path_)
        , output(path_)
    {}

    Problem open(QLatin1StringView suffix, bool mayReplace)
    {
        if (!hasSuffix(path, suffix))
            return {ExitCode::Usage, u"expected the suffix .%1"_s.arg(QString(suffix))};
        return failed(output.open(mayReplace));
    }

    Problem write(QByteArray const& content)
    {
        bytes = content.size();
        QFile file(output.temporaryPath());
        bool const isWritten =
            file.open(QIODevice::WriteOnly) && file.write(content) == bytes && file.flush();
        return isWritten ? Problem() : failed(file.errorString());
    }

    Problem commit() { return failed(output.commit(bytes)); }

    QString const path;

private:
    OutputFile output;
    qint64 bytes = 0;
};

QByteArray pngOf(QImage const& image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    bool const isWritten = buffer.open(QIODevice::WriteOnly) && image.save(&buffer, "png");
    return isWritten ? bytes : QByteArray();
}

// As the header of the mesh names it.
QString imageNameFrom(QString const& meshPath, QString const& imagePath)
{
    return QFileInfo(meshPath).absoluteDir().relativeFilePath(QFileInfo(imagePath).absoluteFilePath());
}

ExitCode read(AtlasOptions const& options, TexturedScan& scan, Console& console)
{
    if (Problem const problem = readTexturedScan(options.in, scan))
        return reported(problem, options.in, console);
    for (QString const& message : scan.log)
        qWarning().noquote() << message;
    console.note(
        u"%1: %2 x %3 pixels"_s.arg(options.image).arg(scan.texture.width()).arg(scan.texture.height()));
    return ExitCode::Ok;
}

Problem writeImage(Part& part, TexturedScan const& scan)
{
    QByteArray const bytes = pngOf(scan.texture);
    return bytes.isEmpty() ? failed(u"could not be written"_s) : part.write(bytes);
}

ExitCode writeImageOnly(AtlasOptions const& options, Console& console)
{
    Part image(options.image);
    if (Problem const problem = image.open("png"_L1, options.mayReplace))
        return reported(problem, image.path, console);
    TexturedScan scan;
    if (ExitCode const code = read(options, scan, console); code != ExitCode::Ok)
        return code;
    Problem problem = writeImage(image, scan);
    if (!problem)
        problem = image.commit();
    return reported(problem, image.path, console);
}

ExitCode writeBoth(AtlasOptions const& options, Console& console)
{
    Part image(options.image);
    Part mesh(options.mesh);
    QString const name = imageNameFrom(options.mesh, options.image);
    if (Problem const problem = image.open("png"_L1, options.mayReplace))
        return reported(problem, image.path, console);
    if (Problem const problem = mesh.open("ply"_L1, options.mayReplace))
        return reported(problem, mesh.path, console);
    if (QString const obstacle = textureNameProblem(name); !obstacle.isEmpty())
        return reported({ExitCode::Usage, obstacle}, mesh.path, console);
    TexturedScan scan;
    if (ExitCode const code = read(options, scan, console); code != ExitCode::Ok)
        return code;
    if (Problem const problem = writeImage(image, scan))
        return reported(problem, image.path, console);
    if (Problem const problem = mesh.write(texturedPly(scan.mesh, name)))
        return reported(problem, mesh.path, console);
    if (Problem const problem = image.commit())
        return reported(problem, image.path, console);
    return reported(mesh.commit(), mesh.path, console);
}

} // namespace

ExitCode writeAtlas(AtlasOptions const& options, Console& console)
{
    return options.mesh.isEmpty() ? writeImageOnly(options, console) : writeBoth(options, console);
}

} // namespace tool
