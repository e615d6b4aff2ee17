#pragma once

#include <QString>

namespace tool {

/// What a scan names.
enum class NamedKind
{
    Library,
    Image
};

/// The name of a file in the folder where `path` should be, or beside the scan, that was most likely meant:
/// the same but for letter case, the suffix of an image or folders in front of it, or a few letters away.
/// Numbers in both are the same. Never the scan itself, nor a file whose suffix is that of another kind.
/// Empty when there is none.
QString nearestName(QString const& path, QString const& scanPath, NamedKind kind);

/// `nearestName` as the end of a sentence, "; is it \"skin.png\"?", or nothing.
QString nearestNameQuestion(QString const& path, QString const& scanPath, NamedKind kind);

} // namespace tool
