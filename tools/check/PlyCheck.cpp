#include "Text.h"
#include "check/Check.h"
#include "check/Checkers.h"
#include "check/ImageChecks.h"
#include "inspect/PlyReading.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

bool hasCoordinates(ply::HeaderText const& header)
{
    ply::Element const* const vertex = header.element("vertex"_L1);
    return vertex != nullptr && std::any_of(vertex->properties.begin(), vertex->properties.end(),
                                            [&](ply::Property const& property) {
                                                return useOf(*vertex, property) == "texture coordinate"_L1;
                                            });
}

void checkRange(QList<QVector2D> const& coordinates, Findings& findings)
{
    auto const isOutside = [](QVector2D const& uv) {
        return !(uv.x() >= 0 && uv.x() <= 1 && uv.y() >= 0 && uv.y() <= 1);
    };
    auto const outside = std::count_if(coordinates.begin(), coordinates.end(), isOutside);
    if (outside > 0)
        findings.add("texture-range"_L1,
                     Text::counted("%n texture coordinate(s) (lies|lie) outside 0 to 1", nullptr, outside));
}

} // namespace

void checkPlyTexture(Check& check)
{
    QFile file(check.source.path);
    if (!file.open(QIODevice::ReadOnly))
        return;
    ply::HeaderText const header = ply::readHeaderText(file);
    if (header.textureName.isEmpty()) {
        if (hasCoordinates(header))
            check.findings.add("unnamed-texture"_L1,
                               Text::tr("has texture coordinates, but its header names no image"));
        return;
    }
    QDir const folder = QFileInfo(check.source.path).dir();
    checkImage(check.source.path, header.textureName,
               imageFileAt(folder.absoluteFilePath(header.textureName)), {}, check.findings);
    checkRange(ply::readFile(check.source.path, header).reader->getMesh().textureCoordinates, check.findings);
}

} // namespace tool
