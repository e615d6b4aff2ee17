#include "texture/MissingLibraries.h"

#include "Console.h"
#include "Text.h"
#include "check/NearestName.h"
#include "convert/Suffixes.h"
#include "obj/TextLines.h"

#include <QBuffer>
#include <QFile>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

constexpr QByteArrayView keyword = "mtllib";

// The lines that have the keyword somewhere. A file has millions of others, which need not be parted into
// words.
QByteArray linesWithKeyword(QIODevice& device)
{
    constexpr qint64 block = 1 << 20;
    QByteArray found;
    QByteArray text;
    for (bool atEnd = false; !atEnd;) {
        QByteArray const bytes = device.read(block);
        atEnd = bytes.isEmpty();
        text += bytes;
        // Up to the last whole line; no line is searched twice.
        qsizetype const rest = atEnd ? 0 : bytes.size() - 1 - bytes.lastIndexOf('\n');
        if (rest == bytes.size() && !atEnd)
            continue;
        QByteArrayView const lines = QByteArrayView(text).chopped(rest);
        for (qsizetype at = lines.indexOf(keyword); at >= 0;) {
            qsizetype const begin = lines.lastIndexOf('\n', at) + 1;
            qsizetype const lineEnd = lines.indexOf('\n', at);
            qsizetype const end = lineEnd < 0 ? lines.size() : lineEnd;
            found.append(lines.sliced(begin, end - begin)).append('\n');
            at = lines.indexOf(keyword, end);
        }
        text = text.last(rest);
    }
    return found;
}

// The libraries, and nothing else of the file; not even in which lines they are named.
obj::ObjText librariesOf(QIODevice& device)
{
    QByteArray bytes = linesWithKeyword(device);
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    obj::ObjText text;
    for (obj::TextLines lines(buffer); lines.next();) {
        if (lines.tokens().front() == keyword)
            text.libraries.push_back({0, lines.words().mid(1)});
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
