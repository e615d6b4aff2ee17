#include "texture/MissingLibraries.h"

#include "Console.h"
#include "Text.h"
#include "check/NearestName.h"
#include "convert/Suffixes.h"
#include "obj/TextLines.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

// The lines that name libraries, and nothing else of the file.
obj::ObjText librariesOf(QIODevice& device)
{
    obj::ObjText text;
    for (obj::TextLines lines(device); lines.next();) {
        if (lines.tokens().front() == QByteArrayView("mtllib"))
            text.libraries.push_back({lines.number(), lines.words().mid(1)});
    }
    return text;
}

} // namespace

QString missingLibraryProblem(obj::MtlLibrary const& library, QString const& scanPath)
{
    if (library.isSeveral)
        return obj::severalNamesProblem(library);
    return Text::tr("the material library \"%1\" does not exist").arg(library.name) +
           nearestNameQuestion(obj::pathBeside(scanPath, library.name), scanPath, NamedKind::Library);
}

void warnOfMissingLibraries(QString const& scanPath, Console& console)
{
    QFile file(scanPath);
    if (!hasSuffix(scanPath, "obj"_L1) || !file.open(QIODevice::ReadOnly))
        return;
    for (obj::MtlLibrary const& library : materialTreeOf(scanPath, librariesOf(file)).libraries) {
        if (!library.isFound)
            console.warning(scanPath + u": "_s + missingLibraryProblem(library, scanPath));
    }
}

} // namespace tool
