#pragma once

#include <QColor>

namespace tool::preview {

constexpr QRgb backgroundColor = 0xFFF7F7F5;
constexpr QRgb inkColor = 0xFF303438;
/// A surface without any colour of its own.
constexpr QRgb plainColor = 0xFFE2D9C6;

/// The colour of a tag and subTag, the same in every picture. Numbers of teeth (11 to 85) and 1, that of
/// the gum, are told apart well.
QRgb tagColor(int tag, int subTag);

} // namespace tool::preview
