#include "texture/TexturedScan.h"

#include "LibraryLog.h"
#include "Text.h"
#include "check/NearestName.h"
#include "convert/Suffixes.h"
#include "inspect/Format.h"
#include "inspect/PlyHeaderText.h"
#include "obj/ObjReading.h"
#include "ply/PLYReader.h"
#include "texture/MissingLibraries.h"

#include <QDir>
#include <QFile>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

QString imageProblem(ImageFile const& image, QString const& name, QString const& scanPath)
{
    if (!image.isFound)
        return Text::tr("the image \"%1\" does not exist").arg(name) +
               nearestNameQuestion(obj::pathBeside(scanPath, name), scanPath, NamedKind::Image);
    if (!image.isImage())
        return Text::tr("\"%1\" is no image that can be read").arg(name);
    return image.isOverLimit() ? image.limitProblem(name) : QString();
}

QString imageLineProblem(obj::ImageLine const& image, QString const& scanPath)
{
    if (!image.image.isFound && !image.options.isEmpty())
        return Text::tr("the image \"%1\" does not exist; the options beside \"%2\" are taken as part "
                        "of the name")
            .arg(image.given, image.name);
    return imageProblem(image.image, image.given, scanPath);
}

// Why the library did not read a material library to its end.
QString stopProblem(obj::MtlLibrary const& library, QString const& scanPath)
{
    QString problem = Text::tr("an image stands before the first \"newmtl\"");
    for (obj::MtlMaterial const& material : library.materials) {
        for (obj::ImageLine const& image : material.images) {
            if (QString const found = imageLineProblem(image, scanPath);
                image.line == library.stopsAt && !found.isEmpty())
                problem = found;
        }
    }
    return Text::tr("%1, line %2: %3").arg(library.name, QString::number(library.stopsAt), problem);
}

QString libraryProblem(obj::MtlLibrary const& library, QString const& scanPath)
{
    if (!library.isFound)
        return missingLibraryProblem(library, scanPath);
    return library.stopsAt > 0 ? stopProblem(library, scanPath) : QString();
}

bool hasUsedImage(obj::MaterialTree const& tree)
{
    bool isUsed = false;
    obj::forEachImage(tree, [&](obj::MtlMaterial const& material, obj::ImageLine const&) {
        isUsed = isUsed || material.faces > 0;
    });
    return isUsed;
}

QString objObstacle(QString const& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return file.errorString();
    obj::ObjText const text = obj::readObjText(file);
    obj::MaterialTree const tree = obj::materialTreeOf(path, text);
    for (obj::MtlLibrary const& library : tree.libraries) {
        if (QString problem = libraryProblem(library, path); !problem.isEmpty())
            return problem;
    }
    if (tree.libraries.empty())
        return Text::tr("has no texture: it names no material library");
    if (!hasUsedImage(tree))
        return Text::tr("has no texture: no material of its faces names an image");
    return text.textureCoordinates == 0 ? Text::tr("has no texture coordinates")
                                        : Text::tr("its texture could not be read");
}

bool declares(ply::HeaderText const& header, QLatin1StringView use)
{
    ply::Element const* const vertex = header.element("vertex"_L1);
    return vertex != nullptr &&
           std::any_of(vertex->properties.begin(), vertex->properties.end(),
                       [&](ply::Property const& property) { return useOf(*vertex, property) == use; });
}

QString plyObstacle(QString const& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return file.errorString();
    ply::HeaderText const header = ply::readHeaderText(file);
    if (header.textureName.isEmpty())
        return Text::tr("has no texture: its header names none");
    ImageFile const image = imageFileAt(obj::pathBeside(path, header.textureName));
    if (QString problem = imageProblem(image, header.textureName, path); !problem.isEmpty())
        return problem;
    if (!declares(header, "texture coordinate"_L1))
        return Text::tr("has no texture coordinates");
    if (declares(header, "colour"_L1))
        return Text::tr("has colours of its own; these go before its texture");
    return Text::tr("its texture could not be read");
}

// `read` has the reader read the file, from a device: only that can be stopped.
template <typename Read>
bool readWith(SurfaceReader& reader, QString const& path, TexturedScan& scan, Read const& read)
{
    QFile file(path);
    reader.setFileName(path);
    reader.setTextureSupport(SurfaceReader::TextureRequired);
    LogCapture const capture;
    bool const isRead = read(file);
    scan = {reader.getMesh(), reader.getTexture(), capture.messages()};
    return isRead && !scan.texture.isNull();
}

bool readObj(QString const& path, TexturedScan& scan)
{
    OBJReader reader;
    return readWith(reader, path, scan, [&reader](QFile& file) {
        return reader.read(&file, Interrupt::flag()) == OBJReader::NoError;
    });
}

bool readPly(QString const& path, TexturedScan& scan)
{
    PLYReader reader(PLYReader::MeshMode);
    return readWith(reader, path, scan,
                    [&reader](QFile& file) { return reader.read(&file, Interrupt::flag()); });
}

bool read(QString const& path, bool isObj, TexturedScan& scan)
{
    return isObj ? readObj(path, scan) : readPly(path, scan);
}

} // namespace

Problem readTexturedScan(QString const& path, TexturedScan& scan)
{
    bool const isObj = hasSuffix(path, "obj"_L1);
    if (!isObj && !hasSuffix(path, "ply"_L1))
        return {ExitCode::Usage, Text::tr("expected one of the suffixes .obj, .ply")};
    if (QString const problem = whyNotRegular(path); !problem.isEmpty())
        return {ExitCode::ReadOrWriteFailed, problem};
    if (read(path, isObj, scan))
        return {};
    if (Problem problem = interruption())
        return problem;
    if (Problem problem = refusalOf(path))
        return problem;
    return {ExitCode::Unsupported, isObj ? objObstacle(path) : plyObstacle(path)};
}

} // namespace tool
