#pragma once

#include <QString>

namespace tool {

/// The name of a file in the folder where `path` should be, or in `otherFolder`, that was most likely meant:
/// the same but for letter case or folders in front of it, or a few letters away. Empty when there is none.
QString nearestName(QString const& path, QString const& otherFolder);

/// `nearestName` as the end of a sentence, "; is it \"skin.png\"?", or nothing.
QString nearestNameQuestion(QString const& path, QString const& otherFolder);

} // namespace tool
