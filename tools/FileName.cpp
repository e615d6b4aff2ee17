#include "FileName.h"

#include "Text.h"

#include <QFileInfo>

namespace tool {

QString whyNoFileName(QString const& path)
{
    // A name may hold the character that stands for what was lost.
    if (!path.contains(QChar::ReplacementCharacter) || QFileInfo::exists(path))
        return {};
    return Text::tr("the name is not UTF-8, and nothing can be opened by it");
}

} // namespace tool
