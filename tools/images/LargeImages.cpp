#include "images/LargeImages.h"

#include "convert/Suffixes.h"
#include "inspect/PlyHeaderText.h"
#include "obj/MaterialTree.h"

#include <QDebug>
#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

void addProblem(ImageFile const& image, QString const& name, QStringList& problems)
{
    if (image.isOverLimit())
        problems << image.limitProblem(name);
}

QStringList imagesOfObj(QString const& path, QFile& file)
{
    QStringList problems;
    obj::forEachImage(materialTreeOf(path, obj::readObjText(file)),
                      [&](obj::MtlMaterial const&, obj::ImageLine const& image) {
                          addProblem(image.image, image.given, problems);
                      });
    return problems;
}

QStringList imagesOfPly(QString const& path, QFile& file)
{
    QStringList problems;
    QString const name = ply::readHeaderText(file).textureName;
    addProblem(imageFileAt(QFileInfo(path).dir().absoluteFilePath(name)), name, problems);
    return problems;
}

// What Qt says of an image that is too large.
bool isRefusal(QString const& message)
{
    return message.contains("exceeds the current allocation limit"_L1);
}

} // namespace

QStringList imagesOverLimit(QString const& meshPath)
{
    QFile file(meshPath);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QStringList problems =
        hasSuffix(meshPath, "obj"_L1) ? imagesOfObj(meshPath, file) : imagesOfPly(meshPath, file);
    problems.removeDuplicates();
    return problems;
}

void logAgain(QString const& meshPath, QStringList const& log)
{
    bool isRefused = false;
    for (QString const& message : log) {
        isRefused = isRefused || isRefusal(message);
        if (!isRefusal(message))
            qWarning().noquote() << message;
    }
    if (!isRefused)
        return;
    for (QString const& problem : imagesOverLimit(meshPath))
        qWarning().noquote() << problem;
}

} // namespace tool
