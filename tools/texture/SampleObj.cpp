#include "texture/SampleObj.h"

#include "Problem.h"
#include "output/BytesFile.h"
#include "sample/TexturedObj.h"
#include "texture/Png.h"
#include "texture/TexturedPly.h"

#include <QDir>
#include <QFileInfo>

#include <memory>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

struct Content
{
    QString name;
    QByteArray bytes;
};

// What is named goes first, so that no file names one that is not there yet.
std::vector<Content> contentsOf(QString const& path, sample::DentalArch const& arch, quint64 seed)
{
    QString const base = QFileInfo(path).completeBaseName();
    QString const image = base + u".png"_s;
    QString const library = base + u".mtl"_s;
    return {{image, pngOf(sample::textureOf(seed))},
            {library, sample::mtlOf(image)},
            {QFileInfo(path).fileName(), sample::objOf(arch, library)}};
}

Problem failed(QString const& sentence)
{
    return sentence.isEmpty() ? Problem() : Problem{ExitCode::ReadOrWriteFailed, sentence};
}

using Files = std::vector<std::unique_ptr<BytesFile>>;

ExitCode write(std::vector<Content> const& contents, QDir const& folder, bool mayReplace, Files& files,
               Console& console)
{
    for (Content const& content : contents) {
        files.push_back(std::make_unique<BytesFile>(folder.filePath(content.name)));
        QString problem = files.back()->open(mayReplace);
        if (problem.isEmpty())
            problem = files.back()->write(content.bytes);
        if (!problem.isEmpty())
            return reported(failed(problem), files.back()->path, console);
    }
    return ExitCode::Ok;
}

} // namespace

ExitCode writeSampleObj(QString const& path, sample::DentalArch const& arch, quint64 seed, bool mayReplace,
                        Console& console)
{
    if (QString const obstacle = textureNameProblem(QFileInfo(path).fileName()); !obstacle.isEmpty())
        return reported({ExitCode::Usage, obstacle}, path, console);
    Files files;
    ExitCode const code =
        write(contentsOf(path, arch, seed), QFileInfo(path).dir(), mayReplace, files, console);
    if (code != ExitCode::Ok)
        return code;
    for (auto const& file : files) {
        if (Problem const problem = failed(file->check()))
            return reported(problem, file->path, console);
    }
    for (auto const& file : files) {
        if (Problem const problem = failed(file->moveIntoPlace()))
            return reported(problem, file->path, console);
    }
    return ExitCode::Ok;
}

} // namespace tool
