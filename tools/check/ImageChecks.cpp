#include "check/ImageChecks.h"

#include "Text.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

// Of this system or another: "/home/x/a.png", "C:\scans\a.png", "C:/scans/a.png".
bool isAbsolute(QString const& name)
{
    bool const hasDrive = name.size() > 2 && name[0].isLetter() && name[1] == u':';
    return hasDrive || name.startsWith(u'/') || name.startsWith("\\\\"_L1);
}

QString remedyFor(QString const& nearest)
{
    return nearest.isEmpty()
               ? QString()
               : Text::tr("name \"%1\", if that is meant, and put it beside the scan").arg(nearest);
}

} // namespace

void checkMissing(NamedKind kind, QString const& scanPath, QString const& name, QString const& place,
                  Findings& findings)
{
    bool const isImage = kind == NamedKind::Image;
    QString const what = isImage ? Text::tr("the image") : Text::tr("the material library");
    QDir const folder = QFileInfo(scanPath).dir();
    QString const path = folder.absoluteFilePath(name);
    QString const sentence = place + what + u" \"%1\""_s.arg(name);
    if (isAbsolute(name))
        findings.add("absolute-path"_L1, sentence + Text::tr(" is named by a path from the root of a disk"));
    else if (name.contains(u'\\'))
        findings.add("backslash-path"_L1, sentence + Text::tr(" is named with a backslash"));
    findings.add(isImage ? "missing-image"_L1 : "missing-library"_L1,
                 sentence + Text::tr(" does not exist") + nearestNameQuestion(path, scanPath, kind),
                 remedyFor(nearestName(path, scanPath, kind)));
}

void checkImage(QString const& scanPath, QString const& name, ImageFile const& image, QString const& place,
                Findings& findings)
{
    if (!image.isFound)
        checkMissing(NamedKind::Image, scanPath, name, place, findings);
    else if (!image.isImage())
        findings.add("no-image"_L1, place + Text::tr("\"%1\" is no image that can be read").arg(name));
    else if (image.isOverLimit())
        findings.add("image-limit"_L1, place + image.limitProblem(name));
    if (image.isFound && isAbsolute(name))
        findings.add("absolute-path"_L1,
                     place +
                         Text::tr("the image \"%1\" is named by a path from the root of a disk").arg(name));
}

} // namespace tool
