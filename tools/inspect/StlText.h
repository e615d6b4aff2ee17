#pragma once

#include "inspect/Bounds.h"

#include <QByteArrayView>
#include <QIODevice>

namespace tool::stl {

/// Whether a file that begins with `head` is read as text: its first line, trimmed, starts with "solid".
bool isReadAsText(QByteArrayView head);

/// What a pass over the lines of an ASCII file finds, line by line as `STLReader` reads them.
struct TextContents
{
    qint64 vertices = 0;
    qint64 lastVertexLine = 0;
    Bounds bounds;
    /// Why the file cannot be read, with the line; empty when nothing is wrong.
    QString problem;
    QLatin1StringView problemCode;
};

TextContents textContentsOf(QIODevice& device);

} // namespace tool::stl
