#include "Text.h"
#include "inspect/Formats.h"

#include <QtEndian>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

constexpr qint64 countsBytes = 8;

constexpr qint64 recordBytes(qint64 vertices, qint64 indices)
{
    constexpr qint64 bytesOfAVertex = 48; // place and normal, three doubles each
    constexpr qint64 bytesOfAnIndex = 4;
    return countsBytes + bytesOfAVertex * vertices + bytesOfAnIndex * indices;
}

// Any eight bytes may be two counts.
QString recognise(Source const&)
{
    return {};
}

void inspect(Source const& source, Inspection& inspection)
{
    if (source.size < countsBytes) {
        inspection.fail(
            ExitCode::Malformed,
            Text::counted("expected two counts of 4 bytes, found %n byte(s)", nullptr, source.size),
            "array-size"_L1);
        return;
    }
    qint64 const vertices = qFromBigEndian<qint32>(source.head.constData());
    qint64 const indices = qFromBigEndian<qint32>(source.head.constData() + 4);
    Report& inFile = inspection.report.section("inFile"_L1, Text::tr("in the file"));
    inFile.add("vertices"_L1, Text::tr("vertices"), vertices);
    inFile.add("indices"_L1, Text::tr("indices"), indices);
    if (vertices < 0 || indices < 0)
        inspection.fail(ExitCode::Malformed,
                        Text::tr("expected counts from 0 on, found %1 vertices and %2 indices")
                            .arg(vertices)
                            .arg(indices),
                        "array-size"_L1);
    else if (source.size != recordBytes(vertices, indices))
        inspection.fail(ExitCode::Malformed,
                        Text::tr("%1 vertices and %2 indices take %3 bytes, the file holds %4")
                            .arg(vertices)
                            .arg(indices)
                            .arg(recordBytes(vertices, indices))
                            .arg(source.size),
                        "array-size"_L1);
}

} // namespace

Format const arrayFormat = {"array"_L1, QLatin1StringView(QT_TRANSLATE_NOOP("Text", "mesh array record")),
                            "array"_L1, recognise, inspect};

} // namespace tool
